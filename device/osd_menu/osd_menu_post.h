/**
 * @file
 * What the library exports.
 *
 * There is one menu per process. A host starts it in this order: the text size, the view buffer, the glyphs and
 * symbols, the items, their ordering, the help and bubble lines, the actions, the first position. From then on it
 * sends keys, fills the background, draws, and shows osdmenu_viewbuffer.
 *
 * Eight functions take the menu's lock, each for its whole body: the five keys, osdmenu_draw_allitems,
 * osdmenu_action_menuctl_byname_safe and osdmenu_current_view_position_reset. The lock is not recursive. Everything
 * else runs without it; a host that calls it beside a key or a draw on another thread holds the lock meanwhile with
 * osdmenu_Mutex_Lock and osdmenu_Mutex_Unlock.
 *
 * Coordinates and sizes are pixels unless a line says bytes; a pixel takes 2 bytes. Directories are prefixes of file
 * names, given with their trailing slash. A null text counts as an empty one, a null name as not found.
 */
#ifndef OSD_MENU_POST_H
#define OSD_MENU_POST_H

#include "osd_menu.h"

#ifdef __GNUC__
#define OSD_MENU_API __attribute__((visibility("default")))
#else
#define OSD_MENU_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** Where a composite bubble starts, and how far it reaches. */
typedef struct osd_bubble_para {
    int start_x;         /**< in: left edge of the composition, pixels */
    int start_y;         /**< in: its top, pixels */
    int view_width_max;  /**< out: pixels */
    int view_height_max; /**< out: pixels */
} osd_bubble_para;

/** @name Data
 * @{ */

/** Display name of the accessory: up to 31 characters, set with set_kz73_name. */
extern OSD_MENU_API char kz73_name[32];

/** The view buffer, or null before osdmenu_viewbuffer_malloc. The library owns it for the life of the process. */
extern OSD_MENU_API char *osdmenu_viewbuffer;

/** Colours of the text, kept for the host; the library does not use them. */
extern OSD_MENU_API unsigned char ft_font_col_arr[5];

/** The host's highest tracking mode: the AI mode page counts its rows down from it. */
extern OSD_MENU_API int sc_trackingmode_max;

/** @}
 * @name State and the lock
 * @{ */

/** Copies a name of at most 31 characters; a longer one or null changes nothing. @return 0 in every case */
OSD_MENU_API int set_kz73_name(const char *new_name);

/** @return kz73_name itself, never null */
OSD_MENU_API char *get_kz73_name(void);

/** @return depth of the list on show: 0 for the top list, at most 3 */
OSD_MENU_API int get_osdmenu_current_viewlevel(void);

/** @return the enabled index of the row chosen in the top list, 0 to 255 */
OSD_MENU_API int osdmenu_current_view_position(void);

/**
 * Chooses a row. Call it with the lock held if keys or draws may run.
 *
 * @param level  depth, 0 to 3; any other changes nothing
 * @param pos    enabled index; its low 8 bits count
 * @return 0
 */
OSD_MENU_API int set_current_view_position(int level, int pos);

/** @return the enabled index of the row chosen at a depth, 0 to 255; 0 for a depth outside 0 to 3 */
OSD_MENU_API int get_current_view_position(int level);

/** Stores a word for the host. Leaving the AI mode page sets it to 0. */
OSD_MENU_API void set_osdmenu_status(int value);

/** @return the word of set_osdmenu_status */
OSD_MENU_API int get_osdmenu_status(void);

/** @return depth of an item by its coordinates, 0 to 3. An enable mark behind three coordinates counts as a fourth */
OSD_MENU_API int get_viewlevel_from_menuitem(struct osdmenu_item *item);

/** Takes the lock. It is not recursive. @param str name of the caller, for the trace @return 0 */
OSD_MENU_API int osdmenu_Mutex_Lock(const char *str);

