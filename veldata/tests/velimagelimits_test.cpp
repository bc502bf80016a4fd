#include <cstdint>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>
#include <tiffio.h>

#include "child.h"
#include "imagefiles.h"
#include "rawpictures.h"

namespace {

constexpr std::size_t mebibyte = 1 << 20;
constexpr std::size_t mostForARefusal = 64 * mebibyte;

Cost costOfReading(std::string const& path)
{
    VelImage image;
    return costOf([&image, &path] { return image.ReadImage(path.c_str()); });
}

/// Expects that a file is refused and what for is noticed early.
void expectCheapRefusal(std::string const& path, std::size_t most = mostForARefusal)
{
    Cost const cost = costOfReading(path);
    EXPECT_EQ(cost.answer, 0);
    EXPECT_LE(cost.addressSpace, most);
    EXPECT_LE(cost.bytesRead, most + mebibyte); // windows that are read ahead
}

void expectCheapRefusal(Bytes const& bytes)
{
    TemporaryDirectory const directory;
    writeFile(directory.path("image"), bytes);
    expectCheapRefusal(directory.path("image"));
}

TEST(VelImageLimits, WhatIsNoPictureCostsNothingHoweverLargeTheFile)
{
    constexpr std::int64_t largest = 0x7FFFFFFF;
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    for (Bytes const& beginning :
         {Bytes(), bytesOf("GIF89a"), bytesOf("P7"), bytesOf("RIFF"), Bytes{0xFF, 0xD9}}) {
        writeSparse(path, beginning, largest);
        expectCheapRefusal(path, mebibyte);
    }
}

TEST(VelImageLimits, WhatTheBeginningForbidsIsNotReadToTheEnd)
{
    constexpr std::int64_t largest = 0x7FFFFFFF;
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    RawBitmap packed;
    packed.compression = 1;
    RawJpeg twoComponents;
    twoComponents.components = 2;
    std::pair<char const*, Bytes> const beginnings[] = {
        {"png of too many pixels", RawPng{100000, 100000}.header()},
        {"png without pixels", RawPng().header()},
        {"jpeg of two components", twoComponents.bytes()},
        {"jpeg without a frame", {0xFF, 0xD8, 0xFF, 0xFE, 0, 2}},
        {"jpeg without pixels", {0xFF, 0xD8, 0xFF, 0xDA}},
        {"tiff of too many pixels", RawTiff{1 << 19, 1 << 19, 1 << 19}.header()},
        {"tiff of tiles",
         RawTiff{8, 8, 8, {{322, {3, 16}}, {323, {3, 16}}, {324, {4, 8}}, {325, {4, 256}}}}
             .header()},
        {"bitmap of packed runs", packed.header()},
        {"bitmap of too many pixels", RawBitmap{1 << 20, 1 << 20}.header()},
        {"pnm of too many pixels", bytesOf("P5\n100000 100000\n255\n")},
        {"pnm without a size", bytesOf("P6\nx")},
        {"ascii pnm of too many pixels", bytesOf("P2\n100000 100000\n255\n")},
    };
    for (auto const& [name, beginning] : beginnings) {
        SCOPED_TRACE(name);
        writeSparse(path, beginning, largest);
        expectCheapRefusal(path);
    }
}

TEST(VelImageLimits, FilesOfTwoGibibytesAreRefusedUnread)
{
    constexpr std::int64_t twoGibibytes = std::int64_t{1} << 31;
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    for (std::int64_t size : {twoGibibytes, 2 * twoGibibytes + 100}) {
        writeSparse(path, bytesOf("P5\n2 1\n255\nab"), size);
        expectCheapRefusal(path, mebibyte);
    }
}

/// The claims of a header alone, a little over the limit once the pixels are decoded.
TEST(VelImageLimits, ClaimsOfMoreThanAGibibyteAreRefusedWithoutTheMemoryForThem)
{
    auto const png = [](std::uint32_t width, std::uint32_t height, int bits, int colourType) {
        return RawPng{width, height, bits, colourType}.header();
    };
    auto const tiff = [](std::uint32_t width, std::uint32_t height, std::uint32_t bits,
                         std::uint32_t photometric, std::uint32_t samples) {
        return RawTiff{width,
                       height,
                       64,
                       {{258, {3, bits}}, {262, {3, photometric}}, {277, {3, samples}}},
                       photometric == 3}
            .header();
    };
    std::pair<char const*, Bytes> const claims[] = {
        {"png grey", png(32768, 32769, 8, 0)},
        {"png grey of 1 bit", png(32768, 32769, 1, 0)},
        {"png grey of 16 bits", png(32768, 16385, 16, 0)},
        {"png colour", png(16384, 21846, 8, 2)},
        {"png palette of 1 bit becomes colour", png(16384, 21846, 1, 3)},
        {"png grey and alpha becomes four channels", png(16384, 16385, 8, 4)},
        {"png colour and alpha of 16 bits", png(16384, 8193, 16, 6)},
        {"tiff grey", tiff(32768, 32769, 8, 1, 1)},
        {"tiff bilevel becomes bytes", tiff(32768, 32769, 1, 1, 1)},
        {"tiff palette becomes colour", tiff(16384, 21846, 8, 3, 1)},
        {"tiff grey of 64 bits", tiff(16384, 8193, 64, 1, 1)},
        {"bitmap grey", RawBitmap{32768, 32769}.header()},
        {"bitmap colour", RawBitmap{16384, 21846, 24}.header()},
        {"pgm", bytesOf("P5\n32768 32769\n255\n")},
        {"pgm of 16 bits", bytesOf("P5\n32768 16385\n65535\n")},
        {"ppm", bytesOf("P6\n16384 21846\n255\n")},
        {"pbm becomes bytes", bytesOf("P4\n32768 32769\n")},
        {"ascii pgm", bytesOf("P2\n32768 32769\n255\n")},
        {"ascii pbm", bytesOf("P1\n32768 32769\n")},
    };
    for (auto const& [name, bytes] : claims) {
        SCOPED_TRACE(name);
        expectCheapRefusal(bytes);
    }
}

/// Formats that do not pack their pixels: the length of the file tells whether all are there.
TEST(VelImageLimits, ClaimsOfPixelsThatTheFileDoesNotHoldAreRefusedWithoutTheMemoryForThem)
{
    for (Bytes const& bytes :
         {RawBitmap{16384, 16384}.header(), bytesOf("P4\n16384 16384\n"),
          bytesOf("P5\n16384 16384\n255\n"), bytesOf("P6\n16384 16384\n255\n")})
        expectCheapRefusal(bytes);
}

/// Sizes whose products leave 32 and 64 bits.
TEST(VelImageLimits, ClaimsBeyondAllArithmeticAreRefused)
{
    constexpr std::uint32_t most = 0xFFFFFFFF;
    constexpr std::uint32_t mostPng = 0x7FFFFFFF;
    for (Bytes const& bytes :
         {RawPng{mostPng, mostPng, 16, 6}.header(), RawPng{65536, 65536}.header(),
          RawTiff{most, most, most, {{258, {3, 64}}}}.header(),
          RawTiff{65536, 65536, 65536}.header(), RawTiff{65536, 65537, most}.header(),
          RawBitmap{mostPng, 0x80000001, 24}.header(), RawBitmap{65536, 65536, 24}.header(),
          bytesOf("P6\n4294967295 4294967295\n65535\n"), bytesOf("P6\n65536 65536\n255\n"),
          bytesOf("P5\n4294967297 4294967297\n255\na"),
          bytesOf("P5\n18446744073709551617 1\n255\na")})
        expectCheapRefusal(bytes);
}

/// Small files that hold all they promise, of which the decoder wants more than the pixels.
TEST(VelImageLimits, JpegsThatPromiseMoreBlocksThanTheirBytesHoldAreRefusedWithoutTheMemory)
{
    for (int components : {1, 3}) {
        for (bool isProgressive : {false, true}) {
            for (bool isInterleaved : {false, true}) {
                RawJpeg jpeg{8192, 8192, components, isProgressive, isInterleaved};
                Bytes bytes = jpeg.bytes();
                bytes.resize(1000);
                expectCheapRefusal(bytes);
            }
        }
    }
}

/// Four inks take more than the colours that become of them.
TEST(VelImageLimits, JpegsThatNeedMoreThanTwoGibibytesOfCoefficientsAreRefusedWithoutThem)
{
    for (bool isProgressive : {false, true}) {
        RawJpeg const jpeg{16384, 16392, 4, isProgressive, false};
        ASSERT_LT(std::uint64_t{16384} * 16392 * 3, std::uint64_t{1} << 30);
        expectCheapRefusal(jpeg.bytes());
    }
}

/// Sets how many values the field @p tag of a small TIFF file claims to have.
Bytes withCount(Bytes header, unsigned tag, std::uint32_t count)
{
    constexpr std::size_t entries = 10, entrySize = 12;
    for (std::size_t at = entries; at + entrySize <= header.size(); at += entrySize) {
        if ((header[at] | header[at + 1] << 8) == static_cast<int>(tag)) {
            for (std::size_t i = 0; i < 4; ++i)
                header[at + 4 + i] = static_cast<unsigned char>(count >> (8 * i));
            return header;
        }
    }
    ADD_FAILURE() << "no field " << tag;
    return header;
}

/// The file is long enough for all of them, so that only a limit keeps them out. libtiff asks for
/// larger blocks than it fills.
TEST(VelImageLimits, FieldsOfATiffThatClaimManyValuesCostLittle)
{
    constexpr unsigned byteType = 1, shortType = 3, longType = 4;
    constexpr unsigned offsets = 273, sizes = 279, extraSamples = 338, own = 65000;
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    RawTiff const tiff{8,
                       8,
                       8,
                       {{320, {shortType, 1000}},
                        {extraSamples, {shortType, 0}},
                        {34675, {byteType, 1000}},
                        {own, {longType, 1000}}}};
    for (unsigned tag : {258u, offsets, sizes, 320u, extraSamples, 34675u, own}) {
        for (std::uint32_t count : {1u << 26, 1u << 28}) {
            writeSparse(path, withCount(tiff.header(), tag, count), 0x7FFFFFFF);
            Cost const cost = costOfReading(path);
            EXPECT_GE(cost.answer, 0) << tag;
            EXPECT_LE(cost.resident, mostForARefusal) << tag << ' ' << count;
            EXPECT_LE(cost.bytesRead, mostForARefusal) << tag << ' ' << count;
        }
    }
}

TEST(VelImageLimits, AStripThatClaimsManyBytesForFewPixelsCostsLittle)
{
    constexpr unsigned shortType = 3, longType = 4;
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    for (std::uint32_t compression : {1u, 5u, 8u, 32773u, 32946u}) {
        RawTiff const tiff{
            8, 8, 8, {{259, {shortType, compression}}, {279, {longType, 0x7FFFF000}}}};
        writeSparse(path, tiff.header(), 0x7FFFFFFF);
        Cost const cost = costOfReading(path);
        EXPECT_GE(cost.answer, 0) << compression;
        EXPECT_LE(cost.addressSpace, mostForARefusal) << compression;
        EXPECT_LE(cost.bytesRead, mostForARefusal) << compression;
    }
}

/// The strips share their bytes, and each of them claims the whole file to be packed pixels.
TEST(VelImageLimits, ATiffIsNotReadOverAndOver)
{
    constexpr std::uint32_t strips = 1000, width = 8, fileSize = 1 << 20;
    constexpr unsigned shortType = 3, deflate = 8;
    RawTiff const tiff{width, strips, 1, {{259, {shortType, deflate}}}};
    Bytes bytes = tiff.header();
    std::size_t const pixelsAt = bytes.size();
    bytes.resize(pixelsAt - 8 * strips);
    for (std::uint32_t i = 0; i < strips; ++i)
        appendLittle(bytes, pixelsAt, 4);
    for (std::uint32_t i = 0; i < strips; ++i)
        appendLittle(bytes, fileSize - pixelsAt, 4);
    Bytes const row(width, 7);
    Bytes packed(100);
    uLongf size = packed.size();
    ASSERT_EQ(::compress(packed.data(), &size, row.data(), row.size()), Z_OK);
    packed.resize(size);
    append(bytes, packed);
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    writeSparse(path, bytes, fileSize);
    Cost const cost = costOfReading(path);
    EXPECT_EQ(cost.answer, 0);
    EXPECT_LE(cost.bytesRead, std::size_t{4} * fileSize + 16 * tiff.pixelBytes() + mebibyte);

    // The same strips without the claim are a picture.
    bytes.resize(pixelsAt - 4 * strips);
    for (std::uint32_t i = 0; i < strips; ++i)
        appendLittle(bytes, size, 4);
    append(bytes, packed);
    writeFile(path, bytes);
    EXPECT_EQ(costOfReading(path).answer, 1);
}

/// Programs say so when they mean one strip for everything.
TEST(VelImageLimits, AStripOfMoreRowsThanThePictureHasCostsNoMore)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    RawTiff tiff{8, 8, 0xFFFFFFFF};
    Bytes bytes = tiff.header();
    bytes.resize(bytes.size() + tiff.pixelBytes(), 9);
    writeFile(path, bytes);
    Cost const cost = costOfReading(path);
    EXPECT_EQ(cost.answer, 1);
    EXPECT_LE(cost.addressSpace, 16 * mebibyte);
}

