#ifndef KDRDATA_KDRPOINT3DARRAY_H
#define KDRDATA_KDRPOINT3DARRAY_H

#include <kdrdata/geometry3d/kdrpoint3d.h>
#include <kdrdata/kdrdata_export.h>

/// An array of points in space with the operations of the other arrays.
///
/// This version keeps no elements: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRPoint3DArray
{
public:
    /// An array that holds nothing, like every other.
    KDRPoint3DArray();
    /// Copies nothing.
    KDRPoint3DArray(KDRPoint3DArray const&);
    /// Does nothing.
    ~KDRPoint3DArray();

    /// Copies nothing. Returns this array.
    KDRPoint3DArray& operator=(KDRPoint3DArray const&);

    /// Answers -1, after push_back() too. Kept on purpose.
    int length() const;

    /// Does nothing.
    void push_back(KDRPoint3D const&);
    /// Does nothing.
    void push_back(KDRPoint3DArray const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool insert(int, KDRPoint3D const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool removeAt(int);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool replace(int, KDRPoint3D const&);
    /// Answers true for every position and leaves the output, which may be null, untouched. Kept on
    /// purpose.
    bool select(int, KDRPoint3D*) const;
    /// Does nothing and answers true for all positions. Kept on purpose.
    bool swap(int, int);
    /// Does nothing.
    void clear();

    /// A default point for every position.
    KDRPoint3D operator[](int) const;
};

#endif
