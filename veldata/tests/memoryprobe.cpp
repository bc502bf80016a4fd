// Makes one call, the first of the process, under whatever limit of memory it was started with.
// usage: memoryprobe read|save NAME
//
// A program of its own that needs nothing but the library. It writes one byte to the descriptor 3
// as soon as it runs; so it can be told from one that did not even start. Exits with 0 for success
// and 1 for failure.

#include <cstring>

#include <unistd.h>

#include <veldata/velimage.h>

int main(int argc, char** argv)
{
    if (argc < 3 || ::write(3, "!", 1) != 1)
        return 2;
    VelImage image;
    if (std::strcmp(argv[1], "read") == 0)
        return image.ReadImage(argv[2]) == 1 && image.ImageData() ? 0 : 1;
    // Memory for the picture comes first; only the save is to run out of it.
    if (image.CreateImage(nullptr, 600, 400, 3, 0, VEL_8U) != 1)
        return 1;
    return image.SaveImage(argv[2], 6) == 1 ? 0 : 1;
}
