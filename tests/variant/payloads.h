#ifndef KDRDATA_TESTS_PAYLOADS_H
#define KDRDATA_TESTS_PAYLOADS_H

#include <kdrdata/kdrdata.h>

/// Payload objects that stand for small numbers: equal numbers make equal objects, and the number
/// can be read back. Classes that carry nothing make default objects and read back 0.
template <class Payload>
struct PayloadOf
{
    static Payload make(int) { return Payload(); }
    static int number(Payload const&) { return 0; }
};

template <>
struct PayloadOf<KDRNumber>
{
    static KDRNumber make(int n) { return KDRNumber(n); }
    static int number(KDRNumber const& value) { return value.toInt(); }
};

template <>
struct PayloadOf<KDRString>
{
    static KDRString make(int n) { return KDRString("%1").arg(n); }
    static int number(KDRString const& value) { return static_cast<int>(value.toLong()); }
};

template <>
struct PayloadOf<KDRChar>
{
    static KDRChar make(int n) { return KDRChar(n); }
    static int number(KDRChar const& value) { return value.unicode(); }
};

template <>
struct PayloadOf<KDRBuffer>
{
    static KDRBuffer make(int n) { return PayloadOf<KDRString>::make(n).toUtf8(); }
    static int number(KDRBuffer const& value) { return value.toShort(); }
};

template <>
struct PayloadOf<KDRPoint>
{
    static KDRPoint make(int n) { return {double(n), -1.0}; }
    static int number(KDRPoint const& value) { return static_cast<int>(value.x()); }
};

template <>
struct PayloadOf<KDRImage>
{
    static KDRImage make(int n) { return {nullptr, n + 1, 1, 1, 0, KDRImage::DataTypeUInt8}; }
    static int number(KDRImage const& value) { return value.width() - 1; }
};

template <>
struct PayloadOf<KDRMatrix>
{
    static KDRMatrix make(int n)
    {
        KDRMatrix matrix(1, 2, KDRMatrix::KDRMatrixType(6));
        KDRNumber number(n);
        matrix.replace(0, 1, number);
        return matrix;
    }
    static int number(KDRMatrix const& value)
    {
        KDRNumber number(-1);
        value.select(0, 1, &number);
        return number.toInt();
    }
};

template <>
struct PayloadOf<KDRShape>
{
    static KDRShape make(int n)
    {
        KDRPoint center(1.0, 2.0);
        KDRShape shape;
        shape.fromCircle(center, n);
        return shape;
    }
    static int number(KDRShape const& value)
    {
        KDRPoint center;
        double radius = -1.0;
        value.toCircle(&center, &radius);
        return static_cast<int>(radius);
    }
};

template <>
struct PayloadOf<KDRPose2D>
{
    static KDRPose2D make(int n)
    {
        KDRPose2D pose;
        pose.setRz(n);
        return pose;
    }
    static int number(KDRPose2D const& value) { return static_cast<int>(value.Rz()); }
};

template <>
struct PayloadOf<KDRPose3D>
{
    static KDRPose3D make(int n)
    {
        KDRPose3D pose;
        pose.setRy(n);
        return pose;
    }
    static int number(KDRPose3D const& value) { return static_cast<int>(value.Ry()); }
};

/// An array of one element that stands for the number.
template <class Array, class Element>
struct PayloadOfArray
{
    static Array make(int n)
    {
        Array array;
        array.push_back(PayloadOf<Element>::make(n));
        return array;
    }
    static int number(Array const& value)
    {
        Element element;
        return value.select(0, &element) ? PayloadOf<Element>::number(element) : -1;
    }
};

template <>
struct PayloadOf<bool>
{
    static bool make(int n) { return n % 2 != 0; }
    static int number(bool value) { return value ? 1 : 0; }
};

/// An array whose elements carry nothing: the number is its length.
template <class Array, class Element>
struct PayloadOfLength
{
    static Array make(int n)
    {
        Array array;
        for (int i = 0; i < n; ++i)
            array.push_back(Element());
        return array;
    }
    static int number(Array const& value) { return value.length(); }
};

template <>
struct PayloadOf<KDRNumberArray> : PayloadOfArray<KDRNumberArray, KDRNumber>
{
};

template <>
struct PayloadOf<KDRStringArray> : PayloadOfArray<KDRStringArray, KDRString>
{
};

template <>
struct PayloadOf<KDRBufferArray> : PayloadOfArray<KDRBufferArray, KDRBuffer>
{
};

template <>
struct PayloadOf<KDRPointArray> : PayloadOfArray<KDRPointArray, KDRPoint>
{
};

template <>
struct PayloadOf<KDRImageArray> : PayloadOfArray<KDRImageArray, KDRImage>
{
};

template <>
struct PayloadOf<KDRMatrixArray> : PayloadOfArray<KDRMatrixArray, KDRMatrix>
{
};

template <>
struct PayloadOf<KDRShapeArray> : PayloadOfArray<KDRShapeArray, KDRShape>
{
};

template <>
struct PayloadOf<KDRBoolArray> : PayloadOfLength<KDRBoolArray, bool>
{
};

template <>
struct PayloadOf<KDRShape3DArray> : PayloadOfLength<KDRShape3DArray, KDRShape3D>
{
};

template <>
struct PayloadOf<KDRContour>
{
    static KDRContour make(int n)
    {
        KDRPointArray points = PayloadOf<KDRPointArray>::make(n);
        KDRContour contour;
        contour.FromPointArray(points);
        return contour;
    }
    static int number(KDRContour const& value)
    {
        KDRPointArray points;
        value.ToPointArray(&points);
        return PayloadOf<KDRPointArray>::number(points);
    }
};

template <>
struct PayloadOf<KDRContourArray> : PayloadOfArray<KDRContourArray, KDRContour>
{
};

template <>
struct PayloadOf<KDRROIAlignment>
{
    static KDRROIAlignment make(int n)
    {
        KDRMatrixArray matrices = PayloadOf<KDRMatrixArray>::make(n);
        KDRROIAlignment alignment;
        alignment.fromMatrixArray(matrices);
        return alignment;
    }
    static int number(KDRROIAlignment const& value)
    {
        KDRROIAlignment copy(value);
        KDRMatrixArray matrices;
        copy.toMatrixArray(&matrices);
        return PayloadOf<KDRMatrixArray>::number(matrices);
    }
};

template <>
struct PayloadOf<KDRVariantArray>
{
    static KDRVariantArray make(int n)
    {
        KDRVariantArray array;
        array.push_back(KDRVariant(n));
        return array;
    }
    static int number(KDRVariantArray const& value)
    {
        KDRVariant element;
        int n = -1;
        return value.select(0, &element) && element.toInt(&n) ? n : -1;
    }
};

#endif
