// The painters of text into a place of the caller's choice, and the measure. Glyphs are 4 by 4 pixels: "a" shows as 11.
#include <climits>
#include <gtest/gtest.h>

#include "resources/glyph_banks.h"
#include "support/host.h"

static int x, y;
static std::vector<char> buffer(160); // 8 by 10 pixels

struct TextInto : testing::Test {
    TextInto()
    {
        const ResourceDirectory directory;
        osdmenu_fontsize_init2(12, 1); // lines of text are 10 pixels apart
        prepare_view(directory, 40, 40);
        set_trace_level(7);
    }
};

// Each of these paints and returns where the write position, in bytes, or the pens stand.
static const auto paint = [](const char *msg, int msg_max, int pen, int offset) {
    char *to = osdmenu_viewbuffer + offset;
    get_osdmenu_common_bitmap(msg, msg_max, &(x = pen), &to);
    return std::tuple(to - osdmenu_viewbuffer - offset, x);
};
static const auto paint_ex = [](const char *msg, int pixelsize) {
    const int length = static_cast<int>(std::strlen(msg));
    return std::tuple{get_osdmenu_common_bitmap_ex(msg, length, &x, &y, buffer.data(), 8, 10, pixelsize), x, y};
};
static const auto paint_in_margins = [](const char *msg) {
    char *to = nullptr;
    get_osdmenu_common_bitmap_with_margin(msg, static_cast<int>(std::strlen(msg)), &x, &y, &to, 40, 40, 2, 3, 5, 7);
    return to - osdmenu_viewbuffer;
};

TEST_F(TextInto, TheViewTakesTheCharactersAskedForAndEndsWithItsPenBeyondTheRightEdge)
{
    EXPECT_EQ(paint("a\0$", 3, 28, 0), std::tuple(24, 40));
    EXPECT_EQ(traced("]char[0x0] not among the commonchar_string,replaced by space\n"), 1);
    EXPECT_EQ(paint("abcd", 4, 30, 3000), std::tuple(16, 42));
    EXPECT_EQ(traced("exceed the maximum with of row, cur_x:42, max_w:40"), 1);
    get_osdmenu_common_bitmap("ab", 1, nullptr, nullptr);
    for (int offset : {-4, 3196, INT_MIN, INT_MAX})
        EXPECT_EQ(paint("a", 1, 0, offset), std::tuple(8, 4));
    EXPECT_EQ(std::tuple(byte_at(4, 0), byte_at(8, 0), byte_at(38, 39)), std::tuple(89, 76, 11)); // the part inside
}

TEST_F(TextInto, ABufferWrapsByTheGlyphsOwnHeightAndLeavesOutTheRowsBeyondItOneByOne)
{
    EXPECT_EQ(paint_ex("a", 2), std::tuple(0, 4, 0));
    EXPECT_EQ(paint_ex("bcde", 2), std::tuple(0, 4, 8)); // the wrap that found no room moved the pens
    EXPECT_EQ(std::tuple(buffer[0], buffer[8], buffer[64], buffer[72]), std::tuple(11, 12, 13, 14));
    EXPECT_EQ(traced("exceed the maximum height of buffer, cur_y:12, max_h:10"), 1);
    x = 0, y = 8;
    EXPECT_EQ(paint_ex("a", 2), std::tuple(0, 4, 8));
    EXPECT_EQ(traced("copy out of bounds: dst=160, size=8, max=160") * 10 + traced("copy out of bounds"), 12);
    x = y = 0;
    EXPECT_EQ(paint_ex("\xFF", 1), std::tuple(0, 8, 0)); // the bytes of a glyph are copied whatever a pixel is
    EXPECT_EQ(std::tuple(buffer[7], buffer[8], buffer[144]), std::tuple(89, 89, 11));
    EXPECT_EQ(traced("char[0xff] not among the commonchar_string, replaced by space\n"), 1);
    for (int far : {INT_MIN, -2, INT_MAX})
        x = y = far, paint_ex("ab", 2);
    free_read2mem_menuitem_commonchar();
    x = y = 3;
    EXPECT_EQ(paint_ex("a", 2), std::tuple(0, 3, 3));
    EXPECT_EQ(traced("viewbitmap for char 'a' is NULL\n"), 1);
}

TEST_F(TextInto, ABufferIsRefusedInSilenceWithANullOrAnEmptySize)
{
    const Output output = output_of([&] {
        for (int i = 0; i < 8; i++) // each argument in its turn
            EXPECT_EQ(get_osdmenu_common_bitmap_ex(i == 0 ? nullptr : "a", i != 1, i == 2 ? nullptr : &x,
                                                   i == 3 ? nullptr : &y, i == 4 ? nullptr : buffer.data(), i != 5,
                                                   i == 6 ? -1 : 1, i != 7),
                      -1);
    });
    EXPECT_EQ(std::tuple(output.out + output.err, buffer[0], x, y), std::tuple("", 0, 0, 0));
}

