// Borrowing the pictures and texts of one item for another.
#include <cstdlib>

#include "core/item_value.h"
#include "core/walks.h"
#include "resources/resource_fields.h"

static void copy_text(char *to, const char *from)
{
    if (to && from)
        std::memcpy(to, from, TEXT_BLOCK);
}

// The new pixels are allocated before the old ones go: without memory the old picture stays whole. A picture without
// pixels is copied as one.
static void copy_picture(struct osdmenu_view_bitmap *to, const struct osdmenu_view_bitmap *from)
{
    std::uint32_t size = picture_size(from);
    char *pixels = from->bitmap ? allocate_picture(size) : nullptr;
    if (from->bitmap && !pixels)
        return;
    if (pixels)
        std::memcpy(pixels, from->bitmap, size);
    std::free(to->bitmap);
    *to = *from;
    to->bitmap = pixels;
}

static void copy_view(struct osdmenu_view *to, const struct osdmenu_view *from)
{
    to->type = from->type;
    copy_text(to->description, from->description);
    copy_picture(&to->viewbitmap, &from->viewbitmap);
}

static void copy_choice(struct osdmenu_item_value *to, const struct osdmenu_item_value *from)
{
    to->type = from->type;
    to->current = from->current;
    copy_text(to->u.txt.description, from->u.txt.description);
    copy_picture(&to->u.txt.viewbitmap, &from->u.txt.viewbitmap);
}

// Both lists move on together, past choices that are no VALUE_TXT too, and end with the shorter one.
static void copy_choices(struct osdmenu_item_value *to, const struct osdmenu_item_value *from)
{
    struct osdmenu_item_value *source = first_choice(from);
    struct osdmenu_item_value *target = first_choice(to);
    while (source && target) {
        if (target->type == VALUE_TXT)
            copy_choice(target, source);
        source = choice_after(source, from);
        target = choice_after(target, to);
    }
}

static struct osdmenu_item *last_item_byname(const char *name)
{
    struct osdmenu_item *last = nullptr;
    for (struct osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        if (is_named(item->name, name))
            last = item;
    return last;
}

int reuse_font_content_byname(const char *src_itemname, const char *dst_itemname, const char *content)
{
    struct osdmenu_item *source = last_item_byname(src_itemname);
    struct osdmenu_item *target = last_item_byname(dst_itemname);
    if (!source || !target || source == target)
        return 0;
    if (is_named(content, "osdmenu_view"))
        copy_view(&target->view, &source->view);
    else if (is_named(content, "osdmenu_item_value"))
        copy_choices(&target->item_values, &source->item_values);
    return 0;
}
