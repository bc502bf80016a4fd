// Random operations on a pool of variants against a model of shared values.

#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "../support/allocations.h"
#include "../support/variantaccess.h"

namespace {

// What a store holds, as the model sees it; shared like the store.
struct ModelValue
{
    KDRVariantKind kind = 2000;
    int number = 0;
    std::string text;
};

struct Pair
{
    KDRVariant variant;
    std::shared_ptr<ModelValue> model = std::make_shared<ModelValue>();
};

// A writer gives a sharer a value of its own; an unshared one is overwritten in place.
ModelValue& unshared(Pair& pair)
{
    if (pair.model.use_count() > 1)
        pair.model = std::make_shared<ModelValue>();
    return *pair.model;
}

void writeRandomly(Pair& pair, std::mt19937& random)
{
    int const number = static_cast<int>(random() % 1000);
    std::string const text = std::to_string(number);
    switch (random() % 9) {
    case 0:
        pair.variant.fromInt(number);
        unshared(pair) = {1, number, {}};
        break;
    case 1:
        pair.variant.fromString(KDRString(text.c_str()));
        unshared(pair) = {2, 0, text};
        break;
    case 2:
        pair.variant.fromBool(number % 2 != 0);
        unshared(pair) = {0, number % 2, {}};
        break;
    case 3:
        pair.variant.fromPoint(KDRPoint(number, 0.0));
        unshared(pair) = {3, number, {}};
        break;
    case 4:
        pair.variant.fromChar(KDRChar(number));
        unshared(pair) = {12, number, {}};
        break;
    case 5:
        pair.variant.fromBuffer(KDRBuffer(text.c_str()));
        unshared(pair) = {11, 0, text};
        break;
    case 6: {
        KDRStringArray strings;
        strings.push_back(KDRString(text.c_str()));
        pair.variant.fromStringArray(strings);
        unshared(pair) = {1002, 0, text};
        break;
    }
    case 7: {
        KDRBufferArray buffers;
        buffers.push_back(KDRBuffer(text.c_str()));
        pair.variant.fromBufferArray(buffers);
        unshared(pair) = {1010, 0, text};
        break;
    }
    default: {
        KDRNumberArray numbers;
        numbers.push_back(KDRNumber(number));
        pair.variant.fromNumberArray(numbers);
        unshared(pair) = {1001, number, {}};
        break;
    }
    }
}

ModelValue readBack(KDRVariant const& variant)
{
    ModelValue value;
    value.kind = variant.variantType();
    bool flag = false;
    KDRString text;
    KDRPoint point;
    KDRChar character;
    KDRNumberArray numbers;
    KDRBuffer bytes;
    KDRStringArray strings;
    KDRBufferArray buffers;
    if (variant.toBool(&flag))
        value.number = flag ? 1 : 0;
    else if (variant.toString(&text))
        value.text = text.toUtf8().constData();
    else if (variant.toPoint(&point))
        value.number = static_cast<int>(point.x());
    else if (variant.toChar(&character))
        value.number = static_cast<KDRChar const&>(character).unicode();
    else if (variant.toNumberArray(&numbers))
        value.number = numbers[0].toInt();
    else if (variant.toBuffer(&bytes))
        value.text = bytes.constData();
    else if (variant.toStringArray(&strings))
        value.text = strings[0].toUtf8().constData();
    else if (variant.toBufferArray(&buffers))
        value.text = buffers[0].constData();
    else
        variant.toInt(&value.number);
    return value;
}

void expectAgreement(std::vector<Pair> const& pool)
{
    for (Pair const& pair : pool) {
        ModelValue const value = readBack(pair.variant);
        ASSERT_EQ(value.kind, pair.model->kind);
        ASSERT_EQ(value.number, pair.model->number);
        ASSERT_EQ(value.text, pair.model->text);
        ASSERT_EQ(KDRInternal::store(pair.variant).refCount(), pair.model.use_count());
    }
}

void runModel(unsigned seed, int steps)
{
    std::mt19937 random(seed);
    std::vector<Pair> pool(8);
    for (int step = 0; step < steps; ++step) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
        Pair& target = pool[random() % pool.size()];
        Pair const& source = pool[random() % pool.size()];
        switch (random() % 4) {
        case 0:
            target.variant = source.variant;
            target.model = source.model;
            break;
        case 1: {
            Pair copy{KDRVariant(source.variant), source.model};
            writeRandomly(copy, random);
            target.variant = copy.variant;
            target.model = copy.model;
            break;
        }
        case 2:
            target.variant = source.variant.clone();
            target.model = std::make_shared<ModelValue>(*source.model);
            break;
        default:
            writeRandomly(target, random);
            break;
        }
        ASSERT_NO_FATAL_FAILURE(expectAgreement(pool));
    }
}

TEST(VariantModel, AgreesWithSharedValuesUnderRandomOperations) { runModel(987654321, 20000); }

TEST(VariantModel, LeavesNothingBehindAfterRandomOperations)
{
    // The first run makes what GoogleTest and Qt keep for the rest of the process.
    runModel(123456789, 100);
    long const before = allocations::live();
    runModel(123456789, 2000);
    EXPECT_EQ(allocations::live(), before);
}

} // namespace
