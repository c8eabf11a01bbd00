// The host's hand on the items: registration, enable marks, values and free texts by name, and borrowed pictures.
#include <gtest/gtest.h>

#include "core/walks.h"
#include "support/host.h"

static const ResourceDirectory files;

// Two items bear the name "text"; every choice is filled with the first letter of its text.
static void load()
{
    const osdmenu_item_value_number limits = {9, 0, 5, 1};
    const std::vector<Choice> abc = {{"A", {1, 2, 'A'}}, {"B", {2, 2, 'B'}}, {"C", {1, 4, 'C'}}};
    const std::vector<Choice> def = {{"D", {1, 4, 'D'}}, {"E", {3, 2, 'E'}}, {"F", {1, 2, 'F'}}};
    load_menu(files, {{"plain", {0}, {1, 2, 'p'}},
                      {"text", {1}, {2, 4, 't'}, 1, abc},
                      {"number", {2}, {}, 2, {}, limits, 7},
                      {"percentage", {3}, {}, 3, {}, limits},
                      {"text", {4}, {1, 6, 'u'}, 1, def, {}, 0, "second"},
                      {"other", {5}, {}, 1, {{"a", {1, 2, 'a'}}, {"b", {1, 2, 'b'}, 2}, {"c", {4, 4, 'c'}}}}});
}

static osdmenu_item *second_text()
{
    return loaded_after(loaded("percentage"));
}

// What an item shows, "text pixels" of its view and of its choices, and the present choice.
static std::string look(const osdmenu_item *item)
{
    const auto picture = [](const char *text, const osdmenu_view_bitmap &bitmap) {
        return text + (" " + std::string(bitmap.bitmap, bitmap.height * bitmap.width)) + ", ";
    };
    std::string seen = picture(item->view.description, item->view.viewbitmap);
    for (const auto *choice = first_choice(&item->item_values); choice;
         choice = choice_after(choice, &item->item_values))
        seen += picture(choice->u.txt.description, choice->u.txt.viewbitmap);
    return seen + std::to_string(item->item_values.current);
}

static int failing_action(osdmenu_item *, int operation, int value)
{
    return -100 * operation - value;
}

TEST(Items, NothingIsFoundBeforeALoad)
{
    set_trace_level(7);
    EXPECT_EQ(osdmenu_enableitem_byaction(nullptr), -1);
    EXPECT_EQ(osdmenu_disableitem_byaction(nullptr), 0);
    EXPECT_EQ(osdmenu_enableitem_byname("text") + osdmenu_disableitem_byname("text"), 0);
    EXPECT_EQ(osdmenu_complete_action_byname("text", 3, 1), -1);
    EXPECT_EQ(traced("font not init\n"), 5);
    EXPECT_EQ(osdmenu_register_action_byname("text", recording_action, 1), 0);
    EXPECT_EQ(traced("6:[lib osdmenu_register_action_byname +"), 1);
    EXPECT_EQ(osdmenu_itemname_enable("text") + osdmenu_action_menuctl_byname("text", 3, 1), 0);
}

