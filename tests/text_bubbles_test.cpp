// Messages of one or more lines, painted from glyphs of 4 by 4 pixels on a view that they clear first. A line of text
// is 12 pixels high, and glyph i of the bank holds the byte i + 1: "a" shows as 11, a space as 89.
#include <algorithm>
#include <climits>
#include <gtest/gtest.h>

#include "support/host.h"

static const ResourceDirectory directory;
static int height = -1;

static void prepare(int rows)
{
    osdmenu_fontsize_init2(12, 1);
    std::free(osdmenu_viewbuffer);
    prepare_view(directory, 100, rows);
    std::fill_n(osdmenu_viewbuffer, rows * 200, '\x77');
}

static long painted_bytes(int rows)
{
    return rows * 200 - std::count(osdmenu_viewbuffer, osdmenu_viewbuffer + rows * 200, '\0');
}

TEST(TextBubble, ClearsTheViewAndReturnsWhereItsTextStarts)
{
    EXPECT_EQ(get_osdmenu_bubble("a\nb", 10, 5), nullptr); // there is no view yet
    prepare(60);
    EXPECT_EQ(get_osdmenu_bubble("ab", 10, 5), osdmenu_viewbuffer + 1020);
    EXPECT_EQ(byte_at(13, 8), 11);
    EXPECT_EQ(painted_bytes(60), 64);
}

TEST(TextBubble, CountsItsLinesByTheTextHeightAndThePadUpToTheBottom)
{
    static const struct {
        const char *text;
        int pad, rows, glyphs, second_line, height;
    } cases[] = {{"", 0, 60, 0, 5, 17},      {"a\nb", 0, 60, 2, 17, 29},    {"a\n\nb", 0, 60, 2, 29, 41}, // 60 rows
                 {"a\n", 0, 60, 1, 5, 29},   {"", 3, 60, 0, 5, 20},         {"a\nb", 3, 60, 2, 20, 35},
                 {"a\nb", 0, 29, 1, 5, 17},  {"a\nb\nb", 0, 30, 2, 17, 29}, // a line that would just fit is refused
                 {"a\nb", 3, 33, 2, 20, 35}, {"a\nb", 3, 32, 1, 5, 20}};    // and the pad does not count there
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.text) + " padded by " + std::to_string(c.pad));
        prepare(c.rows);
        EXPECT_EQ(get_osdmenu_bubble_linepad(c.text, 10, 5, c.pad, &height), osdmenu_viewbuffer + 1020);
        EXPECT_EQ(height, c.height);
        EXPECT_EQ(painted_bytes(c.rows), c.glyphs * 32);
        EXPECT_EQ(byte_at(10, c.second_line), c.glyphs == 2 ? 12 : c.glyphs * 11);
        osdmenu_get_bubble_multiline(c.text, 10, 5, c.pad, &(height = 0));
        EXPECT_EQ(height, c.height);
    }
}

TEST(TextBubble, ShowsASpaceForEveryCharacterOutsideTheTable)
{
    prepare(60);
    set_trace_level(3);
    get_osdmenu_bubble("a\x01\xFF$", 0, 0);
    EXPECT_EQ(byte_at(8, 0), 89);
    EXPECT_EQ(byte_at(12, 0), 76);
    EXPECT_EQ(traced("]char[0x1] not among the commonchar_string,replaced by space\n"), 1);
    EXPECT_EQ(traced("]char[0xff] not among the commonchar_string,replaced by space\n"), 1);
}

TEST(TextBubble, ReportsTheSizeOfItsLastGlyph)
{
    prepare(60);
    directory.write("c.d", glyph_bank(4, 8).substr(0, 56 * 12) + block_of({3, 6, 13}, 10)); // "c" is the last glyph
    output_of([] { read2mem_menuitem_commonchar(directory.path().c_str()); });
    int width = -1;
    EXPECT_EQ(get_osdmenu_bubble2_with_wh("\n", 10, 5, &width, &height), osdmenu_viewbuffer + 1020);
    EXPECT_EQ(width, -1);
    get_osdmenu_bubble2_with_wh("aaaa\nbc\n", 10, 5, &width, &height);
    EXPECT_EQ(width * 10 + height, 33);
    get_osdmenu_bubble2_with_wh("ca", 10, 5, nullptr, nullptr);
    EXPECT_EQ(byte_at(13, 5), 11);
}

TEST(TextBubble, RunsOnIntoTheNextRowAtTheRightEdgeAndNeverLeavesTheBuffer)
{
    prepare(60);
    get_osdmenu_bubble("a", 98, 5);
    EXPECT_EQ(byte_at(0, 6), 11);
    get_osdmenu_bubble("a", 98, 59);
    EXPECT_EQ(painted_bytes(60), 4);
    for (int far : {INT_MIN, INT_MAX})
        get_osdmenu_bubble_linepad("a\nb", far, far, far, nullptr);
    free_read2mem_menuitem_commonchar(); // characters without a glyph are skipped
    EXPECT_EQ(get_osdmenu_bubble("a", 10, 5), osdmenu_viewbuffer + 1020);
    EXPECT_EQ(get_osdmenu_bubble(nullptr, 10, 5), osdmenu_viewbuffer + 1020);
    EXPECT_EQ(painted_bytes(60), 0);
}
