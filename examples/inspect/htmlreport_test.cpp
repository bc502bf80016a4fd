// What the program writes as a page for the browser.

#include "../../tests/support/pageelements.h"
#include "inspectrun.h"

#include <QtCore/qfile.h>
#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// The elements of a page, in the order of their starts.
class Page
{
public:
    explicit Page(QString const& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        bytes = file.readAll();
        elements = elementsOf(bytes);
    }

    // The elements of a name, in another one or anywhere, that have an attribute or need none.
    std::vector<Element> all(char const* name, char const* attribute = nullptr,
                             Element const* root = nullptr) const
    {
        std::vector<Element> found;
        std::size_t const start = root == nullptr ? 0 : root->end - count(*root);
        std::size_t const end = root == nullptr ? elements.size() : root->end;
        for (std::size_t i = start; i < end; ++i)
            if (elements[i].name == name && (attribute == nullptr || elements[i].has(attribute)))
                found.push_back(elements[i]);
        return found;
    }

    Element only(char const* name) const
    {
        std::vector<Element> const found = all(name);
        EXPECT_EQ(found.size(), 1U) << name;
        return found.empty() ? Element() : found.front();
    }

    // The text of each cell of a row.
    QStringList cells(Element const& row) const
    {
        QStringList texts;
        for (Element const& cell : all("td", nullptr, &row))
            texts << cell.text;
        return texts;
    }

    std::vector<Element> const& everything() const { return elements; }
    QByteArray const& source() const { return bytes; }

private:
    // How many elements lie in one, which is told by its place.
    std::size_t count(Element const& root) const
    {
        auto const place = std::find_if(elements.begin(), elements.end(), [&](Element const& each) {
            return each.end == root.end && each.around == root.around;
        });
        return root.end - static_cast<std::size_t>(place - elements.begin()) - 1;
    }

    std::vector<Element> elements;
    QByteArray bytes;
};

// The words of the console's table of parts, row by row.
std::vector<QStringList> rowsOnTheConsole(Outcome const& run)
{
    static QRegularExpression const row("^ +(\\d+(?: +-?[\\d.]+){8}  (?:yes|no))$",
                                        QRegularExpression::MultilineOption);
    std::vector<QStringList> rows;
    for (auto all = row.globalMatch(run.out); all.hasNext();)
        rows.push_back(all.next().captured(1).split(' ', Qt::SkipEmptyParts));
    return rows;
}

class report : public example
{
protected:
    Outcome inspectWithReport(QStringList arguments) const
    {
        arguments << "--report"
                  << "report.html";
        Outcome const run = inspect(arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        return run;
    }

    Page page() const { return Page(file("report.html")); }
};

TEST_F(report, stands_beside_the_picture_and_is_named)
{
    Outcome const run = inspectWithReport({COINS});
    EXPECT_EQ(files(), QStringList({"coins-found.png", "report.html"}));
    EXPECT_TRUE(run.out.endsWith(
        "\nThe report, for the browser: " + QDir(file(".")).canonicalPath() + "/report.html\n"))
        << run.out.toStdString();
    // All else is said as without it.
    EXPECT_EQ(run.out.left(run.out.indexOf("The report, for")), inspect({COINS}).out);
}

TEST_F(report, has_a_row_and_figures_for_each_part)
{
    inspectWithReport({COINS});
    Page const page = this->page();
    std::vector<Element> const rows = page.all("tr", "data-part");
    std::vector<Element> const figures = page.all("g", "data-part");
    ASSERT_EQ(rows.size(), 24U);
    ASSERT_EQ(figures.size(), 24U);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        QString const number = QString::number(i + 1);
        SCOPED_TRACE(i + 1);
        EXPECT_EQ(rows[i].of("data-part"), number);
        EXPECT_EQ(rows[i].of("id"), "row-" + number);
        EXPECT_EQ(rows[i].of("tabindex"), "0");
        EXPECT_EQ(figures[i].of("data-part"), number);
        EXPECT_EQ(figures[i].of("id"), "part-" + number);
        EXPECT_EQ(figures[i].text.trimmed(), number);
        for (char const* kind : {"path", "rect", "circle"})
            EXPECT_EQ(page.all(kind, "data-kind", &figures[i]).size(), 1U) << kind;
    }
}

