// Findings as a person, a script, a code scanner or a forge wants them.
#pragma once

#include <cstdio>
#include <map>
#include <string>

#include "rules/findings.h"

enum class ReportFormat { text, json, sarif, github };

// By the names that a caller gives.
const std::map<std::string, ReportFormat> &report_formats();

std::string report(const Findings &findings, ReportFormat format);

inline void print_report(std::FILE *out, const Findings &findings, ReportFormat format)
{
    std::fputs(report(findings, format).c_str(), out);
}

// "no findings", or how many of each severity.
std::string counts_of(const Findings &findings);

// Errors do, warnings where they count like errors.
bool counts_as_failure(const Findings &findings, bool strict);
