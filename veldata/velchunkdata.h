#ifndef VELDATA_VELCHUNKDATA_H
#define VELDATA_VELCHUNKDATA_H

#include <vector>

#include <veldata/veldata_export.h>

/// A block of raw bytes.
///
/// Copies are deep; a moved-from block is empty. Copying throws std::bad_alloc when memory runs
/// out. One block may be read from several threads at once, but not while one of them changes it.
class VELDATA_EXPORT VelChunkData
{
public:
    /// An empty block; allocates nothing.
    VelChunkData() noexcept;

    /// A copy of the @p length bytes at @p bytes. Null gives an empty block, whatever the length,
    /// and so does a length that there is no memory for.
    VelChunkData(unsigned char const* bytes, unsigned long long length) noexcept;

    /// A deep copy. Throws std::bad_alloc.
    VelChunkData(VelChunkData const& other);

    /// Takes the bytes over; @p other is left empty.
    VelChunkData(VelChunkData&& other) noexcept;

    /// Destroys the bytes.
    ~VelChunkData();

    /// Becomes a deep copy. Throws std::bad_alloc and is then unchanged.
    VelChunkData& operator=(VelChunkData const& other);

    /// Takes the bytes over; @p other is left empty. Assigning a block to itself does nothing.
    VelChunkData& operator=(VelChunkData&& other) noexcept;

    /// The number of bytes.
    unsigned long long Length() const noexcept;

    /// The first byte; null for an empty block. The block keeps owning the bytes: the pointer is
    /// good until the block is changed or destroyed.
    unsigned char const* Data() const noexcept;

private:
    std::vector<unsigned char> content;
};

#endif
