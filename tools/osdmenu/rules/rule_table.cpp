#include "rules/rule_table.h"

// In the order of the alphabet, for a reader of the list.
static constexpr Rule rules[] = {
    {"anchor-without-item", Severity::error, false, false, "osd_menu.json names an item that the menu doesn't have",
     "The library looks for such a name at every key or paint. One that no item bears never matches: UP and DOWN lose "
     "their jump or their stop, and the help block its layout, without a word.",
     "Write the name as the menu file has it, or take the entry out."},
    {"bubble-too-wide", Severity::warning, false, false, "a bubble is wider than the lines it is composed in",
     "The camera composes messages of several bubbles in lines of 1100 or 1200 pixels, with a margin of 100 or 80 in "
     "front. What is wider goes on at the start of the next line of pixels.",
     "Shorten the text, or say it in two bubbles."},
    {"configuration", Severity::error, false, false, "an entry of osd_menu.json is not what the library reads",
     "The library passes over what it doesn't know and takes a value of the wrong kind for another: a column, a help "
     "block or the background is then not what the file seems to say.",
     "Write the entry as the finding says; default_color is best left out, it is added from the menu's background."},
    {"dead-end", Severity::warning, false, true,
     "a row that no key leads on from, or a top list without a row to choose",
     "UP and DOWN hold at the row and OK doesn't lead away, though the page has other rows to choose. Only the way back "
     "is left.",
     "Take the row out of the anchors of osd_menu.json, or end its name in 'menuback' so that OK goes back."},
    {"description-cut", Severity::warning, false, false, "a text is longer than the description beside its picture",
     "Beside each picture the files hold its text in at most 127 bytes, for cameras that print it. A longer one is cut "
     "where a character ends. The picture is whole.",
     "Shorten the text if the camera prints it."},
    {"directory-too-long", Severity::error, false, false, "a directory is too long for the device",
     "The library keeps 64 bytes of the path of a file that it opens. A longer one is cut, and the language can't be "
     "loaded.",
     "Shorten 'device_directory': with the language's code and a slash it may take 59 bytes."},
    {"disabled-at-depth", Severity::warning, false, false, "a row on the third level starts disabled",
     "The mark that hides a row stands where the fourth coordinate would, so the library takes the row for one of the "
     "fourth level. It still lands in its place, but the library prints 'list_add err' for it at every load.",
     "Let the camera hide the row after loading, or suppress the finding."},
    {"duplicate-name", Severity::error, false, false, "a name is used twice",
     "The camera knows items, help lines and bubbles by their names, and the library stops at the first one that "
     "matches: the second can't be reached. Two languages of one code would share a directory.",
     "Give each a name of its own."},
    {"fixed-jump", Severity::warning, false, false, "a key jumps to a row that is not there or is another one",
     "At some items of osd_menu.json UP and DOWN jump to rows 1, 2, 3 or 8 of the third level, or to 'camera' and "
     "'osdmirror' in the top list, whatever lies there. A row that is not there throws the user back a page.",
     "Move the rows so that the right ones lie there, counted from 0 without hidden rows, or take the anchor out."},
    {"fixed-name", Severity::warning, false, false, "a name with a meaning is missing, or stands at the wrong place",
     "The library knows some items by name and expects them at one place: on another level, on another page or without "
     "the row that belongs to them, a key or a call of the camera shows the wrong row.",
     "Move the item to its place, or give it another name if it isn't meant."},
    {"fuzzy-translation", Severity::warning, false, false, "a translation is marked as fuzzy",
     "msgmerge has guessed it from a similar text and nobody has read it, so the menu shows the source text.",
     "Check the translation and take the mark away."},
    {"ink-cut", Severity::warning, false, false, "a text stands above or below its line",
     "A picture is one line of text high. Ink beyond that is cut off: accents or the tails of letters are missing.",
     "Choose a smaller 'percent' for the font that has these letters."},
    {"mark-collision", Severity::error, false, false, "a coordinate stands where a mark does",
     "Coordinates are bytes in which 255 means that there is none, and on the fourth level a row's own coordinate takes "
     "the place of the mark that hides it. Such a row turns up elsewhere, or can't start hidden.",
     "Keep pages below 255 rows, and let the camera hide a row of the fourth level after loading."},
    {"menu-file", Severity::error, true, false, "a file holds something that can't be taken",
     "An entry that can't be taken has nothing to be judged or compiled. Texts are rendered and measured only when "
     "there is no such entry left.",
     "The finding says what was expected."},
    {"missing-character", Severity::error, false, false, "no font of the menu has a character",
     "Only the fonts that the menu names are used, so that every machine makes the same pictures. A character that none "
     "of them has shows as a box.",
     "Add a font that has the character to 'fonts', or to the fonts of the language."},
    {"missing-glyph", Severity::error, false, false, "the device has no glyph for a character of a run-time text",
     "Texts that the camera writes at run time are set from single pictures of letters, digits and marks. At any other "
     "character the text ends, or a blank takes its place.",
     "Use the letters a to z without accents, digits, blanks and . , : ; ' \" / ? ` ~ ! @ # $ % ^ & * ( ) - _ = + | { } "
     "[ ] alone."},
    {"missing-translation", Severity::warning, false, false, "a PO file has no entry for a text",
     "The language shows the source text.",
     "Bring the PO file up to date: osdmenu extract writes the template, msgmerge carries it over."},
    {"needless-suppression", Severity::warning, true, false, "a suppression suppresses nothing",
     "What it was written for is gone. Left standing, it would hide the next fault of its kind.",
     "Take it out of the menu file."},
    {"no-configuration", Severity::warning, false, false, "a compiled menu has no configuration",
     "Without conf_backup/osd_menu.json beside the languages the library knows no anchors, columns or help block: keys "
     "and pages are then not those of the menu.",
     "Make the directory with osdmenu build, or copy it whole."},
    {"no-manifest", Severity::warning, false, false, "a directory of resources has no menu.json",
     "The eight files don't say how large the view and the text are or what a pixel means, so the pictures of osdmenu "
     "shot rest on a guess.",
     "Make the directory with osdmenu build, or give the sizes on the command line."},
    {"no-room-to-translate", Severity::warning, false, false, "a source text leaves too little room for others",
     "Translations are often 30 % wider than their source. Where it fills the room, translators can only abbreviate.",
     "Shorten the text, or move the column with 'value_offset_x' in osd_menu.json."},
    {"page-too-tall", Severity::warning, false, false, "rows of a page end below the view",
     "The library paints rows until one would reach the lower edge, and the keys stay within the rows painted. A hidden "
     "row takes no room until it is shown. The help block, where there is one, covers the rows at the foot.",
     "Move rows to a page of their own, or choose a smaller font."},
    {"same-as-source", Severity::warning, false, false, "a translation repeats the source text without saying why",
     "It may be meant or forgotten, and only the translator knows.",
     "Translate it, or write the line '# same as the source' above the entry."},
    {"script", Severity::error, true, false, "a line of a script is no statement",
     "osdmenu play looks at the whole script before it runs, also at the names of items, bubbles and languages, so that "
     "a slip near the end doesn't cost a run.",
     "The finding says what was expected; osdmenu play --help lists the statements."},
    {"single-child", Severity::error, false, false, "a page has one row, and OK won't enter it",
     "OK enters pages of two rows or more, and a page opens on its second row. With one row OK only tells the camera.",
     "Begin the page with a title, or let its row take the parent's place."},
    {"text-too-wide", Severity::warning, false, false, "a text runs into its value or off the view",
     "A value is painted over what reaches into its column, and pixels beyond the right edge go on at the left edge, a "
     "line of pixels lower.",
     "Shorten the text, or move the column with 'value_offset_x' in osd_menu.json."},
    {"unreachable-page", Severity::error, false, false, "OK never enters a page, or it closes at once",
     "On the item 'upgrade' OK calls the camera and opens nothing. A page of which no row is shown is left again by the next paint.",
     "Put the rows below another item, or show one of them."},
    {"unreadable", Severity::error, true, false, "a file or a font can't be read at all",
     "Nothing can be judged without it; osdmenu check ends with exit status 2.",
     "The finding says what to mend or to install."},
    {"unreachable-row", Severity::warning, false, true, "no key reaches a row that is shown",
     "Titles and muted rows are there to be read. Any other row is there to be chosen, and nobody can: the keys jump past "
     "it, or it lies below the view.",
     "Change the anchors of osd_menu.json, move the row, or say 'muted: true' if it is only to be read."},
    {"untitled-page", Severity::warning, false, false, "a page opens on row 1, but row 0 is no title",
     "UP and DOWN go round between row 1 and the last row: the first one is seen, but can't be chosen.",
     "Begin the page with a row whose name contains 'title'."},
    {"untranslated", Severity::warning, false, false, "a PO file has an empty translation",
     "The language shows the source text.", "Fill the translation in."},
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
