// A private set-up of fonts that sees the families named in the menu and nothing else of the machine, so that the same
// menu gives the same pixels everywhere.
#pragma once

#include <map>
#include <memory>
#include <set>
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

// A family as this machine has it. Several files make one: regular and bold at least.
struct FontFamily {
    Font font;
    std::set<std::string> paths;
    std::string version;
    uintmax_t bytes = 0; // of the files together
};

// In the order of preference. A missing one is an error that names its package.
std::vector<FontFamily> find_families(const std::vector<Font> &fonts, Findings &findings);

// For one thread at a time.
class Fonts
{
  public:
    explicit Fonts(const std::vector<FontFamily> &found);

    // The size is the em in pixels.
    PangoFontDescription *description(int size, bool bold) const;

    // For letters of one script: the families that serve it go first, at the first one's size. Null where the menu
    // says nothing about scripts.
    PangoFontDescription *description_for(const std::string &script, int size, bool bold) const;

    PangoContext *context() const
    {
        return pango.get();
    }

  private:
    std::vector<FontFamily> families;
    std::unique_ptr<PangoFontMap, GObjectDeleter> map;
    std::unique_ptr<PangoContext, GObjectDeleter> pango;
};

// The libraries that shape and paint text, with their versions.
std::map<std::string, std::string> shaping_versions();
