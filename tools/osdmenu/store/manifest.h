// menu.json, beside the language directories: what a host must know and none of the eight files holds.
#pragma once

#include <map>
#include <set>
#include <string>

#include "menu/project.h"

// What a language was made from and what came out, as digests.
struct LanguageRecord {
    std::string inputs;
    std::string files;
};

// What the rules found in a menu that was built all the same, for whoever looks at it later.
struct KnownFinding {
    std::string rule;
    std::string severity;
    std::string text;
    std::string subject;  // the item or line that it is about
    std::string language; // empty where it holds in every language
};

struct Manifest {
    Display display; // width and height are always set
    Colour background;
    std::string device_directory;
    std::vector<std::string> languages;            // in the order of the menu
    std::string accessory;                         // name of the accessory
    std::map<std::string, std::string> free_texts; // texts that the host puts in at run time, by item
    std::map<std::string, LanguageRecord> records; // by language
    std::vector<KnownFinding> findings;
    std::set<std::string> only_read; // items that are there to be read, not to be chosen
    CheckSettings check;             // what the menu says about the findings of a walk
};

std::string manifest_text(const Project &project, const Findings &findings,
                          const std::map<std::string, std::string> &font_versions,
                          const std::map<std::string, LanguageRecord> &records);

// Reads menu.json of a directory. Without one the defaults hold, and a warning goes to the findings.
Manifest read_manifest(const std::string &directory, Findings &findings);