/** Releases the lock. @param str name of the caller, for the trace @return 0 */
OSD_MENU_API int osdmenu_Mutex_Unlock(const char *str);

/** @}
 * @name Layout and view buffer
 * Called at start-up, outside a draw.
 * @{ */

/** Sets every position and size of a page for a display that is `burst` times the base layout of 880 x 580. */
OSD_MENU_API void osdmenu_fontsize_init(int burst);

/** As osdmenu_fontsize_init, with another base size of the text than 48 pixels. */
OSD_MENU_API void osdmenu_fontsize_init2(int fontsize, int burst);

/** Takes two sizes and changes nothing. */
OSD_MENU_API void osdmenu_osd_area_size_init(int osdAreaWidth, int osdAreaHeight);

/** Moves the value column to `value` * `size` pixels, until the next osdmenu_fontsize_init. */
OSD_MENU_API void set_osdmenu_view_valuearea_x(int size, int value);

/** @return x of the values of the page on show: from the configuration, else the value column */
OSD_MENU_API int get_osdmenu_view_valuearea_x(void);

/** Switches the help block at the foot of every page on (not 0) or off (0). */
OSD_MENU_API void osdmenu_meeting_camera_helpline_enable(int status);

/**
 * Makes the view buffer, all zero, and sets the size of the view. Call it after osdmenu_fontsize_init, which sets
 * that size too. An earlier buffer is let go without being freed: whoever shows it may still be reading.
 *
 * @return the buffer, which the library keeps; null when there is no memory or a size is negative
 */
OSD_MENU_API char *osdmenu_viewbuffer_malloc(int width, int height);

/** Fills the view buffer with the background colour, two pixels at a time. @return 0 */
OSD_MENU_API int osdmenu_viewbuffer_fill_background(void);

/** @}
 * @name Loading
 * Kept apart from keys and draws by the host. A failed load keeps what it has read.
 * @{ */

/**
 * Loads the glyphs from c.d, freeing those that it replaces.
 *
 * @return 0 or above, or -1 on failure. Above 0 all 93 are there, and it is the bytes of the last one's pixels; 0 where
 *         the file ends before them
 */
OSD_MENU_API int read2mem_menuitem_commonchar(const char *dir);

/** Frees the glyphs. No text is painted until they are loaded again. */
OSD_MENU_API void free_read2mem_menuitem_commonchar(void);

/** Loads up to 31 symbols from s.d, freeing those that it replaces. @return 0, or -1 on failure */
OSD_MENU_API int read2mem_menuitem_utf16symbol(const char *dir);

/**
 * Loads the items from m.d and b.d, and the configuration from ../conf_backup/osd_menu.json if there was none.
 * orderize_all_menuitems comes next. An earlier menu is freed with free_all_menuitems first, or stays allocated.
 *
 * @return 0 in every case; failures are reported on the standard streams
 */
OSD_MENU_API int read2mem_all_menuitems(const char *dir);

/** Frees all items; the menu is then empty. Glyphs, help and bubble lines and positions stay. @return 0 */
OSD_MENU_API int free_all_menuitems(void);

/** Builds the tree of pages from the items just loaded. Once per load, before the first draw. */
OSD_MENU_API void orderize_all_menuitems(void);

/** Places one item, which is in no list, in the tree. @return 1 when it was placed, 2 when it has no coordinate */
OSD_MENU_API int insert2orderized_osmenu(struct osdmenu_item *item);

/** @return the enabled index of an item of the top list, also of a disabled one; -2 when it is not there */
OSD_MENU_API int get_levels_byname(const char *name);

/** Loads the help lines from hm.d and hb.d in place of the old ones. @return 0, or -1 on failure */
OSD_MENU_API int read2mem_helpline(const char *dir);

/** Loads the bubble lines from bm.d and bb.d in place of the old ones. @return 0, or -1 on failure */
OSD_MENU_API int read2mem_bubbleline(const char *dir);

