#include "pickling.h"

#include "errors.h"
#include "owner.h"
#include "text.h"

#include <kdrdata/vision/kdrimage.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrio/inside_p.h>
#include <kdrio/kdrio.h>

#include <pybind11/numpy.h>

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
    py::array_t<unsigned char> const view({static_cast<py::ssize_t>(sizeOf(image))},
                                          image.dataPtr(), keeping(image));
    return py::module_::import("pickle").attr("PickleBuffer")(view);
}

KDRImage imageOver(py::tuple const& picture)
{
    auto const width = picture[1].cast<int>();
    auto const height = picture[2].cast<int>();
    auto const channels = picture[3].cast<int>();
    auto const type = static_cast<KDRImage::DataType>(picture[4].cast<int>());
    py::buffer_info const pixels = py::reinterpret_borrow<py::buffer>(picture[0]).request();
    KDRImage image;
    // The geometry comes with the pixels: none is believed before the size is.
    constexpr int sizes[] = {1, 1, 2, 2, 4, 4, 8};
    long long const size = static_cast<long long>(pixels.size) * pixels.itemsize;
    if (type < 0 || type > KDRImage::DataTypeFloat64 || width < 1 || height < 1 || channels < 1 ||
        channels > 4 || size / width / height != static_cast<long long>(channels) * sizes[type] ||
        size % (static_cast<long long>(width) * height) != 0)
        throw py::value_error("the pixels of a picture are not of its size");
    if (image.GenImageExt(pixels.ptr, width, height, channels, 0, type) == 0)
        throw std::bad_alloc();
    return image;
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

void raiseOtherClass() { throw py::value_error("these are the bytes of another class"); }

} // namespace kdrpython
