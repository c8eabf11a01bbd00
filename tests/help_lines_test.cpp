// Help lines by name, the classic block, and the eighteen layouts at the foot of a page. Every part is two rows of two
// pixels in a byte of its own: u, r, d and l stand for the symbols, s, c, e, m and 0 for "select" to "menu0".
#include <gtest/gtest.h>

#include "core/layout.h"
#include "support/host.h"

static const std::string part_names = "urdlscem0";
static const ResourceDirectory directory;

static void prepare_help(int height)
{
    osdmenu_fontsize_init(2);
    prepare_view(directory, 1760, height);
    std::vector<Line> lines;
    for (const char *name : {"select", "change", "enter", "menu", "menu0"})
        lines.push_back({name, {2, 4, static_cast<char>(0xA4 + lines.size())}});
    directory.write_lines(lines, false);
    output_of([] { read2mem_helpline(directory.path().c_str()); });
}

// What a painter leaves of an empty view: the rows in which parts begin, and their columns, as in "872 u96 d168".
static std::string parts_for(osdmenu_item *item, void (*painter)() = osdmenu_draw_meeting_camera_helpline)
{
    osdmenu_current_menuitem = item;
    osdmenu_viewbuffer_fill_background();
    output_of(painter);
    std::string parts;
    for (int y = 1; y < osdmenu_viewarea_height; y++) {
        std::string row;
        for (int x = 1; x < osdmenu_viewarea_width; x++)
            if (int fill = byte_at(x, y); fill >= 0xA0 && byte_at(x - 1, y) != fill && byte_at(x, y - 1) != fill)
                row += std::string(" ") + part_names.at(static_cast<std::size_t>(fill - 0xA0)) + std::to_string(x);
        parts += row.empty() ? "" : ", " + std::to_string(y) + row;
    }
    return parts.empty() ? "" : parts.substr(2);
}

TEST(HelpLine, IsPaintedForEveryRecordOfThatWholeNameWithTheLastOnTop)
{
    prepare_view(directory, 40, 20);
    directory.write_lines({{"menu", {3, 8, 0x31}}, {"menu0", {4, 8, 0x33}}, {"menu", {1, 4, 0x32}}}, false);
    output_of([] { read2mem_helpline(directory.path().c_str()); });
    const Output output = output_of([] {
        for (const char *name : {"menu", "men", "Menu", static_cast<const char *>(nullptr)})
            osdmenu_draw_helpline_byname(10, 5, name);
    });
    EXPECT_EQ(lines_with(output.out, "DBG_INFO:help_line.cpp osdmenu_draw_helpline_byname["), 6);
    EXPECT_EQ(std::tuple(byte_at(10, 5), byte_at(12, 5), byte_at(10, 8)), std::tuple(0x32, 0x31, 0));
}

TEST(ClassicBlock, KeepsThePitchOfTheBaseSizeWhateverTheBurst)
{
    prepare_help(1300);
    EXPECT_EQ(parts_for(nullptr, [] { osdmenu_draw_helpline(); }),
              "1100 u100 d148 s196, 1178 l100 r148 c196, 1256 e100");
}

TEST(HelpBlock, HasEighteenLayoutsWhichTheItemsEntryChoosesElseTheDefaultElseLayout0)
{
    std::vector<Item> items = {{"unnamed", {30}}, {"text", {31}}};
    std::string config = R"({"helpline_default": 5, "helpline_type": {"UNNAMED": 7, "text": "7")";
    for (int i = -1; i <= 18; i++) {
        items.push_back({std::to_string(i), {i + 1}});
        config += ", \"" + items.back().name + "\": " + items.back().name;
    }
    prepare_help(1160);
    load_menu(directory, items);
    EXPECT_EQ(parts_for(loaded("5")), "872 u96 d168 s264, 968 l96 r168 c264, 1064 m72");
    output_of(free_all_menuitems);
    directory.write_config(config + "}}");
    load_menu(directory, items);
    std::string blocks;
    for (int i = -1; i <= 18; i++)
        blocks += std::to_string(i) + ": " + parts_for(loaded(std::to_string(i))) + "; ";
    EXPECT_EQ(blocks, "-1: ; 0: 872 u96 d168 s264, 968 l96 r168 c264, 1064 m72; 1: 968 u96 d168 s264, 1064 m72; "
                      "2: 872 l96 r168 c264, 968 e72, 1064 m72; 3: 872 u96 d168 s264, 968 e72, 1064 m72; "
                      "4: 776 u96 d168 s264, 872 l96 r168 c264, 968 e72, 1064 m72; 5: 968 e72, 1064 m72; "
                      "6: 968 u96 d152 s248 l864 r936 c1032, 1064 m72; 7: 968 l96 r168 c264, 1064 m72; "
                      "8: 968 u96 d152 s248 l864 r936 c1032, 1064 e72 m864; 9: 968 u96 d152 s248, 1064 e72 m864; "
                      "10: 1064 e72 m864; 11: 1064 m72; 12: 689 u96 d168 s264, 804 e72, 919 m72, 1034 072; "
                      "13: 574 u96 d168 s283, 689 l96 r168 c264, 804 e72, 919 m72, 1034 072; "
                      "14: 804 e72, 919 072, 1034 m72; 15: 689 u96 d168 s283, 804 l96 r168 c264, 919 m72, 1034 072; "
                      "16: 919 072, 1034 m72; 17: 804 l96 r168 c264, 919 m72, 1034 072; 18: ; ");
    EXPECT_EQ(std::tuple(parts_for(loaded("unnamed")), parts_for(loaded("text")), parts_for(loaded("not there"))),
              std::tuple("968 e72, 1064 m72", "968 e72, 1064 m72", ""));
    osdmenu_fontsize_init2(94, 2); // every sum is rounded on its own
    EXPECT_EQ(parts_for(loaded("13")), "28 u187 d327 s551, 252 l187 r327 c514, 476 e140, 700 m140, 924 0140");
}

TEST(HelpBlock, LiesOverTheRowsAtTheEndOfAPageWhileItIsSwitchedOn)
{
    prepare_help(1160);
    load_menu(directory, {{"tall", {0}, {1100, 200, 0x44}}});
    redraw();
    EXPECT_EQ(byte_at(96, 872), 0x44);
    osdmenu_meeting_camera_helpline_enable(5);
    redraw();
    EXPECT_EQ(byte_at(96, 872), 0xA0);
}
