#ifndef KDRDATA_TESTS_KDRIO_EQUAL_H
#define KDRDATA_TESTS_KDRIO_EQUAL_H

#include <kdrdata/kdrdata.h>
#include <kdrdata/scalars/kdrnumber_p.h>

#include <cstring>
#include <map>
#include <set>
#include <string>

#include "../support/variantaccess.h"

/// What two values have not in common, told by the operations of the classes: nothing here knows
/// the file format. Doubles are the same where their bits are.
class Difference
{
public:
    /// Empty where the values are the same, sharing included; otherwise where they differ.
    static std::string between(KDRVariant const& a, KDRVariant const& b)
    {
        Difference difference;
        difference.variant(a, b);
        return difference.m_found;
    }

private:
    void expect(bool holds, std::string const& what)
    {
        if (!holds && m_found.empty())
            m_found = m_where + ": " + what;
    }

    template <class T>
    void bits(T const& a, T const& b, char const* what)
    {
        expect(std::memcmp(&a, &b, sizeof a) == 0,
               what + (' ' + std::to_string(a)) + " and " + std::to_string(b));
    }

    void same(bool a, bool b) { bits(a, b, "flags"); }
    void same(double a, double b) { bits(a, b, "numbers"); }
    void same(int a, int b) { bits(a, b, "integers"); }

    void same(KDRString const& a, KDRString const& b)
    {
        expect(a.isNull() == b.isNull(), "null text");
        expect(a.size() == b.size(), "length of texts");
        for (int i = 0; i < a.size() && i < b.size(); ++i)
            expect(a.toUtf16()[i] == b.toUtf16()[i], "texts");
    }

    void same(KDRBuffer const& a, KDRBuffer const& b)
    {
        expect(a.isNull() == b.isNull(), "null bytes");
        expect(a.size() == b.size() &&
                   std::memcmp(a.constData(), b.constData(), std::size_t(a.size())) == 0,
               "bytes");
    }

    void same(KDRChar const& a, KDRChar const& b) { expect(a.unicode() == b.unicode(), "char"); }

    void same(KDRNumber const& a, KDRNumber const& b)
    {
        expect(KDRNumber(a).numType() == KDRNumber(b).numType(), "kinds of numbers");
        expect(a.toLongLong() == b.toLongLong(), "integers");
        same(a.toDouble(), b.toDouble());
        bits(a.maxValue(), b.maxValue(), "maxima");
        bits(a.minValue(), b.minValue(), "minima");
        bits(KDRInternal::pointer(a)->step, KDRInternal::pointer(b)->step, "steps");
    }

    void same(KDRPoint const& a, KDRPoint const& b)
    {
        bits(a.x(), b.x(), "x");
        bits(a.y(), b.y(), "y");
        bits(a.getXMaxVal(), b.getXMaxVal(), "x maximum");
        bits(a.getXMinVal(), b.getXMinVal(), "x minimum");
        bits(a.getXStepVal(), b.getXStepVal(), "x step");
        bits(a.getYMaxVal(), b.getYMaxVal(), "y maximum");
        bits(a.getYMinVal(), b.getYMinVal(), "y minimum");
        bits(a.getYStepVal(), b.getYStepVal(), "y step");
    }

    void same(KDRImage const& a, KDRImage const& b)
    {
        constexpr int bytes[] = {1, 1, 2, 2, 4, 4, 8};
        bits(a.width(), b.width(), "widths");
        bits(a.height(), b.height(), "heights");
        bits(a.channel(), b.channel(), "channels");
        bits(a.depth(), b.depth(), "depths");
        if (!m_found.empty() || !a.dataPtr() || !b.dataPtr())
            return expect(!a.dataPtr() == !b.dataPtr(), "pixels at all");
        for (int row = 0; row < a.height(); ++row)
            expect(std::memcmp(a.dataPtr() + std::ptrdiff_t(row) * a.step(),
                               b.dataPtr() + std::ptrdiff_t(row) * b.step(),
                               std::size_t(a.width()) * std::size_t(a.channel()) *
                                   std::size_t(bytes[a.depth()])) == 0,
                   "pixels");
        shared(m_pixels, a.dataPtr(), b.dataPtr(), "pixels");
    }

    void same(KDRRegion const& constA, KDRRegion const& constB)
    {
        KDRRegion a(constA);
        KDRRegion b(constB);
        bits(a.width(), b.width(), "widths");
        bits(a.height(), b.height(), "heights");
        KDRNumberArray ofA[3];
        KDRNumberArray ofB[3];
        a.toRunLengthEncodeing(&ofA[0], &ofA[1], &ofA[2]);
        b.toRunLengthEncodeing(&ofB[0], &ofB[1], &ofB[2]);
        for (int i = 0; i < 3; ++i)
            same(ofA[i], ofB[i]);
    }

