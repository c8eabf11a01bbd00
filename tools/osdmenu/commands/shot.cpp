// osdmenu shot: plays keys on a compiled menu and writes what the device would show.

#include <algorithm>
#include <memory>
#include <sstream>
#include <vector>

#include "commands/commands.h"
#include "common/text.h"
#include "core/debug.h"
#include "core/layout.h"
#include "host/host.h"
#include "host/places.h"
#include "host/streams.h"
#include "host/values.h"
#include "menu/menu_keys.h"
#include "osd_menu_post.h"
#include "render/png.h"
#include "resources/glyph_banks.h"
#include "rules/report.h"

namespace
{

struct ShotOptions {
    std::string directory; // of a menu or one language
    std::string output;
    std::string keys; // parted by blanks
    std::string background;
    std::string bubble;
    std::string text;
    std::string open;
    std::string trace;
    std::vector<std::string> enabled;
    std::vector<std::string> disabled;
    bool help_line = false;
    // In place of what the manifest says; 0 or empty takes that.
    int burst = 0;
    int font_size = 0;
    int width = 0;
    int height = 0;
    std::string pixel_format;
};

} // namespace

static std::vector<std::string> words_of(const std::string &text)
{
    std::istringstream in(text);
    std::vector<std::string> words;
    for (std::string word; in >> word;)
        words.push_back(word);
    return words;
}

static void play(const std::string &key)
{
    if (!press(key))
        throw Failure("no key " + in_quotes(key) + "; known are: " + key_names());
    repaint();
}

// Keys act on what the last draw found, so there is one before the first key and after each.
static PixelView page(const ShotOptions &options)
{
    osdmenu_meeting_camera_helpline_enable(options.help_line);
    if (!options.open.empty() && !open_item(options.open))
        throw Failure("no page shows " + in_quotes(options.open));
    repaint();
    for (const std::string &key : words_of(options.keys))
        play(key);
    return painted_view();
}

// What a text takes on the view: its longest line, and a line's height for each.
static PixelView text_bubble(const std::string &given)
{
    std::string text = given;
    for (size_t at = text.find("\\n"); at != text.npos; at = text.find("\\n", at))
        text.replace(at, 2, 1, '\n');
    int width = 1, height = 0;
    for (std::string line : parts_of(text, '\n')) {
        auto has_none = [](char c) { return glyph_index(c) == GLYPH_NONE; };
        std::replace_if(line.begin(), line.end(), has_none, osdmenu_common_char[GLYPH_SPACE]);
        width = std::max(width, width_in_glyphs(line));
    }
    const char *block = get_osdmenu_bubble2(text.c_str(), 0, 0, &height);
    if (width > osdmenu_viewarea_width)
        throw Failure("the text is wider than the view; break it with \\n");
    return {block, width, std::min(height, osdmenu_viewarea_height), osdmenu_viewarea_width,
            host.menu.manifest.display.pixel_format};
}

// What the command line says goes before what the menu's designer chose.
static void override_manifest(const ShotOptions &options, Manifest &manifest)
{
    Display &display = manifest.display;
    display.burst = options.burst ? options.burst : display.burst;
    display.font_size = options.font_size ? options.font_size : display.font_size;
    display.width = options.width ? options.width : display.width;
    display.height = options.height ? options.height : display.height;
    if (!options.pixel_format.empty())
        display.pixel_format = *parse_pixel_format(options.pixel_format);
}

// The library may say all it has when that leads to a file.
static void trace_all_steps()
{
    dbgout_profile.lib_level = LOG_STEP;
    dbgout_profile.para_level = LOG_STEP;
}

static PixelView picture(const ShotOptions &options)
{
    if (!options.bubble.empty())
        return paint_bubble(options.bubble);
    if (!options.text.empty())
        return text_bubble(options.text);
    return page(options);
}

static int run_shot(const ShotOptions &options)
{
    Streams streams(options.trace);
    Findings findings;
    MenuDirectory menu = open_menu_directory(options.directory, findings);
    print_report(streams.err, findings, ReportFormat::text);
    override_manifest(options, menu.manifest);
    if (!options.trace.empty())
        trace_all_steps();
    start_host(menu, menu.language);
    for (const std::string &item : options.enabled)
        show_row(item, true);
    for (const std::string &item : options.disabled)
        show_row(item, false);
    streams.put(options.output, png_of(picture(options), parse_colour(options.background)));
    return 0;
}

void add_shot(CLI::App &app, Run &run)
{
    auto shared = std::make_shared<ShotOptions>();
    ShotOptions &options = *shared;
    CLI::App *command = app.add_subcommand("shot", "Plays keys on a compiled menu and writes the page as a PNG file");
    CLI::Validator is_colour([](std::string &text) { return parse_colour(text) ? "" : "no colour: " + text; },
                             "#rrggbb");
    command->add_option("directory", options.directory, "Directory of a compiled menu, or of one of its languages")
        ->required();
    command->add_option("-o,--output", options.output, "PNG file to write, - for standard output")->required();
    command->add_option("--keys", options.keys, "Keys parted by blanks: " + key_names());
    command->add_option("--open", options.open, "Item to go to and press OK on, before the keys");
    command->add_option("--enable", options.enabled, "Item to show")->take_all();
    command->add_option("--disable", options.disabled, "Item to hide")->take_all();
    command->add_flag("--helpline", options.help_line, "End every page with the help block");
    command->add_option("--bubble", options.bubble, "Shows a bubble in place of a page");
    command->add_option("--text", options.text, "Shows a text in place of a page; \\n breaks the line");
    command->add_option("--background", options.background, "Colour behind transparent pixels")->check(is_colour);
    command->add_option("--trace", options.trace, "File for what the library prints");
    auto range_of = [](const char *key) {
        const Limits &limits = display_key(key).limits;
        return CLI::Range(limits.low, limits.high);
    };
    command->add_option("--burst", options.burst, "In place of the manifest's")->check(range_of("burst"));
    command->add_option("--font-size", options.font_size, "In place of the manifest's")->check(range_of("font_size"));
    command->add_option("--width", options.width, "Of the view, in place of the manifest's")->check(range_of("width"));
    command->add_option("--height", options.height, "Of the view")->check(range_of("height"));
    command->add_option("--pixel-format", options.pixel_format, "In place of the manifest's")
        ->check(CLI::IsMember(display_key("pixel_format").words()));
    command->callback([&run, shared] { run = [shared] { return run_shot(*shared); }; });
}
