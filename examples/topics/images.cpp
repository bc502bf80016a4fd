// The pixels of an image are looked at, and filled, from other libraries without a copy.
#include <cstdio>
#include <opencv2/core.hpp>

#include <kdrdata/vision/vision.h>

namespace {

// A matrix over the pixels of an image, which must outlive it. Depth codes mean the same on both
// sides.
cv::Mat pixelsOf(KDRImage const& image)
{
    return cv::Mat(image.height(), image.width(), CV_MAKETYPE(image.depth(), image.channel()),
                   image.dataPtr(), static_cast<std::size_t>(image.step()));
}

} // namespace

int main()
{
    // To cv::Mat: the matrix refers to the image, and what is written to it stands in the image.
    KDRImage image(nullptr, 5, 3, 1, 0, KDRImage::DataTypeUInt8); // null: zeroed pixels
    cv::Mat matrix = pixelsOf(image);
    matrix.setTo(7);
    std::printf("written through the matrix: %d\n", image.dataPtr()[14]);

    // From cv::Mat: make the image first, and let the operation write into it.
    KDRImage doubled(nullptr, 5, 3, 1, 0, KDRImage::DataTypeUInt8);
    cv::Mat result = pixelsOf(doubled);
    cv::add(matrix, matrix, result); // of the right size and type already, so not made anew
    std::printf("computed in place: %s, %d\n", result.data == doubled.dataPtr() ? "yes" : "no",
                doubled.dataPtr()[0]);

    // A matrix that exists already is copied, row by row where it is a part of a larger one.
    cv::Mat part = matrix(cv::Rect(1, 1, 2, 2));
    KDRImage copied(part.data, part.cols, part.rows, 1, static_cast<int>(part.step),
                    KDRImage::DataTypeUInt8);
    std::printf("copied: %d x %d, %d bytes a row\n", copied.width(), copied.height(),
                copied.step());

    // QImage's memory: its rows begin at multiples of four bytes, so that five grey pixels take
    // eight. The pixels are copied out of it by its bytesPerLine().
    int const bytesPerLine = (5 * 8 + 31) / 32 * 4;
    unsigned char lines[3][bytesPerLine] = {{10}, {20}, {30}};
    KDRImage fromLines(lines, 5, 3, 1, bytesPerLine, KDRImage::DataTypeUInt8);
    std::printf("from rows of %d bytes: %d bytes a row, the second begins with %d\n", bytesPerLine,
                fromLines.step(), fromLines.dataPtr()[fromLines.step()]);
    return 0;
}
