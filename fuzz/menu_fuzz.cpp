// Feeds the whole library from one input: a level of trace, which allocation fails, how the resource files differ from
// good ones, and calls of everything exported, a byte each, with their arguments from the back of the input. An action
// answers from there too, and may load another menu. The harness keeps to what the headers ask of a host.
#include <algorithm>
#include <fcntl.h>
#include <functional>
#include <map>
#include <sys/mman.h>
#include <unistd.h>

#include "core/config.h"
#include "core/view_buffer.h"
#include "core/walks.h"
#include "lib_common.h"
#include "lib_dbgout.h"
#include "support/resources.h"

enum { MOST_PICTURE = 1 << 11, MOST_VIEW = 1 << 20 };
using Calls = std::vector<std::function<void()>>;
static std::map<std::string, std::string> files;
static const unsigned char *front, *back;
static std::size_t most_memory = MOST_PICTURE; // at once; the rows of a glyph may overlap, which costs time
static unsigned allocations_left;              // counts down to the one that fails; 0 lets all through
static std::vector<std::vector<char>> texts;   // arguments of calls

static const auto next = [] { return front < back ? *front++ : 0u; };
static const auto byte = [] { return front < back ? int{*--back} : 0; };

static std::map<std::string, std::string> good_files()
{
    static const char *const names[] = {"camera", "information", "select", "title", "kz73versionshow", "RestarKz73"};
    const Picture picture = {4, 16, 0x31};
    std::map<std::string, std::string> good = {{"c.d", glyph_bank(4, 8)}, {"s.d", block_of({2, 4, 1}, 6)}};
    for (int i = 0; i < 6; i++) {
        const std::vector<Choice> choices(i == VALUE_TXT ? 2 : 0, {"on", picture});
        const std::vector<int> levels = {i < 3 ? i : 1, i < 3 ? LEVEL_ABSENT : i};
        const Item item = {names[i], levels, picture, static_cast<unsigned>(i % 4), choices, {9, 1, 5, 2}};
        good["m.d"] += meta_of(item);
        good["b.d"] += data_of(item);
        good["hm.d"] += meta_of(Line{names[i], picture}, false);
        good["bm.d"] += meta_of(Line{names[i], picture}, true);
        good["bb.d"] = good["hb.d"] += data_of(Line{names[i], picture});
    }
    good["osd_menu.json"] = R"({"helpline_type": {"title": 6, "camera": 13}, "value_offset_x": {"/res/": {".": 9}},)"
                            R"("menu_last_item": "select", "Main_Menu_Separator": "underlineenable"})";
    return good;
}

// A small number mostly, any number sometimes.
static int number()
{
    const int first = byte();
    if (first < 232)
        return first < 96 ? first % 8 : first - 112;
    return wrapping_sub(wrapping_mul(byte() | byte() << 8, first < 250 ? 1 : 1 << 16), first % 2);
}

// One that is loaded, or without a menu an empty one.
static osdmenu_item &item()
{
    static osdmenu_item none;
    osdmenu_item *found = first_loaded();
    for (int i = byte() % 16; i > 0 && found; i--)
        found = loaded_after(found);
    return found ? *found : none = {};
}

// The name of an item, a text with a meaning, or one that bytes of the input end. Each is a block of its own.
static char *text()
{
    static const char *const known[] = {"/res/", "", "\n", "RestarKz73", "osdmenu_view", "osdmenu_item_value"};
    const int kind = byte();
    const char *name = kind < 100 ? item().name : nullptr;
    std::string bytes = name ? name : known[kind % 6];
    for (int i = kind < 200 ? 0 : kind % 48; i > 0; i--)
        bytes += static_cast<char>(byte());
    return texts.emplace_back(bytes.c_str(), bytes.c_str() + bytes.size() + 1).data();
}

static int action(osdmenu_item *owner, int operation, int value);

