#include <kdrio/png_p.h>

#include <kdrdata/vision/kdrimage.h>
#include <kdrio/inside_p.h>

#include <QtCore/qendian.h>
#include <QtCore/qfile.h>
#include <QtCore/qtemporarydir.h>

#include <climits>
#include <cstring>

namespace kdrio::png {

namespace {

// A name with the extension that tells the core library the format.
QString pictureIn(QTemporaryDir const& directory)
{
    return directory.filePath(QStringLiteral("pixels.png"));
}

bool hasPixelsOf(KDRImage const& left, KDRImage const& right, long long rowBytes)
{
    if (left.width() != right.width() || left.height() != right.height() ||
        left.channel() != right.channel() || left.depth() != right.depth())
        return false;
    for (int y = 0; y < left.height(); ++y) {
        if (std::memcmp(left.dataPtr() + static_cast<long long>(y) * left.step(),
                        right.dataPtr() + static_cast<long long>(y) * right.step(),
                        static_cast<std::size_t>(rowBytes)) != 0)
            return false;
    }
    return true;
}

// What the first chunk of a picture says.
struct Header
{
    quint32 width;
    quint32 height;
    int channels; ///< 0 for a kind of picture that the format does not use
    int bytes;    ///< of an element; 0 for one that the format does not use
};

bool readHeader(QByteArray const& picture, Header& header)
{
    constexpr char const start[] = "\x89PNG\r\n\x1a\n\0\0\0\rIHDR";
    constexpr int startLength = sizeof start - 1;
    constexpr int headerLength = 13;
    if (picture.size() < startLength + headerLength ||
        std::memcmp(picture.constData(), start, startLength) != 0)
        return false;
    char const* const fields = picture.constData() + startLength;
    header.width = qFromBigEndian<quint32>(fields);
    header.height = qFromBigEndian<quint32>(fields + 4);
    int const bits = static_cast<unsigned char>(fields[8]);
    header.bytes = bits == 8 ? 1 : bits == 16 ? 2 : 0;
    switch (fields[9]) {
    case 0:
        header.channels = 1;
        break;
    case 2:
        header.channels = 3;
        break;
    case 6:
        header.channels = 4;
        break;
    default:
        header.channels = 0;
        break;
    }
    bool const isInterlaced = fields[12] != 0;
    if (isInterlaced)
        header.channels = 0;
    return true;
}

} // namespace

QByteArray encode(KDRImage const& image)
{
    int const type = image.depth();
    if (type != KDRImage::DataTypeUInt8 && type != KDRImage::DataTypeUInt16)
        return QByteArray();
    QTemporaryDir const directory;
    if (!directory.isValid())
        return QByteArray();
    KDRString const path = inside::fromText(pictureIn(directory));
    KDRImage written(image);
    KDRImage back;
    long long const rowBytes = static_cast<long long>(image.width()) * image.channel() *
                               (type == KDRImage::DataTypeUInt8 ? 1 : 2);
    if (written.save(path) == 0 || back.read(path) == 0 || !hasPixelsOf(back, image, rowBytes))
        return QByteArray();
    QFile file(pictureIn(directory));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString decode(QByteArray const& picture, long long mostPixels, KDRImage& image)
{
    QString damaged = QStringLiteral("a damaged picture");
    Header header = {};
    if (!readHeader(picture, header) || header.width < 1 || header.height < 1 ||
        header.width > INT_MAX || header.height > INT_MAX)
        return damaged;
    if (header.channels == 0 || header.bytes == 0)
        return QStringLiteral("a picture of a kind that the format does not use");
    if (header.width > static_cast<quint64>(mostPixels) / header.height)
        return QStringLiteral("more pixels than the limit leaves");
    // zlib packs no more than 1032 bytes into one, and each row has one byte besides its pixels.
    constexpr long long densest = 1032;
    long long const rowBytes =
        static_cast<long long>(header.width) * header.channels * header.bytes + 1;
    if (rowBytes > picture.size() * densest / header.height)
        return QStringLiteral("more pixels than the bytes of the picture can hold");

    QTemporaryDir const directory;
    QFile file(pictureIn(directory));
    if (!directory.isValid() || !file.open(QIODevice::WriteOnly | QIODevice::NewOnly) ||
        file.write(picture) != picture.size() || !file.flush())
        return QStringLiteral("no temporary file for a picture: %1")
            .arg(directory.isValid() ? file.errorString() : directory.errorString());
    KDRImage made;
    if (made.read(inside::fromText(file.fileName())) == 0)
        return damaged;
    int const type = header.bytes == 1 ? KDRImage::DataTypeUInt8 : KDRImage::DataTypeUInt16;
    if (static_cast<quint32>(made.width()) != header.width ||
        static_cast<quint32>(made.height()) != header.height || made.channel() != header.channels ||
        made.depth() != type)
        return QStringLiteral("the core library makes no such image");
    image = made;
    return QString();
}

} // namespace kdrio::png
