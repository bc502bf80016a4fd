#ifndef KDRIO_INSIDE_P_H
#define KDRIO_INSIDE_P_H

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumber_p.h>
#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/variant/kdrvariant.h>
#include <kdrdata/variant/kdrvariantarray.h>
#include <kdrdata/variant/kdrvariantlock.h>
#include <kdrdata/variant/kdrvariantprivate.h>

#include <QtCore/qbytearray.h>
#include <QtCore/qlist.h>
#include <QtCore/qstring.h>

#include <cstring>

/// What a file carries and no public operation shows: which store a variant has and the step of a
/// number. All of the library's knowledge of the insides of KDRData stands here; the two are built
/// and installed together.
namespace kdrio::inside {

/// Whether two numbers are the same in every bit: 0.0 is not -0.0, and a NaN may be itself.
inline bool sameBits(double one, double other)
{
    quint64 bits = 0;
    quint64 others = 0;
    std::memcpy(&bits, &one, sizeof bits);
    std::memcpy(&others, &other, sizeof others);
    return bits == others;
}

/// The store of a variant, the same for all handles that share it.
inline KDRVariantPrivate& store(KDRVariant const& value)
{
    return *KDRInternal::pointer(KDRInternal::wrapped(value));
}

/// The elements of an array, to be read where they are.
inline QList<KDRVariant> const& elements(KDRVariantArray const& array)
{
    return KDRInternal::wrapped(array);
}
/// The elements of an array, to be filled where they are.
inline QList<KDRVariant>& elements(KDRVariantArray& array) { return KDRInternal::wrapped(array); }

/// A number's record: KDRNumber::step() answers the minimum, and a constant number does not tell
/// its kind.
inline KDRNumberPrivate const& record(KDRNumber const& value)
{
    return KDRInternal::wrapped(value);
}

inline QString const& text(KDRString const& value) { return KDRInternal::wrapped(value); }
inline KDRString fromText(QString const& text) { return KDRInternal::taking<KDRString>(text); }

inline QByteArray const& bytes(KDRBuffer const& value) { return KDRInternal::wrapped(value); }
inline KDRBuffer fromBytes(QByteArray const& bytes)
{
    return KDRInternal::taking<KDRBuffer>(bytes);
}

} // namespace kdrio::inside

#endif
