#ifndef KDRDATA_TESTS_WORDS_H
#define KDRDATA_TESTS_WORDS_H

#include <kdrdata/kdrdata.h>

#include <sstream>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "../vision/shapetable.h"

/// Everything that can be read from a value, in words, so that two values can be compared.
std::string inWords(KDRString const& text);
std::string inWords(KDRBuffer const& bytes);
std::string inWords(KDRChar const& character);
std::string inWords(KDRRegExp const& expression);
std::string inWords(KDRNumber const& number);
std::string inWords(KDREnum const& value);
std::string inWords(KDRPoint const& point);
std::string inWords(KDRFont const& font);
std::string inWords(KDRContour const& contour);
std::string inWords(KDRImage const& image);
std::string inWords(KDRMatrix const& matrix);
std::string inWords(KDRRegion const& region);
std::string inWords(KDRChunkData const& data);
std::string inWords(KDRMatchModel const& model);
std::string inWords(KDRROIAlignment const& alignment);
std::string inWords(KDRShape const& shape);
std::string inWords(KDRVariant const& variant);
inline std::string inWords(std::string const& text) { return text; }
inline std::string inWords(ShapeValues const& values) { return describe(values); }

namespace words {

template <class Value>
std::string of(Value const& value);

} // namespace words

/// Arrays, by their elements, which select() reads without detaching anything.
template <class Array, class Element>
std::string elementsInWords(Array const& array)
{
    std::string text = "[";
    for (int i = 0; i < array.length(); ++i) {
        Element element{};
        array.select(i, &element);
        text += words::of(element) + ';';
    }
    return text + ']';
}

#define KDR_ARRAY_IN_WORDS(Array, Element)                                                         \
    inline std::string inWords(Array const& array)                                                 \
    {                                                                                              \
        return elementsInWords<Array, Element>(array);                                             \
    }
KDR_ARRAY_IN_WORDS(KDRStringArray, KDRString)
KDR_ARRAY_IN_WORDS(KDRBufferArray, KDRBuffer)
KDR_ARRAY_IN_WORDS(KDRBoolArray, bool)
KDR_ARRAY_IN_WORDS(KDRNumberArray, KDRNumber)
KDR_ARRAY_IN_WORDS(KDREnumArray, KDREnum)
KDR_ARRAY_IN_WORDS(KDRPointArray, KDRPoint)
KDR_ARRAY_IN_WORDS(KDRContourArray, KDRContour)
KDR_ARRAY_IN_WORDS(KDRImageArray, KDRImage)
KDR_ARRAY_IN_WORDS(KDRMatrixArray, KDRMatrix)
KDR_ARRAY_IN_WORDS(KDRRegionArray, KDRRegion)
KDR_ARRAY_IN_WORDS(KDRShapeArray, KDRShape)
KDR_ARRAY_IN_WORDS(KDRVariantArray, KDRVariant)
#undef KDR_ARRAY_IN_WORDS

inline std::string inWords(KDRMatrix3Array const& array) { return std::to_string(array.length()); }
inline std::string inWords(KDRMatrix4Array const& array) { return std::to_string(array.length()); }
inline std::string inWords(KDRShape3DArray const& array) { return std::to_string(array.length()); }

template <class... Values>
std::string inWords(std::tuple<Values...> const& values)
{
    return std::apply([](auto const&... each) { return (std::string() + ... + words::of(each)); },
                      values);
}

template <class Value>
std::string words::of(Value const& value)
{
    if constexpr (std::is_arithmetic_v<Value> || std::is_enum_v<Value>) {
        std::ostringstream out;
        out << +value << ' ';
        return out.str();
    } else {
        return inWords(value);
    }
}

#endif
