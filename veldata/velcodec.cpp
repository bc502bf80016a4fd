#include <veldata/velcodec_p.h>

#include <array>
#include <cstring>

#include <veldata/velimagetype.h>
#include <veldata/velinput_p.h>
#include <veldata/vellimits_p.h>

namespace {

using velcodec::Format;

constexpr unsigned bit(int number) { return 1U << number; }

constexpr int anySide = static_cast<int>(vellimits::side);
constexpr unsigned grey = bit(1);
constexpr unsigned colour = bit(3);
constexpr unsigned colourWithAlpha = bit(4);
constexpr unsigned bytes = bit(VEL_8U);
constexpr unsigned bytesAndWords = bit(VEL_8U) | bit(VEL_16U);

constexpr Format formats[] = {
    {{"\x89PNG\r\n\x1A\n"},
     8,
     {"png"},
     {{bytesAndWords, grey | colour | colourWithAlpha}},
     vellimits::pngSide,
     velcodec::readPng,
     velcodec::writePng},
    {{"\xFF\xD8\xFF"},
     3,
     {"jpg", "jpeg"},
     {{bytes, grey | colour}},
     vellimits::jpegSide,
     velcodec::readJpeg,
     velcodec::writeJpeg},
    {{"II*\0", "MM\0*", "II+\0", "MM\0+"},
     4,
     {"tif", "tiff"},
     {{bytesAndWords | bit(VEL_32F), grey | colour | colourWithAlpha},
      {bit(VEL_8S) | bit(VEL_16S) | bit(VEL_32S) | bit(VEL_64F), grey}},
     anySide,
     velcodec::readTiff,
     velcodec::writeTiff},
    {{"BM"}, 2, {"bmp"}, {{bytes, grey | colour}}, anySide, velcodec::readBmp, velcodec::writeBmp},
    {{"P2", "P5"},
     2,
     {"pgm"},
     {{bytesAndWords, grey}},
     anySide,
     velcodec::readPnm,
     velcodec::writePnm},
    {{"P3", "P6"},
     2,
     {"ppm"},
     {{bytesAndWords, colour}},
     anySide,
     velcodec::readPnm,
     velcodec::writePnm},
    {{"P1", "P4"},
     2,
     {"pnm"},
     {{bytesAndWords, grey | colour}},
     anySide,
     velcodec::readPnm,
     velcodec::writePnm},
};

/// The last part of @p path behind its last dot; null where there is none, or nothing before it.
char const* extensionOf(char const* path)
{
    char const* const slash = std::strrchr(path, '/');
    char const* const name = slash ? slash + 1 : path;
    char const* const dot = std::strrchr(name, '.');
    return dot && dot != name ? dot + 1 : nullptr;
}

/// Whether @p text is @p small, which has small letters only, in any case.
bool isInAnyCase(char const* text, char const* small)
{
    for (; *small != '\0'; ++text, ++small) {
        bool const isCapital = *text >= 'A' && *text <= 'Z';
        if ((isCapital ? *text - 'A' + 'a' : *text) != *small)
            return false;
    }
    return *text == '\0';
}

/// The geometry of a picture with these sides; an invalid one where they are beyond the limit.
VelGeometry geometryOf(std::uint64_t width, std::uint64_t height, int channels, int type)
{
    if (width > vellimits::side || height > vellimits::side)
        return {};
    return {static_cast<int>(width), static_cast<int>(height), channels, type};
}

} // namespace

bool velcodec::Format::holds(VelGeometry const& geometry) const noexcept
{
    if (geometry.width > maxSide || geometry.height > maxSide)
        return false;
    for (Kinds const& kind : kinds) {
        if ((kind.types & bit(geometry.type)) != 0 && (kind.channels & bit(geometry.channels)) != 0)
            return true;
    }
    return false;
}

velcodec::Format const* velcodec::formatOf(VelInput const& input) noexcept
{
    std::array<char, 8> beginning;
    // The shortest picture there is has more than these.
    if (input.readAt(0, beginning.data(), beginning.size()) != beginning.size())
        return nullptr;
    for (Format const& format : formats) {
        for (char const* signature : format.signatures) {
            if (signature && std::memcmp(beginning.data(), signature, format.signatureSize) == 0)
                return &format;
        }
    }
    return nullptr;
}

velcodec::Format const* velcodec::formatNamed(char const* path) noexcept
{
    char const* const wanted = extensionOf(path);
    for (Format const& format : formats) {
        for (char const* extension : format.extensions) {
            if (wanted && extension && isInAnyCase(wanted, extension))
                return &format;
        }
    }
    return nullptr;
}

bool velcodec::isWithinLimits(VelGeometry const& geometry) noexcept
{
    constexpr int side = static_cast<int>(vellimits::side);
    return geometry.width <= side && geometry.height <= side && geometry.isValid() &&
           geometry.bytes() <= vellimits::pictureBytes;
}

VelPixels* velcodec::newPixels(std::uint64_t width, std::uint64_t height, int channels,
                               int type) noexcept
{
    VelGeometry const geometry = geometryOf(width, height, channels, type);
    return isWithinLimits(geometry) ? VelPixels::create(geometry) : nullptr;
}

VelPixels* velcodec::newBlankPixels(std::uint64_t width, std::uint64_t height, int channels,
                                    int type) noexcept
{
    VelGeometry const geometry = geometryOf(width, height, channels, type);
    return isWithinLimits(geometry) ? VelPixels::create(nullptr, geometry, 0) : nullptr;
}
