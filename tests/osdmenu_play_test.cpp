// Scripts in, what they prove out.
#include "support/tool.h"

#include <algorithm>
#include <chrono>

#include "render/png.h"
#include "script/script.h"

struct Play : Tool {
    // A top list in two languages, with a page below one row.
    void build_rows(const std::string &first_row, const std::string &second_row = "")
    {
        const std::string page = "  - {name: sound, text: Sound, items: [{name: sound_title, text: S}, "
                                 "{name: volume, text: V}, {name: tone, text: T}]}\n  - {name: last, text: L}\n";
        const std::string light = "  - {name: light, text: " + first_row + ", number: {high: 9, value: 4}}\n";
        std::string text = menu(light + second_row + page, "bubbles: [{name: saved, text: Saved}]\n");
        write("m/menu.yaml", text.replace(text.find("[en]"), 4, "[en, de]"));
        run("osdmenu build m/menu.yaml -o made");
    }
    int play(const std::string &script, const std::string &options = "")
    {
        write("a.osd", script);
        return run("osdmenu play a.osd made " + options);
    }
    bool tells(const std::string &text) const
    {
        return out.find(text) != out.npos;
    }
};

// A line, the column and the fault, the cure.
static const char *const wrong_lines[][3] = {
    {"donw", "1: error: 'donw' is no statement", "did you mean 'down'?"},
    {"down ok sideways # up", "9: error: 'sideways' is no key", "known are: up down left right ok back menu"},
    {"wait 1,5", "6: error: '1,5' is no number of seconds", "write: wait SECONDS"},
    {"language dee", "10: error: 'dee' is no language of this menu", "did you mean 'de'?"},
    {"aimode on", "8: error: 'on' is too much", "write: aimode"},
    {"enable lihgt", "8: error: 'lihgt' is no item of this menu", "did you mean 'light'?"},
    {"bubble light", "8: error: 'light' is no bubble of this menu", "known are: saved"},
    {"  expect", "9: error: no word that belongs here follows", "known are: item value"},
    {"expect itme light", "8: error: 'itme' is no word", "did you mean 'item'?"},
    {"expect value light 1.5", "20: error: '1.5' is no whole number", "write: expect value ITEM NUMBER"},
    {"page ../\x1b[31m", "6: error: '../\\x1b[31m' is no name for a file", "write: page NAME"},
};
TEST_F(Play, EveryWrongLineIsToldWithItsColumnAndACureAndNothingIsRun)
{
    build_rows("Light");
    std::string script = "page first # fine\r\n";
    for (const auto &[line, fault, cure] : wrong_lines)
        script.append(line).append("\n");
    EXPECT_EQ(play(script, "--record"), 1);
    EXPECT_TRUE(out.empty() && !fs::exists(dir / "a-pages")) << out;
    int number = 1;
    for (const auto &[line, fault, cure] : wrong_lines) {
        const size_t at = err.find("a.osd:" + std::to_string(++number) + ":" + fault);
        ASSERT_NE(at, err.npos) << line << "\n" << err;
        EXPECT_EQ(err.find(std::string("      = ") + cure, at), err.find("      = ", at)) << line << "\n" << err;
    }
    for (const char *call : {"m made", "a.osd made --record --verify", "a.osd made --failures ./a-pages/"})
        EXPECT_EQ(run(std::string("osdmenu play ") + call), 2) << call;
}

// What a statement leads to, beside the keys and options of a shot that lead to the same page.
static const char *const pages[][2] = {
    {"up up\nleft\ndisable camera\nenable camera", "--keys 'up up left'"},
    {"goto exposure_mode\nback down menu\nbubble preset_saved", ""},
    {"goto backlight\nright", "--keys 'ok ok down down right'"},
    {"ok\nhelp on", "--helpline --keys ok"},
    {"help on\nhelp off\ndisable camera", "--disable camera"},
    {"information", "--open information"},
    {"aimode", "--enable aimodeselection --open aimodeselection"},
    {"down down\nlanguage de", "--keys 'down down'"},
};
TEST_F(Play, EachStatementDoesWhatItSays)
{
    run("sed '/^  - fr$/,/^  - ar$/d' " SAMPLE_MENU_DIR "/menu.yaml >m/menu.yaml; cp -r " SAMPLE_MENU_DIR
        "/po " SAMPLE_MENU_DIR "/osd_menu.json m; osdmenu build m/menu.yaml -o made");
    for (const auto &[statements, shot] : pages) {
        std::string language = std::string(statements).find("language de") == std::string::npos ? "en" : "de";
        EXPECT_EQ(play(std::string(statements) + "\npage p\n", "--record"), 0) << statements << out << err;
        run("osdmenu shot made/" + language + " -o shot.png " + shot);
        EXPECT_TRUE(read(dir / "a-pages" / language / "p.png") == read(dir / "shot.png")) << statements;
    }
}

TEST_F(Play, WhatIsExpectedIsToldWithWhatIsThereAndTheRunGoesOn)
{
    build_rows("Light");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(play("expect item light\nright right\nexpect value light 6\ngoto volume\nwait 0.25\nwait 86400\n"), 0);
    EXPECT_EQ(out, "4 keys, 0 pages, 86400.25 s of virtual time: all as expected\n");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::minutes(1)); // and not a day
    const std::string wrong = "expect item sound\ngoto tone\nexpect item volume\nexpect value light -4\n";
    EXPECT_EQ(play(wrong + "page p\npage p\ndisable volume\ngoto volume\npage q\n"), 1);
    EXPECT_EQ(out, "a.osd:1: expected item sound, found light in the top list\n"
                   "a.osd:3: expected item volume, found tone on the page of sound\n"
                   "a.osd:4: expected light to be -4, found 4\n"
                   "a.osd:6: page p (en): line 5 has a picture of this name\n"
                   "a.osd:8: goto volume: no key leads to 'volume'; the script ends here\n"
                   "3 keys, 1 page, 0 s of virtual time: 5 failures\n");
    for (const std::string settings : {R"({"values": {"light": 7}, "texts": {}})", "{"}) {
        write("s.json", settings);
        EXPECT_EQ(play("expect value light 7\nright", "--settings s.json"), settings == "{" ? 2 : 0) << out << err;
        EXPECT_EQ(read(dir / "s.json"), settings);
    }
}

