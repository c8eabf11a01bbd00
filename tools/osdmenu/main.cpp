// osdmenu, the menu designer's tool: one program with subcommands.

#include <cstdio>
#include <exception>
#include <filesystem>

#include "commands/commands.h"
#include "common/text.h"
#include "host/streams.h"

// A failure may have several lines.
static void tell(const std::string &failure)
{
    for (const std::string &line : parts_of(failure, '\n'))
        std::fprintf(stderr, "osdmenu: %s\n", printable(line).c_str());
}

static int run_tool(int argc, char **argv)
{
    CLI::App app{"Makes and shows the on-screen menus of a camera"};
    app.require_subcommand(1);
    app.set_version_flag("--version", "osdmenu " OSDMENU_VERSION);
    Run run;
    for (auto add : {add_build, add_check, add_explain, add_extract, add_gallery, add_inspect, add_play, add_run,
                     add_schema, add_shot, add_walk})
        add(app, run);
    try {
        app.parse(argc, argv);
        int status = run();
        // A full disk must not pass for a clean result.
        if (std::fflush(stdout) != 0 || std::ferror(stdout))
            Streams::unwritable = "standard output";
        if (!Streams::unwritable.empty())
            throw Failure(Streams::unwritable + " cannot be written");
        return status;
    } catch (const CLI::ParseError &e) {
        // Help ends the parsing too, but is no wrong call.
        return app.exit(e) == 0 ? 0 : STATUS_USAGE;
    } catch (const std::filesystem::filesystem_error &e) {
        std::fprintf(stderr, "osdmenu: %s: %s\n", printable(e.path1().string()).c_str(), e.code().message().c_str());
        return STATUS_FINDINGS;
    } catch (const std::exception &e) {
        tell(e.what());
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
