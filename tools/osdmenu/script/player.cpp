#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "common/text.h"
#include "core/state.h"
#include "host/host.h"
#include "host/places.h"
#include "script/script.h"
#include "walk/walk.h"

static void say(const Player &player, const std::string &place, const std::string &text)
{
    for (const std::string &line : parts_of(text, '\n'))
        std::fprintf(player.out, "%s: %s\n", printable(place).c_str(), printable(line).c_str());
}

static void tell(Player &player, const std::string &text, size_t Player::*count = &Player::failures)
{
    say(player, player.script + ":" + std::to_string(player.line), text);
    (player.*count)++;
}

// Keys act on what the last draw found.
static void press_keys(Player &player, Words keys)
{
    for (const std::string &key : keys) {
        press(key);
        repaint();
        player.keys++;
    }
}

static void expect_item(Player &player, const std::string &item)
{
    const osdmenu_item *chosen = osdmenu_current_menuitem;
    if (chosen && item == chosen->name)
        return;
    const std::string found = chosen ? chosen->name : "no item", page = page_of(chosen);
    tell(player, "expected item " + item + ", found " + found +
                     (page.empty() ? " in the top list" : " on the page of " + page));
}

static void expect_value(Player &player, const std::string &item, const std::string &expected)
{
    auto found = host.settings.values.find(item);
    std::string value = found == host.settings.values.end() ? "no value" : std::to_string(found->second);
    if (value != expected)
        tell(player, "expected " + item + " to be " + expected + ", found " + value);
}

// Bubbles have any names.
static std::string picture_path(std::string name)
{
    std::replace(name.begin(), name.end(), '/', '_');
    return host.language + "/" + name + ".png";
}

// A name stands for one picture, or a later one would take the place of its reference.
static void take(Player &player, const std::string &name, const PixelView &view)
{
    Pictures &pictures = player.pictures;
    const std::string path = picture_path(name), label = "page " + name + " (" + host.language + "): ";
    auto [earlier, is_first] = pictures.painted.try_emplace(path, player.line);
    if (!is_first)
        return tell(player, label + "line " + std::to_string(earlier->second) + " has a picture of this name");
    const std::string fault = take_picture(pictures, path, image_of(view));
    if (!fault.empty())
        tell(player, label + fault, pictures.verb == Verb::verify ? &Player::failures : &Player::differences);
}

// It may come more than once, and looks the same each time.
static void take_bubble(Player &player, Words words)
{
    const std::string name = "bubble-" + words[1];
    const auto [painted, is_first] = player.bubbles.try_emplace(picture_path(name), words[1]);
    if (is_first || painted->second != words[1])
        take(player, name, paint_bubble(words[1]));
    repaint();
}

static constexpr StatementForm form_table[] = {
    {"KEY...", "presses up, down, left, right, ok; back goes a level up, menu to the top list", press_keys},
    {"wait SECONDS", "lets virtual time pass",
     [](Player &p, Words w) { p.milliseconds += std::lround(std::stod(w[1]) * 1000); }},
    {"language CODE", "loads the language", [](Player &, Words w) { change_language(w[1]), repaint(); }},
    {"help on|off", "shows or hides the help block at the foot of pages",
     [](Player &, Words w) { osdmenu_meeting_camera_helpline_enable(w[1] == "on"), repaint(); }},
    {"aimode", "presses the camera's button for the AI mode", [](Player &, Words) { open_ai_mode(), repaint(); }},
    {"information", "presses its button for information", [](Player &, Words) { open_information(), repaint(); }},
    {"enable ITEM", "shows the row", [](Player &, Words w) { show_row(w[1], true), repaint(); }},
    {"disable ITEM", "hides the row", [](Player &, Words w) { show_row(w[1], false), repaint(); }},
    {"goto ITEM", "presses the fewest keys to the row", [](Player &p, Words w) { press_keys(p, keys_to_item(w[1])); }},
    {"expect item ITEM", "fails unless this row is chosen", [](Player &p, Words w) { expect_item(p, w[2]); }},
    {"expect value ITEM NUMBER", "fails unless this is its setting",
     [](Player &p, Words w) { expect_value(p, w[2], w[3]); }},
    {"bubble BUBBLE", "takes its picture as bubble-BUBBLE", take_bubble},
    {"page NAME", "takes a picture of the page on show", [](Player &p, Words w) { take(p, w[1], painted_view()); }},
};

std::span<const StatementForm> statement_forms()
{
    return form_table;
}

std::string statement_list()
{
    std::string list;
    for (const StatementForm &form : form_table)
        list.append("    ").append(form.usage).append(26 - std::strlen(form.usage), ' ').append(form.summary) += '\n';
    return list;
}

// A Failure is what the rest can't do without: a way, a place to write to. False then.
static bool run(Player &player, const Statement &statement)
{
    player.line = statement.line;
    try {
        statement.form->run(player, statement.words);
    } catch (const Failure &e) {
        tell(player, joined(statement.words, " ") + ": " + e.what() + "; the script ends here");
        return false;
    }
    if (!host.notice.empty())
        tell(player, std::exchange(host.notice, {}));
    return true;
}

// References change only when nothing but pictures differs: a run that went astray must not become the rule.
static void finish(const Player &player, bool is_whole)
{
    const Pictures &pictures = player.pictures;
    if (is_whole && (pictures.verb == Verb::compare || pictures.verb == Verb::update))
        for (const std::string &path : stale_references(pictures))
            say(player, path, "the script has no such picture; remove the file if nothing else needs it");
    if (player.failures > 0 && !pictures.made.empty())
        return say(player, pictures.references, "nothing is written before the failures are mended");
    write_made(pictures, [&](const std::string &path) { say(player, path, "written"); });
}

bool play(Player &player, const std::vector<Statement> &script)
{
    repaint();
    finish(player, std::all_of(script.begin(), script.end(), [&](const Statement &each) { return run(player, each); }));
    const std::string result = player.failures      ? counted(player.failures, "failure")
                               : player.differences ? counted(player.differences, "difference")
                                                    : "all as expected";
    std::fprintf(player.out, "%s, %s, %.10g s of virtual time: %s\n", counted(player.keys, "key").c_str(),
                 counted(player.pictures.painted.size(), "page").c_str(),
                 static_cast<double>(player.milliseconds) / 1000, result.c_str());
    return player.failures == 0;
}
