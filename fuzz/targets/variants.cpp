// Variants of every kind, driven by a script against the tests' model of shared values.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "../../tests/variant/variantmodel.h"
#include "../support/script.h"

namespace {

/// A broken rule ends the process at once, so that the fuzzer keeps the script.
class EndOnFailure : public testing::EmptyTestEventListener
{
    void OnTestPartResult(testing::TestPartResult const& result) override
    {
        if (result.failed())
            std::abort();
    }
};

bool endsOnFailure()
{
    testing::UnitTest::GetInstance()->listeners().Append(new EndOnFailure);
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static bool const prepared = endsOnFailure();
    static_cast<void>(prepared);
    Script script(data, size);
    // A step takes about four choices.
    VariantModelOf<ScriptChoices>(0, ScriptChoices(script)).run(static_cast<int>(size / 4));
    return 0;
}
