#include <kdrdata/variant/kdrvariantprivate.h>

#include <kdrdata/variant/kdrvariantkinds_p.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>

namespace {

// How the store treats the payloads of one kind.
struct KindOperations
{
    KDRVariantKind kind;
    // A new payload object with the value of the given one.
    void* (*copy)(void const* payload);
    void (*destroy)(void* payload);
};

// Default construction and assignment rather than copy construction: assignment carries what some
// copy constructors leave behind, a number's range among it.
template <class Payload>
void* copyPayload(void const* payload)
{
    auto copy = std::make_unique<Payload>();
    *copy = *static_cast<Payload const*>(payload);
    return copy.release();
}

template <class Payload>
void destroyPayload(void* payload)
{
    delete static_cast<Payload*>(payload);
}

template <class Payload>
constexpr KindOperations operationsOf(KDRVariantKind kind)
{
    return {kind, &copyPayload<Payload>, &destroyPayload<Payload>};
}

#define KDR_OPERATIONS_ROW(Kind, Payload, Name, PointerKind) operationsOf<Payload>(Kind),
constexpr KindOperations kindOperations[] = {operationsOf<bool>(KindBool),
                                             KDR_VARIANT_KINDS(KDR_OPERATIONS_ROW)};
#undef KDR_OPERATIONS_ROW

constexpr bool isSortedByKind()
{
    for (std::size_t i = 1; i < std::size(kindOperations); ++i) {
        if (kindOperations[i - 1].kind >= kindOperations[i].kind)
            return false;
    }
    return true;
}

static_assert(isSortedByKind(), "the kind table is searched by bisection");
static_assert(sizeof(bool) == 1, "a flag is one byte on the heap");

// Null for the empty kind and for every number that no row has.
KindOperations const* findOperations(KDRVariantKind kind)
{
    auto const* const last = std::end(kindOperations);
    auto const* const found =
        std::lower_bound(std::begin(kindOperations), last, kind,
                         [](KindOperations const& row, KDRVariantKind k) { return row.kind < k; });
    return found != last && found->kind == kind ? found : nullptr;
}

void* copyOf(KDRVariantKind kind, void const* payload)
{
    KindOperations const* const operations = payload ? findOperations(kind) : nullptr;
    return operations ? operations->copy(payload) : nullptr;
}

template <class Payload>
bool readInto(Payload* out, void const* payload)
{
    if (!payload || !out)
        return false;
    *out = *static_cast<Payload const*>(payload);
    return true;
}

template <class Scalar>
bool readNumber(Scalar* out, KDRNumber const* number, Scalar (KDRNumber::*reading)() const)
{
    if (!number || !out)
        return false;
    *out = (number->*reading)();
    return true;
}

} // namespace

KDRVariantPrivate::KDRVariantPrivate(KDRVariantKind kind, void* payload) noexcept
    : m_refs(1), m_kind(kind), m_payload(payload), m_mutex(QMutex::NonRecursive), m_disposed(false)
{
}

KDRVariantPrivate::KDRVariantPrivate() : KDRVariantPrivate(KindNone, nullptr) {}
KDRVariantPrivate::KDRVariantPrivate(int value)
    : KDRVariantPrivate(KindNumber, new KDRNumber(value))
{
}
KDRVariantPrivate::KDRVariantPrivate(long value)
    : KDRVariantPrivate(KindNumber, new KDRNumber(value))
{
}
KDRVariantPrivate::KDRVariantPrivate(long long value)
    : KDRVariantPrivate(KindNumber, new KDRNumber(value))
{
}
KDRVariantPrivate::KDRVariantPrivate(float value)
    : KDRVariantPrivate(KindNumber, new KDRNumber(value))
{
}
KDRVariantPrivate::KDRVariantPrivate(double value)
    : KDRVariantPrivate(KindNumber, new KDRNumber(value))
{
}
KDRVariantPrivate::KDRVariantPrivate(char const* text)
    : KDRVariantPrivate(KindString, new KDRString(text))
{
}
KDRVariantPrivate::KDRVariantPrivate(bool value) : KDRVariantPrivate(KindBool, new bool(value)) {}

KDRVariantPrivate::KDRVariantPrivate(KDRVariantPrivate const& other)
    : KDRVariantPrivate(other.m_kind, copyOf(other.m_kind, other.m_payload))
{
}

