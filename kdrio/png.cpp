#include <kdrio/png_p.h>

#include <kdrdata/vision/kdrimage.h>

#include <QtCore/qendian.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <cstring>

namespace kdrio::png {

namespace {

constexpr char const signature[] = "\x89PNG\r\n\x1a\n";
constexpr int signatureLength = 8;
constexpr int headerLength = 13;

// Colour types of PNG by the number of channels.
constexpr unsigned char colourTypes[] = {0, 0, 4, 2, 6};

enum Filter : unsigned char { None, Sub, Up, Average, Paeth };

quint32 crc(char const* first, int length)
{
    constexpr auto table = [] {
        std::array<quint32, 256> made{};
        for (quint32 n = 0; n < made.size(); ++n) {
            quint32 c = n;
            for (int bit = 0; bit < 8; ++bit)
                c = c & 1U ? 0xEDB88320U ^ (c >> 1) : c >> 1;
            made[n] = c;
        }
        return made;
    }();
    quint32 c = 0xFFFFFFFFU;
    for (int i = 0; i < length; ++i)
        c = table[(c ^ static_cast<unsigned char>(first[i])) & 0xFFU] ^ (c >> 8);
    return ~c;
}

void appendNumber(QByteArray& bytes, quint32 number)
{
    char digits[sizeof number];
    qToBigEndian(number, digits);
    bytes.append(digits, sizeof digits);
}

void appendChunk(QByteArray& picture, char const* type, char const* first, int length)
{
    appendNumber(picture, static_cast<quint32>(length));
    int const start = picture.size();
    picture.append(type, 4);
    picture.append(first, length);
    appendNumber(picture, crc(picture.constData() + start, length + 4));
}

// How the elements of a pixel lie in an image and in a picture.
struct Layout
{
    int channels;
    int bytes; ///< of an element

    int pixelBytes() const { return channels * bytes; }

