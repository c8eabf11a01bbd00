// The state of the menu as its host sees it: the accessors, the depth and mark of an item, and the lock.
#include <gtest/gtest.h>

#include "support/host.h"

TEST(State, AccessoryNameTakes31CharactersAndALongerOneOrNullChangesNothing)
{
    const std::string fits(31, 'a'), too_long(32, 'b');
    for (const char *name : {fits.c_str(), too_long.c_str(), static_cast<const char *>(nullptr)})
        EXPECT_EQ(set_kz73_name(name), 0);
    EXPECT_EQ(get_kz73_name(), fits);
    set_kz73_name("xy");
    EXPECT_EQ(std::string(kz73_name, 32), "xy" + std::string(30, '\0')) << "a trace of the name before";
}

TEST(State, PositionKeepsTheLowBitsOfFourLevelsAndNoMore)
{
    for (auto [level, position, kept] : {std::tuple{0, 7, 7}, {1, 300, 44}, {3, -1, 255}, {4, 9, 0}, {-1, 9, 0}}) {
        EXPECT_EQ(set_current_view_position(level, position), 0);
        EXPECT_EQ(get_current_view_position(level), kept) << level;
    }
    EXPECT_EQ(osdmenu_current_view_position(), 7);
}

TEST(State, LastLevelIsBothACoordinateAndTheMarkThatDisables)
{
    load_menu(ResourceDirectory(), {{"A", {1}}, {"B", {2, 255, 3, 0xEE}}, {"C", {1, 0, 255, 0xEF}}, {"D", {1, 2, 3}}});
    for (auto [name, depth, on, marked] : {std::tuple{"A", 0, 1, 0}, {"B", 0, 0, 0}, {"C", 1, 1, 1}, {"D", 2, 1, 3}}) {
        osdmenu_item *item = loaded(name);
        EXPECT_EQ(std::pair(get_viewlevel_from_menuitem(item), osdmenu_itemenabled(item)), std::pair(depth, on));
        osdmenu_enableitem_byname(name);
        EXPECT_EQ(get_viewlevel_from_menuitem(item), marked) << name;
    }
}

TEST(State, LockTracesItsCallerFromLevel7On)
{
    set_trace_level(6);
    osdmenu_Mutex_Lock("quiet");
    set_trace_level(7);
    osdmenu_Mutex_Unlock(nullptr);
    EXPECT_EQ(traced("7:[lib osdmenu_Mutex_Unlock +") + traced("]fun:(null)\n") + traced("]fun:"), 3);
}

struct OwnName {
    const char *name, *before; // what fills the array, all of it or up to a terminator
    int offset;                // of the new name in it
    const char *after;
};

class NameFromTheNameItself : public testing::TestWithParam<OwnName>
{
};

TEST_P(NameFromTheNameItself, IsTakenAsIfItHadBeenCopiedFirst)
{
    std::strncpy(kz73_name, GetParam().before, sizeof kz73_name);
    set_kz73_name(get_kz73_name() + GetParam().offset);
    std::string expected = GetParam().after;
    expected.resize(sizeof kz73_name);
    EXPECT_EQ(std::string(kz73_name, sizeof kz73_name), expected);
}
static const char full[] = "abcdefghijklmnopqrstuvwxyzABCDEF";
INSTANTIATE_TEST_SUITE_P(Of, NameFromTheNameItself,
                         testing::Values(OwnName{"a_short_name", "camera", 2, "mera"},
                                         OwnName{"the_whole_name", "camera", 0, "camera"},
                                         OwnName{"a_full_array", full, 2, full + 2},
                                         OwnName{"all_of_a_full_array", full, 0, full}, // too long to be taken
                                         OwnName{"its_last_byte", full, 31, "F"}),
                         [](const auto &row) { return row.param.name; });
