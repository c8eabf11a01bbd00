#include "render/fonts.h"

#include <set>

#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>
#include <harfbuzz/hb.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include "common/text.h"

namespace
{

struct FcDeleter {
    void operator()(FcConfig *config) const
    {
        FcConfigDestroy(config);
    }
    void operator()(FcPattern *pattern) const
    {
        FcPatternDestroy(pattern);
    }
    void operator()(FcObjectSet *objects) const
    {
        FcObjectSetDestroy(objects);
    }
    void operator()(FcFontSet *set) const
    {
        FcFontSetDestroy(set);
    }
};
template <class T> using Fc = std::unique_ptr<T, FcDeleter>;

// Several files make a family: regular and bold at least.
struct FontFiles {
    std::set<std::string> paths;
    int version = 0; // as the font tells it, in 1/65536
};

} // namespace

// Upright faces of normal width from the packages' directory. What a user keeps at home must not shape a menu, and a
// further package of the same family must not change which face is taken.
static FontFiles find_family(FcConfig *machine, const std::string &family)
{
    Fc<FcPattern> pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8 *>(family.c_str()));
    FcPatternAddInteger(pattern.get(), FC_SLANT, FC_SLANT_ROMAN);
    FcPatternAddInteger(pattern.get(), FC_WIDTH, FC_WIDTH_NORMAL);
    Fc<FcObjectSet> objects(FcObjectSetBuild(FC_FILE, FC_FONTVERSION, nullptr));
    Fc<FcFontSet> found(FcFontList(machine, pattern.get(), objects.get()));
    FontFiles files;
    for (int i = 0; found && i < found->nfont; i++) {
        FcChar8 *path = nullptr;
        FcPatternGetString(found->fonts[i], FC_FILE, 0, &path);
        std::string file = path ? reinterpret_cast<const char *>(path) : "";
        if (!file.starts_with("/usr/share/fonts"))
            continue;
        FcPatternGetInteger(found->fonts[i], FC_FONTVERSION, 0, &files.version);
        files.paths.insert(file);
    }
    return files;
}

// Three decimals, as fonts carry them in their name tables.
static std::string version_text(int version)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", version / 65536.0);
    return text;
}

// Nothing that depends on a screen or on a user's taste.
static void set_rendering(PangoContext *context)
{
    cairo_font_options_t *options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
}

// The private configuration starts empty, without the aliases and substitutes of the machine.
Fonts::Fonts(const std::vector<Font> &fonts, Findings &findings)
    : map(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT))
{
    Fc<FcConfig> machine(FcInitLoadConfigAndFonts());
    Fc<FcConfig> config(FcConfigCreate());
    for (const Font &font : fonts) {
        FontFiles files = find_family(machine.get(), font.family);
        if (files.paths.empty())
            findings.error(font.place, "the font family " + in_quotes(font.family) + " is not installed",
                           "install the Debian package " + font.package);
        for (const std::string &path : files.paths)
            FcConfigAppFontAddFile(config.get(), reinterpret_cast<const FcChar8 *>(path.c_str()));
        families += (families.empty() ? "" : ",") + font.family;
        family_versions[font.family] = version_text(files.version);
    }
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map.get()), config.get());
    pango.reset(pango_font_map_create_context(map.get()));
    set_rendering(pango.get());
}

// The caller frees it. All families are named, so that a later one serves what the first lacks.
PangoFontDescription *Fonts::description(int size, bool bold) const
{
    PangoFontDescription *result = pango_font_description_new();
    pango_font_description_set_family(result, families.c_str());
    pango_font_description_set_absolute_size(result, size * double(PANGO_SCALE));
    pango_font_description_set_weight(result, bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    return result;
}

std::map<std::string, std::string> shaping_versions()
{
    // FreeType tells its version only through an instance.
    FT_Library freetype;
    FT_Int major = 0, minor = 0, patch = 0;
    if (FT_Init_FreeType(&freetype) == 0) {
        FT_Library_Version(freetype, &major, &minor, &patch);
        FT_Done_FreeType(freetype);
    }
    return {{"pango", pango_version_string()},
            {"cairo", cairo_version_string()},
            {"harfbuzz", hb_version_string()},
            {"fontconfig", std::to_string(FcGetVersion())},
            {"freetype", std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(patch)}};
}