/** @return the level that the file gives to a bubble line, -1 when there is no such line */
OSD_MENU_API int get_bubbleline_level_byname(const char *name);

/** @}
 * @name Pages
 * Painters into the view buffer. A block that runs past the right edge goes on in the next row; what would fall
 * outside the buffer is dropped. All but osdmenu_draw_allitems leave the lock to their caller.
 * @{ */

/**
 * Paints the page on show and finds its current item. Fill the background first. Takes the lock.
 *
 * @return 0
 */
OSD_MENU_API int osdmenu_draw_allitems(void);

/** osdmenu_draw_allitems for a caller that holds the lock. @return 0 */
OSD_MENU_API int _osdmenu_draw_allitems(void);

/** Paints the picture of an item. @return 0 */
OSD_MENU_API int osdmenu_draw_itemview(int start_x, int start_y, struct osdmenu_view *itemview);

/** Paints a symbol, by its index 0 to 31; any other paints nothing. @return 0 */
OSD_MENU_API int osdmenu_mark_current_menuitem(int start_x, int start_y, int charindex);

/** Paints a value by its type; a number is clamped to its limits and a choice wrapped into its list. @return 0 */
OSD_MENU_API int osdmenu_draw_itemvalue(int start_x, int start_y, struct osdmenu_item_value *itemvalue);

/** Paints the picture of a choice. @return 0 */
OSD_MENU_API int osdmenu_draw_itemvalue_txt(int start_x, int start_y, struct osdmenu_item_value_txt *itemvaluetxt);

/** Clamps and paints a number. @return 0, or -1 when a character has no place in the glyph table */
OSD_MENU_API int osdmenu_draw_itemvalue_number(int start_x, int start_y,
                                               struct osdmenu_item_value_number *itemvaluenumber);

/** Clamps and paints a percentage. @return as osdmenu_draw_itemvalue_number */
OSD_MENU_API int osdmenu_draw_itemvalue_percentage(int start_x, int start_y,
                                                   struct osdmenu_item_value_percentage *itemvaluepercentage);

/** Paints the text of the present choice with glyphs. @return as osdmenu_draw_itemvalue_number */
OSD_MENU_API int osdmenu_draw_itemvalue_rawtxt(int start_x, int start_y, struct osdmenu_item_value *item_value);

/** Paints every help line of that name. @return 0 */
OSD_MENU_API int osdmenu_draw_helpline_byname(int start_x, int start_y, const char *name);

/** Paints the classic help block of three lines. A draw does not: the host calls it. @return 0 */
OSD_MENU_API int osdmenu_draw_helpline(void);

/** Paints the help block that the configuration chooses for the current item. A draw ends with it when enabled. */
OSD_MENU_API void osdmenu_draw_meeting_camera_helpline(void);

/** Does nothing. It is weak, so that a host may define its own. */
OSD_MENU_API void osdmenu_helpline_type_set_from_version(char *name, int *type);

/** @}
 * @name Text and bubbles
 * Painters from glyphs and bubble lines. They use the view buffer without the lock, and most of them clear it first:
 * the host keeps them apart from draws, and reads a bubble before anything else is painted. Results that are pointers
 * lie in the view buffer, and are null without one.
 * @{ */

/**
 * Paints one line of text, stopping at the right and the bottom edge of the view. Characters without a glyph are
 * skipped.
 *
 * @param text_max_len  the most characters to take; a zero byte ends the text sooner
 * @return 0; -1 for a null text or a length of 0 or less
 */
OSD_MENU_API int osdmenu_draw_string_at_position(int start_x, int start_y, const char *text, int text_max_len);

/** get_osdmenu_bubble2 without a height. */
OSD_MENU_API char *get_osdmenu_bubble(const char *msg, int start_x, int start_y);

/**
 * Clears the view buffer and paints a text of one or more lines, broken at newlines and ended by the bottom edge.
 *
 * @param max_view_height  out, may be null: the row below the last line, from the top of the view
 * @return the first pixel of the text; its rows have the pitch of the view
 */
