#include "menu/yaml.h"

#include <algorithm>
#include <set>
#include <sstream>

#include <glib.h>
#include <yaml-cpp/eventhandler.h>

#include "common/text.h"

// What people run into most, said so that they need not know the parser.
static const std::pair<const char *, const char *> parser_words[] = {
    {YAML::ErrorMsg::EOF_IN_SCALAR, "the file ends in a quoted text: a quote above is not closed"},
    {YAML::ErrorMsg::TAB_IN_INDENTATION, "a tab in the indentation: indent with blanks"},
    {YAML::ErrorMsg::MAP_VALUE, "no value can begin here: quote a text that holds ': ', indent with blanks, not tabs"},
    {YAML::ErrorMsg::END_OF_MAP, "this belongs to no entry above: compare the indentation, and the quotes above"},
    {YAML::ErrorMsg::END_OF_SEQ, "this belongs to no list above: compare the indentation"},
    {YAML::ErrorMsg::END_OF_MAP_FLOW, "a '{' is not closed, or a ',' is missing"},
    {YAML::ErrorMsg::END_OF_SEQ_FLOW, "a '[' is not closed, or a ',' is missing"},
    {YAML::ErrorMsg::FLOW_END, "a bracket too many"},
    {YAML::ErrorMsg::BLOCK_ENTRY, "no list entry can begin here: indent with blanks, not tabs"},
    {YAML::ErrorMsg::UNKNOWN_TOKEN, "a text cannot begin with this character: put it in quotes"},
    {YAML::ErrorMsg::BAD_FILE, "entries are nested too deep: a menu has four levels"},
};

namespace
{

using YAML::anchor_t, YAML::Mark;

// The parser makes a document of whatever is left, without end where a bracket is in its way, so it is asked for two.
class OneDocument : public YAML::EventHandler
{
    void OnDocumentStart(const Mark &mark) override
    {
        if (documents++ > 0)
            throw YAML::Exception(mark, "the menu has ended above: a bracket too many, or a second document");
    }
    void OnDocumentEnd() override {}
    void OnNull(const Mark &, anchor_t) override {}
    void OnAlias(const Mark &, anchor_t) override {}
    void OnScalar(const Mark &, const std::string &, anchor_t, const std::string &) override {}
    void OnSequenceStart(const Mark &, const std::string &, anchor_t, YAML::EmitterStyle::value) override {}
    void OnSequenceEnd() override {}
    void OnMapStart(const Mark &, const std::string &, anchor_t, YAML::EmitterStyle::value) override {}
    void OnMapEnd() override {}

    int documents = 0;
};

} // namespace

// The parser counts from 0, in bytes.
static Place place_of(const std::string &path, const YAML::Mark &mark)
{
    return mark.is_null() ? Place{path} : Place{path, mark.line + 1, mark.column + 1};
}

// The parser would put a stand-in for each wrong byte, and take some files for UTF-16.
static void check_bytes(const std::string &content)
{
    const char *end = nullptr;
    if (g_utf8_validate(content.data(), static_cast<gssize>(content.size()), &end))
        return;
    const std::string before(content.data(), end);
    YAML::Mark mark;
    mark.line = static_cast<int>(std::count(before.begin(), before.end(), '\n'));
    mark.column = static_cast<int>(before.size() - (before.rfind('\n') + 1));
    throw YAML::Exception(mark, "this byte is no UTF-8 text; save the file as UTF-8");
}

// An alias counts as all that it stands for, since whoever reads the tree meets that again at every alias.
static void check_size(const YAML::Node &node, int depth, int &nodes)
{
    static constexpr int MAX_DEPTH = 32, MAX_NODES = 20'000; // a menu of four levels is 12 deep
    if (depth > MAX_DEPTH)
        throw YAML::Exception(node.Mark(), YAML::ErrorMsg::BAD_FILE);
    if (++nodes > MAX_NODES)
        throw YAML::Exception(node.Mark(), "the file has more than 20000 entries, aliases resolved");
    for (const auto &member : node)
        check_size(node.IsMap() ? member.second : YAML::Node(member), depth + 1, nodes);
}

