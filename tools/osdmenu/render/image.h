// Pictures as a desktop shows them: four bytes a pixel, rows from the top without gaps.
#pragma once

#include <optional>
#include <vector>

#include "render/pixels.h"

struct PixelView {
    const char *first; // pixel
    int width;
    int height;
    int pitch; // pixels from one row to the next
    PixelFormat format;
};

struct Image {
    int width = 0;
    int height = 0;
    std::vector<Colour> pixels;

    Colour *row(int y)
    {
        return pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(width);
    }
    const Colour *row(int y) const
    {
        return pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(width);
    }
};

// A view's pixels as they are, with their transparency.
Image image_of(const PixelView &view);

// Opaque: pixels show the background as far as they are transparent, or a checkerboard without one.
void lay_over(Image &image, const std::optional<Colour> &background);

// One colour seen through another.
Colour blended(const Colour &colour, const Colour &ground);
