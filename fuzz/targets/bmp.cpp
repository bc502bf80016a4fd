// Windows bitmaps.

#include <cstddef>
#include <cstdint>

#include "../support/picturefile.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static PictureFile file;
    // The other formats have targets of their own.
    if (size < 2 || !(data[0] == 'B' && data[1] == 'M'))
        return 0;
    file.read(data, size);
    return 0;
}
