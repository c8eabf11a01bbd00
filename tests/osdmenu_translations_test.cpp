// Texts on their way to the translators and back, with gettext's own tools in between.
#include "support/tool.h"

static const std::string start = R"(languages: [en, de]
fonts: [{family: DejaVu Sans, package: fonts-dejavu-core}]
items:
  - {name: title, text: "16:9", free_text: "12")";
static const std::string more = R"(, items: [{name: flip, text: Flip "x", choices: ["Off",
    "Off"]}]}
bubbles: [{name: saved, text: View saved, indent: 90}])";
static const std::string entries = R"(#. 16:9 (title)
#. 800 pixels wide at most
#: menu.yaml:4
msgctxt "title"
msgid "16:9"
msgstr ""

#. 16:9 > Flip "x" (row)
#. 700 pixels wide at most
#: menu.yaml:4
msgctxt "flip"
msgid "Flip \"x\""
msgstr ""

#. 16:9 > Flip "x" (choice of 'Flip "x"')
#. 880 pixels wide at most
#: menu.yaml:4 menu.yaml:5
msgctxt "flip"
msgid "Off"
msgstr ""

#. bubble
#. 910 pixels wide at most
#: menu.yaml:6
msgctxt "saved"
msgid "View saved"
msgstr ""
)";

using PoFiles = Tool;

TEST_F(PoFiles, TheTemplateHasEachTextWithItsItemItsPlaceAndTheSmallestRoomOfAnyLanguage)
{
    write("m/menu.yaml", start + more);
    write("m/osd_menu.json", R"({"value_offset_x": {"/usr/share/osd_menu/de/": {".0": 780}}})");
    EXPECT_EQ(run("osdmenu extract m/menu.yaml; osdmenu extract m/menu.yaml -o m.pot; osdmenu extract m.pot"), 1);
    EXPECT_EQ(out, read(dir / "m.pot"));
    EXPECT_EQ(out.substr(out.find("\n\n") + 2), entries);
}

TEST_F(PoFiles, AChangedTextComesBackFromGettextsToolsAsFuzzyAndShowsTheSource)
{
    write("m/menu.yaml", start + "}\n  - {name: net, text: Network settings}\n");
    EXPECT_EQ(run("osdmenu extract m/menu.yaml -o m.pot && msginit --no-translator -l de -i m.pot -o - 2>m.txt |"
                  "msgen - | msgfilter --keep-header -o m/po/de.po sed 's/$/!/' && msgfmt --check -o m.mo m/po/de.po &&"
                  "osdmenu check --strict m/menu.yaml && osdmenu build m/menu.yaml -o made"),
              0);
    EXPECT_NE(read(dir / "made/de/b.d").find("Network settings!"), std::string::npos) << out << err;
    run("sed -i 's/settings/and settings/' m/menu.yaml; osdmenu extract m/menu.yaml -o m.pot; "
        "msgmerge -qU m/po/de.po m.pot; osdmenu build m/menu.yaml -o made");
    EXPECT_EQ(err.find("m/po/de.po:25:1: warning: 'Network and settings' has a translation marked"), 0u) << err;
    EXPECT_NE(read(dir / "made/de/b.d").find("Network and settings"), std::string::npos);
}

static const std::string item = "msgctxt \"a\"\n", mode = "msgid \"Mode\"\nmsgstr \"", same = "# same as the source\n";
static const std::string head = "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n"
                                "msgctxt \"title\"\nmsgid \"16:9\"\nmsgstr \"16:9\"\n";
// What stands before the entry, its translation, what is shown if anything, and what is found, below m/.
static const std::string cases[][4] = {
    {item, "Modus", "Modus", ""},
    {same + item, "Mode", "Mode", ""},
    {"# A word.\n" + same + item, "", "Mode", ""},
    {"# not the same as the source\n" + item, "Mode", "Mode", "po/de.po:8:1: warning: 'Mode' is the same in"},
    {item, "", "Mode", "po/de.po:7:1: warning: 'Mode' has no translation in"},
    {"#~ msgctxt \"a\"\n#~ msgid \"Mode\"\n#~ msgstr \"M\"\n", "M", "Mode", "menu.yaml:5:21: warning: 'Mode' has"},
    {item, "Modus\n", "", "po/de.po:9:1: error: end-of-line within string"},
    {item, "a\\nb", "", "po/de.po:7:1: error: the translation of 'Mode' holds a control character"},
    {item, "\xdf", "", "po/de.po:8:9: error: invalid multibyte sequence"},
};
TEST_F(PoFiles, OnlySoundAndFinishedEntriesAreShownAndAllOthersToldWithTheirPlace)
{
    for (const auto &[before, words, shown, finding] : cases) {
        write("m/po/de.po", head + before + mode + words + "\"\n");
        EXPECT_EQ(build(start + "}\n  - {name: a, text: Mode}\n"), shown.empty());
        EXPECT_EQ(finding.empty() ? err : err.substr(0, 2 + finding.size()), finding.empty() ? "" : "m/" + finding);
        EXPECT_TRUE(shown.empty() || read(dir / "made/de/b.d").find('\0' + shown + '\0') != std::string::npos) << words;
    }
    EXPECT_EQ(run("rm m/po/de.po; osdmenu build m/menu.yaml -o made"), 0);
    EXPECT_EQ(err.find("m/menu.yaml:1:17: warning: there is no m/po/de.po"), 0u) << err;
    EXPECT_EQ(err.find("warning", 40), std::string::npos) << err; // not one for each text
}

TEST_F(PoFiles, TheSamplesPassGettextsCheckAndTranslateEachText)
{
    run("osdmenu extract " SAMPLE_MENU_DIR "/menu.yaml -o m.pot; "
        "for po in " SAMPLE_MENU_DIR "/po/*; do msgfmt --check -o m.mo $po && msgcmp $po m.pot && echo; done");
    EXPECT_EQ(out + err, std::string(9, '\n'));
}
