#include "run.h"

#include "../kdrio/values.h"

namespace {

TEST_F(Dump, PrintsALineForEachValueOfARecipe)
{
    KDRNumber level(26);
    level.setMinValue(8.0);
    level.setMaxValue(254.0);
    KDRVariant const number(level);
    KDRNumber* stored = nullptr;
    KDRVariant(number).toNumberPtr(stored);
    *stored = level;
    save(listOf({"parameters", listOf({"level", number, "found", true}), "centre",
                 KDRPoint(1.5, -2.0), "circle", circleAt(3.0, 4.0, 5.0)}));
    EXPECT_EQ(printed({"value.kdr"}),
              "  kind  name                value\n"
              "  1800  [1] parameters\n"
              "     1    [1] level         26  iType:1,Max:254,Min:8,step:8\n"
              "     0    [3] found         yes\n"
              "     3  [3] centre          point (1.5, -2)\n"
              "     5  [5] circle          circle: x 3, y 4, radius 5\n");
}

TEST_F(Dump, PrintsPlacesWhereThereAreNoNames)
{
    save(listOf({"one", 2, 3}));
    EXPECT_EQ(printed({"value.kdr"}),
              "  kind  name                value\n"
              "     2  [0]                 one\n"
              "     1  [1]                 2  iType:1,Max:0,Min:0,step:0\n"
              "     1  [2]                 3  iType:1,Max:0,Min:0,step:0\n");
    // Names that are not all different name nothing, nor do empty ones.
    save(listOf({"a", true, "a", false}));
    EXPECT_EQ(QString::fromStdString(printed({"value.kdr"})).count('\n'), 5);
    save(listOf({"", true}));
    EXPECT_EQ(QString::fromStdString(printed({"value.kdr"})).count('\n'), 3);
    save(KDRVariant(false));
    EXPECT_EQ(printed({"value.kdr"}), "  kind  name                value\n"
                                      "     0  value               no\n");
}

// One file with values of every kind; what is printed of them is kept beside this test.
TEST_F(Dump, PrintsEveryKind)
{
    QFile expected(QStringLiteral(EXPECTED_TREE));
    ASSERT_TRUE(expected.open(QIODevice::ReadOnly));
    std::string const tree = printed({SAVED_FILES "/everything.kdr"});
    EXPECT_EQ(tree, expected.readAll().toStdString());
    for (NamedValue const& named : everyNamedValue()) {
        int const kind = KDRVariant(named.value).variantType();
        EXPECT_NE(tree.find('\n' + QString("%1  [").arg(kind, 6).toStdString()), std::string::npos)
            << kind;
    }
}

TEST_F(Dump, NamesTheKindNumbersAndPlacesOfAllValues)
{
    save(everyValueInOne());
    QStringList const lines = QString::fromStdString(printed({"value.kdr"})).split('\n');
    std::vector<NamedValue> const values = everyNamedValue();
    QStringList outermost;
    for (QString const& line : lines.mid(1))
        if (line.mid(8).startsWith('['))
            outermost << line;
    ASSERT_EQ(outermost.size(), static_cast<int>(values.size()));
    for (int i = 0; i < outermost.size(); ++i) {
        int const kind = KDRVariant(values[static_cast<std::size_t>(i)].value).variantType();
        EXPECT_TRUE(outermost[i].startsWith(QString("%1  [%2]").arg(kind, 6).arg(i)))
            << outermost[i].toStdString();
    }
}

TEST_F(Dump, ShowsASharedListOnce)
{
    // Each list holds the one before twice: thirty of them are 2^30 lines.
    KDRVariant list = listOf({true});
    for (int i = 0; i < 30; ++i)
        list = listOf({list, list});
    save(list);
    std::string const tree = printed({"value.kdr"});
    EXPECT_EQ(QString::fromStdString(tree).count('\n'), 1 + 2 * 30 + 1);
    EXPECT_NE(tree.find("\n  1800  [1]                 the same as [0]\n"), std::string::npos);
    EXPECT_NE(tree.find("  [1]               the same as [0][0]\n"), std::string::npos);
    printed({"value.kdr", "--html", "page.html", "--images", "."});
    EXPECT_LT(read("page.html").size(), 100000);
}

TEST_F(Dump, KeepsControlCharactersFromTheTerminal)
{
    save(listOf({"a\x1b[2Jb\nc", "\x1b]0;title\x07"}));
    std::string const tree = printed({"value.kdr"});
    EXPECT_EQ(tree.find('\x1b'), std::string::npos);
    EXPECT_EQ(QString::fromStdString(tree).count('\n'), 2);
    EXPECT_NE(tree.find("\"a\\u001b[2Jb\\nc\""), std::string::npos) << tree;
}

TEST_F(Dump, PrintsTheJsonOfTheLibrary)
{
    KDRVariant const all = everyValueInOne();
    save(all);
    EXPECT_EQ(printed({"value.kdr", "--json"}), kdrio::toJson(all).toUtf8().constData());
}

TEST_F(Dump, TellsItsVersionAndItsOptions)
{
    EXPECT_EQ(printed({"--version"}), "kdrdump " KDRDUMP_VERSION "\n");
    QString const help = QString::fromStdString(printed({"--help"}));
    for (char const* option : {"--json", "--images <DIR>", "--html <OUT>", "--select <PATH>"})
        EXPECT_TRUE(help.contains(option)) << option;
}

} // namespace