template <class T> static T argument()
{
    if (std::is_pointer_v<T> && byte() > 240)
        return T();
    if constexpr (std::is_same_v<T, int>)
        return number();
    else if constexpr (std::is_convertible_v<char *, T>)
        return text();
    else if constexpr (std::is_same_v<T, osdmenu_action_callback>)
        return action;
    else if constexpr (std::is_same_v<T, osdmenu_item *>)
        return &item();
    else if constexpr (std::is_same_v<T, osdmenu_view *>)
        return &item().view;
    else if constexpr (std::is_same_v<T, osdmenu_item_value *>)
        return &item().item_values;
    else { // a number or a record of four, of the host's own
        static std::remove_pointer_t<T> own[2];
        const int numbers[4] = {number(), number(), number(), number()};
        return static_cast<T>(std::memcpy(&own[byte() % 2], numbers, sizeof *own));
    }
}

template <class R, class... A> static Calls::value_type with_arguments(R (*function)(A...))
{
    return [function] { std::apply(function, std::tuple<A...>{argument<A>()...}); };
}

static Calls::value_type with_arguments(char *(*composer)(char **, int, osd_bubble_para *))
{
    return [composer] {
        std::vector<char *> tokens(static_cast<std::size_t>(byte() % 8));
        std::generate(tokens.begin(), tokens.end(), argument<char *>);
        composer(tokens.data(), static_cast<int>(tokens.size()), argument<osd_bubble_para *>());
    };
}

template <class... Function> static Calls calls_of(Function... functions)
{
    return {with_arguments(+functions)...};
}

// Resource files are in memory. Everything else opens as ever.
extern "C" int __real_open(const char *path, int flags, ...);
extern "C" int __wrap_open(const char *path, int flags, ...)
{
    const auto file = files.find(std::filesystem::path(path).filename());
    if (file == files.end())
        return __real_open(path, flags, 0600);
    const int memory = memfd_create("", 0);
    return pwrite(memory, file->second.data(), file->second.size(), 0) < 0 ? -1 : memory;
}

char *read_file_to_buf(char *)
{
    return files.contains("osd_menu.json") ? strdup(files["osd_menu.json"].c_str()) : nullptr;
}

// Memory is short: too much at once fails, and one allocation of the input's choice.
extern "C" void *__real_calloc(std::size_t count, std::size_t size);
extern "C" void *__wrap_calloc(std::size_t count, std::size_t size)
{
    const bool fails = size > most_memory || (allocations_left > 0 && --allocations_left == 0);
    return fails ? nullptr : __real_calloc(count, size);
}

// In place of the functions that ask more of a host than arguments of the right types.
namespace host
{
static const auto read2mem_all_menuitems = [](const char *dir) {
    free_all_menuitems();
    ::read2mem_all_menuitems(dir);
    orderize_all_menuitems();
    for (osdmenu_item *each = first_loaded(); each; each = loaded_after(each))
        each->action = argument<osdmenu_action_callback>();
};

// The library lets go of an earlier view without freeing it.
static const auto osdmenu_viewbuffer_malloc = [](int width, int height) {
    std::free(osdmenu_viewbuffer);
    most_memory = MOST_VIEW;
    ::osdmenu_viewbuffer_malloc(width, height);
    most_memory = MOST_PICTURE;
};

// This and two more paint no more of a text than there is.
static const auto get_osdmenu_common_bitmap = [](const char *msg, int most, int *x, int *y, int place) {
    most = std::min(most, msg ? static_cast<int>(std::strlen(msg)) : 0);
    char *to = view_address(place);
    ::get_osdmenu_common_bitmap(msg, most, x, &to);
    ::get_osdmenu_common_bitmap_with_margin(msg, most, x, y, &to, number(), number(), byte(), byte(), byte(), byte());
    const int width = byte() % 64, height = byte() % 64, pixelsize = byte() % 5;
    std::vector<char> own(static_cast<std::size_t>(width * height * pixelsize));
    ::get_osdmenu_common_bitmap_ex(msg, most, x, y, own.data(), width, height, pixelsize);
};

// It knows the size of the view buffer alone: a target right behind that is taken for the caller's own.
static const auto get_string_bitmap = [](const char *msg, int width, int pixelsize, int place) {
    if (osdmenu_viewbuffer_size > 0)
        ::get_string_bitmap(msg, width, pixelsize, view_address((place & INT32_MAX) % osdmenu_viewbuffer_size));
};
static const auto osdmenu_Mutex_Lock = [](const char *by) { ::osdmenu_Mutex_Lock(by), ::osdmenu_Mutex_Unlock(by); };
static const auto get_kz73_name = [] { std::fill_n(::get_kz73_name(), byte() % 33, 'A'); };
static const Calls calls = calls_of(EXPORTED_FUNCTIONS);
} // namespace host

