// The configuration file: parsed once, looked up afresh at each use.
//
// A value of the wrong JSON type counts as absent, at any depth and for any key.
#pragma once

#include <cjson/cJSON.h>

// The root, null until a file has been parsed. Owned for the life of the process.
extern cJSON *osdmenu_config;

// Reads the file beside a resource directory, unless an earlier load brought one.
void osdmenu_config_init(const char *font_dir);

// The member of an object, null where the object or the member is absent.
const cJSON *config_entry(const cJSON *object, const char *key);

// The number of a member, or the fallback.
int config_number(const cJSON *object, const char *key, int fallback);

// The text of a key of the root, or null.
const char *config_text(const char *key);
