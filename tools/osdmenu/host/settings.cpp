#include "host/settings.h"

#include <cstdlib>
#include <filesystem>

#include "common/text.h"
#include "menu/configuration.h"
#include "store/digest.h"
#include "store/output.h"

namespace fs = std::filesystem;

static fs::path state_home()
{
    const char *state = std::getenv("XDG_STATE_HOME");
    if (state && *state == '/')
        return state;
    const char *home = std::getenv("HOME");
    return home && *home ? fs::path(home) / ".local/state" : fs::temp_directory_path();
}

// Two menus of one name are told apart by where they lie.
std::string state_directory_of(const std::string &menu_directory)
{
    fs::path menu = fs::weakly_canonical(fs::absolute(menu_directory));
    if (!menu.has_filename())
        menu = menu.parent_path();
    Digest digest;
    digest.add(menu.string());
    return (state_home() / "osdmenu" / (menu.filename().string() + "-" + digest.text().substr(0, 8))).string();
}

// Either part may be left out by whoever writes one by hand.
static bool take_settings(const cJSON *root, Settings &settings)
{
    const cJSON *values = cJSON_GetObjectItemCaseSensitive(root, "values");
    const cJSON *texts = cJSON_GetObjectItemCaseSensitive(root, "texts");
    auto is_part = [](const cJSON *part) { return !part || cJSON_IsObject(part); };
    if (!cJSON_IsObject(root) || !is_part(values) || !is_part(texts))
        return false;
    const cJSON *entry;
    cJSON_ArrayForEach(entry, values)
    {
        if (!cJSON_IsNumber(entry))
            return false;
        settings.values[entry->string] = entry->valueint;
    }
    cJSON_ArrayForEach(entry, texts)
    {
        if (!cJSON_IsString(entry))
            return false;
        settings.texts[entry->string] = entry->valuestring;
    }
    return true;
}

// An earlier file that was set aside may be wanted too.
static std::string set_aside(const std::string &path)
{
    std::string aside = path + ".damaged";
    for (int number = 2; fs::exists(aside); number++)
        aside = path + ".damaged" + std::to_string(number);
    fs::rename(path, aside);
    return aside;
}

std::optional<Settings> parse_settings(const std::string &content)
{
    Json root(cJSON_ParseWithOpts(content.c_str(), nullptr, true));
    Settings settings;
    return take_settings(root.get(), settings) ? std::optional(settings) : std::nullopt;
}

Settings read_settings(const std::string &path, std::string &notice)
{
    if (!fs::exists(path))
        return {};
    std::optional<std::string> content = read_file(path);
    if (!content)
        throw Failure(path + ": cannot be read");
    if (std::optional<Settings> settings = parse_settings(*content))
        return *settings;
    notice = path + " is damaged; it is now " + set_aside(path) + ", and the menu starts with its defaults";
    return {};
}

void write_settings(const std::string &path, const Settings &settings)
{
    Json root(cJSON_CreateObject());
    cJSON *values = cJSON_AddObjectToObject(root.get(), "values");
    for (const auto &[name, value] : settings.values)
        cJSON_AddNumberToObject(values, name.c_str(), value);
    cJSON *texts = cJSON_AddObjectToObject(root.get(), "texts");
    for (const auto &[name, text] : settings.texts)
        cJSON_AddStringToObject(texts, name.c_str(), text.c_str());
    try {
        if (fs::path(path).has_parent_path())
            fs::create_directories(fs::path(path).parent_path());
        replace_file(path, json_text(root.get()));
    } catch (const fs::filesystem_error &e) {
        throw Failure(path + ": cannot be written: " + e.code().message());
    }
}
