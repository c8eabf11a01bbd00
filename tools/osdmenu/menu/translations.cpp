#include "menu/translations.h"

#include <filesystem>
#include <memory>
#include <set>

#include <gettext-po.h>

#include "common/text.h"

namespace
{

struct PoDeleter {
    void operator()(po_file_t file) const
    {
        po_file_free(file);
    }
    void operator()(po_message_iterator_t iterator) const
    {
        po_message_iterator_free(iterator);
    }
};
using PoFile = std::unique_ptr<struct po_file, PoDeleter>;
using PoIterator = std::unique_ptr<struct po_message_iterator, PoDeleter>;

// The library's handlers get no argument of ours.
Findings *receiver;

void receive(int severity, po_message_t, const char *file, size_t line, size_t column, int, const char *text)
{
    auto number = [](size_t value) { return value == static_cast<size_t>(-1) ? 1 : static_cast<int>(value); };
    std::string words = text;
    while (words.ends_with('\n'))
        words.pop_back();
    if (severity == PO_SEVERITY_WARNING)
        receiver->warning({file ? file : "", number(line), number(column)}, words);
    else
        receiver->error({file ? file : "", number(line), number(column)}, words);
    // The handler must not return from this one.
    if (severity == PO_SEVERITY_FATAL_ERROR)
        throw Failure(words);
}

void receive_pair(int severity, po_message_t one, const char *file, size_t line, size_t column, int multiline,
                  const char *text, po_message_t, const char *, size_t, size_t, int, const char *)
{
    receive(severity, one, file, line, column, multiline, text);
}

const po_xerror_handler handler{receive, receive_pair};

} // namespace

Translations::Translations(const std::string &path, Findings &findings) : file(path)
{
    receiver = &findings;
    if (!std::filesystem::exists(path)) {
        findings.error({path}, "there is no such file", "make it with: msginit -i TEMPLATE.pot -o " + path);
        return;
    }
    PoFile po(po_file_read(path.c_str(), &handler));
    if (!po)
        return;
    PoIterator iterator(po_message_iterator(po.get(), nullptr));
    while (po_message_t message = po_next_message(iterator.get())) {
        std::string words = po_message_msgstr(message);
        const char *context = po_message_msgctxt(message);
        if (!words.empty() && !po_message_is_fuzzy(message) && !po_message_is_obsolete(message))
            texts[{context ? context : "", po_message_msgid(message)}] = words;
    }
}

const std::string &Translations::of(const Text &text, const std::string &item, Findings &findings) const
{
    if (file.empty())
        return text.words;
    for (const std::string &context : {item, std::string()})
        if (auto found = texts.find({context, text.words}); found != texts.end())
            return found->second;
    findings.warning(text.place, in_quotes(text.words) + " is not translated in " + file);
    return text.words;
}

// Free texts are the host's and never translated.
static void collect(const std::vector<Item> &items, std::vector<Text> &texts)
{
    for (const Item &item : items) {
        texts.push_back(item.text);
        if (!item.free_text)
            texts.insert(texts.end(), item.choices.begin(), item.choices.end());
        collect(item.items, texts);
    }
}

// The place helps a translator to find what a short word is about.
static void insert(po_message_iterator_t iterator, const Text &text)
{
    po_message_t message = po_message_create();
    po_message_set_msgid(message, text.words.c_str());
    po_message_set_msgstr(message, "");
    po_message_add_filepos(message, text.place.file.c_str(), static_cast<size_t>(text.place.line));
    po_message_insert(iterator, message);
}

void write_template(const Menu &menu, const std::string &path)
{
    std::vector<Text> texts;
    collect(menu.items, texts);
    for (const std::vector<Line> *lines : {&menu.help_lines, &menu.bubbles})
        for (const Line &line : *lines)
            texts.push_back(line.text);
    PoFile po(po_file_create());
    PoIterator iterator(po_message_iterator(po.get(), nullptr));
    po_message_t header = po_message_create();
    po_message_set_msgid(header, "");
    po_message_set_msgstr(header, "MIME-Version: 1.0\nContent-Type: text/plain; charset=UTF-8\n"
                                  "Content-Transfer-Encoding: 8bit\n");
    po_message_insert(iterator.get(), header);
    std::set<std::string> seen;
    for (Text text : texts) {
        text.place.file = std::filesystem::path(text.place.file).filename().string();
        // One entry per text, as gettext wants it.
        if (seen.insert(text.words).second)
            insert(iterator.get(), text);
    }
    if (!po_file_write(po.get(), path.c_str(), &handler))
        throw Failure(path + ": cannot be written");
}
