#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <opencv2/core.hpp>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include "child.h"
#include "console.h"
#include "imagefiles.h"

// The system calls of reading and saving files are taken over in this program, so that they can
// fail the way they rarely do.

namespace {

using Names = std::vector<std::string>;

/// What happens to the calls while it lives. A hook may ask for fewer bytes; it answers whether the
/// call is not made at all, with what it answers then in the last argument.
struct Faults
{
    Faults() { current = this; }
    Faults(Faults const&) = delete;
    Faults& operator=(Faults const&) = delete;
    ~Faults() { current = nullptr; }

    /// Whether the call was answered here; if not, it is made for that many bytes.
    using Transfer = std::function<bool(std::size_t& size, ssize_t& answer)>;

    Transfer onRead;
    Transfer onWrite;
    std::function<void(char const* path, int flags)> onOpen;
    std::function<bool(int& answer)> onOwn;
    std::function<bool(int& answer)> onSync;
    std::function<bool(int& answer)> onClose;
    std::function<bool(int& answer)> onRename;
    Names calls; ///< in order, each kind once in a row

    void note(char const* call)
    {
        if (calls.empty() || calls.back() != call)
            calls.push_back(call);
    }

    static Faults* current;
};

Faults* Faults::current = nullptr;

int fail(int error)
{
    errno = error;
    return -1;
}

/// Lets calls pass, and counts them.
Faults::Transfer counted(int& count)
{
    return [&count](std::size_t&, ssize_t&) {
        ++count;
        return false;
    };
}

/// Interrupts every third call, and lets the others pass for at most @p piece bytes; counts all.
Faults::Transfer interrupted(std::size_t piece, int& count)
{
    return [piece, &count](std::size_t& size, ssize_t& answer) {
        if (++count % 3 == 0) {
            answer = fail(EINTR);
            return true;
        }
        size = std::min(size, piece);
        return false;
    };
}

/// Lets @p good calls pass, for at most @p piece bytes each, and fails all that follow; counts
/// both.
Faults::Transfer failingAfter(int good, int error, std::size_t piece, int& count)
{
    return [good, error, piece, &count](std::size_t& size, ssize_t& answer) {
        if (++count > good) {
            answer = fail(error);
            return true;
        }
        size = std::min(size, piece);
        return false;
    };
}

} // namespace

