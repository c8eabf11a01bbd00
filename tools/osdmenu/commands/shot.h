// osdmenu shot: plays keys on a compiled menu and writes what the device would show.
#pragma once

#include <string>
#include <vector>

struct ShotOptions {
    std::string directory; // of one language
    std::string output;
    std::string keys; // parted by blanks
    std::string background;
    std::string bubble;
    std::string text;
    std::string open;
    std::string trace;
    std::vector<std::string> enabled;
    std::vector<std::string> disabled;
    bool help_line = false;
    // In place of what the manifest says; 0 or empty takes that.
    int burst = 0;
    int font_size = 0;
    int width = 0;
    int height = 0;
    std::string pixel_format;
};

// The exit status.
int run_shot(const ShotOptions &options);