TEST(Items, ActionsAndValuesAreReachedByName)
{
    load();
    const auto presents = [] {
        std::string seen;
        for (const osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
            seen += std::to_string(item->item_values.u.number.current) + "/" +
                    std::to_string(item->item_values.current) + " ";
        return seen;
    };
    const auto names = {"plain", "text", "number", "percentage", "nobody"};
    settings = {{"plain", 6}, {"text", 2}, {"number", 8}, {"percentage", 40}};
    for (const char *name : names)
        EXPECT_EQ(osdmenu_register_action_byname(name, recording_action, *name == 'n' ? 1 : 2), 0);
    EXPECT_EQ(calls, (std::vector<Call>{Call{"text", 2, 0}, Call{"number", 1, 0}, Call{"number", 2, 0},
                                        Call{"percentage", 2, 0}}));
    EXPECT_EQ(presents(), "0/0 0/2 8/7 40/0 0/0 0/0 ");
    for (const char *name : names)
        EXPECT_EQ(osdmenu_action_ext_change_value_byname(name, -50), 0);
    EXPECT_EQ(presents(), "0/0 0/-50 -50/7 -50/0 0/-50 0/0 ");
    calls.clear();
    set_trace_level(6);
    osdmenu_register_action_byname("plain", nullptr, 1);
    osdmenu_register_action_byname("text", failing_action, 1);
    EXPECT_EQ(osdmenu_complete_action_byname("text", 3, 7), -307);
    EXPECT_EQ(osdmenu_complete_action_byname("nobody", 3, 7) + osdmenu_complete_action_byname("plain", 3, 7), -2);
    EXPECT_EQ(traced("]item don't exist\n"), 1);
    for (const char *name : names)
        EXPECT_EQ((osdmenu_action_menuctl_byname_safe(name, 77, 5), osdmenu_action_menuctl_byname(name, 77, 6)), 0);
    EXPECT_EQ(calls.size(), 4U);
    EXPECT_EQ(calls[1], (Call{"number", 77, 6}));
}

TEST(Items, MarksHideAndShowByNameAndByAction)
{
    load();
    const auto marks = [] {
        std::string seen;
        for (osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
            seen += std::to_string(item->position.levels[3]) + (osdmenu_itemenabled(item) ? "+ " : "- ");
        return seen;
    };
    EXPECT_EQ(marks(), "255+ 255+ 255+ 255+ 255+ 255+ ");
    osdmenu_disableitem_byname("text");
    osdmenu_enableitem_byname("number");
    EXPECT_EQ(osdmenu_disableitem_byname("nobody") + osdmenu_enableitem_byaction(failing_action), 0);
    EXPECT_EQ(marks(), "255+ 238- 204+ 255+ 255+ 255+ ");
    EXPECT_EQ(osdmenu_itemname_enable("text") * 10 + osdmenu_itemname_enable("plain"), 1);
    EXPECT_EQ(lines_with(output_of([] { osdmenu_disableitem_byaction(nullptr); }).out, "DBG_INFO"), 24);
    osdmenu_enableitem_byaction(recording_action);
    loaded("number")->position.levels[3] = ITEM_MARK_DISABLED + 1;
    EXPECT_EQ(marks(), "238- 204+ 239+ 204+ 238- 204+ "); // no action: the plain one and the second text
}

TEST(Items, AFreeTextReplacesThePresentChoiceOfEveryItemOfTheName)
{
    load();
    osdmenu_disableitem_byname("text");
    loaded("text")->item_values.current = 2;
    second_text()->item_values.current = 3;
    EXPECT_EQ(osdmenu_action_setnewtxtvalue2menuitem_byname("text", "new"), 0);
    EXPECT_EQ(look(loaded("text")), "description tttttttt, A AA, B BBBB, new CCCC, 0");
    EXPECT_EQ(look(second_text()), "second uuuuuu, D DDDD, E EEEEEE, F FF, 3"); // it has no such choice
    EXPECT_EQ(loaded("text")->item_values.type * 10 + second_text()->item_values.type, 41U);
    EXPECT_EQ(osdmenu_itemname_enable("text") + second_text()->position.levels[3], 1 + ITEM_MARK_ENABLED);
    osdmenu_action_ext_change_value_byname("text", 1); // nothing to a free text
    std::string(70, 'y').copy(first_choice(&loaded("text")->item_values)->u.txt.description, 70);
    EXPECT_EQ(osdmenu_action_setnewtxtvalue2menuitem_byname("text", std::string(80, 'x').c_str()), 0);
    EXPECT_EQ(look(loaded("text")), "description tttttttt, " + std::string(64, 'x') + "yyyyyy AA, B BBBB, new CCCC, 0");
    EXPECT_EQ(osdmenu_action_setnewtxtvalue2menuitem(nullptr, "new"), -1);
    EXPECT_EQ(osdmenu_action_setnewtxtvalue2menuitem(loaded("text"), nullptr), -1);
}

TEST(Items, BorrowedPicturesAreCopiesOfTheLastItemOfTheName)
{
    load();
    first_choice(&second_text()->item_values)->current = 9;
    for (const char *content : {"osdmenu_view", "osdmenu_item_value", "description"})
        EXPECT_EQ(reuse_font_content_byname("text", "other", content), 0);
    *second_text()->view.viewbitmap.bitmap = 'z';
    for (auto [from, to] :
         {std::pair("text", "text"), {"text", "nobody"}, {"nobody", "other"}, {"number", "other"}, {"other", "number"}})
        EXPECT_EQ(reuse_font_content_byname(from, to, "osdmenu_item_value"), 0);
    reuse_font_content_byname("text", "text", "osdmenu_view");
    EXPECT_EQ(look(loaded("other")), "second uuuuuu, D DDDD, b bb, F FF, 0");
    EXPECT_EQ(first_choice(&loaded("other")->item_values)->current, 9);
    output_of(free_all_menuitems);
}