TEST_F(report, tells_the_numbers_of_the_console)
{
    std::vector<QStringList> const told = rowsOnTheConsole(inspectWithReport({COINS}));
    Page const page = this->page();
    std::vector<Element> const rows = page.all("tr", "data-part");
    ASSERT_EQ(told.size(), 24U);
    ASSERT_EQ(rows.size(), told.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(i + 1);
        QStringList cells = page.cells(rows[i]);
        ASSERT_EQ(cells.size(), 11);
        double const roundness = cells.takeAt(9).toDouble();
        EXPECT_EQ(cells, told[i]);
        double const perimeter = told[i][4].toDouble();
        EXPECT_NEAR(roundness, 4.0 * CV_PI * told[i][3].toDouble() / (perimeter * perimeter),
                    0.002);
    }
}

TEST_F(report, lays_the_figures_where_the_numbers_say)
{
    std::vector<QStringList> const told = rowsOnTheConsole(inspectWithReport({COINS}));
    Page const page = this->page();
    std::vector<Element> const figures = page.all("g", "data-part");
    ASSERT_EQ(figures.size(), told.size());
    for (std::size_t i = 0; i < figures.size(); ++i) {
        SCOPED_TRACE(i + 1);
        auto const number = [&](int column) { return told[i][column].toDouble(); };
        cv::Point2d const centre(number(1), number(2));
        Element const circle = page.all("circle", "r", &figures[i]).at(0);
        EXPECT_NEAR(circle.number("r"), number(5), 0.051);
        EXPECT_NEAR(circle.number("cx"), centre.x, 0.6);
        EXPECT_NEAR(circle.number("cy"), centre.y, 0.6);

        Element const box = page.all("rect", "transform", &figures[i]).at(0);
        EXPECT_NEAR(box.number("width"), 2.0 * number(6), 0.101);
        EXPECT_NEAR(box.number("height"), 2.0 * number(7), 0.101);
        QStringList const turn = box.of("transform").mid(7).split(' '); // behind "rotate("
        ASSERT_EQ(turn.size(), 3);
        EXPECT_NEAR(turn[0].toDouble(), number(8), 0.051);
        EXPECT_NEAR(turn[1].toDouble(), box.number("x") + box.number("width") / 2.0, 0.01);
        EXPECT_NEAR(turn[1].toDouble(), centre.x, 1.5);

        // The border encloses the area told.
        std::vector<cv::Point2f> corners;
        QString const way = page.all("path", "d", &figures[i]).at(0).of("d");
        for (QString const& corner : way.mid(1).split('L'))
            corners.emplace_back(corner.section(' ', 0, 0).toFloat(),
                                 corner.section(' ', 1, 1).toFloat());
        EXPECT_NEAR(cv::contourArea(corners), number(3), 0.051);
        EXPECT_EQ(corners.front(), corners.back());
    }
}

TEST_F(report, holds_the_picture)
{
    auto const held = [](Page const& page) {
        QString const data = page.only("image").of("href");
        QString const start = "data:image/png;base64,";
        EXPECT_TRUE(data.startsWith(start));
        QByteArray const file = QByteArray::fromBase64(data.mid(start.size()).toLatin1());
        return cv::imdecode(std::vector<char>(file.begin(), file.end()), cv::IMREAD_UNCHANGED);
    };
    auto const isSame = [](cv::Mat const& a, cv::Mat const& b) {
        return a.size() == b.size() && a.type() == b.type() && cv::norm(a, b, cv::NORM_INF) == 0.0;
    };
    inspectWithReport({COINS});
    cv::Mat const coins = cv::imread(COINS, cv::IMREAD_UNCHANGED);
    EXPECT_TRUE(isSame(held(page()), coins));
    // Whole coordinates are the middles of pixels.
    EXPECT_EQ(page().all("svg", "class").at(0).of("viewBox"), "-0.5 -0.5 384 303");
    EXPECT_EQ(page().only("image").of("x"), "-0.5");
    EXPECT_EQ(page().only("image").of("width"), "384");

    cv::Mat colour;
    cv::cvtColor(coins, colour, cv::COLOR_GRAY2BGR);
    colour -= cv::Scalar(20, 0, 10);
    write("colour.png", colour);
    inspectWithReport({"colour.png"});
    EXPECT_TRUE(isSame(held(page()), colour));

    // Deep pictures are shown from their least to their greatest value.
    cv::Mat deep;
    coins.convertTo(deep, CV_16U, 10.0);
    write("deep.png", deep);
    inspectWithReport({"deep.png"});
    cv::Mat const shown = held(page());
    double least = 0.0;
    double most = 0.0;
    cv::minMaxLoc(shown, &least, &most);
    EXPECT_EQ(shown.type(), CV_8UC1);
    EXPECT_EQ(least, 0.0);
    EXPECT_EQ(most, 255.0);
}

