#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include "../support/shapeaccess.h"

namespace {

KDRNumberArray numbers(int length)
{
    KDRNumberArray array;
    for (int i = 0; i < length; ++i)
        array.push_back(KDRNumber(i));
    return array;
}

KDRPointArray points(int length)
{
    KDRPointArray array;
    for (int i = 0; i < length; ++i)
        array.push_back(KDRPoint(i, i));
    return array;
}

KDRMatrixArray matrices(int length)
{
    KDRMatrixArray array;
    for (int i = 0; i < length; ++i)
        array.push_back(KDRMatrix(1, i + 1, KDRMatrix::MatrixTypeUInt8));
    return array;
}

int lengthOf(KDRROIAlignment& alignment)
{
    KDRMatrixArray sequence = matrices(7);
    alignment.toMatrixArray(&sequence);
    return sequence.length();
}

KDRROIAlignment alignmentOf(int length)
{
    KDRMatrixArray sequence = matrices(length);
    KDRROIAlignment alignment;
    alignment.fromMatrixArray(sequence);
    return alignment;
}

TEST(ROIAlignment, IsOnePointerWideAndStartsEmpty)
{
    EXPECT_EQ(sizeof(KDRROIAlignment), sizeof(void*));
    KDRROIAlignment alignment;
    EXPECT_EQ(lengthOf(alignment), 0);
}

TEST(ROIAlignment, FromMatrixArrayTakesTheMatricesAndAnswersFalse)
{
    KDRMatrixArray sequence = matrices(3);
    KDRROIAlignment alignment;
    EXPECT_FALSE(alignment.fromMatrixArray(sequence));
    sequence.clear();
    KDRMatrixArray out;
    alignment.toMatrixArray(&out);
    ASSERT_EQ(out.length(), 3);
    EXPECT_EQ(out[2].cols(), 3);
}

TEST(ROIAlignment, CopiesAreDeep)
{
    KDRROIAlignment original = alignmentOf(2);
    KDRROIAlignment copy(original);
    KDRROIAlignment assigned;
    KDRROIAlignment& result = (assigned = original);
    EXPECT_EQ(&result, &assigned);
    KDRMatrixArray none;
    original.fromMatrixArray(none);
    EXPECT_EQ(lengthOf(original), 0);
    EXPECT_EQ(lengthOf(copy), 2);
    EXPECT_EQ(lengthOf(assigned), 2);
    KDRROIAlignment const& alias = copy;
    copy = alias;
    EXPECT_EQ(lengthOf(copy), 2);
}

TEST(ROIAlignment, SixListsMustBeOfOneLengthAndGiveNoMatrices)
{
    for (int odd = -1; odd < 6; ++odd) {
        SCOPED_TRACE(odd);
        KDRNumberArray lists[6];
        for (int i = 0; i < 6; ++i)
            lists[i] = numbers(i == odd ? 4 : 3);
        KDRROIAlignment alignment = alignmentOf(2);
        EXPECT_EQ(alignment.genAlignmentSequence(lists[0], lists[1], lists[2], lists[3], lists[4],
                                                 lists[5]),
                  odd < 0);
        EXPECT_EQ(lengthOf(alignment), 0);
        EXPECT_EQ(lists[0].length(), odd == 0 ? 4 : 3);
    }
    KDRNumberArray none;
    EXPECT_TRUE(KDRROIAlignment().genAlignmentSequence(none, none, none, none, none, none));
}

TEST(ROIAlignment, FourListsMustBeOfOneLengthAndGiveNoMatrices)
{
    for (int odd = -1; odd < 4; ++odd) {
        SCOPED_TRACE(odd);
        KDRPointArray references = points(odd == 0 ? 2 : 3);
        KDRNumberArray referenceAngles = numbers(odd == 1 ? 2 : 3);
        KDRPointArray found = points(odd == 2 ? 2 : 3);
        KDRNumberArray foundAngles = numbers(odd == 3 ? 2 : 3);
        KDRROIAlignment alignment = alignmentOf(2);
        EXPECT_EQ(alignment.genAlignmentSequence(references, referenceAngles, found, foundAngles),
                  odd < 0);
        EXPECT_EQ(lengthOf(alignment), 0);
    }
}

TEST(ROIAlignment, AnswersWhichKindsCanBeAlignedAndAlignsNothing)
{
    for (unsigned int kind = 0; kind <= 400; ++kind) {
        bool const refused = kind == 10 || kind == 11 || kind == 12 || kind == 99 || kind == 300;
        KDRShape shape;
        ShapeAccess::kind(ShapeAccess::record(shape)) = kind;
        KDRShapeArray aligned;
        aligned.push_back(KDRShape());
        EXPECT_EQ(KDRROIAlignment().alignROI(shape, &aligned), !refused) << kind;
        EXPECT_EQ(aligned.length(), 0);
    }
}

TEST(ROIAlignment, ACircleCanBeAlignedAndATextCannot)
{
    KDRPoint centre(1.0, 2.0);
    KDRString label("label");
    KDRFont font;
    KDRShape circle;
    circle.fromCircle(centre, 3.0);
    KDRShape text;
    text.fromText(centre, label, font);
    KDRShapeArray aligned;
    aligned.push_back(circle);
    EXPECT_TRUE(KDRROIAlignment().alignROI(circle, &aligned));
    EXPECT_EQ(aligned.length(), 0);
    aligned.push_back(circle);
    EXPECT_FALSE(KDRROIAlignment().alignROI(text, &aligned));
    EXPECT_EQ(aligned.length(), 0);
}

} // namespace
