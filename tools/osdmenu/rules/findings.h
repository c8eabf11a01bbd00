// What is wrong in the files that a person wrote: each finding with its place, shown as a compiler shows it.
//
// All findings of one run are collected first and shown sorted, so that one run tells everything.
#pragma once

#include <compare>
#include <cstdio>
#include <string>
#include <vector>

struct Place {
    std::string file;
    int line = 0;   // from 1; 0 means the file as a whole
    int column = 0; // from 1

    auto operator<=>(const Place &) const = default;
};

class Findings
{
  public:
    // `cure` is told where the text alone doesn't say what to do.
    void error(const Place &place, const std::string &text, const std::string &cure = {});
    void warning(const Place &place, const std::string &text, const std::string &cure = {});

    bool has_errors() const;
    void print(std::FILE *out) const;

  private:
    struct Finding {
        Place place;
        std::string kind;
        std::string text;
        std::string cure;

        auto operator<=>(const Finding &) const = default;
    };

    std::vector<Finding> findings;
};
