// Findings as a person, a script, a code scanner or a forge wants them.
#pragma once

#include <cstdio>
#include <string>

#include "rules/findings.h"

enum class ReportFormat { text, json, sarif, github };

void print_report(std::FILE *out, const Findings &findings, ReportFormat format);
