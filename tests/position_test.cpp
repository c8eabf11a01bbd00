// Moving the menu without a key: to the top, in and out, to the AI mode and the information page.
#include "support/host.h"

static const ResourceDirectory files;

TEST(Position, IsSteppedWithinItsLimits)
{
    struct Step {
        const char *name;
        int (*step)(), level;
        osdmenu_position position;
        const char *effect;
    };
    for (const auto &[name, step, level, position, effect] :
         {Step{"in", osdmenu_submenu_entry, 2, {{9, 8, 7, 6}}, "0 3: 9 8 7 6 +1"},
          Step{"in from the deepest level", osdmenu_submenu_entry, 3, {{9, 8, 7, 6}}, "0 +1"},
          Step{"out", osdmenu_action_menuback, 2, {{9, 8, 7, 6}}, "1 1: 9 8 7 6 +1"},
          Step{"out to the top list", osdmenu_action_menuback, 1, {{9, 8, 7, 6}}, "0 0: 9 8 7 6 +1"},
          Step{"out of the top list", osdmenu_action_menuback, 0, {{9, 8, 7, 6}}, "-1 +1"},
          Step{"a row more than 255", osdmenu_recall_extsetting, 3, {{9, 8, 255, 6}}, "0 3: 9 8 0 6"},
          Step{"a row more above the top list", osdmenu_recall_extsetting, 0, {{9, 8, 7, 6}}, "0"},
          Step{"a row less", osdmenu_recall_delsetting, 3, {{9, 8, 7, 3}}, "0 3: 9 8 7 2"},
          Step{"a row less than 2", osdmenu_recall_delsetting, 3, {{9, 8, 7, 2}}, "0"},
          Step{"reset", osdmenu_current_view_position_reset, 3, {{9, 8, 7, 6}}, "0 0: 1 1 1 1"}}) {
        osdmenu_current_viewlevel = level;
        current_view_position = position;
        EXPECT_EQ(effect_of(step), effect) << name;
    }
}

struct AiMode : testing::Test {
    AiMode()
    {
        load_menu(files, items_of("a:0 aimodeselection:1 b:2"));
        osdmenu_current_viewlevel = 1;
        set_current_view_position(0, 1);
    }
};

TEST_F(AiMode, OpensOnTheRowOfTheMode)
{
    for (auto [highest, mode, effect] : {std::tuple{5, 2, "0 1: 1 3 1 1"}, {0x101, 0x302, "0 1: 1 255 1 1"}}) {
        EXPECT_EQ(set_sc_trackingmode_max(highest), highest);
        tracking_mode = mode;
        osdmenu_current_view_position_reset();
        EXPECT_EQ(effect_of(osdmenu_enter_aimodeselection), effect) << mode;
    }
}

TEST_F(AiMode, IsEndedSavedAndHiddenFromItsRow)
{
    set_osdmenu_status(4);
    EXPECT_EQ(effect_of(osdmenu_action_aimodeback),
              "0 save_config_to_flash set_aimode_show 0 status 0 [aimodeselection 238 0 0 0] +1");
}

TEST_F(AiMode, GoesOnWithoutItsItem)
{
    *loaded("aimodeselection")->name = 'A';
    set_current_view_position(0, 254); // -2, the number of a missing row, is no byte
    EXPECT_EQ(effect_of(osdmenu_action_aimodeback), "0 +1");
}

struct Information : testing::Test {
    Information()
    {
        load_menu(files, items_of("b:0 c:0.0 information:1 e:1.0 f:1.1 g:1.2"));
    }
};

TEST_F(Information, OpensOnItsLastEnabledRow)
{
    using Hidden = std::pair<std::vector<const char *>, const char *>;
    for (const auto &[items, effect] : {Hidden{{}, "0 1: 2 2 0 0 +6"}, Hidden{{"f"}, "0 1: 2 1 0 0 +6"},
                                        Hidden{{"c"}, "0 1: 1 2 0 0 +6"}, Hidden{{"information"}, "0 1: 1 2 0 0 +6"},
                                        Hidden{{"b", "c", "information", "e", "f", "g"}, "0 1: 255 255 0 0 +6"}}) {
        osdmenu_enableitem_byaction(nullptr);
        for (const char *item : items)
            osdmenu_disableitem_byname(item);
        current_view_position = {};
        EXPECT_EQ(effect_of(osdmenu_call_information_immediate), effect) << testing::PrintToString(items);
    }
}

TEST_F(Information, HasItsActionCalledBeforeTheMove)
{
    loaded("information")->action = [](auto item, int operation, int value) {
        host_calls.push_back("at " + place());
        return recording_action(item, operation, value);
    };
    EXPECT_EQ(effect_of(osdmenu_call_information_immediate), "0 information:4=0 at 0: 0 0 0 0 1: 2 2 0 0 +6");
}

TEST_F(Information, StaysAwayWithoutItsItem)
{
    *loaded("information")->name = 'I';
    EXPECT_EQ(effect_of(osdmenu_call_information_immediate), "0 +6");
}
