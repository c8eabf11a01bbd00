// Feeds the reader of menu files, and then the rules that need no other file: they walk all that the reader made.
#include "menu/menu_reader.h"
#include "rules/menu_rules.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    Findings findings;
    const std::string content(reinterpret_cast<const char *>(data), size);
    Project project;
    project.menu = read_menu_text("menu.yaml", content, findings);
    project.rows = rows_in_file_order(project.menu);
    project.geometry = geometry_of(project.menu.display);
    for (const Language &language : project.menu.languages)
        project.translations[language.code];
    check_menu(project, findings);
    findings.settle(project.menu.check);
    return 0;
}
