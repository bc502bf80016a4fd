#ifndef KDRDATA_KDRCHUNKDATA_H
#define KDRDATA_KDRCHUNKDATA_H

#include <kdrdata/kdrdata_export.h>

class VelChunkData;
struct KDRInternal;

/// A block of raw bytes that is carried, but cannot be looked into.
///
/// The handle owns one core-library chunk (`VelChunkData`). Its bytes come from the constructor
/// alone and are never given back: assignment, comparison, indexing, reading and writing are inert.
/// Kept on purpose.
///
/// @code
/// KDRChunkData const chunk(bytes, byteCount);
/// KDRChunkData const copy(chunk); // the only way on
/// @endcode
///
/// Out of memory when copying is std::bad_alloc.
///
/// Threads: a plain value that nothing changes; one chunk may be used by several threads at once.
class KDRDATA_EXPORT KDRChunkData
{
public:
    /// An empty chunk.
    KDRChunkData();
    /// Copies the bytes of @p other.
    KDRChunkData(KDRChunkData const& other);
    /// A copy of the @p length bytes at @p data, made by the core chunk's constructor; with the
    /// bundled core library an empty chunk for null and where memory runs out.
    KDRChunkData(unsigned char const* data, unsigned long long length);
    /// Destroys the core chunk.
    ~KDRChunkData();

    /// Does nothing. Returns this chunk. Kept on purpose.
    KDRChunkData& operator=(KDRChunkData const& other);

    /// False, whatever the chunks hold. Kept on purpose.
    bool operator==(KDRChunkData const& other) const;
    /// False too, whatever the chunks hold. Kept on purpose.
    bool operator!=(KDRChunkData const& other) const;

    /// 0 for every index; no byte is read. Kept on purpose.
    unsigned char operator[](int index) const;
    /// A byte that is 0, for every index; what is written to it reaches no chunk. There is one such
    /// byte a thread, which every call sets to 0 again; it is good until the thread ends. Kept on
    /// purpose.
    unsigned char& operator[](int index);

    /// 0, however many bytes there are. Kept on purpose.
    unsigned long long getLength() const;
    /// Null. Kept on purpose.
    unsigned char const* getData() const;
    /// Does nothing. Kept on purpose.
    void setData(unsigned long long length, unsigned char const* data);

private:
    friend struct KDRInternal;
    VelChunkData* d;
};

#endif
