#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>
#include <png.h>

#include "console.h"
#include "imagefiles.h"

namespace {

/// A PNG file as other programs write them, 16 x 9, with a different number in every byte of a row.
struct Png
{
    int colourType = PNG_COLOR_TYPE_GRAY;
    int bits = 8;
    bool isInterlaced = false;
    bool hasTransparency = false;
    std::size_t colours = 0; ///< of a palette; 0 for as many as the bits allow

    static constexpr int width = 16;
    static constexpr int height = 9;

    static unsigned char byteAt(int x, int y) { return static_cast<unsigned char>(x * 5 + y * 7); }

    Bytes bytes() const
    {
        png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
        png_infop info = png_create_info_struct(png);
        Bytes file;
        png_set_write_fn(png, &file, append, nullptr);
        png_set_IHDR(png, info, width, height, bits, colourType,
                     isInterlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                     PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        if (colourType == PNG_COLOR_TYPE_PALETTE)
            setPalette(png, info);
        if (hasTransparency)
            setTransparency(png, info);
        png_write_info(png, info);
        writeRows(png, png_get_rowbytes(png, info));
        png_write_end(png, info);
        png_destroy_write_struct(&png, &info);
        return file;
    }

private:
    static void append(png_structp png, png_bytep data, std::size_t size)
    {
        auto* const file = static_cast<Bytes*>(png_get_io_ptr(png));
        file->insert(file->end(), data, data + size);
    }

    void setPalette(png_structp png, png_infop info) const
    {
        std::vector<png_color> entries(colours ? colours : std::size_t{1} << bits);
        for (std::size_t i = 0; i < entries.size(); ++i)
            entries[i] = {static_cast<png_byte>(i), static_cast<png_byte>(255 - i), 9};
        png_set_PLTE(png, info, entries.data(), static_cast<int>(entries.size()));
        png_set_check_for_invalid_index(png, 0);
    }

    void setTransparency(png_structp png, png_infop info) const
    {
        png_byte const alphas[] = {10, 20, 30};
        png_color_16 colour = {};
        bool const isPalette = colourType == PNG_COLOR_TYPE_PALETTE;
        png_set_tRNS(png, info, isPalette ? alphas : nullptr, isPalette ? 3 : 1, &colour);
    }

    void writeRows(png_structp png, std::size_t rowBytes) const
    {
        std::vector<Bytes> rows(height, Bytes(rowBytes));
        std::vector<png_bytep> pointers;
        for (int y = 0; y < height; ++y) {
            Bytes& row = rows[static_cast<std::size_t>(y)];
            for (std::size_t i = 0; i < rowBytes; ++i)
                row[i] = byteAt(static_cast<int>(i), y);
            pointers.push_back(row.data());
        }
        png_write_image(png, pointers.data());
    }
};

VelImage readPng(Png const& png)
{
    TemporaryDirectory const directory;
    writeFile(directory.path("image"), png.bytes());
    VelImage image;
    image.ReadImage(directory.path("image").c_str());
    return image;
}

TEST(VelImagePng, EveryVariantHasItsChannelsAndDepth)
{
    struct
    {
        Png png;
        int channels;
        VelImageType type;
    } const cases[] = {
        {{PNG_COLOR_TYPE_GRAY, 1}, 1, VEL_8U},         {{PNG_COLOR_TYPE_GRAY, 2}, 1, VEL_8U},
        {{PNG_COLOR_TYPE_GRAY, 4}, 1, VEL_8U},         {{PNG_COLOR_TYPE_GRAY, 8}, 1, VEL_8U},
        {{PNG_COLOR_TYPE_GRAY, 16}, 1, VEL_16U},       {{PNG_COLOR_TYPE_RGB, 8}, 3, VEL_8U},
        {{PNG_COLOR_TYPE_RGB, 16}, 3, VEL_16U},        {{PNG_COLOR_TYPE_PALETTE, 1}, 3, VEL_8U},
        {{PNG_COLOR_TYPE_PALETTE, 2}, 3, VEL_8U},      {{PNG_COLOR_TYPE_PALETTE, 4}, 3, VEL_8U},
        {{PNG_COLOR_TYPE_PALETTE, 8}, 3, VEL_8U},      {{PNG_COLOR_TYPE_GRAY_ALPHA, 8}, 4, VEL_8U},
        {{PNG_COLOR_TYPE_GRAY_ALPHA, 16}, 4, VEL_16U}, {{PNG_COLOR_TYPE_RGB_ALPHA, 8}, 4, VEL_8U},
        {{PNG_COLOR_TYPE_RGB_ALPHA, 16}, 4, VEL_16U},
    };
    Console console;
    for (auto const& variant : cases) {
        for (bool isInterlaced : {false, true}) {
            SCOPED_TRACE(testing::Message() << "colour type " << variant.png.colourType << " bits "
                                            << variant.png.bits << " interlaced " << isInterlaced);
            Png png = variant.png;
            png.isInterlaced = isInterlaced;
            VelImage const image = readPng(png);
            EXPECT_EQ(image.Width(), Png::width);
            EXPECT_EQ(image.Height(), Png::height);
            EXPECT_EQ(image.Channels(), variant.channels);
            EXPECT_EQ(image.BitDepth(), variant.type);
            EXPECT_TRUE(same(viewOf(image), decoded(png.bytes())));
        }
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImagePng, TransparentColoursBecomeAlpha)
{
    Console console;
    for (int colourType : {PNG_COLOR_TYPE_RGB, PNG_COLOR_TYPE_PALETTE}) {
        Png png;
        png.colourType = colourType;
        png.hasTransparency = true;
        EXPECT_EQ(readPng(png).Channels(), 4) << colourType;
    }
    Png grey;
    grey.hasTransparency = true;
    EXPECT_EQ(readPng(grey).Channels(), 1);
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImagePng, IndexesBeyondThePaletteAreBlack)
{
    Console console;
    for (bool isInterlaced : {false, true}) {
        Png png;
        png.colourType = PNG_COLOR_TYPE_PALETTE;
        png.colours = 40;
        png.isInterlaced = isInterlaced;
        VelImage const image = readPng(png);
        cv::Mat const view = viewOf(image);
        ASSERT_EQ(view.type(), CV_8UC3);
        EXPECT_EQ(view.at<cv::Vec3b>(0, 7), cv::Vec3b(9, 220, 35));
        EXPECT_EQ(view.at<cv::Vec3b>(0, 8), cv::Vec3b(0, 0, 0)); // index 40
    }
    EXPECT_EQ(console.caught(), "");
}

TEST(VelImagePng, GreyWithAlphaRepeatsTheGrey)
{
    Png png;
    png.colourType = PNG_COLOR_TYPE_GRAY_ALPHA;
    VelImage const image = readPng(png);
    ASSERT_EQ(image.Channels(), 4);
    unsigned char const grey = Png::byteAt(6, 2);
    EXPECT_EQ(viewOf(image).at<cv::Vec4b>(2, 3), cv::Vec4b(grey, grey, grey, Png::byteAt(7, 2)));
}

} // namespace
