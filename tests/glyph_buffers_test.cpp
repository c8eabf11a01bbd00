// The painters of text into a place of the caller's choice, and the measure of a text. Glyphs are of 4 by 4 pixels, "z"
// has none, lines of text are 10 pixels apart, and the view is of 40 by 40 pixels.
#include <climits>

#include "support/faults.h"

using namespace std::string_literals;

struct TextInto : testing::Test {
    int x = 0, y = 0;
    char *to = nullptr;
    std::string buffer = std::string(160, '\0'); // of 8 by 10 pixels

    TextInto()
    {
        const ResourceDirectory directory;
        osdmenu_fontsize_init2(12, 1);
        prepare_view(directory, 40, 40);
        lose_glyph('z');
        set_trace_level(7);
    }
};

// A text painted from a pixel on, and what that leaves: the look, and the pixel behind the text.
struct Painted {
    const char *name;
    std::string text;
    int x, y;
    std::tuple<std::string, long, long> left;
};

struct PaintedText : TextInto {
    const Painted &row = testing::WithParamInterface<Painted>::GetParam();
    const char *const text = row.text.c_str();
    const int length = static_cast<int>(row.text.size());

    PaintedText()
    {
        x = row.x, y = row.y;
        to = osdmenu_viewbuffer + (y * 40L + x) * 2;
    }
    std::tuple<std::string, long, long> left_in_view() const
    {
        return {blocks_in_view(), (to - osdmenu_viewbuffer) / 2 % 40, (to - osdmenu_viewbuffer) / 80};
    }
};

static const Painted at_write_positions[] = {
    {"of_one_character", "a", 3, 1, {"a@3,1", 7, 1}},
    {"without_a_glyph", "azb", 0, 1, {"a@0,1 b@4,1", 8, 1}},
    {"outside_the_table", "a\0\n"s, 0, 1, {"a@0,1  @4,1(8x4)", 12, 1}},
    {"up_to_the_right_edge", "ab", 32, 1, {"a@32,1 b@36,1", 0, 2}},
    {"beyond_the_right_edge", "abcd", 30, 1, {"a@30,1 b@34,1", 38, 1}},
    {"over_the_end_of_the_view", "a", 35, 39, {"a@35,39(4x1)", 39, 39}},
};
CASES(TextAtAWritePosition, PaintedText, at_write_positions);

TEST_P(TextAtAWritePosition, MovesItAsFarAsThePenHasRoomOnTheRight)
{
    get_osdmenu_common_bitmap(text, length, &x, &to);
    EXPECT_EQ(left_in_view(), row.left);
}

// Of 2 pixels above, 3 below, 5 on the left and 7 on the right: a line ends behind column 28, and none is below row 25.
static const Painted between_margins[] = {
    {"of_no_character", "", 10, 1, {"", 15, 3}},
    {"up_to_the_right_one", "aaa", 11, 1, {"a@16,3(12x4)", 28, 3}},
    {"over_the_right_one", "aaab", 12, 1, {"a@17,3(12x4) b@5,13", 9, 13}},
    {"with_a_newline", "a\nb", 10, 1, {"a@15,3  @19,3 b@5,13", 9, 13}},
    {"with_a_newline_over_the_right_one", "a\nb", 18, 1, {"a@23,3  @27,3 b@5,23", 9, 23}},
    {"over_the_right_one_on_the_last_line", "aaabc", 12, 23, {"a@17,25(12x4)", 29, 25}},
    {"with_a_newline_on_the_last_line", "a\nb", 10, 23, {"a@15,25  @19,25", 23, 25}},
    {"below_the_last_line", "a", 10, 24, {"", 15, 26}},
};
CASES(TextBetweenMargins, PaintedText, between_margins);

TEST_P(TextBetweenMargins, WrapsToTheLeftOneAndGivesThePensBack)
{
    get_osdmenu_common_bitmap_with_margin(text, length, &x, &y, &to, 40, 40, 2, 3, 5, 7);
    EXPECT_EQ(std::tuple(left_in_view(), x, y), std::tuple(row.left, row.x, row.y));
}

