// Help lines and bubble lines: one loader for both, since their records differ only behind the fields they share.
#include <cstdlib>

#include "core/debug.h"
#include "core/line_walks.h"
#include "resources/resource_fields.h"

static const struct load_failure no_description = {"calloc osdmenu_item viewdescription",
                                                   "calloc osdmenu_item viewdescription"};
static const struct load_failure no_pixels = {"calloc osdhelpline viewbimap bitmap",
                                              "calloc osdhelpline viewbitmap bitmap"};

// The fields that a record of either kind begins with, at the same places.
struct line_fields {
    struct list_head *siblings;
    char **name;
    char **viewdescription;
    struct osdmenu_view_bitmap *viewbitmap;
};

static_assert(offsetof(struct osdbubbleline, siblings) == 0 && offsetof(struct osdhelpline, siblings) == 0);
static_assert(offsetof(struct osdbubbleline, name) == offsetof(struct osdhelpline, name));
static_assert(offsetof(struct osdbubbleline, viewdescription) == offsetof(struct osdhelpline, viewdescription));
static_assert(offsetof(struct osdbubbleline, viewbitmap) == offsetof(struct osdhelpline, viewbitmap));

static struct line_fields fields_of(void *record)
{
    char *at = static_cast<char *>(record);
    return {
        static_cast<struct list_head *>(record),
        reinterpret_cast<char **>(at + offsetof(struct osdhelpline, name)),
        reinterpret_cast<char **>(at + offsetof(struct osdhelpline, viewdescription)),
        reinterpret_cast<struct osdmenu_view_bitmap *>(at + offsetof(struct osdhelpline, viewbitmap)),
    };
}

// What tells the two loaders apart.
struct line_kind {
    const char *loader;
    const char *meta_name;
    const char *data_name;
    std::size_t record_size;
    struct list_head *lines;
};

static enum load_course fail_for(const struct line_kind *kind, const struct load_failure *failure)
{
    report_failure(kind->loader, failure);
    return FAIL;
}

// `siblings` stands first in a record: the node is the record.
static void free_lines(struct list_head *lines)
{
    for (struct list_head *node = list_next(lines, lines); node;) {
        struct list_head *next = list_next(node, lines);
        const struct line_fields line = fields_of(node);
        std::free(*line.name);
        std::free(line.viewbitmap->bitmap);
        std::free(*line.viewdescription);
        std::free(node);
        node = next;
    }
}

// Unlike with the items, a picture of no size ends the load as the end of the file does.
static enum load_course load_pixels(const struct line_kind *kind, struct reader *data,
                                    struct osdmenu_view_bitmap *picture)
{
    ssize_t got = read_picture(kind->loader, data, picture, &no_pixels, &data_unreadable);
    if (got < 0)
        return FAIL;
    if (got == 0) {
        DBG_ERR_AS(kind->loader, "read data_file end! Right?\n");
        return STOP;
    }
    DBG_INFO_AS(kind->loader, "got a osdmenu_item view viewbitmap bitmap.(%d %d)\n", static_cast<int>(got),
                static_cast<int>(picture_size(picture)));
    return GO_ON;
}

static enum load_course load_content(const struct line_kind *kind, struct reader *data, const struct line_fields *line)
{
    if (read_text(kind->loader, data, line->name, &no_name) != FIELD_READ)
        return FAIL;
    DBG_INFO_AS(kind->loader, "got a osdhelpline name:%s\n", *line->name);
    if (read_text(kind->loader, data, line->viewdescription, &no_description) == FIELD_FAILED)
        return FAIL;
    DBG_INFO_AS(kind->loader, "got a osdhelpline view description:%s\n", *line->viewdescription);
    return load_pixels(kind, data, line->viewbitmap);
}

// The bytes of a file are no address.
static void forget_file_pointers(const struct line_fields *line)
{
    *line->siblings = {};
    *line->name = nullptr;
    *line->viewdescription = nullptr;
    line->viewbitmap->bitmap = nullptr;
}

// A line joins the list before its content is read, and stays there as far as it came.
static enum load_course load_line(const struct line_kind *kind, struct reader *meta, struct reader *data)
{
    void *record = std::calloc(1, kind->record_size);
    if (!record)
        return fail_for(kind, &no_record);
    ssize_t got = reader_fill(meta, record, kind->record_size);
    if (got <= 0) {
        enum load_course course = got < 0 ? fail_for(kind, &meta_unreadable) : STOP;
        std::free(record);
        return course;
    }
    const struct line_fields line = fields_of(record);
    forget_file_pointers(&line);
    DBG_INFO_AS(kind->loader, "got a osdmenu_item\n");
    list_add_tail(line.siblings, kind->lines);
    return load_content(kind, data, &line);
}

static enum load_course load_lines(const struct line_kind *kind, struct reader *meta, struct reader *data)
{
    enum load_course course = GO_ON;
    while (course == GO_ON)
        course = load_line(kind, meta, data);
    return course;
}

// Only a load that could open both files replaces the old lines.
static int load_in_place_of_old(const struct line_kind *kind, const char *dir)
{
    struct reader meta;
    struct reader data;
    if (!open_reported(kind->loader, &meta, dir, kind->meta_name, LOOKAHEAD_RECORDS, &meta_not_open))
        return -1;
    if (!open_reported(kind->loader, &data, dir, kind->data_name, LOOKAHEAD_TEXTS, &data_not_open)) {
        close_reported(kind->loader, &meta, &meta_not_closed);
        return -1;
    }
    free_lines(kind->lines);
    list_init(kind->lines);
    enum load_course end = load_lines(kind, &meta, &data);
    close_reported(kind->loader, &meta, &meta_not_closed);
    bool closed = close_reported(kind->loader, &data, &data_not_closed);
    return end == FAIL || !closed ? -1 : 0;
}

int read2mem_helpline(const char *dir)
{
    const struct line_kind kind = {__func__, "hm.d", "hb.d", sizeof(struct osdhelpline), &osdhelp.siblings};
    return load_in_place_of_old(&kind, dir);
}

int read2mem_bubbleline(const char *dir)
{
    const struct line_kind kind = {__func__, "bm.d", "bb.d", sizeof(struct osdbubbleline), &osbbubble.siblings};
    return load_in_place_of_old(&kind, dir);
}

int get_bubbleline_level_byname(const char *name)
{
    if (!osbbubble.siblings.next && !osbbubble.siblings.prev) {
        LIB_TRACE(LOG_STEP, "bubbleline not initialized\n");
        return -1;
    }
    const struct osdbubbleline *bubble = bubbleline_byname(name);
    if (bubble)
        return bubble->level;
    LIB_TRACE(LOG_STEP, "Bubbleline not found: %s\n", shown(name));
    return -1;
}
