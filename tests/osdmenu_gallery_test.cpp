// Compiled menus in, a web page and pictures of strings out; what the page does is tried in a browser by gallery.sh.
#include "gallery/pictures.h"
#include "host/host.h"
#include "render/png.h"
#include "support/tool.h"
#include "walk/walk.h"

// Two pages, a row with choices, one hidden, and a message.
static const std::string rows = "  - {name: zoom, text: Zoom, choices: [Near, Far], value: Far}\n"
                                "  - {name: secret, text: Secret, enabled: false}\n"
                                "  - name: page\n    text: Page\n    items:\n"
                                "      - {name: page_title, text: Page}\n"
                                "      - {name: speed, text: Speed, number: {low: 0, high: 3, value: 2}}\n";
static const std::string message = "bubbles:\n  - {name: saved, text: Saved}\n  - {name: zoom, text: Zoomed}\n";
static const std::string hidden =
    "  - {name: aimodeselection, text: A, items: [{name: a_title, text: T}, {name: a1, text: A}]}\n"
    "  - name: dark\n    text: D\n    enabled: false\n    items:\n"
    "      - {name: dark_title, text: T}\n"
    "      - {name: deep, text: E, items: [{name: e_title, text: T}, {name: e1, text: E}]}\n"
    "  - {name: last, text: L}\n";

struct Gallery : Tool {
    size_t count(const std::string &text) const
    {
        const std::string all = read(dir / "page.html");
        size_t found = 0;
        for (size_t at = all.find(text); at != all.npos; at = all.find(text, at + 1))
            found++;
        return found;
    }
    // The new name is as long as the old one.
    void rename(const std::string &file, const std::string &old_name, const std::string &new_name) const
    {
        std::string content = read(dir / file);
        write(file, content.replace(content.find(old_name), old_name.size(), new_name));
    }
};

TEST_F(Gallery, OneFileHoldsEveryPageOfEachDirectoryAndWritesTheSameTwice)
{
    ASSERT_EQ(build(menu(rows, message)), 0) << err;
    ASSERT_EQ(run("cp -r made/en made/xx; osdmenu gallery made made/xx -o page.html"), 0) << err;
    EXPECT_EQ(count("\"code\": \"xx\""), 2u); // in its menu, and alone
    EXPECT_EQ(count("{\"name\": \"page\""), 3u);
    ASSERT_EQ(run("mkdir site; osdmenu gallery made made/xx -o site"), 0) << err;
    EXPECT_TRUE(read(dir / "site/index.html") == read(dir / "page.html"));
}

TEST_F(Gallery, TheHelpBlockAndTheHiddenPageOfTheSampleArePainted)
{
    run("osdmenu build " SAMPLE_MENU_DIR "/menu.yaml -o made; osdmenu gallery made/ar -o plain.html");
    ASSERT_EQ(run("osdmenu gallery made/ar -o page.html --helpline"), 0) << err;
    EXPECT_EQ(count("{\"name\": \"aimodeselection\""), 1u);
    EXPECT_FALSE(read(dir / "plain.html") == read(dir / "page.html"));
}

// The page of AI modes is in the top list at first, and hidden once it was left.
TEST_F(Gallery, EachStateOfTheWalkHasItsRowWhateverIsHidden)
{
    ASSERT_EQ(build(menu(rows + hidden)), 0) << err;
    ASSERT_EQ(run("osdmenu gallery made -o page.html"), 0) << err;
    EXPECT_EQ(count("{\"name\": \"deep\""), 1u);
    const std::string html = read(dir / "page.html"), mark = "id=\"data\">";
    Json data(cJSON_Parse(html.c_str() + html.find(mark) + mark.size()));
    const cJSON *language = cJSON_GetArrayItem(
        cJSON_GetObjectItem(cJSON_GetArrayItem(cJSON_GetObjectItem(data.get(), "menus"), 0), "languages"), 0);
    const cJSON *painted = cJSON_GetObjectItem(language, "painted"), *state;
    Findings findings;
    start_host(open_menu_directory((dir / "made").string(), findings), "en");
    const Walk walk = walk_menu();
    size_t number = 0;
    cJSON_ArrayForEach(state, cJSON_GetObjectItem(painted, "states"))
    {
        const cJSON *page =
            cJSON_GetArrayItem(cJSON_GetObjectItem(painted, "pages"), cJSON_GetArrayItem(state, 0)->valueint);
        const cJSON *row =
            cJSON_GetArrayItem(cJSON_GetObjectItem(page, "rows"), cJSON_GetArrayItem(state, 1)->valueint);
        EXPECT_EQ(walk.states[number++].item, cJSON_GetArrayItem(row, 0)->valuestring);
    }
    EXPECT_EQ(number, walk.states.size());
}

TEST_F(Gallery, TextsOfAMenuStayTexts)
{
    const std::string hostile = "</script><img src=x onerror=alert(1)>";
    ASSERT_EQ(build(menu("  - {name: a, text: '" + hostile + "'}\n  - {name: b, text: \"<!--\"}\n")), 0) << err;
    ASSERT_EQ(run("mv made '<b>&\"'; osdmenu gallery '<b>&\"' -o page.html"), 0) << err;
    EXPECT_EQ(count("</script"), 2u); // of the data and of the program
    EXPECT_EQ(count("\\u003c/script>\\u003cimg src=x"), 1u);
    EXPECT_EQ(count("<b>&") + count("<!--"), 0u);
}

