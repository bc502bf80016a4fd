#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <jpeglib.h>

#include <veldata/vellimits_p.h>

#include "console.h"
#include "imagefiles.h"

namespace {

/// A JPEG of one colour, 40 x 20, as other programs write them.
struct Jpeg
{
    std::vector<JSAMPLE> colour;
    J_COLOR_SPACE colours = JCS_CMYK; ///< of the values in the file, too
    bool hasAdobeMarker = false;
    bool isProgressive = false;
    int width = usualWidth;
    int height = usualHeight;
    std::vector<jpeg_scan_info> scans = {}; ///< none for the usual ones

    static constexpr int usualWidth = 40;
    static constexpr int usualHeight = 20;

    Bytes bytes() const
    {
        jpeg_compress_struct info = {};
        jpeg_error_mgr errors = {};
        info.err = jpeg_std_error(&errors);
        jpeg_create_compress(&info);
        unsigned char* memory = nullptr;
        unsigned long size = 0;
        jpeg_mem_dest(&info, &memory, &size);
        info.image_width = static_cast<JDIMENSION>(width);
        info.image_height = static_cast<JDIMENSION>(height);
        info.input_components = static_cast<int>(colour.size());
        info.in_color_space = colours;
        jpeg_set_defaults(&info);
        jpeg_set_colorspace(&info, colours);
        jpeg_set_quality(&info, 100, TRUE);
        info.write_Adobe_marker = hasAdobeMarker ? TRUE : FALSE;
        if (isProgressive)
            jpeg_simple_progression(&info);
        if (!scans.empty()) {
            info.scan_info = scans.data();
            info.num_scans = static_cast<int>(scans.size());
        }
        jpeg_start_compress(&info, TRUE);
        std::vector<JSAMPLE> row;
        for (int x = 0; x < width; ++x)
            row.insert(row.end(), colour.begin(), colour.end());
        JSAMPROW rows[] = {row.data()};
        for (int y = 0; y < height; ++y)
            jpeg_write_scanlines(&info, rows, 1);
        jpeg_finish_compress(&info);
        jpeg_destroy_compress(&info);
        Bytes const file(memory, memory + size);
        std::free(memory);
        return file;
    }
};

VelImage readBytes(Bytes const& bytes)
{
    TemporaryDirectory const directory;
    writeFile(directory.path("image"), bytes);
    VelImage image;
    image.ReadImage(directory.path("image").c_str());
    return image;
}

/// Whether all pixels are of one colour, up to what the compression changes.
testing::AssertionResult hasColour(VelImage const& image, cv::Vec3b const& colour)
{
    if (image.Width() != Jpeg::usualWidth || image.Height() != Jpeg::usualHeight ||
        image.Channels() != 3)
        return testing::AssertionFailure() << "another picture, or none";
    cv::Mat const expected(Jpeg::usualHeight, Jpeg::usualWidth, CV_8UC3, cv::Scalar(colour));
    double const difference = cv::norm(viewOf(image), expected, cv::NORM_INF);
    return difference <= 2 ? testing::AssertionSuccess()
                           : testing::AssertionFailure() << "off by " << difference;
}

struct Ink
{
    std::vector<JSAMPLE> inks; ///< cyan, magenta, yellow, black
    cv::Vec3b colour;          ///< blue, green, red
};

std::vector<Ink> const inks = {
    {{0, 0, 0, 0}, {255, 255, 255}},   {{255, 0, 0, 0}, {255, 255, 0}},
    {{0, 255, 0, 0}, {255, 0, 255}},   {{0, 0, 255, 0}, {0, 255, 255}},
    {{0, 0, 0, 255}, {0, 0, 0}},       {{0, 0, 0, 55}, {200, 200, 200}},
    {{100, 0, 0, 0}, {255, 255, 155}},
};

TEST(VelImageJpeg, InksOfAnyProgramBecomeTheirColours)
{
    Console console;
    for (Ink const& ink : inks) {
        for (bool isProgressive : {false, true}) {
            Jpeg jpeg;
            jpeg.colour = ink.inks;
            jpeg.isProgressive = isProgressive;
            EXPECT_TRUE(hasColour(readBytes(jpeg.bytes()), ink.colour)) << ink.colour;
        }
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageJpeg, InksThatAdobeInvertsBecomeTheirColours)
{
    Console console;
    for (Ink const& ink : inks) {
        Jpeg jpeg;
        jpeg.hasAdobeMarker = true;
        for (JSAMPLE value : ink.inks)
            jpeg.colour.push_back(static_cast<JSAMPLE>(255 - value));
        VelImage const image = readBytes(jpeg.bytes());
        EXPECT_TRUE(hasColour(image, ink.colour)) << ink.colour;
        EXPECT_TRUE(same(viewOf(image), decoded(jpeg.bytes())));
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageJpeg, InksKeptAsBrightnessAreWhatOpenCvDecodes)
{
    Console console;
    Jpeg jpeg;
    jpeg.colours = JCS_YCCK;
    jpeg.hasAdobeMarker = true;
    jpeg.colour = {90, 100, 170, 220};
    EXPECT_TRUE(same(viewOf(readBytes(jpeg.bytes())), decoded(jpeg.bytes())));
    EXPECT_EQ(console.caught(), "");
}

/// libjpeg itself would fill up what is missing with grey.
TEST(VelImageJpeg, APictureWhoseEndComesTooEarlyIsRefusedInSilence)
{
    Console console;
    for (int isProgressive : {0, 1}) {
        for (int isInRestarts : {0, 1}) {
            Bytes const whole = encoded(".jpg", picture(CV_8UC3),
                                        {cv::IMWRITE_JPEG_PROGRESSIVE, isProgressive,
                                         cv::IMWRITE_JPEG_RST_INTERVAL, isInRestarts});
            EXPECT_NE(readBytes(whole).ImageData(), nullptr);
            Bytes cut(whole.begin(), whole.end() - 60);
            cut.insert(cut.end(), {0xFF, 0xD9});
            EXPECT_EQ(readBytes(cut).ImageData(), nullptr);
        }
    }
    EXPECT_EQ(console.caught(), "");
}

/// The reader gives up a file through which it steps for long without a picture.
TEST(VelImageJpeg, CommentsOfAnyLengthArePassedOver)
{
    Bytes const plain = encoded(".jpg", picture(CV_8UC3));
    Bytes comment(65537);
    comment[0] = 0xFF;
    comment[1] = 0xFE;
    comment[2] = comment[3] = 0xFF;
    Bytes file(plain.begin(), plain.begin() + 2);
    for (int i = 0; i < 1100; ++i)
        file.insert(file.end(), comment.begin(), comment.end());
    file.insert(file.end(), plain.begin() + 2, plain.end());
    EXPECT_TRUE(same(viewOf(readBytes(file)), viewOf(readBytes(plain))));
    EXPECT_NE(readBytes(plain).ImageData(), nullptr);
}

TEST(VelImageJpeg, TwoComponentsAreRefusedInSilence)
{
    Console console;
    Jpeg jpeg;
    jpeg.colour = {10, 20};
    jpeg.colours = JCS_UNKNOWN;
    EXPECT_EQ(readBytes(jpeg.bytes()).ImageData(), nullptr);
    jpeg.colour = {10};
    jpeg.colours = JCS_GRAYSCALE;
    EXPECT_EQ(readBytes(jpeg.bytes()).Channels(), 1);
    EXPECT_EQ(console.caught(), "");
}

/// A flat grey picture, square, in two scans, the second of which, where nothing is, comes @p
/// times.
Bytes flatPicture(int side, int times)
{
    Jpeg jpeg;
    jpeg.colour = {128};
    jpeg.colours = JCS_GRAYSCALE;
    jpeg.width = side;
    jpeg.height = side;
    jpeg.scans = {{1, {0}, 0, 0, 0, 0}, {1, {0}, 1, 63, 0, 0}};
    Bytes bytes = jpeg.bytes();
    Bytes const startOfScan = {0xFF, 0xDA};
    auto const last =
        std::find_end(bytes.begin(), bytes.end(), startOfScan.begin(), startOfScan.end());
    Bytes const scan(last, bytes.end() - 2); // all but the end marker
    bytes.erase(last, bytes.end());
    for (int i = 0; i < times; ++i)
        bytes.insert(bytes.end(), scan.begin(), scan.end());
    bytes.insert(bytes.end(), {0xFF, 0xD9});
    return bytes;
}

TEST(VelImageJpeg, FlatPicturesInManyScansAreReadUnlessTheirWorkIsOutOfProportion)
{
    Console console;
    EXPECT_EQ(readBytes(flatPicture(3000, 1)).Width(), 3000);
    EXPECT_EQ(readBytes(flatPicture(3000, 10)).Width(), 3000);
    EXPECT_EQ(readBytes(flatPicture(100, 400)).Width(), 100);
    EXPECT_EQ(readBytes(flatPicture(100, 600)).ImageData(), nullptr);
    EXPECT_EQ(readBytes(flatPicture(3000, 300)).ImageData(), nullptr);
    // All that may follow a picture does not make its scans worth more.
    Bytes padded = flatPicture(3000, 300);
    padded.resize(padded.size() + (4 << 20));
    EXPECT_EQ(readBytes(padded).ImageData(), nullptr);
    EXPECT_EQ(console.caught(), "");
}

/// Rows that are given out in the end are no work in proportion to the file.
TEST(VelImageJpeg, TheBlocksOfScansCountAndNothingElse)
{
    constexpr int side = 3000;
    constexpr std::uint64_t scanBlocks = std::uint64_t{side / 8} * (side / 8);
    std::size_t const once = flatPicture(side, 1).size();
    std::size_t const scanBytes = flatPicture(side, 2).size() - once;
    auto const isInProportion = [&](int times) {
        auto const more = static_cast<std::uint64_t>(times - 1);
        return scanBlocks * (more + 2) <=
               vellimits::jpegFreeBlocks + vellimits::jpegBlocksPerByte * (once + scanBytes * more);
    };
    int most = 1;
    while (isInProportion(most + 1))
        ++most;
    EXPECT_EQ(readBytes(flatPicture(side, most - 1)).Width(), side) << most;
    EXPECT_EQ(readBytes(flatPicture(side, most + 2)).ImageData(), nullptr) << most;
}

} // namespace
