#include "render/png.h"

#include <cstring>
#include <map>

#include <png.h>

#include "common/text.h"

static_assert(sizeof(Colour) == 4, "a colour is a pixel of PNG_FORMAT_RGBA");

static constexpr size_t PALETTE_SIZE = 256;

// The picture as indexes, or nothing when it has too many colours.
static std::vector<uint8_t> indexed(const Image &image, std::vector<Colour> &palette)
{
    std::map<uint32_t, uint8_t> index_of;
    std::vector<uint8_t> indexes;
    indexes.reserve(image.pixels.size());
    uint32_t last = 0;
    for (const Colour &colour : image.pixels) {
        uint32_t key;
        std::memcpy(&key, &colour, sizeof key);
        // Most pixels repeat the one before.
        if (!indexes.empty() && key == last) {
            indexes.push_back(indexes.back());
            continue;
        }
        last = key;
        auto [found, is_new] = index_of.try_emplace(key, static_cast<uint8_t>(palette.size()));
        if (is_new && palette.size() == PALETTE_SIZE)
            return {};
        if (is_new)
            palette.push_back(colour);
        indexes.push_back(found->second);
    }
    return indexes;
}

std::string png_of(const Image &image)
{
    std::vector<Colour> palette;
    std::vector<uint8_t> indexes = indexed(image, palette);
    png_image head{};
    head.version = PNG_IMAGE_VERSION;
    head.width = static_cast<png_uint_32>(image.width);
    head.height = static_cast<png_uint_32>(image.height);
    head.format = indexes.empty() ? PNG_FORMAT_RGBA : PNG_FORMAT_RGBA_COLORMAP;
    head.colormap_entries = static_cast<png_uint_32>(palette.size());
    const void *pixels = image.pixels.data();
    if (!indexes.empty())
        pixels = indexes.data();
    // Room for what a compressor may add to bytes that it can't compress, and for the palette.
    std::string png(image.pixels.size() * sizeof(Colour) * 2 + 4096, '\0');
    png_alloc_size_t size = png.size();
    if (!png_image_write_to_memory(&head, png.data(), &size, 0, pixels, 0, palette.data()))
        throw Failure(std::string("a picture cannot be made: ") + head.message);
    png.resize(size);
    return png;
}

Image image_of_png(const std::string &png, const std::string &path)
{
    png_image head{};
    head.version = PNG_IMAGE_VERSION;
    if (png.empty())
        throw Failure(path + ": is empty");
    if (!png_image_begin_read_from_memory(&head, png.data(), png.size()))
        throw Failure(path + ": " + head.message);
    if (head.width > MAX_PICTURE_SIDE || head.height > MAX_PICTURE_SIDE) {
        png_image_free(&head);
        throw Failure(path + ": the picture is too large");
    }
    head.format = PNG_FORMAT_RGBA;
    Image image{static_cast<int>(head.width), static_cast<int>(head.height), {}};
    image.pixels.resize(size_t{head.width} * head.height);
    if (!png_image_finish_read(&head, nullptr, image.pixels.data(), 0, nullptr))
        throw Failure(path + ": " + head.message);
    return image;
}

Image read_png(const std::string &path)
{
    std::optional<std::string> png = read_file(path);
    if (!png)
        throw Failure(path + ": cannot be read");
    return image_of_png(*png, path);
}

std::string png_of(const PixelView &view, const std::optional<Colour> &background)
{
    Image image = image_of(view);
    lay_over(image, background);
    return png_of(image);
}
