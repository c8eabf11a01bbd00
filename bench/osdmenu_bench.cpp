// What a designer waits for: whole runs of `osdmenu build`, `walk` and `gallery` over the sample menu in ten languages,
// beside the least that they could take, a copy of the same files. The memory is that of the largest process of each.
// Each round runs all of them in turn.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

static constexpr int ROUNDS = 9;

struct Measured {
    std::vector<double> milliseconds;
    long peak_kib = 0;
};

// In a process of its own, so that its memory is its own as well.
static void measure(Measured &measured, const std::vector<std::string> &command)
{
    auto start = std::chrono::steady_clock::now();
    pid_t child = fork();
    if (child == 0) {
        std::vector<char *> arguments;
        for (const std::string &argument : command)
            arguments.push_back(const_cast<char *>(argument.c_str()));
        arguments.push_back(nullptr);
        // The changed text lacks translations, which each run tells.
        if (!std::freopen("/dev/null", "w", stdout) || !std::freopen("/dev/null", "w", stderr))
            _exit(126);
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || status != 0)
        std::exit((std::fprintf(stderr, "%s failed\n", command[0].c_str()), 1));
    std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    measured.milliseconds.push_back(taken.count());
    measured.peak_kib = std::max(measured.peak_kib, usage.ru_maxrss);
}

// Another word for each round, in the source language or in a translation.
static void change(const fs::path &file, const std::string &before, const std::string &after)
{
    std::ifstream in(file);
    std::string content{std::istreambuf_iterator<char>(in), {}};
    size_t at = content.find(before);
    if (at == content.npos)
        std::exit((std::fprintf(stderr, "%s: no %s\n", file.c_str(), before.c_str()), 1));
    std::ofstream(file) << content.replace(at, before.size(), after);
}

static double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

static void print(const char *name, const Measured &measured, const Measured &floor)
{
    double least = *std::min_element(measured.milliseconds.begin(), measured.milliseconds.end());
    double least_floor = *std::min_element(floor.milliseconds.begin(), floor.milliseconds.end());
    std::vector<double> ratios;
    for (size_t i = 0; i < measured.milliseconds.size(); i++)
        ratios.push_back(measured.milliseconds[i] / floor.milliseconds[i]);
    std::printf("%-30s %8.1f ms %8.1f MiB   x %.2f of the copy (median of pairs %.2f)\n", name, least,
                static_cast<double>(measured.peak_kib) / 1024, least / least_floor, median(ratios));
}

int main()
{
    const fs::path work = fs::temp_directory_path() / ("osdmenu-bench-" + std::to_string(getpid()));
    const std::string menu = work / "menu", out = work / "out", fresh = work / "fresh", copy = work / "copy";
    fs::create_directories(work);
    fs::copy(SAMPLE_MENU_DIR, menu, fs::copy_options::recursive);
    auto build = [&](const std::string &to) {
        return std::vector<std::string>{OSDMENU_TOOL, "build", menu + "/menu.yaml", "-o", to};
    };
    const std::string walk = "for l in " + out + "/*/m.d; do " OSDMENU_TOOL " walk ${l%/m.d} || exit 1; done";
    Measured warm_up, floor, nothing_changed, one_translation, one_source_text, from_nothing, walked, gallery;
    measure(warm_up, build(out));
    for (int round = 0; round < ROUNDS; round++) {
        fs::remove_all(copy);
        fs::remove_all(fresh);
        measure(floor, {"cp", "-r", out, copy});
        measure(from_nothing, build(fresh));
        measure(nothing_changed, build(out));
        measure(walked, {"sh", "-c", walk});
        measure(gallery, {OSDMENU_TOOL, "gallery", out, "-o", work / "gallery.html"});
        change(menu + "/po/de.po", round % 2 ? "Kamera1" : "Kamera", round % 2 ? "Kamera" : "Kamera1");
        measure(one_translation, build(out));
        change(menu + "/menu.yaml", round % 2 ? "Camera1" : "Camera", round % 2 ? "Camera" : "Camera1");
        measure(one_source_text, build(out));
    }
    print("copy of the ten languages", floor, floor);
    print("build from nothing", from_nothing, floor);
    print("build, nothing changed", nothing_changed, floor);
    print("build, a translation changed", one_translation, floor);
    print("build, a source text changed", one_source_text, floor);
    print("walk of each language", walked, floor);
    print("gallery", gallery, floor);
    fs::remove_all(work);
}
