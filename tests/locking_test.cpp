// The menu's lock: which functions take it, and two threads at once.
#include <thread>

#include "support/host.h"

static std::string found; // how the actions found the lock

static int watching_action(osdmenu_item *, int, int)
{
    found += pthread_mutex_trylock(&osdmenu_mutex) ? "held " : (pthread_mutex_unlock(&osdmenu_mutex), "free ");
    return 0;
}

struct Locking : testing::Test {
    const std::pair<std::string, int (*)()> takers[8] = {
        {"osdmenu_action_left", osdmenu_action_left},
        {"osdmenu_action_right", osdmenu_action_right},
        {"osdmenu_action_ok", osdmenu_action_ok},
        {"osdmenu_draw_allitems", osdmenu_draw_allitems},
        {"osdmenu_action_menuctl_byname_safe", [] { return osdmenu_action_menuctl_byname_safe("v", 3, 1), 0; }},
        {"osdmenu_action_up", osdmenu_action_up},
        {"osdmenu_action_down", osdmenu_action_down},
        {"osdmenu_current_view_position_reset", osdmenu_current_view_position_reset}};

    Locking()
    {
        load_menu(ResourceDirectory(), {{"a", {0}}, {"v", {1}, {4, 4}, VALUE_NUMBER, {}, {9, 0, 0, 1}}});
        press("down");
        loaded("v")->action = watching_action;
    }
};

TEST_F(Locking, KeepsTwoThreadsApart)
{
    const auto call_all = [this] {
        for (int i = 0; i < 300; i++)
            for (const auto &[name, call] : takers)
                call();
    };
    std::thread other(call_all);
    call_all();
    other.join();
    EXPECT_EQ(lines_with(found, "free"), 0);
}

TEST_F(Locking, EightFunctionsTakeTheLockUnderTheirOwnNamesAndNoOtherDoes)
{
    set_trace_level(7);
    for (const auto &[name, call] : takers)
        EXPECT_EQ((call(), traced("]fun:" + name + "\n")), 2) << name;
    for (int key = 0; key < 6; key++)
        osdmenu_process_key(key);
    _osdmenu_draw_allitems();
    osdmenu_action_menuctl_byname("v", 3, 1);
    EXPECT_EQ(traced("]fun:"), 16);
    EXPECT_EQ(found, "held held held held held free free free free free ");
}
