// The row copy that all painters share.
#include "core/row_copy.h"

#include <algorithm>
#include <cstring>

// A call of memcpy costs more than a row as short as this, in bytes.
static const std::uint32_t SHORT_ROW = 128;

// Beyond this distance from its area, in bytes, nothing can be reached, and no sum overflows before it.
static const std::int64_t OUT_OF_REACH = std::int64_t{1} << 61;

// Two pieces that overlap cover any width from one to two pieces.
template <std::size_t piece> static inline void copy_two(char *to, const char *from, std::size_t width)
{
    std::memcpy(to, from, piece);
    std::memcpy(to + width - piece, from + width - piece, piece);
}

static inline void copy_short_row(char *to, const char *from, std::size_t width)
{
    if (width >= 16) {
        for (std::size_t at = 0; at + 16 <= width; at += 16)
            std::memcpy(to + at, from + at, 16);
        std::memcpy(to + width - 16, from + width - 16, 16);
    } else if (width >= 8) {
        copy_two<8>(to, from, width);
    } else if (width >= 4) {
        copy_two<4>(to, from, width);
    } else if (width >= 2) {
        copy_two<2>(to, from, width);
    } else {
        *to = *from;
    }
}

// The block comes by value: the compiler need not fear that the pixels overwrite it.
static void copy_rows(char *to, std::int64_t row_pitch, const struct pixel_block block)
{
    const char *from = block.pixels;
    for (std::uint32_t row = 0; row < block.height; row++, from += block.pitch, to += row_pitch) {
        if (block.width <= SHORT_ROW)
            copy_short_row(to, from, block.width);
        else
            std::memcpy(to, from, block.width);
    }
}

std::uint32_t rows_owned(const struct pixel_block *block)
{
    if (!block->pixels || block->width == 0 || block->pitch == 0)
        return 0;
    std::uint32_t size = block_size(block);
    return std::min(block->height, size / block->pitch + (size % block->pitch != 0));
}

// The block lies whole inside the area, and what it owns covers all of its rows.
static bool fits(const struct paint_area *area, std::int64_t offset, const struct pixel_block *block)
{
    if (offset < 0 || area->row_pitch <= 0 || block->width > block->pitch ||
        std::uint64_t{block->height} * block->pitch > UINT32_MAX)
        return false;
    std::uint64_t last_row = static_cast<std::uint64_t>(area->row_pitch) * (block->height - 1);
    return static_cast<std::uint64_t>(offset) + last_row + block->width <= area->size;
}

static bool is_out_of_reach(std::int64_t offset)
{
    return offset <= -OUT_OF_REACH || offset >= OUT_OF_REACH;
}

// How many rows it takes to go further than a distance in bytes.
static std::int64_t rows_to_pass(std::int64_t distance, std::int64_t row_pitch)
{
    return distance < 0 ? 0 : distance / row_pitch + 1;
}

// With a negative pitch the rows climb towards the start of the area.
struct row_range rows_touching(const struct paint_area *area, std::int64_t offset, const struct pixel_block *block)
{
    std::int64_t rows = rows_owned(block);
    std::int64_t size = static_cast<std::int64_t>(area->size);
    std::int64_t pitch = area->row_pitch;
    if (is_out_of_reach(offset))
        return {0, 0};
    if (pitch == 0) // all rows fall on one place, where the last one stays
        return {std::max<std::int64_t>(rows - 1, 0), rows};
    if (pitch > 0)
        return {rows_to_pass(-(offset + block->width), pitch), std::min(rows, rows_to_pass(size - 1 - offset, pitch))};
    return {rows_to_pass(offset - size, -pitch), std::min(rows, rows_to_pass(offset + block->width - 1, -pitch))};
}

// Copies one row as far as the area holds it.
static void copy_part_inside(const struct paint_area *area, std::int64_t offset, const char *from, std::int64_t length)
{
    std::int64_t start = std::max<std::int64_t>(-offset, 0);
    std::int64_t end = std::min(length, static_cast<std::int64_t>(area->size) - offset);
    if (start < end)
        std::memcpy(area->memory + (offset + start), from + start, static_cast<std::size_t>(end - start));
}

// All rows fall on one place, and where the last ones are cut short, each leaves the end of the row before it. So from
// the last row up each gives what those behind it left open, until the place is full.
static void copy_rows_to_one_place(const struct paint_area *area, std::int64_t offset, const struct pixel_block *block)
{
    std::int64_t done = std::max<std::int64_t>(-offset, 0);
    std::int64_t end = std::min<std::int64_t>(block->width, static_cast<std::int64_t>(area->size) - offset);
    std::int64_t row =
        std::min<std::int64_t>(block->height, rows_to_pass(std::int64_t{block_size(block)} - 1 - done, block->pitch));
    while (done < end && row-- > 0) {
        struct pixel_block part = row_of(block, row);
        copy_part_inside(area, offset + done, part.pixels + done, part.width - done);
        done = part.width;
    }
}

static void copy_rows_inside(const struct paint_area *area, std::int64_t offset, const struct pixel_block *block)
{
    struct row_range rows = rows_touching(area, offset, block);
    for (std::int64_t row = rows.first; row < rows.end; row++) {
        struct pixel_block part = row_of(block, row);
        copy_part_inside(area, offset + row * area->row_pitch, part.pixels, part.width);
    }
}

void row_copy(const struct paint_area *area, std::int64_t offset, const struct pixel_block *block)
{
    if (!area->memory || !block->pixels || block->height == 0 || block->width == 0)
        return;
    if (fits(area, offset, block))
        copy_rows(area->memory + offset, area->row_pitch, *block);
    else if (area->row_pitch == 0 && !is_out_of_reach(offset))
        copy_rows_to_one_place(area, offset, block);
    else
        copy_rows_inside(area, offset, block);
}
