#include "files.h"

#include "failure.h"

#include <QtCore/qdir.h>
#include <QtCore/qfileinfo.h>

namespace page {

namespace {

// Where a name leads: to the file, or else to the place where it would be written.
QString placeOf(QString const& path)
{
    QFileInfo const file(path);
    return file.exists() ? file.canonicalFilePath()
                         : file.dir().canonicalPath() + '/' + file.fileName();
}

} // namespace

void mustDiffer(std::string const& what, QString const& path, std::string const& other,
                QString const& otherPath)
{
    if (placeOf(path) == placeOf(otherPath))
        throw Failure("the " + what + " would overwrite the " + other + " '" +
                      otherPath.toStdString() + "'");
}

PageFile::PageFile(QString const& path) : file(path)
{
    if (path.isEmpty() || !file.open(QIODevice::WriteOnly))
        throw Failure("cannot write '" + path.toStdString() +
                      "': no such directory, no permission, or a directory itself");
}

void PageFile::write(std::string const& page)
{
    auto const size = static_cast<qint64>(page.size());
    if (file.write(page.data(), size) != size || !file.commit())
        throw Failure("cannot write '" + file.fileName().toStdString() +
                      "': " + file.errorString().toStdString());
}

} // namespace page
