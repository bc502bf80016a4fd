#include <kdrio/kinds_p.h>

#include <kdrdata/kdrdata.h>
#include <kdrio/contents_p.h>
#include <kdrio/inside_p.h>
#include <kdrio/reader_p.h>
#include <kdrio/writer_p.h>

#include <cstring>

namespace kdrio {

namespace {

// --- writing: the payload where it is -----------------------------------------------------------

template <class Payload, bool (KDRVariantPrivate::*pointer)(Payload*&)>
void writeHeld(Writer& writer, KDRVariantPrivate& store)
{
    Payload* payload = nullptr;
    (store.*pointer)(payload);
    payload ? write(writer, *payload) : writer.absent();
}

// --- writing: a copy, for kinds without a pointer reader of their own ---------------------------

template <class Payload, bool (KDRVariantPrivate::*reader)(Payload*) const>
void writeCopied(Writer& writer, KDRVariantPrivate& store)
{
    Payload payload{};
    (store.*reader)(&payload) ? write(writer, payload) : writer.absent();
}

// --- writing: that there is a payload, for kinds that carry nothing ------------------------------

template <class Payload, auto reader>
void writeNothing(Writer& writer, KDRVariantPrivate& store)
{
    Payload payload;
    (store.*reader)(&payload) ? writer.null() : writer.absent();
}

// No operation tells whether there is a payload.
void writeNull(Writer& writer, KDRVariantPrivate&) { writer.null(); }

// --- reading -------------------------------------------------------------------------------------

// Whether the kind comes without contents.
template <class Payload, void (KDRVariant::*from)(Payload const&)>
bool readAbsent(Reader& reader, KDRVariant& value)
{
    if (!reader.isAbsent())
        return false;
    reader.absent();
    (value.*from)(Payload());
    inside::store(value).clear();
    return true;
}

template <class Payload, void (KDRVariant::*from)(Payload const&)>
void readWhole(Reader& reader, KDRVariant& value)
{
    if (readAbsent<Payload, from>(reader, value))
        return;
    Payload payload;
    read(reader, payload);
    (value.*from)(payload);
}

template <class Payload, void (KDRVariant::*from)(Payload const&)>
void readNothing(Reader& reader, KDRVariant& value)
{
    if (readAbsent<Payload, from>(reader, value))
        return;
    reader.null();
    (value.*from)(Payload());
}

void readBool(Reader& reader, KDRVariant& value)
{
    bool const isAbsent = reader.isAbsent();
    value.fromBool(!isAbsent && reader.flag());
    if (isAbsent) {
        reader.absent();
        inside::store(value).clear();
    }
}

// The store makes its number by copy construction, which leaves the range behind.
void readNumber(Reader& reader, KDRVariant& value)
{
    if (readAbsent<KDRNumber, &KDRVariant::fromNumber>(reader, value))
        return;
    KDRNumber number(0);
    read(reader, number);
    value.fromNumber(number);
    KDRNumber* stored = nullptr;
    value.toNumberPtr(stored);
    *stored = number;
}

void readEmpty(Reader& reader, KDRVariant& value)
{
    reader.null();
    value = KDRVariant();
}

// --- the table -----------------------------------------------------------------------------------

#define KDRIO_HELD(Payload, Name)                                                                  \
    &writeHeld<Payload, &KDRVariantPrivate::to##Name##Ptr>,                                        \
        &readWhole<Payload, &KDRVariant::from##Name>
#define KDRIO_COPIED(Payload, Name)                                                                \
    &writeCopied<Payload, &KDRVariantPrivate::to##Name>,                                           \
        &readWhole<Payload, &KDRVariant::from##Name>
#define KDRIO_NOTHING(Payload, Name)                                                               \
    &writeNothing<Payload, &KDRVariantPrivate::to##Name>,                                          \
        &readNothing<Payload, &KDRVariant::from##Name>

constexpr Kind kinds[] = {
    {KindBool, "bool", &writeCopied<bool, &KDRVariantPrivate::toBool>, &readBool},
    {KindNumber, "number", &writeHeld<KDRNumber, &KDRVariantPrivate::toNumberPtr>, &readNumber},
    {KindString, "string", KDRIO_HELD(KDRString, String)},
    {KindPoint, "point", KDRIO_HELD(KDRPoint, Point)},
    {KindImage, "image", KDRIO_HELD(KDRImage, Image)},
    {KindShape, "shape", KDRIO_HELD(KDRShape, Shape)},
    {KindPointCloud, "point cloud", KDRIO_NOTHING(KDRPointCloud, PointCloud)},
    {KindContour, "contour", KDRIO_HELD(KDRContour, Contour)},
    {KindROIAlignment, "ROI alignment", KDRIO_HELD(KDRROIAlignment, ROIAlignment)},
    {KindPose2D, "2D pose", KDRIO_HELD(KDRPose2D, 2DPose)},
    {KindMatrix, "matrix", KDRIO_HELD(KDRMatrix, Matrix)},
    {KindBuffer, "buffer", KDRIO_HELD(KDRBuffer, Buffer)},
    {KindChar, "char", KDRIO_HELD(KDRChar, Char)},
    {KindPoint3D, "3D point", KDRIO_NOTHING(KDRPoint3D, 3DPoint)},
    {KindVector3d, "3D vector", KDRIO_NOTHING(KDRVector3d, Vector3d)},
    {KindShape3D, "3D shape", KDRIO_NOTHING(KDRShape3D, 3DShape)},
    {KindPose3D, "3D pose", KDRIO_HELD(KDRPose3D, 3DPose)},
    {KindRangeImage, "range image", KDRIO_NOTHING(KDRRangeImage, RangeImage)},
    {KindContour3D, "3D contour", &writeNull,
     &readNothing<KDRContour3D, &KDRVariant::from3DContour>},
    {KindMatrix3, "3x3 matrix", KDRIO_NOTHING(KDRMatrix3, Matrix3)},
    {KindMatrix4, "4x4 matrix", KDRIO_NOTHING(KDRMatrix4, Matrix4)},
    {KindQuaternion, "quaternion", KDRIO_NOTHING(KDRQuaternion, Quaternion)},
    {KindDualQuaternion, "dual quaternion", KDRIO_NOTHING(KDRDualQuaternion, DualQuaternion)},
    {KindBoolArray, "bool array", KDRIO_HELD(KDRBoolArray, BoolArray)},
    {KindNumberArray, "number array", KDRIO_COPIED(KDRNumberArray, NumberArray)},
    {KindStringArray, "string array", KDRIO_HELD(KDRStringArray, StringArray)},
    {KindPointArray, "point array", KDRIO_HELD(KDRPointArray, PointArray)},
    {KindImageArray, "image array", KDRIO_HELD(KDRImageArray, ImageArray)},
    {KindRangeImageArray, "range image array", KDRIO_NOTHING(KDRRangeImageArray, RangeImageArray)},
    {KindShapeArray, "shape array", KDRIO_HELD(KDRShapeArray, ShapeArray)},
    {KindPointCloudArray, "point cloud array", KDRIO_NOTHING(KDRPointCloudArray, PointCloudArray)},
    {KindContourArray, "contour array", KDRIO_HELD(KDRContourArray, ContourArray)},
    {KindMatrixArray, "matrix array", KDRIO_HELD(KDRMatrixArray, MatrixArray)},
    {KindBufferArray, "buffer array", KDRIO_HELD(KDRBufferArray, BufferArray)},
    {KindPoint3DArray, "3D point array", KDRIO_NOTHING(KDRPoint3DArray, 3DPointArray)},
    {KindShape3DArray, "3D shape array", KDRIO_HELD(KDRShape3DArray, 3DShapeArray)},
    {KindVector3dArray, "3D vector array", KDRIO_NOTHING(KDRVector3dArray, Vector3dArray)},
    {KindContour3DArray, "3D contour array", KDRIO_NOTHING(KDRContour3DArray, 3DContourArray)},
    {KindVariantArray, "variant array", KDRIO_HELD(KDRVariantArray, VariantArray)},
    {KindPlane3D, "3D plane", KDRIO_NOTHING(KDRPlane3D, 3DPlane)},
    {KindPlane3DArray, "3D plane array", KDRIO_NOTHING(KDRPlane3DArray, 3DPlaneArray)},
    {KindNone, "empty", &writeNull, &readEmpty},
};

} // namespace

Kind const* kindOf(KDRVariantKind number)
{
    for (Kind const& kind : kinds) {
        if (kind.number == number)
            return &kind;
    }
    return nullptr;
}

Kind const* kindNamed(char const* name)
{
    for (Kind const& kind : kinds) {
        if (std::strcmp(kind.name, name) == 0)
            return &kind;
    }
    return nullptr;
}

} // namespace kdrio
