#ifndef VELDATA_VELMODELRECORD_P_H
#define VELDATA_VELMODELRECORD_P_H

#include <algorithm>
#include <cstdint>
#include <iterator>

/// The head of a match model's byte record, which velmatchmodel.h describes.
class VelModelRecord
{
public:
    /// The bytes before the payload.
    static constexpr unsigned int headBytes = 16;

    /// The most bytes that a payload may have.
    static constexpr std::uint64_t longestPayload = std::uint64_t(1) << 31;

    /// Reads the head of @p record; answers false, with nothing changed, where it is none. Behind
    /// wrong letters nothing is read.
    bool read(unsigned char const* record) noexcept
    {
        if (!std::equal(std::begin(letters), std::end(letters), record))
            return false;
        auto const length = number(record + 8, 8);
        if (length > longestPayload)
            return false;
        type = static_cast<std::int32_t>(number(record + 4, 4));
        payloadBytes = length;
        return true;
    }

    /// Writes the head to the first headBytes bytes of @p record.
    void write(unsigned char* record) const noexcept
    {
        std::copy(std::begin(letters), std::end(letters), record);
        put(static_cast<std::uint32_t>(type), record + 4, 4);
        put(payloadBytes, record + 8, 8);
    }

    std::int32_t type;
    std::uint64_t payloadBytes;

private:
    static constexpr unsigned char letters[4] = {'V', 'M', 'M', '1'};

    static std::uint64_t number(unsigned char const* bytes, int count) noexcept
    {
        std::uint64_t value = 0;
        while (count > 0)
            value = value << 8 | bytes[--count];
        return value;
    }

    static void put(std::uint64_t value, unsigned char* bytes, int count) noexcept
    {
        for (int i = 0; i < count; ++i, value >>= 8)
            bytes[i] = static_cast<unsigned char>(value & 0xFF);
    }
};

#endif
