// osdmenu explain: what the rules mean, and how the menu file sets them.

#include <memory>

#include "commands/commands.h"
#include "common/text.h"
#include "rules/rule_table.h"

namespace
{

struct ExplainOptions {
    std::string rule; // all if empty
    bool markdown = false;
};

} // namespace

static constexpr char INTRODUCTION[] = R"(# Rules

What `osdmenu check` holds a menu against, as `osdmenu explain` shows it. The menu file sets the severity of a rule, and
suppresses a finding for a reason. Of `item` and `language` either may be left out, for all of them:

    check:
      severity: {text-too-wide: error, ink-cut: "off"}
      suppress:
        - {rule: text-too-wide, item: exposure_mode, language: de, reason: the last letter may be covered}

A suppression that suppresses nothing is a finding of its own.
)";

static std::string severity_of(const Rule &rule)
{
    return severity_name(rule.severity) + std::string(rule.is_fixed ? ", always" : "");
}

static void print_settings(const Rule &rule)
{
    if (rule.is_fixed)
        std::puts("\nThe menu file can neither set its severity nor suppress it.");
    else
        std::printf(R"(
In the menu file:

    check:
      severity: {%s: %s}   # error, warning or "off"
      suppress:
        - {rule: %s, item: NAME, language: CODE, reason: WHY}
)",
                    rule.name, rule.severity == Severity::error ? "warning" : "error", rule.name);
}

static int refuse(const std::string &name)
{
    std::vector<std::string> names;
    for (const Rule &rule : all_rules())
        names.push_back(rule.name);
    static constexpr size_t MOST_SLIPS = 3;
    const std::string *meant = nearest(name, names, MOST_SLIPS);
    std::string cure = meant ? "did you mean " + in_quotes(*meant) + "?" : "osdmenu explain lists them all";
    std::fprintf(stderr, "osdmenu: no rule %s; %s\n", in_quotes(printable(name)).c_str(), cure.c_str());
    return STATUS_USAGE;
}

static int run_explain(const ExplainOptions &options)
{
    const Rule *rule = rule_named(options.rule);
    if (!rule && !options.rule.empty())
        return refuse(options.rule);
    if (rule) {
        std::printf("%s (%s): %s\n\n%s\n\nCure: %s\n", rule->name, severity_of(*rule).c_str(), rule->summary,
                    rule->reason, rule->cure);
        print_settings(*rule);
        return STATUS_CLEAN;
    }
    if (options.markdown)
        std::fputs(INTRODUCTION, stdout);
    for (const Rule &one : all_rules())
        if (options.markdown)
            std::printf("\n## %s\n\n*%s*: %s\n\n%s\n\nCure: %s\n", one.name, severity_of(one).c_str(), one.summary,
                        one.reason, one.cure);
        else
            std::printf("%-22s %s: %s\n", one.name, severity_of(one).c_str(), one.summary);
    return STATUS_CLEAN;
}

void add_explain(CLI::App &app, Run &run)
{
    auto options = std::make_shared<ExplainOptions>();
    CLI::App *command = app.add_subcommand("explain", "Tells what a rule of check means; all rules without a name");
    command->add_option("rule", options->rule, "Name of a rule");
    command->add_flag("--markdown", options->markdown, "Prints all rules as a page of the documentation");
    command->callback([&run, options] { run = [options] { return run_explain(*options); }; });
}
