#ifndef KDRDATA_TESTS_VARIANTACCESS_H
#define KDRDATA_TESTS_VARIANTACCESS_H

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/variant/kdrvariant.h>
#include <kdrdata/variant/kdrvariantlock.h>
#include <kdrdata/variant/kdrvariantprivate.h>

/// What the tests see of a variant's inside: its lock, its store and the store's fields.
template <>
struct KDRInternal::Access<KDRVariant>
{
    static KDRVariantLock& lock(KDRVariant const& variant) { return *variant.d; }
    static KDRVariantPrivate& store(KDRVariantLock const& lock) { return *lock.d; }
    static KDRVariantPrivate& store(KDRVariant const& variant) { return *variant.d->d; }
    static QMutex& mutex(KDRVariantLock& lock) { return lock.m_mutex; }
    static QMutex& mutex(KDRVariantPrivate& store) { return store.m_mutex; }
    static KDRVariantKind& kind(KDRVariantPrivate& store) { return store.m_kind; }
    static void*& payload(KDRVariantPrivate& store) { return store.m_payload; }
    static bool& disposed(KDRVariantPrivate& store) { return store.m_disposed; }
};

using VariantAccess = KDRInternal::Access<KDRVariant>;

#endif
