// osdmenu inspect: what resources made by anyone hold, and where they are damaged.

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>

#include <glib.h>

#include "commands/commands.h"
#include "common/text.h"
#include "host/streams.h"
#include "menu/menu_keys.h"
#include "render/png.h"
#include "resources/glyph_banks.h"
#include "rules/report.h"
#include "store/inspection.h"
#include "store/manifest.h"
#include "store/output.h"

namespace fs = std::filesystem;

struct InspectOptions {
    std::string directory; // of one language, or of several such directories
    bool json = false;
    std::string pictures;     // directory for PNG files; empty for none
    std::string pixel_format; // in place of the manifest's
};

// A directory with any of the files is a language's: then the others are missing, which is damage.
static std::vector<InspectedLanguage> read_languages(const std::string &given)
{
    std::vector<InspectedLanguage> languages;
    auto read = [&](const fs::path &directory) {
        // With a file behind it the last part has a name also where the caller wrote a dot or a slash.
        std::string name = fs::absolute(directory / "m.d").lexically_normal().parent_path().filename();
        Resources resources = read_resources(files_of_directory(directory));
        if (!resources.file_sizes.empty())
            languages.push_back({name, directory, std::move(resources)});
    };
    read(given);
    if (!languages.empty())
        return languages;
    std::error_code none;
    std::set<fs::path> below;
    for (const fs::directory_entry &entry : fs::directory_iterator(given, none))
        below.insert(entry.path());
    std::for_each(below.begin(), below.end(), read);
    return languages;
}

// Names may hold anything, slashes too. The number in front keeps those apart that look alike afterwards.
static std::string file_name(const std::string &kind, size_t index, const std::string &name)
{
    std::string safe = name.substr(0, 64);
    for (char &c : safe)
        c = g_ascii_isalnum(c) || c == '-' ? c : '_';
    char number[32];
    std::snprintf(number, sizeof number, "-%03zu", index);
    return kind + number + (safe.empty() ? "" : "-" + safe);
}

// Rows may lie any number of bytes apart in the file, and lie without gaps in a view. The reader bounds the size.
static void write_picture(const fs::path &path, const ReadPicture &picture, const Manifest &look)
{
    size_t width = picture.size.width, height = picture.size.height;
    std::string pixels;
    for (size_t y = 0; y < height; y++)
        pixels.append(picture.pixels, y * (picture.pixels.size() / height), width);
    int columns = static_cast<int>(width / 2);
    PixelView view{pixels.data(), columns, static_cast<int>(height), columns, look.display.pixel_format};
    replace_file(path, png_of(view, look.background.alpha ? std::optional(look.background) : std::nullopt));
}

static void export_pictures(const Resources &resources, const fs::path &directory, const Manifest &look, std::FILE *err)
{
    fs::create_directories(directory);
    auto write = [&](const std::string &kind, size_t index, const std::string &name, const ReadPicture &picture) {
        fs::path path = directory / (file_name(kind, index, name) + ".png");
        if (picture.size.width > 0 && picture.size.height > 0)
            write_picture(path, picture, look);
        else
            std::fprintf(err, "%s: not written, the picture is empty\n", printable(path).c_str());
    };
    for (size_t i = 0; i < resources.items.size(); i++) {
        const ReadItem &item = resources.items[i];
        write("item", i, item.name, item.picture);
        for (size_t k = 0; k < item.choices.size(); k++)
            write(file_name("choice", i, ""), k, item.name, item.choices[k].picture);
    }
    for (size_t i = 0; i < resources.help_lines.size(); i++)
        write("help_line", i, resources.help_lines[i].name, resources.help_lines[i].picture);
    for (size_t i = 0; i < resources.bubbles.size(); i++)
        write("bubble", i, resources.bubbles[i].name, resources.bubbles[i].picture);
    for (size_t i = 0; i < resources.glyphs.size(); i++)
        write("glyph", i, std::string(1, osdmenu_common_char[i]), resources.glyphs[i]);
    for (size_t i = 0; i < resources.symbols.size(); i++)
        write("symbol", i, "", resources.symbols[i]);
}

// From the manifest beside the language directories. A background that nobody named is none.
static Manifest look_of(const InspectOptions &options, const std::string &language_directory, std::FILE *err)
{
    Findings findings;
    fs::path given = options.directory;
    Manifest manifest = read_manifest(language_directory == given ? given / ".." : given, findings);
    print_report(err, findings, ReportFormat::text);
    if (findings.has_rule("no-manifest"))
        manifest.background.alpha = 0;
    if (!options.pixel_format.empty())
        manifest.display.pixel_format = *parse_pixel_format(options.pixel_format);
    return manifest;
}

static int run_inspect(const InspectOptions &options)
{
    Streams streams; // the ordering prints
    std::vector<InspectedLanguage> languages = read_languages(options.directory);
    if (languages.empty()) {
        std::fprintf(streams.err, "%s: no resources, such as m.d, can be read here or one level below\n",
                     printable(options.directory).c_str());
        return STATUS_USAGE;
    }
    std::string report = inspection_report(languages, options.json ? InspectionFormat::json : InspectionFormat::text);
    std::fwrite(report.data(), 1, report.size(), streams.out);
    if (!options.pictures.empty()) {
        Manifest look = look_of(options, languages[0].directory, streams.err);
        for (const InspectedLanguage &language : languages)
            export_pictures(language.resources, fs::path(options.pictures) / language.name, look, streams.err);
    }
    auto is_damaged = [](const InspectedLanguage &language) { return !language.resources.faults.empty(); };
    return std::any_of(languages.begin(), languages.end(), is_damaged) ? STATUS_FINDINGS : STATUS_CLEAN;
}

void add_inspect(CLI::App &app, Run &run)
{
    auto options = std::make_shared<InspectOptions>();
    CLI::App *command = app.add_subcommand("inspect", "Tells what compiled resources hold, and where they are damaged");
    command->add_option("directory", options->directory, "Directory of one language, or of several")->required();
    command->add_flag("--json", options->json, "The same content as JSON");
    CLI::Option *png = command->add_option("--png", options->pictures, "Directory for every picture as a PNG file");
    command->add_option("--pixel-format", options->pixel_format, "In place of the manifest's")
        ->check(CLI::IsMember(display_key("pixel_format").words()))
        ->needs(png);
    command->callback([&run, options] { run = [options] { return run_inspect(*options); }; });
}
