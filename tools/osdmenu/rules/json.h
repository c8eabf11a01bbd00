// JSON as text, put together from values that are JSON already.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

// Bytes that are no UTF-8 become replacement characters: names come from anywhere.
std::string json_quoted(const std::string &text);

std::string json_object(std::initializer_list<std::pair<const char *, std::string>> members);

// One value a line.
std::string json_array(const std::vector<std::string> &values);
