#include "commands/build.h"

#include <filesystem>
#include <unistd.h>

#include "common/text.h"
#include "host/streams.h"
#include "menu/menu_reader.h"
#include "render/language_resources.h"
#include "rules/menu_rules.h"
#include "store/manifest.h"
#include "store/output.h"

namespace
{

// One line on a terminal, nothing in a log.
class Progress
{
  public:
    explicit Progress(std::FILE *stream) : terminal(isatty(fileno(stream)) ? stream : nullptr) {}
    ~Progress()
    {
        show("");
    }

    void show(const std::string &what)
    {
        if (terminal)
            std::fprintf(terminal, "\r\033[K%s", what.c_str());
    }

  private:
    std::FILE *terminal;
};

struct Job {
    const BuildOptions &options;
    Streams &streams;
    Findings findings;
};

} // namespace

// Translations lie beside the menu, so that the two travel together.
static std::string po_path(const Menu &menu, const std::string &language)
{
    return (std::filesystem::path(menu.path).parent_path() / "po" / (language + ".po")).string();
}

// One language at a time: fonts, texts and the widths that its words take are its own.
static void add_language(Job &job, const Menu &menu, const std::vector<Row> &rows, const Configuration &configuration,
                         const Geometry &geometry, const Fonts &fonts, const Language &language, Files &files)
{
    Translations translations;
    if (language.code != menu.source_language)
        translations = Translations(po_path(menu, language.code), job.findings);
    Renderer renderer(menu, geometry, fonts, language.code);
    for (auto &[name, content] : make_language_resources(
             {menu, rows, configuration, geometry, renderer, translations, language.code, job.findings}))
        files[language.code + "/" + name] = content;
}

// Everything is made in memory first. Nothing is written while an error can still turn up.
static Files make_files(Job &job, const Menu &menu, const std::vector<Row> &rows, const Configuration &configuration)
{
    Progress progress(job.streams.err);
    Files files;
    Geometry geometry = set_up_geometry(menu.display);
    check_page_heights(rows, geometry, job.findings);
    std::map<std::string, std::string> font_versions;
    for (const Language &language : menu.languages) {
        progress.show("Rendering " + language.code + " ...");
        // Without its fonts a language has no pictures, and every text would be a finding of its own.
        Fonts fonts(language.fonts.empty() ? menu.fonts : language.fonts, job.findings);
        if (job.findings.has_errors())
            return {};
        add_language(job, menu, rows, configuration, geometry, fonts, language, files);
        font_versions.insert(fonts.versions().begin(), fonts.versions().end());
    }
    // A host needs the sizes that hold, also where the menu left them to burst.
    Display display = menu.display;
    display.width = geometry.view_width;
    display.height = geometry.view_height;
    files["menu.json"] = manifest_text(menu, rows, display, font_versions);
    files["conf_backup/osd_menu.json"] = configuration.text();
    return files;
}

// Findings come last, sorted, below whatever progress was shown.
static int finish(Job &job)
{
    job.findings.print(job.streams.err);
    return job.findings.has_errors() ? 1 : 0;
}

int run_build(const BuildOptions &options)
{
    Streams streams;
    Job job{options, streams, {}};
    Menu menu = read_menu(options.menu, job.findings);
    std::vector<Row> rows = rows_in_file_order(menu);
    check_menu(menu, rows, job.findings);
    Configuration configuration(menu, rows, job.findings);
    if (job.findings.has_errors())
        return finish(job);
    // A translator wants the template of a menu whose pictures may not be possible yet.
    if (!options.template_path.empty())
        write_template(menu, options.template_path);
    if (options.directory.empty())
        return finish(job);
    Files files = make_files(job, menu, rows, configuration);
    if (!job.findings.has_errors()) {
        replace_directory(options.directory, files);
        std::fprintf(streams.out, "%s: %zu languages, %zu items\n", options.directory.c_str(), menu.languages.size(),
                     rows.size());
    }
    return finish(job);
}
