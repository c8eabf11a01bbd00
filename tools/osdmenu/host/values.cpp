#include "host/values.h"

#include "core/item_value.h"
#include "core/walks.h"
#include "text/glyphs.h"

int current_value(const osdmenu_item *item)
{
    const osdmenu_item_value &value = item->item_values; // a percentage has the fields of a number
    return value.type == VALUE_NUMBER || value.type == VALUE_PERCENTAGE ? value.u.number.current : value.current;
}

int choice_count(const osdmenu_item *item)
{
    int count = 0;
    for (auto *choice = choice_at(item, 0); choice; choice = choice_after(choice, &item->item_values))
        count++;
    return count;
}

const osdmenu_item_value *choice_at(const osdmenu_item *item, int index)
{
    if (!has_choices(&item->item_values))
        return nullptr;
    auto *choice = first_choice(&item->item_values);
    while (choice && index-- > 0)
        choice = choice_after(choice, &item->item_values);
    return choice;
}

std::string value_text(const osdmenu_item *item, int value)
{
    if (auto count = static_cast<unsigned int>(choice_count(item)); count > 0) {
        int index = static_cast<int>(static_cast<unsigned int>(value) % count);
        const char *text = choice_at(item, index)->u.txt.description;
        return text ? text : "";
    }
    if (item->item_values.type == VALUE_PERCENTAGE)
        return std::to_string(value) + "%";
    return item->item_values.type == VALUE_NUMBER ? std::to_string(value) : "";
}

int width_in_glyphs(const std::string &text)
{
    int bytes = 0;
    measure_text(text.c_str(), glyph_at, &bytes);
    return pixels_of(static_cast<unsigned int>(bytes));
}
