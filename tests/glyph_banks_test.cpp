// The banks of glyphs and symbols: loading c.d and s.d, whole and damaged, and finding a character's glyph.
#include <algorithm>
#include <gtest/gtest.h>

#include "resources/glyph_banks.h"
#include "support/host.h"

static const ResourceDirectory files;

static Output load(int (*loader)(const char *), int result)
{
    return output_of([&] { EXPECT_EQ(loader(files.path().c_str()), result); });
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
    const std::string bank = glyph_bank(48, 60) + "more"; // 2904 bytes a glyph
    for (auto [bytes, result, missing, ends] :
         {std::tuple{0UL, 0, 94, 1}, {174240, 0, 34, 1}, {174250, 0, 33, 1}, {267193, 1, 1, 0}, {270076, 2880, 1, 0}}) {
        free_read2mem_menuitem_commonchar();
        files.write("c.d", bank.substr(0, bytes));
        load(read2mem_menuitem_commonchar, result);
        const Output lines = load(read2mem_menuitem_commonchar, result); // replaces, and frees, the first
        EXPECT_EQ(std::count(osdmenu_commonchar_viewbitmap, osdmenu_commonchar_viewbitmap + 94, nullptr), missing);
        EXPECT_EQ(lines_with(lines.out, "] open file:c.d ok! 94\n"), 1);
        EXPECT_EQ(lines_with(lines.err, "] read menuitems_commonchar_bitmap_file end!\n"), ends);
    }
    EXPECT_EQ(osdmenu_commonchar_viewbitmap[92]->bitmap[2879], 93);
}

TEST(GlyphBanks, BlockIsHeightTimesStrideAndWhatTheFileLacksIsZero)
{
    files.write("s.d", block_of({3, 4, 'a'}, 7) + block_of({0, 4}, 0) + block_of({2, 300, 'b'}, 300).substr(0, 424));
    load(read2mem_menuitem_utf16symbol, 0);
    EXPECT_EQ(std::string(symbol_at(0)->bitmap, 21), std::string(21, 'a'));
    EXPECT_EQ(std::string(symbol_at(2)->bitmap, 600), std::string(400, 'b') + std::string(200, '\0'));
}

TEST(GlyphBanks, SymbolsMayBe31AndThe32ndIsKeptButFailsTheLoad)
{
    for (auto [symbols, result, missing] : {std::tuple{0UL, 0, 32}, {4, 0, 28}, {31, 0, 1}, {32, -1, 0}, {40, -1, 0}}) {
        files.write("s.d", glyph_bank(1, 2).substr(0, symbols * 26));
        const Output lines = load(read2mem_menuitem_utf16symbol, result);
        EXPECT_EQ(std::count(osdmenu_utf16symbol_viewbitmap, osdmenu_utf16symbol_viewbitmap + 32, nullptr), missing);
        EXPECT_EQ(lines_with(lines.out, "] read menuitems_utf16symbol_bitmap_file end!\n"), result + 1);
        EXPECT_EQ(lines_with(lines.err, "] too many utf16 symbols!\n"), -result);
    }
    EXPECT_EQ(symbol_at(31)->bitmap[1], 32);
}
