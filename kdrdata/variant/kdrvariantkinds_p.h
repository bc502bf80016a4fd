#ifndef KDRDATA_KDRVARIANTKINDS_P_H
#define KDRDATA_KDRVARIANTKINDS_P_H

#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrbufferarray.h>
#include <kdrdata/text/kdrchar.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/text/kdrstringarray.h>
#include <kdrdata/variant/kdrvariantkind.h>
#include <kdrdata/vision/kdrcontour.h>
#include <kdrdata/vision/kdrcontourarray.h>
#include <kdrdata/vision/kdrimage.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrpointarray.h>

/// The kind table: one row for each kind whose payload is an object of a class, in the order of the
/// kind numbers. The members that a row stands for (constructor, writer, reader, pointer reader of
/// KDRVariantPrivate, KDRVariantLock and KDRVariant) are declared by hand in the headers and
/// defined from the row. The flag, kind 0, is a plain `bool`, taken by value, and stands beside the
/// table.
///
/// ROW(kind, payload class, name in the members, kind that the pointer reader tests)
#define KDR_VARIANT_KINDS(ROW)                                                                     \
    ROW(KindNumber, KDRNumber, Number, KindNumber)                                                 \
    ROW(KindString, KDRString, String, KindString)                                                 \
    ROW(KindPoint, KDRPoint, Point, KindPoint)                                                     \
    ROW(KindImage, KDRImage, Image, KindImage)                                                     \
    ROW(KindContour, KDRContour, Contour, KindContour)                                             \
    ROW(KindBuffer, KDRBuffer, Buffer, KindBuffer)                                                 \
    ROW(KindChar, KDRChar, Char, KindChar)                                                         \
    ROW(KindNumberArray, KDRNumberArray, NumberArray, KindNumber)                                  \
    ROW(KindStringArray, KDRStringArray, StringArray, KindStringArray)                             \
    ROW(KindPointArray, KDRPointArray, PointArray, KindPointArray)                                 \
    ROW(KindImageArray, KDRImageArray, ImageArray, KindImageArray)                                 \
    ROW(KindContourArray, KDRContourArray, ContourArray, KindContourArray)                         \
    ROW(KindBufferArray, KDRBufferArray, BufferArray, KindBufferArray)

#endif