    void same(KDRMatrix const& constA, KDRMatrix const& constB)
    {
        constexpr int bytes[] = {1, 1, 2, 2, 4, 4, 8};
        KDRMatrix a(constA);
        KDRMatrix b(constB);
        bits(a.rows(), b.rows(), "rows");
        bits(a.cols(), b.cols(), "columns");
        bits(int(a.type()), int(b.type()), "types");
        std::size_t const length =
            std::size_t(a.rows()) * std::size_t(a.cols()) * std::size_t(bytes[a.type()]);
        if (m_found.empty() && length > 0)
            expect(std::memcmp(a.dataPtr(), b.dataPtr(), length) == 0, "elements");
    }

    void same(KDRContour const& a, KDRContour const& b)
    {
        KDRPointArray ofA;
        KDRPointArray ofB;
        a.ToPointArray(&ofA);
        b.ToPointArray(&ofB);
        same(ofA, ofB);
    }

    void same(KDRROIAlignment const& constA, KDRROIAlignment const& constB)
    {
        KDRROIAlignment a(constA);
        KDRROIAlignment b(constB);
        KDRMatrixArray ofA;
        KDRMatrixArray ofB;
        a.toMatrixArray(&ofA);
        b.toMatrixArray(&ofB);
        same(ofA, ofB);
    }

    void same(KDRFont const& constA, KDRFont const& constB)
    {
        KDRFont a(constA);
        KDRFont b(constB);
        same(a.faceName(), b.faceName());
        bits(a.size(), b.size(), "sizes");
        bits(a.weight(), b.weight(), "weights");
        same(a.bold(), b.bold());
        same(int(a.italic()), int(b.italic()));
        same(int(a.underline()), int(b.underline()));
        same(int(a.strikeOut()), int(b.strikeOut()));
    }

    void same(KDRPose2D const& a, KDRPose2D const& b)
    {
        same(a.x(), b.x());
        same(a.y(), b.y());
        same(a.Rz(), b.Rz());
    }

    void same(KDRPose3D const& a, KDRPose3D const& b)
    {
        same(a.x(), b.x());
        same(a.y(), b.y());
        same(a.z(), b.z());
        same(a.Rx(), b.Rx());
        same(a.Ry(), b.Ry());
        same(a.Rz(), b.Rz());
    }

    void same(KDRShape const& a, KDRShape const& b);

    template <class Array>
    void same(Array const& a, Array const& b)
    {
        bits(a.length(), b.length(), "lengths");
        for (int i = 0; i < a.length() && m_found.empty(); ++i) {
            decltype(elementOf(a)) ofA{};
            decltype(elementOf(a)) ofB{};
            a.select(i, &ofA);
            b.select(i, &ofB);
            same(ofA, ofB);
        }
    }
    void same(KDRShape3D const&, KDRShape3D const&) {}

    static bool elementOf(KDRBoolArray const&);
    static KDRNumber elementOf(KDRNumberArray const&);
    static KDRString elementOf(KDRStringArray const&);
    static KDRPoint elementOf(KDRPointArray const&);
    static KDRImage elementOf(KDRImageArray const&);
    static KDRShape elementOf(KDRShapeArray const&);
    static KDRContour elementOf(KDRContourArray const&);
    static KDRMatrix elementOf(KDRMatrixArray const&);
    static KDRBuffer elementOf(KDRBufferArray const&);
    static KDRShape3D elementOf(KDRShape3DArray const&);

    void same(KDRVariantArray const& a, KDRVariantArray const& b)
    {
        bits(a.length(), b.length(), "lengths");
        std::string const where = m_where;
        for (int i = 0; i < a.length() && m_found.empty(); ++i) {
            m_where = where + '[' + std::to_string(i) + ']';
            KDRVariant ofA;
            KDRVariant ofB;
            a.select(i, &ofA);
            b.select(i, &ofB);
            variant(ofA, ofB);
        }
        m_where = where;
    }

    template <class Payload, class Reader>
    void payload(KDRVariant& a, KDRVariant& b, Reader reader)
    {
        Payload ofA{};
        Payload ofB{};
        bool const hasA = (a.*reader)(&ofA);
        expect(hasA == (b.*reader)(&ofB), "a payload");
        if (hasA)
            same(ofA, ofB);
    }

    /// For a class that carries nothing: whether there is one.
    template <class Payload, class Reader>
    void presence(KDRVariant& a, KDRVariant& b, Reader reader)
    {
        Payload payload_;
        bool const hasA = (a.*reader)(&payload_);
        expect(hasA == (b.*reader)(&payload_), "a payload");
    }

    void variant(KDRVariant a, KDRVariant b);

    // What is the same thing in one value is the same thing in the other, and nothing else is.
    using Pairs = std::map<void const*, void const*>;
    void shared(Pairs& pairs, void const* a, void const* b, char const* what)
    {
        auto const [at, isNew] = pairs.insert({a, b});
        expect(at->second == b, std::string("sharing of ") + what);
        if (isNew)
            expect(m_taken.insert(b).second, std::string("sharing of ") + what);
    }

    std::string m_where = "value";
    std::string m_found;
    Pairs m_stores;
    Pairs m_pixels;
    std::set<void const*> m_taken;
};

#endif
