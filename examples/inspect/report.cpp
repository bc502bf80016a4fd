#include "report.h"

#include <iomanip>
#include <set>

namespace inspect {

namespace {

std::string utf8(KDRString const& text) { return text.toUtf8().constData(); }

// What a parameter holds, a number or a text.
std::string displayed(KDRVariant const& parameter)
{
    KDRString text;
    KDRNumber number;
    if (parameter.toNumber(&number))
        text = KDRString("%1").arg(number.toDouble(), 0, KDRString::KDRFormatGeneral, 12);
    else
        parameter.toString(&text);
    return utf8(text);
}

// The address of the payload that a handle shares with all others on its store. Null for kinds
// without a pointer reader: that of number arrays does not hand out number arrays.
void const* payloadOf(KDRVariant handle)
{
    KDRNumber* number = nullptr;
    KDRString* text = nullptr;
    KDRImage* image = nullptr;
    KDRPointArray* points = nullptr;
    KDRContourArray* outlines = nullptr;
    if (handle.toNumberPtr(number))
        return number;
    if (handle.toStringPtr(text))
        return text;
    if (handle.toImagePtr(image))
        return image;
    if (handle.toPointArrayPtr(points))
        return points;
    if (handle.toContourArrayPtr(outlines))
        return outlines;
    return nullptr;
}

} // namespace

void printParameters(std::ostream& out, Values const& values)
{
    out << "Parameters\n";
    for (char const* name : {"path", "level", "smallest"}) {
        KDRVariant parameter = values.at(name);
        out << "  " << std::left << std::setw(10) << name << std::setw(38)
            << utf8(parameter.attribute()) << displayed(parameter) << '\n';
    }
}

void printParts(std::ostream& out, Values const& values)
{
    KDRPointArray const centres = valueOf(values, "centres", &KDRVariant::toPointArray);
    KDRNumberArray const areas = valueOf(values, "areas", &KDRVariant::toNumberArray);
    KDRContourArray const outlines = valueOf(values, "outlines", &KDRVariant::toContourArray);

    out << "\nParts\n"
        << std::right << std::setw(8) << "number" << std::setw(12) << "centre x" << std::setw(12)
        << "centre y" << std::setw(12) << "area" << std::setw(12) << "perimeter" << '\n'
        << std::fixed << std::setprecision(1);
    for (int i = 0; i < outlines.length(); ++i)
        out << std::setw(8) << i + 1 << std::setw(12) << centres[i].x() << std::setw(12)
            << centres[i].y() << std::setw(12) << areas[i].toDouble() << std::setw(12)
            << outlines[i].perimeter() << '\n';
}

void printSharing(std::ostream& out, std::vector<Values> const& history)
{
    out << "\nHandles and the stores they share, after " << history.size() << " tools\n"
        << "  " << std::left << std::setw(10) << "value" << std::right << std::setw(6) << "kind"
        << std::setw(10) << "handles" << std::setw(10) << "stores" << '\n';
    for (auto const& [name, value] : history.back()) {
        int handles = 0;
        std::set<void const*> stores;
        for (Values const& values : history) {
            auto const found = values.find(name);
            if (found == values.end())
                continue;
            ++handles;
            stores.insert(payloadOf(found->second));
        }
        out << "  " << std::left << std::setw(10) << name << std::right << std::setw(6)
            << value.variantType() << std::setw(10) << handles << std::setw(10);
        if (payloadOf(value) == nullptr)
            out << "-"
                << "  (no pointer reader tells)\n";
        else
            out << stores.size() << '\n';
    }
}

} // namespace inspect
