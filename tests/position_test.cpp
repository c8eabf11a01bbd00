// Moving the menu without a key: to the top, in and out, to the AI mode and the information page.
#include <gtest/gtest.h>

#include "support/host.h"

static const ResourceDirectory files;

// A call's result and where the menu then stands: "result level: positions".
static std::string place(int result)
{
    std::string found = std::to_string(result) + " " + std::to_string(osdmenu_current_viewlevel) + ":";
    for (int position : current_view_position.levels)
        found += " " + std::to_string(position);
    return found;
}

TEST(Position, StepsKeepThePositionsAndTheLimitsOfTheLevel)
{
    current_view_position = osdmenu_viewarea_topitem_number = {{9, 8, 255, 4}};
    osdmenu_current_viewlevel = 2;
    EXPECT_EQ(place(osdmenu_submenu_entry()), "0 3: 9 8 255 4");
    EXPECT_EQ(place(osdmenu_submenu_entry()), "0 3: 9 8 255 4");
    EXPECT_EQ(place(osdmenu_recall_extsetting()), "0 3: 9 8 0 4");
    for (const char *seen : {"0 3: 9 8 0 3", "0 3: 9 8 0 2", "0 3: 9 8 0 2"})
        EXPECT_EQ(place(osdmenu_recall_delsetting()), seen);
    for (const char *seen : {"2 2: 9 8 0 2", "1 1: 9 8 0 2", "0 0: 9 8 0 2", "-1 0: 9 8 0 2"})
        EXPECT_EQ(place(osdmenu_action_menuback()), seen);
    EXPECT_EQ(place(osdmenu_recall_extsetting()), "0 0: 9 8 0 2"); // there is no row above
    EXPECT_EQ(place(osdmenu_current_view_position_reset()), "0 0: 1 1 1 1");
    EXPECT_EQ(osdmenu_viewarea_topitem_number.levels[1], 8);
}

TEST(Position, TheAiModePageOpensOnItsModeAndIsLeftByAnyStepBack)
{
    load_menu(files, {{"a", {0}}, {"aimodeselection", {1}}, {"b", {2}}});
    for (auto [max, seen] :
         {std::pair(0x105, "0 1: 1 3 1 1"), std::pair(2, "0 1: 1 0 1 1"), std::pair(1, "0 1: 1 255 1 1")}) {
        tracking_mode = 0x302;
        EXPECT_EQ(set_sc_trackingmode_max(max), max);
        EXPECT_EQ(place(osdmenu_enter_aimodeselection()), seen);
    }
    for (int level : {0, -1}) { // the second time the row is hidden, and the one behind it has its number
        set_osdmenu_status(4);
        EXPECT_EQ(osdmenu_action_menuback(), level);
        EXPECT_EQ(host_calls, (std::vector<std::string>{"save_config_to_flash", "set_aimode_show 0"}));
        EXPECT_EQ(get_osdmenu_status() + osdmenu_itemname_enable("aimodeselection"), 0);
        host_calls.clear();
    }
    *loaded("aimodeselection")->name = 'A';
    for (int row : {1, 254}) { // -2, the number of a missing row, is no byte
        set_current_view_position(0, row);
        osdmenu_action_menuback();
    }
    EXPECT_TRUE(host_calls.empty());
}

TEST(Position, TheInformationPageOpensOnItsLastEnabledRow)
{
    load_menu(files, {{"a", {0}}, {"b", {1}}, {"c", {1, 0}}, {"information", {2}}, {"e", {2, 0}}, {"f", {2, 1}}});
    osdmenu_disableitem_byname("b");
    EXPECT_EQ(place(osdmenu_call_information_immediate()), "0 1: 2 1 0 0"); // without an action, too
    osdmenu_disableitem_byname("information");
    osdmenu_disableitem_byname("f");
    osdmenu_register_action_byname(
        "information", [](osdmenu_item *, int operation, int) { return traces.push_back(place(operation)), 0; }, 0);
    testing::internal::CaptureStdout();
    EXPECT_EQ(place(osdmenu_call_information_immediate()), "0 1: 1 0 0 0");
    EXPECT_EQ(lines_with(testing::internal::GetCapturedStdout(), "nextitem->name= "), 4);
    EXPECT_EQ(traces.back(), "4 1: 2 1 0 0"); // the action comes before the move
    for (const char *name : {"a", "c", "e"})
        osdmenu_disableitem_byname(name);
    EXPECT_EQ(place(osdmenu_call_information_immediate()), "0 1: 255 255 0 0");
    *loaded("information")->name = 'I';
    EXPECT_EQ(place(osdmenu_call_information_immediate()), "0 1: 255 255 0 0");
    EXPECT_EQ(traces.size(), 2U);
}
