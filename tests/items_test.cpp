// The host's hand on the items: actions, enable marks, values and free texts by name, and borrowed pictures.
#include <sstream>

#include "support/host.h"

static const ResourceDirectory files;

// Two items bear the name "text"; every choice is filled with the first letter of its text.
static void load()
{
    const std::vector<Choice> def = {{"D", {1, 4, 'D'}}, {"E", {3, 2, 'E'}}, {"F", {1, 2, 'F'}}};
    load_menu(files, {{"plain", {0}, {1, 2, 'p'}},
                      {"text", {1}, {2, 4, 't'}, 1, {{"A", {1, 2, 'A'}}, {"B", {2, 2, 'B'}}, {"C", {1, 4, 'C'}}}},
                      {"number", {2}, {}, 2, {}, {9, 0, 5, 1}, 7},
                      {"text", {3}, {1, 6, 'u'}, 1, def, {}, 0, "second"},
                      {"other", {4}, {}, 1, {{"a", {1, 2, 'a'}}, {"b", {1, 2, 'b'}, 2}, {"c", {4, 4, 'c'}}}}});
}

// "mark type number choice, " of every item.
static std::string all()
{
    std::ostringstream seen;
    for (osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        seen << +item->position.levels[3] << " " << item->item_values.type << " " << item->item_values.u.number.current
             << " " << item->item_values.current << ", ";
    return seen.str();
}

// What an item shows, "text pixels, " of its view and of its choices.
static std::string look(const osdmenu_item *item)
{
    const auto picture = [](const char *text, const osdmenu_view_bitmap &bitmap) {
        return text + (" " + std::string(bitmap.bitmap, bitmap.height * bitmap.width)) + ", ";
    };
    std::string seen = picture(item->view.description, item->view.viewbitmap);
    for (const auto *c = first_choice(&item->item_values); c; c = choice_after(c, &item->item_values))
        seen += picture(c->u.txt.description, c->u.txt.viewbitmap);
    return seen;
}

TEST(Items, AreNotFoundBeforeALoad)
{
    set_trace_level(7);
    EXPECT_EQ(osdmenu_enableitem_byaction(nullptr) * osdmenu_complete_action_byname("text", 3, 1), 1);
    EXPECT_EQ(osdmenu_disableitem_byaction(nullptr) + osdmenu_register_action_byname("text", nullptr, 1), 0);
    EXPECT_EQ(osdmenu_enableitem_byname("text") + osdmenu_disableitem_byname("text"), 0);
    EXPECT_EQ(traced("font not init\n") * 10 + traced("6:[lib osdmenu_register_action_byname +"), 51);
}

TEST(Items, AreReachedByNameAndByAction)
{
    load();
    const auto names = {"plain", "text", "number", "nobody"};
    settings = {{"plain", 6}, {"text", 2}, {"number", 8}};
    for (const char *name : names)
        osdmenu_register_action_byname(name, recording_action, *name == 'n' ? 1 : 2);
    EXPECT_EQ(all(), "255 0 0 0, 255 1 0 2, 255 2 8 7, 255 1 0 0, 255 1 0 0, ");
    osdmenu_register_action_byname("plain", nullptr, 1);
    for (const char *name : names) {
        osdmenu_action_ext_change_value_byname(name, -50);
        osdmenu_action_menuctl_byname(name, 9, 6);
    }
    EXPECT_EQ(calls, (std::vector<Call>{
                         {"text", 2, 0}, {"number", 1, 0}, {"number", 2, 0}, {"text", 9, 6}, {"number", 9, 6}}));
    EXPECT_EQ(osdmenu_complete_action_byname("number", 2, 5), 8);
    EXPECT_EQ(calls.back(), (Call{"number", 2, 5}));
    EXPECT_EQ(osdmenu_complete_action_byname("nobody", 2, 5) + osdmenu_complete_action_byname("plain", 2, 5), -2);
    osdmenu_disableitem_byname("text");
    osdmenu_enableitem_byname("number");
    EXPECT_EQ(all(), "255 0 0 0, 238 1 0 -50, 204 2 -50 7, 255 1 0 -50, 255 1 0 0, ");
    EXPECT_EQ(lines_with(output_of([] { osdmenu_disableitem_byaction(nullptr); }).out, "DBG_INFO"), 20);
    osdmenu_enableitem_byaction(recording_action);
    EXPECT_EQ(all(), "238 0 0 0, 204 1 0 -50, 204 2 -50 7, 238 1 0 -50, 204 1 0 0, "); // the second text has no action
}

TEST(Items, OfANameTakeAFreeTextAndTheLastOfThemLendsCopiesOfItsPictures)
{
    load();
    osdmenu_item *first = loaded("text"), *second = loaded_after(loaded("number"));
    first->item_values.current = 2;
    second->item_values.current = 3; // there is no such choice
    EXPECT_EQ(osdmenu_action_setnewtxtvalue2menuitem_byname("text", "new"), 0);
    EXPECT_EQ(all(), "255 0 0 0, 204 4 0 0, 255 2 0 7, 204 1 0 3, 255 1 0 0, ");
    std::string(70, 'y').copy(first_choice(&first->item_values)->u.txt.description, 70);
    osdmenu_action_setnewtxtvalue2menuitem(first, std::string(80, 'x').c_str());
    EXPECT_EQ(look(first), "description tttttttt, " + std::string(64, 'x') + "yyyyyy AA, B BBBB, new CCCC, ");
    EXPECT_EQ(osdmenu_action_setnewtxtvalue2menuitem(nullptr, "new"), -1);
    EXPECT_EQ(osdmenu_action_setnewtxtvalue2menuitem(first, nullptr), -1);
    first_choice(&second->item_values)->current = 9;
    for (const char *content : {"osdmenu_view", "osdmenu_item_value", "description"})
        EXPECT_EQ(reuse_font_content_byname("text", "other", content), 0);
    *second->view.viewbitmap.bitmap = 'z';
    for (auto [from, to] :
         {std::pair("text", "text"), {"text", "nobody"}, {"nobody", "other"}, {"number", "other"}, {"other", "number"}})
        reuse_font_content_byname(from, to, "osdmenu_item_value");
    reuse_font_content_byname("text", "text", "osdmenu_view");
    EXPECT_EQ(look(loaded("other")), "second uuuuuu, D DDDD, b bb, F FF, ");
    EXPECT_EQ(first_choice(&loaded("other")->item_values)->current, 9);
    output_of(free_all_menuitems);
}

TEST(FreeText, MayBePartOfTheTextThatItReplaces)
{
    load_menu(files, {{"text", {1}, {}, VALUE_TXT, {{"abcdef", {}}}}});
    char *own = first_choice(&loaded("text")->item_values)->u.txt.description;
    output_of([&] { osdmenu_action_setnewtxtvalue2menuitem(loaded("text"), own + 2); });
    EXPECT_STREQ(own, "cdef");
}

TEST(FreeText, IsTheSameForAllItemsOfTheNameAlsoWhereItIsTheFirstOnesOwn)
{
    load_menu(files, {{"text", {1}, {}, VALUE_TXT, {{"abcdef", {}}}}, {"text", {2}, {}, VALUE_TXT, {{"", {}}}}});
    osdmenu_item *first = loaded("text"), *second = loaded_after(first);
    char *own = first_choice(&first->item_values)->u.txt.description;
    output_of([&] { osdmenu_action_setnewtxtvalue2menuitem_byname("text", own + 2); });
    EXPECT_STREQ(first_choice(&second->item_values)->u.txt.description, "cdef");
}
