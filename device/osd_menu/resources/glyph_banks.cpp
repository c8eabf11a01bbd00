// The glyph banks: loading c.d and s.d, and finding a character's glyph.
#include "resources/glyph_banks.h"

#include <array>
#include <cstdlib>

#include "core/debug.h"
#include "osd_menu_post.h"
#include "resources/resource_fields.h"

// The dollar sign stands twice, here and in every c.d: without the second, all glyphs behind it would be out of step.
constexpr char osdmenu_common_char[GLYPH_COUNT + 1] = "0123456789abcdefghijklmnopqrstuvwxyz"
                                                      "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                                      ".,:;'\"/?`~!@#$$%^&*()-_=+| {}[]";
constinit struct osdmenu_view_bitmap *osdmenu_commonchar_viewbitmap[GLYPH_COUNT + 1] = {};
constinit struct osdmenu_view_bitmap *osdmenu_utf16symbol_viewbitmap[SYMBOL_COUNT] = {};

// What a search of osdmenu_common_char from the front would find for each byte.
static constexpr std::array<unsigned char, 256> index_of_character = [] {
    std::array<unsigned char, 256> index{};
    index.fill(GLYPH_NONE);
    for (int i = GLYPH_COUNT - 1; i >= 0; i--)
        index[static_cast<unsigned char>(osdmenu_common_char[i])] = static_cast<unsigned char>(i);
    return index;
}();

int glyph_index(char character)
{
    return index_of_character[static_cast<unsigned char>(character)];
}

static const struct osdmenu_view_bitmap *with_pixels(const struct osdmenu_view_bitmap *block)
{
    return block && block->bitmap ? block : nullptr;
}

const struct osdmenu_view_bitmap *glyph_at(int index)
{
    return with_pixels(osdmenu_commonchar_viewbitmap[index]);
}

const struct osdmenu_view_bitmap *symbol_at(int index)
{
    return index >= 0 && index < SYMBOL_COUNT ? with_pixels(osdmenu_utf16symbol_viewbitmap[index]) : nullptr;
}

static const struct load_failure no_block = {"calloc osdmenu_view_bitmap", "calloc osdmenu_view_bitmap"};
static const struct load_failure no_pixels = {"calloc osdmenu_view_bitmap bitmap", "calloc osdmenu_view_bitmap bitmap"};

// One of the two files while it is read.
struct bank_file {
    const char *loader;
    struct load_failure not_open;
    struct load_failure unreadable;
    struct reader in;
};

static void free_block(struct osdmenu_view_bitmap *block)
{
    if (block)
        std::free(block->bitmap);
    std::free(block);
}

static enum field_result fail(const struct bank_file *file, const struct load_failure *failure)
{
    report_failure(file->loader, failure);
    return FIELD_FAILED;
}

// Reads the record of a block and the pixels behind it. The bytes of the pixels are reported; fewer than the block
// holds leave the rest of it zero.
static enum field_result read_block(struct bank_file *file, struct osdmenu_view_bitmap *block, ssize_t *pixel_bytes)
{
    ssize_t got = reader_fill(&file->in, block, sizeof *block);
    block->bitmap = nullptr; // the bytes of a file are no address
    if (got <= 0)
        return got < 0 ? fail(file, &file->unreadable) : FIELD_AT_END;
    std::uint32_t size = block->height * block->stride;
    block->bitmap = static_cast<char *>(std::calloc(1, size));
    if (!block->bitmap && size != 0)
        return fail(file, &no_pixels);
    *pixel_bytes = reader_fill(&file->in, block->bitmap, size);
    return *pixel_bytes < 0 ? fail(file, &file->unreadable) : FIELD_READ;
}

// Reads one entry into its place in the table. Only a whole one replaces, and frees, what stood there.
static enum field_result read_entry(struct bank_file *file, struct osdmenu_view_bitmap **entry, ssize_t *pixel_bytes)
{
    struct osdmenu_view_bitmap *block = static_cast<struct osdmenu_view_bitmap *>(std::calloc(1, sizeof *block));
    if (!block)
        return fail(file, &no_block);
    enum field_result result = read_block(file, block, pixel_bytes);
    if (result != FIELD_READ) {
        free_block(block);
        return result;
    }
    free_block(*entry);
    *entry = block;
    return FIELD_READ;
}

// Fills a table from its front, until it is full or the file ends.
static enum field_result read_entries(struct bank_file *file, struct osdmenu_view_bitmap **table, int count,
                                      ssize_t *last_pixel_bytes)
{
    enum field_result result = FIELD_READ;
    for (int i = 0; i < count && result == FIELD_READ; i++)
        result = read_entry(file, &table[i], last_pixel_bytes);
    reader_close(&file->in);
    return result;
}

int read2mem_menuitem_commonchar(const char *dir)
{
    struct bank_file file = {
        __func__,
        {"open menuitems_commonchar_bitmap_file", "open menuitems_commonchar_bitmap_file"},
        {"read menuitems_commonchar_bitmap_file", "read menuitems_commonchar_bitmap_file"},
        {},
    };
    if (!open_reported(file.loader, &file.in, dir, "c.d", LOOKAHEAD_TEXTS, &file.not_open))
        return -1;
    DBG_INFO("open file:%s ok! %d\n", "c.d", GLYPH_COUNT + 1);
    ssize_t pixel_bytes = 0;
    enum field_result result = read_entries(&file, osdmenu_commonchar_viewbitmap, GLYPH_COUNT, &pixel_bytes);
    if (result == FIELD_FAILED)
        return -1;
    if (result == FIELD_READ)
        return static_cast<int>(pixel_bytes);
    DBG_ERR("read menuitems_commonchar_bitmap_file end!\n");
    return 0;
}

void free_read2mem_menuitem_commonchar(void)
{
    for (int i = 0; i < GLYPH_COUNT; i++) {
        free_block(osdmenu_commonchar_viewbitmap[i]);
        osdmenu_commonchar_viewbitmap[i] = nullptr;
    }
}

int read2mem_menuitem_utf16symbol(const char *dir)
{
    struct bank_file file = {
        __func__,
        {"open menuitems_utf16symbol_bitmap_file", "open menuitems_utf16symbol_bitmap_file"},
        {"read menuitems_utf16symbol_bitmap_file", "read menuitems_utf16symbol_bitmap_file"},
        {},
    };
    if (!open_reported(file.loader, &file.in, dir, "s.d", LOOKAHEAD_TEXTS, &file.not_open))
        return -1;
    DBG_INFO("open file:%s ok!\n", "s.d");
    ssize_t pixel_bytes = 0;
    enum field_result result = read_entries(&file, osdmenu_utf16symbol_viewbitmap, SYMBOL_COUNT, &pixel_bytes);
    if (result == FIELD_READ)
        DBG_ERR("too many utf16 symbols!\n");
    if (result != FIELD_AT_END)
        return -1;
    DBG_INFO("read menuitems_utf16symbol_bitmap_file end!\n");
    return 0;
}
