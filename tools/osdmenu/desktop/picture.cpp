#include "desktop/picture.h"

#include <algorithm>

#include "render/png.h"

// The part in the middle that has the shape of the view, so that nothing is left uncovered.
static Image cropped(const Image &image, int width, int height)
{
    double scale = std::min(static_cast<double>(image.width) / width, static_cast<double>(image.height) / height);
    Image part{std::max(1, static_cast<int>(width * scale)), std::max(1, static_cast<int>(height * scale)), {}};
    int left = (image.width - part.width) / 2, top = (image.height - part.height) / 2;
    for (int y = 0; y < part.height; y++)
        part.pixels.insert(part.pixels.end(), image.row(top + y) + left, image.row(top + y) + left + part.width);
    return part;
}

Backdrop read_backdrop(const std::string &text, int width, int height)
{
    if (text.empty() || parse_colour(text))
        return {parse_colour(text), {}};
    Image picture = read_png(text);
    lay_over(picture, std::optional<Colour>());
    return {std::nullopt, scaled(cropped(picture, width, height), width, height)};
}

void lay_over(Image &image, const Backdrop &backdrop)
{
    if (backdrop.picture.pixels.empty())
        return lay_over(image, backdrop.colour);
    for (size_t i = 0; i < image.pixels.size(); i++)
        image.pixels[i] = blended(image.pixels[i], backdrop.picture.pixels[i]);
}

void put_in_middle(Image &image, const Image &above)
{
    int left = (image.width - above.width) / 2, top = (image.height - above.height) / 2;
    for (int y = std::max(0, -top); y < std::min(above.height, image.height - top); y++)
        for (int x = std::max(0, -left); x < std::min(above.width, image.width - left); x++)
            if (const Colour &colour = above.row(y)[x]; colour.alpha != 0)
                image.row(top + y)[left + x] = blended(colour, image.row(top + y)[left + x]);
}

static Colour mean(const Image &image, int left, int top, int right, int bottom)
{
    size_t red = 0, green = 0, blue = 0, count = 0;
    for (int y = top; y < std::max(bottom, top + 1); y++)
        for (int x = left; x < std::max(right, left + 1); x++, count++) {
            const Colour &colour = image.row(y)[x];
            red += colour.red, green += colour.green, blue += colour.blue;
        }
    return {static_cast<uint8_t>(red / count), static_cast<uint8_t>(green / count), static_cast<uint8_t>(blue / count)};
}

Image scaled(const Image &image, int width, int height)
{
    if (width == image.width && height == image.height)
        return image;
    auto column = [&](int x) { return static_cast<int>(static_cast<long>(x) * image.width / width); };
    auto row = [&](int y) { return static_cast<int>(static_cast<long>(y) * image.height / height); };
    Image result{width, height, {}};
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            result.pixels.push_back(mean(image, column(x), row(y), column(x + 1), row(y + 1)));
    return result;
}
