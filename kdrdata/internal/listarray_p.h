#ifndef KDRDATA_LISTARRAY_P_H
#define KDRDATA_LISTARRAY_P_H

#include <QtCore/qlist.h>

/// The contract of the arrays that keep their elements in a QList, told once.
///
/// Every operation takes the list or the owning pointer of a handle. An element handed in may be a
/// reference into the same list: QList copies it before it moves elements that lie in the list
/// itself, and all others lie in nodes, which do not move.
namespace KDRListArray {

template <class Element>
bool contains(QList<Element> const& list, int index) noexcept
{
    return index >= 0 && index < list.size();
}

/// What a new handle starts with: the other handle's list, shared, where it has one.
template <class Element>
QList<Element>* copyOf(QList<Element> const* other)
{
    return other ? new QList<Element>(*other) : new QList<Element>;
}

/// Shares the other handle's list; does nothing where either has none or both share already.
template <class Element>
void assign(QList<Element>* list, QList<Element> const* other)
{
    if (list && other && !list->isSharedWith(*other))
        *list = *other;
}

/// Appends by growing a copy and installing it, so that a failing element copy leaves the old list
/// as it was. The list may be appended to itself. Appending nothing copies nothing, and appending
/// to an empty list shares the other list's storage.
template <class Element>
void appendByInstalling(QList<Element>& list, QList<Element> const& other)
{
    QList<Element> joined = list;
    joined += other;
    list.swap(joined);
}

template <class Element>
bool insert(QList<Element>& list, int index, Element const& value)
{
    if (!contains(list, index))
        return false;
    list.insert(index, value);
    return true;
}

template <class Element>
bool removeAt(QList<Element>& list, int index)
{
    if (!contains(list, index))
        return false;
    list.removeAt(index);
    return true;
}

template <class Element>
bool replace(QList<Element>& list, int index, Element const& value)
{
    if (!contains(list, index))
        return false;
    list[index] = value;
    return true;
}

template <class Element>
bool select(QList<Element> const& list, int index, Element* out)
{
    if (!contains(list, index))
        return false;
    Q_ASSERT(out);
    *out = list.at(index);
    return true;
}

template <class Element>
bool swap(QList<Element>& list, int i, int j)
{
    if (!contains(list, i) || !contains(list, j))
        return false;
    list.swapItemsAt(i, j);
    return true;
}

/// The element at an unchecked index, or a default one where the handle has no list. Goes through
/// the list's modifying access and so detaches a shared list.
template <class Element>
Element at(QList<Element>* list, int index)
{
    return list ? Element((*list)[index]) : Element();
}

} // namespace KDRListArray

#endif
