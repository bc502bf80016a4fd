#ifndef VELDATA_VELROI_H
#define VELDATA_VELROI_H

#include <veldata/veldata_export.h>
#include <veldata/velpoint.h>
#include <veldata/velpointarray.h>
#include <veldata/velregion.h>

/// A region of interest: one figure of one of twelve types, or none.
///
/// | type | figure | type | figure |
/// |---|---|---|---|
/// | 0 | rectangle along the axes | 6 | rectangle at any angle |
/// | 1 | circle | 7 | line |
/// | 2 | torus | 8 | ellipse |
/// | 3 | empty | 9 | arc |
/// | 4 | polygon | 10 | point |
/// | 5 | irregular outline | 11 | region |
///
/// Coordinates and lengths are in pixels, x to the right and y down. Angles are in degrees,
/// clockwise as the image is seen, 0 along +x. Numbers are kept as they are given: nothing is
/// checked, ordered or brought into a range.
///
/// Each generator replaces whatever figure the record held and answers 1; its arguments, constant
/// or not, are copied and not changed. Each getter answers 1 and writes its outputs if the record
/// holds a figure of its type; otherwise, and where one of its outputs is null, it answers 0 and
/// writes nothing.
///
/// Copies are deep, except that regions share their runs; a moved-from record is empty. Where
/// memory runs out, copies, generators and getters of lists throw std::bad_alloc, with nothing
/// changed. One record may be read from several threads at once, but not while one of them changes
/// it.
class VELDATA_EXPORT VelROI
{
public:
    /// An empty record, type 3; allocates nothing.
    VelROI() noexcept;

    /// A copy of the figure. Throws std::bad_alloc.
    VelROI(VelROI const& other);

    /// Takes the figure over; @p other is left empty.
    VelROI(VelROI&& other) noexcept;

    /// Destroys the figure.
    ~VelROI();

    /// Becomes a copy of the figure. Throws std::bad_alloc and is then unchanged.
    VelROI& operator=(VelROI const& other);

    /// Takes the figure over; @p other is left empty. Assigning a record to itself does nothing.
    VelROI& operator=(VelROI&& other) noexcept;

    /// The type of the figure, 0..11 by the table above.
    unsigned int ROIType() const noexcept;

    /// Type 0: the rectangle along the axes between two opposite corners.
    int GenRect1(VelPoint& corner, VelPoint& opposite) noexcept;

    /// Type 1: the circle of @p radius around @p center.
    int GenCircle(VelPoint& center, double radius) noexcept;

    /// Type 2: the part of the ring between @p innerRadius and @p outerRadius around @p center that
    /// lies clockwise from @p startAngle to @p endAngle.
    int GenTorus(VelPoint& center, double innerRadius, double outerRadius, double startAngle,
                 double endAngle) noexcept;

    /// Type 4: the polygon with the given corners, closed from the last back to the first. Throws
    /// std::bad_alloc.
    int GenPolygon(VelPointArray& corners);

    /// Type 5: the irregular outline through the given points, closed from the last back to the
    /// first. Throws std::bad_alloc.
    int GenIrregular(VelPointArray& outline);

    /// Type 6: the rectangle around @p center that reaches @p halfLength to either side along
    /// @p angle, and @p halfWidth to either side across it.
    int GenRect2(VelPoint& center, double halfLength, double halfWidth, double angle) noexcept;

    /// Type 7: the line from @p start to @p end.
    int GenLine(VelPoint& start, VelPoint& end) noexcept;

    /// Type 8: the ellipse around @p center with one half axis along @p angle and the other across
    /// it.
    int GenEllipse(VelPoint& center, double halfAxisAlong, double halfAxisAcross,
                   double angle) noexcept;

    /// Type 9: the part of the circle line of @p radius around @p center that lies clockwise from
    /// @p startAngle to @p endAngle.
    int GenArc(VelPoint& center, double radius, double startAngle, double endAngle) noexcept;

    /// Type 10: a single point.
    int GenPoint(VelPoint& point) noexcept;

    /// Type 11: the pixels and the extent of @p region, whose runs are shared.
    int GenRegion(VelRegion const& region) noexcept;

    /// Reads type 0: the two corners in the order that they were given in.
    int GetRect1(VelPoint* corner, VelPoint* opposite) const noexcept;

    /// Reads type 1.
    int GetCircle(VelPoint* center, double* radius) const noexcept;

    /// Reads type 2.
    int GetTorus(VelPoint* center, double* innerRadius, double* outerRadius, double* startAngle,
                 double* endAngle) const noexcept;

    /// Reads type 4: replaces the contents of @p corners. Throws std::bad_alloc.
    int GetPolygon(VelPointArray* corners) const;

    /// Reads type 5: replaces the contents of @p outline. Throws std::bad_alloc.
    int GetIrregular(VelPointArray* outline) const;

    /// Reads type 6.
    int GetRect2(VelPoint* center, double* halfLength, double* halfWidth,
                 double* angle) const noexcept;

    /// Reads type 7.
    int GetLine(VelPoint* start, VelPoint* end) const noexcept;

    /// Reads type 8.
    int GetEllipse(VelPoint* center, double* halfAxisAlong, double* halfAxisAcross,
                   double* angle) const noexcept;

    /// Reads type 9.
    int GetArc(VelPoint* center, double* radius, double* startAngle,
               double* endAngle) const noexcept;

    /// Reads type 10. Alone among the getters it is not for constant records, and changes none.
    int GetPoint(VelPoint* point) noexcept;

    /// Reads type 11; the runs are shared.
    int GetRegion(VelRegion* region) const noexcept;

private:
    int becomeEnds(unsigned int newType, VelPoint const& start, VelPoint const& end) noexcept;
    int becomeCentered(unsigned int newType, VelPoint const& center, double a, double b = 0.0,
                       double c = 0.0, double e = 0.0) noexcept;
    int becomeList(unsigned int newType, VelPointArray const& list);
    int readEnds(unsigned int ofType, VelPoint* start, VelPoint* end) const noexcept;
    int readCentered(unsigned int ofType, VelPoint* center, double* a, double* b,
                     double* c) const noexcept;
    int readList(unsigned int ofType, VelPointArray* list) const;

    unsigned int type;
    VelPoint first;
    VelPoint second;
    double numbers[4];
    VelPointArray points;
    VelRegion area;
};

#endif
