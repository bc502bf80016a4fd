// The variant against QVariant with the same values, operation by operation.

#include "bare.h"
#include "rows.h"

#include <QtCore/qbytearray.h>
#include <QtCore/qmetatype.h>
#include <QtCore/qstring.h>
#include <QtCore/qvariant.h>

#include <any>
#include <memory>

#include <kdrdata/kdrdata.h>

Q_DECLARE_METATYPE(KDRString)
Q_DECLARE_METATYPE(KDRBuffer)
Q_DECLARE_METATYPE(KDRShape)
Q_DECLARE_METATYPE(KDRImage)
Q_DECLARE_METATYPE(KDRPoint)
Q_DECLARE_METATYPE(KDRMatrix)

namespace {

using ratio::Checksum;
using ratio::escape;
using ratio::Side;

// Makes a value and destroys it, again and again; the last one is read.
template <class Make, class Read>
Side constructing(Make const& make, Read const& read)
{
    return [make, read](std::size_t times) {
        Checksum last = 0;
        for (std::size_t i = 0; i < times; ++i) {
            auto value = make(static_cast<int>(i));
            escape(value);
            if (i + 1 == times)
                last = read(value);
        }
        return last;
    };
}

// Copies a value and destroys the copy.
template <class Value, class Read>
Side copying(Value const& source, Read const& read)
{
    return [source, read](std::size_t times) {
        Checksum last = 0;
        for (std::size_t i = 0; i < times; ++i) {
            Value copy(source);
            escape(copy);
            if (i + 1 == times)
                last = read(copy);
        }
        return last;
    };
}

// Assigns two values in turn: assigning the value that is there already could be skipped.
template <class Value, class Read>
Side assigning(Value const& first, Value const& second, Read const& read)
{
    return [first, second, read](std::size_t times) {
        Value target(first);
        for (std::size_t i = 0; i < times; ++i) {
            target = i % 2 == 0 ? second : first;
            escape(target);
        }
        return read(target);
    };
}

// Copies a value and writes another into the copy, which stops sharing.
template <class Value, class Write, class Read>
Side copyingAndWriting(Value const& source, Write const& write, Read const& read)
{
    return [source, write, read](std::size_t times) {
        Checksum last = 0;
        for (std::size_t i = 0; i < times; ++i) {
            Value copy(source);
            write(copy, static_cast<int>(i));
            escape(copy);
            if (i + 1 == times)
                last = read(copy);
        }
        return last;
    };
}

// Writes into a value of its own.
template <class Make, class Write, class Read>
Side writing(Make const& make, Write const& write, Read const& read)
{
    return [make, write, read](std::size_t times) {
        auto target = make();
        for (std::size_t i = 0; i < times; ++i) {
            write(target, static_cast<int>(i));
            escape(target);
        }
        return read(target);
    };
}

// Reads a value into an output, again and again.
template <class Value, class Out, class Read, class Sum>
Side reading(Value const& source, Out const& initial, Read const& read, Sum const& sum)
{
    return [source, initial, read, sum](std::size_t times) {
        Value value(source);
        Out out(initial);
        for (std::size_t i = 0; i < times; ++i) {
            escape(value);
            read(value, out);
            escape(out);
        }
        return sum(out);
    };
}

Checksum sumOf(int value) { return static_cast<Checksum>(value); }
Checksum sumOf(double value) { return ratio::bitsOf(value); }
Checksum sumOf(bool value) { return value ? 1 : 2; }
Checksum sumOf(QString const& text)
{
    Checksum sum = static_cast<Checksum>(text.size());
    for (QChar const character : text)
        sum = ratio::mixed(sum, character.unicode());
    return sum;
}
Checksum sumOf(QByteArray const& bytes)
{
    Checksum sum = static_cast<Checksum>(bytes.size());
    for (char const byte : bytes)
        sum = ratio::mixed(sum, static_cast<unsigned char>(byte));
    return sum;
}
Checksum sumOf(KDRString const& text)
{
    return sumOf(QString::fromUtf16(text.toUtf16(), text.size()));
}
Checksum sumOf(KDRBuffer const& buffer) { return sumOf(QByteArray(buffer.data(), buffer.size())); }
Checksum sumOf(KDRShape const& shape)
{
    KDRPoint centre;
    double radius = 0.0;
    shape.toCircle(&centre, &radius);
    return ratio::bitsOf(radius);
}
Checksum sumOf(KDRImage const& image)
{
    return static_cast<Checksum>(image.width()) * static_cast<Checksum>(image.height());
}
Checksum sumOf(KDRPoint const& point) { return ratio::bitsOf(point.x()); }
Checksum sumOf(KDRMatrix const& matrix)
{
    KDRNumber element;
    matrix.select(1, 1, &element);
    return ratio::bitsOf(element.toDouble());
}

KDRShape circle()
{
    KDRPoint centre(3.0, 4.0);
    KDRShape shape;
    shape.fromCircle(centre, 5.0);
    return shape;
}

KDRMatrix affine()
{
    KDRMatrix matrix(3, 3, KDRMatrix::MatrixTypeFloat64);
    KDRNumber one(1.0);
    for (int i = 0; i < 3; ++i)
        matrix.replace(i, i, one);
    return matrix;
}

QString const& qtText()
{
    static QString const text(40, QLatin1Char('x'));
    return text;
}

// How each class is read out of our variant.
bool read(KDRVariant const& variant, KDRString& out) { return variant.toString(&out); }
bool read(KDRVariant const& variant, KDRBuffer& out) { return variant.toBuffer(&out); }
bool read(KDRVariant const& variant, KDRShape& out) { return variant.toShape(&out); }
bool read(KDRVariant const& variant, KDRImage& out) { return variant.toImage(&out); }
bool read(KDRVariant const& variant, KDRPoint& out) { return variant.toPoint(&out); }
bool read(KDRVariant const& variant, KDRMatrix& out) { return variant.toMatrix(&out); }

template <class Class>
auto ourReader()
{
    return [](KDRVariant const& variant) {
        Class out;
        read(variant, out);
        return sumOf(out);
    };
}

template <class Class>
auto qtReader()
{
    return [](QVariant const& variant) { return sumOf(variant.value<Class>()); };
}

template <class Class>
auto anyReader()
{
    return [](std::any const& any) { return sumOf(std::any_cast<Class const&>(any)); };
}

int intOf(KDRVariant const& variant)
{
    int value = 0;
    variant.toInt(&value);
    return value;
}

double doubleOf(KDRVariant const& variant)
{
    double value = 0.0;
    variant.toDouble(&value);
    return value;
}

void constructNumbers(ratio::Table& table)
{
    auto const readInt = [](auto const& variant) { return sumOf(variant.read()->toInt()); };
    auto const qtInt = constructing([](int i) { return QVariant::fromValue(i); },
                                    [](QVariant const& v) { return sumOf(v.toInt()); });
    auto const ourInt = constructing([](int i) { return KDRVariant(i); },
                                     [](KDRVariant const& v) { return sumOf(intOf(v)); });
    table.row("variant", "construct + destroy, int")
        .ours(ourInt)
        .peer("QVariant::fromValue", qtInt)
        .floor(constructing([](int i) { return bare::Variant<bare::Number>(i); }, readInt))
        .reach(ratio::againstPeer, ratio::atMost, 4.0)
        .reach(ratio::againstFloor, ratio::atMost, 1.15)
        .run();
    table.row("variant", "construct + destroy, int, against std::any")
        .ours(ourInt)
        .peer("std::any",
              constructing([](int i) { return std::any(i); },
                           [](std::any const& v) { return sumOf(std::any_cast<int>(v)); }))
        .run();
    table.row("variant", "construct + destroy, double")
        .ours(constructing([](int i) { return KDRVariant(i + 0.5); },
                           [](KDRVariant const& v) { return sumOf(doubleOf(v)); }))
        .peer("QVariant::fromValue",
              constructing([](int i) { return QVariant::fromValue(i + 0.5); },
                           [](QVariant const& v) { return sumOf(v.toDouble()); }))
        .floor(constructing([](int i) { return bare::Variant<bare::Number>(i + 0.5); },
                            [](auto const& v) { return sumOf(v.read()->toDouble()); }))
        .reach(ratio::againstPeer, ratio::atMost, 4.0)
        .reach(ratio::againstFloor, ratio::atMost, 1.15)
        .run();
    table.row("variant", "construct + destroy, bool")
        .ours(constructing([](int i) { return KDRVariant(i % 2 == 0); },
                           [](KDRVariant const& v) {
                               bool flag = false;
                               v.toBool(&flag);
                               return sumOf(flag);
                           }))
        .peer("QVariant::fromValue",
              constructing([](int i) { return QVariant::fromValue(i % 2 == 0); },
                           [](QVariant const& v) { return sumOf(v.toBool()); }))
        .floor(constructing([](int i) { return bare::Variant<bool>(i % 2 == 0); },
                            [](auto const& v) { return sumOf(*v.read()); }))
        .reach(ratio::againstPeer, ratio::atMost, 4.0)
        .run();
}

// A text or bytes: the peer holds Qt's own class, without a handle around it.
template <class Class, class Qt>
void constructText(ratio::Table& table, std::string const& name, Class const& value,
                   Qt const& qtValue)
{
    table.row("variant", "construct + destroy, " + name)
        .ours(constructing([value](int) { return KDRVariant(value); }, ourReader<Class>()))
        .peer("QVariant::fromValue",
              constructing([qtValue](int) { return QVariant::fromValue(qtValue); }, qtReader<Qt>()))
        .floor(constructing([qtValue](int) { return bare::Variant<bare::Held<Qt>>(qtValue); },
                            [](auto const& v) { return sumOf(v.read()->value()); }))
        .reach(ratio::againstPeer, ratio::atMost, 2.0)
        .run();
}

// A value of a class of ours, which the peers hold too.
template <class Class>
void constructValue(ratio::Table& table, std::string const& name, Class const& value)
{
    auto const ours = constructing([value](int) { return KDRVariant(value); }, ourReader<Class>());
    table.row("variant", "construct + destroy, " + name)
        .ours(ours)
        .peer("QVariant::fromValue",
              constructing([value](int) { return QVariant::fromValue(value); }, qtReader<Class>()))
        .floor(constructing([value](int) { return bare::Variant<Class>(value); },
                            [](auto const& v) { return sumOf(*v.read()); }))
        .reach(ratio::againstPeer, ratio::atMost, 0.8)
        .run();
    table.row("variant", "construct + destroy, " + name + ", against std::any")
        .ours(ours)
        .peer("std::any",
              constructing([value](int) { return std::any(value); }, anyReader<Class>()))
        .run();
}

void constructValues(ratio::Table& table)
{
    KDRString const text(qtText().utf16(), qtText().size());
    QByteArray const bytes(40, 'x');
    KDRBuffer const buffer(bytes.constData(), bytes.size());
    constructText(table, "text", text, qtText());
    constructText(table, "buffer", buffer, bytes);
    constructValue(table, "shape", circle());
    constructValue(table, "image", KDRImage(nullptr, 64, 64, 1, 0, KDRImage::DataTypeUInt8));
    constructValue(table, "point", KDRPoint(3.0, 4.0));
    constructValue(table, "matrix", affine());
}

void copies(ratio::Table& table)
{
    auto const ourSum = [](KDRVariant const& v) { return sumOf(intOf(v)); };
    auto const qtSum = [](QVariant const& v) { return sumOf(v.toInt()); };
    auto const bareSum = [](auto const& v) { return sumOf(v.read()->toInt()); };
    using Bare = bare::Variant<bare::Number>;
    table.row("variant", "copy + destroy, shared store")
        .ours(copying(KDRVariant(128), ourSum))
        .peer("QVariant", copying(QVariant(128), qtSum))
        .floor(copying(Bare(128), bareSum))
        .reach(ratio::againstFloor, ratio::atMost, 1.1)
        .run();
    table.row("variant", "assign")
        .ours(assigning(KDRVariant(128), KDRVariant(129), ourSum))
        .peer("QVariant", assigning(QVariant(128), QVariant(129), qtSum))
        .floor(assigning(Bare(128), Bare(129), bareSum))
        .reach(ratio::againstFloor, ratio::atMost, 1.1)
        .run();
    table.row("variant", "copy, then write a number")
        .ours(copyingAndWriting(
            KDRVariant(128), [](KDRVariant& v, int i) { v.fromInt(i); }, ourSum))
        .peer("QVariant", copyingAndWriting(
                              QVariant(128), [](QVariant& v, int i) { v.setValue(i); }, qtSum))
        .floor(copyingAndWriting(
            Bare(128), [](Bare& v, int i) { v.write(i); }, bareSum))
        .reach(ratio::againstFloor, ratio::atMost, 1.15)
        .run();
    using BareText = bare::Variant<bare::Held<QString>>;
    KDRString const text(qtText().utf16(), qtText().size());
    table.row("variant", "copy, then write a text")
        .ours(copyingAndWriting(
            KDRVariant(text), [text](KDRVariant& v, int) { v.fromString(text); },
            ourReader<KDRString>()))
        .peer("QVariant", copyingAndWriting(
                              QVariant(qtText()), [](QVariant& v, int) { v.setValue(qtText()); },
                              qtReader<QString>()))
        .floor(copyingAndWriting(
            BareText(qtText()), [](BareText& v, int) { v.write(qtText()); },
            [](BareText const& v) { return sumOf(v.read()->value()); }))
        .reach(ratio::againstFloor, ratio::atMost, 1.15)
        .run();
    table.row("variant", "write an int, unshared")
        .ours(writing([] { return KDRVariant(1); }, [](KDRVariant& v, int i) { v.fromInt(i); },
                      ourSum))
        .peer("QVariant::setValue",
              writing([] { return QVariant(1); }, [](QVariant& v, int i) { v.setValue(i); }, qtSum))
        .floor(writing([] { return Bare(1); }, [](Bare& v, int i) { v.writeInPlace(i); }, bareSum))
        .reach(ratio::againstPeer, ratio::atMost, 4.0)
        .run();
    table.row("variant", "write a double, unshared")
        .ours(writing([] { return KDRVariant(1.0); },
                      [](KDRVariant& v, int i) { v.fromDouble(i + 0.5); },
                      [](KDRVariant const& v) { return sumOf(doubleOf(v)); }))
        .peer("QVariant::setValue",
              writing([] { return QVariant(1.0); }, [](QVariant& v, int i) { v.setValue(i + 0.5); },
                      [](QVariant const& v) { return sumOf(v.toDouble()); }))
        .floor(writing([] { return Bare(1.0); }, [](Bare& v, int i) { v.writeInPlace(i + 0.5); },
                       [](Bare const& v) { return sumOf(v.read()->toDouble()); }))
        .reach(ratio::againstPeer, ratio::atMost, 4.0)
        .run();
}

template <class Scalar, class Ours, class Bare>
void readScalar(ratio::Table& table, std::string const& name, Scalar value, Ours const& ours,
                bare::Variant<Bare> const& floor, Scalar (*fromFloor)(Bare const&))
{
    auto const sum = [](Scalar const& read) { return sumOf(read); };
    table.row("variant", "read " + name)
        .ours(reading(KDRVariant(value), Scalar(), ours, sum))
        .peer("QVariant::value",
              reading(
                  QVariant(value), Scalar(),
                  [](QVariant const& v, Scalar& out) { out = v.value<Scalar>(); }, sum))
        .floor(reading(
            floor, Scalar(),
            [fromFloor](bare::Variant<Bare> const& v, Scalar& out) {
                if (Bare const* const payload = v.read())
                    out = fromFloor(*payload);
            },
            sum))
        .reach(ratio::againstPeer, ratio::atMost, 1.1)
        .run();
}

template <class Class>
void readValue(ratio::Table& table, std::string const& name, Class const& value)
{
    auto const sum = [](Class const& out) { return sumOf(out); };
    table.row("variant", "read " + name)
        .ours(reading(
            KDRVariant(value), Class(), [](KDRVariant const& v, Class& out) { read(v, out); }, sum))
        .peer("QVariant::value",
              reading(
                  QVariant::fromValue(value), Class(),
                  [](QVariant const& v, Class& out) { out = v.value<Class>(); }, sum))
        .floor(reading(
            bare::Variant<Class>(value), Class(),
            [](bare::Variant<Class> const& v, Class& out) {
                if (Class const* const payload = v.read())
                    out = *payload;
            },
            sum))
        .reach(ratio::againstPeer, ratio::atMost, 1.05)
        .run();
}

void reads(ratio::Table& table)
{
    readScalar<int, void (*)(KDRVariant const&, int&), bare::Number>(
        table, "int", 128, [](KDRVariant const& v, int& out) { v.toInt(&out); },
        bare::Variant<bare::Number>(128), [](bare::Number const& n) { return n.toInt(); });
    readScalar<double, void (*)(KDRVariant const&, double&), bare::Number>(
        table, "double", 0.5, [](KDRVariant const& v, double& out) { v.toDouble(&out); },
        bare::Variant<bare::Number>(0.5), [](bare::Number const& n) { return n.toDouble(); });
    readScalar<bool, void (*)(KDRVariant const&, bool&), bool>(
        table, "bool", true, [](KDRVariant const& v, bool& out) { v.toBool(&out); },
        bare::Variant<bool>(true), [](bool const& flag) { return flag; });
    readValue(table, "shape", circle());
    readValue(table, "image", KDRImage(nullptr, 64, 64, 1, 0, KDRImage::DataTypeUInt8));
    readValue(table, "text", KDRString(qtText().utf16(), qtText().size()));
}

} // namespace

void rows::ofVariants(ratio::Table& table)
{
    constructNumbers(table);
    constructValues(table);
    copies(table);
    reads(table);
}
