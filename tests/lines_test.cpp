// Loading the help lines and the bubble lines: two files each, and a list that the next load replaces.
#include "core/line_walks.h"
#include "support/faults.h"

static const ResourceDirectory files;

static int (*const loaders[])(const char *dir) = {read2mem_helpline, read2mem_bubbleline};

// The result of a load, what it prints under its own name, and the names that it leaves: "0 ERR text\nA B ".
static std::string load(bool bubbles)
{
    int result = 0;
    const std::regex own(bubbles ? " read2mem_bubbleline:( got a)?" : " read2mem_helpline:( got a)?");
    std::string text = std::regex_replace(printed([&] { result = loaders[bubbles](files.path().c_str()); }), own, "");
    for (const osdhelpline *line = first_helpline(); line && !bubbles; line = helpline_after(line))
        text += line->name + std::string(" ");
    for (const osdbubbleline *line = first_bubbleline(); line && bubbles; line = bubbleline_after(line))
        text += line->name + std::string(" ");
    return std::to_string(result) + " " + text;
}

TEST(Lines, LoadReplacesThoseBeforeUnlessAnOpenFails)
{
    for (bool bubbles : {false, true}) {
        files.write_lines({{"old", {1, 2}}, {"older", {1, 2}}}, bubbles);
        load(bubbles);
        files.write_lines({{"new", {2, 3, 'p'}, 0, "text"}}, bubbles);
        EXPECT_EQ(load(bubbles),
                  "0 INFO osdmenu_item\nINFO osdhelpline name:new\nINFO osdhelpline view description:text\n"
                  "INFO osdmenu_item view viewbitmap bitmap.(6 6)\nnew ");
        const osdmenu_view_bitmap &picture = bubbles ? first_bubbleline()->viewbitmap : first_helpline()->viewbitmap;
        EXPECT_EQ(std::string(picture.bitmap, 10), std::string("pppppp\0\0\0\0", 10));
        files.remove(bubbles ? "bb.d" : "hb.d");
        EXPECT_EQ(load(bubbles), "-1 open data_file fail:: No such file or directory\nERR open data_file fail!\nnew ");
    }
}

TEST(Lines, EveryEndOfTheDataFileHasItsOwnRuleAndAPictureOfNoSizeIsOne)
{
    const Line a = {"A", {2, 3}, 0, "a"}, none = {std::string(128, 'N'), {0, 2}, 0, "n"};
    const std::string data = data_of(a) + none.name + text_of("n") + data_of(a);
    const std::pair<std::size_t, const char *> rows[] = {{0, "-1 ERR end\n "},          {1, "-1 ERR end\nA "},
                                                         {2, "0 ERR end\nERR end\nA "}, {4, "0 ERR end\nA "},
                                                         {7, "-1 ERR end\nA  "},        {150, "0 ERR end\nA N "}};
    for (bool bubbles : {false, true})
        for (auto [bytes, expected] : rows) {
            files.write_lines({a, none, a}, bubbles);
            files.write(bubbles ? "bb.d" : "hb.d", data.substr(0, bytes));
            const std::regex dropped("INFO.*\n|read data_file |! Right\\?|N{127}");
            EXPECT_EQ(std::regex_replace(load(bubbles), dropped, ""), expected) << bytes;
        }
}

TEST(Lines, LevelOfABubbleIsThatOfTheFirstOfItsName)
{
    set_trace_level(7);
    EXPECT_EQ(get_bubbleline_level_byname("A"), -1);
    files.write_lines({{"A", {1, 2}, -7}, {"A", {1, 2}, 5}, {"C", {1, 2}, 300}}, true);
    std::filesystem::resize_file(files.path() + "bm.d", 188); // a short record
    load(true);
    for (auto [name, level] : {std::pair{"A", -7}, {"C", 300}, {"a", -1}})
        EXPECT_EQ(get_bubbleline_level_byname(name), level);
    EXPECT_EQ(traced("7:[lib get_") + traced("]bubbleline not initialized") + traced("]Bubbleline not found: a\n"), 4);
}
