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
    static Element const& fromPython(py::handle value, char const* array)
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
    static bool take(py::handle, Array&, char const*) { return false; }
};

/// What the arrays of one class do as sequences of Python's, for those that do not know the class.
/// @p self is an object of the class, @p name what messages call it.
struct SequenceOperations
{
    bool (*isOne)(py::handle value);
    int (*length)(py::handle self);
    py::object (*get)(py::handle self, py::ssize_t index);
    py::object (*getPart)(py::handle self, py::slice const& part, char const* name);
    void (*set)(py::handle self, py::ssize_t index, py::handle value, char const* name);
    void (*setPart)(py::handle self, py::slice const& part, py::iterable const& values,
                    char const* name);
    void (*remove)(py::handle self, py::ssize_t index);
    void (*removePart)(py::handle self, py::slice const& part, char const* name);
    void (*insert)(py::handle self, py::ssize_t index, py::handle value, char const* name);
    void (*append)(py::handle self, py::handle value, char const* name);
    void (*extend)(py::handle self, py::iterable const& values, char const* name);
    void (*clear)(py::handle self);
    bool (*equal)(py::handle self, py::handle other);
    std::string (*inBrief)(py::handle element);
};

/// Adds the operations to a class. @p operations and @p name stay where they are.
void bindOperations(py::object const& cls, SequenceOperations const& operations, char const* name);

/// A slice of a list, with all numbers inside of it.
struct Range
{
    Range(py::slice const& slice, int (*length)(py::handle self), py::handle self);

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

/// Raises ValueError: an extended slice takes as many values as it has places.
[[noreturn]] void raiseOtherLength(int given, int places);

/// Raises TypeError: the arrays of classes that carry nothing keep no elements either.
[[noreturn]] void raiseKeepsNothing(char const* name);

/// An array class of the library as a mutable sequence of Python's. What it does is what list does;
/// only the elements are copies: a change of one enters the array where it is assigned.
///
/// All arrays have length(), push_back(element), insert(), removeAt(), replace(), select() and
/// clear(). Those of classes that carry nothing keep no elements either, and refuse them here.
template <class Array, class Element>
class Sequence
{
public:
    static std::unique_ptr<Array> make(py::iterable const& values, char const* name)
    {
        auto made = std::make_unique<Array>();
        if (Whole<Array>::take(values, *made, name))
            return made;
        for (py::handle const value : values)
            appendWhole(*made, Item<Element>::fromPython(value, name), name);
        return made;
    }

private:
    static Array& arrayOf(py::handle self) { return self.cast<Array&>(); }

    static bool isOne(py::handle value) { return py::isinstance<Array>(value); }

    static int length(py::handle self) { return std::max(arrayOf(self).length(), 0); }

    static py::object get(py::handle self, py::ssize_t index)
    {
        Array const& array = arrayOf(self);
        auto element = std::make_unique<Element>();
        array.select(placeOf(index, array.length()), element.get());
        return Item<Element>::toPython(std::move(element));
    }

    static py::object getPart(py::handle self, py::slice const& part, char const* name)
    {
        Range const range(part, length, self);
        auto made = std::make_unique<Array>();
        appendPart(*made, arrayOf(self), range.start, range.count, range.step, name);
        return py::cast(std::move(made));
    }

    static void set(py::handle self, py::ssize_t index, py::handle value, char const* name)
    {
        auto const& element = Item<Element>::fromPython(value, name);
        Array& array = arrayOf(self);
        array.replace(placeOf(index, array.length()), element);
    }

    static void setPart(py::handle self, py::slice const& part, py::iterable const& values,
                        char const* name)
    {
        std::unique_ptr<Array> const given = make(values, name);
        Range const range(part, length, self);
        Array& array = arrayOf(self);
        if (range.step != 1) {
            if (given->length() != range.count)
                raiseOtherLength(given->length(), range.count);
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

    static void removeAt(py::handle self, py::ssize_t index)
    {
        Array& array = arrayOf(self);
        array.removeAt(placeOf(index, array.length()));
    }

    static void removePart(py::handle self, py::slice const& part, char const* name)
    {
        Range range(part, length, self);
        Array& array = arrayOf(self);
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

    static void insert(py::handle self, py::ssize_t index, py::handle value, char const* name)
    {
        // First the value: what that runs may change the list.
        auto const& element = Item<Element>::fromPython(value, name);
        Array& array = arrayOf(self);
        int const elements = array.length();
        py::ssize_t const wanted = index < 0 ? index + elements : index;
        auto const place = static_cast<int>(std::clamp<py::ssize_t>(wanted, 0, elements));
        if (place == elements)
            return appendWhole(array, element, name);
        array.insert(place, element);
        carryRange(array, place, element);
    }

    static void append(py::handle self, py::handle value, char const* name)
    {
        appendWhole(arrayOf(self), Item<Element>::fromPython(value, name), name);
    }

    static void extend(py::handle self, py::iterable const& values, char const* name)
    {
        // Values may be this array itself, and an error leaves it as it was.
        std::unique_ptr<Array> const more = make(values, name);
        appendPart(arrayOf(self), *more, 0, more->length(), 1, name);
    }

    static void clear(py::handle self) { arrayOf(self).clear(); }

    static bool areEqual(py::handle self, py::handle with)
    {
        Array const& one = arrayOf(self);
        Array const& other = arrayOf(with);
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

    static void carryRange(Array& array, int place, Element const& element)
    {
        if constexpr (std::is_same_v<Element, KDRNumber>)
            array.replace(place, element);
        else
            static_cast<void>(array), static_cast<void>(place), static_cast<void>(element);
    }

    static void appendWhole(Array& array, Element const& element, char const* name)
    {
        int const place = array.length();
        array.push_back(element);
        if (array.length() <= place)
            raiseKeepsNothing(name);
        carryRange(array, place, element);
    }

    static void appendPart(Array& to, Array const& from, int start, int count, int step,
                           char const* name)
    {
        for (int i = 0; i < count; ++i) {
            Element element{};
            from.select(start + i * step, &element);
            appendWhole(to, element, name);
        }
    }

public:
    static constexpr SequenceOperations operations = {
        isOne,      length, get,    getPart, set,   setPart,  removeAt,
        removePart, insert, append, extend,  clear, areEqual, Item<Element>::inBrief,
    };
};

/// Adds an array class of the library to the module, as Sequence says, with pickle and copies.
/// @p name is a literal.
template <class Array, class Element>
py::class_<Array> bindSequence(py::module_& m, char const* name, char const* doc)
{
    using Made = Sequence<Array, Element>;
    py::class_<Array> cls(m, name, doc);
    cls.def(py::init([name](py::iterable const& values) { return Made::make(values, name); }),
            py::arg("values") = py::tuple(), "A list of copies of the values.");
    bindOperations(cls, Made::operations, name);
    bindPickling(cls);
    return cls;
}

} // namespace kdrpython

#endif
