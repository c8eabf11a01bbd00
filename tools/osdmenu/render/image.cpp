#include "render/image.h"

#include <cstring>

static std::vector<Colour> palette_of(PixelFormat format)
{
    std::vector<Colour> colours;
    for (unsigned int pixel = 0; pixel < 0x10000; pixel++)
        colours.push_back(unpack(format, static_cast<uint16_t>(pixel)));
    return colours;
}

// What each pixel value looks like. Made once: a view has millions of pixels, an export thousands of pictures.
static const std::vector<Colour> &palette(PixelFormat format)
{
    static const std::vector<Colour> palettes[] = {palette_of(PixelFormat::argb1555), palette_of(PixelFormat::rgb565),
                                                   palette_of(PixelFormat::argb4444)};
    return palettes[static_cast<unsigned int>(format)];
}

Image image_of(const PixelView &view)
{
    Image image{view.width, view.height, {}};
    image.pixels.resize(static_cast<size_t>(view.width) * static_cast<size_t>(view.height));
    const std::vector<Colour> &colours = palette(view.format);
    for (int y = 0; y < view.height; y++) {
        const char *pixels = view.first + static_cast<ptrdiff_t>(y) * view.pitch * 2;
        Colour *row = image.row(y);
        for (int x = 0; x < view.width; x++) {
            uint16_t pixel;
            std::memcpy(&pixel, pixels + x * 2, sizeof pixel);
            row[x] = colours[pixel];
        }
    }
    return image;
}

// The usual sign for nothing.
static Colour checkerboard(int x, int y)
{
    static constexpr int SQUARE = 16; // pixels
    uint8_t grey = (x / SQUARE + y / SQUARE) % 2 ? 0xcc : 0xee;
    return {grey, grey, grey, 255};
}

Colour blended(const Colour &colour, const Colour &ground)
{
    auto mixed = [&](uint8_t over, uint8_t under) {
        return static_cast<uint8_t>((over * colour.alpha + under * (255 - colour.alpha) + 127) / 255);
    };
    return {mixed(colour.red, ground.red), mixed(colour.green, ground.green), mixed(colour.blue, ground.blue)};
}

void lay_over(Image &image, const std::optional<Colour> &background)
{
    for (int y = 0; y < image.height; y++) {
        Colour *row = image.row(y);
        for (int x = 0; x < image.width; x++)
            if (row[x].alpha != 255)
                row[x] = blended(row[x], background ? *background : checkerboard(x, y));
    }
}
