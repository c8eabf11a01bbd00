// Writing results so that they are there whole or not at all.
#pragma once

#include <map>
#include <string>

// Replaces a directory by one with these files, by relative path. What stood there stays on any failure. A directory
// that holds something else than an earlier result is left alone.
void replace_directory(const std::string &directory, const std::map<std::string, std::string> &files);

void replace_file(const std::string &path, const std::string &content);
