#include "store/menu_directory.h"

#include <algorithm>
#include <filesystem>

#include "common/text.h"
#include "core/config.h"

namespace fs = std::filesystem;

static bool is_language(const fs::path &directory)
{
    std::error_code ignored;
    return fs::exists(directory / RESOURCE_FILES[0], ignored);
}

// In the order of their names.
static std::vector<std::string> languages_below(const fs::path &directory)
{
    std::vector<std::string> languages;
    std::error_code ignored;
    for (const fs::directory_entry &entry : fs::directory_iterator(directory, ignored))
        if (is_language(entry.path()))
            languages.push_back(entry.path().filename().string());
    std::sort(languages.begin(), languages.end());
    return languages;
}

// What the manifest doesn't list comes last: the made-up language, a directory that was copied there.
static std::vector<std::string> in_order(const std::vector<std::string> &order, std::vector<std::string> languages)
{
    auto rank = [&](const std::string &code) { return std::find(order.begin(), order.end(), code) - order.begin(); };
    std::stable_sort(languages.begin(), languages.end(),
                     [&](const std::string &a, const std::string &b) { return rank(a) < rank(b); });
    return languages;
}

bool MenuDirectory::has_language(const std::string &code) const
{
    return std::find(languages.begin(), languages.end(), code) != languages.end();
}

std::string MenuDirectory::language_to_start_in(const std::string &wanted) const
{
    if (!wanted.empty() && !has_language(wanted))
        throw Failure("no language " + in_quotes(wanted) + "; known are: " + joined(languages, " "));
    return wanted.empty() ? language : wanted;
}

// The library goes on without it in silence.
static void look_for_configuration(const std::string &menu, Findings &findings)
{
    const std::string path = menu + CONFIG_FILE;
    const std::optional<std::string> content = read_file(path);
    if (Json root(cJSON_Parse(content.value_or("").c_str())); !cJSON_IsObject(root.get()))
        findings.add({Place{path}, "no-configuration", content ? "is no JSON object" : "there is no such file"});
}

MenuDirectory open_menu_directory(const std::string &given, Findings &findings)
{
    if (!fs::is_directory(given))
        throw Failure(given + ": there is no such directory");
    MenuDirectory menu;
    fs::path path = given.ends_with('/') ? fs::path(given).parent_path() : fs::path(given);
    if (path.empty() || path.filename() == "." || path.filename() == "..")
        path = fs::absolute(path).lexically_normal();
    if (!path.has_filename())
        path = path.parent_path();
    std::vector<std::string> below = languages_below(path);
    // Without either it is taken for a language: the reader of its files then tells what is not there.
    if (below.empty() && !fs::exists(path / "menu.json")) {
        menu.language = path.filename().string();
        path = path.parent_path();
        below = languages_below(path.empty() ? fs::path(".") : path);
    }
    menu.path = path.empty() ? "" : (path / "").string();
    menu.manifest = read_manifest(path.empty() ? "." : path.string(), findings);
    menu.languages = in_order(menu.manifest.languages, below);
    if (menu.language.empty() && menu.languages.empty())
        throw Failure(given + ": holds no language");
    if (menu.language.empty())
        menu.language = menu.languages.front();
    else if (!menu.has_language(menu.language)) // where its neighbours may not be listed
        menu.languages.push_back(menu.language);
    look_for_configuration(menu.path, findings);
    return menu;
}

Resources sound_resources(const std::string &directory)
{
    Resources resources = read_resources(files_of_directory(directory));
    std::vector<std::string> lines;
    for (const Fault &fault : resources.faults)
        lines.push_back(directory + fault.file + ": byte " + std::to_string(fault.offset) + ": " + fault.text);
    if (!lines.empty())
        throw Failure(joined(lines, "\n"));
    return resources;
}
