// The five keys: what OK enters, how LEFT and RIGHT change a value, where UP and DOWN go by rule and by anchor, and
// what the actions see of a press.
#include <climits>
#include <gtest/gtest.h>
#include <sstream>

#include "core/walks.h"
#include "support/host.h"

static const ResourceDirectory files;
static const int U = 1, D = 2, L = 3, R = 4, OK = 5;
static std::string heard; // by the actions: "name operation=value@level.position;"

static int listening_action(osdmenu_item *item, int operation, int value)
{
    const int level = osdmenu_current_viewlevel;
    heard += item->name + (" " + std::to_string(operation)) + "=" + std::to_string(value) + "@" +
             std::to_string(level) + "." + std::to_string(get_current_view_position(level)) + ";";
    return 0;
}

static int reloading_action(osdmenu_item *, int operation, int)
{
    if (operation == ACTION_OP_GET)
        return 0;
    free_all_menuitems();
    return read2mem_all_menuitems(files.path().c_str()), orderize_all_menuitems(), 0;
}

static void give_all(osdmenu_action_callback action)
{
    for (osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        item->action = action;
    heard.clear();
}

// Presses a key on an item of level 1, with all positions and scroll tops at 7, and tells what changed:
// "level:position" and "^scroll top", or "=" for nothing. By rule UP gives "1:6^6", DOWN "1:8".
static std::string after(int key, const char *name)
{
    osdmenu_current_menuitem = item_byname(name);
    osdmenu_current_viewlevel = 1;
    current_view_position = osdmenu_viewarea_topitem_number = {{7, 7, 7, 7}};
    last_looped_itemnumber = 20;
    EXPECT_EQ(osdmenu_process_key(key), 0);
    std::string changed;
    for (int level = 0; level < 4; level++)
        if (const int now = get_current_view_position(level); now != 7)
            changed += std::to_string(level) + ":" + std::to_string(now);
    if (const int top = osdmenu_viewarea_topitem_number.levels[1]; top != 7)
        changed += "^" + std::to_string(top);
    return changed.empty() ? "=" : changed;
}

// Items of the top list and how many rows each has below: "page 2 leaf 0". The rows are named page0, page1.
static void load_pages(const std::string &pages)
{
    std::istringstream words(pages);
    std::vector<Item> items;
    std::string name;
    for (int i = 0, rows; words >> name >> rows; i++) {
        items.push_back({name, {i}, {}, name == "number" ? 2U : 0U, {}, {9, 0, 0, 4}});
        for (int row = 0; row < rows; row++)
            items.push_back({name + std::to_string(row), {i, row}});
    }
    load_menu(files, items);
}

TEST(Keys, OkEntersAPageOfTwoRowsOrMoreWhereItsNameSays)
{
    load_pages("upgrade 2 page 2 one 1 leaf 0 information 3 peripheralinformation 2 smartgallery_preset 2");
    prepare_view(files, 1000, 400);
    gallery_preset = 0x7F04;
    osdmenu_disableitem_byname("information2");
    std::istringstream cases("upgrade 1 = page 1 1:1 one 1 = leaf 1 = information 1 1:1 peripheralinformation 1 1:0 "
                             "smartgallery_preset 3 3:5");
    std::string name, changed;
    for (int level; cases >> name >> level >> changed;) {
        give_all(nullptr);
        EXPECT_EQ(after(OK, name.c_str()), changed);
        give_all(listening_action);
        EXPECT_EQ(after(OK, name.c_str()), changed);
        EXPECT_EQ(heard, name + " 4=0@1.7;"); // before the position is set
        EXPECT_EQ(osdmenu_current_viewlevel, level);
    }
    gallery_preset = 0xFF;
    EXPECT_EQ(after(OK, "smartgallery_preset"), "3:0");
    osdmenu_disableitem_byaction(listening_action);
    EXPECT_EQ(after(OK, "information"), "1:255");
    redraw();
    EXPECT_EQ(osdmenu_current_viewlevel, 0); // such a page is left at once
    for (int key : {OK, L, R, 0, 6, -1})
        EXPECT_EQ(after(key, key == 0 ? "page" : nullptr), "=");
}

TEST(Keys, OkNeverGoesBelowLevel3)
{
    load_menu(files, {{"a", {0}}, {"b", {0, 0}}, {"deep", {0, 0, 0}}, {"c", {0, 0, 0, 0}}, {"d", {0, 0, 0, 1}}});
    for (int round = 0; round < 2; round++, osdmenu_enableitem_byname("deep")) { // its mark reads as a coordinate
        EXPECT_EQ(after(OK, "deep"), "3:1");
        EXPECT_EQ(osdmenu_current_viewlevel, 3);
    }
}

TEST(Keys, LeftAndRightChangeAValueAndTellItsAction)
{
    load_pages("value 0");
    osdmenu_item_value *value = &loaded("value")->item_values;
    give_all(listening_action);
    std::istringstream cases(R"(2 4 0 10 3 9 0   2 4 0 10 3 7 10   2 3 0 10 3 1 10   2 3 0 10 3 3 0   3 4 -5 5 4 2 -5
        3 3 -5 5 4 -1 -5   2 4 4 2147483647 3 2147483645 4   2 4 4 2147483647 3 2147483644 2147483647
        2 3 -2147483648 6 3 -2147483646 6   2 3 0 8 -2147483648 5 8   2 4 9 20 -1 -2147483648 9
        1 3 0 0 0 0 -1   1 4 0 0 0 2 3   1 3 0 0 0 -2147483648 2147483647   0 4 0 9 1 2 2   4 3 0 9 1 2 2   5 3 0 9 1 2 2)");
    unsigned type;
    for (int key, low, high, step, current, changed;
         cases >> type >> key >> low >> high >> step >> current >> changed;) {
        *value = {{}, type, current, {.number = {high, low, current, step}}};
        EXPECT_EQ(after(key, "value"), "=");
        EXPECT_EQ(type == 1 ? value->current : value->u.number.current, changed);
        EXPECT_EQ(std::exchange(heard, ""), type % 4 && type < 4 ? "value 3=" + std::to_string(changed) + "@1.7;" : "");
    }
    *value = {{}, VALUE_NUMBER, 0, {.number = {9, 0, 5, 1}}};
    give_all(nullptr);
    after(R, "value");
    EXPECT_EQ(value->u.number.current, 6);
}

TEST(Keys, UpAndDownMoveByOneAndWrapByTheCountsOfTheDraw)
{
    // key, level, separator   row, rows counted, row that did not fit, scroll top   row and scroll top after
    std::istringstream cases(R"(2 1 -1  1 5 65535 0  2 0    2 1 -1  4 5 65535 3  1 0    2 0  1  4 5 65535 3   2 0
        2 1  1  4 5 65535 3  1 0    2 0  2  4 5 65535 3  1 0    2 1 -1  2 5 3 0       3 1    2 1 -1  2 5 3 255    3 0
        2 1 -1  2 3 3 1      1 0    2 1 -1  255 5 65535 9  1 0    2 1 -1  255 300 256 4   0 5
        1 1 -1  3 5 65535 0  2 0    1 1 -1  3 5 65535 3  2 2    1 1 -1  1 5 65535 3   4 1    1 1 -1  1 0 65535 0  255 0
        1 1 -1  1 300 65535 0  43 0    1 1 -1  0 5 65535 0  255 255    1 0 1  2 5 65535 0  4 0    1 0 1  1 5 65535 0  0 0
        1 1  1  2 5 65535 0  1 0)");
    for (int key, level, row, top, row_after, top_after; cases >> key >> level >> underlineenable >> row >>
                                                         last_looped_itemnumber >> last_noview_itemnumber >> top >>
                                                         row_after >> top_after;) {
        osdmenu_current_viewlevel = level;
        set_current_view_position(level, row);
        osdmenu_viewarea_topitem_number.levels[level] = static_cast<unsigned char>(top);
        osdmenu_process_key(key);
        EXPECT_EQ(std::pair(get_current_view_position(level), int{osdmenu_viewarea_topitem_number.levels[level]}),
                  std::pair(row_after, top_after))
            << key << " " << row << " of " << last_looped_itemnumber;
    }
}

TEST(Keys, AnchorsStopOrTurnUpAndDown)
{
    // item, whom it asks, UP while that is enabled, UP while it is not, DOWN likewise
    const char table[] = R"(information_last_item - = = = =    peripheral_last_item - = = = =
        get_ip_first_item ethernet_for_laptop 2:2 = 1:8 =    get_ip_last_item ethernet_for_laptop 1:6^6 1:6^6 2:1 1:8
        menu_first_item - 0:2 0:2 1:8 1:8    menu_last_item - 1:6^6 1:6^6 0:1 0:1    peripheralinformation_title - = = = =
        peripheralinformation_item cec 2:3 = 1:8 1:8    language_item peripheralinformation 2:8 2:3 1:8 1:8
        general_last_item peripheralinformation 1:6^6 1:6^6 2:8 2:1    versionmenuback - 1:6^6 1:6^6 1:8 1:8)";
    std::string pages = "title 0 camera 0 osdmirror 0 ethernet_for_laptop 0 cec 0 peripheralinformation 0 ", config;
    std::string item, asked, up[2], down[2];
    for (std::istringstream cases(table); cases >> item >> asked >> up[1] >> up[0] >> down[1] >> down[0];) {
        pages += item + " 0 ";
        config += (config.empty() ? "{\"" : ", \"") + item + R"(": ")" + item + '"';
    }
    files.write_config(config + "}");
    load_pages(pages);
    for (std::istringstream cases(table); cases >> item >> asked >> up[1] >> up[0] >> down[1] >> down[0];)
        for (bool shown : {true, false}) {
            for (const char *name : {"ethernet_for_laptop", "cec", "peripheralinformation"})
                ((name == asked) == shown ? osdmenu_enableitem_byname : osdmenu_disableitem_byname)(name);
            EXPECT_EQ(after(U, item.c_str()) + after(D, item.c_str()), up[shown] + down[shown]) << item << shown;
        }
    EXPECT_EQ(after(U, nullptr) + after(D, nullptr), "1:6^61:8");
    *loaded("camera")->name = 'K';
    EXPECT_EQ(after(D, "menu_last_item"), "0:254");
}

