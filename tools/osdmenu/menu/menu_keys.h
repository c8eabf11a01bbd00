// Every key of the menu file, in one table: the reader takes its keys and limits from here, and the schema and the
// documentation are printed from it.
#pragma once

#include <climits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "rules/findings.h"

// A plain text has characters that the device has glyphs for; a word is one of a few; the last two are lists.
enum class KeyType { text, plain_text, number, flag, colour, word, mapping, texts, mappings };

struct Limits {
    int low = INT_MIN;
    int high = INT_MAX;

    bool hold(auto number) const
    {
        return std::cmp_greater_equal(number, low) && std::cmp_less_equal(number, high);
    }
    std::string text() const; // empty where there are none
};

struct Key {
    std::string mapping; // it stands in
    std::string name;
    KeyType type;
    Limits limits; // of a number's value, of a text's bytes, of a list's length
    std::string unit;
    std::optional<std::string> standard; // what holds where the key is left out; none where it is required
    std::string description;
    std::string of = {}; // of which kind the mappings in it are, or its words

    std::vector<std::string> words() const;
};

// The keys of one kind of mapping.
struct KeyTable {
    std::string name;
    std::string phrase; // as a message calls such a mapping
    std::string summary;
    std::string shorthand; // a bare text in place of the mapping stands for this key
    std::vector<Key> keys = {};

    const Key *find(const std::string &key) const; // or null
};

// The file itself comes first.
const std::vector<KeyTable> &all_key_tables();

const KeyTable &key_table(const std::string &name);

// One of the display's, by which manifests and command lines are held too.
const Key &display_key(const std::string &name);
