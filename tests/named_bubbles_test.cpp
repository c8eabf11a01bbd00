// Bubble lines by name: placed in the view, or as a packed block at the start of the buffer, for three messages with
// the accessory's name in it. A name without a bubble line becomes a text. border() joins the bytes on both sides.
#include <climits>
#include <gtest/gtest.h>

#include "core/layout.h"
#include "support/host.h"

static const ResourceDirectory directory;
static Output output;
static int width = -1, height = -1;

struct NamedBubble : testing::Test {
    NamedBubble()
    {
        const Picture picture = {48, 400, 0x31};
        std::vector<Line> lines = {{"wide", picture}, {"wide", {60, 600}}, {"kz73connect", picture}};
        lines.insert(lines.end(), {{"RestarKz73", picture}, {"Kz73Connect", {2, 40}}});
        directory.write_lines(lines, true);
        output_of([] { read2mem_bubbleline(directory.path().c_str()); });
        prepare_view(directory, 880, 580);
        std::memset(osdmenu_viewbuffer, 0x77, 880 * 580 * 2);
        set_kz73_name("ABCDE");
    }
};

// Where the result stands in the buffer, and its size. The size of the view is afterwards what it was before.
static std::tuple<long, int, int> block(const char *name, int x, int y, int down)
{
    char *at = nullptr;
    output = output_of([&] { at = osdmenu_get_bubbleline_byname_with_wh(name, x, y, down, &width, &height); });
    EXPECT_EQ(std::tuple(osdmenu_viewarea_width, osdmenu_viewarea_height), std::tuple(880, 580));
    return {at - osdmenu_viewbuffer, width, height};
}

static const auto border = [](int at) { return (osdmenu_viewbuffer[at - 1] << 8) + osdmenu_viewbuffer[at]; };

TEST_F(NamedBubble, IsPackedIntoAnAlignedBlockAndClearsNothingBehindIt)
{
    EXPECT_EQ(block("wide", 10, 4, 6), std::tuple(0, 288, 64));
    EXPECT_EQ(std::tuple(border(2464), border(29936), border(30112), border(73728)), std::tuple(0x31, 0x3100, 0, 0x77));
    EXPECT_EQ(lines_with(output.out, "DBG_INFO:named_bubbles.cpp osdmenu_get_bubbleline_byname_with_wh["), 50);
    EXPECT_EQ(block("kz73connect", 13, 16, 0), std::tuple(0, 288, 64)); // case counts; multiples of 16 do not grow
    block("wide", 10, -4, 6);
    EXPECT_EQ(border(160), 0x0031); // rows above the block are dropped
}

struct BareRows {
    const char *name;
    Picture picture;
    int traced;
};

class BubbleWithoutPixels : public NamedBubble, public testing::WithParamInterface<BareRows>
{
};

TEST_P(BubbleWithoutPixels, TracesEachOfItsRowsUpTo65536)
{
    directory.write("bm.d", meta_of(Line{"bare", GetParam().picture}, true));
    directory.write("bb.d", text_of("bare") + text_of("line"));
    output_of([] { read2mem_bubbleline(directory.path().c_str()); });
    block("bare", 0, 0, 0);
    EXPECT_EQ(lines_with(output.out, "] dst:"), GetParam().traced);
}
INSTANTIATE_TEST_SUITE_P(Of, BubbleWithoutPixels,
                         testing::Values(BareRows{"five_rows", {5, 0}, 5},
                                         BareRows{"endless_rows", {4000000000, 0}, 65536},
                                         BareRows{"pixels_that_found_no_memory", {65537, 65535}, 65536}),
                         [](const auto &row) { return row.param.name; });

TEST_F(NamedBubble, HoldsTheAccessorysNameUpToTheEdgesOfTheBlock)
{
    EXPECT_EQ(block("RestarKz73", 10, 4, 6), std::tuple(0, 400, 64));
    EXPECT_EQ(std::tuple(border(3590), border(3280), border(5720)), std::tuple(0x0031, 0x0025, 0x2900));
    EXPECT_EQ(block("Kz73Connect", 0, 14, 0), std::tuple(0, 216, 16));
    EXPECT_EQ(lines_with(output.err, "Text exceeds screen height"), 1);
    std::memset(kz73_name, 'A', 32); // a host may leave no room for a terminator
    EXPECT_EQ(block("Kz73Connect", 10, 4, 6), std::tuple(0, 848, 16));
}

TEST_F(NamedBubble, IsPlacedInTheViewOneLineOfTextHighAndWithoutARecordPaintedAsText)
{
    char *at = nullptr;
    output = output_of([&] { at = osdmenu_get_bubbleline_byname("wide", 10, 5, &height); });
    EXPECT_EQ(std::tuple(at - osdmenu_viewbuffer, height, border(91940)), std::tuple(8820, 101, 0x3100));
    EXPECT_EQ(lines_with(output.err, "DBG_ERR:named_bubbles.cpp osdmenu_get_bubbleline_byname["), 49);
    output_of([] { osdmenu_get_bubbleline_byname("a\nb", 10, 5, &height); });
    EXPECT_EQ(height, 197);
    EXPECT_EQ(block("ab", 10, 4, 6), std::tuple((4 * 880 + 160) * 2, 4, 4));
    EXPECT_EQ(block("Kz73Disconnect", 10, 4, 6), std::tuple((4 * 880 + 390) * 2, 4, 4));
    EXPECT_EQ(lines_with(output.err, "Text exceeds screen width"), 1); // the view was one glyph wide
}

TEST_F(NamedBubble, TakesNullAndAnyNumberWithoutLeavingTheBuffer)
{
    for (int x : {INT_MIN, -300, 700000, INT_MAX})
        for (int y : {INT_MIN, -20, 575, INT_MAX})
            for (const char *name : {"wide", "RestarKz73", "text", static_cast<const char *>(nullptr)})
                output_of([&] {
                    osdmenu_get_bubbleline_byname(name, x, y, nullptr);
                    osdmenu_get_bubbleline_byname_with_wh(name, x, y, y, x < 0 ? nullptr : &width, nullptr);
                });
}
