#include "malloc.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <new>

// The C library's own functions under the names that it keeps for this, and the sanitizer's, which
// takes the C library's place. This file itself is compiled without: it runs before the sanitizer.
#if defined(KDR_UNDER_ADDRESS_SANITIZER)
#define KDR_BELOW(function) __interceptor_##function
#else
#define KDR_BELOW(function) __libc_##function
#endif

extern "C" {
void* KDR_BELOW(malloc)(std::size_t size);
void* KDR_BELOW(calloc)(std::size_t count, std::size_t size);
void* KDR_BELOW(realloc)(void* block, std::size_t size);
void* KDR_BELOW(memalign)(std::size_t alignment, std::size_t size);
void KDR_BELOW(free)(void* block);
}

namespace {

constexpr long notWatching = -1;

std::atomic<long> liveCount{0};
thread_local long madeCount = 0;
thread_local long successesLeft = notWatching;
thread_local bool struck = false;

bool fails()
{
    if (successesLeft == notWatching)
        return false;
    if (successesLeft-- > 0)
        return false;
    struck = true;
    errno = ENOMEM;
    return true;
}

void* counted(void* block)
{
    if (block) {
        ++liveCount;
        ++madeCount;
    }
    return block;
}

} // namespace

namespace memory {

long live() { return liveCount; }
long made() { return madeCount; }

FailOnce::FailOnce(long successes)
{
    struck = false;
    successesLeft = successes;
}

FailOnce::~FailOnce() { successesLeft = notWatching; }

bool FailOnce::end()
{
    successesLeft = notWatching;
    return struck;
}

} // namespace memory

extern "C" {

void* malloc(std::size_t size) noexcept
{
    return fails() ? nullptr : counted(KDR_BELOW(malloc)(size));
}

void* calloc(std::size_t count, std::size_t size) noexcept
{
    return fails() ? nullptr : counted(KDR_BELOW(calloc)(count, size));
}

void* realloc(void* block, std::size_t size) noexcept
{
    if (!block)
        return malloc(size);
    if (fails())
        return nullptr;
    void* const moved = KDR_BELOW(realloc)(block, size);
    if (!moved && size == 0)
        --liveCount;
    return moved;
}

void* memalign(std::size_t alignment, std::size_t size) noexcept
{
    return fails() ? nullptr : counted(KDR_BELOW(memalign)(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
    return memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept
{
    void* const made = memalign(alignment, size);
    if (!made)
        return ENOMEM;
    *block = made;
    return 0;
}

void free(void* block) noexcept
{
    if (block)
        --liveCount;
    KDR_BELOW(free)(block);
}
}

#if defined(KDR_UNDER_ADDRESS_SANITIZER)
// The sanitizer's own do not come by malloc.
void* operator new(std::size_t size)
{
    void* const block = malloc(size > 0 ? size : 1);
    if (!block)
        throw std::bad_alloc();
    return block;
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, std::nothrow_t const&) noexcept
{
    return malloc(size > 0 ? size : 1);
}
void* operator new[](std::size_t size, std::nothrow_t const& tag) noexcept
{
    return operator new(size, tag);
}
void operator delete(void* block) noexcept { free(block); }
void operator delete[](void* block) noexcept { free(block); }
void operator delete(void* block, std::size_t) noexcept { free(block); }
void operator delete[](void* block, std::size_t) noexcept { free(block); }
#endif
