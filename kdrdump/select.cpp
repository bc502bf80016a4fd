#include "select.h"

#include "page/failure.h"

#include <QtCore/qjsonarray.h>
#include <QtCore/qjsondocument.h>
#include <QtCore/qjsonobject.h>
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

[[noreturn]] void refuse(QString const& path, int at, char const* why)
{
    throw page::Failure("cannot select '" + path.toStdString() + "': " + why + " at character " +
                        std::to_string(at + 1));
}

std::vector<Step> stepsOf(QString const& path)
{
    std::vector<Step> steps;
    for (int at = 0; at < path.size();) {
        int const start = at;
        if (path[at] == '[') {
            int const end = path.indexOf(']', at);
            bool isNumber = false;
            QString const digits = path.mid(at + 1, end - at - 1);
            int const index = digits.toInt(&isNumber);
            if (end < 0 || !isNumber || !digits[0].isDigit())
                refuse(path, at, "an element such as [3] is expected");
            at = end + 1;
            steps.push_back({QString(), index, path.mid(start, at - start)});
            continue;
        }
        if (path[at] == '.' && at > 0)
            ++at;
        else if (at > 0)
            refuse(path, at, "'.' or '[' is expected");
        int const first = at;
        while (at < path.size() && path[at] != '.' && path[at] != '[')
            ++at;
        if (at == first)
            refuse(path, at, "a name is expected");
        steps.push_back({path.mid(first, at - first), 0, path.mid(start, at - start)});
    }
    return steps;
}

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

QJsonValue jsonOf(KDRVariant const& value)
{
    kdrio::JsonOptions options;
    options.longest = -1;
    options.compact = true;
    // A list around it makes a document of whatever it is.
    QByteArray const text =
        '[' + QByteArray(kdrio::toJson(value, options).toUtf8().constData()) + ']';
    return QJsonDocument::fromJson(text).array().at(0);
}

// Whether the contents of a value have a name in files: that of its kind.
bool isKind(KDRVariant const& value, QString const& name)
{
    // What JSON itself has may stand without it.
    switch (KDRVariant(value).variantType()) {
    case KindBool:
        return name == QLatin1String("bool");
    case KindNumber:
        return name == QLatin1String("number");
    case KindString:
        return name == QLatin1String("string");
    case KindBuffer:
        return name == QLatin1String("buffer");
    case KindVariantArray:
        return name == QLatin1String("variant array");
    case KindNone:
        return name == QLatin1String("empty");
    default:
        return jsonOf(value).toObject().contains(name);
    }
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

} // namespace

Piece pieceAt(KDRVariant const& whole, QString const& path)
{
    Piece piece{true, whole, QJsonValue(), ""};
    bool isNamed = false; // the last step was the kind of the value
    for (Step const& step : stepsOf(path)) {
        bool found = true;
        if (piece.isValue && step.isElement()) {
            found = takeElement(piece.value, step.index);
            isNamed = false;
        } else if (piece.isValue && !isNamed && isKind(piece.value, step.name)) {
            isNamed = true;
        } else {
            if (piece.isValue) {
                // The one entry of the object: from the name of the kind to the contents.
                QJsonObject const object = jsonOf(piece.value).toObject();
                piece.field = object.isEmpty() ? QJsonValue() : QJsonValue(*object.constBegin());
                piece.isValue = false;
            }
            found = enter(piece.field, step);
        }
        if (!found)
            throw page::Failure("cannot select '" + path.toStdString() + "': there is no " +
                                step.text.toStdString() +
                                (piece.path.empty() ? " in the value" : " in " + piece.path));
        piece.path += step.text.toStdString();
    }
    return piece;
}

} // namespace kdrdump
