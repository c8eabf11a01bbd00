// The painters of one row, down to the row copy under them all. Glyphs are of 4 by 4 pixels, the view of 100 by 20.
#include <climits>
#include <numeric>
#include <random>
#include <sys/mman.h>

#include "support/faults.h"

static const ResourceDirectory files;

struct RowPainter : testing::Test {
    osdmenu_item_value *value;
    osdmenu_item_value_number number = {9, 0, 5, 1};

    RowPainter()
    {
        prepare_view(files, 100, 20);
        load_menu(files, {{"abc", {1}, {}, VALUE_TXT, {{"7", {1, 2, 'a'}}, {"8\n9", {1, 2, 'b'}}, {"9", {1, 2, 'c'}}}},
                          {"none", {2}, {}, VALUE_TXT}});
        value = &loaded("abc")->item_values;
    }
};

static const struct Value {
    const char *name;
    unsigned type;
    int low, high, current;
    std::pair<std::string, int> left; // the look, and what is stored
} values[] = {
    {"a_number", VALUE_NUMBER, 1, 99, 12, {"1@8,4 2@12,4", 12}},
    {"a_number_below", VALUE_NUMBER, -5, 10, -6, {"-@8,4 5@12,4", -5}},
    {"a_number_above", VALUE_NUMBER, 0, 10, 11, {"1@8,4 0@12,4", 10}},
    {"a_number_between_crossed_bounds", VALUE_NUMBER, 10, 5, 7, {"5@8,4", 5}},
    {"a_percentage_below", VALUE_PERCENTAGE, 10, 20, 9, {"1@8,4 0@12,4 %@16,4", 10}},
    {"a_percentage_above", VALUE_PERCENTAGE, 10, 20, 21, {"2@8,4 0@12,4 %@16,4", 20}},
    {"the_first_choice", VALUE_TXT, 0, 0, 0, {"[a]@8,4(1x1)", 0}},
    {"the_last_choice", VALUE_TXT, 0, 0, 2, {"[c]@8,4(1x1)", 2}},
    {"a_choice_behind_the_last", VALUE_TXT, 0, 0, 3, {"[a]@8,4(1x1)", 0}},
    {"a_choice_before_the_first", VALUE_TXT, 0, 0, -1, {"[c]@8,4(1x1)", 2}},
    {"a_choice_far_before", VALUE_TXT, 0, 0, INT_MIN, {"[c]@8,4(1x1)", 2}},
    {"a_free_text", VALUE_RAWTXT, 0, 0, 2, {"9@8,4", 2}},
    {"a_free_text_outside_the_table", VALUE_RAWTXT, 0, 0, 1, {"8@8,4", 1}},
    {"a_free_text_behind_the_last", VALUE_RAWTXT, 0, 0, 3, {"", 3}},
};
CASES(ValueOf, RowPainter, values);

TEST_P(ValueOf, IsBroughtIntoItsBoundsAndPainted)
{
    const auto &[name, type, low, high, current, left] = GetParam();
    value->type = type;
    value->current = current;
    const bool is_bounded = type == VALUE_NUMBER || type == VALUE_PERCENTAGE;
    if (is_bounded)
        value->u.number = {high, low, current, 1};
    osdmenu_draw_itemvalue(8, 4, value);
    EXPECT_EQ(std::pair(blocks_in_view(), is_bounded ? value->u.number.current : value->current), left);
}

TEST_F(RowPainter, AValueWithoutChoicesBecomesTheFirst)
{
    osdmenu_item_value *none = &loaded("none")->item_values;
    none->current = -1;
    osdmenu_draw_itemvalue(8, 4, none);
    EXPECT_EQ(none->current, 0);
}

TEST_F(RowPainter, FailsForATextOutsideTheTableAlone)
{
    value->current = 1;
    EXPECT_EQ(osdmenu_draw_itemvalue_rawtxt(8, 4, value), -1);
    EXPECT_EQ(osdmenu_draw_itemvalue_rawtxt(8, 4, nullptr), 0);
    EXPECT_EQ(osdmenu_draw_itemvalue_txt(8, 4, &first_choice(value)->u.txt), 0);
    EXPECT_EQ(osdmenu_draw_itemvalue_txt(8, 4, nullptr), 0);
    EXPECT_EQ(osdmenu_draw_itemvalue_number(8, 4, &number), 0);
    EXPECT_EQ(osdmenu_draw_itemvalue_number(8, 4, nullptr), 0);
    EXPECT_EQ(osdmenu_draw_itemvalue_percentage(8, 4, &value->u.percentage), 0);
    EXPECT_EQ(osdmenu_draw_itemvalue_percentage(8, 4, nullptr), 0);
    EXPECT_EQ(osdmenu_draw_itemvalue(8, 4, value), 0);
    EXPECT_EQ(osdmenu_draw_itemvalue(8, 4, nullptr), 0);
    EXPECT_EQ(osdmenu_draw_itemview(8, 4, nullptr), 0);
    EXPECT_EQ(osdmenu_mark_current_menuitem(8, 4, 1), 0);
}

