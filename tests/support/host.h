// A host for the tests: its functions, an action that records its calls, and shorthands for what every host does.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/view_buffer.h"
#include "core/walks.h"
#include "lib_dbgout.h"
#include "resources/glyph_banks.h"
#include "support/resources.h"

// A suite of tests on a fixture, with a test for each row of a table, named after it.
#define CASES(suite, fixture, rows)                                                                                    \
    struct suite : fixture, testing::WithParamInterface<std::remove_cvref_t<decltype(*(rows))>> {                      \
    };                                                                                                                 \
    INSTANTIATE_TEST_SUITE_P(Of, suite, testing::ValuesIn(rows), [](const auto &row) { return row.param.name; })

// What the host's functions answer, and which of them were called.
inline int gallery_preset = 0, tracking_mode = 0;
inline std::vector<std::string> host_calls;

// What came out of the levelled channel, each line with its level in front: "7:[lib f +12  ]text".
inline std::vector<std::string> traces;
int traced(const std::string &part); // how often it came out
std::string traced_text();           // all of it, without the places in the source: "7 lib f: text"
inline void set_trace_level(int lib_level)
{
    dbgout_profile.lib_level = lib_level;
}

// An action that records ("name", operation, value) and answers ACTION_OP_GET from `settings`.
struct Call {
    std::string name;
    int operation, value;
    bool operator==(const Call &) const = default;
};
inline std::vector<Call> calls;
inline std::map<std::string, int> settings;
int recording_action(osdmenu_item *item, int operation, int value);

// What the work writes; and how often a part of a line is in it.
struct Output {
    std::string out, err;
};
inline Output output_of(const std::function<void()> &work)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    work();
    return {testing::internal::GetCapturedStdout(), testing::internal::GetCapturedStderr()};
}
inline int lines_with(const std::string &text, const std::string &part)
{
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        count++;
    return count;
}

// Writes the items, loads and orders them, and gives every item with a value the recording action.
void load_menu(const ResourceDirectory &directory, const std::vector<Item> &items);
inline osdmenu_item *loaded(const std::string &name)
{
    return item_byname(name.c_str());
}
inline std::string rows_of() // the top list in display order, "A B C"
{
    const list_head *page = &orderized_osdmenu.siblings;
    std::string names;
    for (const osdmenu_item *row = first_row(page); row; row = row_below(row, page))
        names += (names.empty() ? "" : " ") + std::string(row->name);
    return names;
}

inline std::string place() // where the menu stands, "level: positions"
{
    std::string found = std::to_string(get_osdmenu_current_viewlevel()) + ":";
    for (int level = 0; level < 4; level++)
        found += " " + std::to_string(get_current_view_position(level));
    return found;
}

// All that an act does: its answer, the calls of recording actions "name:operation=value" and of the host's functions,
// "status N" where it sets that, the items that it changes "[name mark type number choice]", the place where it leads,
// and how many lines it writes, of the levelled channel up to level 6: "0 a:3=1 [a 255 2 1 0] 0: 1 2 3 4 +1".
std::string effect_of(const std::function<int()> &act);

// Writes the lines of either kind, and loads them.
void load_lines(const ResourceDirectory &directory, const std::vector<Line> &lines, bool bubbles);

// Writes the configuration, and takes it over by a load from the directory, under a longer name for it. The load fails
// where there are no items.
void configure(const ResourceDirectory &directory, const std::string &json, const std::string &behind_path = "");

// A view of that size, with glyphs of 4 rows by 8 bytes and four symbols of 2 rows by 4 bytes, filled 0xA0 to 0xA3.
void prepare_view(const ResourceDirectory &directory, int width, int height);

// Fills the background and draws, with the direct lines thrown away.
inline void redraw()
{
    output_of(osdmenu_viewbuffer_fill_background);
    output_of(osdmenu_draw_allitems);
}

// Presses keys by name, with a redraw behind each: "down ok".
void press(const std::string &keys);

// A byte of the view buffer, by the pixel it belongs to (its left byte).
inline int byte_at(int x, int y)
{
    return static_cast<unsigned char>(osdmenu_viewbuffer[(y * osdmenu_viewarea_width + x) * 2]);
}

// The blocks of one fill in a buffer of that many pixels a row, in the order of their first pixels: what the glyph of
// that fill shows, or another fill itself in brackets, and where the block stands. One that is not of 4 by 4 pixels,
// as the glyphs of prepare_view are, has its size behind it: "a@10,5 [r]@14,5(8x2)".
std::string blocks_in(std::string buffer, int width);
inline std::string blocks_in_view()
{
    return blocks_in({osdmenu_viewbuffer, static_cast<std::size_t>(osdmenu_viewbuffer_size)}, osdmenu_viewarea_width);
}

// The loaded glyph of a character, which a test may change; and a glyph that is not there.
inline osdmenu_view_bitmap &glyph_of(char character)
{
    return *osdmenu_commonchar_viewbitmap[glyph_index(character)];
}
inline void lose_glyph(char character)
{
    std::free(std::exchange(glyph_of(character).bitmap, nullptr));
}
