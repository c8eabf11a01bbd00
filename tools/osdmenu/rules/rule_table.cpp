#include "rules/rule_table.h"

// In the order of the alphabet, for a reader of the list.
static constexpr Rule rules[] = {
    {"anchor-without-item", Severity::error, false, "osd_menu.json names an item that the menu doesn't have", "", ""},
    {"bubble-too-wide", Severity::warning, false, "a bubble is wider than the lines it is composed in", "", ""},
    {"configuration", Severity::error, false, "an entry of osd_menu.json is not what the library reads", "", ""},
    {"description-cut", Severity::warning, false, "a text is longer than the description beside its picture", "", ""},
    {"directory-too-long", Severity::error, false, "a directory is too long for the device", "", ""},
    {"disabled-at-depth", Severity::warning, false, "a row on the third level starts disabled", "", ""},
    {"duplicate-name", Severity::error, false, "a name is used twice", "", ""},
    {"fixed-jump", Severity::warning, false, "a key jumps to a row that is not there or is another one", "", ""},
    {"fixed-name", Severity::warning, false, "a name with a meaning is missing, or stands at the wrong place", "", ""},
    {"fuzzy-translation", Severity::warning, false, "a translation is marked as fuzzy", "", ""},
    {"ink-cut", Severity::warning, false, "a text stands above or below its line", "", ""},
    {"mark-collision", Severity::error, false, "a coordinate stands where a mark does", "", ""},
    {"menu-file", Severity::error, true, "a file holds something that can't be taken", "", ""},
    {"missing-character", Severity::error, false, "no font of the menu has a character", "", ""},
    {"missing-glyph", Severity::error, false, "the device has no glyph for a character of a run-time text", "", ""},
    {"missing-translation", Severity::warning, false, "a PO file has no entry for a text", "", ""},
    {"needless-suppression", Severity::warning, true, "a suppression suppresses nothing", "", ""},
    {"no-manifest", Severity::warning, false, "a directory of resources has no menu.json", "", ""},
    {"no-room-to-translate", Severity::warning, false, "a source text leaves too little room for others", "", ""},
    {"page-too-tall", Severity::warning, false, "rows of a page end below the view", "", ""},
    {"same-as-source", Severity::warning, false, "a translation repeats the source text without saying why", "", ""},
    {"single-child", Severity::error, false, "a page has one row, and OK won't enter it", "", ""},
    {"text-too-wide", Severity::warning, false, "a text runs into its value or off the view", "", ""},
    {"unreachable-page", Severity::error, false, "OK never enters a page", "", ""},
    {"unreadable", Severity::error, true, "a file or a font can't be read at all", "", ""},
    {"untitled-page", Severity::warning, false, "a page opens on row 1, but row 0 is no title", "", ""},
    {"untranslated", Severity::warning, false, "a PO file has an empty translation", "", ""},
};

std::span<const Rule> all_rules()
{
    return rules;
}

const Rule *rule_named(const std::string &name)
{
    for (const Rule &rule : rules)
        if (name == rule.name)
            return &rule;
    return nullptr;
}
