#ifndef KDRDATA_KDRSHAPE_H
#define KDRDATA_KDRSHAPE_H

/// @file
/// One figure, and its kinds.

#include <QtCore/qglobal.h>

#include <kdrdata/kdrdata_export.h>

class KDR3DLineSet;
class KDRContour;
class KDRContourArray;
class KDRFont;
class KDRNumberArray;
class KDRPoint;
class KDRPointArray;
class KDRRegion;
class KDRShapeArray;
class KDRShapePrivate;
class KDRString;
class KDRVector3d;
class KDRVector3dArray;
struct KDRInternal;

/// One drawable or searchable figure: a circle, a polygon, a label, a grid of rectangles, and so
/// on, of one kind at a time (see KDRShapeKind).
///
/// Lengths are in pixels, with x to the right and y down. Angles are in degrees, clockwise as the
/// image is seen, 0 along +x. All numbers are stored and returned exactly as given: nothing is
/// converted, normalised or checked.
///
/// **Sharing.** A handle is one pointer to a reference-counted record. Copying and assigning share
/// the record and allocate nothing.
///
/// **Generators** (`from...`) set the kind and store the figure. On a record that other handles
/// share, this handle first takes a fresh default one and leaves the old one to the others, so that
/// nothing of the old figure is left; on a record of its own, the fields that the new kind does not
/// use keep their contents. Arguments are copied and not changed. Where memory runs out, a
/// generator throws std::bad_alloc and the shape stays as it was.
///
/// **Getters** (`to...`) answer true if the shape is of their kind, and then copy the stored fields
/// into the outputs by the outputs' assignment; otherwise they answer false and leave the outputs
/// untouched. A null output is passed over. Where memory runs out, a getter throws std::bad_alloc;
/// some outputs may then be written, and no cells of a grid. Points that were stored in a list
/// carry coordinates only; a single point carries its ranges too.
///
/// @code
/// KDRPoint centre(192.0, 151.5);
/// KDRShape coin;
/// coin.fromCircle(centre, 24.0);
/// double radius = 0.0;
/// bool const isCircle = coin.toCircle(&centre, &radius);
/// @endcode
///
/// Threads: one shape may be read from several threads while none changes it. Shapes that share a
/// record may be used from different threads.
class KDRDATA_EXPORT KDRShape
{
public:
    /// The kinds of a shape, whose name outside of the class is KDRShapeKind too. The codes are
    /// part of the external interface and never change; shapeType() answers them as a plain
    /// `unsigned int`, so that code which only passes kinds on need not know them all.
    enum KDRShapeKind : unsigned int {
        Point = 0,         ///< a point; no generator makes it
        Rect1 = 1,         ///< a rectangle along the axes; no generator makes it
        Circle = 2,        ///< a circle
        Torus = 3,         ///< a ring or a sector of a ring
        Rect2 = 4,         ///< a rotated rectangle
        Line = 5,          ///< a line segment
        Ellipse = 6,       ///< a rotated ellipse
        Arc = 7,           ///< an arc of a circle
        Polygon = 8,       ///< a closed polygon
        Irregular = 9,     ///< a freely drawn outline
        Region = 10,       ///< a set of pixels
        Text = 11,         ///< a label
        Arrow = 12,        ///< an arrow
        Contours = 13,     ///< a list of contours
        Rect2Matrix = 14,  ///< equal rotated rectangles at several centres
        CircleMatrix = 15, ///< equal rings at several centres
        PolyLine = 16,     ///< an open chain of points
        CurveLine = 17,    ///< a curve through three points
        AnyPolygon = 18,   ///< points with a list of numbers
        Empty = 99,        ///< nothing; what a new shape is
        Text3D = 120       ///< a label in space
    };

    /// A shape of kind 99 (empty) with a record of its own.
    KDRShape();
    /// Shares the record of @p other.
    KDRShape(KDRShape const& other);
    /// Gives up this handle's share of the record; the last handle frees it.
    ~KDRShape();

    /// Shares the record of @p other and gives up the old one. Returns this shape.
    KDRShape& operator=(KDRShape const& other);

    /// The code of the kind, one of KDRShapeKind.
    unsigned int shapeType() const;

