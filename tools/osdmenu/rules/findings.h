// What is wrong in the files that a person wrote: each finding with the rule it breaks, its place and a cure.
//
// All findings of one run are collected first and shown sorted, so that one run tells everything.
#pragma once

#include <compare>
#include <string>
#include <vector>

struct Place {
    std::string file;
    int line = 0;   // from 1; 0 means the file as a whole
    int column = 0; // from 1

    auto operator<=>(const Place &) const = default;
};

enum class Severity { error, warning, off };
inline constexpr Severity SEVERITIES[] = {Severity::error, Severity::warning, Severity::off};
const char *severity_name(Severity severity);

struct Finding {
    Place place;
    std::string rule; // a name of the rule table
    std::string text;
    std::string cure = {};     // told where the text alone doesn't say what to do
    std::string subject = {};  // name of the item or line that it is about; a suppression names it
    std::string language = {}; // empty where it holds in every language
    Severity severity = Severity::error;

    auto operator<=>(const Finding &) const = default;
};

// A finding that the menu's designer knows of and wants to hear no more about.
struct Suppression {
    Place place;
    std::string rule;
    std::string subject;  // empty for all
    std::string language; // empty for all
    std::string reason;
};

// What the menu file says about the findings themselves.
struct CheckSettings {
    std::vector<std::pair<std::string, Severity>> severities; // by rule, in place of the rule's own
    std::vector<Suppression> suppressions;
};

class Findings
{
  public:
    // With the severity of its rule.
    void add(Finding finding);

    // What the reader of a file can't take: rule "menu-file".
    void error(const Place &place, const std::string &text, const std::string &cure = {});

    void append(const Findings &others);

    // Gives each finding the severity that the menu asks for, drops what is off or suppressed, and adds a finding for
    // each suppression that met nothing.
    void settle(const CheckSettings &settings);

    size_t count(Severity severity) const;
    bool has_errors() const
    {
        return count(Severity::error) > 0;
    }
    bool has_rule(const std::string &rule) const;

    // By place, each once.
    std::vector<Finding> sorted() const;

  private:
    std::vector<Finding> findings;
};
