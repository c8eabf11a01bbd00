// What the keys reach, held against sequences of real keys.
#include "support/tool.h"

#include <map>
#include <sstream>

#include "core/state.h"
#include "host/host.h"
#include "walk/walk.h"

struct WalkCase : Tool {
    // In this process, which has one menu.
    void start(const std::string &items, const std::string &more = "", const std::string &configuration = "{}")
    {
        write("m/osd_menu.json", configuration);
        ASSERT_EQ(build(menu(items, more)), 0) << err;
        Findings findings;
        start_host(open_menu_directory((dir / "made").string(), findings), "en");
    }
};

static std::string chosen_after(const std::vector<std::string> &keys)
{
    osdmenu_current_view_position_reset();
    std::fill_n(osdmenu_viewarea_topitem_number.levels, MENU_LEVELS, 0);
    last_noview_itemnumber = 65535;
    repaint();
    for (const std::string &key : keys) {
        press(key);
        repaint();
    }
    return osdmenu_current_menuitem ? osdmenu_current_menuitem->name : "";
}

// Every row that any keys up to a length lead to, with the fewest of them.
static std::map<std::string, int> tried_out(size_t longest)
{
    std::map<std::string, int> fewest;
    std::vector<std::vector<std::string>> sequences{{}};
    for (size_t at = 0; at < sequences.size(); at++) {
        const std::vector<std::string> keys = sequences[at];
        fewest.try_emplace(chosen_after(keys), static_cast<int>(keys.size()));
        for (const char *key : WALK_KEYS)
            if (keys.size() < longest) {
                sequences.push_back(keys);
                sequences.back().push_back(key);
            }
    }
    return fewest;
}

static const std::string ITEMS = R"(
  - {name: a, text: A, items: [{name: a_title, text: T}, {name: a1, text: X, choices: [x, y]}, {name: a2, text: Y}]}
  - {name: hidden, text: H, enabled: false}
  - {name: b, text: B, number: {low: 0, high: 10, step: 3, value: 9}}
  - {name: c, text: C, items: [{name: c_title, text: T}, {name: c1, text: X}, {name: c2, text: Y,
     items: [{name: d_title, text: T}, {name: d1, text: X}, {name: versionmenuback, text: Y}]}]}
)";

TEST_F(WalkCase, RowsHaveTheFewestPressesThatAnyKeysTake)
{
    start(ITEMS);
    const Walk walk = walk_menu();
    std::map<std::string, int> found;
    for (const WalkedState &state : walk.states) {
        found.try_emplace(state.item, state.presses);
        EXPECT_EQ(chosen_after(keys_to(walk, static_cast<size_t>(&state - walk.states.data()))), state.item);
    }
    const size_t longest = 4;
    std::erase_if(found, [&](const auto &row) { return row.second > static_cast<int>(longest); });
    EXPECT_EQ(found, tried_out(longest));
    EXPECT_EQ(found.size(), 8U); // all but the last row of the lowest page
    EXPECT_TRUE(walk.is_whole);
}

TEST_F(WalkCase, ValuesFollowTheKeysAndNothingIsLeftChanged)
{
    start(ITEMS);
    repaint();
    const MenuState before = menu_state();
    const Settings settings = host.settings;
    const Walk walk = walk_menu();
    EXPECT_TRUE(menu_state() == before && host.settings == settings);
    std::map<int, int> presses;
    for (const WalkedState &state : walk.states)
        for (const WalkedValue &value : state.values)
            if (state.item == "b") {
                presses[value.value] = value.presses;
                EXPECT_EQ(state.values[value.left].value, value.value < 3 ? 10 : value.value - 3);
                EXPECT_EQ(state.values[value.right].value, value.value > 7 ? 0 : value.value + 3);
            }
    EXPECT_EQ(presses, (std::map<int, int>{{9, 0}, {6, 1}, {0, 1}, {3, 2}, {10, 2}, {7, 3}, {4, 4}, {1, 5}}));
}

TEST_F(WalkCase, AWayIsFoundFromAnywhereAndOnlyWhereThereIsOne)
{
    start(ITEMS);
    repaint();
    for (const char *item : {"d1", "a2", "b", "c", "c"}) {
        for (const std::string &key : keys_to_item(item)) {
            press(key);
            repaint();
        }
        EXPECT_STREQ(osdmenu_current_menuitem->name, item);
    }
    EXPECT_THROW(keys_to_item("hidden"), std::exception);
}

TEST_F(WalkCase, TheTourShowsEveryPageByTheFewestPresses)
{
    ASSERT_EQ(build(menu(ITEMS)), 0);
    ASSERT_EQ(run("osdmenu walk made --tour tour.osd"), 0) << err;
    // OK, back, up to the last row, OK, down, OK.
    EXPECT_EQ(read(dir / "tour.osd"), "# Every page of the menu: 4 pages, 6 presses.\npage top\ngoto a\nok\npage a\n"
                                      "goto c\nok\npage c\ngoto c2\nok\npage c2\n");
    ASSERT_EQ(run("osdmenu walk made --reached --format json"), 0);
    EXPECT_NE(out.find(R"("item": "d1", "presses": 4, "keys": ["up", "ok", "up", "ok"])"), out.npos) << out;
}

