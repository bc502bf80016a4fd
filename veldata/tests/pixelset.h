#ifndef VELDATA_TESTS_PIXELSET_H
#define VELDATA_TESTS_PIXELSET_H

#include <array>
#include <iterator>
#include <random>
#include <set>
#include <utility>
#include <vector>

/// A row, a first and a last column, both inclusive.
using Run = std::array<long, 3>;
using Runs = std::vector<Run>;

/// The witness for regions: a set of pixels, one by one.
class PixelSet
{
public:
    PixelSet() = default;

    explicit PixelSet(Runs const& runs) { add(runs); }

    void add(Runs const& runs)
    {
        for (auto const& [row, first, last] : runs) {
            if (first > last)
                continue;
            for (long column = first;; ++column) {
                pixels.emplace(row, column);
                if (column == last)
                    break;
            }
        }
    }

    /// The longest runs of neighbouring pixels, in order of row and column.
    Runs runs() const
    {
        Runs found;
        for (auto pixel = pixels.begin(); pixel != pixels.end(); ++pixel) {
            bool const continues = pixel != pixels.begin() &&
                                   std::prev(pixel)->first == pixel->first &&
                                   std::prev(pixel)->second == pixel->second - 1;
            if (continues)
                found.back()[2] = pixel->second;
            else
                found.push_back({pixel->first, pixel->second, pixel->second});
        }
        return found;
    }

private:
    std::set<std::pair<long, long>> pixels;
};

/// Up to @p most runs close together, so that many overlap or touch and some are empty; @p row and
/// @p column are added to all their coordinates.
inline Runs randomRuns(std::mt19937& random, int most, long row = 0, long column = 0)
{
    auto const pick = [&random](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    Runs runs(static_cast<std::size_t>(pick(0, most)));
    for (Run& run : runs) {
        long const first = column + pick(-12, 6);
        run = {row + pick(-3, 3), first, first + pick(-2, 6)};
    }
    return runs;
}

#endif
