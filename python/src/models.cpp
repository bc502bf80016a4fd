#include "carried.h"
#include "number.h"
#include "sequence.h"
#include "text.h"

#include <kdrdata/geometry3d/kdrpose2d.h>
#include <kdrdata/geometry3d/kdrpose3d.h>
#include <veldata/velmodelrecord_p.h>

#include <climits>

// Small records: poses, models, alignments, chunks.

namespace kdrpython {

namespace {

// A model tells its own length and is believed: what is given is compared with it before.
bool isModel(KDRBuffer const& bytes)
{
    VelModelRecord head{};
    constexpr auto headBytes = static_cast<int>(VelModelRecord::headBytes);
    auto const* const data = reinterpret_cast<unsigned char const*>(bytes.constData());
    return bytes.size() >= headBytes && head.read(data) &&
           head.payloadBytes == static_cast<std::uint64_t>(bytes.size() - headBytes);
}

KDRMatchModel modelFrom(KDRBuffer const& bytes)
{
    KDRMatchModel model;
    if (!isModel(bytes))
        throw py::value_error("these are not the bytes of a model");
    // Taken as not constant, and not changed.
    auto* const data = reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.constData()));
    if (model.SetData(data) == 0)
        throw std::bad_alloc();
    return model;
}

std::string bytesOf(KDRMatchModel const& model)
{
    std::string bytes(model.GetLenth(), '\0');
    model.GetData(reinterpret_cast<unsigned char*>(&bytes[0]));
    return bytes;
}

void bindPoses(py::module_& m)
{
    py::class_<KDRPose2D> plane(
        m, "Pose2D", R"(A position in the plane and the rotation about the axis that stands on it.

The numbers are carried as they are given: no unit is implied and nothing is checked.)");
    plane
        .def(py::init([](double x, double y, double rz) {
                 KDRPose2D pose;
                 pose.setX(x);
                 pose.setY(y);
                 pose.setRz(rz);
                 return pose;
             }),
             py::arg("x") = 0.0, py::arg("y") = 0.0, py::arg("rz") = 0.0)
        .def_property("x", &KDRPose2D::x, &KDRPose2D::setX, "The position along the x axis.")
        .def_property("y", &KDRPose2D::y, &KDRPose2D::setY, "The position along the y axis.")
        .def_property("rz", &KDRPose2D::Rz, &KDRPose2D::setRz, "The rotation about the z axis.")
        .def("__repr__", [](KDRPose2D const& self) {
            return "Pose2D(" + numberText(self.x()) + ", " + numberText(self.y()) + ", " +
                   numberText(self.Rz()) + ")";
        });
    bindEquality(plane);
    bindPickling(plane);

    py::class_<KDRPose3D> space(m, "Pose3D",
                                R"(A position in space and the rotations about the three axes.

The numbers are carried as they are given: no unit is implied and nothing is checked.)");
    space
        .def(py::init([](double x, double y, double z, double rx, double ry, double rz) {
                 KDRPose3D pose;
                 pose.setX(x);
                 pose.setY(y);
                 pose.setZ(z);
                 pose.setRx(rx);
                 pose.setRy(ry);
                 pose.setRz(rz);
                 return pose;
             }),
             py::arg("x") = 0.0, py::arg("y") = 0.0, py::arg("z") = 0.0, py::arg("rx") = 0.0,
             py::arg("ry") = 0.0, py::arg("rz") = 0.0)
        .def_property("x", &KDRPose3D::x, &KDRPose3D::setX, "The position along the x axis.")
        .def_property("y", &KDRPose3D::y, &KDRPose3D::setY, "The position along the y axis.")
        .def_property("z", &KDRPose3D::z, &KDRPose3D::setZ, "The position along the z axis.")
        .def_property("rx", &KDRPose3D::Rx, &KDRPose3D::setRx, "The rotation about the x axis.")
        .def_property("ry", &KDRPose3D::Ry, &KDRPose3D::setRy, "The rotation about the y axis.")
        .def_property("rz", &KDRPose3D::Rz, &KDRPose3D::setRz, "The rotation about the z axis.")
        .def("__repr__", [](KDRPose3D const& self) {
            std::string text;
            for (double const value :
                 {self.x(), self.y(), self.z(), self.Rx(), self.Ry(), self.Rz()})
                text += (text.empty() ? "" : ", ") + numberText(value);
            return "Pose3D(" + text + ")";
        });
    bindEquality(space);
    bindPickling(space);
}

void bindAlignment(py::module_& m)
{
    py::class_<KDRROIAlignment> alignment(
        m, "ROIAlignment",
        R"(How regions of interest are moved onto an object that was found: a sequence of alignment matrices,
which this version carries and does not compute.)");
    alignment.def(py::init<>(), "An alignment without matrices.")
        .def(py::init([](py::object const& matrices) {
                 auto made = std::make_unique<KDRROIAlignment>();
                 py::object const list = py::type::of<KDRMatrixArray>()(matrices);
                 made->fromMatrixArray(list.cast<KDRMatrixArray&>());
                 return made;
             }),
             py::arg("matrices"), "An alignment with copies of the matrices.")
        .def_property(
            "matrices",
            [](KDRROIAlignment& self) {
                KDRMatrixArray matrices;
                self.toMatrixArray(&matrices);
                return matrices;
            },
            [](KDRROIAlignment& self, py::object const& matrices) {
                py::object const list = py::type::of<KDRMatrixArray>()(matrices);
                self.fromMatrixArray(list.cast<KDRMatrixArray&>());
            },
            "A copy of the matrices.")
        .def("__repr__", [](KDRROIAlignment& self) {
            KDRMatrixArray matrices;
            self.toMatrixArray(&matrices);
            return "<kdrdata.ROIAlignment of " + std::to_string(matrices.length()) + " matrices>";
        });
    bindEquality(alignment);
    bindPickling(alignment);
}

} // namespace

KDRVariant Carried<KDRMatchModel>::pack(KDRMatchModel const& value)
{
    if (value.GetLenth() > static_cast<unsigned long long>(INT_MAX))
        throw py::value_error("a model of 2 GiB and more cannot be saved");
    std::string const bytes = bytesOf(value);
    return KDRVariant(KDRBuffer(bytes.data(), static_cast<int>(bytes.size())));
}

bool Carried<KDRMatchModel>::unpack(KDRVariant& packed, KDRMatchModel& value)
{
    KDRBuffer bytes;
    if (!packed.toBuffer(&bytes))
        return false;
    value = modelFrom(bytes);
    return true;
}

void bindModels(py::module_& m)
{
    bindPoses(m);
    bindAlignment(m);

    py::class_<KDRMatchModel> model(
        m, "MatchModel",
        R"(A trained template-matching model: bytes that nobody but the core library understands.)");
    model.def(py::init<>(), "The core library's default model.")
        .def_static(
            "from_bytes",
            [](py::object const& bytes) { return modelFrom(toBuffer(bytes, "MatchModel")); },
            py::arg("bytes"), "The model of the bytes. ValueError where they are those of none.")
        .def(
            "to_bytes", [](KDRMatchModel const& self) { return py::bytes(bytesOf(self)); },
            "The bytes of the model.")
        .def_property_readonly("model_type", &KDRMatchModel::ModelType,
                               "The core library's code for the type of the model.")
        .def("__repr__", [](KDRMatchModel const& self) {
            return "<kdrdata.MatchModel of type " + std::to_string(self.ModelType()) + ", " +
                   std::to_string(self.GetLenth()) + " bytes>";
        });
    bindEquality(model);
    bindPickling(model);
}

} // namespace kdrpython
