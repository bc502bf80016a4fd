#ifndef KDRDATA_TESTS_MALLOCFAILURES_H
#define KDRDATA_TESTS_MALLOCFAILURES_H

/// Makes malloc and realloc fail on demand, which is where Qt takes the memory of texts, bytes and
/// lists. Linked into a test executable, mallocfailures.cpp stands before the C library's
/// functions, for the calls of all libraries in the process; operator new ends there too.
namespace mallocfailures {

/// While it lives, lets @p successes allocations of this thread pass and makes the next one fail,
/// that one alone: what is thrown then needs memory too.
class FailAfter
{
public:
    explicit FailAfter(long successes);
    ~FailAfter();
    FailAfter(FailAfter const&) = delete;
    FailAfter& operator=(FailAfter const&) = delete;

    /// Whether the failure has come.
    bool failed() const;
};

} // namespace mallocfailures

#endif
