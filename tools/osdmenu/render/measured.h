// The texts of a menu beside the pictures that a language has for them.
#pragma once

#include <functional>

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
    return static_cast<int>(picture.size.width / 2);
}

// In the order of the files, which is the menu's own.
void for_each_text(const Project &project, const Resources &pictures,
                   const std::function<void(const MeasuredText &)> &visit);
