// What a page is shown over, and pictures in another size.
#pragma once

#include <string>

#include "render/image.h"

// Pixels show the picture, which is as large as the view, else the colour, else a checkerboard.
struct Backdrop {
    std::optional<Colour> colour;
    Image picture;
};

// From a colour (#rrggbb), a PNG file, which is scaled to cover the view, or nothing.
Backdrop read_backdrop(const std::string &text, int width, int height);
void lay_over(Image &image, const Backdrop &backdrop);

// One picture in the middle of another, which shows where the first is transparent.
void put_in_middle(Image &image, const Image &above);

// Of opaque pixels: each takes the mean of those that it stands for, or the nearest one.
Image scaled(const Image &image, int width, int height);
