#include "errors.h"
#include "text.h"
#include "value.h"

#include <kdrio/inside_p.h>
#include <kdrio/kdrio.h>
#include <page/failure.h>
#include <valuepage.h>

#include <QtCore/qfile.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace kdrpython {

namespace {

kdrio::Limits limitsOf(py::handle limits)
{
    if (limits.is_none())
        return {};
    if (!py::isinstance<kdrio::Limits>(limits))
        raiseWrongType("limits", "Limits or None", limits);
    return limits.cast<kdrio::Limits const&>();
}

kdrio::SaveOptions optionsOf(std::string const& pixels)
{
    kdrio::SaveOptions options;
    if (pixels == "smaller")
        options.pixels = kdrio::Pixels::Smaller;
    else if (pixels != "raw")
        throw py::value_error("pixels are \"raw\" or \"smaller\", not \"" + pixels + '"');
    return options;
}

// Does the work without the interpreter's lock; raises what it says where it fails.
template <class Work>
void unlocked(Work const& work)
{
    kdrio::Error error;
    bool done = false;
    {
        py::gil_scoped_release const released;
        done = work(&error);
    }
    if (!done)
        raise(error);
}

// The file, open for reading, or an OSError.
void open(QFile& file, py::handle path)
{
    std::string const name = encodedPath(path);
    int descriptor = -1;
    int number = 0;
    {
        py::gil_scoped_release const released;
        descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
        number = errno;
        struct stat about
        {
        };
        if (descriptor >= 0 && ::fstat(descriptor, &about) == 0 && S_ISDIR(about.st_mode)) {
            ::close(descriptor);
            descriptor = -1;
            number = EISDIR;
        }
    }
    if (descriptor < 0)
        raiseSystemError(number, path);
    if (!file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        raiseSystemError(EIO, path);
    }
}

KDRVariant load(py::object const& path, py::object const& limits)
{
    kdrio::Limits const accepted = limitsOf(limits);
    KDRString const name = toPath(path);
    QFile file;
    open(file, path);
    KDRVariant value;
    unlocked([&](kdrio::Error* error) {
        bool const done = kdrio::load(&file, &value, error, accepted);
        error->file = name;
        file.close();
        return done;
    });
    return value;
}

// The number of what the system says in words, 0 where it is not the system that speaks.
int numberOf(std::string const& what)
{
    constexpr int most = 133;
    for (int number = 1; number <= most; ++number)
        if (what == std::strerror(number))
            return number;
    return 0;
}

void save(py::object const& value, py::object const& path, std::string const& pixels)
{
    KDRVariant const saved = variantOf(value);
    kdrio::SaveOptions const options = optionsOf(pixels);
    KDRString const name = toPath(path);
    kdrio::Error error;
    bool done = false;
    {
        py::gil_scoped_release const released;
        done = kdrio::save(saved, name, options, &error);
    }
    if (done)
        return;
    if (error.offset < 0 && error.path.size() == 0) {
        if (py::module_::import("os").attr("path").attr("isdir")(path).cast<bool>())
            raiseSystemError(EISDIR, path);
        if (name.size() == 0)
            raiseSystemError(ENOENT, path);
        if (int const number = numberOf(textOf(error.what)); number != 0)
            raiseSystemError(number, path);
    }
    raise(error);
}

py::bytes toBytes(py::object const& value, std::string const& pixels)
{
    KDRVariant const saved = variantOf(value);
    kdrio::SaveOptions const options = optionsOf(pixels);
    KDRBuffer bytes;
    unlocked([&](kdrio::Error* error) { return kdrio::toBytes(saved, &bytes, options, error); });
    return py::bytes(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

KDRVariant fromBytes(py::buffer const& data, py::object const& limits)
{
    kdrio::Limits const accepted = limitsOf(limits);
    Py_buffer view{};
    if (PyObject_GetBuffer(data.ptr(), &view, PyBUF_CONTIG_RO) != 0)
        throw py::error_already_set();
    auto const release = std::unique_ptr<Py_buffer, void (*)(Py_buffer*)>(&view, PyBuffer_Release);
    if (view.len > std::numeric_limits<int>::max())
        throw py::value_error("bytes in memory are less than 2 GiB; load() reads larger files");
    // They stay the caller's, who holds them for so long.
    KDRBuffer const bytes = KDRBuffer::fromRawData(
        view.len > 0 ? static_cast<char const*>(view.buf) : "", static_cast<int>(view.len));
    KDRVariant value;
    unlocked([&](kdrio::Error* error) { return kdrio::fromBytes(bytes, &value, error, accepted); });
    return value;
}

std::string toJson(py::object const& value, int longest, bool compact)
{
    KDRVariant const shown = variantOf(value);
    kdrio::JsonOptions options;
    options.longest = longest;
    options.compact = compact;
    KDRString text;
    {
        py::gil_scoped_release const released;
        text = kdrio::toJson(shown, options);
    }
    // Why it cannot be written is what toBytes() says.
    if (text.isNull()) {
        KDRBuffer bytes;
        unlocked([&](kdrio::Error* error) { return kdrio::toBytes(shown, &bytes, error); });
    }
    return textOf(text);
}

std::string toHtml(py::object const& value, std::string const& title)
{
    KDRVariant const shown = variantOf(value);
    std::string failure;
    {
        py::gil_scoped_release const released;
        try {
            return kdrdump::pageOf(shown, title);
        } catch (page::Failure const& why) {
            failure = why.what();
        }
    }
    kdrio::Error error;
    error.what = KDRString(failure.c_str());
    raise(error);
}

void bindLimits(py::module_& m)
{
    using kdrio::Limits;
    py::class_<Limits> cls(m, "Limits",
                           "What loading accepts. What goes beyond is refused before anything is "
                           "allocated for it.");
    Limits const usual;
    cls.def(py::init([](int nesting, long long bytes, long long elements, long long pixels) {
                Limits made;
                made.nesting = nesting;
                made.bytes = bytes;
                made.elements = elements;
                made.pixels = pixels;
                return made;
            }),
            py::kw_only(), py::arg("nesting") = usual.nesting, py::arg("bytes") = usual.bytes,
            py::arg("elements") = usual.elements, py::arg("pixels") = usual.pixels);
    cls.def_readwrite("nesting", &Limits::nesting,
                      "Variants inside of variants; never more than 512, whatever is set.");
    cls.def_readwrite("bytes", &Limits::bytes, "Bytes of the input.");
    cls.def_readwrite("elements", &Limits::elements,
                      "Elements of lists, matrices and regions, all together.");
    cls.def_readwrite("pixels", &Limits::pixels, "Pixels of images, all together.");
    cls.def("__repr__", [](Limits const& self) {
        return "Limits(nesting=" + std::to_string(self.nesting) +
               ", bytes=" + std::to_string(self.bytes) +
               ", elements=" + std::to_string(self.elements) +
               ", pixels=" + std::to_string(self.pixels) + ')';
    });
}

} // namespace

void bindIo(py::module_& m)
{
    bindLimits(m);
    m.def("load", &load, py::arg("path"), py::arg("limits") = py::none(),
          "Reads a saved value. Raises OSError for the file, Error for what is in it.");
    m.def("save", &save, py::arg("value"), py::arg("path"), py::arg("pixels") = "raw",
          "Writes whatever Variant takes to a file, which appears complete or not at all. With "
          "pixels=\"smaller\" they are written as PNG where that is smaller and loses nothing. "
          "Raises OSError for the file, Error for what cannot be saved.");
    m.def("to_bytes", &toBytes, py::arg("value"), py::arg("pixels") = "raw",
          "The bytes that save() writes.");
    m.def("from_bytes", &fromBytes, py::arg("data"), py::arg("limits") = py::none(),
          "The value that to_bytes() made bytes of, or save() a file.");
    m.def("to_json", &toJson, py::arg("value"), py::arg("longest") = 64, py::arg("compact") = false,
          "The value as JSON, to be read and compared by eye and by diff. Lists, bytes and pixels "
          "of more than the longest stand there as their size and a checksum; a negative number "
          "writes all of them out.");
    m.def("to_html", &toHtml, py::arg("value"), py::arg("title") = "value",
          "The value as one page for the browser, which needs nothing beside it: pictures with "
          "figures over them, tables of numbers, and a tree.");
}

} // namespace kdrpython
