#ifndef VELDATA_VELMEMORY_P_H
#define VELDATA_VELMEMORY_P_H

#include <cstddef>
#include <cstdlib>
#include <memory>

/// Bytes that are freed with their owner.
using VelBlock = std::unique_ptr<unsigned char, decltype(&std::free)>;

/// @p size bytes of any value; null where there is no memory for them.
inline VelBlock velAllocate(std::size_t size) noexcept
{
    return VelBlock(static_cast<unsigned char*>(std::malloc(size)), &std::free);
}

/// Whether there are @p size bytes to be had at this moment.
inline bool velHasMemory(std::size_t size) noexcept
{
    // A compiler may take away an allocation that nobody looks at.
    void* volatile probe = std::malloc(size);
    bool const isThere = probe != nullptr;
    std::free(probe);
    return isThere;
}

#endif
