// Pictures as PNG files.
#pragma once

#include <optional>
#include <string>

#include "render/image.h"

// The bytes of a PNG file: with a palette where the picture has at most 256 colours, which most pages do.
std::string png_of(const Image &image);

// Pixels show the background as far as they are transparent, or a checkerboard without one.
std::string png_of(const PixelView &view, const std::optional<Colour> &background);

// A failure names the file that the bytes are from.
Image image_of_png(const std::string &png, const std::string &path = "a picture");
Image read_png(const std::string &path);