extern "C" {

int open(char const* path, int flags, ...)
{
    if (Faults* const faults = Faults::current) {
        faults->note(flags & O_CREAT ? "create" : "open");
        if (faults->onOpen)
            faults->onOpen(path, flags);
    }
    va_list arguments;
    va_start(arguments, flags);
    int const mode = flags & O_CREAT ? va_arg(arguments, int) : 0;
    va_end(arguments);
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

ssize_t pread(int fd, void* data, std::size_t size, off_t offset)
{
    ssize_t answer = 0;
    Faults* const faults = Faults::current;
    if (faults && faults->onRead && faults->onRead(size, answer))
        return answer;
    return ::syscall(SYS_pread64, fd, data, size, offset);
}

ssize_t preadv(int fd, iovec const* places, int count, off_t offset)
{
    std::size_t wanted = 0;
    for (int i = 0; i < count; ++i)
        wanted += places[i].iov_len;
    std::size_t size = wanted;
    ssize_t answer = 0;
    Faults* const faults = Faults::current;
    if (faults && faults->onRead && faults->onRead(size, answer))
        return answer;
    std::vector<iovec> some(places, places + count);
    for (iovec& place : some) {
        place.iov_len = std::min(place.iov_len, size);
        size -= place.iov_len;
    }
    return ::syscall(SYS_preadv, fd, some.data(), some.size(), offset, 0L);
}

ssize_t pwrite(int fd, void const* data, std::size_t size, off_t offset)
{
    ssize_t answer = 0;
    Faults* const faults = Faults::current;
    if (faults)
        faults->note("write");
    if (faults && faults->onWrite && faults->onWrite(size, answer))
        return answer;
    return ::syscall(SYS_pwrite64, fd, data, size, offset);
}

int fchown(int fd, uid_t owner, gid_t group) noexcept
{
    int answer = 0;
    Faults* const faults = Faults::current;
    if (faults && faults->onOwn && faults->onOwn(answer))
        return answer;
    return static_cast<int>(::syscall(SYS_fchown, fd, owner, group));
}

int fsync(int fd)
{
    int answer = 0;
    Faults* const faults = Faults::current;
    if (faults)
        faults->note("fsync");
    if (faults && faults->onSync && faults->onSync(answer))
        return answer;
    return static_cast<int>(::syscall(SYS_fsync, fd));
}

int close(int fd)
{
    int answer = 0;
    Faults* const faults = Faults::current;
    int const closed = static_cast<int>(::syscall(SYS_close, fd));
    if (faults && faults->onClose && faults->onClose(answer))
        return answer;
    return closed;
}

int rename(char const* from, char const* to) noexcept
{
    int answer = 0;
    Faults* const faults = Faults::current;
    if (faults)
        faults->note("rename");
    if (faults && faults->onRename && faults->onRename(answer))
        return answer;
    return static_cast<int>(::syscall(SYS_rename, from, to));
}
}

namespace {

cv::Mat const& large()
{
    static cv::Mat const mat = [] {
        cv::Mat noise(200, 300, CV_8UC3);
        cv::randu(noise, 0, 256);
        return noise;
    }();
    return mat;
}

bool saves(std::string const& path) { return imageOf(large()).SaveImage(path.c_str(), 6) == 1; }

bool reads(std::string const& path)
{
    VelImage image;
    return image.ReadImage(path.c_str()) == 1 && same(viewOf(image), large());
}

// --- saving
// ---------------------------------------------------------------------------------------

/// Saves over a precious file with faults: nothing may have happened.
class VelImageFaults : public testing::Test
{
protected:
    VelImageFaults() { writeFile(path, old); }

    void expectFailureWithoutATrace()
    {
        Console console;
        EXPECT_FALSE(saves(path));
        EXPECT_EQ(console.caught(), "");
        EXPECT_EQ(readFile(path), old);
        EXPECT_EQ(directory.entries(), Names({"image.bmp"}));
    }

    Bytes const old = bytesOf("precious");
    TemporaryDirectory directory;
    std::string const path = directory.path("image.bmp");
    Faults faults;
};

TEST_F(VelImageFaults, ASavedFileIsWrittenBesideThenFlushedThenRenamed)
{
    std::string created;
    int createdWith = 0;
    faults.onOpen = [&](char const* name, int flags) {
        if (flags & O_CREAT) {
            created = name;
            createdWith = flags;
        }
    };
    EXPECT_TRUE(saves(path));
    Names calls = faults.calls;
    calls.erase(calls.begin(), std::find(calls.begin(), calls.end(), "create"));
    ASSERT_GE(calls.size(), 4u);
    calls.resize(4);
    EXPECT_EQ(calls, Names({"create", "write", "fsync", "rename"}));
    EXPECT_EQ(std::filesystem::path(created).parent_path(),
              std::filesystem::path(path).parent_path());
    EXPECT_NE(created, path);
    EXPECT_TRUE(createdWith & O_EXCL);
    EXPECT_TRUE(createdWith & O_CLOEXEC);
    EXPECT_TRUE(reads(path));
}

/// Somebody knows the name and put a link to a file of their choice there.
TEST_F(VelImageFaults, WhatLiesAtTheTemporaryNameIsLeftAlone)
{
    std::string const victim = directory.path("victim");
    writeFile(victim, old);
    std::vector<std::string> links;
    faults.onOpen = [&](char const* name, int flags) {
        if (flags & O_CREAT && links.size() < 3) {
            links.push_back(name);
            std::filesystem::create_symlink(victim, name);
        }
    };
    EXPECT_TRUE(saves(path));
    EXPECT_EQ(links.size(), 3u);
    EXPECT_TRUE(reads(path));
    EXPECT_EQ(readFile(victim), old);
    for (std::string const& link : links)
        EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(directory.entries().size(), 5u);
}

/// Each name is taken just before it is tried.
TEST_F(VelImageFaults, WhereEveryTemporaryNameIsTakenNothingIsSaved)
{
    std::vector<std::string> links;
    faults.onOpen = [&](char const* name, int flags) {
        if (flags & O_CREAT) {
            links.push_back(name);
            std::filesystem::create_symlink("nowhere", name);
        }
    };
    EXPECT_FALSE(saves(path));
    EXPECT_EQ(links.size(), 1000u);
    for (std::string const& link : links)
        std::filesystem::remove(link);
    EXPECT_EQ(readFile(path), old);
    EXPECT_EQ(directory.entries(), Names({"image.bmp"}));
}

/// Who may not give a file away may not choose its group either, or may.
TEST_F(VelImageFaults, AnOwnerThatCannotBeKeptIsGivenUpUnlessTheFileSystemFails)
{
    int calls = 0;
    faults.onOwn = [&calls](int& answer) {
        answer = fail(++calls == 1 ? EPERM : EIO);
        return true;
    };
    expectFailureWithoutATrace();
    EXPECT_EQ(calls, 2);
    faults.onOwn = [](int& answer) {
        answer = fail(EPERM);
        return true;
    };
    EXPECT_TRUE(saves(path));
    EXPECT_TRUE(reads(path));
}

TEST_F(VelImageFaults, WritesThatTakeALittleAtATimeAreContinued)
{
    int count = 0;
    faults.onWrite = interrupted(1000, count);
    EXPECT_TRUE(saves(path));
    EXPECT_GT(count, 100);
    EXPECT_TRUE(reads(path));
}

TEST_F(VelImageFaults, AWriteThatFailsHalfwayIsAFailure)
{
    for (int error : {ENOSPC, EIO, EDQUOT, EFBIG}) {
        int count = 0;
        faults.onWrite = failingAfter(2, error, 1000, count);
        expectFailureWithoutATrace();
        EXPECT_EQ(count, 3);
    }
}

TEST_F(VelImageFaults, AWriteThatTakesNothingIsAFailure)
{
    faults.onWrite = [](std::size_t&, ssize_t& answer) {
        answer = 0;
        return true;
    };
    expectFailureWithoutATrace();
}

TEST_F(VelImageFaults, AFlushThatFailsIsAFailure)
{
    faults.onSync = [](int& answer) {
        answer = fail(EIO);
        return true;
    };
    expectFailureWithoutATrace();
}

TEST_F(VelImageFaults, ACloseThatFailsIsAFailure)
{
    faults.onClose = [](int& answer) {
        answer = fail(EIO);
        return true;
    };
    expectFailureWithoutATrace();
}

TEST_F(VelImageFaults, ARenameThatFailsIsAFailure)
{
    faults.onRename = [](int& answer) {
        answer = fail(EXDEV);
        return true;
    };
    expectFailureWithoutATrace();
}

// --- reading
// --------------------------------------------------------------------------------------

std::vector<std::string> const& formats()
{
    static std::vector<std::string> const names = {".png", ".tif", ".bmp", ".ppm"};
    return names;
}

TEST(VelImageReadFaults, ReadsThatBringALittleAtATimeAreContinued)
{
    TemporaryDirectory const directory;
    for (std::string const& format : formats()) {
        std::string const path = directory.path("image");
        writeFile(path, encoded(format.c_str(), large()));
        Faults faults;
        int count = 0;
        faults.onRead = interrupted(777, count);
        EXPECT_TRUE(reads(path)) << format;
        EXPECT_GT(count, 100) << format;
    }
}

TEST(VelImageReadFaults, AReadThatFailsIsAFailure)
{
    TemporaryDirectory const directory;
    Console console;
    for (std::string const& format : formats()) {
        std::string const path = directory.path("image");
        writeFile(path, encoded(format.c_str(), large()));
        for (int good : {0, 1, 2, 20}) {
            Faults faults;
            int count = 0;
            faults.onRead = failingAfter(good, EIO, 777, count);
            EXPECT_FALSE(reads(path)) << format;
            EXPECT_GT(count, good);
        }
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageSaveFaults, AnyWriteThatFailsIsAFailureInEveryFormat)
{
    TemporaryDirectory const directory;
    for (std::string const& format : formats()) {
        std::string const path = directory.path("image" + format);
        int all = 0;
        {
            Faults faults;
            faults.onWrite = counted(all);
            EXPECT_TRUE(saves(path));
        }
        std::filesystem::remove(path);
        EXPECT_GT(all, 0);
        for (int good = 0; good < all; ++good) {
            Faults faults;
            int count = 0;
            faults.onWrite = [&count, good](std::size_t&, ssize_t& answer) {
                if (++count != good + 1)
                    return false;
                answer = fail(ENOSPC);
                return true;
            };
            EXPECT_FALSE(saves(path)) << format << ' ' << good;
            EXPECT_EQ(directory.entries(), Names());
        }
    }
}

/// A bitmap with a palette of colours goes through a window of its own.
TEST(VelImageReadFaults, AReadThatFailsWhileColoursAreLookedUpIsAFailure)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    Bytes bytes = encoded(".bmp", picture(CV_8UC1));
    bytes[54] = 200;
    writeFile(path, bytes);
    VelImage image;
    Faults faults;
    int all = 0;
    faults.onRead = counted(all);
    EXPECT_EQ(image.ReadImage(path.c_str()), 1);
    for (int good = 0; good < all; ++good) {
        int count = 0;
        faults.onRead = failingAfter(good, EIO, SIZE_MAX, count);
        EXPECT_EQ(image.ReadImage(path.c_str()), 0) << good;
    }
}

/// Cut to @p part of its size at every read in turn.
TEST(VelImageReadFaults, AFileThatShrinksWhileItIsReadIsRefused)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    Console console;
    for (std::string const& format : formats()) {
        Bytes const bytes = encoded(format.c_str(), large());
        for (int cutAt : {1, 2, 3, 10}) {
            for (std::size_t left : {std::size_t{0}, std::size_t{5}, bytes.size() / 2}) {
                writeFile(path, bytes);
                Faults faults;
                int count = 0;
                faults.onRead = [&](std::size_t& size, ssize_t&) {
                    if (++count == cutAt)
                        std::filesystem::resize_file(path, left);
                    size = std::min<std::size_t>(size, 4096);
                    return false;
                };
                EXPECT_FALSE(reads(path)) << format << ' ' << cutAt << ' ' << left;
                EXPECT_GE(count, cutAt);
            }
        }
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageReadFaults, AFileThatGrowsWhileItIsReadIsReadAsItWas)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    for (std::string const& format : formats()) {
        Bytes const bytes = encoded(format.c_str(), large());
        writeFile(path, bytes);
        Faults faults;
        faults.onRead = [&](std::size_t&, ssize_t&) {
            std::filesystem::resize_file(path, bytes.size() + 100000);
            return false;
        };
        EXPECT_TRUE(reads(path)) << format;
    }
}

/// As a service does that closes its standard input: the next file that is opened is number 0.
TEST(VelImageDescriptors, NumberZeroIsOneLikeAnyOther)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image.bmp");
    auto const isFree = [] { return ::fcntl(0, F_GETFD) == -1; };
    auto const operation = [&] {
        ::close(0);
        if (!reads(path) || !saves(path) || !isFree())
            return 1;
        Faults faults;
        faults.onWrite = [](std::size_t&, ssize_t& answer) {
            answer = fail(EIO);
            return true;
        };
        return !saves(path) && isFree() ? 0 : 2;
    };
    ASSERT_TRUE(saves(path));
    EXPECT_EQ(inChild(operation), 0);
}

