#include "page.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

KDRShape lineAt(double x)
{
    KDRPoint start(x, 0.0);
    KDRPoint end(x, 9.0);
    KDRShape shape;
    shape.fromLine(start, end);
    return shape;
}

// A region of runs: row, first and last column.
KDRVariant regionOf(std::vector<std::array<long long, 3>> const& runs)
{
    KDRNumberArray columns[3];
    for (auto const& run : runs)
        for (std::size_t i = 0; i < 3; ++i)
            columns[i].push_back(KDRNumber(run[i]));
    KDRRegion region;
    region.fromRunLengthEncodeing(columns[0], columns[1], columns[2], 40, 30);
    KDRShape shape;
    shape.fromRegion(region);
    return KDRVariant(shape);
}

TEST_F(Page, DrawsFiguresOverTheImageBeforeThem)
{
    KDRVariant const circle(circleAt(5.0, 5.0, 2.0));
    KDRVariant const line(lineAt(3.0));
    // Before any image, after the first, after the second, in a list of its own, and in one with
    // an image.
    auto const page =
        pageOf(listOf({1, circle, KDRVariant(image()), line, KDRVariant(image(50)), circle,
                       listOf({"a", listOf({3, line})}), listOf({KDRVariant(image(60)), circle})}));
    EXPECT_EQ(figuresIn(page), QStringList({"circle line", "circle line", "circle"}));
    QStringList boxes;
    for (Element const& each : page)
        if (each.of("class") == "picture")
            boxes << each.of("viewBox");
    EXPECT_EQ(boxes, QStringList({"-0.5 -0.5 40 30", "-0.5 -0.5 50 30", "-0.5 -0.5 60 30"}));
    EXPECT_EQ(texts(named(page, "h2")),
              QStringList({"Picture [2], 40 x 30 pixels", "Figures", "Picture [4], 50 x 30 pixels",
                           "Figures", "Picture [7][0], 60 x 30 pixels", "Figures", "The value"}));
}

// A list in between changes nothing for what follows it.
TEST_F(Page, GoesOnWithTheImageBeforeAnInnerList)
{
    KDRVariant const circle(circleAt(5.0, 5.0, 2.0));
    auto const page = pageOf(
        listOf({KDRVariant(image()), KDRVariant(image(50)), listOf({KDRVariant(image(60)), circle}),
                listOf({circle, circle}), KDRVariant(lineAt(3.0))}));
    EXPECT_EQ(figuresIn(page), QStringList({"", "circle circle line", "circle"}));
}

TEST_F(Page, DrawsFiguresWithoutAnImageOnTheirOwn)
{
    KDRShapeArray shapes;
    shapes.push_back(circleAt(100.0, 50.0, 20.0));
    shapes.push_back(circleAt(200.0, 50.0, 20.0));
    auto const page = pageOf(listOf({1, KDRVariant(shapes), 3}));
    EXPECT_EQ(figuresIn(page), QStringList("circle circle"));
    EXPECT_TRUE(named(page, "image").empty());
    for (Element const& each : page) {
        if (each.of("class") != "picture")
            continue;
        // Around both, with a little margin.
        QStringList const box = each.of("viewBox").split(' ');
        EXPECT_NEAR(box[0].toDouble(), 80.0, 10.0);
        EXPECT_NEAR(box[1].toDouble(), 30.0, 10.0);
        EXPECT_NEAR(box[2].toDouble(), 140.0, 20.0);
        EXPECT_NEAR(box[3].toDouble(), 40.0, 20.0);
    }
}

TEST_F(Page, TellsFiguresApartOverSeveralPictures)
{
    KDRVariant const circle(circleAt(5.0, 5.0, 2.0));
    auto const page = pageOf(listOf({KDRVariant(image()), circle, KDRVariant(image()), circle}));
    QStringList ids;
    for (Element const& each : page)
        if (each.attributes.contains("id"))
            ids << each.of("id");
    ids.sort();
    EXPECT_EQ(ids, QStringList({"part-1", "part-2", "pixels-1", "pixels-2", "row-1", "row-2"}));
    QStringList parts;
    for (Element const& each : page)
        if (each.attributes.contains("data-part"))
            parts << each.name + each.of("data-part");
    EXPECT_EQ(parts, QStringList({"g1", "tr1", "g2", "tr2"}));
    EXPECT_EQ(texts(named(page, "td")),
              QStringList({"1", "[1]", "[1]", "circle: x 5, y 5, radius 2", "1", "[3]", "[3]",
                           "circle: x 5, y 5, radius 2"}));
}

