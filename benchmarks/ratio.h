#ifndef KDRDATA_BENCHMARKS_RATIO_H
#define KDRDATA_BENCHMARKS_RATIO_H

// Two ways to the same result, compared in one process: they take turns, so that what else runs on
// the machine slows both alike, and the medians of their times are divided.

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace ratio {

/// Turns that each side takes, after one that does not count.
constexpr int turns = 9;

/// The middle one of @p values, which must not be empty.
inline double median(std::vector<double> values)
{
    auto const middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// The seconds that @p operation takes.
template <class Operation>
double secondsOf(Operation const& operation)
{
    auto const start = std::chrono::steady_clock::now();
    operation();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The median times of both sides, in seconds.
struct Times
{
    double ours;
    double theirs;

    double ratio() const { return ours / theirs; }
};

/// Lets both sides take turns, and who goes first as well. @p check is called behind every turn of
/// both, untimed: it should end the program where the results differ.
template <class Ours, class Theirs, class Check>
Times compare(Ours const& ours, Theirs const& theirs, Check const& check)
{
    std::vector<double> ourTimes, theirTimes;
    for (int turn = -1; turn < turns; ++turn) {
        bool const weAreFirst = turn % 2 == 0;
        double const first = weAreFirst ? secondsOf(ours) : secondsOf(theirs);
        double const second = weAreFirst ? secondsOf(theirs) : secondsOf(ours);
        check();
        if (turn < 0)
            continue;
        ourTimes.push_back(weAreFirst ? first : second);
        theirTimes.push_back(weAreFirst ? second : first);
    }
    return {median(ourTimes), median(theirTimes)};
}

/// Names what the columns of the lines that follow compare.
inline void printHeader(char const* title, char const* ours, char const* theirs)
{
    std::printf("\n%-32s %12s %12s %8s %8s\n", title, ours, theirs, "ratio", "goal");
}

/// One line of figures; a goal of 0 is none.
inline void print(char const* name, Times const& times, double goal)
{
    std::printf("%-32s %9.2f ms %9.2f ms %8.2f", name, times.ours * 1e3, times.theirs * 1e3,
                times.ratio());
    if (goal > 0)
        std::printf("  <= %.2f%s", goal, times.ratio() <= goal ? "" : "  missed");
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace ratio

#endif
