#ifndef VELDATA_VELFILE_P_H
#define VELDATA_VELFILE_P_H

#include <vector>

/// Whole files by name. A name is any zero-terminated byte string. May throw std::bad_alloc.
namespace velfile {

using Bytes = std::vector<unsigned char>;

/// The contents of the regular file @p path into @p bytes; false where it is none, cannot be read
/// or is larger than INT_MAX bytes. Never waits for a pipe or a device.
bool readWhole(char const* path, Bytes& bytes);

/// Makes @p bytes the contents of the file @p path, completely or not at all: they are written to a
/// new file in the same directory, which then takes the place of @p path. A file that is there
/// keeps its permissions, and a symbolic link its target; anything but a writable regular file is
/// refused.
bool replaceWhole(char const* path, Bytes const& bytes);

} // namespace velfile

#endif
