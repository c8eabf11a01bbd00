/**
 * @file
 * The records of a loaded menu.
 *
 * They are plain structures with public fields, and the resource files hold raw images of them as a 64-bit
 * little-endian machine lays them out. The library owns every record it loads, with its texts and pixels. A host may
 * read them; the geometry of a picture (height, width, stride) says how large its block is and is not for a host to
 * write.
 */
#ifndef OSD_MENU_H
#define OSD_MENU_H

#include "list.h"

#ifdef __cplusplus
extern "C" {
#endif

enum {
    LEVEL_ABSENT = 255,        /**< in osdmenu_item.position: no coordinate at this depth */
    ITEM_MARK_ENABLED = 0xCC,  /**< in osdmenu_item.position.levels[3]: written when an item is enabled */
    ITEM_MARK_DISABLED = 0xEE, /**< in osdmenu_item.position.levels[3]: the one value that hides an item */
};

/** Kinds of value, in osdmenu_item_value.type. */
enum {
    VALUE_NONE = 0,       /**< no value: the action is never asked for one */
    VALUE_TXT = 1,        /**< one of a list of pre-rendered choices */
    VALUE_NUMBER = 2,     /**< a bounded number */
    VALUE_PERCENTAGE = 3, /**< a bounded number, painted with a percent sign */
    VALUE_RAWTXT = 4,     /**< a free text, painted with glyphs; made of a VALUE_TXT at run time, never in a file */
};

/** Operations that an action is called with. */
enum {
    ACTION_OP_INIT = 1,  /**< set up, at registration; value 0, result dropped */
    ACTION_OP_GET = 2,   /**< report the present value; value 0 */
    ACTION_OP_SET = 3,   /**< apply the value given; result dropped */
    ACTION_OP_ENTER = 4, /**< OK was pressed on the item; value 0, result dropped */
};

/** Codes of the five keys. */
enum {
    OSD_KEY_UP = 1,
    OSD_KEY_DOWN = 2,
    OSD_KEY_LEFT = 3,
    OSD_KEY_RIGHT = 4,
    OSD_KEY_OK = 5,
};

/**
 * Four bytes, one per depth of the menu.
 *
 * In an item they are its coordinates, ending at the first LEVEL_ABSENT behind levels[0]; levels[3] is also the
 * enable mark. In the menu's position they are enabled indexes: the number of enabled rows above the chosen one.
 */
typedef struct osdmenu_position {
    unsigned char levels[4]; /**< by depth, from 0 */
} osdmenu_position;

/** One block of pre-rendered pixels, 2 bytes a pixel. */
typedef struct osdmenu_view_bitmap {
    unsigned int pixeltype; /**< pixel format, carried from the file; shown, never acted on */
    unsigned int height;    /**< rows */
    unsigned int width;     /**< BYTES copied per row */
    unsigned int stride;    /**< bytes from one stored row to the next; glyphs and symbols only, else `width` serves */
    char *bitmap;           /**< the pixels, owned by the record that holds this block */
} osdmenu_view_bitmap;

/** How an item looks. */
typedef struct osdmenu_view {
    unsigned int type;              /**< carried from the file; shown, never acted on */
    char *description;              /**< the text of the picture, a block of 132 bytes */
    osdmenu_view_bitmap viewbitmap; /**< the picture of the row, stored without gaps */
} osdmenu_view;

/** One choice of a VALUE_TXT item. */
typedef struct osdmenu_item_value_txt {
    char *description;              /**< its text, a block of 132 bytes */
    osdmenu_view_bitmap viewbitmap; /**< its picture, stored without gaps */
} osdmenu_item_value_txt;

/** Kept for the size of the union; no function uses it. */
typedef struct osdmenu_item_value_pixelarray {
    char *description;    /**< not used */
    unsigned int pa_type; /**< not used */
    unsigned int height;  /**< not used */
    unsigned int width;   /**< not used */
    char *pa;             /**< not used */
} osdmenu_item_value_pixelarray;

/** A bounded number. */
typedef struct osdmenu_item_value_number {
    int highlimit; /**< largest value */
    int lowlimit;  /**< smallest value */
    int current;   /**< present value */
    int step;      /**< change of one key press */
} osdmenu_item_value_number;

/** A bounded percentage. */
typedef struct osdmenu_item_value_percentage {
    int highlimit; /**< largest value */
    int lowlimit;  /**< smallest value */
    int current;   /**< present value */
    int step;      /**< change of one key press */
} osdmenu_item_value_percentage;

/** The value of an item; and, as a member of such a value's list, one of its choices. */
typedef struct osdmenu_item_value {
    struct list_head list; /**< of an item: head of its choices; of a choice: its node. File order along `next` */
    unsigned int type;     /**< VALUE_NONE to VALUE_RAWTXT */
    int current;           /**< index of the present choice, from 0; may lie outside the list until the next paint */
    union {
        osdmenu_item_value_txt txt;
        osdmenu_item_value_pixelarray pixelarray;
        osdmenu_item_value_number number;
        osdmenu_item_value_percentage percentage;
    } u; /**< by type; of a choice always `txt` */
} osdmenu_item_value;

struct osdmenu_item;

/**
 * The host's side of an item: reports and changes the setting behind it.
 *
 * @param item       the item that it is called for
 * @param operation  ACTION_OP_INIT, ACTION_OP_GET, ACTION_OP_SET or ACTION_OP_ENTER
 * @param value      the new value of ACTION_OP_SET, else 0
 * @return the present value for ACTION_OP_GET, else not used
 *
 * From a key or a draw it runs with the menu's lock held, and must not call one of the functions that take the lock.
 * Inside ACTION_OP_SET and ACTION_OP_ENTER it may free and load the menu; inside ACTION_OP_GET and ACTION_OP_INIT not.
 */
typedef int (*osdmenu_action_callback)(struct osdmenu_item *item, int operation, int value);

/** One menu item. */
typedef struct osdmenu_item {
    struct list_head siblings;      /**< node among the rows of its page */
    struct list_head readlist;      /**< node among all items of the load, in file order along `next` */
    struct list_head child;         /**< head of its own page; in display order along `prev` */
    osdmenu_position position;      /**< coordinates and enable mark */
    char *name;                     /**< by which host and library address it, a block of 132 bytes; not displayed */
    osdmenu_action_callback action; /**< null until one is registered */
    osdmenu_view view;              /**< text and picture */
    osdmenu_item_value item_values; /**< value */
} osdmenu_item;

/** One pre-rendered help text. */
typedef struct osdhelpline {
    struct list_head siblings;      /**< node among the help lines, in file order along `next` */
    char *name;                     /**< by which a painter finds it, a block of 132 bytes */
    char *viewdescription;          /**< its text, a block of 132 bytes */
    osdmenu_view_bitmap viewbitmap; /**< its picture, stored without gaps */
} osdhelpline;

/** One pre-rendered bubble text. */
typedef struct osdbubbleline {
    struct list_head siblings;      /**< node among the bubble lines, in file order along `next` */
    char *name;                     /**< by which a painter finds it, a block of 132 bytes */
    char *viewdescription;          /**< its text, a block of 132 bytes */
    osdmenu_view_bitmap viewbitmap; /**< its picture, stored without gaps */
    int level;                      /**< for the host alone, see get_bubbleline_level_byname */
} osdbubbleline;

/* The resource files are images of these records. */
/** @cond */
#ifdef __cplusplus
#define OSD_MENU_IMAGE_SIZE(record, bytes) static_assert(sizeof(record) == (bytes), #record " is an image of its file")
#else
#define OSD_MENU_IMAGE_SIZE(record, bytes) _Static_assert(sizeof(record) == (bytes), #record " is an image of its file")
#endif
OSD_MENU_IMAGE_SIZE(osdmenu_item, 168);
OSD_MENU_IMAGE_SIZE(osdmenu_item_value, 56);
OSD_MENU_IMAGE_SIZE(osdhelpline, 56);
OSD_MENU_IMAGE_SIZE(osdbubbleline, 64);
OSD_MENU_IMAGE_SIZE(osdmenu_view_bitmap, 24);
#undef OSD_MENU_IMAGE_SIZE
/** @endcond */

#ifdef __cplusplus
}
#endif

#endif
