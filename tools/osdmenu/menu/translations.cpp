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
            texts[{context ? context : "", po_message_msgid(message)}].words = words;
    }
}

Translation Translations::of(const Text &text, const std::string &item) const
{
    if (file.empty())
        return {text.words, TranslationState::translated, text.place};
    for (const std::string &context : {item, std::string()})
        if (auto found = texts.find({context, text.words}); found != texts.end())
            return found->second;
    return {text.words, TranslationState::missing, text.place};
}