/// Files of exactly a gibibyte of pixels, and of one row more.
class VelImageLargest : public testing::Test
{
protected:
    void SetUp() override
    {
        constexpr std::size_t neededKibibytes = 3 * 1024 * 1024;
        if (numberIn("/proc/meminfo", "MemAvailable:") < neededKibibytes)
            GTEST_SKIP() << "needs 3 GiB of memory";
    }

    /// Reads what @p write writes into a path for a number of rows. @p rows is the most.
    template <class Write>
    void expectLimit(int rows, Write const& write) const
    {
        write(directory.path("image"), rows + 1);
        expectCheapRefusal(directory.path("image"));
        write(directory.path("image"), rows);
        EXPECT_EQ(inChild([this, rows] {
                      VelImage image;
                      bool const isRead = image.ReadImage(directory.path("image").c_str()) == 1 &&
                                          image.Height() == rows;
                      return isRead ? 1 : 0;
                  }),
                  1);
    }

    TemporaryDirectory directory;
};

TEST_F(VelImageLargest, Png)
{
    expectLimit(32768, [](std::string const& path, int rows) {
        writeFile(path, RawPng{32768, static_cast<std::uint32_t>(rows)}.bytes());
    });
}

TEST_F(VelImageLargest, Jpeg)
{
    expectLimit(32768, [](std::string const& path, int rows) {
        writeFile(path, RawJpeg{32768, rows}.bytes());
    });
}

