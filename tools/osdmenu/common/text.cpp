#include "common/text.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <sstream>

#include <glib.h>

#include "resources/glyph_banks.h"

bool is_utf8_continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

bool is_plain_utf8(const std::string &text)
{
    if (!g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr))
        return false;
    for (const char *at = text.c_str(), *end = at + text.size(); at < end; at = g_utf8_next_char(at))
        if (g_unichar_iscntrl(g_utf8_get_char(at)))
            return false;
    return true;
}

std::string printable(const std::string &text)
{
    std::string result;
    for (const char *at = text.data(), *end = at + text.size(); at < end;) {
        gunichar character = g_utf8_get_char_validated(at, end - at);
        bool is_visible = g_unichar_validate(character) && (!g_unichar_iscntrl(character) || character == '\t');
        std::string bytes(at, is_visible ? static_cast<size_t>(g_utf8_next_char(at) - at) : 1);
        at += bytes.size();
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\x%02x", static_cast<unsigned char>(bytes[0]));
        result += is_visible ? bytes : escape;
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

std::string in_cells(const std::string &text, int cells)
{
    std::string result;
    for (const char *at = text.c_str(); *at; at = g_utf8_next_char(at)) {
        gunichar character = g_utf8_get_char(at);
        int width = g_unichar_iszerowidth(character) ? 0 : g_unichar_iswide(character) ? 2 : 1;
        if (width > cells)
            break;
        result.append(at, static_cast<size_t>(g_utf8_next_char(at) - at));
        cells -= width;
    }
    return result + std::string(static_cast<size_t>(cells), ' ');
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

std::string counted(size_t count, const std::string &what)
{
    std::string ending = count == 1 ? "" : what.ends_with('s') ? "es" : "s";
    return std::to_string(count).append(" ").append(what).append(ending);
}

std::string joined(const std::vector<std::string> &texts, const std::string &between)
{
    std::string result;
    for (const std::string &text : texts)
        result += (result.empty() ? "" : between) + text;
    return result;
}

std::vector<std::string> parts_of(const std::string &text, char between)
{
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, between);)
        parts.push_back(part);
    return parts;
}

// One row of the usual table at a time: `row[i]` is the distance to the first i letters of `to`.
static size_t distance(const std::string &from, const std::string &to)
{
    std::vector<size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (char letter : from) {
        size_t diagonal = row[0]++;
        for (size_t i = 0; i < to.size(); i++) {
            size_t replaced = diagonal + (letter == to[i] ? 0 : 1);
            diagonal = row[i + 1];
            row[i + 1] = std::min({replaced, row[i] + 1, row[i + 1] + 1});
        }
    }
    return row.back();
}

const std::string *nearest(const std::string &word, const std::vector<std::string> &known, size_t changes)
{
    const std::string *best = nullptr;
    for (const std::string &candidate : known)
        if (size_t needed = distance(word, candidate); best ? needed < changes : needed <= changes) {
            best = &candidate;
            changes = needed;
        }
    return best;
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
