// The anchors of UP and DOWN: items, named in the configuration, at which these keys stay or jump instead of moving on
// by one row.
#pragma once

#include <algorithm>
#include <string_view>

#include "core/config.h"
#include "core/fixed_items.h"

// Where an anchor leads: nowhere, to its item's row of the top list, or else to a row of JUMP_LEVEL by number.
enum { STAY = -1, TO_ITEM = -2, JUMP_LEVEL = 2 };

// What UP or DOWN does at an item named by a configuration key.
struct anchor {
    const char *key;
    const char *item; // to go to; or whose being enabled decides between the rows below
    int row_if_enabled;
    int row_if_disabled;
    const char *key_while_disabled; // the item, asked beforehand, chooses the key too; or null
};

// Tried in this order; the first match ends the press.
inline constexpr struct anchor up_anchors[] = {
    {INFORMATION_LAST_KEY, nullptr, STAY, STAY, nullptr},
    {"peripheral_last_item", nullptr, STAY, STAY, nullptr},
    {"get_ip_first_item", "ethernet_for_laptop", 2, STAY, nullptr},
    {"menu_first_item", "osdmirror", TO_ITEM, TO_ITEM, nullptr},
    {PERIPHERAL_TITLE_KEY, nullptr, STAY, STAY, nullptr},
    {"peripheralinformation_item", "cec", 3, STAY, nullptr},
    {"language_item", PERIPHERAL_ITEM, 8, 3, nullptr},
};

inline constexpr struct anchor down_anchors[] = {
    {INFORMATION_LAST_KEY, nullptr, STAY, STAY, nullptr},
    {"peripheral_last_item", nullptr, STAY, STAY, nullptr},
    {"get_ip_last_item", "ethernet_for_laptop", 1, STAY, "get_ip_first_item"},
    {PERIPHERAL_TITLE_KEY, nullptr, STAY, STAY, nullptr},
    {"menu_last_item", "camera", TO_ITEM, TO_ITEM, nullptr},
    {"general_last_item", PERIPHERAL_ITEM, 8, 1, nullptr},
};

inline bool item_decides(const struct anchor *anchor)
{
    return anchor->item && anchor->row_if_enabled != TO_ITEM;
}

inline const char *anchor_key(const struct anchor *anchor, bool enabled)
{
    return anchor->key_while_disabled && !enabled ? anchor->key_while_disabled : anchor->key;
}

inline int anchor_row(const struct anchor *anchor, bool enabled)
{
    return enabled ? anchor->row_if_enabled : anchor->row_if_disabled;
}

// Whether an entry of the configuration names an anchor's item.
constexpr bool is_anchor_key(std::string_view key)
{
    auto has_key = [key](const struct anchor &anchor) {
        return key == anchor.key || (anchor.key_while_disabled && key == anchor.key_while_disabled);
    };
    return std::any_of(std::begin(up_anchors), std::end(up_anchors), has_key) ||
           std::any_of(std::begin(down_anchors), std::end(down_anchors), has_key);
}
