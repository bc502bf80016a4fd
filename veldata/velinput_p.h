#ifndef VELDATA_VELINPUT_P_H
#define VELDATA_VELINPUT_P_H

#include <cstddef>
#include <cstdint>

#include <veldata/velmemory_p.h>

/// A regular file that is read: the one way in for the bytes of pictures. Nothing here throws, and
/// a file that has shrunk since it was opened just ends earlier.
class VelInput
{
public:
    /// Opens the file @p path, any zero-terminated byte string. What is no regular file, or a
    /// larger one than is read, is never opened: somebody may be waiting at the other end of a
    /// pipe, and opening a device may do something.
    explicit VelInput(char const* path) noexcept;

    ~VelInput();

    VelInput(VelInput const&) = delete;
    VelInput& operator=(VelInput const&) = delete;

    bool isOpen() const noexcept { return fd >= 0; }

    /// Bytes of the file when it was opened.
    std::uint64_t size() const noexcept { return bytes; }

    /// Reads the @p count bytes at @p offset; answers how many there were, fewer only where the
    /// file ends or cannot be read.
    std::size_t readAt(std::uint64_t offset, void* target, std::size_t count) const noexcept;

    /// Rows that follow each other in a file, each with @p gap bytes behind it.
    struct Rows
    {
        std::uint64_t offset;
        std::size_t rowBytes;
        std::size_t gap; ///< less than 16
        std::size_t count;
    };

    /// Reads @p rows to where @p first points and on by @p step bytes; false where the file ends
    /// before the last gap.
    bool readRows(Rows const& rows, unsigned char* first, std::ptrdiff_t step) const noexcept;

private:
    int fd;
    std::uint64_t bytes;
};

/// Reads a file from its beginning on, a window at a time.
class VelInputStream
{
public:
    explicit VelInputStream(VelInput const& file) noexcept;

    VelInputStream(VelInputStream const&) = delete;
    VelInputStream& operator=(VelInputStream const&) = delete;

    /// Reads the next @p count bytes; false where there are fewer.
    bool read(void* target, std::size_t count) noexcept;

    /// The next byte without stepping over it; -1 at the end.
    int peek() noexcept { return at != end || fill() ? *at : -1; }

    /// Steps over the byte that peek() answered.
    void step() noexcept { ++at; }

    /// Steps over @p count bytes; beyond the end there is nothing to read.
    void skip(std::uint64_t count) noexcept;

    /// Makes the window hold what comes next and steps over it: answers its bytes through @p next,
    /// and how many there are, 0 at the end.
    std::size_t takeWindow(unsigned char const*& next) noexcept;

    /// Bytes from the beginning of the file to what comes next.
    std::uint64_t offset() const noexcept
    {
        return behindWindow - static_cast<std::uint64_t>(end - at);
    }

private:
    bool fill() noexcept;

    VelInput const& input;
    VelBlock window;
    unsigned char const* at = nullptr;
    unsigned char const* end = nullptr;
    std::uint64_t behindWindow = 0;
};

#endif
