#pragma once

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>

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

/// One line of the report, on the standard output and, when the environment names a file in
/// LASERWELD_MEASURES, tab by tab at its end, behind the name of the program.
inline void print(const std::string& name, const std::string& figures, const std::string& verdict)
{
    std::printf("%-62s %s %s\n", name.c_str(), figures.c_str(), verdict.c_str());
    std::fflush(stdout);
    const char* path = std::getenv("LASERWELD_MEASURES");
    if (std::FILE* file = path ? std::fopen(path, "a") : nullptr) {
        std::fprintf(file, "%s\t%s\t%s\t%s\n", program_invocation_short_name, name.c_str(),
                     figures.c_str(), verdict.c_str());
        std::fclose(file);
    }
}

inline std::string text(const Figures& figures, const char* unit)
{
    char line[100];
    std::snprintf(line, sizeof line, "%12.1f %12.1f %-3s %9.3f", figures.ours, figures.peer, unit,
                  figures.ratio());
    return line;
}

/// Prints the figures beside the bound of their ratio; false when it is over that.
inline bool report(const std::string& name, const Figures& figures, double bound,
                   const char* unit = "us")
{
    const bool holds = figures.ratio() <= bound;
    char limit[20];
    std::snprintf(limit, sizeof limit, " %6.2f", bound);
    print(name, text(figures, unit) + limit, holds ? "ok" : "OVER");
    return holds;
}

/// Prints figures that have no bound.
inline void note(const std::string& name, const Figures& figures, const char* unit)
{
    print(name, text(figures, unit) + "      -", "-");
}

/// Prints a count that is to be nothing; false when it is not.
inline bool reportNone(const std::string& name, long long count, const char* unit)
{
    char line[100];
    std::snprintf(line, sizeof line, "%12lld %12s %-3s %9s %6d", count, "-", unit, "-", 0);
    print(name, line, count == 0 ? "ok" : "OVER");
    return count == 0;
}

} // namespace Ratio
