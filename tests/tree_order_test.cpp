// From the flat list of the load to the tree of pages, and the place of a row in its page.
#include "support/faults.h"

// Loads and orders the items of a menu, "A:1 A1:1.1", and returns the lines of the ordering, "B 2 3; end; refused; ".
static std::string order(const std::string &menu)
{
    const ResourceDirectory directory;
    directory.write_items(items_of(menu));
    output_of([&] { read2mem_all_menuitems(directory.path().c_str()); });
    std::string lines = printed(orderize_all_menuitems);
    for (auto [line, note] : {std::pair{"INFO insert2orderized_osmenu: list_add err (.*)\n", "$1; "},
                              {"INFO orderize_all_menuitems: end!\n", "end; "},
                              {"ERR insert2orderized_osmenu: first level value 0!\n", "refused; "}})
        lines = std::regex_replace(lines, std::regex(line), note);
    return lines;
}

// "A .A1 .A2 ..A21 B ": rows in display order, each followed by its page.
static std::string tree_of(const list_head *page, const std::string &dots = "")
{
    std::string text;
    for (const osdmenu_item *row = first_row(page); row; row = row_below(row, page))
        text += dots + row->name + " " + tree_of(&row->child, dots + ".");
    return text;
}

struct Menu {
    std::string name, items, tree, lines;
};
using TreeOrder = testing::TestWithParam<Menu>;

TEST_P(TreeOrder, PlacesItemsByTheirCoordinatesInTheOrderOfTheFile)
{
    EXPECT_EQ((std::pair{order(GetParam().items), tree_of(&orderized_osdmenu.siblings)}),
              std::pair(GetParam().lines, GetParam().tree));
}
INSTANTIATE_TEST_SUITE_P(
    Of, TreeOrder,
    testing::Values(Menu{"nothing", "", "", "end; "},
                    Menu{"two_levels", "T:0 A:1 A1:1.1 A2:1.2 B:2 B1:2.1", "T A .A1 .A2 B .B1 ", "end; "},
                    Menu{"four_levels", "A:1 A1:1.1 A11:1.1.1 A111:1.1.1.1 A112:1.1.1.2",
                         "A .A1 ..A11 ...A111 ...A112 ", "end; "},
                    Menu{"a_gap_in_coordinates", "A:1 B:2.255.3", "A B ", "end; "},
                    Menu{"late_items", "A:1 H:3 B:2 D:4 E:4 Z:0", "A H B D E Z ", "B 2 3; E 4 4; Z 0 4; end; "},
                    Menu{"a_row_before_its_parent", "A1:1.1 A:1 B:2", "A1 A B ", "A 1 1; end; "},
                    Menu{"a_row_without_a_parent", "A:1 B:2 X1:5.1 H:3", "A B X1 H ", "X1 1 255; H 3 5; end; "},
                    Menu{"a_parent_missing_in_between", "A:1 A1:1.1 X:1.7.2", "A .A1 .X ", "X 2 255; end; "},
                    Menu{"two_parents", "P:1 Q:1 K:1.1", "P Q .K ", "Q 1 1; end; "},
                    Menu{"items_without_a_place", "R:255 A:1 S:255.3 B:2", "A B ",
                         "end; refused; refused; refused; refused; refused; "}),
    [](const auto &row) { return row.param.name; });

TEST(TreeOrder, TracesWhatIsNotPlacedLastAndWhatIsRefused)
{
    set_trace_level(7);
    order("A:1 B:1 R:255");
    EXPECT_EQ(traced_text(), "6 lib insert2orderized_osmenu: list_add err B 1 1\n\n"
                             "7 lib orderize_all_menuitems: not inserted. right?\n");
}

TEST(TreeOrder, IsEmptyWhenItIsMadeAgainAndTheRefusedItemsStayInTheirOrder)
{
    order("R:255 A:1 S:255.3 B:2");
    output_of(orderize_all_menuitems);
    std::string flat;
    for (auto *item = first_along_next(&osdmenu.siblings); item; item = item_along_next(item, &osdmenu.siblings))
        flat += item->name;
    EXPECT_EQ(std::pair(rows_of(), flat), std::pair(std::string(), std::string("RS")));
}

TEST(TreeOrder, TellsWhetherAnItemIsPlaced)
{
    osdmenu_item item = {.position = {{7, 255, 0, 0}}}, refused = {.position = {{255, 0, 0, 0}}};
    for (auto [name, own, answer] : {std::tuple{"item", &item, 1}, {"refused", &refused, 2}, {"null", nullptr, 2}})
        EXPECT_EQ(insert2orderized_osmenu(own), answer) << name;
}

TEST(TreeOrder, FindsAPlaceByTheEnabledRowsAbove)
{
    output_of(orderize_all_menuitems);
    EXPECT_EQ(get_levels_byname("A"), -2) << "before a load";
    order("A:1 B:2.255.255.238 H:3 X:3 X:4 A1:1.1");
    for (auto [name, place] : {std::pair{"A", 0}, {"B", 1}, {"H", 1}, {"X", 2}, {"A1", -2}, {nullptr, -2}})
        EXPECT_EQ(get_levels_byname(name), place) << (name ? name : "null");
}
