// From the flat list of the load to the tree of pages, and the place of a row in its page.
#include <gtest/gtest.h>
#include <sstream>

#include "support/faults.h"

// Loads and orders items given by name and coordinates, "A:1 A1:1.1"; returns the lines of the ordering.
static std::string order(const std::string &text)
{
    ResourceDirectory directory;
    std::vector<Item> items;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        items.push_back({word.substr(0, word.find(':')), std::vector<int>(4, LEVEL_ABSENT)});
        int *levels = items.back().levels.data();
        std::sscanf(word.c_str(), "%*[^:]:%d.%d.%d.%d", levels, levels + 1, levels + 2, levels + 3);
    }
    output_of(free_all_menuitems);
    directory.write_items(items);
    output_of([&] { read2mem_all_menuitems(directory.path().c_str()); });
    return printed(orderize_all_menuitems);
}

// "A .A1 .A2 ..A21 B ": rows in display order, each followed by its page.
static std::string tree_of(const list_head *page, const std::string &dots = "")
{
    std::string text;
    for (const osdmenu_item *row = first_row(page); row; row = row_below(row, page))
        text += dots + row->name + " " + tree_of(&row->child, dots + ".");
    return text;
}

TEST(TreeOrder, ItemsArePlacedByTheirCoordinatesInTheOrderOfTheFile)
{
    const std::string add = "INFO insert2orderized_osmenu: list_add err ", end = "INFO orderize_all_menuitems: end!\n";
    const std::string refused = "ERR insert2orderized_osmenu: first level value 0!\n";
    const std::string rows[][3] = {
        {"T:0 A:1 A1:1.1 A2:1.2 B:2 B1:2.1", "T A .A1 .A2 B .B1 ", end},
        {"A:1 H:3 B:2 D:4 E:4 Z:0", "A H B D E Z ", add + "B 2 3\n" + add + "E 4 4\n" + add + "Z 0 4\n" + end},
        {"A1:1.1 A:1 B:2", "A1 A B ", add + "A 1 1\n" + end},
        {"A:1 B:2 X1:5.1 H:3", "A B X1 H ", add + "X1 1 255\n" + add + "H 3 5\n" + end},
        {"A:1 A1:1.1 X:1.7.2", "A .A1 .X ", add + "X 2 255\n" + end},
        {"P:1 Q:1 K:1.1", "P Q .K ", add + "Q 1 1\n" + end},
        {"A:1 A1:1.1 A11:1.1.1 A111:1.1.1.1 A112:1.1.1.2 G:2.255.3", "A .A1 ..A11 ...A111 ...A112 G ", end},
        {"R:255 A:1 S:255.3 B:2", "A B ", end + refused + refused + refused + refused + refused}};
    set_trace_level(7);
    for (const auto &[items, tree, lines] : rows) {
        EXPECT_EQ(order(items), lines) << items;
        EXPECT_EQ(tree_of(&orderized_osdmenu.siblings), tree) << items;
    }
    EXPECT_EQ(std::pair(traced("6:[lib insert2orderized_osmenu"), traced("7:[lib orderize_all_")), std::pair(8, 5));
}

TEST(TreeOrder, RefusedItemsStayInTheFlatListInTheOrderOfTheFile)
{
    EXPECT_EQ(printed(orderize_all_menuitems) + rows_of(), "INFO orderize_all_menuitems: end!\n") << "nothing loaded";
    order("R:255 A:1 S:255.3 B:2");
    EXPECT_EQ(osdmenu.siblings.next, &loaded("R")->siblings);
    EXPECT_EQ(osdmenu.siblings.next->next, &loaded("S")->siblings);
    osdmenu_item own = {.position = {{7, 255, 0, 0}}};
    EXPECT_EQ(insert2orderized_osmenu(&own), 1);
    EXPECT_EQ(orderized_osdmenu.siblings.next, &own.siblings);
    EXPECT_EQ(insert2orderized_osmenu(loaded("R")) + insert2orderized_osmenu(nullptr), 2 + 2);
    output_of(orderize_all_menuitems);
    EXPECT_EQ(rows_of(), "") << "placed items have left the flat list";
}

TEST(TreeOrder, PlaceOfARowCountsTheEnabledOnesAboveIt)
{
    EXPECT_EQ(get_levels_byname("A"), -2);
    order("A:1 B:2.255.255.238 H:3 X:3 X:4 A1:1.1");
    for (auto [name, place] : {std::pair{"A", 0}, {"B", 1}, {"H", 1}, {"X", 2}, {"A1", -2}, {nullptr, -2}})
        EXPECT_EQ(get_levels_byname(name), place) << place;
}
