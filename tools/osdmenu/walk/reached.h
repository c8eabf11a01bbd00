// What a walk has reached, as a table or as JSON: each row and each of its values with the fewest presses to it.
#pragma once

#include "walk/walk.h"

struct ReachedRow {
    std::string page;
    std::string item;
    int presses;
    std::vector<std::string> keys;
    std::vector<WalkedValue> values;
};

// In the order in which they were reached.
std::vector<ReachedRow> reached_rows(const Walk &walk);

std::string reached_report(const Walk &walk, bool as_json);
