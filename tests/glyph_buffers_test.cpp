// The painters of text into a place of the caller's choice, and the measure. Glyphs are 4 by 4 pixels: "a" shows as 11.
#include <climits>
#include <cstring>
#include <gtest/gtest.h>

#include "support/host.h"

static int x, y;

static void prepare()
{
    const ResourceDirectory directory;
    osdmenu_fontsize_init2(12, 1); // lines of text are 10 pixels apart
    prepare_view(directory, 40, 40);
    set_trace_level(7);
}

// Paints at a byte of the view buffer, and returns how far the write position moved.
static long paint(const char *msg, int msg_max, int pen, int offset)
{
    char *to = osdmenu_viewbuffer + offset;
    x = pen;
    get_osdmenu_common_bitmap(msg, msg_max, &x, &to);
    return to - (osdmenu_viewbuffer + offset);
}

static int paint_ex(const char *msg, std::vector<char> &buffer, int width, int height, int pixelsize = 2)
{
    const int length = static_cast<int>(std::strlen(msg));
    return get_osdmenu_common_bitmap_ex(msg, length, &x, &y, buffer.data(), width, height, pixelsize);
}

// Paints inside margins of 2, 3, 5 and 7 and returns where the write position stands, in bytes.
static long paint_in_margins(const char *msg, int msg_max)
{
    char *to = nullptr;
    get_osdmenu_common_bitmap_with_margin(msg, msg_max, &x, &y, &to, 40, 40, 2, 3, 5, 7);
    return to - osdmenu_viewbuffer;
}

TEST(CommonBitmap, TakesExactlyTheCharactersAskedForAndStopsWithItsPenBeyondTheRightEdge)
{
    prepare();
    EXPECT_EQ(paint("a\0$", 3, 28, 0), 24);
    EXPECT_EQ(x, 40);
    EXPECT_EQ(byte_at(4, 0), 89);
    EXPECT_EQ(byte_at(8, 0), 76);
    EXPECT_EQ(traced("]char[0x0] not among the commonchar_string,replaced by space\n"), 1);
    EXPECT_EQ(paint("abcd", 4, 30, 3000), 16);
    EXPECT_EQ(x, 42);
    EXPECT_EQ(traced("exceed the maximum with of row, cur_x:42, max_w:40"), 1);
    Output output = output_of([] { get_osdmenu_common_bitmap("ab", 1, nullptr, nullptr); });
    EXPECT_EQ(lines_with(output.err, "DBG_ERR:glyph_buffers.cpp get_osdmenu_common_bitmap["), 1);
    for (int offset : {-4, 3196, INT_MIN, INT_MAX})
        EXPECT_EQ(paint("a", 1, 0, offset), 8);
    EXPECT_EQ(byte_at(38, 39), 11); // the part of it that lies in the buffer
}

TEST(CommonBitmapEx, PaintsEachGlyphBehindTheOneBeforeAndWrapsByTheGlyphsOwnHeight)
{
    prepare();
    std::vector<char> buffer(160);
    EXPECT_EQ(paint_ex("a", buffer, 10, 8) + paint_ex("bcde", buffer, 10, 8), 0);
    for (int i = 0; i < 4; i++)
        EXPECT_EQ(buffer[static_cast<std::size_t>(i / 2 * 80 + i % 2 * 8)], 11 + i);
    EXPECT_EQ(x * 100 + y, 408); // the wrap that found no room moved the pens
    EXPECT_EQ(traced("exceed the maximum height of buffer, cur_y:12, max_h:8"), 1);
    x = y = 0;
    paint_ex("\xFF", buffer, 10, 8, 1); // the bytes of a glyph are copied whatever a pixel is
    EXPECT_EQ(x, 8);
    EXPECT_EQ(buffer[10], 89);
    EXPECT_EQ(traced("char[0xff] not among the commonchar_string, replaced by space\n"), 1);
}

