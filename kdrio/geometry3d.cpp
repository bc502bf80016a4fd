#include <kdrio/contents_p.h>
#include <kdrio/reader_p.h>
#include <kdrio/writer_p.h>

#include <kdrdata/geometry3d/geometry3d.h>

namespace kdrio {

void write(Writer& writer, KDRPose2D const& value)
{
    writer.map(3);
    writer.field("x", value.x());
    writer.field("y", value.y());
    writer.field("Rz", value.Rz());
    writer.endMap();
}

void read(Reader& reader, KDRPose2D& value)
{
    reader.fields({{"x", true, [&] { value.setX(reader.number()); }},
                   {"y", true, [&] { value.setY(reader.number()); }},
                   {"Rz", true, [&] { value.setRz(reader.number()); }}});
}

void write(Writer& writer, KDRPose3D const& value)
{
    writer.map(6);
    writer.field("x", value.x());
    writer.field("y", value.y());
    writer.field("z", value.z());
    writer.field("Rx", value.Rx());
    writer.field("Ry", value.Ry());
    writer.field("Rz", value.Rz());
    writer.endMap();
}

void read(Reader& reader, KDRPose3D& value)
{
    reader.fields({{"x", true, [&] { value.setX(reader.number()); }},
                   {"y", true, [&] { value.setY(reader.number()); }},
                   {"z", true, [&] { value.setZ(reader.number()); }},
                   {"Rx", true, [&] { value.setRx(reader.number()); }},
                   {"Ry", true, [&] { value.setRy(reader.number()); }},
                   {"Rz", true, [&] { value.setRz(reader.number()); }}});
}

// The shapes carry nothing, but the list has a length. One null for each: a number alone would let
// a few bytes of input become any number of shapes.
void write(Writer& writer, KDRShape3DArray const& value)
{
    writer.list(value.length());
    for (int i = 0; i < value.length(); ++i)
        writer.null();
    writer.endList();
}

void read(Reader& reader, KDRShape3DArray& value)
{
    int const length = reader.list();
    for (int i = 0; i < length; ++i) {
        reader.null();
        value.push_back(KDRShape3D());
    }
    reader.endList();
}

} // namespace kdrio
