// Walks over the help lines and the bubble lines, both in file order along `next`.
#pragma once

#include "core/list_primitives.h"
#include "core/state.h"

// `siblings` stands first in either record, and a bubble line starts with the fields of a help line.
inline struct osdhelpline *first_line(const struct list_head *lines)
{
    return reinterpret_cast<struct osdhelpline *>(list_next(lines, lines));
}

inline struct osdhelpline *line_after(const struct osdhelpline *line, const struct list_head *lines)
{
    return reinterpret_cast<struct osdhelpline *>(list_next(&line->siblings, lines));
}

// The first bubble line of that name, or null.
const struct osdbubbleline *bubbleline_byname(const char *name);