TEST_F(report, counts_areas_and_roundness_in_histograms)
{
    std::vector<QStringList> const told = rowsOnTheConsole(inspectWithReport({COINS}));
    Page const page = this->page();
    std::vector<Element> const charts = page.all("figure");
    ASSERT_EQ(charts.size(), 2U);
    std::vector<Element> const rows = page.all("tr", "data-part");
    for (std::size_t chart = 0; chart < 2; ++chart) {
        int const column = chart == 0 ? 3 : 9;
        double const blur = chart == 0 ? 0.051 : 0.00051; // the table is rounded
        int sum = 0;
        std::vector<Element> const bars = page.all("g", nullptr, &charts[chart]);
        EXPECT_GE(bars.size(), 4U);
        double unit = 0.0;
        for (Element const& bar : bars) {
            QString const title = page.all("title", nullptr, &bar).at(0).text;
            SCOPED_TRACE(title.toStdString());
            double const from = title.section(' ', 0, 0).toDouble();
            double const to = title.section(' ', 2, 2).chopped(1).toDouble();
            int const count = title.section(' ', 3, 3).toInt();
            auto const within = [&](double margin) {
                return std::count_if(rows.begin(), rows.end(), [&](Element const& row) {
                    double const number = page.cells(row)[column].toDouble();
                    return number >= from - margin && number < to + margin;
                });
            };
            EXPECT_GE(count, within(-blur));
            EXPECT_LE(count, within(blur));
            EXPECT_GT(count, 0);
            sum += count;
            double const height = page.all("rect", nullptr, &bar).at(0).number("height");
            unit = unit == 0.0 ? height / count : unit;
            EXPECT_NEAR(height, unit * count, 0.01); // bars are as high as they count
        }
        EXPECT_EQ(sum, 24);
    }
}

TEST_F(report, unfolds_the_recipe_as_the_console_indents_it)
{
    Outcome const run = inspectWithReport({COINS});
    Page const page = this->page();
    // Kind, name and value in one line, spaces aside.
    QStringList told;
    QString const start = "\nThe recipe, read back from a copy\n";
    int const place = run.out.indexOf(start);
    ASSERT_GE(place, 0);
    for (QString const& line : run.out.mid(place + start.size()).split('\n').mid(1)) {
        if (line.isEmpty())
            break;
        int depth = 0; // names are indented by two behind the column of kinds
        while (line[8 + depth] == ' ')
            ++depth;
        told << QString::number(depth / 2) + ' ' + line.simplified();
    }
    QStringList shown;
    std::vector<Element> const spans = page.all("span", "class");
    for (std::size_t i = 0; i < spans.size(); ++i) {
        if (spans[i].of("class") != "name")
            continue;
        ASSERT_LT(i + 2, spans.size());
        int depth = -1; // lists around the entry
        for (Element const& list : page.all("ul")) {
            std::vector<Element> const inner = page.all("span", "class", &list);
            depth += std::any_of(inner.begin(), inner.end(),
                                 [&](Element const& each) { return each.end == spans[i].end; });
        }
        EXPECT_TRUE(spans[i + 1].text.startsWith("kind "));
        shown << (QString::number(depth) + ' ' + spans[i + 1].text.mid(5) + ' ' + spans[i].text +
                  ' ' + spans[i + 2].text)
                     .simplified();
    }
    EXPECT_GT(told.size(), 15);
    EXPECT_EQ(shown.join('\n').toStdString(), told.join('\n').toStdString());
    // Recipes and arrays of figures unfold, the latter into each figure.
    std::vector<Element> const folds = page.all("details");
    EXPECT_EQ(folds.size(), 7U);
    EXPECT_EQ(page.all("summary").size(), folds.size());
    auto const circles = std::find_if(folds.begin(), folds.end(), [](Element const& fold) {
        return fold.text.startsWith("circles");
    });
    ASSERT_NE(circles, folds.end());
    EXPECT_EQ(page.all("li", nullptr, &*circles).size(), 24U);
}

