#ifndef KDRDATA_TESTS_QTPRINTERS_H
#define KDRDATA_TESTS_QTPRINTERS_H

#include <kdrdata/text/text.h>

#include <QtCore/QByteArray>
#include <QtCore/QChar>
#include <QtCore/QString>

#include <iomanip>
#include <ostream>

// What GoogleTest prints for text and bytes when an expectation fails: the readable characters as
// they are, all others by number, and null apart from empty. To be included in every source of an
// executable that compares such values, or in none.

namespace qtprinters {

template <class Unit>
void printUnits(Unit const* units, int count, int digits, std::ostream* out)
{
    std::ios_base::fmtflags const flags = out->flags();
    char const fill = out->fill('0');
    *out << '"' << std::hex;
    for (int i = 0; i < count; ++i) {
        auto const unit = static_cast<unsigned int>(units[i]);
        if (unit >= 0x20 && unit < 0x7F)
            *out << static_cast<char>(unit);
        else
            *out << '{' << std::setw(digits) << unit << '}';
    }
    *out << '"';
    out->fill(fill);
    out->flags(flags);
}

} // namespace qtprinters

inline void PrintTo(QString const& text, std::ostream* out)
{
    if (text.isNull())
        *out << "null text";
    else
        qtprinters::printUnits(text.utf16(), text.size(), 4, out);
}

inline void PrintTo(QChar character, std::ostream* out)
{
    unsigned short const unit = character.unicode();
    qtprinters::printUnits(&unit, 1, 4, out);
}

inline void PrintTo(QByteArray const& bytes, std::ostream* out)
{
    if (bytes.isNull())
        *out << "null bytes";
    else
        qtprinters::printUnits(reinterpret_cast<unsigned char const*>(bytes.constData()),
                               bytes.size(), 2, out);
}

inline void PrintTo(KDRString const& text, std::ostream* out)
{
    if (text.isNull())
        *out << "null text";
    else
        qtprinters::printUnits(text.toUtf16(), text.size(), 4, out);
}

inline void PrintTo(KDRChar const& character, std::ostream* out)
{
    unsigned short const unit = character.unicode();
    qtprinters::printUnits(&unit, 1, 4, out);
}

inline void PrintTo(KDRBuffer const& bytes, std::ostream* out)
{
    if (bytes.isNull())
        *out << "null bytes";
    else
        qtprinters::printUnits(reinterpret_cast<unsigned char const*>(bytes.constData()),
                               bytes.size(), 2, out);
}

#endif
