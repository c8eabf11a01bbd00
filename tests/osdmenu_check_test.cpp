// Each rule of check, the forms that its findings take, and the pages that explain it.
#include <cjson/cJSON.h>

#include "rules/rule_table.h"
#include "support/tool.h"

struct Check : Tool {
    // Of a whole menu, or of items alone.
    int check(const std::string &source, const std::string &options = "", const std::string &json = "{}")
    {
        write("m/menu.yaml", source.starts_with("  -") ? menu(source) : source);
        write("m/osd_menu.json", json);
        return run("osdmenu check m/menu.yaml " + options);
    }
    bool told(const std::string &words) const
    {
        return out.find(words) != out.npos;
    }
};

static std::string with(std::string text, const std::string &from, const std::string &to)
{
    return text.replace(text.find(from), from.size(), to);
}
// r1, r2 and so on; behind the text of one of them stands `more`.
static std::string rows(int count, int changed = 0, const std::string &more = "")
{
    std::string result;
    for (int i = 1; i <= count; i++)
        result += "  - {name: r" + std::to_string(i) + ", text: R" + (i == changed ? more : "") + "}\n";
    return result;
}
// Such rows on a page of the third level, on which row 0 is a title.
static std::string deep(std::string third)
{
    for (size_t i = 0; i < third.size(); i = third.find('\n', i) + 1)
        third.insert(i, 4, ' ');
    return "  - name: p\n    items:\n    - name: p-title\n    - name: q\n      items:\n      - name: q-title\n" + third;
}
static std::string page(const std::string &name = "p", const char *first = "title2", const std::string &second = "b")
{
    return "  - {name: " + name + ", items: [{name: " + first + "}, {name: " + second + "}]}\n";
}
static const std::string two = rows(2), hidden = ", enabled: false", bubble = "bubbles: [{name: b, text: A, indent: ";
static const std::string info = "information", far = "peripheralinformation", back = "versionmenuback", d(54, 'd');
static const std::string column = R"({"value_offset_x": {"/res/en/": {".": 1500}}})", low = ", number: {low: -20000";
static const std::string jumps = R"({"language_item": "r1", "general_last_item": "r3"})";

