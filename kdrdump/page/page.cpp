#include "page.h"

#include "figures.h"
#include "look.h"
#include "shown.h"

#include <QtCore/qbytearray.h>
#include <algorithm>
#include <cmath>
#include <iomanip>
#include <limits>
#include <set>
#include <sstream>

namespace page {

namespace {

// Beyond these coordinates nothing is drawn: browsers count in single precision.
constexpr double furthest = 1e7;

bool isDrawn(double coordinate) { return std::abs(coordinate) <= furthest; }

std::string colourTextOf(unsigned int shapeKind)
{
    Colour const colour = colourOf(shapeKind);
    std::ostringstream text;
    text << '#' << std::hex << std::setfill('0');
    for (int const channel : {colour.red, colour.green, colour.blue})
        text << std::setw(2) << channel;
    return text.str();
}

bool isDrawn(Line const& line)
{
    return std::all_of(line.begin(), line.end(),
                       [](Place const& place) { return isDrawn(place.x) && isDrawn(place.y); });
}

std::string pathThrough(std::vector<Line> const& lines)
{
    std::string path;
    for (Line const& line : lines) {
        char const* before = "M";
        for (Place const& place : isDrawn(line) ? line : Line()) {
            path += before + generalText(place.x) + ' ' + generalText(place.y);
            before = "L";
        }
    }
    return path;
}

bool isDrawn(Run const& run) { return isDrawn(run.row) && isDrawn(run.first) && isDrawn(run.last); }

// A bar for each run, from edge to edge of its pixels.
std::string pathOver(std::vector<Run> const& runs)
{
    std::ostringstream path;
    path << std::setprecision(9);
    for (Run const& run : runs)
        if (isDrawn(run))
            path << 'M' << run.first - 0.5 << ' ' << run.row - 0.5 << 'H' << run.last + 0.5 << "v1H"
                 << run.first - 0.5 << 'z';
    return path.str();
}

bool areDrawn(std::vector<Quantity> const& quantities)
{
    return std::all_of(quantities.begin(), quantities.end(),
                       [](Quantity const& each) { return isDrawn(each.value); });
}

std::string labelOf(KDRShape const& figure, std::string const& look)
{
    KDRPoint anchor;
    KDRString text;
    KDRFont font;
    if (!figure.toText(&anchor, &text, &font) || !isDrawn(anchor.x()) || !isDrawn(anchor.y()))
        return "";
    double const letter = std::clamp(std::abs(static_cast<double>(font.size())), 6.0, 200.0);
    return element("text class=\"label\"" + look + attribute("x", anchor.x()) +
                       attribute("y", anchor.y()) + attribute("font-size", letter),
                   escaped(text.toUtf8().constData()));
}

std::string figureOf(KDRShape const& figure)
{
    std::string const kind = attribute("data-kind", nameOf(figure.shapeType()));
    std::string const look = kind + attribute("stroke", colourTextOf(figure.shapeType()));
    KDRPoint centre;
    double a = 0.0;
    double b = 0.0;
    double angle = 0.0;
    if (figure.shapeType() == KDRShape::Text)
        return labelOf(figure, kind);
    if (figure.shapeType() == KDRShape::Region) {
        std::string const path = pathOver(runsOf(figure));
        return path.empty() ? ""
                            : "<path class=\"area\"" + kind +
                                  attribute("style", "fill: " + colourTextOf(KDRShape::Region)) +
                                  attribute("d", path) + "/>";
    }
    if (!areDrawn(quantitiesOf(figure)) && figure.shapeType() != KDRShape::Polygon)
        return "";
    if (figure.toCircle(&centre, &a))
        return a < 0.0 ? ""
                       : "<circle" + look + attribute("cx", centre.x()) +
                             attribute("cy", centre.y()) + attribute("r", a) + "/>";
    if (figure.toRect2(&centre, &a, &b, &angle) && a >= 0.0 && b >= 0.0)
        return "<rect" + look + attribute("x", centre.x() - a) + attribute("y", centre.y() - b) +
               attribute("width", 2.0 * a) + attribute("height", 2.0 * b) +
               attribute("transform", "rotate(" + fixedText(angle, 3) + ' ' +
                                          fixedText(centre.x(), 3) + ' ' +
                                          fixedText(centre.y(), 3) + ')') +
               "/>";
    std::string const path = pathThrough(linesOf(figure));
    return path.empty() ? "" : "<path" + look + attribute("d", path) + "/>";
}

// The names that are written so far, by the squares of a letter's size in which they stand.
class Labels
{
public:
    explicit Labels(double size) : letter(size) {}

