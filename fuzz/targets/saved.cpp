// Saved values: any bytes are refused, with a reason and with nothing changed, or are a value that
// can be written and read again and comes back the same.

#include <kdrdata/kdrdata.h>
#include <kdrio/kdrio.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "../support/check.h"

namespace {

bool same(KDRBuffer const& a, KDRBuffer const& b)
{
    return a.size() == b.size() &&
           std::memcmp(a.constData(), b.constData(), static_cast<std::size_t>(a.size())) == 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size > 1U << 20)
        return 0;
    kdrio::Limits limits;
    limits.elements = 1 << 16;
    limits.pixels = 1 << 20;
    KDRBuffer const input = KDRBuffer::fromRawData(
        size == 0 ? "" : reinterpret_cast<char const*>(data), static_cast<int>(size));
    KDRVariant value("untouched");
    kdrio::Error error;
    if (!kdrio::fromBytes(input, &value, &error, limits)) {
        KDRString untouched;
        check(value.toString(&untouched) && untouched == KDRString("untouched"),
              "what is refused leaves the output alone");
        check(!error.what.isEmpty() && !error.line().isEmpty(), "a refusal has a reason");
        check(error.offset <= static_cast<long long>(size), "a refusal is inside of the input");
        return 0;
    }

    KDRBuffer first;
    check(kdrio::toBytes(value, &first), "what was read can be written");
    KDRVariant again;
    KDRBuffer second;
    check(kdrio::fromBytes(first, &again) && kdrio::toBytes(again, &second),
          "what was written can be read");
    check(same(first, second), "a value is written the same again");
    kdrio::SaveOptions options;
    options.pixels = kdrio::Pixels::Smaller;
    check(kdrio::toBytes(value, &second, options) && kdrio::fromBytes(second, &again) &&
              kdrio::toBytes(again, &second) && same(first, second),
          "pictures keep the pixels");
    check(!kdrio::toJson(value).isEmpty(), "a value has a text");
    return 0;
}
