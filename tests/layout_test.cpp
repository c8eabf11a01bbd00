// Where things stand on a page, the buffer they are painted into, and the configuration that moves some of them.
#include <gtest/gtest.h>

#include "support/host.h"

static const ResourceDirectory files;

TEST(Layout, ScalesWithTheBurstAndTheBaseSizeOfTheText)
{
    const auto metrics = [] {
        return std::tuple(fontSize(), FT_OSD_FONT_SIZE, osdmenu_view_rowspace, osdmenu_view_rulerarea_x,
                          osdmenu_view_itemarea_x, osdmenu_view_itemarea_y, osdmenu_view_valuearea_x,
                          osdmenu_view_valuearea_y, osdmenu_helplinearea_x, osdmenu_helplinearea_y,
                          osdmenu_viewarea_width, osdmenu_viewarea_height);
    };
    EXPECT_EQ(metrics(), std::tuple(96, 80, 30, 16, 80, 20, 880, 20, 100, 1100, 1760, 1160)) << "at load";
    osdmenu_fontsize_init(2);
    osdmenu_osd_area_size_init(1, 2); // changes nothing
    EXPECT_EQ(metrics(), std::tuple(96, 80, 30, 16, 80, 30, 880, 30, 100, 1100, 1760, 1160));
    osdmenu_fontsize_init2(7, 3);
    osdmenu_fontsize_init(100000001); // keeps the base size; products are of 32 bits
    EXPECT_EQ(metrics(), std::tuple(-158993451, -132494543, 1500000015, 800000008, -294967256, 1500000015, 1050327480,
                                    1500000015, 705032754, -834574298, 2100654960, -2129541564));
}

TEST(Layout, ValueColumnIsThatOfTheLanguageAndThePathOfParents)
{
    const std::string dir = files.path(), broken = dir + "./", endless = dir + std::string(70, '/');
    files.write_config(R"({"value_offset_x": {")" + dir + R"(": {".": 1, ".3": 2, ".3.1": 3, ".3.1.255": 4}, ")" +
                       broken + R"(": 5, ")" + endless.substr(0, 64) + R"(": {".": 6, ".3": "7"}}})");
    set_osdmenu_view_valuearea_x(3, 3);
    current_view_position = {{3, 1, 255, 0}};
    for (const auto &[language, columns] : {std::pair(dir, "1 2 3 4 "), {broken, "9 9 9 9 "}, {endless, "6 9 9 9 "}}) {
        output_of([&name = language] { read2mem_all_menuitems(name.c_str()); });
        std::string found;
        for (int &level = osdmenu_current_viewlevel = 0; level < 4; level++)
            found += std::to_string(get_osdmenu_view_valuearea_x()) + " ";
        EXPECT_EQ(found, columns) << language;
    }
}

TEST(Configuration, FirstOneThatParsesStaysAndItsPathIsCutAt127Characters)
{
    const std::string dir = files.path() + std::string(99 - files.path().size(), '/');
    dbgout_profile.lib_level = dbgout_profile.para_level = 6;
    const char *const copied = R"({"Main_Menu_Separator": "underlineenable", "default_color": 7})";
    for (const char *json : {"none", copied, R"({"default_color": 8})"}) {
        files.write("../conf_backup/osd_menu.jso", json);
        output_of([&] { read2mem_all_menuitems(dir.c_str()); });
    }
    EXPECT_EQ(std::tuple(underlineenable, traced("]underlineenable 1\n"), osdmenu_default_color), std::tuple(1, 1, 7));
    EXPECT_EQ(traced("3:[para osdmenu_config_init +") + traced("]Error before: [none]\n"), 2);
}

TEST(ViewBuffer, IsFilledByPairsOfPixelsAndAFailureKeepsItsSizes)
{
    set_trace_level(3);
    osdmenu_default_color = 0x44332211;
    for (auto [width, height, size] : {std::tuple{0, 0, 0UL}, {3, 3, 18}, {65536, 65537, 131072}, {-101, -81, 16362}}) {
        ASSERT_NE(osdmenu_viewbuffer_malloc(width, height), nullptr);
        osdmenu_viewbuffer_fill_background();
        std::string expected(size, '\0');
        for (std::size_t at = 0; at < size / 4 * 4; at++)
            expected[at] = "\x11\x22\x33\x44"[at % 4];
        EXPECT_EQ(std::string(osdmenu_viewbuffer, size), expected) << width;
        std::free(osdmenu_viewbuffer);
    }
    EXPECT_EQ(osdmenu_viewbuffer_malloc(30000, 40000), nullptr) << "a negative product of 32 bits";
    EXPECT_EQ(std::pair(osdmenu_viewarea_width, osdmenu_viewbuffer_size), std::pair(-101, 16362));
    EXPECT_EQ(traced("]osdmenu_viewbuffer calloc failed:Cannot allocate memory\n"), 1);
    osdmenu_viewbuffer_fill_background();
}
