// Small helpers for UTF-8 text and for files read whole.
#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "resources/text_limits.h"

// What stops a subcommand beside the findings: a file that can't be written, a wrong directory. Shown as it is.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

inline constexpr size_t MAX_TEXT = TEXT_LENGTH - 1; // bytes of a name or a description in the resource files

bool is_utf8_continuation(char byte);

// Valid UTF-8 without control characters.
bool is_plain_utf8(const std::string &text);

// What is no part of a visible character, but for tabs, as \xNN for each byte: a hostile name must not reach the
// terminal as an escape sequence. The result is valid UTF-8.
std::string printable(const std::string &text);

// The longest beginning that fits `limit` bytes and ends where a character ends.
std::string cut_utf8(const std::string &text, size_t limit);

// Cut or filled up to so many cells. A terminal gives wide characters two of them, and marks upon others none.
std::string in_cells(const std::string &text, int cells);

// The first character that the device has no glyph for.
std::optional<std::string> character_without_glyph(const std::string &text);

std::string in_quotes(const std::string &text);
std::string counted(size_t count, const std::string &what); // "1 row", "2 rows"
std::string joined(const std::vector<std::string> &texts, const std::string &between);
std::vector<std::string> parts_of(const std::string &text, char between);

// The known word that takes the fewest changes of a letter, and at most so many. Null when none is that near.
const std::string *nearest(const std::string &word, const std::vector<std::string> &known, size_t changes);

// Nothing when it can't be read.
std::optional<std::string> read_file(const std::string &path);
