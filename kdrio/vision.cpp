#include <kdrio/contents_p.h>
#include <kdrio/inside_p.h>
#include <kdrio/reader_p.h>
#include <kdrio/writer_p.h>

#include <kdrdata/vision/vision.h>

#include <climits>

namespace kdrio {

namespace {

// The range of one axis of a point.
struct Range
{
    double maximum;
    double minimum;
    double step;

    bool isDefault() const
    {
        return inside::sameBits(maximum, 999999.0) && inside::sameBits(minimum, -999999.0) &&
               inside::sameBits(step, 1.0);
    }
};

void writeRange(Writer& writer, char const* name, Range const& range)
{
    if (range.isDefault())
        return;
    writer.name(name);
    writer.map(3);
    writer.field("maximum", range.maximum);
    writer.field("minimum", range.minimum);
    writer.field("step", range.step);
    writer.endMap();
}

Range readRange(Reader& reader)
{
    Range range = {};
    reader.fields({{"maximum", true, [&] { range.maximum = reader.number(); }},
                   {"minimum", true, [&] { range.minimum = reader.number(); }},
                   {"step", true, [&] { range.step = reader.number(); }}});
    return range;
}

constexpr int numbersOfRun = 3;

std::vector<qint64> runsOf(KDRRegion& region)
{
    KDRNumberArray columns[numbersOfRun];
    region.toRunLengthEncodeing(&columns[0], &columns[1], &columns[2]);
    std::vector<qint64> runs;
    runs.reserve(static_cast<std::size_t>(columns[0].length()) * numbersOfRun);
    KDRNumber number;
    for (int i = 0; i < columns[0].length(); ++i) {
        for (KDRNumberArray const& column : columns) {
            column.select(i, &number);
            runs.push_back(number.toLongLong());
        }
    }
    return runs;
}

// A pair of tags around elements, of which the dimensions come first.
long long readDimensions(Reader& reader, char const* what, long long columns)
{
    reader.tag(format::dimensions, what);
    reader.list(2);
    reader.list(2);
    long long const rows = reader.integer(0, INT_MAX);
    reader.integer(columns, columns);
    reader.endList();
    return rows;
}

} // namespace

void write(Writer& writer, KDRPoint const& value)
{
    Range const x = {value.getXMaxVal(), value.getXMinVal(), value.getXStepVal()};
    Range const y = {value.getYMaxVal(), value.getYMinVal(), value.getYStepVal()};
    writer.map(2 + !x.isDefault() + !y.isDefault());
    writer.field("x", value.x());
    writer.field("y", value.y());
    writeRange(writer, "xRange", x);
    writeRange(writer, "yRange", y);
    writer.endMap();
}

void read(Reader& reader, KDRPoint& value)
{
    auto const readX = [&] {
        Range const range = readRange(reader);
        value.setXMaxVal(range.maximum);
        value.setXMinVal(range.minimum);
        value.setXStepVal(range.step);
    };
    auto const readY = [&] {
        Range const range = readRange(reader);
        value.setYMaxVal(range.maximum);
        value.setYMinVal(range.minimum);
        value.setYStepVal(range.step);
    };
    reader.fields({{"x", true, [&] { value.setX(reader.number()); }},
                   {"y", true, [&] { value.setY(reader.number()); }},
                   {"xRange", false, readX},
                   {"yRange", false, readY}});
}

void write(Writer& writer, KDRImage const& value)
{
    value.dataPtr() ? writer.pixels(value) : writer.null();
}

void read(Reader& reader, KDRImage& value)
{
    reader.isNull() ? reader.null() : reader.pixels(value);
}

void write(Writer& writer, KDRRegion const& value)
{
    // A constant region tells nothing.
    KDRRegion copy(value);
    std::vector<qint64> const runs = runsOf(copy);
    writer.map(3);
    writer.name("width");
    writer.integer(copy.width());
    writer.name("height");
    writer.integer(copy.height());
    writer.name("runs");
    writer.tag(format::dimensions);
    writer.list(2);
    writer.list(2);
    writer.integer(static_cast<long long>(runs.size()) / numbersOfRun);
    writer.integer(numbersOfRun);
    writer.endList();
    writer.tag(format::int64s);
    writer.bytes(runs.data(),
                 static_cast<long long>(runs.size()) * static_cast<long long>(sizeof(qint64)));
    writer.endList();
    writer.endMap();
}

void read(Reader& reader, KDRRegion& value)
{
    int width = 0;
    int height = 0;
    KDRNumberArray columns[numbersOfRun];
    auto const readRuns = [&] {
        long long const count = readDimensions(reader, "runs", numbersOfRun);
        reader.tag(format::int64s, "runs");
        long long const length = reader.byteLength();
        if (length != count * numbersOfRun * static_cast<long long>(sizeof(qint64)))
            reader.fail("as many numbers of runs as the dimensions say are expected");
        reader.countElements(count * numbersOfRun);
        std::vector<qint64> runs(static_cast<std::size_t>(count) * numbersOfRun);
        reader.bytes(runs.data(), length);
        for (std::size_t i = 0; i < runs.size(); ++i)
            columns[i % numbersOfRun].push_back(KDRNumber(runs[i]));
        reader.endList();
    };
    reader.fields(
        {{"width", true, [&] { width = static_cast<int>(reader.integer(0, INT_MAX)); }},
         {"height", true, [&] { height = static_cast<int>(reader.integer(INT_MIN, INT_MAX)); }},
         {"runs", true, readRuns}});
    value.fromRunLengthEncodeing(columns[0], columns[1], columns[2], width, height);
}

void write(Writer& writer, KDRMatrix const& value)
{
    int const type = value.type();
    if (type < 0 || type >= format::elementTypeCount)
        writer.fail(QStringLiteral("the format has no elements of type %1").arg(type));
    format::ElementType const& element = format::elementTypes[type];
    writer.tag(format::dimensions);
    writer.list(2);
    writer.list(2);
    writer.integer(value.rows());
    writer.integer(value.cols());
    writer.endList();
    writer.tag(element.tag);
    // The elements of a constant matrix are read one by one or not at all.
    writer.bytes(const_cast<KDRMatrix&>(value).dataPtr(),
                 static_cast<long long>(value.rows()) * value.cols() * element.bytes);
    writer.endList();
}

void read(Reader& reader, KDRMatrix& value)
{
    reader.tag(format::dimensions, "a matrix");
    reader.list(2);
    reader.list(2);
    int const rows = static_cast<int>(reader.integer(0, INT_MAX));
    int const columns = static_cast<int>(reader.integer(0, INT_MAX));
    reader.endList();
    QCborTag const tag = reader.tag();
    int type = 0;
    while (type < format::elementTypeCount && format::elementTypes[type].tag != tag)
        ++type;
    if (type == format::elementTypeCount)
        reader.fail("the elements of a matrix are of no such type");
    long long const count = static_cast<long long>(rows) * columns;
    long long const length = reader.byteLength();
    // Divided rather than multiplied: the product may be beyond 64 bits.
    int const bytes = format::elementTypes[type].bytes;
    if (length % bytes != 0 || length / bytes != count)
        reader.fail("as many elements as the dimensions say are expected");
    reader.countElements(count);
    if (value.setMatrix(rows, columns, static_cast<KDRMatrix::KDRMatrixType>(type)) == 0 ||
        value.rows() != rows || value.cols() != columns || value.type() != type)
        reader.fail("the core library makes no such matrix");
    reader.bytes(value.dataPtr(), length);
    reader.endList();
}

void write(Writer& writer, KDRContour const& value)
{
    KDRPointArray points;
    value.ToPointArray(&points);
    write(writer, points);
}

void read(Reader& reader, KDRContour& value)
{
    KDRPointArray points;
    read(reader, points);
    value.FromPointArray(points);
}

void write(Writer& writer, KDRROIAlignment const& value)
{
    // A constant alignment does not tell its matrices.
    KDRROIAlignment copy(value);
    KDRMatrixArray matrices;
    copy.toMatrixArray(&matrices);
    write(writer, matrices);
}

void read(Reader& reader, KDRROIAlignment& value)
{
    KDRMatrixArray matrices;
    read(reader, matrices);
    value.fromMatrixArray(matrices);
}

void write(Writer& writer, KDRFont const& value)
{
    // A constant font tells nothing.
    KDRFont copy(value);
    auto const integer = [&writer](char const* name, long number) {
        writer.name(name);
        writer.integer(number);
    };
    writer.map(7);
    writer.name("face");
    write(writer, copy.faceName());
    integer("size", copy.size());
    integer("weight", copy.weight());
    writer.name("bold");
    writer.flag(copy.bold());
    integer("italic", copy.italic());
    integer("underline", copy.underline());
    integer("strikeOut", copy.strikeOut());
    writer.endMap();
}

void read(Reader& reader, KDRFont& value)
{
    auto const readFace = [&] {
        KDRString name;
        read(reader, name);
        value.setFaceName(name);
    };
    auto const flag = [&] { return static_cast<unsigned char>(reader.integer(0, UCHAR_MAX)); };
    auto const number = [&] { return static_cast<long>(reader.integer(LONG_MIN, LONG_MAX)); };
    reader.fields({{"face", true, readFace},
                   {"size", true, [&] { value.setSize(number()); }},
                   {"weight", true, [&] { value.setWeight(number()); }},
                   {"bold", true, [&] { value.setBold(reader.flag()); }},
                   {"italic", true, [&] { value.setItalic(flag()); }},
                   {"underline", true, [&] { value.setUnderline(flag()); }},
                   {"strikeOut", true, [&] { value.setStrikeOut(flag()); }}});
}

} // namespace kdrio
