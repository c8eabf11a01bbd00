// Resources made by anyone: told in full, damaged ones too, and the same to the tool as to the library.
#include <cairo.h>

#include "core/line_walks.h"
#include "core/walks.h"
#include "host/host.h"
#include "host/streams.h"
#include "resources/glyph_banks.h"
#include "support/tool.h"

using namespace std::string_literals;
using Files = std::map<std::string, std::string>;

// A record with bytes at the places of its fields.
static std::string record(size_t size, const std::vector<std::pair<size_t, std::string>> &fields)
{
    std::string bytes(size, '\0');
    for (const auto &[at, field] : fields)
        bytes.replace(at, field.size(), field);
    return bytes;
}

// One item has a choice, one is hidden, one stands on the first one's page, one has no parent and one no place.
static Files small_menu()
{
    const std::string one = "\2\0\0\0\1\0\0\0\2\0\0\0\2"s, block = record(24, {{0, one}}) + "..";
    const auto item = [&](const std::string &levels) { return record(168, {{48, levels}, {88, one}}); };
    Files files = {{"hm.d", record(56, {{32, one}})}, {"bm.d", record(64, {{32, one}, {56, "\3"}})}};
    files["hb.d"] = "menu\0Menu\0.."s;
    files["bb.d"] = "bye\0Bye\0.."s;
    files["s.d"] = block + block + block + block;
    files["m.d"] = record(168 + 56, {{48, "\1\xff\xff\xff"}, {88, one}, {128, "\1"}, {136, "\1"}}) +
                   record(168, {{48, "\0\xff\xff\xee"s}, {88, one}, {128, "\2"}, {136, "\1\0\0\0\5"s}}) +
                   item("\1\2\xff\xff") + item("\5\1\xff\xff") + item("\xff\1\xff\xff");
    files["b.d"] = "a\0A\0..on\0b\0B\0..c\0C\0..c\0\xff\x1b[\"\0..e/\0E\0\xf0\x80"s;
    for (int i = 0; i < 93; i++)
        files["c.d"] += block;
    return files;
}

static void write_menu(const fs::path &directory, const Files &files)
{
    fs::create_directories(directory);
    for (const auto &[name, content] : files)
        std::ofstream(directory / name) << content;
}

using Inspect = Tool;

static const std::string golden = R"x(total schema=1 language_count=1 bytes=3597
  language name="en" directory="d/en" bytes=3597
    note file="b.d" offset=21 text="'c' is a name used twice, first at 15"
    note file="b.d" offset=21 text="'c' has a text or name that is no UTF-8 or holds control characters"
    note file="m.d" offset=224 text="'b': the limits are upside down, 5 to 1"
    note file="m.d" offset=560 text="'c' has no parent and lands at depth 0"
    refused_item index=4 name="e/" text="E" meta_offset=728 data_offset=30 levels=[255,1,255,255] depth=1 enabled=true value="none" width=1 height=1 bytes=2 stride=2 pixel_type=2 pixel_offset=35
    item index=0 name="a" text="A" meta_offset=0 data_offset=0 levels=[1,255,255,255] depth=0 enabled=true value="choices" current=0 choice_count=1 width=1 height=1 bytes=2 stride=2 pixel_type=2 pixel_offset=4
      choice index=0 text="on" meta_offset=168 data_offset=6 width=0 height=0 bytes=0 stride=0 pixel_type=0 pixel_offset=9
      item index=2 name="c" text="C" meta_offset=392 data_offset=15 levels=[1,2,255,255] depth=1 enabled=true value="none" width=1 height=1 bytes=2 stride=2 pixel_type=2 pixel_offset=19
    item index=1 name="b" text="B" meta_offset=224 data_offset=9 levels=[0,255,255,238] depth=0 enabled=false value="number" current=0 low=5 high=1 step=0 width=1 height=1 bytes=2 stride=2 pixel_type=2 pixel_offset=13
    item index=3 name="c" text="\\xff\\x1b[\"" meta_offset=560 data_offset=21 levels=[5,1,255,255] depth=1 enabled=true value="none" width=1 height=1 bytes=2 stride=2 pixel_type=2 pixel_offset=28
    bubble index=0 name="bye" text="Bye" meta_offset=0 data_offset=0 width=1 height=1 bytes=2 stride=2 pixel_type=2 pixel_offset=8 level=3)x";
TEST_F(Inspect, EachThingIsOneLineOrJsonObjectInTheOrderOfTheLibraryAndTheSameOnEveryRun)
{
    write_menu(dir / "d/en", small_menu());
    EXPECT_EQ(run("osdmenu inspect d | grep -Ev ' (file|symbol|help_line|glyph) '"), 0);
    EXPECT_EQ(out + err, golden + '\n');
    EXPECT_EQ(run("osdmenu inspect --json d >1.txt; osdmenu inspect --json d | cmp - 1.txt && cat 1.txt"), 0);
    EXPECT_NE(Json(cJSON_Parse(out.c_str())), nullptr);
}

