// Messages of one or more lines, painted from glyphs of 4 by 4 pixels on a view of 60 rows that they clear first. A
// line of text is 12 pixels high, and glyph i of the bank holds the byte i + 1: "a" shows as 11, a space as 89.
#include <algorithm>
#include <climits>
#include <gtest/gtest.h>

#include "support/host.h"

static const ResourceDirectory directory;
static int width = -1, height = -1;
static const auto painted = [] { return 12000 - std::count(osdmenu_viewbuffer, osdmenu_viewbuffer + 12000, '\0'); };

static void prepare()
{
    osdmenu_fontsize_init2(12, 1);
    std::free(osdmenu_viewbuffer);
    prepare_view(directory, 100, 60);
    std::fill_n(osdmenu_viewbuffer, 12000, '\x77');
}

TEST(TextBubble, ClearsTheViewAndCountsItsLinesByTheTextHeightAndThePadUpToTheBottom)
{
    EXPECT_EQ(get_osdmenu_bubble("a\nb", 10, 5), nullptr); // there is no view yet
    // At the bottom a line that would just fit is refused, and the pad does not count.
    for (const auto &[text, pad, y, glyphs, last_line, bottom] :
         {std::tuple{"", 0, 5, 0, 5, 17}, std::tuple{"a\n\nb", 0, 5, 2, 29, 41}, std::tuple{"a\n", 0, 5, 1, 5, 29},
          std::tuple{"a\nb", 0, 36, 1, 36, 48}, std::tuple{"a\nb\nb", 0, 35, 2, 47, 59},
          std::tuple{"a\nb", 3, 33, 1, 33, 48}, std::tuple{"a\nb", 3, 32, 2, 47, 62}}) {
        prepare();
        const long at = get_osdmenu_bubble_linepad(text, 10, y, pad, &height) - osdmenu_viewbuffer;
        osdmenu_get_bubble_multiline(text, 10, y, pad, &width);
        EXPECT_EQ(std::tuple(at, height, width, painted(), byte_at(10, last_line)),
                  std::tuple(y * 200 + 20, bottom, bottom, glyphs * 32, glyphs == 2 ? 12 : glyphs * 11));
    }
}

TEST(TextBubble, ShowsASpaceForEveryCharacterOutsideTheTableAndReportsItsLastGlyph)
{
    prepare();
    set_trace_level(3);
    EXPECT_EQ(get_osdmenu_bubble2_with_wh("\n", 10, 5, &(width = -1), &height), osdmenu_viewbuffer + 1020);
    EXPECT_EQ(width, -1);
    get_osdmenu_bubble2_with_wh("a\xFF$", 0, 0, nullptr, nullptr);
    EXPECT_EQ(std::tuple(byte_at(3, 3), byte_at(4, 0), byte_at(8, 0)), std::tuple(11, 89, 76));
    EXPECT_EQ(traced("]char[0xff] not among the commonchar_string,replaced by space\n"), 1);
    directory.write("c.d", glyph_bank(4, 8).substr(0, 56 * 12) + block_of({3, 6, 13}, 10)); // another "c"
    output_of([] { read2mem_menuitem_commonchar(directory.path().c_str()); });
    get_osdmenu_bubble2_with_wh("aaaa\nbc\n", 10, 5, &width, &height);
    EXPECT_EQ(std::tuple(width, height), std::tuple(3, 3));
}

TEST(TextBubble, RunsOnIntoTheNextRowAtTheRightEdgeAndNeverLeavesTheBuffer)
{
    prepare();
    get_osdmenu_bubble("a", 98, 5);
    EXPECT_EQ(byte_at(0, 6), 11);
    get_osdmenu_bubble("a", 98, 59);
    EXPECT_EQ(painted(), 4);
    for (int far : {INT_MIN, INT_MAX})
        get_osdmenu_bubble_linepad("a\nb", far, far, far, nullptr);
    free_read2mem_menuitem_commonchar(); // characters without a glyph are skipped
    EXPECT_EQ(get_osdmenu_bubble("a", 10, 5), get_osdmenu_bubble(nullptr, 10, 5));
    EXPECT_EQ(painted(), 0);
}
