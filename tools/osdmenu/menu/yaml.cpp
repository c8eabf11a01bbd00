#include "menu/yaml.h"

#include <algorithm>
#include <set>
#include <vector>

#include "common/text.h"

Yaml::Yaml(const std::string &file, Findings &list) : findings(list), path(file) {}

// The parser counts from 0.
Place Yaml::place(const YAML::Node &node) const
{
    YAML::Mark mark = node.Mark();
    return mark.is_null() ? Place{path} : Place{path, mark.line + 1, mark.column + 1};
}

YAML::Node Yaml::root()
{
    std::optional<std::string> content = read_file(path);
    if (!content) {
        findings.add({{path}, "unreadable", "cannot be read"});
        return YAML::Node(YAML::NodeType::Map);
    }
    try {
        return YAML::Load(*content);
    } catch (const YAML::Exception &e) {
        findings.add({{path, e.mark.line + 1, e.mark.column + 1}, "unreadable", e.msg});
        return YAML::Node(YAML::NodeType::Map);
    }
}

bool Yaml::check_keys(const YAML::Node &node, const std::string &what, std::initializer_list<const char *> keys)
{
    if (!node.IsMap()) {
        findings.error(place(node), what + " must be a mapping");
        return false;
    }
    std::vector<std::string> known(keys.begin(), keys.end());
    std::set<std::string> seen;
    for (const auto &entry : node) {
        std::string key = entry.first.Scalar();
        if (std::find(known.begin(), known.end(), key) == known.end())
            findings.error(place(entry.first), what + " has no " + in_quotes(key), "known are: " + joined(known, ", "));
        else if (!seen.insert(key).second)
            findings.error(place(entry.first), in_quotes(key) + " stands twice");
    }
    return true;
}

YAML::Node Yaml::required(const YAML::Node &map, const char *key, const std::string &what)
{
    const YAML::Node entry = map[key];
    if (!entry)
        findings.error(place(map), what + " needs " + in_quotes(key));
    return entry;
}

std::optional<std::string> Yaml::text(const YAML::Node &node, const std::string &what)
{
    if (!node.IsScalar()) {
        findings.error(place(node), in_quotes(what) + " must be a text");
        return std::nullopt;
    }
    // A zero byte ends a string of the resource files.
    if (!is_plain_utf8(node.Scalar())) {
        findings.error(place(node), in_quotes(what) + " holds a control character, or is no UTF-8");
        return std::nullopt;
    }
    return node.Scalar();
}

// Hexadecimal and octal numbers are numbers too.
std::optional<int> Yaml::number(const YAML::Node &node, const std::string &what)
{
    int value = 0;
    if (node.IsScalar() && YAML::convert<int>::decode(node, value))
        return value;
    findings.error(place(node), in_quotes(what) + " must be a whole number");
    return std::nullopt;
}

std::optional<Colour> Yaml::colour(const YAML::Node &node, const std::string &what)
{
    std::optional<std::string> words = text(node, what);
    if (!words)
        return std::nullopt;
    std::optional<Colour> result = parse_colour(*words);
    if (!result)
        findings.error(place(node), in_quotes(what) + " is no colour (found " + in_quotes(*words) + ")",
                       "write it as \"#rrggbb\", in quotes");
    return result;
}

void Yaml::each(const YAML::Node &node, const std::string &what, const std::function<void(const YAML::Node &)> &entry)
{
    if (!node.IsSequence()) {
        findings.error(place(node), in_quotes(what) + " must be a list");
        return;
    }
    for (const YAML::Node &member : node)
        entry(member);
}