// Items, or a whole menu. One osd_menu.json serves both where there is no second.
static const struct {
    const char *rule, *words;
    std::string broken, clean, json = "{}", clean_json = json;
} cases[] = {
    {"anchor-without-item", "'menu_last_item' names no", rows(1), two, R"({"menu_last_item": "r2"})"},
    {"anchor-without-item", ".json:1:50: e", two, rows(9),
     R"({"peripheral_last_item": "r9", "helpline_type": {"r9": 1}})"},
    {"configuration", "from 0 to 17", two, two, R"({"helpline_default": 18})", R"({"helpline_default": 17})"},
    {"configuration", "an object", two, two, R"({"value_offset_x": [1], "helpline_type": ["r1"]})", "{}"},
    {"configuration", "'/res/de/'", two, two, R"({"value_offset_x": {"/res/de/": [1]}})", column},
    {"configuration", "'.9'", two, two, R"({"value_offset_x": {"/res/en/": {".9": 800}}})", column},
    {"configuration", "no 'Language_item'", two, two, R"({"Language_item": "r1"})", R"({"language_item": "r1"})"},
    {"bubble-too-wide", "the lines", menu(two, bubble + "1000}]\n"), menu(two, bubble + "950}]\n")},
    {"text-too-wide", "off the view", menu(two, bubble + "900}]\ndisplay: {width: 900}\n"), two},
    {"text-too-wide", "'-20000000'", rows(1, 1, low + "000}"), rows(1, 1, low + "0}"), with(column, "500", "510")},
    {"text-too-wide", "'WWWW",
     menu("  - {name: kz73versionshow, free_text: A}\n", "accessory: " + std::string(31, 'W') + "\n"),
     menu("  - {name: kz73versionshow, free_text: A}\n", "accessory: W\n")},
    {"missing-glyph", "no glyph for '<'", "  - {name: a, free_text: a<b}\n", "  - {name: a, free_text: a_b}\n"},
    {"duplicate-name", "in line 6", rows(1) + rows(1), menu(two, "help_lines: [{name: r1, text: R}]\n")},
    {"disabled-at-depth", "'r2' starts", deep(rows(3, 2, hidden)), rows(3, 2, hidden)},
    {"mark-collision", "no coordinate is left for 'r255'", rows(255), rows(254)},
    {"mark-collision", "at depth 3", deep(page("r1", "title2", "d" + hidden)), deep(page("r1", "title2"))},
    {"missing-character", "no font has", rows(1, 1, "\u4e00"), rows(1, 1, "\u00e9")},
    {"ink-cut", "is cut", rows(1, 1, "\u0302\u0302\u0302\u0302"), rows(1, 1, "\u0302")},
    {"description-cut", "at 127 of", rows(1, 1, std::string(127, 'i')), rows(1, 1, std::string(126, 'i'))},
    {"page-too-tall", "view: 'r2', 'r4' [", menu(rows(4, 3, hidden), "display: {height: 300}\n"),
     menu(rows(3, 3, hidden), "display: {height: 301}\n")},
    {"single-child", "one row", rows(1, 1, ", items: [{name: title2, text: A}]"), page()},
    {"unreachable-page", "'upgrade'", page("upgrade"), page()},
    {"unreachable-page", "closes at once", page("p", "title2, enabled: false", "b" + hidden), page()},
    {"untitled-page", "'a' is row 0 of", page("p", "a"), page(far, "a")},
    {"directory-too-long", "59 bytes", with(menu(two), "res", d + "d"), with(menu(two), "res", d)},
    {"unreadable", "no JSON object", two, two, "{", "{}"},
    {"fixed-name", "depth 0 (found at 1)", page("p", "title2", info), with(two, "r1", info)},
    {"fixed-name", "row 1, but", with(rows(2, 2, hidden), "r2", info), with(rows(2, 1, hidden), "r2", info)},
    {"fixed-name", "has no", page(info), page(info, "title2", back)},
    {"fixed-name", "last row, which is 'b'", page(info, "title2", back + "}, {name: b"),
     page(info, "title2", "b}, {name: " + back)},
    {"fixed-name", "belongs on", page("p", "title2", back), two},
    {"fixed-jump", "row 8 of its page, which is 'r9'", deep(with(rows(9, 4, hidden), "r8", far)),
     deep(with(rows(9, 8, hidden), "r8", far)), jumps},
    {"fixed-jump", "row 1 of its page, which is 'r2', not 'r1'", deep(rows(3, 1, hidden)), deep(rows(3)), jumps},
    {"fixed-jump", "row 3, which is not on", deep(rows(2)), deep(rows(3, 1, hidden)), R"({"language_item": "r1"})"},
    {"fixed-jump", "to 'camera', which is not", page("r2", "camera"), with(two, "r1", "camera"),
     R"({"menu_last_item": "r2"})"},
};
TEST_F(Check, EachRuleIsBrokenByOneMenuAndKeptByAnother)
{
    for (const auto &[rule, words, broken, clean, json, clean_json] : cases) {
        check(broken, "", json);
        EXPECT_TRUE(told(std::string("[") + rule + "]") && told(words)) << rule << words << "\n" << out;
        check(clean, "", clean_json);
        EXPECT_TRUE(!told(rule) && told(" in 1 language\n")) << rule << words << "\n" << out;
    }
}

static const std::string wide = menu("  - {name: 'a:b', text: " + std::string(90, 'W') + "}\n");
static const std::string known = "check: {suppress: [{rule: text-too-wide, reason: known, item: ";
static const struct {
    int status;
    std::string source, options, words;
} runs[] = {
    {0, two, "--strict", "no findings in 1 language\n"},
    {0, wide, "", "\n0 errors, 1 warning in 1 language\n"},
    {2, menu(two, "", "Nosuch Sans"), "", "[unreadable]"},
    {2, two, "-o no/such/file", ""},
    {2, two, "--headroom --format sarif", ""},
    {1, "check: {severity: {text-too-wide: error}}\n" + wide, "", "1 error, 0 warnings"},
    {0, "check: {severity: {text-too-wide: off}}\n" + wide, "--strict", "no findings"},
    {0, known + "'a:b', language: en}]}\n" + wide, "--strict", "no findings"},
    {1, known + "title}]}\n" + wide, "--strict", "0 errors, 2 warnings"},
    {1, known + "'a:b', language: de}]}\n" + wide, "--strict", "0 errors, 2 warnings"},
};
TEST_F(Check, TheStatusFollowsWhatTheMenuAndTheCallerMakeOfTheFindings)
{
    for (const auto &[status, source, options, words] : runs) {
        EXPECT_EQ(check(source, options), status) << source << out << err;
        EXPECT_TRUE(told(words)) << words << "\n" << out;
    }
}

TEST_F(Check, ATooWideTranslationIsToldInItsPoFile)
{
    write("m/po/de.po", "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\nmsgctxt \"r1\"\n"
                        "msgid \"R\"\nmsgstr \"" +
                            std::string(90, 'D') + "\"\n");
    check(with(menu("  - {name: r1, text: R}\n"), "[en]", "[en, de]"), "");
    EXPECT_TRUE(told("m/po/de.po:5:1: warning: 'DDD")) << out;
}

