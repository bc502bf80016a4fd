#include <kdrio/reader_p.h>

#include <QtCore/qiodevice.h>

#include <algorithm>
#include <climits>
#include <cstring>

namespace kdrio {

namespace {

Limits bounded(Limits limits)
{
    limits.nesting = std::min(limits.nesting, deepestNesting);
    return limits;
}

} // namespace

Reader::Reader(QIODevice& device, long long length, Limits const& limits,
               KDRImageArray const* outside)
    : m_cbor(&device),
      m_start(device.pos()),
      m_length(length),
      m_limits(bounded(limits)),
      m_outside(outside)
{
}

Reader::Reader(QByteArray const& bytes, Limits const& limits, KDRImageArray const* outside)
    : m_cbor(bytes),
      m_start(0),
      m_length(bytes.size()),
      m_limits(bounded(limits)),
      m_outside(outside)
{
}

void Reader::file(KDRVariant& value)
{
    if (m_length > m_limits.bytes)
        fail(QStringLiteral("more than %1 bytes").arg(m_limits.bytes));
    char const* const what = "a value of this format";
    tag(format::signature, what);
    expect(m_cbor.isArray(), what);
    list(3);
    expect(name(what).text == QByteArray(format::name), what);
    long long const version = integer();
    if (version != format::version)
        fail(QStringLiteral("version %1 of the format is not known").arg(version));
    this->value(value);
    endList();
    if (left() != 0)
        fail("more bytes behind the value");
}

int Reader::containerLength()
{
    if (!m_cbor.isLengthKnown())
        fail("a list or a map whose length is not said before");
    quint64 const length = m_cbor.length();
    // Each element is a byte at least.
    if (length > static_cast<quint64>(std::max(left(), 0LL)))
        fail("a list or a map that is longer than the rest of the input");
    return static_cast<int>(std::min<quint64>(length, INT_MAX));
}

int Reader::list()
{
    expect(m_cbor.isArray(), "a list");
    int const length = containerLength();
    countElements(length);
    m_cbor.enterContainer();
    return length;
}

void Reader::list(int length)
{
    expect(m_cbor.isArray(), "a list");
    if (containerLength() != length)
        fail(QStringLiteral("a list of %1 elements is expected").arg(length));
    m_cbor.enterContainer();
}

void Reader::leave()
{
    expect(!m_cbor.hasNext(), "the end of a list or a map");
    m_cbor.leaveContainer();
}

void Reader::map(int length, char const* what)
{
    expect(m_cbor.isMap(), what);
    if (containerLength() != length)
        fail(QStringLiteral("%1 is one entry").arg(QLatin1String(what)));
    m_cbor.enterContainer();
}

void Reader::fields(Field const* fields, int count)
{
    expect(m_cbor.isMap(), "a map of fields");
    int const length = containerLength();
    m_cbor.enterContainer();
    unsigned int seen = 0;
    for (int i = 0; i < length; ++i) {
        Name const found = name("the name of a field");
        auto const* const field =
            std::find_if(fields, fields + count, [&found](Field const& candidate) {
                return std::strcmp(candidate.name, found.text) == 0;
            });
        if (field == fields + count)
            failUnknown("field", found);
        unsigned int const bit = 1U << (field - fields);
        if (seen & bit)
            fail(QStringLiteral("a second field \"%1\"").arg(QLatin1String(field->name)));
        seen |= bit;
        Path::Step const step(m_path, field->name);
        field->read();
    }
    for (int i = 0; i < count; ++i) {
        if (fields[i].isRequired && !(seen & (1U << i)))
            fail(QStringLiteral("no field \"%1\"").arg(QLatin1String(fields[i].name)));
    }
    leave();
}

Reader::Name Reader::name(char const* what)
{
    expect(m_cbor.isString(), what);
    Name name = {};
    constexpr int longest = sizeof name.text - 1;
    if (!m_cbor.isLengthKnown() || m_cbor.length() > longest)
        fail(
            QStringLiteral("%1 is expected, and this is longer than any").arg(QLatin1String(what)));
    int length = 0;
    for (;;) {
        auto const read = m_cbor.readStringChunk(name.text + length, longest - length + 1);
        if (read.status == QCborStreamReader::EndOfString)
            break;
        if (read.status == QCborStreamReader::Error)
            failExpected(what);
        length += static_cast<int>(read.data);
    }
    // What no name of the format has; zeros would end it where it is compared.
    std::replace_if(
        name.text, name.text + length, [](char c) { return c < ' ' || c > '~'; }, '?');
    return name;
}

void Reader::null()
{
    expect(m_cbor.isNull(), "null");
    m_cbor.next();
}

void Reader::absent()
{
    expect(m_cbor.isUndefined(), "contents");
    m_cbor.next();
}

bool Reader::flag()
{
    expect(m_cbor.isBool(), "true or false");
    bool const flag = m_cbor.toBool();
    m_cbor.next();
    return flag;
}

long long Reader::integer()
{
    expect(m_cbor.isInteger(), "an integer");
    bool const fits = m_cbor.isUnsignedInteger()
                          ? m_cbor.toUnsignedInteger() <= quint64(LLONG_MAX)
                          : quint64(m_cbor.toNegativeInteger()) - 1 <= quint64(LLONG_MAX);
    if (!fits)
        fail("an integer beyond 64 bits");
    long long const value = m_cbor.toInteger();
    m_cbor.next();
    return value;
}

long long Reader::integer(long long least, long long most)
{
    long long const value = integer();
    if (value < least || value > most)
        fail(QStringLiteral("%1, which is not from %2 to %3").arg(value).arg(least).arg(most));
    return value;
}

double Reader::number()
{
    expect(m_cbor.isDouble() || m_cbor.isFloat() || m_cbor.isFloat16(), "a floating-point number");
    double value = 0.0;
    if (m_cbor.isDouble())
        value = m_cbor.toDouble();
    else if (m_cbor.isFloat())
        value = static_cast<double>(m_cbor.toFloat());
    else
        value = static_cast<double>(static_cast<float>(m_cbor.toFloat16()));
    m_cbor.next();
    return value;
}

QString Reader::text()
{
    if (m_cbor.isTag()) {
        tag(format::uint16s, "a text");
        long long const length = byteLength();
        if (length % 2 != 0 || length / 2 >= INT_MAX / 4)
            fail("no whole number of code units, or too many");
        QString text(static_cast<int>(length / 2), Qt::Uninitialized);
        bytes(text.data(), length);
        return text;
    }
    expect(m_cbor.isString(), "a text");
    if (!m_cbor.isLengthKnown())
        fail("a text whose length is not said before");
    if (m_cbor.length() > quint64(std::max(left(), 0LL)) || m_cbor.length() >= INT_MAX / 4)
        fail("a text that is longer than the rest of the input, or too long");
    auto const length = static_cast<int>(m_cbor.length());
    QString text(QLatin1String(""));
    for (;;) {
        auto const read = m_cbor.readString();
        if (read.status == QCborStreamReader::EndOfString)
            break;
        if (read.status == QCborStreamReader::Error)
            failExpected("a text");
        if (!read.data.isEmpty())
            text = read.data;
    }
    // A byte order mark at the beginning is a character like any other, which Qt takes away. Where
    // there is no more than ASCII, there is none.
    if (text.size() != length && text.toUtf8().size() != length)
        text.prepend(QChar(QChar::ByteOrderMark));
    return text;
}

QByteArray Reader::bytes()
{
    long long const length = byteLength();
    if (length >= INT_MAX / 2)
        fail("too many bytes");
    QByteArray bytes(static_cast<int>(length), Qt::Uninitialized);
    this->bytes(bytes.data(), length);
    return bytes;
}

long long Reader::byteLength()
{
    expect(m_cbor.isByteArray(), "a string of bytes");
    if (!m_cbor.isLengthKnown())
        fail("a string of bytes whose length is not said before");
    quint64 const length = m_cbor.length();
    if (length > quint64(std::max(left(), 0LL)))
        fail("a string of bytes that is longer than the rest of the input");
    return static_cast<long long>(length);
}

void Reader::bytes(void* to, long long length)
{
    char spare = 0;
    char* const first = to && length > 0 ? static_cast<char*>(to) : &spare;
    long long done = 0;
    for (;;) {
        // The end of a string is said by one more call, which wants room and leaves it alone.
        bool const isAll = done == length;
        auto const read = m_cbor.readStringChunk(isAll ? &spare : first + done,
                                                 isAll ? 1 : static_cast<qsizetype>(length - done));
        if (read.status == QCborStreamReader::EndOfString)
            break;
        if (read.status == QCborStreamReader::Error)
            failExpected("a string of bytes");
        done += read.data;
    }
    if (done != length)
        fail("a string of bytes that ends too early");
}

QCborTag Reader::tag()
{
    expect(m_cbor.isTag(), "a tag");
    QCborTag const tag = m_cbor.toTag();
    m_cbor.next();
    return tag;
}

void Reader::tag(QCborTag expected, char const* what)
{
    expect(m_cbor.isTag() && m_cbor.toTag() == expected, what);
    m_cbor.next();
}

void Reader::countElements(long long count)
{
    if (count > m_limits.elements - m_elements)
        fail(QStringLiteral("more than %1 elements").arg(m_limits.elements));
    m_elements += count;
}

void Reader::nest()
{
    if (m_nesting >= m_limits.nesting)
        fail(QStringLiteral("more than %1 values inside of each other").arg(m_limits.nesting));
    ++m_nesting;
}

void Reader::expect(bool holds, char const* what)
{
    // Qt's reader names the type of an item even where the item itself is damaged, and would step
    // out of the input with it.
    if (!holds || m_cbor.lastError() != QCborError::NoError)
        failExpected(what);
}

void Reader::failExpected(char const* what)
{
    QCborError const error = m_cbor.lastError();
    if (error == QCborError::EndOfFile)
        fail("the input ends too early");
    if (error != QCborError::NoError)
        fail(QStringLiteral("no CBOR: %1").arg(error.toString()));
    fail(QStringLiteral("%1 is expected").arg(QLatin1String(what)));
}

void Reader::failUnknown(char const* what, Name const& name) const
{
    fail(QStringLiteral("no such %1: \"%2\"").arg(QLatin1String(what), QLatin1String(name.text)));
}

void Reader::fail(QString const& what) const { throw Failure{what, m_path.text(), offset()}; }

} // namespace kdrio