TEST_F(VelImageLargest, Tiff)
{
    expectLimit(32768, [](std::string const& path, int rows) {
        RawTiff const tiff{32768, static_cast<std::uint32_t>(rows)};
        Bytes const header = tiff.header();
        writeSparse(path, header, static_cast<std::int64_t>(header.size() + tiff.pixelBytes()));
    });
}

TEST_F(VelImageLargest, Bitmap)
{
    expectLimit(32768, [](std::string const& path, int rows) {
        RawBitmap const bitmap{32768, static_cast<std::uint32_t>(rows)};
        Bytes const header = bitmap.header();
        writeSparse(path, header, static_cast<std::int64_t>(header.size() + bitmap.pixelBytes()));
    });
}

TEST_F(VelImageLargest, PortableMap)
{
    expectLimit(32768, [](std::string const& path, int rows) {
        Bytes const header = bytesOf("P5\n32768 " + std::to_string(rows) + "\n255\n");
        writeSparse(path, header,
                    static_cast<std::int64_t>(header.size()) + std::int64_t{rows} * 32768);
    });
}

/// What lies behind a picture in its file is not looked at, and the file may have 2 GiB less one
/// byte.
TEST_F(VelImageLargest, File)
{
    writeSparse(directory.path("image"), bytesOf("P5\n2 1\n255\nab"), 0x7FFFFFFF);
    EXPECT_EQ(inChild([this] {
                  VelImage image;
                  return image.ReadImage(directory.path("image").c_str()) == 1 &&
                                 image.Width() == 2 && image.ImageData()[1] == 'b'
                             ? 1
                             : 0;
              }),
              1);
}

