#include <veldata/velcodec_p.h>

#include <cstddef>
#include <string>

namespace {

using velcodec::Bytes;

bool isDigit(unsigned char byte) { return byte >= '0' && byte <= '9'; }

bool isSpace(unsigned char byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

/// Reads the numbers of a portable map one after the other.
class Numbers
{
public:
    explicit Numbers(Bytes const& fileBytes) : bytes(fileBytes) {}

    /// The next number, of @p maxDigits digits at most; -1 where there is none up to @p maxValue.
    int next(int maxValue, int maxDigits = 10)
    {
        skipSpaceAndComments();
        if (at == bytes.size() || !isDigit(bytes[at]))
            return -1;
        int value = 0;
        for (int digits = 0; at < bytes.size() && isDigit(bytes[at]) && digits < maxDigits;
             ++digits, ++at) {
            value = value * 10 + (bytes[at] - '0');
            if (value > maxValue)
                return -1;
        }
        return value;
    }

    /// The next number of the header; -1 also where no space follows it, not even before a comment:
    /// OpenCV steps over one byte behind a number, whatever it is.
    int nextOfHeader(int maxValue)
    {
        int const value = next(maxValue);
        return at < bytes.size() && isSpace(bytes[at]) ? value : -1;
    }

    /// Steps over the one space that ends the header.
    void endHeader() { ++at; }

    std::size_t bytesLeft() const { return bytes.size() - at; }

private:
    void skipSpaceAndComments()
    {
        while (at < bytes.size() && (isSpace(bytes[at]) || bytes[at] == '#')) {
            if (bytes[at] == '#') {
                while (at < bytes.size() && bytes[at] != '\n' && bytes[at] != '\r')
                    ++at;
            } else {
                ++at;
            }
        }
    }

    Bytes const& bytes;
    std::size_t at = 2;
};

struct Header
{
    int width;
    int height;
    int channels;
    int maxValue;
    bool isBinary;
    bool isBitmap; ///< a value is one bit, 1 for black

    std::int64_t values() const { return std::int64_t{width} * height * channels; }
    int valueBytes() const { return maxValue > 255 ? 2 : 1; }
};

Header headerOf(unsigned char kind, Numbers& numbers)
{
    constexpr int maxSide = 1 << 20;
    Header header = {};
    header.isBinary = kind > '3';
    header.isBitmap = kind == '1' || kind == '4';
    header.channels = kind == '3' || kind == '6' ? 3 : 1;
    header.width = numbers.nextOfHeader(maxSide);
    header.height = numbers.nextOfHeader(maxSide);
    header.maxValue = header.isBitmap ? 1 : numbers.nextOfHeader(65535);
    return header;
}

/// Writes the ASCII map whose values come next as a binary one, which OpenCV does not rescale.
bool rewriteBinary(Header const& header, Numbers& numbers, Bytes& bytes)
{
    std::int64_t const values = header.values();
    if (values > static_cast<std::int64_t>(numbers.bytesLeft()))
        return false;
    std::string const text = std::string(header.channels == 3 ? "P6 " : "P5 ") +
                             std::to_string(header.width) + ' ' + std::to_string(header.height) +
                             ' ' + std::to_string(header.isBitmap ? 255 : header.maxValue) + '\n';
    Bytes binary(text.begin(), text.end());
    for (std::int64_t i = 0; i < values; ++i) {
        int value = header.isBitmap ? numbers.next(1, 1) : numbers.next(header.maxValue);
        if (value < 0)
            return false;
        if (header.isBitmap)
            value = value == 1 ? 0 : 255;
        if (header.valueBytes() == 2)
            binary.push_back(static_cast<unsigned char>(value >> 8));
        binary.push_back(static_cast<unsigned char>(value & 0xFF));
    }
    bytes.swap(binary);
    return true;
}

} // namespace

bool velcodec::preparePnm(Bytes& bytes)
{
    Numbers numbers(bytes);
    Header const header = headerOf(bytes[1], numbers);
    if (!isDecodableSize(header.width, header.height) || header.maxValue < 1)
        return false;
    numbers.endHeader();
    if (!header.isBinary)
        return rewriteBinary(header, numbers, bytes);
    std::int64_t const needed = header.isBitmap
                                    ? (std::int64_t{header.width} + 7) / 8 * header.height
                                    : header.values() * header.valueBytes();
    return needed <= static_cast<std::int64_t>(numbers.bytesLeft());
}
