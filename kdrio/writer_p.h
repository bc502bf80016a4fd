#ifndef KDRIO_WRITER_P_H
#define KDRIO_WRITER_P_H

#include <kdrdata/vision/kdrimage.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrio/failure_p.h>
#include <kdrio/format_p.h>
#include <kdrio/kdrio.h>
#include <kdrio/sharing_p.h>

#include <QtCore/qcborstreamwriter.h>
#include <QtCore/qiodevice.h>

class KDRVariantPrivate;

namespace kdrio {

/// Writes one value to a device, from the signature to the last byte.
class Writer
{
public:
    /// At most @p most bytes are written to @p device. With @p outside, pixels go there.
    Writer(QIODevice& device, long long most, SaveOptions const& options,
           KDRImageArray* outside = nullptr)
        : m_device(device), m_most(most), m_options(options), m_outside(outside), m_cbor(&device)
    {
    }

    /// Writes all. Throws Failure for a value that cannot be written.
    void file(KDRVariant const& value);

    /// A variant, in the short form where it has one.
    void value(KDRVariant const& value);
    /// The pixels of an image, or a reference to them.
    void pixels(KDRImage const& image);

    void list(int length);
    void endList() { m_cbor.endArray(); }
    void map(int length) { m_cbor.startMap(static_cast<quint64>(length)); }
    void endMap() { m_cbor.endMap(); }
    void name(char const* name) { m_cbor.appendTextString(name, qsizetype(qstrlen(name))); }
    void tag(QCborTag tag) { m_cbor.append(tag); }
    void null() { m_cbor.append(nullptr); }
    void absent() { m_cbor.appendUndefined(); }
    void flag(bool value) { m_cbor.append(value); }
    void integer(long long value) { m_cbor.append(static_cast<qint64>(value)); }
    void number(double value) { m_cbor.append(value); }
    void text(QString const& text) { m_cbor.append(QStringView(text)); }
    /// A string of @p length bytes.
    void bytes(void const* first, long long length);

    void field(char const* of, double value)
    {
        name(of);
        number(value);
    }

    Path& path() { return m_path; }
    [[noreturn]] void fail(QString const& what) const { throw Failure{what, m_path.text(), -1}; }
    [[noreturn]] void fail(char const* what) const { fail(QString(QLatin1String(what))); }

private:
    void plain(KDRVariantPrivate& store);
    void record(KDRVariantPrivate& store);
    void block(KDRImage const& image);
    void mustFit(long long length) const;

    QIODevice& m_device;
    long long m_most;
    SaveOptions m_options;
    KDRImageArray* m_outside;
    QCborStreamWriter m_cbor;
    Sharing m_sharing;
    Path m_path;
};

} // namespace kdrio

#endif
