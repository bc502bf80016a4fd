// What the heap blocks of values cost from several allocators, without anything else that the
// values do: the C library's, a well-kept one, and lists of one's own in their simplest form. The
// last is a bound and no proposal: it knows one thread, and gives nothing back.

#include "rows.h"

#include <dlfcn.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <utility>
#include <vector>

namespace {

using ratio::Checksum;
using ratio::escape;
using ratio::Side;

struct Malloc
{
    template <std::size_t Size>
    static void* take()
    {
        return std::malloc(Size);
    }
    template <std::size_t Size>
    static void give(void* block)
    {
        std::free(block);
    }
};

// Loaded and not linked: linked, it would take malloc's place in all other rows too.
struct Mimalloc
{
    template <std::size_t Size>
    static void* take()
    {
        return allocate(Size);
    }
    template <std::size_t Size>
    static void give(void* block)
    {
        release(block);
    }

    // Whether it is installed.
    static bool load()
    {
        void* const library = dlopen("libmimalloc.so.2", RTLD_NOW | RTLD_LOCAL);
        if (!library)
            return false;
        allocate = reinterpret_cast<void* (*)(std::size_t)>(dlsym(library, "mi_malloc"));
        release = reinterpret_cast<void (*)(void*)>(dlsym(library, "mi_free"));
        return allocate && release;
    }

private:
    static inline void* (*allocate)(std::size_t) = nullptr;
    static inline void (*release)(void*) = nullptr;
};

// A list of free blocks for each size, refilled by cutting up 64 KiB, for each thread.
struct Lists
{
    struct Block
    {
        Block* next;
    };

    template <std::size_t Size>
    static Block*& head()
    {
        static thread_local Block* first = nullptr;
        return first;
    }

    template <std::size_t Size>
    static void* take()
    {
        Block*& first = head<Size>();
        if (!first) {
            constexpr std::size_t slab = 64 << 10;
            auto* const memory = static_cast<unsigned char*>(std::malloc(slab));
            for (std::size_t at = 0; at + Size <= slab; at += Size)
                first = new (memory + at) Block{first};
        }
        return std::exchange(first, first->next);
    }

    template <std::size_t Size>
    static void give(void* block)
    {
        Block*& first = head<Size>();
        first = new (block) Block{first};
    }
};

// The lock, the store, the payload and the record of a variant of a number.
template <class Memory>
Side variants()
{
    return [](std::size_t times) {
        Checksum made = 0;
        for (std::size_t i = 0; i < times; ++i) {
            std::array<void*, 4> blocks{Memory::template take<16>(), Memory::template take<32>(),
                                        Memory::template take<8>(), Memory::template take<48>()};
            escape(blocks);
            made += blocks[3] != nullptr ? 1 : 0;
            Memory::template give<48>(blocks[3]);
            Memory::template give<8>(blocks[2]);
            Memory::template give<32>(blocks[1]);
            Memory::template give<16>(blocks[0]);
        }
        return made;
    };
}

// The records of a list of numbers, with the temporary number that each is copied from.
template <class Memory>
Side lists()
{
    return [](std::size_t times) {
        constexpr std::size_t length = 10000;
        Checksum made = 0;
        for (std::size_t i = 0; i < times; ++i) {
            std::vector<void*> slots;
            for (std::size_t at = 0; at < length; ++at) {
                void* const temporary = Memory::template take<48>();
                slots.push_back(Memory::template take<48>());
                escape(slots.back());
                Memory::template give<48>(temporary);
            }
            for (void* const slot : slots)
                Memory::template give<48>(slot);
            made += slots.size();
        }
        return made;
    };
}

template <class Memory>
void measure(ratio::Table& table, std::string const& name)
{
    table.row("allocation", "blocks of an int variant, " + name)
        .ours(variants<Memory>())
        .peer("malloc", variants<Malloc>())
        .run();
    table.row("allocation", "blocks of 10^4 appended numbers, " + name)
        .ours(lists<Memory>())
        .peer("malloc", lists<Malloc>())
        .units(10000, "number")
        .run();
}

} // namespace

void rows::ofAllocation(ratio::Table& table)
{
    if (Mimalloc::load())
        measure<Mimalloc>(table, "mimalloc");
    measure<Lists>(table, "lists of one's own");
}
