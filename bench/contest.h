// Works that run in turns, each beside the floor of the same round.
#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <functional>
#include <iterator>
#include <numeric>
#include <vector>

using Work = std::function<void()>;

inline double seconds_of(const Work &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    benchmark::ClobberMemory();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

// Who runs in turns. Without a work of pixman there are two of them.
struct Contest {
    Work floor, ours, pixman = {}, reset = [] {}; // the reset runs before each, outside the clock
};

inline double least(const std::vector<double> &values)
{
    return *std::min_element(values.begin(), values.end());
}

inline double median_ratio(const std::vector<double> &times, const std::vector<double> &floors)
{
    std::vector<double> ratios;
    std::transform(times.begin(), times.end(), floors.begin(), std::back_inserter(ratios), std::divides());
    return median(ratios);
}

// Runs all of them in each round, and goes through every order: who runs behind whom decides what the caches hold.
inline void compare(benchmark::State &state, const Contest &contest)
{
    enum { FLOOR, OURS, PIXMAN };
    const Work *works[] = {&contest.floor, &contest.ours, &contest.pixman};
    std::vector<double> times[3];
    std::vector<int> order(contest.pixman ? 3 : 2);
    std::iota(order.begin(), order.end(), 0);
    for (auto _ : state) {
        for (int turn : order) {
            contest.reset();
            times[turn].push_back(seconds_of(*works[turn]));
        }
        std::next_permutation(order.begin(), order.end());
        state.SetIterationTime(times[OURS].back());
    }
    state.counters["ratio_min"] = least(times[OURS]) / least(times[FLOOR]);
    state.counters["ratio_median"] = median_ratio(times[OURS], times[FLOOR]);
    state.counters["ours_us"] = least(times[OURS]) * 1e6;
    state.counters["floor_us"] = least(times[FLOOR]) * 1e6;
    if (contest.pixman) {
        state.counters["pixman_min"] = least(times[PIXMAN]) / least(times[FLOOR]);
        state.counters["pixman_median"] = median_ratio(times[PIXMAN], times[FLOOR]);
    }
}
