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

/// What bindPickling() and bindEquality() need of a class whose objects are Carried.
struct Carrying
{
    bool (*isOne)(py::handle value);
    KDRVariant (*pack)(py::handle self);
    /// A new object, or none where @p packed holds another class.
    py::object (*unpack)(KDRVariant& packed);
    py::object (*copy)(py::handle self);
};

/// Gives a class pickle, copy.copy (the class's own copy) and copy.deepcopy.
/// @p carrying stays where it is.
void bindPickling(py::object const& cls, Carrying const& carrying);

/// Gives a class equality by value, as its saved bytes are, and takes its hash away. Objects of
/// other classes are different. @p carrying stays where it is.
void bindEquality(py::object const& cls, Carrying const& carrying);

/// A class as Carrying has it.
template <class Class>
class CarryingOf
{
    static bool isOne(py::handle value) { return py::isinstance<Class>(value); }
    static KDRVariant pack(py::handle self)
    {
        return Carried<Class>::pack(self.cast<Class const&>());
    }
    static py::object unpack(KDRVariant& packed)
    {
        auto made = std::make_unique<Class>();
        if (!Carried<Class>::unpack(packed, *made))
            return {};
        return py::cast(std::move(made));
    }
    static py::object copy(py::handle self)
    {
        return py::cast(std::make_unique<Class>(self.cast<Class const&>()));
    }

public:
    static constexpr Carrying carrying = {isOne, pack, unpack, copy};
};

template <class Class, class... More>
void bindPickling(py::class_<Class, More...>& cls)
{
    bindPickling(cls, CarryingOf<Class>::carrying);
}

template <class Class, class... More>
void bindEquality(py::class_<Class, More...>& cls)
{
    bindEquality(cls, CarryingOf<Class>::carrying);
}

} // namespace kdrpython

#endif
