// Help lines and bubble lines: one loader for both, since their records differ only behind the fields they share.
#include <cstdlib>

#include "core/debug.h"
#include "core/line_walks.h"
#include "resources/resource_fields.h"

static const struct load_failure no_description = {"calloc osdmenu_item viewdescription fail:",
                                                   "calloc osdmenu_item viewdescription fail!"};
static const struct load_failure no_pixels = {"calloc osdhelpline viewbimap bitmap fail:",
                                              "calloc osdhelpline viewbitmap bitmap fail!"};

// What tells the two loaders apart.
struct line_kind {
    const char *loader;
    const char *meta_name;
    const char *data_name;
    std::size_t record_size;
    struct list_head *lines;
};

// A bubble line starts with the fields of a help line.
static_assert(offsetof(struct osdbubbleline, level) == sizeof(struct osdhelpline));

enum load_course { GO_ON, STOP, FAIL };

static enum load_course fail_for(const struct line_kind *kind, const struct load_failure *failure)
{
    report_failure(kind->loader, failure);
    return FAIL;
}

static void free_lines(struct list_head *lines)
{
    for (struct osdhelpline *line = first_line(lines); line;) {
        struct osdhelpline *next = line_after(line, lines);
        std::free(line->name);
        std::free(line->viewbitmap.bitmap);
        std::free(line->viewdescription);
        std::free(line);
        line = next;
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

static enum load_course load_content(const struct line_kind *kind, struct reader *data, struct osdhelpline *line)
{
    if (read_text(kind->loader, data, &line->name, &no_name) != FIELD_READ)
        return FAIL;
    DBG_INFO_AS(kind->loader, "got a osdhelpline name:%s\n", line->name);
    if (read_text(kind->loader, data, &line->viewdescription, &no_description) == FIELD_FAILED)
        return FAIL;
    DBG_INFO_AS(kind->loader, "got a osdhelpline view description:%s\n", line->viewdescription);
    return load_pixels(kind, data, &line->viewbitmap);
}

// The bytes of a file are no address.
static void forget_file_pointers(struct osdhelpline *line)
{
    line->siblings = {};
    line->name = nullptr;
    line->viewdescription = nullptr;
    line->viewbitmap.bitmap = nullptr;
}

// A line joins the list before its content is read, and stays there as far as it came.
static enum load_course load_line(const struct line_kind *kind, struct reader *meta, struct reader *data)
{
    struct osdhelpline *line = static_cast<struct osdhelpline *>(std::calloc(1, kind->record_size));
    if (!line)
        return fail_for(kind, &no_record);
    ssize_t got = reader_fill(meta, line, kind->record_size);
    if (got <= 0) {
        enum load_course course = got < 0 ? fail_for(kind, &meta_unreadable) : STOP;
        std::free(line);
        return course;
    }
    forget_file_pointers(line);
    DBG_INFO_AS(kind->loader, "got a osdmenu_item\n");
    list_add_tail(&line->siblings, kind->lines);
    return load_content(kind, data, line);
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
