#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <malloc.h>
#include <opencv2/core.hpp>
#include <png.h>
#include <sys/resource.h>
#include <unistd.h>
#include <zlib.h>

#include "console.h"
#include "imagefiles.h"
#include "sanitized.h"

namespace {

/// Small files of every format and its variants, each complete.
std::vector<std::pair<std::string, Bytes>> sampleFiles()
{
    Bytes ascii = bytesOf("P3\n# comment\n8 4\n255\n");
    for (int i = 0; i < 96; ++i) {
        for (char digit : std::to_string(i * 2) + "\n")
            ascii.push_back(static_cast<unsigned char>(digit));
    }
    return {
        {"png 8-bit colour", encoded(".png", picture(CV_8UC3))},
        {"png 16-bit alpha", encoded(".png", picture(CV_16UC4))},
        {"jpeg colour", encoded(".jpg", picture(CV_8UC3))},
        {"jpeg grey", encoded(".jpg", picture(CV_8UC1))},
        {"jpeg progressive", encoded(".jpg", picture(CV_8UC3), {cv::IMWRITE_JPEG_PROGRESSIVE, 1})},
        {"jpeg with restarts",
         encoded(".jpg", picture(CV_8UC3), {cv::IMWRITE_JPEG_RST_INTERVAL, 1})},
        {"tiff 8-bit lzw", encoded(".tif", picture(CV_8UC3))},
        {"tiff 16-bit plain",
         encoded(".tif", picture(CV_16UC3), {cv::IMWRITE_TIFF_COMPRESSION, 1})},
        {"tiff float", encoded(".tif", picture(CV_32FC1))},
        {"tiff deflate", encoded(".tif", picture(CV_16UC1), {cv::IMWRITE_TIFF_COMPRESSION, 8})},
        {"bmp grey", encoded(".bmp", picture(CV_8UC1))},
        {"bmp colour", encoded(".bmp", picture(CV_8UC3))},
        {"pgm 16-bit", encoded(".pgm", picture(CV_16UC1))},
        {"ppm", encoded(".ppm", picture(CV_8UC3))},
        {"ppm ascii", ascii},
    };
}

/// An image of known pixels that reads file after file and is looked at in between.
class Victim
{
public:
    Victim() : old(picture(CV_8UC1, 7, 5)) {}

