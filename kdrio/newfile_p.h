#ifndef KDRIO_NEWFILE_P_H
#define KDRIO_NEWFILE_P_H

#include <QtCore/qfile.h>
#include <QtCore/qstring.h>

namespace kdrio {

/// A file that appears under its name complete or not at all: written beside the place where it
/// shall be, and renamed. Unlike QSaveFile it does not wait for the disk.
class NewFile
{
public:
    /// Opens the file. Throws Failure where that cannot be.
    explicit NewFile(QString const& path);
    /// Removes the file unless it was given its name.
    ~NewFile();
    NewFile(NewFile const&) = delete;
    NewFile& operator=(NewFile const&) = delete;

    QIODevice& device() { return m_file; }

    /// Gives the file its name. Throws Failure where not everything could be written.
    void take();

private:
    QString m_path;
    QFile m_file;
};

} // namespace kdrio

#endif
