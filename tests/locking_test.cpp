// The menu's lock: which functions take it, and keys beside draws.
#include <algorithm>
#include <gtest/gtest.h>
#include <thread>

#include "support/host.h"

static const ResourceDirectory files;
static std::vector<int> locked; // whether the lock was taken, as the actions and the host's functions found it

static int watching_action(osdmenu_item *, int, int)
{
    const bool held = pthread_mutex_trylock(&osdmenu_mutex) != 0;
    if (!held)
        pthread_mutex_unlock(&osdmenu_mutex);
    locked.push_back(held);
    return 0;
}

static void load()
{
    prepare_view(files, 1000, 400);
    load_menu(files, {{"v", {0}, {4, 4}, VALUE_NUMBER, {}, {9, 0, 0, 1}}, {"page", {1}}, {"a", {1, 0}}, {"b", {1, 1}}});
    osdmenu_register_action_byname("v", watching_action, 0);
    set_current_view_position(0, 0);
    redraw();
    locked.clear();
    set_trace_level(7);
}

TEST(Locking, EightFunctionsHoldTheLockUnderTheirOwnNames)
{
    load();
    const std::pair<const char *, void (*)()> takers[] = {
        {"osdmenu_action_left", [] { osdmenu_action_left(); }},
        {"osdmenu_action_right", [] { osdmenu_action_right(); }},
        {"osdmenu_action_ok", [] { osdmenu_action_ok(); }},
        {"osdmenu_draw_allitems", [] { osdmenu_draw_allitems(); }},
        {"osdmenu_action_menuctl_byname_safe", [] { osdmenu_action_menuctl_byname_safe("v", 3, 1); }},
        {"osdmenu_action_up", [] { osdmenu_action_up(); }},
        {"osdmenu_action_down", [] { osdmenu_action_down(); }},
        {"osdmenu_current_view_position_reset", [] { osdmenu_current_view_position_reset(); }}};
    for (const auto &[name, call] : takers) {
        traces.clear();
        call();
        EXPECT_EQ(traced(std::string("]fun:") + name + "\n"), 2) << name;
        EXPECT_EQ(traced("]fun:"), 2) << name;
        EXPECT_EQ(watching_action(nullptr, 0, 0), 0);
    }
    EXPECT_EQ(locked, (std::vector{1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 0, 0, 0}));
}

TEST(Locking, NothingElseTakesTheLock)
{
    load();
    osdmenu_Mutex_Lock("host"); // whoever asked for it again would wait for ever
    for (int key = 0; key < 6; key++)
        osdmenu_process_key(key);
    _osdmenu_draw_allitems();
    osdmenu_action_menuctl_byname("v", 3, 1), osdmenu_complete_action_byname("v", 3, 1);
    osdmenu_register_action_byname("v", recording_action, 1), osdmenu_action_ext_change_value_byname("v", 1);
    osdmenu_enableitem_byname("v"), osdmenu_disableitem_byname("v"), osdmenu_itemname_enable("v");
    osdmenu_enableitem_byaction(nullptr), osdmenu_disableitem_byaction(nullptr);
    osdmenu_action_setnewtxtvalue2menuitem_byname("v", "t"), reuse_font_content_byname("v", "a", "osdmenu_view");
    osdmenu_submenu_entry(), osdmenu_action_menuback(), osdmenu_action_aimodeback(), osdmenu_enter_aimodeselection();
    osdmenu_call_information_immediate(), osdmenu_recall_extsetting(), osdmenu_recall_delsetting();
    get_osdmenu_bubble("text", 0, 0), osdmenu_get_bubbleline_byname("text", 0, 0, nullptr), osdmenu_draw_helpline();
    free_all_menuitems(), read2mem_all_menuitems(files.path().c_str()), orderize_all_menuitems();
    EXPECT_EQ(traced("]fun:"), 1);
    EXPECT_EQ(osdmenu_Mutex_Unlock(nullptr), 0);
    EXPECT_EQ(traced("]fun:(null)"), 1);
}

TEST(Locking, KeysAndDrawsOfTwoThreadsExcludeEachOther)
{
    load();
    set_trace_level(0);
    osdmenu_register_action_byname("v", recording_action, 0); // its vector of calls has no lock of its own
    calls.clear();
    std::thread keys([] {
        for (int i = 0; i < 300; i++)
            osdmenu_action_right(), osdmenu_action_ok(), osdmenu_action_down(), osdmenu_current_view_position_reset();
    });
    for (int i = 0; i < 300; i++)
        osdmenu_draw_allitems(), osdmenu_action_menuctl_byname_safe("v", 77, i);
    keys.join();
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(), [](const Call &call) { return call.operation == 77; }), 300);
}
