// Each benchmark runs its floor and the library in turns, and reports the ratio of the two: of the minima, and the
// median of the pairs. A floor moves the same bytes with plain fills, copies and reads, and does nothing else.
//
// Where nothing but pictures is painted, pixman paints the same ones in a turn of its own, and has its ratios to the
// floor as well.
//
// The library's direct lines go to /dev/null and stay in what is measured; how long as many bare lines take stands in a
// benchmark of its own.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <malloc.h>
#include <memory>
#include <pixman.h>
#include <sys/resource.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include "contest.h"
#include "core/layout.h"
#include "core/view_buffer.h"
#include "core/walks.h"
#include "resources/glyph_banks.h"
#include "resources/resource_fields.h"
#include "support/resources.h"

struct Unref {
    void operator()(pixman_image_t *image) const
    {
        pixman_image_unref(image);
    }
};
using Image = std::unique_ptr<pixman_image_t, Unref>;

static Image image_of(char *pixels, int width, int height, int pitch)
{
    return Image(
        pixman_image_create_bits_no_clear(PIXMAN_r5g6b5, width, height, reinterpret_cast<uint32_t *>(pixels), pitch));
}

// Pictures to paint: as a floor does it, one memcpy for each row with nothing to work out; and as pixman is used, one
// composite for each picture, from and to images that were made before, all in one format.
struct Copies {
    struct Row {
        char *to;
        const char *from;
        std::size_t bytes;
    };
    struct Picture {
        Image image;
        int x, y, width, height;
    };
    std::vector<Row> rows;
    std::vector<Picture> pictures;
    Image view = image_of(osdmenu_viewbuffer, osdmenu_viewarea_width, osdmenu_viewarea_height,
                          static_cast<int>(view_area().row_pitch));

    void add(int x, int y, const osdmenu_view_bitmap &picture, unsigned pitch)
    {
        const int width = pixels_of(picture.width), height = static_cast<int>(picture.height);
        for (int row = 0; row < height; row++)
            rows.push_back({osdmenu_viewbuffer + view_offset(x, y + row),
                            picture.bitmap + static_cast<unsigned>(row) * pitch, picture.width});
        pictures.push_back({image_of(picture.bitmap, width, height, static_cast<int>(pitch)), x, y, width, height});
    }

    int add_text(int x, int y, const std::string &text)
    {
        for (char character : text) {
            const osdmenu_view_bitmap &glyph = *glyph_at(glyph_index(character));
            add(x, y, glyph, glyph.stride);
            x += pixels_of(glyph.width);
        }
        return x;
    }

    void run() const
    {
        for (const Row &row : rows)
            std::memcpy(row.to, row.from, row.bytes);
    }

    void run_pixman() const
    {
        for (const Picture &picture : pictures)
            pixman_image_composite32(PIXMAN_OP_SRC, picture.image.get(), nullptr, view.get(), 0, 0, 0, 0, picture.x,
                                     picture.y, picture.width, picture.height);
    }
};

static std::string picture_of(const Work &paint)
{
    clear_whole_view();
    paint();
    return {osdmenu_viewbuffer, static_cast<std::size_t>(osdmenu_viewbuffer_size)};
}

static void compare_paint(benchmark::State &state, const Copies &copies, const Work &ours)
{
    const Contest contest = {[&] { copies.run(); }, ours, [&] { copies.run_pixman(); }};
    const std::string picture = picture_of(ours);
    if (picture != picture_of(contest.floor) || picture != picture_of(contest.pixman))
        state.SkipWithError("The three paint different pictures");
    else
        compare(state, contest);
}

enum { VIEW_WIDTH = 1760, VIEW_HEIGHT = 1160, ROW_HEIGHT = 48, GLYPH_WIDTH = 48, PAGE_ROWS = 14 };

static int answer_value(osdmenu_item *item, int operation, int)
{
    if (operation != ACTION_OP_GET)
        return 0;
    return item->item_values.type == VALUE_TXT ? 1 : 654321;
}

