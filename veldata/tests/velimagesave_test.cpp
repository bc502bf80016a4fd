#include <algorithm>
#include <climits>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>
#include <sys/stat.h>

#include "console.h"
#include "imagefiles.h"

namespace {

using Names = std::vector<std::string>;

struct Format
{
    char const* extension;
    std::vector<int> types; ///< OpenCV types that it holds
};

/// Every lossless format with everything it holds.
std::vector<Format> losslessFormats()
{
    return {
        {".png", {CV_8UC1, CV_8UC3, CV_8UC4, CV_16UC1, CV_16UC3, CV_16UC4}},
        {".tif",
         {CV_8UC1, CV_8UC3, CV_8UC4, CV_8SC1, CV_16UC1, CV_16UC3, CV_16UC4, CV_16SC1, CV_32SC1,
          CV_32FC1, CV_32FC3, CV_32FC4, CV_64FC1}},
        {".bmp", {CV_8UC1, CV_8UC3}},
        {".pgm", {CV_8UC1, CV_16UC1}},
        {".ppm", {CV_8UC3, CV_16UC3}},
        {".pnm", {CV_8UC1, CV_8UC3, CV_16UC1, CV_16UC3}},
    };
}

TEST(VelImageSave, LosslessFormatsGiveBackEveryByte)
{
    TemporaryDirectory const directory;
    Console console;
    for (Format const& format : losslessFormats()) {
        std::string const path = directory.path(std::string("image") + format.extension);
        for (int type : format.types) {
            cv::Mat const mat = picture(type);
            for (int effort : {0, 6, 9}) {
                SCOPED_TRACE(testing::Message()
                             << format.extension << " type " << type << " effort " << effort);
                EXPECT_EQ(imageOf(mat).SaveImage(path.c_str(), effort), 1);
                EXPECT_TRUE(same(decoded(readFile(path)), mat));
                VelImage image;
                EXPECT_EQ(image.ReadImage(path.c_str()), 1);
                EXPECT_TRUE(same(viewOf(image), mat));
            }
        }
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageSave, PixelsThatTheFormatCannotHoldAreRefused)
{
    TemporaryDirectory const directory;
    std::vector<Format> formats = losslessFormats();
    formats.push_back({".jpg", {CV_8UC1, CV_8UC3}});
    Console console;
    for (Format const& format : formats) {
        std::string const path = directory.path(std::string("image") + format.extension);
        for (int depth = CV_8U; depth <= CV_64F; ++depth) {
            for (int channels = 1; channels <= 4; ++channels) {
                int const type = CV_MAKETYPE(depth, channels);
                bool const holds =
                    std::find(format.types.begin(), format.types.end(), type) != format.types.end();
                EXPECT_EQ(imageOf(picture(type)).SaveImage(path.c_str(), 0), holds ? 1 : 0)
                    << format.extension << " type " << type;
                EXPECT_EQ(std::filesystem::remove(path), holds);
            }
        }
    }
    EXPECT_EQ(directory.entries(), Names());
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageSave, JpegQualityFallsWithTheEffort)
{
    TemporaryDirectory const directory;
    cv::Mat const mat = picture(CV_8UC3);
    for (char const* name : {"image.jpg", "image.jpeg"}) {
        std::string const path = directory.path(name);
        for (int effort = 0; effort <= 9; ++effort) {
            EXPECT_EQ(imageOf(mat).SaveImage(path.c_str(), effort), 1);
            EXPECT_EQ(readFile(path),
                      encoded(".jpg", mat, {cv::IMWRITE_JPEG_QUALITY, 100 - 5 * effort}));
        }
    }
}

TEST(VelImageSave, PngEffortIsTheCompressionLevelAtBothEnds)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image.png");
    cv::Mat const mat = picture(CV_8UC3);
    for (int effort : {0, 7, 8, 9}) {
        EXPECT_EQ(imageOf(mat).SaveImage(path.c_str(), effort), 1);
        EXPECT_EQ(readFile(path), encoded(".png", mat, {cv::IMWRITE_PNG_COMPRESSION, effort}));
    }
}

/// Four kinds of pictures that are best packed in four ways.
std::vector<cv::Mat> kindsOfPictures()
{
    constexpr int side = 300;
    cv::Mat noisy = picture(CV_8UC3, side, side);
    cv::Mat noise(noisy.size(), CV_8UC3);
    cv::RNG random(20240229);
    random.fill(noise, cv::RNG::UNIFORM, 0, 16);
    noisy += noise;
    cv::Mat mask(side, side, CV_8UC1);
    cv::Mat smooth(side, side, CV_8UC3);
    cv::Mat drawing(side, side, CV_8UC3);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            int const fromCentre = (x - 150) * (x - 150) + (y - 150) * (y - 150);
            mask.at<uchar>(y, x) = fromCentre < 9000 ? 255 : 0;
            auto const wave = static_cast<uchar>(fromCentre / 100);
            smooth.at<cv::Vec3b>(y, x) = cv::Vec3b(wave, static_cast<uchar>(255 - wave), wave);
            auto const letter = static_cast<uchar>((x % 30 * 7919 + y % 20 * 104729) % 251);
            drawing.at<cv::Vec3b>(y, x) = cv::Vec3b(letter, letter, 0);
        }
    }
    return {noisy, mask, smooth, drawing};
}

