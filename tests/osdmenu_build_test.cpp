// From menus to resource files and pictures.
#include <cstring>

#include "osd_menu.h"
#include "support/tool.h"

static const std::string one_item = "  - {name: a, text: A}\n";

struct Build : Tool {
    Build()
    {
        run("osdmenu build " SAMPLE_MENU_DIR "/menu.yaml -o sample");
    }
    osdmenu_item item(size_t offset)
    {
        osdmenu_item result;
        read(dir / "made/en/m.d").copy(reinterpret_cast<char *>(&result), sizeof result, offset);
        return result;
    }
};

TEST_F(Build, TheSampleMenuCompilesWithoutAFindingAndAlwaysToTheSameBytes)
{
    const std::string again = "osdmenu build " SAMPLE_MENU_DIR "/menu.yaml -o again >made.txt; ";
    EXPECT_EQ(run(again + "diff -r again sample && ls again/*/*.d | wc -l"), 0);
    EXPECT_EQ(out + err, "16\n");
}

TEST_F(Build, ItemsAreWrittenBreadthFirstWithTheirValuesMarksAndTexts)
{
    std::string words = "xx\u00e4", content = menu(R"(
  - {name: a, text: "Yes", items: [{name: a-title, text: A}, {name: n, text: N, number: {low: -3, high: 9, step: 2}}]}
  - {name: c, text: "No", enabled: false, choices: [x, y, z], value: y}
  - {name: long, text: )");
    for (int i = 0; i < 6; i++)
        words += words;
    std::ofstream(dir / "m/po/de.po") << "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n"
                                         "msgid \"Yes\"\nmsgstr \"Ja\"\n#, fuzzy\nmsgid \"No\"\nmsgstr \"Nein\"\n";
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
    const size_t step =
        err.find("m/menu.yaml:6:56: error: 'step' must be above 0 (found 0) [menu-file]\n    6 |   - {name: a");
    const size_t taken = err.find("m/menu.yaml:7:12: error: 'a' is taken already, in line 6");
    const size_t key = err.find("m/menu.yaml:7:24: error: an item has no 'frob'");
    EXPECT_TRUE(step < taken && taken < key && key != std::string::npos) << err;
    EXPECT_EQ(read(dir / "made/en/b.d").find(std::string("title\0T\0", 8)), 0u);
}

static const std::string nested = "  - {name: a, text: A, items: [{name: t, text: B}, {name: b, text: B, items: "
                                  "[{name: u, text: C}, {name: c, text: C, enabled: false";
static const std::pair<std::string, std::string> findings[] = {
    {menu(nested + ", items: [{name: v, text: D}, {name: d, text: D, enabled: false}]}]}]}\n"),
     "error: 'd' lies at depth"},
    {menu(nested + "}]}]}\n"), "warning: 'c' starts disabled at depth 2"},
    {menu("  - {name: a, text: A, items: [{name: b-title, text: B}]}\n"), "error: the page of 'a' has one row"},
    {menu("  - {name: smartgallery_preset, text: A}\n"), "must lie at depth 2 (found at 0)"},
    {menu("  - {name: " + std::string(128, 'n') + ", text: A}\n"), "error: a name holds at most 127 bytes (found 128)"},
    {menu("  - {name: a, text: " + std::string(60, 'W') + ", choices: [x]}\n"), "into the value column in en"},
    {menu("  - {name: a, text: A, free_text: a<b}\n"), "no glyph for '<'"},
    {menu("  - {name: a, text: \"A\\0\"}\n"), "'text' holds a control character"},
    {menu("  - {name: a, text: \u4e00}\n"), "error: no font has"},
    {menu(one_item, "help_lines: [{name: menu, text: \"\"}]\n"), "'text' must not be empty"},
    {menu(one_item, "display: {burst: 1, font_size: 400}\n"), "don't fit on the view"},
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

static const std::string shots[][3] = {
    {"--keys down", "!=", ""},
    {"--keys 'down up'", "==", ""},
    {"--keys 'ok down back up'", "==", "--keys up"},
    {"--keys 'ok ok right'", "!=", "--keys 'ok ok'"},
    {"--helpline", "!=", ""},
    {"--trace trace.txt --background '#ff0000'", "==", ""},
    {"--bubble preset_saved --background '#ff0000'", "!=", "--bubble preset_saved"},
    {"--text 'a\\nbc' --background '#ff0000'", "!=", "--text 'a\\nbc'"},
    // The rules of UP, DOWN and OK that go to rows by their number must find the rows that are meant in the sample.
    {"--keys 'up down'", "==", ""},
    {"--open general --keys 'up ok'", "==", "--open peripheralinformation"},
    {"--open general --keys 'down down down ok'", "==", "--open peripheralinformation"},
    {"--disable peripheralinformation --open general --keys 'up down'",
     "==", "--disable peripheralinformation --open general"},
    {"--open information --keys 'up down down'", "==", "--open information"},
    {"--open smartgallery_preset", "!=", "--open smartgallery_preset --keys down"},
    {"--enable aimodeselection --open aimodeselection", "!=", "--enable aimodeselection"},
};
TEST_F(Build, KeysAndOptionsChangeWhatTheShotShowsAndNothingIsPrinted)
{
    for (const auto &[arguments, relation, others] : shots) {
        run("osdmenu shot sample/en -o 1.png " + arguments + "; osdmenu shot sample/en -o 2.png " + others);
        EXPECT_EQ(out + err, "") << arguments;
        EXPECT_EQ(read(dir / "1.png") == read(dir / "2.png"), relation == "==") << arguments;
    }
    EXPECT_NE(read(dir / "trace.txt").find("DBG_INFO:"), std::string::npos);
}

static const std::string damages[][3] = {
    {"rm", "m.d", "no such file"}, {"rm", "hb.d", "no such file"}, {"put 128", "m.d", "no known type of value"},
    {"cut", "m.d", "cut short"},   {"cut", "b.d", "cut short"},    {"put 8", "s.d", "wider than its stride"},
    {"cut", "bb.d", "cut short"},  {"cut", "hm.d", "cut short"},   {"put 4", "c.d", "absurd size"},
    {"cut", "c.d", "cut short"},
};
TEST_F(Build, DamagedResourcesAreNamedAndNotPaintedAndAMissingManifestIsWarnedOf)
{
    EXPECT_EQ(run("mkdir hurt; cp -r sample/en hurt; osdmenu shot hurt/en -o p.png"), 0);
    EXPECT_NE(err.find("menu.json: warning: there is no such file"), std::string::npos) << err;
    const std::string tools = "cut() { truncate -s -1 $1; }; "
                              "put() { printf '\\377\\377\\377' | dd of=$2 bs=1 seek=$1 conv=notrunc; }; ";
    for (const auto &[damage, file, fault] : damages) {
        run(tools + "rm -rf p.png hurt; cp -r sample hurt; " + damage + " hurt/en/" + file);
        EXPECT_EQ(run("osdmenu shot hurt/en -o p.png"), 1);
        EXPECT_NE(err.find("hurt/en/" + file + ": byte "), std::string::npos) << err;
        EXPECT_NE(err.find(fault), std::string::npos) << err;
        EXPECT_FALSE(fs::exists(dir / "p.png"));
    }
}

TEST_F(Build, AWrongCallIsAnotherFailureThanAFinding)
{
    EXPECT_EQ(run("osdmenu build"), 2);
    EXPECT_EQ(run("osdmenu shot sample/en"), 2);
    EXPECT_EQ(run("osdmenu shot sample/en -o p.png --background red"), 2);
    EXPECT_EQ(run("osdmenu shot sample/en -o p.png --keys sideways"), 1);
    EXPECT_EQ(run("osdmenu --help"), 0);
    EXPECT_EQ(run("mkdir my; touch my/letter; osdmenu build " SAMPLE_MENU_DIR "/menu.yaml -o my"), 1); // not its own
    EXPECT_TRUE(fs::exists(dir / "my/letter"));
}
