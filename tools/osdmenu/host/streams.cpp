#include "host/streams.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

#include "common/text.h"
#include "store/output.h"

static std::FILE *own_copy(int fd)
{
    int copy = fcntl(fd, F_DUPFD_CLOEXEC, 3);
    std::FILE *stream = copy < 0 ? nullptr : fdopen(copy, "w");
    if (!stream)
        throw Failure(std::string("cannot copy a standard stream: ") + std::strerror(errno));
    return stream;
}

// The streams lead to one open file, so the lines of both stand in the order in which they were written.
Streams::Streams(const std::string &path) : trace_path(path.empty() ? "/dev/null" : path)
{
    int trace = open(trace_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0666);
    if (trace < 0)
        throw Failure(trace_path + ": " + std::strerror(errno));
    std::fflush(nullptr);
    out = own_copy(STDOUT_FILENO);
    err = own_copy(STDERR_FILENO);
    dup2(trace, STDOUT_FILENO);
    dup2(trace, STDERR_FILENO);
    close(trace);
}

std::string Streams::unwritable;

Streams::~Streams()
{
    std::fflush(nullptr);
    if (std::ferror(stdout) || std::ferror(stderr))
        unwritable = trace_path;
    if (std::ferror(out))
        unwritable = "standard output";
    std::clearerr(stdout);
    std::clearerr(stderr);
    dup2(fileno(out), STDOUT_FILENO);
    dup2(fileno(err), STDERR_FILENO);
    std::fclose(out);
    std::fclose(err);
}

bool Streams::is_standard_output(const std::string &path)
{
    static const std::set<std::string> NAMES = {"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"};
    return NAMES.contains(path);
}

void Streams::put(const std::string &path, const std::string &content) const
{
    if (is_standard_output(path))
        std::fwrite(content.data(), 1, content.size(), out);
    else
        replace_file(path, content);
}

// The next line goes to the new end of a file that is written by appending.
void Streams::keep_trace_below(long limit)
{
    std::fflush(stdout);
    struct stat trace;
    if (fstat(STDOUT_FILENO, &trace) == 0 && S_ISREG(trace.st_mode) && trace.st_size > limit)
        if (ftruncate(STDOUT_FILENO, 0) != 0)
            std::clearerr(stdout);
}
