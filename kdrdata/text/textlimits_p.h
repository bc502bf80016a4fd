#ifndef KDRDATA_TEXTLIMITS_P_H
#define KDRDATA_TEXTLIMITS_P_H

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

/// Throws std::bad_alloc where replacing each occurrence of @p before units by @p after ones makes
/// too many. @p find answers the first occurrence at or behind a position, or -1; it is asked only
/// where the number of occurrences matters.
template <class Find>
void replacementMustFit(int size, int before, int after, Find const& find)
{
    long long const growth = static_cast<long long>(after) - before;
    if (growth <= 0)
        return;
    long long count = before > 0 ? size / before : size + 1LL;
    if (before > 0 && size + count * growth > INT_MAX) {
        count = 0;
        for (int at = find(0); at >= 0; at = find(at + before))
            ++count;
    }
    mustFit(size + count * growth);
}

/// How often the lowest-numbered place marker of @p text occurs: `%` and one or two digits, with an
/// `L` between or not.
inline long long markersIn(QString const& text)
{
    int lowest = INT_MAX;
    long long count = 0;
    for (int i = text.indexOf('%'); i >= 0; i = text.indexOf('%', i + 1)) {
        int at = i + 1;
        if (at < text.size() && text.at(at) == 'L')
            ++at;
        int number = at < text.size() ? text.at(at).digitValue() : -1;
        if (number < 0)
            continue;
        int const second = at + 1 < text.size() ? text.at(at + 1).digitValue() : -1;
        if (second >= 0)
            number = 10 * number + second;
        if (number < lowest)
            count = 0;
        lowest = std::min(lowest, number);
        if (number == lowest)
            ++count;
    }
    return count;
}

/// Throws std::bad_alloc where putting @p longest units, or as many as @p fieldWidth asks for, in
/// the place of each marker makes too many.
inline void formattedMustFit(QString const& text, int fieldWidth, long long longest)
{
    longest = std::max(longest, std::llabs(fieldWidth));
    long long const most = text.size() / 2;
    if (text.size() + most * longest > INT_MAX)
        mustFit(text.size() + markersIn(text) * longest);
}

/// Where to search from: from just before the start Qt searches what lies before the text as well,
/// for needles longer than one unit.
inline int searchStart(int size, int needle, int from)
{
    bool const justBefore = from < -size && from >= -size - needle;
    return justBefore && needle > 1 ? 0 : from;
}

} // namespace KDRTextLimits

#endif
