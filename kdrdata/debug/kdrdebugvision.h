#ifndef KDRDATA_KDRDEBUGVISION_H
#define KDRDATA_KDRDEBUGVISION_H

/// @file
/// The text forms of points, pixels and small records: a part of kdrdebugtext.h, which is
/// to be included.

#include <kdrdata/debug/kdrdebuggeometry3d.h>
#include <kdrdata/debug/kdrdebugpieces.h>
#include <kdrdata/debug/kdrdebugscalars.h>
#include <kdrdata/vision/vision.h>

#include <vector>

/// @cond
namespace KDRDebug {

/// `u8`, `f64`: the type of pixels and of a matrix's elements by its code.
inline std::string elementType(int code)
{
    constexpr char const* names[] = {"u8", "s8", "u16", "s16", "s32", "f32", "f64"};
    return code >= 0 && code < 7 ? names[code] : "type " + integer(code);
}

/// The coordinates, and in full the ranges where they are not those of a new point.
template <class Point>
struct PointForm
{
    struct Range
    {
        double first;
        double last;
        double step;

        bool isDefault() const
        {
            constexpr double end = 999999.0;
            return !(first < -end || first > -end || last < end || last > end || step < 1 ||
                     step > 1);
        }
        std::string text() const
        {
            return decimal(first) + ".." + decimal(last) + " by " + decimal(step);
        }
    };

    static std::string fullOf(Point const& value, double x, double y)
    {
        Range const ofX = {value.getXMinVal(), value.getXMaxVal(), value.getXStepVal()};
        Range const ofY = {value.getYMinVal(), value.getYMaxVal(), value.getYStepVal()};
        std::string text = pair(x, y);
        if (ofX.isDefault() && ofY.isDefault())
            return text;
        return text + " in x " + ofX.text() + ", y " + ofY.text();
    }
};

template <>
struct Form<KDRPoint> : PointForm<KDRPoint>
{
    static std::string full(KDRPoint const& value, int)
    {
        return fullOf(value, value.x(), value.y());
    }
    static std::string brief(KDRPoint const& value, int) { return pair(value.x(), value.y()); }
};

template <>
struct Form<KDRPointPrivate> : PointForm<KDRPointPrivate>
{
    static std::string full(KDRPointPrivate const& value, int)
    {
        return fullOf(value, value.getXVal(), value.getYVal());
    }
};

template <>
struct Form<KDRPointArray> : ArrayForm<KDRPointArray, KDRPoint>
{
};

template <>
struct Form<KDRContour> : SameForm<Form<KDRContour>, KDRContour>
{
    static std::string full(KDRContour const& value, int depth)
    {
        KDRPointArray points;
        value.ToPointArray(&points);
        return Form<KDRPointArray>::full(points, depth);
    }
};

template <>
struct Form<KDRContourArray> : ArrayForm<KDRContourArray, KDRContour>
{
};

template <>
struct Form<KDRImage> : SameForm<Form<KDRImage>, KDRImage>
{
    static std::string full(KDRImage const& value, int)
    {
        if (value.width() == 0 || value.height() == 0)
            return "empty";
        return integer(value.width()) + 'x' + integer(value.height()) + 'x' +
               integer(value.channel()) + ' ' + elementType(value.depth());
    }
};

template <>
struct Form<KDRImageArray> : ArrayForm<KDRImageArray, KDRImage>
{
};

template <>
struct Form<KDRRegion> : SameForm<Form<KDRRegion>, KDRRegion>
{
    static std::string full(KDRRegion const& value, int)
    {
        // A constant region tells nothing.
        KDRRegion copy(value);
        KDRNumberArray rows;
        KDRNumberArray firsts;
        KDRNumberArray lasts;
        copy.toRunLengthEncodeing(&rows, &firsts, &lasts);
        unsigned long long pixels = 0;
        KDRNumber first;
        KDRNumber last;
        for (int i = 0; i < rows.length(); ++i) {
            firsts.select(i, &first);
            lasts.select(i, &last);
            pixels += static_cast<unsigned long long>(last.toLongLong()) -
                      static_cast<unsigned long long>(first.toLongLong()) + 1;
        }
        return count(pixels, "pixel") + " in " +
               count(static_cast<unsigned long long>(rows.length()), "run") + " of " +
               integer(copy.width()) + 'x' + integer(copy.height());
    }
};

template <>
struct Form<KDRRegionArray> : ArrayForm<KDRRegionArray, KDRRegion>
{
};

/// Its size and type and, of a small one, the elements row by row: `2x2 f64 [1, 0; 0, 1]`.
template <>
struct Form<KDRMatrix> : SameForm<Form<KDRMatrix>, KDRMatrix>
{
    static std::string full(KDRMatrix const& value, int depth)
    {
        int const rows = value.rows();
        int const columns = value.cols();
        std::string text = integer(rows) + 'x' + integer(columns) + ' ' + elementType(value.type());
        long long const cells = static_cast<long long>(rows) * columns;
        if (cells < 1 || cells > MostCells)
            return text;
        KDRNumber element;
        for (int i = 0; i < cells; ++i) {
            value.select(i / columns, i % columns, &element);
            text += i == 0 ? " [" : i % columns == 0 ? "; " : ", ";
            text += Form<KDRNumber>::brief(element, depth);
        }
        return text + ']';
    }
};

template <>
struct Form<KDRMatrixArray> : ArrayForm<KDRMatrixArray, KDRMatrix>
{
};

template <>
struct Form<KDRROIAlignment> : SameForm<Form<KDRROIAlignment>, KDRROIAlignment>
{
    static std::string full(KDRROIAlignment const& value, int depth)
    {
        // A constant alignment does not tell its matrices.
        KDRROIAlignment copy(value);
        KDRMatrixArray matrices;
        copy.toMatrixArray(&matrices);
        return Form<KDRMatrixArray>::full(matrices, depth);
    }
};

template <>
struct Form<KDRMatchModel> : SameForm<Form<KDRMatchModel>, KDRMatchModel>
{
    static std::string full(KDRMatchModel const& value, int)
    {
        return "type " + integer(value.ModelType()) + ", record of " +
               count(value.GetLenth(), "byte");
    }
};

/// No operation of a chunk tells of its bytes.
template <>
struct Form<KDRChunkData>
{
    static std::string full(KDRChunkData const&, int) { return "chunk"; }
};

template <>
struct Form<KDRFont> : SameForm<Form<KDRFont>, KDRFont>
{
    static std::string full(KDRFont const& value, int)
    {
        // A constant font tells nothing.
        KDRFont copy(value);
        KDRString const name = copy.faceName();
        std::string text = quoted(name.toUtf16(), name.size()) + ", size " + integer(copy.size());
        if (copy.weight() != 0)
            text += ", weight " + integer(copy.weight());
        text += copy.bold() ? ", bold" : "";
        text += copy.italic() != 0 ? ", italic" : "";
        text += copy.underline() != 0 ? ", underlined" : "";
        text += copy.strikeOut() != 0 ? ", struck out" : "";
        return text;
    }
};

template <>
struct Form<DataConvert> : NoDataForm<DataConvert>
{
};

} // namespace KDRDebug
/// @endcond

#endif
