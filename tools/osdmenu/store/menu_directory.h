// A compiled menu on disk: menu.json and a directory of resources for each language.
#pragma once

#include "store/manifest.h"
#include "store/resource_reader.h"

struct MenuDirectory {
    std::string path; // with a slash at its end
    Manifest manifest;
    std::vector<std::string> languages; // that are there, in the menu's order
    std::string language;               // the one that the caller named, or else the first

    std::string directory_of(const std::string &code) const
    {
        return path + code + "/";
    }
    bool has_language(const std::string &code) const;

    // The wanted one, or `language` for an empty text. A Failure when it isn't there.
    std::string language_to_start_in(const std::string &wanted) const;
};

// Takes the directory of a whole menu, or that of one of its languages.
MenuDirectory open_menu_directory(const std::string &path, Findings &findings);

// The resources of a directory, or a Failure that tells each file, byte and fault: nothing may be painted from what
// the library would load halfway.
Resources sound_resources(const std::string &directory);
