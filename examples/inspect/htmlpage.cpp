#include "htmlpage.h"

#include "drawing.h"
#include "figures.h"
#include "flow.h"
#include "htmllook.h"
#include "recipe.h"

#include <QtCore/qbytearray.h>
#include <QtCore/qfile.h>
#include <QtCore/qtemporarydir.h>
#include <algorithm>
#include <cmath>
#include <iomanip>
#include <set>
#include <sstream>

namespace inspect {

namespace {

std::string attribute(char const* name, std::string const& value)
{
    return std::string(" ") + name + "=\"" + escaped(value) + '"';
}

std::string attribute(char const* name, double value)
{
    return attribute(name, fixedText(value, 3));
}

std::string element(std::string const& start, std::string const& content)
{
    return '<' + start + '>' + content + "</" + start.substr(0, start.find(' ')) + '>';
}

std::string generalText(double value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

// The picture as a file that every browser shows: PNG with 8 bits, as the library writes it.
std::string dataOf(KDRImage const& image)
{
    QTemporaryDir const directory;
    QString const path = directory.filePath("picture.png");
    KDRImage shown = imageOf(image.channel() < 3 ? greyOf(image) : colourOf(image));
    QFile file(path);
    if (!directory.isValid() || shown.save(KDRString(path.utf16(), path.size())) == 0 ||
        !file.open(QIODevice::ReadOnly))
        throw Failure("cannot write a picture among the temporary files");
    QByteArray const bytes = file.readAll();
    KDRBuffer const written = KDRBuffer::fromRawData(bytes.constData(), bytes.size());
    return std::string("data:image/png;base64,") + written.toBase64().constData();
}

std::string colourTextOf(unsigned int shapeKind)
{
    cv::Scalar const colour = colourOfKind(shapeKind);
    std::ostringstream text;
    text << '#' << std::hex << std::setfill('0');
    for (int channel = 2; channel >= 0; --channel)
        text << std::setw(2) << cvRound(colour[channel]);
    return text.str();
}

std::string pathThrough(std::vector<Line> const& lines)
{
    std::string path;
    for (Line const& line : lines) {
        char const* before = "M";
        for (cv::Point2f const& point : line) {
            path += before + generalText(point.x) + ' ' + generalText(point.y);
            before = "L";
        }
    }
    return path;
}

std::string figureOf(KDRShape const& figure)
{
    std::string const look = attribute("data-kind", nameOf(figure.shapeType())) +
                             attribute("stroke", colourTextOf(figure.shapeType()));
    KDRPoint centre;
    double a = 0.0;
    double b = 0.0;
    double angle = 0.0;
    if (figure.toCircle(&centre, &a))
        return "<circle" + look + attribute("cx", centre.x()) + attribute("cy", centre.y()) +
               attribute("r", a) + "/>";
    if (figure.toRect2(&centre, &a, &b, &angle))
        return "<rect" + look + attribute("x", centre.x() - a) + attribute("y", centre.y() - b) +
               attribute("width", 2.0 * a) + attribute("height", 2.0 * b) +
               attribute("transform", "rotate(" + fixedText(angle, 3) + ' ' +
                                          fixedText(centre.x(), 3) + ' ' +
                                          fixedText(centre.y(), 3) + ')') +
               "/>";
    std::string const path = pathThrough(linesOf(figure));
    return path.empty() ? "" : "<path" + look + attribute("d", path) + "/>";
}

std::string figuresOf(PagePart const& part, std::size_t number, double letter)
{
    std::string figures;
    for (int i = 0; i < part.figures.length(); ++i)
        figures += figureOf(part.figures[i]);
    std::string const id = std::to_string(number);
    return element("g" + attribute("id", "part-" + id) + attribute("data-part", id),
                   figures +
                       element("text" + attribute("x", part.label.x()) +
                                   attribute("y", part.label.y()) + attribute("font-size", letter) +
                                   attribute("stroke-width", letter / 5.0),
                               escaped(part.name))) +
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

std::string itemOf(std::string const& name, KDRVariant value, std::string const& brief)
{
    return element("span class=\"name\"", escaped(name)) +
           element("span class=\"kind\"", "kind " + std::to_string(value.variantType())) +
           element("span class=\"value\"", escaped(brief));
}

std::string entriesOf(KDRVariantArray const& recipe, bool open);

// What there is to unfold in a value: the entries of a recipe, the figures of an array.
std::string innerOf(KDRVariant const& value)
{
    KDRVariantArray nested;
    if (value.toVariantArray(&nested))
        return entriesOf(nested, false);
    KDRShapeArray figures;
    if (!value.toShapeArray(&figures) || figures.length() == 0)
        return "";
    std::string items;
    for (int i = 0; i < figures.length(); ++i)
        items +=
            element("li", std::to_string(i + 1) + ". " + escaped(inBrief(KDRVariant(figures[i])))) +
            '\n';
    return element("ul class=\"tree\"", items);
}

std::string entriesOf(KDRVariantArray const& recipe, bool open)
{
    std::string items;
    for (int i = 0; i + 1 < recipe.length(); i += 2) {
        KDRString name;
        recipe[i].toString(&name);
        KDRVariant const value = recipe[i + 1];
        std::string const item = itemOf(name.toUtf8().constData(), value, inBrief(value));
        std::string const inner = innerOf(value);
        items += element("li", inner.empty() ? item
                                             : element(open ? "details open=\"open\"" : "details",
                                                       element("summary", item) + '\n' + inner)) +
                 '\n';
    }
    return element("ul class=\"tree\"", '\n' + items);
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

// At least one number.
Histogram countsOf(KDRNumberArray const& numbers)
{
    double least = numbers[0].toDouble();
    double most = least;
    for (int i = 1; i < numbers.length(); ++i) {
        least = std::min(least, numbers[i].toDouble());
        most = std::max(most, numbers[i].toDouble());
    }
    double const range = most > least ? most - least : std::max(1.0, std::abs(most));
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

} // namespace

std::string escaped(std::string const& text)
{
    std::string result;
    for (char const each : text) {
        if (each == '<')
            result += "&lt;";
        else if (each == '>')
            result += "&gt;";
        else if (each == '&')
            result += "&amp;";
        else if (each == '"')
            result += "&quot;";
        else if (static_cast<unsigned char>(each) < 0x20)
            result += "\xEF\xBF\xBD";
        else
            result += each;
    }
    // Two code points that are no characters, the last of the first plane.
    for (char const* none : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"})
        for (auto at = result.find(none); at != std::string::npos; at = result.find(none, at))
            result.replace(at, 3, "\xEF\xBF\xBD");
    return result;
}

std::string fixedText(double value, int digits)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(digits) << value;
    return text.str();
}

std::string pictureOf(KDRImage const& image, std::vector<PagePart> const& parts,
                      KindNames const& names)
{
    // Whole coordinates are the middles of pixels.
    std::string const width = std::to_string(image.width());
    std::string const height = std::to_string(image.height());
    std::string content = "<image x=\"-0.5\" y=\"-0.5\"" + attribute("width", width) +
                          attribute("height", height) + attribute("href", dataOf(image)) + "/>\n";
    double const letter = std::max(8.0, std::min(image.width(), image.height()) / 24.0);
    for (std::size_t i = 0; i < parts.size(); ++i)
        content += figuresOf(parts[i], i + 1, letter);
    return switchesFor(parts, names) +
           element("svg class=\"picture\" role=\"img\" aria-label=\"The picture with figures\"" +
                       attribute("viewBox", "-0.5 -0.5 " + width + ' ' + height),
                   '\n' + content) +
           "\n<p class=\"readout\" aria-live=\"polite\">Point at a part or its row, or tap it, to "
           "see both.</p>\n";
}

std::string tableOf(PageTable const& table)
{
    std::string body;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        std::string cells;
        for (std::string const& text : table.rows[i])
            cells += cellOf(text);
        std::string const id = std::to_string(i + 1);
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
    if (numbers.length() == 0)
        return "";
    Histogram const histogram = countsOf(numbers);
    std::size_t const steps = histogram.counts.size();
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

std::string treeOf(KDRVariant const& packed)
{
    KDRVariantArray recipe;
    packed.toVariantArray(&recipe);
    return entriesOf(recipe, true) + '\n';
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

PageFile::PageFile(QString const& path) : file(path)
{
    if (path.isEmpty() || !file.open(QIODevice::WriteOnly))
        throw Failure("cannot write '" + path.toStdString() +
                      "': no such directory, no permission, or a directory itself");
}

void PageFile::write(std::string const& page)
{
    auto const size = static_cast<qint64>(page.size());
    if (file.write(page.data(), size) != size || !file.commit())
        throw Failure("cannot write '" + file.fileName().toStdString() +
                      "': " + file.errorString().toStdString());
}

} // namespace inspect