OSD_MENU_API char *get_osdmenu_bubble2(const char *msg, int start_x, int start_y, int *max_view_height);

/**
 * As get_osdmenu_bubble2, but reports the size of the last glyph painted.
 *
 * @param width_bubble   out, may be null: pixels; untouched by a text without glyphs
 * @param height_bubble  out, may be null: rows
 */
OSD_MENU_API char *get_osdmenu_bubble2_with_wh(const char *msg, int start_x, int start_y, int *width_bubble,
                                               int *height_bubble);

/** As get_osdmenu_bubble2, with lines that stand `line_pad` pixels further apart. */
OSD_MENU_API char *get_osdmenu_bubble_linepad(const char *msg, int start_x, int start_y, int line_pad,
                                              int *max_view_height);

/** get_osdmenu_bubble_linepad on `name`, which is painted as text. */
OSD_MENU_API char *osdmenu_get_bubble_multiline(const char *name, int start_x, int start_y, int line_pad,
                                                int *max_view_height);

/**
 * Clears the view buffer and places a bubble line in it; a name without one is painted as text.
 *
 * @param max_view_height  out, may be null: the row below one line of text
 * @return the pixel (start_x, start_y); rows have the pitch of the view
 */
OSD_MENU_API char *osdmenu_get_bubbleline_byname(const char *name, int start_x, int start_y, int *max_view_height);

/**
 * Builds a bubble line as a packed block at the start of the view buffer, both sizes multiples of 16; the messages of
 * the accessory carry its name. A name without a bubble line is painted as text.
 *
 * @param start_x        left and right margin: BYTES, even; pixels for the accessory's name and for text
 * @param start_y        rows above the picture
 * @param down_margin    rows below the picture
 * @param width_bubble   out, may be null: width and row pitch of the block, pixels
 * @param height_bubble  out, may be null: rows
 * @return osdmenu_viewbuffer for a bubble line, else the first pixel of the text at the pitch of the view
 */
OSD_MENU_API char *osdmenu_get_bubbleline_byname_with_wh(const char *name, int start_x, int start_y, int down_margin,
                                                         int *width_bubble, int *height_bubble);

/**
 * Composes a message from tokens: "\n" breaks the line, the name of a bubble line places it, anything else is text.
 * The row pitch of the result is 1100 pixels, whatever the view has.
 *
 * @param array_name  the tokens; a null one is skipped
 * @param array_max   their number
 * @return the first pen position
 */
OSD_MENU_API char *osdmenu_get_bubbleline_byname_multiline(char **array_name, int array_max, osd_bubble_para *b_para);

/** The same with other margins, at a row pitch of 1200 pixels. @return osdmenu_viewbuffer */
OSD_MENU_API char *osdmenu_get_bubbleline_byname_multiline_2(char **array_name, int array_max, osd_bubble_para *b_para);

/** The same for languages whose words part at blanks, at a row pitch of 1200 pixels. @return osdmenu_viewbuffer */
OSD_MENU_API char *osdmenu_get_bubbleline_byname_multiline_2_en(char **array_name, int array_max,
                                                                osd_bubble_para *b_para);

/**
 * Paints characters side by side in the view buffer, up to its right edge.
 *
 * @param msg                  at least `msg_max` bytes and a terminator
 * @param x_pos_cur            in, out: the pen, pixels; it moves past the edge when the edge stops the text
 * @param dst_viewarea_buffer  in, out: where the next glyph goes
 */
OSD_MENU_API void get_osdmenu_common_bitmap(const char *msg, int msg_max, int *x_pos_cur, char **dst_viewarea_buffer);