TEST(VelImageSave, QuickPngsAreHardlyLargerThanThoroughOnes)
{
    // What little there is in a small file counts for less than how a large one grows.
    constexpr std::size_t spare = 1024;
    TemporaryDirectory const directory;
    std::string const path = directory.path("image.png");
    for (cv::Mat const& mat : kindsOfPictures()) {
        std::size_t const thorough = encoded(".png", mat, {cv::IMWRITE_PNG_COMPRESSION, 6}).size();
        for (int effort = 1; effort <= 6; ++effort) {
            EXPECT_EQ(imageOf(mat).SaveImage(path.c_str(), effort), 1);
            Bytes const bytes = readFile(path);
            EXPECT_TRUE(same(decoded(bytes), mat));
            EXPECT_LE(bytes.size(), thorough + thorough / 20 + spare) << effort;
        }
    }
}

TEST(VelImageSave, TiffIsUncompressedForEffortZeroOnly)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image.tiff");
    VelImage const image(nullptr, 100, 100, 1, 0, VEL_8U);
    EXPECT_EQ(image.SaveImage(path.c_str(), 0), 1);
    EXPECT_GT(std::filesystem::file_size(path), 10000u);
    EXPECT_EQ(image.SaveImage(path.c_str(), 1), 1);
    EXPECT_LT(std::filesystem::file_size(path), 5000u);
}

TEST(VelImageSave, TiffIsCompressedForValuesOfOneAndTwoBytes)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image.tiff");
    for (int type : {VEL_8U, VEL_8S, VEL_16U, VEL_16S, VEL_32S, VEL_32F, VEL_64F}) {
        VelImage const image(nullptr, 100, 100, 1, 0, type);
        auto const pixelBytes = static_cast<std::uintmax_t>(image.Step()) * 100;
        EXPECT_EQ(image.SaveImage(path.c_str(), 9), 1);
        if (image.Step() <= 200)
            EXPECT_LT(std::filesystem::file_size(path), pixelBytes / 2) << type;
        else
            EXPECT_GT(std::filesystem::file_size(path), pixelBytes) << type;
    }
}

TEST(VelImageSave, EffortOutsideItsRangeIsClamped)
{
    TemporaryDirectory const directory;
    VelImage const image = imageOf(picture(CV_8UC3));
    for (char const* name : {"image.png", "image.jpg", "image.tif", "image.bmp", "image.ppm"}) {
        std::string const path = directory.path(name);
        auto const saved = [&](int effort) {
            EXPECT_EQ(image.SaveImage(path.c_str(), effort), 1);
            return readFile(path);
        };
        EXPECT_EQ(saved(-1), saved(0)) << name;
        EXPECT_EQ(saved(INT_MIN), saved(0)) << name;
        EXPECT_EQ(saved(10), saved(9)) << name;
        EXPECT_EQ(saved(INT_MAX), saved(9)) << name;
    }
}

TEST(VelImageSave, ExtensionsCountInAnyCase)
{
    TemporaryDirectory const directory;
    VelImage const grey = imageOf(picture(CV_8UC1));
    for (char const* name : {"a.PNG", "a.Jpg", "a.JPEG", "a.TIF", "a.tIFF", "a.BMP", "a.PGM",
                             "a.PNM", "two.dots.png", ".hidden.png"})
        EXPECT_EQ(grey.SaveImage(directory.path(name).c_str(), 6), 1) << name;
    EXPECT_EQ(imageOf(picture(CV_8UC3)).SaveImage(directory.path("a.PPM").c_str(), 6), 1);
}

