// A menu that is tried: by words from a pipe as a person does it, and by a long session in this very process.
#include "support/tool.h"

#include <malloc.h>
#include <random>

#include "desktop/panel.h"
#include "host/streams.h"
#include "osd_menu_post.h"

struct Run : Tool {
    Run()
    {
        setenv("XDG_STATE_HOME", (dir / "state").c_str(), 1);
        unsetenv("DISPLAY"), unsetenv("WAYLAND_DISPLAY");
    }
    int build_page()
    {
        return build(menu("  - {name: top, text: Top}\n  - name: page\n    text: Page\n    items:\n"
                          "      - {name: page_title, text: Page}\n"
                          "      - {name: level, text: Level, number: {low: 0, high: 9, value: 3}}\n"
                          "      - {name: mode, text: Mode, choices: [A, B, C]}\n"));
    }
    void build_sample()
    {
        run("sed '/^  - fr$/,/^  - ar$/d; s/burst: 2/burst: 1/' " SAMPLE_MENU_DIR "/menu.yaml >m/menu.yaml; "
            "cp " SAMPLE_MENU_DIR "/osd_menu.json m; cp " SAMPLE_MENU_DIR "/po/de.po m/po; "
            "osdmenu build m/menu.yaml -o sample");
    }
};

// Runs a session in the background: keys go in by descriptor 3, what they led to comes out in `told`.
static const std::string background =
    "start() { mkfifo keys; (cd $1; exec " OSDMENU_TOOL
    " run . --display none) <keys >told 2>notes & session=$!; exec 3>keys; }; "
    "until_true() { n=0; until eval \"$1\"; do n=$((n + 1)); [ $n -lt 1200 ] || exit 9; sleep 0.05; done; }; ";

TEST_F(Run, EachKeyTellsWhereItLedAndSettingsAreThereAgainUnlessDamaged)
{
    ASSERT_EQ(build_page(), 0);
    EXPECT_EQ(run("echo 'down ok right  down right' | osdmenu run made --display none"), 0);
    EXPECT_EQ(out + err, "page  level 0  position 2 1 1 1  no value\n"
                         "level  level 1  position 2 1 1 1  value 3\n"
                         "level  level 1  position 2 1 1 1  value 4\n"
                         "mode  level 1  position 2 2 1 1  value 0 (A)\n"
                         "mode  level 1  position 2 2 1 1  value 1 (B)\n");
    run("echo 'down ok' | osdmenu run made --display none");
    EXPECT_NE(out.find("level  level 1  position 2 1 1 1  value 4\n"), std::string::npos) << out;
    run("echo 'down ok' | osdmenu run made --display none --settings s/other.json");
    EXPECT_NE(out.find("value 3"), std::string::npos) << out;
    EXPECT_EQ(run(background +
                  "start made; echo 'down ok left' >&3; until_true 'grep -q \"value 3\" told'; kill -TERM $session; "
                  "wait $session && cat state/osdmenu/made-*/settings.json"),
              0);
    EXPECT_NE(out.find("\"level\":\t3"), std::string::npos) << out;
    write("s.json", "{\"values\": {\"level\": 8}} and more");
    run("echo 'down ok right' | osdmenu run made --display none --settings s.json");
    EXPECT_NE(err.find("s.json is damaged; it is now s.json.damaged"), std::string::npos) << err;
    EXPECT_NE(read(dir / "s.json").find("\"level\":\t4"), std::string::npos);
}

static const struct {
    const char *arguments, *told;
    int status;
} refused[] = {
    {"made --display none --language xx", "no language 'xx'; known are: en", 1},
    {"made --display none", "no key 'sideways'", 1},
    {"made", "--display none", 3},
    {"made --display window", "no window can be opened", 1},
    {"made --display terminal", "no terminal", 1},
    {"nothing --display none", "nothing", 1},
    {"made --display none --settings m", "m: cannot be read", 1},
};
TEST_F(Run, WhatCannotBeDoneIsRefusedByName)
{
    build_page();
    for (const auto &[arguments, told, status] : refused) {
        EXPECT_EQ(run("echo sideways | osdmenu run " + std::string(arguments)), status) << arguments;
        EXPECT_NE(err.find(told), std::string::npos) << arguments << ": " << err;
    }
}

TEST_F(Run, LanguagesAreRememberedPicturesAreThoseOfShotsAndWhatIsDoneIsRecorded)
{
    build_sample();
    const std::string none = "osdmenu run sample --display none ";
    EXPECT_EQ(run("echo 'l b h a back p' | " + none + "--record script; sed '/^wait [0-9]*[.][0-9][0-9]$/d' script"),
              0);
    EXPECT_EQ(out.substr(out.find("language")),
              "language en\nlanguage de\nbubble Kz73Connect\nhelp on\naimode\nback\n");
    EXPECT_EQ(run("grep -c wait script; echo p | " + none + ">&2; osdmenu shot sample/de -o de.png"), 0);
    EXPECT_EQ(out, "5\n");
    EXPECT_EQ(read(dir / "osdmenu-2.png"), read(dir / "de.png"));
    run("echo p | osdmenu run sample/en --display none; osdmenu shot sample/en -o en.png");
    EXPECT_EQ(read(dir / "osdmenu-3.png"), read(dir / "en.png"));
}

