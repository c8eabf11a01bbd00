#include "render/renderer.h"

#include <algorithm>
#include <cmath>

#include <pango/pangocairo.h>

#include "common/text.h"
#include "resources/glyph_banks.h"

static void set_colour(cairo_t *cairo, const Colour &colour)
{
    cairo_set_source_rgb(cairo, colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0);
}

// A surface filled with the background: all edges are blended with it, since a pixel has one alpha bit at most.
struct Renderer::Canvas {
    Canvas(int width, int height, const Colour &background)
        : surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)), cairo(cairo_create(surface))
    {
        set_colour(cairo, background);
        cairo_paint(cairo);
    }
    ~Canvas()
    {
        cairo_destroy(cairo);
        cairo_surface_destroy(surface);
    }
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;

    // Cairo keeps 32-bit words in the byte order of the machine.
    Colour at(int x, int y) const
    {
        const unsigned char *row = cairo_image_surface_get_data(surface) + y * cairo_image_surface_get_stride(surface);
        const uint32_t pixel = reinterpret_cast<const uint32_t *>(row)[x];
        return {static_cast<uint8_t>(pixel >> 16), static_cast<uint8_t>(pixel >> 8), static_cast<uint8_t>(pixel), 255};
    }

    cairo_surface_t *surface;
    cairo_t *cairo;
};

namespace
{

struct Layout {
    Layout(const Fonts &fonts, const std::string &words, int size, bool bold)
        : layout(pango_layout_new(fonts.context()))
    {
        PangoFontDescription *font = fonts.description(size, bold);
        pango_layout_set_font_description(layout, font);
        pango_font_description_free(font);
        // A row is one line whatever its text holds.
        pango_layout_set_single_paragraph_mode(layout, true);
        pango_layout_set_text(layout, words.c_str(), static_cast<int>(words.size()));
        pango_layout_line_get_pixel_extents(line(), &ink, &logical);
    }
    ~Layout()
    {
        g_object_unref(layout);
    }
    Layout(const Layout &) = delete;
    Layout &operator=(const Layout &) = delete;

    PangoLayoutLine *line() const
    {
        return pango_layout_get_line_readonly(layout, 0);
    }

    // What stands in front takes the colour of the pen.
    void colour_from(size_t start, const Colour &colour)
    {
        auto wide = [](uint8_t value) { return static_cast<guint16>(value * 257); };
        PangoAttribute *attribute = pango_attr_foreground_new(wide(colour.red), wide(colour.green), wide(colour.blue));
        attribute->start_index = static_cast<guint>(start);
        PangoAttrList *list = pango_attr_list_new();
        pango_attr_list_insert(list, attribute);
        pango_layout_set_attributes(layout, list);
        pango_attr_list_unref(list);
    }

    PangoLayout *layout;
    PangoRectangle ink;
    PangoRectangle logical;
};

} // namespace

Renderer::Renderer(const Menu &the_menu, const Geometry &the_geometry, const Fonts &the_fonts,
                   const std::string &language)
    : menu(the_menu), geometry(the_geometry), fonts(the_fonts),
      background(
          unpack(the_menu.display.pixel_format, pack(the_menu.display.pixel_format, the_menu.colours.background)))
{
    PangoLanguage *pango_language = pango_language_from_string(language.c_str());
    pango_context_set_language(fonts.context(), pango_language);
    PangoFontDescription *font = fonts.description(geometry.text_size, false);
    PangoFontMetrics *metrics = pango_context_get_metrics(fonts.context(), font, pango_language);
    ascent = pango_units_to_double(pango_font_metrics_get_ascent(metrics));
    descent = pango_units_to_double(pango_font_metrics_get_descent(metrics));
    pango_font_metrics_unref(metrics);
    pango_font_description_free(font);
}

// The first font's, for every picture of one size: rows, values and glyphs then stand on one line.
int Renderer::baseline(int percent) const
{
    double above = ascent * percent / 100, below = descent * percent / 100;
    return static_cast<int>(std::lround((geometry.line_height - above - below) / 2 + above));
}

// Pixels of the plain background take the background's own alpha bit, all others are opaque.
Picture Renderer::picture_of(const Canvas &canvas) const
{
    cairo_surface_flush(canvas.surface);
    int width = cairo_image_surface_get_width(canvas.surface), height = cairo_image_surface_get_height(canvas.surface);
    Picture picture;
    picture.height = static_cast<unsigned int>(height);
    picture.width = picture.stride = static_cast<unsigned int>(width) * 2;
    Colour opaque_background = background;
    opaque_background.alpha = 255;
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            Colour colour = canvas.at(x, y);
            picture.pixels.push_back(
                pack(menu.display.pixel_format, colour == opaque_background ? background : colour));
        }
    return picture;
}

Picture Renderer::text(const std::string &words, const Style &style, const Place &place, Findings &findings) const
{
    int base = baseline(style.percent);
    Layout layout(fonts, words + style.suffix, geometry.text_size * style.percent / 100, style.bold);
    layout.colour_from(words.size(), menu.colours.muted);
    if (pango_layout_get_unknown_glyphs_count(layout.layout) > 0)
        findings.error(place, "the fonts lack a character of " + in_quotes(words), "add a font that has it to 'fonts'");
    if (base + layout.ink.y < 0 || base + layout.ink.y + layout.ink.height > geometry.line_height)
        findings.warning(place, in_quotes(words) + " stands above or below its line and is cut");
    // Slanted and swashed letters reach beyond their advance: the picture is widened to hold their ink.
    int start = style.indent + std::max(0, -layout.ink.x);
    int width = start + std::max({1, layout.logical.width, layout.ink.x + layout.ink.width});
    Canvas canvas(width, geometry.line_height, background);
    set_colour(canvas.cairo, style.colour);
    cairo_move_to(canvas.cairo, start, base);
    pango_cairo_show_layout_line(canvas.cairo, layout.line());
    return picture_of(canvas);
}

// As wide as its advance, so that digits stand as in a text; the stride keeps rows on 4-byte bounds.
Picture Renderer::glyph(char character) const
{
    Layout layout(fonts, std::string(1, character), geometry.text_size, false);
    int width = std::max(1, layout.logical.width);
    Canvas canvas(width + width % 2, geometry.line_height, background);
    set_colour(canvas.cairo, menu.colours.value);
    cairo_move_to(canvas.cairo, 0, baseline());
    pango_cairo_show_layout_line(canvas.cairo, layout.line());
    Picture picture = picture_of(canvas);
    picture.width = static_cast<unsigned int>(width) * 2;
    return picture;
}

// A triangle. Two of them stand side by side in help lines, three quarters of a line apart.
Picture Renderer::symbol(int index) const
{
    double height = geometry.line_height, width = std::floor(height * 7 / 12), side = height * 0.42;
    Canvas canvas(static_cast<int>(width), geometry.line_height, background);
    static constexpr double quarter_turns[] = {3, 0, 1, 2}; // from pointing right, clockwise: up, right, down, left
    cairo_translate(canvas.cairo, width / 2, height / 2);
    cairo_rotate(canvas.cairo, quarter_turns[index] * std::acos(0.0));
    cairo_move_to(canvas.cairo, side * 0.43, 0);
    cairo_line_to(canvas.cairo, -side * 0.43, -side / 2);
    cairo_line_to(canvas.cairo, -side * 0.43, side / 2);
    cairo_close_path(canvas.cairo);
    set_colour(canvas.cairo, menu.colours.pointer);
    cairo_fill(canvas.cairo);
    return picture_of(canvas);
}
