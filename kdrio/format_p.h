#ifndef KDRIO_FORMAT_P_H
#define KDRIO_FORMAT_P_H

#include <QtCore/qcborcommon.h>

#include <cstdint>
#include <type_traits>

/// The words and numbers of the file format.
namespace kdrio::format {

constexpr char const name[] = "KDRData";
constexpr int version = 1;

constexpr QCborTag signature = QCborTag(55799);
constexpr QCborTag shareable = QCborTag(28);
constexpr QCborTag reference = QCborTag(29);
constexpr QCborTag dimensions = QCborTag(40);

// The arrays of RFC 8746, all little-endian.
constexpr QCborTag uint8s = QCborTag(64);
constexpr QCborTag uint16s = QCborTag(69);
constexpr QCborTag int8s = QCborTag(72);
constexpr QCborTag int16s = QCborTag(77);
constexpr QCborTag int32s = QCborTag(78);
constexpr QCborTag int64s = QCborTag(79);
constexpr QCborTag floats = QCborTag(85);
constexpr QCborTag doubles = QCborTag(86);

/// A type of elements, as images and matrices have them.
struct ElementType
{
    QCborTag tag;
    int bytes;
};

/// By the code of the type that images and matrices have in common.
constexpr ElementType elementTypes[] = {{uint8s, 1}, {int8s, 1},  {uint16s, 2}, {int16s, 2},
                                        {int32s, 4}, {floats, 4}, {doubles, 8}};
constexpr int elementTypeCount = 7;

} // namespace kdrio::format

#endif
