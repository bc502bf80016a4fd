#ifndef KDRDATA_LOGOUTPUT_H
#define KDRDATA_LOGOUTPUT_H

#include <QtCore/qmutex.h>
#include <QtCore/qobject.h>
#include <QtCore/qstring.h>

#include <kdrdata/kdrdata_export.h>

/// The process-wide log sink of the kit.
///
/// One object is made when the library is loaded and lives until the process ends; nothing is
/// registered for unloading. In this version the sink discards what it is given.
///
/// @code
/// LogOutput::getInstance()->outPutMsg(QStringLiteral("tool started"));
/// @endcode
///
/// Threads: getInstance() and outPutMsg() may be called from any thread.
class KDRDATA_EXPORT LogOutput : public QObject
{
    Q_OBJECT

public:
    /// A further sink, owned by @p parent when that is not null. The process-wide one stays as it
    /// is.
    explicit LogOutput(QObject* parent);
    /// Ends the process-wide sink too: takes the instance, clears it, then deletes it unless it is
    /// this very object. Afterwards getInstance() answers null. Neither the library nor its
    /// callers destroy a sink in ordinary use. Kept on purpose.
    ~LogOutput() override;

    /// The process-wide sink as it stands; never null after load unless a sink was destroyed. It is
    /// never created here, and the caller must not delete it.
    static LogOutput* getInstance();

    /// Takes @p msg and discards it.
    void outPutMsg(QString msg);

private:
    // Reserved for a sink that writes somewhere; nothing locks it in this version.
    QMutex m_mutex;
    static LogOutput* m_instance;
};

#endif
