// The state of the menu as its host sees it: the accessors, the depth and mark of an item, and the lock.
#include <cerrno>
#include <gtest/gtest.h>

#include "support/host.h"

TEST(State, AccessoryNameTakes31CharactersAndALongerOneOrNullChangesNothing)
{
    EXPECT_STREQ(get_kz73_name(), "");
    const std::string fits(31, 'a'), too_long(32, 'b');
    for (const char *name : {fits.c_str(), too_long.c_str(), static_cast<const char *>(nullptr)}) {
        EXPECT_EQ(set_kz73_name(name), 0);
        EXPECT_EQ(get_kz73_name(), fits);
    }
    set_kz73_name("xy");
    EXPECT_EQ(std::string(kz73_name, 32), "xy" + std::string(30, '\0')) << "a trace of the name before";
}
TEST(State, PositionKeepsTheLowBitsOfFourLevelsAndNoMore)
{
    EXPECT_EQ(osdmenu_current_view_position(), 0);
    osdmenu_current_view_position_reset();
    for (auto [level, position] : {std::pair{0, 7}, {1, 300}, {3, -1}, {4, 9}, {-1, 9}})
        EXPECT_EQ(set_current_view_position(level, position), 0);
    for (auto [level, expected] : {std::pair{-1, 0}, {0, 7}, {1, 44}, {2, 1}, {3, 255}, {4, 0}})
        EXPECT_EQ(get_current_view_position(level), expected) << level;
    EXPECT_EQ(osdmenu_current_view_position(), 7);
}
TEST(State, LastLevelIsBothACoordinateAndTheMarkThatDisables)
{
    ResourceDirectory directory;
    load_menu(directory, {{"A", {1}}, {"B", {2, 255, 3, 0xEE}}, {"C", {1, 0, 255, 0xEF}}, {"D", {1, 2, 3}}});
    for (auto [name, depth, marked, enabled] :
         {std::tuple{"A", 0, 0, 1}, {"B", 0, 0, 0}, {"C", 1, 1, 1}, {"D", 2, 3, 1}}) {
        EXPECT_EQ(osdmenu_itemenabled(loaded(name)), enabled) << name;
        EXPECT_EQ(get_viewlevel_from_menuitem(loaded(name)), depth) << name;
        osdmenu_enableitem_byname(name);
        EXPECT_EQ(get_viewlevel_from_menuitem(loaded(name)), marked) << name;
    }
}
TEST(State, LockIsTakenAndTracesItsCallerAboveLevel6)
{
    set_trace_level(6);
    osdmenu_Mutex_Lock("quiet");
    EXPECT_EQ(pthread_mutex_trylock(&osdmenu_mutex), EBUSY);
    set_trace_level(7);
    osdmenu_Mutex_Unlock(nullptr);
    EXPECT_EQ(pthread_mutex_trylock(&osdmenu_mutex), 0);
    ASSERT_EQ(traces.size(), 1u);
    EXPECT_TRUE(traces[0].starts_with("7:[lib osdmenu_Mutex_Unlock +") && traces[0].ends_with("]fun:(null)\n"));
}
