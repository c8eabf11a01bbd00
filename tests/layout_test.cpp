// Where things stand on a page, the buffer they are painted into, and the configuration that moves some of them.
#include <cstdlib>
#include <gtest/gtest.h>

#include "core/config.h"
#include "core/view_buffer.h"
#include "support/host.h"

static std::string metrics()
{
    std::string text;
    for (int metric :
         {fontSize(), FT_OSD_FONT_SIZE, osdmenu_view_rowspace, osdmenu_view_rulerarea_x, osdmenu_view_itemarea_x,
          osdmenu_view_itemarea_y, osdmenu_view_valuearea_x, osdmenu_view_valuearea_y, osdmenu_helplinearea_x,
          osdmenu_helplinearea_y, osdmenu_viewarea_width, osdmenu_viewarea_height})
        text += std::to_string(metric) + " ";
    return text;
}
TEST(Layout, ScalesWithTheBurstAndTheBaseSizeOfTheText)
{
    EXPECT_EQ(metrics(), "96 80 30 16 80 20 880 20 100 1100 1760 1160 ") << "at load";
    osdmenu_fontsize_init(2);
    osdmenu_osd_area_size_init(1, 2); // changes nothing
    EXPECT_EQ(metrics(), "96 80 30 16 80 30 880 30 100 1100 1760 1160 ");
    osdmenu_fontsize_init2(-50, 3);
    EXPECT_EQ(metrics(), "-150 -125 45 24 120 45 1320 45 150 1650 2640 1740 ");
    osdmenu_fontsize_init2(50, 1);
    EXPECT_EQ(metrics(), "49 41 15 8 40 15 440 15 50 550 880 580 ");
    osdmenu_fontsize_init(10000000); // keeps the base size; products are of 32 bits
    EXPECT_TRUE(metrics().starts_with("-358993459 -299161216 150000000 ") && osdmenu_viewarea_width == 210065408);
}
TEST(Layout, ValueColumnIsThatOfTheLanguageAndThePathOfParents)
{
    ResourceDirectory directory;
    const std::string dir = directory.path(), broken = dir + "./", endless = dir + std::string(70, '/');
    directory.write_config(
        R"({"Main_Menu_Separator": ["underlineenable"], "default_color": "7", "value_offset_x": {")" + dir +
        R"(": {".": 1, ".3": 2, ".3.1": 3, ".3.1.255": 4, ".4": "5"}, ")" + broken + R"(": 6, ")" +
        endless.substr(0, 64) + R"(": {".": 7}}})");
    set_osdmenu_view_valuearea_x(3, 100);
    set_current_view_position(1, 1);
    set_current_view_position(2, 255);
    const std::tuple<std::string, int, int, int> pages[] = {{dir, 0, 3, 1},      {dir, 1, 3, 2},    {dir, 2, 3, 3},
                                                            {dir, 3, 3, 4},      {dir, 1, 4, 300},  {dir, 2, 4, 300},
                                                            {broken, 0, 3, 300}, {endless, 0, 3, 7}};
    for (const auto &[language, level, position, column] : pages) {
        output_of([&name = language] { read2mem_all_menuitems(name.c_str()); });
        osdmenu_current_viewlevel = level;
        set_current_view_position(0, position);
        EXPECT_EQ(get_osdmenu_view_valuearea_x(), column) << language << level << position;
    }
    EXPECT_TRUE(underlineenable == -1 && osdmenu_default_color == 0x04210421) << "the wrong types";
}
TEST(Configuration, FirstOneThatParsesStaysAndItsPathIsCutAt127Characters)
{
    ResourceDirectory directory;
    const std::string dir = directory.path() + std::string(99 - directory.path().size(), '/');
    set_trace_level(6);
    dbgout_profile.para_level = 3;
    for (const char *json :
         {"none", R"({"Main_Menu_Separator": "underlineenable", "default_color": 7})", R"({"default_color": 8})"}) {
        EXPECT_EQ(osdmenu_default_color, osdmenu_config ? 7 : 0x04210421);
        directory.write("../conf_backup/osd_menu.jso", json);
        output_of([&] { read2mem_all_menuitems(dir.c_str()); });
    }
    EXPECT_TRUE(underlineenable == 1 && osdmenu_default_color == 7);
    EXPECT_EQ(traced("3:[para osdmenu_config_init +") + traced("]Error before: [none]\n"), 2);
    EXPECT_EQ(traced("]underlineenable 1\n"), 1);
}
TEST(ViewBuffer, IsFilledByPairsOfPixelsAndAFailureKeepsItsSizes)
{
    set_trace_level(3);
    osdmenu_default_color = 0x44332211;
    for (auto [width, height, filled] : {std::tuple{0, 0, 0}, {3, 3, 16}, {65536, 65537, 131072}, {-101, -81, 16360}}) {
        osdmenu_viewbuffer_fill_background(); // the first time there is nothing to fill
        std::free(osdmenu_viewbuffer);
        ASSERT_NE(osdmenu_viewbuffer_malloc(width, height), nullptr);
        osdmenu_viewbuffer_fill_background();
        std::string expected(static_cast<std::size_t>(osdmenu_viewbuffer_size), '\0');
        for (std::size_t i = 0; i < static_cast<std::size_t>(filled); i++)
            expected[i] = "\x11\x22\x33\x44"[i % 4];
        EXPECT_EQ(std::string(osdmenu_viewbuffer, expected.size()), expected) << width;
    }
    std::free(osdmenu_viewbuffer);
    EXPECT_EQ(osdmenu_viewbuffer_malloc(30000, 40000), osdmenu_viewbuffer);
    EXPECT_EQ(osdmenu_viewbuffer, nullptr) << "a negative product of 32 bits";
    EXPECT_TRUE(metrics().ends_with(" -101 -81 ") && osdmenu_viewbuffer_size == 16362);
    EXPECT_EQ(traced("]osdmenu_viewbuffer calloc failed:Cannot allocate memory\n"), 1);
    osdmenu_viewbuffer_fill_background();
}
