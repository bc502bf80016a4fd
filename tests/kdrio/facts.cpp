#include "facts.h"

#include <kdrdata/kdrdata.h>
#include <kdrdata/scalars/kdrnumber_p.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <sstream>

#include "../support/variantaccess.h"

namespace {

/// One line for each fact, in the order in which they come.
class Facts
{
public:
    explicit Facts(std::ostream& out) : m_out(out) {}

    void variant(KDRVariant value)
    {
        KDRVariantPrivate* const store = &VariantAccess::store(value);
        auto const [at, isNew] = m_stores.insert({store, m_stores.size()});
        say("store " + std::to_string(at->second));
        if (!isNew)
            return;
        using V = KDRVariant;
        say("kind " + std::to_string(value.variantType()));
        KDRVariantArray array;
        bool flag = false;
        if (value.toBool(&flag))
            say(flag ? "true" : "false");
        else if (value.toVariantArray(&array))
            each<KDRVariant>(array);
        else if (!(payload<KDRNumber>(value, &V::toNumber) ||
                   payload<KDRString>(value, &V::toString) ||
                   payload<KDRPoint>(value, &V::toPoint) || payload<KDRImage>(value, &V::toImage) ||
                   payload<KDRShape>(value, &V::toShape) ||
                   payload<KDRContour>(value, &V::toContour) ||
                   payload<KDRROIAlignment>(value, &V::toROIAlignment) ||
                   payload<KDRPose2D>(value, &V::to2DPose) ||
                   payload<KDRMatrix>(value, &V::toMatrix) ||
                   payload<KDRBuffer>(value, &V::toBuffer) || payload<KDRChar>(value, &V::toChar) ||
                   payload<KDRPose3D>(value, &V::to3DPose) ||
                   payload<KDRBoolArray>(value, &V::toBoolArray) ||
                   payload<KDRNumberArray>(value, &V::toNumberArray) ||
                   payload<KDRStringArray>(value, &V::toStringArray) ||
                   payload<KDRPointArray>(value, &V::toPointArray) ||
                   payload<KDRImageArray>(value, &V::toImageArray) ||
                   payload<KDRShapeArray>(value, &V::toShapeArray) ||
                   payload<KDRContourArray>(value, &V::toContourArray) ||
                   payload<KDRMatrixArray>(value, &V::toMatrixArray) ||
                   payload<KDRBufferArray>(value, &V::toBufferArray)))
            shapes3D(value);
    }

private:
    void say(std::string const& line) { m_out << line << '\n'; }

    void say(double number)
    {
        unsigned long long bits = 0;
        std::memcpy(&bits, &number, sizeof bits);
        char text[32];
        std::snprintf(text, sizeof text, "double %016llx", bits);
        say(std::string(text));
    }

    void hex(std::string line, void const* first, std::size_t length)
    {
        char digits[3];
        for (std::size_t i = 0; i < length; ++i) {
            std::snprintf(digits, sizeof digits, "%02x",
                          static_cast<unsigned char const*>(first)[i]);
            line += digits;
        }
        say(line);
    }

    template <class Payload, class Reader>
    bool payload(KDRVariant& value, Reader reader)
    {
        Payload read;
        bool const isRead = (value.*reader)(&read);
        if (isRead)
            facts(read);
        return isRead;
    }

    void shapes3D(KDRVariant const& value)
    {
        KDRShape3DArray shapes;
        if (value.to3DShapeArray(&shapes))
            say("length " + std::to_string(shapes.length()));
    }

    template <class Element, class Array>
    void each(Array const& array)
    {
        say("length " + std::to_string(array.length()));
        for (int i = 0; i < array.length(); ++i) {
            Element element{};
            array.select(i, &element);
            facts(element);
        }
    }