static const ResourceDirectory &resources()
{
    static const ResourceDirectory directory;
    return directory;
}

// A title, then labels, choices and, if wanted, numbers of six digits in turn.
static void load_page(bool numbers)
{
    std::vector<Item> items;
    for (int i = 0; i < PAGE_ROWS; i++) {
        Item item = {"row" + std::to_string(i), {i}, {ROW_HEIGHT, 1200, static_cast<char>(i)}};
        if (i % 3 == 1) {
            item.type = VALUE_TXT;
            item.choices = {{"off", {ROW_HEIGHT, 400, 1}}, {"on", {ROW_HEIGHT, 400, 2}}};
        } else if (i % 3 == 2 && numbers) {
            item.type = VALUE_NUMBER;
            item.number = {999999, 0, 0, 1};
        }
        items.push_back(item);
    }
    resources().write_items(items);
    free_all_menuitems();
    read2mem_all_menuitems(resources().path().c_str());
    orderize_all_menuitems();
    for (const Item &item : items)
        osdmenu_register_action_byname(item.name.c_str(), answer_value, 0);
    osdmenu_current_view_position_reset();
}

static Copies copies_of_page()
{
    Copies copies;
    int y = osdmenu_view_itemarea_y;
    for (osdmenu_item *row = first_row(&orderized_osdmenu.siblings); row;
         row = row_below(row, &orderized_osdmenu.siblings)) {
        const int value_x = osdmenu_view_valuearea_x;
        if (y == osdmenu_view_itemarea_y + ROW_HEIGHT + osdmenu_view_rowspace)
            copies.add(osdmenu_view_rulerarea_x, y, *symbol_at(SYMBOL_POINTER), symbol_at(SYMBOL_POINTER)->stride);
        copies.add(osdmenu_view_itemarea_x, y, row->view.viewbitmap, row->view.viewbitmap.width);
        if (row->item_values.type == VALUE_TXT) {
            const osdmenu_view_bitmap &picture =
                choice_after(first_choice(&row->item_values), &row->item_values)->u.txt.viewbitmap;
            copies.add(value_x, y, picture, picture.width);
        } else if (row->item_values.type == VALUE_NUMBER) {
            copies.add_text(value_x, y, "654321");
        }
        y += ROW_HEIGHT + osdmenu_view_rowspace;
    }
    return copies;
}

static void fill_background(benchmark::State &state)
{
    const auto plain_fill = [] {
        auto *words = reinterpret_cast<unsigned *>(osdmenu_viewbuffer);
        std::fill_n(words, osdmenu_viewbuffer_size / 4, static_cast<unsigned>(osdmenu_default_color));
    };
    compare(state, {plain_fill, [] { osdmenu_viewbuffer_fill_background(); }});
}

static void page(benchmark::State &state, bool numbers)
{
    load_page(numbers);
    compare_paint(state, copies_of_page(), [] { osdmenu_draw_allitems(); });
}

static void write_lines(int count)
{
    for (int i = 0; i < count; i++) {
        std::printf("DBG_INFO:%s %s[%04d] glyph %d %d %d %d\n", "file.cpp", "function", i, 1, 2, 3, 4);
        std::fflush(stdout);
    }
}

// As many lines as the numbers of a page write: one for each number and one for each of its digits.
static void lines_of_page(benchmark::State &state)
{
    for (auto _ : state)
        state.SetIterationTime(seconds_of([] { write_lines(4 * 7); }));
}

static void text_line(benchmark::State &state)
{
    static const char text[] = "Firmware 2.10.4 is ready to be installed";
    Copies copies;
    copies.add_text(20, 20, text);
    compare_paint(state, copies, [] { osdmenu_draw_string_at_position(20, 20, text, static_cast<int>(sizeof text)); });
}

