// The menu file: what the tool takes, and what it says of anything else.
#include <cjson/cJSON.h>
#include <memory>
#include <regex>
#include <yaml-cpp/yaml.h>

#include "core/layout.h"
#include "menu/project.h"
#include "support/tool.h"

using MenuFile = Tool;

static const char faulty[] = R"(source_language: e/n
languges: [en]
device_directory: [a]
display: {burst: nine, pixel_format: ARGB888}
colours: {text: red, disbled: "#000000"}
fonts: [{family: DejaVu Sans, package: p, scripts: [Arab, Jpan]}]
symbols: {more: [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28]}
check: {severity: {menu-file: off}}
items:
- {name: title}
- {text: A, enabled: maybe}
- {name: b, choices: {x: 1}}
- {name: c, choices: [x, y], value: z}
- {name: d, number: {low: 5, high: 1}}
- {name: e, number: {value: 101}, percentage: {}}
- {name: g, value: 3}
- {name: h, ? [k] : 1, name: h}
- justname
- {name: i, items: [{name: t}, {name: j, items: [{name: u}, {name: k, items: [{name: v}, {name: l, items: []}]}]}]}
)";

static const char *const told[] = {
    "1:18: error: no language code 'e/n'",
    "2:1: error: a menu has no 'languges'",
    "3:19: error: 'device_directory' must be a text (found a list)",
    "4:18: error: 'burst' must be a whole number, from 1 to 8 (found 'nine')",
    "4:38: error: 'pixel_format' must be one of the known words (found 'ARGB888')",
    "5:17: error: 'text' must be a colour (found 'red')",
    "5:22: error: the list of colours has no 'disbled'",
    "6:52: error: no script 'Jpan'",
    "7:17: error: 'more' must have entries, at most 27 (found 28)",
    "8:20: error: the list of changeable rules has no 'menu-file'",
    "11:22: error: 'enabled' must be true or false (found 'maybe')",
    "11:3: error: an item needs 'name'",
    "12:22: error: 'choices' must be a list (found a mapping)",
    "13:37: error: 'z' is none of the choices",
    "14:36: error: 'low' must not be above 'high' (found 5 and 1)",
    "15:10: error: 'e' has more than one kind of value",
    "16:20: error: 'value' here belongs to 'choices'",
    "17:15: error: a key must be a text (found a list)",
    "17:24: error: 'name' stands twice",
    "18:3: error: an item must be a mapping (found 'justname')",
    "19:107: error: a menu has four levels, this would be a fifth",
};

TEST_F(MenuFile, AllThatIsWrongInAFileIsToldInOneRunAtItsPlace)
{
    EXPECT_EQ(build(faulty), 1);
    for (const std::string text : told)
        EXPECT_NE(err.find("m/menu.yaml:" + text), std::string::npos) << text << "\n" << err;
    EXPECT_NE(err.find("= did you mean 'languages'?"), std::string::npos);
    const std::regex error("yaml:[0-9:]* error: ");
    EXPECT_EQ(std::distance(std::sregex_iterator(err.begin(), err.end(), error), {}), std::ssize(told)) << err;
}

static const std::pair<std::string, const char *> unreadable[] = {
    {"items:\n\t- name: a\n", "2:2: error: no list entry can begin here"},
    {"items:\n- name: \"a\n- name: b\n\n", "3:10: error: the file ends in a quoted text"},
    {"items: []\n]\n", "2:1: error: a bracket too many"},
    {"a: 1 \n [n ]? !:!` |\n    t\n---\n- a  t\n,--\n", ": error: "}, // the parser would never end
    {"items: []\n---\nitems: []\n", "2:1: error: the menu has ended above"},
    {"items: []\n# \xe4\n", "2:3: error: this byte is no UTF-8 text"},
    {std::string(1000, '['), "1:1: error: entries are nested too deep"},
    {"items: &a\n- {name: x, items: *a}\n", "2:10: error: entries are nested too deep"},
    {"a: &a [x, x, x, x, x, x, x, x, x]\nb: &b [*a, *a, *a, *a, *a, *a, *a, *a, *a]\n"
     "c: &c [*b, *b, *b, *b, *b, *b, *b, *b, *b]\nd: &d [*c, *c, *c, *c, *c, *c, *c, *c, *c]\ne: [*d, *d, *d]\n",
     "error: the file has more than 20000 entries"},
    {std::string(1 << 20, '#') + "\n", "menu.yaml: error: cannot be read: it is larger than 1 MiB"},
};
TEST_F(MenuFile, WhatCannotBeReadIsToldInTheReadersWords)
{
    for (const auto &[content, text] : unreadable) {
        EXPECT_EQ(build(content), 1);
        EXPECT_NE(err.find(text), std::string::npos) << text << "\n" << err;
    }
    EXPECT_EQ(run("osdmenu build m -o made"), 1);
    EXPECT_NE(err.find("m: error: cannot be read: Is a directory"), std::string::npos) << err;
}

TEST_F(MenuFile, ThreeLinesAreAMenuAndWhatIsLeftOutHasItsDefault)
{
    ASSERT_EQ(build("items:\n  - name: main_title\n  - {name: zoom-speed, percentage: {}}\n"), 0) << err;
    EXPECT_NE(read(dir / "made/menu.json").find("\"/usr/share/osd_menu/\""), std::string::npos);
    EXPECT_EQ(run("osdmenu inspect made/en | grep 'text=\"Zoom speed\".* current=0 low=0 high=100 step=1'"), 0);
}

TEST_F(MenuFile, ReadingOneLeavesTheLayoutInWhichPagesArePainted)
{
    write("m/menu.yaml", menu("", "display: {burst: 3}\n"));
    Findings findings;
    const auto project = read_project((dir / "m/menu.yaml").string(), findings);
    EXPECT_EQ(std::pair(project->geometry.view_width, osdmenu_viewarea_width), std::pair(2640, 1760));
}

static void expect_known(const YAML::Node &node, const cJSON *schema, const cJSON *kinds)
{
    if (const cJSON *reference = cJSON_GetObjectItem(schema, "$ref"))
        schema = cJSON_GetObjectItem(kinds, reference->valuestring + sizeof "#/$defs");
    const cJSON *properties = cJSON_GetObjectItem(schema, "properties"), *items = cJSON_GetObjectItem(schema, "items");
    for (const auto &member : node) {
        const YAML::Node value = node.IsMap() ? member.second : YAML::Node(member);
        const cJSON *inner = node.IsMap() ? cJSON_GetObjectItem(properties, member.first.Scalar().c_str()) : items;
        ASSERT_TRUE(inner) << "line " << value.Mark().line + 1;
        expect_known(value, inner, kinds);
    }
}

TEST_F(MenuFile, TheDocumentsAreWhatTheToolPrintsAndKnowEveryKeyOfTheSampleMenu)
{
    const std::string docs = SAMPLE_MENU_DIR "/../../docs/";
    EXPECT_EQ(run("osdmenu schema | diff - " + docs + "menu.schema.json"), 0) << out;
    EXPECT_EQ(run("osdmenu schema --markdown | diff - " + docs + "menu-file.md"), 0) << out;
    const std::string text = read(docs + "menu.schema.json");
    const std::unique_ptr<cJSON, void (*)(cJSON *)> schema(cJSON_Parse(text.c_str()), cJSON_Delete);
    const cJSON *kinds = cJSON_GetObjectItem(schema.get(), "$defs");
    expect_known(YAML::LoadFile(SAMPLE_MENU_DIR "/menu.yaml"), schema.get(), kinds);
}
