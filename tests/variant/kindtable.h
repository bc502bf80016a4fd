#ifndef KDRDATA_TESTS_KINDTABLE_H
#define KDRDATA_TESTS_KINDTABLE_H

#include <iterator>
#include <ostream>
#include <stdexcept>
#include <type_traits>

#include "../support/variantaccess.h"
#include "payloads.h"

/// What a reader did with an output that stood for another number before.
struct Reading
{
    bool answer;
    int number;

    friend bool operator==(Reading const& a, Reading const& b)
    {
        return a.answer == b.answer && a.number == b.number;
    }
    friend std::ostream& operator<<(std::ostream& out, Reading const& reading)
    {
        return out << (reading.answer ? "true, " : "false, ") << reading.number;
    }
};

constexpr int untouchedNumber = 99;

/// One kind with a payload class: its members, for values that stand for small numbers.
struct KindEntry
{
    KDRVariantKind kind;
    /// The kind that the reader reads, which is another one for the three-dimensional contour.
    KDRVariantKind reads;
    /// Whether a copy made by the store's copy constructor or by clone() has a payload.
    bool copied;
    /// Whether a copy made by the store's assignment has a payload.
    bool assigned;
    /// The name in the members' names.
    char const* name;

    /// Null for the four kinds without a constructor.
    KDRVariant (*construct)(int number);
    /// The kind of the store in a lock made from a payload; -1 for the four.
    KDRVariantKind (*lockKind)();
    void (*write)(KDRVariant& variant, int number);
    void (*writeStore)(KDRVariantPrivate& store, int number);
    Reading (*read)(KDRVariant& variant);
    Reading (*readStore)(KDRVariantPrivate& store);
    bool (*readNull)(KDRVariant& variant);

    /// What a payload that stands for @p number reads back as: 0 where the class carries nothing.
    int (*canonical)(int number);

    /// What the reader does for a payload that stands for @p number.
    Reading right(int number) const { return {true, canonical(number)}; }
    /// What it does otherwise: the output is as it was.
    Reading untouched() const { return {false, canonical(untouchedNumber)}; }
};

namespace kindtable {

template <class Payload>
constexpr bool hasConstructor = std::is_constructible<KDRVariantPrivate, Payload const&>::value;

template <class Payload>
KDRVariant construct(int number)
{
    return KDRVariant(PayloadOf<Payload>::make(number));
}

template <class Payload>
KDRVariantKind lockKind()
{
    KDRVariantLock const lock(PayloadOf<Payload>::make(1));
    return VariantAccess::store(lock).variantType();
}

template <class Payload, class Holder, auto writer>
void write(Holder& holder, int number)
{
    (holder.*writer)(PayloadOf<Payload>::make(number));
}

template <class Payload, class Holder, auto reader>
Reading read(Holder& holder)
{
    Payload out = PayloadOf<Payload>::make(untouchedNumber);
    bool const answer = (holder.*reader)(&out);
    return {answer, PayloadOf<Payload>::number(out)};
}

template <class Payload>
int canonical(int number)
{
    return PayloadOf<Payload>::number(PayloadOf<Payload>::make(number));
}

template <auto reader>
bool readNull(KDRVariant& variant)
{
    return (variant.*reader)(nullptr);
}

template <class Payload, auto from, auto to, auto storeFrom, auto storeTo>
constexpr KindEntry entry(KDRVariantKind kind, char const* name)
{
    KindEntry made{kind,
                   kind,
                   true,
                   true,
                   name,
                   nullptr,
                   nullptr,
                   &write<Payload, KDRVariant, from>,
                   &write<Payload, KDRVariantPrivate, storeFrom>,
                   &read<Payload, KDRVariant, to>,
                   &read<Payload, KDRVariantPrivate, storeTo>,
                   &readNull<to>,
                   &canonical<Payload>};
    if constexpr (hasConstructor<Payload>) {
        made.construct = &construct<Payload>;
        made.lockKind = &lockKind<Payload>;
    }
    return made;
}

constexpr KindEntry lostByConstruction(KindEntry entry)
{
    entry.copied = false;
    return entry;
}

constexpr KindEntry lostAlways(KindEntry entry)
{
    entry.copied = false;
    entry.assigned = false;
    return entry;
}

constexpr KindEntry reading(KDRVariantKind reads, KindEntry entry)
{
    entry.reads = reads;
    return entry;
}

} // namespace kindtable

