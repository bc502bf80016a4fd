#ifndef KDRDATA_TESTS_BLOCKING_H
#define KDRDATA_TESTS_BLOCKING_H

#include <atomic>
#include <chrono>
#include <thread>

/// Whether @p operation, run in another thread, waits until @p release has run in this one. One
/// that does not wait has 50 ms to show it.
template <class Operation, class Release>
bool waitsFor(Operation const& operation, Release const& release)
{
    std::atomic<bool> started{false};
    std::atomic<bool> done{false};
    std::thread other([&] {
        started = true;
        operation();
        done = true;
    });
    while (!started)
        std::this_thread::yield();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    bool const waited = !done;
    release();
    other.join();
    return waited && done;
}

#endif