    /// Stops sharing (see Generators above) and stores nothing: an unshared shape does not change,
    /// a shared one becomes empty (kind 99). No shape of kind 0 comes about this way. Kept on
    /// purpose.
    void fromPoint(KDRPoint& point);
    /// Stops sharing and stores nothing, as fromPoint() does: no shape of kind 1 comes about this
    /// way. Kept on purpose.
    void fromRect1(KDRPoint& firstCorner, KDRPoint& secondCorner);
    /// Makes this a circle (kind 2).
    void fromCircle(KDRPoint& centre, double radius);
    /// Makes this a ring or a sector of a ring (kind 3), from the start to the end angle.
    void fromTorus(KDRPoint& centre, double innerRadius, double outerRadius, double startAngle,
                   double endAngle);
    /// Makes this a rotated rectangle (kind 4): half the length, which lies along the angle, and
    /// half the width across it.
    void fromRect2(KDRPoint& centre, double halfLength, double halfWidth, double angle);
    /// Makes this a line segment (kind 5).
    void fromLine(KDRPoint& start, KDRPoint& end);
    /// Makes this a rotated ellipse (kind 6): the half axis along the angle and the one across it.
    void fromEllipse(KDRPoint& centre, double halfAxisAlong, double halfAxisAcross, double angle);
    /// Makes this an arc of a circle (kind 7).
    void fromArc(KDRPoint& centre, double radius, double startAngle, double endAngle);
    /// Makes this a closed polygon (kind 8) with the given corners, in order. The list may be
    /// empty.
    void fromPolygon(KDRPointArray& corners);
    /// Makes this a freely drawn outline (kind 9) through the given points, in order. The list may
    /// be empty.
    void fromIrregular(KDRPointArray& points);
    /// Makes this a freely drawn outline (kind 9) through the points of a contour
    /// (KDRContour::ToPointArray()).
    void fromIrregular(KDRContour& contour);
    /// Makes this a set of pixels (kind 10).
    void fromRegion(KDRRegion& region);
    /// Makes this a label (kind 11) at an anchor point.
    void fromText(KDRPoint& anchor, KDRString& text, KDRFont& font);
    /// Makes this an arrow (kind 12).
    void fromArrow(KDRPoint& tail, KDRPoint& head);
    /// Makes this a list of contours (kind 13).
    void fromContours(KDRContourArray& contours);
    /// Makes this a grid of equal rotated rectangles (kind 14), one for each of the first @p count
    /// centres; -1 stands for all of them. The lengths and the angle are as in fromRect2().
    void fromRect2Matrix(KDRPointArray& centres, double halfLength, double halfWidth, double angle,
                         int count);
    /// Makes this a grid of equal full rings (kind 15), one for each of the first @p count centres;
    /// -1 stands for all of them. The radii are as in fromTorus().
    void fromCircleMatrix(KDRPointArray& centres, double innerRadius, double outerRadius,
                          int count);
    /// Makes this an open chain of points (kind 16).
    void fromPolyLine(KDRPointArray& points);
    /// Makes this a curve (kind 17) through three points, of which the coordinates alone are
    /// stored.
    void fromCurveLine(KDRPoint& first, KDRPoint& second, KDRPoint& third);
    /// Makes this a list of points with a list of numbers (kind 18), whose meaning and length are
    /// the caller's.
    void fromAnyPolygon(KDRPointArray& points, KDRNumberArray& numbers);