// Bytes are put at a place of a file; without any, the file ends there.
static const std::tuple<std::string, size_t, std::string, std::string> damages[] = {
    {"m.d", 167, "", "m.d\" offset=0 text=\"item 0 is cut short: 167 of 168 bytes"},
    {"m.d", 139, "\xff", "m.d\" offset=0 text=\"'a' announces -16777215 choices"},
    {"m.d", 168 + 36, "\1\0\0\0\x40"s, "b.d\" offset=9 text=\"the picture of choice 0 of 'a' is cut short: 28 of"},
    {"m.d", 224 + 93, "\x21", "m.d\" offset=224 text=\"the picture of 'b' has an absurd size: 8449 rows"},
    {"b.d", 10, "", "b.d\" offset=9 text=\"the name of item 1 has no end"},
    {"b.d", 37, "more", "b.d\" offset=37 text=\"4 bytes behind the last item"},
    {"c.d", 92 * 26, "", "c.d\" offset=2392 text=\"there are 92 glyphs of 93"},
};
TEST_F(Inspect, EveryDamageIsToldWithItsFileAndByte)
{
    for (const auto &[edited, at, put, damage] : damages) {
        Files files = small_menu();
        files[edited].replace(at, put.empty() ? files[edited].npos : put.size(), put);
        write_menu(dir / "d/en", files);
        EXPECT_EQ(run("osdmenu inspect d"), 1);
        EXPECT_NE(out.find("    damage file=\"" + damage), out.npos) << damage << "\n" << out.substr(0, 300);
    }
    const std::string missing = "grep 'file=\"s.d\" offset=0 text=\"there is no such file'";
    EXPECT_EQ(run("rm d/en/s.d; osdmenu inspect d | " + missing + " && osdmenu inspect m"), 2); // which holds nothing
}

TEST_F(Inspect, EveryPictureBecomesAPngOverTheBackgroundOfTheManifest)
{
    write_menu(dir / "d/en", small_menu());
    write("d/menu.json", R"({"pixel_format": "ARGB4444", "background": "#ff0000"})");
    EXPECT_EQ(run("osdmenu inspect d --png png >/dev/null; ls png/en | wc -l"), 0);
    EXPECT_EQ(out + err, "104\npng/en/choice-000-000-a.png: not written, the picture is empty\n");
    cairo_surface_t *surface = cairo_image_surface_create_from_png((dir / "png/en/item-004-e_.png").c_str());
    EXPECT_EQ(*reinterpret_cast<uint32_t *>(cairo_image_surface_get_data(surface)) & 0xffffff, 0x778800u);
    cairo_surface_destroy(surface);
}

template <class... Fields> static std::string bytes_of(const Fields &...fields)
{
    return (std::string(reinterpret_cast<const char *>(&fields), sizeof fields) + ...);
}

// `build` gives a stride to every picture.
static std::string told(const osdmenu_view_bitmap &of, const char *pixels)
{
    return bytes_of(of.pixeltype, of.height, of.width, of.stride) + std::string(pixels, of.height * of.stride);
}

// All that was read, and all that the library loads, each in the order of the files.
static std::string told_by_reader(const Resources &read)
{
    std::string all;
    for (const ReadItem &item : read.items) {
        all += item.name + item.text + bytes_of(item.position, item.value_type, item.current, item.number);
        all += told(item.picture.size, item.picture.pixels.data());
        for (const ReadChoice &choice : item.choices)
            all += choice.text + told(choice.picture.size, choice.picture.pixels.data());
    }
    for (const auto *lines : {&read.help_lines, &read.bubbles})
        for (const ReadLine &line : *lines)
            all += line.name + line.text + told(line.picture.size, line.picture.pixels.data()) + bytes_of(line.level);
    for (const auto *bank : {&read.glyphs, &read.symbols})
        for (const ReadPicture &block : *bank)
            all += told(block.size, block.pixels.data());
    return all;
}

static std::string told_by_library(const std::string &directory)
{
    const Streams streams; // the loads print
    load_resources(directory);
    const auto picture = [](const osdmenu_view_bitmap &one) { return told(one, one.bitmap); };
    std::string all;
    for (const osdmenu_item *item = first_loaded(); item; item = loaded_after(item)) {
        const osdmenu_item_value &value = item->item_values;
        all.append(item->name).append(item->view.description);
        all += bytes_of(item->position, value.type, value.current, value.u.number) + picture(item->view.viewbitmap);
        for (const auto *choice = first_choice(&value); choice; choice = choice_after(choice, &value))
            all += choice->u.txt.description + picture(choice->u.txt.viewbitmap);
    }
    for (const osdhelpline *line = first_helpline(); line; line = helpline_after(line))
        all += line->name + std::string(line->viewdescription) + picture(line->viewbitmap) + bytes_of(0);
    for (const osdbubbleline *line = first_bubbleline(); line; line = bubbleline_after(line))
        all += line->name + std::string(line->viewdescription) + picture(line->viewbitmap) + bytes_of(line->level);
    for (auto **bank : {osdmenu_commonchar_viewbitmap, osdmenu_utf16symbol_viewbitmap})
        for (; *bank; bank++)
            all += picture(**bank);
    return all;
}

TEST_F(Inspect, WhatBuildWritesIsReadAndLoadedWithEveryFieldEqual)
{
    ASSERT_EQ(run("osdmenu build " SAMPLE_MENU_DIR "/menu.yaml -o made; osdmenu inspect made >/dev/null"), 0);
    const std::string made = dir / "made/en/";
    EXPECT_TRUE(told_by_reader(read_resources(files_of_directory(made))) == told_by_library(made));
}
