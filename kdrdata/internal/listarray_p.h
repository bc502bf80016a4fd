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

/// What a copy starts with: the other list, shared, unless it is empty. An emptied list keeps its
/// storage to itself.
template <class Element>
QList<Element> sharedUnlessEmpty(QList<Element> const& other)
{
    return other.isEmpty() ? QList<Element>() : other;
}

/// The list of a new handle that copies another handle, which may have no list.
template <class Element>
QList<Element>* copyOf(QList<Element> const* other)
{
    return other ? new QList<Element>(sharedUnlessEmpty(*other)) : new QList<Element>;
}

/// Shares the other handle's list; does nothing where either has none or both share already.
template <class Element>
void assign(QList<Element>* list, QList<Element> const* other)
{
    if (list && other && !list->isSharedWith(*other))
        *list = *other;
}

/// Runs a change that allocates, so that a failure leaves the list as it was. Detaching a shared
/// list copies its elements, and what their copies leave behind would be lost although the change
/// failed: the shared list is held on to, and put back then.
template <class Element, class Change>
auto changeOrRestore(QList<Element>& list, Change const& change)
{
    if (list.isDetached())
        return change(list);
    QList<Element> const shared = list;
    try {
        return change(list);
    } catch (...) {
        list = shared;
        throw;
    }
}

template <class Element>
void append(QList<Element>& list, Element const& value)
{
    changeOrRestore(list, [&value](QList<Element>& own) { own.append(value); });
}

/// Appends by growing a copy and installing it, so that a failing element copy leaves the old list
/// as it was. The list may be appended to itself. Appending nothing copies nothing. Appending to a
/// list that never held storage, or was cleared, shares the other list's storage; a list emptied by
/// removing its elements has storage of its own, and the elements are copied into it.
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
    return changeOrRestore(list, [index, &value](QList<Element>& own) {
        own.insert(index, value);
        return true;
    });
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
    if (!list)
        return Element();
    return changeOrRestore(*list, [index](QList<Element>& own) { return Element(own[index]); });
}

} // namespace KDRListArray

#endif