std::optional<YAML::Node> parse_yaml(const std::string &path, const std::string &content, Findings &findings)
{
    try {
        check_bytes(content);
        // A quote that is not closed is told only where the file ends in the middle of a line.
        const std::string text = content.substr(0, content.find_last_not_of(" \t\r\n") + 1);
        std::istringstream in(text);
        YAML::Parser parser(in);
        OneDocument events;
        for (int documents = 0; documents < 2; documents++)
            parser.HandleNextDocument(events);
        YAML::Node root = YAML::Load(text);
        int nodes = 0;
        check_size(root, 0, nodes);
        return root;
    } catch (const YAML::Exception &fault) {
        auto known = std::find_if(std::begin(parser_words), std::end(parser_words),
                                  [&](const auto &words) { return fault.msg == words.first; });
        findings.add(
            {place_of(path, fault.mark), "unreadable", known == std::end(parser_words) ? fault.msg : known->second});
        return std::nullopt;
    }
}

static std::string cure_for(const std::string &found, const std::vector<std::string> &known)
{
    // Of a short word at least one letter must be right.
    size_t changes = std::min(found.size() / 2, size_t{2});
    const std::string *meant = nearest(found, known, changes);
    return meant ? "did you mean " + in_quotes(*meant) + "?" : "known are: " + joined(known, ", ");
}

// As a message shows what stands in the file.
static std::string found_text(const YAML::Node &node)
{
    static constexpr size_t MAX_SHOWN = 40; // bytes
    std::string shown = node.IsMap() ? "a mapping" : node.IsSequence() ? "a list" : "nothing";
    if (node.IsScalar())
        shown = in_quotes(cut_utf8(node.Scalar(), MAX_SHOWN) + (node.Scalar().size() > MAX_SHOWN ? "..." : ""));
    return " (found " + shown + ")";
}

Mapping::Mapping(const std::string &file, const YAML::Node &given, const std::string &kind, Findings &list)
    : path(file), node(given), table(key_table(kind)), findings(list)
{
    if (node.IsMap())
        check_keys();
    else if (node.IsDefined() && !is_readable())
        fault(node, table.phrase + " must be a mapping" + found_text(node));
}

// A mapping, or a text in place of one.
bool Mapping::is_readable() const
{
    return node.IsMap() || (node.IsScalar() && !table.shorthand.empty());
}

Place Mapping::place(const std::string &key) const
{
    return place_of(path, has(key) ? entry(key).Mark() : node.Mark());
}

void Mapping::error(const std::string &key, const std::string &text, const std::string &cure) const
{
    findings.error(place(key), text, cure);
}

void Mapping::fault(const YAML::Node &at, const std::string &text, const std::string &cure) const
{
    findings.error(place_of(path, at.Mark()), text, cure);
}

// The parser's node for a key that is not there can't be asked anything, so another takes its place.
YAML::Node Mapping::entry(const std::string &key) const
{
    static const YAML::Node nothing(YAML::NodeType::Undefined);
    if (node.IsScalar() && key == table.shorthand)
        return node;
    const YAML::Node found = node.IsMap() ? node[key] : nothing;
    return found ? found : nothing;
}

void Mapping::check_keys() const
{
    std::vector<std::string> known;
    for (const Key &key : table.keys)
        known.push_back(key.name);
    std::set<std::string> seen;
    for (const auto &member : node) {
        const YAML::Node key = member.first;
        if (!key.IsScalar())
            fault(key, "a key must be a text" + found_text(key));
        else if (!table.find(key.Scalar()))
            fault(key, table.phrase + " has no " + in_quotes(cut_utf8(key.Scalar(), MAX_TEXT)),
                  cure_for(key.Scalar(), known));
        else if (!seen.insert(key.Scalar()).second)
            fault(key, in_quotes(key.Scalar()) + " stands twice");
    }
    for (const Key &key : table.keys)
        if (!key.standard && !seen.contains(key.name))
            fault(node, table.phrase + " needs " + in_quotes(key.name));
}

