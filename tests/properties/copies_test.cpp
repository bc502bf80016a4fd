// Copies never show what happens to the other: for every class whose comment says that copies are
// deep or are made on writing, for every way to copy and every way to change.

#include "samples.h"

#include "../support/shapeaccess.h"
#include "../support/words.h"
#include "../variant/kindtable.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

template <class Value>
Value assignedCopy(Value const& value)
{
    Value copy;
    copy = value;
    return copy;
}

// The copy is changed, then the original.
template <class Value, class Change>
void expectIndependence(Value (*make)(), Value (*copyOf)(Value const&), Change const& change)
{
    Value original = make();
    std::string const before = words::of(original);
    Value copy = copyOf(original);
    ASSERT_EQ(words::of(copy), words::of(original));
    change(copy, 6);
    EXPECT_NE(words::of(copy), before) << "nothing was changed";
    EXPECT_EQ(words::of(original), before) << "changing the copy shows in the original";

    Value other = copyOf(original);
    change(original, 6);
    EXPECT_EQ(words::of(original), words::of(copy));
    EXPECT_EQ(words::of(other), before) << "changing the original shows in the copy";
}

// What a sequence of changes does to one of many handles shows in no other.
template <class Value>
void expectIndependenceOfMany(Sample<Value> const& sample)
{
    constexpr unsigned seed = 20;
    constexpr int steps = 400;
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    auto const below = [&](std::size_t end) { return random() % end; };
    std::vector<std::unique_ptr<Value>> handles;
    std::vector<std::string> expected;
    for (int i = 0; i < 5; ++i) {
        handles.push_back(std::make_unique<Value>(sample.make()));
        expected.push_back(words::of(*handles.back()));
    }
    for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
        std::size_t const i = below(handles.size());
        std::size_t const j = below(handles.size());
        switch (below(5)) {
        case 0:
            *handles[i] = *handles[j];
            expected[i] = expected[j];
            break;
        case 1:
            handles[i] = std::make_unique<Value>(*handles[j]);
            expected[i] = words::of(*handles[i]);
            break;
        case 2:
            handles[i] = std::make_unique<Value>(sample.make());
            expected[i] = words::of(*handles[i]);
            break;
        default:
            sample.changes[below(sample.changes.size())].second(*handles[i],
                                                                static_cast<int>(below(90)));
            expected[i] = words::of(*handles[i]);
        }
        for (std::size_t k = 0; k < handles.size(); ++k)
            EXPECT_EQ(words::of(*handles[k]), expected[k]) << "step " << step;
    }
}

template <class Test>
void forEverySample(Test const& test)
{
    std::apply(
        [&](auto const&... sample) {
            (
                [&] {
                    SCOPED_TRACE(sample.name);
                    test(sample);
                }(),
                ...);
        },
        samples::all());
}

TEST(Copies, NeverAliasWhateverIsChanged)
{
    forEverySample([](auto const& sample) {
        for (auto const& change : sample.changes) {
            SCOPED_TRACE(change.first);
            using Value = decltype(sample.make());
            expectIndependence<Value>(sample.make, assignedCopy<Value>, change.second);
        }
    });
}

TEST(Copies, NeverAliasHoweverManyAndHoweverOften)
{
    forEverySample([](auto const& sample) { expectIndependenceOfMany(sample); });
}

TEST(Copies, OfFiguresNeverAlias)
{
    for (auto const& first : shapeGenerators<KDRShape>) {
        for (auto const& generator : shapeGenerators<KDRShape>) {
            SCOPED_TRACE(std::string(first.name) + ", then " + generator.name);
            KDRShape original;
            ShapeValues values = shapeValues(3);
            ShapeValues others = shapeValues(4);
            first.generate(original, values);
            std::string const before = words::of(original);
            KDRShape copy(original);
            generator.generate(copy, others);
            EXPECT_EQ(words::of(original), before);
            KDRShape second;
            second = original;
            generator.generate(original, others);
            EXPECT_EQ(words::of(second), before);
        }
    }
}

TEST(Copies, OfPosesCarryAllAndShareNothing)
{
    KDRPose3D pose;
    pose.setX(1.0);
    KDRPose3D const copy(pose);
    pose.setX(2.0);
    EXPECT_EQ(copy.x(), 1.0);
    KDRPose2D flat;
    flat.setRz(1.0);
    KDRPose2D const flatCopy(flat);
    flat.setRz(2.0);
    EXPECT_EQ(flatCopy.Rz(), 1.0);
}

// Assigned images share their pixels; new pixels are the image's own, and a clone's always are.
TEST(Copies, OfImagesShareThePixelsUntilAnyGetsNewOnes)
{
    unsigned char pixels[] = {1, 2, 3, 4};
    KDRImage image(pixels, 2, 2, 1, 2, KDRImage::DataTypeUInt8);
    KDRImage const copy(image);
    EXPECT_EQ(copy.dataPtr(), image.dataPtr());
    std::string const before = words::of(copy);
    EXPECT_EQ(image.GenImageExt(pixels, 1, 4, 1, 1, KDRImage::DataTypeUInt8), 1);
    EXPECT_EQ(words::of(copy), before);
    KDRImage const clone = image.clone();
    image.dataPtr()[0] = 9;
    EXPECT_EQ(clone.dataPtr()[0], 1);
    EXPECT_EQ(pixels[0], 1);
}

// The readers copy out, the writers copy in, and clone() shares no store.
TEST(Copies, OfVariantsByCloneNeverAlias)
{
    for (KindEntry const& row : kindTable) {
        SCOPED_TRACE(row.name);
        KDRVariant original = variantOf(row, 3);
        KDRVariant clone = original.clone();
        std::string const before = words::of(clone);
        row.write(original, 4);
        EXPECT_EQ(words::of(clone), before);
        std::string const after = words::of(original);
        clone.fromInt(12);
        EXPECT_EQ(words::of(original), after);
    }
}

} // namespace
