// Scripts: text files of statements, one a line, that play a menu on the started host. The table of their forms is what
// the reader accepts, what the player does and what the documentation lists.
#pragma once

#include <cstdio>
#include <span>

#include "rules/findings.h"
#include "script/pictures.h"

using Words = const std::vector<std::string> &;

struct Player {
    std::string script; // its path, for messages
    std::FILE *out;
    Pictures pictures;
    std::map<std::string, std::string> bubbles = {}; // that were painted, by the paths of their pictures
    int line = 0;                                    // that is played
    size_t keys = 0, failures = 0, differences = 0;
    long milliseconds = 0; // virtual ones: nothing sleeps
};

struct StatementForm {
    const char *usage; // words with | between those of which one is meant; one in capitals stands for its kind
    const char *summary;
    void (*run)(Player &player, Words words);
};
std::span<const StatementForm> statement_forms();
std::string statement_list(); // a line for each form

struct Statement {
    int line; // from 1
    const StatementForm *form;
    std::vector<std::string> words; // all of the line
};

// Each wrong line is a finding of the rule "script", also one that names what the menu doesn't have.
std::vector<Statement> parse_script(const std::string &file, const std::string &text, Findings &findings);

// As it is written in a script: in double quotes where it would else be taken for several words or none.
std::string script_word(const std::string &word);

// Tells what is not as expected, and a summary at the end. False when something failed.
bool play(Player &player, const std::vector<Statement> &script);
