#include <algorithm>
#include <csignal>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include <grp.h>
#include <gtest/gtest.h>
#include <opencv2/core.hpp>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "child.h"
#include "console.h"
#include "imagefiles.h"

namespace {

using Names = std::vector<std::string>;

constexpr uid_t nobody = 65534;
constexpr uid_t somebody = 12345;
constexpr gid_t someGroup = 54321;

char const* const extensions[] = {".png", ".jpg", ".tif", ".bmp", ".ppm"};

/// A colour picture that no format makes small.
VelImage noise(int width, int height)
{
    VelImage image(nullptr, width, height, 3, 0, VEL_8U);
    std::mt19937 random(5);
    std::generate_n(image.ImageData(), image.Step() * height,
                    [&random] { return static_cast<unsigned char>(random()); });
    return image;
}

/// Acts as @p user from now on, with the groups @p groups, for good or so that it could come back.
bool become(uid_t user, std::vector<gid_t> const& groups = {}, bool forGood = true)
{
    return ::setgroups(groups.size(), groups.data()) == 0 &&
           (forGood ? ::setresgid(user, user, user) : ::setegid(user)) == 0 &&
           (forGood ? ::setresuid(user, user, user) : ::seteuid(user)) == 0;
}

struct stat statusOf(std::string const& path)
{
    struct stat status = {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status;
}

/// Saving over a file that is there.
class VelImageReplace : public testing::Test
{
protected:
    VelImageReplace()
    {
        std::filesystem::permissions(directory.path("."), std::filesystem::perms(0777));
    }

    /// Puts a file of the old contents there.
    std::string oldFile(std::string const& name) const
    {
        writeFile(directory.path(name), old);
        return directory.path(name);
    }

    static bool savesTo(std::string const& path)
    {
        return noise(9, 7).SaveImage(path.c_str(), 6) == 1;
    }

    /// Whether the picture of savesTo() is in the file.
    static bool holdsTheNew(std::string const& path)
    {
        VelImage image;
        return image.ReadImage(path.c_str()) == 1 && same(viewOf(image), viewOf(noise(9, 7)));
    }

    bool holdsTheOld(std::string const& path) const { return readFile(path) == old; }

    Bytes const old = bytesOf("precious");
    TemporaryDirectory directory;
};

/// A part of every length arrives, and no more.
TEST_F(VelImageReplace, AFileOverTheSizeLimitKeepsTheOldOneAndLeavesNothingBehind)
{
    VelImage const image = noise(100, 80);
    Console console;
    for (char const* extension : extensions) {
        std::string const name = std::string("image") + extension;
        std::string const path = oldFile(name);
        ASSERT_EQ(image.SaveImage(directory.path(std::string("whole") + extension).c_str(), 6), 1);
        rlim_t const whole =
            std::filesystem::file_size(directory.path(std::string("whole") + extension));
        std::filesystem::remove(directory.path(std::string("whole") + extension));
        for (rlim_t limit : {rlim_t{0}, rlim_t{1}, whole / 2, whole - 1, whole}) {
            // The signal of the limit ends a process that does not ignore it.
            for (auto const onSignal : {SIG_IGN, SIG_DFL}) {
                oldFile(name);
                int const answer = inChild([&] {
                    rlimit const size = {limit, limit};
                    std::signal(SIGXFSZ, onSignal);
                    ::setrlimit(RLIMIT_FSIZE, &size);
                    return image.SaveImage(path.c_str(), 6);
                });
                EXPECT_EQ(answer, limit == whole ? 1 : 0) << extension << ' ' << limit;
                EXPECT_EQ(holdsTheOld(path), limit < whole) << extension << ' ' << limit;
                EXPECT_EQ(directory.entries(), Names({name}));
            }
        }
        std::filesystem::remove(path);
    }
    EXPECT_EQ(console.caught(), "");
}

TEST_F(VelImageReplace, AFullDiskKeepsTheOldFileAndLeavesNothingBehind)
{
    constexpr int maySkip = 77;
    VelImage const small = noise(20, 20);
    VelImage const large = noise(300, 200);
    Console console;
    int const answer = inChild([&] {
        // The mount is this process's own and goes with it.
        if (::unshare(CLONE_NEWNS) != 0 ||
            ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("none", directory.path(".").c_str(), "tmpfs", 0, "size=64k") != 0)
            return maySkip;
        int failures = 0;
        for (char const* extension : extensions) {
            std::string const name = std::string("image") + extension;
            std::string const path = directory.path(name);
            failures += small.SaveImage(path.c_str(), 0) != 1;
            Bytes const before = readFile(path);
            failures += large.SaveImage(path.c_str(), 0) != 0;
            failures += readFile(path) != before;
            failures += large.SaveImage(directory.path("new" + name).c_str(), 0) != 0;
            failures += directory.entries() != Names({name});
            failures += small.SaveImage(path.c_str(), 0) != 1; // and the room is there again
            std::filesystem::remove(path);
        }
        return failures;
    });
    EXPECT_EQ(console.caught(), "");
    if (answer == maySkip)
        GTEST_SKIP() << "may not mount a small file system";
    EXPECT_EQ(answer, 0);
}

TEST_F(VelImageReplace, AHardLinkKeepsTheOldFileUnderItsOtherName)
{
    std::string const path = oldFile("image.png");
    std::filesystem::create_hard_link(path, directory.path("other.png"));
    EXPECT_TRUE(savesTo(path));
    EXPECT_TRUE(holdsTheNew(path));
    EXPECT_TRUE(holdsTheOld(directory.path("other.png")));
}

TEST_F(VelImageReplace, ChainsOfSymbolicLinksLeadToTheFile)
{
    std::filesystem::create_directory(directory.path("deep"));
    oldFile("deep/target.png");
    std::filesystem::create_symlink("target.png", directory.path("deep/second.png"));
    std::filesystem::create_symlink("deep/second.png", directory.path("first.png"));
    EXPECT_TRUE(savesTo(directory.path("first.png")));
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path("first.png")));
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path("deep/second.png")));
    EXPECT_TRUE(holdsTheNew(directory.path("deep/target.png")));
    EXPECT_EQ(directory.entries().size(), 2u);
}

