// The menu items: loading them from m.d and b.d, and freeing them.
#include <cstdlib>

#include "core/config.h"
#include "core/debug.h"
#include "core/item_value.h"
#include "core/walks.h"
#include "resources/resource_fields.h"

static const char LOADER[] = "read2mem_all_menuitems";
static const char RELEASE[] = "free_all_menuitems";

static const struct load_failure no_description = {"calloc osdmenu_item view description",
                                                   "calloc osdmenu_item view description"};
static const struct load_failure no_view = {"calloc osdmenu_item view viewbimap bitmap",
                                            "calloc osdmenu_item view viewbitmap bitmap"};
static const struct load_failure no_choice = {"calloc new_itemvalue", "calloc new_itemvalue"};
static const struct load_failure choice_unreadable = {"read new_itemvalue from meta_file",
                                                      "read new_itemvalue from meta_file"};
static const struct load_failure no_choice_description = {"calloc new_itemvalue txt description",
                                                          "calloc new_itemvalue txt description"};
static const struct load_failure no_choice_picture = {"calloc item_value txt viewbitmap bitmp",
                                                      "calloc item_value txt viewbitmap bitmap"};
static const struct load_failure choice_picture_unreadable = {"read item_value txt viewbitmap bitmp from data_file",
                                                              "read item_value txt viewbitmap bitmap data_file"};

struct item_files {
    struct reader meta;
    struct reader data;
};

// A load of items never fails: whatever is wrong with it ends it.
static enum load_course stop_for(const struct load_failure *failure)
{
    report_failure(LOADER, failure);
    return STOP;
}

// No byte of a file is an address. The count of choices and the numbers share bytes with pointers, so they are taken
// out first, and the record is left with null in every pointer. Returns the count of choices that follow.
static int forget_file_pointers(struct osdmenu_item *item)
{
    struct osdmenu_item_value *value = &item->item_values;
    const struct osdmenu_item_value_number number = value->u.number;
    const int choice_count = number.highlimit; // both stand in the first four bytes of the union
    item->siblings = item->readlist = item->child = value->list = {};
    item->name = nullptr;
    item->action = nullptr;
    item->view.description = nullptr;
    item->view.viewbitmap.bitmap = nullptr;
    std::memset(&value->u, 0, sizeof value->u);
    if (is_number(value->type))
        value->u.number = number;
    if (has_choices(value))
        list_init(&value->list);
    return value->type == VALUE_TXT ? choice_count : 0;
}

static enum load_course load_picture(struct reader *data, struct osdmenu_view_bitmap *picture,
                                     const struct load_failure *no_memory, const struct load_failure *unreadable)
{
    ssize_t got = read_picture(LOADER, data, picture, no_memory, unreadable);
    if (got < 0)
        return STOP;
    if (got > 0)
        return GO_ON;
    DBG_INFO_AS(LOADER, "read data_file end! Right?\n");
    if (picture_size(picture) == 0)
        return GO_ON;
    DBG_ERR_AS(LOADER, "read data_file end!\n");
    return STOP;
}

static enum load_course load_choice_content(struct reader *data, struct osdmenu_item_value_txt *txt)
{
    if (read_text(LOADER, data, &txt->description, &no_choice_description) != FIELD_READ)
        return STOP;
    return load_picture(data, &txt->viewbitmap, &no_choice_picture, &choice_picture_unreadable);
}

// A meta file that ends among the choices ends them alone: the record that met the end is dropped.
static enum load_course load_choices(struct item_files *files, struct osdmenu_item_value *value, int count)
{
    for (int i = 0; i < count; i++) {
        struct osdmenu_item_value *choice = static_cast<struct osdmenu_item_value *>(std::calloc(1, sizeof *choice));
        if (!choice)
            return stop_for(&no_choice);
        ssize_t got = reader_fill(&files->meta, choice, sizeof *choice);
        if (got <= 0) {
            enum load_course course = got < 0 ? stop_for(&choice_unreadable) : GO_ON;
            if (course == GO_ON)
                DBG_ERR_AS(LOADER, "read meta_file end!\n");
            std::free(choice);
            return course;
        }
        choice->u.txt.description = nullptr;
        choice->u.txt.viewbitmap.bitmap = nullptr;
        list_add_tail(&choice->list, &value->list);
        if (load_choice_content(&files->data, &choice->u.txt) == STOP)
            return STOP;
    }
    return GO_ON;
}

