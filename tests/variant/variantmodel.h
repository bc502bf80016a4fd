#ifndef KDRDATA_TESTS_VARIANTMODEL_H
#define KDRDATA_TESTS_VARIANTMODEL_H

#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include "kindtable.h"

/// A pool of variants beside a model of shared values, which random operations keep in step.
///
/// The model says what the contract promises: handles that share a store share one model value, a
/// writer on a shared store starts a new one, a clone has its own, and the elements of an array are
/// handles like any other. The library's count of a store must be the model's count of its value.
///
/// What happens is drawn from a @p Random, a call of which answers a number.
template <class Random>
class VariantModelOf
{
public:
    /// Draws from @p random; @p seed is told where an operation fails.
    VariantModelOf(unsigned seed, Random random) : m_seed(seed), m_random(random), m_pool(8) {}

    /// Adds a variant that others may hold too; its count is not compared.
    void addForeign(KDRVariant const& variant, int number)
    {
        m_pool.push_back({variant, std::make_shared<Value>()});
        Value& value = *m_pool.back().value;
        value.kind = variant.variantType();
        value.number = number;
        value.foreign = true;
    }

    void run(int steps)
    {
        for (int step = 0; step < steps; ++step) {
            SCOPED_TRACE(testing::Message() << "seed " << m_seed << ", step " << step);
            Pair& target = any();
            change(target);
            ASSERT_NO_FATAL_FAILURE(expectAgreement(target));
            if (step % 100 == 0) {
                ASSERT_NO_FATAL_FAILURE(expectAgreement());
            }
        }
        ASSERT_NO_FATAL_FAILURE(expectAgreement());
    }

private:
    struct Value;
    // As the list of an array shares its elements, so does its model.
    using Elements = std::vector<std::shared_ptr<Value>>;

    struct Value
    {
        KDRVariantKind kind = 2000;
        int number = 0;
        bool lost = false;
        bool foreign = false;
        std::shared_ptr<Elements> elements;
        int depth = 0;
    };

    struct Pair
    {
        KDRVariant variant;
        std::shared_ptr<Value> value = std::make_shared<Value>();
    };

    Pair& any() { return m_pool[pick(m_pool.size())]; }
    std::size_t pick(std::size_t count) { return m_random() % count; }

    // A writer gives a sharer a value of its own; an unshared one is overwritten in place.
    static void write(Pair& pair, Value const& value)
    {
        if (pair.value.use_count() > 1 || pair.value->foreign)
            pair.value = std::make_shared<Value>(value);
        else
            *pair.value = value;
    }

    void writeRandomly(Pair& target)
    {
        KindEntry const& row = kindTable[pick(std::size(kindTable))];
        int const number = static_cast<int>(pick(90));
        Value value;
        value.kind = row.kind;
        value.number = number;
        if (row.kind == KindVariantArray) {
            target.variant.fromVariantArray(KDRVariantArray());
            value.elements = std::make_shared<Elements>();
        } else if (row.construct && pick(4) == 0) {
            target.variant = row.construct(number);
            target.value = std::make_shared<Value>(value);
            return;
        } else {
            row.write(target.variant, number);
        }
        write(target, value);
    }

    // Takes the array out, adds an element and puts it back.
    void push(Pair& target, Pair const& element)
    {
        if (target.value->kind != KindVariantArray || element.value->depth > 2)
            return;
        if (target.value->elements->size() > 5) {
            target.variant.fromVariantArray(KDRVariantArray());
            Value empty;
            empty.kind = KindVariantArray;
            empty.elements = std::make_shared<Elements>();
            write(target, empty);
            return;
        }
        KDRVariantArray array;
        ASSERT_TRUE(target.variant.toVariantArray(&array));
        array.push_back(element.variant);
        target.variant.fromVariantArray(array);
        Value value;
        value.kind = KindVariantArray;
        value.depth = std::max(target.value->depth, element.value->depth + 1);
        value.elements = std::make_shared<Elements>(*target.value->elements);
        value.elements->push_back(element.value);
        write(target, value);
    }

    void select(Pair& target, Pair const& source)
    {
        if (source.value->kind != KindVariantArray || source.value->elements->empty())
            return;
        auto const index = pick(source.value->elements->size());
        std::shared_ptr<Value> const element = (*source.value->elements)[index];
        KDRVariantArray array;
        ASSERT_TRUE(source.variant.toVariantArray(&array));
        if (pick(2) == 0) {
            // The array shares its list with the stored one, which operator[] detaches.
            target.variant = std::as_const(array)[static_cast<int>(index)];
        } else {
            ASSERT_TRUE(array.select(static_cast<int>(index), &target.variant));
        }
        target.value = element;
    }

    void change(Pair& target)
    {
        Pair& source = any();
        switch (pick(8)) {
        case 0:
            target.variant = source.variant;
            target.value = source.value;
            break;
        case 1: {
            KDRVariant const copy(source.variant);
            target.variant = copy;
            target.value = source.value;
            writeRandomly(target);
            break;
        }
        case 2: {
            std::shared_ptr<Value> value = std::make_shared<Value>(*source.value);
            value->foreign = false;
            if (value->kind != 2000 && !rowOf(value->kind).copied)
                value->lost = true;
            target.variant = source.variant.clone();
            target.value = std::move(value);
            break;
        }
        case 3:
        case 4:
            push(target, source);
            break;
        case 5:
            select(target, source);
            break;
        case 6:
            target = Pair();
            break;
        default:
            writeRandomly(target);
            break;
        }
    }

    static void expectAgreement(KDRVariant const& variant, std::shared_ptr<Value> const& value)
    {
        ASSERT_EQ(variant.variantType(), value->kind);
        if (value->kind == 2000)
            return;
        KindEntry const& row = rowOf(value->kind);
        KDRVariant reader(variant);
        if (value->kind != KindVariantArray) {
            bool const readable = !value->lost && row.reads == row.kind;
            ASSERT_EQ(row.read(reader), readable ? row.right(value->number) : row.untouched());
            return;
        }
        KDRVariantArray* array = nullptr;
        ASSERT_TRUE(reader.toVariantArrayPtr(array));
        ASSERT_EQ(array->length(), static_cast<int>(value->elements->size()));
        for (int i = 0; i < array->length(); ++i) {
            KDRVariant element;
            ASSERT_TRUE(array->select(i, &element));
            expectAgreement(element, (*value->elements)[static_cast<std::size_t>(i)]);
        }
    }

    static void expectAgreement(Pair const& pair)
    {
        expectAgreement(pair.variant, pair.value);
        if (!pair.value->foreign) {
            ASSERT_EQ(VariantAccess::store(pair.variant).refCount(), pair.value.use_count());
        }
    }

    void expectAgreement() const
    {
        for (Pair const& pair : m_pool)
            expectAgreement(pair);
    }

    unsigned m_seed;
    Random m_random;
    std::vector<Pair> m_pool;
};

/// Random operations that are the same for the same seed.
class VariantModel : public VariantModelOf<std::mt19937>
{
public:
    explicit VariantModel(unsigned seed) : VariantModelOf(seed, std::mt19937(seed)) {}
};

#endif
