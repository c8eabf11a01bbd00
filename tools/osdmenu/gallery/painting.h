// One language of a menu as the library paints it: its pages, what keys and values change on them, and the picture of
// each string.
#pragma once

#include "gallery/workers.h"
#include "store/menu_directory.h"

struct PaintingOptions {
    bool help_line = false;
    bool strings = false;
};

// Gives a JSON object, the pictures that it counts from 0, without names, and those of the strings, with names of
// files. A process can do this once.
Parts paint_language(const MenuDirectory &menu, const std::string &language, const PaintingOptions &options);

// A name that is one plain part of a path, whatever it held.
std::string safe_file_name(const std::string &name);