TEST_F(Play, NamesMayHoldBlanksAndNoPictureTakesThePlaceOfAnother)
{
    build(menu("  - {name: my row, text: A}\n  - {name: '#2', text: B}\n",
               "bubbles: [{name: a/b, text: X}, {name: a_b, text: Y}]\n"));
    EXPECT_EQ(play("expect item \"my row\"\ngoto \"#2\"\npage \"a page\"\nbubble a/b\nbubble a/b\nbubble a_b\n"), 1);
    EXPECT_EQ(out, "a.osd:6: page bubble-a_b (en): line 4 has a picture of this name\n"
                   "1 key, 2 pages, 0 s of virtual time: 1 failure\n");
    EXPECT_EQ(play("aimode\n"), 1);
    EXPECT_TRUE(tells("a.osd:1: aimode: the menu has no page of AI modes")) << out;
}

static const std::string tour = "goto sound\nexpect item sound\npage rows #1\nlanguage de\npage rows\nbubble saved\n";

TEST_F(Play, AChangedTextIsFoundAtItsFirstPixelAndShownBesideItsReference)
{
    build_rows("Light");
    EXPECT_EQ(play(tour, "--verify"), 1);
    EXPECT_TRUE(tells("a.osd:3: page rows (en): there is no reference a-pages/en/rows.png; --record")) << out;
    EXPECT_EQ(play(tour, "--record") + play(tour, "--verify"), 0) << out;
    const Image before = read_png(dir / "a-pages/en/rows.png");
    build_rows("Lighter");
    EXPECT_EQ(play(tour, "--record --references now"), 0) << out;
    const Image now = read_png(dir / "now/en/rows.png");
    const auto [is, was] = std::mismatch(now.pixels.begin(), now.pixels.end(), before.pixels.begin());
    const int at = static_cast<int>(is - now.pixels.begin()), x = at % now.width, y = at / now.width;
    const std::string place = std::to_string(x) + "," + std::to_string(y), colour = colour_text(*is);
    EXPECT_EQ(play(tour, "--verify"), 1);
    EXPECT_TRUE(tells("a.osd:3: page rows (en): pixel " + place + " is " + colour + ", the reference has ")) << out;
    EXPECT_TRUE(tells(", see a-failures/en/rows.png\n") && tells(": 2 failures\n")) << out;
    const Image shown = read_png(dir / "a-failures/en/rows.png");
    const int second = (shown.width - now.width) / 2;
    EXPECT_TRUE(shown.row(y)[x] == *is && shown.row(y)[second + x] == *was);
    EXPECT_EQ(colour_text(shown.row(y)[2 * second + x]), "#ff0040");
    EXPECT_NE(colour_text(shown.row(0)[2 * second]), "#ff0040");
    EXPECT_EQ(play(tour, "--verify --failures a.osd"), 1); // which is no directory
    EXPECT_TRUE(tells(": pixel " + place + " is ") && tells("cannot be written to a.osd/en/rows.png")) << out;
}

TEST_F(Play, CompareNeverFailsAndUpdateRenewsWhatDiffersAndLosesNothing)
{
    build_rows("Light");
    EXPECT_EQ(play(tour, "--record"), 0) << out;
    build_rows("Light", "  - {name: between, text: Between}\n");
    const std::string before = read(dir / "a-pages/en/rows.png");
    write("a-pages/de/old.png", "");
    write("a-pages/de/bubble-saved.png", "no picture");
    EXPECT_EQ(play(tour, "--compare"), 0) << out;
    EXPECT_TRUE(tells("2 keys, 3 pages, 0 s of virtual time: 3 differences")) << out;
    EXPECT_TRUE(tells("bubble-saved.png: Not a PNG file") && fs::exists(dir / "a-failures/en/rows.png")) << out;
    EXPECT_EQ(play(tour + "expect item light\n", "--update"), 1);
    EXPECT_TRUE(tells("a-pages: nothing is written") && read(dir / "a-pages/en/rows.png") == before) << out;
    EXPECT_EQ(play(tour, "--update"), 0) << out;
    EXPECT_TRUE(tells("en/rows.png: written") && tells("de/bubble-saved.png: written")) << out;
    EXPECT_TRUE(tells("a-pages/de/old.png: the script has no such picture") && fs::exists(dir / "a-pages/de/old.png"));
    EXPECT_TRUE(play(tour, "--verify") == 0 && !fs::exists(dir / "a-failures/en/rows.png")) << out;
    EXPECT_EQ(run("cp a-pages/de/bubble-saved.png a-pages/en/rows.png; osdmenu play a.osd made --verify"), 1);
    EXPECT_TRUE(tells("the page is 1760 x 1160, the reference 264 x 112, see ")) << out;
}

TEST_F(Play, HelpAndTheGuideListTheStatements)
{
    EXPECT_EQ(run("osdmenu play --help"), 0);
    for (const std::string &text : {out, read(SAMPLE_MENU_DIR "/../../docs/scripts.md")})
        EXPECT_NE(text.find("\n" + statement_list()), text.npos);
}