static const Painted in_buffer[] = {
    {"of_two_lines", "abc", 0, 0, {"a@0,0 b@4,0 c@0,4", 4, 4}},
    {"with_a_line_that_just_fits", "a", 8, 2, {"a@0,6", 4, 6}},
    {"with_a_line_too_many", "ab", 8, 3, {"", 4, 7}},
    {"outside_the_table", "\0a"s, 0, 0, {" @0,0 a@4,0", 8, 0}},
    {"without_a_glyph", "za", 0, 0, {"a@0,0", 4, 0}},
    {"over_the_start", "a", -2, -2, {"a@0,0(2x2) a@6,0(2x1)", 2, -2}},
    {"on_the_last_row", "a", 4, 9, {"a@4,9(4x1)", 8, 9}},
    {"beyond_32_bits", "a", 0, INT_MIN, {"a@0,0", 4, INT_MIN}},
};
CASES(TextInABuffer, PaintedText, in_buffer);

TEST_P(TextInABuffer, WrapsByTheHeightOfTheGlyphAtHandWhileThereIsRoom)
{
    const int result = get_osdmenu_common_bitmap_ex(text, length, &x, &y, buffer.data(), 8, 10, 2);
    EXPECT_EQ(std::tuple(result, std::tuple(blocks_in(buffer, 8), x, y)), std::tuple(0, row.left));
}

TEST_F(TextInto, ABufferIsRefusedInSilenceWithANullOrAnEmptySize)
{
    const auto refused = [&] {
        EXPECT_EQ(get_osdmenu_common_bitmap_ex(nullptr, 1, &x, &y, buffer.data(), 8, 10, 2), -1);
        EXPECT_EQ(get_osdmenu_common_bitmap_ex("a", 0, &x, &y, buffer.data(), 8, 10, 2), -1);
        EXPECT_EQ(get_osdmenu_common_bitmap_ex("a", 1, nullptr, &y, buffer.data(), 8, 10, 2), -1);
        EXPECT_EQ(get_osdmenu_common_bitmap_ex("a", 1, &x, nullptr, buffer.data(), 8, 10, 2), -1);
        EXPECT_EQ(get_osdmenu_common_bitmap_ex("a", 1, &x, &y, nullptr, 8, 10, 2), -1);
        EXPECT_EQ(get_osdmenu_common_bitmap_ex("a", 1, &x, &y, buffer.data(), 0, 10, 2), -1);
        EXPECT_EQ(get_osdmenu_common_bitmap_ex("a", 1, &x, &y, buffer.data(), 8, 0, 2), -1);
        EXPECT_EQ(get_osdmenu_common_bitmap_ex("a", 1, &x, &y, buffer.data(), 8, 10, 0), -1);
    };
    EXPECT_EQ(printed(refused), "");
}

TEST_F(TextInto, AWritePositionIsToldOfAlsoWithoutAText)
{
    const auto into_view = [&] { get_osdmenu_common_bitmap(nullptr, 7, &x, &(to = osdmenu_viewbuffer)); };
    EXPECT_EQ(printed(into_view), "ERR get_osdmenu_common_bitmap: msg:(null) max:7\n");
}

TEST_F(TextInto, ANullPaintsNothing)
{
    to = osdmenu_viewbuffer;
    get_osdmenu_common_bitmap("a", 1, nullptr, &to);
    get_osdmenu_common_bitmap("a", 1, &x, nullptr);
    get_osdmenu_common_bitmap_with_margin(nullptr, 1, &x, &y, &to, 40, 40, 2, 3, 5, 7);
    get_osdmenu_common_bitmap_with_margin("a", 1, nullptr, &y, &to, 40, 40, 2, 3, 5, 7);
    get_osdmenu_common_bitmap_with_margin("a", 1, &x, nullptr, &to, 40, 40, 2, 3, 5, 7);
    get_osdmenu_common_bitmap_with_margin("a", 1, &x, &y, nullptr, 40, 40, 2, 3, 5, 7);
    get_string_bitmap("a", 10, 2, nullptr);
    EXPECT_EQ(blocks_in_view(), "");
}