// More pages than are put into the best order, one shown by the host and one that the camera has a button for.
TEST_F(WalkCase, TheTourOfALargeMenuPlaysAndShowsWhatStartsHidden)
{
    auto page = [](const std::string &name, const std::string &more, const std::string &rows) {
        return "{name: " + name + ", text: P" + more + ", items: [{name: " + name + "_title, text: T}, " + rows + "]}";
    };
    std::string items;
    for (const char *top : {"p", "q", "r", "s"}) {
        std::string rows;
        for (int row = 1; row <= 4; row++) {
            std::string name = top + std::to_string(row), rows_of_page;
            for (int each = 0; each < (name == "p1" ? 20 : 1); each++) // one is taller than the view
                rows_of_page += "{name: " + name + "_" + std::to_string(each) + ", text: R}, ";
            rows += page(name, "", rows_of_page) + ", ";
        }
        items += "  - " + page(top, "", rows) + "\n";
    }
    items += "  - " + page("hidden", ", enabled: false", "{name: h1, text: R}") + "\n";
    items += "  - " + page("aimodeselection", ", enabled: false", "{name: a1, text: R}") + "\n";
    ASSERT_EQ(build(menu(items)), 0) << err;
    ASSERT_EQ(run("osdmenu walk made --enable hidden --tour tour.osd; osdmenu play tour.osd made --record"), 0) << err;
    EXPECT_NE(out.find(" 23 pages"), out.npos) << out;
    EXPECT_NE(read(dir / "tour.osd").find(".\nenable hidden\npage top\n"), std::string::npos);
    EXPECT_TRUE(read(dir / "tour.osd").ends_with("aimode\npage aimodeselection\n"));
}

// A page that holds the user at its second row, one that opens behind a row to choose, and a list longer than the view.
static const std::string TRAPS = R"(
  - {name: held, text: H, items: [{name: held_title, text: T}, {name: h1, text: X}, {name: h2, text: X, choices: [A, B]}, {name: h3, text: X}]}
  - {name: information, text: I, items: [{name: i_title, text: T}, {name: i1, text: X}, {name: i2, text: X, muted: true}, {name: versionmenuback, text: Y}]}
)";
static const std::string ANCHORS = R"({"peripheral_last_item": "h2", "information_last_item": "versionmenuback"})";

TEST_F(WalkCase, TrapsAndRowsOutOfReachAreFindingsLikeThoseOfCheck)
{
    std::string tall = TRAPS;
    for (int row = 1; row <= 14; row++)
        tall += "  - {name: r" + std::to_string(row) + ", text: R}\n";
    write("m/osd_menu.json", ANCHORS);
    ASSERT_EQ(build(menu(tall)), 0) << err;
    EXPECT_EQ(run("osdmenu walk made"), 0);
    const std::string dead_end = "made/en/m.d: warning: no key leads from 'h2' to another row of the page 'held'";
    EXPECT_NE(out.find(dead_end + " [dead-end]"), out.npos) << out;
    EXPECT_NE(out.find("no key reaches 'i1' [unreachable-row]"), out.npos);
    EXPECT_EQ(out.find("'i2'"), out.npos);
    EXPECT_EQ(out.find("'h3'"), out.npos);
    EXPECT_EQ(out.find("no key reaches 'r5'"), out.npos);
    EXPECT_NE(out.find("no key reaches 'r14'"), out.npos); // below the view
    EXPECT_EQ(run("osdmenu walk made --strict --format sarif"), 1);
    EXPECT_NE(out.find("\"ruleId\": \"unreachable-row\""), out.npos) << out;
}

TEST_F(WalkCase, AMenuWithoutARowIsToldOfOnceAndHasNoTour)
{
    const std::string items = "[{name: a, text: A, enabled: false}, {name: b, text: B, enabled: false}]";
    ASSERT_EQ(build("languages: [en]\nitems: " + items + "\n"), 0) << err;
    EXPECT_EQ(run("osdmenu walk made --tour tour.osd"), 0);
    EXPECT_EQ(out,
              "made/en/m.d: warning: the top list has no row chosen [dead-end]\n"
              "0 rows and 0 values in 0 pages can be reached, each row in at most 0 presses: 0 errors, 1 warning\n");
    EXPECT_EQ(read(dir / "tour.osd"), "# Every page of the menu: 0 pages, 0 presses.\n");
}

TEST_F(WalkCase, TheMenuSaysWhatCountsAndCheckLeavesThatToTheWalk)
{
    const std::string says =
        "check: {severity: {dead-end: error}, suppress: [{rule: unreachable-row, item: i1, reason: r}]}\n";
    write("m/osd_menu.json", ANCHORS);
    ASSERT_EQ(build(menu(TRAPS, says)), 0) << err;
    EXPECT_EQ(err, ""); // no word of a needless suppression
    EXPECT_EQ(run("osdmenu walk made"), 1);
    EXPECT_NE(out.find("error: no key leads from 'h2'"), out.npos) << out;
    EXPECT_EQ(out.find("unreachable-row"), out.npos);
    EXPECT_EQ(run("osdmenu walk " SAMPLE_MENU_DIR), 1); // not compiled
    EXPECT_EQ(run("osdmenu walk made --reached --format github"), 2);
}
