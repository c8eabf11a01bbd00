// How far a long run has come, for a person who waits.
#pragma once

#include <cstdio>

#include "render/languages.h"

// One line on a terminal, nothing in a log.
ShowProgress progress_on(std::FILE *stream);
