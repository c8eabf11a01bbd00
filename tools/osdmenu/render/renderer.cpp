#include "render/renderer.h"

#include <algorithm>
#include <cmath>

#include <pango/pangocairo.h>

#include "common/text.h"

static void set_colour(cairo_t *cairo, const Colour &colour)
{
    cairo_set_source_rgba(cairo, colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0, colour.alpha / 255.0);
}

// A surface filled with the background. Where a pixel has one alpha bit at most, the background is opaque here: all
// edges are blended with it.
struct Renderer::Canvas {
    Canvas(int width, int height, const Colour &background)
        : surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)), cairo(cairo_create(surface))
    {
        set_colour(cairo, background);
        cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
        cairo_paint(cairo);
        cairo_set_operator(cairo, CAIRO_OPERATOR_OVER);
    }
    ~Canvas()
    {
        cairo_destroy(cairo);
        cairo_surface_destroy(surface);
    }
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;

    // 32-bit words in the byte order of the machine, colours multiplied with alpha.
    const uint32_t *row(int y) const
    {
        const unsigned char *data = cairo_image_surface_get_data(surface);
        return reinterpret_cast<const uint32_t *>(data + y * cairo_image_surface_get_stride(surface));
    }

    cairo_surface_t *surface;
    cairo_t *cairo;
};

static Colour colour_of(uint32_t word)
{
    unsigned int alpha = word >> 24;
    auto part = [&](unsigned int shift) {
        unsigned int value = word >> shift & 0xff;
        return static_cast<uint8_t>(alpha ? std::min(255u, (value * 255 + alpha / 2) / alpha) : 0);
    };
    return {part(16), part(8), part(0), static_cast<uint8_t>(alpha)};
}

// ISO 15924, such as Latn. Digits, blanks and marks belong to no script of their own and give an empty one.
static std::string script_of(gunichar character)
{
    GUnicodeScript script = g_unichar_get_script(character);
    if (script == G_UNICODE_SCRIPT_COMMON || script == G_UNICODE_SCRIPT_INHERITED)
        return {};
    guint32 code = g_unicode_script_to_iso15924(script);
    return {static_cast<char>(code >> 24), static_cast<char>(code >> 16), static_cast<char>(code >> 8),
            static_cast<char>(code)};
}

