#ifndef KDRDATA_TESTS_SHAPEACCESS_H
#define KDRDATA_TESTS_SHAPEACCESS_H

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/vision/kdrshape.h>
#include <kdrdata/vision/kdrshapeprivate.h>

/// What the tests see of a shape's inside: its record, the mutex of a record, and its kind, which
/// they may make any, also one that no generator makes.
template <>
struct KDRInternal::Access<KDRShape>
{
    static KDRShapePrivate& record(KDRShape const& shape) { return *shape.d; }
    static bool shareRecord(KDRShape const& a, KDRShape const& b) { return a.d == b.d; }
    static QMutex& mutex(KDRShapePrivate& record) { return record.m_mutex; }
    static unsigned int& kind(KDRShapePrivate& record) { return record.m_kind; }
};

using ShapeAccess = KDRInternal::Access<KDRShape>;

#endif
