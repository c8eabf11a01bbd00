// The command-line tool, run as a person runs it: menus in, resource files, pictures and findings out.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "../device/osd_menu/osd_menu.h"

namespace fs = std::filesystem;

static std::string read(const fs::path &path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

static void write(const fs::path &path, const std::string &content)
{
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

static std::map<std::string, std::string> tree(const fs::path &directory)
{
    std::map<std::string, std::string> files;
    for (const auto &entry : fs::recursive_directory_iterator(directory))
        if (entry.is_regular_file())
            files[fs::relative(entry.path(), directory)] = read(entry.path());
    return files;
}

// A menu around its items, for one language.
static std::string menu(const std::string &items, const std::string &more = "")
{
    return "device_directory: /res/\nlanguages: [en]\nfonts: [{family: DejaVu Sans, package: fonts-dejavu-core}]\n" +
           more + "items:\n  - {name: title, text: T}\n" + items;
}

class Tool : public testing::Test
{
  protected:
    // The sample is compiled once per process.
    Tool() : dir(fs::temp_directory_path() / ("osdmenu-" + std::to_string(getpid())))
    {
        for (const char *made : {"m", "made", "hurt"})
            fs::remove_all(dir / made);
        fs::create_directories(dir / "hurt");
        if (!fs::exists(dir / "sample"))
            run("build " SAMPLE_MENU_DIR "/menu.yaml -o sample");
    }
    static void TearDownTestSuite()
    {
        fs::remove_all(fs::temp_directory_path() / ("osdmenu-" + std::to_string(getpid())));
    }

    int run(const std::string &arguments)
    {
        std::string command = "cd '" + dir.string() + "' && '" OSDMENU_TOOL "' " + arguments;
        int status = std::system((command + " >out.txt 2>err.txt").c_str());
        out = read(dir / "out.txt");
        err = read(dir / "err.txt");
        return WEXITSTATUS(status);
    }

    int build(const std::string &content)
    {
        write(dir / "m/menu.yaml", content);
        return run("build m/menu.yaml -o made");
    }

    std::string shot(const std::string &arguments, const std::string &language = "en")
    {
        fs::remove(dir / "p.png");
        EXPECT_EQ(run("shot sample/" + language + " -o p.png " + arguments), 0) << err;
        EXPECT_EQ(out + err, "");
        return read(dir / "p.png");
    }

    osdmenu_item item(size_t offset)
    {
        osdmenu_item result;
        std::string meta = read(dir / "made/en/m.d");
        EXPECT_LE(offset + sizeof result, meta.size());
        std::memcpy(&result, meta.data() + offset, sizeof result);
        return result;
    }

    fs::path dir;
    std::string out, err;
};

TEST_F(Tool, TheSampleMenuCompilesWithoutAFindingAndAlwaysToTheSameBytes)
{
    ASSERT_EQ(run("build " SAMPLE_MENU_DIR "/menu.yaml -o again"), 0);
    EXPECT_EQ(err, "");
    EXPECT_EQ(tree(dir / "again"), tree(dir / "sample"));
    EXPECT_EQ(tree(dir / "again").size(), 2 * 8 + 2u);
}

TEST_F(Tool, ItemsAreWrittenBreadthFirstWithTheirValuesAndMarks)
{
    ASSERT_EQ(build(menu("  - {name: a, text: A, items: [{name: a-title, text: A},"
                         " {name: n, text: N, number: {low: -3, high: 9, step: 2, value: 5}}]}\n"
                         "  - {name: c, text: C, enabled: false, choices: [x, y, z], value: y}\n")),
              0)
        << err;
    std::string data = read(dir / "made/en/b.d");
    EXPECT_LT(data.find(std::string("c\0C\0", 4)), data.find("a-title"));
    osdmenu_item choice = item(2 * 168), number = item(4 * 168 + 3 * 56);
    EXPECT_EQ(std::memcmp(choice.position.levels, "\2\xff\xff\xee", 4), 0);
    EXPECT_EQ(choice.item_values.current, 1);
    int count;
    std::memcpy(&count, &choice.item_values.u, sizeof count);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(std::memcmp(number.position.levels, "\1\1\xff\xff", 4), 0);
    EXPECT_EQ(number.item_values.u.number.lowlimit, -3);
    EXPECT_EQ(number.item_values.u.number.current, 5);
    EXPECT_EQ(number.item_values.u.number.step, 2);
    EXPECT_EQ(number.view.viewbitmap.height, item(0).view.viewbitmap.height);
}

// White on blue: an edge blended with anything but the background would be darker than it in some channel.
TEST_F(Tool, EdgesAreBlendedWithTheBackgroundThatTheDeviceFills)
{
    ASSERT_EQ(build(menu("  - {name: b, text: WAX}\n", "colours: {background: \"#0000ff\", title: \"#ffffff\"}\n")), 0);
    EXPECT_NE(read(dir / "made/conf_backup/osd_menu.json").find("-2145419233"), std::string::npos); // 0x801f801f
    osdmenu_view_bitmap size = item(0).view.viewbitmap;
    std::vector<uint16_t> pixels(size.height * size.width / 2);
    std::memcpy(pixels.data(), read(dir / "made/en/b.d").data() + strlen("title") + strlen("T") + 2, pixels.size() * 2);
    int edges = 0;
    for (unsigned int pixel : pixels) {
        EXPECT_EQ(pixel & 0x801fu, 0x801fu);
        edges += pixel != 0x801f && pixel != 0xffff;
    }
    EXPECT_GT(edges, 10);
}

TEST_F(Tool, AllFindingsComeInOneRunSortedByPlaceAndKeepTheOldOutput)
{
    ASSERT_EQ(build(menu("  - {name: a, text: A}\n")), 0);
    auto old = tree(dir / "made");
    EXPECT_EQ(build(menu("  - {name: a, text: A, number: {low: 0, high: 3, step: 0}}\n"
                         "  - {name: a, text: A, frob: 1}\n"
                         "  - {name: " +
                         std::string(128, 'n') + ", text: A}\n")),
              1);
    size_t step = err.find("m/menu.yaml:6:56: error: 'step' must be above 0 (found 0)\n    6 |   - {name: a");
    size_t taken = err.find("m/menu.yaml:7:12: error: 'a' is taken already, in line 6");
    size_t key = err.find("m/menu.yaml:7:24: error: an item has no 'frob'");
    size_t name = err.find("m/menu.yaml:8:12: error: a name holds at most 127 bytes (found 128)");
    EXPECT_TRUE(step < taken && taken < key && key < name && name != std::string::npos) << err;
    EXPECT_EQ(tree(dir / "made"), old);
}

static const std::string depth_2 = "  - {name: a, text: A, items: [{name: t1title, text: B}, {name: b, text: B, items: "
                                   "[{name: t2title, text: C}, {name: c, text: C";
static const struct {
    std::string items, more;
    int status;
    std::string text;
} findings[] = {
    {depth_2 + ", items: [{name: t3title, text: D}, {name: d, text: D, enabled: false}]}]}]}\n", "", 1,
     "error: 'd' lies at depth 3, where a row cannot start disabled"},
    {depth_2 + ", enabled: false}]}]}\n", "", 0, "warning: 'c' starts disabled at depth 2"},
    {"  - {name: a, text: A, items: [{name: b-title, text: B}]}\n", "", 1, "error: the page of 'a' has one row"},
    {"  - {name: smartgallery_preset, text: A}\n", "", 1, "must lie at depth 2 (found at 0)"},
    {"  - {name: a, text: " + std::string(60, 'W') + ", choices: [x]}\n", "", 0, "into the value column in en"},
    {"  - {name: a, text: A, free_text: a<b}\n", "", 1, "no glyph for '<'"},
    {"  - {name: a, text: \"A\\0\"}\n", "", 1, "'text' holds a control character"},
    {"  - {name: a, text: \u4e00}\n", "", 1, "error: the fonts lack a character"},
    {"  - {name: a, text: A}\n", "help_lines: [{name: menu, text: \"\"}]\n", 1, "'text' must not be empty"},
    {"  - {name: a, text: A}\n", "display: {burst: 1, font_size: 400}\n", 0, "don't fit on the view"},
};
TEST_F(Tool, WhatTheDeviceCannotShowIsTold)
{
    for (const auto &[items, more, status, text] : findings) {
        EXPECT_EQ(build(menu(items, more)), status) << text;
        EXPECT_NE(err.find(text), std::string::npos) << text << "\n" << err;
    }
}

TEST_F(Tool, AMissingFontNamesThePackageToInstall)
{
    std::string content = menu("  - {name: a, text: A}\n");
    EXPECT_EQ(build(content.replace(content.find("DejaVu Sans"), 11, "Nosuch Sans")), 1);
    EXPECT_NE(err.find("'Nosuch Sans' is not installed"), std::string::npos) << err;
    EXPECT_NE(err.find("install the Debian package fonts-dejavu-core"), std::string::npos) << err;
}

TEST_F(Tool, ALongDescriptionIsCutWhereACharacterEnds)
{
    std::string words = "xx\u00e4";
    for (int i = 0; i < 6; i++)
        words += words;
    EXPECT_EQ(build(menu("  - {name: long, text: " + words + "}\n")), 0);
    EXPECT_NE(err.find("cut at 126 of 256 bytes in en"), std::string::npos) << err;
    EXPECT_NE(read(dir / "made/en/b.d").find('g' + std::string(1, '\0') + words.substr(0, 126) + '\0'),
              std::string::npos);
}

TEST_F(Tool, AnUntranslatedOrDoubtfulTextFallsBackToTheSource)
{
    write(dir / "m/po/de.po", "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n"
                              "msgid \"Yes\"\nmsgstr \"Ja\"\n\n#, fuzzy\nmsgid \"No\"\nmsgstr \"Nein\"\n");
    std::string content = menu("  - {name: a, text: \"Yes\"}\n  - {name: b, text: \"No\"}\n");
    EXPECT_EQ(build(content.replace(content.find("[en]"), 4, "[en, de]")), 0);
    EXPECT_NE(err.find("m/menu.yaml:7:21: warning: 'No' is not translated in m/po/de.po"), std::string::npos) << err;
    std::string data = read(dir / "made/de/b.d");
    EXPECT_NE(data.find(std::string("a\0Ja\0", 5)), std::string::npos);
    EXPECT_NE(data.find(std::string("b\0No\0", 5)), std::string::npos);
}

TEST_F(Tool, ADirectoryOfSomethingElseIsLeftAlone)
{
    write(dir / "made/letter.txt", "dear");
    EXPECT_EQ(build(menu("  - {name: a, text: A}\n")), 1);
    EXPECT_EQ(read(dir / "made/letter.txt"), "dear");
}

TEST_F(Tool, KeysMoveAndChangeWhatTheShotShows)
{
    std::string top = shot("");
    EXPECT_NE(shot("--keys down"), top);
    EXPECT_EQ(shot("--keys 'down up'"), top);
    EXPECT_EQ(shot("--keys 'ok down back up'"), shot("--keys up"));
    EXPECT_NE(shot("--keys 'ok ok right'"), shot("--keys 'ok ok'"));
    EXPECT_EQ(shot("--keys 'ok ok right right right right'"), shot("--keys 'ok ok'"));
    EXPECT_NE(shot("--helpline"), top);
    EXPECT_NE(shot("", "de"), top);
}

// The rules of UP, DOWN and OK that go to rows by their number must find the rows that are meant in the sample.
TEST_F(Tool, TheSampleMenuHasItsRowsWhereFixedJumpsLand)
{
    EXPECT_EQ(shot("--keys 'up down'"), shot(""));
    EXPECT_EQ(shot("--open general --keys 'up ok'"), shot("--open peripheralinformation"));
    EXPECT_EQ(shot("--open general --keys 'down down down ok'"), shot("--open peripheralinformation"));
    EXPECT_EQ(shot("--open general --keys 'up up'"), shot("--open general --keys 'down down'"));
    EXPECT_EQ(shot("--open general --disable peripheralinformation --keys 'up down'"),
              shot("--open general --disable peripheralinformation"));
    EXPECT_EQ(shot("--open address --keys up"), shot("--open address --keys down"));
    EXPECT_EQ(shot("--open information --keys 'up down down'"), shot("--open information"));
    EXPECT_NE(shot("--open smartgallery_preset"), shot("--open smartgallery_preset --keys down"));
    EXPECT_NE(shot("--enable aimodeselection --open aimodeselection"), shot("--enable aimodeselection"));
}

TEST_F(Tool, WhatTheLibraryPrintsGoesToTheTraceAndTransparentPixelsShowTheBackground)
{
    EXPECT_EQ(shot("--trace trace.txt --background '#ff0000'"), shot(""));
    EXPECT_NE(read(dir / "trace.txt").find("DBG_INFO:"), std::string::npos);
    EXPECT_NE(shot("--bubble preset_saved --background '#ff0000'"), shot("--bubble preset_saved"));
    EXPECT_NE(shot("--text 'a\\nbc' --background '#ff0000'"), shot("--text 'a\\nbc'"));
}

TEST_F(Tool, ResourcesWithoutAManifestAreShownWithAWarning)
{
    fs::copy(dir / "sample/en", dir / "hurt/en");
    EXPECT_EQ(run("shot hurt/en -o p.png"), 0);
    EXPECT_NE(err.find("menu.json: warning: there is no such file"), std::string::npos) << err;
}

static const struct {
    std::string file;
    long offset; // where bytes are overwritten; -1 removes the file, -2 cuts its last byte
    std::string fault;
} damages[] = {
    {"m.d", -1, "no such file"}, {"hb.d", -1, "no such file"}, {"m.d", 128, "no known type of value"},
    {"m.d", -2, "cut short"},    {"b.d", -2, "cut short"},     {"s.d", 8, "wider than its stride"},
    {"bb.d", -2, "cut short"},   {"hm.d", -2, "cut short"},    {"c.d", 4, "absurd size"},
    {"c.d", -2, "cut short"},
};
TEST_F(Tool, DamagedResourcesAreNamedAndNotPainted)
{
    for (const auto &[name, offset, fault] : damages) {
        SCOPED_TRACE(name + ": " + fault);
        fs::copy(dir / "sample/en", dir / "hurt/en");
        std::string content = read(dir / "hurt/en" / name);
        fs::remove(dir / "hurt/en" / name);
        if (offset >= 0)
            content.replace(static_cast<size_t>(offset), 4, "\xff\xff\xff\x7f");
        if (offset != -1)
            write(dir / "hurt/en" / name, offset == -2 ? content.substr(0, content.size() - 1) : content);
        fs::remove(dir / "p.png");
        EXPECT_EQ(run("shot hurt/en -o p.png"), 1);
        EXPECT_NE(err.find("hurt/en/" + name + ": byte "), std::string::npos) << err;
        EXPECT_NE(err.find(fault), std::string::npos) << err;
        EXPECT_FALSE(fs::exists(dir / "p.png"));
        fs::remove_all(dir / "hurt/en");
    }
}

TEST_F(Tool, AWrongCallIsAnotherFailureThanAFinding)
{
    EXPECT_EQ(run("build"), 2);
    EXPECT_EQ(run("shot sample/en"), 2);
    EXPECT_EQ(run("shot sample/en -o p.png --background red"), 2);
    EXPECT_EQ(run("shot sample/en -o p.png --keys sideways"), 1);
    EXPECT_EQ(run("--help"), 0);
}
