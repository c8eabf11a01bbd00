// Help lines by name, the classic block, and the eighteen layouts at the foot of a page. Every part is two rows of two
// pixels in a byte of its own: u, r, d and l stand for the symbols, s, c, e, m and 0 for "select" to "menu0".
#include "support/faults.h"

static const std::string part_names = "urdlscem0";
static const ResourceDirectory directory;

static void prepare_help(int width, int height)
{
    prepare_view(directory, width, height);
    std::vector<Line> lines;
    for (const char *name : {"select", "change", "enter", "menu", "menu0"})
        lines.push_back({name, {2, 4, static_cast<char>(0xA4 + lines.size())}});
    load_lines(directory, lines, false);
}

// What a painter leaves of an empty view: the rows in which parts begin, and their columns, as in "872 u96 d168".
static std::string parts_of(const std::function<void()> &painter)
{
    osdmenu_viewbuffer_fill_background();
    output_of(painter);
    const auto part_at = [](int x, int y) { return x < 0 || y < 0 ? 0 : byte_at(x, y); };
    std::string parts;
    for (int y = 0; y < osdmenu_viewbuffer_size / 2 / osdmenu_viewarea_width; y++) {
        std::string row;
        for (int x = 0; x < osdmenu_viewarea_width; x++)
            if (int part = part_at(x, y); part >= 0xA0 && part_at(x - 1, y) != part && part_at(x, y - 1) != part)
                row += std::string(" ") + part_names.at(static_cast<std::size_t>(part - 0xA0)) + std::to_string(x);
        if (!row.empty())
            parts += (parts.empty() ? "" : ", ") + std::to_string(y) + row;
    }
    return parts;
}

// The same of the help block, while an item of that name is current.
static std::string block_for(const char *name)
{
    std::string own_name = name ? name : "";
    osdmenu_item item = {};
    item.name = name ? own_name.data() : nullptr;
    osdmenu_current_menuitem = &item;
    return parts_of(osdmenu_draw_meeting_camera_helpline);
}

static std::string line_for(const char *name)
{
    load_lines(directory, {{"menu", {3, 8, '\xA4'}}, {"menu0", {9, 9}}, {"menu", {1, 4, '\xA5'}}}, false);
    return parts_of([name] { EXPECT_EQ(osdmenu_draw_helpline_byname(10, 5, name), 0); });
}

TEST(HelpLine, IsPaintedForEveryRecordOfItsNameWithTheLastOnTop)
{
    prepare_view(directory, 40, 20);
    EXPECT_EQ(line_for("menu"), "5 c10 s12, 6 s10");
}

TEST(HelpLine, IsKnownByItsWholeNameAlone)
{
    prepare_view(directory, 40, 20);
    for (const char *name : {"men", "menu1", "Menu", "", static_cast<const char *>(nullptr)})
        EXPECT_EQ(line_for(name), "") << (name ? name : "null");
}

TEST(ClassicBlock, KeepsThePitchOfTheBaseSizeWhateverTheBurst)
{
    osdmenu_fontsize_init(2);
    prepare_help(1760, 1300);
    EXPECT_EQ(parts_of(osdmenu_draw_helpline), "1100 u100 d148 s196, 1178 l100 r148 c196, 1256 e100");
}

TEST(ClassicBlock, TellsOfEachOfItsLines)
{
    const std::string own = "INFO osdmenu_draw_helpline: ", by_name = "INFO osdmenu_draw_helpline_byname: ";
    const std::string line = by_name + "help line:line\n" + by_name + "out\n";
    prepare_help(4, 4);
    EXPECT_EQ(printed([] { EXPECT_EQ(osdmenu_draw_helpline(), 0); }),
              own + "enter..\n" + line + line + line + own + "out\n");
}

