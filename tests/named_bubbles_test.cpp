// Bubble lines by name: placed in the view, or as a packed block of their own at the start of the buffer, for three
// messages with the accessory's name in it. A name without a bubble line becomes a text.
#include <algorithm>
#include <climits>
#include <gtest/gtest.h>

#include "core/layout.h"
#include "support/host.h"

static Output output;
static int width = -1;
static int height = -1;

static void prepare()
{
    const ResourceDirectory directory;
    osdmenu_fontsize_init(1);
    prepare_view(directory, 880, 580);
    std::fill_n(osdmenu_viewbuffer, 880 * 580 * 2, '\x77');
    const Picture picture = {48, 400, 0x31};
    std::vector<Line> lines = {{"wide", picture}, {"wide", {60, 600}}, {"kz73connect", picture}};
    lines.insert(lines.end(), {{"RestarKz73", picture}, {"Kz73Connect", {2, 40}}});
    directory.write_lines(lines, true);
    output_of([&] { read2mem_bubbleline(directory.path().c_str()); });
    set_kz73_name("ABCDE");
}

// Where the result stands in the buffer. Whatever the bubble, the size of the view is afterwards what it was before.
static long block(const char *name, int x, int y, int down)
{
    char *at = nullptr;
    output = output_of([&] { at = osdmenu_get_bubbleline_byname_with_wh(name, x, y, down, &width, &height); });
    EXPECT_EQ(osdmenu_viewarea_width * 1000 + osdmenu_viewarea_height, 880580);
    return at - osdmenu_viewbuffer;
}

// The left and the right neighbour of the border before an offset, as two digits of 16 bits.
static int border(int offset)
{
    return (osdmenu_viewbuffer[offset - 1] << 8) + osdmenu_viewbuffer[offset];
}

TEST(NamedBubble, IsPackedIntoAnAlignedBlockAndClearsNothingBehindIt)
{
    prepare();
    EXPECT_EQ(block("wide", 10, 4, 6), 0);
    EXPECT_EQ(width * 1000 + height, 288064);
    EXPECT_EQ(border(4 * 576 + 160), 0x0031);
    EXPECT_EQ(border(51 * 576 + 560), 0x3100);
    EXPECT_EQ(border(52 * 576 + 160), 0);
    EXPECT_EQ(border(73728), 0x0077);
    EXPECT_EQ(lines_with(output.out, "DBG_INFO:named_bubbles.cpp osdmenu_get_bubbleline_byname_with_wh["), 50);
    EXPECT_EQ(block("wide", 13, 16, 0), 0); // sizes that are multiples of 16 do not grow
    EXPECT_EQ(width * 1000 + height, 288064);
    EXPECT_EQ(block("kz73connect", 10, 4, 6), 0); // case counts: an ordinary name
    EXPECT_EQ(border(4 * 576 + 160), 0x0031);
}

TEST(NamedBubble, HoldsTheAccessorysNameUpToTheEdgesOfTheBlock)
{
    prepare();
    EXPECT_EQ(block("RestarKz73", 10, 4, 6), 0);
    EXPECT_EQ(width, 400);
    EXPECT_EQ(border(4 * 800 + 390), 0x0031);
    EXPECT_EQ(border(4 * 800 + 80), 0x0025);
    EXPECT_EQ(border(7 * 800 + 120), 0x2900);
    EXPECT_EQ(block("Kz73Connect", 0, 14, 0), 0);
    EXPECT_EQ(height, 16);
    EXPECT_EQ(lines_with(output.err, "Text exceeds screen height"), 1);
    std::fill_n(kz73_name, 32, 'A'); // a host may leave no room for a terminator
    block("Kz73Connect", 10, 4, 6);
    EXPECT_EQ(width, 848);
}

TEST(NamedBubble, WithoutARecordIsATextBesideTheMargin)
{
    prepare();
    EXPECT_EQ(block("ab", 10, 4, 6), (4 * 880 + 160) * 2);
    EXPECT_EQ(width * 1000 + height, 4004);
    EXPECT_EQ(byte_at(164, 4), 12);
    EXPECT_EQ(block("Kz73Disconnect", 10, 4, 6), (4 * 880 + 390) * 2);
    EXPECT_EQ(lines_with(output.err, "Text exceeds screen width"), 1); // the view was one glyph wide
}

TEST(NamedBubble, IsPlacedInTheViewByItsFirstRecord)
{
    prepare();
    output = output_of([] {
        EXPECT_EQ(osdmenu_get_bubbleline_byname("wide", 10, 5, &height), osdmenu_viewbuffer + (5 * 880 + 10) * 2);
    });
    EXPECT_EQ(height, 53); // one line of text, whatever the height of the picture
    EXPECT_EQ(border((52 * 880 + 210) * 2), 0x3100);
    EXPECT_EQ(lines_with(output.err, "DBG_ERR:named_bubbles.cpp osdmenu_get_bubbleline_byname["), 49);
    output_of([] { osdmenu_get_bubbleline_byname("a\nb", 10, 5, &height); });
    EXPECT_EQ(height, 101);
}

TEST(NamedBubble, TakesNullAndAnyNumberWithoutLeavingTheBuffer)
{
    prepare();
    for (int x : {INT_MIN, -300, 700000, INT_MAX})
        for (int y : {INT_MIN, -20, 575, INT_MAX})
            for (const char *name : {"wide", "RestarKz73", "text", static_cast<const char *>(nullptr)}) {
                block(name, x, y, y);
                output_of([&] { osdmenu_get_bubbleline_byname(name, x, y, nullptr); });
                output_of([&] { osdmenu_get_bubbleline_byname_with_wh(name, x, y, 0, nullptr, nullptr); });
            }
    EXPECT_EQ(block("wide", 10, -4, 6), 0);
    EXPECT_EQ(border(160), 0x0031); // rows above the block are dropped
}

TEST(NamedBubble, WhosePixelsFoundNoMemoryIsAnEmptyBlockWithoutRows)
{
    prepare();
    const ResourceDirectory directory;
    directory.write("bm.d", meta_of(Line{"huge", {65537, 65535}}, true));
    directory.write("bb.d", text_of("huge") + text_of("line"));
    output_of([&] { read2mem_bubbleline(directory.path().c_str()); });
    EXPECT_EQ(block("huge", 0, 0, 0), 0);
    EXPECT_EQ(lines_with(output.out, "DBG_INFO:"), 2);
}
