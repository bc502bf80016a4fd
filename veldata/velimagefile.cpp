#include <veldata/velimagefile_p.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>

#include <veldata/velcodec_p.h>
#include <veldata/velfile_p.h>
#include <veldata/velimagetype.h>
#include <veldata/velpixels_p.h>

static_assert(VEL_8U == CV_8U && VEL_8S == CV_8S && VEL_16U == CV_16U && VEL_16S == CV_16S &&
                  VEL_32S == CV_32S && VEL_32F == CV_32F && VEL_64F == CV_64F,
              "type codes are passed on unchanged");

namespace {

using velfile::Bytes;

/// The extension of the last part of @p path in small letters, with its dot; empty if there is
/// none.
std::string extensionOf(std::string const& path)
{
    std::string const name = path.substr(path.rfind('/') + 1);
    std::size_t const dot = name.rfind('.');
    if (dot == std::string::npos || dot == 0)
        return std::string();
    std::string extension = name.substr(dot);
    for (char& letter : extension) {
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    }
    return extension;
}

bool isOneOf(int value, std::initializer_list<int> values)
{
    return std::find(values.begin(), values.end(), value) != values.end();
}

bool isTiff(std::string const& extension) { return extension == ".tif" || extension == ".tiff"; }
bool isJpeg(std::string const& extension) { return extension == ".jpg" || extension == ".jpeg"; }

/// Whether the format of @p extension holds such pixels unchanged (JPEG: up to its compression) and
/// OpenCV writes them so; false for an unknown extension.
bool canHold(std::string const& extension, VelGeometry const& geometry)
{
    int const type = geometry.type;
    int const channels = geometry.channels;
    if (extension == ".png") {
        constexpr int maxSide = 1000000; // libpng's own limit
        return isOneOf(type, {VEL_8U, VEL_16U}) && isOneOf(channels, {1, 3, 4}) &&
               geometry.width <= maxSide && geometry.height <= maxSide;
    }
    if (isJpeg(extension)) {
        constexpr int maxSide = 65500; // libjpeg's own limit
        return type == VEL_8U && isOneOf(channels, {1, 3}) && geometry.width <= maxSide &&
               geometry.height <= maxSide;
    }
    if (isTiff(extension))
        return isOneOf(type, {VEL_8U, VEL_16U, VEL_32F}) ? isOneOf(channels, {1, 3, 4})
                                                         : channels == 1;
    if (extension == ".bmp")
        return type == VEL_8U && isOneOf(channels, {1, 3});
    if (!isOneOf(type, {VEL_8U, VEL_16U}))
        return false;
    return (extension == ".pgm" && channels == 1) || (extension == ".ppm" && channels == 3) ||
           (extension == ".pnm" && isOneOf(channels, {1, 3}));
}

/// OpenCV's writing parameters for a compression effort of 0 to 9.
std::vector<int> parametersFor(std::string const& extension, int effort)
{
    constexpr int tiffUncompressed = 1;
    constexpr int tiffLzw = 5;
    if (extension == ".png")
        return {cv::IMWRITE_PNG_COMPRESSION, effort};
    if (isJpeg(extension))
        return {cv::IMWRITE_JPEG_QUALITY, 100 - 5 * effort};
    if (isTiff(extension))
        return {cv::IMWRITE_TIFF_COMPRESSION, effort == 0 ? tiffUncompressed : tiffLzw};
    return {};
}

VelPixels* decode(Bytes const& bytes)
{
    // Unchanged: bit depth and channels as in the file, and no turning by an EXIF mark.
    cv::Mat const mat = cv::imdecode(bytes, cv::IMREAD_UNCHANGED);
    if (mat.empty() || mat.step > INT_MAX)
        return nullptr;
    return VelPixels::create(mat.data, {mat.cols, mat.rows, mat.channels(), mat.depth()},
                             static_cast<int>(mat.step));
}

bool encode(VelPixels const& pixels, std::string const& extension, int effort, Bytes& bytes)
{
    VelGeometry const& geometry = pixels.geometry;
    cv::Mat const mat(geometry.height, geometry.width,
                      CV_MAKETYPE(geometry.type, geometry.channels), pixels.data);
    return cv::imencode(extension, mat, bytes, parametersFor(extension, effort)) && !bytes.empty();
}

} // namespace

VelPixels* velimagefile::read(char const* path) noexcept
{
    try {
        Bytes bytes;
        if (!path || !*path || !velfile::readWhole(path, bytes) || !velcodec::prepare(bytes))
            return nullptr;
        return decode(bytes);
    } catch (...) {
        return nullptr;
    }
}

bool velimagefile::save(VelPixels const& pixels, char const* path, int effort) noexcept
{
    // What could not be read back is not written either.
    constexpr std::size_t maxBytes = INT_MAX - (1 << 20);
    try {
        if (!path || !*path || pixels.geometry.bytes() > maxBytes ||
            !velcodec::isDecodableSize(pixels.geometry.width, pixels.geometry.height))
            return false;
        std::string const extension = extensionOf(path);
        if (!canHold(extension, pixels.geometry))
            return false;
        Bytes bytes;
        return encode(pixels, extension, std::clamp(effort, 0, 9), bytes) &&
               velfile::replaceWhole(path, bytes);
    } catch (...) {
        return false;
    }
}
