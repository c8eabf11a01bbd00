// osdmenu gallery: every page of menus in every language, as one web page that needs no other file.

#include <cstring>
#include <filesystem>
#include <memory>

#include <glib.h>

#include "commands/commands.h"
#include "commands/progress.h"
#include "common/text.h"
#include "gallery/painting.h"
#include "gallery/pictures.h"
#include "host/streams.h"
#include "rules/json.h"
#include "rules/report.h"
#include "store/output.h"

namespace fs = std::filesystem;

extern const std::string page_html, page_css, page_js, player_js; // files of gallery/

namespace
{

struct GalleryOptions {
    std::vector<std::string> directories; // of menus or single languages
    std::string output;
    std::string against; // an earlier edition
    std::string strings; // directory for a picture of each string
    bool help_line = false;
};

struct GalleryMenu {
    std::string name; // as the caller gave it
    MenuDirectory directory;
    std::map<std::string, Parts> painted = {}; // by language
};

} // namespace

// The caller may have named one language of a menu.
static GalleryMenu open_menu(const std::string &given, std::FILE *err)
{
    Findings findings;
    GalleryMenu menu{given, open_menu_directory(given, findings)};
    print_report(err, findings, ReportFormat::text);
    MenuDirectory &directory = menu.directory;
    std::error_code ignored;
    bool is_one = fs::equivalent(given, directory.directory_of(directory.language), ignored);
    if (is_one || !directory.has_language(directory.language))
        directory.languages = {directory.language};
    return menu;
}

static void paint(GalleryMenu &menu, const GalleryMenu *before, const PaintingOptions &options,
                  const ShowProgress &progress)
{
    std::vector<Job> jobs;
    for (const std::string &code : menu.directory.languages) {
        PaintingOptions own = options;
        if (before && before->painted.contains(code))
            own.before = &before->painted.at(code);
        jobs.push_back({menu.name + " " + code, [&, own] { return paint_language(menu.directory, code, own); }});
    }
    std::vector<Parts> results = run_jobs(jobs, progress);
    for (size_t i = 0; i < jobs.size(); i++)
        menu.painted[menu.directory.languages[i]] = std::move(results[i]);
}

static std::string menu_json(const GalleryMenu &menu, PictureList &pictures)
{
    const Manifest &manifest = menu.directory.manifest;
    std::vector<std::string> languages, order, findings;
    for (const std::string &code : menu.directory.languages) {
        const Parts &painted = menu.painted.at(code);
        std::vector<std::string> numbers;
        for (size_t i = 1; i + 1 < painted.size() && painted[i].empty(); i += 2)
            numbers.push_back(std::to_string(pictures.add(painted[i + 1])));
        languages.push_back(json_object(
            {{"code", json_quoted(code)}, {"painted", painted[0]}, {"pictures", "[" + joined(numbers, ",") + "]"}}));
    }
    for (const std::string &code : manifest.languages)
        order.push_back(json_quoted(code));
    for (const KnownFinding &each : manifest.findings)
        findings.push_back(json_array({json_quoted(each.severity), json_quoted(each.rule), json_quoted(each.text),
                                       json_quoted(each.subject), json_quoted(each.language)}));
    return json_object({{"name", json_quoted(menu.name)},
                        {"background", json_quoted(colour_text(manifest.background))},
                        {"order", json_array(order)},
                        {"findings", json_array(findings)},
                        {"languages", json_array(languages)}});
}

static std::string pictures_json(const PictureList &pictures)
{
    std::vector<std::string> texts;
    for (const std::string &png : pictures.png_files) {
        gchar *text = g_base64_encode(reinterpret_cast<const guchar *>(png.data()), png.size());
        texts.push_back(json_quoted(text));
        g_free(text);
    }
    return json_array(texts);
}

static std::string page_with(const std::string &data)
{
    std::string page = page_html, escaped;
    // Without this character no text of a menu ends the element that holds the data.
    for (char c : data)
        c == '<' ? escaped.append("\\u003c") : escaped.append(1, c);
    for (const auto &[mark, content] : {std::pair("/* page.css */", &page_css),
                                        {"/* page.js */", &page_js},
                                        {"/* player.js */", &player_js},
                                        {"/* data */", &escaped}})
        page.replace(page.find(mark), std::strlen(mark), *content);
    return page;
}

static void write_strings(const std::string &directory, const GalleryMenu &menu)
{
    for (const auto &[code, painted] : menu.painted) {
        fs::create_directories(fs::path(directory) / code);
        for (size_t i = 1; i + 1 < painted.size(); i += 2)
            if (!painted[i].empty())
                replace_file(fs::path(directory) / code / painted[i], painted[i + 1]);
    }
}

// A directory, which may be yet to be made, takes the page as its first one.
static fs::path output_of(const GalleryOptions &options)
{
    fs::path output = options.output;
    if (fs::is_directory(output) || !output.has_filename())
        output /= "index.html";
    if (output.has_parent_path())
        fs::create_directories(output.parent_path());
    return output;
}

// All is painted before a file is written. An earlier edition comes first, so that changes can be marked.
static int run_gallery(const GalleryOptions &options)
{
    Streams streams;
    const fs::path output = output_of(options);
    std::vector<GalleryMenu> menus;
    for (const std::string &directory : options.directories)
        menus.push_back(open_menu(directory, streams.err));
    std::optional<GalleryMenu> before;
    ShowProgress progress = progress_on(streams.err);
    if (!options.against.empty())
        paint(before.emplace(open_menu(options.against, streams.err)), nullptr, {options.help_line}, progress);
    PictureList pictures;
    std::vector<std::string> texts;
    for (GalleryMenu &menu : menus) {
        paint(menu, before ? &*before : nullptr, {options.help_line, !options.strings.empty()}, progress);
        texts.push_back(menu_json(menu, pictures));
    }
    std::string earlier = before ? menu_json(*before, pictures) : "null";
    std::string page = page_with(
        json_object({{"menus", json_array(texts)}, {"before", earlier}, {"pictures", pictures_json(pictures)}}));
    streams.put(output, page);
    if (!options.strings.empty())
        write_strings(options.strings, menus[0]);
    std::fprintf(Streams::is_standard_output(output) ? streams.err : streams.out, "%s: %zu pictures, %zu bytes\n",
                 printable(output).c_str(), pictures.png_files.size(), page.size());
    return STATUS_CLEAN;
}

void add_gallery(CLI::App &app, Run &run)
{
    auto shared = std::make_shared<GalleryOptions>();
    GalleryOptions &options = *shared;
    CLI::App *command = app.add_subcommand("gallery", "Paints every page of compiled menus into one web page");
    command->add_option("directories", options.directories, "Directories of compiled menus, or of single languages")
        ->required();
    command
        ->add_option("-o,--output", options.output,
                     "HTML file to write, or a directory for index.html; - for standard output")
        ->required();
    command->add_option("--against", options.against, "Directory of an earlier edition, to show what changed");
    command->add_option("--strings", options.strings, "Directory for a picture of each string in each language");
    command->add_flag("--helpline", options.help_line, "End every page with the help block");
    command->callback([&run, shared] {
        if (shared->directories.size() > 1 && !(shared->against.empty() && shared->strings.empty()))
            throw CLI::ValidationError("--against and --strings", "they take one directory");
        run = [shared] { return run_gallery(*shared); };
    });
}
