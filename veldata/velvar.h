#ifndef VELDATA_VELVAR_H
#define VELDATA_VELVAR_H

#include <veldata/veldata_export.h>

/// One value of four possible types: an integer, a floating-point number, a narrow or a wide text.
///
/// The variable owns what it holds and copies are deep; a moved-from variable is the integer 0.
/// A getter of another type than the one held converts between the two number types and otherwise
/// answers 0 or an empty text; it never fails. One variable may be read from several threads at
/// once, but not while one of them changes it.
class VELDATA_EXPORT VelVar
{
public:
    /// The integer 0.
    VelVar() noexcept;

    /// The integer @p number.
    VelVar(long number) noexcept;

    /// The floating-point number @p number.
    VelVar(double number) noexcept;

    /// A copy of the narrow text @p text up to its zero byte; null gives the empty text.
    /// The bytes are kept as they are, in whatever encoding they come. Throws std::bad_alloc.
    VelVar(char const* text);

    /// A copy of the wide text @p text up to its zero character; null gives the empty text.
    /// Throws std::bad_alloc.
    VelVar(wchar_t const* text);

    /// A deep copy. Throws std::bad_alloc.
    VelVar(VelVar const& other);

    /// Takes the value over; @p other is left the integer 0.
    VelVar(VelVar&& other) noexcept;

    /// Releases the text, if there is one.
    ~VelVar();

    /// Becomes a deep copy. Throws std::bad_alloc and is then unchanged.
    VelVar& operator=(VelVar const& other);

    /// Takes the value over; @p other is left the integer 0. Assigning a variable to itself does
    /// nothing.
    VelVar& operator=(VelVar&& other) noexcept;

    /// The type held: 0 integer, 1 floating, 2 narrow text, 3 wide text.
    int ValType() const noexcept;

    /// The integer. A floating-point number is cut towards zero, one beyond the range of long gives
    /// the nearest end of the range, and a NaN gives 0, as every text does.
    long L() const noexcept;

    /// The floating-point number. An integer is converted, rounded where a double cannot hold it; a
    /// text gives 0.
    double D() const noexcept;

    /// The narrow text, never null; empty for the other types. The variable keeps owning it: the
    /// pointer is good until the variable is changed or destroyed.
    char const* S() const noexcept;

    /// The wide text, never null; empty for the other types. The variable keeps owning it: the
    /// pointer is good until the variable is changed or destroyed.
    wchar_t const* WS() const noexcept;

private:
    void swap(VelVar& other) noexcept;

    union Value {
        long integer;
        double floating;
        char* narrow;
        wchar_t* wide;
    };

    int type;
    Value value;
};

#endif
