// Lists of numbers against QVariantList, QList and std::vector, and a recipe of mixed parameters
// handed from tool to tool.

#include "bare.h"
#include "rows.h"

#include <QtCore/qlist.h>
#include <QtCore/qmetatype.h>
#include <QtCore/qstring.h>
#include <QtCore/qvariant.h>

#include <vector>

#include <kdrdata/kdrdata.h>

Q_DECLARE_METATYPE(KDRShape)
Q_DECLARE_METATYPE(KDRImage)
Q_DECLARE_METATYPE(KDRMatrix)
Q_DECLARE_METATYPE(QList<double>)
Q_DECLARE_TYPEINFO(bare::Number, Q_MOVABLE_TYPE);

namespace {

using ratio::bitsOf;
using ratio::Checksum;
using ratio::escape;
using ratio::Side;

double valueAt(int i) { return i + 0.5; }

// --- what each list calls its operations
// ----------------------------------------------------------

struct Ours
{
    using List = KDRNumberArray;
    static void append(List& list, double value) { list.push_back(KDRNumber(value)); }
    static int size(List const& list) { return list.length(); }
    static void change(List& list, int i, double value) { list.replace(i, KDRNumber(value)); }
    // Reads every element, into one and the same number.
    template <class Take>
    static void readAll(List const& list, Take const& take)
    {
        KDRNumber number;
        for (int i = 0; i < list.length(); ++i) {
            list.select(i, &number);
            take(number.toDouble());
        }
    }
};

struct Variants
{
    using List = QVariantList;
    static void append(List& list, double value) { list.append(QVariant(value)); }
    static int size(List const& list) { return list.size(); }
    static void change(List& list, int i, double value) { list[i] = QVariant(value); }
    template <class Take>
    static void readAll(List const& list, Take const& take)
    {
        QVariant variant;
        for (int i = 0; i < list.size(); ++i) {
            variant = list.at(i);
            take(variant.toDouble());
        }
    }
};

struct Bare
{
    using List = QList<bare::Number>;
    static void append(List& list, double value) { list.append(bare::Number(value)); }
    static int size(List const& list) { return list.size(); }
    static void change(List& list, int i, double value) { list[i] = bare::Number(value); }
    template <class Take>
    static void readAll(List const& list, Take const& take)
    {
        bare::Number number;
        for (int i = 0; i < list.size(); ++i) {
            number = list.at(i);
            take(number.toDouble());
        }
    }
};

template <class Container>
struct Plain
{
    using List = Container;
    static void append(List& list, double value) { list.push_back(value); }
    static int size(List const& list) { return static_cast<int>(list.size()); }
    static void change(List& list, int i, double value)
    {
        list[static_cast<typename List::size_type>(i)] = value;
    }
    template <class Take>
    static void readAll(List const& list, Take const& take)
    {
        for (double const value : list)
            take(value);
    }
};

// --- the operations
// -------------------------------------------------------------------------------

template <class Kind>
typename Kind::List filled(int length)
{
    typename Kind::List list;
    for (int i = 0; i < length; ++i)
        Kind::append(list, valueAt(i));
    return list;
}

template <class Kind>
Checksum sumOf(typename Kind::List const& list)
{
    Checksum sum = static_cast<Checksum>(Kind::size(list));
    Kind::readAll(list, [&sum](double value) { sum = ratio::mixed(sum, bitsOf(value)); });
    return sum;
}

template <class Kind>
Side appending(int length)
{
    return [length](std::size_t times) {
        Checksum size = 0;
        for (std::size_t i = 0; i < times; ++i) {
            typename Kind::List list = filled<Kind>(length);
            escape(list);
            size += static_cast<Checksum>(Kind::size(list));
        }
        return size;
    };
}

template <class Kind>
Side reading(int length)
{
    typename Kind::List const list = filled<Kind>(length);
    return [list](std::size_t times) {
        double total = 0.0;
        for (std::size_t i = 0; i < times; ++i)
            Kind::readAll(list, [&total](double value) { total += value; });
        return bitsOf(total);
    };
}

template <class Kind>
Side copyingAndChanging(int length)
{
    typename Kind::List const list = filled<Kind>(length);
    return [list](std::size_t times) {
        Checksum sum = 0;
        for (std::size_t i = 0; i < times; ++i) {
            typename Kind::List copy(list);
            Kind::change(copy, 0, valueAt(7));
            escape(copy);
            if (i + 1 == times)
                sum = sumOf<Kind>(copy);
        }
        return sum;
    };
}

std::string power(int exponent) { return "10^" + std::to_string(exponent); }

void numberArrays(ratio::Table& table)
{
    int length = 100;
    for (int exponent = 3; exponent <= 6; ++exponent) {
        length *= 10;
        table.row("array", "append " + power(exponent) + " numbers")
            .ours(appending<Ours>(length))
            .peer("QVariantList", appending<Variants>(length))
            .floor(appending<Bare>(length))
            .units(length, "number")
            .turns(exponent == 6 ? 11 : 0)
            .reach(ratio::againstPeer, ratio::atMost, 1.0)
            .run();
    }
    constexpr int many = 10000;
    table.row("array", "append 10^4 numbers, against QList<double>")
        .ours(appending<Ours>(many))
        .peer("QList<double>", appending<Plain<QList<double>>>(many))
        .units(many, "number")
        .run();
    table.row("array", "append 10^4 numbers, against std::vector")
        .ours(appending<Ours>(many))
        .peer("std::vector<double>", appending<Plain<std::vector<double>>>(many))
        .units(many, "number")
        .run();
    table.row("array", "select all of 10^4 numbers")
        .ours(reading<Ours>(many))
        .peer("QVariantList", reading<Variants>(many))
        .floor(reading<Bare>(many))
        .units(many, "number")
        .reach(ratio::againstPeer, ratio::atMost, 1.2)
        .run();
    for (int const size : {1000, 100000}) {
        table.row("array", "copy " + power(size == 1000 ? 3 : 5) + " numbers + one change")
            .ours(copyingAndChanging<Ours>(size))
            .peer("QVariantList", copyingAndChanging<Variants>(size))
            .floor(copyingAndChanging<Bare>(size))
            .units(size, "number")
            .reach(ratio::againstPeer, ratio::atMost, 1.0)
            .run();
    }
}

// --- a recipe
// -------------------------------------------------------------------------------------

constexpr int numbers = 8;
constexpr int texts = 6;
constexpr int shapes = 4;
constexpr int pairs = 2;
constexpr int firstText = numbers;
constexpr int firstShape = firstText + texts;
constexpr int firstImage = firstShape + shapes;
constexpr int firstList = firstImage + pairs;
constexpr int tools = 4;
constexpr int listLength = 16;

// What both recipes are made of.
struct Ingredients
{
    QString qtText = QString(20, QLatin1Char('p'));
    KDRString text{qtText.utf16(), qtText.size()};
    KDRShape shape = circle();
    KDRImage image{nullptr, 64, 64, 1, 0, KDRImage::DataTypeUInt8};
    KDRMatrix matrix{3, 3, KDRMatrix::MatrixTypeFloat64};
    KDRNumberArray list = filled<Ours>(listLength);
    QList<double> qtList = filled<Plain<QList<double>>>(listLength);

