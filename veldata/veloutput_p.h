#ifndef VELDATA_VELOUTPUT_P_H
#define VELDATA_VELOUTPUT_P_H

#include <cstddef>
#include <cstdint>
#include <string>

#include <sys/types.h>

#include <veldata/velmemory_p.h>

/// A file that is written completely or not at all: the one way out for the bytes of pictures.
///
/// The bytes go to a new file in the directory of the one that is meant, which takes its place in
/// commit(). Without that, nothing is left behind. Nothing here throws.
class VelOutput
{
public:
    VelOutput() noexcept = default;
    ~VelOutput();

    VelOutput(VelOutput const&) = delete;
    VelOutput& operator=(VelOutput const&) = delete;

    /// Begins to write the file @p path, any zero-terminated byte string. A symbolic link stands
    /// for what it points to, there or not. What is there must be a regular file that may be
    /// written.
    bool open(char const* path) noexcept;

    /// Writes the next @p count bytes.
    bool write(void const* data, std::size_t count) noexcept;

    /// Goes on writing at @p offset.
    bool seek(std::uint64_t offset) noexcept;

    /// Bytes from the beginning of the file to where the next ones are written.
    std::uint64_t offset() const noexcept { return windowOffset + windowUsed; }

    /// Bytes of the file so far.
    std::uint64_t size() const noexcept;

    /// Puts the file in its place, with the owner, the group and the mode of the one that was
    /// there, as far as the process may.
    bool commit() noexcept;

private:
    bool create(char const* path);
    bool createBeside(mode_t mode);
    bool flush() noexcept;
    bool writeThrough(unsigned char const* data, std::size_t count) noexcept;
    bool keepAccess() noexcept;
    void discard() noexcept;

    int fd = -1;
    std::string target;
    std::string fresh; ///< empty where there is nothing to remove
    bool replaces = false;
    uid_t owner = 0;
    gid_t group = 0;
    mode_t mode = 0;
    VelBlock window = VelBlock(nullptr, &std::free);
    std::size_t windowUsed = 0;
    std::uint64_t windowOffset = 0;
    std::uint64_t written = 0;
    std::uint64_t mostBytes = 0;
};

#endif
