#include "run.h"

namespace {

class Select : public Dump
{
protected:
    void SetUp() override
    {
        KDRShapeArray shapes;
        shapes.push_back(circleAt(1.0, 2.0, 3.0));
        shapes.push_back(circleAt(4.0, 5.0, 6.5));
        KDRNumberArray numbers;
        for (int const number : {10, 20, 30})
            numbers.push_back(KDRNumber(number));
        save(listOf({"first", listOf({7, listOf({8, 9})}), KDRVariant(circleAt(1.5, 2.5, 3.5)),
                     KDRVariant(shapes), KDRVariant(numbers),
                     KDRVariant(KDRMatrix(1, 2, KDRMatrix::MatrixTypeInt32))}));
    }

    std::string valueAt(QString const& path) const
    {
        return printed({"value.kdr", "--json", "--select", path});
    }
    std::string refusedAt(QString const& path) const
    {
        return refused({"value.kdr", "--select", path});
    }
};

TEST_F(Select, TakesElementsOfLists)
{
    EXPECT_EQ(valueAt("[0]"), "\"first\"\n");
    EXPECT_EQ(valueAt("[1][0]"), "7\n");
    EXPECT_EQ(valueAt("[1][1][1]"), "9\n");
    EXPECT_EQ(valueAt("[4][2]"), "30\n");
    EXPECT_EQ(valueAt("[4].number array[2]"), "30\n");
    EXPECT_EQ(valueAt("[1].variant array[1][0]"), "8\n");
    EXPECT_EQ(valueAt("[1].variant array[0].number"), "7\n");
    EXPECT_EQ(valueAt(""), printed({"value.kdr", "--json"}));
}

TEST_F(Select, KeepsTheRangesOfElements)
{
    KDRNumber number(4);
    number.setMaxValue(9.0);
    KDRNumberArray numbers;
    numbers.push_back(number);
    numbers.replace(0, number); // which keeps the range
    KDRPoint point(1.0, 2.0);
    point.setXMaxVal(5.0);
    KDRPointArray points;
    points.push_back(point);
    save(listOf({KDRVariant(numbers), KDRVariant(points)}));
    EXPECT_EQ(printed({"value.kdr", "--select", "[0][0]"}),
              "  kind  name                value\n"
              "     1  value               4  iType:1,Max:9,Min:0,step:0\n");
    KDRVariant element(points[0]);
    EXPECT_EQ(valueAt("[1][0]"), kdrio::toJson(element).toUtf8().constData());
}

TEST_F(Select, TakesContentsByTheirNames)
{
    EXPECT_EQ(valueAt("[2].shape.circle.radius"), "3.5\n");
    EXPECT_EQ(valueAt("[2].shape.circle.centre.y"), "2.5\n");
    EXPECT_EQ(valueAt("[3].shape array[1].circle.radius"), "6.5\n");
    EXPECT_EQ(valueAt("[3][1].circle.radius"), "6.5\n");
    EXPECT_EQ(valueAt("[2].shape.circle.centre").substr(0, 2), "{\n");
    EXPECT_EQ(valueAt("[1][0].number"), "7\n");
    EXPECT_EQ(valueAt("[5].matrix[1]"), "0\n");
    EXPECT_EQ(valueAt("[5].matrix.type"), "\"s32\"\n");
    // Without --json, too: a field has no tree.
    EXPECT_EQ(printed({"value.kdr", "--select", "[2].shape.circle.radius"}), "3.5\n");
}

TEST_F(Select, ShowsThePieceAsIfItWereAll)
{
    EXPECT_EQ(printed({"value.kdr", "--select", "[1]"}),
              "  kind  name                value\n"
              "     1  [0]                 7  iType:1,Max:0,Min:0,step:0\n"
              "  1800  [1]\n"
              "     1    [0]               8  iType:1,Max:0,Min:0,step:0\n"
              "     1    [1]               9  iType:1,Max:0,Min:0,step:0\n");
    EXPECT_EQ(printed({"value.kdr", "--select", "[3][0]"}),
              "  kind  name                value\n"
              "     5  value               circle: x 1, y 2, radius 3\n");
}

// What the library says of a bad file can be looked at, where a good one has it.
TEST_F(Select, UnderstandsThePathsOfErrors)
{
    QFile file(this->file("value.kdr"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    QByteArray bytes = file.readAll();
    int const at = bytes.indexOf("circle");
    ASSERT_GT(at, 0);
    bytes.replace(at, 6, "cirkle");
    QFile bad(this->file("bad.kdr"));
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write(bytes);
    bad.close();
    QString const said = QString::fromStdString(refused({"bad.kdr"}));
    QString const path = said.section(", ", 1).section(": ", 0, 0);
    EXPECT_EQ(path.toStdString(), "[2].shape.cirkle") << said.toStdString();
    EXPECT_EQ(valueAt(QString(path).replace("cirkle", "circle") + ".radius"), "3.5\n");
}

TEST_F(Select, RefusesWhatIsNotThere)
{
    EXPECT_EQ(refusedAt("[6]"), "cannot select '[6]': there is no [6] in the value");
    EXPECT_EQ(refusedAt("[1][2]"), "cannot select '[1][2]': there is no [2] in [1]");
    EXPECT_EQ(refusedAt("[0][0]"), "cannot select '[0][0]': there is no [0] in [0]");
    EXPECT_EQ(refusedAt("[2].image"), "cannot select '[2].image': there is no .image in [2]");
    EXPECT_EQ(refusedAt("[2].shape.shape"),
              "cannot select '[2].shape.shape': there is no .shape in [2].shape");
    EXPECT_EQ(refusedAt("[5].matrix[2]"),
              "cannot select '[5].matrix[2]': there is no [2] in [5].matrix");
    EXPECT_EQ(refusedAt("[3][2]"), "cannot select '[3][2]': there is no [2] in [3]");
    EXPECT_EQ(refusedAt("[4].number array[3]"),
              "cannot select '[4].number array[3]': there is no [3] in [4].number array");
}

TEST_F(Select, RefusesWhatIsNoPath)
{
    for (char const* path : {"[", "[]", "[x]", "[-1]", "[+1]", "[99999999999]", "[1", "[1]2",
                             "[1].", ".", "[1]..x", "[ 1]", "[1 ]", "[1][٣]"}) {
        std::string const said = refusedAt(path);
        EXPECT_EQ(said.find(std::string("cannot select '") + path + "': "), 0U) << said;
        EXPECT_NE(said.find("expected at character "), std::string::npos) << said;
    }
}

TEST_F(Select, AFieldHasNoPictureAndNoPage)
{
    for (char const* option : {"--html", "--images"})
        EXPECT_EQ(refused({"value.kdr", "--select", "[2].shape.circle", option, "out"}),
                  "there is no picture and no page of '[2].shape.circle', which is a field of a "
                  "value; it can be printed");
    EXPECT_EQ(files(), QStringList("value.kdr"));
}

} // namespace
