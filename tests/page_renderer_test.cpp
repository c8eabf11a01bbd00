// One page: where its rows, values and pointer stand, which row becomes current, and how a position finds its page.
#include "support/host.h"

static const int X = LEVEL_ABSENT, HIDDEN = ITEM_MARK_DISABLED;

static Item row(const std::string &name, const std::vector<int> &levels, unsigned height = 10, unsigned type = 0)
{
    const Choice choices[] = {{"M", {10, 4, '0'}}, {"M", {10, 4, '1'}}}; // the glyph of M is filled with '1', too
    return {name, levels, {height, 4, name[0]}, type, {choices, choices + (type == VALUE_TXT ? 2 : 0)}, {20, 0, 0, 1}};
}

// What stands in a column from the top down, y and fill: "15a 40b". The pointer is '>', the background '!'.
static std::string column(int x)
{
    std::string found;
    for (int y = 0, above = '!'; y < osdmenu_viewarea_height; above = byte_at(x, y++))
        if (const int fill = byte_at(x, y); fill != above && fill != '!')
            found += (found.empty() ? "" : " ") + std::to_string(y) + (fill == 0xA1 ? '>' : static_cast<char>(fill));
    return found;
}

// Rows of 10 stand at 15, 40, 65, 90: "views|values|current row and pointer|level, count of rows".
static std::string page_at(int level, const osdmenu_position &position)
{
    osdmenu_current_viewlevel = level;
    current_view_position = position;
    redraw();
    return column(40) + "|" + column(440) + "|" + (osdmenu_current_menuitem ? osdmenu_current_menuitem->name : "") +
           column(8) + "|" + std::to_string(osdmenu_current_viewlevel) + " " + std::to_string(last_looped_itemnumber);
}

static const ResourceDirectory files;

static std::string show(const std::vector<Item> &items)
{
    osdmenu_fontsize_init(1);
    if (!osdmenu_viewbuffer)
        prepare_view(files, 880, 580);
    output_of(free_all_menuitems);
    load_menu(files, items);
    return page_at(0, {});
}

TEST(Page, ARowFitsByItsUnsignedBottomEdgeAlone)
{
    EXPECT_EQ(show({row("a", {0}, 564)}), "15a||a15>|0 1");
    EXPECT_EQ(show({row("a", {0}, 565)}), "|||0 0");
    EXPECT_EQ(last_noview_itemnumber, 0);
    EXPECT_EQ(show({row("a", {0}), row("h", {1, X, X, HIDDEN}, 600), row("c", {2})}), "15a||a15>|0 1");
    EXPECT_EQ(last_noview_itemnumber, 1);
    EXPECT_EQ(show({{"far", {0}, {0x80000000, 0}}, row("b", {1})}), "|||0 0");
    EXPECT_EQ(show({{"wraps", {0}, {0xFFFFFFF2, 0}}, row("b", {1})}), "16b||wraps15>|0 2"); // ends at y 1
}

TEST(Page, HiddenRowsTakeNoRoomAndTitlesTakeMore)
{
    set_kz73_name("LL"); // its glyphs are filled with '0'
    settings["kz73versionshow"] = 1;
    EXPECT_EQ(show({row("a title", {0}), row("title", {1, X, X, HIDDEN}), row("kz73versionshow", {2}, 20, VALUE_TXT),
                    row("kz73versionshows", {3})}),
              "15a 550 90k|551|a title15>|0 3");
}

TEST(Page, EveryValuedRowThatIsReachedIsAskedAndItsAnswerStored)
{
    show({row("a", {0}, 10, VALUE_TXT), row("b", {1}), row("h", {2, X, X, HIDDEN}, 10, VALUE_TXT),
          row("raw", {3}, 10, VALUE_TXT), row("skipped", {4}, 10, VALUE_TXT), row("e", {5}, 10, VALUE_TXT),
          row("n", {6}, 10, VALUE_NUMBER), row("tall", {7}, 600), row("below", {8}, 10, VALUE_TXT)});
    output_of([] { osdmenu_action_setnewtxtvalue2menuitem_byname("raw", "M"); });
    osdmenu_register_action_byname("skipped", nullptr, 0);
    settings = {{"a", 1}, {"h", 1}, {"raw", 9}, {"e", 7}, {"n", 48}};
    osdmenu_viewarea_topitem_number = {{3, 0, 0, 0}};
    calls.clear();
    EXPECT_EQ(page_at(0, {}), "15r 40e 65n|151 400 65\3|a15>|0 5"); // 7 wraps to 0, 48 is held at 20
    EXPECT_EQ(calls, (std::vector<Call>{{"a", 2, 0}, {"h", 2, 0}, {"raw", 2, 0}, {"e", 2, 0}, {"n", 2, 0}}));
    EXPECT_EQ(last_noview_itemnumber, 6); // rows walked, the skipped one not among them
    const auto stored = [](const char *name) { return loaded(name)->item_values.current; };
    EXPECT_EQ(std::tuple(stored("a"), stored("e"), stored("raw")), std::tuple(1, 0, 0));
}

