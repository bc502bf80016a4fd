// What the operations that are said to be cheap ask of the allocator, Qt's own requests included.

#include "samples.h"

#include "../support/malloc.h"

#include <gtest/gtest.h>

#include <string>

#include <veldata/velvar.h>

namespace {

template <class Operation>
long requestsOf(Operation const& operation)
{
    operation();
    long const before = memory::made();
    operation();
    return memory::made() - before;
}

KDRString const text("some text that is long enough to need memory of its own");
KDRString const part("memory");
KDRBuffer const bytes("some bytes that are long enough to need memory of their own");

TEST(Costs, CopyingSharedDataCostsTheHolderAlone)
{
    EXPECT_EQ(requestsOf([] { KDRString const copy(text); }), 1);
    EXPECT_EQ(requestsOf([] { KDRBuffer const copy(bytes); }), 1);
    auto const texts = samples::texts(1);
    EXPECT_EQ(requestsOf([&] { KDRStringArray const copy(texts); }), 1);
    auto const numbers = samples::numbers(1);
    EXPECT_EQ(requestsOf([&] { KDRNumberArray const copy(numbers); }), 1);
    auto const shapes = samples::ofArray<KDRShapeArray, KDRShape>("").make();
    EXPECT_EQ(requestsOf([&] { KDRShapeArray const copy(shapes); }), 1);
    auto const variants = samples::ofArray<KDRVariantArray, KDRVariant>("").make();
    EXPECT_EQ(requestsOf([&] { KDRVariantArray const copy(variants); }), 1);
}

TEST(Costs, AssigningSharedDataCostsNothing)
{
    KDRString otherText;
    EXPECT_EQ(requestsOf([&] { otherText = text; }), 0);
    KDRBuffer otherBytes;
    EXPECT_EQ(requestsOf([&] { otherBytes = bytes; }), 0);
    auto const texts = samples::texts(1);
    KDRStringArray otherTexts;
    EXPECT_EQ(requestsOf([&] { otherTexts = texts; }), 0);
    auto const shapes = samples::ofArray<KDRShapeArray, KDRShape>("").make();
    KDRShapeArray otherShapes;
    EXPECT_EQ(requestsOf([&] { otherShapes = shapes; }), 0);
    KDRShape const shape = PayloadOf<KDRShape>::make(3);
    KDRShape otherShape;
    EXPECT_EQ(requestsOf([&] { otherShape = shape; }), 0);
    KDRVariant const variant("text");
    KDRVariant otherVariant;
    EXPECT_EQ(requestsOf([&] { otherVariant = variant; }), 0);
}

TEST(Costs, SharingHandlesOfFiguresCostNothing)
{
    KDRShape const shape = PayloadOf<KDRShape>::make(3);
    EXPECT_EQ(requestsOf([&] { KDRShape const copy(shape); }), 0);
}

TEST(Costs, AskingCostsNothing)
{
    KDRString handle(text);
    int sum = 0;
    EXPECT_EQ(requestsOf([&] {
                  sum += handle.length() + handle.size() + handle.isEmpty() + handle.isNull();
                  sum += handle.toUtf16()[0] + (handle == text) + (handle != text);
                  sum += handle.contains(part) + handle.indexOf(part) + handle.lastIndexOf(part);
                  sum += handle.startsWith(part) + handle.endsWith(part);
              }),
              0);
    EXPECT_EQ(requestsOf([&] {
                  sum += bytes.size() + bytes.length() + bytes.count() + bytes.capacity();
                  sum += bytes.at(0) + bytes[1] + bytes.constData()[2] + bytes.isNull();
                  sum += bytes.contains("own") + bytes.count('o') + bytes.indexOf("own");
                  sum += bytes.startsWith("some") + bytes.endsWith('n') + bytes.lastIndexOf('o');
              }),
              0);
    KDRPoint point(1.0, 2.0);
    KDRNumber number(5);
    EXPECT_EQ(requestsOf([&] {
                  sum += static_cast<int>(point.x() + point.getYMaxVal());
                  sum += number.toInt() + static_cast<int>(number.toDouble()) + number.numType();
                  point.setX(3.0);
                  number.fromDouble(2.5);
              }),
              0);
    auto const numbers = samples::numbers(1);
    KDRImage const image = PayloadOf<KDRImage>::make(3);
    KDRMatrix const matrix = PayloadOf<KDRMatrix>::make(3);
    EXPECT_EQ(requestsOf([&] {
                  sum += numbers.length() + image.width() + image.step() + image.dataType();
                  sum += matrix.rows() + matrix.type() + numbers.select(1, &number);
                  sum += matrix.select(0, 1, &number);
              }),
              0);
    EXPECT_NE(sum, 0);
}

TEST(Costs, ReadingAVariantCostsWhatItsClassPromises)
{
    KDRVariant const number(5);
    int plain = 0;
    KDRNumber out;
    EXPECT_EQ(requestsOf([&] { number.toInt(&plain); }), 0);
    EXPECT_EQ(requestsOf([&] { number.toNumber(&out); }), 0);
    KDRVariant shared("text");
    KDRString textOut;
    KDRString* address = nullptr;
    EXPECT_EQ(requestsOf([&] { shared.toString(&textOut); }), 0);
    EXPECT_EQ(requestsOf([&] { shared.toStringPtr(address); }), 0);
    EXPECT_EQ(requestsOf([&] { shared.variantType(); }), 0);
    EXPECT_NE(address, nullptr);
}

TEST(Costs, ReferringToRawBytesCopiesNone)
{
    std::string const raw(1 << 20, 'x');
    KDRBuffer handle;
    EXPECT_LE(requestsOf([&] { handle.setRawData(raw.data(), 1U << 20); }), 1);
    EXPECT_EQ(static_cast<void const*>(handle.constData()), raw.data());
    EXPECT_LE(requestsOf([&] { KDRBuffer::fromRawData(raw.data(), 1 << 20); }), 2);
}

TEST(Costs, CopyingNumbersAndPointsCostsTheirRecord)
{
    KDRNumber const number(5);
    KDRPoint const point(1.0, 2.0);
    EXPECT_EQ(requestsOf([&] { KDRNumber const copy(number); }), 1);
    EXPECT_LE(requestsOf([&] { KDRPoint const copy(point); }), 2);
    KDRPoint other;
    EXPECT_EQ(requestsOf([&] { other = point; }), 0);
}

TEST(Costs, AVariableOfTheCoreGivesItsTextBack)
{
    long const before = memory::live();
    {
        VelVar narrow("text");
        VelVar wide(L"text");
        VelVar const copies[] = {narrow, wide};
        EXPECT_GE(memory::live(), before + 4);
        narrow = copies[1];
        wide = VelVar(5L);
    }
    EXPECT_EQ(memory::live(), before);
}

} // namespace
