#ifndef KDRDATA_TESTS_SIGNATURES_H
#define KDRDATA_TESTS_SIGNATURES_H

#include <type_traits>

/// The public operations of the library, one line each: result, parameter types and constness. The
/// lines are checked as they are compiled; together with the list of exported symbols, which has no
/// results but shows what is new, they keep the interface from moving unseen. A line changes only
/// when the interface is meant to.

/// Class::name with exactly this result and this list of parameters, constness behind it.
#define MEMBER(Class, Result, name, ...)                                                           \
    static_assert(std::is_same<decltype(static_cast<Result(Class::*) __VA_ARGS__>(&Class::name)),  \
                               Result(Class::*) __VA_ARGS__>::value,                               \
                  #Class "::" #name)

/// The same for a static operation.
#define STATIC(Class, Result, name, ...)                                                           \
    static_assert(std::is_same<decltype(static_cast<Result(*) __VA_ARGS__>(&Class::name)),         \
                               Result(*) __VA_ARGS__>::value,                                      \
                  #Class "::" #name)

/// The class can be made from these arguments.
#define MADE_FROM(...) static_assert(std::is_constructible<__VA_ARGS__>::value, #__VA_ARGS__)

/// The class cannot be made from these arguments.
#define REFUSES(...) static_assert(!std::is_constructible<__VA_ARGS__>::value, #__VA_ARGS__)

/// The class has no operation of this name, overloaded or not, public or not.
#define LACKS(Class, name)                                                                         \
    JOINED(Class, name);                                                                           \
    static_assert(!HAS(Class, name), #Class "::" #name)

/// Whether the class has a member of this name, which JOINED() was told before: joined with another
/// class that has one too, the name is then ambiguous, whatever and how many the members are.
#define HAS(Class, name)                                                                           \
    (!signatures::answers<signatures::Class##_##name>(                                             \
        [](auto* object) -> decltype(&std::remove_pointer_t<decltype(object)>::name) {             \
            return nullptr;                                                                        \
        }))
#define JOINED(Class, name)                                                                        \
    namespace signatures {                                                                         \
    struct With_##Class##_##name                                                                   \
    {                                                                                              \
        int name;                                                                                  \
    };                                                                                             \
    struct Class##_##name : Class, With_##Class##_##name                                           \
    {                                                                                              \
    };                                                                                             \
    }                                                                                              \
    static_assert(true, "takes the semicolon")

namespace signatures {

template <class Class, class Question>
constexpr bool answers(Question const&)
{
    return std::is_invocable<Question, Class*>::value;
}

} // namespace signatures

#endif
