#include "carried.h"
#include "text.h"

#include <kdrdata/vision/kdrfont.h>

namespace kdrpython {

namespace {

KDRFont made(py::object const& faceName, long size, py::object const& weight, bool bold,
             unsigned char italic, unsigned char underline, unsigned char strikeOut)
{
    KDRFont font;
    font.setFaceName(toString(faceName, "Font"));
    font.setSize(size);
    if (!weight.is_none())
        font.setWeight(weight.cast<long>());
    font.setBold(bold);
    font.setItalic(italic);
    font.setUnderline(underline);
    font.setStrikeOut(strikeOut);
    return font;
}

std::string fontText(KDRFont& font)
{
    std::string text = "Font(" + py::repr(toPython(font.faceName())).cast<std::string>() +
                       ", size=" + std::to_string(font.size()) +
                       ", weight=" + std::to_string(font.weight());
    if (font.bold())
        text += ", bold=True";
    auto const flag = [&text](char const* name, int value) {
        if (value != 0)
            text += std::string(", ") + name + "=" + std::to_string(value);
    };
    flag("italic", font.italic());
    flag("underline", font.underline());
    flag("strike_out", font.strikeOut());
    return text + ")";
}

} // namespace

void bindFont(py::module_& m)
{
    py::class_<KDRFont> font(
        m, "Font", "The face name, size, weight and style of a text that is drawn as a shape.");
    font.def(py::init(&made), py::arg("face_name") = "", py::arg("size") = 24,
             py::arg("weight") = py::none(), py::arg("bold") = false, py::arg("italic") = 0,
             py::arg("underline") = 0, py::arg("strike_out") = 0,
             "A font; without a weight, of the core library's default one.")
        .def_property(
            "face_name", [](KDRFont& self) { return toPython(self.faceName()); },
            [](KDRFont& self, py::object const& name) {
                self.setFaceName(toString(name, "Font.face_name"));
            },
            "The face name, cut after 199 characters.")
        .def_property("size", &KDRFont::size, &KDRFont::setSize,
                      "The size of the letters, in units of whoever draws them.")
        .def_property("weight", &KDRFont::weight, &KDRFont::setWeight,
                      "The thickness of the strokes, in the core library's units.")
        .def_property("bold", &KDRFont::bold, &KDRFont::setBold, "Whether the type is bold.")
        .def_property("italic", &KDRFont::italic, &KDRFont::setItalic,
                      "The italic flag, from 0 to 255; any value but 0 is italic.")
        .def_property("underline", &KDRFont::underline, &KDRFont::setUnderline,
                      "The underline flag; any value but 0 is underlined.")
        .def_property("strike_out", &KDRFont::strikeOut, &KDRFont::setStrikeOut,
                      "The strike-out flag; any value but 0 is struck out.")
        .def("__repr__", &fontText);
    bindEquality(font);
    bindPickling(font);
}

} // namespace kdrpython