TEST_F(Page, TellsFiguresWithoutAnImageApartFromOthers)
{
    KDRVariant const circle(circleAt(5.0, 5.0, 2.0));
    auto const page = pageOf(listOf({listOf({KDRVariant(image()), circle}), circle}));
    EXPECT_EQ(figuresIn(page), QStringList({"circle", "circle"}));
    QStringList parts;
    for (Element const& each : page)
        if (each.attributes.contains("data-part"))
            parts << each.name + each.of("data-part");
    EXPECT_EQ(parts, QStringList({"g1", "tr1", "g2", "tr2"}));
}

TEST_F(Page, DrawsRegionsRunByRun)
{
    auto const page = pageOf(listOf({KDRVariant(image()), regionOf({{2, 5, 9}, {3, 6, 6}})}));
    std::vector<Element> const paths = named(page, "path", "data-kind");
    ASSERT_EQ(paths.size(), 1U);
    // From edge to edge of the pixels, whose middles are whole.
    EXPECT_EQ(paths[0].of("d"), "M4.5 1.5H9.5v1H4.5zM5.5 2.5H6.5v1H5.5z");
    EXPECT_EQ(texts(named(page, "td")).last(), "region: pixels 6, runs 2");
}

// They are where they are, and the picture is no larger for that.
TEST_F(Page, DrawsRegionsBeyondThePicture)
{
    auto const page =
        pageOf(listOf({KDRVariant(image()), regionOf({{-3, -30, -5}, {31, 38, 50}})}));
    std::vector<Element> const paths = named(page, "path", "data-kind");
    ASSERT_EQ(paths.size(), 1U);
    EXPECT_EQ(paths[0].of("d"), "M-30.5 -3.5H-4.5v1H-30.5zM37.5 30.5H50.5v1H37.5z");
    EXPECT_EQ(texts(named(page, "td")).last(), "region: pixels 39, runs 2");
    for (Element const& each : named(page, "svg", "viewBox"))
        EXPECT_EQ(each.of("viewBox"), "-0.5 -0.5 40 30");
    // Without a picture, the ground reaches around them.
    auto const alone = pageOf(regionOf({{-3, -30, -5}, {31, 38, 50}}));
    ASSERT_EQ(named(alone, "svg", "viewBox").size(), 1U);
    QStringList const box = named(alone, "svg", "viewBox")[0].of("viewBox").split(' ');
    EXPECT_LE(box[0].toDouble(), -30.5);
    EXPECT_LE(box[1].toDouble(), -3.5);
    EXPECT_GE(box[0].toDouble() + box[2].toDouble(), 50.5);
    EXPECT_GE(box[1].toDouble() + box[3].toDouble(), 31.5);
    EXPECT_LT(box[2].toDouble(), 95.0);
}

// The name of a region stands in its middle run.
TEST_F(Page, NamesRegionsInTheirMiddle)
{
    auto const page =
        pageOf(listOf({KDRVariant(image()), regionOf({{2, 5, 9}, {3, 10, 20}, {4, 6, 6}})}));
    Element const name = named(page, "text").at(0);
    EXPECT_EQ(name.text, "1");
    EXPECT_EQ(name.of("x").toDouble(), 15.0);
    EXPECT_EQ(name.of("y").toDouble(), 3.0);
}