static const struct Text {
    const char *name, *text;
    int length, x, y;
    std::pair<int, std::string> left; // the result and the look
} texts[] = {
    {"missing", nullptr, 5, 8, 4, {-1, ""}},
    {"of_length_0", "a", 0, 8, 4, {-1, ""}},
    {"of_length_1", "abc", 1, 8, 4, {0, "a@8,4"}},
    {"shorter_than_its_length", "ab", 9, 8, 4, {0, "a@8,4 b@12,4"}},
    {"outside_the_table", "a\nb", 5, 8, 4, {0, "a@8,4 b@12,4"}},
    {"without_a_glyph", "azb", 5, 8, 4, {0, "a@8,4 b@12,4"}},
    {"up_to_the_right_edge", "ab", 5, 92, 4, {0, "a@92,4 b@96,4"}},
    {"over_the_right_edge", "ab", 5, 93, 4, {0, "a@93,4"}},
    {"down_to_the_bottom", "a", 5, 8, 16, {0, "a@8,16"}},
    {"over_the_bottom", "a", 5, 8, 17, {0, ""}},
};
CASES(TextInARow, RowPainter, texts);

TEST_P(TextInARow, StopsAtTheFarEdgesOfTheView)
{
    const auto &[name, text, length, x, y, left] = GetParam();
    lose_glyph('z');
    const int result = osdmenu_draw_string_at_position(x, y, text, length);
    EXPECT_EQ(std::pair(result, blocks_in_view()), left);
}

TEST_F(RowPainter, TellsOfAnEdgeThatATextPasses)
{
    const auto paint = [] {
        osdmenu_draw_string_at_position(97, 4, "a", 1);
        osdmenu_draw_string_at_position(8, 17, "a", 1);
    };
    EXPECT_EQ(printed_by("osdmenu_draw_string_at_position", paint),
              "ERR Text exceeds screen width\nERR Text exceeds screen height\n");
}

static const char letters[] = "abcdefghijklmnopqrst";
// A block at an offset of an area of 24 bytes, and the rows of it that touch the area.
static const struct Block {
    const char *name;
    pixel_block block;
    std::int64_t offset, row_pitch;
    std::tuple<std::string, std::int64_t, std::int64_t> copied;
} blocks[] = {
    {"of_a_byte", {letters, 1, 1, 1}, 23, 8, {".......................a", 0, 1}},
    {"with_gaps", {letters, 2, 3, 6}, 1, 8, {".abc.....ghi............", 0, 2}},
    {"with_rows_that_overlap", {letters, 3, 6, 4}, 1, 8, {".abcdef..efghij..ijkl...", 0, 3}},
    {"without_pixels", {nullptr, 2, 4, 4}, 1, 8, {"........................", 0, 0}},
    {"of_a_size_that_wraps_in_a_row", {letters, 3, 4, 0x60000000}, 1, 8, {".abcd...................", 0, 1}},
    {"over_the_start", {letters, 5, 4, 4}, -3, 8, {"d....efgh....ijkl....mno", 0, 4}},
    {"in_no_steps", {letters, 5, 4, 4}, 1, 0, {".qrst...................", 4, 5}},
};
CASES(RowCopy, testing::Test, blocks);

TEST_P(RowCopy, KeepsToWhatTheAreaAndTheBlockOwn)
{
    std::string memory(24, '.');
    const paint_area area = {memory.data(), 24, GetParam().row_pitch};
    const row_range rows = rows_touching(&area, GetParam().offset, &GetParam().block);
    row_copy(&area, GetParam().offset, &GetParam().block);
    EXPECT_EQ(std::tuple(memory, rows.first, rows.end), GetParam().copied);
}

TEST_F(RowPainter, TouchesNoMemoryButItsBlocksOwnAndTheBuffers)
{
    std::string pixels = "abcdefghijkl";
    osdmenu_view view = {.viewbitmap = {0, 4, 3, 0, pixels.data()}};
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
}

TEST_F(RowPainter, PaintsNoMoreOfABlockThanItsProductOf32Bits)
{
    std::string row(65536, 'p');
    osdmenu_view view = {.viewbitmap = {0, 65537, 65536, 0, row.data()}}; // one row, in 32 bits
    std::free(osdmenu_viewbuffer);
    osdmenu_viewbuffer_malloc(1, 100000); // all 65537 rows would find room
    for (int x : {INT_MIN, -100000, INT_MAX, 0})
        osdmenu_draw_itemview(x, 0, &view);
    EXPECT_EQ(std::string(osdmenu_viewbuffer, 65537), row + '\0');
}

TEST_F(RowPainter, EndsAtOnceOverRowsWithoutBytes)
{
    std::string pixels = "p";
    osdmenu_view view = {.viewbitmap = {0, UINT_MAX, 0, 0, pixels.data()}};
    osdmenu_draw_itemview(0, 1, &view);
    EXPECT_EQ(blocks_in_view(), "");
}

TEST_F(RowPainter, PaintsNoSymbolOutsideTheBank)
{
    for (int index : {INT_MIN, -1, 4, 32, INT_MAX})
        EXPECT_EQ(osdmenu_mark_current_menuitem(0, 0, index), 0) << index;
    EXPECT_EQ(blocks_in_view(), "");
}

TEST_F(RowPainter, AnswersAsEverWithoutAView)
{
    std::string pixels = "abcdefghijkl";
    osdmenu_view view = {.viewbitmap = {0, 4, 3, 0, pixels.data()}};
    std::free(std::exchange(osdmenu_viewbuffer, nullptr));
    EXPECT_EQ(osdmenu_draw_itemview(0, 0, &view), 0);
    EXPECT_EQ(osdmenu_draw_string_at_position(0, 0, "text", 4), 0);
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
