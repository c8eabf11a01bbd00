// The three composers of messages, side by side: tokens are line breaks, bubble lines by name, and texts of glyphs that
// are 4 by 4 pixels. Each composer has a row pitch of its own, whatever the view has.
#include <algorithm>
#include <climits>
#include <gtest/gtest.h>

#include "core/layout.h"
#include "support/host.h"

static const struct {
    char *(*compose)(char **, int, osd_bubble_para *);
    int pitch, result;             // the result in bytes from the start of the buffer
    int x, y, width, height;       // first pen position, and the extent reported
    int text_x, text_y, behind_ab; // where a text lands, and a bubble behind the text "ab"
    int behind_y, wrap_x, wrapped; // its row; the column of a wrapped text, and the number of the glyph there
    int text_bottom;               // what a text, 80 high, must not pass
} composers[] = {
    {osdmenu_get_bubbleline_byname_multiline, 1100, 22200, 100, 10, 1630, 1140, 200, 20, 208, 20, 100, 193, 1140},
    {osdmenu_get_bubbleline_byname_multiline_2, 1200, 0, 80, 5, 1690, 1135, 90, 0, 115, 5, 10, 273, 1160},
    {osdmenu_get_bubbleline_byname_multiline_2_en, 1200, 0, 80, 5, 1690, 1135, 90, 5, 98, 5, 10, 273, 1155},
};

// A message of one composer, in a view of 1760 by 1160 with lines of text 96 high.
class Composite : public testing::TestWithParam<int>
{
  protected:
    decltype(composers[0]) &composer = composers[GetParam()];
    osd_bubble_para para = {0, 0, -1, -1};

    void SetUp() override
    {
        const ResourceDirectory directory;
        osdmenu_fontsize_init(2);
        prepare_view(directory, 1760, 1160);
        directory.write_lines({{"[red]", {2, 16, 0x61}}, {"[blue]", {2, 20, 0x62}}, {"[wide]", {2, 3200, 0x63}}}, true);
        output_of([&] { read2mem_bubbleline(directory.path().c_str()); });
    }

    void compose(std::vector<const char *> tokens)
    {
        std::fill_n(osdmenu_viewbuffer, 1760 * 1160 * 2, '\x77');
        output_of([&] {
            char **array = const_cast<char **>(tokens.data());
            char *result = composer.compose(array, static_cast<int>(tokens.size()), &para);
            EXPECT_EQ(result - osdmenu_viewbuffer, composer.result + (composer.result ? para.start_y * 2200 : 0));
        });
        EXPECT_EQ(osdmenu_viewarea_width, 1760);
    }

    int at(int x, int y)
    {
        return osdmenu_viewbuffer[(y * composer.pitch + x) * 2];
    }
};
INSTANTIATE_TEST_SUITE_P(OfEachComposer, Composite, testing::Values(0, 1, 2));

TEST_P(Composite, ReportsItsLimitsAndClearsTheViewForAnEmptyMessage)
{
    compose({});
    EXPECT_EQ(para.view_width_max, composer.width);
    EXPECT_EQ(para.view_height_max, composer.height);
    EXPECT_EQ(std::count(osdmenu_viewbuffer, osdmenu_viewbuffer + 1760 * 1160 * 2, '\0'), 1760 * 1160 * 2);
    output_of([&] {
        composer.compose(nullptr, 5, &para);
        composer.compose(nullptr, INT_MIN, &para);
        EXPECT_EQ(composer.compose(nullptr, 0, nullptr), nullptr);
    });
}

TEST_P(Composite, SetsBubblesSideBySideAndBreaksLinesAtATextHeightAnd10)
{
    compose({"[red]", nullptr, "[blue]", "\n", "[red]"});
    EXPECT_EQ(at(composer.x, composer.y), 0x61);
    EXPECT_EQ(at(composer.x + 8, composer.y), 0x62);
    EXPECT_EQ(at(composer.x, composer.y + 106), 0x61);
    EXPECT_EQ(para.view_height_max, composer.y + 106);
}

TEST_P(Composite, WrapsABubbleByTheTextHeightAloneEvenAtTheStartOfALine)
{
    compose({"[wide]", "[red]"});
    EXPECT_EQ(at(composer.x, composer.y), 0);
    EXPECT_EQ(at(composer.x, composer.y + 96), 0x63);
    EXPECT_EQ(at(composer.x, composer.y + 192), 0x61);
    EXPECT_EQ(para.view_height_max, composer.height);
}

TEST_P(Composite, EndsAtALineBreakWithoutRoomBelow)
{
    para.start_y = 900;
    compose({"\n", "[red]", "\n", "[blue]"});
    EXPECT_EQ(at(composer.x, composer.y + 1006), 0x61);
    EXPECT_EQ(at(composer.x + 8, composer.y + 1006), 0);
    EXPECT_EQ(para.view_height_max, composer.y + 1006);
}

TEST_P(Composite, DropsABubbleThatFindsNoRoomBelowAndKeepsTheWritePosition)
{
    para.start_y = 1000;
    compose({"[red]", "[wide]", "[blue]", "[red]"});
    EXPECT_EQ(at(composer.x + 8, composer.y + 1000), 0x62); // where the wide one would have gone
    EXPECT_EQ(at(composer.x + 10, composer.y + 1096), 0x61);
}

TEST_P(Composite, SetsATextBesideThePenWhichDoesNotFollow)
{
    compose({"[red]", "ab", "[blue]", "[red]"});
    EXPECT_EQ(at(composer.text_x + 8, composer.text_y + 3), 11);
    EXPECT_EQ(at(composer.text_x + 12, composer.text_y + 3), 12);
    EXPECT_EQ(at(composer.behind_ab + 8, composer.behind_y), 0x62);
    EXPECT_EQ(at(composer.x + 18, composer.y), 0x61);
    compose({"", "[red]"}); // a text of no characters moves the write position all the same
    EXPECT_EQ(at(composer.behind_ab - (GetParam() == 1 ? 0 : 8), composer.behind_y), 0x61);
}

TEST_P(Composite, WrapsATextAtItsOwnMarginsByTheScaledSize)
{
    const std::string text = std::string(static_cast<std::size_t>(composer.wrapped), 'a') + "bc";
    compose({text.c_str(), "\n", "[red]"});
    EXPECT_EQ(at(composer.text_x + 4 * composer.wrapped - 4, composer.text_y), 11);
    EXPECT_EQ(at(composer.wrap_x, composer.text_y + 80), 12);
    EXPECT_EQ(at(composer.x, composer.y + 106), 0x61);
}

TEST_P(Composite, StopsATextThatWouldPassItsOwnBottomMargin)
{
    for (int beyond : {0, 1}) {
        para.start_y = composer.text_bottom - 80 - composer.text_y + beyond;
        compose({"a"});
        EXPECT_EQ(at(composer.text_x, composer.text_bottom - 80 + beyond), beyond ? 0 : 11);
    }
}