    void facts(bool flag) { say(flag ? "true" : "false"); }
    void facts(KDRVariant const& value) { variant(value); }
    void facts(KDRChar const& value) { say("char " + std::to_string(value.unicode())); }
    void facts(KDRString const& value)
    {
        if (value.isNull())
            return say("null text");
        hex("text ", value.toUtf16(), 2 * static_cast<std::size_t>(value.size()));
    }
    void facts(KDRBuffer const& value)
    {
        if (value.isNull())
            return say("null bytes");
        hex("bytes ", value.constData(), static_cast<std::size_t>(value.size()));
    }
    void facts(KDRNumber const& value)
    {
        // A copy has no range, and a constant number does not tell its kind.
        if (KDRNumber(value).numType() == 0)
            say("integer " + std::to_string(value.toLongLong()));
        else
            say(value.toDouble());
        say(value.maxValue());
        say(value.minValue());
        say(KDRInternal::pointer(value)->step);
    }
    void facts(KDRPoint const& value)
    {
        for (double const number :
             {value.x(), value.y(), value.getXMaxVal(), value.getXMinVal(), value.getXStepVal(),
              value.getYMaxVal(), value.getYMinVal(), value.getYStepVal()})
            say(number);
    }
    void facts(KDRImage const& value)
    {
        constexpr int bytes[] = {1, 1, 2, 2, 4, 4, 8};
        say("pixels " + std::to_string(value.width()) + ' ' + std::to_string(value.height()) + ' ' +
            std::to_string(value.channel()) + ' ' + std::to_string(value.depth()));
        if (!value.dataPtr())
            return;
        auto const [at, isNew] = m_pixels.insert({value.dataPtr(), m_pixels.size()});
        say("block " + std::to_string(at->second));
        std::size_t const row =
            static_cast<std::size_t>(value.width() * value.channel() * bytes[value.depth()]);
        for (int y = 0; y < value.height() && isNew; ++y)
            hex("row ", value.dataPtr() + y * value.step(), row);
    }
    void facts(KDRMatrix value)
    {
        say("matrix " + std::to_string(value.rows()) + ' ' + std::to_string(value.cols()) + ' ' +
            std::to_string(value.type()));
        KDRNumber number(0);
        for (int i = 0; i < value.rows() * value.cols(); ++i) {
            value.select(i / value.cols(), i % value.cols(), &number);
            facts(number);
        }
    }
    void facts(KDRRegion value)
    {
        say("region " + std::to_string(value.width()) + ' ' + std::to_string(value.height()));
        KDRNumberArray columns[3];
        value.toRunLengthEncodeing(&columns[0], &columns[1], &columns[2]);
        for (int i = 0; i < columns[0].length(); ++i) {
            std::string run = "run";
            for (KDRNumberArray const& column : columns)
                run += ' ' + std::to_string(column[i].toLongLong());
            say(run);
        }
    }
    void facts(KDRContour const& value)
    {
        KDRPointArray points;
        value.ToPointArray(&points);
        facts(points);
    }
    void facts(KDRROIAlignment value)
    {
        KDRMatrixArray matrices;
        value.toMatrixArray(&matrices);
        facts(matrices);
    }
    void facts(KDRPose2D const& value)
    {
        for (double const number : {value.x(), value.y(), value.Rz()})
            say(number);
    }
    void facts(KDRPose3D const& value)
    {
        for (double const number :
             {value.x(), value.y(), value.z(), value.Rx(), value.Ry(), value.Rz()})
            say(number);
    }
    void facts(KDRFont value)
    {
        facts(value.faceName());
        for (long const number :
             {value.size(), value.weight(), long(value.bold()), long(value.italic()),
              long(value.underline()), long(value.strikeOut())})
            say("integer " + std::to_string(number));
    }
    void facts(KDRShape const& value);

    void facts(KDRBoolArray const& value) { each<bool>(value); }
    void facts(KDRNumberArray const& value) { each<KDRNumber>(value); }
    void facts(KDRStringArray const& value) { each<KDRString>(value); }
    void facts(KDRPointArray const& value)
    {
        say("length " + std::to_string(value.length()));
        for (int i = 0; i < value.length(); ++i) {
            say(value[i].x());
            say(value[i].y());
        }
    }
    void facts(KDRImageArray const& value) { each<KDRImage>(value); }
    void facts(KDRShapeArray const& value) { each<KDRShape>(value); }
    void facts(KDRContourArray const& value) { each<KDRContour>(value); }
    void facts(KDRMatrixArray const& value) { each<KDRMatrix>(value); }
    void facts(KDRBufferArray const& value) { each<KDRBuffer>(value); }

    std::ostream& m_out;
    std::map<void const*, std::size_t> m_stores;
    std::map<void const*, std::size_t> m_pixels;
};

void Facts::facts(KDRShape const& s)
{
    say("shape " + std::to_string(s.shapeType()));
    KDRPoint p[3];
    double n[4] = {};
    int points = 0;
    int numbers = 0;
    int count = 0;
    KDRPointArray list;
    KDRNumberArray values;
    KDRRegion region;
    KDRContourArray contours;
    KDRString text;
    KDRFont font;
    if (s.toCircle(p, n))
        points = 1, numbers = 1;
    else if (s.toTorus(p, n, n + 1, n + 2, n + 3))
        points = 1, numbers = 4;
    else if (s.toRect2(p, n, n + 1, n + 2) || s.toEllipse(p, n, n + 1, n + 2) ||
             s.toArc(p, n, n + 1, n + 2))
        points = 1, numbers = 3;
    else if (s.toLine(p, p + 1) || s.toArrow(p, p + 1))
        points = 2;
    else if (s.toCurveLine(p, p + 1, p + 2))
        points = 3;
    else if (s.toPolygon(&list) || s.toIrregular(&list) || s.toPolyLine(&list))
        facts(list);
    else if (s.toRegion(&region))
        facts(region);
    else if (s.toContours(&contours))
        facts(contours);
    else if (s.toAnyPolygon(&list, &values))
        facts(list), facts(values);
    else if (s.toText(p, &text, &font))
        facts(p[0]), facts(text), facts(font);
    else if (s.to3DText(nullptr, &text, &font))
        facts(text), facts(font);
    else if (s.toRect2Matrix(nullptr, &list, n, n + 1, n + 2, &count))
        facts(list), numbers = 3;
    else if (s.toCircleMatrix(nullptr, &list, n, n + 1, &count))
        facts(list), numbers = 2;
    for (int i = 0; i < points; ++i)
        facts(p[i]);
    for (int i = 0; i < numbers; ++i)
        say(n[i]);
    if (s.shapeType() == KDRShape::Rect2Matrix || s.shapeType() == KDRShape::CircleMatrix)
        say("integer " + std::to_string(count));
}

} // namespace

std::string factsOf(KDRVariant const& value)
{
    std::ostringstream out;
    Facts(out).variant(value);
    return out.str();
}
