// Reading the configuration file and looking it up.
#include "core/config.h"

#include <cstdio>
#include <cstdlib>

#include "core/debug.h"
#include "core/state.h"
#include "core/view_buffer.h"
#include "lib_common.h"

constinit cJSON *osdmenu_config = nullptr;

static bool is_of_type(const cJSON *entry, int type)
{
    return entry && (entry->type & 0xFF) == type;
}

const cJSON *config_entry(const cJSON *object, const char *key)
{
    return is_of_type(object, cJSON_Object) ? cJSON_GetObjectItemCaseSensitive(object, key) : nullptr;
}

int config_number(const cJSON *object, const char *key, int fallback)
{
    const cJSON *entry = config_entry(object, key);
    return is_of_type(entry, cJSON_Number) ? entry->valueint : fallback;
}

const char *config_text(const char *key)
{
    const cJSON *entry = config_entry(osdmenu_config, key);
    return is_of_type(entry, cJSON_String) ? entry->valuestring : nullptr;
}

// Two values are copied out of the tree; everything else is read from it at each use.
static void take_over_copied_values(void)
{
    if (is_named(config_text(SEPARATOR_KEY), "underlineenable")) {
        underlineenable = 1;
        LIB_TRACE_AS("osdmenu_config_init", LOG_EVENT, "underlineenable %d\n", underlineenable);
    }
    osdmenu_default_color = config_number(osdmenu_config, BACKGROUND_KEY, osdmenu_default_color);
}

void osdmenu_config_init(const char *font_dir)
{
    if (!font_dir)
        return;
    char path[128]; // a longer path is cut
    std::snprintf(path, sizeof path, "%s/../%s", font_dir, CONFIG_FILE);
    char *text = read_file_to_buf(path);
    if (!text)
        return;
    if (osdmenu_config) { // the first configuration stays
        std::free(text);
        return;
    }
    osdmenu_config = cJSON_Parse(text);
    if (!osdmenu_config)
        PARA_TRACE(LOG_WORKAROUND, "Error before: [%s]\n\n", shown(cJSON_GetErrorPtr()));
    std::free(text);
    if (osdmenu_config)
        take_over_copied_values();
}
