#include "elements.h"
#include "errors.h"
#include "module.h"
#include "owner.h"
#include "pickling.h"
#include "pictures.h"
#include "sequence.h"
#include "text.h"

#include <kdrdata/vision/kdrimage.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrio/inside_p.h>

#include <veldata/velimage.h>

#include <climits>

namespace kdrpython {

namespace {

KDRImage newImage(py::ssize_t width, py::ssize_t height, py::ssize_t channels,
                  py::object const& dtype)
{
    int const code = codeOf(dtype);
    if (width < 1 || height < 1 || channels < 1 || channels > mostChannels || width > INT_MAX ||
        height > INT_MAX)
        throw py::value_error("an image has at least one row and one column, and 1 to 4 channels");
    KDRImage image;
    int made = 0;
    {
        py::gil_scoped_release const unlocked;
        made =
            image.GenImageExt(nullptr, static_cast<int>(width), static_cast<int>(height),
                              static_cast<int>(channels), 0, static_cast<KDRImage::DataType>(code));
    }
    if (made == 0) {
        PyErr_Format(PyExc_MemoryError, "no memory for an image of %zd x %zd pixels", width,
                     height);
        throw py::error_already_set();
    }
    return image;
}

// The array keeps an image of its own, which shares the pixels.
py::array pixelsOf(KDRImage const& image)
{
    if (!image.dataPtr())
        return viewOver(image.depth(), {0, 0, 0}, {}, nullptr, {});
    py::ssize_t const bytes = dtypeOf(image.depth()).itemsize();
    return viewOver(image.depth(), {image.height(), image.width(), image.channel()},
                    {py::ssize_t(image.step()), bytes * image.channel(), bytes}, image.dataPtr(),
                    keeping(image));
}

struct Extent
{
    int width;
    int height;
    int channels;
};

Extent extentOf(py::array const& array)
{
    constexpr py::ssize_t most = 1 << 30;
    bool const isPlane = array.ndim() == 2;
    if (!isPlane && array.ndim() != 3)
        throw py::value_error(
            "an image has the shape (height, width) or (height, width, channels)");
    py::ssize_t const channels = isPlane ? 1 : array.shape(2);
    if (array.size() == 0 || channels > mostChannels || array.shape(0) > most ||
        array.shape(1) > most)
        throw py::value_error("an image has at least one row and one column, and 1 to 4 channels");
    return {static_cast<int>(array.shape(1)), static_cast<int>(array.shape(0)),
            static_cast<int>(channels)};
}

// A copy by NumPy, which reads rows of any strides and lets other threads run meanwhile.
KDRImage imageOfCopy(py::array const& array)
{
    int code = 0;
    Extent const extent = extentOf(array);
    py::array const known = withKnownElements(array, &code);
    KDRImage image = newImage(extent.width, extent.height, extent.channels, dtypeOf(code));
    py::object const rows = known.attr("reshape")(extent.height, extent.width, extent.channels);
    py::module_::import("numpy").attr("copyto")(pixelsOf(image), rows);
    return image;
}

KDRImage imageOver(py::array const& array)
{
    requireUsableMemory(array);
    Extent const extent = extentOf(array);
    KDRImage image;
    void* const owner = ownerOf(array);
    int const made = KDRInternal::wrapped(image).CreateImageOver(
        static_cast<unsigned char*>(py::array(array).mutable_data()), extent.width, extent.height,
        extent.channels, codeOf(array.dtype()), releaseOwner, owner);
    if (made == 0) {
        releaseOwner(owner);
        throw py::value_error("the core library makes no image over this array");
    }
    return image;
}

KDRImage imageFromArray(py::object const& array, bool copy)
{
    if (py::isinstance<py::array>(array))
        return copy ? imageOfCopy(array) : imageOver(array);
    if (!copy)
        throw py::type_error("only the memory of an array can be used");
    return imageOfCopy(py::array(array));
}

[[noreturn]] void raiseFileError(std::string const& what, py::handle path)
{
    PyErr_SetString(PyExc_OSError, (what + ": " + py::str(path).cast<std::string>()).c_str());
    throw py::error_already_set();
}

KDRImage readFrom(py::object const& path)
{
    KDRString const name = toPath(path);
    KDRImage image;
    int read = 0;
    {
        py::gil_scoped_release const unlocked;
        read = image.read(name);
    }
    if (read != 0)
        return image;
    // Where the system lets nobody read, it says why.
    py::module_::import("io").attr("open")(path, "rb").attr("close")();
    raiseFileError("not a picture that can be read", path);
}

void saveTo(KDRImage const& image, py::object const& path, int effort)
{
    if (!image.dataPtr())
        throw py::value_error("an image without pixels cannot be saved");
    KDRString const name = toPath(path);
    KDRImage shared(image);
    int saved = 0;
    {
        py::gil_scoped_release const unlocked;
        saved = shared.save(name, effort);
    }
    if (saved == 0)
        raiseFileError("the picture cannot be written: no such directory, no permission, or no "
                       "format of that extension with such pixels",
                       path);
}

KDRImage cloneOf(KDRImage const& image)
{
    KDRImage copy = KDRImage(image).clone();
    if (image.dataPtr() && !copy.dataPtr())
        throw std::bad_alloc();
    return copy;
}

std::string imageText(KDRImage const& image)
{
    if (!image.dataPtr())
        return "<kdrdata.Image without pixels>";
    return "<kdrdata.Image " + std::to_string(image.width()) + " x " +
           std::to_string(image.height()) + ", " + std::to_string(image.channel()) +
           (image.channel() == 1 ? " channel, " : " channels, ") +
           py::str(py::handle(dtypeOf(image.depth()))).cast<std::string>() + ">";
}

} // namespace

void bindImage(py::module_& m)
{
    py::class_<KDRImage> image(m, "Image", R"(An image: rows of pixels, the top row first.

Colour pixels are ordered blue, green, red and, with four channels, alpha. Copies
(``copy.copy``, elements of lists, the value of a variant) share the pixels: what is written
through one is seen through all. ``clone()`` and ``copy.deepcopy`` make pixels of their own.

``numpy.asarray(image)`` is a view of the pixels with the shape (height, width, channels). It
is written through to the image and all that share its pixels, and it keeps the pixels alive.

>>> image = kdrdata.Image(640, 480)
>>> numpy.asarray(image)[100:200, 50:80] = 255
)");
    image.def(py::init<>(), "An image without pixels, 0 x 0.")
        .def(py::init(&newImage), py::arg("width"), py::arg("height"), py::arg("channels") = 1,
             py::arg("dtype") = "uint8",
             "An image of zeroed pixels. MemoryError where there is no room for it.")
        .def_static(
            "read", &readFrom, py::arg("path"),
            R"(The image in a file (PNG, JPEG, TIFF, BMP, PNM), with the bit depth and the channels that
the file holds, unrotated. OSError where there is none that can be read; floating-point pixels
are not.)")
        .def(
            "save", &saveTo, py::arg("path"), py::arg("effort") = 6,
            R"(Writes the image to a file, completely or not at all. The extension of the name tells the
format; the effort is from 0, fast, to 9, small. OSError where that fails.)")
        .def_static(
            "from_array", &imageFromArray, py::arg("array"), py::arg("copy") = true,
            R"(An image with the elements of an array of the shape (height, width) or (height, width,
channels) as pixels. Without a copy the image is in the memory of the array, keeps it alive and
is written through to it; ValueError where that cannot be, as with arrays that are read-only or
whose rows are not packed.)")
        .def_property_readonly("width", &KDRImage::width, "The width in pixels.")
        .def_property_readonly("height", &KDRImage::height, "The height in pixels.")
        .def_property_readonly("channels", &KDRImage::channel, "The values a pixel.")
        .def_property_readonly("step", &KDRImage::step, "The bytes from one row to the next.")
        .def_property_readonly(
            "dtype", [](KDRImage const& self) { return dtypeOf(self.depth()); },
            "NumPy's type of the values.")
        .def_property_readonly(
            "shape",
            [](KDRImage const& self) {
                return py::make_tuple(self.height(), self.width(), self.channel());
            },
            "The height, the width and the channels.")
        .def("clone", &cloneOf, py::call_guard<py::gil_scoped_release>(),
             "An image with pixels of its own.")
        .def(
            "shares_with",
            [](KDRImage const& self, KDRImage const& other) {
                return self.dataPtr() && self.dataPtr() == other.dataPtr();
            },
            py::arg("other"), "Whether the two have the same pixels in memory.")
        .def(
            "__array__",
            [](KDRImage const& self, py::object const& dtype, py::object const& copy) {
                return arrayFor(pixelsOf(self), dtype, copy);
            },
            py::arg("dtype") = py::none(), py::arg("copy") = py::none(),
            "The pixels as an array, which is written through to them.")
        .def("__bool__", [](KDRImage const& self) { return self.dataPtr() != nullptr; })
        .def("__repr__", &imageText)
        .def(
            "_repr_png_",
            [](KDRImage const& self) -> py::object {
                return self.dataPtr() ? py::object(pngOf(self)) : py::none();
            },
            "For notebooks: the picture as PNG, in 8 bits a channel.")
        .def(
            "_repr_html_", [](KDRImage const& self) { return htmlOf(self, imageText(self)); },
            "For notebooks: the picture and what it is.");
    bindEquality(image);
    bindPickling(image);
    bindSequence<KDRImageArray, KDRImage>(m, "ImageArray", R"(A list of images.

Images go in and out sharing their pixels.)");
}

} // namespace kdrpython
