// The one deadlock that there can be: variants assigned to each other crosswise. It is the callers'
// to avoid. A child process runs into it, and is killed.

#include <kdrdata/variant/kdrvariant.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <new>
#include <thread>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "../support/variantaccess.h"

namespace {

using namespace std::chrono_literals;

constexpr int rounds = 30;

/// A number that a child process counts and its parent reads.
class SharedCount
{
public:
    SharedCount()
        : m_memory(::mmap(nullptr, sizeof(Count), PROT_READ | PROT_WRITE,
                          MAP_SHARED | MAP_ANONYMOUS, -1, 0)),
          m_count(new (m_memory) Count(0))
    {
    }
    SharedCount(SharedCount const&) = delete;
    SharedCount& operator=(SharedCount const&) = delete;
    ~SharedCount() { ::munmap(m_memory, sizeof(Count)); }

    void increment() { ++*m_count; }
    int value() const { return *m_count; }

private:
    using Count = std::atomic<int>;
    void* m_memory;
    Count* m_count;
};

/// Two threads each of which does one thing, behind the locks of two variants that are held until
/// both are there.
template <class First, class Second>
void meet(KDRVariant const& a, KDRVariant const& b, First const& first, Second const& second)
{
    VariantAccess::lock(a).lock();
    VariantAccess::lock(b).lock();
    std::thread one(first);
    std::thread other(second);
    std::this_thread::sleep_for(20ms);
    VariantAccess::lock(b).unlock();
    std::this_thread::sleep_for(20ms);
    VariantAccess::lock(a).unlock();
    one.join();
    other.join();
}

/// Runs @p round in a child process, again and again. Answers whether the
/// child was done with all of them; one that has not moved for ten seconds is killed.
template <class Round>
bool isDone(Round const& round)
{
    SharedCount done;
    pid_t const child = ::fork();
    if (child == 0) {
        for (int i = 0; i < rounds; ++i) {
            round();
            done.increment();
        }
        ::_exit(0);
    }
    int last = 0;
    auto since = std::chrono::steady_clock::now();
    for (;;) {
        int status = -1;
        if (::waitpid(child, &status, WNOHANG) == child)
            return WIFEXITED(status) && WEXITSTATUS(status) == 0;
        auto const now = std::chrono::steady_clock::now();
        if (done.value() != last) {
            last = done.value();
            since = now;
        } else if (now - since > 10s) {
            ::kill(child, SIGKILL);
            ::waitpid(child, &status, 0);
            return false;
        }
        std::this_thread::sleep_for(10ms);
    }
}

TEST(Ring, AssignmentsInARingDeadlock)
{
    EXPECT_FALSE(isDone([] {
        KDRVariant a(1);
        KDRVariant b(2);
        meet(
            a, b, [&] { a = b; }, [&] { b = a; });
    }));
}

TEST(Ring, AssignmentsInOneDirectionDoNot)
{
    EXPECT_TRUE(isDone([] {
        KDRVariant a(1);
        KDRVariant const b(2);
        KDRVariant c(3);
        meet(
            a, b, [&] { a = b; }, [&] { c = a; });
    }));
}

TEST(Ring, CopiesOfBothDuringAnAssignmentDoNot)
{
    EXPECT_TRUE(isDone([] {
        KDRVariant a(1);
        KDRVariant const b(2);
        meet(
            a, b, [&] { a = b; },
            [&] {
                KDRVariant const ofTarget(a);
                KDRVariant const ofSource(b);
            });
    }));
}

} // namespace
