#ifndef KDRDATA_TESTS_WITHOUTOBJECT_H
#define KDRDATA_TESTS_WITHOUTOBJECT_H

#include <type_traits>
#include <utility>

#include <kdrdata/internal/kdrinternal_p.h>

/// What a handle looks like whose destructor has run, for as long as this lives; the object that it
/// had is given back in the end, to be freed with the handle.
template <class Handle>
class WithoutObject
{
public:
    WithoutObject() : m_kept(std::exchange(KDRInternal::pointer(handle), nullptr)) {}
    ~WithoutObject() { KDRInternal::pointer(handle) = m_kept; }
    WithoutObject(WithoutObject const&) = delete;
    WithoutObject& operator=(WithoutObject const&) = delete;

    Handle handle;

private:
    std::decay_t<decltype(KDRInternal::pointer(std::declval<Handle&>()))> m_kept;
};

#endif
