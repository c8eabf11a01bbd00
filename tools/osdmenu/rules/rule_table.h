// The rules that a menu is held against. `osdmenu explain` shows them, and docs/rules.md is written from the same
// table.
#pragma once

#include <span>
#include <string>

#include "rules/findings.h"

struct Rule {
    const char *name;
    Severity severity; // unless the menu file sets another
    bool is_fixed;     // the menu can neither set its severity nor suppress it
    bool is_walked;    // found by `osdmenu walk`, not by `osdmenu check`
    const char *summary;
    const char *reason; // what happens on the device, or to the people who use the files
    const char *cure;
};

std::span<const Rule> all_rules();

// Null when there is none of that name.
const Rule *rule_named(const std::string &name);
