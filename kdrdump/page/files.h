#ifndef KDRDUMP_PAGE_FILES_H
#define KDRDUMP_PAGE_FILES_H

#include <QtCore/qsavefile.h>
#include <QtCore/qstring.h>
#include <string>

// The files that a program writes beside those that it reads.

namespace page {

/// Throws Failure where @p path leads to the same file as @p otherPath: @p what would overwrite
/// the @p other.
void mustDiffer(std::string const& what, QString const& path, std::string const& other,
                QString const& otherPath);

/// The file of a page, or of other bytes. An older file of this name stays as it is until the new
/// one is whole.
class PageFile
{
public:
    /// Throws Failure where nothing can be written.
    explicit PageFile(QString const& path);

    /// Writes the bytes, once. Throws Failure where that fails.
    void write(std::string const& page);

private:
    QSaveFile file;
};

} // namespace page

#endif
