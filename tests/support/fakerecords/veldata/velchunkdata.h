#ifndef KDRDATA_TESTS_FAKERECORDS_VELCHUNKDATA_H
#define KDRDATA_TESTS_FAKERECORDS_VELCHUNKDATA_H

#include "../fakecalls.h"

/// A core block of bytes that looks at none of them.
class VelChunkData
{
public:
    VelChunkData() = default;
    VelChunkData(unsigned char const* bytes, unsigned long long length)
    {
        FakeCalls::note("bytes", static_cast<void const*>(bytes), length);
    }
    VelChunkData(VelChunkData const&) = delete;
    VelChunkData& operator=(VelChunkData const&)
    {
        FakeCalls::note("chunk operator=");
        return *this;
    }

private:
    FakeCalls::Alive alive;
};

#endif
