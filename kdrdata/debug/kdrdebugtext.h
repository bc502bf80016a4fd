#ifndef KDRDATA_KDRDEBUGTEXT_H
#define KDRDATA_KDRDEBUGTEXT_H

/// @file
/// What a value looks like to a person: one line of text for every public class, the same in a
/// failing test, in a log and in the debugger. To be included on purpose: no other header of the
/// library includes it, and the library exports nothing of it.

#include <kdrdata/debug/kdrdebuggeometry3d.h>
#include <kdrdata/debug/kdrdebugscalars.h>
#include <kdrdata/debug/kdrdebugvariant.h>
#include <kdrdata/debug/kdrdebugvision.h>
#include <kdrdata/log/log.h>

#include <string>

/// Every public class whose values have a text form: ROW(class).
#define KDR_PRINTED_CLASSES(ROW)                                                                   \
    ROW(DataConvert)                                                                               \
    ROW(KDR3DLineSet)                                                                              \
    ROW(KDRBoolArray)                                                                              \
    ROW(KDRBuffer)                                                                                 \
    ROW(KDRBufferArray)                                                                            \
    ROW(KDRChar)                                                                                   \
    ROW(KDRChunkData)                                                                              \
    ROW(KDRColor)                                                                                  \
    ROW(KDRColorArray)                                                                             \
    ROW(KDRContour)                                                                                \
    ROW(KDRContour3D)                                                                              \
    ROW(KDRContour3DArray)                                                                         \
    ROW(KDRContourArray)                                                                           \
    ROW(KDRDualQuaternion)                                                                         \
    ROW(KDREnum)                                                                                   \
    ROW(KDREnumArray)                                                                              \
    ROW(KDREnumPrivate)                                                                            \
    ROW(KDRFont)                                                                                   \
    ROW(KDRImage)                                                                                  \
    ROW(KDRImageArray)                                                                             \
    ROW(KDRMatchModel)                                                                             \
    ROW(KDRMatrix)                                                                                 \
    ROW(KDRMatrix3)                                                                                \
    ROW(KDRMatrix3Array)                                                                           \
    ROW(KDRMatrix4)                                                                                \
    ROW(KDRMatrix4Array)                                                                           \
    ROW(KDRMatrixArray)                                                                            \
    ROW(KDRNumber)                                                                                 \
    ROW(KDRNumberArray)                                                                            \
    ROW(KDRPlane3D)                                                                                \
    ROW(KDRPlane3DArray)                                                                           \
    ROW(KDRPlane3DArrayPrivate)                                                                    \
    ROW(KDRPlane3DPrivate)                                                                         \
    ROW(KDRPoint)                                                                                  \
    ROW(KDRPoint3D)                                                                                \
    ROW(KDRPoint3DArray)                                                                           \
    ROW(KDRPointArray)                                                                             \
    ROW(KDRPointCloud)                                                                             \
    ROW(KDRPointCloudArray)                                                                        \
    ROW(KDRPointPrivate)                                                                           \
    ROW(KDRPose2D)                                                                                 \
    ROW(KDRPose3D)                                                                                 \
    ROW(KDRQuaternion)                                                                             \
    ROW(KDRROIAlignment)                                                                           \
    ROW(KDRRangeImage)                                                                             \
    ROW(KDRRangeImageArray)                                                                        \
    ROW(KDRRegExp)                                                                                 \
    ROW(KDRRegion)                                                                                 \
    ROW(KDRRegionArray)                                                                            \
    ROW(KDRShape)                                                                                  \
    ROW(KDRShape3D)                                                                                \
    ROW(KDRShape3DArray)                                                                           \
    ROW(KDRShapeArray)                                                                             \
    ROW(KDRShapePrivate)                                                                           \
    ROW(KDRString)                                                                                 \
    ROW(KDRStringArray)                                                                            \
    ROW(KDRTriangleMesh)                                                                           \
    ROW(KDRVariant)                                                                                \
    ROW(KDRVariantArray)                                                                           \
    ROW(KDRVariantLock)                                                                            \
    ROW(KDRVariantPrivate)                                                                         \
    ROW(KDRVector3d)                                                                               \
    ROW(KDRVector3dArray)                                                                          \
    ROW(LogOutput)

/// What a value looks like to a person.
namespace KDRDebug {

/// @cond
template <>
struct Form<LogOutput> : NoDataForm<LogOutput>
{
};
/// @endcond

/// The text form of @p value in UTF-8. Long texts and lists are cut and their length named. The
/// value keeps what it shares; nothing detaches.
///
/// Throws std::bad_alloc where memory runs out.
template <class Class>
std::string text(Class const& value)
{
    return Form<Class>::full(value, 0);
}

} // namespace KDRDebug

#endif
