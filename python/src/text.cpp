#include "text.h"
#include "define.h"

#include "errors.h"
#include "items.h"
#include "pickling.h"
#include "sequence.h"

#include <kdrdata/text/kdrbufferarray.h>
#include <kdrdata/text/kdrchar.h>
#include <kdrdata/text/kdrregexp.h>
#include <kdrdata/text/kdrstringarray.h>
#include <kdrio/inside_p.h>

#include <limits>

namespace kdrpython {

// An expression is carried as its pattern and its options.
template <>
struct Carried<KDRRegExp>
{
    static KDRVariant pack(KDRRegExp const& value)
    {
        KDRVariantArray fields;
        fields.push_back(KDRVariant(value.pattern()));
        fields.push_back(KDRVariant(static_cast<int>(value.caseSensitivity())));
        fields.push_back(KDRVariant(static_cast<int>(value.patternSyntax())));
        fields.push_back(KDRVariant(value.isMinimal()));
        return fields;
    }
    static bool unpack(KDRVariant& packed, KDRRegExp& value)
    {
        KDRVariantArray fields;
        if (!packed.toVariantArray(&fields) || fields.length() != 4)
            return false;
        KDRString pattern;
        int caseSensitivity = 0;
        int syntax = 0;
        bool minimal = false;
        if (!fields[0].toString(&pattern) || !fields[1].toInt(&caseSensitivity) ||
            !fields[2].toInt(&syntax) || !fields[3].toBool(&minimal))
            return false;
        value.setPattern(pattern);
        value.setCaseSensitivity(static_cast<KDRRegExp::KDRCaseSensitivity>(caseSensitivity));
        value.setPatternSyntax(static_cast<KDRRegExp::KDRPatternSyntax>(syntax));
        value.setMinimal(minimal);
        return true;
    }
};

namespace {

// Python's own codec, which keeps unpaired surrogates.
QString fromPython(py::str const& text)
{
    // The string is short, in ASCII or not, and then in the form that Python keeps.
    if (PyUnicode_IS_ASCII(text.ptr()))
        return QString::fromLatin1(reinterpret_cast<char const*>(PyUnicode_1BYTE_DATA(text.ptr())),
                                   static_cast<int>(PyUnicode_GET_LENGTH(text.ptr())));
    auto const units = py::reinterpret_steal<py::bytes>(
        PyUnicode_AsEncodedString(text.ptr(), "utf-16-le", "surrogatepass"));
    if (!units)
        throw py::error_already_set();
    // Made from code units as they are: a byte order mark is text here.
    return QString(reinterpret_cast<QChar const*>(PyBytes_AS_STRING(units.ptr())),
                   static_cast<int>(PyBytes_GET_SIZE(units.ptr()) / 2));
}

void mustBeCountable(py::ssize_t length)
{
    if (length > std::numeric_limits<int>::max() / 2)
        throw std::bad_alloc();
}

KDRBuffer bufferOf(py::handle bytes)
{
    Py_buffer view{};
    if (PyObject_GetBuffer(bytes.ptr(), &view, PyBUF_FULL_RO) != 0)
        throw py::error_already_set();
    auto const release = std::unique_ptr<Py_buffer, void (*)(Py_buffer*)>(&view, PyBuffer_Release);
    if (view.len > std::numeric_limits<int>::max() - 64)
        throw std::bad_alloc();
    auto const size = static_cast<int>(view.len);
    if (PyBuffer_IsContiguous(&view, 'C') != 0)
        return KDRBuffer(size > 0 ? static_cast<char const*>(view.buf) : "", size);
    KDRBuffer made(size, '\0');
    if (PyBuffer_ToContiguous(made.data(), &view, view.len, 'C') != 0)
        throw py::error_already_set();
    return made;
}

void bindString(py::module_& m)
{
    py::class_<KDRString> cls(m, "String", R"(A text, or null, which is no text at all.

str(text) gives it to Python; null reads as "" there. Operations that take a text take str, too, and
None for null. Texts are what texts are: equal where the characters are, null and empty among them.)");
    cls.def(py::init([](py::object const& text) { return toString(text, "String"); }),
            py::arg("text") = py::none(), "The text; null where there is none.");
    cls.def_property_readonly("is_null", &KDRString::isNull, "Whether there is no text at all.");
    cls.def_property_readonly(
        "value", [](KDRString const& self) { return toPython(self); },
        "The text as str, None where it is null.");
    cls.def("__str__", [](KDRString const& self) {
        return self.isNull() ? py::object(py::str("")) : toPython(self);
    });
    cls.def("__repr__", [](KDRString const& self) {
        return "String(" + std::string(py::repr(toPython(self))) + ')';
    });
    cls.def(
        "__len__", [](KDRString const& self) { return py::len(py::str(py::cast(self))); },
        "The number of characters.");
    cls.def(
        "__eq__",
        [](KDRString const& self, py::object const& other) -> py::object {
            if (!py::isinstance<KDRString>(other) && !py::isinstance<py::str>(other))
                return notImplemented();
            return py::bool_(self == toString(other, "String"));
        },
        py::arg("other"));
    cls.def("__hash__", [](KDRString const& self) {
        return py::hash(self.isNull() ? py::object(py::str("")) : toPython(self));
    });
    bindPickling(cls);
}

// A view of the bytes that keeps them: the handle's share of them is all that is needed.
class BytesView
{
public:
    BytesView() = default;
    explicit BytesView(KDRBuffer const& bytes) : kept(bytes) {}

