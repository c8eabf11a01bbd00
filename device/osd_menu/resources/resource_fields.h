// What the loaders have in common: how their failures are reported, and how a text and a picture are read.
#pragma once

#include <cstdint>

#include "osd_menu.h"
#include "resources/file_reader.h"
#include "resources/text_limits.h"

// What failed: in the words of perror, and in those of the line behind it.
struct load_failure {
    const char *to_perror;
    const char *to_line;
};

// What the loaders of items and of lines say in the same words.
extern const struct load_failure meta_not_open;
extern const struct load_failure data_not_open;
extern const struct load_failure meta_not_closed;
extern const struct load_failure data_not_closed;
extern const struct load_failure meta_unreadable;
extern const struct load_failure data_unreadable;
extern const struct load_failure no_record;
extern const struct load_failure no_name;

enum field_result { FIELD_READ, FIELD_AT_END, FIELD_FAILED };

// Whether a load goes on, ends, or ends as one that failed.
enum load_course { GO_ON, STOP, FAIL };

// Reports a failed call for a loader, by its exported name. errno is the call's.
void report_failure(const char *loader, const struct load_failure *failure);

// Opens and closes a file, with a report where that fails.
bool open_reported(const char *loader, struct reader *file, const char *dir, const char *file_name,
                   std::size_t lookahead, const struct load_failure *failure);
bool close_reported(const char *loader, struct reader *file, const struct load_failure *failure);

// The size of a picture, a product of 32 bits wherever it is used.
inline std::uint32_t picture_size(const struct osdmenu_view_bitmap *picture)
{
    return picture->height * picture->width;
}

// A zeroed block for a picture of that size. Null with errno set when there is no memory, or none of that size.
char *allocate_picture(std::uint32_t size);

// Allocates a text and reads it: up to its zero byte, or TEXT_LENGTH bytes without one. Both an end and a failure of
// the file are reported; at an end the text is what came before it.
enum field_result read_text(const char *loader, struct reader *data, char **text, const struct load_failure *no_memory);

// Allocates the pixels of a picture and reads them. A file that ends within them leaves the rest zero.
// Returns the bytes read: 0 at the end of the file, and for a picture of no size; -1 for a failure, which is reported.
ssize_t read_picture(const char *loader, struct reader *data, struct osdmenu_view_bitmap *picture,
                     const struct load_failure *no_memory, const struct load_failure *unreadable);
