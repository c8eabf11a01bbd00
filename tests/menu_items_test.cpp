// Loading the menu items from m.d and b.d, whole and damaged, and freeing them.
#include "core/item_value.h"
#include "support/faults.h"

static const std::string INFO = "INFO read2mem_all_menuitems: ", ERR = "ERR read2mem_all_menuitems: ";
static const std::string OPENED = INFO + "open file:m.d ok!\n" + INFO + "open file:b.d ok!\n";
static const ResourceDirectory files;

static std::string load(const std::string &meta, const std::string &data)
{
    files.write("m.d", meta);
    files.write("b.d", data);
    return printed([] { EXPECT_EQ(read2mem_all_menuitems((files.path() + std::string(100, '/')).c_str()), 0); });
}

static std::string contents() // items with their choices: "A(xy)B()"
{
    std::string text;
    for (const osdmenu_item *item = first_loaded(); item; item = loaded_after(item)) {
        const osdmenu_item_value *value = &item->item_values;
        text += std::string(item->name) + "(";
        for (auto *choice = has_choices(value) ? first_choice(value) : nullptr; choice;
             choice = choice_after(choice, value))
            text += choice->u.txt.description;
        text += ")";
    }
    return text;
}

TEST(MenuItems, LoadWithTheirTextsPicturesAndValuesInTheOrderOfTheFile)
{
    std::vector<Item> items;
    std::string meta, data, spare(4, '\0');
    for (int i = 0; i < 100; i++) { // records and pictures end on either side of anything read ahead
        const Picture picture = {3, static_cast<unsigned>(i * 5), static_cast<char>(i)};
        items.push_back({std::to_string(i), {7, 255, 255, 0xEE}, picture, static_cast<unsigned>(i % 4)});
        items.back().number = {i, -i, 8, 9};
        if (i % 4 == VALUE_TXT)
            items.back().choices = {{"one", {1, 600, 'z'}}, {"two", picture}};
        meta += meta_of(items.back()), data += data_of(items.back());
    }
    EXPECT_EQ(load(meta, data), OPENED + INFO + "read data_file end! Right?\n" + INFO + "read meta_file end!\n");
    std::size_t i = 0;
    for (const osdmenu_item *item = first_loaded(); item; item = loaded_after(item), i++) {
        const std::string view(item->view.viewbitmap.bitmap, i * 15 + 4);
        EXPECT_EQ(item->name + view, std::to_string(i) + std::string(i * 15, static_cast<char>(i)) + spare);
        EXPECT_TRUE(!item->action && item->position.levels[0] == 7 && item->position.levels[3] == 0xEE);
        if (const auto *choice = i % 4 == VALUE_TXT ? first_choice(&item->item_values) : nullptr)
            EXPECT_EQ(std::string(choice->u.txt.viewbitmap.bitmap, 604), std::string(600, 'z') + spare);
        else
            EXPECT_TRUE(i % 4 == VALUE_NONE || std::memcmp(&item->item_values.u, &items[i].number, 16) == 0);
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
    const std::tuple<std::size_t, std::size_t, const char *, const char *> rows[] = {
        {448, 30, "m", "A(xy)B()"},  {448, 0, "T", "()"},    {448, 1, "T", "A()"},      {448, 2, "pTP", "A()"},
        {448, 4, "pTP", "A()"},      {448, 5, "pP", "A()"},  {448, 8, "T", "A()"},      {448, 12, "T", "A(x)"},
        {448, 13, "pP", "A(x)"},     {448, 14, "T", "A(x)"}, {448, 19, "T", "A(xy)()"}, {448, 27, "m", "A(xy)B()"},
        {10, 30, "pm", "A()"},       {168, 30, "mC", "A()"}, {224, 30, "mC", "A(x)"},   {234, 30, "pm", "A(xy)"},
        {340, 30, "pm", "A(xy)B()"}, {0, 30, "m", ""}};
    for (auto [meta_size, data_size, codes, items] : rows) {
        std::string expected = OPENED;
        for (char code : std::string(codes))
            expected += texts.at(code);
        const std::string lines = load(meta.substr(0, meta_size), data.substr(0, data_size));
        EXPECT_EQ(lines + contents(), expected + items) << meta_size << " " << data_size;
        output_of(free_all_menuitems);
    }
}

TEST(MenuItems, TextOf128BytesNeedsNoTerminatorAndALongerOneRunsOn)
{
    const std::string full(128, 'n'), meta = meta_of(Item{"", {1}, {}, VALUE_TXT, {{"", {}}}});
    load(meta + meta, full + text_of("d") + full + full + "e" + text_of("f") + text_of("c"));
    EXPECT_EQ(contents(), full + "(" + full + ")" + full + "(c)");
    EXPECT_STREQ(loaded_after(loaded(full))->view.description, "ef");
}

TEST(MenuItems, CountOfChoicesIsSignedAndTheSizeOfAPictureA32BitProduct)
{
    std::string meta = meta_of({"", {1}, {}, VALUE_RAWTXT}) + meta_of({"", {1}, {}, 9}); // types without choices
    for (int count : {0, -1, -2147483647 - 1}) {
        meta += meta_of({"", {1}, {}, VALUE_TXT});
        std::memcpy(&meta[meta.size() - 32], &count, sizeof count);
    }
    meta += meta_of({"", {1}, {65536, 65536}}) + meta_of({"", {1}, {4, 0x3FFFFFFF}}) + "more";
    prepare_view(files, 100, 100);
    const std::string lines = load(meta, std::string("R\0\0O\0\0A\0\0B\0\0C\0\0D\0\0E\0\0F\0\0", 24));
    EXPECT_EQ(lines_with(lines, "view viewbimap bitmap fail:: Cannot allocate memory\n"), 1);
    EXPECT_EQ(contents(), "R()O()A()B()C()D()E()");
    output_of(orderize_all_menuitems);
    press("down down ok left right"); // what stands in the file's pointers is never followed
}

TEST(MenuItems, FailedOpenKeepsTheItemsAndTakesOverLanguageAndConfiguration)
{
    const std::string dir = files.path(), endless = dir + std::string(5000, '/');
    const std::string none = "No such file or directory\n", too_long = "File name too long\n";
    files.write_config(R"({"default_color": 7})");
    for (auto [path, reason] : {std::pair{endless.c_str(), too_long}, {nullptr, none}, {dir.c_str(), none}})
        EXPECT_EQ(printed([path = path] { read2mem_all_menuitems(path); }),
                  "open meta_file fail:: " + reason + ERR + "open meta_file fail!\n");
    EXPECT_EQ(language_string + std::to_string(osdmenu_default_color), dir + "7");
    EXPECT_EQ(osdmenu.readlist.prev, nullptr) << "still never loaded";
    load_menu(files, {{"A", {1}}});
    files.remove("b.d");
    EXPECT_EQ(printed([&] { read2mem_all_menuitems(dir.c_str()); }),
              INFO + "open file:m.d ok!\nopen data_file fail:: " + none + ERR + "open data_file fail!\n");
    EXPECT_EQ(contents(), "A()");
    load(meta_of({"B", {1}}), data_of(Item{"B", {1}}));
    EXPECT_EQ(contents() + rows_of(), "B()A") << "a tree stays until the next ordering";
}

TEST(MenuItems, FreePrintsEachItemAndKeepsThePosition)
{
    prepare_view(files, 100, 100);
    load_menu(files, {{"A", {0}, {2, 8}, VALUE_TXT, {{"x", {2, 8}}, {"y", {}}}}, {"B", {1}}, {"refused", {}}});
    redraw();
    ASSERT_NE(osdmenu_current_menuitem, nullptr);
    set_current_view_position(1, 6);
    EXPECT_EQ(std::regex_replace(printed(free_all_menuitems), std::regex("OUT_INFO free_all_menuitems: "), ""),
              "enter\nname:A\nview description:description\nvalue type:1\ntxt description:x\ntxt description:y\n"
              "name:B\nview description:description\nno value!\n"
              "name:refused\nview description:description\nno value!\nleave\n");
    EXPECT_TRUE(!osdmenu_current_menuitem && get_current_view_position(1) == 6);
    EXPECT_EQ(contents() + rows_of(), "");
    load(meta_of({"", {1}}), "half a name");
    EXPECT_EQ(lines_with(printed(free_all_menuitems), ": view description:(null)\n"), 1);
}
