#include <veldata/velfile_p.h>

#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// An open file, closed on destruction.
class Descriptor
{
public:
    explicit Descriptor(int number) : fd(number) {}
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;

    ~Descriptor()
    {
        if (fd >= 0)
            ::close(fd);
    }

    bool isOpen() const { return fd >= 0; }
    int number() const { return fd; }

    /// Closes the file now; false if what was written may not have arrived.
    bool close()
    {
        int const closing = fd;
        fd = -1;
        return ::close(closing) == 0;
    }

private:
    int fd;
};

bool writeAll(int fd, velfile::Bytes const& bytes)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        ssize_t const count = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (count > 0)
            done += static_cast<std::size_t>(count);
        else if (count == 0 || errno != EINTR)
            return false;
    }
    return true;
}

/// @p path with its symbolic links resolved where it exists, as it is otherwise.
std::string resolved(char const* path)
{
    std::unique_ptr<char, decltype(&std::free)> const real(::realpath(path, nullptr), &std::free);
    return real ? real.get() : path;
}

/// The directory part of @p path with its last slash; empty for the working directory.
std::string directoryOf(std::string const& path) { return path.substr(0, path.rfind('/') + 1); }

/// Creates a file of a name of its own in @p directory; answers its descriptor, or -1.
int createBeside(std::string const& directory, std::string& name)
{
    constexpr int attempts = 1000;
    // The process and the calling thread's own string tell apart who else writes here.
    std::string const prefix = directory + ".vel-" + std::to_string(::getpid()) + "-" +
                               std::to_string(reinterpret_cast<std::uintptr_t>(&name)) + "-";
    for (int i = 0; i < attempts; ++i) {
        name = prefix;
        name += std::to_string(i);
        int const fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST)
            return fd;
    }
    return -1;
}

} // namespace

bool velfile::readWhole(char const* path, Bytes& bytes)
{
    Descriptor const file(::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status;
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > INT_MAX)
        return false;

    bytes.resize(static_cast<std::size_t>(status.st_size));
    std::size_t done = 0;
    while (done < bytes.size()) {
        ssize_t const count = ::read(file.number(), bytes.data() + done, bytes.size() - done);
        if (count > 0)
            done += static_cast<std::size_t>(count);
        else if (count == 0)
            break;
        else if (errno != EINTR)
            return false;
    }
    bytes.resize(done);
    return true;
}

bool velfile::replaceWhole(char const* path, Bytes const& bytes)
{
    std::string const target = resolved(path);
    struct stat status;
    bool const exists = ::lstat(target.c_str(), &status) == 0;
    if (exists && (!S_ISREG(status.st_mode) || ::access(target.c_str(), W_OK) != 0))
        return false;

    std::string fresh;
    Descriptor file(createBeside(directoryOf(target), fresh));
    if (!file.isOpen())
        return false;
    bool done = writeAll(file.number(), bytes);
    if (done && exists)
        done = ::fchmod(file.number(), status.st_mode & 07777) == 0;
    done = file.close() && done && std::rename(fresh.c_str(), target.c_str()) == 0;
    if (!done)
        ::unlink(fresh.c_str());
    return done;
}
