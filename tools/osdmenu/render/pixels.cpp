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

static constexpr std::pair<const char *, PixelFormat> formats[] = {
    {"ARGB1555", PixelFormat::argb1555},
    {"ARGB4444", PixelFormat::argb4444},
    {"RGB565", PixelFormat::rgb565},
};

std::optional<PixelFormat> parse_pixel_format(const std::string &name)
{
    for (const auto &[known, format] : formats)
        if (name == known)
            return format;
    return std::nullopt;
}

std::string pixel_format_name(PixelFormat format)
{
    for (const auto &[name, known] : formats)
        if (format == known)
            return name;
    return {};
}

uint16_t pack(PixelFormat format, const Colour &colour)
{
    auto part = [](uint8_t value, unsigned int bits, int shift) { return narrowed(value, bits) << shift; };
    switch (format) {
    case PixelFormat::rgb565:
        return static_cast<uint16_t>(part(colour.red, 5, 11) | part(colour.green, 6, 5) | part(colour.blue, 5, 0));
    case PixelFormat::argb4444:
        return static_cast<uint16_t>(part(colour.alpha, 4, 12) | part(colour.red, 4, 8) | part(colour.green, 4, 4) |
                                     part(colour.blue, 4, 0));
    case PixelFormat::argb1555:
        break;
    }
    unsigned int alpha = colour.alpha ? 0x8000 : 0;
    return static_cast<uint16_t>(alpha | part(colour.red, 5, 10) | part(colour.green, 5, 5) | part(colour.blue, 5, 0));
}

Colour unpack(PixelFormat format, uint16_t pixel)
{
    auto part = [pixel](unsigned int bits, int shift) {
        return widened(static_cast<unsigned int>(pixel) >> shift, bits);
    };
    switch (format) {
    case PixelFormat::rgb565:
        return {part(5, 11), part(6, 5), part(5, 0), 255};
    case PixelFormat::argb4444:
        return {part(4, 8), part(4, 4), part(4, 0), part(4, 12)};
    case PixelFormat::argb1555:
        break;
    }
    uint8_t alpha = pixel & 0x8000 ? 255 : 0;
    return {part(5, 10), part(5, 5), part(5, 0), alpha};
}

int32_t fill_word(PixelFormat format, const Colour &background)
{
    uint32_t pixel = pack(format, background);
    return static_cast<int32_t>(pixel << 16 | pixel);
}
