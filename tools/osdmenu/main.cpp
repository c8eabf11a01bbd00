// osdmenu, the menu designer's tool: one program with subcommands.

#include <cstdio>
#include <exception>
#include <functional>

#include <CLI/CLI.hpp>

#include "commands/build.h"
#include "commands/shot.h"
#include "common/text.h"
#include "render/pixels.h"

static constexpr int STATUS_FINDINGS = 1, STATUS_USAGE = 2;

// The command line is parsed before anything runs; `run` is what it asked for.
static void add_build(CLI::App &app, BuildOptions &options, std::function<int()> &run)
{
    CLI::App *command = app.add_subcommand("build", "Compiles a menu into the resources of a device");
    command->add_option("menu", options.menu, "The menu, a YAML file")->required();
    command->add_option("-o,--output", options.directory, "Directory to make, with one directory for each language");
    command->add_option("--template", options.template_path, "PO template of the menu's texts to write");
    command->callback([&] {
        if (options.directory.empty() && options.template_path.empty())
            throw CLI::RequiredError("--output or --template");
        run = [&] { return run_build(options); };
    });
}

static void add_shot(CLI::App &app, ShotOptions &options, std::function<int()> &run)
{
    CLI::App *command = app.add_subcommand("shot", "Plays keys on a compiled menu and writes the page as a PNG file");
    CLI::Validator is_colour([](std::string &text) { return parse_colour(text) ? "" : "no colour: " + text; },
                             "#rrggbb");
    command->add_option("directory", options.directory, "Directory of one language")->required();
    command->add_option("-o,--output", options.output, "PNG file to write")->required();
    command->add_option("--keys", options.keys, "Keys parted by blanks: up down left right ok back menu");
    command->add_option("--open", options.open, "Item to go to and press OK on, before the keys");
    command->add_option("--enable", options.enabled, "Item to show")->take_all();
    command->add_option("--disable", options.disabled, "Item to hide")->take_all();
    command->add_flag("--helpline", options.help_line, "End every page with the help block");
    command->add_option("--bubble", options.bubble, "Shows a bubble in place of a page");
    command->add_option("--text", options.text, "Shows a text in place of a page; \\n breaks the line");
    command->add_option("--background", options.background, "Colour behind transparent pixels")->check(is_colour);
    command->add_option("--trace", options.trace, "File for what the library prints");
    command->add_option("--burst", options.burst, "In place of the manifest's")->check(CLI::Range(1, 8));
    command->add_option("--font-size", options.font_size, "In place of the manifest's")->check(CLI::Range(8, 400));
    command->add_option("--width", options.width, "Of the view, in place of the manifest's")
        ->check(CLI::Range(16, 8192));
    command->add_option("--height", options.height, "Of the view")->check(CLI::Range(16, 8192));
    command->add_option("--pixel-format", options.pixel_format, "In place of the manifest's")
        ->check(CLI::IsMember({"ARGB1555", "RGB565"}));
    command->callback([&] { run = [&] { return run_shot(options); }; });
}

static int run_tool(int argc, char **argv)
{
    CLI::App app{"Makes and shows the on-screen menus of a camera"};
    app.require_subcommand(1);
    BuildOptions build;
    ShotOptions shot;
    std::function<int()> run;
    add_build(app, build, run);
    add_shot(app, shot, run);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &e) {
        // Help ends the parsing too, but is no wrong call.
        return app.exit(e) == 0 ? 0 : STATUS_USAGE;
    }
    try {
        return run();
    } catch (const std::exception &e) {
        std::fprintf(stderr, "osdmenu: %s\n", printable(e.what()).c_str());
        return STATUS_FINDINGS;
    }
}

int main(int argc, char **argv)
{
    try {
        return run_tool(argc, argv);
    } catch (...) {
        std::fputs("osdmenu: out of memory\n", stderr);
        return STATUS_FINDINGS;
    }
}