// The bubble clears the whole view first, and so does its floor.
static void bubble(benchmark::State &state)
{
    Copies copies;
    copies.add_text(20, 20, "Firmware 2.10.4 is r");
    copies.add_text(20, 20 + fontSize(), "eady to be installed");
    const auto floor = [&] {
        std::memset(osdmenu_viewbuffer, 0, static_cast<std::size_t>(osdmenu_viewbuffer_size));
        copies.run();
    };
    compare(state, {floor, [] { get_osdmenu_bubble("Firmware 2.10.4 is r\neady to be installed", 20, 20); }});
}

// Without a configuration the current item shows two groups of symbols and text, and a line. Painting its three texts
// writes six lines, which the floor may write too: what is left is then the pixels.
static void help_block(benchmark::State &state, int lines_in_floor)
{
    load_page(false);
    osdmenu_draw_allitems();
    const int f = fontSize();
    const int t = f * 3 / 4;
    const int bottom = osdmenu_viewarea_height;
    Copies copies;
    const auto symbol = [&](int x, int y, int index) { copies.add(x, y, *symbol_at(index), symbol_at(index)->stride); };
    const auto line = [&](int x, int y) {
        const auto &picture = reinterpret_cast<osdhelpline *>(osdhelp.siblings.next)->viewbitmap;
        copies.add(x, y, picture, picture.width);
    };
    symbol(f, bottom - 3 * f, SYMBOL_UP);
    symbol(f + t, bottom - 3 * f, SYMBOL_DOWN);
    line(2 * f + t, bottom - 3 * f);
    symbol(f, bottom - 2 * f, SYMBOL_LEFT);
    symbol(f + t, bottom - 2 * f, SYMBOL_RIGHT);
    line(2 * f + t, bottom - 2 * f);
    line(t, bottom - f);
    const auto floor = [&] {
        copies.run();
        write_lines(lines_in_floor);
    };
    compare(state, {floor, [] { osdmenu_draw_meeting_camera_helpline(); }});
}

enum { LOAD_ITEMS = 300, LOAD_HEIGHT = 48, LOAD_WIDTH = 584, LOAD_ROUNDS = 200 }; // 8.4 MB of pictures

// The same files into the same blocks, allocated in the loader's order and as it allocates them: all records with one
// read, the content of each item with one.
static std::vector<void *> read_into_blocks(const std::vector<Item> &items)
{
    std::vector<void *> blocks;
    std::vector<iovec> records, contents;
    const auto add = [&](std::vector<iovec> &list, void *block, std::size_t bytes) {
        blocks.push_back(block);
        list.push_back({block, bytes});
    };
    const int meta = open((resources().path() + "m.d").c_str(), O_RDONLY);
    const int data = open((resources().path() + "b.d").c_str(), O_RDONLY);
    ssize_t got = 0;
    for (const Item &item : items) {
        add(records, std::calloc(1, sizeof(osdmenu_item)), sizeof(osdmenu_item));
        contents.clear();
        add(contents, std::calloc(1, TEXT_BLOCK), item.name.size() + 1);
        add(contents, std::calloc(1, TEXT_BLOCK), item.description.size() + 1);
        add(contents, allocate_picture(LOAD_HEIGHT * LOAD_WIDTH), LOAD_HEIGHT * LOAD_WIDTH);
        got = std::min(got, readv(data, contents.data(), static_cast<int>(contents.size())));
    }
    got = std::min(got, readv(meta, records.data(), static_cast<int>(records.size())));
    if (got < 0)
        std::abort();
    close(meta);
    close(data);
    return blocks;
}

static std::vector<Item> many_items()
{
    std::vector<Item> items;
    for (int i = 0; i < LOAD_ITEMS; i++)
        items.push_back({"item" + std::to_string(i), {i % 200}, {LOAD_HEIGHT, LOAD_WIDTH, static_cast<char>(i)}});
    return items;
}

