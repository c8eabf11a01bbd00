// The one way in which pixels reach a buffer.
//
// A row copy knows how many bytes its target and its source own, and drops what would fall outside either. It does not
// compare with the edges of the view: a row that runs past the right edge goes on in the row below.
#pragma once

#include <cstddef>
#include <cstdint>

#include "osd_menu.h"

// Memory to paint into.
struct paint_area {
    char *memory;           // null takes nothing
    std::size_t size;       // bytes
    std::int64_t row_pitch; // bytes from one row to the next
};

// Pixels to paint from. The block owns height * pitch bytes, a 32-bit product as its loader computed it.
struct pixel_block {
    const char *pixels;
    std::uint32_t height; // rows
    std::uint32_t width;  // bytes copied per row
    std::uint32_t pitch;  // bytes from one stored row to the next
};

// Rows without gaps: item views, choices, help lines and bubble lines.
inline struct pixel_block tight_block(const struct osdmenu_view_bitmap *bitmap)
{
    return {bitmap->bitmap, bitmap->height, bitmap->width, bitmap->width};
}

// Rows at a stride: glyphs and symbols.
inline struct pixel_block strided_block(const struct osdmenu_view_bitmap *bitmap)
{
    return {bitmap->bitmap, bitmap->height, bitmap->width, bitmap->stride};
}

inline std::uint32_t block_size(const struct pixel_block *block)
{
    return block->height * block->pitch;
}

// One row of a block, as far as the block owns it. The row is below rows_owned.
inline struct pixel_block row_of(const struct pixel_block *block, std::int64_t row)
{
    std::uint32_t at = static_cast<std::uint32_t>(row) * block->pitch;
    std::uint32_t left = block_size(block) - at;
    std::uint32_t width = block->width < left ? block->width : left;
    return {block->pixels + at, 1, width, width};
}

// How many rows of a block have any byte to give, whatever its height claims.
std::uint32_t rows_owned(const struct pixel_block *block);

struct row_range {
    std::int64_t first;
    std::int64_t end;
};

// The rows of a block, placed at an offset in bytes, that touch the area at all. No others need a look.
struct row_range rows_touching(const struct paint_area *area, std::int64_t offset, const struct pixel_block *block);

// Copies a block with its first byte at an offset from the start of the area, in bytes.
void row_copy(const struct paint_area *area, std::int64_t offset, const struct pixel_block *block);
