// The clone of an image against copying as many bytes into new memory with memcpy, which is what a
// user would write, for 1 to 64 megapixels of one byte. The two take turns, and the counters
// compare the fastest turn of each: what else runs on the machine can only add. Complexity is
// fitted to the number of pixels; beyond the caches both slow down alike, which the fit shows as
// its RMS.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

#include <kdrdata/vision/kdrimage.h>

namespace {

constexpr int side = 1024;
constexpr int maxMegapixels = 64;

struct Freed
{
    void operator()(void* block) const { std::free(block); }
};

// Seconds that the operation takes.
template <class Operation>
double timeOf(Operation const& operation)
{
    auto const start = std::chrono::steady_clock::now();
    operation();
    benchmark::ClobberMemory();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void imageClone(benchmark::State& state)
{
    int const height = static_cast<int>(state.range(0)) * side;
    std::size_t const size = std::size_t{side} * static_cast<std::size_t>(height);
    KDRImage image(nullptr, side, height, 1, 0, KDRImage::DataTypeUInt8);
    // Pages that were never written are all one and the same, and cheaper to read than pixels.
    std::memset(image.dataPtr(), 1, size);
    double fastestClone = std::numeric_limits<double>::infinity();
    double fastestCopy = fastestClone;
    while (state.KeepRunning()) {
        double const clone = timeOf([&image] {
            KDRImage const copy = image.clone();
            benchmark::DoNotOptimize(copy.dataPtr());
        });
        double const copy = timeOf([&image, size] {
            std::unique_ptr<void, Freed> const block(std::malloc(size));
            std::memcpy(block.get(), image.dataPtr(), size);
            benchmark::DoNotOptimize(block.get());
        });
        fastestClone = std::min(fastestClone, clone);
        fastestCopy = std::min(fastestCopy, copy);
        state.SetIterationTime(clone);
    }
    state.counters["memcpy_ms"] = 1000.0 * fastestCopy;
    state.counters["fastest_ms"] = 1000.0 * fastestClone;
    state.counters["ratio"] = fastestClone / fastestCopy;
    state.SetComplexityN(static_cast<int64_t>(size));
}

void imageAssignment(benchmark::State& state)
{
    int const height = static_cast<int>(state.range(0)) * side;
    KDRImage const image(nullptr, side, height, 1, 0, KDRImage::DataTypeUInt8);
    KDRImage copy;
    while (state.KeepRunning()) {
        copy = image;
        benchmark::DoNotOptimize(copy.dataPtr());
    }
    state.SetComplexityN(state.range(0) * side * side);
}

BENCHMARK(imageClone)
    ->Name("clone")
    ->RangeMultiplier(2)
    ->Range(1, maxMegapixels)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(imageAssignment)
    ->Name("assignment")
    ->RangeMultiplier(8)
    ->Range(1, maxMegapixels)
    ->Complexity(benchmark::o1);

} // namespace

BENCHMARK_MAIN();
