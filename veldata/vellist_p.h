#ifndef VELDATA_VELLIST_P_H
#define VELDATA_VELLIST_P_H

#include <climits>
#include <cstddef>
#include <iterator>
#include <type_traits>
#include <utility>
#include <vector>

/// What an array class owns once it holds, or held, an element; an array that never did owns null.
template <class E>
class VelList
{
public:
    std::vector<E> items;
};

/// The contract of every core array, written once. The array classes forward here with their owning
/// pointer; null stands for the empty list everywhere. Answers are 1 for success and 0 for failure
/// with nothing changed; std::bad_alloc passes to the caller, with nothing changed either.
namespace vellist {

/// Whether a list of @p length elements may grow by @p added: lengths are counted in an int.
constexpr bool mayGrow(std::size_t length, std::size_t added) noexcept
{
    return length <= static_cast<std::size_t>(INT_MAX) &&
           added <= static_cast<std::size_t>(INT_MAX) - length;
}

template <class E>
int length(VelList<E> const* list) noexcept
{
    return list ? static_cast<int>(list->items.size()) : 0;
}

template <class E>
bool holds(VelList<E> const* list, int index) noexcept
{
    return index >= 0 && index < length(list);
}

template <class E>
VelList<E>* copy(VelList<E> const* list)
{
    return list ? new VelList<E>(*list) : nullptr;
}

template <class E>
void assign(VelList<E>*& list, VelList<E> const* other)
{
    VelList<E>* const fresh = copy(other);
    delete list;
    list = fresh;
}

template <class E>
void take(VelList<E>*& list, VelList<E>*& other) noexcept
{
    VelList<E>* const taken = std::exchange(other, nullptr);
    delete list;
    list = taken;
}

template <class E>
int insert(VelList<E>*& list, int index, E const& element)
{
    static_assert(std::is_nothrow_move_constructible_v<E> && std::is_nothrow_move_assignable_v<E>,
                  "making room must not fail halfway");
    int const size = length(list);
    if (index < 0 || index > size || !mayGrow(static_cast<std::size_t>(size), 1))
        return 0;
    E own(element); // the element may live in this very list, which is about to move
    if (!list)
        list = new VelList<E>;
    list->items.insert(list->items.begin() + index, std::move(own));
    return 1;
}

template <class E>
int append(VelList<E>*& list, E const& element)
{
    if (!mayGrow(static_cast<std::size_t>(length(list)), 1))
        return 0;
    if (!list)
        list = new VelList<E>;
    list->items.push_back(element); // which may live in this very list
    return 1;
}

template <class E>
int appendAll(VelList<E>*& list, VelList<E> const* other)
{
    if (!mayGrow(static_cast<std::size_t>(length(list)), static_cast<std::size_t>(length(other))))
        return 0;
    if (length(other) == 0)
        return 1;
    std::vector<E> own(other->items); // the other list may be this very one
    if (!list)
        list = new VelList<E>;
    list->items.insert(list->items.end(), std::make_move_iterator(own.begin()),
                       std::make_move_iterator(own.end()));
    return 1;
}

template <class E>
int remove(VelList<E>* list, int index)
{
    if (!holds(list, index))
        return 0;
    list->items.erase(list->items.begin() + index);
    return 1;
}

template <class E>
int replace(VelList<E>* list, int index, E const& element)
{
    if (!holds(list, index))
        return 0;
    list->items[static_cast<std::size_t>(index)] = element;
    return 1;
}

template <class E>
int swap(VelList<E>* list, int first, int second)
{
    if (!holds(list, first) || !holds(list, second))
        return 0;
    using std::swap;
    swap(list->items[static_cast<std::size_t>(first)],
         list->items[static_cast<std::size_t>(second)]);
    return 1;
}

template <class E>
int clear(VelList<E>*& list) noexcept
{
    delete std::exchange(list, nullptr);
    return 1;
}

template <class E>
int select(VelList<E> const* list, int index, E* element)
{
    if (!element || !holds(list, index))
        return 0;
    *element = list->items[static_cast<std::size_t>(index)];
    return 1;
}

template <class E>
E at(VelList<E> const* list, int index)
{
    return holds(list, index) ? list->items[static_cast<std::size_t>(index)] : E();
}

} // namespace vellist

#endif
