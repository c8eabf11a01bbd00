// Findings as a person, a script, a code scanner or a forge wants them.
#pragma once

#include <cstdio>
#include <string>

#include "rules/findings.h"

enum class ReportFormat { text, json, sarif, github };

std::string report(const Findings &findings, ReportFormat format);

inline void print_report(std::FILE *out, const Findings &findings, ReportFormat format)
{
    std::fputs(report(findings, format).c_str(), out);
}
