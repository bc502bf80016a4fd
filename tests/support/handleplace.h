#ifndef KDRDATA_TESTS_HANDLEPLACE_H
#define KDRDATA_TESTS_HANDLEPLACE_H

#include <cstddef>
#include <cstring>
#include <new>

/// Memory for one object, whose bytes can be looked at before, during and after its life.
template <class Object>
class Place
{
public:
    Place() { std::memset(m_bytes, 0xA5, sizeof m_bytes); }

    /// A new object in this place, whose end is up to the caller.
    Object& create() { return *new (m_bytes) Object; }

    /// Where @p field of the living object is, for left().
    template <class Field>
    std::ptrdiff_t offsetOf(Field const& field) const
    {
        return reinterpret_cast<unsigned char const*>(&field) - m_bytes;
    }

    /// What lies @p offset bytes from the beginning.
    template <class Field>
    Field left(std::ptrdiff_t offset) const
    {
        Field field;
        std::memcpy(&field, m_bytes + offset, sizeof field);
        return field;
    }

    /// What lies where a handle keeps its pointer.
    void* pointer() const
    {
        static_assert(sizeof(Object) == sizeof(void*), "a handle is one pointer");
        return left<void*>(0);
    }

private:
    alignas(Object) unsigned char m_bytes[sizeof(Object)];
};

#endif
