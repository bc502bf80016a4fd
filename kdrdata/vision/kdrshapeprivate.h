#ifndef KDRDATA_KDRSHAPEPRIVATE_H
#define KDRDATA_KDRSHAPEPRIVATE_H

#include <QtCore/qmutex.h>

#include <kdrdata/geometry3d/kdrvector3d.h>
#include <kdrdata/kdrdata_export.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrcontourarray.h>
#include <kdrdata/vision/kdrfont.h>
#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrpointarray.h>
#include <kdrdata/vision/kdrregion.h>
#include <kdrdata/vision/kdrshape.h>

class KDR3DLineSet;
class KDRContour;
class KDRShapeArray;
class KDRVector3dArray;
struct KDRInternal;

/// The reference-counted record behind every KDRShape: a kind and one set of fields that all kinds
/// use in turn.
///
/// A record is born with a count of 1; whoever shares it adds one with addRef() and gives it up
/// with decRef(), and the call that gives up the last count frees the record. A record that is not
/// on the heap must not lose its last count.
///
/// **Generators** (`from...`) set the kind and write the fields that it uses; the other fields keep
/// what they held. They do not look at the count: stopping to share is the handle's business. Where
/// memory runs out, a generator throws std::bad_alloc and the record stays as it was.
///
/// **Getters** (`to...`) answer true if the kind is theirs, and then assign the fields to the
/// outputs; otherwise they answer false and leave the outputs untouched. A null output is passed
/// over.
///
/// The arguments are those of the operations of the same names of KDRShape, where their meaning and
/// units stand; here stands where they are kept.
///
/// Threads: the count may be changed from several threads, under the record's mutex; the mutex
/// guards nothing else.
class KDRDATA_EXPORT KDRShapePrivate
{
public:
    /// An empty record: kind 99, count 1, every field as its class makes it by default, numbers
    /// 0.0.
    KDRShapePrivate();
    /// A record with a count of 1 and a copy of the fields of @p other, except that the list of
    /// contours and the list of numbers stay empty. Kept on purpose.
    KDRShapePrivate(KDRShapePrivate const& other);
    /// Destroys the fields, the last one first.
    ~KDRShapePrivate();

    /// Copies the fields of @p other, except the list of contours and the list of numbers, which
    /// stay what they were, as the count does. Kept on purpose. Returns this record. Where memory
    /// runs out, it stays as it was.
    KDRShapePrivate& operator=(KDRShapePrivate const& other);

    /// The count, read under the mutex.
    int refCount();
    /// Adds one to the count, under the mutex, and answers the new count.
    int addRef();
    /// Takes one from the count, under the mutex, and, the mutex unlocked again, frees the record
    /// if that was the last one.
    void decRef();

    /// The code of the kind.
    unsigned int shapeType() const;

    /// Stores nothing and keeps the kind. Kept on purpose.
    void fromPoint(KDRPoint& point);
    /// Stores nothing and keeps the kind. Kept on purpose.
    void fromRect1(KDRPoint& firstCorner, KDRPoint& secondCorner);
    /// Kind 2: the first point and the first number.
    void fromCircle(KDRPoint& centre, double radius);
    /// Kind 3: the first point and all four numbers, in order.
    void fromTorus(KDRPoint& centre, double innerRadius, double outerRadius, double startAngle,
                   double endAngle);
    /// Kind 4: the first point and the first three numbers, in order.
    void fromRect2(KDRPoint& centre, double halfLength, double halfWidth, double angle);
    /// Kind 5: the first and the second point.
    void fromLine(KDRPoint& start, KDRPoint& end);
    /// Kind 6: the first point and the first three numbers, in order.
    void fromEllipse(KDRPoint& centre, double halfAxisAlong, double halfAxisAcross, double angle);
    /// Kind 7: the first point and the first three numbers, in order.
    void fromArc(KDRPoint& centre, double radius, double startAngle, double endAngle);
    /// Kind 8: the list of points.
    void fromPolygon(KDRPointArray& corners);
    /// Kind 9: the list of points.
    void fromIrregular(KDRPointArray& points);
    /// Kind 9: the list of points, filled by KDRContour::ToPointArray().
    void fromIrregular(KDRContour& contour);
    /// Kind 10: the region.
    void fromRegion(KDRRegion& region);
    /// Kind 11: the first point, the text and the font.
    void fromText(KDRPoint& anchor, KDRString& text, KDRFont& font);
    /// Kind 12: the first and the second point.
    void fromArrow(KDRPoint& tail, KDRPoint& head);
    /// Kind 13: the list of contours.
    void fromContours(KDRContourArray& contours);
    /// Kind 14: the list of points, the first three numbers in order, and the count as the fourth.
    void fromRect2Matrix(KDRPointArray& centres, double halfLength, double halfWidth, double angle,
                         int count);
    /// Kind 15: the list of points, the first two numbers in order, and the count as the third.
    void fromCircleMatrix(KDRPointArray& centres, double innerRadius, double outerRadius,
                          int count);
    /// Kind 16: the list of points.
    void fromPolyLine(KDRPointArray& points);
    /// Kind 17: the list of points, which becomes the three given ones.
    void fromCurveLine(KDRPoint& first, KDRPoint& second, KDRPoint& third);
    /// Kind 18: the list of points and the list of numbers.
    void fromAnyPolygon(KDRPointArray& points, KDRNumberArray& numbers);
    /// Does nothing. Kept on purpose.
    void fromMatrix(KDRPoint, double, double, double, int, int, int, double, double, bool, bool,
                    double, double, bool);

