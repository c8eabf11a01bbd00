// Failures, texts and pictures of the resource files.
#include "resources/resource_fields.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "core/debug.h"

enum { PICTURE_SPARE = 4 };

const struct load_failure meta_not_open = {"open meta_file", "open meta_file"};
const struct load_failure data_not_open = {"open data_file", "open data_file"};
const struct load_failure meta_not_closed = {"close meta_file", "close meta_file"};
const struct load_failure data_not_closed = {"close data_file", "close data_file"};
const struct load_failure meta_unreadable = {"read meta_file", "read meta_file"};
const struct load_failure data_unreadable = {"read data_file", "read data_file"};
const struct load_failure no_record = {"calloc osdmenu_item", "calloc newitem"};
const struct load_failure no_name = {"calloc osdmenu_item name", "calloc newitem name"};

void report_failure(const char *loader, const struct load_failure *failure)
{
    char text[80];
    std::snprintf(text, sizeof text, "%s fail:", failure->to_perror);
    std::perror(text);
    DBG_ERR_AS(loader, "%s fail!\n", failure->to_line);
}

bool open_reported(const char *loader, struct reader *file, const char *dir, const char *file_name,
                   std::size_t lookahead, const struct load_failure *failure)
{
    if (reader_open(file, dir, file_name, lookahead))
        return true;
    report_failure(loader, failure);
    return false;
}

bool close_reported(const char *loader, struct reader *file, const struct load_failure *failure)
{
    if (reader_close(file) == 0)
        return true;
    report_failure(loader, failure);
    return false;
}

char *allocate_picture(std::uint32_t size)
{
    if (size > UINT32_MAX - PICTURE_SPARE) {
        errno = ENOMEM;
        return nullptr;
    }
    return static_cast<char *>(std::calloc(1, std::size_t{size} + PICTURE_SPARE));
}

static enum field_result fill_text(struct reader *data, char *text)
{
    for (int i = 0; i < TEXT_LENGTH; i++) {
        ssize_t got = reader_fill(data, text + i, 1);
        if (got <= 0)
            return got < 0 ? FIELD_FAILED : FIELD_AT_END;
        if (text[i] == '\0')
            break;
    }
    return FIELD_READ;
}

enum field_result read_text(const char *loader, struct reader *data, char **text, const struct load_failure *no_memory)
{
    *text = static_cast<char *>(std::calloc(1, TEXT_BLOCK));
    if (!*text) {
        report_failure(loader, no_memory);
        return FIELD_FAILED;
    }
    enum field_result result = fill_text(data, *text);
    if (result == FIELD_FAILED)
        report_failure(loader, &data_unreadable);
    else if (result == FIELD_AT_END)
        DBG_ERR_AS(loader, "read data_file end! Right?\n");
    return result;
}

ssize_t read_picture(const char *loader, struct reader *data, struct osdmenu_view_bitmap *picture,
                     const struct load_failure *no_memory, const struct load_failure *unreadable)
{
    std::uint32_t size = picture_size(picture);
    picture->bitmap = allocate_picture(size);
    if (!picture->bitmap) {
        report_failure(loader, no_memory);
        return -1;
    }
    ssize_t got = reader_fill(data, picture->bitmap, size);
    if (got < 0)
        report_failure(loader, unreadable);
    return got;
}
