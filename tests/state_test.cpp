// The state of the menu as its host sees it: the accessors, the depth and mark of an item, and the lock.
#include "support/host.h"

TEST(State, AccessorysNameIsReplacedAsAWholeOrNotAtAll)
{
    static const char full[] = "abcdefghijklmnopqrstuvwxyzABCDEF";
    struct Name {
        const char *name, *before, *given, *after; // before and after fill the array, all of it or up to a terminator
    };
    for (const auto &[name, before, given, after] :
         {Name{"that just fits", "camera", full + 1, full + 1}, Name{"one byte too long", "camera", full, "camera"},
          Name{"null", "camera", nullptr, "camera"}, Name{"empty", "camera", "", ""},
          Name{"one letter", full, "x", "x"}, Name{"the end of its own", "camera", kz73_name + 2, "mera"},
          Name{"its own", "camera", kz73_name, "camera"},
          Name{"the end of a full array", full, kz73_name + 2, full + 2}, Name{"a full array", full, kz73_name, full},
          Name{"its last byte", full, kz73_name + 31, "F"}}) {
        std::strncpy(kz73_name, before, sizeof kz73_name);
        EXPECT_EQ(set_kz73_name(given), 0);
        std::string expected = after;
        expected.resize(sizeof kz73_name);
        EXPECT_EQ(std::string(get_kz73_name(), sizeof kz73_name), expected) << name;
    }
}

TEST(State, StartsAtTheTopWithNothingSet)
{
    EXPECT_EQ(std::tuple(place(), last_noview_itemnumber, sc_trackingmode_max), std::tuple("0: 0 0 0 0", 65535, 5));
}

TEST(State, PositionKeepsTheLowByteOnFourLevelsAlone)
{
    for (auto [level, given, kept] : {std::tuple{0, 7, 7}, {1, 300, 44}, {3, -1, 255}, {4, 9, 0}, {-1, 9, 0}}) {
        EXPECT_EQ(set_current_view_position(level, given), 0);
        EXPECT_EQ(get_current_view_position(level), kept) << level;
    }
    EXPECT_EQ(osdmenu_current_view_position(), 7);
}

TEST(State, LastLevelIsBothACoordinateAndTheMarkThatDisables)
{
    using Row = std::tuple<const char *, osdmenu_position, int, int>;
    for (const auto &[name, position, depth, enabled] :
         {Row{"top item", {{1, 255, 255, 255}}, 0, 1}, Row{"hidden top item", {{2, 255, 3, 0xEE}}, 0, 0},
          Row{"row", {{1, 0, 255, 0xEF}}, 1, 1}, Row{"row of a row", {{1, 2, 3, 255}}, 2, 1},
          Row{"row that was enabled", {{1, 2, 3, 0xCC}}, 3, 1}, Row{"row that was hidden", {{1, 2, 3, 0xEE}}, 3, 0}}) {
        osdmenu_item item = {.position = position};
        EXPECT_EQ(std::pair(get_viewlevel_from_menuitem(&item), osdmenu_itemenabled(&item)), std::pair(depth, enabled))
            << name;
    }
}

TEST(State, NullItemHasNoDepthAndIsNotEnabled)
{
    EXPECT_EQ(std::pair(get_viewlevel_from_menuitem(nullptr), osdmenu_itemenabled(nullptr)), std::pair(0, 0));
}

TEST(Lock, TracesItsCallerFromLevel7On)
{
    set_trace_level(6);
    osdmenu_Mutex_Lock("quiet");
    osdmenu_Mutex_Unlock("quiet");
    set_trace_level(7);
    EXPECT_EQ(osdmenu_Mutex_Lock("caller"), 0);
    EXPECT_EQ(osdmenu_Mutex_Unlock(nullptr), 0);
    EXPECT_EQ(traced_text(), "7 lib osdmenu_Mutex_Lock: fun:caller\n7 lib osdmenu_Mutex_Unlock: fun:(null)\n");
}