    /// Nothing where another name stands.
    std::string of(PagePart const& part)
    {
        double const x = part.label.x();
        double const y = part.label.y();
        if (part.name.empty() || !isDrawn(x) || !isDrawn(y) ||
            !taken.insert({std::lround(x / letter), std::lround(y / letter)}).second)
            return "";
        return element("text" + attribute("x", x) + attribute("y", y) +
                           attribute("font-size", letter) + attribute("stroke-width", letter / 5.0),
                       escaped(part.name));
    }

private:
    double letter;
    std::set<std::pair<long, long>> taken;
};

std::string figuresOf(PagePart const& part, std::size_t number, Labels& labels)
{
    std::string figures;
    for (int i = 0; i < part.figures.length(); ++i)
        figures += figureOf(part.figures[i]);
    std::string const id = std::to_string(number);
    return element("g" + attribute("id", "part-" + id) + attribute("data-part", id),
                   figures + labels.of(part)) +
           '\n';
}

std::string switchOf(unsigned int shapeKind, KindNames const& names)
{
    std::string const kind = nameOf(shapeKind);
    auto const name = names.find(shapeKind);
    return element(
        "label", "<input type=\"checkbox\" checked=\"checked\"" + attribute("value", kind) + "/>" +
                     element("span class=\"swatch\"" +
                                 attribute("style", "background: " + colourTextOf(shapeKind)),
                             "") +
                     escaped(name == names.end() ? kind : name->second));
}

// A switch for each kind of figure among the parts, in the order of the kinds.
std::string switchesFor(std::vector<PagePart> const& parts, KindNames const& names)
{
    std::set<unsigned int> kinds;
    for (PagePart const& part : parts)
        for (int i = 0; i < part.figures.length(); ++i)
            kinds.insert(part.figures[i].shapeType());
    kinds.erase(KDRShape::Empty);
    std::string switches;
    for (unsigned int const kind : kinds)
        switches += switchOf(kind, names);
    return switches.empty() ? "" : element("div class=\"switches\"", switches) + '\n';
}

bool isNumber(std::string const& text)
{
    bool good = false;
    QByteArray::fromStdString(text).toDouble(&good);
    return good;
}

std::string cellOf(std::string const& text)
{
    std::string const look = isNumber(text)     ? " class=\"number\""
                             : text.size() > 24 ? " class=\"long\""
                                                : "";
    return element("td" + look, escaped(text));
}

std::string headOf(PageTable const& table)
{
    std::string head;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        std::string const start =
            "th scope=\"col\"" + std::string(!table.rows.empty() && isNumber(table.rows.front()[i])
                                                 ? " class=\"number\""
                                                 : "");
        std::string const name = escaped(table.columns[i]);
        head += table.ofParts ? element(start + " aria-sort=\"none\"",
                                        element("button type=\"button\"", name))
                              : element(start, name);
    }
    return element("thead", element("tr", head));
}

// The least of 1, 2 and 5 times a power of ten that is not below a width.
double roundStep(double width)
{
    double const power = std::pow(10.0, std::floor(std::log10(width)));
    for (double const factor : {1.0, 2.0, 5.0})
        if (width <= factor * power)
            return factor * power;
    return 10.0 * power;
}

struct Histogram
{
    double first; // the lower edge of the first step, in steps
    double step;
    std::vector<int> counts;

