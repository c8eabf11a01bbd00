// Reading YAML with places, within bounds that no person's file comes near.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <yaml-cpp/yaml.h>

#include "menu/menu_keys.h"
#include "menu/menu_model.h"

// The root of the only document. Nothing, and the fault told, when there is none to be had.
std::optional<YAML::Node> parse_yaml(const std::string &path, const std::string &content, Findings &findings);

// A mapping of the menu file, read by its keys. What is wrong with an entry is told at its place, and leaves the
// result as it was.
class Mapping
{
  public:
    // Tells of keys that are unknown, stand twice or are missing. An undefined node is a mapping without entries.
    Mapping(const std::string &path, const YAML::Node &node, const std::string &kind, Findings &findings);

    bool has(const std::string &key) const
    {
        return entry(key).IsDefined();
    }

    // Of an entry's value; without the entry, of the mapping.
    Place place(const std::string &key = {}) const;

    // A text, a number, a flag, a colour; a text with its place, or a list of these.
    template <typename Value> void read(const std::string &key, Value &result) const
    {
        if (has(key))
            take(entry(key), *table.find(key), result);
    }

    void error(const std::string &key, const std::string &text, const std::string &cure = {}) const;

    Mapping inner(const std::string &key) const;
    std::vector<Mapping> list(const std::string &key) const;

  private:
    YAML::Node entry(const std::string &key) const;
    std::vector<YAML::Node> members(const YAML::Node &list, const Key &key) const;
    bool is_readable() const;
    void check_keys() const;
    void fault(const YAML::Node &at, const std::string &text, const std::string &cure = {}) const;
    void take(const YAML::Node &found, const Key &key, std::string &result) const;
    void take(const YAML::Node &found, const Key &key, int &result) const;
    void take(const YAML::Node &found, const Key &key, bool &result) const;
    void take(const YAML::Node &found, const Key &key, Colour &result) const;
    void take(const YAML::Node &found, const Key &key, Text &result) const;
    void take(const YAML::Node &found, const Key &key, std::vector<Text> &result) const;

    std::string path;
    YAML::Node node;
    const KeyTable &table;
    Findings &findings;
};