KDRVariantPrivate::~KDRVariantPrivate() { clear(); }

// No guard against self-assignment: a store assigned to itself ends without a payload.
KDRVariantPrivate& KDRVariantPrivate::operator=(KDRVariantPrivate const& other)
{
    clear();
    m_kind = other.m_kind;
    m_disposed = other.m_disposed;
    m_payload = copyOf(m_kind, other.m_payload);
    return *this;
}

KDRVariantKind KDRVariantPrivate::variantType() const { return m_kind; }

void KDRVariantPrivate::clear()
{
    if (!m_payload)
        return;
    if (KindOperations const* const operations = findOperations(m_kind))
        operations->destroy(m_payload);
    m_payload = nullptr;
}

void KDRVariantPrivate::install(KDRVariantKind kind, void* payload)
{
    // The new payload was built first, perhaps from the old one.
    clear();
    m_kind = kind;
    m_payload = payload;
}

void const* KDRVariantPrivate::payloadOf(KDRVariantKind kind) const
{
    return m_kind == kind ? m_payload : nullptr;
}

KDRNumber const* KDRVariantPrivate::number() const
{
    return static_cast<KDRNumber const*>(payloadOf(KindNumber));
}

void KDRVariantPrivate::fromInt(int value) { install(KindNumber, new KDRNumber(value)); }
void KDRVariantPrivate::fromLong(long value) { install(KindNumber, new KDRNumber(value)); }
void KDRVariantPrivate::fromLongLong(long long value) { install(KindNumber, new KDRNumber(value)); }
void KDRVariantPrivate::fromFloat(float value) { install(KindNumber, new KDRNumber(value)); }
void KDRVariantPrivate::fromDouble(double value) { install(KindNumber, new KDRNumber(value)); }
void KDRVariantPrivate::fromBool(bool value) { install(KindBool, new bool(value)); }

bool KDRVariantPrivate::toInt(int* out) const
{
    return readNumber(out, number(), &KDRNumber::toInt);
}
bool KDRVariantPrivate::toLong(long* out) const
{
    return readNumber(out, number(), &KDRNumber::toLong);
}
bool KDRVariantPrivate::toLongLong(long long* out) const
{
    return readNumber(out, number(), &KDRNumber::toLongLong);
}
bool KDRVariantPrivate::toFloat(float* out) const
{
    return readNumber(out, number(), &KDRNumber::toFloat);
}
bool KDRVariantPrivate::toDouble(double* out) const
{
    return readNumber(out, number(), &KDRNumber::toDouble);
}
bool KDRVariantPrivate::toBool(bool* out) const { return readInto(out, payloadOf(KindBool)); }

#define KDR_DEFINE_ROW(Kind, Payload, Name, PointerKind)                                           \
    KDRVariantPrivate::KDRVariantPrivate(Payload const& value)                                     \
        : KDRVariantPrivate(Kind, new Payload(value))                                              \
    {                                                                                              \
    }                                                                                              \
    void KDRVariantPrivate::from##Name(Payload const& value)                                       \
    {                                                                                              \
        install(Kind, new Payload(value));                                                         \
    }                                                                                              \
    bool KDRVariantPrivate::to##Name(Payload* out) const                                           \
    {                                                                                              \
        return readInto(out, payloadOf(Kind));                                                     \
    }                                                                                              \
    bool KDRVariantPrivate::to##Name##Ptr(Payload*& out)                                           \
    {                                                                                              \
        if (m_kind != (PointerKind))                                                               \
            return false;                                                                          \
        out = static_cast<Payload*>(m_payload);                                                    \
        return true;                                                                               \
    }
KDR_VARIANT_KINDS(KDR_DEFINE_ROW)
#undef KDR_DEFINE_ROW

void KDRVariantPrivate::incRef()
{
    m_mutex.lock();
    m_refs.fetch_add(1);
    m_mutex.unlock();
}

void KDRVariantPrivate::decRef()
{
    m_mutex.lock();
    bool const last = m_refs.fetch_sub(1) == 1;
    if (last)
        m_disposed = true;
    m_mutex.unlock();
    if (last)
        delete this;
}

int KDRVariantPrivate::refCount() const { return m_refs.load(); }

void KDRVariantPrivate::lock()
{
    if (!m_disposed)
        m_mutex.lock();
}

void KDRVariantPrivate::unlock()
{
    if (!m_disposed)
        m_mutex.unlock();
}
