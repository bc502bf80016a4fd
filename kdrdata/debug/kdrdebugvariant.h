#ifndef KDRDATA_KDRDEBUGVARIANT_H
#define KDRDATA_KDRDEBUGVARIANT_H

/// @file
/// The text forms of variants: a part of kdrdebugtext.h, which is
/// to be included.

#include <kdrdata/debug/kdrdebugshapes.h>
#include <kdrdata/variant/variant.h>

/// @cond
namespace KDRDebug {

/// `number array`: a variant's kind in words; null for a number that is no kind.
inline char const* kindName(KDRVariantKind kind)
{
    struct Name
    {
        KDRVariantKind kind;
        char const* words;
    };
    constexpr Name names[] = {
        {KindBool, "bool"},
        {KindNumber, "number"},
        {KindString, "string"},
        {KindPoint, "point"},
        {KindImage, "image"},
        {KindShape, "shape"},
        {KindPointCloud, "point cloud"},
        {KindContour, "contour"},
        {KindROIAlignment, "ROI alignment"},
        {KindPose2D, "2D pose"},
        {KindMatrix, "matrix"},
        {KindBuffer, "buffer"},
        {KindChar, "char"},
        {KindPoint3D, "3D point"},
        {KindVector3d, "3D vector"},
        {KindShape3D, "3D shape"},
        {KindPose3D, "3D pose"},
        {KindRangeImage, "range image"},
        {KindContour3D, "3D contour"},
        {KindMatrix3, "3x3 matrix"},
        {KindMatrix4, "4x4 matrix"},
        {KindQuaternion, "quaternion"},
        {KindDualQuaternion, "dual quaternion"},
        {KindBoolArray, "bool array"},
        {KindNumberArray, "number array"},
        {KindStringArray, "string array"},
        {KindPointArray, "point array"},
        {KindImageArray, "image array"},
        {KindRangeImageArray, "range image array"},
        {KindShapeArray, "shape array"},
        {KindPointCloudArray, "point cloud array"},
        {KindContourArray, "contour array"},
        {KindMatrixArray, "matrix array"},
        {KindBufferArray, "buffer array"},
        {KindPoint3DArray, "3D point array"},
        {KindShape3DArray, "3D shape array"},
        {KindVector3dArray, "3D vector array"},
        {KindContour3DArray, "3D contour array"},
        {KindVariantArray, "variant array"},
        {KindPlane3D, "3D plane"},
        {KindPlane3DArray, "3D plane array"},
        {KindNone, "empty"},
    };
    for (Name const& name : names) {
        if (name.kind == kind)
            return name.words;
    }
    return nullptr;
}

/// The text of a variant or of its store: the kind, then the payload. Defined below the form of the
/// variant, which its arrays need.
template <class Variant>
struct VariantForm
{
    static std::string full(Variant const& value, int depth) { return text(value, depth, true); }
    static std::string brief(Variant const& value, int depth) { return text(value, depth, false); }

private:
    static std::string text(Variant const& value, int depth, bool isFull);
    template <class Payload>
    static std::string payload(Variant const& value, bool (Variant::*read)(Payload*) const,
                               int depth, bool isFull);
    static std::string payload(Variant const& value, int depth, bool isFull);
};

template <>
struct Form<KDRVariant> : VariantForm<KDRVariant>
{
};

template <>
struct Form<KDRVariantPrivate> : VariantForm<KDRVariantPrivate>
{
};

/// No operation of a lock tells of its store.
template <>
struct Form<KDRVariantLock>
{
    static std::string full(KDRVariantLock const&, int) { return "lock"; }
};

template <>
struct Form<KDRVariantArray> : ArrayForm<KDRVariantArray, KDRVariant>
{
};

template <class Variant>
std::string VariantForm<Variant>::text(Variant const& value, int depth, bool isFull)
{
    KDRVariantKind const kind = value.variantType();
    char const* const name = kindName(kind);
    if (!name)
        return "kind " + integer(kind);
    return kind == KindNone ? name : name + (' ' + payload(value, depth, isFull));
}

template <class Variant>
template <class Payload>
std::string VariantForm<Variant>::payload(Variant const& value,
                                          bool (Variant::*read)(Payload*) const, int depth,
                                          bool isFull)
{
    Payload read_;
    (value.*read)(&read_);
    return isFull ? Form<Payload>::full(read_, depth) : Form<Payload>::brief(read_, depth);
}

template <class Variant>
std::string VariantForm<Variant>::payload(Variant const& value, int depth, bool isFull)
{
    switch (value.variantType()) {
    case KindBool: {
        bool flag = false;
        value.toBool(&flag);
        return Form<bool>::brief(flag, depth);
    }
    case KindNumber:
        return payload(value, &Variant::toNumber, depth, isFull);
    case KindString:
        return payload(value, &Variant::toString, depth, isFull);
    case KindPoint:
        return payload(value, &Variant::toPoint, depth, isFull);
    case KindImage:
        return payload(value, &Variant::toImage, depth, isFull);
    case KindShape:
        return payload(value, &Variant::toShape, depth, isFull);
    case KindContour:
        return payload(value, &Variant::toContour, depth, isFull);
    case KindROIAlignment:
        return payload(value, &Variant::toROIAlignment, depth, isFull);
    case KindPose2D:
        return payload(value, &Variant::to2DPose, depth, isFull);
    case KindMatrix:
        return payload(value, &Variant::toMatrix, depth, isFull);
    case KindBuffer:
        return payload(value, &Variant::toBuffer, depth, isFull);
    case KindChar:
        return payload(value, &Variant::toChar, depth, isFull);
    case KindPose3D:
        return payload(value, &Variant::to3DPose, depth, isFull);
    case KindBoolArray:
        return payload(value, &Variant::toBoolArray, depth, isFull);
    case KindNumberArray:
        return payload(value, &Variant::toNumberArray, depth, isFull);
    case KindStringArray:
        return payload(value, &Variant::toStringArray, depth, isFull);
    case KindPointArray:
        return payload(value, &Variant::toPointArray, depth, isFull);
    case KindImageArray:
        return payload(value, &Variant::toImageArray, depth, isFull);
    case KindShapeArray:
        return payload(value, &Variant::toShapeArray, depth, isFull);
    case KindContourArray:
        return payload(value, &Variant::toContourArray, depth, isFull);
    case KindMatrixArray:
        return payload(value, &Variant::toMatrixArray, depth, isFull);
    case KindBufferArray:
        return payload(value, &Variant::toBufferArray, depth, isFull);
    case KindShape3DArray:
        return payload(value, &Variant::to3DShapeArray, depth, isFull);
    case KindVariantArray:
        return payload(value, &Variant::toVariantArray, depth, isFull);
    default:
        return "no data";
    }
}

} // namespace KDRDebug
/// @endcond

#endif