    static KDRShape circle()
    {
        KDRPoint centre(3.0, 4.0);
        KDRShape made;
        made.fromCircle(centre, 5.0);
        return made;
    }
};

double radiusOf(KDRShape const& shape)
{
    KDRPoint centre;
    double radius = 0.0;
    shape.toCircle(&centre, &radius);
    return radius;
}

// Each tool takes the list as it comes, reads two numbers, two texts, a shape and a list, and
// changes a number and a text.
Checksum handOver(Ingredients const& of)
{
    KDRVariantArray recipe;
    for (int i = 0; i < numbers; ++i)
        recipe.push_back(KDRVariant(valueAt(i)));
    for (int i = 0; i < texts; ++i)
        recipe.push_back(KDRVariant(of.text));
    for (int i = 0; i < shapes; ++i)
        recipe.push_back(KDRVariant(of.shape));
    for (int i = 0; i < pairs; ++i)
        recipe.push_back(KDRVariant(of.image));
    for (int i = 0; i < pairs; ++i)
        recipe.push_back(KDRVariant(of.list));
    for (int i = 0; i < pairs; ++i)
        recipe.push_back(KDRVariant(of.matrix));
    double sum = 0.0;
    for (int tool = 0; tool < tools; ++tool) {
        KDRVariantArray mine(recipe);
        KDRVariant parameter;
        double number = 0.0;
        for (int i = tool; i < tool + 2; ++i) {
            mine.select(i, &parameter);
            parameter.toDouble(&number);
            sum += number;
        }
        KDRString text;
        for (int i = firstText + tool; i < firstText + tool + 2; ++i) {
            mine.select(i, &parameter);
            parameter.toString(&text);
            sum += text.size();
        }
        KDRShape shape;
        mine.select(firstShape + tool, &parameter);
        parameter.toShape(&shape);
        sum += radiusOf(shape);
        KDRNumberArray list;
        mine.select(firstList + tool % pairs, &parameter);
        parameter.toNumberArray(&list);
        sum += list.length();

        mine.select(tool, &parameter);
        parameter.fromDouble(sum);
        mine.replace(tool, parameter);
        mine.select(firstText + tool, &parameter);
        parameter.fromString(of.text);
        mine.replace(firstText + tool, parameter);
        recipe = mine;
    }
    return bitsOf(sum);
}

Checksum qtHandOver(Ingredients const& of)
{
    QVariantList recipe;
    for (int i = 0; i < numbers; ++i)
        recipe.append(QVariant(valueAt(i)));
    for (int i = 0; i < texts; ++i)
        recipe.append(QVariant(of.qtText));
    for (int i = 0; i < shapes; ++i)
        recipe.append(QVariant::fromValue(of.shape));
    for (int i = 0; i < pairs; ++i)
        recipe.append(QVariant::fromValue(of.image));
    for (int i = 0; i < pairs; ++i)
        recipe.append(QVariant::fromValue(of.qtList));
    for (int i = 0; i < pairs; ++i)
        recipe.append(QVariant::fromValue(of.matrix));
    double sum = 0.0;
    for (int tool = 0; tool < tools; ++tool) {
        QVariantList mine(recipe);
        QVariant parameter;
        for (int i = tool; i < tool + 2; ++i) {
            parameter = mine.at(i);
            sum += parameter.value<double>();
        }
        for (int i = firstText + tool; i < firstText + tool + 2; ++i) {
            parameter = mine.at(i);
            sum += parameter.value<QString>().size();
        }
        parameter = mine.at(firstShape + tool);
        sum += radiusOf(parameter.value<KDRShape>());
        parameter = mine.at(firstList + tool % pairs);
        sum += parameter.value<QList<double>>().size();

        parameter = mine.at(tool);
        parameter.setValue(sum);
        mine.replace(tool, parameter);
        parameter = mine.at(firstText + tool);
        parameter.setValue(of.qtText);
        mine.replace(firstText + tool, parameter);
        recipe = mine;
    }
    return bitsOf(sum);
}

template <Checksum (*Run)(Ingredients const&)>
Side handingOver()
{
    return [of = Ingredients()](std::size_t times) {
        Checksum sum = 0;
        for (std::size_t i = 0; i < times; ++i)
            sum = ratio::mixed(sum, Run(of));
        return sum;
    };
}

} // namespace

void rows::ofArrays(ratio::Table& table) { numberArrays(table); }

void rows::ofHandOver(ratio::Table& table)
{
    table.row("hand-over", "recipe of 24 parameters through 4 tools")
        .ours(handingOver<handOver>())
        .peer("QVariantList", handingOver<qtHandOver>())
        .units(1, "recipe")
        .reach(ratio::againstPeer, ratio::atMost, 2.2)
        .run();
}
