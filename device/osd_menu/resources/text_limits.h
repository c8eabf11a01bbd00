// How long the texts of a resource file may be, in bytes.
#pragma once

enum {
    TEXT_LENGTH = 128, // of a text in the file: up to its zero byte, or all of them without one
    TEXT_BLOCK = 132,  // of its block in memory; the last 4 stay zero
};
