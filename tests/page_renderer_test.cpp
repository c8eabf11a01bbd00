// One page: where its rows, values and pointer stand, which row becomes current, and how a position finds its page.
#include "support/host.h"

static const ResourceDirectory files;
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

// Rows of 10 stand at 15, 40, 65, 90: "views|values|current row and pointer|level, count of enabled rows", and the rows
// above an overflow behind a slash.
static std::string page_at(int level, const osdmenu_position &position)
{
    osdmenu_current_viewlevel = level;
    current_view_position = position;
    last_noview_itemnumber = -1;
    redraw();
    return column(40) + "|" + column(440) + "|" + (osdmenu_current_menuitem ? osdmenu_current_menuitem->name : "") +
           column(8) + "|" + std::to_string(osdmenu_current_viewlevel) + " " + std::to_string(last_looped_itemnumber) +
           (last_noview_itemnumber < 0 ? "" : "/" + std::to_string(last_noview_itemnumber));
}

static std::string show(const std::vector<Item> &items)
{
    osdmenu_fontsize_init(1);
    if (!osdmenu_viewbuffer)
        prepare_view(files, 880, 580);
    output_of(free_all_menuitems);
    load_menu(files, items);
    return page_at(0, {});
}

TEST(Page, ShowsItsRowsUpToTheFirstThatDoesNotFit)
{
    set_kz73_name("LL"); // its glyphs are filled with '0'
    const auto hidden = [](const char *name, unsigned height) { return row(name, {1, X, X, HIDDEN}, height); };
    using Page = std::tuple<const char *, std::vector<Item>, const char *>;
    for (const auto &[name, items, look] :
         {Page{"nothing", {}, "|||0 0"}, Page{"up to the edge", {row("a", {0}, 564)}, "15a||a15>|0 1"},
          Page{"onto the edge", {row("a", {0}, 565)}, "|||0 0/0"},
          Page{"hidden row", {row("a", {0}), hidden("h", 10), row("b", {2})}, "15a 40b||a15>|0 2"},
          Page{"hidden overflow", {row("a", {0}), hidden("h", 600), row("b", {2})}, "15a||a15>|0 1/1"},
          Page{"height of 2 to the 31st", {{"far", {0}, {0x80000000, 0}}, row("b", {1})}, "|||0 0/0"},
          Page{"height that ends at y 1", {{"w", {0}, {0xFFFFFFF2, 0}}, row("b", {1})}, "16b||w15>|0 2"},
          Page{"title", {row("a title", {0}), row("b", {1})}, "15a 55b||a title15>|0 2"},
          Page{"hidden title", {row("a", {0}), hidden("title", 10), row("b", {2})}, "15a 40b||a15>|0 2"},
          Page{"accessory's name",
               {row("kz73versionshow", {0}, 20, VALUE_TXT), row("kz73versionshows", {1})},
               "150 50k|150|kz73versionshow15>|0 2"}})
        EXPECT_EQ(show(items), look) << name;
}

// The pass ends at "tall". The row "skipped" has a value and no action, "raw" a free text.
struct Values : testing::Test {
    std::string look;
    Values()
    {
        show({row("a", {0}, 10, VALUE_TXT), row("b", {1}), row("h", {2, X, X, HIDDEN}, 10, VALUE_TXT),
              row("raw", {3}, 10, VALUE_TXT), row("skipped", {4}, 10, VALUE_TXT), row("e", {5}, 10, VALUE_TXT),
              row("n", {6}, 10, VALUE_NUMBER), row("tall", {7}, 600), row("below", {8}, 10, VALUE_TXT)});
        output_of([] { osdmenu_action_setnewtxtvalue2menuitem_byname("raw", "M"); });
        osdmenu_register_action_byname("skipped", nullptr, 0);
        settings = {{"a", 1}, {"h", 1}, {"raw", 9}, {"e", 7}, {"n", 48}};
        osdmenu_viewarea_topitem_number = {{3, 0, 0, 0}};
        osdmenu_current_view_position_reset(); // leaves the top of the scroll alone
        calls.clear();
        look = page_at(0, {});
    }
};

TEST_F(Values, AreAskedOfEveryRowThatIsReached)
{
    EXPECT_EQ(calls, (std::vector<Call>{{"a", 2, 0}, {"h", 2, 0}, {"raw", 2, 0}, {"e", 2, 0}, {"n", 2, 0}}));
}

