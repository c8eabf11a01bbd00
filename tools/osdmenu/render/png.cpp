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

// What each pixel value looks like; the transparent ones, which depend on the place, come out as alpha 0.
static std::vector<Colour> palette(PixelFormat format)
{
    std::vector<Colour> colours;
    for (unsigned int pixel = 0; pixel < 0x10000; pixel++)
        colours.push_back(unpack(format, static_cast<uint16_t>(pixel)));
    return colours;
}

static void paint_row(uint32_t *row, int y, const PixelView &view, const std::vector<Colour> &colours,
                      const std::optional<Colour> &background)
{
    const char *pixels = view.first + static_cast<ptrdiff_t>(y) * view.pitch * 2;
    for (int x = 0; x < view.width; x++) {
        uint16_t pixel;
        std::memcpy(&pixel, pixels + x * 2, sizeof pixel);
        const Colour &colour = colours[pixel];
        row[x] = rgb(colour.alpha ? colour : background ? *background : checkerboard(x, y));
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
    // A view has millions of pixels but few colours.
    std::vector<Colour> colours = palette(view.format);
    for (int y = 0; y < view.height; y++)
        paint_row(reinterpret_cast<uint32_t *>(data + y * cairo_image_surface_get_stride(surface)), y, view, colours,
                  background);
    cairo_surface_mark_dirty(surface);
    std::string png;
    cairo_status_t status = cairo_surface_write_to_png_stream(surface, append, &png);
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS)
        throw Failure(path + ": " + cairo_status_to_string(status));
    replace_file(path, png);
}
