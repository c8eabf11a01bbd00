// Loading the help lines and the bubble lines: two files each, and a list that the next load replaces.
#include <gtest/gtest.h>
#include <regex>

#include "core/line_walks.h"
#include "support/host.h"

static const struct Kind {
    const char *meta, *data;
    int (*load)(const char *dir);
    const list_head *lines;
    bool bubbles;
} kinds[] = {{"hm.d", "hb.d", read2mem_helpline, &osdhelp.siblings, false},
             {"bm.d", "bb.d", read2mem_bubbleline, &osbbubble.siblings, true}};

// The result of a load, its lines without their places in the source, and the names that it leaves: "0 ... A B ".
static std::string load(const Kind &kind, const ResourceDirectory &directory)
{
    std::string text;
    const Output lines = output_of([&] { text = std::to_string(kind.load(directory.path().c_str())) + " "; });
    text += std::regex_replace(lines.out + lines.err,
                               std::regex(R"((DBG_\w+):\w+\.cpp read2mem_(help|bubble)line\[\d{4}\])"), "$1");
    for (const osdhelpline *line = first_line(kind.lines); line; line = line_after(line, kind.lines))
        text += line->name + std::string(" ");
    return text;
}

TEST(Lines, LoadReplacesThoseBeforeUnlessAnOpenFails)
{
    for (const Kind &kind : kinds) {
        ResourceDirectory directory;
        directory.write_lines({{"old", {1, 2}}, {"older", {1, 2}}}, kind.bubbles);
        load(kind, directory);
        directory.write_lines({{"new", {2, 3, 'p'}, 0, "text"}}, kind.bubbles);
        EXPECT_EQ(
            load(kind, directory),
            "0 DBG_INFO got a osdmenu_item\nDBG_INFO got a osdhelpline name:new\nDBG_INFO got a osdhelpline view description:text\n"
            "DBG_INFO got a osdmenu_item view viewbitmap bitmap.(6 6)\nnew ");
        EXPECT_EQ(std::string(first_line(kind.lines)->viewbitmap.bitmap, 10), std::string("pppppp\0\0\0\0", 10));
        directory.remove(kind.data);
        EXPECT_EQ(load(kind, directory),
                  "-1 open data_file fail:: No such file or directory\nDBG_ERR open data_file fail!\nnew ");
        directory.write_lines({}, kind.bubbles);
        EXPECT_EQ(load(kind, directory), "0 ");
    }
}

TEST(Lines, EveryEndOfTheDataFileHasItsOwnRuleAndAPictureOfNoSizeIsOne)
{
    const Line a = {"A", {2, 3}, 0, "a"}, none = {std::string(128, 'N'), {0, 2}, 0, "n"};
    const std::string data = data_of(a) + none.name + text_of("n") + data_of(a),
                      end = "DBG_ERR read data_file end! Right?\n";
    const std::pair<std::size_t, std::string> rows[] = {
        {0, "-1 " + end + " "},       {1, "-1 " + end + "A "},
        {2, "0 " + end + end + "A "}, {3, "0 " + end + end + "A "},
        {4, "0 " + end + "A "},       {7, "-1 " + end + "A  "},
        {10, "-1 " + end + "A  "},    {150, "0 " + end + "A " + none.name + " "}};
    ResourceDirectory directory;
    for (const Kind &kind : kinds)
        for (const auto &[bytes, expected] : rows) {
            directory.write(kind.meta,
                            meta_of(a, kind.bubbles) + meta_of(none, kind.bubbles) + meta_of(a, kind.bubbles));
            directory.write(kind.data, data.substr(0, bytes));
            EXPECT_EQ(std::regex_replace(load(kind, directory), std::regex("DBG_INFO .*\n"), ""), expected) << bytes;
        }
}
TEST(Lines, LevelOfABubbleIsThatOfTheFirstOfItsName)
{
    set_trace_level(7);
    EXPECT_EQ(get_bubbleline_level_byname("A"), -1);
    EXPECT_EQ(traced("7:[lib get_bubbleline_level_byname +") + traced("]bubbleline not initialized\n"), 2);
    ResourceDirectory directory;
    const Line a = {"A", {1, 2}, -7}, b = {"A", {1, 2}, 5}, c = {"C", {1, 2}, 300};
    directory.write("bm.d", meta_of(a, true) + meta_of(b, true) + meta_of(c, true).substr(0, 60)); // a short record
    directory.write("bb.d", data_of(a) + data_of(b) + data_of(c));
    load(kinds[1], directory);
    for (auto [name, level] : {std::pair{"A", -7}, {"C", 300}, {"a", -1}})
        EXPECT_EQ(get_bubbleline_level_byname(name), level);
    EXPECT_EQ(traced("]Bubbleline not found: a\n"), 1);
}
