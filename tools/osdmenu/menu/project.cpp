#include "menu/project.h"

#include <filesystem>

#include "menu/menu_reader.h"

// Translations lie beside the menu, so that the two travel together.
static std::string po_path(const Menu &menu, const std::string &language)
{
    return (std::filesystem::path(menu.path).parent_path() / "po" / (language + ".po")).string();
}

// The rows point into the menu, so it must have its place before they are made.
static std::unique_ptr<Project> set_up(Menu menu)
{
    auto project = std::make_unique<Project>();
    project->menu = std::move(menu);
    project->rows = rows_in_file_order(project->menu);
    project->geometry = geometry_of(project->menu.display);
    return project;
}

std::unique_ptr<Project> read_project(const std::string &path, Findings &findings)
{
    Menu menu = read_menu(path, findings);
    if (findings.has_rule("unreadable"))
        return nullptr;
    std::unique_ptr<Project> project = set_up(std::move(menu));
    project->configuration = Configuration(project->menu, project->rows, findings);
    for (const Language &language : project->menu.languages)
        if (language.code == project->menu.source_language)
            project->translations[language.code] = Translations();
        else
            project->translations[language.code] = Translations(po_path(project->menu, language.code), findings);
    return project;
}
