#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <random>
#include <utility>
#include <vector>

#include <sys/resource.h>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <veldata/velimagetype.h>
#include <veldata/velmatrix.h>
#include <veldata/velvar.h>

#include "sanitized.h"

namespace {

constexpr int allTypes[] = {VEL_8U, VEL_8S, VEL_16U, VEL_16S, VEL_32S, VEL_32F, VEL_64F};

/// A view of the elements; the codes of the types are OpenCV's depths.
cv::Mat viewOf(VelMatrix const& matrix)
{
    return cv::Mat(matrix.Rows(), matrix.Cols(), CV_MAKETYPE(matrix.Type(), 1),
                   matrix.MatrixData());
}

VelMatrix matrixOf(cv::Mat const& mat)
{
    VelMatrix matrix(mat.rows, mat.cols, mat.depth());
    cv::Mat view = viewOf(matrix);
    mat.copyTo(view);
    return matrix;
}

bool same(VelMatrix const& matrix, cv::Mat const& mat)
{
    cv::Mat const view = viewOf(matrix);
    return view.size() == mat.size() && view.type() == mat.type() &&
           std::memcmp(view.data, mat.data, mat.total() * mat.elemSize()) == 0;
}

void expectEmpty(VelMatrix const& matrix)
{
    EXPECT_EQ(matrix.Rows(), 0);
    EXPECT_EQ(matrix.Cols(), 0);
    EXPECT_EQ(matrix.Type(), 0);
    EXPECT_EQ(matrix.MatrixData(), nullptr);
}

cv::Mat randomMat(int rows, int columns, int type, unsigned seed)
{
    cv::Mat mat(rows, columns, type);
    cv::RNG random(seed);
    random.fill(mat, cv::RNG::UNIFORM, -40000, 70000, true);
    return mat;
}

TEST(VelMatrix, DefaultIsEmpty) { expectEmpty(VelMatrix()); }

TEST(VelMatrix, EveryTypeStartsZeroedAndTightlyPacked)
{
    for (int const type : allTypes) {
        SCOPED_TRACE(type);
        VelMatrix const matrix(3, 5, type);
        EXPECT_EQ(matrix.Rows(), 3);
        EXPECT_EQ(matrix.Cols(), 5);
        EXPECT_EQ(matrix.Type(), type);
        EXPECT_TRUE(same(matrix, cv::Mat::zeros(3, 5, type)));
    }
}

TEST(VelMatrix, WithoutRowsOrColumnsThereAreNoElements)
{
    for (auto const& [rows, columns] : {std::pair{0, 4}, {4, 0}, {0, 0}, {0, INT_MAX}}) {
        VelMatrix matrix(2, 2, VEL_64F);
        EXPECT_EQ(matrix.SetMatrix(rows, columns, VEL_16S), 1);
        EXPECT_EQ(matrix.Rows(), rows);
        EXPECT_EQ(matrix.Cols(), columns);
        EXPECT_EQ(matrix.Type(), VEL_16S);
        EXPECT_EQ(matrix.MatrixData(), nullptr);
        VelVar value(7L);
        EXPECT_EQ(matrix.Select(0, 0, &value), 0);
        EXPECT_EQ(matrix.Replace(0, 0, value), 0);
        VelMatrix const copy(matrix);
        EXPECT_EQ(copy.Cols(), columns);
        EXPECT_EQ(copy.MatrixData(), nullptr);
    }
}

TEST(VelMatrix, BadSizesAndTypesAreRefusedAndChangeNothing)
{
    struct
    {
        int rows, columns, type;
    } const refused[] = {{-1, 2, VEL_8U},
                         {2, -1, VEL_8U},
                         {-1, 0, VEL_8U},
                         {0, -1, VEL_8U},
                         {INT_MIN, INT_MIN, VEL_8U},
                         {2, 2, -1},
                         {2, 2, 7},
                         {2, 2, INT_MAX},
                         {INT_MAX, INT_MAX, VEL_64F},
                         {65536, 65536, VEL_8U},
                         {32768, 65536, VEL_8U},
                         {16384, 16384, VEL_64F},
                         {1 << 16, 1 << 15, VEL_32S}};
    VelMatrix matrix = matrixOf(randomMat(3, 4, CV_16S, 1));
    cv::Mat const before = viewOf(matrix).clone();
    for (auto const& [rows, columns, type] : refused) {
        SCOPED_TRACE(testing::Message() << rows << " x " << columns << ", type " << type);
        EXPECT_EQ(matrix.SetMatrix(rows, columns, type), 0);
        EXPECT_TRUE(same(matrix, before));
        expectEmpty(VelMatrix(rows, columns, type));
    }
}

#ifndef VEL_SANITIZED
/// While it lives, the process gets no more memory than it has.
class NoMoreMemory
{
public:
    NoMoreMemory()
    {
        ::getrlimit(RLIMIT_AS, &before);
        rlimit none = before;
        none.rlim_cur = 0;
        ::setrlimit(RLIMIT_AS, &none);
    }
    NoMoreMemory(NoMoreMemory const&) = delete;
    NoMoreMemory& operator=(NoMoreMemory const&) = delete;
    ~NoMoreMemory() { ::setrlimit(RLIMIT_AS, &before); }

private:
    rlimit before = {};
};

TEST(VelMatrix, WhatThereIsNoMemoryForIsRefusedAndChangesNothing)
{
    // More than malloc may have set aside: it maps so large a block, or hands out none.
    constexpr int side = 8500;
    VelMatrix matrix = matrixOf(randomMat(3, 4, CV_16S, 12));
    cv::Mat const before = viewOf(matrix).clone();
    VelMatrix const large(side, side, VEL_8U);
    ASSERT_EQ(large.Rows(), side);
    VelMatrix made;
    int answer = -1;
    bool copyThrew = false;
    {
        NoMoreMemory const none;
        answer = matrix.SetMatrix(side, side, VEL_8U);
        made = VelMatrix(side, side, VEL_8U);
        try {
            matrix = large;
        } catch (std::bad_alloc const&) {
            copyThrew = true;
        }
    }
    EXPECT_EQ(answer, 0);
    expectEmpty(made);
    EXPECT_TRUE(copyThrew);
    EXPECT_TRUE(same(matrix, before));
}
#endif

TEST(VelMatrix, SetMatrixGivesNewZeroedElements)
{
    VelMatrix matrix = matrixOf(randomMat(3, 4, CV_16S, 2));
    EXPECT_EQ(matrix.SetMatrix(3, 4, VEL_16S), 1);
    EXPECT_TRUE(same(matrix, cv::Mat::zeros(3, 4, CV_16S)));
}

TEST(VelMatrix, CopiesAreDeep)
{
    cv::Mat const mat = randomMat(4, 3, CV_32F, 3);
    VelMatrix const original = matrixOf(mat);
    VelMatrix const copy(original);
    VelMatrix const deep = original.DeepCopy();
    VelMatrix target(1, 1, VEL_8U);
    VelMatrix const& assigned = (target = original);
    EXPECT_EQ(&assigned, &target);
    for (VelMatrix const* const matrix : {&copy, &deep, &assigned}) {
        EXPECT_NE(matrix->MatrixData(), original.MatrixData());
        EXPECT_TRUE(same(*matrix, mat));
        static_cast<float*>(matrix->MatrixData())[0] = 99.0F;
        EXPECT_TRUE(same(original, mat));
    }
}

TEST(VelMatrix, MovingLeavesTheSourceEmpty)
{
    cv::Mat const mat = randomMat(2, 2, CV_64F, 4);
    VelMatrix source = matrixOf(mat);
    void const* const elements = source.MatrixData();
    VelMatrix made(std::move(source));
    expectEmpty(source);
    VelMatrix assigned(1, 1, VEL_8U);
    assigned = std::move(made);
    expectEmpty(made);
    EXPECT_EQ(assigned.MatrixData(), elements);
    EXPECT_TRUE(same(assigned, mat));
}

TEST(VelMatrix, AssignmentToItselfChangesNothing)
{
    cv::Mat const mat = randomMat(2, 3, CV_8U, 5);
    VelMatrix matrix = matrixOf(mat);
    VelMatrix& alias = matrix;
    matrix = alias;
    EXPECT_TRUE(same(matrix, mat));
    matrix = std::move(alias);
    EXPECT_TRUE(same(matrix, mat));
}

TEST(VelMatrix, SelectReadsWhatOpenCvReads)
{
    for (int const type : allTypes) {
        cv::Mat const mat = randomMat(7, 5, type, 6);
        VelMatrix const matrix = matrixOf(mat);
        cv::Mat witness;
        mat.convertTo(witness, CV_64F);
        for (int row = 0; row < mat.rows; ++row) {
            for (int column = 0; column < mat.cols; ++column) {
                VelVar value;
                ASSERT_EQ(matrix.Select(row, column, &value), 1);
                ASSERT_EQ(value.ValType(), type <= VEL_32S ? 0 : 1);
                ASSERT_EQ(value.D(), witness.at<double>(row, column));
            }
        }
    }
}

TEST(VelMatrix, ReplaceRoundsAndSaturatesAsOpenCvDoes)
{
    std::vector<double> values = {0.0,     0.5,   1.5,   2.5,          -0.5,         -1.5,
                                  254.5,   255.5, 256.0, -128.5,       -129.0,       32767.5,
                                  65535.5, 1e9,   -1e9,  2147483520.0, -2147483520.0};
    std::mt19937 random(7);
    std::uniform_real_distribution<double> any(-70000.0, 70000.0);
    for (int i = 0; i < 300; ++i)
        values.push_back(any(random));
    for (int const type : allTypes) {
        SCOPED_TRACE(type);
        int const count = static_cast<int>(values.size());
        VelMatrix matrix(1, count, type);
        for (int i = 0; i < count; ++i)
            ASSERT_EQ(matrix.Replace(0, i, VelVar(values[static_cast<std::size_t>(i)])), 1);
        cv::Mat witness;
        cv::Mat(1, count, CV_64F, values.data()).convertTo(witness, type);
        EXPECT_EQ(cv::norm(viewOf(matrix), witness, cv::NORM_INF), 0.0);
    }
}

TEST(VelMatrix, ReplaceOfIntegersSaturatesAsOpenCvDoes)
{
    std::mt19937 random(9);
    std::uniform_int_distribution<int> bits(0, 31);
    std::vector<int> values = {0, 1, -1, 127, 128, -128, -129, 255, 256, 32767, 32768, 65536};
    values.insert(values.end(), {INT_MAX, INT_MIN, INT_MIN + 1});
    for (int i = 0; i < 300; ++i)
        values.push_back(static_cast<int>(random()) >> bits(random)); // all magnitudes
    for (int const type : allTypes) {
        SCOPED_TRACE(type);
        int const count = static_cast<int>(values.size());
        VelMatrix matrix(count, 1, type);
        for (int i = 0; i < count; ++i) {
            VelVar const value(static_cast<long>(values[static_cast<std::size_t>(i)]));
            ASSERT_EQ(matrix.Replace(i, 0, value), 1);
        }
        cv::Mat witness;
        cv::Mat(count, 1, CV_32S, values.data()).convertTo(witness, type);
        EXPECT_TRUE(same(matrix, witness));
    }
}

TEST(VelMatrix, RandomReplacementsKeepItEqualToAnOpenCvMatrix)
{
    std::mt19937 random(10);
    std::uniform_real_distribution<double> any(-300.0, 300.0);
    for (int const type : allTypes) {
        SCOPED_TRACE(type);
        cv::Mat mat = randomMat(5, 4, type, 11);
        VelMatrix matrix = matrixOf(mat);
        for (int step = 0; step < 200; ++step) {
            int const row = static_cast<int>(random() % 5);
            int const column = static_cast<int>(random() % 4);
            double const value = any(random);
            ASSERT_EQ(matrix.Replace(row, column, VelVar(value)), 1);
            cv::Mat element = mat(cv::Rect(column, row, 1, 1));
            cv::Mat(1, 1, CV_64F, cv::Scalar(value)).convertTo(element, type);
            ASSERT_TRUE(same(matrix, mat)) << "step " << step;
        }
    }
}

TEST(VelMatrix, ReplaceTakesIntegersWhole)
{
    VelMatrix bytes(1, 4, VEL_8S);
    long const values[] = {127, 128, -129, LONG_MIN};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(bytes.Replace(0, i, VelVar(values[i])), 1);
    auto const* const data = static_cast<signed char const*>(bytes.MatrixData());
    EXPECT_EQ(std::vector<int>(data, data + 4), (std::vector<int>{127, 127, -128, -128}));

    VelMatrix words(1, 2, VEL_32S);
    EXPECT_EQ(words.Replace(0, 0, VelVar(2147483647L)), 1);
    EXPECT_EQ(words.Replace(0, 1, VelVar(LONG_MAX)), 1);
    EXPECT_EQ(static_cast<int const*>(words.MatrixData())[0], INT_MAX);
    EXPECT_EQ(static_cast<int const*>(words.MatrixData())[1], INT_MAX);
}

TEST(VelMatrix, ReplaceRoundsALargeIntegerOnce)
{
    long const integer = (1L << 60) + (1L << 36) + 1;
    VelMatrix matrix(1, 1, VEL_32F);
    EXPECT_EQ(matrix.Replace(0, 0, VelVar(integer)), 1);
    EXPECT_EQ(*static_cast<float const*>(matrix.MatrixData()), static_cast<float>(integer));
    EXPECT_NE(static_cast<float>(integer), static_cast<float>(static_cast<double>(integer)));
}

TEST(VelMatrix, ReplaceBringsWhatATypeCannotHoldToItsEnds)
{
    double const infinity = std::numeric_limits<double>::infinity();
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (int const type : {VEL_8U, VEL_8S, VEL_16U, VEL_16S, VEL_32S}) {
        SCOPED_TRACE(type);
        VelMatrix matrix(1, 5, type);
        double const values[] = {nan, infinity, -infinity, 1e300, -1e300};
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(matrix.Replace(0, i, VelVar(values[i])), 1);
        VelVar read[5];
        for (int i = 0; i < 5; ++i)
            ASSERT_EQ(matrix.Select(0, i, &read[i]), 1);
        EXPECT_EQ(read[0].L(), 0);
        EXPECT_EQ(read[1].L(), read[3].L());
        EXPECT_GT(read[1].L(), 100);
        EXPECT_EQ(read[2].L(), read[4].L());
        EXPECT_LE(read[2].L(), 0);
    }
    VelMatrix floats(1, 4, VEL_32F);
    double const values[] = {nan, infinity, 1e300, -1e300};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(floats.Replace(0, i, VelVar(values[i])), 1);
    auto const* const data = static_cast<float const*>(floats.MatrixData());
    EXPECT_TRUE(std::isnan(data[0]));
    EXPECT_EQ(data[1], std::numeric_limits<float>::infinity());
    EXPECT_EQ(data[2], std::numeric_limits<float>::max());
    EXPECT_EQ(data[3], std::numeric_limits<float>::lowest());
}

TEST(VelMatrix, PositionsOutsideTextsAndNullAreRefusedAndChangeNothing)
{
    cv::Mat const mat = randomMat(2, 3, CV_16U, 8);
    VelMatrix matrix = matrixOf(mat);
    for (auto const& [row, column] :
         {std::pair{-1, 0}, {0, -1}, {2, 0}, {0, 3}, {INT_MAX, INT_MAX}, {INT_MIN, 0}}) {
        VelVar value(77L);
        EXPECT_EQ(matrix.Select(row, column, &value), 0);
        EXPECT_EQ(value.L(), 77);
        EXPECT_EQ(matrix.Replace(row, column, value), 0);
    }
    EXPECT_EQ(matrix.Select(0, 0, nullptr), 0);
    EXPECT_EQ(matrix.Replace(0, 0, VelVar("5")), 0);
    EXPECT_EQ(matrix.Replace(0, 0, VelVar(L"5")), 0);
    EXPECT_TRUE(same(matrix, mat));
}

} // namespace
