#ifndef KDRDATA_PYTHON_SEQUENCE_H
#define KDRDATA_PYTHON_SEQUENCE_H

#include <kdrdata/scalars/kdrnumber.h>

#include "errors.h"
#include "module.h"
#include "pickling.h"

#include <algorithm>
#include <memory>
#include <string>
#include <type_traits>

namespace kdrpython {

/// How an element of an array comes from Python and goes there. Specialised for elements that
/// Python has objects of its own for.
template <class Element>
struct Item
{
    static py::object toPython(std::unique_ptr<Element> value)
    {
        return py::cast(std::move(value));
    }
    /// @p array is the name of the array's class.
    static Element const& fromPython(py::handle value, std::string const& array)
    {
        if (!py::isinstance<Element>(value))
            raiseWrongType(array, py::str(py::type::of<Element>().attr("__name__")), value);
        return value.cast<Element const&>();
    }
    static bool equal(Element const& one, Element const& other)
    {
        return objectOf(one).equal(objectOf(other));
    }
    /// What stands for the element in the repr() of the array.
    static std::string inBrief(py::handle element) { return py::repr(element); }
};

/// Values that an array takes as a whole, faster than one by one. Specialised for arrays that have
/// such.
template <class Array>
struct Whole
{
    static bool take(py::handle, Array&, std::string const&) { return false; }
};

/// An array class of the library as a mutable sequence of Python's. What it does is what list does;
/// only the elements are copies: a change of one enters the array where it is assigned.
///
/// All arrays have length(), push_back(element), insert(), removeAt(), replace(), select() and
/// clear(). Those of classes that carry nothing keep no elements either, and refuse them here.
template <class Array, class Element>
class Sequence
{
public:
    static std::unique_ptr<Array> make(py::iterable const& values, std::string const& name)
    {
        auto made = std::make_unique<Array>();
        if (Whole<Array>::take(values, *made, name))
            return made;
        for (py::handle const value : values)
            append(*made, value, name);
        return made;
    }

    static void append(Array& array, py::handle value, std::string const& name)
    {
        appendWhole(array, Item<Element>::fromPython(value, name), name);
    }

    static void extend(Array& array, py::iterable const& values, std::string const& name)
    {
        // Values may be this array itself, and an error leaves it as it was.
        std::unique_ptr<Array> const more = make(values, name);
        appendPart(array, *more, 0, more->length(), 1, name);
    }

    static void insert(Array& array, py::ssize_t index, py::handle value, std::string const& name)
    {
        // First the value: what that runs may change the list.
        auto const& element = Item<Element>::fromPython(value, name);
        py::ssize_t const length = array.length();
        py::ssize_t const wanted = index < 0 ? index + length : index;
        auto const place = static_cast<int>(std::clamp<py::ssize_t>(wanted, 0, length));
        if (place == array.length())
            return appendWhole(array, element, name);
        array.insert(place, element);
        carryRange(array, place, element);
    }

    static py::object get(Array const& array, py::ssize_t index)
    {
        auto element = std::make_unique<Element>();
        array.select(placeOf(index, array.length()), element.get());
        return Item<Element>::toPython(std::move(element));
    }

    static std::unique_ptr<Array> getPart(Array const& array, py::slice const& slice,
                                          std::string const& name)
    {
        Range const range(slice, array);
        auto made = std::make_unique<Array>();
        appendPart(*made, array, range.start, range.count, range.step, name);
        return made;
    }

    static void set(Array& array, py::ssize_t index, py::handle value, std::string const& name)
    {
        auto const& element = Item<Element>::fromPython(value, name);
        array.replace(placeOf(index, array.length()), element);
    }

    static void setPart(Array& array, py::slice const& slice, py::iterable const& values,
                        std::string const& name)
    {
        std::unique_ptr<Array> const given = make(values, name);
        Range const range(slice, array);
        if (range.step != 1) {
            if (given->length() != range.count)
                throw py::value_error("attempt to assign sequence of size " +
                                      std::to_string(given->length()) +
                                      " to extended slice of size " + std::to_string(range.count));
            Element element{};
            for (int i = 0; i < range.count; ++i) {
                given->select(i, &element);
                array.replace(range.start + i * range.step, element);
            }
            return;
        }
        Array made;
        appendPart(made, array, 0, range.start, 1, name);
        appendPart(made, *given, 0, given->length(), 1, name);
        int const rest = range.start + range.count;
        appendPart(made, array, rest, array.length() - rest, 1, name);
        array = made;
    }

    static void removePart(Array& array, py::slice const& slice, std::string const& name)
    {
        Range range(slice, array);
        if (range.count == 0)
            return;
        range.forward();
        Array made;
        int next = range.start;
        int left = range.count;
        appendPart(made, array, 0, next, 1, name);
        for (int i = next; i < array.length(); ++i) {
            if (left > 0 && i == next) {
                next += range.step;
                --left;
            } else {
                appendPart(made, array, i, 1, 1, name);
            }
        }
        array = made;
    }

    static bool equal(Array const& one, Array const& other)
    {
        if (one.length() != other.length())
            return false;
        for (int i = 0; i < one.length(); ++i) {
            Element first{};
            Element second{};
            one.select(i, &first);
            other.select(i, &second);
            if (!Item<Element>::equal(first, second))
                return false;
        }
        return true;
    }