TEST_F(Page, DrawsNothingThatIsTooFarAway)
{
    double const far = 1e7;
    for (double const sign : {1.0, -1.0})
        for (double const x : {far, far + 2.0}) {
            SCOPED_TRACE(sign * x);
            KDRPoint tail(0.0, 0.0);
            KDRPoint head(sign * x, 3.0);
            KDRShape arrow;
            arrow.fromArrow(tail, head);
            KDRString letters("word");
            KDRFont font;
            KDRShape text;
            text.fromText(head, letters, font);
            KDRPointArray corners;
            corners.push_back(head);
            corners.push_back(tail);
            corners.push_back(KDRPoint(5.0, 9.0));
            KDRShape polygon;
            polygon.fromPolygon(corners);
            auto const column = static_cast<long long>(sign * x);
            auto const page = pageOf(
                listOf({KDRVariant(image()), KDRVariant(circleAt(sign * x, 1.0, 2.0)),
                        KDRVariant(circleAt(1.0, sign * x, 2.0)), KDRVariant(lineAt(sign * x)),
                        KDRVariant(arrow), KDRVariant(text), KDRVariant(polygon),
                        regionOf({{1, column, column}}), regionOf({{column, 1, 1}}),
                        regionOf({{1, std::min(column, 1LL), std::max(column, 1LL)}})}));
            EXPECT_EQ(named(page, "path", "data-kind").size() +
                          named(page, "circle", "data-kind").size() +
                          named(page, "text", "data-kind").size(),
                      x == far ? 9U : 0U);
            // Rows tell of them all the same.
            EXPECT_EQ(named(page, "tr", "data-part").size(), 9U);
            // Names stand where something is drawn.
            for (Element const& name : named(page, "text"))
                EXPECT_LE(std::abs(name.of("x").toDouble()), far);
            // Nor does it stretch a ground of its own.
            auto const alone = pageOf(listOf({KDRVariant(circleAt(5.0, 5.0, 2.0)),
                                              KDRVariant(lineAt(sign * x)), KDRVariant(arrow)}));
            ASSERT_EQ(named(alone, "svg", "viewBox").size(), 1U);
            EXPECT_EQ(named(alone, "svg", "viewBox")[0].of("viewBox").split(' ')[2].toDouble() >
                          far / 2.0,
                      x == far);
        }
}

TEST_F(Page, DrawsArcsOnceAroundAtMost)
{
    struct Arc
    {
        double start;
        double end;
        int steps; // of two degrees
    };
    for (Arc const& each : {Arc{0.0, 90.0, 45}, Arc{10.0, -50.0, 30}, Arc{0.0, 360.0, 180},
                            Arc{0.0, 100000.0, 180}, Arc{300.0, -100000.0, 180}}) {
        SCOPED_TRACE(each.end);
        KDRPoint centre(100.0, 50.0);
        KDRShape arc;
        arc.fromArc(centre, 40.0, each.start, each.end);
        auto const page = pageOf(listOf({KDRVariant(image()), KDRVariant(arc)}));
        std::vector<Element> const paths = named(page, "path", "data-kind");
        ASSERT_EQ(paths.size(), 1U);
        QStringList const places = paths[0].of("d").mid(1).split('L');
        ASSERT_EQ(places.size(), each.steps + 1);
        constexpr double degree = 3.14159265358979323846 / 180.0;
        double const end = each.start + (each.end < each.start ? -2.0 : 2.0) * each.steps;
        for (auto const& [place, angle] :
             {std::pair(places.first(), each.start), std::pair(places.last(), end)}) {
            EXPECT_NEAR(place.section(' ', 0, 0).toDouble(),
                        100.0 + 40.0 * std::cos(angle * degree), 0.001);
            EXPECT_NEAR(place.section(' ', 1, 1).toDouble(), 50.0 + 40.0 * std::sin(angle * degree),
                        0.001);
        }
    }
}

TEST_F(Page, ShowsDeepPicturesFromTheirLeastToTheirGreatestValue)
{
    double const infinity = std::numeric_limits<double>::infinity();
    double const none = std::nan("");
    // Whose difference is no double; no numbers; no difference; nothing but what is no number.
    EXPECT_EQ(greysOf({-1e308, none, 1e308, 0.0}), std::vector<int>({0, 0, 255, 128}));
    EXPECT_EQ(greysOf({-infinity, 10.0, 20.0, infinity}), std::vector<int>({0, 0, 255, 255}));
    EXPECT_EQ(greysOf({-1.5e308, 1.5e308, 1.2e308}), std::vector<int>({0, 255, 230}));
    EXPECT_EQ(greysOf({7.0, 7.0}), std::vector<int>({0, 0}));
    EXPECT_EQ(greysOf({none, infinity, -infinity}), std::vector<int>({0, 0, 0}));
}

