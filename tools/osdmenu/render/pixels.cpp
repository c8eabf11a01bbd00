#include "render/pixels.h"

#include <cctype>
#include <cstdio>

// The nearest of the values that `bits` bits can hold.
static unsigned int narrowed(uint8_t value, unsigned int bits)
{
    unsigned int top = (1u << bits) - 1;
    return (value * top + 127) / 255;
}

// The full range again, so that white stays white.
static uint8_t widened(unsigned int value, unsigned int bits)
{
    unsigned int top = (1u << bits) - 1;
    return static_cast<uint8_t>(((value & top) * 255 + top / 2) / top);
}

std::optional<Colour> parse_colour(const std::string &text)
{
    if ((text.size() != 7 && text.size() != 9) || text[0] != '#')
        return std::nullopt;
    for (char c : text.substr(1))
        if (!std::isxdigit(static_cast<unsigned char>(c)))
            return std::nullopt;
    auto part = [&](size_t at) { return static_cast<uint8_t>(std::stoul(text.substr(at, 2), nullptr, 16)); };
    return Colour{part(1), part(3), part(5), text.size() == 9 ? part(7) : uint8_t{255}};
}

std::string colour_text(const Colour &colour)
{
    char text[16];
    std::snprintf(text, sizeof text, "#%02x%02x%02x%02x", colour.red, colour.green, colour.blue, colour.alpha);
    return std::string(text, colour.alpha == 255 ? 7 : 9);
}

std::optional<PixelFormat> parse_pixel_format(const std::string &name)
{
    if (name == "ARGB1555")
        return PixelFormat::argb1555;
    if (name == "RGB565")
        return PixelFormat::rgb565;
    return std::nullopt;
}

std::string pixel_format_name(PixelFormat format)
{
    return format == PixelFormat::argb1555 ? "ARGB1555" : "RGB565";
}

uint16_t pack(PixelFormat format, const Colour &colour)
{
    unsigned int blue = narrowed(colour.blue, 5);
    if (format == PixelFormat::rgb565)
        return static_cast<uint16_t>(narrowed(colour.red, 5) << 11 | narrowed(colour.green, 6) << 5 | blue);
    unsigned int alpha = colour.alpha ? 0x8000 : 0;
    return static_cast<uint16_t>(alpha | narrowed(colour.red, 5) << 10 | narrowed(colour.green, 5) << 5 | blue);
}

Colour unpack(PixelFormat format, uint16_t pixel)
{
    if (format == PixelFormat::rgb565)
        return {widened(pixel >> 11u, 5), widened(pixel >> 5u, 6), widened(pixel, 5), 255};
    uint8_t alpha = pixel & 0x8000 ? 255 : 0;
    return {widened(pixel >> 10u, 5), widened(pixel >> 5u, 5), widened(pixel, 5), alpha};
}

int32_t fill_word(PixelFormat format, const Colour &background)
{
    uint32_t pixel = pack(format, background);
    return static_cast<int32_t>(pixel << 16 | pixel);
}