// Empty texts have no picture, and a help line without one would end the device's load. A zero byte ends a string of
// the resource files.
void Mapping::take(const YAML::Node &found, const Key &key, std::string &result) const
{
    const std::string name = in_quotes(key.name), words = found.IsScalar() ? found.Scalar() : "";
    std::vector<std::string> known = key.words();
    if (!found.IsScalar())
        fault(found, name + " must be a text" + found_text(found));
    else if (words.empty())
        fault(found, name + " must not be empty");
    else if (!is_plain_utf8(words))
        fault(found, name + " holds a line break or another control character");
    else if (!key.limits.hold(words.size()))
        fault(found, name + " must have " + key.limits.text() + " bytes (found " + std::to_string(words.size()) + ")");
    else if (key.type == KeyType::word && std::find(known.begin(), known.end(), words) == known.end())
        fault(found, name + " must be one of the known words" + found_text(found), cure_for(words, known));
    else
        result = words;
    if (key.type == KeyType::plain_text && character_without_glyph(result))
        findings.add({place_of(path, found.Mark()), "missing-glyph",
                      "the device has no glyph for " + in_quotes(*character_without_glyph(result)) + " in " + name,
                      "it has glyphs for plain letters, digits and some signs", result});
}

// Hexadecimal and octal numbers are numbers too.
void Mapping::take(const YAML::Node &found, const Key &key, int &result) const
{
    long long value = 0;
    const std::string range = key.limits.text().empty() ? "" : ", " + key.limits.text();
    if (!found.IsScalar() || !YAML::convert<long long>::decode(found, value) || !key.limits.hold(value))
        fault(found, in_quotes(key.name) + " must be a whole number" + range + found_text(found));
    else
        result = static_cast<int>(value);
}

void Mapping::take(const YAML::Node &found, const Key &key, bool &result) const
{
    if (!found.IsScalar() || !YAML::convert<bool>::decode(found, result))
        fault(found, in_quotes(key.name) + " must be true or false" + found_text(found));
}

void Mapping::take(const YAML::Node &found, const Key &key, Colour &result) const
{
    std::optional<Colour> colour = found.IsScalar() ? parse_colour(found.Scalar()) : std::nullopt;
    if (!colour)
        fault(found, in_quotes(key.name) + " must be a colour" + found_text(found),
              "write it as \"#rrggbb\", in quotes");
    result = colour.value_or(result);
}

void Mapping::take(const YAML::Node &found, const Key &key, Text &result) const
{
    result.place = place_of(path, found.Mark());
    take(found, key, result.words);
}

void Mapping::take(const YAML::Node &found, const Key &key, std::vector<Text> &result) const
{
    for (const YAML::Node &member : members(found, key))
        take(member, key, result.emplace_back());
}

std::vector<YAML::Node> Mapping::members(const YAML::Node &list, const Key &key) const
{
    if (!list.IsSequence()) {
        fault(list, in_quotes(key.name) + " must be a list" + found_text(list), "begin each entry with '- '");
        return {};
    }
    std::vector<YAML::Node> result;
    for (const YAML::Node &member : list)
        result.push_back(member);
    if (!key.limits.hold(result.size()))
        fault(list, in_quotes(key.name) + " must have entries, " + key.limits.text() + " (found " +
                        std::to_string(result.size()) + ")");
    return result;
}

Mapping Mapping::inner(const std::string &name) const
{
    return {path, entry(name), table.find(name)->of, findings};
}

std::vector<Mapping> Mapping::list(const std::string &name) const
{
    std::vector<Mapping> result;
    if (has(name))
        for (const YAML::Node &member : members(entry(name), *table.find(name)))
            if (Mapping mapping(path, member, table.find(name)->of, findings); mapping.is_readable())
                result.push_back(mapping);
    return result;
}
