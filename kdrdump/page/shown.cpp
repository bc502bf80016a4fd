#include "shown.h"

#include "failure.h"

#include <QtCore/qfile.h>
#include <QtCore/qtemporarydir.h>
#include <cmath>
#include <cstring>
#include <limits>

#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrstring.h>

namespace page {

namespace {

template <class Element>
Element valueAt(unsigned char const* row, int index)
{
    Element value;
    std::memcpy(&value, row + static_cast<std::size_t>(index) * sizeof value, sizeof value);
    return value;
}

unsigned char const* rowOf(KDRImage const& image, int y)
{
    return image.dataPtr() + static_cast<std::ptrdiff_t>(y) * image.step();
}

// Copies the first channels of `from`.
template <class Element>
void stretch(KDRImage const& from, KDRImage const& to)
{
    int const channels = to.channel();
    auto least = std::numeric_limits<double>::infinity();
    double most = -least;
    auto const each = [&](auto const& take) {
        for (int y = 0; y < from.height(); ++y)
            for (int x = 0; x < from.width(); ++x)
                for (int c = 0; c < channels; ++c)
                    take(y, x * channels + c,
                         static_cast<double>(
                             valueAt<Element>(rowOf(from, y), x * from.channel() + c)));
    };
    each([&](int, int, double value) {
        if (!std::isfinite(value))
            return;
        least = std::min(least, value);
        most = std::max(most, value);
    });
    // Halved, so that the difference of two doubles is one.
    double const range = most / 2.0 - least / 2.0;
    each([&](int y, int at, double value) {
        double const part = range > 0.0 ? (value / 2.0 - least / 2.0) / range : 0.0;
        double const clamped = part >= 1.0 ? 1.0 : part > 0.0 ? part : 0.0;
        to.dataPtr()[static_cast<std::ptrdiff_t>(y) * to.step() + at] =
            static_cast<unsigned char>(std::lround(255.0 * clamped));
    });
}

void copy(KDRImage const& from, KDRImage const& to)
{
    std::ptrdiff_t const channels = to.channel();
    for (int y = 0; y < from.height(); ++y)
        for (std::ptrdiff_t x = 0; x < from.width(); ++x)
            std::memcpy(to.dataPtr() + static_cast<std::ptrdiff_t>(y) * to.step() + x * channels,
                        rowOf(from, y) + x * from.channel(), static_cast<std::size_t>(channels));
}

} // namespace

KDRImage shownOf(KDRImage const& image)
{
    KDRImage shown(nullptr, image.width(), image.height(), image.channel() < 3 ? 1 : 3, 0,
                   KDRImage::DataTypeUInt8);
    if (!shown.dataPtr())
        throw Failure("a picture is too large to be shown");
    switch (image.dataType()) {
    case KDRImage::DataTypeUInt8:
        copy(image, shown);
        break;
    case KDRImage::DataTypeInt8:
        stretch<signed char>(image, shown);
        break;
    case KDRImage::DataTypeUInt16:
        stretch<unsigned short>(image, shown);
        break;
    case KDRImage::DataTypeInt16:
        stretch<short>(image, shown);
        break;
    case KDRImage::DataTypeInt32:
        stretch<int>(image, shown);
        break;
    case KDRImage::DataTypeFloat32:
        stretch<float>(image, shown);
        break;
    case KDRImage::DataTypeFloat64:
        stretch<double>(image, shown);
        break;
    }
    return shown;
}

QByteArray pngOf(KDRImage const& image)
{
    QTemporaryDir const directory;
    QString const path = directory.filePath("picture.png");
    QFile file(path);
    if (!directory.isValid() || shownOf(image).save(KDRString(path.utf16(), path.size())) == 0 ||
        !file.open(QIODevice::ReadOnly))
        throw Failure("cannot write a picture among the temporary files");
    return file.readAll();
}

std::string addressOf(KDRImage const& image)
{
    QByteArray const bytes = pngOf(image);
    KDRBuffer const written = KDRBuffer::fromRawData(bytes.constData(), bytes.size());
    return std::string("data:image/png;base64,") + written.toBase64().constData();
}

} // namespace page
