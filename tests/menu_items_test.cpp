// Loading the menu items from m.d and b.d, whole and damaged, and freeing them.
#include <climits>

#include "core/item_value.h"
#include "support/faults.h"

static const ResourceDirectory files;

// What a load prints, without the name of the function. Lines of standard error stand behind the others.
static std::string loading(const char *dir = files.path().c_str())
{
    return printed_by("read2mem_all_menuitems", [dir] { EXPECT_EQ(read2mem_all_menuitems(dir), 0); });
}
static std::string loading(const std::string &meta, const std::string &data)
{
    files.write("m.d", meta);
    files.write("b.d", data);
    return loading();
}
static const std::string OPENED = "INFO open file:m.d ok!\nINFO open file:b.d ok!\n";
static const std::string META_ENDS = "INFO read meta_file end!\n";
static const std::string CHOICES_END = "ERR read meta_file end!\n";
static const std::string TEXT_ENDS = "ERR read data_file end! Right?\n";
static const std::string NO_PIXELS = "INFO read data_file end! Right?\n";
static const std::string DATA_ENDS = "ERR read data_file end!\n";

static std::string contents() // items with their choices: "A(xy)B()"
{
    std::string text;
    for (const osdmenu_item *item = first_loaded(); item; item = loaded_after(item)) {
        const osdmenu_item_value *value = &item->item_values;
        text += item->name + std::string("(");
        for (auto *choice = has_choices(value) ? first_choice(value) : nullptr; choice;
             choice = choice_after(choice, value))
            text += choice->u.txt.description;
        text += ")";
    }
    return text;
}

TEST(HundredItems, HaveTheirPicturesWhereverTheBytesReadAheadEnd)
{
    std::vector<Item> items;
    for (unsigned i = 0; i < 100; i++)
        items.push_back({std::to_string(i), {1}, {3, i * 5, 'v'}, VALUE_TXT, {{"x", {1, i * 9, 'x'}}, {"y", {}}}});
    files.write_items(items);
    loading();
    for (unsigned i = 0; i < 100; i++) {
        const osdmenu_item *item = loaded(std::to_string(i));
        const char *view = item->view.viewbitmap.bitmap;
        const char *choice = first_choice(&item->item_values)->u.txt.viewbitmap.bitmap;
        EXPECT_EQ(std::pair(std::string(view, i * 15), std::string(choice, i * 9)),
                  std::pair(std::string(i * 15, 'v'), std::string(i * 9, 'x')));
    }
}

TEST(ItemRecord, KeepsNoPointerOfTheFile)
{
    load_menu(files, {{"A", {}, {}, VALUE_NONE, {}, {1, 2, 3, 4}}});
    const osdmenu_item *item = loaded("A");
    const list_head child = item->child, choices = item->item_values.list;
    const char *description = item->item_values.u.txt.description;
    EXPECT_EQ(std::tuple(child.prev, child.next, choices.prev, choices.next, item->action, description),
              std::tuple(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr));
}

// A record with a count where that of the choices of a VALUE_TXT stands.
static std::string counted(unsigned type, int count)
{
    std::string record = meta_of({"", {1}, {}, type});
    std::memcpy(&record[136], &count, sizeof count);
    return record;
}

TEST(ItemRecord, TakesOfTheDataWhatItAnnounces)
{
    const std::string data("A\0a\0B\0b\0", 8), full(128, 'n');
    const struct {
        const char *name;
        std::string record, data, contents;
    } rows[] = {{"a count of a free text", counted(VALUE_RAWTXT, 2), data, "A()B()"},
                {"a count of no known type", counted(9, 2), data, "A()B()"},
                {"a count of 0", counted(VALUE_TXT, 0), data, "A()B()"},
                {"a negative count", counted(VALUE_TXT, -1), data, "A()B()"},
                {"the least count", counted(VALUE_TXT, INT_MIN), data, "A()B()"},
                {"a size that wraps to 0", meta_of({"", {1}, {65536, 65536}}), data, "A()B()"},
                {"texts of 128 bytes", meta_of({"", {1}}), full + full + data, full + "()A()"}};
    for (const auto &row : rows) {
        loading(row.record + meta_of({"", {2}}), row.data);
        EXPECT_EQ(contents(), row.contents) << row.name;
        output_of(free_all_menuitems);
    }
}

TEST(Picture, WithoutRoomForItsSpareBytesFindsNoMemory)
{
    EXPECT_EQ(loading(meta_of({"A", {1}, {4, 0x3FFFFFFF}}), text_of("A") + text_of("a")),
              OPENED + "calloc osdmenu_item view viewbimap bitmap fail:: Cannot allocate memory\n"
                       "ERR calloc osdmenu_item view viewbitmap bitmap fail!\n");
}

