// The host's hand on the items: actions, enable marks, values and free texts by name, and borrowed pictures.
#include "support/host.h"

static const ResourceDirectory files;

// Two items bear the name "text"; every choice is filled with the first letter of its text.
struct Items : testing::Test {
    osdmenu_item *first, *second, *other;
    Items()
    {
        const std::vector<Choice> def = {{"D", {1, 4, 'D'}}, {"E", {3, 2, 'E'}}, {"F", {1, 2, 'F'}}};
        load_menu(files, {{"plain", {0}, {1, 2, 'p'}},
                          {"text", {1}, {2, 4, 't'}, 1, {{"A", {1, 2, 'A'}}, {"B", {2, 2, 'B'}}, {"C", {1, 4, 'C'}}}},
                          {"number", {2}, {}, 2, {}, {9, 0, 5, 1}, 7},
                          {"text", {3}, {1, 6, 'u'}, 1, def, {}, 0, "second"},
                          {"other", {4}, {}, 1, {{"a", {1, 2, 'a'}}, {"b", {1, 2, 'b'}, 2}, {"c", {1, 3, 'c'}}}}});
        settings = {{"plain", 6}, {"text", 2}, {"number", 8}};
        first = loaded("text");
        second = loaded_after(loaded("number"));
        other = loaded("other");
    }
};

// What an item shows, "text pixels, " of its view and of its choices.
static std::string look(const osdmenu_item *item)
{
    const auto picture = [](const char *text, const osdmenu_view_bitmap &bitmap) {
        const std::string pixels = bitmap.bitmap ? std::string(bitmap.bitmap, bitmap.height * bitmap.width) : "none";
        return text + (" " + pixels) + ", ";
    };
    std::string seen = picture(item->view.description, item->view.viewbitmap);
    for (const auto *c = first_choice(&item->item_values); c; c = choice_after(c, &item->item_values))
        seen += picture(c->u.txt.description, c->u.txt.viewbitmap);
    return seen;
}

TEST(NoItems, AreReachedBeforeALoad)
{
    set_trace_level(7);
    EXPECT_EQ((std::vector{osdmenu_enableitem_byaction(nullptr), osdmenu_disableitem_byaction(nullptr),
                           osdmenu_enableitem_byname("text"), osdmenu_disableitem_byname("text"),
                           osdmenu_complete_action_byname("text", 2, 0)}),
              (std::vector{-1, 0, 0, 0, -1}));
    EXPECT_EQ(traced("]font not init\n"), 5);
}

TEST_F(Items, AreReachedByName)
{
    const auto enrol = [](auto item) { return osdmenu_register_action_byname(item, recording_action, 1); };
    const auto enrol_again = [](auto item) { return osdmenu_register_action_byname(item, recording_action, 2); };
    const auto dismiss = [](auto item) { return osdmenu_register_action_byname(item, nullptr, 1); };
    const auto call = [](auto item) { return osdmenu_action_menuctl_byname(item, 9, 6); };
    const auto ask = [](auto item) { return osdmenu_complete_action_byname(item, ACTION_OP_GET, 5); };
    const auto change = [](auto item) { return osdmenu_action_ext_change_value_byname(item, -50); };
    const auto write = [](auto item) { return osdmenu_action_setnewtxtvalue2menuitem_byname(item, "new"); };
    const auto hide_without_action = [](auto) { return osdmenu_disableitem_byaction(nullptr); };
    const auto show_with_action = [](auto) { return osdmenu_enableitem_byaction(recording_action); };
    using Deed = std::tuple<const char *, const char *, int (*)(const char *), const char *>; // done in this order
    for (const auto &[name, item, act, effect] :
         {Deed{"set-up", "number", enrol, "0 number:1=0 number:2=0 [number 255 2 8 7]"},
          Deed{"set-up without a value", "plain", enrol, "0"},
          Deed{"set-up of nobody", "nobody", enrol, "0 +1"},
          Deed{"registering", "text", enrol_again, "0 text:2=0 [text 255 1 0 2]"},
          Deed{"no action", "number", dismiss, "0"},
          Deed{"call", "text", call, "0 text:9=6"},
          Deed{"call without an action", "number", call, "0"},
          Deed{"call of nobody", "nobody", call, "0"},
          Deed{"question", "text", ask, "2 text:2=5"},
          Deed{"question without an action", "number", ask, "-1"},
          Deed{"question to nobody", "nobody", ask, "-1 +1"},
          Deed{"choice", "text", change, "0 [text 255 1 0 -50] [text 255 1 0 -50]"},
          Deed{"number", "number", change, "0 [number 255 2 -50 7]"},
          Deed{"no value", "plain", change, "0"},
          Deed{"hiding", "text", osdmenu_disableitem_byname, "0 [text 238 1 0 -50]"},
          Deed{"hidden", "text", osdmenu_itemname_enable, "0 +1"},
          Deed{"showing", "text", osdmenu_enableitem_byname, "0 [text 204 1 0 -50]"},
          Deed{"shown", "text", osdmenu_itemname_enable, "1 +1"},
          Deed{"hiding by action", "", hide_without_action, "0 [number 238 2 -50 7] [text 238 1 0 -50] +20"},
          Deed{"showing by action", "", show_with_action, "0 [plain 204 0 0 0] [other 204 1 0 0] +3"},
          Deed{"text", "other", write, "0 [other 204 4 0 0] +4"},
          Deed{"text beyond the choices", "text", write, "0 [text 204 1 0 -50] +10"}})
        EXPECT_EQ(effect_of([run = act, on = item] { return run(on); }), effect) << name;
}

