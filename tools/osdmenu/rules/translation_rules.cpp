#include "rules/translation_rules.h"

void check_translations(const Project &, Findings &) {}