    /// Whether @p bytes are refused; a failure also if that changed the image.
    bool refuses(Bytes const& bytes)
    {
        std::filesystem::remove(directory.path("image")); // quicker than cutting it to nothing
        writeFile(directory.path("image"), bytes);
        VelImage image = imageOf(old);
        unsigned char* const pixels = image.ImageData();
        if (image.ReadImage(directory.path("image").c_str()) == 1) {
            EXPECT_NE(image.ImageData(), nullptr);
            return false;
        }
        EXPECT_EQ(image.ImageData(), pixels);
        EXPECT_TRUE(same(viewOf(image), old));
        return true;
    }

private:
    TemporaryDirectory directory;
    cv::Mat old;
};

TEST(VelImageHostile, TheSamplesThemselvesAreRead)
{
    Victim victim;
    Console console;
    for (auto const& [name, bytes] : sampleFiles())
        EXPECT_FALSE(victim.refuses(bytes)) << name;
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageHostile, TruncatedFilesAreRefusedInSilence)
{
    Victim victim;
    Console console;
    for (auto const& [name, bytes] : sampleFiles()) {
        std::size_t const whole = bytes.size();
        // The ASCII map ends with a line feed that it can do without.
        std::vector<std::size_t> lengths = {whole - (name == "ppm ascii" ? 4 : 1)};
        for (std::size_t part = 0; part < 16; ++part)
            lengths.push_back(whole * part / 16);
        for (std::size_t length : lengths) {
            Bytes const cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
            EXPECT_TRUE(victim.refuses(cut)) << name << " cut to " << length << " of " << whole;
        }
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageHostile, FlippedBytesDoNoHarm)
{
    constexpr unsigned seed = 20231107;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    Victim victim;
    Console console;
    for (auto const& [name, bytes] : sampleFiles()) {
        for (int round = 0; round < 200; ++round) {
            Bytes damaged = bytes;
            // Every other round damages the header, where the sizes are.
            std::size_t const reach =
                round % 2 ? damaged.size() : std::min<std::size_t>(damaged.size(), 64);
            for (int flips = 1 + round % 3; flips > 0; --flips)
                damaged[random() % reach] ^= static_cast<unsigned char>(1 + random() % 255);
            victim.refuses(damaged);
        }
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageHostile, EveryByteDamagedInTurnDoesNoHarm)
{
    Victim victim;
    Console console;
    for (auto const& [name, bytes] : sampleFiles()) {
        // Checksums and tables lie at the ends of small files; the middle of large ones is pixels.
        std::size_t const step = 1 + bytes.size() / 1024;
        for (std::size_t at = 0; at < bytes.size(); at += step) {
            Bytes damaged = bytes;
            damaged[at] ^= 0x10;
            victim.refuses(damaged);
        }
    }
    EXPECT_EQ(console.caught(), "");
}

void append32(Bytes& bytes, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<unsigned char>(value >> shift));
}

Bytes pngChunk(char const* name, Bytes const& data)
{
    constexpr std::size_t lengthNameAndChecksum = 12;
    Bytes chunk;
    chunk.reserve(data.size() + lengthNameAndChecksum);
    append32(chunk, static_cast<std::uint32_t>(data.size()));
    for (int i = 0; i < 4; ++i)
        chunk.push_back(static_cast<unsigned char>(name[i]));
    chunk.insert(chunk.end(), data.begin(), data.end());
    append32(chunk, static_cast<std::uint32_t>(
                        ::crc32(0, chunk.data() + 4, static_cast<uInt>(chunk.size() - 4))));
    return chunk;
}

/// An 8-bit grey PNG that claims a size but brings a few bytes of pixels only.
Bytes pngClaiming(std::uint32_t width, std::uint32_t height)
{
    Bytes header;
    append32(header, width);
    append32(header, height);
    header.insert(header.end(), {8, 0, 0, 0, 0});
    Bytes bytes = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    for (Bytes const& chunk :
         {pngChunk("IHDR", header), pngChunk("IDAT", {0x78, 0x9C, 0x63, 0, 0, 0, 1, 0, 1}),
          pngChunk("IEND", {})})
        bytes.insert(bytes.end(), chunk.begin(), chunk.end());
    return bytes;
}

#ifndef VEL_SANITIZED

/// A complete 8-bit grey PNG of zeros.
Bytes blackPng(std::uint32_t side)
{
    Bytes const rows(std::size_t{side} * (side + 1), 0);
    uLongf size = ::compressBound(static_cast<uLong>(rows.size()));
    Bytes packed(size);
    ::compress2(packed.data(), &size, rows.data(), static_cast<uLong>(rows.size()), 1);
    packed.resize(size);
    Bytes bytes = pngClaiming(side, side);
    Bytes const pixels = pngChunk("IDAT", packed);
    bytes.resize(33); // signature and header
    bytes.insert(bytes.end(), pixels.begin(), pixels.end());
    Bytes const end = pngChunk("IEND", {});
    bytes.insert(bytes.end(), end.begin(), end.end());
    return bytes;
}

/// While it lives, the process gets at most @p extra bytes more than it has. Sanitizers reserve far
/// too much for that.
class MemoryLimit
{
public:
    explicit MemoryLimit(rlim_t extra)
    {
        ::malloc_trim(0);
        std::ifstream statistics("/proc/self/statm");
        rlim_t pages = 0;
        statistics >> pages;
        ::getrlimit(RLIMIT_AS, &before);
        rlimit limit = before;
        limit.rlim_cur = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) + extra;
        ::setrlimit(RLIMIT_AS, &limit);
    }

    MemoryLimit(MemoryLimit const&) = delete;
    MemoryLimit& operator=(MemoryLimit const&) = delete;

    ~MemoryLimit() { ::setrlimit(RLIMIT_AS, &before); }

private:
    rlimit before = {};
};

TEST(VelImageHostile, OutOfMemoryIsAFailureLikeAnyOther)
{
    // More than malloc may have set aside: it maps so large a block, or hands out none.
    constexpr int side = 8500;
    constexpr rlim_t tooLittle = 16 << 20;
    Bytes const file = blackPng(side);
    TemporaryDirectory const directory;
    std::string const path = directory.path("saved.bmp");
    VelImage const large(nullptr, side, side, 1, 0, VEL_8U);
    Victim victim;
    EXPECT_FALSE(victim.refuses(file));
    Console console;
    {
        MemoryLimit const limit(tooLittle);
        EXPECT_TRUE(victim.refuses(file));
        EXPECT_EQ(VelImage().CreateImage(nullptr, side, side, 1, 0, VEL_8U), 0);
        EXPECT_EQ(VelImage().CreateImage(large.ImageData(), side, side, 1, 0, VEL_8U), 0);
        EXPECT_EQ(large.DeepCopy().ImageData(), nullptr);
        // The bytes go straight to the file.
        EXPECT_EQ(large.SaveImage(path.c_str(), 6), 1);
    }
    EXPECT_EQ(console.caught(), "");
}

#endif

/// Kilobytes of memory that the process has held at most.
long peakMemory()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

TEST(VelImageHostile, ClaimsOfHugeSizesAreRefusedWithoutTheMemoryForThem)
{
    Victim victim;
    std::vector<Bytes> files = {pngClaiming(100000, 100000), pngClaiming(32768, 32768),
                                pngClaiming(1000000, 1), pngClaiming(0x7FFFFFFF, 0x7FFFFFFF)};

    Bytes jpeg = encoded(".jpg", picture(CV_8UC3), {cv::IMWRITE_JPEG_PROGRESSIVE, 1});
    unsigned char const frame[] = {0xFF, 0xC2};
    auto const start = std::search(jpeg.begin(), jpeg.end(), frame, frame + 2);
    ASSERT_NE(start, jpeg.end());
    for (int i = 5; i < 9; ++i)
        start[i] = i % 2 ? 0x7F : 0xFF; // 32767 x 32767
    files.push_back(jpeg);

    Bytes const bitmap = encoded(".bmp", picture(CV_8UC1));
    files.push_back(bitmap);
    for (std::size_t i : {19u, 23u})
        files.back()[i] = 0x7F;

    files.push_back(bytesOf("P5\n32768 32768\n255\nabc"));
    files.push_back(bytesOf("P2\n32768 32768\n255\n1 2 3"));

    long const before = peakMemory();
    Console console;
    for (std::size_t i = 0; i < files.size(); ++i)
        EXPECT_TRUE(victim.refuses(files[i])) << i;
    EXPECT_EQ(console.caught(), "");
    EXPECT_LT(peakMemory() - before, 64 * 1024);
}

/// A sparse file really has all the rows that it claims, and an image all the pixels.
TEST(VelImageHostile, MoreThanAGibibyteOfPixelsIsNeitherReadNorSaved)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("large.pgm");
    std::string const header = "P5 32768 16385 65535\n";
    writeFile(path, bytesOf(header));
    std::filesystem::resize_file(path, header.size() + (std::uintmax_t{1} << 30) + 65536);
    long const before = peakMemory();
    Console console;
    VelImage image;
    EXPECT_EQ(image.ReadImage(path.c_str()), 0);
    EXPECT_LT(peakMemory() - before, 64 * 1024);

