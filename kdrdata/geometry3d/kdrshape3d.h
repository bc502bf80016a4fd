#ifndef KDRDATA_KDRSHAPE3D_H
#define KDRDATA_KDRSHAPE3D_H

#include <kdrdata/kdrdata_export.h>

class KDRVector3d;
class KDRVector3dArray;

/// A shape in space.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. The getters (`to...`) are not for constant shapes. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRShape3D
{
public:
    /// A shape that holds nothing, like every other.
    KDRShape3D();
    /// Copies nothing.
    KDRShape3D(KDRShape3D const&);
    /// Does nothing.
    ~KDRShape3D();

    /// Copies nothing. Returns this shape.
    KDRShape3D& operator=(KDRShape3D const&);

    /// Does nothing.
    void fromPoint(KDRVector3d&);
    /// Does nothing.
    void fromLine(KDRVector3d&, KDRVector3d&);
    /// Does nothing.
    void fromLineSegment(KDRVector3d&, KDRVector3d&);
    /// Does nothing.
    void fromPlane(KDRVector3d&, KDRVector3d&);
    /// Does nothing.
    void fromCircle(KDRVector3d&, KDRVector3d&, float);
    /// Does nothing.
    void fromEllipse(KDRVector3d&, KDRVector3d&, float, float);
    /// Does nothing.
    void fromRect(KDRVector3d&, KDRVector3d&, float, float);
    /// Does nothing.
    void fromAnnulus(KDRVector3d&, KDRVector3d&, float, float, float, float);
    /// Does nothing.
    void fromTorus(KDRVector3d&, KDRVector3d&, float, float, float, float);
    /// Does nothing.
    void fromArc(KDRVector3d&, KDRVector3d&, float, float, float);
    /// Does nothing.
    void fromTriangle(KDRVector3d&, KDRVector3d&, KDRVector3d&);
    /// Does nothing.
    void fromBox(KDRVector3d&, KDRVector3d&, KDRVector3d&);
    /// Does nothing.
    void fromEllipsoid(KDRVector3d&, KDRVector3d&, KDRVector3d&);
    /// Does nothing.
    void fromPolygon(KDRVector3dArray&);
    /// Does nothing.
    void fromSphere(KDRVector3d&, float);
    /// Does nothing.
    void fromCylinder(KDRVector3d&, KDRVector3d&, float, float);
    /// Does nothing.
    void fromTube(KDRVector3d&, KDRVector3d&, float, float, float, float, float);

    /// Answers false and leaves the output untouched. Kept on purpose.
    bool toPoint(KDRVector3d*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toLine(KDRVector3d*, KDRVector3d*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toLineSegment(KDRVector3d*, KDRVector3d*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toPlane(KDRVector3d*, KDRVector3d*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toCircle(KDRVector3d*, KDRVector3d*, float*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toEllipse(KDRVector3d*, KDRVector3d*, float*, float*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toRect(KDRVector3d*, KDRVector3d*, float*, float*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toAnnulus(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toTorus(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toArc(KDRVector3d*, KDRVector3d*, float*, float*, float*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toTriangle(KDRVector3d*, KDRVector3d*, KDRVector3d*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toBox(KDRVector3d*, KDRVector3d*, KDRVector3d*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toEllipsoid(KDRVector3d*, KDRVector3d*, KDRVector3d*);
    /// Answers false and leaves the output untouched. Kept on purpose.
    bool toPolygon(KDRVector3dArray*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toSphere(KDRVector3d*, float*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toCylinder(KDRVector3d*, KDRVector3d*, float*, float*);
    /// Answers false and leaves the outputs untouched. Kept on purpose.
    bool toTube(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*, float*);

    /// Answers 300. Kept on purpose.
    int shapeType() const;
};

#endif
