#ifndef KDRDATA_KDRPOINTCLOUD_H
#define KDRDATA_KDRPOINTCLOUD_H

#include <kdrdata/kdrdata_export.h>

class KDRColorArray;
class KDRString;
class KDRVector3dArray;

/// A cloud of points in space, with colours and normals.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRPointCloud
{
public:
    /// A point cloud that holds nothing, like every other.
    KDRPointCloud();
    /// Copies nothing.
    KDRPointCloud(KDRPointCloud const&);
    /// Does nothing.
    ~KDRPointCloud();

    /// Copies nothing. Returns this point cloud.
    KDRPointCloud& operator=(KDRPointCloud const&);

    /// Does nothing.
    void Append(KDRPointCloud const&);
    /// Does nothing.
    void SetPoints(KDRVector3dArray const&);
    /// Does nothing.
    void SetColors(KDRColorArray const&);
    /// Does nothing.
    void SetNormals(KDRVector3dArray const&);

    /// Answers false and reads no file. Kept on purpose.
    bool Load(KDRString const&, bool, bool);
    /// Answers false and writes no file. Kept on purpose.
    bool Save(KDRString const&, bool, bool);
};

#endif
