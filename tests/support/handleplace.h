#ifndef KDRDATA_TESTS_HANDLEPLACE_H
#define KDRDATA_TESTS_HANDLEPLACE_H

#include <cstring>
#include <new>

/// Memory for one handle, whose bytes can be looked at before, during and after its life.
template <class Handle>
class Place
{
    static_assert(sizeof(Handle) == sizeof(void*), "a handle is one pointer");

public:
    Place() { std::memset(m_bytes, 0xA5, sizeof m_bytes); }

    /// A new handle in this place, whose end is up to the caller.
    Handle& create() { return *new (m_bytes) Handle; }

    /// What lies where the handle keeps its pointer.
    void* pointer() const
    {
        void* pointer = nullptr;
        std::memcpy(&pointer, m_bytes, sizeof pointer);
        return pointer;
    }

private:
    alignas(Handle) unsigned char m_bytes[sizeof(Handle)];
};

#endif
