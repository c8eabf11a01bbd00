// osdmenu extract: the texts of a menu as a gettext template, from which translators start and keep up.

#include <algorithm>
#include <filesystem>
#include <memory>

#include "commands/commands.h"
#include "common/text.h"
#include "host/streams.h"
#include "menu/menu_reader.h"
#include "menu/po_file.h"
#include "menu/rooms.h"
#include "rules/report.h"
#include "store/output.h"

// No date: the same menu gives the same bytes. Fields that are there but empty pass gettext's own check.
static constexpr char HEADER_FIELDS[] = "PO-Revision-Date: \nLast-Translator: \nLanguage-Team: \nLanguage: \n"
                                        "MIME-Version: 1.0\nContent-Type: text/plain; charset=UTF-8\n"
                                        "Content-Transfer-Encoding: 8bit\n";

static std::string path_of(const Project &project, const Row &row)
{
    std::string above = row.parent < 0 ? "" : path_of(project, project.rows[static_cast<size_t>(row.parent)]) + " > ";
    return above + row.item->text.words;
}

static std::string kind_and_path(const Project &project, const TranslatableText &text)
{
    if (!text.row)
        return text.kind == TextKind::bubble ? "bubble" : "help line";
    const Item &item = *text.row->item;
    std::string kind = item.is_title() ? "title" : "row";
    if (text.kind == TextKind::choice)
        kind = "choice of " + in_quotes(item.text.words);
    return path_of(project, *text.row) + " (" + kind + ")";
}

// The menu's osd_menu.json may give each language columns of its own, and a text must fit in all.
static std::string note_on(const Project &project, const TranslatableText &text)
{
    int room = project.geometry.view_width;
    for (const Language &language : project.menu.languages)
        room = std::min(room, room_of(project, language.code, text.kind, text.row, *text.name) - text.indent);
    return kind_and_path(project, text) + "\n" + std::to_string(room) + " pixels wide at most\n";
}

static po_message_t message_of(const char *context, const std::string &source, const std::string &translation)
{
    po_message_t message = po_message_create();
    po_message_set_msgctxt(message, context);
    po_message_set_msgid(message, source.c_str());
    po_message_set_msgstr(message, translation.c_str());
    return message;
}

// A text that stands twice at one item is one entry, as gettext wants it.
static std::string template_of(const Project &project)
{
    std::string file = std::filesystem::path(project.menu.path).filename().string();
    std::vector<po_message_t> messages{message_of(nullptr, "", "Project-Id-Version: " + file + "\n" + HEADER_FIELDS)};
    std::map<std::pair<std::string, std::string>, po_message_t> known;
    for (const TranslatableText &text : texts_to_translate(project.menu, project.rows)) {
        po_message_t &message = known[{*text.name, text.text->words}];
        if (!message)
            message = messages.emplace_back(message_of(text.name->c_str(), text.text->words, ""));
        std::string notes = po_message_extracted_comments(message), note = note_on(project, text);
        if (notes.find(note) == notes.npos)
            po_message_set_extracted_comments(message, (notes + note).c_str());
        po_message_add_filepos(message, file.c_str(), static_cast<size_t>(text.text->place.line));
    }
    return po_text(messages);
}

// Only an entry of the menu file that could not be taken is in the way; all else is for `check` to tell.
static int run_extract(const std::string &menu, const std::string &output)
{
    Streams streams;
    Findings findings, others;
    read_menu(menu, findings);
    print_report(streams.err, findings, ReportFormat::text);
    if (findings.has_rule("menu-file") || findings.has_rule("unreadable"))
        return STATUS_FINDINGS;
    if (std::filesystem::exists(output) && std::filesystem::equivalent(output, menu))
        throw Failure(output + ": is the menu itself");
    std::string text = template_of(*read_project(menu, others));
    if (!output.empty())
        replace_file(output, text);
    else
        std::fputs(text.c_str(), streams.out);
    return STATUS_CLEAN;
}

void add_extract(CLI::App &app, Run &run)
{
    auto menu = std::make_shared<std::string>(), output = std::make_shared<std::string>();
    CLI::App *command = app.add_subcommand("extract", "Writes the texts of a menu as a template for translators");
    command->add_option("menu", *menu, "The menu, a YAML file")->required();
    command->add_option("-o,--output", *output, "POT file to write, in place of standard output");
    command->callback([&run, menu, output] { run = [menu, output] { return run_extract(*menu, *output); }; });
}