    VelImage const large(nullptr, 32768, 16385, 1, 0, VEL_16U);
    ASSERT_NE(large.ImageData(), nullptr);
    EXPECT_EQ(large.SaveImage(directory.path("saved.pgm").c_str(), 6), 0);
    EXPECT_EQ(directory.entries().size(), 1u);
    EXPECT_EQ(console.caught(), "");
}

/// libpng itself would print warnings about both blocks.
TEST(VelImageHostile, DamagedSideInformationOfAPngIsPassedOverInSilence)
{
    cv::Mat const mat = picture(CV_8UC3);
    Bytes bytes = encoded(".png", mat);
    Bytes const colourProfile = pngChunk("iCCP", bytesOf("name\0\0no profile at all"));
    Bytes badChecksum = pngChunk("gAMA", {0, 0, 1, 0});
    badChecksum.back() ^= 1;
    constexpr std::ptrdiff_t behindHeader = 33;
    for (Bytes const& chunk : {colourProfile, badChecksum})
        bytes.insert(bytes.begin() + behindHeader, chunk.begin(), chunk.end());

    TemporaryDirectory const directory;
    writeFile(directory.path("image"), bytes);
    VelImage image;
    Console console;
    EXPECT_EQ(image.ReadImage(directory.path("image").c_str()), 1);
    EXPECT_EQ(console.caught(), "");
    EXPECT_TRUE(same(viewOf(image), mat));
}

TEST(VelImageHostile, APngThatNeedsWhatNobodyKnowsIsRefusedInSilence)
{
    Bytes const whole = encoded(".png", picture(CV_8UC3));
    Victim victim;
    Console console;
    for (std::ptrdiff_t at : {std::ptrdiff_t{33}, static_cast<std::ptrdiff_t>(whole.size()) - 12}) {
        // A small first letter marks what a reader may pass over.
        for (auto const& [name, isRefused] :
             {std::pair<char const*, bool>{"ABCD", true}, {"AbCd", true}, {"abCd", false}}) {
            Bytes bytes = whole;
            Bytes const chunk = pngChunk(name, {1, 2, 3});
            bytes.insert(bytes.begin() + at, chunk.begin(), chunk.end());
            EXPECT_EQ(victim.refuses(bytes), isRefused) << name << " at " << at;
        }
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageHostile, APngWithAWrongChecksumOverItsPixelsIsRefused)
{
    Bytes bytes = encoded(".png", picture(CV_8UC3));
    bytes[bytes.size() - 13] ^= 1; // the last byte before the end chunk
    Victim victim;
    Console console;
    EXPECT_TRUE(victim.refuses(bytes));
    EXPECT_EQ(console.caught(), "");
}

} // namespace
