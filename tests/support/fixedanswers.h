#ifndef KDRDATA_TESTS_FIXEDANSWERS_H
#define KDRDATA_TESTS_FIXEDANSWERS_H

#include <kdrdata/geometry3d/kdrdualquaternion.h>
#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrimage.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>
#include <type_traits>

/// Tables of the operations that always answer the same.
///
/// A row of a table is a call of `Answers::row()`: the name of the operation, its signature to the
/// letter (see `as()`), and what it answers. The operation is called with arguments made here; the
/// row fails where the answer is another one, or where the call touched the object or an argument.
namespace FixedAnswers {

struct Nothing
{
};
struct ADefault
{
};
struct Itself
{
};
struct Null
{
};

/// Operations without a result.
constexpr Nothing nothing;
/// Operations that answer a default-constructed object.
constexpr ADefault aDefault;
/// Operations that answer a reference to the object they were called on.
constexpr Itself itself;
/// Operations that answer a null pointer.
constexpr Null null;

/// The member of exactly this signature, `const` included; no other one compiles.
template <class Signature, class Class>
constexpr Signature Class::*as(Signature Class::*member)
{
    return member;
}

template <class T>
T sample()
{
    return T();
}

template <>
inline bool sample<bool>()
{
    return true;
}

template <>
inline int sample<int>()
{
    return 2;
}

template <>
inline float sample<float>()
{
    return 2.5F;
}

template <>
inline double sample<double>()
{
    return 1.5;
}

template <>
inline KDRString sample<KDRString>()
{
    return {"scene.ply"};
}

template <>
inline KDRNumberArray sample<KDRNumberArray>()
{
    KDRNumberArray array;
    array.push_back(KDRNumber(1.5));
    return array;
}

/// The bytes of an object, to tell whether somebody wrote to it.
template <class T>
std::string bytesOf(T const& object)
{
    std::string bytes(sizeof(T), '\0');
    std::memcpy(bytes.data(), static_cast<void const*>(&object), sizeof(T));
    return bytes;
}

template <class T>
class Held
{
public:
    T object = sample<T>();
    bool isUntouched() const { return bytesOf(object) == m_before; }

private:
    std::string m_before = bytesOf(object);
};

template <class T>
struct Argument : Held<T>
{
    T get() { return this->object; }
};

template <class T>
struct Argument<T&> : Held<std::remove_const_t<T>>
{
    T& get() { return this->object; }
};

template <class T>
struct Argument<T*> : Held<T>
{
    T* get() { return &this->object; }
};

template <>
struct Argument<void*> : Held<double>
{
    void* get() { return &this->object; }
};

template <class T>
bool isDefault(T const&)
{
    static_assert(std::is_empty<T>::value, "objects of the class are all alike");
    return true;
}

inline bool isDefault(KDRDualQuaternion const& object)
{
    return KDRInternal::pointer(object) == nullptr;
}

inline bool isDefault(KDRNumber const& number)
{
    KDRNumber kind(number);
    return kind.numType() == 0 && number.toInt() == 0 && number.maxValue() == 999999.0 &&
           number.minValue() == -999999.0;
}

inline bool isDefault(KDRImage const& image)
{
    return image.width() == 0 && image.height() == 0 && image.dataPtr() == nullptr;
}

/// The answers of one object.
template <class Class>
class Answers
{
public:
    explicit Answers(Class& object) : m_object(object) {}

    template <class Result, class... Parameters, class Expected>
    void row(char const* name, Result (Class::*member)(Parameters...), Expected expected)
    {
        call<Result, Parameters...>(name, member, expected);
    }

    template <class Result, class... Parameters, class Expected>
    void row(char const* name, Result (Class::*member)(Parameters...) const, Expected expected)
    {
        call<Result, Parameters...>(name, member, expected);
    }

private:
    template <class Result, class... Parameters, class Member, class Expected>
    void call(char const* name, Member member, Expected expected)
    {
        SCOPED_TRACE(name);
        std::tuple<Argument<Parameters>...> arguments;
        std::string const before = bytesOf(m_object);
        std::apply(
            [&](auto&... argument) {
                judge<Result>([&]() -> Result { return (m_object.*member)(argument.get()...); },
                              expected);
                EXPECT_TRUE((argument.isUntouched() && ...)) << "an argument was written to";
            },
            arguments);
        EXPECT_EQ(bytesOf(m_object), before) << "the object was written to";
    }

    template <class Result, class Call>
    void judge(Call call, Nothing)
    {
        static_assert(std::is_void<Result>::value, "the operation answers something");
        call();
    }

    template <class Result, class Call>
    void judge(Call call, ADefault)
    {
        static_assert(std::is_class<Result>::value, "the operation answers no object");
        Result const result = call();
        EXPECT_TRUE(isDefault(result));
    }

    template <class Result, class Call>
    void judge(Call call, Itself)
    {
        static_assert(std::is_same<Result, Class&>::value, "the operation answers no reference");
        EXPECT_EQ(&call(), &m_object);
    }

    template <class Result, class Call>
    void judge(Call call, Null)
    {
        static_assert(std::is_pointer<Result>::value, "the operation answers no pointer");
        EXPECT_EQ(call(), nullptr);
    }

    template <class Result, class Call, class Expected>
    void judge(Call call, Expected expected)
    {
        static_assert(std::is_same<Result, Expected>::value, "the answer has another type");
        EXPECT_EQ(call(), expected);
    }

    Class& m_object;
};

} // namespace FixedAnswers

#endif
