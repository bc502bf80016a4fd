#include <kdrio/kdrio.h>

#include <kdrio/encode_p.h>
#include <kdrio/inside_p.h>

#include <QtCore/qcborarray.h>
#include <QtCore/qcbormap.h>
#include <QtCore/qcborvalue.h>
#include <QtCore/qcryptographichash.h>
#include <QtCore/qjsonarray.h>
#include <QtCore/qjsondocument.h>
#include <QtCore/qjsonobject.h>

#include <cmath>
#include <cstring>

namespace kdrio {

namespace {

// The element types of typed arrays: their tags, names and how one is read.
struct Element
{
    QCborTag tag;
    char const* name;
    int bytes;
    QJsonValue (*read)(char const* at);
};

// Numbers of JSON are doubles to nearly all who read it, Qt's writer among them.
QJsonValue integral(qint64 number)
{
    constexpr qint64 exact = 1LL << 53;
    return number >= -exact && number <= exact ? QJsonValue(number)
                                               : QJsonValue(QString::number(number));
}

QJsonValue floating(double number)
{
    if (std::isnan(number))
        return QStringLiteral("nan");
    if (std::isinf(number))
        return number > 0 ? QStringLiteral("inf") : QStringLiteral("-inf");
    return number;
}

template <class Number>
QJsonValue readAs(char const* at)
{
    Number number;
    std::memcpy(&number, at, sizeof number);
    if constexpr (std::is_floating_point_v<Number>)
        return floating(static_cast<double>(number));
    else
        return integral(number);
}

template <class Number>
constexpr Element element(QCborTag tag, char const* name)
{
    return {tag, name, sizeof(Number), &readAs<Number>};
}

// Those of images and matrices come first, by their codes.
constexpr Element elements[] = {
    element<quint8>(format::uint8s, "u8"),    element<qint8>(format::int8s, "s8"),
    element<quint16>(format::uint16s, "u16"), element<qint16>(format::int16s, "s16"),
    element<qint32>(format::int32s, "s32"),   element<float>(format::floats, "f32"),
    element<double>(format::doubles, "f64"),  element<qint64>(format::int64s, "s64"),
};

// Turns the tree of a file into one of JSON.
class Tree
{
public:
    Tree(KDRImageArray const& images, JsonOptions const& options)
        : m_images(images), m_options(options)
    {
    }

    // A variant.
    QJsonValue value(QCborValue const& cbor)
    {
        if (cbor.isArray())
            return list(cbor.toArray(), true);
        if (cbor.isTag() && cbor.tag() == format::shareable)
            return QJsonObject{{QStringLiteral("shared"), m_shared++},
                               {QStringLiteral("value"), value(cbor.taggedValue())}};
        if (!cbor.isMap())
            return contents(cbor);
        // One entry, from the name of the kind to the contents.
        auto const entry = cbor.toMap().constBegin();
        QString const kind = entry.key().toString();
        QCborValue const held = entry.value();
        bool const holdsVariants = kind == QLatin1String("variant array") && held.isArray();
        return QJsonObject{{kind, holdsVariants ? list(held.toArray(), true) : contents(held)}};
    }

private:
    QJsonValue contents(QCborValue const& cbor)
    {
        switch (cbor.type()) {
        case QCborValue::Integer:
            return integral(cbor.toInteger());
        case QCborValue::Double:
            return floating(cbor.toDouble());
        case QCborValue::True:
        case QCborValue::False:
            return cbor.toBool();
        case QCborValue::String:
            return cbor.toString();
        case QCborValue::ByteArray:
            return bytes(cbor.toByteArray(), "bytes");
        case QCborValue::Undefined:
            return QStringLiteral("no contents");
        case QCborValue::Array:
            return list(cbor.toArray(), false);
        case QCborValue::Map:
            return fields(cbor.toMap());
        case QCborValue::Tag:
            return tagged(cbor);
        default:
            return QJsonValue::Null;
        }
    }

    bool isShort(long long length) const
    {
        return m_options.longest < 0 || length <= m_options.longest;
    }