TEST(VelImageSave, UnknownAndMissingExtensionsAreRefusedAndWriteNothing)
{
    TemporaryDirectory const directory;
    VelImage const image = imageOf(picture(CV_8UC1));
    for (char const* name : {"image", "image.", "image.gif", "image.png ", "image.png.bak", ".png",
                             "image.webp", "png", "image.jp2", "image.hdr", "image.pam"})
        EXPECT_EQ(image.SaveImage(directory.path(name).c_str(), 6), 0) << name;
    EXPECT_EQ(directory.entries(), Names());
}

TEST(VelImageSave, TheExtensionOfADirectoryDoesNotCount)
{
    TemporaryDirectory const directory;
    std::filesystem::create_directory(directory.path("folder.png"));
    EXPECT_EQ(VelImage(nullptr, 1, 1, 1, 0, VEL_8U)
                  .SaveImage(directory.path("folder.png/image").c_str(), 6),
              0);
}

TEST(VelImageSave, NullAndEmptyPathsAreRefused)
{
    VelImage const image(nullptr, 1, 1, 1, 0, VEL_8U);
    EXPECT_EQ(image.SaveImage(nullptr, 6), 0);
    EXPECT_EQ(image.SaveImage("", 6), 0);
}

TEST(VelImageSave, TheEmptyImageIsRefusedAndWritesNothing)
{
    TemporaryDirectory const directory;
    EXPECT_EQ(VelImage().SaveImage(directory.path("image.png").c_str(), 6), 0);
    EXPECT_EQ(directory.entries(), Names());
}

TEST(VelImageSave, PathsThatCannotBeWrittenAreRefusedInSilence)
{
    TemporaryDirectory const directory;
    writeFile(directory.path("file"), {1});
    std::filesystem::create_directory(directory.path("folder.png"));
    VelImage const image(nullptr, 1, 1, 1, 0, VEL_8U);
    Console console;
    EXPECT_EQ(image.SaveImage(directory.path("missing/image.png").c_str(), 6), 0);
    EXPECT_EQ(image.SaveImage(directory.path("file/image.png").c_str(), 6), 0);
    EXPECT_EQ(image.SaveImage(directory.path("folder.png").c_str(), 6), 0);
    EXPECT_EQ(image.SaveImage(directory.path(std::string(300, 'x') + ".png").c_str(), 6), 0);
    EXPECT_EQ(console.caught(), "");
    EXPECT_EQ(directory.entries().size(), 2u);
}

TEST(VelImageSave, AFailedSaveKeepsTheOldFile)
{
    TemporaryDirectory const directory;
    Bytes const old = bytesOf("precious");
    writeFile(directory.path("image.bmp"), old);
    VelImage const deep(nullptr, 4, 4, 1, 0, VEL_64F);
    EXPECT_EQ(deep.SaveImage(directory.path("image.bmp").c_str(), 6), 0);
    EXPECT_EQ(readFile(directory.path("image.bmp")), old);
}

TEST(VelImageSave, WhatIsNoRegularFileIsNotReplaced)
{
    TemporaryDirectory const directory;
    std::string const pipe = directory.path("pipe.png");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(VelImage(nullptr, 1, 1, 1, 0, VEL_8U).SaveImage(pipe.c_str(), 6), 0);
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

TEST(VelImageSave, SavingReplacesTheFileAndLeavesNothingElseBehind)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image.png");
    writeFile(path, Bytes(100000, 7));
    EXPECT_EQ(VelImage(nullptr, 1, 1, 1, 0, VEL_8U).SaveImage(path.c_str(), 6), 1);
    EXPECT_LT(std::filesystem::file_size(path), 1000u);
    EXPECT_EQ(directory.entries(), Names({"image.png"}));
}

