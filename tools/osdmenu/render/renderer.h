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
    std::string suffix = {}; // after the text, in the muted colour
};

class Renderer
{
  public:
    Renderer(const Menu &menu, const Geometry &geometry, const Fonts &fonts, const std::string &language);

    // What the fonts don't hold, or what stands above or below the line, is told at the text's place.
    Picture text(const std::string &words, const Style &style, const Place &place, Findings &findings) const;
    Picture glyph(char character) const;
    Picture symbol(int index) const;

  private:
    struct Canvas;

    Picture picture_of(const Canvas &canvas) const;
    int baseline(int percent = 100) const;

    const Menu &menu;
    const Geometry &geometry;
    const Fonts &fonts;
    Colour background; // as the pixel format can hold it
    double ascent;     // of the first font
    double descent;
};