    // Exchanges blue and red, and the bytes of wide elements, of one row: what turns an image's row
    // into a picture's and back.
    void turn(unsigned char* row, int width) const
    {
        for (int x = 0; x < width; ++x, row += pixelBytes()) {
            if (channels > 2) {
                for (int i = 0; i < bytes; ++i)
                    std::swap(row[i], row[2 * bytes + i]);
            }
            for (int i = 0; bytes == 2 && i < pixelBytes(); i += 2)
                std::swap(row[i], row[i + 1]);
        }
    }
};

unsigned char predicted(int filter, int left, int up, int upLeft)
{
    switch (filter) {
    case Sub:
        return static_cast<unsigned char>(left);
    case Up:
        return static_cast<unsigned char>(up);
    case Average:
        return static_cast<unsigned char>((left + up) / 2);
    case Paeth: {
        int const estimate = left + up - upLeft;
        int const toLeft = std::abs(estimate - left);
        int const toUp = std::abs(estimate - up);
        int const toUpLeft = std::abs(estimate - upLeft);
        if (toLeft <= toUp && toLeft <= toUpLeft)
            return static_cast<unsigned char>(left);
        return static_cast<unsigned char>(toUp <= toUpLeft ? up : upLeft);
    }
    default:
        return 0;
    }
}

// Takes the filter off one row, in place; null for no row above.
void unfilter(int filter, unsigned char* row, unsigned char const* above, int length, int pixel)
{
    if (filter == None)
        return;
    for (int i = 0; i < length; ++i) {
        int const left = i < pixel ? 0 : row[i - pixel];
        int const up = above ? above[i] : 0;
        int const upLeft = i < pixel || !above ? 0 : above[i - pixel];
        row[i] = static_cast<unsigned char>(row[i] + predicted(filter, left, up, upLeft));
    }
}

// What the chunks of a picture say.
struct Parts
{
    quint32 width = 0;
    quint32 height = 0;
    Layout layout = {0, 0};
    QByteArray packed; ///< all of the packed rows, behind room for their length
};

QString readHeader(char const* header, Parts& parts)
{
    parts.width = qFromBigEndian<quint32>(header);
    parts.height = qFromBigEndian<quint32>(header + 4);
    auto const bits = static_cast<unsigned char>(header[8]);
    auto const colour = static_cast<unsigned char>(header[9]);
    for (int channels = 1; channels <= 4; ++channels) {
        if (colourTypes[channels] == colour)
            parts.layout.channels = channels;
    }
    parts.layout.bytes = bits == 8 ? 1 : bits == 16 ? 2 : 0;
    if (parts.layout.pixelBytes() == 0 || header[10] != 0 || header[11] != 0 || header[12] != 0)
        return QStringLiteral("a picture of a kind that the format does not use");
    return QString();
}

QString readChunks(QByteArray const& picture, Parts& parts)
{
    QString const damaged = QStringLiteral("a damaged picture");
    if (!picture.startsWith(QByteArray::fromRawData(signature, signatureLength)))
        return damaged;
    parts.packed = QByteArray(4, '\0');
    bool hasHeader = false;
    int at = signatureLength;
    for (;;) {
        if (picture.size() - at < 12)
            return damaged;
        char const* const chunk = picture.constData() + at;
        quint32 const length = qFromBigEndian<quint32>(chunk);
        if (length > static_cast<quint32>(picture.size() - at - 12))
            return damaged;
        int const size = static_cast<int>(length);
        if (crc(chunk + 4, size + 4) != qFromBigEndian<quint32>(chunk + 8 + size))
            return damaged;
        at += size + 12;
        QByteArray const type = QByteArray::fromRawData(chunk + 4, 4);
        if (hasHeader != (type != "IHDR"))
            return damaged;
        if (type == "IHDR") {
            if (size != headerLength)
                return damaged;
            QString const wrong = readHeader(chunk + 8, parts);
            if (!wrong.isEmpty())
                return wrong;
            hasHeader = true;
        } else if (type == "IDAT") {
            parts.packed.append(chunk + 8, size);
        } else if (type == "IEND") {
            return at == picture.size() && size == 0 ? QString() : damaged;
        } else if (!(type.at(0) & 0x20)) {
            return damaged; // a chunk that must be understood
        }
    }
}

} // namespace

QByteArray encode(KDRImage const& image)
{
    int const type = image.depth();
    if (type != KDRImage::DataTypeUInt8 && type != KDRImage::DataTypeUInt16)
        return QByteArray();
    Layout const layout = {image.channel(), type == KDRImage::DataTypeUInt8 ? 1 : 2};
    long long const rowBytes = static_cast<long long>(image.width()) * layout.pixelBytes();
    if (layout.channels > 4 || (rowBytes + 1) * image.height() > INT_MAX / 2)
        return QByteArray();

    // Each row as its difference to the row above, which suits pictures of machines.
    int const length = static_cast<int>(rowBytes);
    QByteArray rows((length + 1) * image.height(), Qt::Uninitialized);
    QByteArray above(length, '\0');
    QByteArray row(length, Qt::Uninitialized);
    auto* to = reinterpret_cast<unsigned char*>(rows.data());
    for (int y = 0; y < image.height(); ++y) {
        std::memcpy(row.data(), image.dataPtr() + static_cast<long long>(y) * image.step(),
                    static_cast<std::size_t>(length));
        layout.turn(reinterpret_cast<unsigned char*>(row.data()), image.width());
        *to++ = Up;
        for (int i = 0; i < length; ++i)
            *to++ = static_cast<unsigned char>(row.at(i) - above.at(i));
        row.swap(above);
    }

    constexpr int quick = 3;
    QByteArray const packed = qCompress(rows, quick);
    QByteArray header;
    appendNumber(header, static_cast<quint32>(image.width()));
    appendNumber(header, static_cast<quint32>(image.height()));
    header.append(static_cast<char>(layout.bytes * 8));
    header.append(static_cast<char>(colourTypes[layout.channels]));
    header.append(3, '\0');

    QByteArray picture(signature, signatureLength);
    picture.reserve(packed.size() + 64);
    appendChunk(picture, "IHDR", header.constData(), header.size());
    // Qt puts the length of what it packed first.
    appendChunk(picture, "IDAT", packed.constData() + 4, packed.size() - 4);
    appendChunk(picture, "IEND", nullptr, 0);
    return picture;
}

QString decode(QByteArray const& picture, long long mostPixels, KDRImage& image)
{
    QString const damaged = QStringLiteral("a damaged picture");
    Parts parts;
    QString const wrong = readChunks(picture, parts);
    if (!wrong.isEmpty())
        return wrong;
    if (parts.width < 1 || parts.height < 1 || parts.width > INT_MAX || parts.height > INT_MAX)
        return damaged;
    long long const count = static_cast<long long>(parts.width) * parts.height;
    if (count > mostPixels)
        return QStringLiteral("more pixels than the limit leaves");
    Layout const layout = parts.layout;
    long long const rowBytes = static_cast<long long>(parts.width) * layout.pixelBytes();
    // zlib packs no more than 1032 bytes into one.
    constexpr long long densest = 1032;
    if (rowBytes >= INT_MAX / 2 || parts.height > INT_MAX / 2 / (rowBytes + 1) ||
        (rowBytes + 1) * parts.height > (parts.packed.size() - 4) * densest)
        return QStringLiteral("more pixels than the bytes of the picture can hold");

    int const length = static_cast<int>(rowBytes);
    int const height = static_cast<int>(parts.height);
    int const width = static_cast<int>(parts.width);
    qToBigEndian(static_cast<quint32>((rowBytes + 1) * height), parts.packed.data());
    QByteArray rows = qUncompress(parts.packed);
    if (rows.size() != (length + 1) * height)
        return damaged;

    KDRImage made(nullptr, width, height, layout.channels, 0,
                  layout.bytes == 1 ? KDRImage::DataTypeUInt8 : KDRImage::DataTypeUInt16);
    if (made.width() != width || made.height() != height)
        return QStringLiteral("the core library makes no such image");
    auto* row = reinterpret_cast<unsigned char*>(rows.data());
    unsigned char const* above = nullptr;
    for (int y = 0; y < height; ++y) {
        int const filter = *row++;
        if (filter > Paeth)
            return damaged;
        unfilter(filter, row, above, length, layout.pixelBytes());
        unsigned char* const to = made.dataPtr() + static_cast<long long>(y) * made.step();
        std::memcpy(to, row, static_cast<std::size_t>(length));
        layout.turn(to, width);
        above = row;
        row += length;
    }
    image = made;
    return QString();
}

} // namespace kdrio::png
