#ifndef KDRDATA_KDRPOINTCLOUDARRAY_H
#define KDRDATA_KDRPOINTCLOUDARRAY_H

#include <kdrdata/geometry3d/kdrpointcloud.h>
#include <kdrdata/kdrdata_export.h>

/// An array of point clouds with the operations of the other arrays.
///
/// This version keeps no elements: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRPointCloudArray
{
public:
    /// An array that holds nothing, like every other.
    KDRPointCloudArray();
    /// Copies nothing.
    KDRPointCloudArray(KDRPointCloudArray const&);
    /// Does nothing.
    ~KDRPointCloudArray();

    /// Copies nothing. Returns this array.
    KDRPointCloudArray& operator=(KDRPointCloudArray const&);

    /// Answers -1, after push_back() too. Kept on purpose.
    int length() const;

    /// Does nothing.
    void push_back(KDRPointCloud const&);
    /// Does nothing.
    void push_back(KDRPointCloudArray const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool insert(int, KDRPointCloud const&);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool removeAt(int);
    /// Does nothing and answers true for every position. Kept on purpose.
    bool replace(int, KDRPointCloud const&);
    /// Answers true for every position and leaves the output, which may be null, untouched. Kept on
    /// purpose.
    bool select(int, KDRPointCloud*) const;
    /// Does nothing and answers true for all positions. Kept on purpose.
    bool swap(int, int);
    /// Does nothing.
    void clear();

    /// A default point cloud for every position.
    KDRPointCloud operator[](int) const;
};

#endif
