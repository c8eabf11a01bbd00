// Dumps of the loaded menu: every item on standard output, the tree and the lists on the levelled channel.
#include <gtest/gtest.h>
#include <regex>

#include "support/host.h"

TEST(Dump, ShowsEveryItemInLoadOrderWithItsValueByType)
{
    ResourceDirectory directory;
    load_menu(directory, {{"b", {2, 0}, {3, 4}, VALUE_NUMBER, {}, {9, 1, 5, 2}},
                          {"a", {1}, {}, VALUE_TXT, {{"on", {1, 2}}}},
                          {"raw", {3, 0, 7, 8}, {}, VALUE_TXT, {{"off", {}}}}});
    output_of([] { osdmenu_action_setnewtxtvalue2menuitem(loaded("raw"), "text"); });
    std::string out = output_of(show_all_menuitems).out;
    out = std::regex_replace(out, std::regex("DBG_INFO:dumps.cpp show_all_menuitems\\[\\d{4}\\] "), "");
    out = std::regex_replace(out, std::regex("0x *\\S+\n"), "ADDRESS\n");
    const std::string view = "view type:1515870810\nview description:description\nview pixeltype:1515870810\n";
    EXPECT_EQ(out, "position:\n2\n255\n255\n\nname:b\n" + view + "view height:3\nview width:4\nview bitmap:ADDRESS\n" +
                       "value type:2\nnumber highlimit:9\nnumber lowlimit:1\nnumber step:2\n\n" +
                       "position:\n1\n255\n255\n255\n\nname:a\n" + view +
                       "view height:0\nview width:0\nview bitmap:ADDRESS\nvalue type:1\ntxt description:on\n" +
                       "txt viewbitmap pixeltype:1515870810\ntxt viewbitmap height:1\ntxt viewbitmap width:2\n" +
                       "txt viewbitmap bitmap:ADDRESS\n\nposition:\n3\n7\n8\n\nname:raw\n" + view +
                       "view height:0\nview width:0\nview bitmap:ADDRESS\nvalue type:4\n\n");
}

TEST(Dump, TracesTheTreeFromTheBottomRowUpAndTheItemsWithoutAPlace)
{
    ResourceDirectory directory;
    load_menu(directory,
              {{"a", {1}}, {"b", {2}}, {"b1", {2, 1}}, {"b11", {2, 1, 1}}, {"deep", {2, 1, 1, 1}}, {"nowhere", {255}}});
    set_trace_level(6);
    EXPECT_EQ(osdmenu_show_orderized_osdmenu_siblings() + osdmenu_show_osdmenu_siblings_and_readlist(), 0);
    EXPECT_EQ(traces.size(), 0u);
    set_trace_level(7);
    osdmenu_show_orderized_osdmenu_siblings();
    osdmenu_show_osdmenu_siblings_and_readlist();
    std::string lines;
    for (const std::string &line : traces)
        lines += line.substr(line.find(']') + 1);
    EXPECT_EQ(lines, "===========show orderized_osdmenu.siblings=============\n==level 1 name:b ==\n"
                     "----level 2 name:b1----\n------level 3 name:b11\n==level 1 name:a ==\n"
                     "===========show osdmenu.siblings=============\nname:nowhere\n"
                     "===========show osdmenu.readlist=============\n"
                     "name:a\nname:b\nname:b1\nname:b11\nname:deep\nname:nowhere\n");
}
