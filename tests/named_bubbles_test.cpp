// Bubble lines by name: placed in the view, or as a packed block at the start of the buffer, for three messages with
// the accessory's name in it. A name without a bubble line becomes a text. A line of text is 96 pixels high.
#include <climits>

#include "core/line_walks.h"
#include "support/faults.h"

static const ResourceDirectory directory;

struct NamedBubble : testing::Test {
    int width = -1, height = -1;

    NamedBubble()
    {
        const Picture picture = {48, 400, '^'};
        std::vector<Line> lines = {{"wide", picture}, {"wide", {60, 600, '|'}}, {"kz73connect", {17, 402, '^'}}};
        lines.insert(lines.end(), {{"RestarKz73", picture}, {"Kz73Connect", {2, 40, '^'}}});
        directory.write_lines(lines, true);
        output_of([] { read2mem_bubbleline(directory.path().c_str()); });
        prepare_view(directory, 880, 580);
        set_kz73_name("ABCDE");
    }
};

static const struct Bubble {
    const char *name, *bubble;
    int x, y, down;
    std::tuple<long, int, int, std::string> block; // its first byte, its size, and what stands in it
} bubbles[] = {
    {"of_a_bubble_line", "wide", 10, 4, 6, {0, 288, 64, "[^]@80,4(200x48)"}},
    {"above_the_block", "wide", 10, -4, 6, {0, 288, 64, "[^]@80,0(200x44)"}},
    {"of_multiples_of_16", "kz73connect", 4, 15, 0, {0, 280, 32, "[^]@77,15(201x17)"}},
    {"of_a_row_more", "kz73connect", 4, 16, 0, {0, 280, 48, "[^]@77,16(201x17)"}},
    {"with_a_name", "RestarKz73", 10, 4, 6, {0, 400, 64, "A@40,4 B@44,4 C@48,4 D@52,4 E@56,4 [^]@195,4(200x48)"}},
    {"with_no_room_for_a_name", "Kz73Connect", 0, 13, 0, {0, 216, 16, "[^]@190,13(20x2)"}},
    {"far_below", "wide", 10, INT_MAX, 6, {0, 288, -2147483584, "[^]@80,0(200x47)"}},
    {"of_a_text", "ab", 10, 4, 6, {7360, 4, 4, "a@160,4 b@164,4"}},
    {"of_a_text_far_below", "Kz73Disconnect", 10, 1000, 6, {1760780, 4, 4, ""}},
    {"of_nothing", nullptr, 10, 4, 6, {7360, -1, -1, ""}},
};
CASES(BlockOfABubble, NamedBubble, bubbles);

TEST_P(BlockOfABubble, IsAlignedAndHoldsItBetweenItsMargins)
{
    const auto &[name, bubble, x, y, down, block] = GetParam();
    const char *at = osdmenu_get_bubbleline_byname_with_wh(bubble, x, y, down, &width, &height);
    const int pitch = at == osdmenu_viewbuffer ? width : 880;
    const std::string look = blocks_in({osdmenu_viewbuffer, osdmenu_viewbuffer + 880 * 580 * 2}, pitch);
    EXPECT_EQ(std::tuple(at - osdmenu_viewbuffer, width, height, look), block);
}

TEST_P(BlockOfABubble, LeavesTheSizeOfTheViewAsItWas)
{
    osdmenu_get_bubbleline_byname_with_wh(GetParam().bubble, GetParam().x, GetParam().y, 0, &width, &height);
    EXPECT_EQ(std::pair(osdmenu_viewarea_width, osdmenu_viewarea_height), std::pair(880, 580));
}

TEST_F(NamedBubble, ClearsNothingBehindItsBlock)
{
    std::memset(osdmenu_viewbuffer, '|', 73730); // of which the block takes the first 73728
    osdmenu_get_bubbleline_byname_with_wh("wide", 10, 4, 6, nullptr, nullptr);
    EXPECT_EQ(blocks_in({osdmenu_viewbuffer, 73730}, 288), "[^]@80,4(200x48) [|]@0,128(1x1)");
}

TEST_F(NamedBubble, HasRoomForANameWithoutATerminator)
{
    std::memset(kz73_name, 'A', 32);
    osdmenu_get_bubbleline_byname_with_wh("Kz73Connect", 10, 4, 6, &width, &height);
    EXPECT_EQ(width, 848);
}

TEST_F(NamedBubble, IsOneLineOfTextHighInTheView)
{
    std::memset(osdmenu_viewbuffer, '|', 880 * 580 * 2);
    const char *at = osdmenu_get_bubbleline_byname("wide", 10, 5, &height);
    EXPECT_EQ(std::tuple(at - osdmenu_viewbuffer, height, blocks_in_view()), std::tuple(8820, 101, "[^]@10,5(200x48)"));
}

TEST_F(NamedBubble, IsATextInTheViewWithoutABubbleLine)
{
    const char *at = osdmenu_get_bubbleline_byname("a\nb", 10, 5, &height);
    EXPECT_EQ(std::tuple(at - osdmenu_viewbuffer, height, blocks_in_view()), std::tuple(8820, 197, "a@10,5 b@10,101"));
}

TEST_F(NamedBubble, TellsOfItsRowsInTheView)
{
    const void *pixels = bubbleline_byname("Kz73Connect")->viewbitmap.bitmap;
    const auto above = [] { osdmenu_get_bubbleline_byname("Kz73Connect", 10, -1, nullptr); };
    EXPECT_EQ(printed_by("osdmenu_get_bubbleline_byname", above),
              "INFO out\nERR bubble:line height:2 width:40 pitch:1760 bitmap:" + testing::PrintToString(pixels) +
                  "\nERR dst:20 src:40 size:40\n");
}

static const struct BareRows {
    const char *name;
    Picture picture;
    int traced;
} bare[] = {
    {"five_rows", {5, 0}, 5},
    {"endless_rows", {4000000000, 0}, 65536},
    {"pixels_that_found_no_memory", {65537, 65535}, 65536},
};
CASES(BubbleWithoutPixels, NamedBubble, bare);

TEST_P(BubbleWithoutPixels, TracesEachOfItsRowsUpTo65536)
{
    directory.write("bm.d", meta_of(Line{"bare", GetParam().picture}, true));
    directory.write("bb.d", text_of("bare") + text_of("line"));
    output_of([] { read2mem_bubbleline(directory.path().c_str()); });
    const auto place = [&] { osdmenu_get_bubbleline_byname_with_wh("bare", 0, 0, 0, &width, &height); };
    EXPECT_EQ(lines_with(output_of(place).out, "] dst:"), GetParam().traced);
}
