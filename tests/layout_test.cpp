// Where things stand on a page, the buffer they are painted into, and the configuration that moves some of them.
#include <gtest/gtest.h>

#include "support/host.h"

static const ResourceDirectory files;

struct Metric {
    const char *name;
    const int *value;
    int at_load, scaled; // with a base size of 7, by a burst whose products take more than 32 bits
};

static void expect_all(int Metric::*expected)
{
    const int line_height = fontSize();
    const Metric metrics[] = {{"base size", &_FT_OSD_FONT_SIZE, 48, 7},
                              {"text size", &FT_OSD_FONT_SIZE, 80, -132494543},
                              {"height of a line", &line_height, 96, -158993451},
                              {"gap of rows", &osdmenu_view_rowspace, 30, 1500000015},
                              {"pointer x", &osdmenu_view_rulerarea_x, 16, 800000008},
                              {"item x", &osdmenu_view_itemarea_x, 80, -294967256},
                              {"item y", &osdmenu_view_itemarea_y, 20, 1500000015},
                              {"value x", &osdmenu_view_valuearea_x, 880, 1050327480},
                              {"value y", &osdmenu_view_valuearea_y, 20, 1500000015},
                              {"help x", &osdmenu_helplinearea_x, 100, 705032754},
                              {"help y", &osdmenu_helplinearea_y, 1100, -834574298},
                              {"view width", &osdmenu_viewarea_width, 1760, 2100654960},
                              {"view height", &osdmenu_viewarea_height, 1160, -2129541564}};
    for (const Metric &metric : metrics)
        EXPECT_EQ(*metric.value, metric.*expected) << metric.name;
}

TEST(Metrics, HaveValuesAtLoadThatNoSizeOfTheAreaChanges)
{
    osdmenu_osd_area_size_init(1, 2);
    expect_all(&Metric::at_load);
}

TEST(Metrics, ScaleWithTheBurst)
{
    osdmenu_fontsize_init2(7, 100000001);
    expect_all(&Metric::scaled);
}

TEST(Colors, AreThereForTheHost)
{
    EXPECT_EQ(std::memcmp(ft_font_col_arr, "\x21\x04\xFF\xFF\x00", 5), 0);
}

TEST(ValueColumn, IsThatOfTheHostWithoutAConfiguration)
{
    set_osdmenu_view_valuearea_x(3, 70);
    EXPECT_EQ(get_osdmenu_view_valuearea_x(), 210);
}

TEST(ValueColumn, IsThatOfTheLanguageAndThePathOfParents)
{
    const std::string dir = files.path(), slashes(70, '/'), cut = (dir + slashes).substr(0, 64);
    const struct {
        const char *name;
        std::string behind_dir; // in the name of the language
        int level, column;
    } pages[] = {{"the top list", "", 0, 1},
                 {"one below it", "", 1, 2},
                 {"two below it", "", 2, 3},
                 {"three below it", "", 3, 4},
                 {"a language not listed", "/", 0, 9},
                 {"a language without an object", "./", 0, 9},
                 {"a language of 64 bytes and more", slashes, 0, 6},
                 {"a text for a number", slashes, 1, 9},
                 {"a page not listed", slashes, 2, 9}};
    const std::string json = R"({"value_offset_x": {")" + dir + R"(": {".": 1, ".3": 2, ".3.1": 3, ".3.1.255": 4}, ")" +
                             dir + R"(./": 5, ")" + cut + R"(": {".": 6, ".3": "7"}}})";
    set_osdmenu_view_valuearea_x(1, 9);
    current_view_position = {{3, 1, 255, 0}};
    for (const auto &page : pages) {
        configure(files, json, page.behind_dir);
        osdmenu_current_viewlevel = page.level;
        EXPECT_EQ(get_osdmenu_view_valuearea_x(), page.column) << page.name;
    }
}

TEST(Configuration, ThatParsesFirstStays)
{
    for (const char *json : {"broken", R"({"default_color": 7})", R"({"default_color": 8})"})
        configure(files, json);
    EXPECT_EQ(osdmenu_default_color, 7);
}