// A description that the file ends in is kept as it is; the picture behind it then meets the end.
static enum load_course load_view(struct reader *data, struct osdmenu_view *view)
{
    if (read_text(LOADER, data, &view->description, &no_description) == FIELD_FAILED)
        return STOP;
    return load_picture(data, &view->viewbitmap, &no_view, &data_unreadable);
}

// An item joins its lists before its content is read, and stays there as far as it came.
static enum load_course load_item(struct item_files *files)
{
    struct osdmenu_item *item = static_cast<struct osdmenu_item *>(std::calloc(1, sizeof *item));
    if (!item)
        return stop_for(&no_record);
    ssize_t got = reader_fill(&files->meta, item, sizeof *item);
    if (got <= 0) {
        if (got < 0)
            report_failure(LOADER, &meta_unreadable);
        else
            DBG_INFO_AS(LOADER, "read meta_file end!\n");
        std::free(item);
        return STOP;
    }
    int choice_count = forget_file_pointers(item);
    list_add_tail(&item->siblings, &osdmenu.siblings);
    list_add_tail(&item->readlist, &osdmenu.readlist);
    if (read_text(LOADER, &files->data, &item->name, &no_name) != FIELD_READ)
        return STOP;
    if (load_view(&files->data, &item->view) == STOP)
        return STOP;
    return load_choices(files, &item->item_values, choice_count);
}

static bool open_file(struct reader *file, const char *dir, const char *file_name, std::size_t lookahead,
                      const struct load_failure *failure)
{
    if (!open_reported(LOADER, file, dir, file_name, lookahead, failure))
        return false;
    DBG_INFO_AS(LOADER, "open file:%s ok!\n", file_name);
    return true;
}

// Lists that were loaded before are let go, not freed: that is what free_all_menuitems is for.
static void load_items(struct item_files *files)
{
    list_init(&osdmenu.siblings);
    list_init(&osdmenu.readlist);
    while (load_item(files) == GO_ON)
        ;
}

int read2mem_all_menuitems(const char *dir)
{
    std::strncpy(language_string, dir ? dir : "", sizeof language_string); // may fill it, without a terminator
    osdmenu_config_init(dir);
    struct item_files files;
    if (!open_file(&files.meta, dir, "m.d", LOOKAHEAD_RECORDS, &meta_not_open))
        return 0;
    bool data_open = open_file(&files.data, dir, "b.d", LOOKAHEAD_TEXTS, &data_not_open);
    if (data_open)
        load_items(&files);
    close_reported(LOADER, &files.meta, &meta_not_closed);
    if (data_open)
        close_reported(LOADER, &files.data, &data_not_closed);
    return 0;
}

static void free_choices(struct osdmenu_item_value *value)
{
    for (struct osdmenu_item_value *choice = first_choice(value); choice;) {
        struct osdmenu_item_value *next = choice_after(choice, value);
        DBG_OUT_INFO_AS(RELEASE, "txt description:%s\n", shown(choice->u.txt.description));
        std::free(choice->u.txt.description);
        std::free(choice->u.txt.viewbitmap.bitmap);
        std::free(choice);
        choice = next;
    }
}

static void free_item(struct osdmenu_item *item)
{
    DBG_OUT_INFO_AS(RELEASE, "name:%s\n", shown(item->name));
    DBG_OUT_INFO_AS(RELEASE, "view description:%s\n", shown(item->view.description));
    std::free(item->name);
    std::free(item->view.description);
    std::free(item->view.viewbitmap.bitmap);
    if (item->item_values.type == VALUE_NONE)
        DBG_OUT_INFO_AS(RELEASE, "no value!\n");
    else
        DBG_OUT_INFO_AS(RELEASE, "value type:%d\n", static_cast<int>(item->item_values.type));
    if (has_choices(&item->item_values))
        free_choices(&item->item_values);
    std::free(item);
}

// The lists are left empty, so that whatever walks them before the next load finds nothing.
int free_all_menuitems(void)
{
    DBG_OUT_INFO_AS(RELEASE, "enter\n");
    for (struct osdmenu_item *item = first_loaded(); item;) {
        struct osdmenu_item *next = loaded_after(item);
        free_item(item);
        item = next;
    }
    if (menu_was_loaded()) {
        list_init(&osdmenu.siblings);
        list_init(&osdmenu.readlist);
        list_init(&orderized_osdmenu.siblings);
    }
    osdmenu_current_menuitem = nullptr;
    DBG_OUT_INFO_AS(RELEASE, "leave\n");
    return 0;
}
