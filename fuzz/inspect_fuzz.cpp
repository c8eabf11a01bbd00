// Feeds the reader of resources and both forms of its report with files cut from one input: two bytes for the length of
// each file, least first, or two of 255 for a missing one; then the files. Two of 254 stand for a bank of pictures of
// one pixel, as many as there must be: too long a thing to be found by chance.
#include <cstdlib>
#include <cstring>

#include <glib.h>

#include "menu/configuration.h"
#include "resources/glyph_banks.h"
#include "store/inspection.h"

static std::string sound_bank()
{
    std::string bank;
    for (int i = 0; i < GLYPH_COUNT; i++) {
        osdmenu_view_bitmap size{};
        size.height = 1;
        size.width = size.stride = 2;
        bank.append(reinterpret_cast<const char *>(&size), sizeof size).append("px");
    }
    return bank;
}

static std::map<std::string, std::string> take_files(const unsigned char *data, std::size_t size)
{
    constexpr std::size_t LENGTHS = std::size(RESOURCE_FILES) * 2;
    std::map<std::string, std::string> files;
    for (std::size_t i = 0, at = LENGTHS; size >= LENGTHS && i < std::size(RESOURCE_FILES); i++) {
        const std::size_t length = data[i * 2] | std::size_t{data[i * 2 + 1]} << 8;
        if (length == 0xFFFF)
            continue;
        if (length == 0xFEFE) {
            files[RESOURCE_FILES[i]] = sound_bank();
            continue;
        }
        const std::size_t taken = std::min(length, size - at);
        files[RESOURCE_FILES[i]].assign(reinterpret_cast<const char *>(data) + at, taken);
        at += taken;
    }
    return files;
}

static void expect(bool holds)
{
    if (!holds)
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const auto files = take_files(data, size);
    const Resources resources = read_resources(files_in_memory(files));
    expect(files.size() == std::size(RESOURCE_FILES) || !resources.faults.empty());
    const std::vector<InspectedLanguage> languages = {{"en", "made/en", resources}};
    const std::string text = inspection_report(languages, InspectionFormat::text);
    expect(text == inspection_report(languages, InspectionFormat::text));
    for (const char c : text)
        expect(c == '\n' || (c & ~0x1F) != 0);
    const std::string json = inspection_report(languages, InspectionFormat::json);
    expect(g_utf8_validate(json.data(), static_cast<gssize>(json.size()), nullptr));
    expect(Json(cJSON_Parse(json.c_str())) != nullptr);
    return 0;
}
