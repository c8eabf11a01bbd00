// Items that rules of the library know by their names.
#pragma once

#include <cstring>

inline constexpr const char *AI_MODE_ITEM = "aimodeselection"; // in the top list; the host shows it to open its page
inline constexpr const char *INFORMATION_ITEM = "information";
inline constexpr const char *INFORMATION_BACK_ITEM = "versionmenuback"; // the row that leads back from that page
inline constexpr const char *PERIPHERAL_ITEM = "peripheralinformation";
inline constexpr const char *PERIPHERAL_BACK_ITEM = "peripheralversionmenuback";
inline constexpr const char *PRESET_ITEM = "smartgallery_preset"; // its page is on the deepest level
inline constexpr const char *UPGRADE_ITEM = "upgrade";            // its page is never entered
inline constexpr const char *ACCESSORY_ITEM = "kz73versionshow";  // its row shows the accessory's name

// A title heads a page, and has a wider gap below it than other rows.
inline bool is_title(const char *name)
{
    return name && std::strstr(name, "title");
}
