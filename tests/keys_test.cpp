// The five keys: what OK enters, how LEFT and RIGHT change a value, and where UP and DOWN go by rule and by anchor.
#include <climits>

#include "core/config.h"
#include "support/host.h"

using Key = int (*)();
static const Key UP = osdmenu_action_up, DOWN = osdmenu_action_down, LEFT = osdmenu_action_left,
                 RIGHT = osdmenu_action_right, OK = osdmenu_action_ok;
static const ResourceDirectory files;

// The current item, on level 1 with all positions at 7. By rule UP leads to "1: 7 6 7 7" and DOWN to "1: 7 8 7 7".
static void stand_on(const std::string &item)
{
    osdmenu_current_menuitem = loaded(item);
    osdmenu_current_viewlevel = 1;
    current_view_position = {{7, 7, 7, 7}};
    last_looped_itemnumber = 20;
}

static void configure(const std::string &json)
{
    files.write_config(json);
    osdmenu_config_init(files.path().c_str());
}

struct Keys : testing::Test {
    Keys()
    {
        std::vector<Item> items = items_of(
            "here:0 osdmirror:1 camera:2 cec:3 ethernet_for_laptop:4 versionmenuback:5 peripheralversionmenuback:6 "
            "one:7 one0:7.0 two:8 two0:8.0 two1:8.1 upgrade:9 upgrade0:9.0 upgrade1:9.1 information:10 information0:10.0 "
            "information1:10.1 peripheralinformation:11 peripheralinformation0:11.0 peripheralinformation1:11.1 "
            "smartgallery_preset:12 smartgallery_preset0:12.0 smartgallery_preset1:12.1");
        items.push_back({"number", {13}, {}, VALUE_NUMBER});
        load_menu(files, items);
        for (osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
            item->action = recording_action;
        stand_on("here");
    }
};

TEST_F(Keys, OkTellsTheActionAndEntersAPageOfTwoRowsOrMoreWhereItsNameSays)
{
    struct Entry {
        std::string name, item, effect;
        int preset = 0, hidden_rows = 0;
    };
    for (const auto &[name, item, effect, preset, hidden_rows] :
         {Entry{"leaf", "here", "0 here:4=0"}, Entry{"one row", "one", "0 one:4=0"},
          Entry{"two rows", "two", "0 two:4=0 1: 7 1 7 7"}, Entry{"upgrade", "upgrade", "0 upgrade:4=0"},
          Entry{"information", "information", "0 information:4=0 1: 7 1 7 7 +2"},
          Entry{"information with a hidden row", "information", "0 information:4=0 1: 7 0 7 7 +2", 0, 1},
          Entry{"information without rows", "information", "0 information:4=0 1: 7 255 7 7 +2", 0, 2},
          Entry{"peripheralinformation", "peripheralinformation", "0 peripheralinformation:4=0 1: 7 0 7 7"},
          Entry{"preset 4", "smartgallery_preset", "0 smartgallery_preset:4=0 3: 7 7 7 5", 0x7F04},
          Entry{"preset 255", "smartgallery_preset", "0 smartgallery_preset:4=0 3: 7 7 7 0", 0xFF}}) {
        gallery_preset = preset;
        for (int i = 0; i < hidden_rows; i++)
            osdmenu_disableitem_byname((item + std::to_string(i)).c_str());
        stand_on(item);
        osdmenu_current_viewlevel = 2; // the new level is that of the item, wherever the menu stands
        EXPECT_EQ(effect_of(OK), effect) << name;
    }
}

TEST_F(Keys, OkEntersTheDeepestLevelAtAMarkThatReadsAsACoordinate)
{
    stand_on("two");
    osdmenu_current_menuitem->position = {{0, 0, 0, ITEM_MARK_ENABLED}};
    EXPECT_EQ(effect_of(OK), "0 two:4=0 3: 7 7 7 1");
}

TEST_F(Keys, OkCallsTheActionOnTheNewLevelAtTheOldPosition)
{
    stand_on("two");
    osdmenu_current_viewlevel = 0;
    osdmenu_current_menuitem->action = [](auto...) { return host_calls.push_back("at " + place()), 0; };
    EXPECT_EQ(effect_of(OK), "0 at 1: 7 7 7 7 1: 7 1 7 7");
}

TEST_F(Keys, LeftAndRightChangeAValueAndTellIt)
{
    struct Step {
        const char *name;
        Key key;
        osdmenu_item_value_number number; // high limit, low limit, present value, step
        int after;
        unsigned type = VALUE_NUMBER;
        bool told = true;
    };
    for (const auto &[name, key, number, after, type, told] :
         {Step{"high limit", RIGHT, {10, 0, 7, 3}, 10}, Step{"above it", RIGHT, {10, 0, 8, 3}, 0},
          Step{"low limit", LEFT, {10, 0, 3, 3}, 0}, Step{"below it", LEFT, {10, 0, 2, 3}, 10},
          Step{"percentage", RIGHT, {5, -5, 2, 4}, -5, VALUE_PERCENTAGE},
          Step{"next choice", RIGHT, {0, 0, 2, 0}, 3, VALUE_TXT}, Step{"choice below 0", LEFT, {}, -1, VALUE_TXT},
          Step{"choice below the least int", LEFT, {0, 0, INT_MIN, 0}, INT_MAX, VALUE_TXT},
          Step{"greatest int", RIGHT, {INT_MAX, 4, INT_MAX - 3, 3}, INT_MAX},
          Step{"above the greatest int", RIGHT, {INT_MAX, 4, INT_MAX - 2, 3}, 4},
          Step{"below the least int", LEFT, {6, INT_MIN, INT_MIN + 2, 3}, 6},
          Step{"greatest int by a step below 0", LEFT, {8, 0, INT_MAX - 1, -1}, INT_MAX},
          Step{"above it by a step below 0", LEFT, {8, 0, INT_MAX, -1}, 8},
          Step{"least int by a step below 0", RIGHT, {20, 9, INT_MIN + 1, -1}, INT_MIN},
          Step{"below it by a step below 0", RIGHT, {20, 9, INT_MIN, -1}, 9},
          Step{"no value", LEFT, {9, 0, 2, 1}, 2, VALUE_NONE, false},
          Step{"free text", RIGHT, {9, 0, 2, 1}, 2, VALUE_RAWTXT, false},
          Step{"unknown type", RIGHT, {9, 0, 2, 1}, 2, 5, false}}) {
        stand_on("number");
        calls.clear();
        osdmenu_item_value &value =
            osdmenu_current_menuitem->item_values = {{}, type, number.current, {.number = number}};
        key();
        EXPECT_EQ(std::pair(type == VALUE_TXT ? value.current : value.u.number.current, calls),
                  std::pair(after, std::vector<Call>(told, {"number", ACTION_OP_SET, after})))
            << name;
    }
}

TEST_F(Keys, UpAndDownMoveByOneAndWrapByTheCountsOfTheDraw)
{
    struct Move {
        const char *name;
        Key key;
        int row, rows, top, row_after, top_after; // the rows counted, and the top of the scroll
        int row_that_did_not_fit = 99, level = 1, separator = -1, lines = 0;
    };
    set_trace_level(6);
    for (const Move &move :
         {Move{"down", DOWN, 3, 5, 0, 4, 0}, Move{"down from the last row", DOWN, 4, 5, 3, 1, 0},
          Move{"down from 255", DOWN, 255, 5, 9, 1, 0},
          Move{"down to the first that did not fit", DOWN, 2, 5, 0, 3, 1, 3},
          Move{"down to it with the top at 255", DOWN, 2, 5, 255, 3, 0, 3},
          Move{"down from the last row that fits", DOWN, 2, 3, 1, 1, 0, 3},
          Move{"down from 255 to one that did not fit", DOWN, 255, 300, 4, 0, 5, 256},
          Move{"down from the last row past the separator", DOWN, 4, 5, 3, 2, 0, 99, 0, 1, 1},
          Move{"down from the last row on a page below", DOWN, 4, 5, 3, 1, 0, 99, 1, 1, 1},
          Move{"down from the last row without a separator", DOWN, 4, 5, 3, 1, 0, 99, 0, 2},
          Move{"up", UP, 3, 5, 0, 2, 0}, Move{"up from the top of the scroll", UP, 3, 5, 3, 2, 2},
          Move{"up from the first row", UP, 1, 5, 3, 4, 1}, Move{"up without rows", UP, 1, 0, 0, 255, 0},
          Move{"up to row 299", UP, 1, 300, 0, 43, 0}, Move{"up from the title", UP, 0, 5, 0, 255, 255},
          Move{"up from the separator", UP, 1, 5, 0, 0, 0, 99, 0, 1, 1},
          Move{"up from below the separator", UP, 2, 5, 0, 4, 0, 99, 0, 1, 1},
          Move{"up from there on a page below", UP, 2, 5, 0, 1, 0, 99, 1, 1, 1}}) {
        traces.clear();
        osdmenu_current_viewlevel = move.level;
        set_current_view_position(move.level, move.row);
        last_looped_itemnumber = move.rows;
        last_noview_itemnumber = move.row_that_did_not_fit;
        underlineenable = move.separator;
        unsigned char &top = osdmenu_viewarea_topitem_number.levels[move.level] = static_cast<unsigned char>(move.top);
        move.key();
        EXPECT_EQ(std::tuple(get_current_view_position(move.level), top, traced("6:[lib osdmenu_process_key +")),
                  std::tuple(move.row_after, move.top_after, move.lines))
            << move.name;
    }
}

TEST_F(Keys, UpAndDownStayOnTwoItemsWithoutAConfiguration)
{
    for (const char *item : {"versionmenuback", "peripheralversionmenuback"})
        for (Key key : {UP, DOWN}) {
            stand_on(item);
            EXPECT_EQ(effect_of(key), "0") << item << (key == UP ? " up" : " down");
        }
}

// The current item is one that a key of the configuration names. A question whether an item is enabled is a line.
struct Anchor {
    std::string key, up, down, hidden = {};
};
struct Anchors : Keys, testing::WithParamInterface<Anchor> {
};

TEST_P(Anchors, LeadUpAndDown)
{
    configure("{\"" + GetParam().key + "\": \"versionmenuback\"}");
    osdmenu_disableitem_byname(GetParam().hidden.c_str());
    std::vector<std::string> effects;
    for (Key key : {UP, DOWN}) {
        stand_on("versionmenuback");
        effects.push_back(effect_of(key));
    }
    EXPECT_EQ(effects, (std::vector{GetParam().up, GetParam().down}));
}
INSTANTIATE_TEST_SUITE_P(
    Of, Anchors,
    testing::Values(Anchor{"information_last_item", "0", "0"}, Anchor{"peripheral_last_item", "0", "0"},
                    Anchor{"peripheralinformation_title", "0", "0 +1"},
                    Anchor{"get_ip_first_item", "0 1: 7 7 2 7 +1", "0 1: 7 8 7 7 +1"},
                    Anchor{"get_ip_first_item", "0 +1", "0 +1", "ethernet_for_laptop"},
                    Anchor{"get_ip_last_item", "0 1: 7 6 7 7", "0 1: 7 7 1 7 +1"},
                    Anchor{"get_ip_last_item", "0 1: 7 6 7 7", "0 1: 7 8 7 7 +1", "ethernet_for_laptop"},
                    Anchor{"menu_first_item", "0 1: 1 7 7 7", "0 1: 7 8 7 7 +1"},
                    Anchor{"menu_last_item", "0 1: 7 6 7 7", "0 1: 2 7 7 7 +1"},
                    Anchor{"peripheralinformation_item", "0 1: 7 7 3 7 +1", "0 1: 7 8 7 7 +1"},
                    Anchor{"peripheralinformation_item", "0 +1", "0 1: 7 8 7 7 +1", "cec"},
                    Anchor{"language_item", "0 1: 7 7 8 7 +1", "0 1: 7 8 7 7 +1"},
                    Anchor{"language_item", "0 1: 7 7 3 7 +1", "0 1: 7 8 7 7 +1", "peripheralinformation"},
                    Anchor{"general_last_item", "0 1: 7 6 7 7", "0 1: 7 7 8 7 +2"},
                    Anchor{"general_last_item", "0 1: 7 6 7 7", "0 1: 7 7 1 7 +2", "peripheralinformation"}),
    [](const auto &row) { return row.param.key + (row.param.hidden.empty() ? "" : "_without_" + row.param.hidden); });

TEST_F(Keys, DownToAMissingItemStoresTheLowByteOfItsPlace)
{
    configure(R"({"menu_last_item": "here"})");
    *loaded("camera")->name = 'K';
    EXPECT_EQ(effect_of(DOWN), "0 1: 254 7 7 7 +1");
}

TEST_F(Keys, NeedNoItemAndNoAction)
{
    using Press = std::tuple<const char *, Key, const char *>;
    for (auto [item, key, effect] :
         {Press{"none for UP", UP, "0 1: 7 6 7 7"}, Press{"none for DOWN", DOWN, "0 1: 7 8 7 7"},
          Press{"none for LEFT", LEFT, "0"}, Press{"none for RIGHT", RIGHT, "0"}, Press{"none for OK", OK, "0"},
          Press{"here", OK, "0"}, Press{"two", OK, "0 1: 7 1 7 7"}, Press{"number", LEFT, "0"}}) {
        stand_on(item);
        osdmenu_register_action_byname(item, nullptr, 0);
        EXPECT_EQ(effect_of(key), effect) << item;
    }
}

TEST_F(Keys, OtherCodesDoNothing)
{
    for (int code : {-1, 0, 6})
        EXPECT_EQ(effect_of([code] { return osdmenu_process_key(code); }), "0") << code;
}

TEST_F(Keys, AnActionMayLoadAnotherMenuInTheMiddleOfAPress)
{
    for (const char *item : {"number", "here", "two", "information", "smartgallery_preset"}) {
        stand_on(item);
        osdmenu_current_menuitem->action = [](auto...) {
            return free_all_menuitems(), read2mem_all_menuitems(files.path().c_str());
        };
        output_of(*item == 'n' ? LEFT : OK);
        EXPECT_EQ(osdmenu_current_menuitem, nullptr) << item;
        output_of(orderize_all_menuitems);
    }
}
