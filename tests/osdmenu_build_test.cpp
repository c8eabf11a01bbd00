// From menus to resource files and pictures.
#include <cstring>

#include "osd_menu.h"
#include "render/pixels.h"
#include "store/resource_reader.h"
#include "support/tool.h"

static const std::string one_item = "  - {name: a, text: A}\n";

// As PO files are, without the fields of a header that no reader here looks at.
static std::string po(const std::string &entries)
{
    return "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n" + entries;
}
static std::string translation(const std::string &name, const std::string &from, const std::string &to)
{
    return "msgctxt \"" + name + "\"\nmsgid \"" + from + "\"\nmsgstr \"" + to + "\"\n";
}

struct Build : Tool {
    osdmenu_item item(size_t offset)
    {
        osdmenu_item result;
        read(dir / "made/en/m.d").copy(reinterpret_cast<char *>(&result), sizeof result, offset);
        return result;
    }
    Resources made(const std::string &language) const
    {
        return read_resources(files_of_directory(dir / "made" / language));
    }
};

TEST_F(Build, TheSampleMenuCompilesWithoutAFindingAndAlwaysToTheSameBytes)
{
    const std::string twice = "for d in one two; do osdmenu build " SAMPLE_MENU_DIR "/menu.yaml -o $d >$d.txt; done; ";
    EXPECT_EQ(run(twice + "diff -r one two && ls one/*/*.d | wc -l"), 0);
    EXPECT_EQ(out + err, "80\n");
}

