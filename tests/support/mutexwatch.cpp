#include "mutexwatch.h"

#include <QtCore/qmutex.h>

#include <dlfcn.h>

#include <utility>

namespace {

thread_local MutexWatch::Listener const* current = nullptr;

void report(bool locks, QMutex const* mutex)
{
    if (MutexWatch::Listener const* const listener = std::exchange(current, nullptr)) {
        (*listener)({locks, mutex});
        current = listener;
    }
}

using Operation = void (*)(QMutex*);

Operation next(char const* symbol) { return reinterpret_cast<Operation>(dlsym(RTLD_NEXT, symbol)); }

} // namespace

MutexWatch::MutexWatch(Listener listener) : m_listener(std::move(listener))
{
    current = &m_listener;
}
MutexWatch::~MutexWatch() { current = nullptr; }

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static Operation const lockInQt = next("_ZN6QMutex4lockEv");
    report(true, this);
    lockInQt(this);
}

void QMutex::unlock() noexcept
{
    static Operation const unlockInQt = next("_ZN6QMutex6unlockEv");
    report(false, this);
    unlockInQt(this);
}
