#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/vision/kdrchunkdata.h>

#include <gtest/gtest.h>

#include <climits>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include <veldata/velchunkdata.h>

namespace {

static_assert(sizeof(KDRChunkData) == sizeof(void*));
static_assert(!std::is_polymorphic_v<KDRChunkData>);
static_assert(std::is_same_v<decltype(std::declval<KDRChunkData const&>()[0]), unsigned char>);
static_assert(std::is_same_v<decltype(std::declval<KDRChunkData&>()[0]), unsigned char&>);
static_assert(std::is_same_v<decltype(&KDRChunkData::getLength),
                             unsigned long long (KDRChunkData::*)() const>);
static_assert(std::is_same_v<decltype(&KDRChunkData::getData),
                             unsigned char const* (KDRChunkData::*)() const>);
static_assert(std::is_same_v<decltype(&KDRChunkData::setData),
                             void (KDRChunkData::*)(unsigned long long, unsigned char const*)>);

using Bytes = std::vector<unsigned char>;

Bytes const someBytes = {11, 22, 0, 33};

KDRChunkData chunkOf(Bytes const& bytes) { return KDRChunkData(bytes.data(), bytes.size()); }

/// What the core chunk holds, which no operation of the handle tells.
Bytes heldBy(KDRChunkData const& chunk)
{
    VelChunkData const& core = KDRInternal::wrapped(chunk);
    return Bytes(core.Data(), core.Data() + core.Length());
}

TEST(ChunkData, StartsEmpty) { EXPECT_EQ(heldBy(KDRChunkData()), Bytes()); }

TEST(ChunkData, TheConstructorTakesACopyOfTheBytes)
{
    Bytes bytes = someBytes;
    KDRChunkData const chunk = chunkOf(bytes);
    bytes.assign(bytes.size(), 99);
    EXPECT_EQ(heldBy(chunk), someBytes);
    EXPECT_EQ(heldBy(KDRChunkData(someBytes.data(), 2)), (Bytes{11, 22}));
}

TEST(ChunkData, NothingToCopyMakesAnEmptyChunk)
{
    EXPECT_EQ(heldBy(KDRChunkData(someBytes.data(), 0)), Bytes());
    EXPECT_EQ(heldBy(KDRChunkData(nullptr, 0)), Bytes());
    EXPECT_EQ(heldBy(KDRChunkData(nullptr, 4)), Bytes());
    EXPECT_EQ(heldBy(KDRChunkData(someBytes.data(), ULLONG_MAX)), Bytes());
}

TEST(ChunkData, CopyConstructionIsDeep)
{
    KDRChunkData const original = chunkOf(someBytes);
    KDRChunkData const copy(original);
    EXPECT_EQ(heldBy(copy), someBytes);
    EXPECT_NE(KDRInternal::wrapped(copy).Data(), KDRInternal::wrapped(original).Data());
}

TEST(ChunkData, AssignmentDoesNothing)
{
    KDRChunkData const source = chunkOf({1, 2});
    KDRChunkData target = chunkOf(someBytes);
    KDRChunkData empty;
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(&(empty = source), &empty);
    EXPECT_EQ(heldBy(target), someBytes);
    EXPECT_EQ(heldBy(empty), Bytes());
    EXPECT_EQ(heldBy(source), (Bytes{1, 2}));
    target = KDRChunkData();
    EXPECT_EQ(heldBy(target), someBytes);
}

TEST(ChunkData, ChunksAreNeitherEqualNorUnequal)
{
    KDRChunkData const chunk = chunkOf(someBytes);
    for (KDRChunkData const& other :
         {chunkOf(someBytes), chunkOf({1}), KDRChunkData(), KDRChunkData(chunk)}) {
        EXPECT_FALSE(chunk == other);
        EXPECT_FALSE(chunk != other);
        EXPECT_FALSE(other == chunk);
        EXPECT_FALSE(other != chunk);
    }
    EXPECT_FALSE(chunk == chunk);
    EXPECT_FALSE(chunk != chunk);
}

TEST(ChunkData, EveryIndexReadsZero)
{
    KDRChunkData chunk = chunkOf(someBytes);
    KDRChunkData const& constant = chunk;
    for (int const index : {0, 1, 3, 4, -1, INT_MAX, INT_MIN}) {
        EXPECT_EQ(constant[index], 0);
        EXPECT_EQ(chunk[index], 0);
    }
}

TEST(ChunkData, WhatIsWrittenThroughAnIndexIsLost)
{
    KDRChunkData chunk = chunkOf(someBytes);
    KDRChunkData other = chunkOf(someBytes);
    chunk[0] = 55;
    EXPECT_EQ(chunk[0], 0);
    chunk[1] = 66;
    EXPECT_EQ(other[1], 0);
    chunk[2] = 77;
    EXPECT_EQ(std::as_const(chunk)[2], 0);
    EXPECT_EQ(heldBy(chunk), someBytes);
    EXPECT_EQ(heldBy(other), someBytes);
}

TEST(ChunkData, AnotherThreadsWritingIsNotSeen)
{
    KDRChunkData chunk;
    unsigned char& mine = chunk[0];
    std::thread([] {
        KDRChunkData own;
        own[0] = 55;
    }).join();
    EXPECT_EQ(mine, 0);
}

TEST(ChunkData, LengthIsZeroAndTheDataNull)
{
    KDRChunkData const chunk = chunkOf(someBytes);
    EXPECT_EQ(chunk.getLength(), 0u);
    EXPECT_EQ(chunk.getData(), nullptr);
}

TEST(ChunkData, SetDataDoesNothing)
{
    KDRChunkData chunk = chunkOf(someBytes);
    unsigned char const byte = 7;
    chunk.setData(1, &byte);
    chunk.setData(0, nullptr);
    chunk.setData(ULLONG_MAX, &byte);
    EXPECT_EQ(heldBy(chunk), someBytes);
    EXPECT_EQ(chunk.getLength(), 0u);
}

} // namespace
