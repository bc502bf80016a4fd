#include <veldata/velcodec_p.h>

#include <cstring>

namespace {

using velcodec::Bytes;

template <std::size_t Size>
bool beginsWith(Bytes const& bytes, char const (&signature)[Size])
{
    return std::memcmp(bytes.data(), signature, Size - 1) == 0;
}

bool isTiff(Bytes const& bytes)
{
    return beginsWith(bytes, "II*\0") || beginsWith(bytes, "MM\0*") || beginsWith(bytes, "II+\0") ||
           beginsWith(bytes, "MM\0+");
}

bool isPnm(Bytes const& bytes)
{
    return bytes[0] == 'P' && bytes[1] >= '1' && bytes[1] <= '6' &&
           std::strchr(" \t\n\v\f\r", bytes[2]) && bytes[2] != 0;
}

} // namespace

bool velcodec::prepare(Bytes& bytes)
{
    constexpr std::size_t longestSignature = 8;
    if (bytes.size() < longestSignature)
        return false;
    if (beginsWith(bytes, "\x89PNG\r\n\x1A\n"))
        return preparePng(bytes);
    if (beginsWith(bytes, "\xFF\xD8\xFF"))
        return prepareJpeg(bytes);
    if (isTiff(bytes))
        return prepareTiff(bytes);
    if (beginsWith(bytes, "BM"))
        return prepareBmp(bytes);
    return isPnm(bytes) && preparePnm(bytes);
}
