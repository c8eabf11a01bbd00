// The texts of a menu beside the pictures that a language has for them.
#pragma once

#include <functional>

#include "core/layout.h"
#include "menu/project.h"
#include "store/resource_reader.h"

struct MeasuredText {
    const Text &text;
    const std::string &name; // of its item or line
    const Row *row;          // null for help lines and bubbles
    TextKind kind;
    int width; // pixels
};

inline int pixels_of(const ReadPicture &picture)
{
    return pixels_of(picture.size.width);
}

// In the order of the files, which is the menu's own.
void for_each_text(const Project &project, const Resources &pictures,
                   const std::function<void(const MeasuredText &)> &visit);