    static std::string inBrief(Array const& array, std::string const& name)
    {
        constexpr int shown = 10;
        int const length = array.length();
        std::string text;
        for (int i = 0; i < std::min(length, shown); ++i)
            text += (i > 0 ? ", " : "") + Item<Element>::inBrief(get(array, i));
        if (length > shown)
            text += ", ... " + std::to_string(length) + " in all";
        return name + "([" + text + "])";
    }

private:
    // A slice of an array, with all numbers inside of it.
    struct Range
    {
        Range(py::slice const& slice, Array const& array)
        {
            py::ssize_t first = 0;
            py::ssize_t last = 0;
            py::ssize_t by = 1;
            // What the first call runs may change the list; the second runs nothing.
            if (PySlice_Unpack(slice.ptr(), &first, &last, &by) < 0)
                throw py::error_already_set();
            py::ssize_t const length = PySlice_AdjustIndices(array.length(), &first, &last, by);
            start = static_cast<int>(first);
            count = static_cast<int>(length);
            // A step beyond the array reaches one element, whatever it is.
            step = length > 1 ? static_cast<int>(by) : (by == 1 ? 1 : 2);
        }
        void forward()
        {
            if (step < 0) {
                start += (count - 1) * step;
                step = -step;
            }
        }
        int start;
        int count;
        int step;
    };

    static void carryRange(Array& array, int place, Element const& element)
    {
        if constexpr (std::is_same_v<Element, KDRNumber>)
            array.replace(place, element);
        else
            static_cast<void>(array), static_cast<void>(place), static_cast<void>(element);
    }

    static void appendWhole(Array& array, Element const& element, std::string const& name)
    {
        int const place = array.length();
        array.push_back(element);
        if (array.length() <= place)
            throw py::type_error(name + " keeps no elements in this version");
        carryRange(array, place, element);
    }

    static void appendPart(Array& to, Array const& from, int start, int count, int step,
                           std::string const& name)
    {
        for (int i = 0; i < count; ++i) {
            Element element{};
            from.select(start + i * step, &element);
            appendWhole(to, element, name);
        }
    }
};

/// Adds an array class of the library to the module, as Sequence says, with pickle and copies.
template <class Array, class Element>
py::class_<Array> bindSequence(py::module_& m, char const* name, char const* doc)
{
    using Made = Sequence<Array, Element>;
    std::string const called = name;
    py::class_<Array> cls(m, name, doc);
    cls.def(py::init<>(), "An empty list.");
    cls.def(py::init([called](py::iterable const& values) { return Made::make(values, called); }),
            py::arg("values"), "A list of copies of the values.");
    cls.def("__len__", [](Array const& self) { return std::max(self.length(), 0); });
    cls.def("__getitem__", &Made::get, py::arg("index"));
    cls.def(
        "__getitem__",
        [called](Array const& self, py::slice const& part) {
            return Made::getPart(self, part, called);
        },
        py::arg("index"));
    cls.def(
        "__setitem__",
        [called](Array& self, py::ssize_t index, py::object const& value) {
            Made::set(self, index, value, called);
        },
        py::arg("index"), py::arg("value"));
    cls.def(
        "__setitem__",
        [called](Array& self, py::slice const& part, py::iterable const& values) {
            Made::setPart(self, part, values, called);
        },
        py::arg("index"), py::arg("value"));
    cls.def(
        "__delitem__",
        [](Array& self, py::ssize_t index) { self.removeAt(placeOf(index, self.length())); },
        py::arg("index"));
    cls.def(
        "__delitem__",
        [called](Array& self, py::slice const& part) { Made::removePart(self, part, called); },
        py::arg("index"));
    cls.def(
        "insert",
        [called](Array& self, py::ssize_t index, py::object const& value) {
            Made::insert(self, index, value, called);
        },
        py::arg("index"), py::arg("value"), "Inserts a copy of the value before the index.");
    cls.def(
        "append",
        [called](Array& self, py::object const& value) { Made::append(self, value, called); },
        py::arg("value"), "Appends a copy of the value.");
    cls.def(
        "extend",
        [called](Array& self, py::iterable const& values) { Made::extend(self, values, called); },
        py::arg("values"), "Appends copies of the values.");
    cls.def(
        "clear", [](Array& self) { self.clear(); }, "Removes all elements.");
    cls.def(
        "__add__",
        [called](Array const& self, Array const& other) {
            auto made = Made::getPart(self, py::slice(0, self.length(), 1), called);
            Made::extend(*made, py::cast(other), called);
            return made;
        },
        py::arg("other"), py::is_operator());
    cls.def(
        "__eq__",
        [](Array const& self, py::object const& other) -> py::object {
            if (!py::isinstance<Array>(other))
                return py::reinterpret_borrow<py::object>(Py_NotImplemented);
            return py::bool_(Made::equal(self, other.cast<Array const&>()));
        },
        py::arg("other"));
    cls.attr("__hash__") = py::none();
    cls.def("__repr__", [called](Array const& self) { return Made::inBrief(self, called); });
    cls.attr("_is_sequence") = true;
    bindPickling(cls);
    return cls;
}

} // namespace kdrpython

#endif
