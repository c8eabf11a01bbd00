// The configuration file: parsed once, looked up afresh at each use.
//
// A value of the wrong JSON type counts as absent, at any depth and for any key.
#pragma once

#include <cstdio>
#include <cstring>

#include <cjson/cJSON.h>

inline constexpr const char *CONFIG_FILE = "conf_backup/osd_menu.json"; // in the directory above the resources

// Its keys, but for those of the anchors.
inline constexpr const char *SEPARATOR_KEY = "Main_Menu_Separator";
inline constexpr const char *BACKGROUND_KEY = "default_color";
inline constexpr const char *VALUE_COLUMNS_KEY = "value_offset_x";
inline constexpr const char *HELP_DEFAULT_KEY = "helpline_default";
inline constexpr const char *HELP_TYPES_KEY = "helpline_type";

// Two anchors of which the page shows no pointer.
inline constexpr const char *INFORMATION_LAST_KEY = "information_last_item";
inline constexpr const char *PERIPHERAL_TITLE_KEY = "peripheralinformation_title";

// The root, null until a file has been parsed. Owned for the life of the process.
extern cJSON *osdmenu_config;

// Reads the file beside a resource directory, unless an earlier load brought one.
void osdmenu_config_init(const char *font_dir);

// The member of an object, null where the object or the member is absent.
const cJSON *config_entry(const cJSON *object, const char *key);

// The number of a member, or the fallback.
int config_number(const cJSON *object, const char *key, int fallback);

enum { PAGE_KEY_SIZE = 32 };

// A page's key: its path of parents, such as ".3.1", by the row of each; "." for the top list. The position within the
// page is no part of it.
inline void page_key(char (&key)[PAGE_KEY_SIZE], const unsigned char *rows, int level)
{
    std::strncpy(key, level == 0 ? "." : "", sizeof key);
    for (int i = 0; i < level; i++) {
        char step[8];
        std::snprintf(step, sizeof step, ".%d", rows[i]);
        std::strncat(key, step, sizeof key - std::strlen(key) - 1);
    }
}

// The x of the values on a page, by the directory that the menu was loaded from and the page's key; or the fallback.
inline int config_value_column(const cJSON *config, const char *directory, const char *page_key, int fallback)
{
    const cJSON *pages = config_entry(config_entry(config, VALUE_COLUMNS_KEY), directory);
    return config_number(pages, page_key, fallback);
}

// The text of a key of the root, or null.
const char *config_text(const char *key);
