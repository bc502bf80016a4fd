#ifndef KDRDATA_TESTS_MUTEXWATCH_H
#define KDRDATA_TESTS_MUTEXWATCH_H

#include <functional>

class QMutex;

/// Watches the mutexes of Qt that this thread locks and unlocks, the library's calls included.
/// Linked into a test executable, mutexwatch.cpp stands before QMutex::lock() and QMutex::unlock().
class MutexWatch
{
public:
    struct Step
    {
        bool locks;
        QMutex const* mutex;
    };
    using Listener = std::function<void(Step const&)>;

    /// While it lives, calls @p listener before each step: a mutex about to be locked is not held
    /// yet, and one about to be unlocked is still held. Steps of the listener are not watched. One
    /// watch a thread at a time.
    explicit MutexWatch(Listener listener);
    ~MutexWatch();
    MutexWatch(MutexWatch const&) = delete;
    MutexWatch& operator=(MutexWatch const&) = delete;

private:
    Listener m_listener;
};

#endif
