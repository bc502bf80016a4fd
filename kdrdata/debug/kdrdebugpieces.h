#ifndef KDRDATA_KDRDEBUGPIECES_H
#define KDRDATA_KDRDEBUGPIECES_H

/// @file
/// What the text forms are put together from: a part of kdrdebugtext.h, which is
/// to be included.

#include <QtCore/qbytearray.h>

#include <cmath>
#include <string>

/// @cond
namespace KDRDebug {

/// How much of a long value a text form shows.
enum Limit : int {
    LongestText = 80, ///< code units of a text
    LongestBytes = 16,
    LongestList = 10, ///< elements
    DeepestList = 3,  ///< lists in lists; deeper ones show their length alone
    MostCells = 16    ///< a matrix of more elements shows its size alone
};

/// An integer in decimal digits.
inline std::string integer(long long value) { return std::to_string(value); }

/// The fewest digits, but no fewer than 15, that give the number back: `0.1`, `1e+20`, `nan`.
inline std::string decimal(double value)
{
    if (std::isnan(value))
        return "nan";
    if (!(value < 0 || value > 0))
        return std::signbit(value) ? "-0" : "0";
    constexpr int fewestDigits = 15;
    constexpr int mostDigits = 17;
    QByteArray digits;
    for (int precision = fewestDigits; precision <= mostDigits; ++precision) {
        digits = QByteArray::number(value, 'g', precision);
        double const back = digits.toDouble();
        if (!(back < value || back > value))
            break;
    }
    return std::string(digits.constData(), static_cast<std::string::size_type>(digits.size()));
}

/// As decimal(), and never to be taken for an integer: `5.0`.
inline std::string floating(double value)
{
    std::string const digits = decimal(value);
    return digits.find_first_not_of("-0123456789") == std::string::npos ? digits + ".0" : digits;
}

/// `(3, 4.5)`
inline std::string pair(double x, double y) { return '(' + decimal(x) + ", " + decimal(y) + ')'; }

/// `1 byte`, `2 bytes`
inline std::string count(unsigned long long number, char const* noun)
{
    return std::to_string(number) + ' ' + noun + (number == 1 ? "" : "s");
}

/// @p number in hexadecimal digits, padded with zeros to @p width.
inline std::string hexadecimal(unsigned int number, int width)
{
    std::string digits;
    for (; width > 0 || number != 0; --width, number >>= 4)
        digits.insert(digits.begin(), "0123456789abcdef"[number & 0xFU]);
    return digits;
}

/// Whether a code point is written as it is: not a control character, not one that cannot be seen
/// or turns the direction of writing, not half of a pair, not a code point without a character.
inline bool isWritten(unsigned int code)
{
    struct Range
    {
        unsigned int first;
        unsigned int last;
    };
    constexpr Range hidden[] = {
        {0x0, 0x1F},      {0x7F, 0x9F},     {0xAD, 0xAD},     {0x200B, 0x200F}, {0x2028, 0x202E},
        {0x2060, 0x206F}, {0xD800, 0xDFFF}, {0xFEFF, 0xFEFF}, {0xFFF0, 0xFFFB}, {0xFFFE, 0xFFFF}};
    for (Range const& range : hidden) {
        if (code >= range.first && code <= range.last)
            return false;
    }
    return true;
}

inline void appendUtf8(std::string& text, unsigned int code)
{
    auto const put = [&text](unsigned int byte) { text += static_cast<char>(byte); };
    auto const putTail = [&put, code](int shift) { put(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0U | (code >> 6));
        putTail(0);
    } else if (code < 0x10000) {
        put(0xE0U | (code >> 12));
        putTail(6);
        putTail(0);
    } else {
        put(0xF0U | (code >> 18));
        putTail(12);
        putTail(6);
        putTail(0);
    }
}

inline void appendEscaped(std::string& text, unsigned int code, char quote)
{
    if (code == static_cast<unsigned char>(quote) || code == '\\') {
        text += '\\';
        text += static_cast<char>(code);
    } else if (code == '\n') {
        text += "\\n";
    } else if (code == '\r') {
        text += "\\r";
    } else if (code == '\t') {
        text += "\\t";
    } else if (isWritten(code)) {
        appendUtf8(text, code);
    } else {
        text += "\\u" + hexadecimal(code, 4);
    }
}

inline bool isHighHalf(unsigned int unit) { return (unit & 0xFC00U) == 0xD800U; }
inline bool isLowHalf(unsigned int unit) { return (unit & 0xFC00U) == 0xDC00U; }

/// UTF-16 between quotes, in UTF-8. A long text is cut, not inside of a pair, and its length in
/// code units named: `"one two"... (length 200)`.
inline std::string quoted(unsigned short const* units, int length, char quote = '"')
{
    int shown = length;
    if (length > LongestText) {
        shown = LongestText;
        if (isHighHalf(units[shown - 1]) && isLowHalf(units[shown]))
            --shown;
    }
    std::string text(1, quote);
    for (int i = 0; i < shown; ++i) {
        unsigned int code = units[i];
        if (isHighHalf(code) && i + 1 < shown && isLowHalf(units[i + 1])) {
            ++i;
            code = 0x10000U + ((code & 0x3FFU) << 10) + (units[i] & 0x3FFU);
        }
        appendEscaped(text, code, quote);
    }
    text += quote;
    return shown == length ? text : text + "... (length " + integer(length) + ')';
}

/// `3 bytes: 01 02 ff`; of many bytes the first.
inline std::string bytes(unsigned char const* first, unsigned long long length)
{
    std::string text = count(length, "byte");
    bool const isCut = length > LongestBytes;
    unsigned long long const shown = isCut ? static_cast<unsigned long long>(LongestBytes) : length;
    for (unsigned long long i = 0; i < shown; ++i)
        text += (i == 0 ? ": " : " ") + hexadecimal(first[i], 2);
    return isCut ? text + " ..." : text;
}

/// `[1, 2, 3]`. A long list is cut, a deep one not written at all, and the length named:
/// `[1, 2, ...] (length 200)`.
template <class ElementText>
std::string list(int length, int depth, ElementText const& elementText)
{
    if (length <= 0)
        return "[]";
    int const most = depth < DeepestList ? static_cast<int>(LongestList) : 0;
    int const shown = length < most ? length : most;
    std::string text(1, '[');
    for (int i = 0; i < shown; ++i)
        text += (i == 0 ? "" : ", ") + elementText(i);
    if (shown == length)
        return text + ']';
    return text + (shown == 0 ? "...] (length " : ", ...] (length ") + integer(length) + ')';
}

/// The text form of a class, specialised for each: `full(value, depth)` says all of a value,
/// `brief(value, depth)` what it is as an element or a part of another.
template <class Class>
struct Form;

/// The form of a class that says of itself the same everywhere.
template <class Derived, class Class>
struct SameForm
{
    static std::string brief(Class const& value, int depth) { return Derived::full(value, depth); }
};

/// The form of a class that carries nothing.
template <class Class>
struct NoDataForm
{
    static std::string full(Class const&, int) { return "no data"; }
    static std::string brief(Class const&, int) { return "no data"; }
};

/// The form of an array: its elements.
template <class Array, class Element>
struct ArrayForm
{
    static std::string full(Array const& array, int depth)
    {
        return list(array.length(), depth, [&array, depth](int i) {
            Element element;
            array.select(i, &element);
            return Form<Element>::brief(element, depth + 1);
        });
    }
    static std::string brief(Array const& array, int depth) { return full(array, depth); }
};

} // namespace KDRDebug
/// @endcond

#endif
