#include "owner.h"

#include <mutex>
#include <new>
#include <vector>

namespace kdrpython {

namespace {

// What was given back and is not yet let go of.
struct Returned
{
    std::mutex mutex;
    std::vector<PyObject*> objects;
};

// Never destroyed: threads may outlive the module.
Returned& returned()
{
    static auto* const all = new Returned;
    return *all;
}

int letGoOfReturned(void*)
{
    std::vector<PyObject*> objects;
    {
        std::lock_guard<std::mutex> const lock(returned().mutex);
        objects.swap(returned().objects);
    }
    // What this runs may fail, which is nobody's here.
    PyObject *type = nullptr, *value = nullptr, *trace = nullptr;
    PyErr_Fetch(&type, &value, &trace);
    for (PyObject* const object : objects)
        Py_DECREF(object);
    PyErr_Restore(type, value, trace);
    return 0;
}

} // namespace

void* ownerOf(py::handle object)
{
    letGoOfReturned(nullptr);
    return object.inc_ref().ptr();
}

void releaseOwner(void* owner) noexcept
{
    // After the interpreter's end there is nobody to give it back to, nor a lock to take.
    if (!Py_IsInitialized() || _Py_IsFinalizing())
        return;
    bool isFirst = false;
    try {
        std::lock_guard<std::mutex> const lock(returned().mutex);
        isFirst = returned().objects.empty();
        returned().objects.push_back(static_cast<PyObject*>(owner));
    } catch (std::bad_alloc const&) {
        return; // the object stays
    }
    // Where too many calls wait already, the next object that is taken lets go of this one.
    if (isFirst)
        Py_AddPendingCall(letGoOfReturned, nullptr);
}

} // namespace kdrpython
