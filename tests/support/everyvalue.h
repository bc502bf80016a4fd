#ifndef KDRDATA_TESTS_EVERYVALUE_H
#define KDRDATA_TESTS_EVERYVALUE_H

#include <kdrdata/kdrdata.h>

// One value of every class, of every kind of variant and of every figure, and those values whose
// text is a case of its own: MEMBER(class, name, (constructor arguments...)). EveryValue's
// constructor fills in what a constructor of the class cannot.
#define EVERY_VALUE(MEMBER)                                                                        \
    MEMBER(KDRString, nullString, ())                                                              \
    MEMBER(KDRString, emptyString, (""))                                                           \
    MEMBER(KDRString, string, ("one two"))                                                         \
    MEMBER(KDRString, quotesString, ("a \"quoted\" back\\slash\n\tline"))                          \
    MEMBER(KDRString, foreignString, ())                                                           \
    MEMBER(KDRString, hiddenString, ())                                                            \
    MEMBER(KDRString, longString, ())                                                              \
    MEMBER(KDRString, pairAtTheCutString, ())                                                      \
    MEMBER(KDRString, stringOf80, ())                                                              \
    MEMBER(KDRChar, character, ('x'))                                                              \
    MEMBER(KDRChar, nullCharacter, ())                                                             \
    MEMBER(KDRChar, apostrophe, ('\''))                                                            \
    MEMBER(KDRRegExp, newPattern, ())                                                              \
    MEMBER(KDRRegExp, pattern, (KDRString("a+b")))                                                 \
    MEMBER(KDRRegExp, minimalPattern,                                                              \
           (KDRString("*.png"), KDRRegExp::KDRCaseInsensitive, KDRRegExp::KDRWildcardSyntax))      \
    MEMBER(KDRBuffer, nullBuffer, ())                                                              \
    MEMBER(KDRBuffer, emptyBuffer, (""))                                                           \
    MEMBER(KDRBuffer, buffer, ("\x01\x7f\xff", 3))                                                 \
    MEMBER(KDRBuffer, longBuffer, (200, 'a'))                                                      \
    MEMBER(KDRBuffer, longBufferCopy, ())                                                          \
    MEMBER(KDRStringArray, noStrings, ())                                                          \
    MEMBER(KDRStringArray, strings, ())                                                            \
    MEMBER(KDRBufferArray, buffers, ())                                                            \
    MEMBER(KDRNumber, newNumber, ())                                                               \
    MEMBER(KDRNumber, plainNumber, (7))                                                            \
    MEMBER(KDRNumber, rangedNumber, (5))                                                           \
    MEMBER(KDRNumber, wholeNumber, (5.0))                                                          \
    MEMBER(KDRNumber, rangedFraction, (0.1 + 0.2))                                                 \
    MEMBER(KDRNumber, largeNumber, (1e300))                                                        \
    MEMBER(KDRNumber, notANumber, ())                                                              \
    MEMBER(KDRNumberArray, noNumbers, ())                                                          \
    MEMBER(KDRNumberArray, numbers, ())                                                            \
    MEMBER(KDRNumberArray, numbersCopy, ())                                                        \
    MEMBER(KDRNumberArray, manyNumbers, ())                                                        \
    MEMBER(KDRNumberArray, removedNumbers, ())                                                     \
    MEMBER(KDRBoolArray, flags, ())                                                                \
    MEMBER(KDREnum, noChoice, ())                                                                  \
    MEMBER(KDREnum, choice, ())                                                                    \
    MEMBER(KDREnum, choiceOfNothing, ())                                                           \
    MEMBER(KDREnumArray, choices, ())                                                              \
    MEMBER(KDREnumPrivate, choiceRecord, ())                                                       \
    MEMBER(KDRColor, color, ())                                                                    \
    MEMBER(KDRColorArray, colors, ())                                                              \
    MEMBER(KDRPoint, point, (1.5, -2.0))                                                           \
    MEMBER(KDRPoint, rangedPoint, (3.0, 4.0))                                                      \
    MEMBER(KDRPointPrivate, pointRecord, ())                                                       \
    MEMBER(KDRPointArray, points, ())                                                              \
    MEMBER(KDRPointArray, manyPoints, ())                                                          \
    MEMBER(KDRContour, contour, ())                                                                \
    MEMBER(KDRContourArray, contours, ())                                                          \
    MEMBER(KDRImage, emptyImage, ())                                                               \
    MEMBER(KDRImage, image, (nullptr, 640, 480, 3, 0, KDRImage::DataTypeUInt8))                    \
    MEMBER(KDRImage, imageCopy, ())                                                                \
    MEMBER(KDRImage, deepImage, (nullptr, 2, 1, 1, 0, KDRImage::DataTypeFloat32))                  \
    MEMBER(KDRImageArray, images, ())                                                              \
    MEMBER(KDRRegion, emptyRegion, ())                                                             \
    MEMBER(KDRRegion, region, ())                                                                  \
    MEMBER(KDRRegion, loneRegion, ())                                                              \
    MEMBER(KDRRegion, regionCopy, ())                                                              \
    MEMBER(KDRRegionArray, regions, ())                                                            \
    MEMBER(KDRMatrix, emptyMatrix, ())                                                             \
    MEMBER(KDRMatrix, matrixU8, (2, 3, KDRMatrix::MatrixTypeUInt8))                                \
    MEMBER(KDRMatrix, matrixS8, (1, 2, KDRMatrix::MatrixTypeInt8))                                 \
    MEMBER(KDRMatrix, matrixU16, (1, 2, KDRMatrix::MatrixTypeUInt16))                              \
    MEMBER(KDRMatrix, matrixS16, (1, 2, KDRMatrix::MatrixTypeInt16))                               \
    MEMBER(KDRMatrix, matrixS32, (1, 2, KDRMatrix::MatrixTypeInt32))                               \
    MEMBER(KDRMatrix, matrixF32, (1, 2, KDRMatrix::MatrixTypeFloat32))                             \
    MEMBER(KDRMatrix, matrixF64, (2, 2, KDRMatrix::MatrixTypeFloat64))                             \
    MEMBER(KDRMatrix, largeMatrix, (100, 200, KDRMatrix::MatrixTypeInt16))                         \
    MEMBER(KDRMatrixArray, matrices, ())                                                           \
    MEMBER(KDRROIAlignment, alignment, ())                                                         \
    MEMBER(KDRMatchModel, newModel, ())                                                            \
    MEMBER(KDRMatchModel, model, ())                                                               \
    MEMBER(KDRChunkData, noChunk, ())                                                              \
    MEMBER(KDRChunkData, chunk, (reinterpret_cast<unsigned char const*>("\0\xab"), 2))             \
    MEMBER(KDRFont, newFont, ())                                                                   \
    MEMBER(KDRFont, font, ())                                                                      \
    MEMBER(DataConvert, converter, ())                                                             \
    MEMBER(KDRShape, emptyShape, ())                                                               \
    MEMBER(KDRShape, circle, ())                                                                   \
    MEMBER(KDRShape, circleCopy, ())                                                               \
    MEMBER(KDRShape, torus, ())                                                                    \
    MEMBER(KDRShape, rect2, ())                                                                    \
    MEMBER(KDRShape, line, ())                                                                     \
    MEMBER(KDRShape, ellipse, ())                                                                  \
    MEMBER(KDRShape, arc, ())                                                                      \
    MEMBER(KDRShape, polygon, ())                                                                  \
    MEMBER(KDRShape, irregular, ())                                                                \
    MEMBER(KDRShape, regionShape, ())                                                              \
    MEMBER(KDRShape, label, ())                                                                    \
    MEMBER(KDRShape, arrow, ())                                                                    \
    MEMBER(KDRShape, contoursShape, ())                                                            \
    MEMBER(KDRShape, rect2Matrix, ())                                                              \
    MEMBER(KDRShape, circleMatrix, ())                                                             \
    MEMBER(KDRShape, polyLine, ())                                                                 \
    MEMBER(KDRShape, curveLine, ())                                                                \
    MEMBER(KDRShape, anyPolygon, ())                                                               \
    MEMBER(KDRShape, label3D, ())                                                                  \
    MEMBER(KDRShapeArray, shapes, ())                                                              \
    MEMBER(KDRShapePrivate, shapeRecord, ())                                                       \
    MEMBER(KDRPose2D, pose2D, ())                                                                  \
    MEMBER(KDRPose3D, pose3D, ())                                                                  \
    MEMBER(KDR3DLineSet, lineSet, ())                                                              \
    MEMBER(KDRContour3D, contour3D, ())                                                            \
    MEMBER(KDRContour3DArray, contours3D, ())                                                      \
    MEMBER(KDRDualQuaternion, dualQuaternion, ())                                                  \
    MEMBER(KDRMatrix3, matrix3, ())                                                                \
    MEMBER(KDRMatrix3Array, matrices3, ())                                                         \
    MEMBER(KDRMatrix4, matrix4, ())                                                                \
    MEMBER(KDRMatrix4Array, matrices4, ())                                                         \
    MEMBER(KDRPlane3D, plane, ())                                                                  \
    MEMBER(KDRPlane3DArray, planes, ())                                                            \
    MEMBER(KDRPlane3DPrivate, planeRecord, ())                                                     \
    MEMBER(KDRPlane3DArrayPrivate, planesRecord, ())                                               \
    MEMBER(KDRPoint3D, point3D, ())                                                                \
    MEMBER(KDRPoint3DArray, points3D, ())                                                          \
    MEMBER(KDRPointCloud, cloud, ())                                                               \
    MEMBER(KDRPointCloudArray, clouds, ())                                                         \
    MEMBER(KDRQuaternion, quaternion, ())                                                          \
    MEMBER(KDRRangeImage, rangeImage, ())                                                          \
    MEMBER(KDRRangeImageArray, rangeImages, ())                                                    \
    MEMBER(KDRShape3D, shape3D, ())                                                                \
    MEMBER(KDRShape3DArray, shapes3D, ())                                                          \
    MEMBER(KDRTriangleMesh, mesh, ())                                                              \
    MEMBER(KDRVector3d, vector3D, ())                                                              \
    MEMBER(KDRVector3dArray, vectors3D, ())                                                        \
    MEMBER(KDRVariant, emptyVariant, ())                                                           \
    MEMBER(KDRVariant, boolVariant, (true))                                                        \
    MEMBER(KDRVariant, numberVariant, ())                                                          \
    MEMBER(KDRVariant, numberVariantCopy, ())                                                      \
    MEMBER(KDRVariant, numberVariantCopy2, ())                                                     \
    MEMBER(KDRVariant, nullStringVariant, (KDRString()))                                           \
    MEMBER(KDRVariant, stringVariant, ("one two"))                                                 \
    MEMBER(KDRVariant, pointVariant, ())                                                           \
    MEMBER(KDRVariant, imageVariant, ())                                                           \
    MEMBER(KDRVariant, shapeVariant, ())                                                           \
    MEMBER(KDRVariant, cloudVariant, (KDRPointCloud()))                                            \
    MEMBER(KDRVariant, lostCloudVariant, ())                                                       \
    MEMBER(KDRVariant, contourVariant, ())                                                         \
    MEMBER(KDRVariant, alignmentVariant, ())                                                       \
    MEMBER(KDRVariant, pose2DVariant, ())                                                          \
    MEMBER(KDRVariant, matrixVariant, ())                                                          \
    MEMBER(KDRVariant, bufferVariant, ())                                                          \
    MEMBER(KDRVariant, characterVariant, (KDRChar('x')))                                           \
    MEMBER(KDRVariant, point3DVariant, (KDRPoint3D()))                                             \
    MEMBER(KDRVariant, vector3DVariant, (KDRVector3d()))                                           \
    MEMBER(KDRVariant, shape3DVariant, (KDRShape3D()))                                             \
    MEMBER(KDRVariant, pose3DVariant, ())                                                          \
    MEMBER(KDRVariant, rangeImageVariant, (KDRRangeImage()))                                       \
    MEMBER(KDRVariant, contour3DVariant, (KDRContour3D()))                                         \
    MEMBER(KDRVariant, matrix3Variant, ())                                                         \
    MEMBER(KDRVariant, matrix4Variant, ())                                                         \
    MEMBER(KDRVariant, quaternionVariant, ())                                                      \
    MEMBER(KDRVariant, dualQuaternionVariant, ())                                                  \
    MEMBER(KDRVariant, flagsVariant, ())                                                           \
    MEMBER(KDRVariant, numbersVariant, ())                                                         \
    MEMBER(KDRVariant, stringsVariant, ())                                                         \
    MEMBER(KDRVariant, pointsVariant, ())                                                          \
    MEMBER(KDRVariant, imagesVariant, ())                                                          \
    MEMBER(KDRVariant, rangeImagesVariant, (KDRRangeImageArray()))                                 \
    MEMBER(KDRVariant, shapesVariant, ())                                                          \
    MEMBER(KDRVariant, cloudsVariant, (KDRPointCloudArray()))                                      \
    MEMBER(KDRVariant, contoursVariant, ())                                                        \
    MEMBER(KDRVariant, matricesVariant, ())                                                        \
    MEMBER(KDRVariant, buffersVariant, ())                                                         \
    MEMBER(KDRVariant, points3DVariant, (KDRPoint3DArray()))                                       \
    MEMBER(KDRVariant, shapes3DVariant, ())                                                        \
    MEMBER(KDRVariant, vectors3DVariant, (KDRVector3dArray()))                                     \
    MEMBER(KDRVariant, contours3DVariant, (KDRContour3DArray()))                                   \
    MEMBER(KDRVariant, arrayVariant, ())                                                           \
    MEMBER(KDRVariant, planeVariant, (KDRPlane3D()))                                               \
    MEMBER(KDRVariant, planesVariant, (KDRPlane3DArray()))                                         \
    MEMBER(KDRVariantArray, variants, ())                                                          \
    MEMBER(KDRVariantArray, nestedVariants, ())                                                    \
    MEMBER(KDRVariantPrivate, store, (3))                                                          \
    MEMBER(KDRVariantLock, lock, (3))                                                              \
    MEMBER(LogOutput, log, (nullptr))

#define EVERY_VALUE_LIST(...) __VA_ARGS__

struct EveryValue
{
    EveryValue();

#define EVERY_VALUE_MEMBER(Class, name, arguments) Class name{EVERY_VALUE_LIST arguments};
    EVERY_VALUE(EVERY_VALUE_MEMBER)
#undef EVERY_VALUE_MEMBER

    /// Calls @p visitor with the name of each member and the member.
    template <class Visitor>
    void visit(Visitor const& visitor) const
    {
#define EVERY_VALUE_VISIT(Class, name, arguments) visitor(#name, name);
        EVERY_VALUE(EVERY_VALUE_VISIT)
#undef EVERY_VALUE_VISIT
    }

private:
    void fillTexts();
    void fillNumbers();
    void fillVision();
    void fillShapes();
    void fillGeometry();
    void fillVariants();
};

#endif
