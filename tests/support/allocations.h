#ifndef KDRDATA_TESTS_ALLOCATIONS_H
#define KDRDATA_TESTS_ALLOCATIONS_H

/// Counts what operator new gives out in this process, and makes it fail on demand. Linked into a
/// test executable, allocations.cpp replaces the global operators, the library's calls included.
namespace allocations {

/// How many calls of operator new have succeeded so far in this thread.
long made();
/// How many of the objects made are alive, over all threads.
long live();

/// While it lives, lets @p successes calls of operator new in this thread pass and makes the next
/// one throw std::bad_alloc.
class FailAfter
{
public:
    explicit FailAfter(long successes);
    ~FailAfter();
    FailAfter(FailAfter const&) = delete;
    FailAfter& operator=(FailAfter const&) = delete;
};

} // namespace allocations

#endif
