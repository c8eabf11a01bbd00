// The host's own part of a camera: what its settings answer, and languages that change under the user's feet.
#include "support/tool.h"

#include "core/state.h"
#include "core/walks.h"
#include "host/host.h"
#include "host/values.h"
#include "walk/walk.h"

// The sample menu in two languages.
struct HostCase : Tool {
    HostCase()
    {
        run("cp -r " SAMPLE_MENU_DIR "/. m; sed -i '/^  - fr$/,/^  - ar$/d; s/, Français.*العربية//' m/menu.yaml; "
            "osdmenu build m/menu.yaml -o made");
        Findings findings;
        start_host(open_menu_directory((dir / "made").string(), findings), "en");
        repaint();
    }
    static std::string chosen()
    {
        return osdmenu_current_menuitem ? osdmenu_current_menuitem->name : "";
    }
    static std::string play(const std::vector<std::string> &keys)
    {
        for (const std::string &key : keys) {
            press(key);
            repaint();
        }
        return chosen();
    }
    static void walk_to(const std::string &item)
    {
        play(keys_to_item(item));
    }
};

TEST_F(HostCase, AnAiModeIsTakenSavedAndShownAgain)
{
    host.settings_path = (dir / "state/settings.json").string();
    play({"down"});
    open_ai_mode();
    repaint();
    EXPECT_EQ(chosen(), "ai_off");
    EXPECT_FALSE(keys_to_item("red_gain").empty()); // tried out, not done
    repaint();
    EXPECT_EQ(play({"up", "up"}), "ai_presenter");
    EXPECT_EQ(play({"ok"}), "ptz"); // the page is left, with its row gone
    EXPECT_EQ(get_osdmenu_current_viewlevel(), 0);
    EXPECT_EQ(osdmenu_itemname_enable("aimodeselection"), 0);
    std::string notice;
    EXPECT_EQ(read_settings(host.settings_path, notice).values["trackingmode"], 2);
    open_ai_mode();
    repaint();
    EXPECT_EQ(chosen(), "ai_presenter");
}

TEST_F(HostCase, TheGalleryOpensOnTheViewThatWasChosenAndTheInformationPageCloses)
{
    walk_to("preset_whiteboard");
    play({"ok", "back"});
    EXPECT_EQ(play({"ok"}), "preset_whiteboard");
    open_information();
    repaint();
    EXPECT_EQ(chosen(), "versionmenuback");
    EXPECT_EQ(play({"ok"}), "information");
}

TEST_F(HostCase, ALanguageComesLiveWithTheUsersPlaceRowsAndValues)
{
    host.follows_language = true;
    show_row("infrared_filter", true);
    walk_to("red_gain");
    play({"right", "back", "back"});
    walk_to("language");
    const Image before = image_of(painted_view());
    EXPECT_EQ(play({"right"}), "language");
    EXPECT_EQ(host.language, "de");
    EXPECT_EQ(item_byname("language")->view.description, std::string("Sprache"));
    EXPECT_NE(before.pixels, image_of(painted_view()).pixels);
    EXPECT_EQ(osdmenu_itemname_enable("infrared_filter"), 1);
    walk_to("red_gain");
    EXPECT_EQ(item_byname("red_gain")->item_values.u.number.current, 125);
    // What can't be loaded leaves all as it was.
    run("truncate -s -1 made/en/b.d");
    EXPECT_FALSE(change_language("en"));
    EXPECT_NE(host.notice.find("made/en/b.d: byte "), std::string::npos) << host.notice;
    EXPECT_EQ(play({}), "red_gain");
    EXPECT_EQ(host.settings.values["language"], 1);
}

TEST_F(HostCase, SettingsOfAnotherEditionOfTheMenuAreTakenWithinItsLimits)
{
    host.settings.values = {{"red_gain", 900}, {"backlight", 7}, {"gone", 3}};
    host.settings.texts = {{"ip_address", "10.0.0.7"}};
    ASSERT_TRUE(change_language("de"));
    EXPECT_EQ(host.settings.values["red_gain"], 255);
    EXPECT_EQ(host.settings.values["backlight"], 1);
    EXPECT_EQ(host.settings.values["hue"], 0);
    const osdmenu_item *address = item_byname("ip_address");
    EXPECT_EQ(first_choice(&address->item_values)->u.txt.description, std::string("10.0.0.7"));
}

static const struct {
    int value;
    const char *shown;
} languages[] = {{0, "English"}, {1, "Deutsch"}, {2, "English"}, {3, "English"}, {-1, "Deutsch"}, {-9, "Deutsch"}};
TEST_F(HostCase, AValueBeyondTheChoicesIsToldAsItIsPainted)
{
    for (const auto &[value, shown] : languages)
        EXPECT_EQ(value_text(item_byname("language"), value), shown) << value;
}
