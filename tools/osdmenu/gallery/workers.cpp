#include "gallery/workers.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "common/text.h"

namespace
{

struct Running {
    pid_t process = -1;
    std::FILE *result = nullptr; // without a name, and shared with the process
};

} // namespace

static bool write_parts(std::FILE *file, const Parts &parts)
{
    for (const std::string &part : parts) {
        uint64_t size = part.size();
        std::fwrite(&size, sizeof size, 1, file);
        std::fwrite(part.data(), 1, part.size(), file);
    }
    return std::fflush(file) == 0 && !std::ferror(file);
}

static Parts read_parts(std::FILE *file)
{
    Parts parts;
    std::rewind(file);
    for (uint64_t size; std::fread(&size, sizeof size, 1, file) == 1;)
        if (std::string &part = parts.emplace_back(size, '\0'); std::fread(part.data(), 1, size, file) != size)
            throw Failure("what a process made cannot be read back");
    return parts;
}

// A failure is told in place of the parts. What belongs to the parent, as its buffers, is left alone.
[[noreturn]] static void work_in_child(const Job &job, std::FILE *result)
{
    try {
        _exit(write_parts(result, job.work()) ? 0 : 1);
    } catch (const std::exception &e) {
        write_parts(result, {e.what()});
        _exit(1);
    }
}

static Running start(const Job &job)
{
    Running running{-1, std::tmpfile()};
    if (!running.result)
        throw Failure(job.name + ": no temporary file can be made: " + std::strerror(errno));
    std::fflush(nullptr);
    running.process = fork();
    if (running.process < 0)
        throw Failure(job.name + ": no process can be started: " + std::strerror(errno));
    if (running.process == 0)
        work_in_child(job, running.result);
    return running;
}

static Parts finish(const Job &job, const Running &running, std::vector<std::string> &failures)
{
    int status = 0;
    while (waitpid(running.process, &status, 0) < 0 && errno == EINTR)
        ;
    if (WIFSIGNALED(status))
        failures.push_back(job.name + ": the process was ended by signal " + std::to_string(WTERMSIG(status)));
    Parts parts = WIFSIGNALED(status) ? Parts() : read_parts(running.result);
    std::fclose(running.result);
    if (WIFEXITED(status) && WEXITSTATUS(status) != 0)
        failures.push_back(parts.size() == 1 ? parts[0] : job.name + ": the process failed");
    return parts;
}

// The oldest is waited for: jobs of one menu take about the same time.
std::vector<Parts> run_jobs(const std::vector<Job> &jobs, const ShowProgress &progress)
{
    std::vector<Running> running;
    std::vector<Parts> results;
    std::vector<std::string> failures;
    size_t at_once = std::max(1u, std::thread::hardware_concurrency());
    for (size_t i = 0; i < jobs.size(); i++) {
        while (running.size() < std::min(jobs.size(), i + at_once))
            running.push_back(start(jobs[running.size()]));
        results.push_back(finish(jobs[i], running[i], failures));
        progress(i + 1, jobs.size(), jobs[i].name);
    }
    if (!failures.empty())
        throw Failure(joined(failures, "\n"));
    return results;
}
