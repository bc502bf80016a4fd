#include "report.h"

#include "figures.h"

#include <iomanip>
#include <set>

namespace inspect {

namespace {

template <typename Payload>
void const* payload(KDRVariant& handle, bool (KDRVariant::*reader)(Payload*&))
{
    Payload* found = nullptr;
    (handle.*reader)(found);
    return found;
}

// The address of the payload that a handle shares with all others on its store. Null for kinds
// without a pointer reader: that of number arrays does not hand out number arrays.
void const* payloadOf(KDRVariant handle)
{
    switch (handle.variantType()) {
    case KindNumber:
        return payload(handle, &KDRVariant::toNumberPtr);
    case KindString:
        return payload(handle, &KDRVariant::toStringPtr);
    case KindImage:
        return payload(handle, &KDRVariant::toImagePtr);
    case KindShape:
        return payload(handle, &KDRVariant::toShapePtr);
    case KindMatrix:
        return payload(handle, &KDRVariant::toMatrixPtr);
    case KindStringArray:
        return payload(handle, &KDRVariant::toStringArrayPtr);
    case KindBoolArray:
        return payload(handle, &KDRVariant::toBoolArrayPtr);
    case KindShapeArray:
        return payload(handle, &KDRVariant::toShapeArrayPtr);
    case KindContourArray:
        return payload(handle, &KDRVariant::toContourArrayPtr);
    case KindVariantArray:
        return payload(handle, &KDRVariant::toVariantArrayPtr);
    default:
        return nullptr;
    }
}

// What became of a figure of one kind on its way through the record.
std::string fate(unsigned int sent, unsigned int returned, bool unchanged)
{
    if (returned == KDRShape::Empty)
        return "leaves no trace";
    if (returned != sent)
        return "comes back as " + nameOf(returned);
    return unchanged ? "survives" : "comes back changed";
}

} // namespace

std::vector<Part> partsIn(Values const& values)
{
    KDRContourArray const outlines = valueOf(values, "outlines", &KDRVariant::toContourArray);
    KDRMatrix const features = valueOf(values, "features", &KDRVariant::toMatrix);
    KDRShapeArray const circles = valueOf(values, "circles", &KDRVariant::toShapeArray);
    KDRShapeArray const rectangles = valueOf(values, "rectangles", &KDRVariant::toShapeArray);
    KDRBoolArray const isRound = valueOf(values, "is round", &KDRVariant::toBoolArray);
    auto const feature = [&](int row, int column) {
        KDRNumber number;
        features.select(row, column, &number);
        return number.toDouble();
    };

    std::vector<Part> parts;
    for (int i = 0; i < outlines.length(); ++i) {
        KDRPoint centre;
        double radius = 0.0;
        double halfLength = 0.0;
        double halfWidth = 0.0;
        double angle = 0.0;
        circles[i].toCircle(&centre, &radius);
        rectangles[i].toRect2(&centre, &halfLength, &halfWidth, &angle);
        parts.push_back({{feature(0, i), feature(1, i), feature(2, i), outlines[i].perimeter(),
                          radius, halfLength, halfWidth, angle},
                         isRound[i]});
    }
    return parts;
}

void printParts(std::ostream& out, Values const& values)
{
    out << "Parts, in pixels and degrees: centre, area, perimeter; the circle's radius; the "
           "rectangle\n"
        << "  no        x        y     area  perimeter   radius  half length  half width    angle"
           "  round\n"
        << std::right << std::fixed << std::setprecision(1);
    std::array<int, 8> const widths = {9, 9, 9, 11, 9, 13, 12, 9};
    int number = 0;
    for (Part const& part : partsIn(values)) {
        out << std::setw(4) << ++number;
        for (std::size_t i = 0; i < widths.size(); ++i)
            out << std::setw(widths[i]) << part.numbers[i];
        out << "  " << (part.isRound ? "yes" : "no") << '\n';
    }
}

void printConversions(std::ostream& out, Values const& values)
{
    KDRMatrix conversions = valueOf(values, "conversions", &KDRVariant::toMatrix);
    KDRNumberArray sent;
    KDRNumberArray record;
    KDRNumberArray returned;
    KDRNumberArray unchanged;
    conversions.getRowData(0, &sent);
    conversions.getRowData(1, &record);
    conversions.getRowData(2, &returned);
    conversions.getRowData(3, &unchanged);

    out << "\nFigures sent to the core library's record and back\n"
        << "  " << std::left << std::setw(10) << "figure" << std::right << std::setw(6) << "count"
        << std::setw(6) << "kind" << std::setw(8) << "record" << std::setw(6) << "back" << '\n';
    for (int i = 0; i < sent.length();) {
        // Figures that fare alike follow each other.
        int count = 0;
        int const first = i;
        while (i < sent.length() && sent[i].toInt() == sent[first].toInt() &&
               returned[i].toInt() == returned[first].toInt() &&
               unchanged[i].toInt() == unchanged[first].toInt()) {
            ++count;
            ++i;
        }
        auto const kind = static_cast<unsigned int>(sent[first].toInt());
        auto const back = static_cast<unsigned int>(returned[first].toInt());
        out << "  " << std::left << std::setw(10) << nameOf(kind) << std::right << std::setw(6)
            << count << std::setw(6) << kind << std::setw(8) << record[first].toInt()
            << std::setw(6) << back << "  " << fate(kind, back, unchanged[first].toInt() != 0)
            << '\n';
    }
}

void printFigures(std::ostream& out, Values const& values)
{
    KDRStringArray const names = valueOf(values, "names", &KDRVariant::toStringArray);
    KDRShapeArray const nominal = valueOf(values, "nominal", &KDRVariant::toShapeArray);
    KDRShapeArray const found = valueOf(values, "found", &KDRVariant::toShapeArray);

    out << "The part's figures, nominal and found, in pixels, square pixels and degrees\n"
        << std::fixed << std::setprecision(2);
    for (int i = 0; i < nominal.length(); ++i) {
        KDRShape const wanted = nominal[i];
        KDRShape const figure = found[i];
        out << "  " << names[i].toUtf8().constData() << ": " << nameOf(wanted.shapeType())
            << ", found as " << nameOf(figure.shapeType()) << "\n            " << std::right;
        for (Quantity const& quantity : quantitiesOf(wanted))
            out << std::setw(13) << quantity.name;
        out << "\n    nominal ";
        for (Quantity const& quantity : quantitiesOf(wanted))
            out << std::setw(13) << quantity.value;
        out << "\n    found   ";
        for (Quantity const& quantity : quantitiesOf(figure))
            out << std::setw(13) << quantity.value;
        out << '\n';
    }
}

std::vector<Sharing> sharingIn(std::vector<Values> const& history)
{
    std::vector<Sharing> all;
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
        stores.erase(nullptr);
        all.push_back({name, value.variantType(), handles, static_cast<int>(stores.size())});
    }
    return all;
}

void printSharing(std::ostream& out, std::vector<Values> const& history)
{
    out << "\nHandles and the stores they share, after " << history.size() << " tools\n"
        << "  " << std::left << std::setw(12) << "value" << std::right << std::setw(6) << "kind"
        << std::setw(10) << "handles" << std::setw(10) << "stores" << '\n';
    for (Sharing const& each : sharingIn(history)) {
        out << "  " << std::left << std::setw(12) << each.name << std::right << std::setw(6)
            << each.kind << std::setw(10) << each.handles << std::setw(10);
        if (each.stores == 0)
            out << "-"
                << "  (no pointer reader tells)\n";
        else
            out << each.stores << '\n';
    }
}

} // namespace inspect