// --- what is no file
// ------------------------------------------------------------------------------

/// Tells whether anybody opened a file since it was made.
class OpenWatch
{
public:
    explicit OpenWatch(std::string const& path) : fd(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        EXPECT_GE(::inotify_add_watch(fd, path.c_str(), IN_OPEN), 0);
    }

    OpenWatch(OpenWatch const&) = delete;
    OpenWatch& operator=(OpenWatch const&) = delete;
    ~OpenWatch() { ::close(fd); }

    bool sawAnyone() const
    {
        char events[4096];
        return ::read(fd, events, sizeof events) > 0;
    }

private:
    int fd;
};

TEST(VelImageSpecialFiles, ThePipeAndTheDeviceAreNeverOpened)
{
    TemporaryDirectory const directory;
    ASSERT_EQ(::mkfifo(directory.path("pipe.png").c_str(), 0666), 0);
    Names names = {"pipe.png", "link.png"};
    std::filesystem::create_symlink("pipe.png", directory.path("link.png"));
    constexpr dev_t zeros = 1 << 8 | 5;
    if (::mknod(directory.path("device.png").c_str(), S_IFCHR | 0666, zeros) == 0)
        names.push_back("device.png");
    for (std::string const& name : names) {
        OpenWatch const watch(directory.path(name));
        VelImage image;
        EXPECT_EQ(image.ReadImage(directory.path(name).c_str()), 0);
        EXPECT_EQ(imageOf(large()).SaveImage(directory.path(name).c_str(), 6), 0);
        EXPECT_FALSE(watch.sawAnyone()) << name;
    }
}

