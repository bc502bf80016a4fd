#include <algorithm>
#include <climits>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>
#include <sys/stat.h>

#include "console.h"
#include "imagefiles.h"

namespace {

/// Reads @p bytes from a file; the image is empty where that fails.
VelImage readBytes(Bytes const& bytes)
{
    TemporaryDirectory const directory;
    writeFile(directory.path("image"), bytes);
    VelImage image;
    image.ReadImage(directory.path("image").c_str());
    return image;
}

/// The numbers of a small one-channel 8-bit image, row by row.
std::vector<int> valuesOf(VelImage const& image)
{
    cv::Mat const view = viewOf(image);
    std::vector<int> values;
    for (int y = 0; y < view.rows; ++y)
        for (int x = 0; x < view.cols * view.channels(); ++x)
            values.push_back(view.depth() == CV_16U ? view.ptr<ushort>(y)[x] : view.ptr(y)[x]);
    return values;
}

using Values = std::vector<int>;

TEST(VelImageRead, JpegIsWhatOpenCvDecodes)
{
    Console console;
    for (int type : {CV_8UC1, CV_8UC3}) {
        for (int progressive : {0, 1}) {
            Bytes const bytes =
                encoded(".jpg", picture(type), {cv::IMWRITE_JPEG_PROGRESSIVE, progressive});
            EXPECT_TRUE(same(viewOf(readBytes(bytes)), decoded(bytes)));
        }
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageRead, FormatIsRecognisedByTheContentsNotTheName)
{
    TemporaryDirectory const directory;
    cv::Mat const mat = picture(CV_8UC3);
    for (char const* extension : {".png", ".tif", ".bmp", ".ppm"}) {
        for (char const* name : {"image", "image.txt", "image.jpg", "image.png"}) {
            writeFile(directory.path(name), encoded(extension, mat));
            VelImage image;
            EXPECT_EQ(image.ReadImage(directory.path(name).c_str()), 1);
            EXPECT_TRUE(same(viewOf(image), mat));
        }
    }
}

TEST(VelImageRead, WhatIsNoReadableFileIsRefusedInSilenceAndKeepsTheImage)
{
    TemporaryDirectory const directory;
    ASSERT_EQ(::mkfifo(directory.path("pipe").c_str(), 0600), 0);
    writeFile(directory.path("file"), {1});
    cv::Mat const old = picture(CV_16UC3);
    VelImage image = imageOf(old);
    unsigned char* const pixels = image.ImageData();
    Console console;
    for (char const* name : {".", "missing", "pipe", "file/image.png", "missing/image.png"})
        EXPECT_EQ(image.ReadImage(directory.path(name).c_str()), 0) << name;
    EXPECT_EQ(image.ReadImage(directory.path(std::string(300, 'x')).c_str()), 0);
    EXPECT_EQ(image.ReadImage("/dev/zero"), 0);
    EXPECT_EQ(image.ReadImage(""), 0);
    EXPECT_EQ(image.ReadImage(nullptr), 0);
    EXPECT_EQ(console.caught(), "");
    EXPECT_EQ(image.ImageData(), pixels);
    EXPECT_TRUE(same(viewOf(image), old));
}

TEST(VelImageRead, OtherFormatsAreRefusedInSilence)
{
    std::vector<Bytes> const files = {
        encoded(".webp", picture(CV_8UC3)),
        encoded(".ras", picture(CV_8UC3)),
        encoded(".pam", picture(CV_8UC3)),
        encoded(".hdr", picture(CV_32FC3)),
    };
    Console console;
    for (Bytes const& file : files) {
        EXPECT_FALSE(file.empty());
        EXPECT_EQ(readBytes(file).ImageData(), nullptr);
    }
    for (char const* text : {"", "P", "B", "BM", "BMBMBMBM", "P9 1 1 255\n0", "GIF89a\1\0\1\0\0",
                             "hello, I am a text and no picture"})
        EXPECT_EQ(readBytes(bytesOf(text)).ImageData(), nullptr) << text;
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageRead, LeavesEarlierCopiesTheirPixels)
{
    TemporaryDirectory const directory;
    cv::Mat const old = picture(CV_8UC1);
    cv::Mat const fresh = picture(CV_16UC3, 5, 4);
    writeFile(directory.path("image"), encoded(".png", fresh));
    VelImage image = imageOf(old);
    VelImage const copy(image);
    EXPECT_EQ(image.ReadImage(directory.path("image").c_str()), 1);
    EXPECT_TRUE(same(viewOf(image), fresh));
    EXPECT_TRUE(same(viewOf(copy), old));
}

/// A JPEG whose EXIF block asks viewers to turn it by 90 degrees.
TEST(VelImageRead, ExifOrientationIsNotApplied)
{
    Bytes bytes = encoded(".jpg", picture(CV_8UC3, 40, 20));
    Bytes const exif = {0xFF, 0xE1, 0, 34, 'E', 'x', 'i', 'f', 0,    0,    'I', 'I',
                        42,   0,    8, 0,  0,   0,   1,   0,   0x12, 0x01, 3,   0,
                        1,    0,    0, 0,  6,   0,   0,   0,   0,    0,    0,   0};
    bytes.insert(bytes.begin() + 2, exif.begin(), exif.end());
    ASSERT_EQ(cv::imdecode(bytes, cv::IMREAD_COLOR).cols, 20) << "the block is in force";
    VelImage const image = readBytes(bytes);
    EXPECT_EQ(image.Width(), 40);
    EXPECT_EQ(image.Height(), 20);
}

TEST(VelImageRead, AsciiAndBinaryPortableMaps)
{
    struct
    {
        std::string text;
        int channels;
        int depth;
        Values values;
    } const cases[] = {
        {"P1\n3 2\n1 0 1\n0 1 0", 1, VEL_8U, {0, 255, 0, 255, 0, 255}},
        {"P1\n3 2\n101010\n", 1, VEL_8U, {0, 255, 0, 255, 0, 255}},
        {"P2\n# a comment\n2 2\n255\n0 10\n200 255", 1, VEL_8U, {0, 10, 200, 255}},
        {"P2 2 1 65535 1 60000\n", 1, VEL_16U, {1, 60000}},
        {"P2 2 1 1000 1 999", 1, VEL_16U, {1, 999}},
        {"P2\n3 1\n255\n1#one\n2 # two\n3#", 1, VEL_8U, {1, 2, 3}},
        {"P3\n1 2\n255\n1 2 3\n4 5 6\n", 3, VEL_8U, {3, 2, 1, 6, 5, 4}},
        {std::string("P4\n10 1\n\xA0\x40", 10),
         1,
         VEL_8U,
         {0, 255, 0, 255, 255, 255, 255, 255, 255, 0}},
        {std::string("P4\n8 2\n\xA5\x0F", 9),
         1,
         VEL_8U,
         {0, 255, 0, 255, 255, 0, 255, 0, 255, 255, 255, 255, 0, 0, 0, 0}},
        {std::string("P5\n2 1\n255\n\x07\xFF", 13), 1, VEL_8U, {7, 255}},
        {std::string("P5\n#a\0b\n2 1\n255\n\x07\xFF", 18), 1, VEL_8U, {7, 255}},
        {std::string("P5\n2 1\n65535\n\x01\x02\xFF\x00", 17), 1, VEL_16U, {0x0102, 0xFF00}},
        {std::string("P6\n1 1\n255\n\x01\x02\x03", 14), 3, VEL_8U, {3, 2, 1}},
    };
    Console console;
    for (auto const& map : cases) {
        SCOPED_TRACE(map.text);
        VelImage const image = readBytes(bytesOf(map.text));
        EXPECT_EQ(image.Channels(), map.channels);
        EXPECT_EQ(image.BitDepth(), map.depth);
        EXPECT_EQ(valuesOf(image), map.values);
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageRead, ValuesOfPortableMapsAreNotRescaled)
{
    EXPECT_EQ(valuesOf(readBytes(bytesOf("P2 2 1 100 50 100"))), Values({50, 100}));
    EXPECT_EQ(valuesOf(readBytes(bytesOf("P5 2 1 100\n2d"))), Values({50, 100}));
}

TEST(VelImageRead, ZerosBeforeANumberOfAPortableMapDoNotCount)
{
    Console console;
    std::string const zeros(20, '0');
    EXPECT_EQ(valuesOf(readBytes(bytesOf("P2 2 1 255 " + zeros + "12 00000000034"))),
              Values({12, 34}));
    EXPECT_EQ(valuesOf(readBytes(bytesOf("P2 2 1 65535 " + zeros + "65535 000000000001"))),
              Values({65535, 1}));
    EXPECT_EQ(valuesOf(readBytes(bytesOf("P5 " + zeros + "2 01 0000000255\nab"))),
              Values({'a', 'b'}));
    EXPECT_EQ(readBytes(bytesOf("P2 2 1 255 " + zeros + "256 0")).ImageData(), nullptr);
    EXPECT_EQ(readBytes(bytesOf("P2 2 1 255 " + zeros + "12")).ImageData(), nullptr);
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageRead, BrokenPortableMapsAreRefusedInSilence)
{
    Console console;
    for (char const* text : {"P1\n3 2\n1 0 1 0 1",
                             "P1\n3 2\n1 0 2 0 1 1",
                             "P2\n2 2\n255\n0 10 200",
                             "P2\n2 2\n",
                             "P2\n2 x\n255\n0 10 200 255",
                             "P2\n2 1\n255\n0 256",
                             "P2\n2 1\n0\n0 0",
                             "P2\n2 1\n65536\n0 0",
                             "P2\n0 1\n255\n0 0",
                             "P2\n-2 1\n255\n0 0 0 0",
                             "P2\n99999999999 1\n255\n0 0",
                             "P2\n1048577 1\n255\n0 0",
                             "P5\n2 2\n255\nabc",
                             "P6\n1 1\n255\nab",
                             "P4\n9 2\nabc",
                             "P5\n100000 100000\n255\nabc",
                             "P5\n2 2\n255#abcd",
                             "P5\n2#\n 2\n255\nabcd",
                             "P2 # all of it a comment",
                             "P5\n1 1\n255"})
        EXPECT_EQ(readBytes(bytesOf(text)).ImageData(), nullptr) << text;
    EXPECT_EQ(console.caught(), "");
}

/// A bitmap's bytes from its header fields, a palette of greys or colours, and rows of zeros.
struct Bitmap
{
    unsigned headerSize = 40;
    int width = 5;
    int height = 3;
    unsigned bits = 8;
    unsigned compression = 0;
    unsigned colours = 0;
    std::size_t dataSize = 24;
    std::size_t paletteBytes = 1024;
    Bytes masks = {};

    Bytes bytes() const
    {
        Bytes file;
        put(file, 0x4D42, 2);
        put(file, 0, 8);
        put(file, static_cast<unsigned>(14 + headerSize + paletteBytes + masks.size()), 4);
        put(file, headerSize, 4);
        put(file, static_cast<unsigned>(width), headerSize == 12 ? 2 : 4);
        put(file, static_cast<unsigned>(height), headerSize == 12 ? 2 : 4);
        put(file, 1, 2);
        put(file, bits, 2);
        if (headerSize > 12) {
            put(file, compression, 4);
            put(file, 0, 12);
            put(file, colours, 4);
            put(file, 0, 4);
            file.resize(std::max<std::size_t>(file.size(), 14 + headerSize));
        }
        file.insert(file.end(), masks.begin(), masks.end());
        for (std::size_t i = 0; i < paletteBytes; ++i)
            file.push_back(static_cast<unsigned char>(i / 4));
        for (std::size_t i = 0; i < dataSize; ++i)
            file.push_back(static_cast<unsigned char>(i));
        return file;
    }

private:
    static void put(Bytes& file, unsigned value, int size)
    {
        for (int i = 0; i < size; ++i)
            file.push_back(static_cast<unsigned char>(i < 4 ? value >> (8 * i) : 0));
    }
};

TEST(VelImageRead, BitmapsOfEveryDepth)
{
    Console console;
    Bitmap bitmap;
    EXPECT_EQ(valuesOf(readBytes(bitmap.bytes())),
              Values({16, 17, 18, 19, 20, 8, 9, 10, 11, 12, 0, 1, 2, 3, 4}));
    bitmap.height = -3;
    EXPECT_EQ(valuesOf(readBytes(bitmap.bytes())),
              Values({0, 1, 2, 3, 4, 8, 9, 10, 11, 12, 16, 17, 18, 19, 20}));

    for (unsigned bits : {1u, 4u, 8u, 16u, 24u, 32u}) {
        bitmap = Bitmap();
        bitmap.bits = bits;
        bitmap.paletteBytes = bits <= 8 ? 4u << bits : 0;
        bitmap.dataSize = (5 * bits + 31) / 32 * 4 * 3;
        Bytes const bytes = bitmap.bytes();
        EXPECT_TRUE(same(viewOf(readBytes(bytes)), decoded(bytes))) << bits;
        bitmap.dataSize -= 1;
        EXPECT_EQ(readBytes(bitmap.bytes()).ImageData(), nullptr) << bits;
    }
    EXPECT_EQ(console.caught(), "");
}

/// The oldest header has sizes of 16 bits and palettes of three bytes a colour. OpenCV takes such a
/// picture for a grey one, so that the newer header is the witness.
TEST(VelImageRead, BitmapsWithTheOldestHeader)
{
    Console console;
    for (unsigned bits : {1u, 4u, 8u, 24u, 32u}) {
        for (bool isGrey : {false, true}) {
            SCOPED_TRACE(testing::Message() << bits << " bits, grey " << isGrey);
            std::size_t const colours = bits <= 8 ? std::size_t{1} << bits : 0;
            Bitmap bitmap;
            bitmap.bits = bits;
            bitmap.dataSize = (5 * bits + 31) / 32 * 4 * 3;
            bitmap.paletteBytes = 0;
            Bytes newest = bitmap.bytes();
            bitmap.headerSize = 12;
            Bytes oldest = bitmap.bytes();
            for (std::size_t i = colours; i-- > 0;) {
                auto const value = static_cast<unsigned char>(255 - i);
                auto const green = static_cast<unsigned char>(isGrey ? value : i / 2);
                newest.insert(newest.begin() + 54, {value, green, value, 0});
                oldest.insert(oldest.begin() + 26, {value, green, value});
            }
            newest[10] = static_cast<unsigned char>(54 + 4 * colours);
            newest[11] = static_cast<unsigned char>((54 + 4 * colours) >> 8);
            oldest[10] = static_cast<unsigned char>(26 + 3 * colours);
            oldest[11] = static_cast<unsigned char>((26 + 3 * colours) >> 8);
            VelImage const image = readBytes(oldest);
            EXPECT_EQ(image.Channels(), bits <= 8 && isGrey ? 1 : 3);
            EXPECT_TRUE(same(viewOf(image), decoded(newest)));
        }
    }
    Bitmap high;
    high.headerSize = 12;
    high.bits = 16;
    high.paletteBytes = 0;
    high.dataSize = 36;
    EXPECT_EQ(readBytes(high.bytes()).ImageData(), nullptr);
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageRead, BitmapsWithMasks)
{
    Console console;
    Bitmap high;
    high.bits = 16;
    high.compression = 3;
    high.paletteBytes = 0;
    high.dataSize = 36;
    high.masks = {0, 0xF8, 0, 0, 0xE0, 7, 0, 0, 0x1F, 0, 0, 0};
    EXPECT_TRUE(same(viewOf(readBytes(high.bytes())), decoded(high.bytes())));
    high.masks[0] = 1;
    EXPECT_EQ(readBytes(high.bytes()).ImageData(), nullptr);

    Bitmap alpha;
    alpha.headerSize = 56;
    alpha.bits = 32;
    alpha.compression = 3;
    alpha.paletteBytes = 0;
    alpha.dataSize = 60;
    Bytes const masks = {0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0, 0, 0, 0, 0xFF};
    Bytes bytes = alpha.bytes();
    std::copy(masks.begin(), masks.end(), bytes.begin() + 54);
    VelImage const image = readBytes(bytes);
    EXPECT_EQ(image.Channels(), 4);
    EXPECT_EQ(valuesOf(image)[4], 44);
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageRead, BitmapsWithHeadersOfEveryKnownLength)
{
    Console console;
    Bitmap bitmap;
    for (unsigned size = 13; size <= 130; ++size) {
        bitmap.headerSize = size;
        bool const isKnown = size == 40 || size == 52 || size == 56 || size == 108 || size == 124;
        EXPECT_EQ(readBytes(bitmap.bytes()).ImageData() != nullptr, isKnown) << size;
    }
    EXPECT_EQ(console.caught(), "");
}

/// A palette of greys with one colour among them is one of colours, whichever part differs.
TEST(VelImageRead, BitmapsWithOneColourAmongGreys)
{
    Console console;
    for (std::size_t part = 0; part < 3; ++part) {
        Bytes bytes = Bitmap().bytes();
        bytes[54 + 4 * 9 + part] = 200;
        VelImage const image = readBytes(bytes);
        EXPECT_EQ(image.Channels(), 3) << part;
        EXPECT_TRUE(same(viewOf(image), decoded(bytes))) << part;
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageRead, BrokenBitmapsAreRefusedInSilence)
{
    std::vector<Bitmap> broken(10);
    broken[0].width = 0;
    broken[1].width = -5;
    broken[2].height = 0;
    broken[3].height = INT_MIN;
    broken[4].bits = 7;
    broken[5].compression = 1;
    broken[6].colours = 257;
    broken[6].paletteBytes = 4 * 257;
    broken[7].headerSize = 41;
    broken[8].width = 1 << 21;
    broken[9].paletteBytes = 1020;
    broken[9].dataSize = 100;
    Console console;
    for (std::size_t i = 0; i < broken.size(); ++i)
        EXPECT_EQ(readBytes(broken[i].bytes()).ImageData(), nullptr) << i;
    EXPECT_EQ(console.caught(), "");
}

} // namespace
