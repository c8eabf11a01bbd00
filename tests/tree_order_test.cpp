// From the flat list of the load to the tree of pages, and the place of a row in its page.
#include <gtest/gtest.h>
#include <regex>
#include <sstream>

#include "core/walks.h"
#include "support/host.h"

// "A:1 A1:1.1": items by name and coordinates.
static std::vector<Item> items_of(const std::string &text)
{
    std::vector<Item> items;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        std::vector<int> levels(4, LEVEL_ABSENT);
        std::sscanf(word.c_str(), "%*[^:]:%d.%d.%d.%d", &levels[0], &levels[1], &levels[2], &levels[3]);
        items.push_back({word.substr(0, word.find(':')), levels});
    }
    return items;
}
// "T A(A1 A2 )B ": rows in display order, each with its page.
static std::string tree_of(const list_head *page)
{
    std::string text;
    for (const osdmenu_item *row = first_row(page); row; row = row_below(row, page)) {
        const std::string below = tree_of(&row->child);
        text.append(row->name).append(below.empty() ? " " : "(").append(below).append(below.empty() ? "" : ")");
    }
    return text;
}
// Loads and orders; the lines of the ordering, those of standard error first: "first level value 0!; end!; ".
static std::string order(const ResourceDirectory &directory, const std::string &items)
{
    output_of([] { free_all_menuitems(); });
    directory.write_items(items_of(items));
    output_of([&] { read2mem_all_menuitems(directory.path().c_str()); });
    const Output lines = output_of(orderize_all_menuitems);
    return std::regex_replace(lines.err + lines.out, std::regex(R"(DBG_\w+:tree_order.cpp \w+\[\d{4}\] (.*)\n)"),
                              "$1; ");
}
TEST(TreeOrder, ItemsArePlacedByTheirCoordinatesInTheOrderOfTheFile)
{
    const std::string before = "list_add err ", refused = "first level value 0!; ";
    const std::string rows[][3] = {
        {"T:0 A:1 A1:1.1 A2:1.2 B:2 B1:2.1", "T A(A1 A2 )B(B1 )", ""},
        {"A:1 H:3 B:2 D:4", "A H B D ", before + "B 2 3; "},
        {"A:1 B:2 E:2 Z:0", "A B E Z ", before + "E 2 2; " + before + "Z 0 2; "},
        {"A1:1.1 A:1 B:2", "A1 A B ", before + "A 1 1; "},
        {"A:1 B:2 X1:5.1 H:3", "A B X1 H ", before + "X1 1 255; " + before + "H 3 5; "},
        {"A:1 A1:1.1 X:1.7.2", "A(A1 X )", before + "X 2 255; "},
        {"P:1 Q:1 K:1.1", "P Q(K )", before + "Q 1 1; "},
        {"A:1 A1:1.1 A11:1.1.1 A111:1.1.1.1 A112:1.1.1.2 G:2.255.3", "A(A1(A11(A111 A112 )))G ", ""},
        {"R:255 A:1 S:255.3 B:2", "A B ", refused + refused + refused + refused + refused},
        {"R:255 S:255", "", refused + refused},
        {"", "", ""}};
    ResourceDirectory directory;
    set_trace_level(7);
    for (const auto &[items, tree, lines] : rows) {
        EXPECT_EQ(order(directory, items), lines + "end!; ") << items;
        EXPECT_EQ(tree_of(&orderized_osdmenu.siblings), tree) << items;
    }
    EXPECT_EQ(traced("6:[lib insert2orderized_osmenu +"), 8);
    EXPECT_EQ(traced("7:[lib orderize_all_menuitems +"), 7);
}
TEST(TreeOrder, RefusedItemsStayInTheFlatListInTheOrderOfTheFile)
{
    ResourceDirectory directory;
    output_of(orderize_all_menuitems);
    EXPECT_EQ(rows_of(), "") << "nothing loaded";
    order(directory, "R:255 A:1 S:255.3 B:2");
    const osdmenu_item *refused = first_along_next(&osdmenu.siblings);
    EXPECT_TRUE(refused == loaded("R") && item_along_next(refused, &osdmenu.siblings) == loaded("S"));
    osdmenu_item own = {.position = {{7, 255, 0, 0}}};
    EXPECT_EQ(insert2orderized_osmenu(&own), 1);
    EXPECT_EQ(orderized_osdmenu.siblings.next, &own.siblings);
    output_of([] { EXPECT_EQ(insert2orderized_osmenu(loaded("R")), 2); });
    EXPECT_EQ(insert2orderized_osmenu(nullptr), 2);
    output_of(orderize_all_menuitems);
    EXPECT_EQ(rows_of(), "") << "placed items have left the flat list";
}
TEST(TreeOrder, PlaceOfARowCountsTheEnabledOnesAboveIt)
{
    ResourceDirectory directory;
    EXPECT_EQ(get_levels_byname("A"), -2);
    order(directory, "A:1 B:2 H:3 X:3 X:4 A1:1.1");
    osdmenu_disableitem_byname("B");
    for (auto [name, place] : {std::pair{"A", 0}, {"B", 1}, {"H", 1}, {"X", 2}, {"A1", -2}, {"none", -2}})
        EXPECT_EQ(get_levels_byname(name), place) << name;
    EXPECT_EQ(get_levels_byname(nullptr), -2);
}
