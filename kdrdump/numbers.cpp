#include "numbers.h"

#include "page/page.h"

#include <QtCore/qlocale.h>
#include <algorithm>
#include <cmath>
#include <vector>

namespace kdrdump {

namespace {

constexpr int mostRows = 1000;
constexpr int mostColumns = 64;

std::string textOf(double number)
{
    if (std::abs(number) < 1e15 && number == std::floor(number))
        return std::to_string(static_cast<long long>(number));
    return QString::number(number, 'g', QLocale::FloatingPointShortest).toStdString();
}

std::string cutOf(int shown, int all, char const* what)
{
    return shown < all
               ? "; the first " + std::to_string(shown) + " of " + std::to_string(all) + ' ' + what
               : "";
}

std::string headingOf(page::Entry const& entry)
{
    return entry.path.empty() ? entry.name : entry.name + ", at " + entry.path;
}

std::string tableOf(KDRNumberArray const& numbers)
{
    constexpr int across = 10;
    int const shown = std::min(numbers.length(), mostRows * across);
    page::PageTable table;
    table.about =
        std::to_string(numbers.length()) + " numbers" + cutOf(shown, numbers.length(), "numbers");
    table.columns = {"from"};
    for (int i = 0; i < std::min(across, shown); ++i)
        table.columns.push_back('+' + std::to_string(i));
    for (int i = 0; i < shown; ++i) {
        if (i % across == 0)
            table.rows.push_back({std::to_string(i)});
        table.rows.back().push_back(textOf(numbers[i].toDouble()));
    }
    if (!table.rows.empty())
        table.rows.back().resize(table.columns.size());
    std::string const chart = numbers.length() < 5 ? "" : page::histogramOf("How often", numbers);
    return page::tableOf(table) +
           (chart.empty() ? "" : "<div class=\"charts\">" + chart + "</div>\n");
}

std::string tableOf(KDRMatrix const& matrix)
{
    int const rows = std::min(matrix.rows(), mostRows);
    int const columns = std::min(matrix.cols(), mostColumns);
    page::PageTable table;
    table.about = std::to_string(matrix.rows()) + " rows, " + std::to_string(matrix.cols()) +
                  " columns" + cutOf(rows, matrix.rows(), "rows") +
                  cutOf(columns, matrix.cols(), "columns");
    table.columns = {"row"};
    for (int column = 0; column < columns; ++column)
        table.columns.push_back(std::to_string(column));
    for (int row = 0; row < rows; ++row) {
        table.rows.push_back({std::to_string(row)});
        for (int column = 0; column < columns; ++column) {
            KDRNumber number;
            matrix.select(row, column, &number);
            table.rows.back().push_back(textOf(number.toDouble()));
        }
    }
    return page::tableOf(table);
}

std::string tableOf(KDRPointArray const& points)
{
    int const shown = std::min(points.length(), mostRows);
    page::PageTable table;
    table.about =
        std::to_string(points.length()) + " points" + cutOf(shown, points.length(), "points");
    table.columns = {"no", "x", "y"};
    for (int i = 0; i < shown; ++i) {
        KDRPoint const point = points[i];
        table.rows.push_back({std::to_string(i), textOf(point.x()), textOf(point.y())});
    }
    return page::tableOf(table);
}

} // namespace

std::string numbersIn(page::Entry const& entry)
{
    KDRNumberArray numbers;
    KDRMatrix matrix;
    KDRPointArray points;
    if (entry.value.toNumberArray(&numbers) && numbers.length() > 0)
        return page::sectionOf(headingOf(entry), tableOf(numbers));
    if (entry.value.toMatrix(&matrix) && matrix.rows() > 0 && matrix.cols() > 0)
        return page::sectionOf(headingOf(entry), tableOf(matrix));
    if (entry.value.toPointArray(&points) && points.length() > 0)
        return page::sectionOf(headingOf(entry), tableOf(points));
    return "";
}

} // namespace kdrdump