TEST_F(VelImageLargest, WhatCouldNotBeReadBackIsNotWritten)
{
    VelImage const two(nullptr, 32768, 16384, 4, 0, VEL_8U); // 2 GiB, of which no page exists
    ASSERT_NE(two.ImageData(), nullptr);
    VelImage const more(nullptr, 32768, 32769, 1, 0, VEL_8U);
    ASSERT_EQ(more.ImageData(), nullptr) << "more pixels than an image has";
    VelImage const wide(nullptr, 32768, 16385, 1, 0, VEL_16U);
    ASSERT_NE(wide.ImageData(), nullptr);
    for (char const* name : {"a.png", "a.tif"}) {
        for (VelImage const* image : {&two, &wide}) {
            Cost const cost =
                costOf([&] { return image->SaveImage(directory.path(name).c_str(), 0); });
            EXPECT_EQ(cost.answer, 0);
            EXPECT_LE(cost.addressSpace, mostForARefusal);
        }
    }
    EXPECT_EQ(directory.entries().size(), 0u);
}

/// A JPEG of @p scans that say nothing, next to one that is read.
class VelImageScans : public testing::Test
{
protected:
    static constexpr int side = 8192;

    double secondsToRead()
    {
        writeFile(directory.path("few"), RawJpeg{side, side, 1, true, true, 1}.bytes());
        Cost const few = costOfReading(directory.path("few"));
        EXPECT_EQ(few.answer, 1);
        return few.cpuSeconds;
    }

