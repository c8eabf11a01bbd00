#include "rules/findings.h"

#include <algorithm>
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

void Findings::error(const Place &place, const std::string &text, const std::string &cure)
{
    findings.push_back({place, "error", text, cure});
}

void Findings::warning(const Place &place, const std::string &text, const std::string &cure)
{
    findings.push_back({place, "warning", text, cure});
}

bool Findings::has_errors() const
{
    return std::any_of(findings.begin(), findings.end(), [](const Finding &f) { return f.kind == "error"; });
}

void Findings::print(std::FILE *out) const
{
    std::vector<Finding> sorted = findings;
    std::sort(sorted.begin(), sorted.end());
    // A text that several languages trip over is told once, unless the words differ.
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    for (const Finding &f : sorted) {
        std::string where = printable(f.place.file);
        if (f.place.line > 0)
            where.append(":").append(std::to_string(f.place.line)).append(":").append(std::to_string(f.place.column));
        std::fprintf(out, "%s: %s: %s\n", where.c_str(), f.kind.c_str(), printable(f.text).c_str());
        print_source(out, f.place);
        if (!f.cure.empty())
            std::fprintf(out, "      = %s\n", printable(f.cure).c_str());
    }
}
