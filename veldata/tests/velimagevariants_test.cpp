#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <jpeglib.h>
#include <opencv2/core.hpp>

#include "child.h"
#include "console.h"
#include "imagefiles.h"
#include "rawpictures.h"

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

/// A bitmap of 11 x 7 random pixels whose header is the short one of 12 bytes, or the usual one of
/// 40 bytes.
Bytes bitmapOf(int bits, bool isShort, bool isColourful)
{
    constexpr unsigned width = 11, height = 7;
    unsigned const colours = bits <= 8 ? 1u << bits : 0;
    unsigned const headerSize = isShort ? 12 : 40;
    int const numberSize = isShort ? 2 : 4;
    Bytes file = {'B', 'M'};
    appendLittle(file, 0, 8);
    appendLittle(file, 14 + headerSize + colours * (isShort ? 3 : 4), 4);
    appendLittle(file, headerSize, 4);
    appendLittle(file, width, numberSize);
    appendLittle(file, height, numberSize);
    appendLittle(file, 1, 2);
    appendLittle(file, static_cast<unsigned>(bits), 2);
    if (!isShort)
        appendLittle(file, 0, 24);
    for (unsigned i = 0; i < colours; ++i) {
        unsigned const grey = i * 255 / (colours - 1);
        appendLittle(file, isColourful ? 255 - grey : grey, 1);
        appendLittle(file, isColourful ? i * 7 % 256 : grey, 1);
        appendLittle(file, grey, 1);
        if (!isShort)
            file.push_back(0);
    }
    std::srand(1);
    for (unsigned i = (width * static_cast<unsigned>(bits) + 31) / 32 * 4 * height; i > 0; --i)
        file.push_back(static_cast<unsigned char>(std::rand() >> 5));
    return file;
}

TEST(VelImageVariants, BitmapsWithTheShortHeaderAreReadAsThoseWithTheUsualOne)
{
    Console console;
    for (int bits : {1, 4, 8, 24}) {
        for (bool isColourful : {false, true}) {
            VelImage const image = readBytes(bitmapOf(bits, true, isColourful));
            ASSERT_NE(image.ImageData(), nullptr) << bits;
            EXPECT_TRUE(same(viewOf(image), decoded(bitmapOf(bits, false, isColourful))))
                << bits << " bits, colourful " << isColourful;
        }
    }
    EXPECT_EQ(console.caught(), "");
}

/// That header knows neither.
TEST(VelImageVariants, BitmapsOf16BitsWithTheShortHeaderAreRefused)
{
    EXPECT_EQ(readBytes(bitmapOf(16, true, false)).ImageData(), nullptr);
}

TEST(VelImageVariants, LeadingZerosOfAPortableMapDoNotCount)
{
    std::string const zeros(40, '0');
    struct
    {
        std::string text;
        std::vector<int> values;
    } const maps[] = {
        {"P2 3 1 255 00000000012 0000000000000000255 7", {12, 255, 7}},
        {"P2 3 1 255 " + zeros + " " + zeros + "9 0000000003", {0, 9, 3}},
        {"P2 2 1 65535 " + zeros + "65535 00000000001", {65535, 1}},
        {"P2 " + zeros + "2 " + zeros + "1 " + zeros + "255 1 2", {1, 2}},
        {"P3 1 1 255 00000000001 00000000000002 00000000003", {3, 2, 1}},
        {"P1 " + zeros + "3 1 001", {255, 255, 0}},
        {"P5 " + zeros + "2 1 " + zeros + "255\nab", {'a', 'b'}},
    };
    for (auto const& map : maps) {
        cv::Mat const view = viewOf(readBytes(bytesOf(map.text))).clone();
        std::vector<int> values;
        for (int i = 0; i < view.cols * view.channels(); ++i)
            values.push_back(view.depth() == CV_16U ? view.ptr<ushort>()[i] : view.ptr()[i]);
        EXPECT_EQ(values, map.values) << map.text;
    }
    for (std::string const& text :
         std::vector<std::string>{"P2 1 1 255 " + zeros + "256", "P2 1 1 255 18446744073709551617",
                                  "P2 1 1 255 4294967297", "P2 1 1 " + zeros + " 1"})
        EXPECT_EQ(readBytes(bytesOf(text)).ImageData(), nullptr) << text;
}

// --- PNG
// ------------------------------------------------------------------------------------------

