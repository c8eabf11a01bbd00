// The primitives of the intrusive list. None fails and none allocates.
#pragma once

#include "list.h"

inline void list_init(struct list_head *head)
{
    head->prev = head;
    head->next = head;
}

inline void list_link(struct list_head *new_node, struct list_head *before, struct list_head *after)
{
    new_node->prev = before;
    new_node->next = after;
    before->next = new_node;
    after->prev = new_node;
}

// Links a node directly before the head: last along `next`.
inline void list_add_tail(struct list_head *new_node, struct list_head *head)
{
    list_link(new_node, head->prev, head);
}

// Links a node directly behind the head: first along `next`.
inline void list_add(struct list_head *new_node, struct list_head *head)
{
    list_link(new_node, head, head->next);
}

// Joins the neighbours. The node keeps both of its own pointers, so that it can be put back where it was.
inline void list_del(struct list_head *node)
{
    node->prev->next = node->next;
    node->next->prev = node->prev;
}

// The neighbour along `next`, or null where the list ends. A head that was never set up has none.
inline struct list_head *list_next(const struct list_head *node, const struct list_head *head)
{
    return node->next == head ? nullptr : node->next;
}

// The neighbour along `prev`, or null where the list ends.
inline struct list_head *list_prev(const struct list_head *node, const struct list_head *head)
{
    return node->prev == head ? nullptr : node->prev;
}
