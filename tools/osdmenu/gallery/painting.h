// One language of a menu as the library paints it: its pages, what keys and values change on them, and the picture of
// each string.
#pragma once

#include "gallery/workers.h"
#include "store/menu_directory.h"

struct PaintingOptions {
    bool help_line = false;
    bool strings = false;
    const Parts *before = nullptr; // the language as it was painted of an earlier edition
};

// Gives a JSON object, then the pictures that it counts from 0, without names, and those of the strings, each by the
// name of its file. A process can do this once.
Parts paint_language(const MenuDirectory &menu, const std::string &language, const PaintingOptions &options);
