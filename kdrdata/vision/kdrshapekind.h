#ifndef KDRDATA_KDRSHAPEKIND_H
#define KDRDATA_KDRSHAPEKIND_H

/// The kinds of a shape. The codes are part of the external interface and never change;
/// KDRShape::shapeType() answers them as a plain `unsigned int`, so that code which only passes
/// kinds on need not know them all.
enum KDRShapeKind : unsigned int {
    ShapeKindPoint = 0,         ///< a point; no generator makes it
    ShapeKindRect1 = 1,         ///< a rectangle along the axes; no generator makes it
    ShapeKindCircle = 2,        ///< a circle
    ShapeKindTorus = 3,         ///< a ring or a sector of a ring
    ShapeKindRect2 = 4,         ///< a rotated rectangle
    ShapeKindLine = 5,          ///< a line segment
    ShapeKindEllipse = 6,       ///< a rotated ellipse
    ShapeKindArc = 7,           ///< an arc of a circle
    ShapeKindPolygon = 8,       ///< a closed polygon
    ShapeKindIrregular = 9,     ///< a freely drawn outline
    ShapeKindRegion = 10,       ///< a set of pixels
    ShapeKindText = 11,         ///< a label
    ShapeKindArrow = 12,        ///< an arrow
    ShapeKindContours = 13,     ///< a list of contours
    ShapeKindRect2Matrix = 14,  ///< equal rotated rectangles at several centres
    ShapeKindCircleMatrix = 15, ///< equal rings at several centres
    ShapeKindPolyLine = 16,     ///< an open chain of points
    ShapeKindCurveLine = 17,    ///< a curve through three points
    ShapeKindAnyPolygon = 18,   ///< points with a list of numbers
    ShapeKindEmpty = 99,        ///< nothing; what a new shape is
    ShapeKindText3D = 120       ///< a label in space
};

#endif