TEST(Configuration, ThatIsBrokenIsTracedFromLevel3OfTheParametersOn)
{
    for (int level : {2, 3}) {
        dbgout_profile.para_level = level;
        configure(files, "broken");
    }
    EXPECT_EQ(traced_text(), "3 para osdmenu_config_init: Error before: [broken]\n\n");
}

TEST(Configuration, IsLookedForUnderTheFirst127CharactersOfItsPath)
{
    files.write("../conf_backup/osd_menu.jso", R"({"default_color": 7})");
    configure(files, "", std::string(99 - files.path().size(), '/'));
    EXPECT_EQ(osdmenu_default_color, 7);
}

TEST(Configuration, WithoutTheRightValuesLeavesTheDefaults)
{
    configure(files, R"({"default_color": "7", "Main_Menu_Separator": "underline"})");
    EXPECT_EQ(std::tuple(osdmenu_default_color, underlineenable), std::tuple(0x04210421, -1));
}

TEST(Configuration, TracesAtLevel6ThatTheSeparatorIsOn)
{
    set_trace_level(6);
    configure(files, R"({"Main_Menu_Separator": "underlineenable"})");
    EXPECT_EQ(traced_text(), "6 lib osdmenu_config_init: underlineenable 1\n");
}

TEST(ViewBuffer, IsFilledByPairsOfPixels)
{
    const struct {
        int width, height;
        std::size_t bytes, filled;
    } rows[] = {{0, 0, 0, 0}, {3, 3, 18, 16}, {65536, 65537, 131072, 131072}, {-101, -81, 16362, 16360}};
    osdmenu_default_color = 0x44332211;
    for (const auto &row : rows) {
        ASSERT_NE(osdmenu_viewbuffer_malloc(row.width, row.height), nullptr) << row.width;
        EXPECT_EQ(osdmenu_viewbuffer_fill_background(), 0);
        std::string expected(row.bytes, '\0');
        for (std::size_t at = 0; at < row.filled; at++)
            expected[at] = "\x11\x22\x33\x44"[at % 4];
        EXPECT_EQ(std::string(osdmenu_viewbuffer, row.bytes), expected) << row.width;
        std::free(osdmenu_viewbuffer);
    }
}

TEST(ViewBuffer, TracesItsSizesOrTheReasonWhyThereIsNone)
{
    set_trace_level(6);
    std::free(osdmenu_viewbuffer_malloc(3, 5));
    osdmenu_viewbuffer_malloc(30000, 40000); // the product of 32 bits is negative
    EXPECT_EQ(traced_text(),
              "6 lib osdmenu_viewbuffer_malloc: view buffer width:3 height:5 size:30\n"
              "3 lib osdmenu_viewbuffer_malloc: osdmenu_viewbuffer calloc failed:Cannot allocate memory\n");
}

TEST(ViewBuffer, WithoutMemoryLeavesTheSizesAndTakesNoBackground)
{
    std::free(osdmenu_viewbuffer_malloc(3, 5));
    EXPECT_EQ(osdmenu_viewbuffer_malloc(30000, 40000), nullptr);
    EXPECT_EQ(osdmenu_viewbuffer_fill_background(), 0);
    EXPECT_EQ(std::tuple(osdmenu_viewarea_width, osdmenu_viewarea_height, osdmenu_viewbuffer_size),
              std::tuple(3, 5, 30));
}

TEST(ClearedView, LosesTheBytesAskedForAsFarAsItGoes)
{
    for (auto [asked, cleared] : {std::pair{3U, 3U}, {4, 4}, {5, 4}}) {
        std::string memory = "AAAAAA";
        osdmenu_viewbuffer = memory.data();
        osdmenu_viewbuffer_size = 4;
        clear_view(asked);
        EXPECT_EQ(memory, std::string(cleared, '\0') + std::string(6 - cleared, 'A')) << asked;
    }
}
