// How the cost of operations grows with their input, over four decades: 10^2 to 10^6 elements,
// characters, points, runs or pixels. The exponent is fitted to the times: 1 is linear, 0 constant;
// what leaves the caches on its way, or starts with a cost of its own, lies off by some tenths.
// `growth FILE` writes the curves as JSON.

#include "ratio.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iomanip>
#include <memory>
#include <string>
#include <vector>

#include <kdrdata/kdrdata.h>
#include <veldata/veldata.h>

namespace {

using ratio::escape;

constexpr int decades[] = {100, 1000, 10000, 100000, 1000000};

struct Curve
{
    std::string family;
    std::string name;
    std::string unit;
    double expected;
    // An operation ready to be repeated on an input of that size.
    std::function<std::function<void()>(int size)> prepare;
    std::vector<double> nanoseconds = {};
    double exponent = 0.0;
};

double measure(std::function<void()> const& operation)
{
    constexpr int turns = 7;
    constexpr double secondsATurn = 2e-3;
    std::vector<std::size_t> times;
    ratio::Side const side = [&operation](std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            operation();
        return ratio::Checksum(0);
    };
    auto const seconds =
        ratio::takeTurns("growth", {side}, turns, ratio::Clock::Processor, secondsATurn, times);
    return 1e9 * ratio::median(seconds[0]) / static_cast<double>(times[0]);
}

// The slope of the times over the sizes, both taken as logarithms.
double fittedExponent(std::vector<double> const& times)
{
    double const count = static_cast<double>(times.size());
    double sumX = 0.0;
    double sumY = 0.0;
    double sumXX = 0.0;
    double sumXY = 0.0;
    for (std::size_t i = 0; i < times.size(); ++i) {
        double const x = std::log(static_cast<double>(decades[i]));
        double const y = std::log(times[i]);
        sumX += x;
        sumY += y;
        sumXX += x * x;
        sumXY += x * y;
    }
    return (count * sumXY - sumX * sumY) / (count * sumXX - sumX * sumX);
}

// --- inputs
// ---------------------------------------------------------------------------------------

KDRString textOf(int length)
{
    KDRString text;
    KDRString const words("field,");
    text = words.repeated(length / 6 + 1);
    text.truncate(length);
    return text;
}

KDRNumberArray numbersOf(int length)
{
    KDRNumberArray numbers;
    for (int i = 0; i < length; ++i)
        numbers.push_back(KDRNumber(i));
    return numbers;
}

KDRVariantArray variantsOf(int length)
{
    KDRVariantArray variants;
    for (int i = 0; i < length; ++i)
        variants.push_back(KDRVariant(i));
    return variants;
}

KDRPointArray pointsOf(int length)
{
    KDRPointArray points;
    for (int i = 0; i < length; ++i) {
        int const row = i / 1000;
        points.push_back(KDRPoint(i % 1000, row));
    }
    return points;
}

KDRMatrix matrixOf(int elements)
{
    return KDRMatrix(elements / 10, 10, KDRMatrix::MatrixTypeFloat32);
}

struct RunLists
{
    explicit RunLists(int count)
    {
        for (int i = 0; i < count; ++i) {
            lists[0].push_back(KDRNumber(i / 16));
            lists[1].push_back(KDRNumber(i % 16 * 256));
            lists[2].push_back(KDRNumber(i % 16 * 256 + 99));
        }
    }
    KDRRegion region()
    {
        KDRRegion made;
        made.fromRunLengthEncodeing(lists[0], lists[1], lists[2], 4096, 4096);
        return made;
    }
    KDRNumberArray lists[3];
};

KDRShape polygonOf(int length)
{
    KDRPointArray points = pointsOf(length);
    KDRShape shape;
    shape.fromPolygon(points);
    return shape;
}

KDRImage imageOf(int pixels)
{
    return KDRImage(nullptr, 100, pixels / 100, 1, 0, KDRImage::DataTypeUInt8);
}

// An operation on one value that is made beforehand; the result passes through escape().
template <class Make, class Operation>
auto on(Make make, Operation operation)
{
    return [make, operation](int size) -> std::function<void()> {
        auto const value = std::make_shared<decltype(make(size))>(make(size));
        return [value, operation] {
            escape(*value);
            auto result = operation(*value);
            escape(result);
        };
    };
}

// --- the families
// ---------------------------------------------------------------------------------

void texts(std::vector<Curve>& curves)
{
    curves.push_back({"text", "append character by character", "character", 1.0,
                      on([](int size) { return size; },
                         [](int size) {
                             KDRString text;
                             KDRString const part("x");
                             for (int i = 0; i < size; ++i)
                                 text.push_back(part);
                             return text;
                         })});
    curves.push_back(
        {"text", "find what is not there", "character", 1.0,
         on(textOf, [](KDRString const& text) { return text.indexOf(KDRString("dleif")); })});
    curves.push_back({"text", "replace a character in six", "character", 1.0,
                      on(textOf, [](KDRString const& text) {
                          KDRString copy(text);
                          copy.replace(KDRString(","), KDRString("; "));
                          return copy;
                      })});
    curves.push_back({"text", "split", "character", 1.0,
                      on(textOf, [](KDRString const& text) { return text.split(KDRChar(',')); })});
    curves.push_back({"text", "copy", "character", 0.0,
                      on(textOf, [](KDRString const& text) { return KDRString(text); })});
    curves.push_back({"text", "expression, find what is not there", "character", 1.0,
                      on(textOf, [](KDRString const& text) {
                          return text.indexOf(KDRRegExp(KDRString("fieldx+")));
                      })});
    curves.push_back({"text", "bytes to base64", "byte", 1.0,
                      on([](int size) { return KDRBuffer(size, 'x'); },
                         [](KDRBuffer const& bytes) { return bytes.toBase64(); })});
}

void arrays(std::vector<Curve>& curves)
{
    curves.push_back(
        {"array", "append numbers", "number", 1.0, on([](int size) { return size; }, numbersOf)});
    curves.push_back({"array", "select all numbers", "number", 1.0,
                      on(numbersOf, [](KDRNumberArray const& numbers) {
                          KDRNumber number;
                          double sum = 0.0;
                          for (int i = 0; i < numbers.length(); ++i) {
                              numbers.select(i, &number);
                              sum += number.toDouble();
                          }
                          return sum;
                      })});
    curves.push_back(
        {"array", "copy", "number", 0.0,
         on(numbersOf, [](KDRNumberArray const& numbers) { return KDRNumberArray(numbers); })});
    curves.push_back({"array", "copy + one change", "number", 1.0,
                      on(numbersOf, [](KDRNumberArray const& numbers) {
                          KDRNumberArray copy(numbers);
                          copy.replace(0, KDRNumber(7));
                          return copy;
                      })});
    curves.push_back({"array", "insert in front + remove", "number", 1.0,
                      on(numbersOf, [](KDRNumberArray& numbers) {
                          numbers.insert(0, KDRNumber(7));
                          return numbers.removeAt(numbers.length() / 2);
                      })});
    curves.push_back(
        {"array", "append points", "point", 1.0, on([](int size) { return size; }, pointsOf)});
}

void variants(std::vector<Curve>& curves)
{
    curves.push_back({"variant", "copy of a variant of numbers", "number", 0.0,
                      on([](int size) { return KDRVariant(numbersOf(size)); },
                         [](KDRVariant const& variant) { return KDRVariant(variant); })});
    curves.push_back({"variant", "clone of a variant of variants", "variant", 0.0,
                      on([](int size) { return KDRVariant(variantsOf(size)); },
                         [](KDRVariant const& variant) { return variant.clone(); })});
    curves.push_back({"variant", "append variants", "variant", 1.0,
                      on([](int size) { return size; }, variantsOf)});
    curves.push_back({"variant", "copy of an array + one change", "variant", 1.0,
                      on(variantsOf, [](KDRVariantArray const& array) {
                          KDRVariantArray copy(array);
                          copy.replace(0, KDRVariant(7));
                          return copy;
                      })});
}

void vision(std::vector<Curve>& curves)
{
    curves.push_back({"vision", "matrix column to numbers", "element", 1.0,
                      on([](int size) { return matrixOf(10 * size); },
                         [](KDRMatrix& matrix) {
                             KDRNumberArray column;
                             matrix.getColData(3, &column);
                             return column;
                         })});
    curves.push_back({"vision", "matrix copy", "element", 1.0,
                      on(matrixOf, [](KDRMatrix const& matrix) { return KDRMatrix(matrix); })});
    curves.push_back({"vision", "region from sorted runs", "run", 1.0,
                      on([](int size) { return RunLists(size); },
                         [](RunLists& lists) { return lists.region(); })});
    curves.push_back({"vision", "region to runs", "run", 1.0,
                      on([](int size) { return RunLists(size).region(); },
                         [](KDRRegion& region) {
                             RunLists lists(0);
                             region.toRunLengthEncodeing(&lists.lists[0], &lists.lists[1],
                                                         &lists.lists[2]);
                             return lists;
                         })});
    curves.push_back({"vision", "region copy", "run", 0.0,
                      on([](int size) { return RunLists(size).region(); },
                         [](KDRRegion const& region) { return KDRRegion(region); })});
    curves.push_back(
        {"vision", "polygon to a ROI and back", "point", 1.0, on(polygonOf, [](KDRShape& shape) {
             DataConvert convert;
             VelROI roi;
             KDRShape back;
             convert.ShapeToROI(shape, &roi);
             convert.ROIToShape(roi, &back);
             return back;
         })});
    curves.push_back({"vision", "shape copy", "point", 0.0,
                      on(polygonOf, [](KDRShape const& shape) { return KDRShape(shape); })});
    curves.push_back({"vision", "image clone", "pixel", 1.0,
                      on(imageOf, [](KDRImage& image) { return image.clone(); })});
    curves.push_back({"vision", "image copy", "pixel", 0.0,
                      on(imageOf, [](KDRImage const& image) { return KDRImage(image); })});
}

// The union of many regions of 32 runs, strewn so that the share that overlaps stays the same.
void unions(std::vector<Curve>& curves)
{
    curves.push_back({"vision", "union of regions of 32 runs in all", "run", 1.0,
                      on(
                          [](int size) {
                              KDRRegionArray blobs;
                              int const count = size / 32 + 1;
                              int const side = static_cast<int>(std::sqrt(1024.0 * count)) + 1;
                              unsigned int place = 42;
                              for (int i = 0; i < count; ++i) {
                                  RunLists runs(0);
                                  place = place * 1664525U + 1013904223U;
                                  int const top = static_cast<int>(place >> 8U) % side;
                                  place = place * 1664525U + 1013904223U;
                                  int const left = static_cast<int>(place >> 8U) % side;
                                  for (int row = 0; row < 32; ++row) {
                                      runs.lists[0].push_back(KDRNumber(top + row));
                                      runs.lists[1].push_back(KDRNumber(left));
                                      runs.lists[2].push_back(KDRNumber(left + row));
                                  }
                                  blobs.push_back(runs.region());
                              }
                              return blobs;
                          },
                          [](KDRRegionArray& blobs) {
                              KDRRegion all;
                              blobs.toUnionedRegion(&all);
                              return all;
                          })});
}

bool write(char const* path, std::vector<Curve> const& curves)
{
    std::ofstream file(path);
    file << "[\n" << std::setprecision(6);
    for (std::size_t i = 0; i < curves.size(); ++i) {
        Curve const& curve = curves[i];
        file << R"({"family": ")" << curve.family << R"(", "name": ")" << curve.name
             << R"(", "unit": ")" << curve.unit << R"(", "expected": )" << curve.expected
             << R"(, "exponent": )" << curve.exponent << R"(, "points": [)";
        for (std::size_t point = 0; point < curve.nanoseconds.size(); ++point)
            file << (point ? ", [" : "[") << decades[point] << ", " << curve.nanoseconds[point]
                 << ']';
        file << "]}" << (i + 1 < curves.size() ? ",\n" : "\n");
    }
    file << "]\n";
    file.close();
    return static_cast<bool>(file);
}

} // namespace

int main(int argc, char* argv[])
{
    std::vector<Curve> curves;
    texts(curves);
    arrays(curves);
    variants(curves);
    vision(curves);
    unions(curves);
    std::printf("%-10s %-38s %12s %12s %12s %12s %12s %9s\n", "family", "ns for", "10^2", "10^3",
                "10^4", "10^5", "10^6", "exponent");
    for (Curve& curve : curves) {
        std::printf("%-10s %-38s", curve.family.c_str(), curve.name.c_str());
        for (int const size : decades) {
            curve.nanoseconds.push_back(measure(curve.prepare(size)));
            std::printf(" %12.0f", curve.nanoseconds.back());
        }
        curve.exponent = fittedExponent(curve.nanoseconds);
        std::printf(" %9.2f\n", curve.exponent);
        std::fflush(stdout);
    }
    return argc > 1 && !write(argv[1], curves) ? 1 : 0;
}
