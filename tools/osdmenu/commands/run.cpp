// osdmenu run: a compiled menu to be tried on a desktop, with the keys, settings and languages of a camera.

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <unistd.h>

#include "commands/commands.h"
#include "common/text.h"
#include "desktop/panel.h"
#include "desktop/screen.h"
#include "host/places.h"
#include "host/streams.h"
#include "lib_dbgout.h"
#include "rules/report.h"
#include "script/script.h"

namespace fs = std::filesystem;

namespace
{

struct RunOptions {
    std::string directory; // of a menu or one language
    std::string language;
    std::string display;
    std::string settings;
    std::string background;
    std::string scale = "fit";
    std::string graphics = "auto";
    std::string trace;
    std::string record;
    int trace_level = 0;
    std::vector<std::string> resume; // fields of Resumed
};

// What a session takes over from the one before it, which ended for new files.
struct Resumed {
    std::string size; // of the window
    std::string language = {};
    std::string help_block = {}; // on or off
    std::string row_below_ai_mode = {};
    std::vector<std::string> rows = {}; // down to the chosen one
};

volatile std::sig_atomic_t is_told_to_end;

struct NoDisplay : Failure {
    using Failure::Failure;
};

} // namespace

static constexpr int TICK = 100;                      // milliseconds
static constexpr long TRACE_LIMIT = 4l * 1024 * 1024; // bytes

// Settings are saved and a terminal is itself again, whoever ends the session. A reader that has gone is seen when
// something is written.
static void end_in_order()
{
    struct sigaction action = {};
    action.sa_handler = [](int) { is_told_to_end = 1; };
    for (int number : {SIGTERM, SIGINT, SIGHUP, SIGQUIT})
        sigaction(number, &action, nullptr);
    action.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &action, nullptr);
}

static std::optional<Resumed> resumed(const RunOptions &options)
{
    const std::vector<std::string> &words = options.resume;
    if (words.size() < 4)
        return {};
    return Resumed{words[0], words[1], words[2], words[3], {words.begin() + 4, words.end()}};
}

// A language that was asked for by its own directory goes before the one that is remembered.
static std::string first_language(const RunOptions &options, const MenuDirectory &menu)
{
    if (auto before = resumed(options))
        return menu.has_language(before->language) ? before->language : menu.language;
    const std::vector<std::string> &codes = menu.manifest.languages;
    auto remembered = host.settings.values.find("language");
    bool is_one_language = !fs::equivalent(options.directory, menu.path.empty() ? "." : menu.path);
    if (options.language.empty() && !is_one_language && remembered != host.settings.values.end() &&
        static_cast<size_t>(remembered->second) < codes.size() &&
        menu.has_language(codes[static_cast<size_t>(remembered->second)]))
        return codes[static_cast<size_t>(remembered->second)];
    return menu.language_to_start_in(options.language);
}

static void start_menu(const RunOptions &options, const MenuDirectory &menu, const std::string &settings)
{
    dbgout_profile.lib_level = dbgout_profile.para_level = options.trace_level;
    host.settings = read_settings(settings, host.notice);
    host.settings_path = settings;
    host.follows_language = true;
    start_host(menu, first_language(options, menu));
}