TEST_F(Check, EveryFormatTellsTheSameFindingToItsReader)
{
    auto shown = [&](const std::string &format) {
        check(wide, "--format " + format + " -o m/found");
        cJSON *json = cJSON_Parse((out = read(dir / "m/found")).c_str());
        const bool is_json = json != nullptr;
        cJSON_Delete(json);
        return is_json;
    };
    EXPECT_TRUE(shown("json") && told(R"("item": "a:b", "language": "en")")) << out;
    const std::string text = out.substr(out.find("'WW"), out.find("\", \"cure") - out.find("'WW"));
    EXPECT_TRUE(shown("sarif") && told(R"("ruleId": "text-too-wide", "level": "warning")") && told(text)) << out;
    EXPECT_TRUE(told(R"({"uri": "m/menu.yaml"}, "region": {"startLine": 6, "startColumn": 25})")) << out;
    EXPECT_TRUE(told(R"({"id": "untitled-page", "shortDescription": {"text": ")")) << out;
    run("mv m 'm,%'; osdmenu check --format github 'm,%/menu.yaml'");
    EXPECT_TRUE(told("::warning file=m%2C%25/menu.yaml,line=6,col=25,title=text-too-wide::" + text + "%0As")) << out;
}

// With lines of text 60 pixels high.
static const struct {
    const char *name, *view, *room;
} help_lines[] = {
    {"select", "", "385"},               // up to the symbols of its neighbour, 155 from the edge itself
    {"select", "width: 300", "123"},     // alone on its line, where it is furthest to the right
    {"enter", "", "495"},                // up to its neighbour
    {"enter", "width: 300", "255"},      // which the view ends before
    {"change", "width: 1000", "355"},    // at the far side of its line
    {"menu0", "width: 1000", "955"},     // never beside anything
    {"elsewhere", "width: 1000", "1000"} // in no layout
};
TEST_F(Check, AHelpLineHasTheLeastRoomThatAnyLayoutLeavesIt)
{
    for (const auto &[name, view, room] : help_lines) {
        const std::string line = std::string("help_lines: [{name: ") + name + ", text: W}]\n";
        check(menu(two, line + "display: {" + view + "}\n"), "--headroom --format json");
        EXPECT_TRUE(told(std::string("\"kind\": \"help line\", \"text\": \"W\", \"room\": ") + room + ","))
            << name << out;
    }
}

// A column moved by one pixel, at the room that the table tells.
TEST_F(Check, HeadroomIsSortedAndAgreesToThePixelWithTheFindings)
{
    const std::string content = "  - {name: a, text: Wide text, choices: [x]}\n  - {name: b, text: 日本語}\n";
    auto number = [&](const std::string &key) { return std::stoi(out.substr(out.find(key) + key.size())); };
    auto check_column = [&](int x) { check(content, "", with(column, "1500", std::to_string(x))); };
    check(content, "--headroom --format json");
    const int width = number("\"room\": ") - number("\"en\": ");
    EXPECT_LT(out.find("Wide text"), out.find("\"room\"")) << "the tightest is the first";
    check_column(80 + width - 1);
    EXPECT_TRUE(told("runs 1 pixels into the value column in en (" + std::to_string(width))) << out;
    check_column(80 + width);
    EXPECT_TRUE(told("leaves 0 pixels for longer translations")) << out;
    check_column(80 + (width * 13 + 9) / 10);
    EXPECT_FALSE(told("[no-room-to-translate]")) << out;
    check(content, "--headroom");
    const size_t line = out.find("\nb ") + 1;
    EXPECT_EQ(out.find('\n', line) - line, out.find('\n') + 3); // three characters of two cells and three bytes
}

TEST_F(Check, EachRuleIsExplainedAndThePageOfThemIsUpToDate)
{
    for (const Rule &rule : all_rules())
        EXPECT_TRUE(*rule.summary && *rule.reason && *rule.cure) << rule.name;
    EXPECT_EQ(run("osdmenu explain --markdown"), 0);
    EXPECT_EQ(out, read(SAMPLE_MENU_DIR "/../../docs/rules.md"));
    EXPECT_EQ(run("osdmenu explain ink-cut"), 0);
    EXPECT_TRUE(told("severity: {ink-cut: error}")) << out;
    EXPECT_EQ(run("osdmenu explain text-to-wide"), 2);
    EXPECT_NE(err.find("did you mean 'text-too-wide'?"), err.npos);
}
