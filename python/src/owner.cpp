#include "owner.h"

namespace kdrpython {

void* ownerOf(py::handle object) noexcept { return object.inc_ref().ptr(); }

void releaseOwner(void* owner) noexcept
{
    // After the interpreter's end there is nobody to give it back to, nor a lock to take.
    if (!Py_IsInitialized() || _Py_IsFinalizing())
        return;
    PyGILState_STATE const state = PyGILState_Ensure();
    // What it runs may fail, which is nobody's here.
    PyObject *type = nullptr, *value = nullptr, *trace = nullptr;
    PyErr_Fetch(&type, &value, &trace);
    Py_DECREF(static_cast<PyObject*>(owner));
    PyErr_Restore(type, value, trace);
    PyGILState_Release(state);
}

} // namespace kdrpython
