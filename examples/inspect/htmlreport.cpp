#include "htmlreport.h"

#include "figures.h"
#include "page/page.h"
#include "page/tree.h"
#include "report.h"

#include <algorithm>

namespace inspect {

namespace {

using namespace page;

std::string sharingSection(std::vector<Values> const& history)
{
    PageTable table;
    table.about = "Handles and the stores they share, after " + std::to_string(history.size()) +
                  " tools. Where no pointer reader tells the store, there is a dash.";
    table.columns = {"value", "kind", "handles", "stores"};
    for (Sharing const& each : sharingIn(history))
        table.rows.push_back({each.name, std::to_string(each.kind), std::to_string(each.handles),
                              each.stores == 0 ? "-" : std::to_string(each.stores)});
    return sectionOf("What was shared", tableOf(table));
}

std::string recipeSection(Values const& values)
{
    KDRVariant const copy = values.at("recipe");
    return sectionOf("The recipe, read back from a copy", treeOf(entriesOf(copy)));
}

// A picture and the table of its parts, side by side where there is room.
std::string beside(std::string const& picture, std::string const& table)
{
    return "<div class=\"beside\">\n<div class=\"first\">" + sectionOf("The picture", picture) +
           "</div>\n" + sectionOf("Measurements", table) + "</div>\n";
}

std::string sizeOf(KDRImage const& image)
{
    return std::to_string(image.width()) + " x " + std::to_string(image.height()) + " pixels";
}

std::vector<PagePart> pagePartsOf(Values const& values)
{
    KDRContourArray const outlines = valueOf(values, "outlines", &KDRVariant::toContourArray);
    KDRShapeArray const circles = valueOf(values, "circles", &KDRVariant::toShapeArray);
    KDRShapeArray const rectangles = valueOf(values, "rectangles", &KDRVariant::toShapeArray);
    std::vector<Part> const measured = partsIn(values);
    std::vector<PagePart> parts;
    for (int i = 0; i < outlines.length(); ++i) {
        auto const& numbers = measured[static_cast<std::size_t>(i)].numbers;
        PagePart part;
        part.name = std::to_string(i + 1);
        part.label = KDRPoint(numbers[0], numbers[1]);
        part.figures.push_back(page::polygonOf(outlines[i]));
        part.figures.push_back(rectangles[i]);
        part.figures.push_back(circles[i]);
        parts.push_back(part);
    }
    return parts;
}

PageTable partsTable(Values const& values)
{
    KDRNumberArray const roundness = valueOf(values, "roundness", &KDRVariant::toNumberArray);
    PageTable table;
    table.ofParts = true;
    table.about = "Parts, in pixels and degrees: centre, area, perimeter; the circle's radius; "
                  "the rectangle; roundness, 1 for a disk";
    table.columns = {"no",          "x",          "y",     "area",      "perimeter", "radius",
                     "half length", "half width", "angle", "roundness", "round"};
    for (Part const& part : partsIn(values)) {
        auto const i = static_cast<int>(table.rows.size());
        std::vector<std::string> row = {std::to_string(i + 1)};
        for (double const number : part.numbers)
            row.push_back(fixedText(number, 1));
        row.push_back(fixedText(roundness[i].toDouble(), 3));
        row.emplace_back(part.isRound ? "yes" : "no");
        table.rows.push_back(row);
    }
    return table;
}

std::string textOf(KDRShape const& figure)
{
    std::string text;
    for (Quantity const& quantity : quantitiesOf(figure))
        text += (text.empty() ? "" : ", ") + quantity.name + ' ' + fixedText(quantity.value, 2);
    return text;
}

// The centre; in a polygon, which may have others in its middle, a place at its bottom.
KDRPoint labelPlaceOf(KDRShape const& figure)
{
    std::vector<Quantity> const numbers = quantitiesOf(figure);
    double y = numbers[1].value;
    if (figure.shapeType() == KDRShape::Polygon) {
        std::vector<page::Line> const lines = page::linesOf(figure);
        for (Place const& corner : lines.front())
            y = std::max(y, corner.y);
        y -= 14.0;
    }
    return KDRPoint(numbers[0].value, y);
}

} // namespace

std::string partsReport(std::vector<Values> const& history)
{
    Values const& values = history.back();
    KDRImage const image = valueOf(values, "image", &KDRVariant::toImage);
    std::string const path = valueOf(values, "path", &KDRVariant::toString).toUtf8().constData();
    int const cut = valueOf(values, "cut", &KDRVariant::toNumber).toInt();
    KDRMatrix features = valueOf(values, "features", &KDRVariant::toMatrix);
    KDRNumberArray areas;
    features.getRowData(2, &areas);

    std::vector<PagePart> const parts = pagePartsOf(values);
    std::string const charts =
        histogramOf("Area, in square pixels", areas) +
        histogramOf("Roundness, 1 for a disk",
                    valueOf(values, "roundness", &KDRVariant::toNumberArray));
    return pageOf(std::to_string(parts.size()) + (parts.size() == 1 ? " part" : " parts") + " in " +
                      path.substr(path.find_last_of('/') + 1),
                  path + ", " + sizeOf(image) +
                      (cut > 0 ? ", and " + std::to_string(cut) + " cut by its edge" : ""),
                  beside(pictureOf(image, groundOf(image), parts, {{KDRShape::Polygon, "border"}}),
                         tableOf(partsTable(values))) +
                      (charts.empty() ? ""
                                      : sectionOf("Histograms",
                                                  "<div class=\"charts\">" + charts + "</div>")) +
                      recipeSection(values) + sharingSection(history));
}

std::string drawnPartReport(std::vector<Values> const& history)
{
    Values const& values = history.back();
    KDRImage const image = valueOf(values, "image", &KDRVariant::toImage);
    KDRStringArray const names = valueOf(values, "names", &KDRVariant::toStringArray);
    KDRShapeArray const nominal = valueOf(values, "nominal", &KDRVariant::toShapeArray);
    KDRShapeArray const found = valueOf(values, "found", &KDRVariant::toShapeArray);

    std::vector<PagePart> parts;
    PageTable table;
    table.ofParts = true;
    table.about = "The part's figures, in pixels, square pixels and degrees";
    table.columns = {"figure", "kind", "found as", "nominal", "found"};
    for (int i = 0; i < nominal.length(); ++i) {
        PagePart part;
        part.name = names[i].toUtf8().constData();
        part.label = labelPlaceOf(nominal[i]);
        part.figures.push_back(found[i]);
        parts.push_back(part);
        table.rows.push_back({part.name, nameOf(nominal[i].shapeType()),
                              nameOf(found[i].shapeType()), textOf(nominal[i]), textOf(found[i])});
    }
    return pageOf("The drawn part", sizeOf(image),
                  beside(pictureOf(image, groundOf(image), parts), tableOf(table)) +
                      recipeSection(values) + sharingSection(history));
}

} // namespace inspect