namespace
{

struct Layout {
    Layout(const Fonts &the_fonts, const std::string &words, int the_size, bool is_bold)
        : layout(pango_layout_new(the_fonts.context())), fonts(the_fonts), size(the_size), bold(is_bold)
    {
        PangoFontDescription *font = fonts.description(size, bold);
        pango_layout_set_font_description(layout, font);
        pango_font_description_free(font);
        // A row is one line whatever its text holds.
        pango_layout_set_single_paragraph_mode(layout, true);
        pango_layout_set_text(layout, words.c_str(), static_cast<int>(words.size()));
        PangoAttrList *list = pango_attr_list_new();
        pango_layout_set_attributes(layout, list);
        pango_attr_list_unref(list);
        set_script_fonts(words);
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
    PangoRectangle ink() const
    {
        PangoRectangle result;
        pango_layout_line_get_pixel_extents(line(), &result, nullptr);
        return result;
    }
    PangoRectangle logical() const
    {
        PangoRectangle result;
        pango_layout_line_get_pixel_extents(line(), nullptr, &result);
        return result;
    }

    // What stands in front takes the colour of the pen.
    void colour_from(size_t start, const Colour &colour)
    {
        auto wide = [](uint8_t value) { return static_cast<guint16>(value * 257); };
        insert(pango_attr_foreground_new(wide(colour.red), wide(colour.green), wide(colour.blue)), start,
               PANGO_ATTR_INDEX_TO_TEXT_END);
    }

    PangoLayout *layout;

  private:
    void insert(PangoAttribute *attribute, size_t start, size_t end)
    {
        attribute->start_index = static_cast<guint>(start);
        attribute->end_index = static_cast<guint>(end);
        PangoAttrList *list = pango_attr_list_copy(pango_layout_get_attributes(layout));
        pango_attr_list_insert(list, attribute);
        pango_layout_set_attributes(layout, list);
        pango_attr_list_unref(list);
    }

    // A run goes on over characters without a script of their own.
    void set_script_fonts(const std::string &words)
    {
        size_t start = 0;
        std::string script;
        for (const char *at = words.c_str(); *at; at = g_utf8_next_char(at)) {
            std::string next = script_of(g_utf8_get_char(at));
            size_t offset = static_cast<size_t>(at - words.c_str());
            if (next.empty() || next == script)
                continue;
            if (!script.empty()) {
                set_script_font(script, start, offset);
                start = offset;
            }
            script = next;
        }
        set_script_font(script, start, words.size());
    }

    void set_script_font(const std::string &script, size_t start, size_t end)
    {
        if (PangoFontDescription *font = fonts.description_for(script, size, bold)) {
            insert(pango_attr_font_desc_new(font), start, end);
            pango_font_description_free(font);
        }
    }

    const Fonts &fonts;
    int size;
    bool bold;
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

// What a canvas is filled with.
Colour Renderer::canvas_background() const
{
    bool has_real_alpha = menu.display.pixel_format == PixelFormat::argb4444;
    return {background.red, background.green, background.blue, has_real_alpha ? background.alpha : uint8_t{255}};
}

// Pixels of the plain background take the background's own alpha bit, all others are opaque.
Picture Renderer::picture_of(const Canvas &canvas) const
{
    cairo_surface_flush(canvas.surface);
    int width = cairo_image_surface_get_width(canvas.surface), height = cairo_image_surface_get_height(canvas.surface);
    Picture picture;
    picture.height = static_cast<unsigned int>(height);
    picture.width = picture.stride = static_cast<unsigned int>(width) * 2;
    picture.pixels.reserve(static_cast<size_t>(width) * static_cast<size_t>(height));
    const PixelFormat format = menu.display.pixel_format;
    const Colour filled = canvas_background();
    // Neighbours are mostly alike: a colour is worked out where it changes.
    uint32_t last = ~canvas.row(0)[0];
    uint16_t packed = 0;
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            uint32_t word = canvas.row(y)[x];
            if (word != last) {
                Colour colour = colour_of(word);
                packed = pack(format, colour == filled ? background : colour);
                if (unpack(format, packed).alpha == 0) // rounded away
                    packed = pack(format, background);
                last = word;
            }
            picture.pixels.push_back(packed);
        }
    return picture;
}

// The outline lies below all letters, so that it never covers a neighbour.
void Renderer::paint(const Canvas &canvas, PangoLayoutLine *line, double x, double y, const Colour &colour) const
{
    cairo_move_to(canvas.cairo, x, y);
    if (menu.display.outline > 0) {
        pango_cairo_layout_line_path(canvas.cairo, line);
        set_colour(canvas.cairo, menu.colours.outline);
        cairo_set_line_width(canvas.cairo, menu.display.outline * 2);
        cairo_set_line_join(canvas.cairo, CAIRO_LINE_JOIN_ROUND);
        cairo_stroke(canvas.cairo);
        cairo_move_to(canvas.cairo, x, y);
    }
    set_colour(canvas.cairo, colour);
    pango_cairo_show_layout_line(canvas.cairo, line);
}

static std::vector<std::string> missing_characters(const Fonts &fonts, const Layout &laid, const std::string &words)
{
    std::vector<std::string> missing;
    if (pango_layout_get_unknown_glyphs_count(laid.layout) == 0)
        return missing;
    for (const char *at = words.c_str(); *at; at = g_utf8_next_char(at)) {
        std::string character(at, static_cast<size_t>(g_utf8_next_char(at) - at));
        Layout layout(fonts, character, 10, false);
        if (pango_layout_get_unknown_glyphs_count(layout.layout) > 0)
            missing.push_back(character);
    }
    return missing;
}

// The picture is as wide as the ink: slanted and swashed letters reach beyond their advance, others stay within it.
Rendered Renderer::text(const std::string &words, const Style &style) const
{
    const int base = baseline(style.percent), outline = menu.display.outline;
    Layout layout(fonts, words + style.suffix, geometry.text_size * style.percent / 100, style.bold);
    layout.colour_from(words.size(), menu.colours.disabled);
    const PangoRectangle ink = layout.ink();
    const int ink_width = std::max(1, ink.width + 2 * outline);
    const int wanted = style.width ? std::max(style.width, style.indent + 1) : style.indent + ink_width;
    const int width = std::min(wanted, MAX_PICTURE_SIDE);
    Canvas canvas(width, geometry.line_height, canvas_background());
    cairo_translate(canvas.cairo, style.indent, 0);
    cairo_scale(canvas.cairo, static_cast<double>(wanted - style.indent) / ink_width, 1);
    paint(canvas, layout.line(), outline - ink.x, base, style.colour);
    Rendered rendered{picture_of(canvas), missing_characters(fonts, layout, words + style.suffix)};
    rendered.is_beyond = wanted > width;
    rendered.is_cut = base + ink.y - outline < 0 || base + ink.y + ink.height + outline > geometry.line_height;
    return rendered;
}

// As wide as its advance, so that digits stand as in a text; the stride keeps rows on 4-byte bounds.
Rendered Renderer::glyph(char character) const
{
    std::string words(1, character);
    Layout layout(fonts, words, geometry.text_size, false);
    int width = std::max(1, layout.logical().width);
    Canvas canvas(width + width % 2, geometry.line_height, canvas_background());
    paint(canvas, layout.line(), 0, baseline(), menu.colours.value);
    Picture picture = picture_of(canvas);
    picture.width = static_cast<unsigned int>(width) * 2;
    return {picture, missing_characters(fonts, layout, words)};
}

// From pointing right, clockwise.
static int quarter_turns(int symbol)
{
    switch (symbol) {
    case SYMBOL_DOWN:
        return 1;
    case SYMBOL_LEFT:
        return 2;
    case SYMBOL_UP:
        return 3;
    default:
        return 0;
    }
}

// Two of them stand side by side in help lines, three quarters of a line apart.
Picture Renderer::triangle(int symbol) const
{
    double height = geometry.line_height, width = std::floor(height * 7 / 12), side = height * 0.42;
    Canvas canvas(static_cast<int>(width), geometry.line_height, canvas_background());
    cairo_translate(canvas.cairo, width / 2, height / 2);
    cairo_rotate(canvas.cairo, quarter_turns(symbol) * std::acos(0.0));
    cairo_move_to(canvas.cairo, side * 0.43, 0);
    cairo_line_to(canvas.cairo, -side * 0.43, -side / 2);
    cairo_line_to(canvas.cairo, -side * 0.43, side / 2);
    cairo_close_path(canvas.cairo);
    if (menu.display.outline > 0) {
        set_colour(canvas.cairo, menu.colours.outline);
        cairo_set_line_width(canvas.cairo, menu.display.outline * 2);
        cairo_set_line_join(canvas.cairo, CAIRO_LINE_JOIN_ROUND);
        cairo_stroke_preserve(canvas.cairo);
    }
    set_colour(canvas.cairo, menu.colours.pointer);
    cairo_fill(canvas.cairo);
    return picture_of(canvas);
}
