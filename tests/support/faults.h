// Failures of the system, made to order, and the lines that tell of them.
#pragma once

#include <regex>

#include "support/host.h"

enum class Fault { Calloc, Read, Open, Close };

// The kind of call that fails, and how many more of them it takes: 1 is the next, below 1 none fails any more. Memory
// fails with ENOMEM, the others with EIO; a failed close closes all the same.
extern Fault failing;
extern int calls_to_failure;

// What some work prints, standard output first, without the places in the source: "ERR function: text".
inline std::string printed(const std::function<void()> &work)
{
    const Output output = output_of(work);
    return std::regex_replace(output.out + output.err, std::regex(R"(DBG_(\w+):\w+\.cpp (\w+)\[\d{4}\])"), "$1 $2:");
}

// The same without the name of that function: "ERR text".
inline std::string printed_by(const std::string &function, const std::function<void()> &work)
{
    return std::regex_replace(printed(work), std::regex(" " + function + ":"), "");
}