TEST(VelImageSave, NewFilesFollowTheUmaskAndOldOnesKeepTheirMode)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image.png");
    VelImage const image(nullptr, 1, 1, 1, 0, VEL_8U);
    auto const mode = [&path] {
        return static_cast<unsigned>(std::filesystem::status(path).permissions());
    };
    mode_t const before = ::umask(027);
    EXPECT_EQ(image.SaveImage(path.c_str(), 6), 1);
    EXPECT_EQ(mode(), 0640u);
    std::filesystem::permissions(path, std::filesystem::perms(0604));
    EXPECT_EQ(image.SaveImage(path.c_str(), 6), 1);
    EXPECT_EQ(mode(), 0604u);
    ::umask(before);
}

TEST(VelImageSave, ASymbolicLinkKeepsItsTarget)
{
    TemporaryDirectory const directory;
    writeFile(directory.path("target.png"), {1});
    std::filesystem::create_symlink("target.png", directory.path("link.png"));
    VelImage const image(nullptr, 3, 1, 1, 0, VEL_8U);
    EXPECT_EQ(image.SaveImage(directory.path("link.png").c_str(), 6), 1);
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path("link.png")));
    VelImage read;
    EXPECT_EQ(read.ReadImage(directory.path("target.png").c_str()), 1);
    EXPECT_EQ(read.Width(), 3);
}

TEST(VelImageSave, NamesAreAnyBytes)
{
    TemporaryDirectory const directory;
    VelImage const image(nullptr, 3, 2, 1, 0, VEL_8U);
    for (std::string const name :
         {"with space.png", "\xff\xfe\xc3(.png", "-n.png", "new\nline.png"}) {
        std::string const path = directory.path(name);
        EXPECT_EQ(image.SaveImage(path.c_str(), 6), 1);
        VelImage read;
        EXPECT_EQ(read.ReadImage(path.c_str()), 1);
        EXPECT_EQ(read.Width(), 3);
    }
}

TEST(VelImageSave, RelativeNamesLieInTheWorkingDirectory)
{
    TemporaryDirectory const directory;
    std::filesystem::current_path(directory.path("."));
    EXPECT_EQ(VelImage(nullptr, 3, 2, 1, 0, VEL_8U).SaveImage("plain.bmp", 6), 1);
    EXPECT_EQ(directory.entries(), Names({"plain.bmp"}));
    std::filesystem::current_path("/");
}

TEST(VelImageSave, TheLongestSidesCanBeReadBackAndLongerOnesAreRefusedInSilence)
{
    TemporaryDirectory const directory;
    struct
    {
        char const* name;
        int longest;
    } const cases[] = {{"a.jpg", 65500},
                       {"a.png", 1000000},
                       {"a.tif", 1 << 20},
                       {"a.bmp", 1 << 20},
                       {"a.pgm", 1 << 20}};
    Console console;
    for (auto const& [name, longest] : cases) {
        std::string const path = directory.path(name);
        VelImage const wide(nullptr, longest + 1, 1, 1, 0, VEL_8U);
        VelImage const high(nullptr, 1, longest + 1, 1, 0, VEL_8U);
        EXPECT_EQ(wide.SaveImage(path.c_str(), 6), 0) << name;
        EXPECT_EQ(high.SaveImage(path.c_str(), 6), 0) << name;
        EXPECT_EQ(directory.entries(), Names());
        VelImage image;
        EXPECT_EQ(VelImage(nullptr, longest, 1, 1, 0, VEL_8U).SaveImage(path.c_str(), 1), 1)
            << name;
        EXPECT_EQ(image.ReadImage(path.c_str()), 1) << name;
        EXPECT_EQ(image.Width(), longest);
        EXPECT_EQ(VelImage(nullptr, 1, longest, 1, 0, VEL_8U).SaveImage(path.c_str(), 1), 1)
            << name;
        EXPECT_EQ(image.ReadImage(path.c_str()), 1) << name;
        EXPECT_EQ(image.Height(), longest);
        std::filesystem::remove(path);
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageSave, BitmapsAreByteForByteThoseOfOpenCv)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("a.bmp");
    for (int const type : {CV_8UC1, CV_8UC3}) {
        for (int const width : {1, 2, 3, 4, 37}) {
            cv::Mat const mat = picture(type, width);
            EXPECT_EQ(imageOf(mat).SaveImage(path.c_str(), 6), 1);
            EXPECT_EQ(readFile(path), encoded(".bmp", mat)) << type << ' ' << width;
        }
    }
}

} // namespace