    TemporaryDirectory directory;
};

/// Every scan walks over a million blocks.
TEST_F(VelImageScans, HundredsOfThemThatSayNothingAreRefusedInBoundedWork)
{
    constexpr double most = 30;
    double const seconds = secondsToRead();
    Bytes const bytes = RawJpeg{side, side, 1, true, true, 490}.bytes();
    writeFile(directory.path("many"), bytes);
    Cost const many = costOfReading(directory.path("many"));
    EXPECT_EQ(many.answer, 0);
    EXPECT_LT(many.cpuSeconds, most * seconds);

    // Bytes behind the end of the picture buy no work.
    writeSparse(directory.path("padded"), bytes, 1 << 29);
    Cost const padded = costOfReading(directory.path("padded"));
    EXPECT_EQ(padded.answer, 0);
    EXPECT_LT(padded.cpuSeconds, most * seconds);
}

TEST_F(VelImageScans, WhatEncodersMakeOfOneColourIsRead)
{
    constexpr int usualScans = 10;
    writeFile(directory.path("large"), RawJpeg{side, side, 1, true, true, usualScans - 1}.bytes());
    EXPECT_EQ(costOfReading(directory.path("large")).answer, 1);

    for (int type : {CV_8UC1, CV_8UC3}) {
        cv::Mat const blank(2000, 3000, type, cv::Scalar::all(77));
        for (int quality : {1, 50, 100}) {
            Bytes const bytes = encoded(".jpg", blank,
                                        {cv::IMWRITE_JPEG_PROGRESSIVE, 1, cv::IMWRITE_JPEG_QUALITY,
                                         quality, cv::IMWRITE_JPEG_OPTIMIZE, 1});
            writeFile(directory.path("image"), bytes);
            VelImage image;
            EXPECT_EQ(image.ReadImage(directory.path("image").c_str()), 1);
            EXPECT_TRUE(same(viewOf(image), decoded(bytes)));
        }
    }
}

