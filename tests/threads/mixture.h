#ifndef KDRDATA_TESTS_MIXTURE_H
#define KDRDATA_TESTS_MIXTURE_H

#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <mutex>
#include <random>
#include <utility>
#include <vector>

#include "../variant/payloads.h"

/// How a handle is written in place, so that it gives up or copies what it shares.
template <class Handle>
struct Writing
{
    static void write(Handle& handle, int number) { handle = PayloadOf<Handle>::make(number); }
};

/// An array of one element.
template <class Array, class Element>
struct WritingOfArray
{
    static void write(Array& array, int number)
    {
        array.replace(0, PayloadOf<Element>::make(number));
    }
};

template <>
struct Writing<KDRNumberArray> : WritingOfArray<KDRNumberArray, KDRNumber>
{
};

template <>
struct Writing<KDRStringArray> : WritingOfArray<KDRStringArray, KDRString>
{
};

template <>
struct Writing<KDRPointArray> : WritingOfArray<KDRPointArray, KDRPoint>
{
};

template <>
struct Writing<KDRImageArray> : WritingOfArray<KDRImageArray, KDRImage>
{
};

template <>
struct Writing<KDRShapeArray> : WritingOfArray<KDRShapeArray, KDRShape>
{
};

template <>
struct Writing<KDRString>
{
    static void write(KDRString& string, int number)
    {
        string.push_back(KDRString("x"));
        string.setNum(number);
    }
};

template <>
struct Writing<KDRBuffer>
{
    static void write(KDRBuffer& buffer, int number)
    {
        KDRBuffer const digits = PayloadOf<KDRBuffer>::make(number);
        buffer.resize(digits.size());
        for (int i = 0; i < digits.size(); ++i)
            buffer.data()[i] = digits.at(i);
    }
};

template <>
struct Writing<KDRShape>
{
    static void write(KDRShape& shape, int number)
    {
        KDRPoint centre(1.0, 2.0);
        shape.fromCircle(centre, number);
    }
};

template <>
struct Writing<KDRImage>
{
    // Through dataPtr() the others would see it; a new picture is this handle's alone.
    static void write(KDRImage& image, int number)
    {
        image.GenImageExt(nullptr, number + 1, 1, 1, 0, KDRImage::DataTypeUInt8);
    }
};

template <>
struct PayloadOf<KDRRegion>
{
    static KDRRegion make(int number)
    {
        KDRNumberArray rows = PayloadOf<KDRNumberArray>::make(number);
        KDRRegion region;
        region.fromRunLengthEncodeing(rows, rows, rows, 1, 1);
        return region;
    }
    static int number(KDRRegion region)
    {
        KDRNumberArray rows;
        KDRNumberArray firstColumns;
        KDRNumberArray lastColumns;
        region.toRunLengthEncodeing(&rows, &firstColumns, &lastColumns);
        return PayloadOf<KDRNumberArray>::number(rows);
    }
};

template <>
struct Writing<KDRRegion>
{
    static void write(KDRRegion& region, int number)
    {
        KDRNumberArray rows = PayloadOf<KDRNumberArray>::make(number);
        region.fromRunLengthEncodeing(rows, rows, rows, 1, 1);
    }
};

/// A variant of a text.
template <>
struct PayloadOf<KDRVariant>
{
    static KDRVariant make(int number) { return KDRVariant(PayloadOf<KDRString>::make(number)); }
    static int number(KDRVariant const& variant)
    {
        KDRString text;
        return variant.toString(&text) ? PayloadOf<KDRString>::number(text) : -1;
    }
};

template <>
struct Writing<KDRVariant>
{
    static void write(KDRVariant& variant, int number)
    {
        if (number % 2 == 0)
            variant = variant.clone();
        variant.fromString(PayloadOf<KDRString>::make(number));
    }
};

/// Separate handles of one class that start by sharing one value, some with each thread and some in
/// a pool that all threads take from and give to.
template <class Handle>
class Mixture
{
    struct Held
    {
        Handle handle;
        int number;
    };

public:
    Mixture() : m_pool(4, {PayloadOf<Handle>::make(start), start}) {}

    /// What one thread does with handles of its own.
    class Thread
    {
    public:
        /// With @p inPlace a handle may be written, not only replaced: once all others have given
        /// up what it shared, that happens where they read.
        Thread(Mixture& mixture, bool inPlace)
            : m_mixture(mixture), m_inPlace(inPlace), m_own(3, mixture.first())
        {
        }

        void step(std::mt19937& random)
        {
            Held& one = m_own[random() % m_own.size()];
            Held& other = m_own[random() % m_own.size()];
            int const number = static_cast<int>(random() % 90);
            switch (random() % 6) {
            case 0: {
                Held copy(other);
                std::swap(one, copy);
                break;
            }
            case 1:
                one = other;
                break;
            case 2:
                if (m_inPlace) {
                    Writing<Handle>::write(one.handle, number);
                    one.number = number;
                    break;
                }
                [[fallthrough]];
            case 3:
                one = {PayloadOf<Handle>::make(number), number};
                break;
            default: {
                std::lock_guard<std::mutex> const lock(m_mixture.m_mutex);
                std::swap(m_mixture.m_pool[random() % m_mixture.m_pool.size()], one);
                break;
            }
            }
            ASSERT_EQ(PayloadOf<Handle>::number(one.handle), one.number);
        }

    private:
        Mixture& m_mixture;
        bool m_inPlace;
        std::vector<Held> m_own;
    };

    /// After the threads have ended.
    void expectWhole() const
    {
        for (Held const& held : m_pool)
            EXPECT_EQ(PayloadOf<Handle>::number(held.handle), held.number);
    }

private:
    static constexpr int start = 7;

    Held first()
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        return m_pool[0];
    }

    std::mutex m_mutex;
    std::vector<Held> m_pool;
};

#endif
