#ifndef VELDATA_TESTS_CHILD_H
#define VELDATA_TESTS_CHILD_H

#include <cstddef>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

/// Runs @p operation in a child process, where it may change what belongs to the whole process:
/// limits, the user, signals, mounts. Answers what it answers, -1 where the child died of it.
template <class Operation>
int inChild(Operation const& operation)
{
    pid_t const child = ::fork();
    if (child == 0)
        ::_exit(operation());
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status))
        return -1;
    return WEXITSTATUS(status);
}

/// What an operation answered and took.
struct Cost
{
    int answer;               ///< -1 where the process died of it
    std::size_t addressSpace; ///< bytes of it at the highest, beyond those at the beginning
    std::size_t resident;     ///< bytes of memory at the highest, likewise
    std::size_t bytesRead;    ///< by system calls
    double cpuSeconds;
};

/// The number behind @p name in a file of /proc; 0 where there is none. Allocates nothing.
inline std::size_t numberIn(char const* file, char const* name)
{
    char text[4096];
    int const fd = ::open(file, O_RDONLY | O_CLOEXEC);
    ssize_t const size = fd < 0 ? 0 : ::read(fd, text, sizeof text - 1);
    ::close(fd);
    text[size > 0 ? size : 0] = '\0';
    char const* const found = std::strstr(text, name);
    return found ? std::strtoul(found + std::strlen(name), nullptr, 10) : 0;
}

inline double cpuSeconds()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) * 1e-6;
}

/// Measures @p operation in a child process. The address space is the stricter measure: it holds
/// what is allocated and never written, and does not depend on what else the machine does.
template <class Operation>
Cost costOf(Operation const& operation)
{
    Cost cost = {-1, 0, 0, 0, 0};
    int ends[2];
    if (::pipe(ends) != 0)
        return cost;
    int const status = inChild([&] {
        // Whatever is large shall be mapped anew and not lie in memory that was used before.
        ::mallopt(M_MMAP_THRESHOLD, 128 * 1024);
        ::malloc_trim(0);
        std::size_t const space = numberIn("/proc/self/status", "VmSize:");
        std::size_t const resident = numberIn("/proc/self/status", "VmRSS:");
        std::size_t const read = numberIn("/proc/self/io", "rchar:");
        double const seconds = cpuSeconds();
        cost.answer = operation();
        cost.cpuSeconds = cpuSeconds() - seconds;
        cost.bytesRead = numberIn("/proc/self/io", "rchar:") - read;
        cost.resident = (numberIn("/proc/self/status", "VmHWM:") - resident) * 1024;
        cost.addressSpace = (numberIn("/proc/self/status", "VmPeak:") - space) * 1024;
        return ::write(ends[1], &cost, sizeof cost) == sizeof cost ? 0 : 1;
    });
    if (status != 0 || ::read(ends[0], &cost, sizeof cost) != sizeof cost)
        cost = {-1, 0, 0, 0, 0};
    ::close(ends[0]);
    ::close(ends[1]);
    return cost;
}

#endif
