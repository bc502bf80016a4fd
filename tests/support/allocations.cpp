#include "allocations.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

constexpr long neverFail = -1;

thread_local long successesLeft = neverFail;
thread_local long madeCount = 0;
std::atomic<long> liveCount{0};

void* allocate(std::size_t size)
{
    if (successesLeft == 0) {
        successesLeft = neverFail;
        throw std::bad_alloc();
    }
    if (successesLeft > 0)
        --successesLeft;
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (!memory)
        throw std::bad_alloc();
    ++madeCount;
    ++liveCount;
    return memory;
}

void* tryAllocate(std::size_t size) noexcept
{
    try {
        return allocate(size);
    } catch (std::bad_alloc const&) {
        return nullptr;
    }
}

void release(void* memory) noexcept
{
    if (memory)
        --liveCount;
    std::free(memory);
}

} // namespace

namespace allocations {

long made() { return madeCount; }
long live() { return liveCount; }

FailAfter::FailAfter(long successes) { successesLeft = successes; }
FailAfter::~FailAfter() { successesLeft = neverFail; }

} // namespace allocations

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, std::nothrow_t const&) noexcept { return tryAllocate(size); }
void* operator new[](std::size_t size, std::nothrow_t const&) noexcept { return tryAllocate(size); }
void operator delete(void* memory) noexcept { release(memory); }
void operator delete[](void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { release(memory); }