TEST_F(report, tells_what_was_shared_as_the_console_does)
{
    for (QStringList const& arguments : {QStringList(COINS), QStringList("--drawn-part")}) {
        Outcome const run = inspectWithReport(arguments);
        Page const page = this->page();
        int rows = 0;
        for (Element const& row : page.all("tr")) {
            QStringList const cells = page.cells(row);
            if (cells.size() != 4)
                continue;
            ++rows;
            SCOPED_TRACE(cells.join(' ').toStdString());
            if (arguments.contains(COINS)) {
                EXPECT_TRUE(says(run, "  " + cells.join(" +") + "(  .no pointer.*)?"));
            } else {
                EXPECT_EQ(cells[3], "1");
            }
        }
        EXPECT_EQ(rows, arguments.contains(COINS) ? 18 : 9);
    }
}

TEST_F(report, shows_the_drawn_part)
{
    Outcome const run = inspectWithReport({"--drawn-part"});
    EXPECT_EQ(files(), QStringList({"part-found.png", "report.html"}));
    Page const page = this->page();
    std::vector<Element> const rows = page.all("tr", "data-part");
    std::vector<Element> const figures = page.all("g", "data-part");
    ASSERT_EQ(rows.size(), 6U);
    ASSERT_EQ(figures.size(), 6U);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        QStringList const cells = page.cells(rows[i]);
        ASSERT_EQ(cells.size(), 5);
        EXPECT_TRUE(says(run, QString("  %1: %2, found as %3").arg(cells[0], cells[1], cells[2])))
            << cells.join(' ').toStdString();
        // The numbers, which the console tells below each other under their names.
        QString found = "    found   ";
        for (QString const& quantity : cells[4].split(", "))
            found += " +" + quantity.section(' ', -1);
        EXPECT_TRUE(says(run, found)) << found.toStdString();
        EXPECT_EQ(figures[i].of("id"), "part-" + QString::number(i + 1));
        EXPECT_EQ(page.all("path", "data-kind", &figures[i]).at(0).of("data-kind"), cells[2]);
    }
}

TEST_F(report, refers_to_nothing_outside)
{
    for (QStringList const& arguments : {QStringList(COINS), QStringList("--drawn-part")}) {
        inspectWithReport(arguments);
        Page const page = this->page();
        for (Element const& element : page.everything()) {
            EXPECT_NE(element.name, "link");
            for (char const* name : {"src", "srcset", "action", "data", "poster", "xlink:href"})
                EXPECT_FALSE(element.has(name)) << name;
            for (QString const& name : element.attributes.keys()) {
                QString const value = element.attributes[name];
                if (name == "href") {
                    EXPECT_TRUE(value.startsWith("data:"));
                } else {
                    EXPECT_FALSE(value.contains("url(") || value.contains("//"));
                }
            }
        }
        for (char const* outside : {"url(", "@import", "//", "fetch", "import"}) {
            EXPECT_FALSE(page.only("style").text.contains(outside)) << outside;
            EXPECT_FALSE(page.only("script").text.contains(outside)) << outside;
        }
        EXPECT_TRUE(page.source().startsWith("<!DOCTYPE html>\n"));
    }
}

TEST_F(report, sorts_by_buttons_and_switches_each_kind_of_figure)
{
    inspectWithReport({COINS});
    Page const page = this->page();
    std::vector<Element> const heads = page.all("th", "aria-sort");
    EXPECT_EQ(heads.size(), 11U);
    for (Element const& head : heads)
        EXPECT_EQ(page.all("button", "type", &head).size(), 1U) << head.text.toStdString();
    QStringList kinds;
    for (Element const& input : page.all("input"))
        kinds << input.of("value");
    kinds.sort();
    EXPECT_EQ(kinds, QStringList({"circle", "polygon", "rectangle"}));
    for (QString const& kind : kinds) {
        auto const all = page.everything();
        EXPECT_EQ(std::count_if(all.begin(), all.end(),
                                [&](Element const& each) { return each.of("data-kind") == kind; }),
                  24)
            << kind.toStdString();
    }
}