// How far a load raises the peak memory of a process of its own, in KiB.
static double peak_of_load()
{
    int pipe_ends[2];
    if (pipe(pipe_ends) != 0)
        return 0;
    if (fork() == 0) {
        rusage before = {}, after = {};
        getrusage(RUSAGE_SELF, &before);
        read2mem_all_menuitems(resources().path().c_str());
        getrusage(RUSAGE_SELF, &after);
        const long grown = after.ru_maxrss - before.ru_maxrss;
        _exit(write(pipe_ends[1], &grown, sizeof grown) == sizeof grown ? 0 : 1);
    }
    long grown = 0;
    if (read(pipe_ends[0], &grown, sizeof grown) != sizeof grown)
        grown = 0;
    wait(nullptr);
    close(pipe_ends[0]);
    close(pipe_ends[1]);
    return static_cast<double>(grown);
}

static void load(benchmark::State &state)
{
    const std::vector<Item> items = many_items();
    resources().write_items(items);
    std::vector<void *> blocks;
    const auto reset = [&] {
        free_all_menuitems();
        for (void *block : blocks)
            std::free(block);
        blocks.clear();
        malloc_trim(0); // fresh pages for whoever comes next
    };
    reset();
    state.counters["peak_KiB"] = peak_of_load();
    state.counters["blocks_KiB"] =
        LOAD_ITEMS * (sizeof(osdmenu_item) + 2 * TEXT_BLOCK + LOAD_HEIGHT * LOAD_WIDTH + 4) / 1024.0;
    compare(state, {.floor = [&] { blocks = read_into_blocks(items); },
                    .ours = [] { read2mem_all_menuitems(resources().path().c_str()); },
                    .reset = reset});
    reset();
}

static void set_up()
{
    const Picture help = {ROW_HEIGHT, 600, 7};
    std::string symbols;
    for (int i = 0; i < 4; i++)
        symbols += block_of({ROW_HEIGHT, GLYPH_WIDTH, static_cast<char>(i)}, GLYPH_WIDTH);
    resources().write("c.d", glyph_bank(ROW_HEIGHT, GLYPH_WIDTH));
    resources().write("s.d", symbols);
    resources().write_lines({{"select", help}, {"change", help}, {"menu", help}}, false);
    osdmenu_viewbuffer_malloc(VIEW_WIDTH, VIEW_HEIGHT);
    read2mem_menuitem_commonchar(resources().path().c_str());
    read2mem_menuitem_utf16symbol(resources().path().c_str());
    read2mem_helpline(resources().path().c_str());
}

// The report keeps standard output; everything else that is printed goes to /dev/null.
int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    std::ofstream report("/proc/self/fd/" + std::to_string(dup(STDOUT_FILENO)));
    const int null = open("/dev/null", O_WRONLY);
    dup2(null, STDOUT_FILENO);
    dup2(null, STDERR_FILENO);
    set_up();
    const auto add = [](const char *name, void (*run)(benchmark::State &)) {
        return benchmark::RegisterBenchmark(name, run)->UseManualTime()->Unit(benchmark::kMicrosecond);
    };
    add("fill_background", fill_background);
    add("page_without_numbers", [](benchmark::State &state) { page(state, false); });
    add("page_with_numbers", [](benchmark::State &state) { page(state, true); });
    add("lines_of_numbers", lines_of_page);
    add("text_line_40_glyphs", text_line);
    add("bubble_40_glyphs", bubble);
    add("help_block", [](benchmark::State &state) { help_block(state, 0); });
    add("help_block_beside_lines", [](benchmark::State &state) { help_block(state, 6); });
    add("load_300_items", load)->Iterations(LOAD_ROUNDS);
    benchmark::ConsoleReporter reporter(benchmark::ConsoleReporter::OO_Tabular);
    reporter.SetOutputStream(&report);
    reporter.SetErrorStream(&report);
    benchmark::RunSpecifiedBenchmarks(&reporter);
}
