#include "script/pictures.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "common/text.h"
#include "render/png.h"
#include "store/output.h"

namespace fs = std::filesystem;

static std::string difference_text(const Image &page, const Image &reference)
{
    auto size = [](const Image &image) { return std::to_string(image.width) + " x " + std::to_string(image.height); };
    if (size(page) != size(reference))
        return "the page is " + size(page) + ", the reference " + size(reference);
    size_t count = 0, first = 0;
    for (size_t i = page.pixels.size(); i-- > 0;)
        if (page.pixels[i] != reference.pixels[i]) {
            first = i;
            count++;
        }
    const size_t width = static_cast<size_t>(page.width);
    if (count == 0)
        return "";
    return "pixel " + std::to_string(first % width) + "," + std::to_string(first / width) + " is " +
           colour_text(page.pixels[first]) + ", the reference has " + colour_text(reference.pixels[first]) + "; " +
           counted(count, "pixel") + (count == 1 ? " differs" : " differ");
}

// The third panel is the page in the dark, with the pixels that differ in red.
static Image three_panels(const Image &page, const Image &reference)
{
    static constexpr Colour GROUND{128, 128, 128}, DARK{0, 0, 0, 208}, MARK{255, 0, 64};
    static constexpr int GAP = 16; // pixels
    const int width = std::max(page.width, reference.width), second = width + GAP, third = 2 * second;
    Image result{third + width, std::max(page.height, reference.height), {}};
    result.pixels.resize(static_cast<size_t>(result.width) * static_cast<size_t>(result.height), GROUND);
    auto pixel = [](const Image &image, int x, int y) {
        return x < image.width && y < image.height ? image.row(y)[x] : GROUND;
    };
    for (int y = 0; y < result.height; y++)
        for (int x = 0; x < width; x++) {
            Colour *row = result.row(y);
            row[x] = pixel(page, x, y);
            row[second + x] = pixel(reference, x, y);
            row[third + x] = row[x] == row[second + x] ? blended(DARK, row[x]) : MARK;
        }
    return result;
}

// A place that can't be written to is no reason to keep the difference back.
static std::string keep_failure(const fs::path &path, const Image &image)
{
    try {
        fs::create_directories(path.parent_path());
        replace_file(path, png_of(image));
        return ", see " + path.string();
    } catch (const std::exception &) {
        return "; a picture of it cannot be written to " + path.string();
    }
}

// What an earlier run has left among the failures is out of date in any case.
static std::string hold(const fs::path &reference_path, const fs::path &failure_path, const Image &page)
{
    std::error_code none;
    fs::remove(failure_path, none);
    if (!fs::exists(reference_path, none))
        return "there is no reference " + reference_path.string() + "; --record and --update write it" +
               keep_failure(failure_path, page);
    try {
        const Image reference = read_png(reference_path);
        const std::string difference = difference_text(page, reference);
        return difference.empty() ? "" : difference + keep_failure(failure_path, three_panels(page, reference));
    } catch (const Failure &e) {
        return e.what() + keep_failure(failure_path, page);
    }
}

std::string take_picture(Pictures &pictures, const std::string &path, const Image &page)
{
    std::string fault;
    if (pictures.verb != Verb::none && pictures.verb != Verb::record)
        fault = hold(fs::path(pictures.references) / path, fs::path(pictures.failures) / path, page);
    if (pictures.verb == Verb::record || (pictures.verb == Verb::update && !fault.empty()))
        pictures.made[path] = png_of(page);
    return fault;
}

void write_made(const Pictures &pictures, const std::function<void(const std::string &path)> &tell)
{
    for (const auto &[path, png] : pictures.made) {
        const fs::path file = fs::path(pictures.references) / path;
        if (read_file(file) == png)
            continue;
        fs::create_directories(file.parent_path());
        replace_file(file, png);
        tell(file);
    }
}

std::vector<std::string> stale_references(const Pictures &pictures)
{
    std::set<std::string> languages, stale;
    for (const auto &[path, line] : pictures.painted)
        languages.insert(path.substr(0, path.find('/') + 1));
    std::error_code none; // a directory that isn't there holds nothing stale
    for (const std::string &language : languages)
        for (const auto &entry : fs::directory_iterator(fs::path(pictures.references) / language, none))
            if (entry.path().extension() == ".png" &&
                !pictures.painted.count(language + entry.path().filename().string()))
                stale.insert(entry.path());
    return {stale.begin(), stale.end()};
}
