// Help lines by name, the classic block of three lines, and the eighteen layouts at the foot of a page. Every part is
// two rows of two pixels in a byte of its own, so that a scan of the view tells where each of them landed.
#include <gtest/gtest.h>

#include "support/host.h"

static const char *const part_names[] = {"up", "right", "down", "left", "select", "change", "enter", "menu", "menu0"};

static const ResourceDirectory directory;

static void prepare_help(int burst, int height)
{
    osdmenu_fontsize_init(burst);
    std::free(osdmenu_viewbuffer);
    prepare_view(directory, 880 * burst, height);
    std::vector<Line> lines;
    for (int fill = 0xA4; fill <= 0xA8; fill++)
        lines.push_back({part_names[fill - 0xA0], {2, 4, static_cast<char>(fill)}});
    directory.write_lines(lines, false);
    output_of([] { read2mem_helpline(directory.path().c_str()); });
}

// "872 up 96 down 168, 1064 menu 72": the rows in which parts begin, and the columns of those.
static std::string parts_in_view(int width, int height)
{
    std::string parts;
    for (int y = 1; y < height; y++) {
        std::string row;
        for (int x = 1; x < width; x++)
            if (int fill = byte_at(x, y); fill >= 0xA0 && byte_at(x - 1, y) != fill && byte_at(x, y - 1) != fill)
                row += std::string(" ") + part_names[fill - 0xA0] + " " + std::to_string(x);
        if (!row.empty())
            parts += (parts.empty() ? "" : ", ") + std::to_string(y) + row;
    }
    return parts;
}

static std::string block_for(osdmenu_item *item, int burst = 2)
{
    osdmenu_current_menuitem = item;
    osdmenu_viewbuffer_fill_background();
    output_of(osdmenu_draw_meeting_camera_helpline);
    return parts_in_view(880 * burst, 580 * burst);
}

TEST(HelpLine, IsPaintedForEveryRecordOfThatWholeNameWithTheLastOnTop)
{
    prepare_view(directory, 40, 20);
    directory.write_lines({{"menu", {3, 8, 0x31}}, {"menu0", {4, 8, 0x33}}, {"menu", {1, 4, 0x32}}}, false);
    output_of([] { read2mem_helpline(directory.path().c_str()); });
    Output output = output_of([] { EXPECT_EQ(osdmenu_draw_helpline_byname(10, 5, "menu"), 0); });
    EXPECT_EQ(byte_at(10, 5), 0x32);
    EXPECT_EQ(byte_at(12, 5), 0x31);
    EXPECT_EQ(byte_at(10, 8), 0);
    EXPECT_EQ(lines_with(output.out, "DBG_INFO:help_line.cpp osdmenu_draw_helpline_byname["), 3);
    for (const char *name : {"men", "Menu", static_cast<const char *>(nullptr)})
        output_of([&] { EXPECT_EQ(osdmenu_draw_helpline_byname(20, 5, name), 0); });
    EXPECT_EQ(byte_at(20, 5), 0);
}

TEST(ClassicBlock, KeepsThePitchOfTheBaseSizeWhateverTheBurst)
{
    prepare_help(2, 1300);
    output_of([] { EXPECT_EQ(osdmenu_draw_helpline(), 0); });
    EXPECT_EQ(parts_in_view(1760, 1300),
              "1100 up 100 down 148 select 196, 1178 left 100 right 148 change 196, 1256 enter 100");
    prepare_help(1, 700);
    output_of(osdmenu_draw_helpline);
    EXPECT_EQ(parts_in_view(880, 700), "550 up 50 down 98 select 146, 613 left 50 right 98 change 146, 676 enter 50");
}

