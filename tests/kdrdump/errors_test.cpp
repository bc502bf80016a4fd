#include "run.h"

namespace {

TEST_F(Dump, RefusesWhatItCannotReadInOneLine)
{
    EXPECT_EQ(refused({"missing.kdr"}), "missing.kdr: No such file or directory");
    EXPECT_EQ(refused({"."}).substr(0, 3), ".: ");
    EXPECT_EQ(refused({"a\nb\x1b"}), "a?b?: No such file or directory");
    save(listOf({1, "two", 3.5}));
    QByteArray const whole = read("value.kdr");
    for (int length = 0; length < whole.size(); ++length) {
        QFile part(file("part.kdr"));
        ASSERT_TRUE(part.open(QIODevice::WriteOnly));
        part.write(whole.left(length));
        part.close();
        EXPECT_EQ(refused({"part.kdr"}).substr(0, 10), "part.kdr: ") << length;
    }
}

TEST_F(Dump, RefusesWordsThatItDoesNotKnow)
{
    std::string const usage =
        "usage: kdrdump FILE [--json] [--images DIR] [--html OUT] [--select PATH]";
    EXPECT_EQ(refused({}), "name one file; " + usage);
    EXPECT_EQ(refused({"a", "b"}), "name one file; " + usage);
    EXPECT_EQ(refused({"a", "--wrong"}), "Unknown option 'wrong'.; " + usage);
    EXPECT_EQ(refused({"a", "--html"}), "Missing value after '--html'.; " + usage);
}

TEST_F(Dump, RefusesPagesThatItCannotWrite)
{
    save(7);
    QByteArray const before = read("value.kdr");
    for (char const* name : {"missing/page.html", ".", ""})
        EXPECT_EQ(refused({"value.kdr", "--html", name}).substr(0, 14), "cannot write '") << name;
    EXPECT_EQ(refused({"value.kdr", "--html", "value.kdr"}),
              "the page would overwrite the value 'value.kdr'");
    EXPECT_EQ(refused({"value.kdr", "--html", "./value.kdr"}),
              "the page would overwrite the value 'value.kdr'");
    EXPECT_EQ(read("value.kdr"), before);
    EXPECT_EQ(files(), QStringList("value.kdr"));
}

// Where one of two outputs cannot be written, the page is not there either.
TEST_F(Dump, LeavesNoHalfPage)
{
    save(7);
    refused({"value.kdr", "--html", "page.html", "--images", "missing"});
    EXPECT_EQ(files(), QStringList("value.kdr"));
}

TEST_F(Dump, FailsWhereStandardOutputDoes)
{
    save(7);
    QProcess process;
    process.start("sh",
                  {"-c", QString("\"%1\" \"%2\" >/dev/full").arg(KDRDUMP, file("value.kdr"))});
    ASSERT_TRUE(process.waitForFinished(100000));
    EXPECT_EQ(process.exitCode(), 2);
    EXPECT_EQ(process.readAllStandardError(), "kdrdump: cannot write to standard output\n");
}

} // namespace
