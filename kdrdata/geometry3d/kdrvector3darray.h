#ifndef KDRDATA_KDRVECTOR3DARRAY_H
#define KDRDATA_KDRVECTOR3DARRAY_H

#include <kdrdata/geometry3d/kdrvector3d.h>
#include <kdrdata/kdrdata_export.h>

/// An array of vectors with the operations of the other arrays.
///
/// This version keeps no elements: every operation ignores its arguments, and the answers are
/// constants, not errors. They differ from those of the other arrays without storage in length()
/// and swap(). Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRVector3dArray
{
public:
    /// An array that holds nothing, like every other.
    KDRVector3dArray();
    /// Copies nothing.
    KDRVector3dArray(KDRVector3dArray const&);
    /// Does nothing.
    ~KDRVector3dArray();

    /// Copies nothing. Returns this array.
    KDRVector3dArray& operator=(KDRVector3dArray const&);

    /// Answers 0, after push_back() too. Kept on purpose.
    int length() const;
    /// Answers -1. Kept on purpose.
    int countValidElements() const;

    /// Does nothing.
    void push_back(KDRVector3d const&);
    /// Does nothing.
    void push_back(KDRVector3dArray const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool insert(int, KDRVector3d const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool removeAt(int);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool replace(int, KDRVector3d const&);
    /// Answers true for every position and leaves the output, which may be null, untouched. Kept on
    /// purpose.
    bool select(int, KDRVector3d*) const;
    /// Does nothing and answers false for all positions, unlike the other arrays without storage.
    /// Kept on purpose.
    bool swap(int, int);
    /// Does nothing.
    void clear();

    /// A default vector for every position.
    KDRVector3d operator[](int) const;
};

#endif
