// Feeds the whole library from one input: eight resource files, a configuration, and calls of everything exported, with
// an action that answers from the input too and may free and load the menu.
//
// An input is a byte of flags, one that says which allocation fails, nine lengths of 16 bits (little endian) and the
// files; then calls from the front, a byte each, and their arguments from the back. The harness keeps to what the
// headers ask of a host, and to nothing else.
#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

#include "core/config.h"
#include "core/view_buffer.h"
#include "core/walks.h"
#include "host_settings.h"
#include "lib_common.h"
#include "lib_dbgout.h"
#include "resources/glyph_banks.h"
#include "support/resources.h"

enum { STANDARD_GLYPHS = 1, START_UP = 2 };    // flags
enum { ABSENT = 0xFFFF, UNREADABLE = 0xFFFE }; // lengths
enum { MOST_CALLS = 200, MOST_PICTURE = 1 << 12, MOST_VIEW = 1 << 20, MOST_ROW = 1 << 16 };

static const char *const names[] = {"c.d", "s.d", "m.d", "b.d", "hm.d", "hb.d", "bm.d", "bb.d", "osd_menu.json"};
static const std::size_t FILES = std::size(names), CONFIG = FILES - 1;
static std::string files[FILES];
static int lengths[FILES];
static const uint8_t *front, *back;
static std::size_t most_memory = MOST_PICTURE;            // at once; a line of trace goes out for each row of a bubble
static int allocations_left;                              // counts down to the one that fails; 0 lets all through
static std::vector<std::unique_ptr<char[]>> texts;        // arguments of calls, kept to the end of the input
static std::vector<std::unique_ptr<osdmenu_item>> guests; // items of the host's own in the tree
static std::vector<list_head> let_go;                     // heads of the menus that a load let go without freeing

static int byte()
{
    return front < back ? *--back : 0;
}

// A small number mostly, any number sometimes.
static int number()
{
    const int first = byte();
    if (first < 240)
        return first - 16;
    const int low = byte() | byte() << 8;
    return first < 250 ? low : wrapping_mul(byte() | byte() << 8, 1 << 16) | low;
}

template <class Choice, std::size_t count> static Choice &pick(Choice (&choices)[count])
{
    return choices[static_cast<std::size_t>(byte()) % count];
}

static osdmenu_item *item()
{
    osdmenu_item *found = first_loaded();
    for (int i = byte() % 16; i > 0 && found; i--)
        found = loaded_after(found);
    return found;
}

// A name with a meaning, that of a loaded item, bytes of the input, or null. Each text is a block of its own.
static char *text()
{
    static const char *const known[] = {"information", "menu0", "RestarKz73", "\n", "", "a$", "b\n\xFF"};
    const int kind = byte();
    std::string bytes;
    if (kind < 100)
        bytes = pick(known);
    else if (const osdmenu_item *named = kind < 200 ? item() : nullptr; named && named->name)
        bytes = named->name;
    else
        for (int i = kind % 48; i > 0; i--)
            bytes += static_cast<char>(byte());
    texts.emplace_back(new char[bytes.size() + 1]);
    std::memcpy(texts.back().get(), bytes.c_str(), bytes.size() + 1);
    return kind == 255 ? nullptr : texts.back().get();
}

static const char *directory()
{
    return byte() == 255 ? text() : "/res/";
}

// Resource files, told by their last name, are in memory. Everything else opens as ever.
extern "C" int __real_open(const char *path, int flags, ...);
extern "C" int __wrap_open(const char *path, int flags, ...)
{
    static int memory[FILES];
    const char *slash = std::strrchr(path, '/');
    for (std::size_t i = 0; i < CONFIG; i++) {
        if (std::strcmp(slash ? slash + 1 : path, names[i]) != 0)
            continue;
        errno = ENOENT;
        if (lengths[i] >= UNREADABLE)
            return lengths[i] == ABSENT ? -1 : __real_open("/", O_RDONLY);
        if (memory[i] == 0)
            memory[i] = memfd_create(names[i], 0);
        if (ftruncate(memory[i], 0) != 0 || pwrite(memory[i], files[i].data(), files[i].size(), 0) < 0 ||
            lseek(memory[i], 0, SEEK_SET) != 0)
            std::abort();
        return dup(memory[i]);
    }
    return __real_open(path, flags, 0600);
}

// Memory is short: too much at once fails, and one allocation of the input's choice.
extern "C" void *__real_calloc(std::size_t count, std::size_t size);
extern "C" void *__wrap_calloc(std::size_t count, std::size_t size)
{
    const bool fails = size > most_memory || (allocations_left > 0 && --allocations_left == 0);
    errno = ENOMEM;
    return fails ? nullptr : __real_calloc(count, size);
}

