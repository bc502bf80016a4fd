// The small records: match models, blocks of bytes, fonts, and the figure in space that is only a
// name.

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <veldata/veldata.h>
#include <veldata/velmodelrecord_p.h>

#include "guarded.h"
#include "sanitized.h"

namespace {

using Bytes = std::vector<unsigned char>;

/// A model's record, written out byte by byte; @p claimed is the payload length that it announces.
Bytes record(std::uint32_t type, std::uint64_t claimed, Bytes const& payload)
{
    Bytes bytes = {'V', 'M', 'M', '1'};
    for (int i = 0; i < 4; ++i)
        bytes.push_back(static_cast<unsigned char>(type >> (8 * i)));
    for (int i = 0; i < 8; ++i)
        bytes.push_back(static_cast<unsigned char>(claimed >> (8 * i)));
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    return bytes;
}

Bytes record(std::uint32_t type, Bytes const& payload)
{
    return record(type, payload.size(), payload);
}

Bytes recordOf(VelMatchModel const& model)
{
    Bytes bytes(static_cast<std::size_t>(model.GetLenth()));
    EXPECT_EQ(model.GetData(bytes.data()), 1);
    return bytes;
}

VelMatchModel modelOf(Bytes const& bytes)
{
    VelMatchModel model;
    EXPECT_EQ(model.SetData(bytes.data()), 1);
    return model;
}

Bytes contentOf(VelChunkData const& chunk)
{
    return Bytes(chunk.Data(), chunk.Data() + chunk.Length());
}

/// A copy in memory of exactly its size, so that a sanitizer sees each byte read beyond it.
class Exact
{
public:
    explicit Exact(Bytes const& bytes) : data(new unsigned char[bytes.size()])
    {
        std::copy(bytes.begin(), bytes.end(), data);
    }
    Exact(Exact const&) = delete;
    Exact& operator=(Exact const&) = delete;
    ~Exact() { delete[] data; }