TEST_F(Values, ShowFromTheTopOfTheScrollOn)
{
    EXPECT_EQ(look, "15r 40e 65n|151 400 65\3|a15>|0 5/6"); // 7 wraps to 0, 48 is held at 20
}

TEST(Pointer, IsMissingOnTwoItemsOfTheConfiguration)
{
    files.write_config(R"({"information_last_item": "b", "peripheralinformation_title": "c", "menu_last_item": "d"})");
    show({row("a", {0}), row("b", {1}), row("c", {2}), row("d", {3}), row("h", {4, X, X, HIDDEN})});
    std::string pointers;
    for (unsigned char i = 0; i < 5; i++)
        pointers += page_at(0, {{i, 0, 0, 0}}).substr(17);
    EXPECT_EQ(pointers, "a15>|0 4b|0 4c|0 4d90>|0 4h115>|0 4"); // no enabled row comes behind the hidden one
}

TEST(Pointer, StandsBesideTheValuesAndStaysWhereItWas)
{
    show({row("a", {0}), row("b", {1})});
    osdmenu_view_valuearea_y += 3;
    output_of([] { EXPECT_EQ(osdmenu_draw_allitems(), 0); });
    EXPECT_EQ(column(8), "15> 18>"); // a pass paints over what is there
}

TEST(Position, LeadsToThePageOfAnEnabledRow)
{
    show({row("v", {0}, 10, VALUE_TXT), row("d", {1, X, X, HIDDEN}), row("p", {2}), row("e", {3, X, X, HIDDEN}),
          row("A", {0, 0}), row("B", {0, 1}), row("D", {1, 0}), row("P", {2, 0}), row("Q", {2, 1}), row("E", {3, 0}),
          row("Y", {2, 1, 0}), row("Z", {2, 1, 1})});
    osdmenu_register_action_byname("v", nullptr, 0); // no row of its own, but the way down counts it
    using Way = std::tuple<const char *, int, osdmenu_position, const char *>;
    for (const auto &[name, level, position, look] :
         {Way{"top list", 0, {{0, 0, 0, 0}}, "15p||p15>|0 1"},
          Way{"first page", 1, {{0, 1, 0, 0}}, "15A 40B||B40>|1 2"},
          Way{"behind a hidden row", 1, {{1, 0, 0, 0}}, "15P 40Q||P15>|1 2"},
          Way{"only a hidden row left", 1, {{2, 0, 0, 0}}, "15E||E15>|1 1"},
          Way{"no row at the first level", 1, {{9, 0, 0, 0}}, "15p|||0 1"},
          Way{"second level", 2, {{1, 1, 1, 0}}, "15Y 40Z||Z40>|2 2"},
          Way{"no row at the second level", 2, {{1, 9, 1, 0}}, "15P 40Q||Q40>|2 2"}, // the list above stays
          Way{"no row on the page", 2, {{1, 1, 9, 0}}, "15P 40Q||Q40>|1 2"}})
        EXPECT_EQ(page_at(level, position), look) << name;
}

TEST(Position, BeyondTheOverflowHasNoRow)
{
    show({row("a", {0}), row("b", {1}, 600), row("c", {2})});
    EXPECT_EQ(page_at(0, {{1, 0, 0, 0}}), "15a|||0 1/1");
}

TEST(Position, WithoutARowIsTraced)
{
    set_trace_level(3);
    EXPECT_EQ(_osdmenu_draw_allitems(), 0);
    EXPECT_EQ(traced_text(), "3 lib _osdmenu_draw_allitems: osdmenu_current_menuitem == NULL,do menuback\n");
}

TEST(Recovery, StepsBackLevelByLevelAndWipesWhatIsPainted)
{
    show({row("aimodeselection", {0}), row("b", {1}), row("A", {0, 0}), row("B", {0, 1})}); // a step back hides the row
    EXPECT_EQ((std::pair{page_at(3, {{0, 9, 9, 9}}), host_calls.size()}), std::pair(std::string("15b||b15>|0 1"), 6UL));
}

TEST(Recovery, EndsAfterFourPassesWhereAnActionStepsBackIn)
{
    show({row("v", {0}, 10, VALUE_TXT)});
    loaded("v")->action = [](auto...) { return traces.push_back("asked"), osdmenu_submenu_entry(); };
    page_at(1, {{9, 9, 9, 9}});
    EXPECT_EQ(traced("asked"), 4);
}
