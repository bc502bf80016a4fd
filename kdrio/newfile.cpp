#include <kdrio/newfile_p.h>

#include <kdrio/guard_p.h>

#include <QtCore/qfileinfo.h>
#include <QtCore/qrandom.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace kdrio {

// A link stays a link: what it leads to is replaced.
NewFile::NewFile(QString const& path) : m_path(path)
{
    QFileInfo const place(path);
    if (place.exists())
        m_path = place.canonicalFilePath();
    if (path.isEmpty() || place.isDir())
        fail("no name of a file");
    constexpr int tries = 100;
    for (int i = 0; i < tries; ++i) {
        m_file.setFileName(
            QStringLiteral("%1.%2.new")
                .arg(m_path)
                .arg(QRandomGenerator::global()->generate(), 8, 36, QLatin1Char('0')));
        if (m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            if (place.exists())
                m_file.setPermissions(place.permissions());
            return;
        }
        if (!m_file.exists())
            break;
    }
    fail(m_file.errorString());
}

NewFile::~NewFile()
{
    if (m_file.isOpen())
        m_file.remove();
}

void NewFile::take()
{
    if (!m_file.flush() || m_file.error() != QFileDevice::NoError)
        fail(m_file.errorString());
    if (std::rename(QFile::encodeName(m_file.fileName()).constData(),
                    QFile::encodeName(m_path).constData()) != 0)
        fail(QString::fromLocal8Bit(std::strerror(errno)));
    m_file.close();
}

} // namespace kdrio
