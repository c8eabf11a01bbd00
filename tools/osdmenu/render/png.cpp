#include "render/png.h"

#include <cstring>

#include <cairo.h>

#include "common/text.h"
#include "store/output.h"

// The usual sign for nothing.
static Colour checkerboard(int x, int y)
{
    static constexpr int SQUARE = 16; // pixels
    uint8_t grey = (x / SQUARE + y / SQUARE) % 2 ? 0xcc : 0xee;
    return {grey, grey, grey, 255};
}

static uint32_t rgb(const Colour &colour)
{
    return uint32_t{colour.red} << 16 | uint32_t{colour.green} << 8 | colour.blue;
}

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

static Colour blended(const Colour &colour, const Colour &ground)
{
    auto mixed = [&](uint8_t over, uint8_t under) {
        return static_cast<uint8_t>((over * colour.alpha + under * (255 - colour.alpha) + 127) / 255);
    };
    return {mixed(colour.red, ground.red), mixed(colour.green, ground.green), mixed(colour.blue, ground.blue)};
}

static void paint_row(uint32_t *row, int y, const PixelView &view, const std::optional<Colour> &background)
{
    const std::vector<Colour> &colours = palette(view.format);
    const char *pixels = view.first + static_cast<ptrdiff_t>(y) * view.pitch * 2;
    for (int x = 0; x < view.width; x++) {
        uint16_t pixel;
        std::memcpy(&pixel, pixels + x * 2, sizeof pixel);
        row[x] = rgb(blended(colours[pixel], background ? *background : checkerboard(x, y)));
    }
}

static cairo_status_t append(void *closure, const unsigned char *data, unsigned int length)
{
    static_cast<std::string *>(closure)->append(reinterpret_cast<const char *>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

void write_png(const std::string &path, const PixelView &view, const std::optional<Colour> &background)
{
    cairo_surface_t *surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, view.width, view.height);
    unsigned char *data = cairo_image_surface_get_data(surface);
    if (!data)
        throw Failure(path + ": a picture of that size cannot be made");
    for (int y = 0; y < view.height; y++)
        paint_row(reinterpret_cast<uint32_t *>(data + y * cairo_image_surface_get_stride(surface)), y, view,
                  background);
    cairo_surface_mark_dirty(surface);
    std::string png;
    cairo_status_t status = cairo_surface_write_to_png_stream(surface, append, &png);
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS)
        throw Failure(path + ": " + cairo_status_to_string(status));
    replace_file(path, png);
}
