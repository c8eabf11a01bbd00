// Messages of one or more lines, painted from glyphs of 4 by 4 pixels on a view of 100 by 60 pixels that they clear
// first. A line of text is 12 pixels high.
#include "support/host.h"

struct TextBubble : testing::Test {
    int width = -1, height = -1;

    TextBubble()
    {
        osdmenu_fontsize_init2(12, 1);
        prepare_view(ResourceDirectory(), 100, 60);
        std::memset(osdmenu_viewbuffer, 0x77, 12000);
    }
};

// At the bottom a line that would just fit is refused, and the pad does not count. On the right no edge is looked for.
static const struct Message {
    const char *name, *text;
    int x, y, pad;
    std::pair<std::string, int> left; // the look, and the row below the last line
} messages[] = {
    {"missing", nullptr, 10, 5, 0, {"", 17}},
    {"of_no_character", "", 10, 5, 3, {"", 20}},
    {"of_one_character", "a", 10, 5, 0, {"a@10,5", 17}},
    {"with_an_empty_line", "ab\n\nc", 10, 5, 0, {"a@10,5 b@14,5 c@10,29", 41}},
    {"with_an_empty_last_line", "a\n", 10, 5, 0, {"a@10,5", 29}},
    {"with_a_line_that_would_just_fit", "a\nb\nc", 10, 36, 0, {"a@10,36", 48}},
    {"with_a_line_and_a_row_to_spare", "a\nb\nc", 10, 35, 0, {"a@10,35 b@10,47", 59}},
    {"with_a_padded_line_that_would_just_fit", "a\nb", 10, 33, 3, {"a@10,33", 48}},
    {"with_a_padded_line_and_a_row_to_spare", "a\nb", 10, 32, 3, {"a@10,32 b@10,47", 62}},
    {"outside_the_table", "a\xFF$", 10, 5, 0, {"a@10,5  @14,5 $@18,5", 17}},
    {"over_the_right_edge", "abc", 93, 5, 0, {"a@93,5 b@97,5 c@1,6", 17}},
    {"over_the_end_of_the_view", "abc", 94, 59, 0, {"a@94,59(4x1) b@98,59(2x1)", 71}},
};
CASES(MessageOfLines, TextBubble, messages);

TEST_P(MessageOfLines, StandsOnAClearedViewAsFarAsThereIsRoomBelow)
{
    const auto &[name, text, x, y, pad, left] = GetParam();
    osdmenu_get_bubble_multiline(text, x, y, pad, &height);
    EXPECT_EQ(std::pair(blocks_in_view(), height), left);
}

TEST_F(TextBubble, IsHandedBackFromItsFirstPixelAlsoWhereTheViewCutsItShort)
{
    EXPECT_EQ(get_osdmenu_bubble("a\nb", 10, 50) - osdmenu_viewbuffer, 10020);
}

TEST_F(TextBubble, IsNullWithoutAView)
{
    std::free(std::exchange(osdmenu_viewbuffer, nullptr));
    EXPECT_EQ(get_osdmenu_bubble("a", 10, 5), nullptr);
}

TEST_F(TextBubble, ReportsTheSizeOfItsLastGlyph)
{
    glyph_of('c') = {0, 3, 10, 10, glyph_of('c').bitmap};
    get_osdmenu_bubble2_with_wh("aaaa\nbc\n", 10, 5, &width, &height);
    EXPECT_EQ(std::pair(width, height), std::pair(5, 3));
}

TEST_F(TextBubble, ReportsNoSizeWithoutAGlyph)
{
    get_osdmenu_bubble2_with_wh("\n", 10, 5, &width, &height);
    EXPECT_EQ(std::pair(width, height), std::pair(-1, -1));
}

TEST_F(TextBubble, LeavesNoRoomForACharacterWithoutAGlyph)
{
    lose_glyph('b');
    get_osdmenu_bubble("bab", 10, 5);
    EXPECT_EQ(blocks_in_view(), "a@10,5");
}

TEST_F(TextBubble, TracesACharacterOutsideTheTable)
{
    set_trace_level(3);
    get_osdmenu_bubble("\xFF", 10, 5);
    EXPECT_EQ(traced_text(),
              "3 lib get_osdmenu_bubble2: char[0xff] not among the commonchar_string,replaced by space\n");
}
