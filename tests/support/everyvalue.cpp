#include "everyvalue.h"

#include <cmath>
#include <limits>

namespace {

constexpr int manyElements = 200;

template <class Array, class... Elements>
Array arrayOf(Elements const&... elements)
{
    Array array;
    (array.push_back(elements), ...);
    return array;
}

KDRRegion regionOf(KDRNumberArray rows, KDRNumberArray firsts, KDRNumberArray lasts, int width,
                   int height)
{
    KDRRegion region;
    region.fromRunLengthEncodeing(rows, firsts, lasts, width, height);
    return region;
}

void fill(KDRMatrix& matrix, double first, double second)
{
    KDRNumber values[] = {KDRNumber(first), KDRNumber(second)};
    matrix.replace(0, 0, values[0]);
    matrix.replace(0, 1, values[1]);
}

} // namespace

EveryValue::EveryValue()
{
    fillTexts();
    fillNumbers();
    fillVision();
    fillShapes();
    fillGeometry();
    fillVariants();
}

void EveryValue::fillTexts()
{
    foreignString.fromUtf8("Gr\xc3\xbc\xc3\x9f"
                           "e \xe4\xb8\xad \xf0\x9f\x99\x82");
    unsigned short const hidden[] = {'a', 0, 0x1B, 0x85, 0xAD, 0x200B, 0x202E, 0xD800, 'b'};
    hiddenString = KDRString(hidden, 9);
    longString = KDRString("0123456789").repeated(20);
    pairAtTheCutString = KDRString("x").repeated(79);
    unsigned short const smile[] = {0xD83D, 0xDE42};
    pairAtTheCutString.push_back(KDRString(smile, 2));
    stringOf80 = KDRString("0123456789").repeated(8);
    minimalPattern.setMinimal(true);
    longBufferCopy = longBuffer;
    strings = arrayOf<KDRStringArray>(KDRString("left"), KDRString(""), KDRString());
    buffers = arrayOf<KDRBufferArray>(buffer, KDRBuffer(), KDRBuffer(""));
}

void EveryValue::fillNumbers()
{
    rangedNumber.setMinValue(-10);
    rangedNumber.setMaxValue(10);
    rangedNumber.setStep(1);
    rangedFraction.setMinValue(-0.5);
    rangedFraction.setMaxValue(std::numeric_limits<double>::infinity());
    notANumber.fromDouble(std::nan(""));
    numbers = arrayOf<KDRNumberArray>(KDRNumber(1), KDRNumber(2.5), KDRNumber(3.0));
    numbersCopy = numbers;
    for (int i = 0; i < manyElements; ++i)
        manyNumbers.push_back(KDRNumber(i));
    for (int i = 0; i < 3; ++i)
        removedNumbers.push_back(KDRNumber(i));
    removedNumbers.removeAt(0);
    flags = arrayOf<KDRBoolArray>(true, false);

    KDRStringArray const names = arrayOf<KDRStringArray>(KDRString("dark"), KDRString("bright"));
    choice = KDREnum(names, arrayOf<KDRNumberArray>(KDRNumber(10), KDRNumber(20)));
    choice.setCurrentVal(1);
    choiceOfNothing.setCurrentVal(7);
    choices = arrayOf<KDREnumArray>(choice, noChoice);
    choiceRecord.stringList = names;
    choiceRecord.currentValue = 0;
}

void EveryValue::fillVision()
{
    rangedPoint.setXMinVal(0);
    rangedPoint.setXMaxVal(640);
    rangedPoint.setYStepVal(0.5);
    pointRecord.setXVal(6);
    pointRecord.setYVal(7);
    points = arrayOf<KDRPointArray>(rangedPoint, KDRPoint(5, 6), KDRPoint(7.25, -8));
    for (int i = 0; i < manyElements; ++i)
        manyPoints.push_back(KDRPoint(i, 0));
    contour.FromPointArray(points);
    contours = arrayOf<KDRContourArray>(contour, KDRContour());

    imageCopy = image;
    images = arrayOf<KDRImageArray>(deepImage, KDRImage());

    region = regionOf(arrayOf<KDRNumberArray>(KDRNumber(1), KDRNumber(2)),
                      arrayOf<KDRNumberArray>(KDRNumber(3), KDRNumber(-4)),
                      arrayOf<KDRNumberArray>(KDRNumber(9), KDRNumber(4)), 640, 480);
    loneRegion =
        regionOf(arrayOf<KDRNumberArray>(KDRNumber(0)), arrayOf<KDRNumberArray>(KDRNumber(0)),
                 arrayOf<KDRNumberArray>(KDRNumber(0)), 1, 1);
    regionCopy = region;
    regions = arrayOf<KDRRegionArray>(loneRegion, KDRRegion());

    fill(matrixU8, 0, 255);
    fill(matrixS8, -128, 127);
    fill(matrixU16, 1, 65535);
    fill(matrixS16, -32768, 1);
    fill(matrixS32, -2147483648.0, 1);
    fill(matrixF32, 0.1, -2);
    fill(matrixF64, 0.1, -2);
    matrices = arrayOf<KDRMatrixArray>(matrixF64, KDRMatrix(), matrixU8);
    alignment.fromMatrixArray(matrices);

    unsigned char record[] = {'V', 'M', 'M', '1', 3, 0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 8, 9};
    model.SetData(record);
    font.setFaceName(KDRString("Sans"));
    font.setSize(12);
    font.setWeight(700);
    font.setBold(true);
    font.setItalic(1);
    font.setUnderline(1);
    font.setStrikeOut(1);
}

