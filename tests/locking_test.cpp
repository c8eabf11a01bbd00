// The menu's lock: which functions take it, and two threads at once.
#include <thread>

#include "support/host.h"

static std::string lock_state()
{
    if (pthread_mutex_trylock(&osdmenu_mutex) != 0)
        return "held ";
    pthread_mutex_unlock(&osdmenu_mutex);
    return "free ";
}

static std::string found; // how the actions found the lock

static int watching_action(osdmenu_item *, int, int)
{
    return found += lock_state(), 0;
}

struct Function {
    const char *name;
    int (*call)();
    std::string found; // and how it is afterwards
};

struct Lock : testing::Test {
    const std::vector<Function> takers = {
        {"osdmenu_action_left", osdmenu_action_left, "held free "},
        {"osdmenu_action_right", osdmenu_action_right, "held free "},
        {"osdmenu_action_ok", osdmenu_action_ok, "held free "},
        {"osdmenu_draw_allitems", osdmenu_draw_allitems, "held free "},
        {"osdmenu_action_menuctl_byname_safe", [] { return osdmenu_action_menuctl_byname_safe("v", 3, 1), 0; },
         "held free "},
        {"osdmenu_action_up", osdmenu_action_up, "free "},
        {"osdmenu_action_down", osdmenu_action_down, "free "},
        {"osdmenu_current_view_position_reset", osdmenu_current_view_position_reset, "free "}};

    Lock()
    {
        load_menu(ResourceDirectory(), {{"a", {0}}, {"v", {1}, {4, 4}, VALUE_NUMBER, {}, {9, 0, 0, 1}}});
        press("down");
        loaded("v")->action = watching_action;
    }
};

TEST_F(Lock, IsHeldByEightFunctionsAndTracedUnderTheirNames)
{
    set_trace_level(7);
    for (const Function &taker : takers) {
        found = "";
        taker.call();
        const int traced_calls = traced("]fun:" + std::string(taker.name) + "\n"); // of taking and of releasing it
        EXPECT_EQ(std::pair(traced_calls, found + lock_state()), std::pair(2, taker.found)) << taker.name;
    }
}

TEST_F(Lock, IsTakenByNoOtherFunction)
{
    set_trace_level(7);
    for (int key = 0; key < 6; key++)
        osdmenu_process_key(key);
    _osdmenu_draw_allitems();
    osdmenu_action_menuctl_byname("v", 3, 1);
    EXPECT_EQ(std::pair(traced("]fun:"), found), std::pair(0, std::string("free free free free free ")));
}

TEST_F(Lock, KeepsTwoThreadsApart)
{
    const auto call_all = [this] {
        for (int i = 0; i < 300; i++)
            for (const Function &taker : takers)
                taker.call();
    };
    std::thread other(call_all);
    call_all();
    other.join();
    EXPECT_EQ(lines_with(found, "free"), 0);
}
