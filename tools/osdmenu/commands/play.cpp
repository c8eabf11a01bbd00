// osdmenu play: runs a script on a compiled menu and holds what it shows to what is expected.

#include <filesystem>
#include <memory>

#include "commands/commands.h"
#include "common/text.h"
#include "host/host.h"
#include "host/streams.h"
#include "rules/report.h"
#include "script/script.h"

namespace fs = std::filesystem;

struct PlayOptions {
    std::string script, language, settings;
    std::string directory; // of a menu or one language
    Pictures pictures;
};

// Beside the script, unless the caller wants them elsewhere.
static void name_directories(PlayOptions &options)
{
    auto &[verb, references, failures, painted, made] = options.pictures;
    const std::string base = fs::path(options.script).replace_extension();
    if (references.empty())
        references = base + "-pages";
    if (failures.empty())
        failures = base + "-failures";
    auto place = [](const fs::path &path) {
        std::error_code fault;
        const fs::path found = fs::weakly_canonical(fs::absolute(path) / "", fault);
        return fault ? path : found;
    };
    if (place(references) == place(failures))
        throw CLI::ValidationError("--failures", "would take the place of the references");
}

static int run_play(const PlayOptions &options)
{
    Streams streams;
    Findings findings;
    const MenuDirectory menu = open_menu_directory(options.directory, findings);
    const std::string language = menu.language_to_start_in(options.language);
    if (!options.settings.empty())
        host.settings = parse_settings(read_file(options.settings).value()).value();
    host.follows_language = true;
    start_host(menu, language);
    const auto script = parse_script(options.script, read_file(options.script).value(), findings);
    print_report(streams.err, findings, ReportFormat::text);
    Player player{options.script, streams.out, options.pictures};
    return !findings.has_errors() && play(player, script) ? STATUS_CLEAN : STATUS_FINDINGS;
}

void add_play(CLI::App &app, Run &run)
{
    auto shared = std::make_shared<PlayOptions>();
    PlayOptions &options = *shared;
    CLI::App *command = app.add_subcommand("play", "Runs a script on a compiled menu and proves what it shows");
    command->footer("Statements, one a line; # begins a comment:\n" + statement_list());
    CLI::Validator is_readable([](std::string &path) { return read_file(path) ? "" : path + " cannot be read"; }, "");
    CLI::Validator holds_settings(
        [](std::string &path) { return parse_settings(read_file(path).value_or("")) ? "" : path + " holds none"; }, "");
    command->add_option("script", options.script, "The script, a text file")->required()->check(is_readable);
    command->add_option("directory", options.directory, "Directory of a compiled menu, or of one of its languages")
        ->required();
    command->add_option("--language", options.language, "Code of the language to begin with; the first if not given");
    command->add_option("--settings", options.settings, "File of saved settings to begin with")->check(holds_settings);
    command->add_option("--references", options.pictures.references,
                        "Directory of pictures; SCRIPT-pages if not given");
    command->add_option("--failures", options.pictures.failures, "And of what differs; SCRIPT-failures if not given");
    CLI::App *verbs = command->add_option_group("verbs", "Without one pictures are only painted")->require_option(0, 1);
    auto add_verb = [&](const char *name, Verb verb, const char *summary) {
        verbs->add_flag_callback(name, ([&options, verb] { options.pictures.verb = verb; }), summary);
    };
    add_verb("--record", Verb::record, "Writes the references");
    add_verb("--compare", Verb::compare, "Tells the differences, which are no failures");
    add_verb("--verify", Verb::verify, "Differences are failures");
    add_verb("--update", Verb::update, "Tells the differences and renews the references");
    command->callback([&run, shared] {
        name_directories(*shared);
        run = [shared] { return run_play(*shared); };
    });
}