TEST_F(Gallery, EachStringHasAPictureByItsNameOfItsPageOrAlone)
{
    ASSERT_EQ(build(menu(rows, message)), 0) << err;
    ASSERT_EQ(run("osdmenu gallery made -o page.html --strings s; osdmenu shot made -o shot.png"), 0) << err;
    run("cd s; echo $(find . -type f | LC_ALL=C sort)");
    EXPECT_EQ(out, "./en/page.png ./en/page_title.png ./en/saved.png ./en/secret.png ./en/speed.png ./en/title.png "
                   "./en/zoom.0.png ./en/zoom.1.png ./en/zoom.png ./en/zoom~2.png\n");
    auto picture = [&](const char *name) { return read_png(dir / name); };
    const Image shot = picture("shot.png"), zoom = picture("s/en/zoom.png"), nearer = picture("s/en/zoom.0.png");
    EXPECT_LT(picture("s/en/saved.png").width, 880);
    EXPECT_TRUE(zoom.pixels == picture("s/en/zoom.1.png").pixels);
    EXPECT_FALSE(zoom.pixels == nearer.pixels);
    ASSERT_EQ(zoom.width, shot.width);
    int framed = 0;
    for (size_t i = 0; i < shot.pixels.size(); i++)
        framed += zoom.pixels[i] == shot.pixels[i] ? 0 : 1;
    EXPECT_GT(framed, 2 * 1600 * 4);
    EXPECT_LT(framed, 2 * 1760 * 5);
}

TEST_F(Gallery, NamesThatMeanHarmStayInTheirDirectory)
{
    ASSERT_EQ(build(menu("  - {name: aaaaaaaaaaaaa, text: A}\n  - {name: aaaaaaaaaaaab, text: B}\n", message)), 0);
    rename("made/en/b.d", "aaaaaaaaaaaaa", "../../../evil");
    rename("made/en/b.d", "aaaaaaaaaaaab",
           "../../..\x1b"
           "evil");
    rename("made/en/bb.d", "saved", "/etc/");
    ASSERT_EQ(run("mkdir -p x/y/z; osdmenu gallery made -o page.html --strings x/y/z/s"), 0) << err;
    run("cd x; echo $(find . -type f | LC_ALL=C sort)");
    EXPECT_EQ(out, "./y/z/s/en/_________evil.png ./y/z/s/en/_________evil~2.png ./y/z/s/en/_etc_.png "
                   "./y/z/s/en/title.png ./y/z/s/en/zoom.png\n");
}

TEST_F(Gallery, OnlyWhatChangedIsMarked)
{
    ASSERT_EQ(build(menu(rows)), 0) << err;
    run("mv made before; osdmenu gallery before --against before -o page.html");
    EXPECT_EQ(count("\"marked\": null"), 4u); // of two pages in two editions
    ASSERT_EQ(build(menu(rows + "      - {name: late, text: Late}\n")), 0) << err;
    ASSERT_EQ(run("osdmenu gallery made --against before -o page.html"), 0) << err;
    EXPECT_EQ(count("\"marked\": null"), 3u);
}

TEST_F(Gallery, ADamagedDirectoryIsNamedAndNothingIsWritten)
{
    ASSERT_EQ(build(menu(rows)), 0) << err;
    ASSERT_EQ(run("cp -r made hurt; truncate -s -1 hurt/en/b.d; cp -r made/en hurt/de"), 0);
    for (const char *call : {"hurt", "made hurt", "made --against hurt", "hurt --strings s", "nowhere"}) {
        EXPECT_EQ(run(std::string("osdmenu gallery -o page.html ") + call), 1) << call;
        const char *told = std::string(call) == "nowhere" ? "nowhere" : "hurt/en/b.d: byte ";
        EXPECT_NE(err.find(told), std::string::npos) << call << ": " << err;
        EXPECT_FALSE(fs::exists(dir / "page.html") || fs::exists(dir / "s")) << call;
    }
    EXPECT_EQ(run("osdmenu gallery made"), 2);
    EXPECT_EQ(run("osdmenu gallery made made -o page.html --against made"), 2);
}

TEST(Differences, LaidOverTheFirstViewTheyGiveTheSecond)
{
    static constexpr int WIDTH = 40, HEIGHT = 60;
    std::string before(WIDTH * HEIGHT * 2, '\x11'), now = before;
    auto view = [](const std::string &pixels) {
        return PixelView{pixels.data(), WIDTH, HEIGHT, WIDTH, PixelFormat::rgb565};
    };
    for (auto [x, y] : {std::pair(0, 0), {39, 0}, {7, 3}, {20, 30}, {21, 38}, {5, 39}, {0, 59}, {39, 59}}) {
        now[static_cast<size_t>((y * WIDTH + x) * 2 + 1)] = '\x22';
        size_t pixels = 0;
        std::string patched = before;
        for (const Area &area : differences(view(before), view(now)))
            for (int row = area.y; row < area.y + area.height; row++, pixels += static_cast<size_t>(area.width)) {
                const auto at = static_cast<size_t>((row * WIDTH + area.x) * 2);
                patched.replace(at, static_cast<size_t>(area.width) * 2, now, at, static_cast<size_t>(area.width) * 2);
            }
        EXPECT_TRUE(patched == now) << x << " " << y;
        EXPECT_LE(pixels, 400u);
    }
}