    /// Reads kind 0: the first point.
    bool toPoint(KDRPoint* point) const;
    /// Reads kind 1: the first and the second point.
    bool toRect1(KDRPoint* firstCorner, KDRPoint* secondCorner) const;
    /// Reads kind 2.
    bool toCircle(KDRPoint* centre, double* radius) const;
    /// Reads kind 3.
    bool toTorus(KDRPoint* centre, double* innerRadius, double* outerRadius, double* startAngle,
                 double* endAngle) const;
    /// Reads kind 4.
    bool toRect2(KDRPoint* centre, double* halfLength, double* halfWidth, double* angle) const;
    /// Reads kind 5.
    bool toLine(KDRPoint* start, KDRPoint* end) const;
    /// Reads kind 6.
    bool toEllipse(KDRPoint* centre, double* halfAxisAlong, double* halfAxisAcross,
                   double* angle) const;
    /// Reads kind 7.
    bool toArc(KDRPoint* centre, double* radius, double* startAngle, double* endAngle) const;
    /// Reads kind 8.
    bool toPolygon(KDRPointArray* corners) const;
    /// Reads kind 9.
    bool toIrregular(KDRPointArray* points) const;
    /// Reads kind 9: the output takes a copy of the list of points by KDRContour::FromPointArray().
    bool toIrregular(KDRContour* contour) const;
    /// Reads kind 10.
    bool toRegion(KDRRegion* region) const;
    /// Reads kind 11.
    bool toText(KDRPoint* anchor, KDRString* text, KDRFont* font) const;
    /// Reads kind 12.
    bool toArrow(KDRPoint* tail, KDRPoint* head) const;
    /// Reads kind 13.
    bool toContours(KDRContourArray* contours) const;
    /// Reads kind 14 and appends the cells, as KDRShape::toRect2Matrix() says; the count is the
    /// fourth number truncated toward zero.
    bool toRect2Matrix(KDRShapeArray* cells, KDRPointArray* centres, double* halfLength,
                       double* halfWidth, double* angle, int* count) const;
    /// Reads kind 15 and appends the cells, as KDRShape::toCircleMatrix() says; the count is the
    /// third number truncated toward zero.
    bool toCircleMatrix(KDRShapeArray* cells, KDRPointArray* centres, double* innerRadius,
                        double* outerRadius, int* count) const;
    /// Reads kind 16.
    bool toPolyLine(KDRPointArray* points) const;
    /// Reads kind 17: the elements 0, 1 and 2 of the list of points, without a look at its length.
    bool toCurveLine(KDRPoint* first, KDRPoint* second, KDRPoint* third) const;
    /// Reads kind 18.
    bool toAnyPolygon(KDRPointArray* points, KDRNumberArray* numbers) const;
    /// Answers false and writes nothing. Kept on purpose.
    bool toMatrix(KDRShapeArray*, KDRPoint*, double*, double*, double*, int*, int*, int*, double*,
                  double*, bool*, bool*, double*, double*, bool*);

    /// Stores nothing and keeps the kind; so does every generator of this family but from3DText().
    /// Kept on purpose.
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
    /// @copydoc from3DPoint
    void from3DCone(KDRVector3d&, KDRVector3d&, float, float, float, float);
    /// @copydoc from3DPoint
    void from3DEllipticCylinder(KDRVector3d&, KDRVector3d&, float, float, float);
    /// @copydoc from3DPoint
    void from3DLineSet(KDR3DLineSet&);
    /// Kind 120: the anchor in space, the text and the font.
    void from3DText(KDRVector3d& anchor, KDRString& text, KDRFont& font);

    /// Answers false and writes nothing; so does every getter of this family but to3DText(). Kept
    /// on purpose.
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
    /// Reads kind 120.
    bool to3DText(KDRVector3d* anchor, KDRString* text, KDRFont* font) const;

private:
    friend struct KDRInternal;

    KDRDATA_NO_EXPORT void storeTwo(KDRShapeKind kind, KDRPoint const& first,
                                    KDRPoint const& second);
    KDRDATA_NO_EXPORT void storeNumbers(KDRShapeKind kind, KDRPoint const& centre, double p0,
                                        double p1, double p2);
    KDRDATA_NO_EXPORT void storeList(KDRShapeKind kind, KDRPointArray const& points);
    KDRDATA_NO_EXPORT void storeLabel(KDRShapeKind kind, KDRString const& text,
                                      KDRFont const& font);
    KDRDATA_NO_EXPORT bool readTwo(KDRShapeKind kind, KDRPoint* first, KDRPoint* second) const;
    KDRDATA_NO_EXPORT bool readNumbers(KDRShapeKind kind, KDRPoint* centre, double* p0, double* p1,
                                       double* p2) const;
    KDRDATA_NO_EXPORT bool readList(KDRShapeKind kind, KDRPointArray* points) const;
    KDRDATA_NO_EXPORT bool readLabel(KDRShapeKind kind, KDRString* text, KDRFont* font) const;

    unsigned int m_kind;
    int m_refs;
    QMutex m_mutex;
    KDRPoint m_firstPoint;
    KDRPoint m_secondPoint;
    KDRVector3d m_anchor3D;
    double m_p0;
    double m_p1;
    double m_p2;
    double m_p3;
    KDRFont m_font;
    KDRString m_text;
    KDRPointArray m_points;
    KDRRegion m_region;
    KDRContourArray m_contours;
    KDRNumberArray m_numbers;
};

#endif
