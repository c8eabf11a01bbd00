// A private set-up of fonts that sees the families named in the menu and nothing else of the machine, so that the same
// menu gives the same pixels everywhere.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <pango/pango.h>

#include "menu/menu_model.h"

struct GObjectDeleter {
    void operator()(void *object) const
    {
        g_object_unref(object);
    }
};

class Fonts
{
  public:
    // Families come in the order of preference. A missing one is an error that names its package.
    Fonts(const std::vector<Font> &fonts, Findings &findings);

    // `size` is the em in pixels.
    PangoFontDescription *description(int size, bool bold) const;
    PangoContext *context() const
    {
        return pango.get();
    }
    const std::map<std::string, std::string> &versions() const
    {
        return family_versions;
    }

  private:
    std::unique_ptr<PangoFontMap, GObjectDeleter> map;
    std::unique_ptr<PangoContext, GObjectDeleter> pango;
    std::string families;
    std::map<std::string, std::string> family_versions;
};

// The libraries that shape and paint text, with their versions.
std::map<std::string, std::string> shaping_versions();
