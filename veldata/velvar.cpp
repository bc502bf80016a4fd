#include <veldata/velvar.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <cwchar>
#include <limits>
#include <utility>

namespace {

enum ValueType { Integer = 0, Floating = 1, Narrow = 2, Wide = 3 };

std::size_t lengthOf(char const* text) { return std::strlen(text); }
std::size_t lengthOf(wchar_t const* text) { return std::wcslen(text); }

/// A new copy of @p text; an empty text needs no memory and is null.
template <class Char>
Char* copyOf(Char const* text)
{
    if (!text || !*text)
        return nullptr;
    std::size_t const size = lengthOf(text) + 1;
    Char* const copy = new Char[size];
    std::copy_n(text, size, copy);
    return copy;
}

long saturated(double number)
{
    using Limits = std::numeric_limits<long>;
    if (std::isnan(number))
        return 0;
    if (number >= static_cast<double>(Limits::max()))
        return Limits::max();
    if (number <= static_cast<double>(Limits::min()))
        return Limits::min();
    return static_cast<long>(number);
}

} // namespace

VelVar::VelVar() noexcept : type(Integer) { value.integer = 0; }

VelVar::VelVar(long number) noexcept : type(Integer) { value.integer = number; }

VelVar::VelVar(double number) noexcept : type(Floating) { value.floating = number; }

VelVar::VelVar(char const* text) : type(Narrow) { value.narrow = copyOf(text); }

VelVar::VelVar(wchar_t const* text) : type(Wide) { value.wide = copyOf(text); }

VelVar::VelVar(VelVar const& other) : type(other.type), value(other.value)
{
    if (type == Narrow)
        value.narrow = copyOf<char>(other.value.narrow);
    else if (type == Wide)
        value.wide = copyOf<wchar_t>(other.value.wide);
}

VelVar::VelVar(VelVar&& other) noexcept : VelVar() { swap(other); }

VelVar::~VelVar()
{
    if (type == Narrow)
        delete[] value.narrow;
    else if (type == Wide)
        delete[] value.wide;
}

VelVar& VelVar::operator=(VelVar const& other)
{
    VelVar copy(other);
    swap(copy);
    return *this;
}

VelVar& VelVar::operator=(VelVar&& other) noexcept
{
    VelVar taken(std::move(other));
    swap(taken);
    return *this;
}

int VelVar::ValType() const noexcept { return type; }

long VelVar::L() const noexcept
{
    if (type == Integer)
        return value.integer;
    return type == Floating ? saturated(value.floating) : 0;
}

double VelVar::D() const noexcept
{
    if (type == Floating)
        return value.floating;
    return type == Integer ? static_cast<double>(value.integer) : 0.0;
}

char const* VelVar::S() const noexcept
{
    return type == Narrow && value.narrow ? value.narrow : "";
}

wchar_t const* VelVar::WS() const noexcept { return type == Wide && value.wide ? value.wide : L""; }

void VelVar::swap(VelVar& other) noexcept
{
    std::swap(type, other.type);
    std::swap(value, other.value);
}