static const char *const layouts[] = {
    "872 up 96 down 168 select 264, 968 left 96 right 168 change 264, 1064 menu 72",
    "968 up 96 down 168 select 264, 1064 menu 72",
    "872 left 96 right 168 change 264, 968 enter 72, 1064 menu 72",
    "872 up 96 down 168 select 264, 968 enter 72, 1064 menu 72",
    "776 up 96 down 168 select 264, 872 left 96 right 168 change 264, 968 enter 72, 1064 menu 72",
    "968 enter 72, 1064 menu 72",
    "968 up 96 down 152 select 248 left 864 right 936 change 1032, 1064 menu 72",
    "968 left 96 right 168 change 264, 1064 menu 72",
    "968 up 96 down 152 select 248 left 864 right 936 change 1032, 1064 enter 72 menu 864",
    "968 up 96 down 152 select 248, 1064 enter 72 menu 864",
    "1064 enter 72 menu 864",
    "1064 menu 72",
    "689 up 96 down 168 select 264, 804 enter 72, 919 menu 72, 1034 menu0 72",
    "574 up 96 down 168 select 283, 689 left 96 right 168 change 264, 804 enter 72, 919 menu 72, 1034 menu0 72",
    "804 enter 72, 919 menu0 72, 1034 menu 72",
    "689 up 96 down 168 select 283, 804 left 96 right 168 change 264, 919 menu 72, 1034 menu0 72",
    "919 menu0 72, 1034 menu 72",
    "804 left 96 right 168 change 264, 919 menu 72, 1034 menu0 72",
};

TEST(HelpBlock, HasEighteenLayoutsAndNothingForOtherNumbers)
{
    std::vector<Item> items;
    std::string types;
    for (int i = -1; i <= 18; i++) {
        items.push_back({std::to_string(i), {i + 1}});
        (types += (i < 0 ? "\"" : ", \"") + std::to_string(i)) += "\": " + std::to_string(i);
    }
    directory.write_config("{\"helpline_type\": {" + types + "}}");
    prepare_help(2, 1160);
    load_menu(directory, items);
    for (int i = -1; i <= 18; i++)
        EXPECT_EQ(block_for(loaded(std::to_string(i))), i >= 0 && i < 18 ? layouts[i] : "") << "layout " << i;
    EXPECT_EQ(block_for(nullptr), "");
    osdmenu_fontsize_init2(96, 2); // the top line is above the view, and every sum is rounded on its own
    EXPECT_EQ(block_for(loaded("13")), "228 left 192 right 336 change 528, 458 enter 144, 688 menu 144, 918 menu0 144");
    osdmenu_fontsize_init2(48, 1);
    prepare_help(1, 580);
    EXPECT_EQ(block_for(loaded("12"), 1), "339 up 48 down 84 select 132, 396 enter 36, 453 menu 36, 510 menu0 36");
    EXPECT_EQ(block_for(loaded("14"), 1), "397 enter 36, 454 menu0 36, 511 menu 36");
}

TEST(HelpBlock, FollowsTheItemsEntryThenTheDefaultThenLayout0)
{
    prepare_help(2, 1160);
    const std::vector<Item> items = {{"first", {1}}, {"second", {2}}, {"third", {3}}};
    load_menu(directory, items);
    EXPECT_EQ(block_for(loaded("first")), layouts[0]);
    output_of(free_all_menuitems);
    directory.write_config(R"({"helpline_default": 5, "helpline_type": {"first": 1, "SECOND": 7, "third": "7"}})");
    load_menu(directory, items);
    EXPECT_EQ(block_for(loaded("first")), layouts[1]);
    EXPECT_EQ(block_for(loaded("second")), layouts[5]);
    EXPECT_EQ(block_for(loaded("third")), layouts[5]);
}

TEST(HelpBlock, LiesOverTheRowsAtTheEndOfAPageWhileItIsSwitchedOn)
{
    prepare_help(2, 1160);
    load_menu(directory, {{"tall", {0}, {1100, 200, 0x44}}});
    redraw();
    EXPECT_EQ(byte_at(96, 872), 0x44);
    osdmenu_meeting_camera_helpline_enable(5);
    redraw();
    EXPECT_EQ(byte_at(96, 872), 0xA0);
}