    /// Reads kind 0. False for every shape that was made by a generator: see fromPoint(). Kept on
    /// purpose.
    bool toPoint(KDRPoint* point) const;
    /// Reads kind 1. False for every shape that was made by a generator: see fromRect1(). Kept on
    /// purpose.
    bool toRect1(KDRPoint* firstCorner, KDRPoint* secondCorner) const;
    /// Reads kind 2, as fromCircle() stored it.
    bool toCircle(KDRPoint* centre, double* radius) const;
    /// Reads kind 3, as fromTorus() stored it.
    bool toTorus(KDRPoint* centre, double* innerRadius, double* outerRadius, double* startAngle,
                 double* endAngle) const;
    /// Reads kind 4, as fromRect2() stored it.
    bool toRect2(KDRPoint* centre, double* halfLength, double* halfWidth, double* angle) const;
    /// Reads kind 5, as fromLine() stored it.
    bool toLine(KDRPoint* start, KDRPoint* end) const;
    /// Reads kind 6, as fromEllipse() stored it.
    bool toEllipse(KDRPoint* centre, double* halfAxisAlong, double* halfAxisAcross,
                   double* angle) const;
    /// Reads kind 7, as fromArc() stored it.
    bool toArc(KDRPoint* centre, double* radius, double* startAngle, double* endAngle) const;
    /// Reads kind 8; the corners replace the contents of the list.
    bool toPolygon(KDRPointArray* corners) const;
    /// Reads kind 9; the points replace the contents of the list.
    bool toIrregular(KDRPointArray* points) const;
    /// Reads kind 9; the contour becomes the outline through the stored points
    /// (KDRContour::FromPointArray()).
    bool toIrregular(KDRContour* contour) const;
    /// Reads kind 10.
    bool toRegion(KDRRegion* region) const;
    /// Reads kind 11, as fromText() stored it; the text shares its characters.
    bool toText(KDRPoint* anchor, KDRString* text, KDRFont* font) const;
    /// Reads kind 12, as fromArrow() stored it.
    bool toArrow(KDRPoint* tail, KDRPoint* head) const;
    /// Reads kind 13; the contours replace the contents of the list.
    bool toContours(KDRContourArray* contours) const;
    /// Reads kind 14: the stored centres, all of them, replace the contents of @p centres, the
    /// parameters and the count come back as given, and one shape of kind 4 per cell is appended to
    /// @p cells, which is not cleared first. Cells are made of the first @p count centres, or of
    /// all where the count is -1 or larger than their number; a count of 0 or any other negative
    /// one makes none. Kept on purpose.
    bool toRect2Matrix(KDRShapeArray* cells, KDRPointArray* centres, double* halfLength,
                       double* halfWidth, double* angle, int* count) const;
    /// Reads kind 15 by the rules of toRect2Matrix(); each cell is a shape of kind 3 from 0.0 to
    /// 360.0 degrees.
    bool toCircleMatrix(KDRShapeArray* cells, KDRPointArray* centres, double* innerRadius,
                        double* outerRadius, int* count) const;
    /// Reads kind 16; the points replace the contents of the list.
    bool toPolyLine(KDRPointArray* points) const;
    /// Reads kind 17; the points come back with the default ranges.
    bool toCurveLine(KDRPoint* first, KDRPoint* second, KDRPoint* third) const;
    /// Reads kind 18; the points and the numbers replace the contents of the lists, and the numbers
    /// share their storage.
    bool toAnyPolygon(KDRPointArray* points, KDRNumberArray* numbers) const;

    /// Stops sharing (see Generators above) and stores nothing: an unshared shape does not change,
    /// a shared one becomes empty (kind 99). So does every generator of this family but
    /// from3DText(). Kept on purpose.
    void from3DPoint(KDRVector3d&);
    /// @copydoc from3DPoint
    void from3DLine(KDRVector3d&, KDRVector3d&);
    /// @copydoc from3DPoint
    void from3DLineSegment(KDRVector3d&, KDRVector3d&);
    /// @copydoc from3DPoint
    void from3DCircle(KDRVector3d&, KDRVector3d&, float);
    /// @copydoc from3DPoint
    void from3DPlane(KDRVector3d&, KDRVector3d&);
    /// @copydoc from3DPoint
    void from3DEllipse(KDRVector3d&, KDRVector3d&, float, float);
    /// @copydoc from3DPoint
    void from3DRect(KDRVector3d&, KDRVector3d&, float, float);
    /// @copydoc from3DPoint
    void from3DAnnulus(KDRVector3d&, KDRVector3d&, float, float, float, float);
    /// @copydoc from3DPoint
    void from3DTorus(KDRVector3d&, KDRVector3d&, float, float, float, float);
    /// @copydoc from3DPoint
    void from3DArc(KDRVector3d&, KDRVector3d&, float, float, float);
    /// @copydoc from3DPoint
    void from3DTriangle(KDRVector3d&, KDRVector3d&, KDRVector3d&);
    /// @copydoc from3DPoint
    void from3DPolygon(KDRVector3dArray&);
    /// @copydoc from3DPoint
    void from3DBox(KDRVector3d&, KDRVector3d&, KDRVector3d&);
    /// @copydoc from3DPoint
    void from3DSphere(KDRVector3d&, float);
    /// @copydoc from3DPoint
    void from3DCylinder(KDRVector3d&, KDRVector3d&, float, float);
    /// @copydoc from3DPoint
    void from3DEllipsoid(KDRVector3d&, KDRVector3d&, KDRVector3d&);
    /// @copydoc from3DPoint
    void from3DTube(KDRVector3d&, KDRVector3d&, float, float, float, float, float);
    /// Stops sharing and stores nothing, as from3DPoint() does; the one generator without a getter.
    /// Kept on purpose.
    void from3DCone(KDRVector3d&, KDRVector3d&, float, float, float, float);
    /// @copydoc from3DPoint
    void from3DEllipticCylinder(KDRVector3d&, KDRVector3d&, float, float, float);
    /// @copydoc from3DPoint
    void from3DLineSet(KDR3DLineSet&);
    /// Makes this a label in space (kind 120).
    void from3DText(KDRVector3d& anchor, KDRString& text, KDRFont& font);