TEST_F(TextInto, TracesWhatItReplacesAndWhatItLeavesOut)
{
    get_osdmenu_common_bitmap("\xFF", 1, &(x = 37), &(to = osdmenu_viewbuffer));
    get_osdmenu_common_bitmap_ex("\xFFz", 2, &(x = 0), &(y = 7), buffer.data(), 8, 10, 2);
    get_osdmenu_common_bitmap_ex("a", 1, &(x = 8), &y, buffer.data(), 8, 10, 2);
    get_string_bitmap_length("\n");
    get_string_bitmap("\n", 10, 2, buffer.data());
    get_string_bitmap("a", 10, 4, buffer.data());
    EXPECT_EQ(traced_text(),
              "3 lib get_osdmenu_common_bitmap: char[0xff] not among the commonchar_string,replaced by space\n"
              "3 lib get_osdmenu_common_bitmap: exceed the maximum with of row, cur_x:41, max_w:40\n"
              "3 lib get_osdmenu_common_bitmap_ex: char[0xff] not among the commonchar_string, replaced by space\n"
              "3 lib get_osdmenu_common_bitmap_ex: copy out of bounds: dst=160, size=8, max=160\n"
              "3 lib get_osdmenu_common_bitmap_ex: viewbitmap for char 'z' is NULL\n"
              "3 lib get_osdmenu_common_bitmap_ex: exceed the maximum height of buffer, cur_y:15, max_h:10\n"
              "7 lib get_string_bitmap_length: char not among the commonchar_string.\n\n"
              "7 lib get_string_bitmap: char not among the commonchar_string.\n\n"
              "7 lib get_string_bitmap: pixelsize not match\n");
}

// A glyph "a" of that geometry, twice, from row 8 of 10 on.
static const struct RowsOutside {
    const char *name;
    unsigned height, width, stride;
    int reported;
} rows_outside[] = {
    {"with_bytes", 4, 8, 8, 4},
    {"of_no_width", 5, 0, 8, 4}, // one stands right at the end
    {"of_no_stride", 5, 8, 0, 6},
    {"without_end", 4000000000, 0, 0, 65536},
};
CASES(GlyphOverTheEnd, TextInto, rows_outside);

TEST_P(GlyphOverTheEnd, HasEachRowReportedUpTo65536)
{
    glyph_of('a') = {0, GetParam().height, GetParam().width, GetParam().stride, glyph_of('a').bitmap};
    get_osdmenu_common_bitmap_ex("aa", 2, &x, &(y = 8), buffer.data(), 8, 10, 2);
    EXPECT_EQ(traced("copy out of bounds: dst="), GetParam().reported);
}

TEST_F(TextInto, ABufferWhoseSizeWrapsReportsTheWrappedSize)
{
    get_osdmenu_common_bitmap_ex("a", 1, &x, &y, buffer.data(), 65536, 32768, 1);
    EXPECT_EQ(traced("copy out of bounds: dst=0, size=8, max=-2147483648\n"), 1);
}

// A string and its length in bytes; and what painting it into the view leaves, from a byte on in rows of that width.
static const struct Measured {
    const char *name, *text;
    int bytes, from, width, pixelsize;
    std::pair<int, std::string> left;
} measured[] = {
    {"missing", nullptr, 0, 0, 40, 2, {0, ""}},
    {"of_one_character", "a", 8, 0, 40, 2, {0, "a@0,0"}},
    {"with_a_newline", "$\na", -1, 0, 40, 2, {-1, "$@0,0"}}, // what stood before the fault stays
    {"without_a_glyph", "azb", 16, 0, 40, 2, {0, "a@0,0 b@4,0"}},
    {"of_pixels_of_4_bytes", "a", 8, 0, 40, 4, {-1, ""}},
    {"over_the_end_of_the_view", "a", 8, 3196, 40, 2, {0, "a@38,39(2x1)"}},
    {"of_rows_over_the_end_of_the_view", "a", 8, 0, 600, 2, {0, "a@0,0(4x1) a@0,15(4x1) a@0,30(4x1)"}},
};
CASES(StringOfGlyphs, TextInto, measured);

TEST_P(StringOfGlyphs, IsMeasuredInBytes)
{
    EXPECT_EQ(get_string_bitmap_length(GetParam().text), GetParam().bytes);
}

TEST_P(StringOfGlyphs, IsPaintedFromTheFirstByteOnWithinTheView)
{
    const auto &[name, text, bytes, from, width, pixelsize, left] = GetParam();
    const int result = get_string_bitmap(text, width, pixelsize, osdmenu_viewbuffer + from);
    EXPECT_EQ(std::pair(result, blocks_in_view()), left);
}

TEST_F(TextInto, ATargetThatBeginsWhereTheViewEndsIsTheCallersOwn)
{
    std::vector<char> memory(3200 + 160); // the view, and the caller's buffer right behind it
    std::free(std::exchange(osdmenu_viewbuffer, memory.data()));
    get_string_bitmap("a", 10, 2, memory.data() + 3200);
    EXPECT_EQ(memory[3200], 11);
}
