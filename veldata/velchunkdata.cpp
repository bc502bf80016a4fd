#include <veldata/velchunkdata.h>

#include <new>
#include <utility>

VelChunkData::VelChunkData() noexcept = default;

VelChunkData::VelChunkData(unsigned char const* bytes, unsigned long long length) noexcept
{
    if (!bytes || length > content.max_size())
        return;
    try {
        content.reserve(length);
        content.assign(bytes, bytes + length);
    } catch (std::bad_alloc const&) {
        // As empty as the block is now.
    }
}

VelChunkData::VelChunkData(VelChunkData const& other) = default;

VelChunkData::VelChunkData(VelChunkData&& other) noexcept
    : content(std::exchange(other.content, {}))
{
}

VelChunkData::~VelChunkData() = default;

VelChunkData& VelChunkData::operator=(VelChunkData const& other)
{
    VelChunkData copy(other);
    return *this = std::move(copy);
}

VelChunkData& VelChunkData::operator=(VelChunkData&& other) noexcept
{
    content = std::exchange(other.content, {});
    return *this;
}

unsigned long long VelChunkData::Length() const noexcept { return content.size(); }

unsigned char const* VelChunkData::Data() const noexcept
{
    return content.empty() ? nullptr : content.data();
}
