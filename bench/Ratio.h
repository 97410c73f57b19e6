#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>

/// Measures two ways of the same work beside each other in one run.
namespace Ratio {

using Work = std::function<void()>;

/// Time of one run, in microseconds.
inline double microseconds(const Work& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::micro> taken =
        std::chrono::steady_clock::now() - start;
    return taken.count();
}

/// Time of one run that the process spends computing, in microseconds: less disturbed by others.
inline double processorMicroseconds(const Work& work)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
    };
    const double start = now();
    work();
    return now() - start;
}

struct Figures
{
    double ours;
    double peer;
    double ratio() const { return ours / peer; }
};

/// Runs both alternately, so that both see the same disturbances, and keeps the least of each.
inline Figures measure(int rounds, const Work& ours, const Work& peer)
{
    Figures least{1e300, 1e300};
    for (int round = 0; round < rounds; ++round) {
        least.ours = std::min(least.ours, microseconds(ours));
        least.peer = std::min(least.peer, microseconds(peer));
    }
    return least;
}

/// Prints the figures beside the limit; false when the ratio is over it.
inline bool report(const char* name, const Figures& figures, double limit)
{
    const bool holds = figures.ratio() <= limit;
    std::printf("%-58s %12.1f us %12.1f us   ratio %6.3f   limit %5.2f   %s\n", name, figures.ours,
                figures.peer, figures.ratio(), limit, holds ? "ok" : "OVER");
    return holds;
}

} // namespace Ratio
