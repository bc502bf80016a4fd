#include <kdrio/reader_p.h>

#include <kdrio/contents_p.h>
#include <kdrio/inside_p.h>
#include <kdrio/kinds_p.h>
#include <kdrio/png_p.h>

#include <climits>
#include <cstring>

namespace kdrio {

void Reader::value(KDRVariant& value)
{
    switch (m_cbor.type()) {
    case QCborStreamReader::UnsignedInteger:
    case QCborStreamReader::NegativeInteger:
        return value.fromLongLong(integer());
    case QCborStreamReader::Float16:
    case QCborStreamReader::Float:
    case QCborStreamReader::Double:
        return value.fromDouble(number());
    case QCborStreamReader::String:
        return value.fromString(inside::fromText(text()));
    case QCborStreamReader::ByteArray:
        return value.fromBuffer(inside::fromBytes(bytes()));
    case QCborStreamReader::Tag:
        return tagged(value);
    case QCborStreamReader::Array: {
        KDRVariantArray array;
        read(*this, array);
        return value.fromVariantArray(array);
    }
    case QCborStreamReader::Map:
        return choice("kind", [this, &value](char const* name) {
            Kind const* const kind = kindNamed(name);
            if (kind)
                kind->read(*this, value);
            return kind != nullptr;
        });
    default:
        break;
    }
    if (m_cbor.isBool())
        return value.fromBool(flag());
    expect(m_cbor.isNull(), "a value");
    null();
    value = KDRVariant();
}

void Reader::tagged(KDRVariant& value)
{
    QCborTag const found = m_cbor.toTag();
    if (found == format::uint16s)
        return value.fromString(inside::fromText(text()));
    if (found == format::reference) {
        tag();
        value = m_values[shared(State::Value, "a value").place];
        return;
    }
    tag(format::shareable, "a value");
    // Another tag would be a step down that nothing counts.
    expect(!m_cbor.isTag(), "a value that is shared");
    std::size_t const index = m_shared.size();
    m_shared.push_back({});
    this->value(value);
    m_shared[index] = {State::Value, m_values.size()};
    m_values.push_back(value);
}

// What a reference points to: known, complete, and what is wanted.
Reader::Shared const& Reader::shared(State state, char const* what)
{
    long long const index = integer();
    if (index < 0 || index >= static_cast<long long>(m_shared.size()))
        fail(QStringLiteral("a reference to the shared value %1, which does not come before")
                 .arg(index));
    Shared const& found = m_shared[static_cast<std::size_t>(index)];
    if (found.state == State::Open)
        fail("the value holds itself");
    if (found.state != state)
        fail(QStringLiteral("a reference to something else than %1").arg(QLatin1String(what)));
    return found;
}

void Reader::pixels(KDRImage& image)
{
    if (!m_cbor.isTag() || m_cbor.toTag() == format::dimensions)
        return block(image);
    QCborTag const found = tag();
    if (found == format::reference) {
        image = m_images[shared(State::Pixels, "pixels").place];
        return;
    }
    if (found != format::shareable)
        failExpected("pixels");
    std::size_t const index = m_shared.size();
    m_shared.push_back({});
    block(image);
    m_shared[index] = {State::Pixels, m_images.size()};
    m_images.push_back(image);
}

void Reader::block(KDRImage& image)
{
    if (m_cbor.isTag())
        return pixelArray(image);
    choice("form of pixels", [this, &image](char const* name) {
        if (qstrcmp(name, "png") == 0) {
            long long const pixelsLeft = m_limits.pixels - m_pixels;
            QString const wrong = png::decode(bytes(), pixelsLeft, image);
            if (!wrong.isEmpty())
                fail(wrong);
            m_pixels += static_cast<long long>(image.width()) * image.height();
            return true;
        }
        if (m_outside && qstrcmp(name, "outside") == 0) {
            long long const index = integer();
            if (index < 0 || index >= m_outside->length())
                fail("no such image outside");
            m_outside->select(static_cast<int>(index), &image);
            return true;
        }
        return false;
    });
}

void Reader::pixelArray(KDRImage& image)
{
    tag(format::dimensions, "pixels");
    list(2);
    list(3);
    int const height = static_cast<int>(integer(1, INT_MAX));
    int const width = static_cast<int>(integer(1, INT_MAX));
    int const channels = static_cast<int>(integer(1, 4));
    endList();
    int type = 0;
    QCborTag const found = tag();
    while (type < format::elementTypeCount && format::elementTypes[type].tag != found)
        ++type;
    if (type == format::elementTypeCount)
        fail("the elements of pixels are of no such type");

    long long const count = static_cast<long long>(height) * width;
    if (count > m_limits.pixels - m_pixels)
        fail(QStringLiteral("more than %1 pixels").arg(m_limits.pixels));
    m_pixels += count;
    long long const length = byteLength();
    long long const rowBytes =
        static_cast<long long>(width) * channels * format::elementTypes[type].bytes;
    if (length % rowBytes != 0 || length / rowBytes != height)
        fail("as many bytes of pixels as the dimensions say are expected");

    KDRImage made(nullptr, width, height, channels, 0, static_cast<KDRImage::DataType>(type));
    if (made.width() != width || made.height() != height)
        fail("the core library makes no such image");
    if (made.step() == rowBytes) {
        bytes(made.dataPtr(), length);
    } else {
        QByteArray const packed = bytes();
        for (int row = 0; row < height; ++row)
            std::memcpy(made.dataPtr() + static_cast<long long>(row) * made.step(),
                        packed.constData() + row * rowBytes, static_cast<std::size_t>(rowBytes));
    }
    endList();
    image = made;
}

} // namespace kdrio
