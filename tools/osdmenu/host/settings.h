// What the camera remembers while it is off, kept as a JSON file on a desktop.
#pragma once

#include <map>
#include <optional>
#include <string>

struct Settings {
    std::map<std::string, int> values;        // by item
    std::map<std::string, std::string> texts; // that the host writes into items at run time, by item

    bool operator==(const Settings &) const = default;
};

// Below the user's state directory ($XDG_STATE_HOME, else ~/.local/state): a directory of its own for each menu.
std::string state_directory_of(const std::string &menu_directory);

// What such a file holds; nothing when it is damaged.
std::optional<Settings> parse_settings(const std::string &content);

// No file means no settings yet. A damaged one is set aside under another name, which the notice tells.
Settings read_settings(const std::string &path, std::string &notice);

// The file holds the old settings or the new ones, whole, whenever the process ends.
void write_settings(const std::string &path, const Settings &settings);
