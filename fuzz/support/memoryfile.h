#ifndef KDRDATA_FUZZ_MEMORYFILE_H
#define KDRDATA_FUZZ_MEMORYFILE_H

#include <cstddef>
#include <cstdint>
#include <string>

#include <sys/mman.h>
#include <sys/types.h>
#include <unistd.h>

#include "check.h"

/// A regular file in memory whose contents can be replaced, with a name to open it by.
class MemoryFile
{
public:
    MemoryFile() : m_descriptor(::memfd_create("input", MFD_CLOEXEC))
    {
        check(m_descriptor >= 0, "there is a file in memory");
        m_path = "/proc/self/fd/" + std::to_string(m_descriptor);
    }

    MemoryFile(MemoryFile const&) = delete;
    MemoryFile& operator=(MemoryFile const&) = delete;

    ~MemoryFile() { ::close(m_descriptor); }

    std::string const& path() const { return m_path; }

    void write(std::uint8_t const* data, std::size_t size)
    {
        check(::ftruncate(m_descriptor, 0) == 0, "the file in memory is emptied");
        std::size_t done = 0;
        while (done < size) {
            ssize_t const count =
                ::pwrite(m_descriptor, data + done, size - done, static_cast<off_t>(done));
            check(count > 0, "the file in memory is written");
            done += static_cast<std::size_t>(count);
        }
    }

private:
    int m_descriptor;
    std::string m_path;
};

#endif
