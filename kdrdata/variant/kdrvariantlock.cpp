#include <kdrdata/variant/kdrvariantlock.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/variant/kdrvariantkinds_p.h>
#include <kdrdata/variant/kdrvariantprivate.h>

KDRVariantLock::KDRVariantLock() : m_mutex(QMutex::NonRecursive), d(new KDRVariantPrivate) {}

#define KDR_DEFINE_CONSTRUCTOR(Argument)                                                           \
    KDRVariantLock::KDRVariantLock(Argument value)                                                 \
        : m_mutex(QMutex::NonRecursive), d(new KDRVariantPrivate(value))                           \
    {                                                                                              \
    }
KDR_DEFINE_CONSTRUCTOR(int)
KDR_DEFINE_CONSTRUCTOR(long)
KDR_DEFINE_CONSTRUCTOR(long long)
KDR_DEFINE_CONSTRUCTOR(float)
KDR_DEFINE_CONSTRUCTOR(double)
KDR_DEFINE_CONSTRUCTOR(char const*)
KDR_DEFINE_CONSTRUCTOR(bool)

#define KDR_CONSTRUCTOR_Made(Payload) KDR_DEFINE_CONSTRUCTOR(Payload const&)
#define KDR_CONSTRUCTOR_NotMade(Payload)
#define KDR_DEFINE_ROW(Kind, Payload, Name, Constructor, Reader, PointerReader, Copying)           \
    KDR_CONSTRUCTOR_##Constructor(Payload)
KDR_VARIANT_KINDS(KDR_DEFINE_ROW)
#undef KDR_DEFINE_ROW
#undef KDR_DEFINE_CONSTRUCTOR

KDRVariantLock::KDRVariantLock(Store) noexcept : m_mutex(QMutex::NonRecursive), d(nullptr) {}

KDRVariantLock::~KDRVariantLock() { KDRInternal::giveUp(d); }

void KDRVariantLock::lock() { m_mutex.lock(); }
void KDRVariantLock::unlock() { m_mutex.unlock(); }
