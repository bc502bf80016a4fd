#ifndef KDRDATA_PYTHON_OWNER_H
#define KDRDATA_PYTHON_OWNER_H

#include "module.h"

namespace kdrpython {

/// Takes a share of a Python object for memory of its that the core library works on: what to give
/// as `owner` where releaseOwner() is given as `release`. Called with the interpreter's lock.
void* ownerOf(py::handle object);

/// Gives that share back, in whichever thread, and leaves it where the interpreter has ended. The
/// share waits for the next step of the interpreter's main thread: what the end of an object runs
/// may come back to the list that is just giving it up, and who calls may hold a lock of the
/// library that the holder of the interpreter's waits for.
void releaseOwner(void* owner) noexcept;

/// An array of NumPy or another object that keeps @p value for as long as it lives: a capsule to be
/// given as the base of an array over memory that @p value holds.
template <class Class>
py::capsule keeping(Class const& value)
{
    return py::capsule(new Class(value), [](void* kept) { delete static_cast<Class*>(kept); });
}

} // namespace kdrpython

#endif