TEST_F(report, shows_names_as_they_are)
{
    cv::Mat const coins = cv::imread(COINS, cv::IMREAD_UNCHANGED);
    write("plain.png", coins);
    for (QString const& name :
         {QString("<b>&amp; \"Tom\" & 'Jerry'<script>.png"), QString("]]> -->.png"),
          QString::fromUtf8("M\xC3\xBCnze \xE2\x82\xAC \xF0\x9F\xAA\x99.png")}) {
        SCOPED_TRACE(name.toStdString());
        ASSERT_TRUE(QFile::copy(file("plain.png"), file(name)));
        inspectWithReport({name});
        Page const page = this->page();
        EXPECT_EQ(page.only("h1").text, "24 parts in " + name);
        EXPECT_EQ(page.all("title").at(0).text, "24 parts in " + name);
        EXPECT_EQ(page.all("b").size(), 0U);
        EXPECT_EQ(page.all("script").size(), 1U);
        EXPECT_GE(page.source().count(name.toHtmlEscaped().toUtf8()), 3);
    }
}

// Characters that XML cannot hold are replaced.
TEST_F(report, survives_unprintable_names)
{
    for (QString const& sign : {QString("\x01"), QString("\n"), QString("\x1B"),
                                QString(QChar(0xFFFE)), QString(QChar(0xFFFF))}) {
        QString const name = "a" + sign + "b.png";
        ASSERT_TRUE(QFile::copy(COINS, file(name)));
        inspectWithReport({name});
        EXPECT_EQ(page().only("h1").text, QString("24 parts in a") + QChar(0xFFFD) + "b.png");
    }
}

TEST_F(report, is_whole_without_parts)
{
    write("even.png", cv::Mat(100, 100, CV_8UC1, cv::Scalar(77)));
    write("dot.png", cv::Mat(1, 1, CV_8UC1, cv::Scalar(77)));
    for (char const* name : {"even.png", "dot.png"}) {
        SCOPED_TRACE(name);
        inspectWithReport({name});
        Page const page = this->page();
        EXPECT_EQ(page.only("h1").text, QString("0 parts in ") + name);
        EXPECT_EQ(page.all("tr", "data-part").size(), 0U);
        EXPECT_EQ(page.all("th", "aria-sort").size(), 11U);
        EXPECT_EQ(page.all("figure").size(), 0U);
    }
}

TEST_F(report, counts_a_single_part_and_those_that_the_edge_cuts)
{
    cv::Mat pixels(200, 200, CV_8UC1, cv::Scalar(40));
    cv::circle(pixels, {100, 100}, 30, 200, cv::FILLED);
    cv::circle(pixels, {199, 20}, 15, 200, cv::FILLED);
    write("one.png", pixels);
    inspectWithReport({"one.png"});
    Page const page = this->page();
    EXPECT_EQ(page.only("h1").text, "1 part in one.png");
    EXPECT_TRUE(
        page.only("header").text.endsWith("one.png, 200 x 200 pixels, and 1 cut by its edge"));
    EXPECT_EQ(page.all("figure").size(), 2U);
}

TEST_F(report, takes_the_place_of_an_older_one)
{
    QFile older(file("report.html"));
    ASSERT_TRUE(older.open(QIODevice::WriteOnly));
    older.write(QByteArray(1 << 20, 'x'));
    older.close();

    // Not where the picture cannot be written: then the older one stays.
    EXPECT_EQ(inspect({COINS, "--report", "report.html", "--out", "out.gif"}).status, 2);
    EXPECT_EQ(QFile(file("report.html")).size(), 1 << 20);
    EXPECT_EQ(files(), QStringList("report.html"));

    inspectWithReport({COINS, "--out", "here.png"});
    EXPECT_EQ(files(), QStringList({"here.png", "report.html"}));
    EXPECT_EQ(page().all("tr", "data-part").size(), 24U);
}

} // namespace
