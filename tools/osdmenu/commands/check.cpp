// osdmenu check: holds a menu against every rule, and tells how much room its texts leave.

#include <memory>

#include "commands/commands.h"
#include "commands/progress.h"
#include "common/text.h"
#include "host/streams.h"
#include "rules/headroom.h"
#include "rules/judgement.h"
#include "rules/report.h"
#include "store/output.h"

namespace
{

struct CheckOptions {
    std::string menu;
    std::string format = "text";
    std::string output; // standard output if empty
    bool strict = false;
    bool headroom = false;
};

} // namespace

static std::string count_line(const Findings &findings, const Judged &judged)
{
    size_t languages = judged.languages.size();
    return counts_of(findings) + (languages ? " in " + counted(languages, "language") : "; no text was rendered") +
           "\n";
}

// The findings are the result here. Beside a table they still say why the exit status is what it is.
static std::string result_of(const CheckOptions &options, const Findings &findings, const Judged &judged,
                             std::FILE *err)
{
    ReportFormat format = report_formats().at(options.format);
    if (!options.headroom)
        return report(findings, format) + (format == ReportFormat::text ? count_line(findings, judged) : "");
    print_report(err, findings, ReportFormat::text);
    return judged.project ? headroom(*judged.project, judged.languages, format == ReportFormat::json) : "";
}

static int status_of(const Findings &findings, bool strict)
{
    if (findings.has_rule("unreadable"))
        return STATUS_UNCHECKED;
    return counts_as_failure(findings, strict) ? STATUS_FINDINGS : STATUS_CLEAN;
}

// Whatever stops the run, the menu has not been judged then.
static int run_check(const CheckOptions &options)
{
    try {
        Streams streams;
        Findings findings;
        Judged judged = judge_menu({.path = options.menu, .progress = progress_on(streams.err)}, findings);
        std::string result = result_of(options, findings, judged, streams.err);
        if (options.output.empty())
            std::fputs(result.c_str(), streams.out);
        else
            replace_file(options.output, result);
        return status_of(findings, options.strict);
    } catch (const std::exception &e) {
        std::fprintf(stderr, "osdmenu: %s\n", printable(e.what()).c_str());
        return STATUS_UNCHECKED;
    }
}

void add_check(CLI::App &app, Run &run)
{
    auto options = std::make_shared<CheckOptions>();
    CLI::App *command = app.add_subcommand("check", "Holds a menu against every rule");
    command->add_option("menu", options->menu, "The menu, a YAML file")->required();
    command->add_option("--format", options->format, "text, json, sarif or github")
        ->check(CLI::IsMember(report_formats()));
    command->add_option("-o,--output", options->output, "File to write in place of standard output");
    command->add_flag("--strict", options->strict, "Warnings count like errors");
    command->add_flag("--headroom", options->headroom, "Shows the free pixels of every text, as text or json");
    command->callback([&run, options] {
        if (options->headroom && options->format != "text" && options->format != "json")
            throw CLI::ValidationError("--headroom", "shows text or json, not " + options->format);
        run = [options] { return run_check(*options); };
    });
}
