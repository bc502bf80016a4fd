#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>
#include <sys/resource.h>
#include <tiffio.h>

#include "console.h"
#include "imagefiles.h"

namespace {

/// A TIFF file as other programs write them; the defaults are a plain 8-bit grey picture.
struct Tiff
{
    char const* mode = "w";
    cv::Mat pixels = picture(CV_8UC1);
    int bits = 0;   ///< 0 for those of the pixels
    int format = 0; ///< 0 for that of the pixels
    int photometric = PHOTOMETRIC_MINISBLACK;
    int compression = COMPRESSION_NONE;
    int planes = PLANARCONFIG_CONTIG;
    int rowsPerStrip = 5;
    int orientation = 0;        ///< 0 for none given
    int extraSample = -1;       ///< -1 for none given
    std::uint32_t tileSide = 0; ///< 0 for strips
    unsigned paletteStep = 257; ///< between two reds; 1 for colours of 8 bits where 16 are meant

    void write(std::string const& path) const
    {
        // What libtiff has to say of the file it writes is not what the test listens for.
        TIFFErrorHandler const handler = TIFFSetWarningHandler(nullptr);
        TIFF* const tiff = TIFFOpen(path.c_str(), mode);
        int const depth = pixels.depth();
        bool const isFloating = depth >= CV_32F;
        bool const isSigned = depth == CV_8S || depth == CV_16S || depth == CV_32S;
        TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, pixels.cols);
        TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, pixels.rows);
        TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE,
                     bits ? bits : static_cast<int>(pixels.elemSize1() * 8));
        TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, pixels.channels());
        TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT,
                     format       ? format
                     : isFloating ? SAMPLEFORMAT_IEEEFP
                     : isSigned   ? SAMPLEFORMAT_INT
                                  : SAMPLEFORMAT_UINT);
        TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, photometric);
        TIFFSetField(tiff, TIFFTAG_COMPRESSION, compression);
        TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, planes);
        if (orientation)
            TIFFSetField(tiff, TIFFTAG_ORIENTATION, orientation);
        auto const extra = static_cast<std::uint16_t>(extraSample);
        if (extraSample >= 0)
            TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &extra);
        if (photometric == PHOTOMETRIC_PALETTE)
            setPalette(tiff, paletteStep);
        if (tileSide)
            writeTiles(tiff);
        else
            writeRows(tiff);
        TIFFClose(tiff);
        TIFFSetWarningHandler(handler);
    }

private:
    static void setPalette(TIFF* tiff, unsigned step)
    {
        std::vector<std::uint16_t> red(256), green(256), blue(256);
        for (unsigned i = 0; i < 256; ++i) {
            red[i] = static_cast<std::uint16_t>(i * step);
            green[i] = static_cast<std::uint16_t>((255 - i) * step);
            blue[i] = static_cast<std::uint16_t>(7 * step);
        }
        TIFFSetField(tiff, TIFFTAG_COLORMAP, red.data(), green.data(), blue.data());
    }

    void writeTiles(TIFF* tiff) const
    {
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, tileSide);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, tileSide);
        Bytes tile(static_cast<std::size_t>(TIFFTileSize(tiff)));
        for (std::uint32_t i = 0; i < TIFFNumberOfTiles(tiff); ++i)
            TIFFWriteEncodedTile(tiff, i, tile.data(), static_cast<tmsize_t>(tile.size()));
    }

    void writeRows(TIFF* tiff) const
    {
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, rowsPerStrip);
        int const planeCount = planes == PLANARCONFIG_SEPARATE ? pixels.channels() : 1;
        for (int plane = 0; plane < planeCount; ++plane) {
            for (int y = 0; y < pixels.rows; ++y) {
                cv::Mat row = pixels.row(y).clone();
                if (planeCount > 1)
                    cv::extractChannel(row.clone(), row, plane);
                TIFFWriteScanline(tiff, row.data, static_cast<std::uint32_t>(y),
                                  static_cast<std::uint16_t>(plane));
            }
        }
    }
};

VelImage readTiff(Tiff const& tiff)
{
    TemporaryDirectory const directory;
    tiff.write(directory.path("image"));
    VelImage image;
    image.ReadImage(directory.path("image").c_str());
    return image;
}

