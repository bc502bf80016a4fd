// Portable bit, grey and pixel maps.

#include <cstddef>
#include <cstdint>

#include "../support/picturefile.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static PictureFile file;
    // The other formats have targets of their own.
    if (size < 2 || !(data[0] == 'P'))
        return 0;
    file.read(data, size);
    return 0;
}
