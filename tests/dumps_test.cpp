// Dumps of the loaded menu: every item on standard output, the tree and the lists on the levelled channel.
#include "support/faults.h"

static const ResourceDirectory directory;

// The dump of all items, without addresses and what stands before each line.
static std::string dump_of(const std::vector<Item> &items)
{
    load_menu(directory, items);
    return std::regex_replace(printed(show_all_menuitems), std::regex("INFO show_all_menuitems: |0x *\\S+(?=\n)"), "");
}

TEST(DumpOfItems, ShowsThemInTheOrderOfTheFile)
{
    const std::string view = "view type:1515870810\nview description:description\nview pixeltype:1515870810\n";
    EXPECT_EQ(dump_of({{"b", {2, 0}, {3, 4}}, {"a", {1}}}),
              "position:\n2\n255\n255\n\nname:b\n" + view + "view height:3\nview width:4\nview bitmap:\nno value!\n\n" +
                  "position:\n1\n255\n255\n255\n\nname:a\n" + view +
                  "view height:0\nview width:0\nview bitmap:\nno value!\n\n");
}

TEST(DumpOfItems, ShowsValuesByTheirType)
{
    const std::string dump = dump_of({{"txt", {1}, {}, VALUE_TXT, {{"on", {1, 2}}}},
                                      {"number", {2}, {}, VALUE_NUMBER, {}, {9, 1, 5, 3}},
                                      {"percentage", {3}, {}, VALUE_PERCENTAGE, {}, {8, 2, 5, 4}},
                                      {"rawtxt", {4}, {}, VALUE_RAWTXT}});
    EXPECT_EQ(std::regex_replace(dump, std::regex("position:[^]*?\nview bitmap:\n"), ""),
              "value type:1\ntxt description:on\ntxt viewbitmap pixeltype:1515870810\ntxt viewbitmap height:1\n"
              "txt viewbitmap width:2\ntxt viewbitmap bitmap:\n\n"
              "value type:2\nnumber highlimit:9\nnumber lowlimit:1\nnumber step:3\n\n"
              "value type:3\npercentage highlimit:8\npercentage lowlimit:2\npercentage step:4\n\n"
              "value type:4\n\n");
}

// What a dump traces of a menu three levels deep and more, without what stands before each line.
static std::string traced_by(int (*dump)(), const std::string &name)
{
    load_menu(directory,
              {{"a", {1}}, {"b", {2}}, {"b1", {2, 1}}, {"b11", {2, 1, 1}}, {"deep", {2, 1, 1, 1}}, {"none", {255}}});
    set_trace_level(7);
    EXPECT_EQ(dump(), 0);
    return std::regex_replace(traced_text(), std::regex("7 lib " + name + ": "), "");
}

TEST(DumpOfTheTree, GoesFromTheBottomRowUpAndThreeLevelsDown)
{
    EXPECT_EQ(traced_by(osdmenu_show_orderized_osdmenu_siblings, "osdmenu_show_orderized_osdmenu_siblings"),
              "===========show orderized_osdmenu.siblings=============\n==level 1 name:b ==\n----level 2 name:b1----\n"
              "------level 3 name:b11\n==level 1 name:a ==\n");
}

TEST(DumpOfTheLists, ShowsTheItemsWithoutAPlaceBeforeAll)
{
    EXPECT_EQ(traced_by(osdmenu_show_osdmenu_siblings_and_readlist, "osdmenu_show_osdmenu_siblings_and_readlist"),
              "===========show osdmenu.siblings=============\nname:none\n===========show osdmenu.readlist============="
              "\nname:a\nname:b\nname:b1\nname:b11\nname:deep\nname:none\n");
}
