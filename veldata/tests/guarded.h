#ifndef VELDATA_TESTS_GUARDED_H
#define VELDATA_TESTS_GUARDED_H

#include <cstddef>
#include <cstring>
#include <new>

#include <sys/mman.h>
#include <unistd.h>

/// A copy of values with nothing behind the last one: the program ends where that is read.
template <class T>
class Guarded
{
public:
    Guarded(T const* values, std::size_t count)
    {
        auto const page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
        std::size_t const size = count * sizeof(T);
        std::size_t const pages = (size + page - 1) / page * page;
        mapped = pages + page;
        void* const memory =
            ::mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED)
            throw std::bad_alloc();
        begin = static_cast<unsigned char*>(memory);
        ::mprotect(begin + pages, page, PROT_NONE);
        first = begin + (pages - size);
        std::memcpy(first, values, size);
    }

    Guarded(Guarded const&) = delete;
    Guarded& operator=(Guarded const&) = delete;

    ~Guarded() { ::munmap(begin, mapped); }

    T const* data() const noexcept { return reinterpret_cast<T const*>(first); }

private:
    std::size_t mapped;
    unsigned char* begin;
    unsigned char* first;
};

#endif
