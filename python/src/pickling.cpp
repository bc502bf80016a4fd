#include "pickling.h"

#include "define.h"
#include "elements.h"
#include "errors.h"
#include "owner.h"
#include "text.h"

#include <kdrdata/vision/kdrimage.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrio/inside_p.h>
#include <kdrio/kdrio.h>

#include <pybind11/numpy.h>

#include <veldata/velimage.h>

#include <cstdint>
#include <limits>

namespace kdrpython {

namespace {

std::size_t sizeOf(KDRImage const& image)
{
    return static_cast<std::size_t>(image.step()) * static_cast<std::size_t>(image.height());
}

// Whoever reads what came in a pickle has as much memory as whoever wrote it.
kdrio::Limits noLimits()
{
    kdrio::Limits limits;
    limits.nesting = std::numeric_limits<int>::max();
    limits.bytes = std::numeric_limits<long long>::max();
    limits.elements = std::numeric_limits<long long>::max();
    limits.pixels = std::numeric_limits<long long>::max();
    return limits;
}

struct Parts
{
    KDRBuffer bytes;
    KDRImageArray images;
};

Parts take(KDRVariant const& value)
{
    Parts parts;
    kdrio::Error error;
    bool done = false;
    {
        py::gil_scoped_release const unlocked;
        done = kdrio::toParts(value, &parts.bytes, &parts.images, &error);
    }
    if (!done)
        raise(error);
    return parts;
}

KDRVariant put(Parts const& parts)
{
    KDRVariant value;
    kdrio::Error error;
    bool done = false;
    {
        py::gil_scoped_release const unlocked;
        done = kdrio::fromParts(parts.bytes, parts.images, &value, &error, noLimits());
    }
    if (!done)
        raise(error);
    return value;
}

py::object pixelsOf(KDRImage const& image, bool outOfBand)
{
    if (!outOfBand)
        return py::bytes(reinterpret_cast<char const*>(image.dataPtr()), sizeOf(image));
    py::array_t<unsigned char> const view(static_cast<py::ssize_t>(sizeOf(image)), image.dataPtr(),
                                          keeping(image));
    return py::module_::import("pickle").attr("PickleBuffer")(view);
}

struct Geometry
{
    int width;
    int height;
    int channels;
    VelImageType type;
};

constexpr int elementSizes[] = {1, 1, 2, 2, 4, 4, 8};

// The geometry comes with the pixels: none is believed before the size of these is right.
Geometry geometryOf(py::tuple const& picture, long long size)
{
    constexpr std::size_t fields = 5;
    if (picture.size() != fields)
        throw py::value_error("a picture has pixels, a size, channels and an element type");
    Geometry const geometry = {picture[1].cast<int>(), picture[2].cast<int>(),
                               picture[3].cast<int>(), picture[4].cast<int>()};
    bool const isPicture = geometry.width > 0 && geometry.height > 0 && geometry.channels > 0 &&
                           geometry.channels <= mostChannels && geometry.type >= VEL_8U &&
                           geometry.type <= VEL_64F;
    if (!isPicture || size % geometry.height != 0 ||
        size / geometry.height != static_cast<long long>(geometry.width) * geometry.channels *
                                      elementSizes[geometry.type])
        throw py::value_error("the pixels of a picture are not of its size");
    return geometry;
}

// An image over the buffer, or of a copy of it where that may not be written to, or lies where its
// elements cannot be read in one piece.
KDRImage imageOver(py::tuple const& picture)
{
    auto const view =
        py::reinterpret_steal<py::object>(PyMemoryView_FromObject(py::object(picture[0]).ptr()));
    if (!view)
        throw py::error_already_set();
    Py_buffer const& pixels = *PyMemoryView_GET_BUFFER(view.ptr());
    if (PyBuffer_IsContiguous(&pixels, 'C') == 0)
        throw py::value_error("the pixels of a picture lie row behind row");
    Geometry const geometry = geometryOf(picture, pixels.len);
    auto* const data = static_cast<unsigned char*>(pixels.buf);
    auto const element = static_cast<std::size_t>(elementSizes[geometry.type]);
    VelImage image;
    int made = 0;
    if (pixels.readonly == 0 && reinterpret_cast<std::uintptr_t>(data) % element == 0) {
        void* const owner = ownerOf(view);
        made = image.CreateImageOver(data, geometry.width, geometry.height, geometry.channels,
                                     geometry.type, releaseOwner, owner);
        if (made == 0)
            releaseOwner(owner);
    } else {
        py::gil_scoped_release const unlocked;
        made = image.CreateImage(data, geometry.width, geometry.height, geometry.channels, 0,
                                 geometry.type);
    }
    if (made == 0)
        throw std::bad_alloc();
    KDRImage handle;
    KDRInternal::wrapped(handle) = image;
    return handle;
}

} // namespace

py::tuple partsOf(KDRVariant const& value, bool outOfBand)
{
    Parts const parts = take(value);
    py::list pictures;
    for (int i = 0; i < parts.images.length(); ++i) {
        KDRImage image;
        parts.images.select(i, &image);
        pictures.append(py::make_tuple(pixelsOf(image, outOfBand), image.width(), image.height(),
                                       image.channel(), static_cast<int>(image.dataType())));
    }
    return py::make_tuple(
        py::bytes(parts.bytes.constData(), static_cast<std::size_t>(parts.bytes.size())), pictures);
}

KDRVariant fromParts(py::bytes const& bytes, py::list const& pictures)
{
    Parts parts;
    parts.bytes = toBuffer(bytes, "restoring");
    for (py::handle const picture : pictures)
        parts.images.push_back(imageOver(picture.cast<py::tuple>()));
    return put(parts);
}

KDRVariant deepCopyOf(KDRVariant const& value)
{
    Parts parts = take(value);
    for (int i = 0; i < parts.images.length(); ++i) {
        KDRImage image;
        parts.images.select(i, &image);
        KDRImage const copy = image.clone();
        if (!copy.dataPtr())
            throw std::bad_alloc();
        parts.images.replace(i, copy);
    }
    return put(parts);
}

void bindPickling(py::object const& cls, Carrying const& carrying)
{
    auto const* const made = &carrying;
    define(
        cls, "__reduce_ex__",
        [made](py::object const& self, int protocol) {
            constexpr int outOfBand = 5;
            py::tuple const parts = partsOf(made->pack(self), protocol >= outOfBand);
            py::object const restored = py::module_::import("kdrdata").attr("_restored");
            return py::make_tuple(restored, py::make_tuple(py::type::of(self), parts[0], parts[1]));
        },
        py::arg("protocol"));
    cls.attr("_from_parts") =
        py::staticmethod(py::cpp_function([made](py::bytes const& bytes, py::list const& pictures) {
            KDRVariant packed = fromParts(bytes, pictures);
            py::object restored = made->unpack(packed);
            if (!restored)
                throw py::value_error("these are the bytes of another class");
            return restored;
        }));
    define(cls, "__copy__", [made](py::object const& self) { return made->copy(self); });
    define(
        cls, "__deepcopy__",
        [made](py::object const& self, py::dict const&) {
            KDRVariant packed = deepCopyOf(made->pack(self));
            return made->unpack(packed);
        },
        py::arg("memo"));
}

void bindEquality(py::object const& cls, Carrying const& carrying)
{
    auto const* const made = &carrying;
    define(
        cls, "__eq__",
        [made](py::object const& self, py::object const& other) {
            return made->isOne(other) ? py::bool_(equal(made->pack(self), made->pack(other)))
                                      : notImplemented();
        },
        py::arg("other"));
    cls.attr("__hash__") = py::none();
}

} // namespace kdrpython