char *read_file_to_buf(char *)
{
    return lengths[CONFIG] == ABSENT ? nullptr : strdup(files[CONFIG].c_str());
}

int get_sc_smartgallery_preset(void)
{
    return number();
}

int get_sc_trackingmode(void)
{
    return number();
}

static void load()
{
    const list_head old = osdmenu.readlist;
    read2mem_all_menuitems(directory());
    if (old.next && old.next != &osdmenu.readlist && old.next != osdmenu.readlist.next)
        let_go.push_back(old);
}

static int action(osdmenu_item *owner, int operation, int value);

static void load_anew()
{
    free_all_menuitems();
    load();
    orderize_all_menuitems();
    for (osdmenu_item *each = first_loaded(); each; each = loaded_after(each))
        each->action = byte() < 230 ? action : nullptr;
}

// What an action may do anywhere; and what it may do in SET and ENTER, not below a GET.
static void (*const by_action[])() = {
    [] { osdmenu_enableitem_byname(text()); },
    [] { osdmenu_disableitem_byname(text()); },
    [] { osdmenu_submenu_entry(); },
    [] { osdmenu_action_menuback(); },
    [] { osdmenu_process_key(byte() % 7); },
    [] { osdmenu_action_setnewtxtvalue2menuitem_byname(text(), text()); },
    [] { set_current_view_position(number(), number()); },
    [] { osdmenu_complete_action_byname(text(), byte() % 6, number()); },
    [] { osdmenu_call_information_immediate(); },
};
static void (*const by_free_action[])() = {load_anew, [] { free_all_menuitems(); }, [] {}};

static int action(osdmenu_item *, int operation, int)
{
    static int depth, asking;
    if (depth > 2)
        return number();
    const bool asked = operation != ACTION_OP_SET && operation != ACTION_OP_ENTER;
    depth++;
    asking += asked;
    if (byte() % 2)
        (asking || byte() % 4 ? pick(by_action) : pick(by_free_action))();
    asking -= asked;
    depth--;
    return number();
}

static osdmenu_action_callback some_action()
{
    return byte() % 4 ? action : nullptr;
}

// The library lets go of an earlier view without freeing it.
static void make_view(int width, int height)
{
    char *old = osdmenu_viewbuffer;
    most_memory = MOST_VIEW;
    osdmenu_viewbuffer_malloc(width, height);
    most_memory = MOST_PICTURE;
    std::free(old);
}

static void insert_guest()
{
    guests.emplace_back(new osdmenu_item());
    osdmenu_item *guest = guests.back().get();
    for (unsigned char &level : guest->position.levels)
        level = static_cast<unsigned char>(number());
    guest->name = text();
    guest->action = some_action();
    guest->item_values.type = static_cast<unsigned>(number());
    insert2orderized_osmenu(guest);
}

static void draw_number()
{
    osdmenu_item_value_number number_value = {number(), number(), number(), number()};
    osdmenu_item_value_percentage percentage = {number(), number(), number(), number()};
    osdmenu_draw_itemvalue_number(number(), number(), &number_value);
    osdmenu_draw_itemvalue_percentage(number(), number(), &percentage);
}

static void draw_item()
{
    osdmenu_item *some = item();
    osdmenu_item_value *value = some ? &some->item_values : nullptr;
    osdmenu_item_value *choice = value ? first_choice(value) : nullptr;
    osdmenu_draw_itemview(number(), number(), some ? &some->view : nullptr);
    osdmenu_draw_itemvalue(number(), number(), value);
    osdmenu_draw_itemvalue_rawtxt(number(), number(), value);
    osdmenu_draw_itemvalue_txt(number(), number(), choice ? &choice->u.txt : nullptr);
}

static void compose()
{
    static char *(*const composers[])(char **, int, osd_bubble_para *) = {osdmenu_get_bubbleline_byname_multiline,
                                                                          osdmenu_get_bubbleline_byname_multiline_2,
                                                                          osdmenu_get_bubbleline_byname_multiline_2_en};
    std::vector<char *> tokens(static_cast<std::size_t>(byte() % 8));
    std::generate(tokens.begin(), tokens.end(), text);
    osd_bubble_para para = {number(), number(), 0, 0};
    pick(composers)(tokens.data(), static_cast<int>(tokens.size()), byte() == 255 ? nullptr : &para);
}

