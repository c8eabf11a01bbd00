// The three composers of messages. Tokens are line breaks, bubble lines by name, and texts of glyphs of 4 by 4 pixels;
// a line of text is 96 pixels high. The view is of 1000 by 1160 pixels, and the buffer has room for wider rows.
#include "support/host.h"

static const struct Composer {
    const char *name;
    char *(*compose)(char **tokens, int count, osd_bubble_para *para);
    int pitch;                                    // of its rows, in pixels
    std::tuple<long, int, int> result_and_limits; // of a message at (6, 4)
    int last_break;                               // the top of the last line of one at (0, 900)
} composers[] = {
    {"multiline", osdmenu_get_bubbleline_byname_multiline, 1100, {31012, 870, 1140}, 1016},
    {"multiline_2", osdmenu_get_bubbleline_byname_multiline_2, 1200, {0, 930, 1135}, 1011},
    {"multiline_2_en", osdmenu_get_bubbleline_byname_multiline_2_en, 1200, {0, 930, 1135}, 1011},
};
static const Composer &multiline = composers[0], &multiline_2 = composers[1], &multiline_2_en = composers[2];

using Tokens = std::vector<const char *>;

struct Composite : testing::Test {
    osd_bubble_para para = {0, 0, -1, -1};

    Composite()
    {
        const ResourceDirectory directory;
        prepare_view(directory, 1760, 1160);
        directory.write_lines({{"[red]", {2, 16, 'r'}}, {"[blue]", {2, 20, 'b'}}, {"[wide]", {2, 2000, 'w'}}}, true);
        output_of([&] { read2mem_bubbleline(directory.path().c_str()); });
        std::memset(osdmenu_viewbuffer, 0x77, 1760 * 1160 * 2);
        osdmenu_viewarea_width = 1000;
    }
    char *compose(const Composer &composer, Tokens tokens, int x, int y)
    {
        para.start_x = x, para.start_y = y;
        return composer.compose(const_cast<char **>(tokens.data()), static_cast<int>(tokens.size()), &para);
    }
};

CASES(EachComposer, Composite, composers);

TEST_P(EachComposer, HandsBackItsMessageWithItsLimits)
{
    para.start_x = 6, para.start_y = 4;
    const char *result = GetParam().compose(nullptr, 5, &para);
    EXPECT_EQ(std::tuple(result - osdmenu_viewbuffer, para.view_width_max, para.view_height_max),
              GetParam().result_and_limits);
}

TEST_P(EachComposer, ReportsTheTopOfTheLastLineThatFoundRoom)
{
    compose(GetParam(), {"\n", "\n"}, 0, 900);
    EXPECT_EQ(para.view_height_max, GetParam().last_break);
}

TEST_P(EachComposer, LeavesTheWidthOfTheViewAsItWas)
{
    compose(GetParam(), {"[red]"}, 0, 0);
    EXPECT_EQ(osdmenu_viewarea_width, 1000);
}

TEST_P(EachComposer, NeedsParameters)
{
    EXPECT_EQ(GetParam().compose(nullptr, 0, nullptr), nullptr);
}

static const Tokens red = {"[red]"}, lines = {"[red]", "\n", "[blue]"}, text = {"abc"}, wide = {"[wide]", "[red]"},
                    bubbles = {"[red]", nullptr, "[blue]", "[red]"}, gap = {"[red]", "[wide]", "[blue]", "[red]"},
                    mixed = {"[red]", "ab", "[blue]", "[red]"};
// The pen does not follow a text; the write position does, but in multiline_2. Where a bubble finds no room, it stays.
static const struct Message {
    const char *name;
    const Composer &composer;
    Tokens tokens;
    int x, y;
    const char *look;
} messages[] = {
    {"of_bubbles", multiline, bubbles, 6, 4, "[r]@106,14(8x2) [b]@114,14(10x2) [r]@124,14(8x2)"},
    {"of_two_lines", multiline, lines, 6, 4, "[r]@106,14(8x2) [b]@106,120(10x2)"},
    {"of_two_lines_at_the_bottom_margin", multiline_2, lines, 0, 928, "[r]@80,933(8x2) [b]@80,1039(10x2)"},
    {"of_two_lines_over_the_bottom_margin", multiline_2_en, lines, 0, 929, "[r]@80,934(8x2)"},
    {"wider_than_a_line", multiline_2, wide, 6, 4, "[w]@86,105(1000x2) [r]@86,201(8x2)"},
    {"wider_than_the_last_line", multiline_2_en, gap, 0, 939, "[r]@80,944(8x2) [b]@88,944(10x2) [r]@90,1040(8x2)"},
    {"at_the_right_margin", multiline, red, 762, 0, "[r]@862,10(8x2)"},
    {"over_the_right_margin", multiline_2_en, red, 823, 0, "[r]@903,101(8x2)"},
    {"with_a_text_of_multiline", multiline, mixed, 6, 4,
     "[r]@106,14(8x2) [r]@124,14(8x2) a@214,24 b@218,24 [b]@222,24(10x2)"},
    {"with_a_text_of_multiline_2", multiline_2, mixed, 6, 4,
     "a@104,4 b@108,4 [r]@86,9(8x2) [r]@104,9(8x2) [b]@129,9(10x2)"},
    {"with_a_text_of_multiline_2_en", multiline_2_en, mixed, 6, 4, // on which the second red one lies
     "[r]@86,9(8x2) [r]@104,9(8x2) [b]@112,9(10x2) a@104,11(4x2) b@108,11(4x2)"},
    {"of_a_text_between_margins_of_multiline", multiline, text, 766, 960, "a@966,980 b@970,980 c@100,1060"},
    {"of_a_text_between_margins_of_multiline_2", multiline_2, text, 1086, 1000, "a@1176,1000 b@1180,1000 c@10,1080"},
    {"of_a_text_between_margins_of_multiline_2_en", multiline_2_en, text, 1086, 990, "a@1176,995 b@1180,995 c@10,1075"},
};
CASES(ComposedMessage, Composite, messages);

TEST_P(ComposedMessage, StandsInAClearedBuffer)
{
    compose(GetParam().composer, GetParam().tokens, GetParam().x, GetParam().y);
    osdmenu_viewarea_width = GetParam().composer.pitch;
    EXPECT_EQ(blocks_in_view(), GetParam().look);
}
