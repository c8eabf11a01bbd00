#include "render/languages.h"

#include <atomic>
#include <mutex>
#include <thread>

#include "common/text.h"
#include "render/pseudo.h"
#include "store/digest.h"

// Goes up with every change of the code that changes a pixel of what it makes.
static constexpr char RENDERING[] = "rendering 3";

LanguageFonts find_fonts(const Menu &menu, Findings &findings)
{
    LanguageFonts fonts;
    for (const Language &language : menu.languages)
        fonts[language.code] = find_families(language.fonts.empty() ? menu.fonts : language.fonts, findings);
    return fonts;
}

// A change of the menu file counts for every language; nobody has to prove which words it touched.
static std::string digest_of_inputs(const Project &project, const std::string &language,
                                    const std::vector<FontFamily> &fonts)
{
    Digest digest;
    digest.add(RENDERING);
    digest.add(language);
    digest.add(read_file(project.menu.path).value_or(""));
    digest.add(read_file(project.texts_of(language).path()).value_or(""));
    for (const FontFamily &family : fonts)
        digest.add(family.font.family + " " + family.version + " " + std::to_string(family.bytes));
    for (const auto &[library, version] : shaping_versions())
        digest.add(std::string(library).append(" ").append(version));
    return digest.text();
}

namespace
{

// What the threads share. Each takes the next language until none is left.
struct Work {
    const Project &project;
    const LanguageFonts &fonts;
    const EarlierFiles &earlier;
    const ShowProgress &progress;
    std::vector<RenderedLanguage> languages;
    std::vector<Findings> findings;
    std::atomic<size_t> next = 0;
    std::mutex reporting = {};
    size_t done = 0;
    std::exception_ptr failure = nullptr;
};

// Fonts are costly to set up and serve one thread, so each thread keeps those it has made.
class FontStore
{
  public:
    const Fonts &of(const std::vector<FontFamily> &families)
    {
        std::string key;
        for (const FontFamily &family : families)
            key += family.font.family + joined(family.font.scripts, ",") + std::to_string(family.font.percent) + "\n";
        std::unique_ptr<Fonts> &made = fonts[key];
        if (!made)
            made = std::make_unique<Fonts>(families);
        return *made;
    }

  private:
    std::map<std::string, std::unique_ptr<Fonts>> fonts;
};

} // namespace

static Files render(const Project &project, const std::string &language, const Fonts &fonts, const Wordings &wordings,
                    Findings &findings)
{
    Renderer renderer(project.menu, project.geometry, fonts, language);
    return make_language_resources({project, renderer, wordings, language, findings});
}

// What comes after counts on every record being there.
static Resources read_back(const RenderedLanguage &language)
{
    Resources resources = read_resources(files_in_memory(language.files));
    for (const Fault &fault : resources.faults)
        throw Failure(language.code + "/" + fault.file + ": " + fault.text);
    return resources;
}

static void render_language(Work &work, size_t index, FontStore &store)
{
    RenderedLanguage &result = work.languages[index];
    const std::vector<FontFamily> &families = work.fonts.at(result.code);
    result.inputs = digest_of_inputs(work.project, result.code, families);
    result.files = work.earlier(result.code, result.inputs);
    result.is_reused = !result.files.empty();
    if (!result.is_reused) {
        const Translations &texts = work.project.texts_of(result.code);
        auto wording = [&](const Text &text, const std::string &name) {
            Text shown = texts.shown(text, name);
            return Wording{shown.words, shown.place};
        };
        result.files = render(work.project, result.code, store.of(families), wording, work.findings[index]);
        // What rendering found must be told again by the next run.
        if (!work.findings[index].sorted().empty())
            result.inputs.clear();
    }
    result.resources = read_back(result);
}

static void work_on(Work &work)
{
    FontStore store;
    try {
        for (size_t i = work.next++; i < work.languages.size(); i = work.next++) {
            render_language(work, i, store);
            std::lock_guard lock(work.reporting);
            work.progress(++work.done, work.languages.size(), work.languages[i].code);
        }
    } catch (...) {
        std::lock_guard lock(work.reporting);
        work.failure = std::current_exception();
    }
}

std::vector<RenderedLanguage> render_languages(const Project &project, const LanguageFonts &fonts,
                                               const EarlierFiles &earlier, const ShowProgress &progress,
                                               Findings &findings)
{
    Work work{project, fonts, earlier, progress, {}, std::vector<Findings>(project.menu.languages.size())};
    for (const Language &language : project.menu.languages)
        work.languages.push_back({language.code});
    size_t cores = std::max(1u, std::thread::hardware_concurrency());
    {
        std::vector<std::jthread> threads;
        for (size_t i = 1; i < std::min(cores, work.languages.size()); i++)
            threads.emplace_back([&work] { work_on(work); });
        work_on(work);
    }
    if (work.failure)
        std::rethrow_exception(work.failure);
    for (const Findings &found : work.findings)
        findings.append(found);
    return std::move(work.languages);
}

// Rendered alone, behind all the others: it takes their widths.
RenderedLanguage render_pseudo_language(const Project &project, const LanguageFonts &fonts,
                                        const std::vector<RenderedLanguage> &languages, Findings &findings)
{
    Fonts made(fonts.at(project.menu.source_language));
    RenderedLanguage result{PSEUDO_LANGUAGE};
    Findings found;
    result.files = render(project, result.code, made, pseudo_wordings(project, languages), found);
    // That a font lacks one of the made-up letters is no fault of the menu.
    found.settle({{{"missing-character", Severity::off}}, {}});
    findings.append(found);
    result.resources = read_back(result);
    return result;
}
