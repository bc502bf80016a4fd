// A log of one's own in front of the kit's sink, which discards what it is told.
#include <QtCore/qglobal.h>
#include <QtCore/qstring.h>

#include <cstdio>
#include <mutex>
#include <vector>

#include <kdrdata/log/log.h>
#include <kdrdata/text/text.h>

namespace {

// Keeps what it is told, and passes it on. Not derived from LogOutput: outPutMsg() is not virtual,
// and to destroy any LogOutput ends the kit's own.
struct Log
{
    void tell(QString const& message)
    {
        std::lock_guard<std::mutex> const lock(mutex);
        messages.push_back(message);
        if (LogOutput* const kit = LogOutput::getInstance())
            kit->outPutMsg(message);
    }

    void print()
    {
        std::lock_guard<std::mutex> const lock(mutex);
        for (QString const& message : messages)
            std::printf("%s\n", message.toUtf8().constData());
    }

    std::mutex mutex;
    std::vector<QString> messages;
};

Log* theLog = nullptr;

// The library itself logs nothing, but Qt below it warns here and there.
void fromQt(QtMsgType, QMessageLogContext const&, QString const& message)
{
    theLog->tell(QStringLiteral("Qt: ") + message);
}

} // namespace

int main()
{
    Log log;
    theLog = &log;
    qInstallMessageHandler(fromQt);
    log.tell(QStringLiteral("tool started"));
    KDRString const text = KDRString("no place marker").arg(7);
    log.tell(QStringLiteral("text: ") + QString::fromUtf8(text.toUtf8().constData()));
    qInstallMessageHandler(nullptr);
    log.print();
    return 0;
}