/// With red and blue exchanged: files hold red first, images blue.
cv::Mat swapped(cv::Mat const& mat)
{
    cv::Mat result = mat.clone();
    int const order[] = {0, 2, 2, 0};
    cv::mixChannels(&mat, 1, &result, 1, order, 2);
    return result;
}

TEST(VelImageTiff, EveryElementTypeIsReadUnchanged)
{
    Console console;
    for (int type :
         {CV_8UC1, CV_8UC3, CV_8UC4, CV_8SC1, CV_8SC3, CV_8SC4, CV_16UC1, CV_16UC3, CV_16UC4,
          CV_16SC1, CV_16SC3, CV_16SC4, CV_32SC1, CV_32FC1, CV_32FC3, CV_32FC4, CV_64FC1}) {
        Tiff tiff;
        tiff.pixels = picture(type);
        bool const isColour = tiff.pixels.channels() > 1;
        if (isColour)
            tiff.photometric = PHOTOMETRIC_RGB;
        if (tiff.pixels.channels() == 4)
            tiff.extraSample = EXTRASAMPLE_ASSOCALPHA;
        EXPECT_TRUE(same(viewOf(readTiff(tiff)), isColour ? swapped(tiff.pixels) : tiff.pixels))
            << type;
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageTiff, ElementTypesThatWouldBeConvertedAreRefusedInSilence)
{
    Console console;
    for (int type : {CV_32SC3, CV_32SC4, CV_64FC3, CV_64FC4, CV_8UC2, CV_16UC2}) {
        Tiff tiff;
        tiff.pixels = picture(type);
        if (tiff.pixels.channels() > 2)
            tiff.photometric = PHOTOMETRIC_RGB;
        if (tiff.pixels.channels() % 2 == 0)
            tiff.extraSample = EXTRASAMPLE_ASSOCALPHA;
        EXPECT_EQ(readTiff(tiff).ImageData(), nullptr) << type;
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageTiff, FormatsOfValuesThatNoElementTypeHasAreRefusedInSilence)
{
    Console console;
    constexpr int unsignedFormat = SAMPLEFORMAT_UINT;
    constexpr int signedFormat = SAMPLEFORMAT_INT;
    constexpr int floatingFormat = SAMPLEFORMAT_IEEEFP;
    struct
    {
        int type;
        std::vector<int> formats;
    } const cases[] = {{CV_8UC1, {floatingFormat, SAMPLEFORMAT_VOID}},
                       {CV_16UC1, {floatingFormat, SAMPLEFORMAT_VOID}},
                       {CV_32SC1, {unsignedFormat, SAMPLEFORMAT_VOID}},
                       {CV_64FC1, {unsignedFormat, signedFormat, SAMPLEFORMAT_VOID}}};
    for (auto const& [type, formats] : cases) {
        for (int const format : formats) {
            Tiff tiff;
            tiff.pixels = picture(type);
            tiff.format = format;
            EXPECT_EQ(readTiff(tiff).ImageData(), nullptr) << type << ' ' << format;
        }
    }
    Tiff bilevel;
    bilevel.bits = 1;
    bilevel.format = signedFormat;
    EXPECT_EQ(readTiff(bilevel).ImageData(), nullptr);
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageTiff, WhiteIsZeroForSingleBytesAlone)
{
    Console console;
    Tiff tiff;
    tiff.photometric = PHOTOMETRIC_MINISWHITE;
    EXPECT_NE(readTiff(tiff).ImageData(), nullptr);
    for (int const type : {CV_16UC1, CV_8SC1, CV_32FC1, CV_8UC3}) {
        tiff.pixels = picture(type);
        EXPECT_EQ(readTiff(tiff).ImageData(), nullptr) << type;
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageTiff, LosslessCompressionsAreRead)
{
    Console console;
    for (int compression : {COMPRESSION_NONE, COMPRESSION_LZW, COMPRESSION_PACKBITS,
                            COMPRESSION_ADOBE_DEFLATE, COMPRESSION_DEFLATE}) {
        for (int rows : {1, 5, 1000}) {
            Tiff tiff;
            tiff.compression = compression;
            tiff.rowsPerStrip = rows;
            EXPECT_TRUE(same(viewOf(readTiff(tiff)), tiff.pixels)) << compression;
        }
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageTiff, ByteOrdersAndBigFiles)
{
    Console console;
    for (char const* mode : {"wl", "wb", "w8l", "w8b"}) {
        Tiff tiff;
        tiff.mode = mode;
        tiff.pixels = picture(CV_16UC1);
        tiff.orientation = ORIENTATION_BOTRIGHT;
        EXPECT_TRUE(same(viewOf(readTiff(tiff)), tiff.pixels)) << mode;
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageTiff, OrientationIsNotApplied)
{
    for (int orientation = ORIENTATION_TOPLEFT; orientation <= ORIENTATION_LEFTBOT; ++orientation) {
        for (int type : {CV_8UC1, CV_16UC1}) {
            Tiff tiff;
            tiff.pixels = picture(type);
            tiff.orientation = orientation;
            EXPECT_TRUE(same(viewOf(readTiff(tiff)), tiff.pixels)) << orientation;
        }
    }
}

TEST(VelImageTiff, AlphaIsNotMultipliedIntoTheColours)
{
    for (int extra : {EXTRASAMPLE_UNSPECIFIED, EXTRASAMPLE_ASSOCALPHA, EXTRASAMPLE_UNASSALPHA}) {
        for (int type : {CV_8UC4, CV_16UC4}) {
            Tiff tiff;
            tiff.pixels = picture(type);
            tiff.photometric = PHOTOMETRIC_RGB;
            tiff.extraSample = extra;
            EXPECT_TRUE(same(viewOf(readTiff(tiff)), swapped(tiff.pixels))) << extra;
        }
    }
}

TEST(VelImageTiff, BilevelAndPalettePicturesBecomeGreyAndColour)
{
    Tiff bilevel;
    bilevel.bits = 1;
    VelImage const black = readTiff(bilevel);
    bilevel.photometric = PHOTOMETRIC_MINISWHITE;
    VelImage const white = readTiff(bilevel);
    unsigned char const first = bilevel.pixels.at<unsigned char>(1, 0); // its bits are 8 pixels
    ASSERT_EQ(black.Channels(), 1);
    ASSERT_EQ(white.Channels(), 1);
    for (int x = 0; x < 8; ++x) {
        int const value = (first >> (7 - x) & 1) * 255;
        EXPECT_EQ(viewOf(black).at<unsigned char>(1, x), value);
        EXPECT_EQ(viewOf(white).at<unsigned char>(1, x), 255 - value);
    }

    Tiff palette;
    palette.photometric = PHOTOMETRIC_PALETTE;
    VelImage const colour = readTiff(palette);
    ASSERT_EQ(colour.Channels(), 3);
    int const index = palette.pixels.at<unsigned char>(2, 3);
    EXPECT_EQ(viewOf(colour).at<cv::Vec3b>(2, 3),
              cv::Vec3b(7, static_cast<uchar>(255 - index), static_cast<uchar>(index)));
}

TEST(VelImageTiff, SeparatePlanesAreReadForEightBits)
{
    Tiff tiff;
    tiff.pixels = picture(CV_8UC3);
    tiff.photometric = PHOTOMETRIC_RGB;
    tiff.planes = PLANARCONFIG_SEPARATE;
    EXPECT_TRUE(same(viewOf(readTiff(tiff)), swapped(tiff.pixels)));
    tiff.pixels = picture(CV_16UC3);
    EXPECT_EQ(readTiff(tiff).ImageData(), nullptr);
}

TEST(VelImageTiff, TiledAndLossyFilesAreRefusedInSilence)
{
    Tiff tiled;
    tiled.tileSide = 16;
    Tiff lossy;
    lossy.compression = COMPRESSION_JPEG;
    lossy.rowsPerStrip = 8;
    Tiff fax;
    fax.bits = 1;
    fax.compression = COMPRESSION_CCITTFAX4;
    Console console;
    for (Tiff const& tiff : {tiled, lossy, fax})
        EXPECT_EQ(readTiff(tiff).ImageData(), nullptr);
    EXPECT_EQ(console.caught(), "");
}

struct Field
{
    unsigned tag;
    unsigned value;
};

/// An uncompressed 4 x 4 grey file whose directory comes before its pixels.
Bytes directoryFirst(std::vector<Field> const& changes = {})
{
    std::vector<Field> fields = {{256, 4}, {257, 4}, {258, 8}, {259, 1}, {262, 1},
                                 {273, 0}, {277, 1}, {278, 4}, {279, 16}};
    for (Field const& change : changes) {
        bool found = false;
        for (Field& field : fields) {
            if (field.tag == change.tag) {
                field.value = change.value;
                found = true;
            }
        }
        if (!found)
            fields.push_back(change);
    }
    Bytes bytes = {'I', 'I', 42, 0, 8, 0, 0, 0};
    auto const put = [&bytes](unsigned value, int size) {
        for (int i = 0; i < size; ++i)
            bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
    };
    put(static_cast<unsigned>(fields.size()), 2);
    for (Field const& field : fields) {
        put(field.tag, 2);
        put(4, 2); // a 32-bit number
        put(1, 4);
        put(field.tag == 273 ? static_cast<unsigned>(14 + 12 * fields.size()) : field.value, 4);
    }
    put(0, 4);
    for (unsigned i = 0; i < 16; ++i)
        put(i, 1);
    return bytes;
}

VelImage readBytes(Bytes const& bytes)
{
    TemporaryDirectory const directory;
    writeFile(directory.path("image"), bytes);
    VelImage image;
    image.ReadImage(directory.path("image").c_str());
    return image;
}

TEST(VelImageTiff, MissingPixelsBehindTheDirectoryAreNoticed)
{
    Bytes const whole = directoryFirst();
    Console console;
    EXPECT_EQ(readBytes(whole).Width(), 4);
    for (std::size_t missing = 1; missing <= 16; ++missing) {
        Bytes const cut(whole.begin(), whole.end() - static_cast<std::ptrdiff_t>(missing));
        EXPECT_EQ(readBytes(cut).ImageData(), nullptr) << missing;
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageTiff, FieldsThatNobodyKnowsArePassedOverInSilence)
{
    Console console;
    EXPECT_EQ(readBytes(directoryFirst({{65000, 1}})).Width(), 4);
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImageTiff, HostileFieldsAreRefusedInSilence)
{
    Console console;
    for (Field const& field : std::vector<Field>{{256, 0},
                                                 {256, 0xFFFFFFFF},
                                                 {257, 0},
                                                 {257, 0xFFFFFFFF},
                                                 {257, 1 << 20},
                                                 {258, 0},
                                                 {258, 9},
                                                 {258, 64},
                                                 {259, 7},
                                                 {259, 5},
                                                 {262, 6},
                                                 {277, 0},
                                                 {277, 3},
                                                 {277, 65535},
                                                 {278, 0}})
        EXPECT_EQ(readBytes(directoryFirst({field})).ImageData(), nullptr)
            << field.tag << " = " << field.value;
    EXPECT_EQ(console.caught(), "");
}

/// The bytes behind the strip would do, were they not those of the next one.
TEST(VelImageTiff, AStripWithTooFewBytesIsRefusedInSilence)
{
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    Tiff().write(path);
    Bytes bytes = readFile(path);
    Bytes const counts = {185, 0, 185, 0, 185, 0, 185, 0, 111, 0}; // 5 rows of 37 bytes, and 3
    auto const at = std::search(bytes.begin(), bytes.end(), counts.begin(), counts.end());
    ASSERT_NE(at, bytes.end());
    Console console;
    EXPECT_NE(readBytes(bytes).ImageData(), nullptr);
    *at = 184;
    EXPECT_EQ(readBytes(bytes).ImageData(), nullptr);
    EXPECT_EQ(console.caught(), "");
}

/// Fields that would turn or change the picture are passed over where they are of the usual type,
/// whatever they say.
TEST(VelImageTiff, MarksOfAnyValueArePassedOverAndOnesOfOtherTypesRefused)
{
    constexpr unsigned orientation = 274;
    constexpr unsigned extraSamples = 338;
    constexpr unsigned shortType = 3;
    Console console;
    VelImage const plain = readBytes(directoryFirst());
    for (Field const& field : std::vector<Field>{{orientation, 0},
                                                 {orientation, 1},
                                                 {orientation, 6},
                                                 {orientation, 9},
                                                 {extraSamples, 2},
                                                 {extraSamples, 3}}) {
        SCOPED_TRACE(testing::Message() << field.tag << " = " << field.value);
        Bytes bytes = directoryFirst({field});
        bool const isHarmless = field.tag == orientation && field.value == 1;
        EXPECT_EQ(readBytes(bytes).ImageData() != nullptr, isHarmless);
        constexpr std::size_t lastFieldAt = 10 + 12 * 9;
        bytes[lastFieldAt + 2] = shortType;
        EXPECT_TRUE(same(viewOf(readBytes(bytes)), viewOf(plain)));
    }
    EXPECT_EQ(console.caught(), "");
}

/// Kilobytes of memory that the process has held at most.
long peakMemory()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

TEST(VelImageTiff, AFieldOfManyMegabytesCostsNoneOfThem)
{
    constexpr std::size_t lastFieldAt = 10 + 12 * 9;
    constexpr unsigned size = 512U << 20;
    TemporaryDirectory const directory;
    std::string const path = directory.path("image");
    Bytes bytes = directoryFirst({{65000, 4096}});
    bytes[lastFieldAt + 2] = 7; // bytes without a meaning
    for (std::size_t i = 0; i < 4; ++i)
        bytes[lastFieldAt + 4 + i] = static_cast<unsigned char>(size >> (8 * i));
    writeFile(path, bytes);
    std::filesystem::resize_file(path, 4096 + size);
    long const before = peakMemory();
    Console console;
    VelImage image;
    EXPECT_EQ(image.ReadImage(path.c_str()), 1);
    EXPECT_EQ(console.caught(), "");
    EXPECT_LT(peakMemory() - before, 64 * 1024);
}

TEST(VelImageTiff, PalettesAreWhatOpenCvDecodes)
{
    Console console;
    for (unsigned step : {1u, 7u, 251u, 257u}) {
        Tiff tiff;
        tiff.photometric = PHOTOMETRIC_PALETTE;
        tiff.paletteStep = step;
        TemporaryDirectory const directory;
        tiff.write(directory.path("image"));
        VelImage image;
        image.ReadImage(directory.path("image").c_str());
        EXPECT_TRUE(same(viewOf(image), decoded(readFile(directory.path("image"))))) << step;
    }
    EXPECT_EQ(console.caught(), "");
}

/// A deflated strip whose rows all decode, while what lies behind the last one is damaged.
TEST(VelImageTiff, AStripDamagedBehindItsLastRowIsRefusedInSilence)
{
    unsigned char damaged[] = {0x78, 0x9C, 0x63, 0x60, 0x60, 0xA2, 0x12, 0x64, 0x18, 0x35,
                               0x69, 0xD4, 0xA4, 0x51, 0x2B, 0x46, 0x4D, 0x1A, 0x35, 0x69,
                               0xD4, 0x24, 0x2A, 0xD9, 0x04, 0xCE, 0x88, 0xC9, 0x06, 0x79};
    struct
    {
        int width;
        int bits;
        int samples;
        int strips; ///< of each plane; the last one of the last plane is damaged
    } const cases[] = {{37, 16, 1, 1}, {74, 8, 1, 2}, {74, 8, 3, 1}, {74, 8, 3, 2}};
    constexpr int rows = 23;
    Console console;
    for (auto const& [width, bits, samples, strips] : cases) {
        SCOPED_TRACE(testing::Message() << samples << " planes of " << strips << " strips");
        TemporaryDirectory const directory;
        std::string const path = directory.path("image.tif");
        TIFF* const tiff = TIFFOpen(path.c_str(), "w");
        ASSERT_NE(tiff, nullptr);
        TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, width);
        TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, rows * strips);
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, rows);
        TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, bits);
        TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, samples);
        TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_SEPARATE);
        TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC,
                     samples == 1 ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_RGB);
        TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE);
        Bytes whole(static_cast<std::size_t>(width * bits / 8 * rows));
        auto const last = static_cast<std::uint32_t>(samples * strips - 1);
        for (std::uint32_t i = 0; i < last; ++i)
            TIFFWriteEncodedStrip(tiff, i, whole.data(), static_cast<tmsize_t>(whole.size()));
        EXPECT_EQ(TIFFWriteRawStrip(tiff, last, damaged, sizeof damaged),
                  static_cast<tmsize_t>(sizeof damaged));
        TIFFClose(tiff);
        VelImage image;
        EXPECT_EQ(image.ReadImage(path.c_str()), 0);
    }
    EXPECT_EQ(console.caught(), "");
}

} // namespace
