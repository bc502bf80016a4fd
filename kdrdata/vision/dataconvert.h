#ifndef KDRDATA_DATACONVERT_H
#define KDRDATA_DATACONVERT_H

#include <kdrdata/kdrdata_export.h>

class KDRShape;
class Vel3DShape;
class VelROI;

/// Converts shapes to and from the core library's region-of-interest record.
///
/// The converter holds nothing. Coordinates, lengths and angles pass through unchanged; the ranges
/// of points stay behind. Every operation answers 0, also where nothing was converted; where an
/// output is null, nothing happens. Exceptions (std::bad_alloc) pass through; a shape is then as it
/// was.
///
/// Not every figure survives both ways: a line, a circle, a torus, a rotated rectangle, an ellipse,
/// an arc, a polygon and an irregular outline do; an arrow comes back as a line; a region goes out
/// as nothing and comes back empty; labels, contours, grids, open chains, curves and any-polygons
/// have no counterpart.
///
/// Threads: no state; one converter may be used from several threads on different shapes and
/// records.
class KDRDATA_EXPORT DataConvert
{
public:
    /// Does nothing.
    DataConvert();
    /// Does nothing.
    ~DataConvert();

    /// Writes @p shape into @p roi, by the kind of the shape:
    ///
    /// | shape | becomes |
    /// |---|---|
    /// | 0 point | `GenPoint` |
    /// | 1 rectangle along the axes | `GenRect1` |
    /// | 2 circle | `GenCircle` |
    /// | 3 torus | `GenTorus` |
    /// | 4 rotated rectangle | `GenRect2` |
    /// | 5 line, 12 arrow | `GenLine`, from the first point to the second |
    /// | 6 ellipse | `GenEllipse` |
    /// | 7 arc | `GenArc` |
    /// | 8 polygon | `GenPolygon`, also for no points |
    /// | 9 irregular | `GenIrregular`, also for no points |
    /// | 99 empty | a default record |
    ///
    /// Answers 0. The record stays as it was for every other kind. That includes regions (10):
    /// their pixels do not reach the record. Kept on purpose.
    int ShapeToROI(KDRShape& shape, VelROI* roi);

    /// Makes @p shape what @p roi holds, by the type code of the record:
    ///
    /// | record | becomes |
    /// |---|---|
    /// | 0 rectangle along the axes | nothing: KDRShape::fromRect1() stores nothing |
    /// | 1 circle | kind 2 |
    /// | 2 torus | kind 3 |
    /// | 3 empty | a default shape, kind 99 |
    /// | 4 polygon | kind 8, also for no points |
    /// | 5 irregular | kind 9, also for no points |
    /// | 6 rotated rectangle | kind 4 |
    /// | 7 line | kind 5 |
    /// | 8 ellipse | kind 6 |
    /// | 9 arc | kind 7 |
    /// | 10 point | nothing: KDRShape::fromPoint() stores nothing |
    /// | 11 region | kind 10 with an empty region: no pixels are taken over |
    ///
    /// Answers 0. The shape stays as it was for types above 11. Types 0 and 10 make the shape stop
    /// sharing its record, so a shared shape becomes empty (kind 99). These and the empty region
    /// are kept on purpose.
    int ROIToShape(VelROI& roi, KDRShape* shape);

    /// Writes nothing and answers 0. Kept on purpose.
    int ShapeToVel3DShape(KDRShape& shape, Vel3DShape* out);
    /// Writes nothing and answers 0. Kept on purpose.
    int Vel3dShapeToShape(Vel3DShape& in, KDRShape* shape);
};

#endif
