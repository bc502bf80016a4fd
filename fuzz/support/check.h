#ifndef KDRDATA_FUZZ_CHECK_H
#define KDRDATA_FUZZ_CHECK_H

#include <cstdio>
#include <cstdlib>

/// Ends the process, with the rule that does not hold named on the console, unless @p holds. The
/// fuzzer then keeps the input; a replay names it.
inline void check(bool holds, char const* rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", rule);
    std::abort();
}

#endif
