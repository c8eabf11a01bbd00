// The five keys: what OK enters, how LEFT and RIGHT change a value, and where UP and DOWN go by rule and by anchor.
#include <sstream>

#include "core/config.h"
#include "support/host.h"

static const ResourceDirectory files;
static const int U = 1, D = 2, L = 3, R = 4, OK = 5;
static std::string heard; // by the actions: "name operation=value@level.position;"

static int listening_action(osdmenu_item *item, int operation, int value)
{
    const int level = osdmenu_current_viewlevel, row = get_current_view_position(level);
    heard += item->name + (" " + std::to_string(operation)) + "=" + std::to_string(value) + "@" +
             std::to_string(level) + "." + std::to_string(row) + ";";
    return 0;
}

static void give_all(osdmenu_action_callback action)
{
    for (osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        item->action = action;
}

// Presses a key on an item of level 1, with all positions at 7, and tells what changed: "level:position" and "@level",
// or "=" for nothing. By rule UP gives "1:6", DOWN "1:8".
static std::string after(int key, const std::string &name)
{
    osdmenu_current_menuitem = loaded(name);
    osdmenu_current_viewlevel = 1;
    current_view_position = {{7, 7, 7, 7}};
    last_looped_itemnumber = 20;
    EXPECT_EQ(osdmenu_process_key(key), 0);
    std::string changed;
    for (int level = 0; level < 4; level++)
        if (const int now = get_current_view_position(level); now != 7)
            changed += std::to_string(level) + ":" + std::to_string(now);
    if (osdmenu_current_viewlevel != 1)
        changed += "@" + std::to_string(osdmenu_current_viewlevel);
    return changed.empty() ? "=" : changed;
}

struct Keys : testing::Test {
    std::string config = "{\"\": 0"; // the name of every item under itself

    Keys()
    {
        // The items of the top list with the number of rows below each. Those of "page" are named page0 and page1.
        std::istringstream words(R"(number 0 leaf 0 osdmirror 0 page 2 camera 0 one 1 upgrade 2 information 3 cec 0
            peripheralinformation 2 smartgallery_preset 2 ethernet_for_laptop 0 get_ip_first_item 0 get_ip_last_item 0
            information_last_item 0 peripheral_last_item 0 menu_first_item 0 menu_last_item 0 general_last_item 0
            peripheralinformation_title 0 peripheralinformation_item 0 language_item 0 versionmenuback 0
            peripheralversionmenuback 0)");
        std::vector<Item> items;
        std::string name;
        for (int i = 0, rows; words >> name >> rows; i++) {
            config += ", \"" + name + "\": \"" + name + "\"";
            items.push_back({name, {i}, {}, i == 0 ? VALUE_NUMBER : VALUE_NONE, {}, {9, 0, 0, 4}});
            for (int row = 0; row < rows; row++)
                items.push_back({name + std::to_string(row), {i, row}});
        }
        load_menu(files, items);
        give_all(listening_action);
    }
};

TEST_F(Keys, OkEntersAPageOfTwoRowsOrMoreWhereItsNameSays)
{
    osdmenu_disableitem_byname("information2");
    gallery_preset = 0x7F04;
    std::string seen;
    for (const std::string name :
         {"leaf", "one", "page", "upgrade", "information", "peripheralinformation", "smartgallery_preset"}) {
        seen += after(OK, name) + " ";
        EXPECT_EQ(std::exchange(heard, ""), name + " 4=0@1.7;"); // before the position is set
    }
    EXPECT_EQ(seen, "= = 1:1 = 1:1 1:0 3:5@3 ");
    osdmenu_disableitem_byaction(listening_action);
    loaded("page")->position = {{0, 0, 0, 0xCC}}; // the mark reads as a coordinate
    gallery_preset = 0xFF;
    give_all(nullptr);
    EXPECT_EQ(after(OK, "smartgallery_preset") + after(OK, "page") + after(OK, "information"), "3:0@33:1@31:255");
    EXPECT_EQ(after(OK, "leaf") + after(R, "number") + after(OK, "") + after(L, "") + after(6, "page"), "=====");
}

TEST_F(Keys, LeftAndRightChangeAValueAndTellItsAction)
{
    // type, key   low, high, step   value before and after
    std::istringstream cases(R"(2 4 0 10 3 9 0   2 4 0 10 3 7 10   2 3 0 10 3 1 10   2 3 0 10 3 3 0   3 4 -5 5 4 2 -5
        3 3 -5 5 4 -1 -5   2 4 4 2147483647 3 2147483645 4   2 4 4 2147483647 3 2147483644 2147483647
        2 3 -2147483648 6 3 -2147483646 6   2 3 0 8 -2147483648 5 8   2 4 9 20 -1 -2147483648 9
        1 3 0 0 0 0 -1   1 4 0 0 0 2 3   1 3 0 0 0 -2147483648 2147483647   0 4 0 9 1 2 2   4 3 0 9 1 2 2   5 3 0 9 1 2 2)");
    osdmenu_item_value *value = &loaded("number")->item_values;
    for (int key, low, high, step, before, now; cases >> value->type >> key >> low >> high >> step >> before >> now;) {
        *value = {{}, value->type, before, {.number = {high, low, before, step}}};
        after(key, "number");
        EXPECT_EQ(value->type == VALUE_TXT ? value->current : value->u.number.current, now);
        EXPECT_EQ(std::exchange(heard, ""), before == now ? "" : "number 3=" + std::to_string(now) + "@1.7;");
    }
}

TEST_F(Keys, UpAndDownMoveByOneAndWrapByTheCountsOfTheDraw)
{
    // key, level, separator   row, rows counted, row that did not fit, scroll top   row and scroll top after
    std::istringstream cases(R"(2 1 -1 1 5 99 0 2 0   2 1 -1 4 5 99 3 1 0   2 0 1 4 5 99 3 2 0   2 1 1 4 5 99 3 1 0
        2 0 2 4 5 99 3 1 0   2 1 -1 2 5 3 0 3 1   2 1 -1 2 5 3 255 3 0   2 1 -1 2 3 3 1 1 0   2 1 -1 255 5 99 9 1 0
        2 1 -1 255 300 256 4 0 5   1 1 -1 3 5 99 0 2 0   1 1 -1 3 5 99 3 2 2   1 1 -1 1 5 99 3 4 1
        1 1 -1 1 0 99 0 255 0   1 1 -1 1 300 99 0 43 0   1 1 -1 0 5 99 0 255 255   1 0 1 2 5 99 0 4 0
        1 0 1 1 5 99 0 0 0   1 1 1 2 5 99 0 1 0)");
    int key, row, top, row_after, top_after, &level = osdmenu_current_viewlevel;
    while (cases >> key >> level >> underlineenable >> row >> last_looped_itemnumber >> last_noview_itemnumber >> top >>
           row_after >> top_after) {
        current_view_position.levels[level] = static_cast<unsigned char>(row);
        osdmenu_viewarea_topitem_number.levels[level] = static_cast<unsigned char>(top);
        osdmenu_process_key(key);
        EXPECT_EQ(std::pair(get_current_view_position(level), int{osdmenu_viewarea_topitem_number.levels[level]}),
                  std::pair(row_after, top_after));
    }
}

TEST_F(Keys, UpAndDownStopOrTurnAtTwoItemsAndAtTheAnchorsOfAConfiguration)
{
    for (const char *name : {"versionmenuback", "peripheralversionmenuback"})
        EXPECT_EQ(after(U, name) + after(D, name) + after(U, "language_item") + after(D, ""), "==1:61:8");
    files.write_config(config + "}");
    osdmenu_config_init(files.path().c_str());
    // item, whom it asks, UP and DOWN while that is enabled, the same while it is not
    std::istringstream cases(R"(information_last_item - =,= =,=    peripheral_last_item - =,= =,=
        get_ip_first_item ethernet_for_laptop 2:2,1:8 =,=    get_ip_last_item ethernet_for_laptop 1:6,2:1 1:6,1:8
        menu_first_item - 0:2,1:8 0:2,1:8    menu_last_item - 1:6,0:4 1:6,0:4    peripheralinformation_title - =,= =,=
        peripheralinformation_item cec 2:3,1:8 =,1:8    language_item peripheralinformation 2:8,1:8 2:3,1:8
        general_last_item peripheralinformation 1:6,2:8 1:6,2:1    versionmenuback - 1:6,1:8 1:6,1:8)");
    for (std::string item, asked, moves[2]; cases >> item >> asked >> moves[1] >> moves[0];)
        for (bool shown : {false, true}) {
            (shown ? osdmenu_enableitem_byname : osdmenu_disableitem_byname)(asked.c_str());
            EXPECT_EQ(after(U, item) + "," + after(D, item), moves[shown]) << item << shown;
        }
    *loaded("camera")->name = 'K';
    EXPECT_EQ(after(U, "") + after(D, "") + after(D, "menu_last_item"), "1:61:80:254");
}

TEST_F(Keys, APressAndItsRedrawCallTheActionsInOrder)
{
    prepare_view(files, 1000, 60);
    redraw();
    press("right down ok");
    EXPECT_EQ(heard, "number 2=0@0.0;number 3=4@0.0;number 2=0@0.0;number 2=0@0.1;leaf 4=0@0.1;number 2=0@0.1;");
}

TEST_F(Keys, AnActionMayLoadAnotherMenuInTheMiddleOfAPress)
{
    for (const char *name : {"number", "leaf", "page", "information", "smartgallery_preset"}) {
        give_all([](auto...) { return free_all_menuitems(), read2mem_all_menuitems(files.path().c_str()); });
        EXPECT_EQ(after(*name == 'n' ? L : OK, name), "=");
        EXPECT_TRUE(!osdmenu_current_menuitem && !loaded(name)->action) << name;
        orderize_all_menuitems();
    }
}
