// Pictures of a gallery: each kept once, and how one differs from another.
#pragma once

#include <map>

#include "gallery/workers.h"
#include "render/image.h"

struct PictureList {
    Parts png_files;
    std::map<std::string, size_t> number_of;

    size_t add(const std::string &png)
    {
        auto [found, is_new] = number_of.try_emplace(png, png_files.size());
        if (is_new)
            png_files.push_back(png);
        return found->second;
    }
};

struct Area {
    int x = 0, y = 0, width = 0, height = 0;
};

PixelView part_of(const PixelView &view, const Area &area);

// Bands of rows, each as wide as its differences: laid over the first view they give the second, which is as large.
std::vector<Area> differences(const PixelView &first, const PixelView &second);

// A frame around it, as far as the picture reaches.
void outline(Image &image, const Area &area);

// The present picture, pale where the earlier one was the same and marked where it was not.
Image marked(const Image &before, const Image &now);
