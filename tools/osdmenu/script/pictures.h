// The pictures of a script, LANGUAGE/NAME.png below a directory of references, and what a run does with them.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "render/image.h"

enum class Verb { none, record, compare, verify, update };

struct Pictures {
    Verb verb = Verb::none;
    std::string references, failures;        // directories
    std::map<std::string, int> painted;      // lines of the script, by LANGUAGE/NAME.png
    std::map<std::string, std::string> made; // PNG files still to be written, by the same
};

// Holds a page to its reference or keeps it to be written, as the verb asks. Tells what is wrong, if anything; where a
// reference differs, a picture among the failures shows page, reference and difference beside each other.
std::string take_picture(Pictures &pictures, const std::string &path, const Image &page);

// Writes what was kept, and tells each file that is new or another than before.
void write_made(const Pictures &pictures, const std::function<void(const std::string &path)> &tell);

// References in the painted languages that no picture of the run bears the name of.
std::vector<std::string> stale_references(const Pictures &pictures);