// Anywhere an action may call what takes no lock, and load only in SET and ENTER that no other operation waits for.
static int action(osdmenu_item *, int operation, int)
{
    static const Calls calls =
        calls_of(osdmenu_action_setnewtxtvalue2menuitem_byname, osdmenu_complete_action_byname, osdmenu_process_key,
                 osdmenu_enableitem_byname, osdmenu_disableitem_byname, osdmenu_submenu_entry, osdmenu_action_menuback,
                 set_current_view_position, osdmenu_call_information_immediate, free_all_menuitems,
                 host::read2mem_all_menuitems);
    static int depth = 0;
    const bool may_load = depth == 0 && (operation == ACTION_OP_SET || operation == ACTION_OP_ENTER);
    if (depth > 2 || byte() % 2)
        return number();
    depth++;
    calls[static_cast<std::size_t>(byte()) % (calls.size() - (may_load ? 0 : 2))]();
    depth--;
    return number();
}

// An edit puts a few bytes in place of others. A file without a byte is absent.
static void take_files()
{
    static const std::map<std::string, std::string> good = good_files();
    files = good;
    for (auto &[name, content] : files)
        for (unsigned edits = next() % 8; edits > 0; edits--) {
            const unsigned low = next(), at = low | next() << 8, cut = next();
            std::string put(next(), '\0');
            std::generate(put.begin(), put.end(), next);
            content.replace(at % (content.size() + 1), cut == 255 ? std::string::npos : cut, put);
        }
    std::erase_if(files, [](const auto &file) { return file.second.empty(); });
}

// Frees what the process would keep, and makes the library what it is before its first call.
static void forget_everything()
{
    allocations_left = 0;
    free_all_menuitems();
    files = {{"hm.d", ""}, {"hb.d", ""}, {"bm.d", ""}, {"bb.d", ""}, {"s.d", std::string(32 * 24, '\0')}};
    read2mem_helpline("");
    read2mem_bubbleline("");
    read2mem_menuitem_utf16symbol(""); // all 32 of no size: the same as none
    free_read2mem_menuitem_commonchar();
    cJSON_Delete(osdmenu_config);
    std::free(osdmenu_viewbuffer);
    osdmenu_config = nullptr, osdmenu_viewbuffer = nullptr, osdmenu_viewbuffer_size = 0;
    osdmenu = {}, orderized_osdmenu = {}, osdhelp = {}, osbbubble = {};
    current_view_position = osdmenu_viewarea_topitem_number = {};
    osdmenu_current_viewlevel = last_looped_itemnumber = g_meetingCameraHelpLineStatus = 0;
    last_noview_itemnumber = 0xFFFF, osdmenu_default_color = 0x04210421, underlineenable = -1, sc_trackingmode_max = 5;
    set_kz73_name("");
    osdmenu_fontsize_init2(48, 2);
    texts.clear();
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    front = data, back = data + size;
    dbgout_profile.lib_level = dbgout_profile.para_level = static_cast<int>(next() % 16);
    allocations_left = next() % 255;
    take_files();
    if (dbgout_profile.lib_level % 2 == 0) { // what a host does before the first key
        osdmenu_fontsize_init2(12, 1);
        host::osdmenu_viewbuffer_malloc(200, 100);
        read2mem_menuitem_commonchar("/res/");
        read2mem_menuitem_utf16symbol("/res/");
        host::read2mem_all_menuitems("/res/");
        read2mem_helpline("/res/");
        read2mem_bubbleline("/res/");
        osdmenu_current_view_position_reset();
    }
    while (front < back)
        host::calls[next() % host::calls.size()]();
    forget_everything();
    return 0;
}
