#ifndef KDRDATA_FUZZ_TEXTS_H
#define KDRDATA_FUZZ_TEXTS_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrstring.h>

#include <climits>
#include <string>

/// Texts and bytes of both kinds: the library's and Qt's, which is the witness.
namespace texts {

inline KDRString string(std::u16string const& units)
{
    KDRString string;
    for (char16_t const unit : units)
        string.push_back(KDRString(KDRChar(static_cast<unsigned short>(unit))));
    return string;
}

/// A text without units is null on both sides: some codecs tell it from an empty one.
inline QString witness(std::u16string const& units)
{
    if (units.empty())
        return QString();
    return QString(reinterpret_cast<QChar const*>(units.data()), static_cast<int>(units.size()));
}

/// All the bytes read in the local encoding or as UTF-8, zeros included.
inline QString fromLocal(QByteArray const& bytes)
{
    return bytes.size() > 0 ? QString::fromLocal8Bit(bytes.constData(), bytes.size()) : QString();
}

inline QString fromUtf8(QByteArray const& bytes)
{
    return bytes.size() > 0 ? QString::fromUtf8(bytes.constData(), bytes.size()) : QString();
}

inline bool equal(KDRString const& string, QString const& expected)
{
    return QString(reinterpret_cast<QChar const*>(string.toUtf16()), string.size()) == expected;
}

inline bool equal(KDRBuffer const& buffer, QByteArray const& expected)
{
    return QByteArray(buffer.constData(), buffer.size()) == expected;
}

} // namespace texts

#endif
