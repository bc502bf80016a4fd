#ifndef KDRDATA_PYTHON_CARRIED_H
#define KDRDATA_PYTHON_CARRIED_H

#include <kdrdata/vision/vision.h>

#include "pickling.h"

// What carries the classes that variants have no kind for.

namespace kdrpython {

/// A font, on a label.
template <>
struct Carried<KDRFont>
{
    static KDRVariant pack(KDRFont const& value)
    {
        KDRPoint anchor;
        KDRString text;
        KDRFont font(value);
        KDRShape label;
        label.fromText(anchor, text, font);
        return KDRVariant(label);
    }
    static bool unpack(KDRVariant& packed, KDRFont& value)
    {
        KDRShape label;
        return packed.toShape(&label) && label.toText(nullptr, nullptr, &value);
    }
};

/// A region, in a shape.
template <>
struct Carried<KDRRegion>
{
    static KDRVariant pack(KDRRegion const& value)
    {
        KDRRegion region(value);
        KDRShape shape;
        shape.fromRegion(region);
        return KDRVariant(shape);
    }
    static bool unpack(KDRVariant& packed, KDRRegion& value)
    {
        KDRShape shape;
        return packed.toShape(&shape) && shape.toRegion(&value);
    }
};

/// Regions, in a list of shapes.
template <>
struct Carried<KDRRegionArray>
{
    static KDRVariant pack(KDRRegionArray const& value)
    {
        KDRShapeArray shapes;
        for (int i = 0; i < value.length(); ++i) {
            KDRRegion region = value[i];
            KDRShape shape;
            shape.fromRegion(region);
            shapes.push_back(shape);
        }
        return KDRVariant(shapes);
    }
    static bool unpack(KDRVariant& packed, KDRRegionArray& value)
    {
        KDRShapeArray shapes;
        if (!packed.toShapeArray(&shapes))
            return false;
        KDRShape shape;
        KDRRegion region;
        for (int i = 0; i < shapes.length(); ++i) {
            if (!shapes.select(i, &shape) || !shape.toRegion(&region))
                return false;
            value.push_back(region);
        }
        return true;
    }
};

/// A model, as its bytes. Bytes that are no model raise ValueError.
template <>
struct Carried<KDRMatchModel>
{
    static KDRVariant pack(KDRMatchModel const& value);
    static bool unpack(KDRVariant& packed, KDRMatchModel& value);
};

} // namespace kdrpython

#endif
