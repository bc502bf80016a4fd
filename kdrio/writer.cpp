#include <kdrio/writer_p.h>

#include <kdrio/contents_p.h>
#include <kdrio/inside_p.h>
#include <kdrio/kinds_p.h>
#include <kdrio/png_p.h>

namespace kdrio {

namespace {

// The bytes in front of a string of that length.
int headLength(long long length)
{
    return length < 24            ? 1
           : length <= 0xFF       ? 2
           : length <= 0xFFFF     ? 3
           : length <= 0xFFFFFFFF ? 5
                                  : 9;
}

} // namespace

void Writer::file(KDRVariant const& value)
{
    m_sharing.survey(value, m_path);
    tag(format::signature);
    list(3);
    name(format::name);
    integer(format::version);
    this->value(value);
    endList();
}

void Writer::list(int length)
{
    // Not for each element: a list is the least that can become long.
    mustFit(length);
    m_cbor.startArray(static_cast<quint64>(length));
}

void Writer::value(KDRVariant const& value)
{
    KDRVariantPrivate& store = inside::store(value);
    Sharing::Shared* const shared = m_sharing.ofStore(value);
    if (!shared) {
        plain(store);
    } else if (shared->index >= 0) {
        tag(format::reference);
        integer(shared->index);
    } else {
        // In the long form, which is a map whatever the kind: readers of other languages share
        // containers, and few of them share numbers.
        shared->index = m_sharing.nextIndex();
        tag(format::shareable);
        record(store);
    }
}

// The kinds that CBOR has itself are written as they are where nothing is lost.
void Writer::plain(KDRVariantPrivate& store)
{
    KDRNumber* number = nullptr;
    KDRString* text = nullptr;
    KDRBuffer* bytes = nullptr;
    KDRVariantArray* array = nullptr;
    bool flag = false;
    switch (store.variantType()) {
    case KindNone:
        return null();
    case KindBool:
        return store.toBool(&flag) ? this->flag(flag) : record(store);
    case KindNumber:
        store.toNumberPtr(number);
        return number && !hasRange(*number) ? writeValueOf(*this, *number) : record(store);
    case KindString:
        store.toStringPtr(text);
        return text && !text->isNull() ? write(*this, *text) : record(store);
    case KindBuffer:
        store.toBufferPtr(bytes);
        return bytes && !bytes->isNull() ? write(*this, *bytes) : record(store);
    case KindVariantArray:
        store.toVariantArrayPtr(array);
        return array ? write(*this, *array) : record(store);
    default:
        return record(store);
    }
}

void Writer::record(KDRVariantPrivate& store)
{
    Kind const* const kind = kindOf(store.variantType());
    if (!kind)
        fail(QStringLiteral("the format has no kind %1").arg(store.variantType()));
    map(1);
    name(kind->name);
    {
        Path::Step const step(m_path, kind->name);
        kind->write(*this, store);
    }
    endMap();
}

void Writer::pixels(KDRImage const& image)
{
    Sharing::Shared* const shared = m_sharing.ofPixels(image);
    if (!shared)
        return block(image);
    if (shared->index >= 0) {
        tag(format::reference);
        return integer(shared->index);
    }
    shared->index = m_sharing.nextIndex();
    tag(format::shareable);
    block(image);
}

void Writer::block(KDRImage const& image)
{
    if (m_outside) {
        map(1);
        name("outside");
        integer(m_outside->length());
        endMap();
        return m_outside->push_back(image);
    }
    int const type = image.depth();
    if (type < 0 || type >= format::elementTypeCount)
        fail(QStringLiteral("the format has no pixels of type %1").arg(type));
    format::ElementType const& element = format::elementTypes[type];
    long long const rowBytes =
        static_cast<long long>(image.width()) * image.channel() * element.bytes;
    long long const length = rowBytes * image.height();

    if (m_options.pixels == Pixels::Smaller) {
        QByteArray const picture = png::encode(image);
        if (!picture.isEmpty() && picture.size() < length) {
            map(1);
            name("png");
            bytes(picture.constData(), picture.size());
            return endMap();
        }
    }

    tag(format::dimensions);
    list(2);
    list(3);
    integer(image.height());
    integer(image.width());
    integer(image.channel());
    endList();
    tag(element.tag);
    if (image.step() == rowBytes) {
        bytes(image.dataPtr(), length);
    } else {
        mustFit(length);
        QByteArray packed;
        packed.reserve(static_cast<int>(length));
        for (int row = 0; row < image.height(); ++row)
            packed.append(reinterpret_cast<char const*>(image.dataPtr()) +
                              static_cast<long long>(row) * image.step(),
                          static_cast<int>(rowBytes));
        bytes(packed.constData(), length);
    }
    endList();
}

void Writer::bytes(void const* first, long long length)
{
    mustFit(length);
    long long const start = m_device.pos();
    m_cbor.appendByteString(static_cast<char const*>(first), static_cast<qsizetype>(length));
    // Qt's writer does not tell where a device took less than it was given.
    if (m_device.pos() != start + headLength(length) + length)
        fail(m_device.errorString());
}

void Writer::mustFit(long long length) const
{
    if (length > m_most - m_device.pos())
        fail("the bytes do not fit into one buffer");
}

} // namespace kdrio