/// A way to write a picture whose pixels take tens of megabytes.
struct LargeFile
{
    char const* name;
    int type;
    void (*write)(std::string const& path, cv::Mat const& mat);
    /// Bytes for every pixel that the decoder holds beside them.
    int extraBytes = 0;
};

void PrintTo(LargeFile const& file, std::ostream* out) { *out << file.name; }

template <int Compression, int Planes, int Bits = 0, int Photometric = -1>
void writeInOneStrip(std::string const& path, cv::Mat const& mat)
{
    TIFF* const tiff = TIFFOpen(path.c_str(), "w");
    ASSERT_NE(tiff, nullptr);
    bool const isSeparate = Planes == PLANARCONFIG_SEPARATE;
    int const colours = mat.channels() > 1 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK;
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, mat.cols);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, mat.rows);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, mat.rows);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, Bits ? Bits : static_cast<int>(mat.elemSize1() * 8));
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, mat.channels());
    TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT,
                 mat.depth() == CV_32F ? SAMPLEFORMAT_IEEEFP : SAMPLEFORMAT_UINT);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, Photometric < 0 ? colours : Photometric);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, Compression);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, Planes);
    std::vector<std::uint16_t> const map(256, 1000);
    if (Photometric == PHOTOMETRIC_PALETTE)
        TIFFSetField(tiff, TIFFTAG_COLORMAP, map.data(), map.data(), map.data());
    Bytes row(static_cast<std::size_t>(TIFFScanlineSize(tiff)));
    for (int plane = 0; plane < (isSeparate ? mat.channels() : 1); ++plane)
        for (int y = 0; y < mat.rows; ++y)
            TIFFWriteScanline(tiff, row.data(), static_cast<std::uint32_t>(y),
                              static_cast<std::uint16_t>(plane));
    TIFFClose(tiff);
}

void writeAscii(std::string const& path, cv::Mat const& mat)
{
    std::string text =
        "P2\n" + std::to_string(mat.cols) + " " + std::to_string(mat.rows) + "\n65535\n";
    std::size_t const header = text.size();
    text.resize(header + 2 * mat.total(), ' ');
    for (std::size_t i = header; i < text.size(); i += 2)
        text[i] = '0';
    std::ofstream(path, std::ios::binary) << text;
}

void writePalette(std::string const& path, cv::Mat const& mat)
{
    cv::Mat const indexes(mat.size(), CV_8UC1, cv::Scalar::all(0));
    writeInOneStrip<COMPRESSION_LZW, PLANARCONFIG_CONTIG, 8, PHOTOMETRIC_PALETTE>(path, indexes);
}

template <char const* Extension>
void writeAs(std::string const& path, cv::Mat const& mat)
{
    writeFile(path, encoded(Extension, mat));
}

constexpr char bmp[] = ".bmp", pgm[] = ".pgm", tif[] = ".tif";

template <int ColourType, int Bits, bool IsInterlaced = false>
void writePng(std::string const& path, cv::Mat const& mat)
{
    writeFile(path, RawPng{static_cast<std::uint32_t>(mat.cols),
                           static_cast<std::uint32_t>(mat.rows), Bits, ColourType, IsInterlaced}
                        .bytes());
}

template <int Components, bool IsProgressive, bool IsInterleaved>
void writeJpeg(std::string const& path, cv::Mat const& mat)
{
    writeFile(path, RawJpeg{mat.cols, mat.rows, Components, IsProgressive, IsInterleaved}.bytes());
}

