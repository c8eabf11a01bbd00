// Counts the instructions that the library's work takes, beside memset and memcpy of the same bytes, and prints them as
// a table. It runs on a machine that counts exactly: bench/count boots one.
//
// usage: osd_menu_count DIRECTORY/ LANGUAGE
//
// DIRECTORY holds a built menu and lies where the menu's manifest says, since value columns are looked up by that
// place. The kernel's instructions are left out: a read, or a line to /dev/null, is only the way into the system call.
#include <cerrno>
#include <cjson/cJSON.h>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/perf_event.h>
#include <string>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

#include "lib_common.h"
#include "osd_menu_post.h"

using Work = void (*)();

static std::FILE *report;     // the table
static std::FILE *complaints; // why there is none

[[noreturn, gnu::format(printf, 1, 2)]] static void fail(const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::fputs("osd_menu_count: ", complaints);
    std::vfprintf(complaints, format, arguments);
    std::fputc('\n', complaints);
    std::exit(1);
}

static int counter;

static void open_counter()
{
    perf_event_attr what = {};
    what.type = PERF_TYPE_HARDWARE;
    what.size = sizeof what;
    what.config = PERF_COUNT_HW_INSTRUCTIONS;
    what.exclude_kernel = 1;
    what.exclude_hv = 1;
    counter = static_cast<int>(syscall(SYS_perf_event_open, &what, 0, -1, -1, 0));
    if (counter < 0)
        fail("this machine counts no instructions: %s", std::strerror(errno));
}

static long long counted_so_far()
{
    long long count = 0;
    if (read(counter, &count, sizeof count) != sizeof count)
        fail("the counter cannot be read: %s", std::strerror(errno));
    return count;
}

// The pointer is volatile so that the compiler, which must not see what it calls, does not draw it into the span.
static long long span_of(Work work)
{
    Work volatile unseen = work;
    const long long before = counted_so_far();
    unseen();
    return counted_so_far() - before;
}

enum Repeats { EACH_LIKE_THE_LAST, EACH_ITS_OWN };

// The first pass looks symbols up, so the second is taken; the third shows that it holds.
static long long second_pass(const char *name, Work prepare, Work work, Repeats repeats)
{
    long long passes[3];
    for (long long &pass : passes) {
        prepare();
        pass = span_of(work);
    }
    if (repeats == EACH_LIKE_THE_LAST && passes[1] != passes[2])
        fail("%s: %lld instructions at first, then %lld, then %lld", name, passes[0], passes[1], passes[2]);
    return passes[1];
}

static void nothing() {}

static long long instructions_of(const char *name, Work prepare, Work work, Repeats repeats)
{
    static const long long reads = second_pass("two reads of the counter", nothing, nothing, EACH_LIKE_THE_LAST);
    return second_pass(name, prepare, work, repeats) - reads;
}

static std::string language;
static std::string resources; // its directory
static int view_width, view_height;

static const char *text_of(const cJSON *object, const char *key)
{
    const char *text = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(object, key));
    return text ? text : "";
}

static int number_of(const cJSON *object, const char *key)
{
    const cJSON *number = cJSON_GetObjectItemCaseSensitive(object, key);
    return cJSON_IsNumber(number) ? number->valueint : 0;
}

static void take_manifest(const std::string &directory)
{
    std::string path = directory + "menu.json";
    char *content = read_file_to_buf(path.data());
    cJSON *manifest = content ? cJSON_Parse(content) : nullptr;
    if (text_of(manifest, "device_directory") != directory)
        fail("%s: no manifest of a menu that lies here", path.c_str());
    osdmenu_fontsize_init2(number_of(manifest, "font_size"), number_of(manifest, "burst"));
    view_width = number_of(manifest, "width");
    view_height = number_of(manifest, "height");
    cJSON_Delete(manifest);
    std::free(content);
}

static const char *last_asked; // name of the item that was asked for its value last

// A host whose settings are those that the menu came with.
static int keep_value(osdmenu_item *item, int operation, int)
{
    if (operation != ACTION_OP_GET)
        return 0;
    last_asked = item->name;
    return item->item_values.type == VALUE_TXT ? item->item_values.current : item->item_values.u.number.current;
}

// The rows with a value of the pages that are counted: a row is shown only when it has somebody to ask.
static const char *const rows_with_values[] = {"osdmirror",  "exposure_mode", "exposure_compensation", "backlight",
                                               "gain_limit", "anti_flicker",  "dynamic_range"};

