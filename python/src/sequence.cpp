#include "sequence.h"

#include "define.h"

#include <algorithm>

namespace kdrpython {

namespace {

std::string inBrief(py::handle self, SequenceOperations const& operations, char const* name)
{
    constexpr int shown = 10;
    int const length = operations.length(self);
    std::string text;
    for (int i = 0; i < std::min(length, shown); ++i)
        text += (i > 0 ? ", " : "") + operations.inBrief(operations.get(self, i));
    if (length > shown)
        text += ", ... " + std::to_string(length) + " in all";
    return name + ("([" + text) + "])";
}

} // namespace

Range::Range(py::slice const& slice, int (*length)(py::handle self), py::handle self)
{
    py::ssize_t first = 0;
    py::ssize_t last = 0;
    py::ssize_t by = 1;
    // What the first call runs may change the list; the second runs nothing.
    if (PySlice_Unpack(slice.ptr(), &first, &last, &by) < 0)
        throw py::error_already_set();
    py::ssize_t const places = PySlice_AdjustIndices(length(self), &first, &last, by);
    start = static_cast<int>(first);
    count = static_cast<int>(places);
    // A step beyond the array reaches one element, whatever it is.
    step = places > 1 ? static_cast<int>(by) : (by == 1 ? 1 : 2);
}

void raiseOtherLength(int given, int places)
{
    throw py::value_error("attempt to assign sequence of size " + std::to_string(given) +
                          " to extended slice of size " + std::to_string(places));
}

void raiseKeepsNothing(char const* name)
{
    throw py::type_error(std::string(name) + " keeps no elements in this version");
}

void bindOperations(py::object const& cls, SequenceOperations const& operations, char const* name)
{
    auto const* const made = &operations;
    define(cls, "__len__", [made](py::object const& self) { return made->length(self); });
    define(
        cls, "__getitem__",
        [made](py::object const& self, py::ssize_t index) { return made->get(self, index); },
        py::arg("index"));
    define(
        cls, "__getitem__",
        [made, name](py::object const& self, py::slice const& part) {
            return made->getPart(self, part, name);
        },
        py::arg("index"));
    define(
        cls, "__setitem__",
        [made, name](py::object const& self, py::ssize_t index, py::object const& value) {
            made->set(self, index, value, name);
        },
        py::arg("index"), py::arg("value"));
    define(
        cls, "__setitem__",
        [made, name](py::object const& self, py::slice const& part, py::iterable const& values) {
            made->setPart(self, part, values, name);
        },
        py::arg("index"), py::arg("value"));
    define(
        cls, "__delitem__",
        [made](py::object const& self, py::ssize_t index) { made->remove(self, index); },
        py::arg("index"));
    define(
        cls, "__delitem__",
        [made, name](py::object const& self, py::slice const& part) {
            made->removePart(self, part, name);
        },
        py::arg("index"));
    define(
        cls, "insert",
        [made, name](py::object const& self, py::ssize_t index, py::object const& value) {
            made->insert(self, index, value, name);
        },
        py::arg("index"), py::arg("value"), "Inserts a copy of the value before the index.");
    define(
        cls, "append",
        [made, name](py::object const& self, py::object const& value) {
            made->append(self, value, name);
        },
        py::arg("value"), "Appends a copy of the value.");
    define(
        cls, "extend",
        [made, name](py::object const& self, py::iterable const& values) {
            made->extend(self, values, name);
        },
        py::arg("values"), "Appends copies of the values.");
    define(
        cls, "clear", [made](py::object const& self) { made->clear(self); },
        "Removes all elements.");
    define(
        cls, "__add__",
        [made, name](py::object const& self, py::object const& other) {
            if (!made->isOne(other))
                return notImplemented();
            py::object sum = made->getPart(self, py::slice(0, made->length(self), 1), name);
            made->extend(sum, py::reinterpret_borrow<py::iterable>(other), name);
            return sum;
        },
        py::arg("other"));
    define(
        cls, "__eq__",
        [made](py::object const& self, py::object const& other) {
            return made->isOne(other) ? py::bool_(made->equal(self, other)) : notImplemented();
        },
        py::arg("other"));
    cls.attr("__hash__") = py::none();
    define(cls, "__repr__",
           [made, name](py::object const& self) { return inBrief(self, *made, name); });
    cls.attr("_is_sequence") = true;
}

} // namespace kdrpython
