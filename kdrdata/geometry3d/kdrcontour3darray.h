#ifndef KDRDATA_KDRCONTOUR3DARRAY_H
#define KDRDATA_KDRCONTOUR3DARRAY_H

#include <kdrdata/geometry3d/kdrcontour3d.h>
#include <kdrdata/kdrdata_export.h>

/// An array of contours in space with the operations of the other arrays.
///
/// This version keeps no elements: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRContour3DArray
{
public:
    /// An array that holds nothing, like every other.
    KDRContour3DArray();
    /// Copies nothing.
    KDRContour3DArray(KDRContour3DArray const&);
    /// Does nothing.
    ~KDRContour3DArray();

    /// Copies nothing. Returns this array.
    KDRContour3DArray& operator=(KDRContour3DArray const&);

    /// Answers -1, after push_back() too. Kept on purpose.
    int length() const;

    /// Does nothing.
    void push_back(KDRContour3D const&);
    /// Does nothing.
    void push_back(KDRContour3DArray const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool insert(int, KDRContour3D const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool removeAt(int);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool replace(int, KDRContour3D const&);
    /// Answers true for every position and leaves the output, which may be null, untouched. Kept on
    /// purpose.
    bool select(int, KDRContour3D*) const;
    /// Does nothing and answers true for all positions. Kept on purpose.
    bool swap(int, int);
    /// Does nothing.
    void clear();

    /// A default contour for every position.
    KDRContour3D operator[](int) const;
};

#endif
