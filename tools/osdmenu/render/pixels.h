// Colours and the three pixel formats of the view buffer, 16 bits a pixel.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct Colour {
    uint8_t red = 0;
    uint8_t green = 0;
    uint8_t blue = 0;
    uint8_t alpha = 255;

    bool operator==(const Colour &) const = default;
};

// The numbers are the codes that stand in the resource files.
enum class PixelFormat : unsigned int { argb1555 = 0, rgb565 = 1, argb4444 = 2 };

inline constexpr int MAX_PICTURE_SIDE = 8192; // pixels: far above any view, far below what fills the memory

// One block of pixels as the resource files hold it. Sizes as in osdmenu_view_bitmap: `width` and `stride` are bytes.
struct Picture {
    unsigned int height = 0;
    unsigned int width = 0;
    unsigned int stride = 0;
    std::vector<uint16_t> pixels;
};

// #rrggbb or #rrggbbaa
std::optional<Colour> parse_colour(const std::string &text);
std::string colour_text(const Colour &colour);

std::optional<PixelFormat> parse_pixel_format(const std::string &name);
std::string pixel_format_name(PixelFormat format);

// With one alpha bit any alpha but 0 counts as opaque. RGB565 has none, all its pixels are opaque.
uint16_t pack(PixelFormat format, const Colour &colour);
Colour unpack(PixelFormat format, uint16_t pixel);

// The word that fills the background, two pixels wide: as a number in JSON it is signed.
int32_t fill_word(PixelFormat format, const Colour &background);
