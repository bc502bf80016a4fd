#include "pictures.h"

#include <page/failure.h>
#include <page/markup.h>
#include <page/page.h>
#include <page/shown.h>

namespace kdrpython {

namespace {

// Carries out what takes long while other threads run.
template <class Make>
auto whileUnlocked(Make const& make)
{
    try {
        py::gil_scoped_release const unlocked;
        return make();
    } catch (page::Failure const& failure) {
        PyErr_SetString(PyExc_OSError, failure.what());
        throw py::error_already_set();
    }
}

std::string captioned(std::string const& picture, std::string const& description)
{
    return page::element("figure style=\"margin: 0\"",
                         picture + page::element("figcaption", page::escaped(description)));
}

} // namespace

py::bytes pngOf(KDRImage const& image)
{
    QByteArray const png = whileUnlocked([&image] { return page::pngOf(image); });
    return py::bytes(png.constData(), static_cast<std::size_t>(png.size()));
}

std::string htmlOf(KDRImage const& image, std::string const& description)
{
    if (!image.dataPtr())
        return captioned("", description);
    std::string const address = whileUnlocked([&image] { return page::addressOf(image); });
    return captioned("<img style=\"max-width: 100%\" alt=\"the image\"" +
                         page::attribute("src", address) + "/>",
                     description);
}

std::string htmlOf(std::vector<KDRShape> const& figures, std::string const& description)
{
    return captioned(whileUnlocked([&figures] {
                         KDRShapeArray drawn;
                         for (KDRShape const& figure : figures)
                             drawn.push_back(figure);
                         return page::sketchOf(drawn);
                     }),
                     description);
}

} // namespace kdrpython
