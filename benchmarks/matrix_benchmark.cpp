// Rows and columns of matrices read into number lists, up to 4096 x 4096. The times are fitted to
// the number of elements that are read.

#include <benchmark/benchmark.h>

#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/vision/kdrmatrix.h>

#include <algorithm>
#include <cstddef>

namespace {

constexpr int smallest = 256;
constexpr int largest = 4096;

KDRMatrix square(benchmark::State const& state)
{
    int const side = static_cast<int>(state.range(0));
    KDRMatrix matrix(side, side, KDRMatrix::MatrixTypeFloat32);
    // Written, so that the storage is memory of its own and not one page of zeroes.
    std::fill_n(static_cast<float*>(matrix.dataPtr()), std::size_t(side) * std::size_t(side), 0.5F);
    return matrix;
}

void readRow(benchmark::State& state)
{
    KDRMatrix matrix = square(state);
    KDRNumberArray row;
    while (state.KeepRunning()) {
        matrix.getRowData(matrix.rows() / 2, &row);
        benchmark::DoNotOptimize(row.length());
    }
    state.SetComplexityN(state.range(0));
}

void readColumn(benchmark::State& state)
{
    KDRMatrix matrix = square(state);
    KDRNumberArray column;
    while (state.KeepRunning()) {
        matrix.getColData(matrix.cols() / 2, &column);
        benchmark::DoNotOptimize(column.length());
    }
    state.SetComplexityN(state.range(0));
}

void readAllRows(benchmark::State& state)
{
    KDRMatrix matrix = square(state);
    KDRNumberArray row;
    while (state.KeepRunning()) {
        for (int i = 0; i < matrix.rows(); ++i)
            matrix.getRowData(i, &row);
        benchmark::DoNotOptimize(row.length());
    }
    state.SetComplexityN(state.range(0) * state.range(0));
}

void readAllColumns(benchmark::State& state)
{
    KDRMatrix matrix = square(state);
    KDRNumberArray column;
    while (state.KeepRunning()) {
        for (int i = 0; i < matrix.cols(); ++i)
            matrix.getColData(i, &column);
        benchmark::DoNotOptimize(column.length());
    }
    state.SetComplexityN(state.range(0) * state.range(0));
}

BENCHMARK(readRow)
    ->Name("row")
    ->RangeMultiplier(2)
    ->Range(smallest, largest)
    ->Complexity(benchmark::oN);
BENCHMARK(readColumn)
    ->Name("column")
    ->RangeMultiplier(2)
    ->Range(smallest, largest)
    ->Complexity(benchmark::oN);
BENCHMARK(readAllRows)
    ->Name("all-rows")
    ->RangeMultiplier(2)
    ->Range(smallest, largest)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(readAllColumns)
    ->Name("all-columns")
    ->RangeMultiplier(2)
    ->Range(smallest, largest)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

} // namespace

BENCHMARK_MAIN();
