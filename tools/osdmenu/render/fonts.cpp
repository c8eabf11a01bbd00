#include "render/fonts.h"

#include <algorithm>
#include <filesystem>

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

} // namespace

// Three decimals, as fonts carry them in their name tables.
static std::string version_text(int version)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", version / 65536.0);
    return text;
}

namespace
{

struct Face {
    std::string path;
    int weight = FC_WEIGHT_REGULAR;
    int version = 0; // as the font tells it, in 1/65536
};

} // namespace

// Upright faces of normal width from the packages' directory: what a user keeps at home must not shape a menu.
static std::vector<Face> faces_of(FcConfig *machine, const std::string &family)
{
    Fc<FcPattern> pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8 *>(family.c_str()));
    FcPatternAddInteger(pattern.get(), FC_SLANT, FC_SLANT_ROMAN);
    FcPatternAddInteger(pattern.get(), FC_WIDTH, FC_WIDTH_NORMAL);
    Fc<FcObjectSet> objects(FcObjectSetBuild(FC_FILE, FC_WEIGHT, FC_FONTVERSION, nullptr));
    Fc<FcFontSet> found(FcFontList(machine, pattern.get(), objects.get()));
    std::vector<Face> faces;
    for (int i = 0; found && i < found->nfont; i++) {
        Face face;
        FcChar8 *path = nullptr;
        FcPatternGetString(found->fonts[i], FC_FILE, 0, &path);
        FcPatternGetInteger(found->fonts[i], FC_WEIGHT, 0, &face.weight);
        FcPatternGetInteger(found->fonts[i], FC_FONTVERSION, 0, &face.version);
        face.path = path ? reinterpret_cast<const char *>(path) : "";
        if (face.path.starts_with("/usr/share/fonts"))
            faces.push_back(face);
    }
    return faces;
}

// The two faces that texts and titles ask for, and no others: a further package of the same family must change nothing.
static FontFamily find_family(FcConfig *machine, const Font &font)
{
    FontFamily family{font, {}, {}};
    std::vector<Face> faces = faces_of(machine, font.family);
    for (int wanted : {FC_WEIGHT_BOLD, FC_WEIGHT_REGULAR}) {
        auto nearest = std::min_element(faces.begin(), faces.end(), [&](const Face &one, const Face &other) {
            return std::pair(std::abs(one.weight - wanted), one.path) <
                   std::pair(std::abs(other.weight - wanted), other.path);
        });
        if (nearest == faces.end())
            return family;
        family.version = version_text(nearest->version);
        if (family.paths.insert(nearest->path).second)
            family.bytes += std::filesystem::file_size(nearest->path);
    }
    return family;
}

std::vector<FontFamily> find_families(const std::vector<Font> &fonts, Findings &findings)
{
    Fc<FcConfig> machine(FcInitLoadConfigAndFonts());
    std::vector<FontFamily> families;
    for (const Font &font : fonts) {
        families.push_back(find_family(machine.get(), font));
        if (families.back().paths.empty())
            findings.add({font.place, "unreadable", "the font family " + in_quotes(font.family) + " is not installed",
                          "install the Debian package " + font.package});
    }
    return families;
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
Fonts::Fonts(const std::vector<FontFamily> &found)
    : families(found), map(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT))
{
    Fc<FcConfig> config(FcConfigCreate());
    for (const FontFamily &family : families)
        for (const std::string &path : family.paths)
            FcConfigAppFontAddFile(config.get(), reinterpret_cast<const FcChar8 *>(path.c_str()));
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map.get()), config.get());
    pango.reset(pango_font_map_create_context(map.get()));
    set_rendering(pango.get());
}

// All families are named, so that a later one serves what the first lacks. The caller frees it.
static PangoFontDescription *describe(const std::vector<FontFamily> &families, int size, bool bold)
{
    std::string names;
    for (const FontFamily &family : families)
        names += (names.empty() ? "" : ",") + family.font.family;
    PangoFontDescription *result = pango_font_description_new();
    pango_font_description_set_family(result, names.c_str());
    pango_font_description_set_absolute_size(result, size * double(PANGO_SCALE));
    pango_font_description_set_weight(result, bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    return result;
}

PangoFontDescription *Fonts::description(int size, bool bold) const
{
    return describe(families, size, bold);
}

PangoFontDescription *Fonts::description_for(const std::string &script, int size, bool bold) const
{
    auto serves = [&](const FontFamily &family) {
        const std::vector<std::string> &scripts = family.font.scripts;
        return std::find(scripts.begin(), scripts.end(), script) != scripts.end();
    };
    std::vector<FontFamily> ordered = families;
    auto others = std::stable_partition(ordered.begin(), ordered.end(), serves);
    if (others == ordered.begin())
        return nullptr;
    return describe(ordered, size * ordered.front().font.percent / 100, bold);
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