TEST_F(TextInto, MarginsGivesThePensBackWrapsToTheLeftOneAndPaintsANewlineBeforeItBreaksTheLine)
{
    x = 10, y = 1;
    EXPECT_EQ(paint_in_margins("aaaabaaaaabaaaaaaa"), (23 * 40 + 29) * 2);
    EXPECT_EQ(std::tuple(byte_at(27, 3), byte_at(5, 13), byte_at(5, 23), byte_at(5, 33)), std::tuple(11, 12, 12, 0));
    EXPECT_EQ(paint_in_margins("a\nb"), (13 * 40 + 9) * 2);
    EXPECT_EQ(std::tuple(byte_at(19, 3), byte_at(5, 13)), std::tuple(89, 12));
    EXPECT_EQ(paint_in_margins("aaa\nb"), (23 * 40 + 9) * 2); // the newline also crossed the limit
    EXPECT_EQ(std::tuple(x, y), std::tuple(10, 1));
    y = 24;
    EXPECT_EQ(paint_in_margins("b"), (26 * 40 + 15) * 2); // 26 and a line of 10 pass 35
    EXPECT_NE(byte_at(15, 26), 12);
}

TEST_F(TextInto, StringsAreMeasuredInBytesAndPaintedFromTheFirstByteOfTheBuffer)
{
    EXPECT_EQ(get_string_bitmap_length("ab"), 16);
    EXPECT_EQ(get_string_bitmap_length("a\n") + get_string_bitmap_length(nullptr), -1);
    EXPECT_EQ(get_string_bitmap("ab", 10, 4, buffer.data()), -1);
    EXPECT_EQ(get_string_bitmap("ab", 10, 2, buffer.data()), 0);
    EXPECT_EQ(get_string_bitmap("$\n", 10, 2, buffer.data()), -1); // what stood before the fault stays
    EXPECT_EQ(std::tuple(buffer[67], buffer[75], buffer[80]), std::tuple(76, 12, 0));
    EXPECT_EQ(traced("pixelsize not match\n") * 10 + traced("]char not among the commonchar_string.\n\n"), 12);
    EXPECT_EQ(get_string_bitmap("ab", 40, 2, osdmenu_viewbuffer + 3188), 0); // keeps to the view buffer
    EXPECT_EQ(byte_at(39, 39), 12);
    EXPECT_EQ(get_string_bitmap("ab", 40, 2, nullptr) + get_string_bitmap(nullptr, 40, 2, nullptr), 0);
}

// A buffer of 8 by 10 pixels, and a glyph "a" that begins on its row 8.
struct RowsOutside {
    const char *name;
    unsigned height, width, stride;
    int reported;
};

class GlyphOverTheEnd : public TextInto, public testing::WithParamInterface<RowsOutside>
{
};

TEST_P(GlyphOverTheEnd, HasEachRowReportedUpTo65536)
{
    osdmenu_view_bitmap *glyph = osdmenu_commonchar_viewbitmap[10];
    *glyph = {0, GetParam().height, GetParam().width, GetParam().stride, glyph->bitmap}; // of 32 bytes
    x = 0, y = 8;
    paint_ex("a", 2);
    EXPECT_EQ(traced("copy out of bounds: dst="), GetParam().reported);
}
INSTANTIATE_TEST_SUITE_P(OfRows, GlyphOverTheEnd,
                         testing::Values(RowsOutside{"with_bytes", 4, 8, 8, 2},
                                         RowsOutside{"of_no_width", 5, 0, 8, 2}, // one stands right at the end
                                         RowsOutside{"of_no_stride", 5, 8, 0, 3},
                                         RowsOutside{"without_end", 4000000000, 0, 0, 65536}),
                         [](const auto &row) { return row.param.name; });

TEST_F(TextInto, ABufferWhoseSizeWrapsReportsTheWrappedSize)
{
    x = y = 0;
    get_osdmenu_common_bitmap_ex("a", 1, &x, &y, buffer.data(), 65536, 32768, 1);
    EXPECT_EQ(traced("copy out of bounds: dst=0, size=8, max=-2147483648\n"), 1);
}

TEST_F(TextInto, ATargetThatBeginsWhereTheViewEndsIsTheCallersOwn)
{
    std::vector<char> memory(3200 + 160); // the view, and the caller's buffer right behind it
    std::free(std::exchange(osdmenu_viewbuffer, memory.data()));
    get_string_bitmap("a", 10, 2, memory.data() + 3200);
    EXPECT_EQ(memory[3200], 11);
}
