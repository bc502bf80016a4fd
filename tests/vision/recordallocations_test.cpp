#include <kdrdata/text/kdrstring.h>
#include <kdrdata/vision/kdrchunkdata.h>
#include <kdrdata/vision/kdrfont.h>
#include <kdrdata/vision/kdrmatchmodel.h>

#include "../support/allocations.h"
#include "../support/failing.h"

#include <gtest/gtest.h>

#include <new>
#include <vector>

// What match models, chunks and fonts do when there is not enough memory.

namespace {

std::vector<unsigned char> record(unsigned char type)
{
    std::vector<unsigned char> bytes = {'V', 'M', 'M', '1', type, 0, 0, 0, 2};
    bytes.resize(18, 0);
    return bytes;
}

TEST(RecordMemory, ACopyThatCannotBeMadeLeavesNothingBehind)
{
    KDRMatchModel model;
    model.SetData(record(1).data());
    unsigned char const bytes[] = {1, 2, 3};
    KDRChunkData const chunk(bytes, sizeof bytes);
    KDRFont font;
    font.setFaceName(KDRString("Liberation"));
    EXPECT_GE(failAtEveryAllocation([&] { KDRMatchModel const copy(model); }), 2);
    EXPECT_GE(failAtEveryAllocation([&] { KDRChunkData const copy(chunk); }), 2);
    EXPECT_GE(failAtEveryAllocation([&] { KDRFont const copy(font); }), 2);
}

TEST(RecordMemory, AnAssignmentThatFailsChangesNothing)
{
    KDRMatchModel model;
    KDRMatchModel otherModel;
    otherModel.SetData(record(1).data());
    KDRFont font;
    KDRFont otherFont;
    font.setFaceName(KDRString("old"));
    otherFont.setFaceName(KDRString("new"));
    otherFont.setSize(99);
    {
        allocations::FailAfter const failing(0);
        EXPECT_THROW(model = otherModel, std::bad_alloc);
    }
    {
        allocations::FailAfter const failing(0);
        EXPECT_THROW(font = otherFont, std::bad_alloc);
    }
    EXPECT_EQ(model.ModelType(), 0);
    EXPECT_EQ(model.GetLenth(), 16u);
    EXPECT_STREQ(font.faceName().toUtf8().constData(), "old");
    EXPECT_EQ(font.size(), 24);
}

TEST(RecordMemory, AFaceNameThatCannotBeSetLeavesTheOldOne)
{
    KDRFont font;
    font.setFaceName(KDRString("old"));
    KDRString const name("new");
    EXPECT_GE(failAtEveryAllocation([&] {
                  EXPECT_STREQ(font.faceName().toUtf8().constData(), "old");
                  font.setFaceName(name);
              }),
              1);
    EXPECT_STREQ(font.faceName().toUtf8().constData(), "new");
}

TEST(RecordMemory, AModelThatThereIsNoMemoryForIsRefusedAndTheOldOneKept)
{
    std::vector<unsigned char> first = record(1);
    std::vector<unsigned char> second = record(2);
    KDRMatchModel model;
    EXPECT_EQ(model.SetData(first.data()), 1);
    {
        allocations::FailAfter const failing(0);
        EXPECT_EQ(model.SetData(second.data()), 0);
    }
    EXPECT_EQ(model.ModelType(), 1);
    EXPECT_EQ(model.GetLenth(), first.size());
    EXPECT_EQ(model.SetData(second.data()), 1);
    EXPECT_EQ(model.ModelType(), 2);
}

TEST(RecordMemory, AHandleThatCannotBeMadeLeavesNothingBehind)
{
    unsigned char const bytes[] = {1, 2, 3};
    EXPECT_GE(failAtEveryAllocation([] { KDRMatchModel const made; }), 1);
    EXPECT_GE(failAtEveryAllocation([] { KDRFont const made; }), 1);
    EXPECT_GE(failAtEveryAllocation([] { KDRChunkData const made; }), 1);
    EXPECT_GE(failAtEveryAllocation([&] { KDRChunkData const made(bytes, sizeof bytes); }), 1);
}

} // namespace
