// Texts, glyphs and symbols as pictures, one text line high, in the device's pixels.
#pragma once

#include "menu/geometry.h"
#include "menu/menu_model.h"
#include "render/fonts.h"

struct Style {
    Colour colour;
    bool bold = false;
    int indent = 0;          // blank pixels in front
    int percent = 100;       // of the usual text size
    std::string suffix = {}; // after the text, in the colour of disabled rows
    int width = 0;           // pixels that the picture must fill, by stretching; 0 as wide as the ink
};

struct Rendered {
    Picture picture;
    std::vector<std::string> missing = {}; // characters that no font has
    bool is_cut = false;                   // ink above or below the line
    bool is_beyond = false;                // cut at the width that no picture may pass
};

class Renderer
{
  public:
    Renderer(const Menu &menu, const Geometry &geometry, const Fonts &fonts, const std::string &language);

    Rendered text(const std::string &words, const Style &style) const;
    Rendered glyph(char character) const;

    // As SYMBOL_... of those that pages and help lines paint.
    Picture triangle(int symbol) const;

  private:
    struct Canvas;

    Colour canvas_background() const;
    Picture picture_of(const Canvas &canvas) const;
    void paint(const Canvas &canvas, PangoLayoutLine *line, double x, double y, const Colour &colour) const;
    int baseline(int percent = 100) const;

    const Menu &menu;
    const Geometry &geometry;
    const Fonts &fonts;
    Colour background; // as the pixel format can hold it
    double ascent;     // of the first font
    double descent;
};
