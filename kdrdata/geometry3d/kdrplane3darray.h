#ifndef KDRDATA_KDRPLANE3DARRAY_H
#define KDRDATA_KDRPLANE3DARRAY_H

#include <kdrdata/geometry3d/kdrplane3d.h>
#include <kdrdata/kdrdata_export.h>

/// An array of planes with the operations of the other arrays.
///
/// This version keeps no elements: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRPlane3DArray
{
public:
    /// An array that holds nothing, like every other.
    KDRPlane3DArray();
    /// Copies nothing.
    KDRPlane3DArray(KDRPlane3DArray const&);
    /// Does nothing.
    ~KDRPlane3DArray();

    /// Copies nothing. Returns this array.
    KDRPlane3DArray& operator=(KDRPlane3DArray const&);

    /// Answers -1, after push_back() too. Kept on purpose.
    int length() const;

    /// Does nothing.
    void push_back(KDRPlane3D const&);
    /// Does nothing.
    void push_back(KDRPlane3DArray const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool insert(int, KDRPlane3D const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool removeAt(int);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool replace(int, KDRPlane3D const&);
    /// Answers true for every position and leaves the output, which may be null, untouched. Kept on
    /// purpose.
    bool select(int, KDRPlane3D*) const;
    /// Does nothing and answers true for all positions. Kept on purpose.
    bool swap(int, int);
    /// Does nothing.
    void clear();

    /// A default plane for every position.
    KDRPlane3D operator[](int) const;
};

#endif