    static QString checksum(QCryptographicHash const& hash)
    {
        return QString::fromLatin1(hash.result().toHex());
    }
    static QString checksum(QByteArray const& bytes)
    {
        return QString::fromLatin1(
            QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
    }

    QJsonObject bytes(QByteArray const& bytes, char const* unit) const
    {
        QJsonObject object{{QLatin1String(unit), bytes.size()}};
        if (isShort(bytes.size()))
            object.insert(QStringLiteral("hex"), QString::fromLatin1(bytes.toHex()));
        else
            object.insert(QStringLiteral("sha1"), checksum(bytes));
        return object;
    }

    // Lists of variants are always written out: they are what one looks for.
    QJsonValue list(QCborArray const& array, bool ofVariants)
    {
        if (!ofVariants && !isShort(array.size()))
            return QJsonObject{{QStringLiteral("length"), static_cast<int>(array.size())},
                               {QStringLiteral("sha1"), checksum(QCborValue(array).toCbor())}};
        QJsonArray written;
        for (QCborValue const element : array)
            written.append(ofVariants ? value(element) : contents(element));
        return written;
    }

    QJsonValue fields(QCborMap const& map)
    {
        QJsonObject object;
        for (auto const& [name, held] : map) {
            if (name.toString() == QLatin1String("outside"))
                return image(static_cast<int>(held.toInteger()));
            object.insert(name.toString(), contents(held));
        }
        return object;
    }

    QJsonValue tagged(QCborValue const& cbor)
    {
        QCborTag const tag = cbor.tag();
        QCborValue const held = cbor.taggedValue();
        if (tag == format::reference)
            return QJsonObject{{QStringLiteral("shared"), held.toInteger()}};
        if (tag == format::shareable)
            return QJsonObject{{QStringLiteral("shared"), m_shared++},
                               {QStringLiteral("pixels"), contents(held)}};
        if (tag != format::dimensions)
            return typed(cbor, {});
        QJsonArray size;
        for (QCborValue const length : held.toArray().at(0).toArray())
            size.append(length.toInteger());
        return typed(held.toArray().at(1), size);
    }

    QJsonValue typed(QCborValue const& cbor, QJsonArray const& size) const
    {
        QByteArray const bytes = cbor.taggedValue().toByteArray();
        for (Element const& element : elements) {
            if (element.tag != cbor.tag())
                continue;
            int const count = bytes.size() / element.bytes;
            QJsonObject object = header(element, size.isEmpty() ? QJsonArray{count} : size);
            if (isShort(count)) {
                QJsonArray values;
                append(values, element, bytes.constData(), count);
                object.insert(QStringLiteral("values"), values);
            } else {
                object.insert(QStringLiteral("sha1"), checksum(bytes));
            }
            return object;
        }
        return QJsonValue::Null;
    }

    QJsonValue image(int index) const
    {
        KDRImage image;
        m_images.select(index, &image);
        Element const& element = elements[image.depth()];
        QJsonObject object = header(element, {image.height(), image.width(), image.channel()});
        int const rowElements = image.width() * image.channel();
        bool const isWritten = isShort(static_cast<long long>(rowElements) * image.height());
        QJsonArray values;
        QCryptographicHash hash(QCryptographicHash::Sha1);
        for (int y = 0; y < image.height(); ++y) {
            auto const* const row = reinterpret_cast<char const*>(image.dataPtr()) +
                                    static_cast<long long>(y) * image.step();
            if (isWritten)
                append(values, element, row, rowElements);
            else
                hash.addData(row, rowElements * element.bytes);
        }
        if (isWritten)
            object.insert(QStringLiteral("values"), values);
        else
            object.insert(QStringLiteral("sha1"), checksum(hash));
        return object;
    }

    static QJsonObject header(Element const& element, QJsonArray const& size)
    {
        return {{QStringLiteral("size"), size},
                {QStringLiteral("type"), QLatin1String(element.name)}};
    }

    static void append(QJsonArray& values, Element const& element, char const* first, int count)
    {
        for (int i = 0; i < count; ++i)
            values.append(element.read(first + static_cast<long long>(i) * element.bytes));
    }

    KDRImageArray const& m_images;
    JsonOptions m_options;
    int m_shared = 0;
};

} // namespace

KDRString toJson(KDRVariant const& value, JsonOptions const& options)
{
    try {
        KDRImageArray images;
        QCborValue const file = QCborValue::fromCbor(encoded(value, SaveOptions(), &images));
        QJsonValue const tree = Tree(images, options).value(file.taggedValue().toArray().at(2));
        // A document is a list or an object; what is neither stands in a list of one.
        QJsonDocument document = tree.isObject()  ? QJsonDocument(tree.toObject())
                                 : tree.isArray() ? QJsonDocument(tree.toArray())
                                                  : QJsonDocument(QJsonArray{tree});
        QByteArray text =
            document.toJson(options.compact ? QJsonDocument::Compact : QJsonDocument::Indented);
        if (!tree.isObject() && !tree.isArray()) {
            text = text.trimmed();
            text = text.mid(1, text.size() - 2).trimmed() + (options.compact ? "" : "\n");
        }
        return inside::fromText(QString::fromUtf8(text));
    } catch (Failure const&) {
        return KDRString();
    }
}

} // namespace kdrio
