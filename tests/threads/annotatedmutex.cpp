// Tells ThreadSanitizer of Qt's mutex. The distribution's Qt is not built for it, so that it sees
// neither that one is locked nor what that orders. These take the place of Qt's own in the library,
// and call them.

#include <QtCore/QMutex>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

using Operation = void (*)(QMutex*);

Operation qtOwn(char const* symbol)
{
    return reinterpret_cast<Operation>(::dlsym(RTLD_NEXT, symbol));
}

} // namespace

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static Operation const own = qtOwn("_ZN6QMutex4lockEv");
    __tsan_mutex_pre_lock(this, 0);
    own(this);
    __tsan_mutex_post_lock(this, 0, 0);
}

void QMutex::unlock() noexcept
{
    static Operation const own = qtOwn("_ZN6QMutex6unlockEv");
    __tsan_mutex_pre_unlock(this, 0);
    own(this);
    __tsan_mutex_post_unlock(this, 0);
}

QMutex::~QMutex()
{
    static Operation const own = qtOwn("_ZN6QMutexD1Ev");
    __tsan_mutex_destroy(this, 0);
    own(this);
}