TEST_F(VelImageReplace, ASymbolicLinkWithAWholePathLeadsToTheFile)
{
    std::filesystem::create_directory(directory.path("deep"));
    std::string const target = oldFile("deep/target.png");
    ASSERT_TRUE(std::filesystem::path(target).is_absolute());
    std::filesystem::create_symlink(target, directory.path("link.png"));
    int const answer = inChild(
        [&] { return ::chdir(directory.path(".").c_str()) == 0 && savesTo("link.png") ? 1 : 0; });
    EXPECT_EQ(answer, 1);
    EXPECT_EQ(std::filesystem::read_symlink(directory.path("link.png")), target);
    EXPECT_TRUE(holdsTheNew(target));
}

TEST_F(VelImageReplace, ADanglingSymbolicLinkIsFollowedToWhereItPoints)
{
    std::filesystem::create_directory(directory.path("deep"));
    std::filesystem::create_symlink("deep/new.png", directory.path("link.png"));
    EXPECT_TRUE(savesTo(directory.path("link.png")));
    EXPECT_EQ(std::filesystem::read_symlink(directory.path("link.png")), "deep/new.png");
    EXPECT_TRUE(holdsTheNew(directory.path("deep/new.png")));
    EXPECT_TRUE(std::filesystem::is_regular_file(directory.path("deep/new.png")));
}

TEST_F(VelImageReplace, SymbolicLinksThatLeadNowhereAreRefusedAndKept)
{
    std::filesystem::create_symlink("circle.png", directory.path("circle.png"));
    std::filesystem::create_symlink("missing/image.png", directory.path("lost.png"));
    Names before = directory.entries();
    EXPECT_FALSE(savesTo(directory.path("circle.png")));
    EXPECT_FALSE(savesTo(directory.path("lost.png")));
    EXPECT_EQ(directory.entries(), before);
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path("circle.png")));
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path("lost.png")));
}

/// What only root can set up: files of others, and itself as one of them.
class VelImageReplaceAsAnother : public VelImageReplace
{
protected:
    void SetUp() override
    {
        if (::geteuid() != 0)
            GTEST_SKIP() << "only root gives files away and acts as others";
    }

    std::string fileOf(uid_t user, gid_t group, mode_t mode) const
    {
        std::string const path = oldFile("image.png");
        EXPECT_EQ(::chown(path.c_str(), user, group), 0);
        EXPECT_EQ(::chmod(path.c_str(), mode), 0);
        return path;
    }

