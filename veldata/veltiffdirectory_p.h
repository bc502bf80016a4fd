#ifndef VELDATA_VELTIFFDIRECTORY_P_H
#define VELDATA_VELTIFFDIRECTORY_P_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include <veldata/velinput_p.h>
#include <veldata/vellimits_p.h>

/// The entries of the first directory of a TIFF where they lie in the file.
class VelTiffDirectory
{
public:
    explicit VelTiffDirectory(VelInput const& file) noexcept : input(file)
    {
        unsigned char order = 0;
        input.readAt(0, &order, 1);
        isBigEndian = order == 'M';
        isBig = number(2, 2) == 43;
        start = isBig ? number(8, 8) : number(4, 4);
        count = start < input.size() ? number(start, countSize()) : 0;
    }

    /// Whether the directory and the link to the next one behind it lie within the file.
    bool isWhole() const noexcept
    {
        std::uint64_t const at = start + countSize();
        return start < input.size() && at <= input.size() && count <= vellimits::tiffFields &&
               (input.size() - at) / entrySize() >= count &&
               input.size() - at - count * entrySize() >= linkSize();
    }

    /// Where the single short value of the field @p tag lies; 0 for other kinds of the field and a
    /// missing one. The directory must be whole.
    std::uint64_t shortAt(std::uint64_t tag) const noexcept
    {
        constexpr std::uint64_t shortType = 3;
        for (std::uint64_t i = 0; i < count; ++i) {
            std::uint64_t const at = start + countSize() + i * entrySize();
            if (number(at, 2) == tag && number(at + 2, 2) == shortType &&
                number(at + 4, linkSize()) == 1)
                return at + 4 + linkSize();
        }
        return 0;
    }

    /// Bytes of all values, as far as they are read at all. The directory must be whole.
    std::uint64_t valueBytes() const noexcept
    {
        std::uint64_t bytes = 0;
        for (std::uint64_t i = 0; i < count; ++i) {
            std::uint64_t const at = start + countSize() + i * entrySize();
            constexpr std::uint64_t longestValue = 8;
            std::uint64_t const values = number(at + 4, linkSize());
            bytes += longestValue * std::min(values, vellimits::tiffDirectoryBytes);
        }
        return std::min(bytes, vellimits::tiffDirectoryBytes);
    }

    /// The bytes that @p value has in this file.
    std::array<unsigned char, 2> shortOf(unsigned char value) const noexcept
    {
        if (isBigEndian)
            return {0, value};
        return {value, 0};
    }

private:
    std::size_t linkSize() const noexcept { return isBig ? 8 : 4; }
    std::size_t countSize() const noexcept { return isBig ? 8 : 2; }
    std::size_t entrySize() const noexcept { return isBig ? 20 : 12; }

    /// The number of @p size bytes at @p at; 0 where the file ends before.
    std::uint64_t number(std::uint64_t at, std::size_t size) const noexcept
    {
        std::array<unsigned char, 8> bytes;
        if (input.readAt(at, bytes.data(), size) != size)
            return 0;
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < size; ++i)
            value = value << 8 | bytes[isBigEndian ? i : size - 1 - i];
        return value;
    }

    VelInput const& input;
    bool isBigEndian = false;
    bool isBig = false;
    std::uint64_t start = 0;
    std::uint64_t count = 0;
};

#endif
