#include "host/values.h"

#include "core/item_value.h"
#include "core/walks.h"
#include "text/glyphs.h"

int current_value(const osdmenu_item *item)
{
    const osdmenu_item_value &value = item->item_values;
    return is_number(value.type) ? value.u.number.current : value.current;
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
    const unsigned int type = item->item_values.type;
    if (int count = choice_count(item); count > 0) {
        bool is_in_list = value >= 0 && value < count;
        const char *text = choice_at(item, is_in_list ? value : wrapped_choice(value, count))->u.txt.description;
        return text ? text : "";
    }
    return is_number(type) ? std::to_string(value) + unit_of(type) : "";
}

int width_in_glyphs(const std::string &text)
{
    int bytes = 0;
    measure_text(text.c_str(), glyph_at, &bytes);
    return pixels_of(static_cast<unsigned int>(bytes));
}
