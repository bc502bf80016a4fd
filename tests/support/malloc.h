#ifndef KDRDATA_TESTS_MALLOC_H
#define KDRDATA_TESTS_MALLOC_H

/// Counts the blocks that this process holds, and makes one request for memory fail on demand.
/// Linked into a test executable, malloc.cpp replaces the C library's allocation functions for
/// everything in the process: the library, Qt, the picture libraries and operator new.
namespace memory {

/// How many blocks are held, over all threads.
long live();
/// How many requests this thread has made that were answered.
long made();

/// While it lives, one request of this thread fails: the one that follows @p successes others.
class FailOnce
{
public:
    explicit FailOnce(long successes);
    ~FailOnce();
    FailOnce(FailOnce const&) = delete;
    FailOnce& operator=(FailOnce const&) = delete;

    /// Ends the watch and answers whether the request was made and failed.
    bool end();
};

} // namespace memory

#endif
