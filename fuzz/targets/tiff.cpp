// TIFF files of either byte order.

#include <cstddef>
#include <cstdint>

#include "../support/picturefile.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static PictureFile file;
    // The other formats have targets of their own.
    if (size < 2 || !(data[0] == data[1] && (data[0] == 'I' || data[0] == 'M')))
        return 0;
    file.read(data, size);
    return 0;
}
