// The matrix handles and the alignment over core matrices that only take notes: what the library
// asks of the core library, and what it makes of answers that the bundled one never gives.

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/vision/kdrmatrixarray.h>
#include <kdrdata/vision/kdrpointarray.h>
#include <kdrdata/vision/kdrroialignment.h>

#include <gtest/gtest.h>

#include <veldata/velmatrix.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <vector>

std::vector<std::string> VelMatrix::calls;
int VelMatrix::answer = 1;
int VelMatrix::alive = 0;

namespace {

using Calls = std::vector<std::string>;

class MatrixSeam : public testing::Test
{
protected:
    void SetUp() override
    {
        VelMatrix::calls.clear();
        VelMatrix::answer = 1;
    }
};

class MatrixArraySeam : public MatrixSeam
{
};

class ROIAlignmentSeam : public MatrixSeam
{
};

KDRNumberArray oneNumber()
{
    KDRNumberArray numbers;
    numbers.push_back(KDRNumber(77));
    return numbers;
}

TEST_F(MatrixSeam, SizesAndTypeArePassedOnInTheirOrderAndTheAnswerBack)
{
    KDRMatrix matrix(3, 4, KDRMatrix::MatrixTypeFloat32);
    VelMatrix::answer = 7;
    EXPECT_EQ(matrix.setMatrix(5, 6, KDRMatrix::MatrixTypeInt16), 7);
    VelMatrix::answer = 0;
    EXPECT_EQ(matrix.setMatrix(-1, INT_MAX, static_cast<KDRMatrix::KDRMatrixType>(42)), 0);
    EXPECT_EQ(VelMatrix::calls,
              (Calls{"sized 3 4 5", "SetMatrix 5 6 3", "SetMatrix -1 2147483647 42"}));
}

TEST_F(MatrixSeam, SizesTypeAndElementsAreTheCoreMatrixsOwn)
{
    char byte = 0;
    KDRMatrix matrix;
    VelMatrix& core = KDRInternal::wrapped(matrix);
    core.data = &byte;
    EXPECT_EQ(matrix.rows(), 2);
    EXPECT_EQ(matrix.cols(), 3);
    EXPECT_EQ(matrix.dataPtr(), &byte);
    for (int const type : {0, 6, 7, 1000, -1}) {
        core.type = type;
        EXPECT_EQ(matrix.type(), type);
    }
}

TEST_F(MatrixSeam, CopiesGoThroughTheDeepCopyOfTheSource)
{
    KDRMatrix source;
    KDRInternal::wrapped(source).rows = 9;
    KDRMatrix const copy(source);
    EXPECT_EQ(copy.rows(), 9);
    KDRMatrix assigned;
    KDRMatrix& result = (assigned = source);
    EXPECT_EQ(&result, &assigned);
    EXPECT_EQ(assigned.rows(), 9);
    EXPECT_EQ(VelMatrix::calls, (Calls{"DeepCopy", "operator=", "DeepCopy", "operator="}));
}

TEST_F(MatrixSeam, EveryCoreMatrixIsDestroyed)
{
    {
        KDRMatrix const made(1, 1, KDRMatrix::MatrixTypeInt8);
        KDRMatrix copy(made);
        copy = KDRMatrix();
        EXPECT_EQ(VelMatrix::alive, 2);
    }
    EXPECT_EQ(VelMatrix::alive, 0);
}

TEST_F(MatrixSeam, SelectTakesTheTypeOfTheValueAndPassesTheAnswerOver)
{
    KDRMatrix matrix;
    VelMatrix& core = KDRInternal::wrapped(matrix);
    VelMatrix::answer = 0;
    KDRNumber out;
    core.element = VelVar(LONG_MIN);
    EXPECT_TRUE(matrix.select(1, 2, &out));
    EXPECT_EQ(out.numType(), 0);
    EXPECT_EQ(out.toLongLong(), LONG_MIN);
    core.element = VelVar(0.1);
    EXPECT_TRUE(matrix.select(0, 1, &out));
    EXPECT_EQ(out.numType(), 1);
    EXPECT_EQ(out.toDouble(), 0.1);
    EXPECT_EQ(VelMatrix::calls, (Calls{"Select 1 2", "Select 0 1"}));
}

TEST_F(MatrixSeam, SelectOfATextAnswersFalseAndLeavesTheOutput)
{
    KDRMatrix matrix;
    for (VelVar const& text : {VelVar("5"), VelVar(L"5")}) {
        KDRInternal::wrapped(matrix).element = text;
        KDRNumber out(77);
        EXPECT_FALSE(matrix.select(0, 0, &out));
        EXPECT_EQ(out.toInt(), 77);
        EXPECT_EQ(out.numType(), 0);
    }
}

TEST_F(MatrixSeam, ReplacePassesTheKindOfTheNumberOnAndAnswersTrueWhateverTheCoreAnswers)
{
    KDRMatrix matrix;
    VelVar const& written = KDRInternal::wrapped(matrix).element;
    KDRNumber integer(LLONG_MIN + 1);
    KDRNumber floating(-0.1);
    for (int const answer : {1, 0, -1}) {
        VelMatrix::answer = answer;
        EXPECT_TRUE(matrix.replace(1, 2, integer));
        EXPECT_EQ(written.ValType(), 0);
        EXPECT_EQ(written.L(), LLONG_MIN + 1);
        EXPECT_TRUE(matrix.replace(0, 1, floating));
        EXPECT_EQ(written.ValType(), 1);
        EXPECT_EQ(written.D(), -0.1);
    }
    EXPECT_EQ(integer.toLongLong(), LLONG_MIN + 1);
    EXPECT_EQ(VelMatrix::calls.size(), 6U);
    EXPECT_EQ(VelMatrix::calls[0], "Replace 1 2");
    EXPECT_EQ(VelMatrix::calls[1], "Replace 0 1");
}

TEST_F(MatrixSeam, PositionsOutsideDoNotReachTheCoreMatrix)
{
    KDRMatrix matrix;
    struct
    {
        int row, col;
    } const outside[] = {{-1, 0}, {0, -1}, {2, 0}, {0, 3}, {INT_MIN, 0}, {INT_MAX, INT_MAX}};
    for (auto const& [row, col] : outside) {
        KDRNumber number(77);
        EXPECT_FALSE(matrix.select(row, col, &number));
        EXPECT_FALSE(matrix.replace(row, col, number));
    }
    EXPECT_EQ(VelMatrix::calls, Calls());
}

TEST_F(MatrixSeam, RowsAndColumnsOfUnknownTypesReadNothingAndAnswerTrue)
{
    double elements[6] = {};
    KDRMatrix matrix;
    VelMatrix& core = KDRInternal::wrapped(matrix);
    core.data = elements;
    for (int const type : {7, 8, 1000, INT_MAX, -1, INT_MIN}) {
        SCOPED_TRACE(type);
        core.type = type;
        KDRNumberArray out = oneNumber();
        EXPECT_TRUE(matrix.getRowData(1, &out));
        EXPECT_EQ(out.length(), 0);
        out = oneNumber();
        EXPECT_TRUE(matrix.getColData(2, &out));
        EXPECT_EQ(out.length(), 0);
        out = oneNumber();
        EXPECT_FALSE(matrix.getRowData(2, &out));
        EXPECT_EQ(out.length(), 0);
        out = oneNumber();
        EXPECT_FALSE(matrix.getColData(3, &out));
        EXPECT_EQ(out.length(), 0);
    }
}

TEST_F(MatrixSeam, WithoutStorageRowsAndColumnsAreEmptyAndAnswerTrue)
{
    KDRMatrix matrix;
    KDRNumberArray out = oneNumber();
    EXPECT_TRUE(matrix.getRowData(0, &out));
    EXPECT_EQ(out.length(), 0);
    out = oneNumber();
    EXPECT_TRUE(matrix.getColData(0, &out));
    EXPECT_EQ(out.length(), 0);
}

TEST_F(MatrixSeam, RowsAndColumnsAreReadWhateverTheStorageIsAlignedTo)
{
    double const elements[] = {0.5, 1.5, 2.5, 3.5, 4.5, 5.5};
    std::vector<unsigned char> storage(sizeof elements + 1);
    std::memcpy(storage.data() + 1, elements, sizeof elements);
    KDRMatrix matrix;
    VelMatrix& core = KDRInternal::wrapped(matrix);
    core.type = KDRMatrix::MatrixTypeFloat64;
    core.data = storage.data() + 1;
    KDRNumberArray out;
    EXPECT_TRUE(matrix.getRowData(1, &out));
    ASSERT_EQ(out.length(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(out[i].toDouble(), elements[3 + i]);
    EXPECT_TRUE(matrix.getColData(1, &out));
    ASSERT_EQ(out.length(), 2);
    EXPECT_EQ(out[0].toDouble(), 1.5);
    EXPECT_EQ(out[1].toDouble(), 4.5);
}

TEST_F(MatrixArraySeam, OperationsReachTheCoreArray)
{
    KDRMatrixArray matrices;
    KDRMatrix matrix;
    matrices.push_back(matrix);
    matrices.push_back(matrices);
    EXPECT_TRUE(matrices.insert(2, matrix));
    EXPECT_TRUE(matrices.removeAt(1));
    EXPECT_TRUE(matrices.replace(0, matrix));
    EXPECT_TRUE(matrices.swap(2, 1));
    EXPECT_TRUE(matrices.select(2, &matrix));
    EXPECT_EQ(matrix.rows(), 102);
    matrices.clear();
    EXPECT_EQ(matrices.length(), 3);
    EXPECT_EQ(VelMatrix::calls, (Calls{"Append one", "Append all", "Insert 2", "Remove 1",
                                       "Replace 0", "Swap 2 1", "Select 2", "Clear"}));
}

TEST_F(MatrixArraySeam, CopiesGoThroughTheCoreArraysAssignment)
{
    KDRMatrixArray matrices;
    KDRMatrixArray const copy(matrices);
    matrices = copy;
    EXPECT_EQ(VelMatrix::calls, (Calls{"array operator=", "array operator="}));
}

TEST_F(MatrixArraySeam, AnyIndexIsPassedToTheCoreArray)
{
    KDRMatrixArray const array;
    for (int const index : {0, 2, 3, -1, INT_MIN, INT_MAX}) {
        VelMatrix::calls.clear();
        (void)array[index];
        EXPECT_EQ(VelMatrix::calls.at(0), "operator[] " + std::to_string(index));
    }
}

TEST_F(MatrixArraySeam, IndexReadAssignsTheCoreElementWithoutDeepCopy)
{
    KDRMatrixArray const matrices;
    KDRMatrix const matrix = matrices[1];
    EXPECT_EQ(VelMatrix::calls, (Calls{"operator[] 1", "operator="}));
}

TEST_F(ROIAlignmentSeam, TheSequenceIsAssignedToAndFromAndClearedWheneverItIsGenerated)
{
    KDRROIAlignment alignment;
    KDRROIAlignment const copy(alignment);
    alignment = copy;
    KDRMatrixArray matrices;
    alignment.toMatrixArray(&matrices);
    EXPECT_FALSE(alignment.fromMatrixArray(matrices));
    EXPECT_EQ(VelMatrix::calls, Calls(4, "array operator="));

    VelMatrix::calls.clear();
    KDRNumberArray none;
    KDRNumberArray one = oneNumber();
    KDRPointArray points;
    EXPECT_TRUE(alignment.genAlignmentSequence(none, none, none, none, none, none));
    EXPECT_FALSE(alignment.genAlignmentSequence(none, none, none, none, none, one));
    EXPECT_TRUE(alignment.genAlignmentSequence(points, none, points, none));
    EXPECT_FALSE(alignment.genAlignmentSequence(points, one, points, none));
    EXPECT_EQ(VelMatrix::calls, Calls(4, "Clear"));
}

} // namespace
