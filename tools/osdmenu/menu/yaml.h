// Reading YAML with places: mappings whose keys are all known, and scalars of a given kind.
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>

#include <yaml-cpp/yaml.h>

#include "render/pixels.h"
#include "rules/findings.h"

class Yaml
{
  public:
    Yaml(const std::string &path, Findings &findings);

    // The root; an empty mapping, with an error told, when the file can't be parsed.
    YAML::Node root();

    Place place(const YAML::Node &node) const;

    // Tells about everything in a mapping that isn't one of the keys, or stands twice. False when it is no mapping.
    bool check_keys(const YAML::Node &node, const std::string &what, std::initializer_list<const char *> keys);

    // The entry, or an undefined node; a missing one that must be there is an error at the mapping.
    YAML::Node required(const YAML::Node &map, const char *key, const std::string &what);

    std::optional<std::string> text(const YAML::Node &node, const std::string &what);
    std::optional<int> number(const YAML::Node &node, const std::string &what);
    std::optional<Colour> colour(const YAML::Node &node, const std::string &what);

    // Calls back for each entry of a sequence; anything but a sequence is an error.
    void each(const YAML::Node &node, const std::string &what, const std::function<void(const YAML::Node &)> &entry);

    Findings &findings;

  private:
    std::string path;
};
