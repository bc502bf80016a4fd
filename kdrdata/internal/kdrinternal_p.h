#ifndef KDRDATA_KDRINTERNAL_P_H
#define KDRDATA_KDRINTERNAL_P_H

#include <memory>

/// The library's one way into a handle.
///
/// Every handle keeps what it owns behind one pointer named `d` and befriends this class alone,
/// so that code of one class reaches the wrapped object of another here and nowhere else.
struct KDRInternal
{
    /// Specialised by tests alone, which look at what no operation shows.
    template <class Class>
    struct Access;

    /// The object that @p handle wraps; the handle must own one.
    template <class Handle>
    static auto& wrapped(Handle& handle) noexcept
    {
        return *handle.d;
    }

    /// The wrapped object of a constant handle, read-only.
    template <class Handle>
    static auto const& wrapped(Handle const& handle) noexcept
    {
        return *handle.d;
    }

    /// A new handle that takes over @p value, so that the result costs its holder and nothing more.
    template <class Handle, class Value>
    static Handle taking(Value value)
    {
        Handle handle;
        wrapped(handle).swap(value);
        return handle;
    }

    /// A new object of the core library with the value of @p other, made by default construction
    /// and assignment: the core library's classes need no copy constructor.
    template <class Core>
    static Core* assignedCopy(Core const* other)
    {
        auto copy = std::make_unique<Core>();
        *copy = *other;
        return copy.release();
    }

    /// Gives up one count of a store. A store that was never shared has one holder, and nobody else
    /// can reach it, nor be inside it still: it is freed without its mutex. One that was shared
    /// takes the steps of its `decRef()` even where the count is 1, as whoever gave up the count
    /// before may not have let go of the mutex yet.
    template <class Store>
    static void giveUp(Store* store)
    {
        if (store->m_everShared)
            store->decRef();
        else
            delete store;
    }

    /// The list of points of a shape's record.
    template <class Record>
    static auto& points(Record& record) noexcept
    {
        return record.m_points;
    }

    /// The owning pointer itself, for tests of null and for exchanging what a handle refers to.
    template <class Handle>
    static auto& pointer(Handle& handle) noexcept
    {
        return handle.d;
    }
};

#endif
