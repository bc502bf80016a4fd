#include "value.h"

#include "errors.h"
#include "items.h"
#include "number.h"
#include "pickling.h"
#include "sequence.h"
#include "text.h"

#include <kdrdata/vision/kdrregion.h>
#include <kdrio/inside_p.h>
#include <kdrio/kdrio.h>

#include <pybind11/numpy.h>

#include <cstring>
#include <vector>

namespace kdrpython {

namespace {

// --- from Python ---------------------------------------------------------------------------------

// Lists and arrays of objects may hold themselves, which Python finds out by the depth.
class Depth
{
public:
    Depth()
    {
        if (Py_EnterRecursiveCall(" while making a Variant"))
            throw py::error_already_set();
    }
    ~Depth() { Py_LeaveRecursiveCall(); }
    Depth(Depth const&) = delete;
    Depth& operator=(Depth const&) = delete;
};

bool ofClass(py::handle value, KDRVariant& made)
{
#define KDRPYTHON_OF_CLASS(Kind, Payload, ...)                                                     \
    if (py::isinstance<Payload>(value)) {                                                          \
        made = Carried<Payload>::pack(value.cast<Payload const&>());                               \
        return true;                                                                               \
    }
    KDR_VARIANT_KINDS(KDRPYTHON_OF_CLASS)
#undef KDRPYTHON_OF_CLASS
    if (py::isinstance<KDRRegion>(value)) {
        KDRShape shape;
        shape.fromRegion(value.cast<KDRRegion&>());
        made = KDRVariant(shape);
        return true;
    }
    return false;
}

KDRVariant ofArray(py::handle value)
{
    auto const array = py::reinterpret_borrow<py::array>(value);
    char const kind = elementKindOf(value);
    auto const madeBy = [&](char const* cls, char const* function) {
        py::object const made = py::module_::import("kdrdata").attr(cls).attr(function)(value);
        return variantOf(made);
    };
    if (array.ndim() == 0)
        return variantOf(array.attr("item")());
    if (array.ndim() == 1)
        return kind == 'b' ? KDRVariant(toBoolArray(value))
                           : KDRVariant(toNumberArray(value, "Variant"));
    bool const isPixel =
        kind == 'u' && array.itemsize() <= static_cast<py::ssize_t>(sizeof(unsigned short));
    if (array.ndim() == 2 && kind == 'b')
        return madeBy("Region", "from_mask");
    if (array.ndim() == 3 || (array.ndim() == 2 && isPixel))
        return madeBy("Image", "from_array");
    if (array.ndim() == 2)
        return madeBy("Matrix", "from_array");
    throw py::value_error("Variant takes arrays of one to three dimensions");
}

template <class Array, class Element>
bool allOf(std::vector<py::object> const& values, KDRVariant& made)
{
    Array array;
    for (py::object const& value : values) {
        if (!py::isinstance<Element>(value))
            return false;
        array.push_back(value.cast<Element const&>());
    }
    // Some arrays keep nothing.
    if (array.length() != static_cast<int>(values.size()))
        return false;
    made = Carried<Array>::pack(array);
    return true;
}

bool isFlag(py::handle value) { return PyBool_Check(value.ptr()); }

bool isText(py::handle value)
{
    return PyUnicode_Check(value.ptr()) || py::isinstance<KDRString>(value);
}

bool isBytes(py::handle value)
{
    return PyBytes_Check(value.ptr()) || PyByteArray_Check(value.ptr()) ||
           PyMemoryView_Check(value.ptr()) || py::isinstance<KDRBuffer>(value);
}

// A scalar of NumPy as what it stands for in Python; everything else as it is.
py::object unpacked(py::handle value)
{
    static py::handle const generic =
        py::object(py::module_::import("numpy").attr("generic")).release();
    auto given = py::reinterpret_borrow<py::object>(value);
    if (!py::isinstance(value, generic) || PyFloat_Check(value.ptr()) ||
        PyUnicode_Check(value.ptr()) || PyBytes_Check(value.ptr()))
        return given;
    // Times are no numbers, although Python has some of them as such.
    constexpr char plainKinds[] = "biufSU";
    char const kind = given.attr("dtype").attr("kind").cast<char>();
    if (!std::strchr(plainKinds, kind))
        return given;
    py::object const item = given.attr("item")();
    // Python has no such floating-point number: it stays one of NumPy's.
    return py::isinstance(item, generic) ? py::float_(item) : item;
}

bool ofNumbers(std::vector<py::object> const& values, KDRVariant& made)
{
    KDRNumberArray array;
    for (py::object const& value : values) {
        KDRNumber number(0);
        if (!readNumber(value, number))
            return false;
        array.push_back(number);
        array.replace(array.length() - 1, number);
    }
    made = KDRVariant(array);
    return true;
}

template <class Array, class Element, class Test, class Convert>
bool ofEach(std::vector<py::object> const& values, Test const& test, Convert const& convert,
            KDRVariant& made)
{
    if (!std::all_of(values.begin(), values.end(), test))
        return false;
    Array array;
    for (py::object const& value : values)
        array.push_back(convert(value));
    made = KDRVariant(array);
    return true;
}

KDRVariant ofList(py::handle list)
{
    std::vector<py::object> values;
    for (py::handle const value : list)
        values.push_back(unpacked(value));
    KDRVariant made;
    if (!values.empty()) {
        auto const flag = [](py::object const& value) { return value.is(py::bool_(true)); };
        auto const text = [](py::object const& value) { return toString(value, "Variant"); };
        auto const bytes = [](py::object const& value) { return toBuffer(value, "Variant"); };
        if (ofEach<KDRBoolArray, bool>(values, &isFlag, flag, made) || ofNumbers(values, made) ||
            ofEach<KDRStringArray, KDRString>(values, &isText, text, made) ||
            ofEach<KDRBufferArray, KDRBuffer>(values, &isBytes, bytes, made) ||
            allOf<KDRPointArray, KDRPoint>(values, made) ||
            allOf<KDRImageArray, KDRImage>(values, made) ||
            allOf<KDRShapeArray, KDRShape>(values, made) ||
            allOf<KDRContourArray, KDRContour>(values, made) ||
            allOf<KDRMatrixArray, KDRMatrix>(values, made) ||
            allOf<KDRShape3DArray, KDRShape3D>(values, made))
            return made;
    }
    KDRVariantArray array;
    for (py::object const& value : values)
        array.push_back(variantOf(value));
    return array;
}

// --- equality ------------------------------------------------------------------------------------

bool samePixels(KDRImage const& one, KDRImage const& other)
{
    if (one.width() != other.width() || one.height() != other.height() ||
        one.channel() != other.channel() || one.depth() != other.depth())
        return false;
    if (one.dataPtr() == other.dataPtr())
        return true;
    // Pixels lie row behind row.
    return std::memcmp(one.dataPtr(), other.dataPtr(),
                       static_cast<std::size_t>(one.step()) *
                           static_cast<std::size_t>(one.height())) == 0;
}

QByteArray savedBytes(KDRVariant const& value)
{
    KDRBuffer bytes;
    kdrio::Error error;
    if (!kdrio::toBytes(value, &bytes, &error)) {
        py::gil_scoped_acquire const locked;
        raise(error);
    }
    return kdrio::inside::bytes(bytes);
}

bool sameElements(KDRVariantArray const& one, KDRVariantArray const& other, int depth);

// What is nested deeper than this cannot be saved either.
constexpr int mostDepth = 512;

bool same(KDRVariant const& one, KDRVariant const& other, int depth = 0)
{
    if (depth > mostDepth) {
        py::gil_scoped_acquire const locked;
        PyErr_SetString(PyExc_RecursionError, "variants nested too deeply to be compared");
        throw py::error_already_set();
    }
    if (one.variantType() != other.variantType())
        return false;
    if (&kdrio::inside::store(one) == &kdrio::inside::store(other))
        return true;
    KDRImage image;
    KDRImageArray images;
    KDRVariantArray array;
    if (one.toImage(&image)) {
        KDRImage second;
        return other.toImage(&second) && samePixels(image, second);
    }
    if (one.toImageArray(&images)) {
        KDRImageArray others;
        if (!other.toImageArray(&others) || images.length() != others.length())
            return false;
        KDRImage second;
        for (int i = 0; i < images.length(); ++i) {
            images.select(i, &image);
            others.select(i, &second);
            if (!samePixels(image, second))
                return false;
        }
        return true;
    }
    if (one.toVariantArray(&array)) {
        KDRVariantArray others;
        return other.toVariantArray(&others) && sameElements(array, others, depth + 1);
    }
    return savedBytes(one) == savedBytes(other);
}

bool sameElements(KDRVariantArray const& one, KDRVariantArray const& other, int depth)
{
    QList<KDRVariant> const& elements = kdrio::inside::elements(one);
    QList<KDRVariant> const& others = kdrio::inside::elements(other);
    if (elements.size() != others.size())
        return false;
    for (int i = 0; i < elements.size(); ++i)
        if (!same(elements.at(i), others.at(i), depth))
            return false;
    return true;
}

// --- to Python -----------------------------------------------------------------------------------

template <class Array, class Element>
py::list listOf(Array const& array)
{
    py::list made;
    Element element{};
    for (int i = 0; i < array.length(); ++i) {
        array.select(i, &element);
        made.append(toPython(element));
    }
    return made;
}

py::object kindOf(KDRVariant const& self)
{
    static py::handle const kinds =
        py::object(py::module_::import("kdrdata").attr("Kind")).release();
    return kinds(self.variantType());
}

} // namespace

KDRVariant variantOf(py::handle value)
{
    Depth const depth;
    if (py::isinstance<KDRVariant>(value))
        return value.cast<KDRVariant const&>();
    if (value.is_none())
        return {};
    if (isFlag(value))
        return KDRVariant(value.is(py::bool_(true)));
    if (isText(value))
        return KDRVariant(toString(value, "Variant"));
    if (isBytes(value))
        return KDRVariant(toBuffer(value, "Variant"));
    if (PyList_Check(value.ptr()) || PyTuple_Check(value.ptr()))
        return ofList(value);
    if (isArray(value))
        return ofArray(value);
    KDRVariant made;
    if (ofClass(value, made))
        return made;
    py::object const plain = unpacked(value);
    if (!plain.is(value))
        return variantOf(plain);
    KDRNumber number(0);
    if (!readNumber(value, number))
        raiseWrongType("Variant",
                       "None, flags, numbers, texts, bytes, arrays, lists and the classes of this "
                       "package that a variant can hold",
                       value);
    return Carried<KDRNumber>::pack(number);
}

py::object contentOf(KDRVariant const& value)
{
    KDRVariant held = value;
    switch (held.variantType()) {
    case KindBool: {
        bool flag = false;
        return held.toBool(&flag) ? py::object(py::bool_(flag)) : py::none();
    }
    // No operation reads one, nor tells whether it is there; it holds nothing.
    case KindContour3D:
        return py::cast(std::make_unique<KDRContour3D>());
#define KDRPYTHON_CONTENT(Kind, Payload, Name, ...)                                                \
    case Kind: {                                                                                   \
        auto made = std::make_unique<Payload>();                                                   \
        return held.to##Name(made.get()) ? py::cast(std::move(made)) : py::none();                 \
    }
#define KDRPYTHON_CONTENT_READ(Kind, Payload, Name, Constructor, Reader, Pointer, Copying)         \
    KDRPYTHON_CONTENT_##Reader(Kind, Payload, Name)
#define KDRPYTHON_CONTENT_Const(Kind, Payload, Name) KDRPYTHON_CONTENT(Kind, Payload, Name, )
#define KDRPYTHON_CONTENT_NonConst(Kind, Payload, Name) KDRPYTHON_CONTENT(Kind, Payload, Name, )
#define KDRPYTHON_CONTENT_OfContour(Kind, Payload, Name)
        KDR_VARIANT_KINDS(KDRPYTHON_CONTENT_READ)
#undef KDRPYTHON_CONTENT
#undef KDRPYTHON_CONTENT_READ
#undef KDRPYTHON_CONTENT_Const
#undef KDRPYTHON_CONTENT_NonConst
#undef KDRPYTHON_CONTENT_OfContour
    default:
        return py::none();
    }
}

py::object valueOf(KDRVariant const& value)
{
    switch (value.variantType()) {
    case KindNumber: {
        KDRNumber number;
        return value.toNumber(&number) ? toPython(number) : py::none();
    }
    case KindString: {
        KDRString text;
        value.toString(&text);
        return toPython(text);
    }
    case KindBuffer: {
        KDRBuffer bytes;
        value.toBuffer(&bytes);
        return toPython(bytes);
    }
    case KindBoolArray:
    case KindNumberArray: {
        py::object const content = contentOf(value);
        return content.is_none() ? content : content.attr("tolist")();
    }
    case KindStringArray: {
        KDRStringArray texts;
        value.toStringArray(&texts);
        return listOf<KDRStringArray, KDRString>(texts);
    }
    case KindBufferArray: {
        KDRBufferArray all;
        value.toBufferArray(&all);
        return listOf<KDRBufferArray, KDRBuffer>(all);
    }
    case KindVariantArray: {
        Depth const depth;
        KDRVariantArray array;
        value.toVariantArray(&array);
        py::list made;
        for (KDRVariant const& each : kdrio::inside::elements(std::as_const(array)))
            made.append(valueOf(each));
        return made;
    }
    default:
        return contentOf(value);
    }
}

std::string inBrief(KDRVariant const& value)
{
    constexpr int shown = 10;
    KDRNumber number;
    KDRString text;
    KDRVariantArray array;
    if (value.toNumber(&number))
        return inBrief(number);
    if ((value.toString(&text) && !text.isNull()))
        return py::repr(toPython(text));
    if (!value.toVariantArray(&array))
        return py::repr(contentOf(value));
    Depth const depth;
    QList<KDRVariant> const& elements = kdrio::inside::elements(std::as_const(array));
    std::string list;
    for (int i = 0; i < std::min(elements.size(), shown); ++i)
        list += (i > 0 ? ", " : "") + inBrief(elements.at(i));
    if (elements.size() > shown)
        list += ", ... " + std::to_string(elements.size()) + " in all";
    return '[' + list + ']';
}

bool equal(KDRVariant const& one, KDRVariant const& other)
{
    // Handles of their own, which nobody else changes meanwhile.
    KDRVariant const first = one;    // NOLINT(performance-unnecessary-copy-initialization)
    KDRVariant const second = other; // NOLINT(performance-unnecessary-copy-initialization)
    py::gil_scoped_release const unlocked;
    return same(first, second);
}

void bindVariant(py::module_& m)
{
    // NumPy is looked up once here, where a failure to import it is told.
    py::module_::import("numpy");

    py::class_<KDRVariant> cls(
        m, "Variant", R"(The value in which every parameter and result travels, of one of 42 kinds.

A variant never changes. It is a handle: copies by copy.copy, the elements of lists and
Variant(variant) share one store and copy nothing; what content and value give are copies, whose
pixels an image shares with the variant. Variants are equal where they hold the same.)");
    cls.def(py::init([](py::object const& value) { return variantOf(value); }),
            py::arg("value") = py::none(), R"(The variant of a value.

None gives the empty variant; True and False flags; int (of 64 bits; OverflowError beyond) and float
numbers; str texts; bytes, bytearray and memoryview bytes; scalars of NumPy what they stand for. Every
class of the package that has a kind gives it, with all of its value, and a Region the shape of it.

Arrays of NumPy are copied. Of one dimension: flags give a BoolArray, numbers a NumberArray. Of two:
flags give the shape of a region, uint8 and uint16 an Image, int8, int16, int32, float32 and float64 a
Matrix. Of three: an Image of one of these types. ValueError for other arrays.

Lists and tuples: of flags alone give a BoolArray, of numbers a NumberArray, of texts a StringArray, of
bytes a BufferArray, of one class of the package its array; everything else, and the empty list, a
VariantArray of what the elements give.)");
    cls.def_property_readonly("kind", &kindOf, "The kind of the value, a Kind.");
    cls.def_property_readonly("value", &valueOf,
                              "The value as Python has it: None, bool, int, float, str, bytes, a "
                              "list, or an object of the package. Null texts and bytes are None.");
    cls.def_property_readonly(
        "content", &contentOf,
        "A copy of the value as an object of the package's own class: a Number "
        "with its range, a NumberArray... None of the empty variant, and "
        "where clone() lost the contents.");
    cls.def(
        "attribute", [](KDRVariant self) { return textOf(self.attribute()); },
        "A short text with the kind and the range of a number, a text or a point; empty for "
        "others.");
    cls.def(
        "clone", &KDRVariant::clone, py::call_guard<py::gil_scoped_release>(),
        "A variant with a store of its own. What the class of the value shares when it is "
        "assigned (texts, lists, pixels) stays shared; point clouds, three-dimensional contours "
        "and their arrays keep the kind and lose the contents.");
    cls.def(
        "shares_with",
        [](KDRVariant const& self, KDRVariant const& other) {
            return &kdrio::inside::store(self) == &kdrio::inside::store(other);
        },
        py::arg("other"), "Whether both are handles on one store.");
    cls.def("__repr__", [](KDRVariant const& self) {
        return "Variant(" + (self.variantType() == KindNone ? "" : inBrief(self)) + ')';
    });
    bindEquality(cls);
    bindPickling(cls);

    bindSequence<KDRVariantArray, KDRVariant>(
        m, "VariantArray",
        "A list of variants. It takes whatever Variant takes; its elements share their stores.");
}

} // namespace kdrpython
