#include "equal.h"

void Difference::variant(KDRVariant a, KDRVariant b)
{
    bits(a.variantType(), b.variantType(), "kinds");
    if (!m_found.empty())
        return;
    KDRVariantPrivate* const stores[] = {&VariantAccess::store(a), &VariantAccess::store(b)};
    bool const isKnown = m_stores.count(stores[0]) > 0;
    shared(m_stores, stores[0], stores[1], "stores");
    if (isKnown)
        return;
    using V = KDRVariant;
    switch (a.variantType()) {
    case KindNone:
        return;
    case KindBool:
        return payload<bool>(a, b, &V::toBool);
    case KindNumber:
        return payload<KDRNumber>(a, b, &V::toNumber);
    case KindString:
        return payload<KDRString>(a, b, &V::toString);
    case KindPoint:
        return payload<KDRPoint>(a, b, &V::toPoint);
    case KindImage:
        return payload<KDRImage>(a, b, &V::toImage);
    case KindShape:
        return payload<KDRShape>(a, b, &V::toShape);
    case KindContour:
        return payload<KDRContour>(a, b, &V::toContour);
    case KindROIAlignment:
        return payload<KDRROIAlignment>(a, b, &V::toROIAlignment);
    case KindPose2D:
        return payload<KDRPose2D>(a, b, &V::to2DPose);
    case KindMatrix:
        return payload<KDRMatrix>(a, b, &V::toMatrix);
    case KindBuffer:
        return payload<KDRBuffer>(a, b, &V::toBuffer);
    case KindChar:
        return payload<KDRChar>(a, b, &V::toChar);
    case KindPose3D:
        return payload<KDRPose3D>(a, b, &V::to3DPose);
    case KindBoolArray:
        return payload<KDRBoolArray>(a, b, &V::toBoolArray);
    case KindNumberArray:
        return payload<KDRNumberArray>(a, b, &V::toNumberArray);
    case KindStringArray:
        return payload<KDRStringArray>(a, b, &V::toStringArray);
    case KindPointArray:
        return payload<KDRPointArray>(a, b, &V::toPointArray);
    case KindImageArray:
        return payload<KDRImageArray>(a, b, &V::toImageArray);
    case KindShapeArray:
        return payload<KDRShapeArray>(a, b, &V::toShapeArray);
    case KindContourArray:
        return payload<KDRContourArray>(a, b, &V::toContourArray);
    case KindMatrixArray:
        return payload<KDRMatrixArray>(a, b, &V::toMatrixArray);
    case KindBufferArray:
        return payload<KDRBufferArray>(a, b, &V::toBufferArray);
    case KindShape3DArray:
        return payload<KDRShape3DArray>(a, b, &V::to3DShapeArray);
    case KindVariantArray:
        return payload<KDRVariantArray>(a, b, &V::toVariantArray);
    case KindPoint3D:
        return presence<KDRPoint3D>(a, b, &V::to3DPoint);
    case KindVector3d:
        return presence<KDRVector3d>(a, b, &V::toVector3d);
    case KindShape3D:
        return presence<KDRShape3D>(a, b, &V::to3DShape);
    case KindPointCloud:
        return presence<KDRPointCloud>(a, b, &V::toPointCloud);
    case KindRangeImage:
        return presence<KDRRangeImage>(a, b, &V::toRangeImage);
    case KindMatrix3:
        return presence<KDRMatrix3>(a, b, &V::toMatrix3);
    case KindMatrix4:
        return presence<KDRMatrix4>(a, b, &V::toMatrix4);
    case KindQuaternion:
        return presence<KDRQuaternion>(a, b, &V::toQuaternion);
    case KindDualQuaternion:
        return presence<KDRDualQuaternion>(a, b, &V::toDualQuaternion);
    case KindRangeImageArray:
        return presence<KDRRangeImageArray>(a, b, &V::toRangeImageArray);
    case KindPointCloudArray:
        return presence<KDRPointCloudArray>(a, b, &V::toPointCloudArray);
    case KindPoint3DArray:
        return presence<KDRPoint3DArray>(a, b, &V::to3DPointArray);
    case KindVector3dArray:
        return presence<KDRVector3dArray>(a, b, &V::toVector3dArray);
    case KindContour3DArray:
        return presence<KDRContour3DArray>(a, b, &V::to3DContourArray);
    case KindPlane3D:
        return presence<KDRPlane3D>(a, b, &V::to3DPlane);
    case KindPlane3DArray:
        return presence<KDRPlane3DArray>(a, b, &V::to3DPlaneArray);
    case KindContour3D:
        return; // no operation tells more than the kind
    default:
        expect(false, "a kind that the test does not know");
    }
}

void Difference::same(KDRShape const& a, KDRShape const& b)
{
    expect(a.shapeType() == b.shapeType(), "kinds of shapes");
    if (!m_found.empty())
        return;

    // All that any getter of the kind writes.
    struct Parts
    {
        KDRPoint points[3];
        double numbers[4] = {};
        int count = 0;
        KDRPointArray list;
        KDRNumberArray values;
        KDRRegion region;
        KDRContourArray contours;
        KDRString text;
        KDRFont font;
        KDRShapeArray cells;
    };
    auto const read = [](KDRShape const& shape, Parts& parts) {
        KDRPoint* const p = parts.points;
        double* const n = parts.numbers;
        int answers = 0;
        answers += shape.toPoint(p);
        answers += shape.toRect1(p, p + 1);
        answers += shape.toCircle(p, n);
        answers += shape.toTorus(p, n, n + 1, n + 2, n + 3);
        answers += shape.toRect2(p, n, n + 1, n + 2);
        answers += shape.toLine(p, p + 1);
        answers += shape.toEllipse(p, n, n + 1, n + 2);
        answers += shape.toArc(p, n, n + 1, n + 2);
        answers += shape.toPolygon(&parts.list);
        answers += shape.toIrregular(&parts.list);
        answers += shape.toRegion(&parts.region);
        answers += shape.toText(p, &parts.text, &parts.font);
        answers += shape.toArrow(p, p + 1);
        answers += shape.toContours(&parts.contours);
        answers += shape.toRect2Matrix(&parts.cells, &parts.list, n, n + 1, n + 2, &parts.count);
        answers += shape.toCircleMatrix(&parts.cells, &parts.list, n, n + 1, &parts.count);
        answers += shape.toPolyLine(&parts.list);
        answers += shape.toCurveLine(p, p + 1, p + 2);
        answers += shape.toAnyPolygon(&parts.list, &parts.values);
        answers += shape.to3DText(nullptr, &parts.text, &parts.font);
        return answers;
    };
    Parts ofA;
    Parts ofB;
    int const answers = read(a, ofA);
    expect(answers == (a.shapeType() == KDRShape::Empty ? 0 : 1), "one getter");
    expect(answers == read(b, ofB), "getters");
    for (int i = 0; i < 3; ++i)
        same(ofA.points[i], ofB.points[i]);
    for (int i = 0; i < 4; ++i)
        same(ofA.numbers[i], ofB.numbers[i]);
    same(ofA.count, ofB.count);
    same(ofA.list, ofB.list);
    same(ofA.values, ofB.values);
    same(ofA.region, ofB.region);
    same(ofA.contours, ofB.contours);
    same(ofA.text, ofB.text);
    same(ofA.font, ofB.font);
    same(ofA.cells, ofB.cells);
}