    std::string edge(std::size_t i) const
    {
        return generalText((first + static_cast<double>(i)) * step);
    }
};

// No steps where the numbers cannot be counted into some: where there are none, one is infinite, or
// they lie too far from each other or too near.
Histogram countsOf(KDRNumberArray const& numbers)
{
    double least = std::numeric_limits<double>::infinity();
    double most = -least;
    bool isFinite = true;
    for (int i = 0; i < numbers.length(); ++i) {
        double const number = numbers[i].toDouble();
        isFinite = isFinite && std::isfinite(number);
        least = std::min(least, number);
        most = std::max(most, number);
    }
    double const range = most > least ? most - least : std::max(1.0, std::abs(most));
    bool const isCounted = isFinite && range < 1e300 && range > 1e-300 &&
                           range > 1e-12 * std::abs(most) && range > 1e-12 * std::abs(least);
    if (numbers.length() == 0 || !isCounted)
        return {0.0, 1.0, {}};
    Histogram histogram{0.0, roundStep(range / 8.0), {}};
    histogram.first = std::floor(least / histogram.step);
    auto const place = [&histogram](double number) {
        return static_cast<std::size_t>(std::floor(number / histogram.step) - histogram.first);
    };
    histogram.counts.resize(place(most) + 1);
    for (int i = 0; i < numbers.length(); ++i)
        ++histogram.counts[place(numbers[i].toDouble())];
    return histogram;
}

std::string barOf(Histogram const& histogram, std::size_t i, double x, double width, double height)
{
    std::string const count = std::to_string(histogram.counts[i]);
    return element("g", element("title",
                                histogram.edge(i) + " to " + histogram.edge(i + 1) + ": " + count) +
                            "<rect class=\"bar\"" + attribute("x", x + 1.0) +
                            attribute("y", 150.0 - height) + attribute("width", width - 2.0) +
                            attribute("height", height) + "/>" +
                            element("text" + attribute("x", x + width / 2.0) +
                                        attribute("y", 146.0 - height),
                                    count)) +
           '\n';
}

struct Extent
{
    double left;
    double top;
    double right;
    double bottom;
};

void include(Extent& extent, double x, double y)
{
    if (!isDrawn(x) || !isDrawn(y))
        return;
    extent = {std::min(extent.left, x), std::min(extent.top, y), std::max(extent.right, x),
              std::max(extent.bottom, y)};
}

// Around all figures that are drawn, with a margin.
Extent extentOf(std::vector<PagePart> const& parts)
{
    Extent extent{furthest, furthest, -furthest, -furthest};
    for (PagePart const& part : parts) {
        include(extent, part.label.x(), part.label.y());
        for (int i = 0; i < part.figures.length(); ++i) {
            for (Run const& run : runsOf(part.figures[i])) {
                if (isDrawn(run)) {
                    include(extent, run.first, run.row);
                    include(extent, run.last, run.row);
                }
            }
            for (Line const& line : linesOf(part.figures[i]))
                for (Place const& place : isDrawn(line) ? line : Line())
                    include(extent, place.x, place.y);
        }
    }
    if (extent.left > extent.right)
        return {0.0, 0.0, 1.0, 1.0};
    double const margin =
        1.0 + 0.03 * std::max(extent.right - extent.left, extent.bottom - extent.top);
    return {extent.left - margin, extent.top - margin, extent.right + margin,
            extent.bottom + margin};
}

std::string picture(Extent const& extent, std::string const& ground,
                    std::vector<PagePart> const& parts, KindNames const& names, std::size_t first)
{
    double const width = extent.right - extent.left;
    double const height = extent.bottom - extent.top;
    std::string content = ground;
    Labels labels(std::max(8.0, std::min(width, height) / 24.0));
    for (std::size_t i = 0; i < parts.size(); ++i)
        content += figuresOf(parts[i], first + i, labels);
    std::ostringstream box;
    box << std::setprecision(9) << extent.left << ' ' << extent.top << ' ' << width << ' '
        << height;
    return switchesFor(parts, names) +
           element("svg class=\"picture\" role=\"img\" aria-label=\"The picture with figures\"" +
                       attribute("viewBox", box.str()),
                   '\n' + content) +
           (parts.empty() ? "\n"
                          : "\n<p class=\"readout\" aria-live=\"polite\">Point at a part or its "
                            "row, or tap it, to see both.</p>\n");
}

} // namespace

