#include "script/script.h"

#include <algorithm>
#include <map>
#include <regex>

#include "common/text.h"
#include "host/host.h"

namespace
{

// What one place of a form accepts: a known word, or one that the pattern fits.
struct Slot {
    std::string phrase = {}; // behind "no"
    std::vector<std::string> known = {};
    std::string pattern = {};

    bool accepts(const std::string &word) const
    {
        if (pattern.empty())
            return std::find(known.begin(), known.end(), word) != known.end();
        return word.size() <= MAX_TEXT && std::regex_match(word, std::regex(pattern));
    }
};

struct Form {
    const StatementForm *form;
    std::vector<Slot> slots;
    bool repeats_last;

    const Slot *slot(size_t index) const
    {
        return index < slots.size() ? &slots[index] : repeats_last ? &slots.back() : nullptr;
    }
    size_t fitting(Words words) const // from the first one
    {
        size_t count = 0;
        while (count < words.size() && slot(count) && slot(count)->accepts(words[count]))
            count++;
        return count;
    }
};

} // namespace

static std::vector<Form> known_forms()
{
    const std::map<std::string, Slot> kinds = {
        {"KEY...", {"key", parts_of(key_names(), ' ')}},
        {"ITEM", {"item of this menu", host.items}},
        {"BUBBLE", {"bubble of this menu", host.bubbles}},
        {"CODE", {"language of this menu", host.menu.languages}},
        {"SECONDS", {"number of seconds such as 2 or 0.25", {}, "[0-9]{1,6}(\\.[0-9]{1,3})?"}},
        {"NUMBER", {"whole number", {}, "0|-?[1-9][0-9]{0,9}"}},
        {"NAME", {"name for a file", {}, "[^./[:cntrl:]][^/[:cntrl:]]*"}},
    };
    std::vector<Form> forms;
    for (const StatementForm &form : statement_forms()) {
        forms.push_back({&form, {}, std::string(form.usage).ends_with("...")});
        for (const std::string &token : parts_of(form.usage, ' '))
            forms.back().slots.push_back(kinds.count(token) ? kinds.at(token)
                                                            : Slot{"word that belongs here", parts_of(token, '|')});
    }
    return forms;
}

static constexpr char BLANKS[] = " \t\r";

// One in double quotes ends at the quote that a blank or nothing follows.
static size_t end_of_word(const std::string &line, size_t start)
{
    if (line[start] == '"')
        for (size_t quote = line.find('"', start + 1); quote != line.npos; quote = line.find('"', quote + 1))
            if (line.find_first_of(BLANKS, quote + 1) == quote + 1 || quote + 1 == line.size())
                return quote + 1;
    return std::min(line.find_first_of(BLANKS, start), line.size());
}

static std::string without_quotes(const std::string &word)
{
    return word.size() > 1 && word.front() == '"' && word.back() == '"' ? word.substr(1, word.size() - 2) : word;
}

std::string script_word(const std::string &word)
{
    bool is_plain = !word.empty() && word[0] != '#' && word[0] != '"' && word.find_first_of(BLANKS) == word.npos;
    return is_plain ? word : std::string("\"").append(word).append("\"");
}

// A comment begins at a word, so that a # inside of one is a part of it. The last column is where the words end.
static std::vector<std::string> words_of(const std::string &line, std::vector<int> &columns)
{
    std::vector<std::string> words;
    columns = {1};
    for (size_t at = line.find_first_not_of(BLANKS); at != line.npos && line[at] != '#';) {
        size_t end = end_of_word(line, at);
        words.push_back(without_quotes(line.substr(at, end - at)));
        columns.back() = static_cast<int>(at) + 1;
        columns.push_back(static_cast<int>(end) + 1);
        at = line.find_first_not_of(BLANKS, end);
    }
    return words;
}

// The words before this one fit some of the forms, and no form takes more of them.
static Finding refusal(const Place &place, Words words, size_t index, const std::vector<Form> &forms)
{
    static constexpr size_t MOST_SLIPS = 3, MOST_SHOWN = 12;
    std::string word = index < words.size() ? cut_utf8(words[index], MAX_TEXT) : "", phrase;
    std::vector<std::string> known, usages;
    for (const Form &form : forms)
        if (form.fitting(words) == index) {
            const Slot slot = form.slot(index) ? *form.slot(index) : Slot();
            phrase = index == 0 ? "statement" : slot.phrase;
            known.insert(known.end(), slot.known.begin(), slot.known.end());
            usages.push_back(form.form->usage);
        }
    std::string text = word.empty()     ? "no " + phrase + " follows"
                       : phrase.empty() ? in_quotes(word) + " is too much"
                                        : in_quotes(word) + " is no " + phrase;
    std::string cure = index == 0 ? "osdmenu play --help lists the statements" : "write: " + joined(usages, ", or ");
    if (!known.empty() && known.size() <= MOST_SHOWN)
        cure = "known are: " + joined(known, " ");
    if (const std::string *meant = nearest(word, known, std::min(MOST_SLIPS, (word.size() + 1) / 2)))
        cure = "did you mean " + in_quotes(*meant) + "?";
    return {place, "script", text, cure};
}

std::vector<Statement> parse_script(const std::string &file, const std::string &text, Findings &findings)
{
    static constexpr int MOST_WRONG_LINES = 100; // then it is no script
    const std::vector<Form> forms = known_forms();
    std::vector<Statement> statements;
    int number = 0, wrong = 0;
    static const std::string BYTE_ORDER_MARK = "\xEF\xBB\xBF"; // which some editors write
    for (std::string line : parts_of(text, '\n')) {
        if (number == 0 && line.starts_with(BYTE_ORDER_MARK))
            line.erase(0, BYTE_ORDER_MARK.size());
        std::vector<int> columns;
        const std::vector<std::string> words = words_of(line, columns);
        number++;
        if (words.empty())
            continue;
        // No form is the beginning of another, so the one that takes the most words is the one that is meant.
        const Form &form = *std::max_element(forms.begin(), forms.end(), [&](const Form &a, const Form &b) {
            return a.fitting(words) < b.fitting(words);
        });
        const size_t fitting = form.fitting(words);
        if (fitting == words.size() && fitting >= form.slots.size())
            statements.push_back({number, form.form, words});
        else if (++wrong <= MOST_WRONG_LINES)
            findings.add(refusal({file, number, columns[fitting]}, words, fitting, forms));
    }
    return statements;
}
