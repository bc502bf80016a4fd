#ifndef KDRDATA_KDRDEBUGSCALARS_H
#define KDRDATA_KDRDEBUGSCALARS_H

/// @file
/// The text forms of texts, bytes, numbers and choices: a part of kdrdebugtext.h, which is
/// to be included.

#include <kdrdata/debug/kdrdebugpieces.h>
#include <kdrdata/scalars/scalars.h>
#include <kdrdata/text/text.h>

/// @cond
namespace KDRDebug {

template <>
struct Form<bool>
{
    static std::string brief(bool value, int) { return value ? "true" : "false"; }
};

template <>
struct Form<KDRString> : SameForm<Form<KDRString>, KDRString>
{
    static std::string full(KDRString const& value, int)
    {
        return value.isNull() ? "null" : quoted(value.toUtf16(), value.size());
    }
};

template <>
struct Form<KDRChar> : SameForm<Form<KDRChar>, KDRChar>
{
    static std::string full(KDRChar const& value, int)
    {
        unsigned short const unit = value.unicode();
        return quoted(&unit, 1, '\'') + " (U+" + hexadecimal(unit, 4) + ')';
    }
};

template <>
struct Form<KDRRegExp> : SameForm<Form<KDRRegExp>, KDRRegExp>
{
    static std::string full(KDRRegExp const& value, int depth)
    {
        constexpr char const* syntaxes[] = {"regular expression", "wildcard",
                                            "fixed string",       "regular expression 2",
                                            "Unix wildcard",      "XML Schema 1.1"};
        auto const syntax = static_cast<unsigned int>(value.patternSyntax());
        std::string text = Form<KDRString>::full(value.pattern(), depth);
        text += std::string(", ") + (syntax < 6 ? syntaxes[syntax] : "unknown syntax");
        if (value.caseSensitivity() == KDRRegExp::KDRCaseInsensitive)
            text += ", any case";
        if (value.isMinimal())
            text += ", minimal";
        return text;
    }
};

template <>
struct Form<KDRBuffer> : SameForm<Form<KDRBuffer>, KDRBuffer>
{
    static std::string full(KDRBuffer const& value, int)
    {
        auto const* const first = reinterpret_cast<unsigned char const*>(value.constData());
        return value.isNull() ? "null"
                              : bytes(first, static_cast<unsigned long long>(value.size()));
    }
};

template <>
struct Form<KDRStringArray> : ArrayForm<KDRStringArray, KDRString>
{
};

template <>
struct Form<KDRBufferArray> : ArrayForm<KDRBufferArray, KDRBuffer>
{
};

template <>
struct Form<KDRNumber>
{
    static std::string full(KDRNumber const& value, int depth)
    {
        std::string text = brief(value, depth) + (isInteger(value) ? " (int" : " (double");
        double const ends[] = {value.minValue(), value.maxValue()};
        if (!isZero(ends[0]) || !isZero(ends[1]))
            text += ", range " + decimal(ends[0]) + ".." + decimal(ends[1]);
        return text + ')';
    }

    static std::string brief(KDRNumber const& value, int)
    {
        return isInteger(value) ? integer(value.toLongLong()) : floating(value.toDouble());
    }

private:
    // A constant number does not tell its kind.
    static bool isInteger(KDRNumber const& value) { return KDRNumber(value).numType() == 0; }
    static bool isZero(double number) { return !(number < 0 || number > 0 || std::isnan(number)); }
};

template <>
struct Form<KDRNumberArray> : ArrayForm<KDRNumberArray, KDRNumber>
{
};

template <>
struct Form<KDRBoolArray> : ArrayForm<KDRBoolArray, bool>
{
};

inline std::string selection(int chosen, KDRStringArray const& names, KDRNumberArray const& numbers,
                             int depth)
{
    std::string text = chosen == -1 ? "none" : integer(chosen);
    KDRString name;
    if (names.select(chosen, &name))
        text += ' ' + Form<KDRString>::full(name, depth);
    text += " of " + Form<KDRStringArray>::full(names, depth);
    if (numbers.length() > 0)
        text += ", numbers " + Form<KDRNumberArray>::full(numbers, depth);
    return text;
}

template <>
struct Form<KDREnum> : SameForm<Form<KDREnum>, KDREnum>
{
    static std::string full(KDREnum const& value, int depth)
    {
        // A constant selection does not tell its lists.
        KDREnum copy(value);
        KDRStringArray names;
        KDRNumberArray numbers;
        copy.getEnumStringList(names);
        copy.getEnumIndexList(numbers);
        return selection(value.currentVal(), names, numbers, depth);
    }
};

template <>
struct Form<KDREnumPrivate> : SameForm<Form<KDREnumPrivate>, KDREnumPrivate>
{
    static std::string full(KDREnumPrivate const& value, int depth)
    {
        return selection(value.currentValue, value.stringList, value.indexList, depth);
    }
};

template <>
struct Form<KDREnumArray> : ArrayForm<KDREnumArray, KDREnum>
{
};

template <>
struct Form<KDRColor> : NoDataForm<KDRColor>
{
};

template <>
struct Form<KDRColorArray> : NoDataForm<KDRColorArray>
{
};

} // namespace KDRDebug
/// @endcond

#endif
