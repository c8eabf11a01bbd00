// osdmenu, the menu designer's tool: one program with subcommands.

#include <cstdio>
#include <exception>

#include "commands/commands.h"
#include "common/text.h"

static int run_tool(int argc, char **argv)
{
    CLI::App app{"Makes and shows the on-screen menus of a camera"};
    app.require_subcommand(1);
    Run run;
    for (auto add : {add_build, add_check, add_explain, add_extract, add_inspect, add_schema, add_shot})
        add(app, run);
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