/**
 * Paints characters into the caller's buffer, wrapping at its right edge and stopping at its bottom.
 *
 * @param msg            at least `msg_max` bytes and a terminator
 * @param x_pos_cur      in, out: column of the pen, pixels
 * @param y_pos_cur      in, out: its row
 * @param dst_buffer     buffer_width * buffer_height * pixelsize bytes
 * @param pixelsize      bytes a pixel
 * @return 0; -1 for a null pointer or a size of 0 or less
 */
OSD_MENU_API int get_osdmenu_common_bitmap_ex(const char *msg, int msg_max, int *x_pos_cur, int *y_pos_cur,
                                              char *dst_buffer, int buffer_width, int buffer_height, int pixelsize);

/**
 * Paints characters into the view buffer inside margins, with wraps and newlines.
 *
 * @param x_pos_cur            column of the pen, pixels; as it came on return
 * @param y_pos_cur            row of the pen; as it came on return
 * @param dst_viewarea_buffer  out: behind the last glyph
 * @param viewarea_width       the present width of the view, pixels
 * @param viewarea_height      its present height
 */
OSD_MENU_API void get_osdmenu_common_bitmap_with_margin(const char *msg, int msg_max, int *x_pos_cur, int *y_pos_cur,
                                                        char **dst_viewarea_buffer, int viewarea_width,
                                                        int viewarea_height, int top_margin, int bottom_margin,
                                                        int left_margin, int right_margin);

/** @return the width of a text in BYTES; -1 when a character has no place in the glyph table */
OSD_MENU_API int get_string_bitmap_length(const char *msg);

/**
 * Paints a text side by side from the first byte of the caller's buffer.
 *
 * The one painter that cannot check its target: outside the view buffer, `dst_buf` must hold as many rows of
 * buf_width * pixelsize bytes as the tallest glyph has, and a row at least get_string_bitmap_length(msg) bytes.
 *
 * @param buf_width  pixels of a row of the buffer
 * @param pixelsize  2; any other gives -1
 * @return 0; -1 when a character has no place in the glyph table
 */
OSD_MENU_API int get_string_bitmap(const char *msg, int buf_width, int pixelsize, char *dst_buf);

/** @}
 * @name Keys
 * A key changes the position, the level or a value and paints nothing. Each takes the lock and returns 0.
 * @{ */

OSD_MENU_API int osdmenu_action_up(void);    /**< moves one row up, or to the last row from the first */
OSD_MENU_API int osdmenu_action_down(void);  /**< moves one row down, or to the first row from the last */
OSD_MENU_API int osdmenu_action_left(void);  /**< lowers the value of the current item */
OSD_MENU_API int osdmenu_action_right(void); /**< raises the value of the current item */
OSD_MENU_API int osdmenu_action_ok(void);    /**< enters the current item's page, or calls its action */

/** One key by its code, for a caller that holds the lock; other codes do nothing. @return 0 */
OSD_MENU_API int osdmenu_process_key(int keyvalue);

/** @}
 * @name Position
 * All but osdmenu_current_view_position_reset leave the lock to their caller, so that a callback may use them.
 * @{ */

/** Goes to row 1 of the top list. Takes the lock. @return 0 */
OSD_MENU_API int osdmenu_current_view_position_reset(void);

/** Goes one level down, at most to level 3. @return 0 */
OSD_MENU_API int osdmenu_submenu_entry(void);

/** Goes one level up, and leaves the AI mode page if that was on show. @return the new level, -1 at the top already */
OSD_MENU_API int osdmenu_action_menuback(void);

/** Leaves the AI mode page if the position is on it: clears the status, saves, hides the row, ends the display. */
OSD_MENU_API int osdmenu_action_aimodeback(void);

/** Goes to the row of the present tracking mode on the page of "aimodeselection", which the host enables. @return 0 */
OSD_MENU_API int osdmenu_enter_aimodeselection(void);

/** Sets sc_trackingmode_max. @return the value given */
OSD_MENU_API int set_sc_trackingmode_max(int val);