std::string groundOf(KDRImage const& image, std::string const& id)
{
    // Whole coordinates are the middles of pixels.
    return "<image x=\"-0.5\" y=\"-0.5\"" + (id.empty() ? "" : attribute("id", id)) +
           attribute("width", std::to_string(image.width())) +
           attribute("height", std::to_string(image.height())) +
           attribute("href", addressOf(image)) + "/>\n";
}

std::string sameGround(std::string const& id)
{
    return "<use" + attribute("href", '#' + id) + "/>\n";
}

std::string pictureOf(KDRImage const& image, std::string const& ground,
                      std::vector<PagePart> const& parts, KindNames const& names, std::size_t first)
{
    return picture({-0.5, -0.5, image.width() - 0.5, image.height() - 0.5}, ground, parts, names,
                   first);
}

std::string drawingOf(std::vector<PagePart> const& parts, std::size_t first)
{
    return picture(extentOf(parts), "", parts, {}, first);
}

std::string tableOf(PageTable const& table, std::size_t first)
{
    std::string body;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        std::string cells;
        for (std::string const& text : table.rows[i])
            cells += cellOf(text);
        std::string const id = std::to_string(first + i);
        body += element(table.ofParts ? "tr tabindex=\"0\"" + attribute("id", "row-" + id) +
                                            attribute("data-part", id)
                                      : "tr",
                        cells) +
                '\n';
    }
    std::string const start = table.ofParts ? "table class=\"parts\"" : "table";
    return element("p class=\"about\"", escaped(table.about)) +
           element("div class=\"frame\"",
                   element(start, headOf(table) + element("tbody", '\n' + body))) +
           '\n';
}

std::string histogramOf(std::string const& title, KDRNumberArray const& numbers)
{
    Histogram const histogram = countsOf(numbers);
    std::size_t const steps = histogram.counts.size();
    if (steps == 0)
        return "";
    double const width = 328.0 / static_cast<double>(steps);
    int const most = *std::max_element(histogram.counts.begin(), histogram.counts.end());
    std::string content;
    for (std::size_t i = 0; i <= steps; ++i) {
        double const x = 16.0 + static_cast<double>(i) * width;
        if (i % (steps / 6 + 1) == 0)
            content += element("text" + attribute("x", x) + " y=\"165\"", histogram.edge(i));
        if (i < steps && histogram.counts[i] > 0)
            content += barOf(histogram, i, x, width, 125.0 * histogram.counts[i] / most);
    }
    content += "<line class=\"axis\" x1=\"10\" x2=\"350\" y1=\"150\" y2=\"150\"/>";
    return element("figure", element("figcaption", escaped(title)) +
                                 element("svg viewBox=\"0 0 360 175\" role=\"img\"" +
                                             attribute("aria-label", title),
                                         '\n' + content)) +
           '\n';
}

std::string sectionOf(std::string const& heading, std::string const& content)
{
    return element("section", '\n' + element("h2", escaped(heading)) + '\n' + content) + '\n';
}

std::string pageOf(std::string const& title, std::string const& summary, std::string const& content)
{
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n" +
           element("title", escaped(title)) + '\n' + element("style", pageStyle()) +
           "\n</head>\n<body>\n" +
           element("header", element("h1", escaped(title)) + element("p", escaped(summary))) +
           '\n' + element("main", '\n' + content) + '\n' + element("script", pageScript()) +
           "\n</body>\n</html>\n";
}

} // namespace page
