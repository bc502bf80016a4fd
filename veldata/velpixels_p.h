#ifndef VELDATA_VELPIXELS_P_H
#define VELDATA_VELPIXELS_P_H

#include <atomic>
#include <cstddef>
#include <cstdint>

/// The size and type of a pixel block; rows follow each other without gaps.
struct VelGeometry
{
    int width;
    int height;
    int channels;
    int type;

    /// Most pixels an image may have.
    static constexpr std::int64_t maxPixels = std::int64_t{1} << 30;

    /// Whether an image may have this geometry; the other operations presuppose it.
    bool isValid() const noexcept;

    /// Bytes of one row, at most INT_MAX.
    int rowBytes() const noexcept;

    /// Bytes of all rows.
    std::size_t bytes() const noexcept;
};

/// The pixels that images share, and how many images do.
class VelPixels
{
public:
    /// New pixels, counted once, or null: for an invalid geometry, a step shorter than a row (0 for
    /// tightly packed rows) and when memory runs out. Null @p data gives zeroed pixels.
    static VelPixels* create(unsigned char const* data, VelGeometry const& geometry,
                             int step) noexcept;

    /// New pixels of any value, counted once, or null: for an invalid geometry and when memory runs
    /// out. A huge block costs no memory until it is written.
    static VelPixels* create(VelGeometry const& geometry) noexcept;

    /// Pixels in the memory of somebody else, tightly packed, counted once; giveBack(owner) is
    /// called when nobody needs them any more. Null, and no call, for an invalid geometry and when
    /// memory runs out.
    static VelPixels* over(unsigned char* data, VelGeometry const& geometry,
                           void (*giveBack)(void*), void* owner) noexcept;

    VelPixels(VelPixels const&) = delete;
    VelPixels& operator=(VelPixels const&) = delete;

    /// Counts one image more; null is left alone. Answers its argument.
    static VelPixels* acquire(VelPixels* pixels) noexcept;

    /// Counts one image less and destroys the pixels with the last one; null is left alone.
    static void release(VelPixels* pixels) noexcept;

    VelGeometry const geometry;
    unsigned char* const data;

private:
    /// Takes over @p block, which has room for the pixels; null if there is no memory for the rest.
    static VelPixels* adopt(void* block, VelGeometry const& geometry) noexcept;

    VelPixels(VelGeometry const& pixelGeometry, unsigned char* block, void (*giveBack)(void*),
              void* blockOwner) noexcept;
    ~VelPixels();

    std::atomic<int> images;
    void (*const releaseOwner)(void*);
    void* const owner;
};

#endif
