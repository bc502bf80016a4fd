#include "select.h"

#include "page/failure.h"

#include <QtCore/qjsonarray.h>
#include <QtCore/qjsondocument.h>
#include <QtCore/qjsonobject.h>
#include <algorithm>
#include <vector>

#include <kdrio/kdrio.h>

namespace kdrdump {

namespace {

// One step of a path: into the contents of a name, or to an element.
struct Step
{
    QString name;
    int index;
    QString text;

    bool isElement() const { return name.isNull(); }
};

// Takes a path apart.
class PathReader
{
public:
    explicit PathReader(QString const& text) : path(text) {}

    std::vector<Step> steps()
    {
        std::vector<Step> all;
        while (at < path.size())
            all.push_back(path[at] == '[' ? element() : name());
        return all;
    }

private:
    Step element()
    {
        int const start = at;
        int const end = path.indexOf(']', start);
        QString const digits = path.mid(start + 1, end - start - 1);
        bool isNumber = false;
        int const index = digits.toInt(&isNumber);
        bool const isPlain = std::all_of(digits.begin(), digits.end(),
                                         [](QChar each) { return each >= '0' && each <= '9'; });
        if (end < 0 || !isNumber || !isPlain)
            refuse("an element such as [3] is expected");
        at = end + 1;
        return {QString(), index, path.mid(start, at - start)};
    }

    Step name()
    {
        int const start = at;
        if (start > 0 && path[start] != '.')
            refuse("'.' or '[' is expected");
        if (start > 0)
            ++at;
        int const first = at;
        while (at < path.size() && path[at] != '.' && path[at] != '[')
            ++at;
        if (at == first)
            refuse("a name is expected");
        return {path.mid(first, at - first), 0, path.mid(start, at - start)};
    }

    [[noreturn]] void refuse(char const* why) const
    {
        throw page::Failure("cannot select '" + path.toStdString() + "': " + why +
                            " at character " + std::to_string(at + 1));
    }

    QString path;
    int at = 0;
};

// The element of a list as a value of its own, if it has a kind.
template <class Element, class Array>
bool takeElement(KDRVariant& value, bool (KDRVariant::*reader)(Array*) const, int index)
{
    Array list;
    if (!(value.*reader)(&list) || index >= list.length())
        return false;
    Element element{};
    list.select(index, &element);
    value = KDRVariant(element);
    return true;
}

// A number in a list keeps its range.
bool takeNumber(KDRVariant& value, int index)
{
    KDRNumberArray list;
    if (!value.toNumberArray(&list) || index >= list.length())
        return false;
    KDRNumber number;
    list.select(index, &number);
    value = KDRVariant(number);
    KDRNumber* stored = nullptr;
    if (value.toNumberPtr(stored))
        *stored = number;
    return true;
}

bool takeVariant(KDRVariant& value, int index)
{
    KDRVariantArray list;
    if (!value.toVariantArray(&list) || index >= list.length())
        return false;
    KDRVariant const element = list[index];
    value = element;
    return true;
}

bool takeElement(KDRVariant& value, int index)
{
    return takeVariant(value, index) || takeNumber(value, index) ||
           takeElement<bool>(value, &KDRVariant::toBoolArray, index) ||
           takeElement<KDRString>(value, &KDRVariant::toStringArray, index) ||
           takeElement<KDRPoint>(value, &KDRVariant::toPointArray, index) ||
           takeElement<KDRImage>(value, &KDRVariant::toImageArray, index) ||
           takeElement<KDRShape>(value, &KDRVariant::toShapeArray, index) ||
           takeElement<KDRContour>(value, &KDRVariant::toContourArray, index) ||
           takeElement<KDRMatrix>(value, &KDRVariant::toMatrixArray, index) ||
           takeElement<KDRBuffer>(value, &KDRVariant::toBufferArray, index);
}

// Lists up to a length are written out; negative: all.
QJsonValue jsonOf(KDRVariant const& value, int longest)
{
    kdrio::JsonOptions options;
    options.longest = longest;
    options.compact = true;
    // A list around it makes a document of whatever it is.
    QByteArray const text =
        '[' + QByteArray(kdrio::toJson(value, options).toUtf8().constData()) + ']';
    return QJsonDocument::fromJson(text).array().at(0);
}

// What the contents of a value are called in files: the name of its kind.
QString kindNameOf(KDRVariant const& value)
{
    // What JSON itself has may stand without it.
    switch (value.variantType()) {
    case KindBool:
        return "bool";
    case KindNumber:
        return "number";
    case KindString:
        return "string";
    case KindBuffer:
        return "buffer";
    case KindVariantArray:
        return "variant array";
    case KindNone:
        return "empty";
    default:
        return jsonOf(value, 0).toObject().keys().value(0);
    }
}

// The contents of a value as one field.
QJsonValue contentsOf(KDRVariant const& value)
{
    QJsonObject const object = jsonOf(value, -1).toObject();
    return object.isEmpty() ? QJsonValue() : QJsonValue(*object.constBegin());
}

// One step down from a field; false where there is nothing.
bool enter(QJsonValue& field, Step const& step)
{
    if (step.isElement()) {
        QJsonArray const list =
            field.isObject() ? field.toObject()["values"].toArray() : field.toArray();
        if (step.index >= list.size())
            return false;
        field = QJsonValue(list.at(step.index));
        return true;
    }
    QJsonObject const object = field.toObject();
    if (!object.contains(step.name))
        return false;
    field = QJsonValue(object[step.name]);
    return true;
}

// Goes down from a value, and then from field to field.
class Descent
{
public:
    explicit Descent(KDRVariant const& whole) : piece{true, whole, QJsonValue(), ""} {}

    bool go(Step const& step)
    {
        if (piece.isValue && step.isElement() && takeElement(piece.value, step.index)) {
            isNamed = false;
            return true;
        }
        // Elements that are no values are those of the contents.
        if (piece.isValue && step.isElement() && !isNamed)
            return false;
        if (piece.isValue && !isNamed && step.name == kindNameOf(piece.value)) {
            isNamed = true;
            return true;
        }
        if (piece.isValue) {
            piece.field = contentsOf(piece.value);
            piece.isValue = false;
        }
        return enter(piece.field, step);
    }

    Piece piece;

private:
    bool isNamed = false; // the last step was the kind of the value
};

} // namespace

Piece pieceAt(KDRVariant const& whole, QString const& path)
{
    Descent descent(whole);
    Piece& piece = descent.piece;
    for (Step const& step : PathReader(path).steps()) {
        if (!descent.go(step))
            throw page::Failure("cannot select '" + path.toStdString() + "': there is no " +
                                step.text.toStdString() +
                                (piece.path.empty() ? " in the value" : " in " + piece.path));
        piece.path += step.text.toStdString();
    }
    return piece;
}

} // namespace kdrdump
