// Loading the menu items from m.d and b.d, whole and damaged, and freeing them.
#include <gtest/gtest.h>
#include <malloc.h>
#include <regex>

#include "core/item_value.h"
#include "core/view_buffer.h"
#include "core/walks.h"
#include "support/host.h"

static const std::string INFO = "DBG_INFO read2mem_all_menuitems: ", ERR = "DBG_ERR read2mem_all_menuitems: ";
static const std::string OPENED = INFO + "open file:m.d ok!\n" + INFO + "open file:b.d ok!\n";
// The lines of some work, those of standard output first, without their places in the source.
static std::string lines_of(const std::function<void()> &work)
{
    const Output output = output_of(work);
    return std::regex_replace(output.out + output.err, std::regex(R"((DBG_\w+):\w+\.cpp (\w+)\[\d{4}\])"), "$1 $2:");
}
static std::string load(const std::string &dir)
{
    return lines_of([&] { EXPECT_EQ(read2mem_all_menuitems(dir.c_str()), 0); });
}
static std::string contents() // items with their choices: "A(xy)B()"
{
    std::string text;
    for (const osdmenu_item *item = first_loaded(); item; item = loaded_after(item)) {
        const osdmenu_item_value *value = &item->item_values;
        text += std::string(item->name) + "(";
        if (has_choices(value))
            for (auto *choice = first_choice(value); choice; choice = choice_after(choice, value))
                text += choice->u.txt.description;
        text += ")";
    }
    return text;
}
static void expect_block(const osdmenu_view_bitmap &bitmap, std::size_t size, char fill)
{
    EXPECT_EQ(std::string(bitmap.bitmap, size + 4), std::string(size, fill) + std::string(4, '\0'));
}
TEST(MenuItems, LoadWithTheirTextsPicturesAndValuesInTheOrderOfTheFile)
{
    ResourceDirectory directory;
    std::vector<Item> items;
    for (int i = 0; i < 100; i++) { // records and pictures end on either side of anything read ahead
        const Picture picture = {3, static_cast<unsigned>(i * 5), static_cast<char>(i)};
        items.push_back({std::to_string(i), {7, 255, 255, 0xEE}, picture, static_cast<unsigned>(i % 4)});
        items.back().number = {i, -i, 8, 9};
        if (i % 4 == VALUE_TXT)
            items.back().choices = {{"one", {1, 600, 'z'}}, {"two", picture}};
    }
    directory.write_items(items);
    EXPECT_EQ(load(directory.path() + std::string(100, '/')),
              OPENED + INFO + "read data_file end! Right?\n" + INFO + "read meta_file end!\n");
    std::size_t i = 0;
    for (const osdmenu_item *item = first_loaded(); item; item = loaded_after(item), i++) {
        EXPECT_TRUE(item->name == items[i].name && item->view.description == items[i].description);
        expect_block(item->view.viewbitmap, i * 15, static_cast<char>(i));
        if (i % 4 == VALUE_TXT) {
            expect_block(first_choice(&item->item_values)->u.txt.viewbitmap, 600, 'z');
        } else if (i % 4 != VALUE_NONE) {
            EXPECT_EQ(std::memcmp(&item->item_values.u, &items[i].number, sizeof(osdmenu_item_value_number)), 0);
        }
        EXPECT_TRUE(!item->action && item->position.levels[0] == 7 && item->position.levels[3] == 0xEE);
    }
    EXPECT_EQ(i, items.size());
}
TEST(MenuItems, EveryEndOfAFileHasItsOwnRule)
{
    const Item a = {"A", {1}, {2, 3, 'p'}, VALUE_TXT, {{"x", {1, 2}}, {"y", {1, 2}}}, {}, 0, "da"},
               b = {"B", {2}, {2, 3}, VALUE_NONE, {}, {}, 0, "db"};
    const std::string meta = meta_of(a) + meta_of(b), data = data_of(a) + data_of(b);
    const std::map<char, std::string> texts = {{'m', INFO + "read meta_file end!\n"},
                                               {'p', INFO + "read data_file end! Right?\n"},
                                               {'C', ERR + "read meta_file end!\n"},
                                               {'T', ERR + "read data_file end! Right?\n"},
                                               {'P', ERR + "read data_file end!\n"}};
    // Bytes left of each file, the lines, and the items.
    std::istringstream rows(
        "448 30 m A(xy)B()  448 0 T ()  448 1 T A()  448 2 pTP A()  448 4 pTP A()  448 5 pP A() "
        "448 8 T A()  448 12 T A(x)  448 13 pP A(x)  448 14 T A(x)  448 19 T A(xy)()  448 27 m A(xy)B() "
        "10 30 pm A()  168 30 mC A()  224 30 mC A(x)  234 30 pm A(xy)  340 30 pm A(xy)B()  0 30 m ");
    ResourceDirectory directory;
    std::string codes;
    for (std::size_t meta_size, data_size; rows >> meta_size >> data_size >> codes;) {
        std::string items, expected = OPENED;
        rows >> items;
        for (char code : codes)
            expected += texts.at(code);
        directory.write("m.d", meta.substr(0, meta_size));
        directory.write("b.d", data.substr(0, data_size));
        EXPECT_EQ(load(directory.path()), expected) << meta_size << " " << data_size;
        EXPECT_EQ(contents(), items) << meta_size << " " << data_size;
        output_of([] { free_all_menuitems(); });
    }
}
TEST(MenuItems, TextOf128BytesNeedsNoTerminatorAndALongerOneRunsOn)
{
    ResourceDirectory directory;
    const std::string full(128, 'n'), meta = meta_of(Item{"", {1}, {}, VALUE_TXT, {{"", {}}}});
    directory.write("m.d", meta + meta);
    directory.write("b.d", full + text_of("d") + full + full + "e" + text_of("f") + text_of("c"));
    load(directory.path());
    EXPECT_EQ(contents(), full + "(" + full + ")" + full + "(c)");
    EXPECT_STREQ(loaded_after(loaded(full))->view.description, "ef");
}
TEST(MenuItems, CountOfChoicesIsSignedAndOtherTypesHaveNone)
{
    ResourceDirectory directory;
    std::string meta = meta_of({"", {1}, {}, VALUE_RAWTXT}) + meta_of({"", {1}, {}, 9});
    for (int count : {0, -1, -2147483647 - 1, 2147483647}) {
        meta += meta_of({"", {1}, {}, VALUE_TXT});
        std::memcpy(&meta[meta.size() - 32], &count, sizeof count);
    }
    prepare_view(directory, 100, 100);
    directory.write("m.d", meta);
    directory.write("b.d", std::string("R\0\0O\0\0A\0\0B\0\0C\0\0D\0\0", 18));
    load(directory.path());
    EXPECT_EQ(contents(), "R()O()A()B()C()D()");
    output_of([] { orderize_all_menuitems(); });
    press("down down ok left right"); // what stands in the file's pointers is never followed
}
TEST(MenuItems, FailedOpenKeepsTheItemsAndTakesOverLanguageAndConfiguration)
{
    ResourceDirectory directory;
    directory.write_config(R"({"default_color": 7})");
    EXPECT_EQ(load(directory.path()),
              "open meta_file fail:: No such file or directory\n" + ERR + "open meta_file fail!\n");
    EXPECT_EQ(language_string + std::to_string(osdmenu_default_color), directory.path() + "7");
    EXPECT_EQ(osdmenu.readlist.prev, nullptr) << "still never loaded";
    load_menu(directory, {{"A", {1}}});
    const std::string endless = directory.path() + std::string(5000, '/');
    EXPECT_EQ(load(endless), "open meta_file fail:: File name too long\n" + ERR + "open meta_file fail!\n");
    directory.remove("b.d");
    EXPECT_EQ(load(directory.path()), INFO + "open file:m.d ok!\nopen data_file fail:: No such file or directory\n" +
                                          ERR + "open data_file fail!\n");
    lines_of([] { read2mem_all_menuitems(nullptr); });
    EXPECT_EQ(contents(), "A()");
    directory.write_items({{"B", {1}}});
    load(directory.path());
    EXPECT_EQ(contents() + rows_of(), "B()A") << "a tree stays until the next ordering";
}
TEST(MenuItems, SizeOfAPictureIsA32BitProductAndSoIsItsBlock)
{
    ResourceDirectory directory;
    directory.write("m.d", meta_of({"", {1}, {65536, 65536}}) + meta_of({"", {1}, {4, 0x3FFFFFFF}}) + "more");
    directory.write("b.d", std::string("A\0\0B\0\0C\0\0", 9));
    EXPECT_EQ(lines_with(load(directory.path()), "view viewbimap bitmap fail:: Cannot allocate memory"), 1);
    EXPECT_EQ(contents(), "A()B()");
}
TEST(MenuItems, FreePrintsEachItemAndKeepsThePosition)
{
    ResourceDirectory directory;
    prepare_view(directory, 100, 100);
    load_menu(directory, {{"A", {0}, {}, VALUE_TXT, {{"x", {}}, {"y", {}}}}, {"B", {1}}});
    redraw();
    ASSERT_NE(osdmenu_current_menuitem, nullptr);
    set_current_view_position(1, 6);
    const std::regex prefix("DBG_OUT_INFO free_all_menuitems: ");
    EXPECT_EQ(std::regex_replace(lines_of([] { free_all_menuitems(); }), prefix, ""),
              "enter\nname:A\nview description:description\nvalue type:1\ntxt description:x\ntxt description:y\n"
              "name:B\nview description:description\nno value!\nleave\n");
    EXPECT_TRUE(!osdmenu_current_menuitem && get_current_view_position(1) == 6);
    EXPECT_EQ(contents() + rows_of(), "");
    directory.write("b.d", ""); // ends the load within A's name
    load(directory.path());
    EXPECT_EQ(lines_with(lines_of([] { free_all_menuitems(); }), ": view description:(null)"), 1);
}
TEST(MenuItems, HundredChangesOfLanguageDoNotGrowTheProcess) // a sanitizer has no such count, and reports leaks itself
{
    ResourceDirectory directory;
    std::size_t before = 0, after = 0;
    for (int i = 0; i < 102; i++) {
        load_menu(directory, {{"A", {1}, {2, 8}, VALUE_TXT, {{"x", {2, 8}}}}, {"refused", {}}});
        output_of([&] { free_all_menuitems(); });
        after = mallinfo2().uordblks;
        before = i == 1 ? after : before;
    }
    EXPECT_LT(after, before + 1000);
}
