#ifndef KDRDATA_PYTHON_ITEMS_H
#define KDRDATA_PYTHON_ITEMS_H

#include <kdrio/inside_p.h>

#include "number.h"
#include "sequence.h"
#include "text.h"
#include "value.h"

namespace kdrpython {

// The elements that Python has objects of its own for, or that are made of many things of Python's.

template <>
struct Item<KDRString>
{
    static py::object toPython(std::unique_ptr<KDRString> value)
    {
        return kdrpython::toPython(*value);
    }
    static KDRString fromPython(py::handle value, char const* array)
    {
        return toString(value, array);
    }
    static bool equal(KDRString const& one, KDRString const& other)
    {
        return one == other && one.isNull() == other.isNull();
    }
    static std::string inBrief(py::handle element) { return py::repr(element); }
};

template <>
struct Item<KDRBuffer>
{
    static py::object toPython(std::unique_ptr<KDRBuffer> value)
    {
        return kdrpython::toPython(*value);
    }
    static KDRBuffer fromPython(py::handle value, char const* array)
    {
        return toBuffer(value, array);
    }
    static bool equal(KDRBuffer const& one, KDRBuffer const& other)
    {
        return kdrio::inside::bytes(one) == kdrio::inside::bytes(other) &&
               one.isNull() == other.isNull();
    }
    static std::string inBrief(py::handle element) { return py::repr(element); }
};

template <>
struct Item<bool>
{
    static py::object toPython(std::unique_ptr<bool> value) { return py::bool_(*value); }
    static bool fromPython(py::handle value, char const* array)
    {
        bool const isFlag = PyBool_Check(value.ptr()) ||
                            py::isinstance(value, py::module_::import("numpy").attr("bool_"));
        if (!isFlag)
            raiseWrongType(array, "True or False", value);
        return py::cast<bool>(py::bool_(py::reinterpret_borrow<py::object>(value)));
    }
    static bool equal(bool one, bool other) { return one == other; }
    static std::string inBrief(py::handle element) { return py::repr(element); }
};

template <>
struct Item<KDRNumber>
{
    // A number of the library leaves its range behind where it is copied: the place of the value is
    // handed on.
    struct Ranged
    {
        KDRNumber number;
        operator KDRNumber const&() const { return number; }
    };
    static py::object toPython(std::unique_ptr<KDRNumber> value)
    {
        return py::cast(std::move(value));
    }
    static Ranged fromPython(py::handle value, char const* array)
    {
        Ranged made{KDRNumber(0)};
        if (!readNumber(value, made.number))
            raiseWrongType(array, "numbers", value);
        return made;
    }
    static bool equal(KDRNumber const& one, KDRNumber const& other)
    {
        KDRNumberPrivate const& first = kdrio::inside::record(one);
        KDRNumberPrivate const& second = kdrio::inside::record(other);
        return kdrpython::toPython(one).equal(kdrpython::toPython(other)) &&
               first.maxValue == second.maxValue && first.minValue == second.minValue &&
               first.step == second.step;
    }
    // Without a range it is what the value is.
    static std::string inBrief(py::handle element)
    {
        return kdrpython::inBrief(element.cast<KDRNumber const&>());
    }
};

template <>
struct Whole<KDRNumberArray>
{
    static bool take(py::handle values, KDRNumberArray& array, char const* name)
    {
        if (!isArray(values))
            return false;
        array = toNumberArray(values, name);
        return true;
    }
};

template <>
struct Whole<KDRBoolArray>
{
    static bool take(py::handle values, KDRBoolArray& array, char const*)
    {
        if (!isArray(values) || elementKindOf(values) != 'b')
            return false;
        array = toBoolArray(values);
        return true;
    }
};

template <>
struct Item<KDRVariant>
{
    static py::object toPython(std::unique_ptr<KDRVariant> value)
    {
        return py::cast(std::move(value));
    }
    static KDRVariant fromPython(py::handle value, char const*) { return variantOf(value); }
    static bool equal(KDRVariant const& one, KDRVariant const& other)
    {
        return kdrpython::equal(one, other);
    }
    static std::string inBrief(py::handle element)
    {
        return kdrpython::inBrief(element.cast<KDRVariant const&>());
    }
};

} // namespace kdrpython

#endif
