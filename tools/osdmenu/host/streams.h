// The library prints on standard output and standard error, at every paint. While a Streams object lives, both lead
// to a trace file or nowhere, and what the tool itself has to say goes through `out` and `err`.
#pragma once

#include <cstdio>
#include <string>

class Streams
{
  public:
    explicit Streams(const std::string &trace_path = {});
    ~Streams();
    Streams(const Streams &) = delete;
    Streams &operator=(const Streams &) = delete;

    // Replaces a file, or writes to standard output, which "-" and its device names stand for.
    void put(const std::string &path, const std::string &content) const;
    static bool is_standard_output(const std::string &path);

    // Begins the trace file anew when it has grown past so many bytes.
    static void keep_trace_below(long limit);

    std::FILE *out;
    std::FILE *err;

    static std::string unwritable; // what could not be written in full, of all that have gone; empty for none

  private:
    std::string trace_path;
};