TEST(VelImageVariants, ACriticalChunkThatNobodyKnowsRefusesAPng)
{
    Console console;
    for (bool isBehindPixels : {false, true}) {
        RawPng png;
        std::vector<Bytes>& chunks = isBehindPixels ? png.behindPixels : png.behindHeader;
        chunks.push_back(chunkOf("XYZa", {1, 2, 3}));
        EXPECT_EQ(readBytes(png.bytes()).ImageData(), nullptr);
        chunks.back() = chunkOf("xyZa", {1, 2, 3});
        EXPECT_EQ(readBytes(png.bytes()).Width(), 8) << "one that may be passed over";
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageVariants, APngThatIsDecodedWithAWarningIsRefusedInSilence)
{
    std::pair<char const*, RawPng> cases[6];
    cases[0] = {"pixels too many", {}};
    cases[0].second.surplusBytes = 5;
    cases[1] = {"transparency too short", {}};
    cases[1].second.behindHeader = {chunkOf("tRNS", {1})};
    cases[2] = {"palette in a grey picture", {}};
    cases[2].second.behindHeader = {chunkOf("PLTE", {1, 2, 3})};
    cases[3] = {"palette of a broken length", {}};
    cases[3].second.colourType = 2;
    cases[3].second.behindHeader = {chunkOf("PLTE", {1, 2})};
    cases[4] = {"two headers", {}};
    cases[4].second.behindHeader = {chunkOf("IHDR", {0, 0, 0, 8, 0, 0, 0, 8, 8, 0, 0, 0, 0})};
    cases[5] = {"two transparencies", {}};
    cases[5].second.behindHeader = {chunkOf("tRNS", {0, 1}), chunkOf("tRNS", {0, 1})};
    Console console;
    for (auto const& [name, png] : cases)
        EXPECT_EQ(readBytes(png.bytes()).ImageData(), nullptr) << name;
    EXPECT_EQ(console.caught(), "");
    EXPECT_EQ(readBytes(RawPng().bytes()).Width(), 8);
}

TEST(VelImageVariants, TheSideInformationOfAPngDoesNotMatter)
{
    RawPng png;
    png.behindHeader = {chunkOf("gAMA", {0, 0}), chunkOf("cHRM", {1}),
                        chunkOf("sBIT", {99}),   chunkOf("tEXt", Bytes(300, 'x')),
                        chunkOf("bKGD", {1}),    chunkOf("iCCP", {'a', 0, 0, 1}),
                        chunkOf("pHYs", {})};
    png.behindPixels = {chunkOf("zTXt", {'a', 0, 0, 1}), chunkOf("tIME", {0})};
    Console console;
    EXPECT_EQ(readBytes(png.bytes()).Width(), 8);
    EXPECT_EQ(console.caught(), "");
}

// --- JPEG
// -----------------------------------------------------------------------------------------

/// A JPEG file of 32 x 32 pixels of one colour as libjpeg writes it.
Bytes jpegOf(std::vector<unsigned char> const& pixel, J_COLOR_SPACE given, J_COLOR_SPACE stored,
             bool hasAdobeMarker)
{
    constexpr JDIMENSION side = 32;
    jpeg_compress_struct info = {};
    jpeg_error_mgr errors = {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* data = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &data, &size);
    info.image_width = side;
    info.image_height = side;
    info.input_components = static_cast<int>(pixel.size());
    info.in_color_space = given;
    jpeg_set_defaults(&info);
    jpeg_set_colorspace(&info, stored);
    jpeg_set_quality(&info, 100, TRUE);
    info.write_Adobe_marker = hasAdobeMarker ? TRUE : FALSE;
    jpeg_start_compress(&info, TRUE);
    Bytes row;
    for (JDIMENSION x = 0; x < side; ++x)
        append(row, pixel);
    for (JDIMENSION y = 0; y < side; ++y) {
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&info, rows, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    Bytes const bytes(data, data + size);
    std::free(data);
    return bytes;
}

TEST(VelImageVariants, JpegsOfTwoComponentsAreRefusedInSilence)
{
    Console console;
    EXPECT_EQ(readBytes(jpegOf({10, 200}, JCS_UNKNOWN, JCS_UNKNOWN, false)).ImageData(), nullptr);
    EXPECT_EQ(readBytes(jpegOf({10}, JCS_GRAYSCALE, JCS_GRAYSCALE, false)).Channels(), 1);
    EXPECT_EQ(console.caught(), "");
}

/// With the marker 255 means no ink, as Adobe's programs write it.
TEST(VelImageVariants, PrintersColoursWithTheAdobeMarkerBecomeColour)
{
    Console console;
    for (J_COLOR_SPACE stored : {JCS_CMYK, JCS_YCCK}) {
        for (std::vector<unsigned char> const& inks : std::vector<std::vector<unsigned char>>{
                 {255, 255, 255, 255}, {0, 255, 255, 255}, {255, 128, 10, 200}, {1, 2, 3, 0}}) {
            Bytes const bytes = jpegOf(inks, JCS_CMYK, stored, true);
            VelImage const image = readBytes(bytes);
            ASSERT_EQ(image.Channels(), 3);
            EXPECT_TRUE(same(viewOf(image), decoded(bytes))) << stored;
            cv::Vec3b const pixel = viewOf(image).at<cv::Vec3b>(9, 9);
            for (int c = 0; c < 3; ++c)
                EXPECT_NEAR(pixel[c], inks[static_cast<std::size_t>(2 - c)] * inks[3] / 255, 4)
                    << stored;
        }
    }
    EXPECT_EQ(console.caught(), "");
}

/// Without the marker 255 is full ink.
TEST(VelImageVariants, PrintersColoursWithoutTheAdobeMarkerBecomeTheOppositeColour)
{
    Console console;
    for (std::vector<unsigned char> const& inks : std::vector<std::vector<unsigned char>>{
             {0, 0, 0, 0}, {255, 0, 0, 0}, {0, 128, 245, 55}, {254, 253, 252, 255}}) {
        VelImage const image = readBytes(jpegOf(inks, JCS_CMYK, JCS_CMYK, false));
        ASSERT_EQ(image.Channels(), 3);
        cv::Vec3b const pixel = viewOf(image).at<cv::Vec3b>(9, 9);
        for (int c = 0; c < 3; ++c) {
            int const light = (255 - inks[static_cast<std::size_t>(2 - c)]) * (255 - inks[3]) / 255;
            EXPECT_NEAR(pixel[c], light, 4);
        }
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageVariants, HandMadeJpegsAreReadInAllTheirForms)
{
    for (int components : {1, 3}) {
        for (bool isProgressive : {false, true}) {
            for (bool isInterleaved : {false, true}) {
                Bytes const bytes =
                    RawJpeg{50, 30, components, isProgressive, isInterleaved}.bytes();
                VelImage const image = readBytes(bytes);
                EXPECT_EQ(image.Channels(), components);
                EXPECT_TRUE(same(viewOf(image), decoded(bytes)));
            }
        }
    }
}

// --- TIFF
// -----------------------------------------------------------------------------------------

/// A grey TIFF file of 8 x 8 different pixels.
Bytes tiffOf(RawTiff const& tiff)
{
    Bytes bytes = tiff.header();
    for (unsigned i = 0; i < tiff.pixelBytes(); ++i)
        bytes.push_back(static_cast<unsigned char>(i * 3));
    return bytes;
}

using Changes = decltype(RawTiff::changes);

TEST(VelImageVariants, WhiteIsZeroIsTurnedRound)
{
    Changes const whiteIsZero = {{262, {3, 0}}};
    VelImage const image = readBytes(tiffOf({8, 8, 8, whiteIsZero}));
    ASSERT_EQ(image.Channels(), 1);
    ASSERT_EQ(image.BitDepth(), VEL_8U);
    for (int i = 0; i < 64; ++i)
        EXPECT_EQ(image.ImageData()[i], 255 - i * 3);
}

TEST(VelImageVariants, AnOrientationOfAnotherFieldTypeIsRefusedWhereItTurnsThePicture)
{
    constexpr unsigned byteType = 1, shortType = 3, longType = 4;
    for (unsigned type : {byteType, shortType, longType}) {
        for (std::uint32_t orientation : {1u, 3u, 6u}) {
            SCOPED_TRACE(testing::Message() << "type " << type << " orientation " << orientation);
            Changes const turned = {{274, {type, orientation}}};
            VelImage const image = readBytes(tiffOf({8, 8, 8, turned}));
            if (type != shortType && orientation != 1) {
                EXPECT_EQ(image.ImageData(), nullptr);
                continue;
            }
            ASSERT_EQ(image.Width(), 8);
            for (int i = 0; i < 64; ++i)
                EXPECT_EQ(image.ImageData()[i], i * 3);
        }
    }
}

/// libtiff reports these and goes on.
TEST(VelImageVariants, ATiffFieldOfAnImpossibleValueRefusesTheFileInSilence)
{
    constexpr unsigned fillOrder = 266, thresholding = 263, planes = 284, resolutionUnit = 296,
                       predictor = 317;
    Console console;
    for (auto const& [tag, value] : std::vector<std::pair<unsigned, std::uint32_t>>{
             {fillOrder, 5}, {planes, 3}, {resolutionUnit, 9}}) {
        Changes const impossible = {{tag, {3, value}}};
        EXPECT_EQ(readBytes(tiffOf({8, 8, 8, impossible})).ImageData(), nullptr) << tag;
    }
    for (auto const& [tag, value] : std::vector<std::pair<unsigned, std::uint32_t>>{
             {fillOrder, 1}, {planes, 1}, {resolutionUnit, 2}, {thresholding, 7}, {predictor, 1}}) {
        Changes const possible = {{tag, {3, value}}};
        EXPECT_EQ(readBytes(tiffOf({8, 8, 8, possible})).Width(), 8) << tag;
    }
    EXPECT_EQ(console.caught(), "");
}

} // namespace
