#include "gallery/pictures.h"

#include <algorithm>
#include <cstring>

static constexpr Colour MARK{255, 0, 200, 255};

PixelView part_of(const PixelView &view, const Area &area)
{
    const char *first = view.first + (static_cast<ptrdiff_t>(area.y) * view.pitch + area.x) * 2;
    return {first, area.width, area.height, view.pitch, view.format};
}

// The columns in which two rows differ, as an area of one row; without width where they don't.
static Area row_difference(const PixelView &first, const PixelView &second, int y)
{
    const char *a = part_of(first, {0, y}).first, *b = part_of(second, {0, y}).first;
    auto is_same = [&](int x, int count) {
        return std::memcmp(a + x * 2, b + x * 2, static_cast<size_t>(count) * 2) == 0;
    };
    if (is_same(0, first.width))
        return {};
    int left = 0, right = first.width - 1;
    while (is_same(left, 1))
        left++;
    while (is_same(right, 1))
        right--;
    return {left, y, right - left + 1, 1};
}

static Area around(const Area &a, const Area &b)
{
    int x = std::min(a.x, b.x), y = std::min(a.y, b.y);
    return {x, y, std::max(a.x + a.width, b.x + b.width) - x, std::max(a.y + a.height, b.y + b.height) - y};
}

std::vector<Area> differences(const PixelView &first, const PixelView &second)
{
    static constexpr int GAP = 8; // equal rows within a band: two pictures cost more than these
    std::vector<Area> bands;
    for (int y = 0; y < first.height; y++) {
        Area row = row_difference(first, second, y);
        if (row.width == 0)
            continue;
        if (bands.empty() || y > bands.back().y + bands.back().height + GAP)
            bands.push_back(row);
        else
            bands.back() = around(bands.back(), row);
    }
    return bands;
}

void outline(Image &image, const Area &area)
{
    static constexpr int THICKNESS = 4;
    auto is_edge = [](int at, int start, int length) {
        return at < start + THICKNESS || at >= start + length - THICKNESS;
    };
    for (int y = std::max(0, area.y); y < std::min(image.height, area.y + area.height); y++)
        for (int x = std::max(0, area.x); x < std::min(image.width, area.x + area.width); x++)
            if (is_edge(x, area.x, area.width) || is_edge(y, area.y, area.height))
                image.row(y)[x] = MARK;
}

Image marked(const Image &before, const Image &now)
{
    static constexpr Colour PALE{255, 255, 255, 176};
    Image result = now;
    lay_over(result, std::nullopt);
    for (int y = 0; y < now.height; y++)
        for (int x = 0; x < now.width; x++) {
            bool is_same = x < before.width && y < before.height && before.row(y)[x] == now.row(y)[x];
            result.row(y)[x] = is_same ? blended(PALE, result.row(y)[x]) : MARK;
        }
    return result;
}
