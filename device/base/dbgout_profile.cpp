// Default levels of the debug output: silent.
#include "lib_dbgout.h"

constinit lib_dbgout_profile dbgout_profile = {};
