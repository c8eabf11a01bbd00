/**
 * @file
 * The node of an intrusive, circular, doubly linked list.
 */
#ifndef OSD_MENU_LIST_H
#define OSD_MENU_LIST_H

/**
 * Both a member of a list and its head. An empty head points at itself in both directions; a head of zero bytes
 * belongs to a list that was never set up, and counts as empty.
 */
struct list_head {
    struct list_head *prev; /**< neighbour in the one direction: pages are displayed along it */
    struct list_head *next; /**< neighbour in the other: lists keep the order of their file along it */
};

#endif
