// The subcommands. Each adds itself to the command line; once that is parsed, `run` is what it asks for and gives the
// exit status.
#pragma once

#include <functional>

#include <CLI/CLI.hpp>

using Run = std::function<int()>;

inline constexpr int STATUS_CLEAN = 0, STATUS_FINDINGS = 1, STATUS_USAGE = 2;
inline constexpr int STATUS_UNCHECKED = 2;  // of `check`: it could not judge
inline constexpr int STATUS_NO_DISPLAY = 3; // of `run`: there is nothing to show the menu on

void add_build(CLI::App &app, Run &run);
void add_check(CLI::App &app, Run &run);
void add_explain(CLI::App &app, Run &run);
void add_extract(CLI::App &app, Run &run);
void add_gallery(CLI::App &app, Run &run);
void add_inspect(CLI::App &app, Run &run);
void add_play(CLI::App &app, Run &run);
void add_run(CLI::App &app, Run &run);
void add_schema(CLI::App &app, Run &run);
void add_shot(CLI::App &app, Run &run);
void add_walk(CLI::App &app, Run &run);
