#ifndef KDRDATA_COREARRAY_P_H
#define KDRDATA_COREARRAY_P_H

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrpointprivate.h>

#include <QtCore/qglobal.h>

/// The contract of the arrays that keep their elements in a core-library array, told once.
///
/// The positions are checked here, so that the core library sees good ones only; the one exception
/// is the indexed read, which passes the index on as it is.
namespace KDRCoreArray {

/// The core-library object inside an element.
template <class Element>
auto& core(Element& element) noexcept
{
    return KDRInternal::wrapped(element);
}

/// The core-library point inside a point, one record deeper than in the other elements.
inline auto& core(KDRPoint& point) noexcept
{
    return KDRInternal::wrapped(KDRInternal::wrapped(point));
}

template <class CoreArray>
bool contains(CoreArray const& array, int index)
{
    return index >= 0 && index < array.Length();
}

template <class CoreArray>
void assign(CoreArray* array, CoreArray const* other)
{
    if (array && other)
        *array = *other;
}

template <class CoreArray>
bool removeAt(CoreArray& array, int index)
{
    if (!contains(array, index))
        return false;
    array.Remove(index);
    return true;
}

template <class CoreArray, class Element>
bool select(CoreArray const& array, int index, Element* out)
{
    if (!contains(array, index))
        return false;
    Q_ASSERT(out);
    array.Select(index, &core(*out));
    return true;
}

template <class CoreArray, class CoreElement>
bool replace(CoreArray& array, int index, CoreElement& value)
{
    if (!contains(array, index))
        return false;
    array.Replace(index, value);
    return true;
}

template <class CoreArray, class CoreElement>
bool insert(CoreArray& array, int index, CoreElement& value)
{
    if (!contains(array, index))
        return false;
    array.Insert(index, value);
    return true;
}

template <class CoreArray>
bool swap(CoreArray& array, int i, int j)
{
    if (!contains(array, i) || !contains(array, j))
        return false;
    array.Swap(i, j);
    return true;
}

template <class Element, class CoreArray>
Element at(CoreArray const* array, int index)
{
    Element element;
    if (array)
        core(element) = (*array)[index];
    return element;
}

} // namespace KDRCoreArray

#endif
