// osdmenu build: from menu.yaml to the directory that a device takes.
#pragma once

#include <string>

struct BuildOptions {
    std::string menu;
    std::string directory;
    std::string template_path; // of a PO template to write as well, or empty
};

// The exit status.
int run_build(const BuildOptions &options);
