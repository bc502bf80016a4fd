// Twelve central steps for counting instructions, which, unlike times, do not depend on what else
// the machine does. tools/steps.py runs this program under Callgrind and compares what each of the
// functions below takes, which runs its step a hundred times, with the committed counts.

#include "ratio.h"

#include <malloc.h>

#include <cstdlib>

#include <kdrdata/kdrdata.h>
#include <veldata/veldata.h>

namespace {

constexpr int repetitions = 100;
constexpr int length = 100;

using ratio::escape;

KDRString const& text()
{
    static KDRString const value("the quick brown fox jumps over lazy dogs");
    return value;
}

KDRShape const& shape()
{
    static KDRShape const value = [] {
        KDRPoint centre(3.0, 4.0);
        KDRShape circle;
        circle.fromCircle(centre, 5.0);
        return circle;
    }();
    return value;
}

KDRVariant& number()
{
    static KDRVariant value(128);
    return value;
}

KDRNumberArray& numbers()
{
    static KDRNumberArray value = [] {
        KDRNumberArray list;
        for (int i = 0; i < length; ++i)
            list.push_back(KDRNumber(i));
        return list;
    }();
    return value;
}

KDRMatrix& matrix()
{
    static KDRMatrix value(length, length, KDRMatrix::MatrixTypeFloat32);
    return value;
}

KDRShape& polygon()
{
    static KDRShape value = [] {
        KDRPointArray corners;
        for (int i = 0; i < length; ++i)
            corners.push_back(KDRPoint(i, -i));
        KDRShape made;
        made.fromPolygon(corners);
        return made;
    }();
    return value;
}

} // namespace

// Named as tools/steps.py looks for them, and kept whole so that it finds them.
#define KDR_STEP(name)                                                                             \
    extern "C" __attribute__((noinline)) void step_##name();                                       \
    extern "C" void step_##name()

KDR_STEP(variant_of_int)
{
    for (int i = 0; i < repetitions; ++i) {
        KDRVariant variant(i);
        escape(variant);
    }
}

KDR_STEP(variant_of_text)
{
    for (int i = 0; i < repetitions; ++i) {
        KDRVariant variant(text());
        escape(variant);
    }
}

KDR_STEP(variant_of_shape)
{
    for (int i = 0; i < repetitions; ++i) {
        KDRVariant variant(shape());
        escape(variant);
    }
}

KDR_STEP(variant_copy)
{
    for (int i = 0; i < repetitions; ++i) {
        KDRVariant copy(number());
        escape(copy);
    }
}

KDR_STEP(variant_assign)
{
    KDRVariant target;
    for (int i = 0; i < repetitions; ++i) {
        target = number();
        escape(target);
    }
}

KDR_STEP(variant_write)
{
    KDRVariant target(1);
    for (int i = 0; i < repetitions; ++i) {
        target.fromInt(i);
        escape(target);
    }
}

KDR_STEP(variant_read)
{
    int value = 0;
    for (int i = 0; i < repetitions; ++i) {
        number().toInt(&value);
        escape(value);
    }
}

KDR_STEP(variant_describe)
{
    for (int i = 0; i < repetitions; ++i) {
        KDRString description = number().attribute();
        escape(description);
    }
}

KDR_STEP(array_append)
{
    for (int i = 0; i < repetitions; ++i) {
        KDRNumberArray list;
        for (int k = 0; k < length; ++k)
            list.push_back(KDRNumber(k));
        escape(list);
    }
}

KDR_STEP(array_copy_and_change)
{
    for (int i = 0; i < repetitions; ++i) {
        KDRNumberArray copy(numbers());
        copy.replace(0, KDRNumber(i));
        escape(copy);
    }
}

KDR_STEP(matrix_row)
{
    KDRNumberArray row;
    for (int i = 0; i < repetitions; ++i) {
        matrix().getRowData(i % length, &row);
        escape(row);
    }
}

KDR_STEP(polygon_to_roi_and_back)
{
    DataConvert convert;
    for (int i = 0; i < repetitions; ++i) {
        VelROI roi;
        KDRShape back;
        convert.ShapeToROI(polygon(), &roi);
        convert.ROIToShape(roi, &back);
        escape(back);
    }
}

namespace {

constexpr void (*steps[])() = {
    step_variant_of_int,        step_variant_of_text,  step_variant_of_shape,
    step_variant_copy,          step_variant_assign,   step_variant_write,
    step_variant_read,          step_variant_describe, step_array_append,
    step_array_copy_and_change, step_matrix_row,       step_polygon_to_roi_and_back,
};

} // namespace

// usage: steps RUNS. The counts of one run are the difference between some runs and one fewer: what
// is resolved, allocated or looked up for the first time falls out. The allocator neither gives
// memory back nor gathers small blocks, which it would do more or less often by where the heap
// lies.
int main(int argc, char* argv[])
{
    constexpr int large = 256 << 20;
    mallopt(M_TOP_PAD, large);
    mallopt(M_TRIM_THRESHOLD, large);
    mallopt(M_MMAP_THRESHOLD, large);
    mallopt(M_MXFAST, 0);
    int const runs = argc > 1 ? std::atoi(argv[1]) : 1;
    for (int run = 0; run < runs; ++run) {
        for (auto* const step : steps)
            step();
    }
    return 0;
}
