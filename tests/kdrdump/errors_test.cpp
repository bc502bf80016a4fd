#include "run.h"

namespace {

TEST_F(Dump, RefusesWhatItCannotReadInOneLine)
{
    EXPECT_EQ(refused({"missing.kdr"}), "missing.kdr: No such file or directory");
    EXPECT_EQ(refused({"."}).substr(0, 3), ".: ");
    EXPECT_EQ(refused({"a\nb\x1b\x7f"}), "a?b??: No such file or directory");
    // Those of Latin-1 command terminals too, and others turn the line around.
    EXPECT_EQ(refused({QString::fromUtf8("\u009b2J\u202eä\u2028🙂")}),
              "?2J?ä?🙂: No such file or directory");
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
    ASSERT_TRUE(QFile::link(file("value.kdr"), file("link")));
    EXPECT_EQ(refused({"value.kdr", "--html", "link"}),
              "the page would overwrite the value 'value.kdr'");
    EXPECT_EQ(refused({"link", "--html", "value.kdr"}),
              "the page would overwrite the value 'link'");
    EXPECT_EQ(read("value.kdr"), before);
}

// Pictures have names of their own, which may be those of other files.
TEST_F(Dump, RefusesPicturesInPlaceOfOtherFiles)
{
    KDRVariant const image(KDRImage(nullptr, 4, 3, 1, 0, KDRImage::DataTypeUInt8));
    save(listOf({image, KDRVariant(KDRImage(nullptr, 4, 3, 1, 0, KDRImage::DataTypeUInt8))}));
    ASSERT_TRUE(QFile::rename(file("value.kdr"), file("1.png")));
    QByteArray const before = read("1.png");
    EXPECT_EQ(refused({"1.png", "--images", "."}), "the picture would overwrite the value '1.png'");
    ASSERT_TRUE(QDir(file(".")).mkdir("out"));
    for (char const* page : {"out/0.png", "./out/../out/1.png"})
        EXPECT_EQ(refused({"1.png", "--images", "out", "--html", page}),
                  QString("the page would overwrite the picture 'out/%1'")
                      .arg(QString(page).right(5))
                      .toStdString());
    EXPECT_EQ(read("1.png"), before);
    EXPECT_EQ(files(), QStringList({"1.png", "out"}));
    EXPECT_TRUE(QDir(file("out")).entryList(QDir::Files).isEmpty());
    EXPECT_EQ(printed({"1.png", "--images", "out", "--html", "out/page.html"}),
              "out/0.png\nout/1.png\nout/page.html\n");
}

// Where one of two outputs cannot be written, the other is not there either.
TEST_F(Dump, WritesNothingWhereItCannotWriteAll)
{
    save(KDRVariant(KDRImage(nullptr, 4, 3, 1, 0, KDRImage::DataTypeUInt8)));
    refused({"value.kdr", "--html", "page.html", "--images", "missing"});
    EXPECT_EQ(files(), QStringList("value.kdr"));
    refused({"value.kdr", "--html", "missing/page.html", "--images", "."});
    EXPECT_EQ(files(), QStringList("value.kdr"));
}

TEST_F(Dump, FailsWhereStandardOutputDoes)
{
    save(listOf({KDRVariant(circleAt(1.0, 2.0, 3.0))}));
    for (char const* options : {"", "--json", "--select [0].shape.circle", "--help", "--version"}) {
        QProcess process;
        process.start(
            "sh",
            {"-c",
             QString("\"%1\" \"%2\" %3 >/dev/full").arg(KDRDUMP, file("value.kdr"), options)});
        ASSERT_TRUE(process.waitForFinished(100000));
        EXPECT_EQ(process.exitCode(), 2) << options;
        EXPECT_EQ(process.readAllStandardError(), "kdrdump: cannot write to standard output\n")
            << options;
    }
}

} // namespace
