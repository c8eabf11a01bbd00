// osdmenu gallery: every page of menus in every language, as one web page that needs no other file.

#include <cstring>
#include <filesystem>
#include <memory>

#include <glib.h>

#include "commands/commands.h"
#include "commands/progress.h"
#include "common/text.h"
#include "gallery/page.h"
#include "gallery/painting.h"
#include "gallery/pictures.h"
#include "host/streams.h"
#include "menu/configuration.h"
#include "render/png.h"
#include "rules/json.h"
#include "rules/report.h"
#include "store/output.h"

namespace fs = std::filesystem;

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

static void paint(std::vector<GalleryMenu> &menus, const PaintingOptions &options, const ShowProgress &progress)
{
    std::vector<Job> jobs;
    for (const GalleryMenu &menu : menus)
        for (const std::string &code : menu.directory.languages)
            jobs.push_back({menu.name + " " + code, [&] { return paint_language(menu.directory, code, options); }});
    std::vector<Parts> results = run_jobs(jobs, progress);
    auto next = results.begin();
    for (GalleryMenu &menu : menus)
        for (const std::string &code : menu.directory.languages)
            menu.painted[code] = std::move(*next++);
}

// The picture of each page by the page's name.
static std::map<std::string, std::string> page_pictures(const Parts &painted)
{
    std::map<std::string, std::string> result;
    Json root(cJSON_Parse(painted[0].c_str()));
    const cJSON *page;
    cJSON_ArrayForEach(page, cJSON_GetObjectItem(root.get(), "pages"))
    {
        int picture = cJSON_GetObjectItem(page, "picture")->valueint;
        result[cJSON_GetObjectItem(page, "name")->valuestring] = painted.at(static_cast<size_t>(picture) * 2 + 2);
    }
    return result;
}

// Pairs of a page and its marked picture, for those that changed.
static Parts marked_pages(const Parts &before, const Parts &now)
{
    Parts parts{""};
    auto earlier = page_pictures(before);
    for (const auto &[page, png] : page_pictures(now))
        if (auto found = earlier.find(page); found != earlier.end() && found->second != png)
            parts.insert(parts.end(), {page, png_of(marked(image_of_png(found->second), image_of_png(png)))});
    return parts;
}

// By language and page, as JSON.
static std::string marked_json(const GalleryMenu &before, const GalleryMenu &now, Pictures &pictures,
                               const ShowProgress &progress)
{
    std::vector<Job> jobs;
    for (const auto &[code, painted] : now.painted)
        if (auto earlier = before.painted.find(code); earlier != before.painted.end())
            jobs.push_back({code, [&, earlier] { return marked_pages(earlier->second, now.painted.at(code)); }});
    std::vector<Parts> results = run_jobs(jobs, progress);
    std::vector<std::string> marks;
    for (size_t i = 0; i < jobs.size(); i++)
        for (size_t k = 1; k + 1 < results[i].size(); k += 2)
            marks.push_back(json_array({json_quoted(jobs[i].name), json_quoted(results[i][k]),
                                        std::to_string(pictures.add(results[i][k + 1]))}));
    return json_array(marks);
}

static std::string menu_json(const GalleryMenu &menu, Pictures &pictures)
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

static std::string pictures_json(const Pictures &pictures)
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
    for (const auto &[mark, content] :
         {std::pair("/* page.css */", &page_css), {"/* page.js */", &page_js}, {"/* data */", &escaped}})
        page.replace(page.find(mark), std::strlen(mark), *content);
    return page;
}

static void write_strings(const std::string &directory, const GalleryMenu &menu)
{
    for (const auto &[code, painted] : menu.painted) {
        fs::path place = fs::path(directory) / safe_file_name(code);
        fs::create_directories(place);
        for (size_t i = 1; i + 1 < painted.size(); i += 2)
            if (!painted[i].empty())
                replace_file(place / (painted[i] + ".png"), painted[i + 1]);
    }
}

// All is painted before anything is written.
static int run_gallery(const GalleryOptions &options)
{
    Streams streams;
    std::vector<GalleryMenu> menus;
    for (const std::string &directory : options.directories)
        menus.push_back(open_menu(directory, streams.err));
    if (!options.against.empty())
        menus.push_back(open_menu(options.against, streams.err));
    ShowProgress progress = progress_on(streams.err);
    paint(menus, {options.help_line, !options.strings.empty()}, progress);
    Pictures pictures;
    std::string marks = options.against.empty() ? "null" : marked_json(menus[1], menus[0], pictures, progress);
    std::vector<std::string> texts;
    for (const GalleryMenu &menu : menus)
        texts.push_back(menu_json(menu, pictures));
    std::string page =
        page_with(json_object({{"menus", json_array(texts)}, {"marks", marks}, {"pictures", pictures_json(pictures)}}));
    fs::path output = options.output;
    if (fs::is_directory(output))
        output /= "index.html";
    replace_file(output, page);
    if (!options.strings.empty())
        write_strings(options.strings, menus[0]);
    std::fprintf(streams.out, "%s: %zu pictures, %zu bytes\n", output.c_str(), pictures.png_files.size(), page.size());
    return STATUS_CLEAN;
}

void add_gallery(CLI::App &app, Run &run)
{
    auto shared = std::make_shared<GalleryOptions>();
    GalleryOptions &options = *shared;
    CLI::App *command = app.add_subcommand("gallery", "Paints every page of compiled menus into one web page");
    command->add_option("directories", options.directories, "Directories of compiled menus, or of single languages")
        ->required();
    command->add_option("-o,--output", options.output, "HTML file to write, or a directory for index.html")->required();
    command->add_option("--against", options.against, "Directory of an earlier edition, to show what changed");
    command->add_option("--strings", options.strings, "Directory for a picture of each string in each language");
    command->add_flag("--helpline", options.help_line, "End every page with the help block");
    command->callback([&run, shared] {
        if (shared->directories.size() > 1 && !(shared->against.empty() && shared->strings.empty()))
            throw CLI::ValidationError("--against and --strings", "they take one directory");
        run = [shared] { return run_gallery(*shared); };
    });
}
