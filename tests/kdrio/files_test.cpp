#include <QtCore/qbuffer.h>
#include <QtCore/qfile.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qprocess.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "equal.h"
#include "support.h"
#include "values.h"

OwnDirectory::~OwnDirectory() { std::filesystem::remove_all(m_path); }

std::string OwnDirectory::names() const
{
    std::vector<std::string> found;
    for (auto const& entry : std::filesystem::directory_iterator(m_path))
        found.push_back(entry.path().filename());
    std::sort(found.begin(), found.end());
    std::string names;
    for (std::string const& name : found)
        names += (names.empty() ? "" : " ") + name;
    return names;
}

namespace {

KDRString pathOf(std::string const& path) { return KDRString().fromUtf8(path.c_str()); }

std::string readFile(std::string const& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeFile(std::string const& path, std::string const& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

// A value that cannot be written, behind one that can.
KDRVariant unwritable()
{
    KDRVariantArray array;
    array.push_back(KDRVariant(KDRImage(nullptr, 300, 300, 1, 0, KDRImage::DataTypeUInt8)));
    array.push_back(KDRVariant(1));
    KDRVariant value(array);
    KDRVariantArray* stored = nullptr;
    value.toVariantArrayPtr(stored);
    VariantAccess::kind(VariantAccess::store(stored->operator[](1))) = 4711;
    return value;
}

// Gives the payload back its class, which its kind number hides.
void mend(KDRVariant& value)
{
    KDRVariantArray* stored = nullptr;
    value.toVariantArrayPtr(stored);
    VariantAccess::kind(VariantAccess::store(stored->operator[](1))) = KindNumber;
}

TEST(Files, AValueComesBackFromItsFile)
{
    OwnDirectory const directory;
    KDRVariant const all = everyValueInOne();
    kdrio::Error error;
    ASSERT_TRUE(kdrio::save(all, pathOf(directory.file("all \xc3\xa4.kdr")), &error))
        << words(error);
    EXPECT_EQ(directory.names(), "all \xc3\xa4.kdr");
    KDRVariant loaded;
    ASSERT_TRUE(kdrio::load(pathOf(directory.file("all \xc3\xa4.kdr")), &loaded, &error))
        << words(error);
    EXPECT_EQ(Difference::between(all, loaded), "");
    EXPECT_EQ(readFile(directory.file("all \xc3\xa4.kdr")), contents(bytesOf(all)));
}

TEST(Files, AFileIsReplacedAndKeepsItsPermissions)
{
    OwnDirectory const directory;
    std::string const path = directory.file("value.kdr");
    writeFile(path, "something else, and longer than what comes after it, by far");
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    ASSERT_TRUE(kdrio::save(KDRVariant(7), pathOf(path)));
    EXPECT_EQ(readFile(path), fileOf("\x07"));
    struct stat now = {};
    ASSERT_EQ(stat(path.c_str(), &now), 0);
    EXPECT_EQ(now.st_mode & 0777U, 0640U);
}

TEST(Files, ANewFileHasThePermissionsOfAnyNewFile)
{
    OwnDirectory const directory;
    writeFile(directory.file("other"), "");
    ASSERT_TRUE(kdrio::save(KDRVariant(7), pathOf(directory.file("value.kdr"))));
    struct stat other = {};
    struct stat made = {};
    ASSERT_EQ(stat(directory.file("other").c_str(), &other), 0);
    ASSERT_EQ(stat(directory.file("value.kdr").c_str(), &made), 0);
    EXPECT_EQ(made.st_mode, other.st_mode);
}

TEST(Files, ALinkStaysALink)
{
    OwnDirectory const directory;
    writeFile(directory.file("real.kdr"), "old");
    std::filesystem::create_symlink("real.kdr", directory.file("link.kdr"));
    ASSERT_TRUE(kdrio::save(KDRVariant(7), pathOf(directory.file("link.kdr"))));
    EXPECT_TRUE(std::filesystem::is_symlink(directory.file("link.kdr")));
    EXPECT_EQ(readFile(directory.file("real.kdr")), fileOf("\x07"));
}

// Somebody who opened the file before sees the old contents to the end: the new ones are another
// file that got its name.
TEST(Files, ReadersOfTheOldFileKeepIt)
{
    OwnDirectory const directory;
    std::string const path = directory.file("value.kdr");
    ASSERT_TRUE(kdrio::save(KDRVariant("old"), pathOf(path)));
    std::ifstream before(path, std::ios::binary);
    ASSERT_TRUE(kdrio::save(KDRVariant("new"), pathOf(path)));
    std::string const seen{std::istreambuf_iterator<char>(before),
                           std::istreambuf_iterator<char>()};
    EXPECT_EQ(seen, fileOf("\x63old"));
    EXPECT_EQ(readFile(path), fileOf("\x63new"));
}

TEST(Files, AFailedSaveLeavesTheOldFileAndNothingBesides)
{
    OwnDirectory const directory;
    std::string const path = directory.file("value.kdr");
    writeFile(path, "old");
    KDRVariant value = unwritable();
    kdrio::Error error;
    EXPECT_FALSE(kdrio::save(value, pathOf(path), &error));
    EXPECT_EQ(words(error), path + ": [1]: the format has no kind 4711");
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(directory.names(), "value.kdr");
    EXPECT_FALSE(kdrio::save(value, pathOf(directory.file("new.kdr"))));
    EXPECT_EQ(directory.names(), "value.kdr");
    mend(value);
}

// Saves an image in a process that may write small files alone, which stands in for a full disk.
[[noreturn]] void saveOnAFullDisk(std::string const& path)
{
    signal(SIGXFSZ, SIG_IGN);
    rlimit small = {};
    small.rlim_cur = small.rlim_max = 100000;
    setrlimit(RLIMIT_FSIZE, &small);
    kdrio::Error error;
    bool const isSaved =
        kdrio::save(KDRVariant(KDRImage(nullptr, 999, 999, 1, 0, KDRImage::DataTypeUInt8)),
                    pathOf(path), &error);
    fprintf(stderr, "%s\n", words(error).c_str());
    _exit(isSaved ? 1 : 0);
}

TEST(Files, AFullDiskLeavesTheOldFileAndNothingBesides)
{
    OwnDirectory const directory;
    std::string const path = directory.file("value.kdr");
    writeFile(path, "old");
    EXPECT_EXIT(saveOnAFullDisk(path), testing::ExitedWithCode(0), "value.kdr: ");
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(directory.names(), "value.kdr");
}

TEST(Files, NamesThatAreNoneAreRefused)
{
    OwnDirectory const directory;
    kdrio::Error error;
    EXPECT_FALSE(kdrio::save(KDRVariant(1), KDRString(), &error));
    EXPECT_FALSE(kdrio::save(KDRVariant(1), KDRString(""), &error));
    EXPECT_FALSE(kdrio::save(KDRVariant(1), pathOf(directory.file("")), &error));
    EXPECT_FALSE(kdrio::save(KDRVariant(1), pathOf(directory.file("no/such.kdr")), &error));
    EXPECT_NE(words(error).find("no/such.kdr: "), std::string::npos);
    KDRVariant value(5);
    EXPECT_FALSE(kdrio::load(pathOf(directory.file("none.kdr")), &value, &error));
    EXPECT_NE(words(error).find("none.kdr: "), std::string::npos);
    EXPECT_FALSE(kdrio::load(pathOf(directory.file("")), &value, &error));
    EXPECT_EQ(value.variantType(), KindNumber);
    EXPECT_EQ(directory.names(), "");
}

TEST(Files, ADeviceIsReadAndWrittenFromWhereItStands)
{
    QByteArray bytes("before");
    QBuffer device(&bytes);
    ASSERT_TRUE(device.open(QIODevice::ReadWrite));
    device.seek(6);
    ASSERT_TRUE(kdrio::save(KDRVariant("text"), &device));
    EXPECT_EQ(bytes.toStdString(), "before" + fileOf("\x64text"));
    device.seek(6);
    KDRVariant loaded;
    kdrio::Error error;
    ASSERT_TRUE(kdrio::load(&device, &loaded, &error)) << words(error);
    EXPECT_EQ(Difference::between(KDRVariant("text"), loaded), "");
}

TEST(Files, EveryValueGoesThroughADevice)
{
    KDRVariant const all = everyValueInOne();
    QByteArray bytes;
    QBuffer device(&bytes);
    ASSERT_TRUE(device.open(QIODevice::ReadWrite));
    ASSERT_TRUE(kdrio::save(all, &device));
    device.seek(0);
    KDRVariant loaded;
    kdrio::Error error;
    ASSERT_TRUE(kdrio::load(&device, &loaded, &error)) << words(error);
    EXPECT_EQ(Difference::between(all, loaded), "");
}

// A pipe tells no length and comes in pieces.
TEST(Files, ALineWithoutALengthIsReadToItsEnd)
{
    OwnDirectory const directory;
    std::string const path = directory.file("value.kdr");
    KDRVariant const all = everyValueInOne();
    ASSERT_TRUE(kdrio::save(all, pathOf(path)));
    QProcess process;
    process.start(QStringLiteral("cat"), {QString::fromStdString(path)});
    ASSERT_TRUE(process.waitForStarted());
    KDRVariant loaded;
    kdrio::Error error;
    ASSERT_TRUE(kdrio::load(&process, &loaded, &error)) << words(error);
    EXPECT_EQ(Difference::between(all, loaded), "");
    process.waitForFinished();

    kdrio::Limits limits;
    limits.bytes = 1000;
    process.start(QStringLiteral("cat"), {QString::fromStdString(path)});
    EXPECT_FALSE(kdrio::load(&process, &loaded, &error, limits));
    EXPECT_EQ(words(error), "more than 1000 bytes");
    process.kill();
    process.waitForFinished();
}

TEST(Files, NothingIsWrittenOfAValueThatCannotBe)
{
    KDRVariant value = unwritable();
    QByteArray bytes;
    QBuffer device(&bytes);
    ASSERT_TRUE(device.open(QIODevice::WriteOnly));
    EXPECT_FALSE(kdrio::save(value, &device));
    EXPECT_TRUE(bytes.isEmpty());
    KDRBuffer buffer("untouched");
    EXPECT_FALSE(kdrio::toBytes(value, &buffer));
    EXPECT_EQ(contents(buffer), "untouched");
    KDRImageArray images;
    images.push_back(KDRImage());
    EXPECT_FALSE(kdrio::toParts(value, &buffer, &images));
    EXPECT_EQ(images.length(), 1);
    EXPECT_TRUE(kdrio::toJson(value).isNull());
    mend(value);
}

TEST(Files, DevicesThatAreNotOpenAndMissingOutputsAreRefused)
{
    kdrio::Error error;
    QBuffer closed;
    KDRVariant value(5);
    EXPECT_FALSE(kdrio::save(value, static_cast<QIODevice*>(nullptr), &error));
    EXPECT_FALSE(kdrio::save(value, &closed, &error));
    EXPECT_EQ(words(error), "no device that is open for writing");
    EXPECT_FALSE(kdrio::load(static_cast<QIODevice*>(nullptr), &value, &error));
    EXPECT_FALSE(kdrio::load(&closed, &value, &error));
    EXPECT_FALSE(kdrio::toBytes(value, nullptr, &error));
    EXPECT_EQ(words(error), "no output");
    EXPECT_FALSE(kdrio::fromBytes(bytesOf(value), nullptr, &error));
    EXPECT_FALSE(kdrio::load(KDRString("x"), nullptr, &error));
    KDRBuffer bytes;
    EXPECT_FALSE(kdrio::toParts(value, &bytes, nullptr, &error));
    EXPECT_FALSE(kdrio::fromParts(bytes, KDRImageArray(), nullptr, &error));
    EXPECT_FALSE(kdrio::toBytes(value, nullptr));
}

} // namespace
