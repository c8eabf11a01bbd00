#include "rules/report.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <glib.h>

#include "common/text.h"
#include "rules/json.h"
#include "rules/rule_table.h"

// Read again for each finding: there are few, and most runs have none.
static std::string line_of(const Place &place)
{
    std::ifstream in(place.file);
    std::string line;
    for (int number = 0; number < place.line; number++)
        if (!std::getline(in, line))
            return {};
    return line;
}

// What stands in front of a place in its line.
static std::string line_before(const Place &place)
{
    return cut_utf8(line_of(place), static_cast<size_t>(std::max(0, place.column - 1)));
}

// From 1. Places count bytes, which no reader of a report does.
static std::string column_in_characters(const Place &place)
{
    std::string before = line_before(place);
    return std::to_string(1 +
                          std::count_if(before.begin(), before.end(), [](char c) { return !is_utf8_continuation(c); }));
}

// The source line and a mark below the column, in the cells of a terminal. Tabs stay tabs, so that it lands where it
// should.
static std::string source(const Place &place)
{
    std::string line = printable(line_of(place)), before = printable(line_before(place)), mark;
    std::string number = std::to_string(place.line);
    if (line.empty())
        return {};
    for (const char *at = before.c_str(); *at; at = g_utf8_next_char(at))
        if (!g_unichar_iszerowidth(g_utf8_get_char(at)))
            mark += *at == '\t' ? "\t" : g_unichar_iswide(g_utf8_get_char(at)) ? "  " : " ";
    number.insert(0, 5 - std::min<size_t>(5, number.size()), ' ');
    return number + " | " + line + "\n      | " + mark + "^\n";
}

static std::string text_finding(const Finding &finding)
{
    const Place &place = finding.place;
    std::string where = printable(place.file);
    if (place.line > 0)
        where.append(":").append(std::to_string(place.line)).append(":").append(std::to_string(place.column));
    std::string cure;
    if (!finding.cure.empty())
        cure.append("      = ").append(printable(finding.cure)).append("\n");
    return where + ": " + severity_name(finding.severity) + ": " + printable(finding.text) + " [" + finding.rule +
           "]\n" + source(place) + cure;
}

static std::string with_cure(const Finding &finding, const char *between)
{
    return finding.cure.empty() ? finding.text : finding.text + between + finding.cure;
}

// Scanners and forges know files by their way from where the tool runs.
static std::string relative(const std::string &file)
{
    std::filesystem::path path(file);
    return path.is_absolute() ? path.lexically_proximate(std::filesystem::current_path()).string() : file;
}

static std::string json_finding(const Finding &finding)
{
    return json_object({{"rule", json_quoted(finding.rule)},
                        {"severity", json_quoted(severity_name(finding.severity))},
                        {"file", json_quoted(finding.place.file)},
                        {"line", std::to_string(finding.place.line)},
                        {"column", std::to_string(finding.place.column)},
                        {"text", json_quoted(finding.text)},
                        {"cure", json_quoted(finding.cure)},
                        {"item", json_quoted(finding.subject)},
                        {"language", json_quoted(finding.language)}});
}

static std::string sarif_text(const std::string &text)
{
    return json_object({{"text", json_quoted(text)}});
}

static std::string sarif_rule(const Rule &rule)
{
    std::string level = json_object({{"level", json_quoted(severity_name(rule.severity))}});
    return json_object({{"id", json_quoted(rule.name)},
                        {"shortDescription", sarif_text(rule.summary)},
                        {"fullDescription", sarif_text(rule.reason)},
                        {"help", sarif_text(rule.cure)},
                        {"defaultConfiguration", level}});
}

// What concerns a file as a whole stands in its first line.
static std::string sarif_result(const Finding &finding)
{
    char *uri = g_uri_escape_string(relative(finding.place.file).c_str(), "/", FALSE);
    std::string artifact = json_object({{"uri", json_quoted(uri)}});
    g_free(uri);
    std::string region = json_object({{"startLine", std::to_string(std::max(1, finding.place.line))},
                                      {"startColumn", column_in_characters(finding.place)}});
    std::string physical = json_object({{"artifactLocation", artifact}, {"region", region}});
    return json_object({{"ruleId", json_quoted(finding.rule)},
                        {"level", json_quoted(severity_name(finding.severity))},
                        {"message", sarif_text(with_cure(finding, "; "))},
                        {"locations", json_array({json_object({{"physicalLocation", physical}})})}});
}

static std::string sarif_report(const std::vector<std::string> &results)
{
    std::vector<std::string> rules;
    for (const Rule &rule : all_rules())
        rules.push_back(sarif_rule(rule));
    std::string driver = json_object({{"name", json_quoted("osdmenu")}, {"rules", json_array(rules)}});
    std::string run = json_object({{"tool", json_object({{"driver", driver}})},
                                   {"columnKind", json_quoted("unicodeCodePoints")},
                                   {"results", json_array(results)}});
    return json_object({{"$schema", json_quoted("https://json.schemastore.org/sarif-2.1.0.json")},
                        {"version", json_quoted("2.1.0")},
                        {"runs", json_array({run})}});
}

// What parts a workflow command from its properties and these from each other can't stand in one as it is.
static std::string escaped(const std::string &text, const std::string &marks)
{
    std::string result;
    for (char c : text) {
        char code[4];
        std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned char>(c));
        if (marks.find(c) == std::string::npos)
            result += c;
        else
            result += code;
    }
    return printable(result);
}

static std::string github_finding(const Finding &finding)
{
    return std::string("::") + severity_name(finding.severity) +
           " file=" + escaped(relative(finding.place.file), "%\r\n:,") +
           ",line=" + std::to_string(std::max(1, finding.place.line)) + ",col=" + column_in_characters(finding.place) +
           ",title=" + finding.rule + "::" + escaped(with_cure(finding, "\n"), "%\r\n") + "\n";
}

std::string report(const Findings &findings, ReportFormat format)
{
    static constexpr std::string (*shown[])(const Finding &) = {text_finding, json_finding, sarif_result,
                                                                github_finding};
    std::vector<std::string> parts;
    for (const Finding &finding : findings.sorted())
        parts.push_back(shown[static_cast<size_t>(format)](finding));
    if (format == ReportFormat::json)
        return json_object({{"schema", "1"}, {"findings", json_array(parts)}}) + "\n";
    return format == ReportFormat::sarif ? sarif_report(parts) + "\n" : joined(parts, "");
}

const std::map<std::string, ReportFormat> &report_formats()
{
    static const std::map<std::string, ReportFormat> formats = {{"text", ReportFormat::text},
                                                                {"json", ReportFormat::json},
                                                                {"sarif", ReportFormat::sarif},
                                                                {"github", ReportFormat::github}};
    return formats;
}

std::string counts_of(const Findings &findings)
{
    size_t errors = findings.count(Severity::error), warnings = findings.count(Severity::warning);
    return errors + warnings == 0 ? "no findings" : counted(errors, "error") + ", " + counted(warnings, "warning");
}

bool counts_as_failure(const Findings &findings, bool strict)
{
    return findings.has_errors() || (strict && findings.count(Severity::warning) > 0);
}