static void start_menu(const std::string &directory)
{
    take_manifest(directory);
    if (!osdmenu_viewbuffer_malloc(view_width, view_height))
        fail("no memory for a view of %d x %d", view_width, view_height);
    resources = directory + language + "/";
    if (read2mem_menuitem_commonchar(resources.c_str()) <= 0 || read2mem_menuitem_utf16symbol(resources.c_str()) != 0)
        fail("%s: no glyphs", resources.c_str());
    read2mem_all_menuitems(resources.c_str());
    orderize_all_menuitems();
    read2mem_helpline(resources.c_str());
}

// A draw finds the current item, which the next key then works on.
static void press_ok()
{
    osdmenu_action_ok();
    osdmenu_draw_allitems();
}

static void open_page(int level, const char *last_value)
{
    last_asked = "";
    for (const char *row : rows_with_values)
        osdmenu_register_action_byname(row, keep_value, 0);
    osdmenu_meeting_camera_helpline_enable(0);
    osdmenu_current_view_position_reset();
    osdmenu_draw_allitems();
    for (int i = 0; i < level; i++)
        press_ok();
    if (get_osdmenu_current_viewlevel() != level || std::strcmp(last_asked, last_value) != 0)
        fail("no page with '%s' at level %d: has the menu changed?", last_value, level);
}

static void open_top()
{
    open_page(0, "osdmirror");
}

static void open_exposure()
{
    open_page(2, "dynamic_range");
}

static void open_exposure_with_help()
{
    open_exposure();
    osdmenu_meeting_camera_helpline_enable(1);
}

static void fill()
{
    osdmenu_viewbuffer_fill_background();
}

static void draw()
{
    osdmenu_draw_allitems();
}

static const char short_text[] = "Preset 12 is stored";
static const char long_text[] = "Firmware 2.10.4 is ready to be installed";
enum { TEXT_X = 20, TEXT_Y = 20 };

static void draw_short_text()
{
    osdmenu_draw_string_at_position(TEXT_X, TEXT_Y, short_text, sizeof short_text);
}

static void draw_long_text()
{
    osdmenu_draw_string_at_position(TEXT_X, TEXT_Y, long_text, sizeof long_text);
}

static void draw_number()
{
    osdmenu_item_value_number number = {999999, 0, 654321, 1};
    osdmenu_draw_itemvalue_number(TEXT_X, TEXT_Y, &number);
}

static void press_down()
{
    osdmenu_action_down();
}

static void load()
{
    free_all_menuitems();
    read2mem_all_menuitems(resources.c_str());
    orderize_all_menuitems();
}

// Glyphs of one size, which no font and no change of the menu alters.
static void load_plain_glyphs()
{
    enum { GLYPHS = 93, HEIGHT = 48, WIDTH = 48 };
    const osdmenu_view_bitmap record = {0, HEIGHT, WIDTH, WIDTH, nullptr};
    const char pixels[HEIGHT * WIDTH] = {};
    std::FILE *bank = std::fopen("c.d", "wb");
    for (int i = 0; bank && i < GLYPHS; i++) {
        std::fwrite(&record, sizeof record, 1, bank);
        std::fwrite(pixels, sizeof pixels, 1, bank);
    }
    if (!bank || std::fclose(bank) != 0 || read2mem_menuitem_commonchar("./") <= 0)
        fail("no plain glyphs: %s", std::strerror(errno));
}

enum Moves { PIXELS, NOTHING, FILES }; // what memset and memcpy are held against

// The load comes first, while the heap holds little else. Each finds it as the one before has left it.
static const struct Task {
    const char *name;
    const char *page; // or null, as the text
    const char *text;
    Work prepare;
    Work work;
    Moves moves;
    Repeats repeats;
} tasks[] = {
    {"load", nullptr, nullptr, nothing, load, FILES, EACH_ITS_OWN},
    {"fill", nullptr, nullptr, nothing, fill, PIXELS, EACH_LIKE_THE_LAST},
    {"page", "top list", nullptr, open_top, draw, PIXELS, EACH_LIKE_THE_LAST},
    {"page", "exposure", nullptr, open_exposure, draw, PIXELS, EACH_LIKE_THE_LAST},
    {"page", "exposure, with help", nullptr, open_exposure_with_help, draw, PIXELS, EACH_LIKE_THE_LAST},
    {"text of 19 glyphs", nullptr, short_text, nothing, draw_short_text, PIXELS, EACH_LIKE_THE_LAST},
    {"text of 40 glyphs", nullptr, long_text, nothing, draw_long_text, PIXELS, EACH_LIKE_THE_LAST},
    {"number", nullptr, "654321", nothing, draw_number, PIXELS, EACH_LIKE_THE_LAST},
    {"key down", "top list", nullptr, open_top, press_down, NOTHING, EACH_LIKE_THE_LAST},
    {"text of 40 glyphs of 24 x 48", nullptr, long_text, load_plain_glyphs, draw_long_text, PIXELS, EACH_LIKE_THE_LAST},
    {"number in glyphs of 24 x 48", nullptr, "654321", load_plain_glyphs, draw_number, PIXELS, EACH_LIKE_THE_LAST},
};

