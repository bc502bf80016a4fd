#include "words.h"

#include <initializer_list>
#include <iterator>
#include <vector>

#include "../variant/kindtable.h"

namespace {

template <class... Values>
std::string joined(Values const&... values)
{
    std::string text;
    ((text += words::of(values) + ' '), ...);
    return text;
}

} // namespace

std::string inWords(KDRString const& text)
{
    std::string const bytes(reinterpret_cast<char const*>(text.toUtf16()),
                            2 * static_cast<std::size_t>(text.size()));
    return joined(text.isNull(), text.size(), bytes);
}

std::string inWords(KDRBuffer const& bytes)
{
    std::string const content(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return joined(bytes.isNull(), content);
}

std::string inWords(KDRChar const& character) { return joined(character.unicode()); }

std::string inWords(KDRRegExp const& expression)
{
    return joined(expression.pattern(), expression.patternSyntax(), expression.caseSensitivity(),
                  expression.isMinimal(), expression.isValid(), expression.matchedLength(),
                  expression.pos(), expression.cap());
}

std::string inWords(KDRNumber const& number)
{
    KDRNumber copy;
    copy = number;
    return joined(copy.numType(), number.toDouble(), number.toLongLong(), number.maxValue(),
                  number.minValue());
}

std::string inWords(KDREnum const& value)
{
    KDREnum copy(value);
    KDRStringArray names;
    KDRNumberArray numbers;
    copy.getEnumStringList(names);
    copy.getEnumIndexList(numbers);
    return joined(value.currentVal(), names, numbers);
}

std::string inWords(KDRPoint const& point)
{
    return joined(point.x(), point.y(), point.getXMaxVal(), point.getXMinVal(), point.getXStepVal(),
                  point.getYMaxVal(), point.getYMinVal(), point.getYStepVal());
}

std::string inWords(KDRFont const& font)
{
    KDRFont copy(font);
    return joined(copy.faceName(), copy.size(), copy.weight(), copy.bold(), copy.italic(),
                  copy.underline(), copy.strikeOut());
}

std::string inWords(KDRContour const& contour)
{
    KDRPointArray points;
    contour.ToPointArray(&points);
    return joined(points, contour.length());
}

std::string inWords(KDRImage const& image)
{
    std::string pixels;
    if (image.dataPtr()) {
        for (int row = 0; row < image.height(); ++row)
            pixels.append(reinterpret_cast<char const*>(image.dataPtr()) + row * image.step(),
                          static_cast<std::size_t>(image.step()));
    }
    return joined(image.width(), image.height(), image.channel(), image.depth(), pixels);
}

std::string inWords(KDRMatrix const& matrix)
{
    std::string text = joined(matrix.rows(), matrix.cols(), matrix.type());
    for (int row = 0; row < matrix.rows(); ++row) {
        for (int column = 0; column < matrix.cols(); ++column) {
            KDRNumber element;
            matrix.select(row, column, &element);
            text += joined(element.toDouble());
        }
    }
    return text;
}

std::string inWords(KDRRegion const& region)
{
    KDRRegion copy(region);
    KDRNumberArray rows;
    KDRNumberArray firsts;
    KDRNumberArray lasts;
    copy.toRunLengthEncodeing(&rows, &firsts, &lasts);
    return joined(copy.width(), copy.height(), rows, firsts, lasts);
}

std::string inWords(KDRChunkData const& data)
{
    return joined(std::string(reinterpret_cast<char const*>(data.getData()), data.getLength()));
}

std::string inWords(KDRMatchModel const& model)
{
    std::vector<unsigned char> record(model.GetLenth());
    int const answer = model.GetData(record.data());
    return joined(model.ModelType(), answer, std::string(record.begin(), record.end()));
}

std::string inWords(KDRROIAlignment const& alignment)
{
    KDRROIAlignment copy(alignment);
    KDRMatrixArray matrices;
    copy.toMatrixArray(&matrices);
    return joined(matrices);
}

std::string inWords(KDRShape const& shape)
{
    ShapeValues values;
    for (auto const& getter : shapeGetters<KDRShape>) {
        if (getter.kind == shape.shapeType())
            getter.read(shape, values);
    }
    return joined(shape.shapeType(), values);
}

std::string inWords(KDRVariant const& variant)
{
    KDRVariant handle(variant);
    std::string text = joined(variant.variantType(), handle.attribute());
    for (KindEntry const& row : kindTable) {
        if (row.kind == variant.variantType()) {
            Reading const reading = row.read(handle);
            text += joined(reading.answer, reading.number);
        }
    }
    return text;
}
