// The banks of glyphs and symbols: loading c.d and s.d, whole and damaged, and finding a character's glyph.
#include <algorithm>
#include <gtest/gtest.h>

#include "resources/glyph_banks.h"
#include "support/host.h"

static Output load(const ResourceDirectory &directory, int (*loader)(const char *), int result)
{
    return output_of([&] { EXPECT_EQ(loader(directory.path().c_str()), result); });
}

template <std::size_t size> static int count(osdmenu_view_bitmap *(&table)[size])
{
    return static_cast<int>(size) - static_cast<int>(std::count(table, table + size, nullptr));
}

TEST(GlyphBanks, EveryCharacterHasItsPlaceAndTheDollarTheFirstOfTwo)
{
    const std::string characters =
        "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ.,:;'\"/?`~!@#$$%^&*()-_=+| {}[]";
    for (int code = -128; code < 128; code++) {
        const std::size_t first = characters.find(static_cast<char>(code));
        EXPECT_EQ(glyph_index(static_cast<char>(code)), std::min<std::size_t>(93, first)) << code;
    }
}

TEST(GlyphBanks, GlyphsAreReadAsFarAsTheFileGoesAndNoFurtherThan93)
{
    const std::string bank = glyph_bank(48, 60);
    ResourceDirectory directory;
    for (auto [bytes, result, glyphs, ends] :
         {std::tuple{0, 0, 0, 1}, {60 * 2904, 0, 60, 1}, {60 * 2904 + 10, 0, 61, 1}, {92 * 2904 + 25, 1, 93, 0}}) {
        directory.write("c.d", bank.substr(0, static_cast<std::size_t>(bytes)));
        const Output lines = load(directory, read2mem_menuitem_commonchar, result);
        EXPECT_EQ(count(osdmenu_commonchar_viewbitmap), glyphs);
        EXPECT_EQ(lines_with(lines.out, "] open file:c.d ok! 94"), 1);
        EXPECT_EQ(lines_with(lines.err, "] read menuitems_commonchar_bitmap_file end!"), ends);
        free_read2mem_menuitem_commonchar();
    }
    for (int i = 0; i < 2; i++) { // the second replaces, and frees, the first
        directory.write("c.d", bank + bank);
        load(directory, read2mem_menuitem_commonchar, 2880);
    }
    EXPECT_EQ(osdmenu_commonchar_viewbitmap[92]->bitmap[2879], 93);
}
TEST(GlyphBanks, BlockIsHeightTimesStrideAndWhatTheFileLacksIsZero)
{
    ResourceDirectory directory;
    directory.write("s.d",
                    block_of({3, 4, 'a'}, 7) + block_of({0, 4}, 0) + block_of({2, 300, 'b'}, 300).substr(0, 424));
    load(directory, read2mem_menuitem_utf16symbol, 0);
    EXPECT_EQ(std::string(symbol_at(0)->bitmap, 21), std::string(21, 'a'));
    EXPECT_EQ(symbol_at(0)->width, 4u);
    EXPECT_EQ(std::string(symbol_at(2)->bitmap, 600), std::string(400, 'b') + std::string(200, '\0'));
    EXPECT_EQ(symbol_at(3), nullptr);
}

TEST(GlyphBanks, SymbolsMayBe31AndThe32ndIsKeptButFailsTheLoad)
{
    ResourceDirectory directory;
    for (auto [symbols, result, kept] : {std::tuple{0, 0, 0}, {4, 0, 4}, {31, 0, 31}, {32, -1, 32}, {40, -1, 32}}) {
        std::string bank;
        for (int i = 0; i < symbols; i++)
            bank += block_of({1, 2, static_cast<char>(i)}, 2);
        directory.write("s.d", bank);
        const Output lines = load(directory, read2mem_menuitem_utf16symbol, result);
        EXPECT_EQ(count(osdmenu_utf16symbol_viewbitmap), kept);
        EXPECT_EQ(lines_with(lines.out, "] read menuitems_utf16symbol_bitmap_file end!"), result + 1);
        EXPECT_EQ(lines_with(lines.err, "] too many utf16 symbols!"), -result);
    }
    EXPECT_EQ(symbol_at(31)->bitmap[0], 31);
}