/** Goes to the page of "information" as OK on it would, from anywhere. @return 0 */
OSD_MENU_API int osdmenu_call_information_immediate(void);

/** Moves the row one level up one further down, for a row that appeared above it. Nothing at level 0. @return 0 */
OSD_MENU_API int osdmenu_recall_extsetting(void);

/** Moves the current row one up, not beyond row 2, for a row that vanished above it. @return 0 */
OSD_MENU_API int osdmenu_recall_delsetting(void);

/** @}
 * @name Items
 * By name, all items of the load are reached, at any depth. All but the safe one leave the lock to their caller.
 * @{ */

/**
 * Gives the first item of that name its action, and asks it for the present value if the item has one.
 *
 * @param flag_action  1 calls it with ACTION_OP_INIT first
 * @return 0 in every case
 */
OSD_MENU_API int osdmenu_register_action_byname(const char *itemname, osdmenu_action_callback action, int flag_action);

/** @return 1, or 0 for a disabled item */
OSD_MENU_API int osdmenu_itemenabled(struct osdmenu_item *item);

/** @return 1 when there is an item of that name and it is enabled, else 0 */
OSD_MENU_API int osdmenu_itemname_enable(const char *itemname);

/** Shows every item that has this action. @return 0, or -1 when no menu was ever loaded */
OSD_MENU_API int osdmenu_enableitem_byaction(osdmenu_action_callback action);

/** Hides every item that has this action. @return 0 */
OSD_MENU_API int osdmenu_disableitem_byaction(osdmenu_action_callback action);

/** Shows the first item of that name. @return 0 */
OSD_MENU_API int osdmenu_enableitem_byname(const char *itemname);

/** Hides the first item of that name. @return 0 */
OSD_MENU_API int osdmenu_disableitem_byname(const char *itemname);

/**
 * Makes a VALUE_TXT item show a free text, which is written over its present choice. The item then shows its first
 * choice: where another was present, only a second call is seen.
 *
 * @param txtvalue  its first 64 bytes are taken
 * @return 0; -1 for a null argument
 */
OSD_MENU_API int osdmenu_action_setnewtxtvalue2menuitem(struct osdmenu_item *menuitem, const char *txtvalue);

/** Enables every item of that name and gives it a free text. @return 0 */
OSD_MENU_API int osdmenu_action_setnewtxtvalue2menuitem_byname(const char *itemname, const char *txtvalue);

/** Stores a value in every item of that name, without its action. The next draw asks the action again. @return 0 */
OSD_MENU_API int osdmenu_action_ext_change_value_byname(const char *itemname, int value);

/** Calls the action of the first item of that name. @return its result; -1 when there is no such item or action */
OSD_MENU_API int osdmenu_complete_action_byname(const char *itemname, int action_value, int newvaluenumber);

/** Calls the action of the first item of that name and drops its result. @return 0 */
OSD_MENU_API int osdmenu_action_menuctl_byname(const char *itemname, int action, int newvalue);

/** osdmenu_action_menuctl_byname under the lock. */
OSD_MENU_API void osdmenu_action_menuctl_byname_safe(const char *itemname, int action, int newvalue);

/**
 * Gives one item copies of the pictures and texts of another.
 *
 * @param content  "osdmenu_view" for the row, "osdmenu_item_value" for the choices; any other copies nothing
 * @return 0
 */
OSD_MENU_API int reuse_font_content_byname(const char *src_itemname, const char *dst_itemname, const char *content);

/** @}
 * @name Dumps
 * @{ */

/** Prints every item on standard output. */
OSD_MENU_API void show_all_menuitems(void);

/** Traces the tree, three levels deep, at level 7. @return 0 */
OSD_MENU_API int osdmenu_show_orderized_osdmenu_siblings(void);

/** Traces the items without a place in the tree, then all items, at level 7. @return 0 */
OSD_MENU_API int osdmenu_show_osdmenu_siblings_and_readlist(void);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
