#include "render/pseudo.h"

#include <algorithm>
#include <memory>

#include <glib.h>

#include "render/measured.h"

// Each letter with a mark that reaches as high as any, so that a line too low for them shows.
static const std::pair<const char *, const char *> accented_letters[] = {
    {"a", "å"}, {"c", "č"}, {"d", "ď"}, {"e", "ê"}, {"g", "ğ"}, {"h", "ĥ"}, {"i", "î"}, {"j", "ĵ"},
    {"l", "ĺ"}, {"n", "ñ"}, {"o", "ő"}, {"r", "ř"}, {"s", "š"}, {"t", "ť"}, {"u", "ů"}, {"w", "ŵ"},
    {"y", "ÿ"}, {"z", "ž"}, {"A", "Å"}, {"C", "Č"}, {"D", "Ď"}, {"E", "Ê"}, {"G", "Ğ"}, {"H", "Ĥ"},
    {"I", "Î"}, {"J", "Ĵ"}, {"K", "Ķ"}, {"L", "Ĺ"}, {"N", "Ñ"}, {"O", "Ő"}, {"R", "Ř"}, {"S", "Š"},
    {"T", "Ť"}, {"U", "Ů"}, {"W", "Ŵ"}, {"Y", "Ÿ"}, {"Z", "Ž"},
};

namespace
{

struct Width {
    int source = 0;
    int widest = 0; // of the translations; 0 where there is none
};
using Widths = std::map<std::pair<std::string, std::string>, Width>; // by name and source text

} // namespace

static Widths widths_of(const Project &project, const std::vector<RenderedLanguage> &languages)
{
    Widths widths;
    for (const RenderedLanguage &language : languages)
        for_each_text(project, language.resources, [&](const MeasuredText &measured) {
            Width &width = widths[{measured.name, measured.text.words}];
            if (language.code == project.menu.source_language)
                width.source = measured.width;
            else if (project.texts_of(language.code).of(measured.text, measured.name).is_translated())
                width.widest = std::max(width.widest, measured.width);
        });
    return widths;
}

static std::string accented(const std::string &words)
{
    std::string result;
    for (char letter : words) {
        auto found = std::find_if(std::begin(accented_letters), std::end(accented_letters),
                                  [&](const auto &pair) { return pair.first[0] == letter; });
        if (found == std::end(accented_letters))
            result += letter;
        else
            result += found->second;
    }
    return result;
}

// Enough letters behind it that stretching to the exact width hardly shows. They are the text's own, which its font
// has.
static std::string padded(const std::string &words, int width, int wanted)
{
    std::string result = accented(words);
    long letters = std::max(1L, g_utf8_strlen(result.c_str(), -1));
    long missing = width > 0 ? (wanted - width) * letters / width : 0;
    for (size_t at = 0; missing > 0 && at < result.size(); missing--) {
        size_t next = static_cast<size_t>(g_utf8_next_char(result.c_str() + at) - result.c_str());
        result += result.substr(at, next - at);
        at = next;
    }
    return result;
}

Wordings pseudo_wordings(const Project &project, const std::vector<RenderedLanguage> &languages)
{
    return [widths = widths_of(project, languages)](const Text &text, const std::string &name) {
        auto found = widths.find({name, text.words});
        if (found == widths.end())
            return Wording{text.words, text.place};
        const Width &width = found->second;
        int wanted = width.widest ? std::max(width.widest, width.source) : width.source * (100 + GROWTH_PERCENT) / 100;
        return Wording{padded(text.words, width.source, wanted), text.place, wanted};
    };
}
