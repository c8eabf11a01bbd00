// Walks over the help lines and the bubble lines, both in file order along `next`.
#pragma once

#include "core/list_primitives.h"
#include "core/state.h"

// `siblings` stands first in either record: the node is the record.
inline struct osdhelpline *helpline_of(struct list_head *node)
{
    return reinterpret_cast<struct osdhelpline *>(node);
}

inline struct osdhelpline *first_helpline(void)
{
    return helpline_of(list_next(&osdhelp.siblings, &osdhelp.siblings));
}

inline struct osdhelpline *helpline_after(const struct osdhelpline *line)
{
    return helpline_of(list_next(&line->siblings, &osdhelp.siblings));
}

inline struct osdbubbleline *bubbleline_of(struct list_head *node)
{
    return reinterpret_cast<struct osdbubbleline *>(node);
}

inline struct osdbubbleline *first_bubbleline(void)
{
    return bubbleline_of(list_next(&osbbubble.siblings, &osbbubble.siblings));
}

inline struct osdbubbleline *bubbleline_after(const struct osdbubbleline *line)
{
    return bubbleline_of(list_next(&line->siblings, &osbbubble.siblings));
}

// The first bubble line of that name, or null.
const struct osdbubbleline *bubbleline_byname(const char *name);
