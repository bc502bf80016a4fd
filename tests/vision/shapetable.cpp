#include "shapetable.h"

#include <kdrdata/text/kdrbuffer.h>

#include <initializer_list>
#include <sstream>

namespace {

KDRPoint pointWithRanges(double x, double y)
{
    KDRPoint point(x, y);
    point.setXMaxVal(x + 100.0);
    point.setXMinVal(x - 100.0);
    point.setXStepVal(0.25);
    point.setYMaxVal(y + 200.0);
    point.setYMinVal(y - 200.0);
    point.setYStepVal(0.5);
    return point;
}

void write(std::ostream& out, KDRPoint const& point)
{
    out << '(' << point.x() << ' ' << point.y();
    for (double const bound : {point.getXMaxVal(), point.getXMinVal(), point.getXStepVal(),
                               point.getYMaxVal(), point.getYMinVal(), point.getYStepVal()})
        out << ' ' << bound;
    out << ')';
}

void write(std::ostream& out, KDRPointArray const& points)
{
    out << '[';
    for (int i = 0; i < points.length(); ++i)
        write(out, points[i]);
    out << ']';
}

void write(std::ostream& out, KDRContour const& contour)
{
    KDRPointArray points;
    contour.ToPointArray(&points);
    write(out, points);
}

void write(std::ostream& out, KDRNumberArray const& numbers)
{
    out << '[';
    for (int i = 0; i < numbers.length(); ++i)
        out << ' ' << numbers[i].toDouble();
    out << ']';
}

void write(std::ostream& out, KDRRegion region)
{
    KDRNumberArray rows;
    KDRNumberArray firsts;
    KDRNumberArray lasts;
    region.toRunLengthEncodeing(&rows, &firsts, &lasts);
    out << region.width() << 'x' << region.height();
    for (KDRNumberArray const* const runs : {&rows, &firsts, &lasts})
        write(out, *runs);
}

void write(std::ostream& out, KDRString const& text)
{
    out << '"' << text.toUtf8().constData() << '"';
}

void write(std::ostream& out, KDRFont font)
{
    write(out, font.faceName());
    out << ' ' << font.size() << ' ' << font.weight() << ' ' << font.bold() << ' ' << +font.italic()
        << ' ' << +font.underline() << ' ' << +font.strikeOut();
}

void write(std::ostream& out, KDRShapeArray const& shapes)
{
    for (int i = 0; i < shapes.length(); ++i) {
        KDRShape const shape = shapes[i];
        KDRPoint centre;
        double a = 0.0;
        double b = 0.0;
        double c = 0.0;
        double e = 0.0;
        out << '{' << shape.shapeType() << ' ' << shape.toRect2(&centre, &a, &b, &c)
            << shape.toTorus(&centre, &a, &b, &c, &e);
        write(out, centre);
        out << a << ' ' << b << ' ' << c << ' ' << e << '}';
    }
}

} // namespace

ShapeValues shapeValues(int number)
{
    ShapeValues values;
    values.first = pointWithRanges(number + 0.25, number + 0.5);
    values.second = pointWithRanges(number + 1.25, -number - 1.5);
    values.third = pointWithRanges(-number - 2.25, number + 2.5);
    values.a = number + 10.125;
    values.b = number + 20.25;
    values.c = number + 30.5;
    values.e = number + 40.75;
    values.count = number % 9 - 2;
    for (int i = 0; i < number % 6; ++i) {
        values.points.push_back(KDRPoint(number + i, number - i));
        values.numbers.push_back(KDRNumber(number * 10 + i));
    }
    values.contour.FromPointArray(values.points);
    for (int i = 0; i < number % 4; ++i)
        values.contours.push_back(values.contour);
    KDRNumberArray rows;
    KDRNumberArray firsts;
    KDRNumberArray lasts;
    rows.push_back(KDRNumber(number));
    firsts.push_back(KDRNumber(1));
    lasts.push_back(KDRNumber(number + 2));
    values.region.fromRunLengthEncodeing(rows, firsts, lasts, number + 10, number + 20);
    values.text = KDRString(("text " + std::to_string(number)).c_str());
    values.font.setFaceName(KDRString(("face " + std::to_string(number)).c_str()));
    values.font.setSize(number + 8);
    values.font.setBold(number % 2 == 0);
    KDRShape cell;
    cell.fromRect2(values.first, values.a, values.b, values.c);
    values.cells.push_back(cell);
    return values;
}

std::string describe(ShapeValues const& values)
{
    std::ostringstream out;
    out << "points ";
    for (KDRPoint const* const point : {&values.first, &values.second, &values.third})
        write(out, *point);
    out << "\nnumbers " << values.a << ' ' << values.b << ' ' << values.c << ' ' << values.e
        << "\ncount " << values.count << "\nlist ";
    write(out, values.points);
    out << "\ncontour ";
    write(out, values.contour);
    out << "\nregion ";
    write(out, values.region);
    out << "\ncontours ";
    for (int i = 0; i < values.contours.length(); ++i)
        write(out, values.contours[i]);
    out << "\nlist of numbers ";
    write(out, values.numbers);
    out << "\ntext ";
    write(out, values.text);
    out << "\nfont ";
    write(out, values.font);
    out << "\ncells ";
    write(out, values.cells);
    return out.str();
}