TEST_F(Page, SurvivesNumbersBeyondAllPictures)
{
    double const infinity = std::numeric_limits<double>::infinity();
    KDRVariantArray list;
    list.push_back(KDRVariant(image()));
    for (double const number : {infinity, -infinity, std::nan(""), 1e300, -1e300, 1e-320}) {
        list.push_back(KDRVariant(circleAt(number, 1.0, 2.0)));
        list.push_back(KDRVariant(circleAt(1.0, 1.0, number)));
        KDRPoint centre(1.0, number);
        KDRShape arc;
        arc.fromArc(centre, 5.0, number, -number);
        list.push_back(KDRVariant(arc));
        KDRShape torus;
        KDRPoint middle(5.0, 5.0);
        torus.fromTorus(middle, 1.0, number, -1e300, number);
        list.push_back(KDRVariant(torus));
        KDRNumberArray numbers;
        for (int i = 0; i < 10; ++i)
            numbers.push_back(KDRNumber(i % 2 ? number : -number));
        list.push_back(KDRVariant(numbers));
    }
    for (Element const& each : pageOf(KDRVariant(list)))
        for (char const* name : {"cx", "cy", "r", "d", "x", "y", "viewBox", "width", "height"}) {
            EXPECT_FALSE(each.of(name).contains("nan")) << name;
            EXPECT_FALSE(each.of(name).contains("inf")) << name;
            EXPECT_LT(each.of(name).section(' ', 0, 0).size(), 20000) << name;
        }
}

TEST_F(Page, EscapesTheTextsOfTheValue)
{
    char const* const hostile = "<script>alert(1)</script>\"'&amp;]]>-->";
    KDRPoint anchor(3.0, 4.0);
    KDRString text(hostile);
    KDRFont font;
    KDRShape label;
    label.fromText(anchor, text, font);
    KDRNumberArray numbers;
    numbers.push_back(KDRNumber(1));
    auto const page =
        pageOf(listOf({hostile, listOf({hostile, hostile}), "<b>", KDRVariant(label),
                       "<i onload=\"x\">", KDRVariant(numbers), "\x01\x1b", KDRVariant(image())}));
    EXPECT_EQ(named(page, "script").size(), 1U);
    EXPECT_TRUE(named(page, "b").empty());
    EXPECT_TRUE(named(page, "i").empty());
    EXPECT_GE(read("page.html").count("&lt;script&gt;"), 4);
    int drawn = 0;
    for (Element const& each : page)
        drawn += each.name == "text" && each.text == hostile ? 1 : 0;
    EXPECT_EQ(drawn, 1);
    // Of the file itself, too.
    QString const name = "<script>&\"'.kdr";
    ASSERT_TRUE(QFile::copy(file("value.kdr"), file(name)));
    EXPECT_EQ(printed({name, "--html", "page.html"}), "page.html\n");
    EXPECT_EQ(read("page.html").count("<script>"), 1);
    EXPECT_EQ(read("page.html").count("<h1>&lt;script&gt;&amp;&quot;'.kdr</h1>"), 1);
}

TEST_F(Page, UnfoldsTheTree)
{
    auto const page = pageOf(listOf({"outer", listOf({"inner", listOf({"x", 7})}), "y", "z"}));
    QStringList names;
    for (Element const& each : page)
        if (each.of("class") == "name")
            names << QString::number(each.around.count("details.")) + ' ' + each.text;
    EXPECT_EQ(names, QStringList({"1 [1] outer", "2 [1] inner", "2 [1] x", "0 [3] y"}));
    EXPECT_EQ(named(page, "details", "open").size(), 1U);
}

TEST_F(Page, IsOfAPieceWhereOneIsSelected)
{
    KDRVariant const whole = listOf({1, listOf({KDRVariant(image()), circleAt(1.0, 2.0, 3.0)})});
    auto const page = pageOf(whole, {"--select", "[1]"});
    EXPECT_EQ(texts(named(page, "h1")), QStringList("value.kdr, [1]"));
    EXPECT_EQ(texts(named(page, "h2")),
              QStringList({"Picture [1][0], 40 x 30 pixels", "Figures", "The value"}));
}

} // namespace
