#include "define.h"
#include "items.h"
#include "number.h"
#include "pickling.h"
#include "sequence.h"
#include "text.h"

#include <kdrdata/scalars/kdrcolor.h>
#include <kdrdata/scalars/kdrcolorarray.h>
#include <kdrdata/scalars/kdrenum.h>
#include <kdrdata/scalars/kdrenumarray.h>
#include <kdrdata/text/kdrstringarray.h>
#include <kdrio/inside_p.h>

#include <pybind11/numpy.h>

#include <limits>

namespace kdrpython {

// A selection is carried as its three fields, and a list of them as a list of that.
template <>
struct Carried<KDREnum>
{
    static KDRVariant pack(KDREnum const& value)
    {
        KDREnum choice = value;
        KDRStringArray names;
        KDRNumberArray numbers;
        choice.getEnumStringList(names);
        choice.getEnumIndexList(numbers);
        KDRVariantArray fields;
        fields.push_back(KDRVariant(choice.currentVal()));
        fields.push_back(KDRVariant(numbers));
        fields.push_back(KDRVariant(names));
        return fields;
    }
    static bool unpack(KDRVariant& packed, KDREnum& value)
    {
        KDRVariantArray fields;
        if (!packed.toVariantArray(&fields) || fields.length() != 3)
            return false;
        int index = 0;
        KDRNumberArray numbers;
        KDRStringArray names;
        if (!fields[0].toInt(&index) || !fields[1].toNumberArray(&numbers) ||
            !fields[2].toStringArray(&names))
            return false;
        value.setEnumInf(numbers, names);
        value.setCurrentVal(index);
        return true;
    }
};

template <>
struct Carried<KDREnumArray>
{
    static KDRVariant pack(KDREnumArray const& value)
    {
        KDRVariantArray fields;
        KDREnum element;
        for (int i = 0; i < value.length(); ++i) {
            value.select(i, &element);
            fields.push_back(Carried<KDREnum>::pack(element));
        }
        return fields;
    }
    static bool unpack(KDRVariant& packed, KDREnumArray& value)
    {
        KDRVariantArray fields;
        if (!packed.toVariantArray(&fields))
            return false;
        for (int i = 0; i < fields.length(); ++i) {
            KDREnum element;
            KDRVariant field = fields[i];
            if (!Carried<KDREnum>::unpack(field, element))
                return false;
            value.push_back(element);
        }
        return true;
    }
};

// Colours and their rasters hold nothing.
template <>
struct Carried<KDRColor>
{
    static KDRVariant pack(KDRColor const&) { return {}; }
    static bool unpack(KDRVariant&, KDRColor&) { return true; }
};
template <>
struct Carried<KDRColorArray>
{
    static KDRVariant pack(KDRColorArray const&) { return {}; }
    static bool unpack(KDRVariant&, KDRColorArray&) { return true; }
};

namespace {

// The operators of Python that a number hands on to its value.
using Binary = PyObject* (*)(PyObject*, PyObject*);
PyObject* power(PyObject* base, PyObject* exponent)
{
    return PyNumber_Power(base, exponent, Py_None);
}

py::object plain(py::handle value)
{
    return py::isinstance<KDRNumber>(value) ? toPython(value.cast<KDRNumber const&>())
                                            : py::reinterpret_borrow<py::object>(value);
}

bool isNumber(py::handle value)
{
    return py::isinstance<KDRNumber>(value) || PyNumber_Check(value.ptr());
}

py::object checked(PyObject* made)
{
    if (!made)
        throw py::error_already_set();
    return py::reinterpret_steal<py::object>(made);
}

void bindOperators(py::class_<KDRNumber>& cls)
{
    struct Operator
    {
        char const* name;
        char const* reflected;
        Binary run;
    };
    constexpr Operator operators[] = {
        {"__add__", "__radd__", &PyNumber_Add},
        {"__sub__", "__rsub__", &PyNumber_Subtract},
        {"__mul__", "__rmul__", &PyNumber_Multiply},
        {"__truediv__", "__rtruediv__", &PyNumber_TrueDivide},
        {"__floordiv__", "__rfloordiv__", &PyNumber_FloorDivide},
        {"__mod__", "__rmod__", &PyNumber_Remainder},
        {"__pow__", "__rpow__", &power},
    };
    for (Operator const& each : operators) {
        Binary const run = each.run;
        cls.def(
            each.name,
            [run](KDRNumber const& self, py::object const& other) -> py::object {
                if (!isNumber(other))
                    return notImplemented();
                return checked(run(toPython(self).ptr(), plain(other).ptr()));
            },
            py::arg("other"));
        cls.def(
            each.reflected,
            [run](KDRNumber const& self, py::object const& other) -> py::object {
                if (!isNumber(other))
                    return notImplemented();
                return checked(run(plain(other).ptr(), toPython(self).ptr()));
            },
            py::arg("other"));
    }
    struct Comparison
    {
        char const* name;
        int code;
    };
    constexpr Comparison comparisons[] = {
        {"__lt__", Py_LT}, {"__le__", Py_LE}, {"__gt__", Py_GT}, {"__ge__", Py_GE}};
    for (Comparison const& each : comparisons) {
        int const code = each.code;
        cls.def(
            each.name,
            [code](KDRNumber const& self, py::object const& other) -> py::object {
                if (!isNumber(other))
                    return notImplemented();
                return checked(
                    PyObject_RichCompare(toPython(self).ptr(), plain(other).ptr(), code));
            },
            py::arg("other"));
    }
    cls.def("__neg__",
            [](KDRNumber const& self) { return checked(PyNumber_Negative(toPython(self).ptr())); });
    cls.def("__abs__",
            [](KDRNumber const& self) { return checked(PyNumber_Absolute(toPython(self).ptr())); });
    cls.def("__int__",
            [](KDRNumber const& self) { return checked(PyNumber_Long(toPython(self).ptr())); });
    cls.def("__float__",
            [](KDRNumber const& self) { return checked(PyNumber_Float(toPython(self).ptr())); });
    cls.def("__bool__", [](KDRNumber const& self) { return self.toDouble() != 0.0; });
}

void give(KDRNumber& number, py::handle value)
{
    if (!readNumber(value, number))
        raiseWrongType("Number", "a number", value);
}

void bindNumber(py::module_& m)
{
    py::class_<KDRNumber> cls(
        m, "Number", R"(An integer of 64 bits or a floating-point number, with an advisory range.

The range (minimum, maximum, step) is what a user interface offers for a parameter; the number never
tests its value against it. Number() is 0 with the range -999999 to 999999 in steps of 1; the range
of every other number is zero until it is set. Numbers calculate and compare as their values do, and
the results are int and float. Two Numbers are equal where their values and ranges are.)");
    cls.def(py::init<>(), "The integer 0 with the default range.");
    cls.def(py::init([](py::object const& value, py::object const& minimum,
                        py::object const& maximum, py::object const& step) {
                auto made = std::make_unique<KDRNumber>(0);
                give(*made, value);
                if (!minimum.is_none())
                    made->setMinValue(minimum.cast<double>());
                if (!maximum.is_none())
                    made->setMaxValue(maximum.cast<double>());
                if (!step.is_none())
                    made->setStep(step.cast<double>());
                return made;
            }),
            py::arg("value"), py::kw_only(), py::arg("minimum") = py::none(),
            py::arg("maximum") = py::none(), py::arg("step") = py::none(),
            "The number of a value: an integer of an int, floating point of a float.");
    cls.def_property(
        "value", [](KDRNumber const& self) { return toPython(self); },
        [](KDRNumber& self, py::object const& value) {
            if (py::isinstance<KDRNumber>(value))
                give(self, toPython(value.cast<KDRNumber const&>()));
            else
                give(self, value);
        },
        "The value, int or float. Setting it keeps the range.");
    cls.def_property("minimum", &KDRNumber::minValue, &KDRNumber::setMinValue,
                     "The lower bound of the range.");
    cls.def_property("maximum", &KDRNumber::maxValue, &KDRNumber::setMaxValue,
                     "The upper bound of the range.");
    cls.def_property("step", &KDRNumber::step, &KDRNumber::setStep,
                     "Setting it keeps the step of the range, which is saved with the number; "
                     "reading it answers the minimum.");
    cls.def("__repr__", [](KDRNumber const& self) {
        std::string const text = inBrief(self);
        return text.back() == ')' ? text : "Number(" + text + ')';
    });
    cls.def(
        "__eq__",
        [](KDRNumber const& self, py::object const& other) -> py::object {
            if (py::isinstance<KDRNumber>(other))
                return py::bool_(Item<KDRNumber>::equal(self, other.cast<KDRNumber const&>()));
            if (!isNumber(other))
                return notImplemented();
            return checked(PyObject_RichCompare(toPython(self).ptr(), other.ptr(), Py_EQ));
        },
        py::arg("other"));
    cls.attr("__hash__") = py::none();
    bindOperators(cls);
    bindPickling(cls);
    // The copy that Python users mean is a whole one.
    cls.attr("__copy__") = py::cpp_function([](KDRNumber const& self) { return objectOf(self); },
                                            py::is_method(cls), py::name("__copy__"));
}

template <class Number>
void fill(KDRNumberArray& numbers, py::handle array)
{
    auto const values = py::array_t<Number, py::array::forcecast>::ensure(array);
    if (!values)
        throw py::error_already_set();
    auto const each = values.template unchecked<1>();
    QList<KDRNumber>& list = KDRInternal::wrapped(numbers);
    list.reserve(static_cast<int>(each.shape(0)));
    for (py::ssize_t i = 0; i < each.shape(0); ++i)
        list.append(KDRNumber(each(i)));
}

py::object arrayOf(KDRNumberArray const& numbers, py::object const& type)
{
    QList<KDRNumber> const& list = KDRInternal::wrapped(numbers);
    bool const areIntegers =
        !list.isEmpty() && std::all_of(list.cbegin(), list.cend(), [](KDRNumber const& each) {
            return kdrio::inside::record(each).kind == KDRNumberPrivate::Integer;
        });
    py::object made;
    if (areIntegers) {
        py::array_t<long long> array(list.size());
        std::transform(list.cbegin(), list.cend(), array.mutable_data(),
                       [](KDRNumber const& each) { return each.toLongLong(); });
        made = array;
    } else {
        py::array_t<double> array(list.size());
        std::transform(list.cbegin(), list.cend(), array.mutable_data(),
                       [](KDRNumber const& each) { return each.toDouble(); });
        made = array;
    }
    return type.is_none() ? made : made.attr("astype")(type);
}

void bindNumberArray(py::module_& m)
{
    auto cls = bindSequence<KDRNumberArray, KDRNumber>(m, "NumberArray", R"(A list of numbers.

Its elements are Numbers, with their ranges; it takes int, float and scalars of NumPy, too, and arrays
of NumPy as a whole. numpy.asarray(numbers) is an array of int64 where all are integers, and of float64
otherwise. A copy by copy.copy shares the list until one of them is changed; who changes it first then
leaves the ranges of its elements behind.)");
    cls.def(
        "__array__",
        [](KDRNumberArray const& self, py::object const& type) { return arrayOf(self, type); },
        py::arg("dtype") = py::none(), "A new array of the values.");
    cls.def(
        "tolist",
        [](KDRNumberArray const& self) {
            QList<KDRNumber> const& list = KDRInternal::wrapped(self);
            py::list made(static_cast<std::size_t>(list.size()));
            for (int i = 0; i < list.size(); ++i)
                made[static_cast<std::size_t>(i)] = toPython(list.at(i));
            return made;
        },
        "The values, int and float.");
}

void bindBoolArray(py::module_& m)
{
    auto cls = bindSequence<KDRBoolArray, bool>(
        m, "BoolArray", "A list of flags, from and to lists and arrays of NumPy.");
    cls.def(
        "__array__",
        [](KDRBoolArray const& self, py::object const& type) {
            QList<bool> const& list = KDRInternal::wrapped(self);
            py::array_t<bool> array(list.size());
            std::copy(list.cbegin(), list.cend(), array.mutable_data());
            return type.is_none() ? py::object(array) : array.attr("astype")(type);
        },
        py::arg("dtype") = py::none(), "A new array of the flags.");
    cls.def(
        "tolist",
        [](KDRBoolArray const& self) {
            py::list made;
            for (bool const each : KDRInternal::wrapped(self))
                made.append(each);
            return made;
        },
        "The flags.");
}

KDRStringArray namesOf(KDREnum const& self)
{
    KDREnum choice = self;
    KDRStringArray names;
    choice.getEnumStringList(names);
    return names;
}

KDRNumberArray numbersOf(KDREnum const& self)
{
    KDREnum choice = self;
    KDRNumberArray numbers;
    choice.getEnumIndexList(numbers);
    return numbers;
}

void bindEnum(py::module_& m)
{
    using Names = Sequence<KDRStringArray, KDRString>;
    using Numbers = Sequence<KDRNumberArray, KDRNumber>;
    py::class_<KDREnum> cls(
        m, "Enum", R"(A selection: the names of the options, their numbers, and which one is chosen.

The chosen option is a position among the names, counted from 0; -1 means none. It is never looked up
among the numbers, which are carried for whoever needs them. Nothing is checked: the two lists may
differ in length, and the position may lie outside both.)");
    cls.def(py::init([](py::iterable const& names, py::iterable const& numbers, int index) {
                auto made = std::make_unique<KDREnum>(*Names::make(names, "Enum"),
                                                      *Numbers::make(numbers, "Enum"));
                made->setCurrentVal(index);
                return made;
            }),
            py::arg("names") = py::tuple(), py::arg("numbers") = py::tuple(), py::arg("index") = -1,
            "The options, and which one is chosen.");
    cls.def_property("index", &KDREnum::currentVal, &KDREnum::setCurrentVal,
                     "The position of the chosen option. Any is taken.");
    cls.def_property(
        "name", [](KDREnum const& self) { return toPython(self.currentValStr()); },
        [](KDREnum& self, py::object const& name) {
            self.setCurrentValStr(toString(name, "Enum"));
        },
        "The name of the chosen option, \"\" where there is none. Setting it chooses the first "
        "option of that name, or none.");
    cls.def_property(
        "names", &namesOf,
        [](KDREnum& self, py::iterable const& names) {
            self.setEnumInf(numbersOf(self), *Names::make(names, "Enum"));
        },
        "A copy of the names.");
    cls.def_property(
        "numbers", &numbersOf,
        [](KDREnum& self, py::iterable const& numbers) {
            self.setEnumInf(*Numbers::make(numbers, "Enum"), namesOf(self));
        },
        "A copy of the numbers.");
    cls.def("__repr__", [](KDREnum const& self) {
        return "Enum(" + std::string(py::repr(py::list(py::cast(namesOf(self))))) +
               ", index=" + std::to_string(self.currentVal()) + ')';
    });
    bindEquality(cls);
    bindPickling(cls);
    bindSequence<KDREnumArray, KDREnum>(m, "EnumArray", "A list of selections.");
}

void bindColor(py::module_& m)
{
    py::class_<KDRColor> color(
        m, "Color", "A colour. It holds nothing in this version: every component is -1.");
    color.def(py::init<>());
    color.def_property_readonly("red", &KDRColor::getRed, "-1.");
    color.def_property_readonly("green", &KDRColor::getGreen, "-1.");
    color.def_property_readonly("blue", &KDRColor::getBlue, "-1.");
    color.def_property_readonly("alpha", &KDRColor::getAlpha, "-1.");
    bindEquality(color);
    bindPickling(color);

    py::class_<KDRColorArray> colors(
        m, "ColorArray",
        "A raster of colours. It holds nothing in this version: every size is -1.");
    colors.def(py::init<>());
    colors.def_property_readonly("width", &KDRColorArray::width, "-1.");
    colors.def_property_readonly("height", &KDRColorArray::height, "-1.");
    colors.def_property_readonly("channels", &KDRColorArray::channel, "-1.");
    bindEquality(colors);
    bindPickling(colors);
}

} // namespace

py::object toPython(KDRNumber const& number)
{
    KDRNumberPrivate const& record = kdrio::inside::record(number);
    if (record.kind == KDRNumberPrivate::Integer)
        return py::int_(record.value.integer);
    return py::float_(record.value.floating);
}

std::string numberText(double value) { return py::repr(py::float_(value)); }

std::string inBrief(KDRNumber const& number)
{
    KDRNumberPrivate const& record = kdrio::inside::record(number);
    std::string value = py::repr(toPython(number));
    if (record.minValue == 0.0 && record.maxValue == 0.0 && record.step == 0.0)
        return value;
    return "Number(" + value + ", minimum=" + numberText(record.minValue) +
           ", maximum=" + numberText(record.maxValue) + ", step=" + numberText(record.step) + ')';
}

bool readNumber(py::handle value, KDRNumber& number)
{
    if (PyFloat_Check(value.ptr())) {
        number.fromDouble(PyFloat_AS_DOUBLE(value.ptr()));
        return true;
    }
    if (py::isinstance<KDRNumber>(value)) {
        number = value.cast<KDRNumber const&>();
        return true;
    }
    if (PyNumber_Check(value.ptr()) == 0 || PyBool_Check(value.ptr()) || isArray(value))
        return false;
    if (PyIndex_Check(value.ptr())) {
        py::object const integer = checked(PyNumber_Index(value.ptr()));
        long long const whole = PyLong_AsLongLong(integer.ptr());
        if (whole == -1 && PyErr_Occurred()) {
            PyErr_SetString(PyExc_OverflowError, "integers have 64 bits");
            throw py::error_already_set();
        }
        number.fromLongLong(whole);
        return true;
    }
    if (py::isinstance(value, py::module_::import("numpy").attr("floating"))) {
        number.fromDouble(checked(PyNumber_Float(value.ptr())).cast<double>());
        return true;
    }
    return false;
}

bool isArray(py::handle value) { return py::isinstance<py::array>(value); }

char elementKindOf(py::handle array)
{
    return py::reinterpret_borrow<py::array>(array).dtype().kind();
}

KDRNumberArray toNumberArray(py::handle array, char const* where)
{
    KDRNumberArray numbers;
    auto const values = py::reinterpret_borrow<py::array>(array);
    if (values.ndim() != 1 || values.shape(0) > std::numeric_limits<int>::max() / 16)
        throw py::value_error(std::string(where) + " takes arrays of one dimension and up to " +
                              std::to_string(std::numeric_limits<int>::max() / 16) + " elements");
    switch (elementKindOf(array)) {
    case 'u':
        if (values.itemsize() == sizeof(long long) && values.size() > 0 &&
            values.attr("max")().cast<unsigned long long>() >
                static_cast<unsigned long long>(std::numeric_limits<long long>::max())) {
            PyErr_SetString(PyExc_OverflowError, "integers have 64 bits");
            throw py::error_already_set();
        }
        [[fallthrough]];
    case 'i':
        fill<long long>(numbers, array);
        break;
    case 'f':
        fill<double>(numbers, array);
        break;
    default:
        throw py::type_error(std::string(where) +
                             " takes arrays of integers and floating-point numbers");
    }
    return numbers;
}

KDRBoolArray toBoolArray(py::handle array)
{
    KDRBoolArray flags;
    auto const values = py::array_t<bool, py::array::c_style>::ensure(array);
    // A view of other bytes as flags may hold more than 0 and 1.
    auto const* const bytes = reinterpret_cast<unsigned char const*>(values.data());
    for (py::ssize_t i = 0; i < values.shape(0); ++i)
        flags.push_back(bytes[i] != 0);
    return flags;
}

void bindScalars(py::module_& m)
{
    bindNumber(m);
    bindNumberArray(m);
    bindBoolArray(m);
    bindEnum(m);
    bindColor(m);
}

} // namespace kdrpython
