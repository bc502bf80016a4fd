#ifndef KDRDATA_PYTHON_PICKLING_H
#define KDRDATA_PYTHON_PICKLING_H

#include <kdrdata/variant/kdrvariantkinds_p.h>

#include "module.h"
#include "value.h"

#include <memory>

namespace kdrpython {

/// How objects of a class go into a variant and come out of one, for saving. Every class that a
/// variant has a kind for is here; others specialise it with what carries them.
template <class Class>
struct Carried;

#define KDRPYTHON_CARRIED(Kind, Payload, Name, Constructor, Reader, Pointer, Copying)              \
    template <>                                                                                    \
    struct Carried<Payload>                                                                        \
    {                                                                                              \
        static KDRVariant pack(Payload const& value)                                               \
        {                                                                                          \
            KDRVariant made;                                                                       \
            made.from##Name(value);                                                                \
            keepAll(made, value);                                                                  \
            return made;                                                                           \
        }                                                                                          \
        static bool unpack(KDRVariant& packed, Payload& value)                                     \
        {                                                                                          \
            if (packed.variantType() != Kind)                                                      \
                return false;                                                                      \
            packed.to##Name(&value);                                                               \
            return true;                                                                           \
        }                                                                                          \
    };

/// What a variant leaves behind of a value when it takes it.
template <class Class>
void keepAll(KDRVariant&, Class const&)
{
}
/// The range of a number.
inline void keepAll(KDRVariant& made, KDRNumber const& value)
{
    KDRNumber* stored = nullptr;
    if (made.toNumberPtr(stored))
        *stored = value;
}

KDR_VARIANT_KINDS(KDRPYTHON_CARRIED)
#undef KDRPYTHON_CARRIED

template <>
struct Carried<KDRVariant>
{
    static KDRVariant pack(KDRVariant const& value) { return value; }
    static bool unpack(KDRVariant& packed, KDRVariant& value)
    {
        value = packed;
        return true;
    }
};

/// What pickle is given of a value for restored(): its bytes, and a list of a tuple for each image
/// in it (pixels, width, height, channels, code of the element type). With @p outOfBand the pixels
/// are pickle.PickleBuffer over those of the image, otherwise copies of them, as bytes.
py::tuple partsOf(KDRVariant const& value, bool outOfBand);

/// The value that partsOf() took apart. Images stand over pixels that may be written to, and have
/// copies of others. Raises kdrdata.Error.
KDRVariant fromParts(py::bytes const& bytes, py::list const& pictures);

/// A copy that shares nothing with @p value, neither pixels nor stores; what shares inside of it
/// does so in the copy too.
KDRVariant deepCopyOf(KDRVariant const& value);

/// An object of Python's of its own with the value of @p value, made by assignment, which carries
/// more than a copy (the range of a number).
template <class Class>
py::object objectOf(Class const& value)
{
    auto made = std::make_unique<Class>();
    *made = value;
    return py::cast(std::move(made));
}

/// Raises kdrdata.Error, as the bytes of a pickle hold another class.
[[noreturn]] void raiseOtherClass();

/// Gives a class pickle, copy.copy (the class's own copy) and copy.deepcopy.
template <class Class, class... More>
void bindPickling(py::class_<Class, More...>& cls)
{
    cls.def(
        "__reduce_ex__",
        [](py::object const& self, int protocol) {
            constexpr int outOfBand = 5;
            py::tuple const parts =
                partsOf(Carried<Class>::pack(self.cast<Class const&>()), protocol >= outOfBand);
            py::object const restored = py::module_::import("kdrdata").attr("_restored");
            return py::make_tuple(restored, py::make_tuple(py::type::of(self), parts[0], parts[1]));
        },
        py::arg("protocol"));
    cls.def_static("_from_parts", [](py::bytes const& bytes, py::list const& pictures) {
        KDRVariant packed = fromParts(bytes, pictures);
        auto made = std::make_unique<Class>();
        if (!Carried<Class>::unpack(packed, *made))
            raiseOtherClass();
        return made;
    });
    cls.def("__copy__", [](Class const& self) { return std::make_unique<Class>(self); });
    cls.def(
        "__deepcopy__",
        [](Class const& self, py::dict const&) {
            KDRVariant packed = deepCopyOf(Carried<Class>::pack(self));
            auto made = std::make_unique<Class>();
            Carried<Class>::unpack(packed, *made);
            return made;
        },
        py::arg("memo"));
}

/// Gives a class equality by value, as its saved bytes are, and takes its hash away. Objects of
/// other classes are different.
template <class Class, class... More>
void bindEquality(py::class_<Class, More...>& cls)
{
    cls.def(
        "__eq__",
        [](Class const& self, py::object const& other) -> py::object {
            if (!py::isinstance<Class>(other))
                return py::reinterpret_borrow<py::object>(Py_NotImplemented);
            return py::bool_(equal(Carried<Class>::pack(self),
                                   Carried<Class>::pack(other.cast<Class const&>())));
        },
        py::arg("other"));
    cls.attr("__hash__") = py::none();
}

} // namespace kdrpython

#endif
