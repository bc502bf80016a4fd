#ifndef KDRDUMP_SELECT_H
#define KDRDUMP_SELECT_H

#include <QtCore/qjsonvalue.h>
#include <QtCore/qstring.h>

#include <kdrdata/kdrdata.h>

namespace kdrdump {

/// A piece of a value.
struct Piece
{
    bool isValue;     ///< or else it is a field of one, which no variant holds by itself
    KDRVariant value; ///< the value
    QJsonValue field; ///< the field, as the JSON text of the value shows it
    std::string path; ///< where it is
};

/// The piece of @p whole at @p path: elements of lists by their place counted from 0, contents by
/// their names in files, such as `[3].shape.circle.radius`. Throws page::Failure where there is
/// none.
Piece pieceAt(KDRVariant const& whole, QString const& path);

} // namespace kdrdump

#endif
