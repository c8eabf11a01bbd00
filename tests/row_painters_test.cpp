// The painters of one row, down to the row copy under them all. Glyph i of the bank is filled with i + 1.
#include <climits>
#include <numeric>
#include <random>
#include <sstream>
#include <sys/mman.h>

#include "resources/glyph_banks.h"
#include "support/host.h"

static const ResourceDirectory files;

// What the glyphs spell from (8, 4) on. The view is clear afterwards.
static std::string text_taken()
{
    std::string text;
    for (int x = 8; byte_at(x, 4) != 0; x += 4)
        text += osdmenu_common_char[byte_at(x, 4) - 1];
    clear_whole_view();
    return text;
}

TEST(RowPainters, AValueIsBroughtIntoItsBoundsAndPaintedAndAFreeTextIsNot)
{
    prepare_view(files, 100, 20);
    std::istringstream cases("10 20 5 10  10 5 3 5  10 5 12 5  -9 9 -5 -5  -2147483648 0 -2147483648 -2147483648");
    for (int low, high, current, stored; cases >> low >> high >> current >> stored;)
        for (unsigned type : {VALUE_NUMBER, VALUE_PERCENTAGE}) {
            osdmenu_item_value value = {{}, type, 77, {.number = {high, low, current, 7}}};
            EXPECT_EQ((osdmenu_draw_itemvalue(8, 4, &value), value.u.number.current), stored);
            EXPECT_EQ(text_taken(), std::to_string(stored) + (type == VALUE_NUMBER ? "" : "%"));
        }
    load_menu(files, {{"abc", {1}, {}, VALUE_TXT, {{"0", {1, 2, 1}}, {"1\n3", {1, 2, 2}}, {"2", {1, 2, 3}}}},
                      {"none", {2}, {}, VALUE_TXT}});
    osdmenu_item_value *value = &loaded("abc")->item_values, *none = &loaded("none")->item_values;
    for (auto [current, stored] : {std::pair(0, 0), {1, 1}, {2, 2}, {3, 0}, {INT_MAX, 0}, {-1, 2}, {INT_MIN, 2}}) {
        value->current = none->current = current;
        EXPECT_EQ(osdmenu_draw_itemvalue_rawtxt(8, 4, value), current == 1 ? -1 : 0); // a newline is no glyph
        EXPECT_EQ(text_taken(), current == stored ? std::to_string(current) : "");
        EXPECT_EQ((osdmenu_draw_itemvalue(8, 4, value), value->current), stored);
        EXPECT_EQ(text_taken(), std::to_string(stored));
        EXPECT_EQ((osdmenu_draw_itemvalue(8, 4, none), none->current), 0);
    }
}

TEST(RowPainters, GlyphsKeepTheirGeometryAndAStringTheFarEdges)
{
    osdmenu_viewbuffer_malloc(100, 20);
    std::string text, wide = block_of({2, 4, 0}, 6), narrow = block_of({2, 6, 0}, 4);
    files.write("c.d", wide.replace(24, 12, "aaaa..bbbb..") + narrow.replace(24, 8, "ccccdddd") +
                           block_of({4, 20, 1}, 20) + block_of({4, 22, 2}, 22));
    read2mem_menuitem_commonchar(files.path().c_str());
    EXPECT_EQ(osdmenu_draw_string_at_position(8, 4, "10\n40", 9), 0); // nothing for what is missing
    EXPECT_EQ(std::string(osdmenu_viewbuffer + 816, 16), std::string("ccccddaaaaaaaa\0\0", 16));
    EXPECT_EQ(std::string(osdmenu_viewbuffer + 1016, 16), std::string("dddd\0\0bbbbbbbb\0\0", 16));
    std::istringstream cases("90 16 2 5 99 1  80 0 232 5 90 0  0 17 2 5 0 0  0 0 000 2 2 97  0 0 000 2 4 0");
    for (int x, y, length, seen_x, fill; cases >> x >> y >> text >> length >> seen_x >> fill;) {
        clear_whole_view();
        EXPECT_EQ(osdmenu_draw_string_at_position(x, y, text.c_str(), length), 0);
        EXPECT_EQ(byte_at(seen_x, y), fill) << x << " " << y << " " << text;
    }
    EXPECT_EQ(osdmenu_draw_string_at_position(0, 0, "2", 0) + osdmenu_draw_string_at_position(0, 0, nullptr, 5), -2);
}

