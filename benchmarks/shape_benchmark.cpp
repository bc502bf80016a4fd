// Shapes: what a copy costs, and outlines on their way to a region of interest and back, which is
// to take time in proportion to the number of points.

#include <benchmark/benchmark.h>

#include <kdrdata/kdrdata.h>
#include <veldata/veldata.h>

namespace {

KDRShape makePolygon(int length)
{
    KDRPointArray corners;
    for (int i = 0; i < length; ++i)
        corners.push_back(KDRPoint(i, -i));
    KDRShape shape;
    shape.fromPolygon(corners);
    return shape;
}

void shapeToROI(benchmark::State& state)
{
    auto const length = static_cast<int>(state.range(0));
    KDRShape shape = makePolygon(length);
    DataConvert convert;
    VelROI roi;
    while (state.KeepRunning()) {
        convert.ShapeToROI(shape, &roi);
        benchmark::DoNotOptimize(roi);
    }
    state.SetComplexityN(length);
}
BENCHMARK(shapeToROI)->RangeMultiplier(10)->Range(100, 1000000)->Complexity(benchmark::oN);

void roiToShape(benchmark::State& state)
{
    auto const length = static_cast<int>(state.range(0));
    KDRShape source = makePolygon(length);
    DataConvert convert;
    VelROI roi;
    convert.ShapeToROI(source, &roi);
    KDRShape shape;
    while (state.KeepRunning()) {
        convert.ROIToShape(roi, &shape);
        benchmark::DoNotOptimize(shape);
    }
    state.SetComplexityN(length);
}
BENCHMARK(roiToShape)->RangeMultiplier(10)->Range(100, 1000000)->Complexity(benchmark::oN);

void bothWays(benchmark::State& state)
{
    auto const length = static_cast<int>(state.range(0));
    KDRShape shape = makePolygon(length);
    DataConvert convert;
    VelROI roi;
    while (state.KeepRunning()) {
        convert.ShapeToROI(shape, &roi);
        convert.ROIToShape(roi, &shape);
        benchmark::DoNotOptimize(shape);
    }
    state.SetComplexityN(length);
}
BENCHMARK(bothWays)->RangeMultiplier(10)->Range(100, 1000000)->Complexity(benchmark::oN);

// The record is shared, so the number of points must not matter.
void copy(benchmark::State& state)
{
    KDRShape source = makePolygon(static_cast<int>(state.range(0)));
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(source);
        KDRShape shape(source);
        benchmark::DoNotOptimize(shape);
    }
}
BENCHMARK(copy)->Arg(0)->Arg(1000000);

// A copy that is generated anew: takes a fresh record.
void copyOnWrite(benchmark::State& state)
{
    KDRShape const source = makePolygon(1000);
    KDRPoint centre(1.0, 2.0);
    while (state.KeepRunning()) {
        KDRShape shape(source);
        shape.fromCircle(centre, 5.0);
        benchmark::DoNotOptimize(shape);
    }
}
BENCHMARK(copyOnWrite);

} // namespace

BENCHMARK_MAIN();
