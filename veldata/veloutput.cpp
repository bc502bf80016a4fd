#include <veldata/veloutput_p.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <veldata/vellimits_p.h>

namespace {

/// The directory part of @p path with its last slash; empty for the working directory.
std::string directoryOf(std::string const& path) { return path.substr(0, path.rfind('/') + 1); }

/// Follows the symbolic links that @p path ends in, to where nothing need be; false for a chain
/// that the system would not follow either.
bool followLinks(std::string& path)
{
    constexpr int longestChain = 40;
    std::array<char, PATH_MAX> link;
    for (int i = 0; i < longestChain; ++i) {
        ssize_t const length = ::readlink(path.c_str(), link.data(), link.size());
        if (length < 0)
            return errno == EINVAL || errno == ENOENT;
        auto const size = static_cast<std::size_t>(length);
        if (size == link.size())
            return false;
        path.replace(link[0] == '/' ? 0 : directoryOf(path).size(), std::string::npos, link.data(),
                     size);
    }
    return false;
}

/// The size that files of this process may have. Whoever writes on is killed by a signal.
std::uint64_t sizeLimit()
{
    rlimit limit = {};
    return ::getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY
               ? std::uint64_t{limit.rlim_cur}
               : std::uint64_t{INT64_MAX};
}

} // namespace

VelOutput::~VelOutput() { discard(); }

bool VelOutput::open(char const* path) noexcept
{
    window = velAllocate(vellimits::windowBytes);
    mostBytes = sizeLimit();
    try {
        return window && create(path);
    } catch (...) {
        return false;
    }
}

bool VelOutput::create(char const* path)
{
    target = path;
    struct stat status;
    if (!followLinks(target))
        return false;
    replaces = ::lstat(target.c_str(), &status) == 0;
    if (!replaces)
        return createBeside(0666);
    if (!S_ISREG(status.st_mode) || ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        return false;
    owner = status.st_uid;
    group = status.st_gid;
    mode = status.st_mode & 07777;
    // Nobody else is to look into it before it has the mode of the old one.
    return createBeside(0600);
}

bool VelOutput::createBeside(mode_t freshMode)
{
    constexpr int attempts = 1000;
    // The process and this object tell apart who else writes here.
    std::string const prefix = directoryOf(target) + ".vel-" + std::to_string(::getpid()) + "-" +
                               std::to_string(reinterpret_cast<std::uintptr_t>(this)) + "-";
    for (int i = 0; i < attempts; ++i) {
        std::string name = prefix + std::to_string(i);
        fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, freshMode);
        if (fd >= 0) {
            fresh.swap(name);
            return true;
        }
        if (errno != EEXIST)
            return false;
    }
    return false;
}

std::uint64_t VelOutput::size() const noexcept { return std::max(written, offset()); }

bool VelOutput::writeThrough(unsigned char const* data, std::size_t count) noexcept
{
    if (count > mostBytes || windowOffset > mostBytes - count)
        return false;
    while (count > 0) {
        ssize_t const done = ::pwrite(fd, data, count, static_cast<off_t>(windowOffset));
        if (done > 0) {
            data += done;
            count -= static_cast<std::size_t>(done);
            windowOffset += static_cast<std::uint64_t>(done);
        } else if (done == 0 || errno != EINTR) {
            return false;
        }
    }
    written = std::max(written, windowOffset);
    return true;
}

bool VelOutput::flush() noexcept
{
    std::size_t const count = windowUsed;
    windowUsed = 0;
    return writeThrough(window.get(), count);
}

bool VelOutput::write(void const* data, std::size_t count) noexcept
{
    if (count > vellimits::windowBytes - windowUsed) {
        if (!flush())
            return false;
        if (count >= vellimits::windowBytes)
            return writeThrough(static_cast<unsigned char const*>(data), count);
    }
    std::memcpy(window.get() + windowUsed, data, count);
    windowUsed += count;
    return true;
}

bool VelOutput::seek(std::uint64_t newOffset) noexcept
{
    if (newOffset == offset())
        return true;
    if (!flush())
        return false;
    windowOffset = newOffset;
    return true;
}

/// A file that now belongs to another user must not run in that user's name.
bool VelOutput::keepAccess() noexcept
{
    constexpr mode_t permissions = 0777;
    constexpr auto ownOwner = static_cast<uid_t>(-1);
    if (::fchown(fd, owner, group) != 0) {
        mode &= permissions;
        if (::fchown(fd, ownOwner, group) != 0 && errno != EPERM)
            return false;
    }
    return ::fchmod(fd, mode) == 0;
}

bool VelOutput::commit() noexcept
{
    bool done = flush() && (!replaces || keepAccess()) && ::fsync(fd) == 0;
    done = ::close(fd) == 0 && done;
    fd = -1;
    done = done && std::rename(fresh.c_str(), target.c_str()) == 0;
    if (done)
        fresh.clear();
    discard();
    return done;
}

void VelOutput::discard() noexcept
{
    if (fd >= 0)
        ::close(fd);
    fd = -1;
    if (!fresh.empty())
        ::unlink(fresh.c_str());
    fresh.clear();
}
