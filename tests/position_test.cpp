// Moving the menu without a key: to the top, in and out, to the AI mode and the information page.
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
    current_view_position = {{9, 8, 255, 4}};
    osdmenu_current_viewlevel = 2;
    EXPECT_EQ(place(osdmenu_submenu_entry() + osdmenu_submenu_entry()), "0 3: 9 8 255 4");
    EXPECT_EQ(place(osdmenu_recall_extsetting()), "0 3: 9 8 0 4");
    for (const char *seen : {"0 3: 9 8 0 3", "0 3: 9 8 0 2", "0 3: 9 8 0 2"})
        EXPECT_EQ(place(osdmenu_recall_delsetting()), seen);
    for (const char *seen : {"2 2: 9 8 0 2", "1 1: 9 8 0 2", "0 0: 9 8 0 2", "-1 0: 9 8 0 2"})
        EXPECT_EQ(place(osdmenu_action_menuback()), seen);
    EXPECT_EQ(place(osdmenu_recall_extsetting()), "0 0: 9 8 0 2"); // there is no row above
    EXPECT_EQ(place(osdmenu_current_view_position_reset()), "0 0: 1 1 1 1");
}

TEST(Position, TheAiModePageOpensOnItsModeAndIsLeftByAnyStepBack)
{
    load_menu(files, {{"a", {0}}, {"aimodeselection", {1}}, {"b", {2}}});
    tracking_mode = set_sc_trackingmode_max(0x302);
    EXPECT_EQ(place((set_sc_trackingmode_max(0x101), osdmenu_enter_aimodeselection())), "0 1: 1 255 1 1");
    set_osdmenu_status(4);
    EXPECT_EQ((osdmenu_action_menuback(), get_osdmenu_status() + osdmenu_itemname_enable("aimodeselection")), 0);
    osdmenu_action_menuback(); // the row is hidden now, and the one behind it has its number
    *loaded("aimodeselection")->name = 'A';
    set_current_view_position(0, 254); // -2, the number of a missing row, is no byte
    osdmenu_action_menuback();
    EXPECT_EQ(std::pair(host_calls.back(), host_calls.size()), std::pair(std::string("set_aimode_show 0"), 4UL));
}

TEST(Position, TheInformationPageOpensOnItsLastEnabledRow)
{
    load_menu(files, {{"b", {0}}, {"c", {0, 0}}, {"information", {1}}, {"e", {1, 0}}, {"f", {1, 1}}, {"g", {1, 2}}});
    for (const char *name : {"b", "g"})
        osdmenu_disableitem_byname(name);
    EXPECT_EQ(place(osdmenu_call_information_immediate()), "0 1: 1 1 0 0"); // without an action, too
    loaded("information")->action = [](auto, int operation, int) { return traces.push_back(place(operation)), 0; };
    osdmenu_disableitem_byname("information");
    EXPECT_EQ(place(osdmenu_call_information_immediate()), "0 1: 0 1 0 0");
    EXPECT_EQ(traces.back(), "4 1: 1 1 0 0"); // the action comes before the move
    osdmenu_disableitem_byaction(nullptr);
    EXPECT_EQ(lines_with(output_of(osdmenu_call_information_immediate).out, "nextitem->name= "), 3);
    *loaded("information")->name = 'I';
    EXPECT_EQ(place(osdmenu_call_information_immediate()), "0 1: 255 255 0 0");
}