TEST_F(Items, TakeAFreeTextAtTheirChoice)
{
    first->item_values.current = 2;
    osdmenu_action_setnewtxtvalue2menuitem(first, "new");
    EXPECT_EQ(std::pair(look(first), first->item_values.current),
              std::pair(std::string("description tttttttt, A AA, B BBBB, new CCCC, "), 0));
}

static const auto first_text = [](osdmenu_item *item) { return first_choice(&item->item_values)->u.txt.description; };

TEST_F(Items, Take64BytesOfAFreeTextAndKeepTheBytesBehind)
{
    std::string(70, 'y').copy(first_text(first), 70);
    osdmenu_action_setnewtxtvalue2menuitem_byname("text", std::string(80, 'x').c_str());
    EXPECT_EQ(first_text(first), std::string(64, 'x').append("yyyyyy"));
}

TEST_F(Items, TakeAFreeTextThatIsPartOfTheirOwn)
{
    osdmenu_action_setnewtxtvalue2menuitem(first, std::strcpy(first_text(first), "abcdef") + 2);
    EXPECT_STREQ(first_text(first), "cdef");
}

TEST_F(Items, OfANameTakeTheSameFreeTextAlsoWhereItIsTheFirstOnesOwn)
{
    osdmenu_action_setnewtxtvalue2menuitem_byname("text", std::strcpy(first_text(first), "abcdef") + 2);
    EXPECT_STREQ(first_text(second), "cdef");
}

TEST_F(Items, AnswerAFreeText)
{
    const auto write = osdmenu_action_setnewtxtvalue2menuitem;
    second->item_values.current = 3; // there is no such choice
    EXPECT_EQ((std::vector{write(first, "x"), write(second, "x"), write(first, nullptr), write(nullptr, "x")}),
              (std::vector{0, 0, -1, -1}));
}

TEST_F(Items, BorrowFromTheLastOfAName)
{
    const std::string view = "description , ", choices = "a aa, b bb, c ccc, ";
    struct Loan {
        std::string name, from, to, content, look; // of the item "other" afterwards
    };
    for (const auto &[name, from, to, content, lent] :
         {Loan{"nothing", "text", "other", "description", view + choices},
          Loan{"view of nobody", "nobody", "other", "osdmenu_view", view + choices},
          Loan{"view to nobody", "other", "nobody", "osdmenu_view", view + choices},
          Loan{"its own view", "other", "other", "osdmenu_view", view + choices},
          Loan{"no choices", "number", "other", "osdmenu_item_value", view + choices},
          Loan{"choices to none", "other", "number", "osdmenu_item_value", view + choices},
          Loan{"choices", "text", "other", "osdmenu_item_value", view + "D DDDD, b bb, F FF, "},
          Loan{"view", "text", "other", "osdmenu_view", "second uuuuuu, D DDDD, b bb, F FF, "}}) {
        EXPECT_EQ(reuse_font_content_byname(from.c_str(), to.c_str(), content.c_str()), 0);
        EXPECT_EQ(look(other), lent) << name;
    }
}

TEST_F(Items, BorrowTheTypeOfAViewAndCopiesOfItsPixels)
{
    second->view.type = 7;
    reuse_font_content_byname("text", "other", "osdmenu_view");
    *second->view.viewbitmap.bitmap = 'z';
    EXPECT_EQ(std::pair(other->view.type, *other->view.viewbitmap.bitmap), std::pair(7U, 'u'));
}

TEST_F(Items, BorrowAPictureWithoutPixelsAndNoMissingText)
{
    std::free(std::exchange(second->view.viewbitmap.bitmap, nullptr));
    std::free(std::exchange(second->view.description, nullptr));
    reuse_font_content_byname("text", "other", "osdmenu_view");
    EXPECT_EQ(look(other), "description none, a aa, b bb, c ccc, ");
}

TEST_F(Items, BorrowTheTypeAndTheIndexOfAChoice)
{
    osdmenu_item_value *const from = first_choice(&second->item_values), *const to = first_choice(&other->item_values);
    from->type = 5, from->current = 9;
    reuse_font_content_byname("text", "other", "osdmenu_item_value");
    EXPECT_EQ(std::pair(to->type, to->current), std::pair(5U, 9));
}
