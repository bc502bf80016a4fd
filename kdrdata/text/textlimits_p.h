#ifndef KDRDATA_TEXTLIMITS_P_H
#define KDRDATA_TEXTLIMITS_P_H

#include <kdrdata/text/textmarkers_p.h>

#include <QtCore/QRegExp>
#include <QtCore/QString>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <new>

/// What Qt adds up without looking is looked at here first: where its sum overflows, it writes
/// outside the memory that it took.
namespace KDRTextLimits {

/// Throws std::bad_alloc for a size that an `int` does not count.
inline void mustFit(long long size)
{
    if (size > INT_MAX)
        throw std::bad_alloc();
}

/// The most occurrences that a text of @p size units has of one of @p needle units.
inline long long mostOccurrences(int size, int needle)
{
    return needle > 0 ? size / needle : size + 1LL;
}

/// Throws std::bad_alloc where replacing each occurrence of @p before units by @p after ones makes
/// too many. @p find answers the first occurrence at or behind a position, or -1; it is asked only
/// where the number of occurrences matters.
template <class Find>
void replacementMustFit(int size, int before, int after, Find const& find)
{
    long long const growth = static_cast<long long>(after) - before;
    if (growth <= 0)
        return;
    long long count = mostOccurrences(size, before);
    if (before > 0 && size + count * growth > INT_MAX) {
        count = 0;
        for (int at = find(0); at >= 0; at = find(at + before))
            ++count;
    }
    mustFit(size + count * growth);
}

/// Throws std::bad_alloc where putting a value in the place of each marker makes too many units.
/// A value is never longer than @p bound or, where that is more, @p fieldWidth; @p lengthAt answers
/// how long it is at the marker `%1` or `%L1`, and is asked only where that matters.
template <class LengthAt>
void formattedMustFit(QString const& text, int fieldWidth, long long bound,
                      LengthAt const& lengthAt)
{
    long long const width = std::llabs(fieldWidth);
    long long const most = text.size() / 2;
    if (text.size() + most * std::max(bound, width) <= INT_MAX)
        return;
    KDRTextMarkers::Markers const markers = KDRTextMarkers::lowestMarkers(text);
    long long size = text.size() - markers.units;
    if (markers.plain > 0)
        size += markers.plain * std::max<long long>(width, lengthAt(QString("%1")));
    if (markers.localised > 0)
        size += markers.localised * std::max<long long>(width, lengthAt(QString("%L1")));
    mustFit(size);
}

/// Where to search from: from just before the start Qt searches what lies before the text as well,
/// for needles longer than one unit.
inline int searchStart(int size, int needle, int from)
{
    bool const justBefore = from < -size && from >= -size - needle;
    return justBefore && needle > 1 ? 0 : from;
}

/// QRegExp::indexIn() within the text. From further before the text than it is long twice over, Qt
/// finds patterns that are plain texts in the memory in front of it. Only a plain text of one unit
/// is searched within bounds from there, and from one place only: from the last unit.
inline int indexIn(QRegExp const& rx, QString const& text, int offset,
                   QRegExp::CaretMode caretMode = QRegExp::CaretAtZero)
{
    int const size = text.size();
    long long const twiceFromEnd = offset + 2LL * size;
    if (size == 0 || twiceFromEnd >= 0)
        return rx.indexIn(text, offset, caretMode);
    // Plain texts count this offset from the end twice as well, all others find nothing at it.
    bool const atLast = twiceFromEnd == -1 && !rx.isEmpty();
    return rx.indexIn(text, atLast ? -size - 1 : size + 1, caretMode);
}

} // namespace KDRTextLimits

#endif
