// osdmenu walk: every state that the keys reach, what they can't reach, and the way past every page.

#include <memory>
#include <set>

#include "commands/commands.h"
#include "common/text.h"
#include "host/host.h"
#include "host/streams.h"
#include "rules/report.h"
#include "script/tour.h"
#include "store/output.h"
#include "walk/reached.h"
#include "walk/walk_rules.h"

namespace
{

struct WalkOptions {
    std::string directory; // of a menu or one language
    std::string language;
    std::string format = "text";
    std::string tour;
    std::vector<std::string> enabled;
    bool strict = false;
    bool reached = false;
};

} // namespace

static constexpr char CUT_SHORT[] = "the menu has more states or values than were walked";

static std::string count_line(const Walk &walk, const Findings &findings)
{
    size_t values = 0;
    std::set<std::string> pages;
    std::vector<ReachedRow> rows = reached_rows(walk);
    for (const ReachedRow &row : rows) {
        values += row.values.size();
        pages.insert(row.page);
    }
    int presses = rows.empty() ? 0 : rows.back().presses;
    std::string line = counted(rows.size(), "row") + " and " + counted(values, "value") + " in " +
                       counted(pages.size(), "page") + " can be reached, each row in at most " +
                       counted(static_cast<size_t>(presses), "press") + ": " + counts_of(findings);
    return line + (walk.is_whole ? "" : std::string("; ") + CUT_SHORT) + "\n";
}

static int run_walk(const WalkOptions &options)
{
    Streams streams;
    Findings read;
    MenuDirectory menu = open_menu_directory(options.directory, read);
    print_report(streams.err, read, ReportFormat::text);
    start_host(menu, menu.language_to_start_in(options.language));
    for (const std::string &item : options.enabled)
        show_row(item, true);
    Walk walk = walk_menu();
    Findings findings = findings_of(walk);
    if (!options.tour.empty())
        streams.put(options.tour, tour_script(walk, options.enabled));
    ReportFormat format = report_formats().at(options.format);
    std::string result =
        options.reached ? reached_report(walk, format == ReportFormat::json) : report(findings, format);
    std::fputs(result.c_str(), streams.out);
    if (options.reached)
        print_report(streams.err, findings, ReportFormat::text);
    if (format == ReportFormat::text)
        std::fputs(count_line(walk, findings).c_str(), options.reached ? streams.err : streams.out);
    else if (!walk.is_whole)
        std::fprintf(streams.err, "osdmenu: %s\n", CUT_SHORT);
    return counts_as_failure(findings, options.strict) ? STATUS_FINDINGS : STATUS_CLEAN;
}

void add_walk(CLI::App &app, Run &run)
{
    auto options = std::make_shared<WalkOptions>();
    CLI::App *command = app.add_subcommand("walk", "Tries every key in every place of a compiled menu");
    command->add_option("directory", options->directory, "Directory of a compiled menu, or of one of its languages")
        ->required();
    command->add_option("--language", options->language, "Code of the language to walk; the first one if not given");
    command->add_option("--enable", options->enabled, "Item to show first")->take_all();
    command->add_option("--format", options->format, "Of the findings: text, json, sarif or github")
        ->check(CLI::IsMember(report_formats()));
    command->add_flag("--reached", options->reached,
                      "Shows each row and value with the fewest presses to it, as text or json");
    command->add_option("--tour", options->tour,
                        "Script to write that shows every page, for osdmenu play; - for standard output");
    command->add_flag("--strict", options->strict, "Warnings count like errors");
    command->callback([&run, options] {
        if (options->reached && options->format != "text" && options->format != "json")
            throw CLI::ValidationError("--reached", "shows text or json, not " + options->format);
        run = [options] { return run_walk(*options); };
    });
}
