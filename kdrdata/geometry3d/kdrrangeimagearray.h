#ifndef KDRDATA_KDRRANGEIMAGEARRAY_H
#define KDRDATA_KDRRANGEIMAGEARRAY_H

#include <kdrdata/geometry3d/kdrrangeimage.h>
#include <kdrdata/kdrdata_export.h>

/// An array of range images with the operations of the other arrays.
///
/// This version keeps no elements: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRRangeImageArray
{
public:
    /// An array that holds nothing, like every other.
    KDRRangeImageArray();
    /// Copies nothing.
    KDRRangeImageArray(KDRRangeImageArray const&);
    /// Does nothing.
    ~KDRRangeImageArray();

    /// Copies nothing. Returns this array.
    KDRRangeImageArray& operator=(KDRRangeImageArray const&);

    /// Answers -1, after push_back() too. Kept on purpose.
    int length() const;

    /// Does nothing.
    void push_back(KDRRangeImage const&);
    /// Does nothing.
    void push_back(KDRRangeImageArray const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool insert(int, KDRRangeImage const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool removeAt(int);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool replace(int, KDRRangeImage const&);
    /// Answers true for every position and leaves the output, which may be null, untouched. Kept on
    /// purpose.
    bool select(int, KDRRangeImage*) const;
    /// Does nothing and answers true for all positions. Kept on purpose.
    bool swap(int, int);
    /// Does nothing.
    void clear();

    /// A default range image for every position.
    KDRRangeImage operator[](int) const;
};

#endif