    static mode_t modeOf(std::string const& path) { return statusOf(path).st_mode & 07777; }
};

TEST_F(VelImageReplaceAsAnother, OwnerAndModeOfTheFileAreKept)
{
    std::string const path = fileOf(somebody, someGroup, 0640);
    EXPECT_TRUE(savesTo(path));
    EXPECT_TRUE(holdsTheNew(path));
    EXPECT_EQ(statusOf(path).st_uid, somebody);
    EXPECT_EQ(statusOf(path).st_gid, someGroup);
    EXPECT_EQ(modeOf(path), 0640u);
}

TEST_F(VelImageReplaceAsAnother, AGroupOneBelongsToIsKept)
{
    std::string const path = fileOf(nobody, someGroup, 0664);
    EXPECT_EQ(inChild([&path] { return become(nobody, {someGroup}) && savesTo(path) ? 1 : 0; }), 1);
    EXPECT_TRUE(holdsTheNew(path));
    EXPECT_EQ(statusOf(path).st_uid, nobody);
    EXPECT_EQ(statusOf(path).st_gid, someGroup);
    EXPECT_EQ(modeOf(path), 0664u);
}

TEST_F(VelImageReplaceAsAnother, AFileOfAnotherInAGroupOneBelongsToStaysInIt)
{
    std::string const path = fileOf(somebody, someGroup, 0664);
    EXPECT_EQ(inChild([&path] { return become(nobody, {someGroup}) && savesTo(path) ? 1 : 0; }), 1);
    EXPECT_TRUE(holdsTheNew(path));
    EXPECT_EQ(statusOf(path).st_uid, nobody);
    EXPECT_EQ(statusOf(path).st_gid, someGroup);
    EXPECT_EQ(modeOf(path), 0664u);
}

TEST_F(VelImageReplaceAsAnother, AFileOfAnotherThatOneMayWriteBecomesOnesOwn)
{
    std::string const path = fileOf(somebody, someGroup, 0666);
    EXPECT_EQ(inChild([&path] { return become(nobody) && savesTo(path) ? 1 : 0; }), 1);
    EXPECT_TRUE(holdsTheNew(path));
    EXPECT_EQ(statusOf(path).st_uid, nobody);
    EXPECT_EQ(modeOf(path), 0666u);
}

/// What runs as its owner must not begin to run as someone else.
TEST_F(VelImageReplaceAsAnother, AFileThatBecomesOnesOwnRunsAsNobodyElse)
{
    std::string const path = fileOf(somebody, someGroup, 06777);
    EXPECT_EQ(inChild([&path] { return become(nobody) && savesTo(path) ? 1 : 0; }), 1);
    EXPECT_EQ(modeOf(path), 0777u);
}

TEST_F(VelImageReplaceAsAnother, AFileThatOneMayNotWriteIsRefusedAndKept)
{
    for (bool forGood : {true, false}) {
        for (uid_t owner : {nobody, uid_t{0}}) {
            std::string const path = fileOf(owner, 0, 0444);
            EXPECT_EQ(inChild([&path, forGood] {
                          return become(nobody, {}, forGood) && !savesTo(path) ? 1 : 0;
                      }),
                      1);
            EXPECT_TRUE(holdsTheOld(path));
            EXPECT_EQ(directory.entries(), Names({"image.png"}));
        }
    }
}

TEST_F(VelImageReplaceAsAnother, AFileThatOneMayNotReadIsRefused)
{
    std::string const path = fileOf(somebody, someGroup, 0644);
    ASSERT_TRUE(savesTo(path));
    auto const reads = [&path] {
        VelImage image;
        return become(nobody) && image.ReadImage(path.c_str()) == 1 ? 1 : 0;
    };
    EXPECT_EQ(inChild(reads), 1);
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    EXPECT_EQ(inChild(reads), 0);
}

TEST_F(VelImageReplaceAsAnother, AWritableFileInADirectoryThatIsNotIsRefusedAndKept)
{
    std::string const path = fileOf(nobody, 0, 0666);
    ASSERT_EQ(::chmod(directory.path(".").c_str(), 0755), 0);
    EXPECT_EQ(inChild([&path] { return become(nobody) && !savesTo(path) ? 1 : 0; }), 1);
    EXPECT_TRUE(holdsTheOld(path));
    EXPECT_EQ(directory.entries(), Names({"image.png"}));
}

} // namespace
