#ifndef KDRIO_ENCODE_P_H
#define KDRIO_ENCODE_P_H

#include <kdrio/writer_p.h>

#include <QtCore/qbuffer.h>
#include <QtCore/qbytearray.h>

#include <climits>

namespace kdrio {

/// Room is left for the few bytes that are written without a look at how many there are.
constexpr long long mostOfBuffer = INT_MAX - (1LL << 20);

/// The bytes of a value; with @p outside, without pixels. Throws Failure.
inline QByteArray encoded(KDRVariant const& value, SaveOptions const& options,
                          KDRImageArray* outside)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    Writer(buffer, mostOfBuffer, options, outside).file(value);
    buffer.close();
    return bytes;
}

} // namespace kdrio

#endif
