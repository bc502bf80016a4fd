#include "run.h"

#include <QtCore/qjsonarray.h>
#include <QtCore/qjsondocument.h>
#include <QtCore/qjsonobject.h>

// Values of which a short file stands for a long text, because something long stands in them many
// times. In all of them it is said once.

namespace {

constexpr int many = 5000;

class Sharing : public Dump
{
protected:
    // A list that holds a list twice, which holds one twice in turn, and so on to a flag.
    static KDRVariant doubled(int levels)
    {
        KDRVariant list = listOf({true});
        for (int i = 1; i < levels; ++i)
            list = listOf({list, list});
        return list;
    }

    // A list that holds one value many times.
    static KDRVariant repeated(KDRVariant const& value)
    {
        KDRVariantArray list;
        for (int i = 0; i < many; ++i)
            list.push_back(value);
        return KDRVariant(list);
    }

    static KDRImage image() { return KDRImage(nullptr, 40, 30, 1, 0, KDRImage::DataTypeUInt8); }

    QByteArray page() const
    {
        EXPECT_EQ(printed({"value.kdr", "--html", "page.html"}), "page.html\n");
        return read("page.html");
    }

    qint64 sizeOfFile() const { return read("value.kdr").size(); }
};

KDRShape regionOf(int runs)
{
    KDRNumberArray rows;
    KDRNumberArray columns;
    for (int i = 0; i < runs; ++i) {
        rows.push_back(KDRNumber(i / 10));
        columns.push_back(KDRNumber(i % 10 * 3));
    }
    KDRRegion region;
    region.fromRunLengthEncodeing(rows, columns, columns, 40, runs / 10);
    KDRShape shape;
    shape.fromRegion(region);
    return shape;
}

TEST_F(Sharing, OfListsIsToldWhereTheyStandAgain)
{
    save(doubled(40));
    EXPECT_LT(sizeOfFile(), 2000);
    QString const tree = QString::fromStdString(printed({"value.kdr"}));
    EXPECT_EQ(tree.count('\n'), 1 + 2 * 39 + 1);
    EXPECT_EQ(tree.count("the same as [0]"), 39);
    EXPECT_TRUE(tree.contains("\n  1800  [1]                 the same as [0]\n"));
    EXPECT_TRUE(tree.contains("  [1]               the same as [0][0]\n"));

    QByteArray const json = QByteArray::fromStdString(printed({"value.kdr", "--json"}));
    EXPECT_LT(json.size(), 200000);
    QJsonDocument const document = QJsonDocument::fromJson(json);
    ASSERT_EQ(document.array().size(), 2);
    EXPECT_EQ(document.array()[0].toObject()["shared"].toInt(-1), 0);
    EXPECT_EQ(document.array()[1], QJsonValue(QJsonObject{{"shared", 0}}));

    QByteArray const page = this->page();
    EXPECT_LT(page.size(), 50000);
    EXPECT_EQ(page.count("the same as [0]"), 39);
}

TEST_F(Sharing, HidesNoPieceFromSelection)
{
    save(doubled(40));
    // Down where the tree does not follow.
    QString path;
    for (int i = 0; i < 39; ++i)
        path += i % 2 ? "[0]" : "[1]";
    EXPECT_EQ(printed({"value.kdr", "--json", "--select", path + "[0]"}), "true\n");
    EXPECT_EQ(printed({"value.kdr", "--select", path}), "  kind  name                value\n"
                                                        "     0  [0]                 yes\n");
    QString const piece = QString::fromStdString(printed({"value.kdr", "--select", "[1]"}));
    EXPECT_EQ(piece.count('\n'), 1 + 2 * 38 + 1);
    EXPECT_TRUE(piece.contains("the same as [1][0]\n")) << piece.toStdString();
    EXPECT_EQ(printed({"value.kdr", "--select", "[1]", "--html", "page.html"}), "page.html\n");
    EXPECT_LT(read("page.html").size(), 50000);
}

// The deepest value that can be saved, with every list in it shared.
TEST_F(Sharing, IsShownToTheDeepestNesting)
{
    int const levels = kdrio::Limits().nesting;
    save(doubled(levels));
    EXPECT_EQ(QString::fromStdString(printed({"value.kdr"})).count('\n'), 1 + 2 * (levels - 1) + 1);
    QByteArray const json = QByteArray::fromStdString(printed({"value.kdr", "--json"}));
    EXPECT_EQ(json.count("\"shared\""), 2 * (levels - 1));
    EXPECT_TRUE(json.contains("true"));
    EXPECT_FALSE(QJsonDocument::fromJson(json).isNull());
    EXPECT_EQ(page().count("the same as "), levels - 1);
    QString path;
    for (int i = 0; i < levels; ++i)
        path += "[0]";
    EXPECT_EQ(printed({"value.kdr", "--select", path}), "  kind  name                value\n"
                                                        "     0  value               yes\n");
}

TEST_F(Sharing, OfOtherValuesIsToldWithThem)
{
    KDRVariant const seven(7);
    KDRVariant const text("one");
    save(listOf({seven, text, listOf({seven}), text}));
    EXPECT_EQ(printed({"value.kdr"}),
              "  kind  name                value\n"
              "     1  [0]                 7  iType:1,Max:0,Min:0,step:0\n"
              "     2  [1]                 one\n"
              "  1800  [2]\n"
              "     1    [0]               the same as [0]: 7  iType:1,Max:0,Min:0,step:0\n"
              "     2  [3]                 the same as [1]: one\n");
}

TEST_F(Sharing, OfALongFigureDrawsItUntilItIsTooMuch)
{
    save(listOf({KDRVariant(image()), repeated(KDRVariant(regionOf(20000)))}));
    EXPECT_LT(sizeOfFile(), 4000000);
    EXPECT_LT(printed({"value.kdr"}).size(), 200U * many);
    QByteArray const page = this->page();
    // Where it stands first, and as often as a quarter of a million places allow.
    EXPECT_EQ(page.count("class=\"area\""), 1 + 250000 / 20001);
    EXPECT_EQ(page.count("<td class=\"long\">the same as [1][0], not drawn again</td>"),
              many - 1 - 250000 / 20001);
    EXPECT_EQ(page.count("<tr tabindex"), many);
    EXPECT_LT(page.size(), 20000000);
}

TEST_F(Sharing, OfShortFiguresDrawsThemAll)
{
    KDRVariant const circle(circleAt(5.0, 5.0, 2.0));
    save(listOf({KDRVariant(image()), circle, KDRVariant(image()), circle}));
    QByteArray const page = this->page();
    EXPECT_EQ(page.count("<circle "), 2);
    EXPECT_FALSE(page.contains("not drawn again"));
}

TEST_F(Sharing, OfListsOfFiguresHasARowForEach)
{
    KDRShapeArray shapes;
    for (int i = 0; i < 1000; ++i)
        shapes.push_back(circleAt(i, i, 1.0));
    save(repeated(KDRVariant(shapes)));
    QByteArray const page = this->page();
    EXPECT_GT(page.count("<circle "), 1000);
    EXPECT_LT(page.count("<circle "), 50000);
    EXPECT_LT(page.count("<tr tabindex"), 50000 + many);
    // They unfold in the tree where they stand first.
    EXPECT_EQ(page.count("<li>1. circle"), 1);
}

TEST_F(Sharing, OfPicturesIsOnThePageOnce)
{
    KDRImageArray images;
    KDRImage const pixels = image();
    for (int i = 0; i < 5; ++i)
        images.push_back(pixels);
    KDRVariant const list(images);
    save(listOf({KDRVariant(pixels), repeated(KDRVariant(pixels)), list, repeated(list),
                 KDRVariant(image())}));
    QByteArray const page = this->page();
    EXPECT_EQ(page.count("data:image/png"), 2);
    // Each entry is a picture all the same; a list of pictures is looked into once.
    EXPECT_EQ(page.count("<use href=\"#pixels-1\"/>"), many + 5);
    EXPECT_EQ(page.count("<svg class=\"picture\""), 1 + many + 5 + 1);
    EXPECT_EQ(printed({"value.kdr", "--images", "."}), "./0.png\n./4.png\n");
    EXPECT_EQ(printed({"value.kdr", "--images", ".", "--select", "[3][0]"}), "./3-0-0.png\n");
}

TEST_F(Sharing, OfNumbersHasOneTable)
{
    KDRNumberArray numbers;
    for (int i = 0; i < 1000; ++i)
        numbers.push_back(KDRNumber(i));
    save(repeated(KDRVariant(numbers)));
    QByteArray const page = this->page();
    EXPECT_EQ(page.count("<table"), 1);
    EXPECT_EQ(page.count("the same as [0]: 1000 numbers"), many - 1);
}

} // namespace