TEST(CommonBitmapEx, LeavesOutTheRowsBeyondTheBufferOneByOne)
{
    prepare();
    std::vector<char> buffer(120);
    y = 4;
    EXPECT_EQ(paint_ex("a", buffer, 10, 6), 0);
    EXPECT_EQ(buffer[100], 11);
    EXPECT_EQ(traced("copy out of bounds: dst=120, size=8, max=120"), 1);
    EXPECT_EQ(traced("copy out of bounds"), 2);
    for (int far : {INT_MIN, -2, INT_MAX})
        paint_ex("ab", buffer, 10, x = y = far);
    free_read2mem_menuitem_commonchar();
    x = 3;
    EXPECT_EQ(paint_ex("a", buffer, 10, 6) + x, 3);
    EXPECT_EQ(traced("viewbitmap for char 'a' is NULL\n"), 1);
}

TEST(CommonBitmapEx, RefusesNullAndEmptySizesInSilence)
{
    prepare();
    char to = 0x77;
    Output output = output_of([&] {
        for (int i = 0; i < 8; i++) // each argument in its turn
            EXPECT_EQ(get_osdmenu_common_bitmap_ex(i == 0 ? nullptr : "a", i != 1, i == 2 ? nullptr : &x,
                                                   i == 3 ? nullptr : &y, i == 4 ? nullptr : &to, i != 5,
                                                   i == 6 ? -1 : 1, i != 7),
                      -1)
                << i;
    });
    EXPECT_EQ(output.out + output.err, "");
    EXPECT_EQ(to * 100 + x + y, 0x77 * 100);
}

TEST(CommonBitmapWithMargin, GivesThePensBackAndWrapsToTheLeftMargin)
{
    prepare();
    x = 10, y = 1;
    EXPECT_EQ(paint_in_margins("aaaabaaaaabaaaaaaa", 18), (23 * 40 + 29) * 2);
    EXPECT_EQ(x * 100 + y, 1001);
    EXPECT_EQ(byte_at(27, 3), 11); // crosses the limit, and is painted
    EXPECT_EQ(byte_at(5, 13), 12);
    EXPECT_EQ(byte_at(5, 23), 12);
    EXPECT_EQ(byte_at(5, 33), 0);
    EXPECT_EQ(paint_in_margins("", 0), (3 * 40 + 15) * 2);
    y = 24;
    EXPECT_EQ(paint_in_margins("b", 1), (26 * 40 + 15) * 2); // 26 and a line of 10 pass 35
    EXPECT_NE(byte_at(15, 26), 12);
}

TEST(CommonBitmapWithMargin, PaintsANewlineAndThenBreaksTheLine)
{
    prepare();
    x = 10, y = 1;
    EXPECT_EQ(paint_in_margins("a\nb", 3), (13 * 40 + 9) * 2);
    EXPECT_EQ(byte_at(19, 3), 89);
    EXPECT_EQ(byte_at(5, 13), 12);
    EXPECT_EQ(paint_in_margins("aaa\nb", 5), (23 * 40 + 9) * 2); // the newline also crossed the limit
}

TEST(StringBitmap, IsMeasuredInBytesAndPaintedFromTheFirstByteOfTheBuffer)
{
    prepare();
    EXPECT_EQ(get_string_bitmap_length("ab"), 16);
    EXPECT_EQ(get_string_bitmap_length("") + get_string_bitmap_length(nullptr), 0);
    EXPECT_EQ(get_string_bitmap_length("a\n"), -1);
    std::vector<char> buffer(80);
    EXPECT_EQ(get_string_bitmap("ab", 10, 4, buffer.data()), -1);
    EXPECT_EQ(traced("pixelsize not match\n"), 1);
    EXPECT_EQ(buffer, std::vector<char>(80));
    EXPECT_EQ(get_string_bitmap("ab", 10, 2, buffer.data()), 0);
    EXPECT_EQ(buffer[67] * 100 + buffer[75], 1112);
    EXPECT_EQ(get_string_bitmap("$\n", 10, 2, buffer.data()), -1);
    EXPECT_EQ(buffer[0], 76); // what stood before the fault stays
    EXPECT_EQ(traced("]char not among the commonchar_string.\n\n"), 2);
    EXPECT_EQ(get_string_bitmap("ab", 40, 2, osdmenu_viewbuffer + 3188), 0); // keeps to the view buffer
    EXPECT_EQ(byte_at(39, 39), 12);
    EXPECT_EQ(get_string_bitmap("ab", 40, 2, nullptr) + get_string_bitmap(nullptr, 40, 2, nullptr), 0);
}