// The one painter that cannot check its target gets one as large as its header asks.
static void paint_string()
{
    const char *msg = text();
    std::int64_t row = 0, rows = 0;
    for (const char *at = msg; at && *at && glyph_index(*at) != GLYPH_NONE; at++)
        if (const osdmenu_view_bitmap *glyph = glyph_at(glyph_index(*at))) {
            row += glyph->width;
            rows = std::max<std::int64_t>(rows, glyph->height);
        }
    const int width = static_cast<int>(std::min<std::int64_t>(row, MOST_ROW) + 1) / 2 + byte();
    std::vector<char> own(row < MOST_ROW && rows * width < MOST_VIEW ? static_cast<std::size_t>(rows * width * 2) : 0);
    if (!own.empty())
        get_string_bitmap(msg, width, byte() == 255 ? 4 : 2, own.data());
    if (osdmenu_viewbuffer && osdmenu_viewbuffer_size > 0)
        get_string_bitmap(msg, number(), 2, osdmenu_viewbuffer + (number() & INT32_MAX) % osdmenu_viewbuffer_size);
}

static void paint_characters()
{
    const char *msg = text();
    const int most = std::min(number(), msg ? static_cast<int>(std::strlen(msg)) : 0);
    const int width = byte() % 64, height = byte() % 64, pixelsize = byte() % 5;
    std::vector<char> own(static_cast<std::size_t>(width * height * pixelsize));
    int x = number(), y = number();
    char *to = view_address(number());
    get_osdmenu_common_bitmap(msg, most, &x, &to);
    get_osdmenu_common_bitmap_with_margin(msg, most, &x, &y, &to, number(), number(), number(), number(), number(),
                                          number());
    get_osdmenu_common_bitmap_ex(msg, most, &x, &y, own.data(), width, height, pixelsize);
}

static int (*const plain[])() = {_osdmenu_draw_allitems,
                                 get_osdmenu_current_viewlevel,
                                 get_osdmenu_status,
                                 get_osdmenu_view_valuearea_x,
                                 osdmenu_action_aimodeback,
                                 osdmenu_action_menuback,
                                 osdmenu_call_information_immediate,
                                 osdmenu_current_view_position,
                                 osdmenu_current_view_position_reset,
                                 osdmenu_draw_helpline,
                                 osdmenu_enter_aimodeselection,
                                 osdmenu_recall_delsetting,
                                 osdmenu_recall_extsetting,
                                 osdmenu_submenu_entry,
                                 osdmenu_show_orderized_osdmenu_siblings,
                                 osdmenu_show_osdmenu_siblings_and_readlist,
                                 free_all_menuitems,
                                 osdmenu_viewbuffer_fill_background};
static void (*const silent[])() = {free_read2mem_menuitem_commonchar, orderize_all_menuitems, show_all_menuitems,
                                   osdmenu_draw_meeting_camera_helpline};
static int (*const keys[])() = {osdmenu_action_up,    osdmenu_action_down, osdmenu_action_left,
                                osdmenu_action_right, osdmenu_action_ok,   osdmenu_draw_allitems};
static int (*const by_name[])(const char *) = {
    set_kz73_name,           get_levels_byname,         get_bubbleline_level_byname,
    osdmenu_itemname_enable, osdmenu_enableitem_byname, osdmenu_disableitem_byname,
    get_string_bitmap_length};
static int (*const loaders[])(const char *) = {read2mem_helpline, read2mem_bubbleline, read2mem_menuitem_commonchar,
                                               read2mem_menuitem_utf16symbol};
static void (*const sizes[])(int, int) = {osdmenu_fontsize_init2, osdmenu_osd_area_size_init,
                                          set_osdmenu_view_valuearea_x};
static char *(*const bubbles[])(const char *, int, int, int *) = {get_osdmenu_bubble2, osdmenu_get_bubbleline_byname};
static char *(*const padded[])(const char *, int, int, int, int *) = {get_osdmenu_bubble_linepad,
                                                                      osdmenu_get_bubble_multiline};
static int out[2];