// Bytes that lie side by side.
struct Run {
    std::size_t at;
    std::size_t bytes;
};

static std::vector<char> view_painted_over(const Task &task, char before)
{
    const std::size_t size = static_cast<std::size_t>(view_width) * static_cast<std::size_t>(view_height) * 2;
    task.prepare();
    std::memset(osdmenu_viewbuffer, before, size);
    task.work();
    return {osdmenu_viewbuffer, osdmenu_viewbuffer + size};
}

// What a task paints, as it shows from outside: the bytes that come out the same whatever was there before.
static std::vector<Run> painted_by(const Task &task)
{
    const std::vector<char> over_zeros = view_painted_over(task, '\0'), over_ones = view_painted_over(task, '\xff');
    std::vector<Run> painted;
    for (std::size_t at = 0; at < over_zeros.size(); at++) {
        if (over_zeros[at] != over_ones[at])
            continue;
        if (!painted.empty() && painted.back().at + painted.back().bytes == at)
            painted.back().bytes++;
        else
            painted.push_back({at, 1});
    }
    return painted;
}

static std::size_t size_of_file(const char *name)
{
    struct stat state = {};
    if (stat((resources + name).c_str(), &state) != 0)
        fail("%s%s: %s", resources.c_str(), name, std::strerror(errno));
    return static_cast<std::size_t>(state.st_size);
}

static std::vector<Run> moved_by(const Task &task)
{
    if (task.moves == PIXELS)
        return painted_by(task);
    return task.moves == FILES ? std::vector<Run>{{0, size_of_file("m.d") + size_of_file("b.d")}} : std::vector<Run>{};
}

static std::vector<Run> runs;
static std::vector<char> source, target; // as large as the runs reach

static void set_runs()
{
    for (const Run &run : runs)
        std::memset(target.data() + run.at, 0x21, run.bytes);
}

static void copy_runs()
{
    for (const Run &run : runs)
        std::memcpy(target.data() + run.at, source.data() + run.at, run.bytes);
}

// With a comma at each thousand.
static std::string readable(long long number)
{
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3; at -= 3)
        digits.insert(at - 3, 1, ',');
    return digits;
}

// The floors are counted behind the task, so that what they need does not stand in its heap.
static std::string floors_of(const Task &task)
{
    runs = moved_by(task);
    if (runs.empty())
        return "| | | | |";
    std::size_t bytes = 0;
    for (const Run &run : runs)
        bytes += run.bytes;
    source.assign(runs.back().at + runs.back().bytes, 1);
    target = source;
    const long long set = instructions_of("memset", nothing, set_runs, EACH_LIKE_THE_LAST);
    const long long copied = instructions_of("memcpy", nothing, copy_runs, EACH_LIKE_THE_LAST);
    return "| " + readable(set) + " | " + readable(copied) + " | " + readable(static_cast<long long>(bytes)) + " | " +
           readable(static_cast<long long>(runs.size())) + " |";
}

static void print_table()
{
    std::fprintf(report, "| Work | Language | View | Page | Text | Instructions | memset | memcpy | Bytes | Runs |\n"
                         "| --- | --- | --- | --- | --- | ---: | ---: | ---: | ---: | ---: |\n");
    for (const Task &task : tasks) {
        const std::string ours = readable(instructions_of(task.name, task.prepare, task.work, task.repeats));
        std::fprintf(report, "| %s | %s | %d x %d | %s | %s | %s %s\n", task.name, language.c_str(), view_width,
                     view_height, task.page ? task.page : "", task.text ? task.text : "", ours.c_str(),
                     floors_of(task).c_str());
    }
}

// What the library prints goes to /dev/null.
static void set_streams()
{
    report = fdopen(dup(STDOUT_FILENO), "w");
    complaints = fdopen(dup(STDERR_FILENO), "w");
    const int null = open("/dev/null", O_WRONLY);
    dup2(null, STDOUT_FILENO);
    dup2(null, STDERR_FILENO);
}

int main(int argc, char **argv)
{
    set_streams();
    if (argc != 3)
        fail("usage: osd_menu_count DIRECTORY/ LANGUAGE");
    language = argv[2];
    open_counter();
    start_menu(argv[1]);
    print_table();
    return std::fclose(report) == 0 ? 0 : 1;
}