void EveryValue::fillShapes()
{
    KDRPoint centre(10, 20);
    KDRPoint end(30.5, 40);
    KDRString text("part 7");
    KDRNumberArray weights = numbers;
    circle.fromCircle(centre, 5);
    circleCopy = circle;
    torus.fromTorus(centre, 5, 8, 0, 90);
    rect2.fromRect2(centre, 4, 3, 45);
    line.fromLine(centre, end);
    ellipse.fromEllipse(centre, 4, 3, 45);
    arc.fromArc(centre, 5, 0, 90);
    polygon.fromPolygon(points);
    irregular.fromIrregular(points);
    regionShape.fromRegion(region);
    label.fromText(centre, text, font);
    arrow.fromArrow(centre, end);
    contoursShape.fromContours(contours);
    rect2Matrix.fromRect2Matrix(points, 4, 3, 45, -1);
    circleMatrix.fromCircleMatrix(points, 5, 8, 2);
    polyLine.fromPolyLine(points);
    curveLine.fromCurveLine(centre, end, centre);
    anyPolygon.fromAnyPolygon(points, weights);
    label3D.from3DText(vector3D, text, font);
    shapes = arrayOf<KDRShapeArray>(line, KDRShape());
    shapeRecord.fromCircle(centre, 6);
}

void EveryValue::fillGeometry()
{
    pose2D.setX(1);
    pose2D.setY(2.5);
    pose2D.setRz(30);
    pose3D.setX(1);
    pose3D.setY(2);
    pose3D.setZ(3);
    pose3D.setRx(4);
    pose3D.setRy(5);
    pose3D.setRz(6.5);
    matrices3.push_back(matrix3);
    matrices4.push_back(matrix4);
    shapes3D.push_back(shape3D);
}

void EveryValue::fillVariants()
{
    numberVariant.fromNumber(rangedNumber);
    numberVariantCopy = numberVariant;
    numberVariantCopy2 = numberVariant;
    KDRNumber* number = nullptr;
    if (numberVariant.toNumberPtr(number))
        *number = rangedNumber;
    pointVariant.fromPoint(rangedPoint);
    imageVariant.fromImage(image);
    shapeVariant.fromShape(circle);
    lostCloudVariant = cloudVariant.clone();
    contourVariant.fromContour(contour);
    alignmentVariant.fromROIAlignment(alignment);
    pose2DVariant.from2DPose(pose2D);
    matrixVariant.fromMatrix(matrixF64);
    bufferVariant.fromBuffer(buffer);
    pose3DVariant.from3DPose(pose3D);
    matrix3Variant.fromMatrix3(matrix3);
    matrix4Variant.fromMatrix4(matrix4);
    quaternionVariant.fromQuaternion(quaternion);
    dualQuaternionVariant.fromDualQuaternion(dualQuaternion);
    flagsVariant.fromBoolArray(flags);
    numbersVariant.fromNumberArray(numbers);
    stringsVariant.fromStringArray(strings);
    pointsVariant.fromPointArray(points);
    imagesVariant.fromImageArray(images);
    shapesVariant.fromShapeArray(shapes);
    contoursVariant.fromContourArray(contours);
    matricesVariant.fromMatrixArray(matrices);
    buffersVariant.fromBufferArray(buffers);
    shapes3DVariant.from3DShapeArray(shapes3D);

    variants = arrayOf<KDRVariantArray>(KDRVariant(5), stringVariant, KDRVariant(), KDRVariant(2.0),
                                        numbersVariant);
    arrayVariant.fromVariantArray(variants);
    nestedVariants = variants;
    for (int i = 0; i < 4; ++i) {
        KDRVariant const inner(nestedVariants);
        nestedVariants = arrayOf<KDRVariantArray>(KDRVariant(i), inner);
    }
}
