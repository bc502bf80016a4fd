#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/vision/kdrmatrix.h>
#include <kdrdata/vision/kdrmatrixarray.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <type_traits>
#include <vector>

namespace {

std::vector<double> numbersOf(KDRNumberArray const& array)
{
    std::vector<double> numbers;
    for (int i = 0; i < array.length(); ++i)
        numbers.push_back(array[i].toDouble());
    return numbers;
}

// What stands in the list before an operation that must replace it.
KDRNumberArray oldNumbers()
{
    KDRNumberArray array;
    array.push_back(KDRNumber(77));
    return array;
}

template <class Element>
KDRMatrix matrixOf(int rows, int cols, KDRMatrix::KDRMatrixType type,
                   std::vector<Element> const& elements)
{
    KDRMatrix matrix(rows, cols, type);
    std::memcpy(matrix.dataPtr(), elements.data(), elements.size() * sizeof(Element));
    return matrix;
}

TEST(Matrix, IsOnePointerWide) { EXPECT_EQ(sizeof(KDRMatrix), sizeof(void*)); }

TEST(Matrix, StartsEmpty)
{
    KDRMatrix matrix;
    EXPECT_EQ(matrix.rows(), 0);
    EXPECT_EQ(matrix.cols(), 0);
    EXPECT_EQ(matrix.type(), 0);
    EXPECT_EQ(matrix.dataPtr(), nullptr);
}

TEST(Matrix, HasTheSizesAndTheTypeItIsMadeWith)
{
    for (int code = 0; code <= 6; ++code) {
        auto const type = static_cast<KDRMatrix::KDRMatrixType>(code);
        KDRMatrix const made(2, 3, type);
        EXPECT_EQ(made.rows(), 2);
        EXPECT_EQ(made.cols(), 3);
        EXPECT_EQ(made.type(), code);
        KDRMatrix set;
        EXPECT_NE(set.setMatrix(3, 2, type), 0);
        EXPECT_EQ(set.rows(), 3);
        EXPECT_EQ(set.cols(), 2);
        EXPECT_EQ(set.type(), code);
    }
}

TEST(Matrix, RefusedSizesLeaveItAsItWasOrEmpty)
{
    KDRMatrix matrix(2, 3, KDRMatrix::MatrixTypeInt16);
    EXPECT_EQ(matrix.setMatrix(-1, 3, KDRMatrix::MatrixTypeInt16), 0);
    EXPECT_EQ(matrix.setMatrix(INT_MAX, INT_MAX, KDRMatrix::MatrixTypeFloat64), 0);
    EXPECT_EQ(matrix.setMatrix(2, 3, static_cast<KDRMatrix::KDRMatrixType>(7)), 0);
    EXPECT_EQ(matrix.rows(), 2);
    EXPECT_EQ(matrix.type(), 3);
    EXPECT_EQ(KDRMatrix(2, 3, static_cast<KDRMatrix::KDRMatrixType>(-1)).rows(), 0);
}

TEST(Matrix, CopiesAreDeep)
{
    KDRMatrix original = matrixOf<std::uint8_t>(1, 2, KDRMatrix::MatrixTypeUInt8, {5, 6});
    KDRMatrix copy(original);
    KDRMatrix assigned;
    KDRMatrix& result = (assigned = original);
    EXPECT_EQ(&result, &assigned);
    for (KDRMatrix* const matrix : {&copy, &assigned}) {
        static_cast<std::uint8_t*>(matrix->dataPtr())[0] = 99;
        EXPECT_EQ(static_cast<std::uint8_t*>(original.dataPtr())[0], 5);
        EXPECT_EQ(static_cast<std::uint8_t*>(matrix->dataPtr())[1], 6);
    }
    KDRMatrix const& alias = assigned;
    assigned = alias;
    EXPECT_EQ(static_cast<std::uint8_t*>(assigned.dataPtr())[1], 6);
}

TEST(Matrix, RowsAreDecodedByTheTypesWidthAndSign)
{
    // The first row is all zero bits, the second all one bits.
    auto const secondRow = [](KDRMatrix::KDRMatrixType type, std::size_t bytes) {
        KDRMatrix matrix(2, 3, type);
        std::memset(static_cast<unsigned char*>(matrix.dataPtr()) + 3 * bytes, 0xFF, 3 * bytes);
        KDRNumberArray row;
        EXPECT_TRUE(matrix.getRowData(1, &row));
        return numbersOf(row);
    };
    EXPECT_EQ(secondRow(KDRMatrix::MatrixTypeUInt8, 1), (std::vector<double>{255, 255, 255}));
    EXPECT_EQ(secondRow(KDRMatrix::MatrixTypeInt8, 1), (std::vector<double>{-1, -1, -1}));
    EXPECT_EQ(secondRow(KDRMatrix::MatrixTypeUInt16, 2),
              (std::vector<double>{65535, 65535, 65535}));
    EXPECT_EQ(secondRow(KDRMatrix::MatrixTypeInt16, 2), (std::vector<double>{-1, -1, -1}));
    EXPECT_EQ(secondRow(KDRMatrix::MatrixTypeInt32, 4), (std::vector<double>{-1, -1, -1}));
}

TEST(Matrix, LongRowsAndColumnsAreReadInWhole)
{
    for (int const length : {63, 64, 65, 100, 128, 129}) {
        KDRMatrix row(1, length, KDRMatrix::MatrixTypeInt32);
        KDRMatrix column(length, 1, KDRMatrix::MatrixTypeInt32);
        std::vector<double> expected;
        for (int i = 0; i < length; ++i) {
            KDRNumber number(3 * i);
            row.replace(0, i, number);
            column.replace(i, 0, number);
            expected.push_back(3.0 * i);
        }
        KDRNumberArray out = oldNumbers();
        EXPECT_TRUE(row.getRowData(0, &out));
        EXPECT_EQ(numbersOf(out), expected);
        out = oldNumbers();
        EXPECT_TRUE(column.getColData(0, &out));
        EXPECT_EQ(numbersOf(out), expected);
    }
}

TEST(Matrix, IntegersAreReadAsIntegersAndOthersAsFloatingPointNumbers)
{
    for (int code = 0; code <= 6; ++code) {
        KDRMatrix matrix(1, 1, static_cast<KDRMatrix::KDRMatrixType>(code));
        int const kind = code <= 4 ? 0 : 1;
        KDRNumberArray row;
        KDRNumberArray column;
        KDRNumber element;
        ASSERT_TRUE(matrix.getRowData(0, &row));
        ASSERT_TRUE(matrix.getColData(0, &column));
        ASSERT_TRUE(matrix.select(0, 0, &element));
        EXPECT_EQ(row[0].numType(), kind) << code;
        EXPECT_EQ(column[0].numType(), kind) << code;
        EXPECT_EQ(element.numType(), kind) << code;
    }
}

TEST(Matrix, RowsAndColumnsOutsideAnswerFalseAndClearTheOutput)
{
    KDRMatrix matrix(2, 3, KDRMatrix::MatrixTypeFloat32);
    for (int const index : {-1, 3, INT_MAX, INT_MIN}) {
        KDRNumberArray out = oldNumbers();
        EXPECT_FALSE(matrix.getRowData(index, &out));
        EXPECT_EQ(out.length(), 0);
        out = oldNumbers();
        EXPECT_FALSE(matrix.getColData(index, &out));
        EXPECT_EQ(out.length(), 0);
    }
    KDRNumberArray out = oldNumbers();
    EXPECT_FALSE(matrix.getRowData(2, &out));
    EXPECT_EQ(out.length(), 0);
    out = oldNumbers();
    EXPECT_TRUE(matrix.getColData(2, &out));
    EXPECT_EQ(out.length(), 2);
}

TEST(Matrix, ListsThatShareTheOutputsNumbersKeepTheirs)
{
    KDRMatrix matrix(2, 3, KDRMatrix::MatrixTypeInt8);
    KDRNumberArray out = oldNumbers();
    KDRNumberArray const old = out;
    ASSERT_TRUE(matrix.getRowData(0, &out));
    KDRNumberArray const row = out;
    ASSERT_TRUE(matrix.getColData(0, &out));
    EXPECT_EQ(numbersOf(old), (std::vector<double>{77}));
    EXPECT_EQ(row.length(), 3);
    EXPECT_EQ(out.length(), 2);
}

TEST(Matrix, SelectOutsideLeavesTheOutputUntouched)
{
    KDRMatrix const matrix(2, 3, KDRMatrix::MatrixTypeInt32);
    struct
    {
        int row, col;
    } const outside[] = {{-1, 0}, {0, -1}, {2, 0}, {0, 3}, {INT_MIN, INT_MAX}};
    for (auto const& [row, col] : outside) {
        KDRNumber out(77);
        EXPECT_FALSE(matrix.select(row, col, &out));
        EXPECT_EQ(out.toInt(), 77);
    }
}

TEST(Matrix, SelectKeepsTheOutputsRange)
{
    for (auto const type : {KDRMatrix::MatrixTypeInt32, KDRMatrix::MatrixTypeFloat32}) {
        KDRMatrix const matrix(1, 1, type);
        KDRNumber out(5);
        out.setMaxValue(10.0);
        ASSERT_TRUE(matrix.select(0, 0, &out));
        EXPECT_EQ(out.toInt(), 0);
        EXPECT_EQ(out.maxValue(), 10.0);
    }
}

TEST(Matrix, ReplaceAnswersTrueWhateverTheCoreLibraryDoes)
{
    KDRMatrix matrix(1, 2, KDRMatrix::MatrixTypeUInt8);
    KDRNumber integer(7);
    KDRNumber floating(2.5);
    EXPECT_TRUE(matrix.replace(0, 0, integer));
    EXPECT_TRUE(matrix.replace(0, 1, floating));
    KDRNumberArray row;
    ASSERT_TRUE(matrix.getRowData(0, &row));
    EXPECT_EQ(numbersOf(row), (std::vector<double>{7, 2}));
    KDRNumber large(1e300);
    EXPECT_TRUE(matrix.replace(0, 0, large));
    ASSERT_TRUE(matrix.getRowData(0, &row));
    EXPECT_EQ(row[0].toInt(), 255);
    EXPECT_FALSE(matrix.replace(1, 0, integer));
    EXPECT_FALSE(matrix.replace(0, -1, integer));
    EXPECT_FALSE(matrix.replace(0, 2, integer));
}

// Any value of an integer type; of a floating-point type one with a fraction, of either sign.
template <class Element>
Element anyElement(std::mt19937& random)
{
    if constexpr (std::is_integral_v<Element>)
        return static_cast<Element>(random());
    return static_cast<Element>((static_cast<double>(random()) - 2e9) / 7.0);
}

template <class Element>
void expectAgreement(KDRMatrix::KDRMatrixType type, unsigned seed)
{
    SCOPED_TRACE(testing::Message() << "type " << type << ", seed " << seed);
    std::mt19937 random(seed);
    for (int round = 0; round < 20; ++round) {
        int const rows = 1 + static_cast<int>(random() % 9);
        int const cols = 1 + static_cast<int>(random() % 9);
        std::vector<Element> elements(static_cast<std::size_t>(rows * cols));
        for (Element& element : elements)
            element = anyElement<Element>(random);
        KDRMatrix matrix = matrixOf(rows, cols, type, elements);
        for (int i = 0; i < 5; ++i) {
            std::size_t const index = random() % elements.size();
            elements[index] = anyElement<Element>(random);
            KDRNumber number(static_cast<double>(elements[index]));
            if (std::is_integral_v<Element>)
                number.fromLongLong(static_cast<long long>(elements[index]));
            ASSERT_TRUE(matrix.replace(static_cast<int>(index) / cols,
                                       static_cast<int>(index) % cols, number));
        }
        auto const at = [&](int row, int col) {
            return static_cast<double>(elements[static_cast<std::size_t>(row * cols + col)]);
        };
        for (int row = 0; row < rows; ++row) {
            KDRNumberArray out = oldNumbers();
            ASSERT_TRUE(matrix.getRowData(row, &out));
            ASSERT_EQ(out.length(), cols);
            for (int col = 0; col < cols; ++col) {
                ASSERT_EQ(out[col].toDouble(), at(row, col));
                KDRNumber number;
                ASSERT_TRUE(matrix.select(row, col, &number));
                ASSERT_EQ(number.toDouble(), at(row, col));
            }
        }
        for (int col = 0; col < cols; ++col) {
            KDRNumberArray out = oldNumbers();
            ASSERT_TRUE(matrix.getColData(col, &out));
            ASSERT_EQ(out.length(), rows);
            for (int row = 0; row < rows; ++row)
                ASSERT_EQ(out[row].toDouble(), at(row, col));
        }
    }
}

TEST(Matrix, AgreesWithAVectorOfElementsForEveryType)
{
    expectAgreement<std::uint8_t>(KDRMatrix::MatrixTypeUInt8, 1);
    expectAgreement<std::int8_t>(KDRMatrix::MatrixTypeInt8, 2);
    expectAgreement<std::uint16_t>(KDRMatrix::MatrixTypeUInt16, 3);
    expectAgreement<std::int16_t>(KDRMatrix::MatrixTypeInt16, 4);
    expectAgreement<std::int32_t>(KDRMatrix::MatrixTypeInt32, 5);
    expectAgreement<float>(KDRMatrix::MatrixTypeFloat32, 6);
    expectAgreement<double>(KDRMatrix::MatrixTypeFloat64, 7);
}

TEST(Matrix, WithoutElementsRowsAndColumnsAreEmpty)
{
    KDRMatrix columns(0, 3, KDRMatrix::MatrixTypeInt8);
    KDRMatrix rows(3, 0, KDRMatrix::MatrixTypeInt8);
    KDRNumberArray out = oldNumbers();
    EXPECT_TRUE(columns.getColData(2, &out));
    EXPECT_EQ(out.length(), 0);
    out = oldNumbers();
    EXPECT_TRUE(rows.getRowData(2, &out));
    EXPECT_EQ(out.length(), 0);
}

TEST(MatrixArray, SharesNoElementsWithWhatGoesInAndComesOut)
{
    KDRMatrix matrix = matrixOf<std::int32_t>(1, 1, KDRMatrix::MatrixTypeInt32, {5});
    KDRMatrixArray array;
    array.push_back(matrix);
    *static_cast<std::int32_t*>(matrix.dataPtr()) = 6;
    KDRMatrix out = array[0];
    EXPECT_EQ(*static_cast<std::int32_t*>(out.dataPtr()), 5);
    *static_cast<std::int32_t*>(out.dataPtr()) = 7;
    EXPECT_EQ(*static_cast<std::int32_t*>(array[0].dataPtr()), 5);
}

} // namespace