// The member names of a row; the numbers and exceptions are told beside it.
#define KDR_KIND(kind, Payload, Name)                                                              \
    kindtable::entry<Payload, &KDRVariant::from##Name, &KDRVariant::to##Name,                      \
                     &KDRVariantPrivate::from##Name, &KDRVariantPrivate::to##Name>(kind, #Name)

constexpr KindEntry kindTable[] = {
    KDR_KIND(0, bool, Bool),
    KDR_KIND(1, KDRNumber, Number),
    KDR_KIND(2, KDRString, String),
    KDR_KIND(3, KDRPoint, Point),
    KDR_KIND(4, KDRImage, Image),
    KDR_KIND(5, KDRShape, Shape),
    kindtable::lostByConstruction(KDR_KIND(6, KDRPointCloud, PointCloud)),
    KDR_KIND(7, KDRContour, Contour),
    KDR_KIND(8, KDRROIAlignment, ROIAlignment),
    KDR_KIND(9, KDRPose2D, 2DPose),
    KDR_KIND(10, KDRMatrix, Matrix),
    KDR_KIND(11, KDRBuffer, Buffer),
    KDR_KIND(12, KDRChar, Char),
    KDR_KIND(500, KDRPoint3D, 3DPoint),
    KDR_KIND(501, KDRVector3d, Vector3d),
    KDR_KIND(502, KDRShape3D, 3DShape),
    KDR_KIND(503, KDRPose3D, 3DPose),
    KDR_KIND(504, KDRRangeImage, RangeImage),
    kindtable::lostAlways(kindtable::reading(7, KDR_KIND(505, KDRContour3D, 3DContour))),
    KDR_KIND(506, KDRMatrix3, Matrix3),
    KDR_KIND(507, KDRMatrix4, Matrix4),
    KDR_KIND(508, KDRQuaternion, Quaternion),
    KDR_KIND(509, KDRDualQuaternion, DualQuaternion),
    KDR_KIND(1000, KDRBoolArray, BoolArray),
    KDR_KIND(1001, KDRNumberArray, NumberArray),
    KDR_KIND(1002, KDRStringArray, StringArray),
    KDR_KIND(1003, KDRPointArray, PointArray),
    KDR_KIND(1004, KDRImageArray, ImageArray),
    KDR_KIND(1005, KDRRangeImageArray, RangeImageArray),
    KDR_KIND(1006, KDRShapeArray, ShapeArray),
    kindtable::lostByConstruction(KDR_KIND(1007, KDRPointCloudArray, PointCloudArray)),
    KDR_KIND(1008, KDRContourArray, ContourArray),
    KDR_KIND(1009, KDRMatrixArray, MatrixArray),
    KDR_KIND(1010, KDRBufferArray, BufferArray),
    KDR_KIND(1500, KDRPoint3DArray, 3DPointArray),
    KDR_KIND(1501, KDRShape3DArray, 3DShapeArray),
    KDR_KIND(1502, KDRVector3dArray, Vector3dArray),
    kindtable::lostAlways(KDR_KIND(1503, KDRContour3DArray, 3DContourArray)),
    KDR_KIND(1800, KDRVariantArray, VariantArray),
    KDR_KIND(1801, KDRPlane3D, 3DPlane),
    KDR_KIND(1802, KDRPlane3DArray, 3DPlaneArray),
};
#undef KDR_KIND

static_assert(std::size(kindTable) == 41, "every kind but the empty one");

/// The row of a kind that the table has.
inline KindEntry const& rowOf(KDRVariantKind kind)
{
    for (KindEntry const& row : kindTable) {
        if (row.kind == kind)
            return row;
    }
    throw std::out_of_range("no such kind");
}

/// A variant of the row's kind that stands for @p number.
inline KDRVariant variantOf(KindEntry const& row, int number)
{
    KDRVariant variant;
    row.write(variant, number);
    return variant;
}

#endif