TEST(CutFiles, GiveTheItemsAsFarAsTheyCame)
{
    const struct {
        const char *name;
        std::size_t meta_bytes, data_bytes;
        std::string lines, contents;
    } ends[] = {
        {"behind everything", 448, 30, META_ENDS, "A(xy)B()"},
        {"before a name", 448, 0, TEXT_ENDS, "()"},
        {"in a name", 448, 1, TEXT_ENDS, "A()"},
        {"before a description", 448, 2, NO_PIXELS + TEXT_ENDS + DATA_ENDS, "A()"},
        {"before a picture", 448, 5, NO_PIXELS + DATA_ENDS, "A()"},
        {"in a picture", 448, 8, TEXT_ENDS, "A()"}, // told of the text behind it
        {"in the text of a choice", 448, 12, TEXT_ENDS, "A(x)"},
        {"before the picture of a choice", 448, 13, NO_PIXELS + DATA_ENDS, "A(x)"},
        {"in the picture of a choice", 448, 14, TEXT_ENDS, "A(x)"},
        {"before the name of the next item", 448, 19, TEXT_ENDS, "A(xy)()"},
        {"before all records", 0, 30, META_ENDS, ""},
        {"behind one byte of a record", 1, 30, NO_PIXELS + META_ENDS, "A()"},
        {"before the record of a choice", 168, 30, META_ENDS + CHOICES_END, "A()"},
        {"behind one byte of the record of a choice", 225, 30, NO_PIXELS + META_ENDS, "A(xy)"},
        {"behind one byte of the next record", 281, 30, NO_PIXELS + META_ENDS, "A(xy)B()"},
    };
    const Item a = {"A", {1}, {2, 3, 'p'}, VALUE_TXT, {{"x", {1, 2}}, {"y", {1, 2}}}, {}, 0, "da"};
    const Item b = {"B", {2}, {2, 3}, VALUE_NONE, {}, {}, 0, "db"};
    const std::string meta = meta_of(a) + meta_of(b), data = data_of(a) + data_of(b);
    for (const auto &end : ends) {
        const std::string lines = loading(meta.substr(0, end.meta_bytes), data.substr(0, end.data_bytes));
        EXPECT_EQ(std::pair(lines, contents()), std::pair(OPENED + end.lines, end.contents)) << end.name;
        output_of(free_all_menuitems);
    }
}

TEST(MetaFile, ThatDoesNotOpenIsToldWithTheReason)
{
    const std::string missing = files.path(), too_long(4093, '/'); // 4096 bytes with the name of the file
    for (auto [dir, reason] : {std::pair{missing.c_str(), std::string("No such file or directory\n")},
                               {too_long.c_str(), "File name too long\n"},
                               {nullptr, "No such file or directory\n"}})
        EXPECT_EQ(loading(dir), "open meta_file fail:: " + reason + "ERR open meta_file fail!\n");
}

TEST(MetaFile, OpensByAPathOf4095Bytes)
{
    loading("", "");
    const std::string slashes(4092 - files.path().size(), '/');
    EXPECT_EQ(loading((slashes + files.path()).c_str()), OPENED + META_ENDS);
}

TEST(DataFile, ThatDoesNotOpenLeavesTheItems)
{
    load_menu(files, {{"A", {1}}});
    files.remove("b.d");
    loading();
    EXPECT_EQ(contents(), "A()");
}

TEST(NextLoad, LeavesTheTreeUntilItIsOrdered)
{
    load_menu(files, {{"A", {1}}});
    loading(meta_of({"B", {1}}), data_of(Item{"B", {1}}));
    EXPECT_EQ(rows_of(), "A");
}

TEST(FreedMenu, HasEveryItemTold)
{
    load_menu(files, {{"A", {0}, {}, VALUE_TXT, {{"x", {}}, {"y", {}}}}, {"B", {1}}, {"refused", {}}});
    const std::string lines = printed_by("free_all_menuitems", [] { EXPECT_EQ(free_all_menuitems(), 0); });
    EXPECT_EQ(std::regex_replace(lines, std::regex("OUT_INFO "), ""),
              "enter\nname:A\nview description:description\nvalue type:1\ntxt description:x\ntxt description:y\n"
              "name:B\nview description:description\nno value!\n"
              "name:refused\nview description:description\nno value!\nleave\n");
}

TEST(FreedMenu, LeavesNothingButThePosition)
{
    prepare_view(files, 100, 100);
    load_menu(files, {{"A", {0}}, {"refused", {}}});
    redraw();
    set_current_view_position(1, 6);
    output_of(free_all_menuitems);
    EXPECT_EQ(std::tuple(first_loaded(), first_along_next(&osdmenu.siblings), first_row(&orderized_osdmenu.siblings),
                         osdmenu_current_menuitem, get_current_view_position(1)),
              std::tuple(nullptr, nullptr, nullptr, nullptr, 6));
}

TEST(FreedItem, ShowsNullForAMissingText)
{
    loading(meta_of({"", {1}}), "half a name");
    EXPECT_EQ(lines_with(printed(free_all_menuitems), ": view description:(null)\n"), 1);
}

TEST(NeverLoadedMenu, StaysSoOverAFailedLoadAndAFree)
{
    loading();
    output_of(free_all_menuitems);
    EXPECT_EQ(osdmenu.readlist.prev, nullptr);
}
