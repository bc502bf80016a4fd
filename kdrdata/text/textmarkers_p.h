#ifndef KDRDATA_TEXTMARKERS_P_H
#define KDRDATA_TEXTMARKERS_P_H

#include <QtCore/QString>

#include <algorithm>
#include <climits>

/// The place markers that QString::arg() replaces.
namespace KDRTextMarkers {

/// Calls `visit(begin, end, number, localised)` for each marker of a text, in order: `%` and one or
/// two digits, with an `L` between where it is localised.
template <class Visit>
void visitMarkers(QString const& text, Visit const& visit)
{
    for (int i = text.indexOf('%'); i >= 0; i = text.indexOf('%', i + 1)) {
        int at = i + 1;
        bool const localised = at < text.size() && text.at(at) == 'L';
        if (localised)
            ++at;
        int number = at < text.size() ? text.at(at).digitValue() : -1;
        if (number < 0)
            continue;
        ++at;
        int const second = at < text.size() ? text.at(at).digitValue() : -1;
        if (second >= 0) {
            number = 10 * number + second;
            ++at;
        }
        visit(i, at, number, localised);
    }
}

/// The markers of the lowest number in a text.
struct Markers
{
    int number = INT_MAX;    ///< that number
    long long plain = 0;     ///< how many have no `L`
    long long localised = 0; ///< how many have one
    long long units = 0;     ///< how many code units all of them take
};

inline Markers lowestMarkers(QString const& text)
{
    Markers found;
    visitMarkers(text, [&found](int begin, int end, int number, bool localised) {
        if (number < found.number)
            found = Markers();
        found.number = std::min(found.number, number);
        if (number == found.number) {
            ++(localised ? found.localised : found.plain);
            found.units += end - begin;
        }
    });
    return found;
}

/// The widest number to which Qt may put zeros. It puts them one by one and moves the ones before
/// each time, so that a million would take minutes.
constexpr int fewZeros = 1000;

/// A number at a marker, filled with zeros to more than Qt may be asked for: with one zero, which
/// tells where they stand, and the others at once. @p format answers `marker.arg()` at a width.
template <class Format>
QString numberInZeros(QString const& marker, int width, Format const& format)
{
    QString bare = format(marker, 0);
    if (bare.size() >= width)
        return bare;
    QString filled = format(marker, bare.size() + 1);
    int at = 0;
    while (at < bare.size() && filled.at(at) == bare.at(at))
        ++at;
    filled.insert(at, QString(width - filled.size(), filled.at(at)));
    return filled;
}

/// What `text.arg()` answers for a number in zeros, in time proportional to the answer's length.
template <class Format>
QString argInZeros(QString const& text, int width, Format const& format)
{
    Markers const markers = lowestMarkers(text);
    if (markers.plain + markers.localised == 0)
        return format(text, 0);
    QString const plain = markers.plain > 0 ? numberInZeros("%1", width, format) : QString();
    QString const localised =
        markers.localised > 0 ? numberInZeros("%L1", width, format) : QString();
    QString result;
    result.reserve(static_cast<int>(text.size() - markers.units + markers.plain * plain.size() +
                                    markers.localised * localised.size()));
    int copied = 0;
    visitMarkers(text, [&](int begin, int end, int number, bool isLocalised) {
        if (number != markers.number)
            return;
        result.append(text.constData() + copied, begin - copied);
        result.append(isLocalised ? localised : plain);
        copied = end;
    });
    result.append(text.constData() + copied, text.size() - copied);
    return result;
}

} // namespace KDRTextMarkers

#endif