TEST(Page, TwoItemsOfTheConfigurationAreCurrentWithoutAPointer)
{
    files.write_config(R"({"information_last_item": "b", "peripheralinformation_title": "c", "menu_last_item": "d"})");
    show({row("a", {0}), row("b", {1}), row("c", {2}), row("d", {3}), row("h", {4, X, X, HIDDEN})});
    std::string seen;
    for (unsigned char i = 0; i < 5; i++)
        seen += page_at(0, {{i, 0, 0, 0}}).substr(17);
    EXPECT_EQ(seen, "a15>|0 4b|0 4c|0 4d90>|0 4h115>|0 4"); // no enabled row comes behind the hidden one
    set_current_view_position(0, 0);
    output_of(osdmenu_draw_allitems);
    EXPECT_EQ(column(8), "15> 115>"); // a pass paints over what is there
}

TEST(Page, ThePositionLeadsToThePageOfAnEnabledRow)
{
    show({row("v", {0}, 10, VALUE_TXT), row("d", {1, X, X, HIDDEN}), row("p", {2}), row("e", {3, X, X, HIDDEN}),
          row("A", {0, 0}), row("B", {0, 1}), row("D", {1, 0}), row("P", {2, 0}), row("Q", {2, 1}), row("E", {3, 0}),
          row("Y", {2, 1, 0}), row("Z", {2, 1, 1})});
    osdmenu_register_action_byname("v", nullptr, 0); // no row of its own, but the way down counts it
    EXPECT_EQ(page_at(0, {{0, 0, 0, 0}}), "15p||p15>|0 1");
    EXPECT_EQ(page_at(1, {{0, 1, 0, 0}}), "15A 40B||B40>|1 2");
    EXPECT_EQ(page_at(1, {{1, 0, 0, 0}}), "15P 40Q||P15>|1 2"); // the hidden row at the index gives way
    EXPECT_EQ(page_at(1, {{2, 0, 0, 0}}), "15E||E15>|1 1");     // only a hidden row is left to match
    EXPECT_EQ(page_at(1, {{9, 0, 0, 0}}), "15p|||0 1");         // nothing matches at the first level
    EXPECT_EQ(page_at(2, {{1, 1, 1, 0}}), "15Y 40Z||Z40>|2 2");
    EXPECT_EQ(page_at(2, {{1, 9, 1, 0}}), "15P 40Q||Q40>|2 2"); // nothing matches further down: the list above stays
    EXPECT_EQ(page_at(2, {{1, 1, 9, 0}}), "15P 40Q||Q40>|1 2"); // the page has no such row
    EXPECT_EQ(get_current_view_position(2), 9);
    osdmenu_viewarea_topitem_number = {{9, 1, 9, 9}};
    osdmenu_current_view_position_reset();                  // leaves the scroll tops alone
    EXPECT_EQ(page_at(1, {{0, 0, 0, 0}}), "15B||A15>|1 2"); // the current row is above the scroll top
}

TEST(Page, WithoutItsRowGivesWayToTheOneAboveAndTheTopListStandsWithoutAPointer)
{
    set_trace_level(3);
    EXPECT_EQ(show({}), "|||0 0");
    EXPECT_EQ(traced("3:[lib _osdmenu_draw_allitems +") + traced("]osdmenu_current_menuitem == NULL,do menuback\n"), 2);
    show({row("a", {0}), row("b", {1}, 600), row("c", {2})});
    EXPECT_EQ(page_at(0, {{1, 0, 0, 0}}), "15a|||0 1"); // the row is there, beyond the overflow
    show({row("aimodeselection", {0}), row("b", {1}), row("A", {0, 0}), row("B", {0, 1})});
    EXPECT_EQ(page_at(3, {{0, 9, 9, 9}}), "15b||b15>|0 1"); // each step back hides the row, and the page is wiped
    EXPECT_EQ(host_calls.size(), 6U);
}