TEST(Keys, TwoItemsHoldThePositionWhileThereIsNoConfiguration)
{
    load_pages("versionmenuback 0 peripheralversionmenuback 0 language_item 0");
    for (const char *name : {"versionmenuback", "peripheralversionmenuback"})
        EXPECT_EQ(after(U, name) + after(D, name), "==");
    EXPECT_EQ(after(U, "language_item") + after(D, nullptr), "1:6^61:8");
}

TEST(Keys, APressAndItsRedrawCallTheActionsInOrder)
{
    prepare_view(files, 1000, 400);
    load_pages("number 0 leaf 0 page 2");
    give_all(listening_action);
    using Case = std::tuple<int, const char *, std::string>;
    for (auto [row, key, order] :
         {Case(0, "right", "number 3=4@0.0;number 2=0@0.0;"), Case(0, "down", "number 2=0@0.1;"),
          Case(1, "ok", "leaf 4=0@0.1;number 2=0@0.1;"), Case(2, "ok", "page 4=0@1.0;")}) {
        set_current_view_position(0, row);
        redraw();
        heard.clear();
        press(key);
        EXPECT_EQ(heard, order);
    }
}

TEST(Keys, AnActionMayLoadAnotherMenuInTheMiddleOfAPress)
{
    prepare_view(files, 1000, 400);
    load_pages("number 0 leaf 0 page 2 information 2 smartgallery_preset 2");
    for (const char *name : {"number", "leaf", "page", "information", "smartgallery_preset"}) {
        give_all(reloading_action);
        EXPECT_EQ(after(*name == 'n' ? L : OK, name), "=");
        EXPECT_EQ(osdmenu_current_menuitem, nullptr);
        EXPECT_EQ(loaded(name)->action, nullptr);
        redraw();
    }
}
