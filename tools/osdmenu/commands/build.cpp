// osdmenu build: from menu.yaml to the directory that a device takes.

#include <memory>

#include "commands/commands.h"
#include "commands/progress.h"
#include "common/text.h"
#include "core/config.h"
#include "host/streams.h"
#include "render/languages.h"
#include "rules/judgement.h"
#include "rules/report.h"
#include "store/digest.h"
#include "store/manifest.h"
#include "store/output.h"

namespace
{

struct BuildOptions {
    std::string menu;
    std::string directory;
    bool pseudo = false;
    bool verify = false;
};

} // namespace

// The earlier result, when it stands there whole and was made from the same inputs.
static Files earlier_files(const std::string &directory, const Manifest &manifest, const std::string &language,
                           const std::string &inputs)
{
    auto record = manifest.records.find(language);
    if (record == manifest.records.end() || record->second.inputs != inputs)
        return {};
    Files files;
    FileSource source = files_of_directory(directory + "/" + language);
    for (const char *name : RESOURCE_FILES)
        files[name] = source(name).value_or("");
    return digest_of(files) == record->second.files ? files : Files();
}

static std::map<std::string, std::string> font_versions(const LanguageFonts &fonts)
{
    std::map<std::string, std::string> versions;
    for (const auto &[language, families] : fonts)
        for (const FontFamily &family : families)
            versions[family.font.family] = family.version;
    return versions;
}

// Everything that goes into the directory, by relative path.
static Files all_files(const Project &project, const Findings &findings, const LanguageFonts &fonts,
                       const std::vector<RenderedLanguage> &languages)
{
    Files files;
    std::map<std::string, LanguageRecord> records;
    for (const RenderedLanguage &language : languages) {
        for (const auto &[name, content] : language.files)
            files[language.code + "/" + name] = content;
        records[language.code] = {language.inputs, digest_of(language.files)};
    }
    files["menu.json"] = manifest_text(project, findings, font_versions(fonts), records);
    files[CONFIG_FILE] = project.configuration.text();
    return files;
}

// Whether a directory holds these very files.
static int verify(const BuildOptions &options, const Files &files, std::FILE *out)
{
    int different = 0;
    for (const auto &[name, content] : files) {
        std::string path = options.directory + "/" + name;
        if (read_file(path) == content)
            continue;
        std::fprintf(out, "%s: differs from what the menu gives\n", path.c_str());
        different++;
    }
    if (different == 0)
        std::fprintf(out, "%s: %zu files are what the menu gives, sha256 %s\n", options.directory.c_str(), files.size(),
                     digest_of(files).c_str());
    return different ? STATUS_FINDINGS : STATUS_CLEAN;
}

// Everything is made in memory first. Nothing is written while an error can still turn up.
static int write(const BuildOptions &options, const Files &files, const std::vector<RenderedLanguage> &languages,
                 const Project &project, std::FILE *out)
{
    replace_directory(options.directory, files);
    size_t reused = 0;
    for (const RenderedLanguage &language : languages)
        reused += language.is_reused ? 1 : 0;
    std::fprintf(out, "%s: %zu languages (%zu unchanged), %zu items, sha256 %s\n", options.directory.c_str(),
                 languages.size(), reused, project.rows.size(), digest_of(files).c_str());
    return STATUS_CLEAN;
}

static int run_build(const BuildOptions &options)
{
    Streams streams;
    Findings findings, ignored;
    // No earlier result is trusted where the question is whether it is right.
    Manifest earlier = options.verify ? Manifest() : read_manifest(options.directory, ignored);
    JudgeOptions judging{.path = options.menu, .pseudo = options.pseudo, .progress = progress_on(streams.err)};
    judging.earlier = [&](const std::string &language, const std::string &inputs) {
        return earlier_files(options.directory, earlier, language, inputs);
    };
    Judged judged = judge_menu(judging, findings);
    print_report(streams.err, findings, ReportFormat::text);
    if (findings.has_errors())
        return STATUS_FINDINGS;
    Files files = all_files(*judged.project, findings, judged.fonts, judged.languages);
    return options.verify ? verify(options, files, streams.out)
                          : write(options, files, judged.languages, *judged.project, streams.out);
}

void add_build(CLI::App &app, Run &run)
{
    auto options = std::make_shared<BuildOptions>();
    CLI::App *command = app.add_subcommand("build", "Compiles a menu into the resources of a device");
    command->add_option("menu", options->menu, "The menu, a YAML file")->required();
    command->add_option("-o,--output", options->directory, "Directory to make, with one directory for each language")
        ->required();
    command->add_flag("--pseudo", options->pseudo, "Adds a made-up language with the widest texts to expect");
    command->add_flag("--verify", options->verify, "Builds again and compares with the directory, writing nothing");
    command->callback([&run, options] { run = [options] { return run_build(*options); }; });
}
