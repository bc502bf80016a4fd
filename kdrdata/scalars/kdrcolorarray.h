#ifndef KDRDATA_KDRCOLORARRAY_H
#define KDRDATA_KDRCOLORARRAY_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/scalars/kdrcolor.h>

/// A raster of colours with a width, a height and a number of channels.
///
/// This version carries no data: every operation ignores its arguments, buffers are neither read
/// nor kept, and the answers are constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRColorArray
{
public:
    /// A raster that holds nothing, like every other.
    KDRColorArray();
    /// Ignores the buffer and its geometry.
    KDRColorArray(void*, int, int);
    /// Ignores the buffer and its geometry.
    KDRColorArray(void*, int, int, int);
    /// Copies nothing.
    KDRColorArray(KDRColorArray const&);
    /// Does nothing.
    ~KDRColorArray();

    /// Copies nothing. Returns this raster.
    KDRColorArray& operator=(KDRColorArray const&);

    /// Does nothing.
    void setSize(int, int, int);
    /// Does nothing.
    void setColor(int);
    /// Does nothing.
    void append(KDRColorArray const&);
    /// Does nothing.
    void create(int, int);
    /// Does nothing.
    void clear();

    /// Takes nothing and answers false. Kept on purpose.
    bool setValue(void*, int, int, int);
    /// Makes nothing and answers false. Kept on purpose.
    bool createColorArray(void*, int, int, int);

    /// Answers -1. Kept on purpose.
    int width() const;
    /// Answers -1. Kept on purpose.
    int height() const;
    /// Answers -1. Kept on purpose.
    int length() const;
    /// Answers -1. Kept on purpose.
    int channel() const;
    /// Answers null. Kept on purpose.
    void* Data() const;

    /// Does nothing and answers false for every position. Kept on purpose.
    bool replace(int, KDRColor&);
    /// Answers false for every position and leaves the output, which may be null, untouched. Kept
    /// on purpose.
    bool select(int, KDRColor*) const;
    /// A default colour for every position.
    KDRColor operator[](int) const;

    /// A default raster. Not for constant rasters. Kept on purpose.
    KDRColorArray deepCopy();
};

#endif
