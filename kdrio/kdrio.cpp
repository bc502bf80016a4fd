#include <kdrio/kdrio.h>

#include <kdrio/encode_p.h>
#include <kdrio/guard_p.h>
#include <kdrio/newfile_p.h>
#include <kdrio/reader_p.h>

#include <QtCore/qfile.h>

#include <algorithm>
#include <limits>

namespace kdrio {

namespace {

void decode(Reader&& reader, KDRVariant* out)
{
    KDRVariant value;
    reader.file(value);
    *out = value;
}

void decode(QByteArray const& bytes, KDRVariant* out, Limits const& limits,
            KDRImageArray const* outside)
{
    decode(Reader(bytes, limits, outside), out);
}

void decode(QIODevice& device, KDRVariant* out, Limits const& limits)
{
    if (!device.isSequential())
        return decode(Reader(device, device.size() - device.pos(), limits, nullptr), out);
    // Of what comes over a line nobody knows the length before it is there.
    QByteArray bytes;
    long long const most = std::min(limits.bytes, mostOfBuffer);
    do {
        bytes += device.read(most + 1 - bytes.size());
        if (bytes.size() > most)
            fail(QStringLiteral("more than %1 bytes").arg(most));
    } while (device.bytesAvailable() > 0 || device.waitForReadyRead(-1));
    decode(bytes, out, limits, nullptr);
}

} // namespace

KDRString Error::line() const
{
    QString text;
    if (file.size() > 0)
        text += inside::text(file) + QLatin1String(": ");
    if (offset >= 0)
        text += QStringLiteral("byte %1, ").arg(offset);
    if (path.size() > 0)
        text += inside::text(path) + QLatin1String(": ");
    else if (offset >= 0)
        text.replace(text.size() - 2, 2, QLatin1String(": "));
    return inside::fromText(text + inside::text(what));
}

bool save(KDRVariant const& value, KDRString const& path, Error* error)
{
    return save(value, path, SaveOptions(), error);
}

bool save(KDRVariant const& value, KDRString const& path, SaveOptions const& options, Error* error)
{
    return guarded(error, &path, [&] {
        NewFile file(inside::text(path));
        Writer(file.device(), std::numeric_limits<long long>::max(), options).file(value);
        file.take();
    });
}

bool save(KDRVariant const& value, QIODevice* device, Error* error)
{
    return save(value, device, SaveOptions(), error);
}

bool save(KDRVariant const& value, QIODevice* device, SaveOptions const& options, Error* error)
{
    return guarded(error, nullptr, [&] {
        if (!device || !device->isWritable())
            fail("no device that is open for writing");
        QByteArray const bytes = encoded(value, options, nullptr);
        qint64 done = 0;
        while (done < bytes.size()) {
            qint64 const written = device->write(bytes.constData() + done, bytes.size() - done);
            if (written <= 0)
                fail(device->errorString());
            done += written;
        }
    });
}

bool toBytes(KDRVariant const& value, KDRBuffer* bytes, Error* error)
{
    return toBytes(value, bytes, SaveOptions(), error);
}

bool toBytes(KDRVariant const& value, KDRBuffer* bytes, SaveOptions const& options, Error* error)
{
    return guarded(error, nullptr, [&] {
        mustBeThere(bytes);
        *bytes = inside::fromBytes(encoded(value, options, nullptr));
    });
}

bool load(KDRString const& path, KDRVariant* value, Error* error, Limits const& limits)
{
    return guarded(error, &path, [&] {
        mustBeThere(value);
        QFile file(inside::text(path));
        if (!file.open(QIODevice::ReadOnly))
            fail(file.errorString());
        decode(file, value, limits);
    });
}

bool load(QIODevice* device, KDRVariant* value, Error* error, Limits const& limits)
{
    return guarded(error, nullptr, [&] {
        mustBeThere(value);
        if (!device || !device->isReadable())
            fail("no device that is open for reading");
        decode(*device, value, limits);
    });
}

bool fromBytes(KDRBuffer const& bytes, KDRVariant* value, Error* error, Limits const& limits)
{
    return guarded(error, nullptr, [&] {
        mustBeThere(value);
        decode(inside::bytes(bytes), value, limits, nullptr);
    });
}

bool toParts(KDRVariant const& value, KDRBuffer* bytes, KDRImageArray* images, Error* error)
{
    return guarded(error, nullptr, [&] {
        mustBeThere(bytes);
        mustBeThere(images);
        KDRImageArray outside;
        QByteArray const made = encoded(value, SaveOptions(), &outside);
        *images = outside;
        *bytes = inside::fromBytes(made);
    });
}

bool fromParts(KDRBuffer const& bytes, KDRImageArray const& images, KDRVariant* value, Error* error,
               Limits const& limits)
{
    return guarded(error, nullptr, [&] {
        mustBeThere(value);
        decode(inside::bytes(bytes), value, limits, &images);
    });
}

} // namespace kdrio