    py::buffer_info info() const
    {
        KDRBuffer const& bytes = kept;
        return {const_cast<char*>(bytes.constData()),
                1,
                py::format_descriptor<unsigned char>::format(),
                1,
                {static_cast<py::ssize_t>(bytes.size())},
                {1},
                true};
    }

private:
    KDRBuffer kept;
};

// Objects that __init__() was not called for are null: where Python asks for a view, nothing can be
// raised.
template <class Class>
void giveValue()
{
    py::detail::get_type_info(typeid(Class))->operator_new = [](std::size_t) -> void* {
        return new Class();
    };
}

void bindBuffer(py::module_& m)
{
    // Only for views; nobody makes one.
    py::class_<BytesView>(m, "_BytesView", py::buffer_protocol()).def_buffer(&BytesView::info);
    giveValue<BytesView>();

    py::class_<KDRBuffer> cls(m, "Buffer", py::buffer_protocol(), R"(Bytes, or null.

bytes(buffer), memoryview(buffer) and numpy.frombuffer(buffer, ...) read them; views do so where they
are and keep them.)");
    giveValue<KDRBuffer>();
    cls.def(py::init([](py::object const& bytes) { return toBuffer(bytes, "Buffer"); }),
            py::arg("data") = py::none(), "A copy of the bytes; null where there are none.");
    cls.def_buffer([](KDRBuffer const& self) { return BytesView(self).info(); });
    cls.def_property_readonly("is_null", &KDRBuffer::isNull, "Whether there are no bytes at all.");
    cls.def_property_readonly(
        "value", [](KDRBuffer const& self) { return toPython(self); },
        "A copy as bytes, None where they are null.");
    cls.def(
        "view", [](KDRBuffer const& self) { return py::memoryview(py::cast(BytesView(self))); },
        "A view of the bytes, read-only, which stays what it is.");
    cls.def("__bytes__", [](KDRBuffer const& self) {
        return py::bytes(self.constData(), static_cast<std::size_t>(self.size()));
    });
    cls.def("__len__", [](KDRBuffer const& self) { return self.size(); });
    cls.def("__repr__", [](KDRBuffer const& self) {
        constexpr int shown = 32;
        if (self.isNull())
            return std::string("Buffer(None)");
        KDRBuffer const first = self.left(shown);
        std::string const text =
            py::repr(py::bytes(first.constData(), static_cast<std::size_t>(first.size())));
        return "Buffer(" + text +
               (self.size() > shown ? ", ... " + std::to_string(self.size()) + " in all)" : ")");
    });
    cls.def(
        "__eq__",
        [](KDRBuffer const& self, py::object const& other) -> py::object {
            if (!py::isinstance<KDRBuffer>(other) && !py::isinstance<py::bytes>(other))
                return notImplemented();
            return py::bool_(kdrio::inside::bytes(self) ==
                             kdrio::inside::bytes(toBuffer(other, "Buffer")));
        },
        py::arg("other"));
    cls.def("__hash__", [](KDRBuffer const& self) {
        return py::hash(py::bytes(self.constData(), static_cast<std::size_t>(self.size())));
    });
    bindPickling(cls);
}

void bindChar(py::module_& m)
{
    py::class_<KDRChar> cls(m, "Char", R"(One code unit of a text in UTF-16.)");
    cls.def(py::init<>(), "The character of the code 0.");
    cls.def(py::init([](py::str const& text) {
                QString const units = fromPython(text);
                if (units.size() != 1)
                    throw py::value_error("Char takes a text of one code unit");
                return KDRChar(static_cast<unsigned short>(units.at(0).unicode()));
            }),
            py::arg("text"), "The character of a text of one.");
    cls.def(py::init([](int code) {
                if (code < 0 || code > std::numeric_limits<unsigned short>::max())
                    throw py::value_error("Char takes a code from 0 to 65535");
                return KDRChar(static_cast<unsigned short>(code));
            }),
            py::arg("code"), "The character of a code.");
    cls.def_property_readonly(
        "code", [](KDRChar const& self) { return self.unicode(); }, "The code, 0 to 65535.");
    auto const text = [](KDRChar const& self) { return toPython(KDRString(self)); };
    cls.def("__str__", text);
    cls.def("__repr__", [text](KDRChar const& self) {
        return "Char(" + std::string(py::repr(text(self))) + ')';
    });
    cls.def(
        "__eq__",
        [](KDRChar const& self, py::object const& other) -> py::object {
            if (!py::isinstance<KDRChar>(other))
                return notImplemented();
            return py::bool_(self.unicode() == other.cast<KDRChar const&>().unicode());
        },
        py::arg("other"));
    cls.def("__hash__", [](KDRChar const& self) { return py::hash(py::int_(self.unicode())); });
    bindPickling(cls);
}

struct Syntax
{
    char const* name;
    KDRRegExp::KDRPatternSyntax code;
};
constexpr Syntax syntaxes[] = {
    {"regexp", KDRRegExp::KDRRegExpSyntax},
    {"wildcard", KDRRegExp::KDRWildcardSyntax},
    {"fixed", KDRRegExp::KDRFixedStringSyntax},
    {"regexp2", KDRRegExp::KDRRegExp2Syntax},
    {"wildcard-unix", KDRRegExp::KDRWildcardUnixSyntax},
    {"xml-schema", KDRRegExp::KDRW3CXmlSchema11Syntax},
};

KDRRegExp::KDRPatternSyntax syntaxOf(std::string const& name)
{
    std::string known;
    for (Syntax const& each : syntaxes) {
        if (name == each.name)
            return each.code;
        known += (known.empty() ? "" : ", ") + std::string(each.name);
    }
    throw py::value_error("no such syntax '" + name + "'; there are " + known);
}

std::string nameOf(KDRRegExp::KDRPatternSyntax code)
{
    for (Syntax const& each : syntaxes)
        if (code == each.code)
            return each.name;
    return syntaxes[0].name;
}

void bindRegExp(py::module_& m)
{
    py::class_<KDRRegExp> cls(m, "RegExp", R"(A regular expression and the state of its last match.

Positions and lengths count code units of UTF-16. Every search leaves its match in the expression; a
copy has the match that there is at that moment, and a pickle has none.)");
    cls.def(py::init([](py::object const& pattern, bool caseSensitive, std::string const& syntax,
                        bool minimal) {
                auto made = std::make_unique<KDRRegExp>(
                    toString(pattern, "RegExp"),
                    caseSensitive ? KDRRegExp::KDRCaseSensitive : KDRRegExp::KDRCaseInsensitive,
                    syntaxOf(syntax));
                made->setMinimal(minimal);
                return made;
            }),
            py::arg("pattern") = "", py::kw_only(), py::arg("case_sensitive") = true,
            py::arg("syntax") = "regexp", py::arg("minimal") = false,
            "The expression of a pattern. The syntax is one of regexp, wildcard, fixed, regexp2, "
            "wildcard-unix and xml-schema; minimal quantifiers match as little as they can.");
    cls.def_property_readonly(
        "pattern", [](KDRRegExp const& self) { return toPython(self.pattern()); },
        "The pattern as it was given.");
    cls.def_property_readonly(
        "case_sensitive",
        [](KDRRegExp const& self) { return self.caseSensitivity() == KDRRegExp::KDRCaseSensitive; },
        "Whether letters match in their own case alone.");
    cls.def_property_readonly(
        "syntax", [](KDRRegExp const& self) { return nameOf(self.patternSyntax()); },
        "How the pattern is read.");
    cls.def_property_readonly("minimal", &KDRRegExp::isMinimal,
                              "Whether quantifiers match as little as they can.");
    cls.def_property_readonly("is_valid", &KDRRegExp::isValid,
                              "Whether the pattern is well-formed; others match nothing.");
    cls.def_property_readonly(
        "error", [](KDRRegExp const& self) { return textOf(self.errorString()); },
        "What is wrong with the pattern, in words.");
    cls.def(
        "index_in",
        [](KDRRegExp const& self, py::object const& text, int offset) {
            return self.indexIn(toString(text, "index_in"), offset);
        },
        py::arg("text"), py::arg("offset") = 0,
        "The position of the first match at or after the offset, or -1.");
    cls.def(
        "last_index_in",
        [](KDRRegExp const& self, py::object const& text, int offset) {
            return self.lastIndexIn(toString(text, "last_index_in"), offset);
        },
        py::arg("text"), py::arg("offset") = -1,
        "The position of the last match that begins at or before the offset, or -1.");
    cls.def(
        "exact_match",
        [](KDRRegExp const& self, py::object const& text) {
            return self.exactMatch(toString(text, "exact_match"));
        },
        py::arg("text"), "Whether the whole text matches.");
    cls.def_property_readonly("matched_length", &KDRRegExp::matchedLength,
                              "The length of the last match, or -1.");
    cls.def_property_readonly("capture_count", &KDRRegExp::captureCount,
                              "How many groups of the pattern capture.");
    cls.def(
        "cap", [](KDRRegExp const& self, int group) { return toPython(self.cap(group)); },
        py::arg("group") = 0, "What a group captured in the last match, or None; 0 is all of it.");
    cls.def("pos", &KDRRegExp::pos, py::arg("group") = 0,
            "Where a group of the last match begins, or -1; 0 is all of it.");
    cls.def_property_readonly("captured_texts", &KDRRegExp::capturedTexts,
                              "What the groups captured, the whole match first.");
    cls.def("__repr__", [](KDRRegExp const& self) {
        return "RegExp(" + std::string(py::repr(toPython(self.pattern()))) + ')';
    });
    cls.def(
        "__eq__",
        [](KDRRegExp const& self, py::object const& other) -> py::object {
            if (!py::isinstance<KDRRegExp>(other))
                return notImplemented();
            return py::bool_(self == other.cast<KDRRegExp const&>());
        },
        py::arg("other"));
    cls.attr("__hash__") = py::none();
    bindPickling(cls);
}

} // namespace

py::object toPython(KDRString const& text)
{
    if (text.isNull())
        return py::none();
    QString const& units = kdrio::inside::text(text);
    int order = -1;
    PyObject* const made =
        PyUnicode_DecodeUTF16(reinterpret_cast<char const*>(units.utf16()),
                              static_cast<py::ssize_t>(units.size()) * 2, "surrogatepass", &order);
    if (!made)
        throw py::error_already_set();
    return py::reinterpret_steal<py::object>(made);
}

std::string textOf(KDRString const& text) { return kdrio::inside::text(text).toStdString(); }

KDRString toString(py::handle text, char const* where)
{
    if (text.is_none())
        return KDRString();
    if (py::isinstance<KDRString>(text))
        return text.cast<KDRString const&>();
    if (!py::isinstance<py::str>(text))
        raiseWrongType(where, "a text", text);
    auto const given = py::reinterpret_borrow<py::str>(text);
    mustBeCountable(PyUnicode_GET_LENGTH(given.ptr()));
    QString units = fromPython(given);
    return kdrio::inside::fromText(units.isNull() ? QString(QLatin1String("")) : units);
}

py::object toPython(KDRBuffer const& bytes)
{
    if (bytes.isNull())
        return py::none();
    return py::bytes(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

KDRBuffer toBuffer(py::handle bytes, char const* where)
{
    if (bytes.is_none())
        return KDRBuffer();
    if (py::isinstance<KDRBuffer>(bytes))
        return bytes.cast<KDRBuffer const&>();
    if (!PyObject_CheckBuffer(bytes.ptr()))
        raiseWrongType(where, "bytes", bytes);
    return bufferOf(bytes);
}

std::string encodedPath(py::handle path)
{
    auto name = py::module_::import("os").attr("fsencode")(path).cast<std::string>();
    if (name.find('\0') != std::string::npos)
        throw py::value_error("embedded null byte in the name of a file");
    return name;
}

KDRString toPath(py::handle path)
{
    std::string const name = encodedPath(path);
    KDRString made;
    made.fromLocal8Bit(name.c_str(), static_cast<int>(name.size()));
    KDRBuffer const back = made.toLocal8Bit();
    // The library gives names to the system in the local encoding, with '?' for what that lacks.
    if (name.compare(0, std::string::npos, back.constData(),
                     static_cast<std::size_t>(back.size())) != 0)
        throw py::value_error("the local encoding does not have this name of a file");
    return made;
}

void bindText(py::module_& m)
{
    bindString(m);
    bindBuffer(m);
    bindChar(m);
    bindSequence<KDRStringArray, KDRString>(
        m, "StringArray", "A list of texts: its elements are str, or None for null.");
    bindSequence<KDRBufferArray, KDRBuffer>(
        m, "BufferArray", "A list of bytes: its elements are bytes, or None for null.");
    bindRegExp(m);
}

} // namespace kdrpython
