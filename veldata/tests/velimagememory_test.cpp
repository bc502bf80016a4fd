#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <opencv2/core.hpp>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "imagefiles.h"
#include "rawpictures.h"

namespace {

/// How the first call of a process ended.
struct Ending
{
    bool hasStarted;
    int status; ///< of the process, as wait() tells it
    std::string printed;

    bool isSuccess() const { return hasStarted && status == 0; }

    /// It did not even start, or answered success or failure and said nothing.
    bool isDecent() const
    {
        return !hasStarted || (printed.empty() && WIFEXITED(status) && WEXITSTATUS(status) <= 1);
    }
};

std::string readAll(int fd)
{
    std::string text;
    char piece[1024];
    for (ssize_t size = ::read(fd, piece, sizeof piece); size > 0;
         size = ::read(fd, piece, sizeof piece))
        text.append(piece, static_cast<std::size_t>(size));
    return text;
}

/// Makes the call @p what with the file @p path in a process that may have @p space bytes of
/// addresses.
Ending callUnder(rlim_t space, char const* what, std::string const& path)
{
    int started[2], printed[2];
    EXPECT_EQ(::pipe2(started, O_CLOEXEC), 0);
    EXPECT_EQ(::pipe2(printed, O_CLOEXEC), 0);
    pid_t const child = ::fork();
    if (child == 0) {
        ::dup2(printed[1], STDOUT_FILENO);
        ::dup2(printed[1], STDERR_FILENO);
        if (started[1] == 3)
            ::fcntl(3, F_SETFD, 0);
        else
            ::dup2(started[1], 3);
        rlimit const limit = {space, space};
        rlimit const noCore = {0, 0};
        ::setrlimit(RLIMIT_CORE, &noCore);
        ::setrlimit(RLIMIT_AS, &limit);
        ::execl(VEL_MEMORY_PROBE, VEL_MEMORY_PROBE, what, path.c_str(), nullptr);
        ::_exit(3);
    }
    ::close(started[1]);
    ::close(printed[1]);
    Ending ending = {};
    ending.hasStarted = !readAll(started[0]).empty();
    ending.printed = readAll(printed[0]);
    ::waitpid(child, &ending.status, 0);
    ::close(started[0]);
    ::close(printed[0]);
    return ending;
}

constexpr rlim_t step = 64 << 10;
constexpr rlim_t plenty = rlim_t{1} << 32;

/// The largest limit, in steps, that the process cannot start under.
rlim_t lastThatCannotStart(char const* what, std::string const& path)
{
    rlim_t low = 0, high = plenty / step;
    while (high - low > 1) {
        rlim_t const middle = (low + high) / 2;
        (callUnder(middle * step, what, path).hasStarted ? high : low) = middle;
    }
    return low;
}

/// Calls under every limit from a few steps below the last that the process cannot start under up
/// to where it works throughout. Answers the number of calls that ran out of memory decently.
int sweep(char const* what, TemporaryDirectory const& directory, std::string const& name)
{
    std::string const path = directory.path(name);
    std::vector<std::string> const before = directory.entries();
    constexpr rlim_t margin = 8;
    int failures = 0;
    rlim_t const first = lastThatCannotStart(what, path);
    if (before.empty())
        std::filesystem::remove(path);
    int successes = 0;
    for (rlim_t limit = first > margin ? first - margin : 0; successes < 8 && limit < plenty / step;
         ++limit) {
        Ending const ending = callUnder(limit * step, what, path);
        EXPECT_TRUE(ending.isDecent())
            << what << " under " << limit * step / 1024 << " KiB ended with status "
            << ending.status << " and printed: " << ending.printed;
        successes = ending.isSuccess() ? successes + 1 : 0;
        failures += ending.hasStarted && !ending.isSuccess();
        if (!ending.isSuccess())
            EXPECT_EQ(directory.entries(), before) << limit * step / 1024 << " KiB";
        else if (before.empty())
            std::filesystem::remove(path);
        if (testing::Test::HasFailure())
            break;
    }
    EXPECT_GT(successes, 0);
    return failures;
}

struct File
{
    char const* name;
    Bytes (*bytes)();
};

void PrintTo(File const& file, std::ostream* out) { *out << file.name; }

class VelImageMemoryRead : public testing::TestWithParam<File>
{
};

TEST_P(VelImageMemoryRead, RunningOutOfItIsAFailureAtEveryStep)
{
    TemporaryDirectory const directory;
    writeFile(directory.path("image"), GetParam().bytes());
    EXPECT_GT(sweep("read", directory, "image"), 0);
}

constexpr int width = 1200, height = 800;

cv::Mat large(int type) { return picture(type, width, height); }

INSTANTIATE_TEST_SUITE_P(
    Files, VelImageMemoryRead,
    testing::Values(
        File{"Png", [] { return encoded(".png", large(CV_8UC3)); }},
        File{"PngInterlaced",
             [] {
                 RawPng png{width, height, 16, 6};
                 png.isInterlaced = true;
                 return png.bytes();
             }},
        File{"Jpeg", [] { return encoded(".jpg", large(CV_8UC3)); }},
        File{"JpegProgressive",
             [] {
                 return encoded(".jpg", large(CV_8UC3), {cv::IMWRITE_JPEG_PROGRESSIVE, 1});
             }},
        File{"TiffLzw", [] { return encoded(".tif", large(CV_8UC3)); }},
        File{"TiffDeflate",
             [] {
                 return encoded(".tif", large(CV_16UC1), {cv::IMWRITE_TIFF_COMPRESSION, 8});
             }},
        File{"Bitmap", [] { return encoded(".bmp", large(CV_8UC3)); }},
        File{"PortableMap", [] { return encoded(".ppm", large(CV_8UC3)); }},
        File{"PortableMapAscii",
             [] {
                 return encoded(".pgm", large(CV_8UC1), {cv::IMWRITE_PXM_BINARY, 0});
             }}),
    [](auto const& tested) { return std::string(tested.param.name); });

class VelImageMemorySave : public testing::TestWithParam<char const*>
{
};

TEST_P(VelImageMemorySave, RunningOutOfItIsAFailureAtEveryStepAndLeavesNothingBehind)
{
    TemporaryDirectory const directory;
    EXPECT_GT(sweep("save", directory, std::string("image.") + GetParam()), 0);
}

INSTANTIATE_TEST_SUITE_P(Formats, VelImageMemorySave,
                         testing::Values("png", "jpg", "tif", "bmp", "ppm"),
                         [](auto const& tested) { return std::string(tested.param); });

} // namespace