TEST_F(Run, NewFilesAreTakenUpAtTheSameRowOrTheNextAboveUnlessTheyAreNotSound)
{
    build_page();
    const std::string script = R"(
        build() { sed -i "$1" m/menu.yaml; osdmenu build m/menu.yaml -o made; }
        is_resumed() { tr '\0' ' ' </proc/$session/cmdline | grep -q -e '--resume=on --resume=-1 --resume=page --resume=level '; }
        start made
        echo h down ok right >&3
        until_true 'grep -q "value 4" told'
        build s/Level/Height/
        until_true is_resumed
        echo right >&3
        until_true 'grep -q "value 5" told'
        build /Height/d
        until_true 'echo ok >&3; grep -q ^mode told'
        echo x >made/en/b.d
        until_true 'grep -q sound notes'
        echo right >&3
        until_true 'grep -q B told'
        exec 3>&-
        wait $session
        cat notes)";
    EXPECT_EQ(run(background + script), 0) << read(dir / "told") << read(dir / "notes");
    EXPECT_NE(out.find("the old menu stays.\nosdmenu: " + (fs::canonical(dir) / "made/en/b.d: byte 0").string()),
              std::string::npos)
        << out;
}

TEST_F(Run, WhatCannotBeDoneIsToldAndTheSessionGoesOn)
{
    build_page();
    EXPECT_EQ(run("touch f; echo 'A down ok right r down' | osdmenu run made --display none --settings f/s.json"), 1);
    EXPECT_NE(err.find("the menu has no page of AI modes"), std::string::npos) << err;
    EXPECT_NE(err.find("f/s.json"), std::string::npos) << err;
    EXPECT_EQ(out.find("top  level 0  position 1"), 0U) << out;
    EXPECT_NE(out.find("mode  level 1  position 2 2 1 1  value 0 (A)\n"), std::string::npos) << out;
}

TEST_F(Run, NewFilesLeaveThePageOfAiModesOpen)
{
    build_sample();
    const std::string script = R"(
        start sample
        echo down a up >&3
        until_true 'grep -q ^ai_speaker told'
        touch sample/menu.json
        until_true 'tr "\0" " " </proc/$session/cmdline | grep -q -e --resume=2'
        echo h ok >&3
        exec 3>&-
        wait $session
        tail -n 2 told)";
    EXPECT_EQ(run(background + script), 0) << read(dir / "told") << read(dir / "notes");
    EXPECT_EQ(out, "ai_speaker  level 1  position 8 4 1 1  no value\nptz  level 0  position 2 4 1 1  no value\n");
}

// Leaving the AI mode page saves at once, so that a kill hits one of many saves.
TEST_F(Run, SettingsAreWholeWheneverTheSessionIsKilled)
{
    build_sample();
    std::string notice, file = dir / "s.json";
    for (int moment = 0; moment < 40; moment++) {
        run("yes 'menu ok ok right a back' | " OSDMENU_TOOL " run sample --display none --settings s.json >told & "
            "until [ -s s.json ] && [ -s told ] || ! kill -0 $!; do sleep 0.01; done; sleep 0.00" +
            std::to_string(moment % 10) + "; kill -9 $!; wait");
        EXPECT_TRUE(read_settings(file, notice).values.contains("exposure_mode")) << moment;
        EXPECT_EQ(notice, "") << moment;
    }
}

static long resident_pages()
{
    std::string statm = read("/proc/self/statm");
    return std::stol(statm.substr(statm.find(' ')));
}

TEST_F(Run, TenThousandKeysAndAHundredLanguagesLeaveTheMemoryAsItWas)
{
    build_sample();
    Findings findings;
    MenuDirectory menu = open_menu_directory(dir / "sample", findings);
    menu.manifest.display.width = 440, menu.manifest.display.height = 290; // most pages are larger
    Session session;
    session.trace_path = dir / "trace";
    auto streams = std::make_unique<Streams>(session.trace_path);
    host.follows_language = true;
    start_host(menu, "en");
    start_session(session);
    const std::vector<std::string> keys = {"up",   "down", "down", "left", "right", "ok", "ok",
                                           "back", "menu", "b",    "h",    "a",     "i",  "?"};
    std::mt19937 random(20);
    mallopt(M_MMAP_THRESHOLD, 1 << 17); // large blocks go when they are freed, so that none of them counts
    long warm = 0, stuck = 0, largest_trace = 0;
    for (int i = 0; i < 10000; i++) {
        press_key(session, keys[random() % keys.size()]);
        warm = i == 2000 ? resident_pages() : warm;
        if (i % 100 != 99)
            continue;
        const std::string language = host.language;
        press_key(session, "l");
        stuck += host.language == language || panel_lines(session, 20, true).size() != 20 ? 1 : 0;
        Streams::keep_trace_below(1 << 20);
        largest_trace = std::max(largest_trace, static_cast<long>(fs::file_size(session.trace_path)));
    }
    streams.reset(); // what follows is told on standard output
    EXPECT_EQ(stuck, 0);
    EXPECT_LE(largest_trace, 1 << 20);
#ifndef __SANITIZE_ADDRESS__ // which keeps what is freed
    EXPECT_LT(resident_pages() - warm, 64);
#endif
}
