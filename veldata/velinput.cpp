#include <veldata/velinput_p.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <veldata/vellimits_p.h>

namespace {

bool isReadable(struct stat const& status)
{
    return S_ISREG(status.st_mode) &&
           static_cast<std::uint64_t>(status.st_size) <= vellimits::fileBytes;
}

/// Opens @p path if it is a file that is read; answers its descriptor and size, or -1.
int openReadable(char const* path, std::uint64_t& size)
{
    struct stat status;
    if (::stat(path, &status) != 0 || !isReadable(status))
        return -1;
    // Should a pipe or a device have taken its place by now, opening it does not wait.
    int const fd = ::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (fd < 0)
        return -1;
    if (::fstat(fd, &status) != 0 || !isReadable(status)) {
        ::close(fd);
        return -1;
    }
    size = static_cast<std::uint64_t>(status.st_size);
    return fd;
}

} // namespace

VelInput::VelInput(char const* path) noexcept : fd(-1), bytes(0) { fd = openReadable(path, bytes); }

VelInput::~VelInput()
{
    if (fd >= 0)
        ::close(fd);
}

std::size_t VelInput::readAt(std::uint64_t offset, void* target, std::size_t count) const noexcept
{
    std::size_t done = 0;
    while (done < count) {
        ssize_t const got = ::pread(fd, static_cast<unsigned char*>(target) + done, count - done,
                                    static_cast<off_t>(offset + done));
        if (got > 0)
            done += static_cast<std::size_t>(got);
        else if (got == 0 || errno != EINTR)
            break;
    }
    return done;
}

bool VelInput::readRows(Rows const& rows, unsigned char* first, std::ptrdiff_t step) const noexcept
{
    if (rows.gap == 0 && step == static_cast<std::ptrdiff_t>(rows.rowBytes))
        return readAt(rows.offset, first, rows.rowBytes * rows.count) == rows.rowBytes * rows.count;

    constexpr std::size_t rowsAtOnce = 256;
    std::array<iovec, 2 * rowsAtOnce> places;
    std::array<unsigned char, 16> gap;
    std::size_t const fileStep = rows.rowBytes + rows.gap;
    std::uint64_t offset = rows.offset;
    unsigned char* row = first;
    for (std::size_t done = 0; done < rows.count;) {
        std::size_t const count = std::min(rowsAtOnce, rows.count - done);
        for (std::size_t i = 0; i < count; ++i) {
            places[2 * i] = {row + static_cast<std::ptrdiff_t>(i) * step, rows.rowBytes};
            places[2 * i + 1] = {gap.data(), rows.gap};
        }
        ssize_t const got =
            ::preadv(fd, places.data(), static_cast<int>(2 * count), static_cast<off_t>(offset));
        // A read that was cut short is made good row by row.
        bool const isWhole = got == static_cast<ssize_t>(count * fileStep);
        for (std::size_t i = 0; i < count; ++i, offset += fileStep, row += step) {
            if (!isWhole && (readAt(offset, row, rows.rowBytes) != rows.rowBytes ||
                             readAt(offset + rows.rowBytes, gap.data(), rows.gap) != rows.gap))
                return false;
        }
        done += count;
    }
    return true;
}

VelInputStream::VelInputStream(VelInput const& file) noexcept
    : input(file), window(velAllocate(vellimits::windowBytes))
{
}

bool VelInputStream::fill() noexcept
{
    if (!window)
        return false;
    std::size_t const count = input.readAt(behindWindow, window.get(), vellimits::windowBytes);
    behindWindow += count;
    at = window.get();
    end = at + count;
    return count > 0;
}

bool VelInputStream::read(void* target, std::size_t count) noexcept
{
    auto* to = static_cast<unsigned char*>(target);
    while (count > 0) {
        if (at == end && !fill())
            return false;
        std::size_t const part = std::min(count, static_cast<std::size_t>(end - at));
        std::memcpy(to, at, part);
        at += part;
        to += part;
        count -= part;
    }
    return true;
}

void VelInputStream::skip(std::uint64_t count) noexcept
{
    auto const inWindow = static_cast<std::uint64_t>(end - at);
    if (count <= inWindow) {
        at += count;
        return;
    }
    at = end;
    behindWindow += count - inWindow;
}

std::size_t VelInputStream::takeWindow(unsigned char const*& next) noexcept
{
    if (at == end && !fill())
        return 0;
    next = at;
    at = end;
    return static_cast<std::size_t>(end - next);
}
