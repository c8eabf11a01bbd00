// Dumps of the loaded menu: every item on standard output, the tree and the lists on the levelled channel.
#include <gtest/gtest.h>
#include <regex>

#include "support/host.h"

static const ResourceDirectory directory;

TEST(Dump, ShowsEveryItemInLoadOrderWithItsValueByType)
{
    load_menu(directory,
              {{"b", {2, 0}, {3, 4}, VALUE_NUMBER, {}, {9, 1, 5, 2}}, {"a", {1}, {}, VALUE_TXT, {{"on", {1, 2}}}}});
    const std::regex varying("DBG_INFO:dumps.cpp show_all_menuitems\\[\\d{4}\\] |0x *\\S+(?=\n)");
    EXPECT_EQ(std::regex_replace(output_of(show_all_menuitems).out, varying, ""),
              "position:\n2\n255\n255\n\nname:b\nview type:1515870810\nview description:description\n"
              "view pixeltype:1515870810\nview height:3\nview width:4\nview bitmap:\nvalue type:2\nnumber highlimit:9\n"
              "number lowlimit:1\nnumber step:2\n\nposition:\n1\n255\n255\n255\n\nname:a\nview type:1515870810\n"
              "view description:description\nview pixeltype:1515870810\nview height:0\nview width:0\nview bitmap:\n"
              "value type:1\ntxt description:on\ntxt viewbitmap pixeltype:1515870810\ntxt viewbitmap height:1\n"
              "txt viewbitmap width:2\ntxt viewbitmap bitmap:\n\n");
}

TEST(Dump, TracesTheTreeFromTheBottomRowUpAndTheItemsWithoutAPlaceAtLevel7)
{
    load_menu(directory,
              {{"a", {1}}, {"b", {2}}, {"b1", {2, 1}}, {"b11", {2, 1, 1}}, {"deep", {2, 1, 1, 1}}, {"none", {255}}});
    set_trace_level(7);
    osdmenu_show_orderized_osdmenu_siblings();
    osdmenu_show_osdmenu_siblings_and_readlist();
    std::string lines;
    for (const std::string &line : traces)
        lines += line[0] + line.substr(line.find(']') + 1);
    EXPECT_EQ(lines, "7===========show orderized_osdmenu.siblings=============\n7==level 1 name:b ==\n"
                     "7----level 2 name:b1----\n7------level 3 name:b11\n7==level 1 name:a ==\n"
                     "7===========show osdmenu.siblings=============\n7name:none\n7===========show osdmenu.readlist="
                     "============\n7name:a\n7name:b\n7name:b1\n7name:b11\n7name:deep\n7name:none\n");
}
