#ifndef VELDATA_VELORDER_P_H
#define VELDATA_VELORDER_P_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

/// The orders that files keep colours and bytes in, and images do not.
namespace velorder {

template <typename Value, std::size_t Channels>
void exchangeRedAndBlueOf(unsigned char* data, std::size_t pixels) noexcept
{
    constexpr std::size_t pixelBytes = Channels * sizeof(Value);
    for (std::size_t i = 0; i < pixels; ++i, data += pixelBytes) {
        Value first;
        Value third;
        std::memcpy(&first, data, sizeof first);
        std::memcpy(&third, data + 2 * sizeof third, sizeof third);
        std::memcpy(data, &third, sizeof third);
        std::memcpy(data + 2 * sizeof first, &first, sizeof first);
    }
}

template <typename Value>
void exchangeRedAndBlueOf(unsigned char* data, std::size_t pixels, int channels) noexcept
{
    if (channels == 3)
        exchangeRedAndBlueOf<Value, 3>(data, pixels);
    else
        exchangeRedAndBlueOf<Value, 4>(data, pixels);
}

/// Exchanges the first and the third value of every pixel, of 3 or 4 channels of 1, 2 or 4 bytes.
inline void exchangeRedAndBlue(unsigned char* data, std::size_t pixels, int channels,
                               int valueBytes) noexcept
{
    if (valueBytes == 1)
        exchangeRedAndBlueOf<std::uint8_t>(data, pixels, channels);
    else if (valueBytes == 2)
        exchangeRedAndBlueOf<std::uint16_t>(data, pixels, channels);
    else
        exchangeRedAndBlueOf<std::uint32_t>(data, pixels, channels);
}

/// Turns 16-bit values from the most significant byte first to the machine's order, or back.
inline void exchangeBytes(unsigned char* data, std::size_t values) noexcept
{
#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
    for (std::size_t i = 0; i < values; ++i, data += 2) {
        std::uint16_t value;
        std::memcpy(&value, data, sizeof value);
        value = static_cast<std::uint16_t>(value << 8 | value >> 8);
        std::memcpy(data, &value, sizeof value);
    }
#else
    static_cast<void>(data);
    static_cast<void>(values);
#endif
}

} // namespace velorder

#endif