    /// Answers false, whatever the shape is, and leaves the output untouched; not for constant
    /// shapes. So does every getter of this family but to3DText(). Kept on purpose.
    bool to3DPoint(KDRVector3d*);
    /// @copydoc to3DPoint
    bool to3DLine(KDRVector3d*, KDRVector3d*);
    /// @copydoc to3DPoint
    bool to3DLineSegment(KDRVector3d*, KDRVector3d*);
    /// @copydoc to3DPoint
    bool to3DCircle(KDRVector3d*, KDRVector3d*, float*);
    /// @copydoc to3DPoint
    bool to3DPlane(KDRVector3d*, KDRVector3d*);
    /// @copydoc to3DPoint
    bool to3DEllipse(KDRVector3d*, KDRVector3d*, float*, float*);
    /// @copydoc to3DPoint
    bool to3DRect(KDRVector3d*, KDRVector3d*, float*, float*);
    /// @copydoc to3DPoint
    bool to3DAnnulus(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*);
    /// @copydoc to3DPoint
    bool to3DTorus(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*);
    /// @copydoc to3DPoint
    bool to3DArc(KDRVector3d*, KDRVector3d*, float*, float*, float*);
    /// @copydoc to3DPoint
    bool to3DTriangle(KDRVector3d*, KDRVector3d*, KDRVector3d*);
    /// @copydoc to3DPoint
    bool to3DPolygon(KDRVector3dArray*);
    /// @copydoc to3DPoint
    bool to3DBox(KDRVector3d*, KDRVector3d*, KDRVector3d*);
    /// @copydoc to3DPoint
    bool to3DSphere(KDRVector3d*, float*);
    /// @copydoc to3DPoint
    bool to3DCylinder(KDRVector3d*, KDRVector3d*, float*, float*);
    /// @copydoc to3DPoint
    bool to3DEllipsoid(KDRVector3d*, KDRVector3d*, KDRVector3d*);
    /// @copydoc to3DPoint
    bool to3DTube(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*, float*);
    /// @copydoc to3DPoint
    bool to3DEllipticCylinder(KDRVector3d*, KDRVector3d*, float*, float*, float*);
    /// @copydoc to3DPoint
    bool to3DLineSet(KDR3DLineSet*);
    /// Reads kind 120, as from3DText() stored it; the text shares its characters.
    bool to3DText(KDRVector3d* anchor, KDRString* text, KDRFont* font) const;

private:
    friend struct KDRInternal;
    KDRShapePrivate* d;
};

/// The kinds of a shape, under their name outside of KDRShape: KDRShapeKind::Circle is
/// KDRShape::Circle.
typedef KDRShape::KDRShapeKind KDRShapeKind;

/// A shape may be moved in memory byte by byte, and a QList keeps it in its slots.
Q_DECLARE_TYPEINFO(KDRShape, Q_MOVABLE_TYPE);

#endif
