#include <kdrdata/vision/kdrmatchmodel.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

static_assert(sizeof(KDRMatchModel) == sizeof(void*));
static_assert(!std::is_polymorphic_v<KDRMatchModel>);
static_assert(
    std::is_same_v<decltype(&KDRMatchModel::SetData), int (KDRMatchModel::*)(unsigned char*)>);
static_assert(std::is_same_v<decltype(&KDRMatchModel::GetData),
                             int (KDRMatchModel::*)(unsigned char*) const>);
static_assert(std::is_same_v<decltype(&KDRMatchModel::ModelType), int (KDRMatchModel::*)() const>);
static_assert(std::is_same_v<decltype(&KDRMatchModel::GetLenth),
                             unsigned long long (KDRMatchModel::*)() const>);

using Bytes = std::vector<unsigned char>;

/// The record of a model with a small type and a payload of fewer than 256 bytes.
Bytes record(unsigned char type, Bytes const& payload)
{
    Bytes bytes = {'V', 'M', 'M', '1', type, 0, 0, 0};
    bytes.push_back(static_cast<unsigned char>(payload.size()));
    bytes.resize(16);
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    return bytes;
}

KDRMatchModel modelOf(Bytes bytes)
{
    KDRMatchModel model;
    EXPECT_NE(model.SetData(bytes.data()), 0);
    return model;
}

Bytes recordOf(KDRMatchModel const& model)
{
    Bytes bytes(static_cast<std::size_t>(model.GetLenth()));
    EXPECT_NE(model.GetData(bytes.data()), 0);
    return bytes;
}

Bytes const first = record(1, {10, 20, 0, 30});
Bytes const second = record(2, {40});

TEST(MatchModel, ANewModelIsTheCoreLibrarysDefault)
{
    KDRMatchModel const model;
    EXPECT_EQ(model.ModelType(), 0);
    EXPECT_EQ(model.GetLenth(), 16u);
    EXPECT_EQ(recordOf(model), record(0, {}));
}

TEST(MatchModel, PassesItsRecordInAndOut)
{
    Bytes given = first;
    KDRMatchModel model;
    EXPECT_EQ(model.SetData(given.data()), 1);
    EXPECT_EQ(given, first);
    given.assign(given.size(), 0);
    EXPECT_EQ(model.ModelType(), 1);
    EXPECT_EQ(model.GetLenth(), first.size());
    Bytes written(first.size() + 1, 99);
    EXPECT_EQ(model.GetData(written.data()), 1);
    EXPECT_EQ(written.back(), 99);
    written.pop_back();
    EXPECT_EQ(written, first);
}

TEST(MatchModel, ANewRecordReplacesTheOldOne)
{
    KDRMatchModel model = modelOf(first);
    Bytes given = second;
    EXPECT_EQ(model.SetData(given.data()), 1);
    EXPECT_EQ(model.ModelType(), 2);
    EXPECT_EQ(recordOf(model), second);
}

TEST(MatchModel, WhatIsNoRecordIsRefusedAndTheModelKept)
{
    KDRMatchModel model = modelOf(first);
    Bytes wrongLetters = second;
    wrongLetters[3] = '2';
    Bytes tooLong = second;
    tooLong[15] = 0x80;
    Bytes barelyTooLong = record(3, {1});
    barelyTooLong[11] = 0x80;
    EXPECT_EQ(model.SetData(wrongLetters.data()), 0);
    EXPECT_EQ(model.SetData(tooLong.data()), 0);
    EXPECT_EQ(model.SetData(barelyTooLong.data()), 0);
    EXPECT_EQ(model.SetData(nullptr), 0);
    EXPECT_EQ(model.GetData(nullptr), 0);
    EXPECT_EQ(recordOf(model), first);
}

TEST(MatchModel, CopiesAreDeep)
{
    KDRMatchModel original = modelOf(first);
    KDRMatchModel const copy(original);
    KDRMatchModel assigned = modelOf(second);
    EXPECT_EQ(&(assigned = original), &assigned);
    Bytes given = second;
    EXPECT_EQ(original.SetData(given.data()), 1);
    EXPECT_EQ(recordOf(copy), first);
    EXPECT_EQ(recordOf(assigned), first);
    EXPECT_EQ(recordOf(original), second);
}

TEST(MatchModel, MoveAssignmentCopiesAndTheSourceKeepsItsModel)
{
    KDRMatchModel source = modelOf(first);
    KDRMatchModel target = modelOf(second);
    EXPECT_EQ(&(target = std::move(source)), &target);
    EXPECT_EQ(recordOf(target), first);
    EXPECT_EQ(recordOf(source), first);
    Bytes given = second;
    EXPECT_EQ(source.SetData(given.data()), 1);
    EXPECT_EQ(recordOf(target), first);
}

TEST(MatchModel, MoveConstructionCopiesAndTheSourceKeepsItsModel)
{
    KDRMatchModel source = modelOf(first);
    KDRMatchModel const made(std::move(source));
    EXPECT_EQ(recordOf(made), first);
    EXPECT_EQ(recordOf(source), first);
}

TEST(MatchModel, AssignmentToItselfChangesNothing)
{
    KDRMatchModel model = modelOf(first);
    KDRMatchModel& alias = model;
    model = alias;
    EXPECT_EQ(recordOf(model), first);
    model = std::move(alias);
    EXPECT_EQ(recordOf(model), first);
}

} // namespace
