// Pixels of the device as a PNG file.
#pragma once

#include <optional>
#include <string>

#include "render/pixels.h"

struct PixelView {
    const char *first; // pixel
    int width;
    int height;
    int pitch; // pixels from one row to the next
    PixelFormat format;
};

// Pixels show the background as far as they are transparent, or a checkerboard without one.
void write_png(const std::string &path, const PixelView &view, const std::optional<Colour> &background);
