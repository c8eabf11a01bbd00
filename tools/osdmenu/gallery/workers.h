// Work in processes of its own: one process has one menu, and as many run at once as there are cores.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "render/languages.h"

// What a process hands back: a text, and then pairs of a name and a picture.
using Parts = std::vector<std::string>;

struct Job {
    std::string name;
    std::function<Parts()> work;
};

// The parts of each job, in the order of the jobs. A Failure tells all that went wrong.
std::vector<Parts> run_jobs(const std::vector<Job> &jobs, const ShowProgress &progress);
