#include <kdrio/contents_p.h>
#include <kdrio/inside_p.h>
#include <kdrio/reader_p.h>
#include <kdrio/writer_p.h>

#include <kdrdata/kdrdata.h>

#include <climits>

namespace kdrio {

namespace {

template <class Element, class Array>
void writeEach(Writer& writer, Array const& array)
{
    int const length = array.length();
    writer.list(length);
    Path::Step step(writer.path(), 0);
    Element element{};
    for (int i = 0; i < length; ++i) {
        array.select(i, &element);
        write(writer, element);
        step.next();
    }
    writer.endList();
}

template <class Element, class Array>
void readEach(Reader& reader, Array& array)
{
    int const length = reader.list();
    {
        Path::Step step(reader.path(), 0);
        for (int i = 0; i < length; ++i) {
            Element element;
            read(reader, element);
            array.push_back(element);
            step.next();
        }
    }
    reader.endList();
}

// The elements of a typed array, which the input holds.
template <class Element>
std::vector<Element> readElements(Reader& reader)
{
    long long const length = reader.byteLength();
    if (length % static_cast<long long>(sizeof(Element)) != 0)
        reader.fail("no whole number of elements");
    long long const count = length / static_cast<long long>(sizeof(Element));
    if (count > INT_MAX)
        reader.fail("more elements than a list holds");
    reader.countElements(count);
    std::vector<Element> elements(static_cast<std::size_t>(count));
    reader.bytes(elements.data(), length);
    return elements;
}

template <class Element>
void readTyped(Reader& reader, KDRNumberArray& array)
{
    for (Element const element : readElements<Element>(reader))
        array.push_back(KDRNumber(element));
}

template <class Element, class Value>
void writeTyped(Writer& writer, QCborTag tag, KDRNumberArray const& array, Value const& valueOf)
{
    std::vector<Element> elements;
    elements.reserve(static_cast<std::size_t>(array.length()));
    KDRNumber number;
    for (int i = 0; i < array.length(); ++i) {
        array.select(i, &number);
        elements.push_back(valueOf(number));
    }
    writer.tag(tag);
    writer.bytes(elements.data(),
                 static_cast<long long>(elements.size()) * static_cast<long long>(sizeof(Element)));
}

bool isInteger(KDRNumber const& number)
{
    return inside::record(number).kind == KDRNumberPrivate::Integer;
}

// Whether all are of the first one's kind and none has a range.
bool areAlike(KDRNumberArray const& array)
{
    KDRNumber number;
    bool areIntegers = false;
    for (int i = 0; i < array.length(); ++i) {
        array.select(i, &number);
        if (i == 0)
            areIntegers = isInteger(number);
        if (hasRange(number) || isInteger(number) != areIntegers)
            return false;
    }
    return array.length() > 0;
}

} // namespace

void write(Writer& writer, KDRBoolArray const& value) { writeEach<bool>(writer, value); }

void read(Reader& reader, KDRBoolArray& value)
{
    int const length = reader.list();
    {
        Path::Step step(reader.path(), 0);
        for (int i = 0; i < length; ++i) {
            value.push_back(reader.flag());
            step.next();
        }
    }
    reader.endList();
}

void write(Writer& writer, KDRNumberArray const& value)
{
    if (!areAlike(value))
        return writeEach<KDRNumber>(writer, value);
    KDRNumber first;
    value.select(0, &first);
    if (isInteger(first))
        writeTyped<qint64>(writer, format::int64s, value,
                           [](KDRNumber const& number) { return number.toLongLong(); });
    else
        writeTyped<double>(writer, format::doubles, value,
                           [](KDRNumber const& number) { return number.toDouble(); });
}

void read(Reader& reader, KDRNumberArray& value)
{
    if (reader.isTag()) {
        QCborTag const tag = reader.tag();
        if (tag == format::int64s)
            return readTyped<qint64>(reader, value);
        if (tag == format::doubles)
            return readTyped<double>(reader, value);
        reader.fail("a list of numbers is expected");
    }
    int const length = reader.list();
    {
        Path::Step step(reader.path(), 0);
        for (int i = 0; i < length; ++i) {
            KDRNumber number(0);
            read(reader, number);
            // Elements enter without their range; a replacement brings it along.
            value.push_back(number);
            if (hasRange(number))
                value.replace(i, number);
            step.next();
        }
    }
    reader.endList();
}

void write(Writer& writer, KDRPointArray const& value)
{
    int const length = value.length();
    std::vector<double> coordinates;
    coordinates.reserve(2 * static_cast<std::size_t>(length));
    KDRPoint point;
    for (int i = 0; i < length; ++i) {
        value.select(i, &point);
        coordinates.push_back(point.x());
        coordinates.push_back(point.y());
    }
    writer.tag(format::dimensions);
    writer.list(2);
    writer.list(2);
    writer.integer(length);
    writer.integer(2);
    writer.endList();
    writer.tag(format::doubles);
    writer.bytes(coordinates.data(), 16LL * length);
    writer.endList();
}

void read(Reader& reader, KDRPointArray& value)
{
    reader.tag(format::dimensions, "points");
    reader.list(2);
    reader.list(2);
    long long const length = reader.integer(0, INT_MAX);
    reader.integer(2, 2);
    reader.endList();
    reader.tag(format::doubles, "the coordinates of points");
    if (reader.byteLength() != 16 * length)
        reader.fail("as many coordinates as the dimensions say are expected");
    std::vector<double> const coordinates = readElements<double>(reader);
    KDRPoint point;
    for (std::size_t i = 0; i < coordinates.size(); i += 2) {
        point.setX(coordinates[i]);
        point.setY(coordinates[i + 1]);
        value.push_back(point);
    }
    reader.endList();
}

void write(Writer& writer, KDRStringArray const& value) { writeEach<KDRString>(writer, value); }
void read(Reader& reader, KDRStringArray& value) { readEach<KDRString>(reader, value); }

void write(Writer& writer, KDRBufferArray const& value) { writeEach<KDRBuffer>(writer, value); }
void read(Reader& reader, KDRBufferArray& value) { readEach<KDRBuffer>(reader, value); }

void write(Writer& writer, KDRImageArray const& value) { writeEach<KDRImage>(writer, value); }
void read(Reader& reader, KDRImageArray& value) { readEach<KDRImage>(reader, value); }

void write(Writer& writer, KDRShapeArray const& value) { writeEach<KDRShape>(writer, value); }
void read(Reader& reader, KDRShapeArray& value) { readEach<KDRShape>(reader, value); }

void write(Writer& writer, KDRContourArray const& value) { writeEach<KDRContour>(writer, value); }
void read(Reader& reader, KDRContourArray& value) { readEach<KDRContour>(reader, value); }

void write(Writer& writer, KDRMatrixArray const& value) { writeEach<KDRMatrix>(writer, value); }
void read(Reader& reader, KDRMatrixArray& value) { readEach<KDRMatrix>(reader, value); }

void write(Writer& writer, KDRVariantArray const& value)
{
    QList<KDRVariant> const& elements = inside::elements(value);
    writer.list(elements.size());
    {
        Path::Step step(writer.path(), 0);
        for (KDRVariant const& element : elements) {
            writer.value(element);
            step.next();
        }
    }
    writer.endList();
}

// Each element enters the list as another handle on one empty store, and gets a store of its own
// when it is filled where it is.
void read(Reader& reader, KDRVariantArray& value)
{
    Reader::Nesting const nesting(reader);
    int const length = reader.list();
    {
        Path::Step step(reader.path(), 0);
        KDRVariant const empty;
        QList<KDRVariant>& elements = inside::elements(value);
        elements.reserve(length);
        for (int i = 0; i < length; ++i) {
            elements.append(empty);
            reader.value(elements.last());
            step.next();
        }
    }
    reader.endList();
}

} // namespace kdrio