class VelImagePeak : public testing::TestWithParam<LargeFile>
{
};

/// The pixels, the file and 16 MiB: no second picture, not even for a moment.
TEST_P(VelImagePeak, IsThePixelsAndTheFileAndLittleMore)
{
    constexpr std::size_t pixelBytes = 32 * mebibyte;
    LargeFile const& file = GetParam();
    cv::Mat const mat(4096, static_cast<int>(pixelBytes / 4096 / CV_ELEM_SIZE(file.type)),
                      file.type, cv::Scalar::all(0));
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    file.write(path, mat);
    Cost const cost = costOf([&path, &mat] {
        VelImage image;
        bool const isRead = image.ReadImage(path.c_str()) == 1 && image.Width() == mat.cols &&
                            image.Channels() == mat.channels();
        return isRead ? 1 : 0;
    });
    EXPECT_EQ(cost.answer, 1);
    EXPECT_LE(cost.addressSpace, mat.total() * mat.elemSize() + std::filesystem::file_size(path) +
                                     16 * mebibyte +
                                     mat.total() * static_cast<std::size_t>(file.extraBytes));
}

constexpr int contiguous = PLANARCONFIG_CONTIG, separate = PLANARCONFIG_SEPARATE;

INSTANTIATE_TEST_SUITE_P(
    Files, VelImagePeak,
    testing::Values(
        LargeFile{"PngGrey", CV_8UC1, writePng<0, 8>},
        LargeFile{"PngOneBit", CV_8UC1, writePng<0, 1>},
        LargeFile{"PngPalette", CV_8UC3, writePng<3, 8>},
        LargeFile{"PngGreyAndAlpha", CV_8UC4, writePng<4, 8>},
        LargeFile{"PngInterlaced", CV_8UC3, writePng<2, 8, true>},
        LargeFile{"PngSixteenBits", CV_16UC3, writePng<2, 16>},
        LargeFile{"Jpeg", CV_8UC1, writeJpeg<1, false, true>},
        LargeFile{"JpegColour", CV_8UC3, writeJpeg<3, false, true>},
        LargeFile{"JpegOfThreeScans", CV_8UC3, writeJpeg<3, false, false>, 6},
        LargeFile{"JpegProgressive", CV_8UC1, writeJpeg<1, true, true>, 2},
        LargeFile{"JpegProgressiveColour", CV_8UC3, writeJpeg<3, true, true>, 6},
        LargeFile{"TiffOfManyStrips", CV_8UC3, writeAs<tif>},
        LargeFile{"TiffPlain", CV_16UC3, writeInOneStrip<COMPRESSION_NONE, contiguous>},
        LargeFile{"TiffLzw", CV_8UC3, writeInOneStrip<COMPRESSION_LZW, contiguous>},
        LargeFile{"TiffDeflate", CV_32FC1, writeInOneStrip<COMPRESSION_ADOBE_DEFLATE, contiguous>},
        LargeFile{"TiffPackBits", CV_8UC4, writeInOneStrip<COMPRESSION_PACKBITS, contiguous>},
        LargeFile{"TiffPlanes", CV_8UC3, writeInOneStrip<COMPRESSION_LZW, separate>},
        LargeFile{"TiffBilevel", CV_8UC1,
                  writeInOneStrip<COMPRESSION_LZW, contiguous, 1, PHOTOMETRIC_MINISBLACK>},
        LargeFile{"TiffPalette", CV_8UC3, writePalette}, LargeFile{"Bitmap", CV_8UC1, writeAs<bmp>},
        LargeFile{"BitmapColour", CV_8UC3, writeAs<bmp>},
        LargeFile{"PortableMap", CV_16UC1, writeAs<pgm>},
        LargeFile{"PortableMapAscii", CV_16UC1, writeAscii}),
    [](auto const& tested) { return std::string(tested.param.name); });

} // namespace