// What a person asked for is opened or the session fails; else a terminal will do where there is no window.
static std::unique_ptr<Screen> open_screen(const RunOptions &options, const Streams &streams)
{
    int scale = std::atoi(options.scale.c_str()); // 0 for "fit"
    if (options.display == "none")
        return open_words(streams.out, streams.err);
    if (options.display == "terminal")
        return open_terminal(streams.out, options.graphics);
    const std::string size = resumed(options).value_or(Resumed{}).size;
    if (options.display == "window")
        return open_window(scale, size);
    // A desktop that can't be reached is no reason to fail while there is a terminal.
    if (std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY"))
        try {
            return open_window(scale, size);
        } catch (const Failure &) {
        }
    if (isatty(STDIN_FILENO) && isatty(fileno(streams.out)))
        return open_terminal(streams.out, options.graphics);
    throw NoDisplay("there is neither a desktop nor a terminal; --display none reads keys from standard input");
}

// At the chosen row before the files were new, or the nearest above it that is still there.
static void go_to_place(const Resumed &before)
{
    if (int row = std::atoi(before.row_below_ai_mode.c_str()); row >= 0 && has_ai_mode_page()) {
        open_ai_mode();
        host.row_below_ai_mode = row;
    }
    for (auto row = before.rows.rbegin(); row != before.rows.rend() && !go_to(*row); ++row)
        ;
}

static void serve(Session &session, Screen &screen)
{
    while (session.end == SessionEnd::none && !is_told_to_end) {
        Streams::keep_trace_below(TRACE_LIMIT);
        if (std::exchange(session.is_changed, false) || screen.needs_paint)
            screen.show(session);
        for (const std::string &key : screen.keys(TICK))
            if (session.end == SessionEnd::none)
                press_key(session, key);
        if (session.end == SessionEnd::none)
            pass_time(session, Clock::now());
    }
    if (session.end == SessionEnd::new_files)
        screen.show(session); // whoever waits for an answer to the last key has it
}

// A state directory that can't be written to costs the trace only.
static std::string trace_path(const RunOptions &options, const std::string &state, Session &session)
{
    if (!options.trace.empty())
        return options.trace;
    std::error_code fault;
    fs::create_directories(state, fault);
    if (access(state.c_str(), W_OK) == 0)
        return state + "/trace.log";
    session.notices.push_back(state + " cannot be written, so there is no trace");
    return "/dev/null";
}

// A session that takes over from another goes on with its record.
static void open_record(Session &session, const std::string &path, bool goes_on)
{
    if (!path.empty())
        session.record.open(path, goes_on ? std::ios::app : std::ios::trunc);
    if (!session.record)
        throw Failure(path + ": " + std::strerror(errno));
}

// Everything that the session held is given back when it returns. What it returns is to be resumed.
static std::vector<std::string> hold_session(const RunOptions &options)
{
    const std::optional<Resumed> before = resumed(options);
    Session session;
    MenuDirectory menu = open_menu_directory(options.directory, session.findings);
    std::string state = state_directory_of(menu.path.empty() ? "." : menu.path);
    open_record(session, options.record, before.has_value());
    session.directory = options.directory;
    session.working_directory = fs::current_path();
    session.trace_path = trace_path(options, state, session);
    session.shows_help_block = before && before->help_block == "on";
    Streams streams(session.trace_path);
    print_report(streams.err, session.findings, ReportFormat::text);
    start_menu(options, menu, options.settings.empty() ? state + "/settings.json" : options.settings);
    session.backdrop = read_backdrop(options.background, painted_view().width, painted_view().height);
    end_in_order();
    std::unique_ptr<Screen> screen = open_screen(options, streams);
    if (before)
        go_to_place(*before);
    start_session(session);
    if (session.record.is_open() && !before)
        session.record << "language " << script_word(host.language) << std::endl;
    try {
        serve(session, *screen);
    } catch (...) {
        finish_session(session); // what fails must not cost the settings
        throw;
    }
    finish_session(session);
    if (session.end != SessionEnd::new_files || is_told_to_end)
        return {};
    std::vector<std::string> resume = place();
    resume.insert(resume.begin(), {screen->size(), host.language, session.shows_help_block ? "on" : "off",
                                   std::to_string(host.row_below_ai_mode)});
    return resume;
}

// The arguments of this process, with what is to be resumed behind the name of the subcommand.
static std::vector<std::string> arguments_to_resume(const std::vector<std::string> &resume)
{
    static const std::string OPTION = "--resume=";
    std::ifstream in("/proc/self/cmdline", std::ios::binary);
    std::vector<std::string> arguments;
    for (std::string argument; std::getline(in, argument, '\0');)
        if (!argument.starts_with(OPTION))
            arguments.push_back(argument);
    auto at = std::find(arguments.begin(), arguments.end(), "run") + 1;
    for (const std::string &word : resume)
        at = arguments.insert(at, OPTION + word) + 1;
    return arguments;
}

// Replaces the process by one that knows nothing of the old files.
[[noreturn]] static void start_anew(const std::vector<std::string> &resume)
{
    std::vector<std::string> arguments = arguments_to_resume(resume);
    std::vector<char *> pointers(arguments.size() + 1, nullptr);
    std::transform(arguments.begin(), arguments.end(), pointers.begin(), [](std::string &each) { return each.data(); });
    execv("/proc/self/exe", pointers.data());
    throw Failure(std::string("cannot start anew: ") + std::strerror(errno));
}

static int run_menu(const RunOptions &options)
{
    try {
        std::vector<std::string> resume = hold_session(options);
        if (!resume.empty() && !is_told_to_end)
            start_anew(resume);
        return STATUS_CLEAN;
    } catch (const NoDisplay &e) {
        std::fprintf(stderr, "osdmenu: %s\n", e.what());
        return STATUS_NO_DISPLAY;
    }
}

void add_run(CLI::App &app, Run &run)
{
    auto shared = std::make_shared<RunOptions>();
    RunOptions &options = *shared;
    CLI::App *command = app.add_subcommand("run", "Tries a compiled menu, in a window or a terminal");
    command->add_option("directory", options.directory, "Directory of a compiled menu, or of one of its languages")
        ->required();
    command->add_option("--language", options.language, "Language to start in, in place of the one that is remembered");
    command->add_option("--display", options.display, "Where to show it; none reads names of keys from standard input")
        ->check(CLI::IsMember({"window", "terminal", "none"}));
    command->add_option("--scale", options.scale, "Of the page in a window: fit, or a whole number")
        ->check(CLI::IsMember({"fit", "1", "2", "3", "4", "5", "6", "7", "8"}));
    command->add_option("--graphics", options.graphics, "How a terminal draws the page")
        ->check(CLI::IsMember({"auto", "kitty", "sixel", "blocks"}));
    command->add_option("--background", options.background, "Behind transparent pixels: #rrggbb or a PNG file");
    command->add_option("--settings", options.settings, "File of the settings, in place of the menu's own");
    command->add_option("--trace", options.trace, "File for what the library prints");
    command->add_option("--trace-level", options.trace_level, "How much it prints")->check(CLI::Range(0, 7));
    command->add_option("--record", options.record, "File that the keys are written to, as a script");
    command->add_option("--resume", options.resume)->take_all()->allow_extra_args(false)->group("");
    command->callback([&run, shared] { run = [shared] { return run_menu(*shared); }; });
}
