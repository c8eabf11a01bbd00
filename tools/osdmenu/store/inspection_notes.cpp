// The notes of a report.
#include "common/text.h"
#include "store/inspection.h"

static constexpr char NO_UTF8[] = " has a text or name that is no UTF-8 or holds control characters";

static std::string outside(int current, int low, int high)
{
    if (current >= low && current <= high)
        return "";
    return "the value " + std::to_string(current) + " lies outside " + std::to_string(low) + " to " +
           std::to_string(high);
}

// Empty where nothing is odd.
static std::string value_note(const ReadItem &item)
{
    const auto &[high, low, current, step] = item.number;
    if (item.value_type == VALUE_NONE)
        return "";
    if (item.value_type == VALUE_TXT)
        return outside(item.current, 0, static_cast<int>(item.choices.size()) - 1);
    if (low > high)
        return "the limits are upside down, " + std::to_string(low) + " to " + std::to_string(high);
    return outside(current, low, high);
}

// Of items or lines. Their names and texts stand in the file of data.
template <class Named>
static void note_names(std::vector<Fault> &notes, const std::vector<Named> &all, const char *file)
{
    std::map<std::string, size_t> first_places;
    for (const Named &one : all) {
        size_t offset = one.place.data;
        auto [first, is_new] = first_places.emplace(one.name, offset);
        if (!is_new)
            notes.push_back({file, offset,
                             in_quotes(one.name) + " is a name used twice, first at " + std::to_string(first->second)});
        if (!is_plain_utf8(one.name + one.text))
            notes.push_back({file, offset, in_quotes(one.name) + NO_UTF8});
    }
}

std::vector<Fault> notes_on(const Resources &resources)
{
    std::vector<Fault> notes;
    note_names(notes, resources.items, "b.d");
    for (const ReadItem &item : resources.items) {
        if (std::string note = value_note(item); !note.empty())
            notes.push_back({"m.d", item.place.meta, in_quotes(item.name) + ": " + note});
        for (const ReadChoice &choice : item.choices)
            if (!is_plain_utf8(choice.text))
                notes.push_back({"b.d", choice.place.data, "a choice of " + in_quotes(item.name) + NO_UTF8});
    }
    note_names(notes, resources.help_lines, "hb.d");
    note_names(notes, resources.bubbles, "bb.d");
    return notes;
}
