#include <kdrdata/log/logoutput.h>

#include <utility>

// The library's one static initialiser. A pointer, so that nothing is registered for unloading.
LogOutput* LogOutput::m_instance = new LogOutput(nullptr);

LogOutput::LogOutput(QObject* parent) : QObject(parent), m_mutex(QMutex::NonRecursive) {}

LogOutput::~LogOutput()
{
    // Cleared before the delete: the instance's own destructor then finds nothing left to delete.
    LogOutput* const instance = std::exchange(m_instance, nullptr);
    if (instance == this)
        return;
    // Where the instance owns this sink, it would delete it a second time.
    setParent(nullptr);
    delete instance;
}

LogOutput* LogOutput::getInstance() { return m_instance; }

// By value and not static: the interface that a sink which keeps its messages needs.
void LogOutput::outPutMsg(QString msg) { Q_UNUSED(msg) }
