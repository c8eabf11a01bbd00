// The banks of glyphs and symbols: loading c.d and s.d, whole and damaged, and finding a character's glyph.
#include <algorithm>

#include "resources/glyph_banks.h"
#include "support/faults.h"

static const ResourceDirectory files;
static int result; // of the last load

// What a load of either bank prints, without the name of the function.
static std::string load(const std::string &file, const std::string &bank)
{
    files.write(file, bank);
    const auto loader = file == "c.d" ? read2mem_menuitem_commonchar : read2mem_menuitem_utf16symbol;
    return printed_by("read2mem_menuitem_\\w+", [loader] { result = loader(files.path().c_str()); });
}

TEST(GlyphIndex, IsThePlaceOfACharacterAndForADollarTheFirstOfTwo)
{
    const std::string characters =
        "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ.,:;'\"/?`~!@#$$%^&*()-_=+| {}[]";
    for (int code = -128; code < 128; code++) {
        const std::size_t first = characters.find(static_cast<char>(code));
        EXPECT_EQ(glyph_index(static_cast<char>(code)), std::min<std::size_t>(93, first)) << code;
    }
}

TEST(GlyphBank, FillsItsPlacesAsFarAsItGoes)
{
    const std::string opened = "INFO open file:c.d ok! 94\n";
    const std::string ended = opened + "ERR read menuitems_commonchar_bitmap_file end!\n";
    const struct {
        std::size_t bytes; // 2904 for each glyph
        int result;
        long empty; // of 94 places
        std::string lines;
    } rows[] = {{0, 0, 94, ended},      {174240, 0, 34, ended},    {174250, 0, 33, ended},
                {267193, 1, 1, opened}, {270072, 2880, 1, opened}, {270076, 2880, 1, opened}};
    for (const auto &row : rows) {
        free_read2mem_menuitem_commonchar();
        const std::string lines = load("c.d", (glyph_bank(48, 60) + "more").substr(0, row.bytes));
        const long empty = std::count(osdmenu_commonchar_viewbitmap, osdmenu_commonchar_viewbitmap + 94, nullptr);
        EXPECT_EQ(std::tuple(result, empty, lines), std::tuple(row.result, row.empty, row.lines)) << row.bytes;
    }
}

TEST(SymbolBank, HasRoomFor31SymbolsAndKeepsA32nd)
{
    const std::string opened = "INFO open file:s.d ok!\n", too_many = opened + "ERR too many utf16 symbols!\n";
    const std::string ended = opened + "INFO read menuitems_utf16symbol_bitmap_file end!\n";
    const struct {
        std::size_t symbols;
        int result;
        long empty; // of 32 places
        std::string lines;
    } rows[] = {{0, 0, 32, ended}, {4, 0, 28, ended}, {31, 0, 1, ended}, {32, -1, 0, too_many}, {40, -1, 0, too_many}};
    for (const auto &row : rows) {
        const std::string lines = load("s.d", glyph_bank(1, 2).substr(0, row.symbols * 26));
        const long empty = std::count(osdmenu_utf16symbol_viewbitmap, osdmenu_utf16symbol_viewbitmap + 32, nullptr);
        EXPECT_EQ(std::tuple(result, empty, lines), std::tuple(row.result, row.empty, row.lines)) << row.symbols;
    }
}

TEST(Block, HasHeightTimesStrideBytes)
{
    load("s.d", block_of({3, 4, 'a'}, 7));
    EXPECT_EQ(std::string(symbol_at(0)->bitmap, 21), std::string(21, 'a'));
}

TEST(Block, IsZeroWhereItsFileEnds)
{
    load("s.d", block_of({0, 4}, 0) + block_of({2, 300, 'b'}, 300).substr(0, 424));
    EXPECT_EQ(std::string(symbol_at(1)->bitmap, 600), std::string(400, 'b') + std::string(200, '\0'));
}

TEST(Symbol, HasAnIndexFrom0To31)
{
    load("s.d", glyph_bank(1, 2));
    for (int index : {-1, 32})
        EXPECT_EQ(symbol_at(index), nullptr) << index;
}
