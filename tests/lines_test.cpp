// Loading the help lines and the bubble lines: two files each, and a list that the next load replaces.
#include "core/line_walks.h"
#include "support/faults.h"

static const ResourceDirectory files;

struct Lines : testing::TestWithParam<bool> { // of bubbles, or help
    int result = 0;                           // of the last load

    // What a load prints, without the name of the function.
    std::string load()
    {
        const auto loader = GetParam() ? read2mem_bubbleline : read2mem_helpline;
        return printed_by("read2mem_\\w+line", [&] { result = loader(files.path().c_str()); });
    }
    std::string load(const std::vector<Line> &lines)
    {
        files.write_lines(lines, GetParam());
        return load();
    }
    static std::string names() // "A B "
    {
        std::string text;
        for (auto *line = GetParam() ? nullptr : first_helpline(); line; line = helpline_after(line))
            text += line->name + std::string(" ");
        for (auto *line = GetParam() ? first_bubbleline() : nullptr; line; line = bubbleline_after(line))
            text += line->name + std::string(" ");
        return text;
    }
};
INSTANTIATE_TEST_SUITE_P(Of, Lines, testing::Bool(), [](const auto &row) { return row.param ? "bubbles" : "help"; });

TEST_P(Lines, TellOfTheirParts)
{
    EXPECT_EQ(load({{"new", {2, 3}, 0, "text"}}),
              "INFO got a osdmenu_item\nINFO got a osdhelpline name:new\nINFO got a osdhelpline view description:text\n"
              "INFO got a osdmenu_item view viewbitmap bitmap.(6 6)\n");
}

TEST_P(Lines, ReplaceThoseBefore)
{
    load({{"old", {1, 2}}, {"older", {1, 2}}});
    load({{"new", {1, 2}}});
    EXPECT_EQ(names(), "new ");
}

TEST_P(Lines, LeaveThoseBeforeWithoutTheirDataFile)
{
    load({{"old", {1, 2}}});
    files.remove(GetParam() ? "bb.d" : "hb.d");
    load();
    EXPECT_EQ(std::pair(result, names()), std::pair(-1, std::string("old ")));
}

TEST_P(Lines, TakeARecordOfOneByte)
{
    files.write_lines({{"A", {}}}, GetParam());
    std::filesystem::resize_file(files.path() + (GetParam() ? "bm.d" : "hm.d"), 1);
    load();
    EXPECT_EQ(names(), "A ");
}

TEST_P(Lines, AreKeptAsFarAsTheirDataGoes)
{
    const Line a = {"A", {2, 3}, 0, "a"}, empty = {"E", {0, 2}, 0, "e"};
    const struct {
        const char *name;
        std::size_t bytes;
        int result, ends_told;
        std::string names;
    } rows[] = {{"to a name", 0, -1, 1, " "},        {"into a name", 1, -1, 1, "A "},
                {"to a description", 2, 0, 2, "A "}, {"to a picture", 4, 0, 1, "A "},
                {"into a picture", 7, -1, 1, "A  "}, {"to a picture of no size", 24, 0, 1, "A E "}};
    for (const auto &row : rows) {
        files.write_lines({a, empty, a}, GetParam());
        std::filesystem::resize_file(files.path() + (GetParam() ? "bb.d" : "hb.d"), row.bytes);
        const int ends_told = lines_with(load(), "ERR read data_file end! Right?\n");
        EXPECT_EQ(std::tuple(result, ends_told, names()), std::tuple(row.result, row.ends_told, row.names)) << row.name;
    }
}

TEST(PictureOfALine, HasFourSpareBytes)
{
    load_lines(files, {{"A", {2, 3, 'p'}}}, false);
    EXPECT_EQ(std::string(first_helpline()->viewbitmap.bitmap, 10), std::string("pppppp\0\0\0\0", 10));
}

TEST(LevelOfABubble, IsThatOfTheFirstLineOfItsName)
{
    load_lines(files, {{"A", {1, 2}, -7}, {"A", {1, 2}, 5}, {"C", {1, 2}, 300}}, true);
    for (auto [name, level] : {std::pair{"A", -7}, {"C", 300}, {"a", -1}})
        EXPECT_EQ(get_bubbleline_level_byname(name), level) << name;
}

TEST(LevelOfABubble, TracesWhyItIsNotFound)
{
    set_trace_level(7);
    EXPECT_EQ(get_bubbleline_level_byname("A"), -1);
    load_lines(files, {}, true);
    EXPECT_EQ(get_bubbleline_level_byname("B"), -1);
    const std::string own = "7 lib get_bubbleline_level_byname: ";
    EXPECT_EQ(traced_text(), own + "bubbleline not initialized\n" + own + "Bubbleline not found: B\n");
}
