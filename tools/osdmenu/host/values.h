// The values of rows, as the loaded items carry them and as their pages show them.
#pragma once

#include <string>

#include "core/state.h"

int current_value(const osdmenu_item *item);

int choice_count(const osdmenu_item *item); // 0 for a row without choices

// Null behind the last choice, and for a row without any.
const osdmenu_item_value *choice_at(const osdmenu_item *item, int index);

// As the page shows it, whatever the value. Empty for a row without a value.
std::string value_text(const osdmenu_item *item, int value);

// Pixels that a text takes in the glyphs that are loaded.
int width_in_glyphs(const std::string &text);
