// The painters of one row: values of every type, text from glyphs, and the row copy under them all, which touches no
// byte outside the view buffer and the block. Glyph i of the bank is filled with i + 1.
#include <climits>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>

#include "core/view_buffer.h"
#include "resources/glyph_banks.h"
#include "support/host.h"

struct RowPainters : testing::Test {
    ResourceDirectory files;
    void SetUp() override
    {
        prepare_view(files, 100, 20);
    }
};

// What the glyphs spell from (8, 4) on. The view is clear afterwards.
static std::string text_taken()
{
    std::string text;
    for (int x = 8; byte_at(x, 4) != 0; x += 4)
        text += osdmenu_common_char[byte_at(x, 4) - 1];
    clear_whole_view();
    return text;
}

TEST_F(RowPainters, ANumberIsClampedInItsRecordAndPainted)
{
    using Case = std::tuple<int, int, int, std::string, int>;
    for (auto [current, low, high, text, stored] :
         {Case(5, 10, 20, "10", 10), Case(25, 10, 20, "20", 20), Case(3, 10, 5, "5", 5), Case(7, 10, 5, "5", 5),
          Case(12, 10, 5, "5", 5), Case(-5, -9, 9, "-5", -5), Case(INT_MIN, INT_MIN, 0, "-2147483648", INT_MIN)})
        for (unsigned type : {VALUE_NUMBER, VALUE_PERCENTAGE}) {
            osdmenu_item_value value = {{}, type, 77, {.number = {high, low, current, 7}}};
            EXPECT_EQ((osdmenu_draw_itemvalue(8, 4, &value), value.u.number.current), stored);
            EXPECT_EQ(text_taken(), type == VALUE_NUMBER ? text : text + "%");
        }
}

TEST_F(RowPainters, AChoiceOutsideItsListWrapsAndAFreeTextDoesNot)
{
    load_menu(files, {{"abc", {1}, {}, VALUE_TXT, {{"1", {1, 2, 1}}, {"2\n3", {1, 2, 2}}, {"", {1, 2, 3}}}},
                      {"none", {2}, {}, VALUE_TXT}});
    using Case = std::tuple<const char *, int, std::string, int, std::string>;
    for (auto [item, current, text, stored, free_text] :
         {Case("abc", 0, "0", 0, "1"), Case("abc", 1, "1", 1, "2"), Case("abc", 2, "2", 2, ""),
          Case("abc", 3, "0", 0, ""), Case("abc", INT_MAX, "0", 0, ""), Case("abc", -1, "2", 2, ""),
          Case("abc", INT_MIN, "2", 2, ""), Case("none", 4, "", 0, ""), Case("none", -1, "", 0, "")}) {
        osdmenu_item_value *value = &loaded(item)->item_values;
        value->current = current;
        EXPECT_EQ(osdmenu_draw_itemvalue_rawtxt(8, 4, value), free_text == "2" ? -1 : 0); // a newline is no glyph
        EXPECT_EQ(text_taken(), free_text);
        EXPECT_EQ((osdmenu_draw_itemvalue(8, 4, value), value->current), stored) << item << current;
        EXPECT_EQ(text_taken(), text) << item << current;
    }
}

TEST_F(RowPainters, GlyphsKeepTheirGeometryAndAStringTheFarEdges)
{
    std::string wide = block_of({2, 4, 0}, 6), narrow = block_of({2, 6, 0}, 4);
    files.write("c.d", wide.replace(24, 12, "aaaa..bbbb..") + narrow.replace(24, 8, "ccccdddd") +
                           block_of({4, 20, 1}, 20) + block_of({4, 22, 2}, 22));
    free_read2mem_menuitem_commonchar();
    read2mem_menuitem_commonchar(files.path().c_str());
    osdmenu_item_value_number number = {9999, 0, 1040, 1};
    EXPECT_EQ(osdmenu_draw_itemvalue_number(8, 4, &number) + osdmenu_draw_string_at_position(8, 10, "10\n40", 9), 0);
    for (const char *row : {osdmenu_viewbuffer + 816, osdmenu_viewbuffer + 2016}) {
        EXPECT_EQ(std::string(row, 16), std::string("ccccddaaaaaaaa\0\0", 16));         // nothing for what is missing
        EXPECT_EQ(std::string(row + 200, 16), std::string("dddd\0\0bbbbbbbb\0\0", 16)); // the block ends in this row
    }
    using Case = std::tuple<int, int, const char *, int, int, int, int>;
    for (auto [x, y, text, length, result, last_x, fill] :
         {Case(90, 16, "2", 5, 0, 99, 1), Case(90, 0, "3", 5, 0, 90, 0), Case(80, 0, "232", 5, 0, 90, 0),
          Case(0, 17, "2", 5, 0, 0, 0), Case(0, 0, "000", 2, 0, 2, 'a'), Case(0, 0, "000", 2, 0, 4, 0),
          Case(0, 0, "", 5, 0, 0, 0), Case(0, 0, "2", 0, -1, 0, 0), Case(0, 0, nullptr, 5, -1, 0, 0)}) {
        clear_whole_view();
        EXPECT_EQ(osdmenu_draw_string_at_position(x, y, text, length), result);
        EXPECT_EQ(byte_at(last_x, y), fill) << x << " " << y << " " << last_x;
    }
}

TEST_F(RowPainters, ABlockTouchesNoMemoryButItsOwnAndTheBuffers)
{
    std::string pixels = "abcdefghijkl", flood(65536, 'p');
    osdmenu_view view = {.viewbitmap = {0, 4, 3, 0, pixels.data()}};
    for (int width : {100, 3, 1, 0, -1, -3, -100, 2000, INT_MAX})
        for (int x = -210; x < 2210; x += x == 8 ? 1782 : 1) { // the buffer holds 2000 pixels
            std::string expected(4000, '\0');
            for (long i = 0, place; i < 12; i++)
                if (place = x * 2 + i / 3 * wrapping_mul(width, 2) + i % 3; place >= 0 && place < 4000)
                    expected[static_cast<std::size_t>(place)] = pixels[static_cast<std::size_t>(i)];
            osdmenu_viewarea_width = width;
            clear_whole_view();
            osdmenu_draw_itemview(x, 0, &view);
            ASSERT_TRUE(std::string(osdmenu_viewbuffer, 4000) == expected) << width << " " << x;
        }
    osdmenu_view flat = {.viewbitmap = {0, 4000000000, 0, 0, flood.data()}};
    osdmenu_view wrapped = {.viewbitmap = {0, 65537, 65536, 0, flood.data()}}; // of one row, in 32 bits
    for (int burst : {0, -1, INT_MIN, 1})
        for (int x : {INT_MIN, -1, 0, INT_MAX}) {
            osdmenu_fontsize_init(burst);
            EXPECT_EQ(osdmenu_draw_itemview(x, x, &wrapped) + osdmenu_draw_itemview(x, 1, &flat), 0);
            EXPECT_EQ(osdmenu_mark_current_menuitem(0, 0, x) + osdmenu_mark_current_menuitem(0, 0, 32), 0);
        }
    const std::unique_ptr<char, decltype(&std::free)> former(std::exchange(osdmenu_viewbuffer, nullptr), std::free);
    EXPECT_EQ(osdmenu_draw_itemview(0, 0, &wrapped) + osdmenu_draw_string_at_position(0, 0, "text", 4), 0);
    osdmenu_viewbuffer_malloc(1, 100000); // all 65537 rows would find room
    osdmenu_draw_itemview(0, 0, &wrapped);
    EXPECT_EQ(std::string(osdmenu_viewbuffer, 65537), flood + '\0');
}
