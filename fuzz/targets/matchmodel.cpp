// Match-model records.

#include <kdrdata/vision/kdrmatchmodel.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "../support/check.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t headBytes = 16;
constexpr std::uint64_t longestPayload = std::uint64_t(1) << 31;

std::uint64_t littleEndian(std::uint8_t const* bytes, int count)
{
    std::uint64_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | bytes[i];
    return value;
}

bool hasLetters(Bytes const& record) { return std::memcmp(record.data(), "VMM1", 4) == 0; }

/// Whether all the bytes are there that a reader may look at.
bool isComplete(Bytes const& record)
{
    if (record.size() < 4)
        return false;
    if (!hasLetters(record))
        return true;
    if (record.size() < headBytes)
        return false;
    std::uint64_t const payload = littleEndian(&record[8], 8);
    return payload > longestPayload || payload <= record.size() - headBytes;
}

void read(Bytes record)
{
    if (!isComplete(record))
        return;
    KDRMatchModel model;
    unsigned char earlier[headBytes + 1] = {'V', 'M', 'M', '1', 7, 0, 0, 0, 1,
                                            0,   0,   0,   0,   0, 0, 0, 9};
    check(model.SetData(earlier) != 0, "a record of one byte is read");

    std::uint64_t const payload = hasLetters(record) ? littleEndian(&record[8], 8) : 0;
    bool const good = hasLetters(record) && payload <= longestPayload;
    check((model.SetData(record.data()) != 0) == good, "a record is read exactly if it is one");

    Bytes expected(earlier, earlier + sizeof earlier);
    if (good)
        expected.assign(record.begin(),
                        record.begin() + static_cast<std::ptrdiff_t>(headBytes + payload));
    KDRMatchModel const copy(model);
    for (KDRMatchModel const* each : {static_cast<KDRMatchModel const*>(&model), &copy}) {
        check(each->GetLenth() == expected.size(), "a model tells the length of its record");
        check(each->ModelType() == static_cast<std::int32_t>(
                                       static_cast<std::uint32_t>(littleEndian(&expected[4], 4))),
              "a model has the type of its record");
        Bytes written(expected.size());
        check(each->GetData(written.data()) != 0, "a model writes its record");
        check(written == expected, "a model writes the record that it read");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    Bytes record(data, data + size);
    read(record);
    if (size < headBytes)
        return 0;
    // Once more as a record of just these bytes.
    std::copy_n("VMM1", 4, record.begin());
    for (std::size_t i = 0; i < 8; ++i)
        record[8 + i] = static_cast<std::uint8_t>((size - headBytes) >> (8 * i));
    read(record);
    return 0;
}
