#include "common/text.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include <glib.h>

#include "resources/glyph_banks.h"

bool is_utf8_continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

static bool is_control(char c)
{
    unsigned char byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

bool is_plain_utf8(const std::string &text)
{
    return g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr) &&
           std::none_of(text.begin(), text.end(), is_control);
}

std::string printable(const std::string &text)
{
    std::string result;
    for (char c : text) {
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\x%02x", static_cast<unsigned char>(c));
        if (is_control(c) && c != '\t')
            result += escape;
        else
            result += c;
    }
    return result;
}

std::string cut_utf8(const std::string &text, size_t limit)
{
    size_t end = std::min(limit, text.size());
    if (end < text.size())
        while (end > 0 && is_utf8_continuation(text[end]))
            end--;
    return text.substr(0, end);
}

std::optional<std::string> character_without_glyph(const std::string &text)
{
    for (size_t i = 0; i < text.size(); i++) {
        if (glyph_index(text[i]) != GLYPH_NONE)
            continue;
        size_t end = i + 1;
        while (end < text.size() && is_utf8_continuation(text[end]))
            end++;
        return text.substr(i, end - i);
    }
    return std::nullopt;
}

std::string in_quotes(const std::string &text)
{
    return "'" + text + "'";
}

std::string joined(const std::vector<std::string> &texts, const std::string &between)
{
    std::string result;
    for (const std::string &text : texts)
        result += (result.empty() ? "" : between) + text;
    return result;
}

std::optional<std::string> read_file(const std::string &path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return std::nullopt;
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    std::string content(in ? static_cast<size_t>(in.tellg()) : 0, '\0');
    if (!in || !in.seekg(0).read(content.data(), static_cast<std::streamsize>(content.size())))
        return std::nullopt;
    return content;
}
