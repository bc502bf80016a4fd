#ifndef KDRDATA_PYTHON_PICTURES_H
#define KDRDATA_PYTHON_PICTURES_H

#include <kdrdata/vision/kdrimage.h>
#include <kdrdata/vision/kdrshape.h>
#include <pybind11/pybind11.h>

#include <string>
#include <vector>

// What notebooks show of a value.

namespace kdrpython {

namespace py = pybind11;

/// The image as PNG, in 8 bits a channel. Raises OSError where it cannot be written among the
/// temporary files.
py::bytes pngOf(KDRImage const& image);

/// The image over a line that describes it.
std::string htmlOf(KDRImage const& image, std::string const& description);

/// Figures, drawn on a ground as large as they need, over a line that describes them.
std::string htmlOf(std::vector<KDRShape> const& figures, std::string const& description);

} // namespace kdrpython

#endif