TEST(RowPainters, ABlockTouchesNoMemoryButItsOwnAndTheBuffers)
{
    prepare_view(files, 100, 20);
    std::string pixels = "abcdefghijkl", flood(65536, 'p');
    osdmenu_view view = {.viewbitmap = {0, 4, 3, 0, pixels.data()}},
                 flat = {.viewbitmap = {0, UINT_MAX, 0, 0, flood.data()}};
    for (int width : {100, 3, 1, 0, -1, -3, -100, 2000, INT_MAX})
        for (int x = -210; x < 2210; x += x == 8 ? 1782 : 1) { // the buffer holds 2000 pixels
            std::string expected(4000, '\0');
            for (long i = 0, place; i < 12; i++)
                if (place = x * 2 + i / 3 * wrapping_mul(width, 2) + i % 3; place >= 0 && place < 4000)
                    expected[static_cast<std::size_t>(place)] = static_cast<char>('a' + i);
            osdmenu_viewarea_width = width;
            clear_whole_view();
            osdmenu_draw_itemview(x, 0, &view);
            ASSERT_TRUE(std::string(osdmenu_viewbuffer, 4000) == expected) << width << " " << x;
        }
    osdmenu_view wrapped = {.viewbitmap = {0, 65537, 65536, 0, flood.data()}}; // of one row, in 32 bits
    for (int x : {INT_MIN, -1, 0, INT_MAX})
        EXPECT_EQ(osdmenu_draw_itemview(x, x, &wrapped) + osdmenu_draw_itemview(x, 1, &flat), 0);
    EXPECT_EQ(osdmenu_mark_current_menuitem(0, 0, INT_MIN) + osdmenu_mark_current_menuitem(0, 0, 32), 0);
    std::free(std::exchange(osdmenu_viewbuffer, nullptr));
    EXPECT_EQ(osdmenu_draw_itemview(0, 0, &wrapped) + osdmenu_draw_string_at_position(0, 0, "text", 4), 0);
    osdmenu_viewbuffer_malloc(1, 100000); // all 65537 rows would find room
    osdmenu_draw_itemview(0, 0, &wrapped);
    EXPECT_EQ(std::string(osdmenu_viewbuffer, 65537), flood + '\0');
}

// What a plain walk leaves: row after row and byte after byte, of what the block and the area own.
static std::vector<char> row_after_row(std::vector<char> area, int offset, int row_pitch, const pixel_block &block)
{
    const unsigned owned = block.height * block.pitch;
    for (unsigned row = 0; row < block.height && row * block.pitch < owned; row++)
        for (unsigned i = 0; i < block.width && row * block.pitch + i < owned; i++)
            if (const int place = offset + static_cast<int>(row) * row_pitch + static_cast<int>(i);
                place >= 0 && place < static_cast<int>(area.size()))
                area[static_cast<std::size_t>(place)] = block.pixels[row * block.pitch + i];
    return area;
}

TEST(RowCopy, LeavesWhatRowAfterRowWouldLeaveAtEveryPitch)
{
    std::minstd_rand random;
    const auto between = [&](int low, int high) { return low + static_cast<int>(random() % unsigned(high - low + 1)); };
    // The last two own 5 and 9 bytes at pitches of 3 and 5, as 32-bit products.
    const unsigned heights[] = {1, 2, 3, 4, 0x55555557, 0x33333335};
    for (int drawn = 0; drawn < 300000; drawn++) {
        pixel_block block = {nullptr, heights[between(0, 5)], unsigned(between(1, 8)), unsigned(between(0, 6))};
        if (block.height * block.pitch > 24)
            continue;
        std::vector<char> pixels(block.height * block.pitch), bytes(unsigned(between(1, 14)), '.');
        std::iota(pixels.begin(), pixels.end(), 'a');
        block.pixels = pixels.data();
        const int offset = between(-16, 16), row_pitch = between(-7, 7);
        const std::vector<char> expected = row_after_row(bytes, offset, row_pitch, block);
        const paint_area area = {bytes.data(), bytes.size(), row_pitch};
        row_copy(&area, offset, &block);
        ASSERT_EQ(bytes, expected) << "offset " << offset << ", row pitch " << row_pitch << ", height " << block.height
                                   << ", width " << block.width << ", pitch " << block.pitch;
    }
}

TEST(RowCopy, CopiesRowsOfEveryWidthAndNothingBesideThem)
{
    for (unsigned width = 1; width <= 300; width++)
        for (const int row_pitch : {int(width) + 5, int(width), int(width) - 1, int(width + 1) / 2}) {
            std::vector<char> pixels(3 * (width + 2)), bytes(1000, '.');
            std::iota(pixels.begin(), pixels.end(), '\0');
            const pixel_block block = {pixels.data(), 3, width, width + 2};
            const std::vector<char> expected = row_after_row(bytes, 7, row_pitch, block);
            const paint_area area = {bytes.data(), bytes.size(), row_pitch};
            row_copy(&area, 7, &block);
            ASSERT_TRUE(bytes == expected) << "width " << width << ", row pitch " << row_pitch;
        }
}

// Nearly all of its bytes are never touched, and so take no memory.
TEST(RowCopy, LaysARowForEachOfFourBillionBytesOnOnePlaceAtOnce)
{
    const std::size_t size = 4000000000;
    void *const map = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(map, MAP_FAILED);
    char *const pixels = static_cast<char *>(map);
    pixels[size - 1] = 'z'; // the one byte of the last row, and the end of every row before it that is cut short
    const pixel_block block = {pixels, 4000000000, 1000000, 1};
    std::string bytes(1000000, '.');
    const paint_area area = {bytes.data(), bytes.size(), 0};
    row_copy(&area, 0, &block);
    EXPECT_TRUE(bytes == std::string(1000000, 'z'));
    munmap(map, size);
}