    unsigned char* const data;
};

TEST(VelMatchModel, TheDefaultIsOfTypeZeroWithAnEmptyPayload)
{
    VelMatchModel const model;
    EXPECT_EQ(model.ModelType(), 0);
    EXPECT_EQ(model.GetLenth(), 16u);
    EXPECT_EQ(recordOf(model), record(0, {}));
}

TEST(VelMatchModel, IsReadFromItsRecordAndWrittenAsTheSameBytes)
{
    Bytes const bytes = record(0x01020304, {9, 0, 255, 7, 0});
    VelMatchModel model;
    EXPECT_EQ(model.SetData(bytes.data()), 1);
    EXPECT_EQ(model.ModelType(), 0x01020304);
    EXPECT_EQ(model.GetLenth(), 21u);
    EXPECT_EQ(recordOf(model), bytes);
}

TEST(VelMatchModel, EveryTypeIsKept)
{
    for (int const type : {0, 1, -1, 255, 65536, INT_MAX, INT_MIN}) {
        Bytes const bytes = record(static_cast<std::uint32_t>(type), {1});
        VelMatchModel const model = modelOf(bytes);
        EXPECT_EQ(model.ModelType(), type);
        EXPECT_EQ(recordOf(model), bytes);
    }
}

TEST(VelMatchModel, AnyPayloadComesBackWhole)
{
    unsigned int const seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    VelMatchModel model;
    for (int step = 0; step < 300; ++step) {
        Bytes payload(random() % (step % 10 == 0 ? 70000 : 40));
        for (unsigned char& byte : payload)
            byte = static_cast<unsigned char>(random());
        Bytes const bytes = record(static_cast<std::uint32_t>(random()), payload);
        Exact const given(bytes);
        ASSERT_EQ(model.SetData(given.data), 1);
        ASSERT_EQ(model.GetLenth(), bytes.size());
        ASSERT_EQ(recordOf(model), bytes);
    }
}

TEST(VelMatchModel, NullIsRefused)
{
    Bytes const bytes = record(5, {1, 2, 3});
    VelMatchModel model = modelOf(bytes);
    EXPECT_EQ(model.SetData(nullptr), 0);
    EXPECT_EQ(model.GetData(nullptr), 0);
    EXPECT_EQ(recordOf(model), bytes);
}

TEST(VelMatchModel, WrongLettersAreRefusedAndNothingBehindThemIsRead)
{
    Bytes const bytes = record(5, {1, 2, 3});
    VelMatchModel model = modelOf(bytes);
    for (std::size_t letter = 0; letter < 4; ++letter) {
        for (int change = 1; change < 256; ++change) {
            Bytes letters = {'V', 'M', 'M', '1'};
            letters[letter] = static_cast<unsigned char>(letters[letter] ^ change);
            Exact const given(letters);
            EXPECT_EQ(model.SetData(given.data), 0);
        }
    }
    Exact const lowerCase({'v', 'm', 'm', '1'});
    EXPECT_EQ(model.SetData(lowerCase.data), 0);
    EXPECT_EQ(recordOf(model), bytes);
}

TEST(VelMatchModel, APayloadBeyondTheLimitIsRefusedAndNotRead)
{
    Bytes const bytes = record(5, {1, 2, 3});
    VelMatchModel model = modelOf(bytes);
    for (std::uint64_t const length :
         {(std::uint64_t(1) << 31) + 1, std::uint64_t(1) << 32, (std::uint64_t(1) << 32) + 3,
          std::uint64_t(1) << 63, UINT64_MAX - 15, UINT64_MAX}) {
        SCOPED_TRACE(length);
        Exact const head(record(7, length, {}));
        EXPECT_EQ(model.SetData(head.data), 0);
        EXPECT_EQ(recordOf(model), bytes);
    }
}

// By the head alone: a whole record of the longest kind takes 2 GiB.
TEST(VelMatchModel, TheLongestPayloadIsNotRefusedForItsLength)
{
    constexpr std::uint64_t longest = std::uint64_t(1) << 31;
    VelModelRecord head{};
    EXPECT_TRUE(head.read(record(7, longest, {}).data()));
    EXPECT_EQ(head.payloadBytes, longest);
    EXPECT_EQ(head.type, 7);
    EXPECT_FALSE(head.read(record(8, longest + 1, {}).data()));
    EXPECT_EQ(head.payloadBytes, longest);
    EXPECT_EQ(head.type, 7);
}

TEST(VelMatchModel, ARecordsHeadIsAsLongAsItSays)
{
    VelModelRecord head{};
    head.type = 7;
    head.payloadBytes = 3;
    Bytes bytes(VelModelRecord::headBytes + 1, 0xA5);
    head.write(bytes.data());
    EXPECT_EQ(bytes.back(), 0xA5);
    bytes.pop_back();
    EXPECT_EQ(bytes, record(7, 3, {}));
}

TEST(VelMatchModel, NothingBehindTheHeadOfARecordWithoutPayloadIsRead)
{
    Bytes const bytes = record(7, {});
    Guarded<unsigned char> const guarded(bytes.data(), bytes.size());
    VelModelRecord head{};
    EXPECT_TRUE(head.read(guarded.data()));
    EXPECT_EQ(head.type, 7);
    EXPECT_EQ(head.payloadBytes, 0u);
}

TEST(VelMatchModel, CopiesAreDeep)
{
    Bytes const first = record(1, {1, 2, 3});
    Bytes const second = record(2, {4});
    VelMatchModel original = modelOf(first);
    VelMatchModel const copy(original);
    VelMatchModel assigned = modelOf(second);
    EXPECT_EQ(&(assigned = original), &assigned);
    EXPECT_EQ(original.SetData(second.data()), 1);
    EXPECT_EQ(recordOf(copy), first);
    EXPECT_EQ(recordOf(assigned), first);
    EXPECT_EQ(recordOf(original), second);
    VelMatchModel const& alias = assigned;
    assigned = alias;
    EXPECT_EQ(recordOf(assigned), first);
}

TEST(VelMatchModel, AMovedFromModelIsAsNew)
{
    Bytes const bytes = record(1, {1, 2, 3});
    VelMatchModel original = modelOf(bytes);
    VelMatchModel moved(std::move(original));
    EXPECT_EQ(recordOf(moved), bytes);
    EXPECT_EQ(recordOf(original), record(0, {}));
    VelMatchModel assigned;
    EXPECT_EQ(&(assigned = std::move(moved)), &assigned);
    EXPECT_EQ(recordOf(assigned), bytes);
    EXPECT_EQ(recordOf(moved), record(0, {}));
    VelMatchModel& alias = assigned;
    assigned = std::move(alias);
    EXPECT_EQ(recordOf(assigned), bytes);
}

TEST(VelChunkData, StartsEmpty)
{
    VelChunkData const chunk;
    EXPECT_EQ(chunk.Length(), 0u);
    EXPECT_EQ(chunk.Data(), nullptr);
}

TEST(VelChunkData, CopiesTheBytesThatItIsGiven)
{
    Bytes bytes = {0, 255, 7, 0};
    VelChunkData const chunk(bytes.data(), bytes.size());
    VelChunkData const part(bytes.data(), 2);
    bytes.assign(4, 99);
    EXPECT_EQ(contentOf(chunk), (Bytes{0, 255, 7, 0}));
    EXPECT_EQ(contentOf(part), (Bytes{0, 255}));
}

TEST(VelChunkData, NoBytesMakeAnEmptyBlock)
{
    unsigned char const byte = 7;
    VelChunkData const none(&byte, 0);
    EXPECT_EQ(none.Length(), 0u);
    EXPECT_EQ(none.Data(), nullptr);
    for (unsigned long long const length : {0ULL, 1ULL, ULLONG_MAX}) {
        VelChunkData const null(nullptr, length);
        EXPECT_EQ(null.Length(), 0u);
        EXPECT_EQ(null.Data(), nullptr);
    }
}

TEST(VelChunkData, ALengthThatCannotBeMakesAnEmptyBlock)
{
    unsigned char const byte = 7;
    for (unsigned long long const length : {ULLONG_MAX, ULLONG_MAX / 2 + 1}) {
        VelChunkData const chunk(&byte, length);
        EXPECT_EQ(chunk.Length(), 0u);
        EXPECT_EQ(chunk.Data(), nullptr);
    }
}

#ifndef VEL_SANITIZED
TEST(VelChunkData, ALengthThatThereIsNoMemoryForMakesAnEmptyBlock)
{
    unsigned char const byte = 7;
    for (unsigned long long const length : {ULLONG_MAX / 2, ULLONG_MAX / 4}) {
        VelChunkData const chunk(&byte, length);
        EXPECT_EQ(chunk.Length(), 0u);
        EXPECT_EQ(chunk.Data(), nullptr);
    }
}
#endif

TEST(VelChunkData, CopiesAreDeep)
{
    Bytes const bytes = {1, 2, 3};
    VelChunkData const original(bytes.data(), bytes.size());
    VelChunkData const copy(original);
    VelChunkData assigned(bytes.data(), 1);
    EXPECT_EQ(&(assigned = original), &assigned);
    EXPECT_EQ(contentOf(copy), bytes);
    EXPECT_EQ(contentOf(assigned), bytes);
    EXPECT_NE(copy.Data(), original.Data());
    EXPECT_NE(assigned.Data(), original.Data());
    VelChunkData const& alias = assigned;
    assigned = alias;
    EXPECT_EQ(contentOf(assigned), bytes);
    assigned = VelChunkData();
    EXPECT_EQ(assigned.Length(), 0u);
}

TEST(VelChunkData, AMovedFromBlockIsEmpty)
{
    Bytes const bytes = {1, 2, 3};
    VelChunkData original(bytes.data(), bytes.size());
    VelChunkData moved(std::move(original));
    EXPECT_EQ(contentOf(moved), bytes);
    EXPECT_EQ(original.Length(), 0u);
    VelChunkData assigned(bytes.data(), 1);
    EXPECT_EQ(&(assigned = std::move(moved)), &assigned);
    EXPECT_EQ(contentOf(assigned), bytes);
    EXPECT_EQ(moved.Length(), 0u);
    VelChunkData& alias = assigned;
    assigned = std::move(alias);
    EXPECT_EQ(contentOf(assigned), bytes);
}

void expectDefault(VelFont const& font)
{
    EXPECT_EQ(font.faceName.ValType(), 3);
    EXPECT_STREQ(font.faceName.WS(), L"");
    EXPECT_EQ(font.size, 12);
    EXPECT_EQ(font.weight, 400);
    EXPECT_EQ(font.bold, 0);
    EXPECT_EQ(font.italic, 0);
    EXPECT_EQ(font.underline, 0);
    EXPECT_EQ(font.strikeOut, 0);
}

VelFont someFont()
{
    VelFont font;
    font.faceName = VelVar("Sans");
    font.size = -3;
    font.weight = 700;
    font.bold = 1;
    font.italic = 2;
    font.underline = 3;
    font.strikeOut = 4;
    return font;
}

void expectSome(VelFont const& font)
{
    EXPECT_EQ(font.faceName.ValType(), 2);
    EXPECT_STREQ(font.faceName.S(), "Sans");
    EXPECT_EQ(font.size, -3);
    EXPECT_EQ(font.weight, 700);
    EXPECT_EQ(font.bold, 1);
    EXPECT_EQ(font.italic, 2);
    EXPECT_EQ(font.underline, 3);
    EXPECT_EQ(font.strikeOut, 4);
}

TEST(VelFont, StartsNamelessUprightAndPlain) { expectDefault(VelFont()); }

TEST(VelFont, TheFieldsStandInTheirOrderWithoutGapsBetweenThem)
{
    VelFont const font;
    auto const* const start = reinterpret_cast<char const*>(&font);
    std::ptrdiff_t place = sizeof(VelVar);
    EXPECT_EQ(reinterpret_cast<char const*>(&font.faceName) - start, 0);
    for (std::int64_t const* const number : {&font.size, &font.weight}) {
        EXPECT_EQ(reinterpret_cast<char const*>(number) - start, place);
        place += 8;
    }
    for (unsigned char const* const flag :
         {&font.bold, &font.italic, &font.underline, &font.strikeOut})
        EXPECT_EQ(reinterpret_cast<char const*>(flag) - start, place++);
}

TEST(VelFont, CopiesAreDeep)
{
    VelFont original = someFont();
    VelFont const copy(original);
    VelFont assigned;
    EXPECT_EQ(&(assigned = original), &assigned);
    original = VelFont();
    expectDefault(original);
    expectSome(copy);
    expectSome(assigned);
    VelFont const& alias = assigned;
    assigned = alias;
    expectSome(assigned);
}

TEST(VelFont, AMovedFromFontHasNoName)
{
    VelFont original = someFont();
    VelFont moved(std::move(original));
    expectSome(moved);
    EXPECT_EQ(original.faceName.ValType(), 0);
    VelFont assigned;
    EXPECT_EQ(&(assigned = std::move(moved)), &assigned);
    expectSome(assigned);
    EXPECT_EQ(moved.faceName.ValType(), 0);
    VelFont& alias = assigned;
    assigned = std::move(alias);
    expectSome(assigned);
}

TEST(Vel3DShape, IsNothingButAName) { EXPECT_TRUE(std::is_empty<Vel3DShape>::value); }

} // namespace
