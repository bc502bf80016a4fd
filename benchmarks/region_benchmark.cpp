// Regions: their exchange with lists of numbers, unions and copies. The times are fitted to what is
// expected: linear for the exchange, n log n for unions, constant for copies.

#include <benchmark/benchmark.h>
#include <random>

#include <kdrdata/kdrdata.h>

namespace {

struct RunLists
{
    void add(long row, long first, long last)
    {
        rows.push_back(KDRNumber(row));
        firsts.push_back(KDRNumber(first));
        lasts.push_back(KDRNumber(last));
    }

    KDRNumberArray rows, firsts, lasts;
};

KDRRegion regionOf(RunLists& lists)
{
    KDRRegion region;
    region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, 4096, 4096);
    return region;
}

// Runs as a segmentation gives them: in order, 16 in a row, apart from each other.
RunLists sortedRuns(long count)
{
    RunLists lists;
    for (long i = 0; i < count; ++i) {
        long const column = i % 16 * 256;
        lists.add(i / 16, column, column + 99);
    }
    return lists;
}

void fromSortedRuns(benchmark::State& state)
{
    RunLists lists = sortedRuns(state.range(0));
    while (state.KeepRunning()) {
        KDRRegion region = regionOf(lists);
        benchmark::DoNotOptimize(region);
    }
    state.SetComplexityN(state.range(0));
}

void toRuns(benchmark::State& state)
{
    RunLists lists = sortedRuns(state.range(0));
    KDRRegion region = regionOf(lists);
    while (state.KeepRunning()) {
        region.toRunLengthEncodeing(&lists.rows, &lists.firsts, &lists.lasts);
        benchmark::DoNotOptimize(lists);
    }
    state.SetComplexityN(state.range(0));
}

// Blobs of 32 rows, strewn over a square whose area grows with their number, so that the share of
// them that overlap stays the same.
void unionOfBlobs(benchmark::State& state)
{
    std::mt19937 random(42);
    long side = 64;
    while (side * side < 1024 * state.range(0))
        side += 64;
    std::uniform_int_distribution<long> place(0, side);
    KDRRegionArray blobs;
    for (long i = 0; i < state.range(0); ++i) {
        RunLists lists;
        long const top = place(random);
        long const left = place(random);
        for (long row = 0; row < 32; ++row)
            lists.add(top + row, left, left + row);
        blobs.push_back(regionOf(lists));
    }
    KDRRegion all;
    while (state.KeepRunning()) {
        blobs.toUnionedRegion(&all);
        benchmark::DoNotOptimize(all);
    }
    state.SetComplexityN(state.range(0));
}

void copy(benchmark::State& state)
{
    RunLists lists = sortedRuns(state.range(0));
    KDRRegion const region = regionOf(lists);
    while (state.KeepRunning()) {
        KDRRegion other(region);
        benchmark::DoNotOptimize(other);
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(fromSortedRuns)
    ->Name("from-runs/sorted")
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);
BENCHMARK(toRuns)
    ->Name("to-runs")
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);
BENCHMARK(unionOfBlobs)
    ->Name("union/blobs")
    ->RangeMultiplier(10)
    ->Range(100, 10000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oNLogN);
BENCHMARK(copy)->Name("copy")->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::o1);

} // namespace

BENCHMARK_MAIN();