TEST(HelpBlock, HasEighteenLayouts)
{
    const char *const layouts[] = {
        "872 u96 d168 s264, 968 l96 r168 c264, 1064 m72",
        "968 u96 d168 s264, 1064 m72",
        "872 l96 r168 c264, 968 e72, 1064 m72",
        "872 u96 d168 s264, 968 e72, 1064 m72",
        "776 u96 d168 s264, 872 l96 r168 c264, 968 e72, 1064 m72",
        "968 e72, 1064 m72",
        "968 u96 d152 s248 l864 r936 c1032, 1064 m72",
        "968 l96 r168 c264, 1064 m72",
        "968 u96 d152 s248 l864 r936 c1032, 1064 e72 m864",
        "968 u96 d152 s248, 1064 e72 m864",
        "1064 e72 m864",
        "1064 m72",
        "689 u96 d168 s264, 804 e72, 919 m72, 1034 072",
        "574 u96 d168 s283, 689 l96 r168 c264, 804 e72, 919 m72, 1034 072",
        "804 e72, 919 072, 1034 m72",
        "689 u96 d168 s283, 804 l96 r168 c264, 919 m72, 1034 072",
        "919 072, 1034 m72",
        "804 l96 r168 c264, 919 m72, 1034 072",
        "", // there is no layout 18
    };
    std::string config = R"({"helpline_type": {"any": 0)";
    for (int i = 0; i <= 18; i++)
        config += ", \"" + std::to_string(i) + "\": " + std::to_string(i);
    configure(directory, config + "}}");
    prepare_help(1760, 1160);
    for (int i = 0; i <= 18; i++)
        EXPECT_EQ(block_for(std::to_string(i).c_str()), layouts[i]) << i;
}

TEST(LayoutOfAnItem, IsThatOfItsEntryElseTheDefault)
{
    configure(directory,
              R"({"helpline_default": 11, "helpline_type": {"listed": 5, "LISTED": 7, "text": "7", "negative": -1}})");
    prepare_help(400, 400);
    for (auto [name, parts] : {std::pair{"listed", "208 e72, 304 m72"},
                               {"not listed", "304 m72"},
                               {"text", "304 m72"},
                               {"negative", ""},
                               {nullptr, "304 m72"}})
        EXPECT_EQ(block_for(name), parts) << (name ? name : "null");
}

TEST(LayoutOfAnItem, Is0WithoutAConfiguration)
{
    prepare_help(400, 400);
    EXPECT_EQ(block_for("any"), "112 u96 d168 s264, 208 l96 r168 c264, 304 m72");
}

TEST(HelpBlock, RoundsEverySumOnItsOwn)
{
    configure(directory, R"({"helpline_default": 13})");
    osdmenu_fontsize_init2(94, 2);
    prepare_help(1760, 1160);
    EXPECT_EQ(block_for("any"), "28 u187 d327 s551, 252 l187 r327 c514, 476 e140, 700 m140, 924 0140");
}

// The offset of the least row wraps to that of row 0: the rounding of the next row tells the two apart.
TEST(HelpBlock, StandsAtRow0WhereItsRowLeaves32Bits)
{
    configure(directory, R"({"helpline_default": 13})");
    prepare_help(40, 60);
    for (auto [text_size, height, parts] :
         {std::tuple{5, -2147483602, "0 u6 d10 s17, 8 l6 r10 c16, 16 e4, 24 m4, 32 04"}, // the least that fits
          {5, -2147483603, "0 u6 d10 s17, 7 l6 r10 c16, 14 e4, 21 m4, 28 04"},
          {-5, 2147483622, "0 s23 d30 u34"}}) { // one more than fits; all other parts lie above row 0
        FT_OSD_FONT_SIZE = text_size;
        osdmenu_viewarea_height = height;
        EXPECT_EQ(block_for("any"), parts) << height;
    }
}

TEST(HelpBlock, IsNotThereWithoutACurrentItem)
{
    prepare_help(1760, 1160);
    EXPECT_EQ(parts_of(osdmenu_draw_meeting_camera_helpline), "");
}

TEST(HelpBlock, LiesOverTheRowsOfAPageWhileItIsSwitchedOn)
{
    prepare_help(1760, 1160);
    load_menu(directory, {{"tall", {0}, {1100, 200, 0x44}}});
    for (auto [status, painted] : {std::pair{0, 0x44}, {5, 0xA0}, {0, 0x44}}) {
        osdmenu_meeting_camera_helpline_enable(status);
        redraw();
        EXPECT_EQ(byte_at(96, 872), painted) << status;
    }
}
