#include "page.h"

#include <cmath>
#include <limits>

namespace {

TEST_F(Page, HasTablesOfNumbers)
{
    KDRMatrix matrix(2, 2, KDRMatrix::MatrixTypeFloat64);
    double const elements[] = {1.5, -2.0, 1e300, 0.1};
    std::memcpy(matrix.dataPtr(), elements, sizeof elements);
    KDRNumberArray numbers;
    for (int i = 0; i < 12; ++i)
        numbers.push_back(KDRNumber(i * 100000));
    KDRPointArray points;
    points.push_back(KDRPoint(3.0, -4.5));
    auto const page = pageOf(
        listOf({"m", KDRVariant(matrix), "n", KDRVariant(numbers), "p", KDRVariant(points)}));
    EXPECT_EQ(texts(named(page, "td")).join(' '),
              "0 1.5 -2 1 1e+300 0.1 "
              "0 0 100000 200000 300000 400000 500000 600000 700000 800000 900000 "
              "10 1000000 1100000         "
              "0 3 -4.5");
    EXPECT_EQ(texts(named(page, "h2")),
              QStringList({"m, at [1]", "n, at [3]", "p, at [5]", "The value"}));
    EXPECT_EQ(named(page, "figure").size(), 1U);
}

TEST_F(Page, WritesWholeNumbersPlainly)
{
    KDRMatrix matrix(1, 6, KDRMatrix::MatrixTypeFloat64);
    double const elements[] = {-3000000.0, 999999999999999.0, 1e15, 0.1, -2.5e-7, 123456789.25};
    std::memcpy(matrix.dataPtr(), elements, sizeof elements);
    EXPECT_EQ(texts(named(pageOf(KDRVariant(matrix)), "td")).join(' '),
              "0 -3000000 999999999999999 1e+15 0.1 -2.5e-07 123456789.25");
}

TEST_F(Page, CountsNumbersThatCanBeCounted)
{
    double const infinity = std::numeric_limits<double>::infinity();
    auto const isCounted = [this](std::initializer_list<double> each) {
        KDRNumberArray numbers;
        for (double const number : each)
            numbers.push_back(KDRNumber(number));
        auto const page = pageOf(KDRVariant(numbers));
        bool const isThere = !named(page, "figure").empty();
        EXPECT_EQ(named(page, "rect").empty(), !isThere);
        EXPECT_EQ(named(page, "td").size(), 1U + each.size());
        return isThere;
    };
    EXPECT_TRUE(isCounted({1.0, 2.0, 3.0, 4.0, 5.0}));
    EXPECT_TRUE(isCounted({7.0, 7.0, 7.0, 7.0, 7.0}));
    EXPECT_FALSE(isCounted({1.0, 2.0, 3.0, 4.0})); // too few
    EXPECT_FALSE(isCounted({1.0, 2.0, 3.0, 4.0, infinity}));
    EXPECT_FALSE(isCounted({1.0, 2.0, 3.0, 4.0, -infinity}));
    EXPECT_FALSE(isCounted({1.0, 2.0, 3.0, 4.0, std::nan("")}));
    // Further from each other than a double, and nearer than their digits.
    EXPECT_FALSE(isCounted({-1e308, 1e308, 0.0, 0.0, 0.0}));
    EXPECT_FALSE(isCounted({1e-310, 2e-310, 0.0, 0.0, 0.0}));
    for (double const sign : {1.0, -1.0})
        EXPECT_FALSE(
            isCounted({sign * 1e15, sign * (1e15 + 0.125), sign * 1e15, sign * 1e15, sign * 1e15}));
}

TEST_F(Page, CutsLongTables)
{
    KDRNumberArray numbers;
    for (int i = 0; i < 10050; ++i)
        numbers.push_back(KDRNumber(i));
    KDRPointArray points;
    for (int i = 0; i < 1001; ++i)
        points.push_back(KDRPoint(i, i));
    auto const page = pageOf(
        listOf({KDRVariant(numbers), KDRVariant(KDRMatrix(1001, 65, KDRMatrix::MatrixTypeUInt8)),
                KDRVariant(points)}));
    EXPECT_EQ(named(page, "tr").size(), 3U * (1U + 1000U));
    EXPECT_EQ(named(page, "th").size(), 11U + 65U + 3U);
    EXPECT_EQ(named(page, "td").size(), 1000U * (11U + 65U + 3U));
    QStringList about;
    for (Element const& each : page)
        if (each.of("class") == "about")
            about << each.text;
    EXPECT_EQ(about, QStringList({"10050 numbers; the first 10000 of 10050 numbers",
                                  "1001 rows, 65 columns; the first 1000 of 1001 rows; the first "
                                  "64 of 65 columns",
                                  "1001 points; the first 1000 of 1001 points"}));
}

} // namespace
