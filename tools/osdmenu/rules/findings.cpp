#include "rules/findings.h"

#include <algorithm>

#include "common/text.h"
#include "rules/rule_table.h"

const char *severity_name(Severity severity)
{
    static constexpr const char *names[] = {"error", "warning", "off"};
    return names[static_cast<size_t>(severity)];
}

void Findings::add(Finding finding)
{
    finding.severity = rule_named(finding.rule)->severity;
    findings.push_back(std::move(finding));
}

void Findings::error(const Place &place, const std::string &text, const std::string &cure)
{
    add({place, "menu-file", text, cure});
}

void Findings::append(const Findings &others)
{
    findings.insert(findings.end(), others.findings.begin(), others.findings.end());
}

static bool suppresses(const Suppression &suppression, const Finding &finding)
{
    return suppression.rule == finding.rule &&
           (suppression.subject.empty() || suppression.subject == finding.subject) &&
           (suppression.language.empty() || suppression.language == finding.language);
}

void Findings::settle(const CheckSettings &settings)
{
    for (const auto &[rule, severity] : settings.severities)
        for (Finding &finding : findings)
            if (finding.rule == rule)
                finding.severity = severity;
    // Where the menu could not be judged to the end, a suppression may have its finding still to come.
    bool is_judged = !has_rule("menu-file") && !has_rule("unreadable");
    for (const Suppression &suppression : settings.suppressions)
        if (std::erase_if(findings, [&](const Finding &f) { return suppresses(suppression, f); }) == 0 && is_judged &&
            !rule_named(suppression.rule)->is_walked)
            add({suppression.place, "needless-suppression",
                 "nothing breaks " + in_quotes(suppression.rule) + " here: the suppression is not needed",
                 "take it out"});
    std::erase_if(findings, [](const Finding &f) { return f.severity == Severity::off; });
}

size_t Findings::count(Severity severity) const
{
    std::vector<Finding> all = sorted();
    auto is_it = [&](const Finding &f) { return f.severity == severity; };
    return static_cast<size_t>(std::count_if(all.begin(), all.end(), is_it));
}

bool Findings::has_rule(const std::string &rule) const
{
    return std::any_of(findings.begin(), findings.end(), [&](const Finding &f) { return f.rule == rule; });
}

std::vector<Finding> Findings::sorted() const
{
    std::vector<Finding> result = findings;
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}
