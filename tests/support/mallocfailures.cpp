#include "mallocfailures.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>

#include <dlfcn.h>

namespace {

constexpr long never = -1;

thread_local long successesLeft = never;
thread_local bool hasFailed = false;

bool failsNow() noexcept
{
    if (successesLeft == never)
        return false;
    if (successesLeft > 0) {
        --successesLeft;
        return false;
    }
    successesLeft = never;
    hasFailed = true;
    errno = ENOMEM;
    return true;
}

// The function that would be called without this file: the C library's, or the one that a sanitizer
// puts before it.
template <class Function>
Function next(char const* name) noexcept
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

namespace mallocfailures {

FailAfter::FailAfter(long successes)
{
    hasFailed = false;
    successesLeft = successes;
}

FailAfter::~FailAfter() { successesLeft = never; }

bool FailAfter::failed() const { return hasFailed; }

} // namespace mallocfailures

extern "C" void* malloc(std::size_t size)
{
    using Malloc = void* (*)(std::size_t);
    static Malloc const allocate = next<Malloc>("malloc");
    return failsNow() ? nullptr : allocate(size);
}

extern "C" void* realloc(void* memory, std::size_t size)
{
    using Realloc = void* (*)(void*, std::size_t);
    static Realloc const reallocate = next<Realloc>("realloc");
    return failsNow() ? nullptr : reallocate(memory, size);
}