/// It takes the file's place after the file was looked at and before it is opened.
TEST(VelImageSpecialFiles, APipeInPlaceOfAFileIsLeftAlone)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image.png");
    writeFile(path, encoded(".png", large()));
    int const standardInput = ::fcntl(0, F_GETFD);
    Faults faults;
    faults.onOpen = [&path](char const*, int) {
        std::filesystem::remove(path);
        EXPECT_EQ(::mkfifo(path.c_str(), 0666), 0);
    };
    VelImage image;
    EXPECT_EQ(image.ReadImage(path.c_str()), 0);
    EXPECT_EQ(faults.calls, Names({"open"}));
    EXPECT_EQ(::fcntl(0, F_GETFD), standardInput);
}

/// Somebody waits at the other end of a pipe, whose open returns when this end is opened.
TEST(VelImageSpecialFiles, WhoWaitsAtAPipeGoesOnWaiting)
{
    TemporaryDirectory const directory;
    std::string const pipe = directory.path("pipe.png");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0666), 0);
    for (int flags : {O_WRONLY, O_RDONLY}) {
        int ends[2];
        ASSERT_EQ(::pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
        pid_t const child = ::fork();
        if (child == 0) {
            // Answers twice: before it waits and when it was let go.
            bool const isTold = ::write(ends[1], "a", 1) == 1;
            bool const isOpen = ::open(pipe.c_str(), flags) >= 0;
            ::_exit(isTold && isOpen && ::write(ends[1], "b", 1) == 1 ? 0 : 1);
        }
        char answer = 0;
        while (::read(ends[0], &answer, 1) != 1)
            ::usleep(1000);
        // It sleeps in open() sooner or later; what comes before does not sleep.
        std::string state;
        while (state.find(" S ") == std::string::npos) {
            std::ifstream file("/proc/" + std::to_string(child) + "/stat");
            std::getline(file, state);
        }
        VelImage image;
        EXPECT_EQ(image.ReadImage(pipe.c_str()), 0);
        EXPECT_EQ(imageOf(large()).SaveImage(pipe.c_str(), 6), 0);
        ::usleep(100000);
        EXPECT_NE(::read(ends[0], &answer, 1), 1) << "it was let go";
        // The one who opens it now is us.
        int const end = ::open(pipe.c_str(), O_RDWR);
        int status = -1;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
        ::close(end);
        ::close(ends[0]);
        ::close(ends[1]);
    }
}

} // namespace
