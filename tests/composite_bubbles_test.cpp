// The three composers of messages, side by side, in a view of 1760 by 1160 with lines of text 96 high. Tokens are line
// breaks, bubble lines by name, and texts of glyphs of 4 by 4 pixels. Each composer has a row pitch of its own.
#include <climits>
#include <gtest/gtest.h>

#include "core/layout.h"
#include "support/host.h"

static const struct {
    char *(*compose)(char **, int, osd_bubble_para *);
    int pitch, result, x, y, width, height; // the result in bytes, the first pen position, and the extent reported
    int text_x, text_y, behind_x, behind_y; // from there on: where a text lands, and a bubble behind the text "ab"
    int wrap_x, wrapped, last_start;        // a text's second line, its glyph there, and the last start that fits one
} composers[] = {
    {osdmenu_get_bubbleline_byname_multiline, 1100, 22200, 100, 10, 1630, 1140, 100, 10, 108, 10, 0, 193, 1040},
    {osdmenu_get_bubbleline_byname_multiline_2, 1200, 0, 80, 5, 1690, 1135, 10, -5, 35, 0, -70, 273, 1080},
    {osdmenu_get_bubbleline_byname_multiline_2_en, 1200, 0, 80, 5, 1690, 1135, 10, 0, 18, 0, -70, 273, 1070},
};

struct Composite : testing::TestWithParam<int> {
    decltype(composers[0]) &composer = composers[GetParam()];
    osd_bubble_para para = {0, 0, -1, -1};

    Composite()
    {
        const ResourceDirectory directory;
        prepare_view(directory, 1760, 1160);
        directory.write_lines({{"[red]", {2, 16, 0x61}}, {"[blue]", {2, 20, 0x62}}, {"[wide]", {2, 3200, 0x63}}}, true);
        output_of([&] { read2mem_bubbleline(directory.path().c_str()); });
    }

    void compose(std::vector<const char *> tokens)
    {
        std::memset(osdmenu_viewbuffer, 0x77, 1760 * 1160 * 2);
        char **array = const_cast<char **>(tokens.data()), *result = nullptr;
        output_of([&] { result = composer.compose(array, static_cast<int>(tokens.size()), &para); });
        EXPECT_EQ(result - osdmenu_viewbuffer, composer.result + (composer.result ? para.start_y * 2200 : 0));
        EXPECT_EQ(osdmenu_viewarea_width, 1760);
    }

    int at(int x, int y) // from the first pen position
    {
        return osdmenu_viewbuffer[((composer.y + para.start_y + y) * composer.pitch + composer.x + x) * 2];
    }
};
INSTANTIATE_TEST_SUITE_P(OfEachComposer, Composite, testing::Values(0, 1, 2));

TEST_P(Composite, ReportsItsLimitsAndClearsTheViewForAnEmptyMessage)
{
    compose({});
    EXPECT_EQ(std::tuple(para.view_width_max, para.view_height_max), std::tuple(composer.width, composer.height));
    EXPECT_EQ(std::string(osdmenu_viewbuffer, 1760 * 1160 * 2).find_first_not_of('\0'), std::string::npos);
    output_of([&] { composer.compose(nullptr, 5, &para); });
    output_of([&] { EXPECT_EQ(composer.compose(nullptr, INT_MIN, nullptr), nullptr); });
}

TEST_P(Composite, SetsBubblesSideBySideAndBreaksLinesAtATextHeightAnd10WhileThereIsRoomBelow)
{
    para.start_y = 900;
    compose({"[red]", nullptr, "[blue]", "\n", "[red]", "\n", "[blue]"});
    EXPECT_EQ(std::tuple(at(0, 0), at(8, 0), at(0, 106), at(8, 106)), std::tuple(0x61, 0x62, 0x61, 0));
    EXPECT_EQ(para.view_height_max, composer.y + 1006);
}

TEST_P(Composite, WrapsABubbleByTheTextHeightAloneAndDropsOneThatFindsNoRoomBelow)
{
    compose({"[wide]", "[red]"}); // even at the start of a line
    EXPECT_EQ(std::tuple(at(0, 0), at(0, 96), at(0, 192)), std::tuple(0, 0x63, 0x61));
    EXPECT_EQ(para.view_height_max, composer.height);
    para.start_y = 1000;
    compose({"[red]", "[wide]", "[blue]", "[red]"}); // the write position stays where the wide one would have gone
    EXPECT_EQ(std::tuple(at(8, 0), at(10, 96)), std::tuple(0x62, 0x61));
}

TEST_P(Composite, SetsATextBesideThePenWhichDoesNotFollow)
{
    compose({"[red]", "ab", "[blue]", "[red]"});
    EXPECT_EQ(at(composer.text_x + 8, composer.text_y + 3) * 100 + at(composer.text_x + 12, composer.text_y + 3), 1112);
    EXPECT_EQ(std::tuple(at(composer.behind_x + 8, composer.behind_y), at(18, 0)), std::tuple(0x62, 0x61));
    compose({"", "[red]"}); // a text of no characters moves the write position all the same
    EXPECT_EQ(at(composer.behind_x - (GetParam() == 1 ? 0 : 8), composer.behind_y), 0x61);
}

TEST_P(Composite, WrapsATextAtItsOwnMarginsByTheScaledSizeDownToItsOwnBottomMargin)
{
    const std::string text = std::string(static_cast<std::size_t>(composer.wrapped), 'a') + "bc";
    compose({text.c_str(), "\n", "[red]"});
    EXPECT_EQ(at(composer.text_x + 4 * composer.wrapped - 4, composer.text_y), 11);
    EXPECT_EQ(std::tuple(at(composer.wrap_x, composer.text_y + 80), at(0, 106)), std::tuple(12, 0x61));
    for (int beyond : {0, 1}) {
        para.start_y = composer.last_start + beyond;
        compose({"a"});
        EXPECT_EQ(at(composer.text_x, composer.text_y), beyond ? 0 : 11);
    }
}
