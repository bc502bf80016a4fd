#ifndef KDRDATA_TESTS_INTHREADS_H
#define KDRDATA_TESTS_INTHREADS_H

#include <thread>
#include <vector>

constexpr int threadCount = 4;

/// Runs @p body in each of some threads at once, with the thread's number from 0 on, and waits for
/// all of them.
template <class Body>
void inThreads(Body const& body)
{
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int number = 0; number < threadCount; ++number)
        threads.emplace_back(body, number);
    for (std::thread& thread : threads)
        thread.join();
}

#endif
