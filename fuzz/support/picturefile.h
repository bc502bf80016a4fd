#ifndef KDRDATA_FUZZ_PICTUREFILE_H
#define KDRDATA_FUZZ_PICTUREFILE_H

#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrimage.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "check.h"
#include "memoryfile.h"

/// What holds of reading any bytes as a picture: a refused file leaves the image alone, and one
/// that is read gives an image whose every byte is there.
class PictureFile
{
public:
    /// Reads the bytes; answers whether they are a picture.
    bool read(std::uint8_t const* data, std::size_t size)
    {
        m_file.write(data, size);
        unsigned char pixels[] = {1, 2, 3, 4, 5, 6};
        KDRImage image(pixels, 2, 1, 3, 0, KDRImage::DataTypeUInt8);
        KDRImage const before(image);
        bool const answer = image.read(KDRString(m_file.path().c_str())) != 0;
        // Pictures of floating-point values are read and yet answered with failure.
        bool const floating = !answer && image.depth() >= KDRImage::DataTypeFloat32;
        if (answer || floating)
            expectWhole(image);
        else
            check(image.dataPtr() == before.dataPtr() && image.width() == 2,
                  "a refused file leaves the image as it was");
        check(before.width() == 2 && std::memcmp(before.dataPtr(), pixels, sizeof pixels) == 0,
              "reading leaves earlier copies their pixels");
        return answer || floating;
    }

private:
    static void expectWhole(KDRImage const& image)
    {
        constexpr int bytesOf[] = {1, 1, 2, 2, 4, 4, 8};
        check(image.width() > 0 && image.height() > 0, "a picture has pixels");
        check(image.channel() >= 1 && image.channel() <= 4, "a picture has 1 to 4 channels");
        check(image.depth() >= 0 && image.depth() <= 6, "a picture has an element type");
        long long const row =
            static_cast<long long>(image.width()) * image.channel() * bytesOf[image.depth()];
        check(row <= image.step(), "a row holds its pixels");
        // What is not there, and what was never written, shows under a sanitizer.
        unsigned char sum = 0;
        for (int y = 0; y < image.height(); ++y) {
            unsigned char const* const first =
                image.dataPtr() +
                static_cast<std::size_t>(y) * static_cast<std::size_t>(image.step());
            for (long long x = 0; x < row; ++x)
                sum = static_cast<unsigned char>(sum + first[x]);
        }
        unsigned char const volatile kept = sum;
        static_cast<void>(kept);
    }

    MemoryFile m_file;
};

#endif