static void (*const calls[])() = {
    load,
    load_anew,
    [] { make_view(number(), number()); },
    insert_guest,
    draw_number,
    draw_item,
    compose,
    paint_string,
    paint_characters,
    [] { pick(keys)(); },
    [] { pick(keys)(); },
    [] { pick(keys)(); },
    [] { pick(plain)(); },
    [] { pick(silent)(); },
    [] { pick(by_name)(text()); },
    [] { pick(loaders)(directory()); },
    [] { pick(sizes)(number(), number()); },
    [] { osdmenu_fontsize_init(number()); },
    [] { osdmenu_meeting_camera_helpline_enable(byte() % 2); },
    [] { set_osdmenu_status(get_current_view_position(number())); },
    [] { set_current_view_position(number(), number()); },
    [] { osdmenu_process_key(set_sc_trackingmode_max(number())); },
    [] { get_viewlevel_from_menuitem(item()), osdmenu_itemenabled(item()); },
    [] { osdmenu_enableitem_byaction(some_action()); },
    [] { osdmenu_disableitem_byaction(some_action()); },
    [] { pick(bubbles)(text(), number(), number(), byte() % 4 ? out : nullptr); },
    [] { pick(padded)(text(), number(), number(), number(), byte() % 4 ? out : nullptr); },
    [] { get_osdmenu_bubble(text(), number(), number()); },
    [] { get_osdmenu_bubble2_with_wh(text(), number(), number(), out, byte() % 4 ? out + 1 : nullptr); },
    [] {
        osdmenu_get_bubbleline_byname_with_wh(text(), number(), number(), number(), byte() % 4 ? out : nullptr, out);
    },
    [] { osdmenu_mark_current_menuitem(number(), number(), number()); },
    [] { osdmenu_draw_helpline_byname(number(), number(), text()); },
    [] { osdmenu_draw_string_at_position(number(), number(), text(), number()); },
    [] { osdmenu_register_action_byname(text(), some_action(), byte() % 3); },
    [] { osdmenu_action_menuctl_byname(text(), byte() % 6, number()); },
    [] { osdmenu_action_menuctl_byname_safe(text(), byte() % 6, number()); },
    [] { osdmenu_complete_action_byname(text(), byte() % 6, number()); },
    [] { osdmenu_action_ext_change_value_byname(text(), number()); },
    [] { osdmenu_action_setnewtxtvalue2menuitem(item(), text()); },
    [] { osdmenu_action_setnewtxtvalue2menuitem_byname(text(), text()); },
    [] { reuse_font_content_byname(text(), text(), byte() % 2 ? "osdmenu_view" : "osdmenu_item_value"); },
    [] { osdmenu_Mutex_Lock(text()), osdmenu_Mutex_Unlock(text()); },
    [] { osdmenu_helpline_type_set_from_version(text(), out); },
    [] { dbgout_profile.lib_level = dbgout_profile.para_level = byte() % 8; },
    [] { std::fill_n(get_kz73_name(), byte() % 33, 'A'); },
    [] { sc_trackingmode_max = ft_font_col_arr[0] + number(); },
};

static void take_files()
{
    for (int &length : lengths) {
        length = front[0] | front[1] << 8;
        front += 2;
    }
    for (std::size_t i = 0; i < FILES; i++) {
        const std::ptrdiff_t size = std::min<std::ptrdiff_t>(lengths[i] >= UNREADABLE ? 0 : lengths[i], back - front);
        files[i].assign(front, front + size);
        front += size;
    }
}

// What a host does before the first key.
static void start_up()
{
    osdmenu_fontsize_init2(12, 1);
    make_view(200, 100);
    for (auto loader : loaders)
        loader("/res/");
    load_anew();
    osdmenu_current_view_position_reset();
    osdmenu_draw_allitems();
}

// Frees what the process would keep, and makes the library what it is before its first call.
static void forget_everything()
{
    free_all_menuitems();
    for (const list_head &menu : let_go) {
        osdmenu.readlist = menu;
        free_all_menuitems();
    }
    std::fill_n(lengths, FILES, 0);
    std::fill_n(files, FILES, "");
    read2mem_helpline("");
    read2mem_bubbleline("");
    free_read2mem_menuitem_commonchar();
    for (osdmenu_view_bitmap *&symbol : osdmenu_utf16symbol_viewbitmap) {
        std::free(symbol ? symbol->bitmap : nullptr);
        std::free(std::exchange(symbol, nullptr));
    }
    cJSON_Delete(std::exchange(osdmenu_config, nullptr));
    std::free(std::exchange(osdmenu_viewbuffer, nullptr));
    let_go.clear(), guests.clear(), texts.clear();
    osdmenu = {}, orderized_osdmenu = {}, osdhelp = {}, osbbubble = {}, dbgout_profile = {};
    current_view_position = osdmenu_viewarea_topitem_number = {};
    osdmenu_current_viewlevel = last_looped_itemnumber = g_meetingCameraHelpLineStatus = osdmenu_status = 0;
    osdmenu_viewbuffer_size = 0, osdmenu_default_color = 0x04210421;
    last_noview_itemnumber = 0xFFFF, underlineenable = -1, sc_trackingmode_max = 5;
    std::fill_n(language_string, sizeof language_string, '\0');
    std::fill_n(kz73_name, sizeof kz73_name, '\0');
    osdmenu_fontsize_init2(48, 2);
    osdmenu_view_itemarea_y = osdmenu_view_valuearea_y = 20;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, std::size_t size)
{
    if (size < 2 + 2 * FILES)
        return -1;
    front = data + 2;
    back = data + size;
    take_files();
    if (data[0] & STANDARD_GLYPHS)
        files[0] = glyph_bank(4, 8);
    allocations_left = data[1];
    if (data[0] & START_UP)
        start_up();
    for (int left = MOST_CALLS; front < back && left > 0; left--)
        calls[*front++ % std::size(calls)]();
    allocations_left = 0;
    front = back;
    forget_everything();
    return 0;
}