TEST_F(Build, ItemsAreWrittenBreadthFirstWithTheirValuesMarksAndTexts)
{
    std::string words = "xx\u00e4", content = menu(R"(
  - {name: a, text: "Yes", items: [{name: a-title, text: A}, {name: n, text: N, number: {low: -3, high: 9, step: 2}}]}
  - {name: c, text: "No", enabled: false, choices: [x, y, z], value: y}
  - {name: long, text: )");
    for (int i = 0; i < 6; i++)
        words += words;
    write("m/po/de.po", po(translation("a", "Yes", "Ja") + "#, fuzzy\n" + translation("c", "No", "Nein")));
    EXPECT_EQ(build(content.replace(content.find("[en]"), 4, "[en, de]") + words + "}\n"), 0);
    EXPECT_NE(err.find("cut at 126 of 256 bytes in en"), std::string::npos) << err;
    const std::string data = read(dir / "made/de/b.d");
    EXPECT_NE(data.find(std::string("a\0Ja\0", 5)), std::string::npos);
    EXPECT_LT(data.find(std::string("c\0No\0", 5)), data.find("a-title"));
    EXPECT_NE(data.find('\0' + words.substr(0, 126) + '\0'), std::string::npos); // it ends with a whole character
    const osdmenu_item choice = item(2 * 168), last = item(5 * 168 + 3 * 56);
    const osdmenu_item_value_number &number = last.item_values.u.number;
    EXPECT_EQ(std::memcmp(choice.position.levels, "\2\xff\xff\xee", 4), 0);
    EXPECT_EQ(std::memcmp(&choice.item_values.u, "\3\0\0", 4), 0); // the count of choices
    EXPECT_EQ(std::memcmp(last.position.levels, "\1\1\xff\xff", 4), 0);
    EXPECT_EQ(std::tuple(choice.item_values.current, number.lowlimit, number.step), std::tuple(1, -3, 2));
}

// White on blue: an edge blended with anything but the background would be darker than it in some channel.
TEST_F(Build, EdgesAreBlendedWithTheBackgroundThatTheDeviceFills)
{
    ASSERT_EQ(build(menu("  - {name: b, text: WAX}\n", "colours: {background: \"#0000ff\", title: \"#ffffff\"}\n")), 0);
    EXPECT_NE(read(dir / "made/conf_backup/osd_menu.json").find("-2145419233"), std::string::npos); // 0x801f801f
    const osdmenu_view_bitmap size = item(0).view.viewbitmap;
    std::vector<uint16_t> pixels(size.height * size.width / 2);
    std::memcpy(pixels.data(), read(dir / "made/en/b.d").data() + sizeof "title" + sizeof "T", pixels.size() * 2);
    int edges = 0;
    for (unsigned pixel : pixels) {
        EXPECT_EQ(pixel & 0x801f, 0x801f);
        edges += pixel != 0x801f && pixel != 0xffff;
    }
    EXPECT_GT(edges, 10);
}

TEST_F(Build, AllFindingsComeInOneRunSortedByPlaceAndKeepTheOldOutput)
{
    ASSERT_EQ(build(menu(one_item)), 0);
    build(menu("  - {name: a, text: A, number: {low: 0, high: 3, step: 0}}\n  - {name: a, text: A, frob: 1}\n"));
    const size_t step = err.find(
        "m/menu.yaml:6:56: error: 'step' must be a whole number, at least 1 (found '0') [menu-file]\n    6 |   - {name: a");
    const size_t taken = err.find("m/menu.yaml:7:12: error: 'a' is taken already, in line 6");
    const size_t key = err.find("m/menu.yaml:7:24: error: an item has no 'frob'");
    EXPECT_TRUE(step < taken && taken < key && key != std::string::npos) << err;
    EXPECT_EQ(read(dir / "made/en/b.d").find(std::string("title\0T\0", 8)), 0u);
}

static const std::pair<std::string, std::string> findings[] = {
    {menu("  - {name: " + std::string(128, 'n') + ", text: A}\n"), "error: a name holds at most 127 bytes (found 128)"},
    {menu("  - {name: a, text: A, free_text: a<b}\n"), "no glyph for '<'"},
    {menu("  - {name: a, text: \"A\\0\"}\n"), "'text' holds a line break or another control character"},
    {menu(one_item, "help_lines: [{name: menu, text: \"\"}]\n"), "'text' must not be empty"},
    {menu("  - {name: a, text: A, items: [{name: title2, text: B}, {name: b, text: " + std::string(99, 'W') + "}]}\n"),
     "warning: '" + std::string(99, 'W') + "' runs"},
    {menu(one_item, "", "Nosuch Sans"), "      |         ^\n      = install the Debian package fonts-dejavu-core"},
};
TEST_F(Build, WhatTheDeviceCannotShowIsToldAndErrorsAloneFail)
{
    for (const auto &[content, text] : findings) {
        const int status = build(content);
        EXPECT_NE(err.find(text), std::string::npos) << text << "\n" << err;
        EXPECT_EQ(status, err.find("error: ") != std::string::npos) << err;
    }
}

TEST_F(Build, OnlyALanguageWhoseInputsChangedIsRenderedAgainAndDamageIsNeverKept)
{
    const std::string content = menu(one_item), two = "[en, de]";
    write("m/po/de.po", po(translation("a", "A", "X")));
    ASSERT_EQ(build(std::string(content).replace(content.find("[en]"), 4, two)), 0) << err;
    EXPECT_NE(out.find("2 languages (0 unchanged)"), std::string::npos) << out;
    write("m/po/de.po", po(translation("a", "A", "Y")));
    EXPECT_EQ(run("osdmenu build m/menu.yaml -o made --verify"), 1);
    EXPECT_EQ(out.find("made/de/b.d: differs"), 0u) << out;
    run("osdmenu build m/menu.yaml -o made; osdmenu build m/menu.yaml -o fresh >fresh.txt; diff -r made fresh");
    EXPECT_EQ(out.find("made: 2 languages (1 unchanged)"), 0u) << out;
    EXPECT_EQ(out.find("diff"), std::string::npos) << out;
    EXPECT_EQ(run("printf x >>made/en/b.d; osdmenu build m/menu.yaml -o made >again.txt; diff -r made fresh"), 0)
        << out;
    EXPECT_EQ(run("osdmenu build m/menu.yaml -o made --verify"), 0) << out;
}

TEST_F(Build, ThePseudoLanguageIsAsWideAsTheWidestTranslationOrAThirdWiderThanTheSource)
{
    const std::string content = menu("  - {name: a, text: Brightness}\n  - {name: b, text: Contrast}\n");
    write("m/po/de.po", po(translation("a", "Brightness", "Helligkeit des Bildes")));
    write("m/po/fr.po", po(translation("a", "Brightness", "Luminosit\u00e9")));
    write("m/menu.yaml", std::string(content).replace(content.find("[en]"), 4, "[en, de, fr]"));
    ASSERT_EQ(run("osdmenu build m/menu.yaml -o made --pseudo"), 0) << err;
    const Resources pseudo = made("pseudo");
    ASSERT_EQ(pseudo.items.size(), 3u);
    EXPECT_EQ(pseudo.items[1].picture.size.width, made("de").items[1].picture.size.width);
    EXPECT_EQ(pseudo.items[2].picture.size.width / 2, made("en").items[2].picture.size.width / 2 * 130 / 100);
    EXPECT_EQ(pseudo.items[2].text.find("\u010c\u0151\u00f1\u0165\u0159\u00e5\u0161\u0165"), 0u)
        << pseudo.items[2].text;
}

// How many pixels of a column, or of a whole picture for -1, pass a test.
static int count(const ReadPicture &picture, int column, const std::function<bool(uint16_t)> &test)
{
    int passed = 0;
    const int width = static_cast<int>(picture.size.width / 2);
    for (size_t i = 0; i < picture.pixels.size() / 2; i++) {
        uint16_t pixel;
        std::memcpy(&pixel, picture.pixels.data() + i * 2, sizeof pixel);
        passed += (column < 0 || static_cast<int>(i) % width == column) && test(pixel) ? 1 : 0;
    }
    return passed;
}

TEST_F(Build, PicturesAreAsWideAsTheirInkWithAnOutlineAndRealAlphaWhereTheFormatHasIt)
{
    ASSERT_EQ(build(menu("  - {name: b, text: A W}\n",
                         "display: {pixel_format: ARGB4444, outline: 2}\n"
                         "colours: {background: \"#00000000\", text: \"#ffffff\", outline: \"#ff0000\"}\n")),
              0)
        << err;
    const ReadPicture picture = made("en").items[1].picture;
    const int last = static_cast<int>(picture.size.width / 2) - 1;
    auto is_ink = [](uint16_t pixel) { return pixel != 0; };
    EXPECT_GT(count(picture, 0, is_ink), 0);
    EXPECT_GT(count(picture, last, is_ink), 0);
    EXPECT_GT(count(picture, -1, [](uint16_t pixel) { return pixel == 0xff00; }), 100); // outline
    EXPECT_GT(count(picture, -1, [](uint16_t pixel) { return pixel == 0xffff; }), 100); // letters
    EXPECT_GT(count(picture, -1, [](uint16_t pixel) { return pixel >> 12 > 0 && pixel >> 12 < 15; }), 10);
    EXPECT_EQ(count(picture, -1, [](uint16_t pixel) { return pixel >> 12 == 0 && pixel != 0; }), 0);
}

TEST_F(Build, AFontForAScriptGoesFirstForItsLettersAloneAndAtItsOwnSize)
{
    const std::string items = "  - {name: a, text: \u0434\u0430}\n  - {name: b, text: da}\n",
                      font = "{family: DejaVu Sans, package: fonts-dejavu-core",
                      cyrillic = ", scripts: [Cyrl], percent: 50}";
    ASSERT_EQ(build(menu(items)), 0) << err;
    const Resources plain = made("en");
    std::string content = menu(items);
    content.replace(content.find(font), font.size(), font + "}, " + font + cyrillic.substr(0, cyrillic.size() - 1));
    ASSERT_EQ(build(content), 0) << err;
    const Resources small = made("en");
    const auto width = [](const Resources &r, size_t item) {
        return static_cast<double>(r.items[item].picture.size.width);
    };
    EXPECT_NEAR(width(small, 1) / width(plain, 1), 0.5, 0.04);
    EXPECT_EQ(small.items[2].picture.pixels, plain.items[2].picture.pixels);
}

TEST_F(Build, AWrongCallIsAnotherFailureThanAFindingAndOtherDirectoriesAreLeftAlone)
{
    write("m/menu.yaml", menu(one_item));
    EXPECT_EQ(run("osdmenu build m/menu.yaml"), 2);
    EXPECT_EQ(run("osdmenu --help"), 0);
    EXPECT_EQ(run("osdmenu build m/menu.yaml -o my; touch my/en/letter; osdmenu build m/menu.yaml -o my"), 1);
    EXPECT_NE(err.find("my: holds en/letter"), std::string::npos) << err;
    EXPECT_TRUE(fs::exists(dir / "my/en/letter"));
    EXPECT_EQ(run("osdmenu build m/menu.yaml -o my2 >/dev/full"), 1);
    EXPECT_EQ(run("mkfifo pipe; cat pipe >got & osdmenu extract m/menu.yaml -o pipe; wait; grep -q msgid got"), 0);
    EXPECT_EQ(run("osdmenu extract m/menu.yaml -o m/menu.yaml"), 1);
}

// Each of them takes away what a result would need, and none may cost the result that stands there.
TEST_F(Build, WhatCannotBeReadOrPaintedStopsTheBuildAndLeavesNothingBehind)
{
    const std::string content = menu(one_item);
    ASSERT_EQ(build(content), 0);
    EXPECT_EQ(run("mkdir m/osd_menu.json made.new-999999; osdmenu build m/menu.yaml -o made"), 1);
    EXPECT_NE(err.find("osd_menu.json: error: cannot be read [unreadable]"), std::string::npos) << err;
    EXPECT_EQ(run("osdmenu check m/menu.yaml"), 2);
    fs::remove(dir / "m/osd_menu.json");
    EXPECT_EQ(build(content + "  - {name: b, text: " + std::string(250, 'W') + "}\n"), 1);
    EXPECT_NE(err.find("is wider than any view in en [menu-file]"), std::string::npos) << err;
    EXPECT_EQ(build(std::string(content).replace(content.find("[en]"), 4, "[en, pseudo]")), 1);
    EXPECT_TRUE(fs::exists(dir / "made/en/b.d"));
    EXPECT_EQ(build(content), 0);
    EXPECT_FALSE(fs::exists(dir / "made.new-999999")); // of a process that was killed
}
