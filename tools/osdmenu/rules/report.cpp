#include "rules/report.h"

#include <fstream>

#include "common/text.h"

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

// The source line and a mark below the column. Tabs stay tabs in the mark's line, so that it lands where it should.
static void print_source(std::FILE *out, const Place &place)
{
    std::string line = line_of(place);
    if (line.empty())
        return;
    std::string mark;
    for (size_t i = 0; i + 1 < static_cast<size_t>(place.column) && i < line.size(); i++)
        if (!is_utf8_continuation(line[i]))
            mark += line[i] == '\t' ? '\t' : ' ';
    std::fprintf(out, "%5d | %s\n      | %s^\n", place.line, printable(line).c_str(), mark.c_str());
}

static void print_text(std::FILE *out, const Finding &finding)
{
    const Place &place = finding.place;
    std::string where = printable(place.file);
    if (place.line > 0)
        where.append(":").append(std::to_string(place.line)).append(":").append(std::to_string(place.column));
    std::fprintf(out, "%s: %s: %s [%s]\n", where.c_str(), finding.severity == Severity::error ? "error" : "warning",
                 printable(finding.text).c_str(), finding.rule.c_str());
    print_source(out, place);
    if (!finding.cure.empty())
        std::fprintf(out, "      = %s\n", printable(finding.cure).c_str());
}

void print_report(std::FILE *out, const Findings &findings, ReportFormat)
{
    for (const Finding &finding : findings.sorted())
        print_text(out, finding);
}
