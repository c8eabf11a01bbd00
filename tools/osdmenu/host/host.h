// The tool as a host of the library: start-up, a store of settings behind one action, keys and repaints.
#pragma once

#include <string>
#include <vector>

#include "store/manifest.h"
#include "store/resource_reader.h"

// Starts the library as any host does, from a directory that has been found sound.
void start_library(const std::string &directory, const Manifest &manifest, const Resources &resources);

void repaint();

// up, down, left, right, ok; back goes one level up, menu to the top list. False for any other name.
bool press(const std::string &key);

// Goes to an item, wherever it lies, and presses OK there. False when no page shows it.
bool open_item(const std::string &name);
