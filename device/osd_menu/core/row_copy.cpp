// The row copy that all painters share.
#include "core/row_copy.h"

#include <algorithm>
#include <cstring>

// Rows of fewer bytes than this are too rare for a way of their own.
static const std::uint32_t LEAST_FAST_WIDTH = 8;

// Beyond this distance from its area, in bytes, nothing can be reached, and no sum overflows before it.
static const std::int64_t OUT_OF_REACH = std::int64_t{1} << 61;

// Copies each row as its first and its last bytes, which may overlap: so one body serves all widths from the larger of
// the two to their sum. Both are of constant size, a few wide moves in place of a call, which would cost more.
// The block comes by value: the compiler need not fear that the pixels overwrite it.
template <std::size_t first, std::size_t last>
static inline void copy_narrow_rows(char *to, std::int64_t row_pitch, const struct pixel_block block)
{
    const char *from = block.pixels;
    for (std::uint32_t rows = block.height; rows > 0; rows--, from += block.pitch, to += row_pitch) {
        std::memcpy(to, from, first);
        std::memcpy(to + block.width - last, from + block.width - last, last);
    }
}

// Rows of more than 64 bytes, 64 bytes a turn.
static inline void copy_wide_rows(char *to, std::int64_t row_pitch, const struct pixel_block block)
{
    const char *from = block.pixels;
    for (std::uint32_t rows = block.height; rows > 0; rows--, from += block.pitch, to += row_pitch) {
        for (std::size_t at = 0; at + 64 < block.width; at += 64)
            std::memcpy(to + at, from + at, 64);
        std::memcpy(to + block.width - 64, from + block.width - 64, 64);
    }
}

// The width decides once for all rows how they are copied.
static inline void copy_rows(char *to, std::int64_t row_pitch, const struct pixel_block block)
{
    if (block.width > 128)
        copy_wide_rows(to, row_pitch, block);
    else if (block.width >= 96)
        copy_narrow_rows<96, 32>(to, row_pitch, block);
    else if (block.width >= 64)
        copy_narrow_rows<64, 32>(to, row_pitch, block);
    else if (block.width >= 32)
        copy_narrow_rows<32, 32>(to, row_pitch, block);
    else if (block.width >= 16)
        copy_narrow_rows<16, 16>(to, row_pitch, block);
    else
        copy_narrow_rows<LEAST_FAST_WIDTH, LEAST_FAST_WIDTH>(to, row_pitch, block);
}

std::uint32_t rows_owned(const struct pixel_block *block)
{
    if (!block->pixels || block->width == 0 || block->pitch == 0)
        return 0;
    std::uint32_t size = block_size(block);
    return std::min(block->height, size / block->pitch + (size % block->pitch != 0));
}

// The block lies whole inside the area, and what it owns covers all of its rows.
static inline bool fits(const struct paint_area *area, std::int64_t offset, const struct pixel_block *block)
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

// Any block at any pitch. It is rarely called, so it is built for size, and stands apart from the way that is fast.
[[gnu::cold, gnu::noinline]] static void copy_rows_inside(const struct paint_area *area, std::int64_t offset,
                                                          const struct pixel_block *block)
{
    if (area->row_pitch == 0 && !is_out_of_reach(offset)) {
        copy_rows_to_one_place(area, offset, block);
        return;
    }
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
    if (block->width >= LEAST_FAST_WIDTH && fits(area, offset, block))
        copy_rows(area->memory + offset, area->row_pitch, *block);
    else
        copy_rows_inside(area, offset, block);
}
