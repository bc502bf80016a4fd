#include <kdrio/contents_p.h>
#include <kdrio/inside_p.h>
#include <kdrio/reader_p.h>
#include <kdrio/shapekinds_p.h>
#include <kdrio/writer_p.h>

#include <climits>
#include <cstring>

namespace kdrio {

namespace {

void writePart(Writer& writer, Parameters& parameters, Part part)
{
    visit(parameters, part, [&writer](auto const& value) {
        if constexpr (std::is_same_v<decltype(value), double const&>)
            writer.number(value);
        else if constexpr (std::is_same_v<decltype(value), int const&>)
            writer.integer(value);
        else
            write(writer, value);
    });
}

// Reads one part; for the list of a kind's fields.
struct PartReader
{
    Reader* reader;
    Parameters* parameters;
    Part part;

    void operator()() const
    {
        visit(*parameters, part, [this](auto& value) {
            if constexpr (std::is_same_v<decltype(value), double&>)
                value = reader->number();
            else if constexpr (std::is_same_v<decltype(value), int&>)
                value = static_cast<int>(reader->integer(INT_MIN, INT_MAX));
            else
                read(*reader, value);
        });
    }
};

void readParts(Reader& reader, ShapeKind const& kind, Parameters& parameters)
{
    int const count = kind.partCount();
    if (count == 0)
        return reader.null();
    PartReader const readers[mostParts] = {{&reader, &parameters, kind.parts[0].part},
                                           {&reader, &parameters, kind.parts[1].part},
                                           {&reader, &parameters, kind.parts[2].part},
                                           {&reader, &parameters, kind.parts[3].part},
                                           {&reader, &parameters, kind.parts[4].part}};
    if (!kind.parts[0].name)
        return readers[0]();
    Reader::Field const fields[mostParts] = {{kind.parts[0].name, true, readers[0]},
                                             {kind.parts[1].name, true, readers[1]},
                                             {kind.parts[2].name, true, readers[2]},
                                             {kind.parts[3].name, true, readers[3]},
                                             {kind.parts[4].name, true, readers[4]}};
    reader.fields(fields, count);
}

} // namespace

void write(Writer& writer, KDRShape const& value)
{
    ShapeKind const* const kind = shapeKindOf(value.shapeType());
    if (!kind)
        writer.fail(QStringLiteral("the format has no shape of kind %1").arg(value.shapeType()));

    Parameters parameters;
    kind->get(value, parameters);
    writer.map(1);
    writer.name(kind->name);
    Path::Step const step(writer.path(), kind->name);
    int const count = kind->partCount();
    if (count == 0) {
        writer.null();
    } else if (!kind->parts[0].name) {
        writePart(writer, parameters, kind->parts[0].part);
    } else {
        writer.map(count);
        for (int i = 0; i < count; ++i) {
            writer.name(kind->parts[i].name);
            writePart(writer, parameters, kind->parts[i].part);
        }
        writer.endMap();
    }
    writer.endMap();
}

void read(Reader& reader, KDRShape& value)
{
    reader.choice("shape", [&](char const* name) {
        for (ShapeKind const& kind : shapeKinds) {
            if (std::strcmp(kind.name, name) != 0)
                continue;
            Parameters parameters;
            readParts(reader, kind, parameters);
            kind.make(value, parameters);
            return true;
        }
        return false;
    });
}

} // namespace kdrio
