#include <kdrdata/variant/kdrvariantprivate.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrnumber_p.h>
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
    KDRPayloadCopying copying;
    // A new payload object with the value of the given one.
    void* (*copy)(void const* payload);
    void (*destroy)(void* payload);
};

template <class Payload>
void assignPayload(Payload& to, Payload const& from)
{
    to = from;
}

// Neither the copy constructor nor the assignment of this class copies anything, and its one field
// travels all the same.
void assignPayload(KDRDualQuaternion& to, KDRDualQuaternion const& from)
{
    KDRInternal::pointer(to) = KDRInternal::pointer(from);
}

// What a constructor or a writer of the store makes of its argument.
template <class Payload>
Payload* newPayload(Payload const& value)
{
    return new Payload(value);
}

KDRDualQuaternion* newPayload(KDRDualQuaternion const& value)
{
    auto payload = std::make_unique<KDRDualQuaternion>();
    assignPayload(*payload, value);
    return payload.release();
}

// Default construction and assignment rather than copy construction: assignment carries what some
// copy constructors leave behind, a number's range among it.
template <class Payload>
void* copyPayload(void const* payload)
{
    auto copy = std::make_unique<Payload>();
    assignPayload(*copy, *static_cast<Payload const*>(payload));
    return copy.release();
}

template <class Payload>
void destroyPayload(void* payload)
{
    delete static_cast<Payload*>(payload);
}

template <class Payload>
constexpr KindOperations operationsOf(KDRVariantKind kind, KDRPayloadCopying copying)
{
    return {kind, copying, &copyPayload<Payload>, &destroyPayload<Payload>};
}

#define KDR_OPERATIONS_ROW(Kind, Payload, Name, Constructor, Reader, PointerReader, Copying)       \
    operationsOf<Payload>(Kind, KDRPayloadCopying::Copying),
constexpr KindOperations kindOperations[] = {operationsOf<bool>(KindBool, KDRPayloadCopying::Kept),
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

// The kinds that nearly all values have are found without a search.
constexpr int firstKinds = KindChar + 1;
constexpr bool startsWithFirstKinds()
{
    for (int kind = 0; kind < firstKinds; ++kind) {
        if (kindOperations[kind].kind != kind)
            return false;
    }
    return true;
}

static_assert(isSortedByKind(), "the kind table is searched by bisection");
static_assert(startsWithFirstKinds(), "the first kinds are their own places in the table");
static_assert(sizeof(bool) == 1, "a flag is one byte on the heap");

// Null for the empty kind and for every number that no row has.
KindOperations const* findOperations(KDRVariantKind kind)
{
    if (kind >= 0 && kind < firstKinds)
        return &kindOperations[kind];
    auto const* const last = std::end(kindOperations);
    auto const* const found =
        std::lower_bound(std::begin(kindOperations), last, kind,
                         [](KindOperations const& row, KDRVariantKind k) { return row.kind < k; });
    return found != last && found->kind == kind ? found : nullptr;
}

// A copy of the payload, or null for kinds that lose it more often than is tolerated.
void* copyOf(KDRVariantKind kind, void const* payload, KDRPayloadCopying tolerated)
{
    KindOperations const* const operations = payload ? findOperations(kind) : nullptr;
    return operations && operations->copying <= tolerated ? operations->copy(payload) : nullptr;
}

template <class Payload>
bool readInto(Payload* out, void const* payload)
{
    if (!payload || !out)
        return false;
    assignPayload(*out, *static_cast<Payload const*>(payload));
    return true;
}

// Reads the record itself; without one the number is read, which knows what to answer then.
template <class Scalar, class Recorded>
bool readNumber(Scalar* out, KDRNumber const* number, Scalar (KDRNumber::*reading)() const,
                Recorded (KDRNumberPrivate::*recorded)() const noexcept)
{
    if (!number || !out)
        return false;
    auto const* const record = KDRInternal::pointer(*number);
    *out = record ? static_cast<Scalar>((record->*recorded)()) : (number->*reading)();
    return true;
}

} // namespace

bool isLostByConstruction(KDRVariantKind kind)
{
    KindOperations const* const operations = findOperations(kind);
    return !operations || operations->copying != KDRPayloadCopying::Kept;
}

KDRVariantPrivate::KDRVariantPrivate(KDRVariantKind kind, void* payload) noexcept
    : m_refs(1),
      m_kind(kind),
      m_payload(payload),
      m_mutex(QMutex::NonRecursive),
      m_disposed(false),
      m_everShared(false)
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
    : KDRVariantPrivate(other.m_kind,
                        copyOf(other.m_kind, other.m_payload, KDRPayloadCopying::Kept))
{
}

KDRVariantPrivate::~KDRVariantPrivate() { clear(); }

// No guard against self-assignment: a store assigned to itself ends without a payload.
KDRVariantPrivate& KDRVariantPrivate::operator=(KDRVariantPrivate const& other)
{
    clear();
    m_kind = other.m_kind;
    m_disposed = other.m_disposed;
    m_payload = copyOf(m_kind, other.m_payload, KDRPayloadCopying::LostByConstruction);
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

// A number that is there takes the new value in place, and its range becomes that of a fresh one:
// nobody can tell it from a number that was freed and made again. Whoever held its address held one
// that the write ended, and a new object may have the address of an old one.
template <class Value>
void KDRVariantPrivate::writeNumber(Value value)
{
    auto* const payload = static_cast<KDRNumber*>(m_kind == KindNumber ? m_payload : nullptr);
    if (payload && KDRInternal::pointer(*payload))
        KDRInternal::wrapped(*payload) = KDRNumberPrivate(value);
    else
        install(KindNumber, new KDRNumber(value));
}

void KDRVariantPrivate::fromInt(int value) { fromLongLong(value); }
void KDRVariantPrivate::fromLong(long value) { fromLongLong(value); }
void KDRVariantPrivate::fromLongLong(long long value) { writeNumber(value); }
void KDRVariantPrivate::fromFloat(float value) { fromDouble(static_cast<double>(value)); }
void KDRVariantPrivate::fromDouble(double value) { writeNumber(value); }
void KDRVariantPrivate::fromBool(bool value) { install(KindBool, new bool(value)); }

bool KDRVariantPrivate::toInt(int* out) const
{
    return readNumber(out, number(), &KDRNumber::toInt, &KDRNumberPrivate::toInt);
}
bool KDRVariantPrivate::toLong(long* out) const
{
    return readNumber(out, number(), &KDRNumber::toLong, &KDRNumberPrivate::toLongLong);
}
bool KDRVariantPrivate::toLongLong(long long* out) const
{
    return readNumber(out, number(), &KDRNumber::toLongLong, &KDRNumberPrivate::toLongLong);
}
bool KDRVariantPrivate::toFloat(float* out) const
{
    return readNumber(out, number(), &KDRNumber::toFloat, &KDRNumberPrivate::toFloat);
}
bool KDRVariantPrivate::toDouble(double* out) const
{
    return readNumber(out, number(), &KDRNumber::toDouble, &KDRNumberPrivate::toDouble);
}
bool KDRVariantPrivate::toBool(bool* out) const { return readInto(out, payloadOf(KindBool)); }

#define KDR_CONSTRUCTOR_Made(Kind, Payload)                                                        \
    KDRVariantPrivate::KDRVariantPrivate(Payload const& value)                                     \
        : KDRVariantPrivate(Kind, newPayload(value))                                               \
    {                                                                                              \
    }
#define KDR_CONSTRUCTOR_NotMade(Kind, Payload)

#define KDR_READER_Const(Kind, Payload, Name)                                                      \
    bool KDRVariantPrivate::to##Name(Payload* out) const { return readInto(out, payloadOf(Kind)); }
#define KDR_READER_NonConst(Kind, Payload, Name)                                                   \
    bool KDRVariantPrivate::to##Name(Payload* out) { return readInto(out, payloadOf(Kind)); }
// The output's assignment would do nothing, and the payload is not of its class.
#define KDR_READER_OfContour(Kind, Payload, Name)                                                  \
    bool KDRVariantPrivate::to##Name(Payload* out) const { return out && payloadOf(KindContour); }

#define KDR_HAND_OUT(Tested, Payload, Name)                                                        \
    bool KDRVariantPrivate::to##Name##Ptr(Payload*& out)                                           \
    {                                                                                              \
        if (m_kind != (Tested))                                                                    \
            return false;                                                                          \
        out = static_cast<Payload*>(m_payload);                                                    \
        return true;                                                                               \
    }
#define KDR_POINTER_READER_Handed(Kind, Payload, Name) KDR_HAND_OUT(Kind, Payload, Name)
#define KDR_POINTER_READER_StoreOnly(Kind, Payload, Name) KDR_HAND_OUT(Kind, Payload, Name)
// An address under another class's name, for callers that only compare it.
#define KDR_POINTER_READER_HandsNumber(Kind, Payload, Name) KDR_HAND_OUT(KindNumber, Payload, Name)
#define KDR_POINTER_READER_HandsContour(Kind, Payload, Name)                                       \
    KDR_HAND_OUT(KindContour, Payload, Name)
#define KDR_POINTER_READER_Tests(Kind, Payload, Name)                                              \
    bool KDRVariantPrivate::to##Name##Ptr(Payload*) { return m_kind == (Kind); }
#define KDR_POINTER_READER_None(Kind, Payload, Name)

#define KDR_DEFINE_ROW(Kind, Payload, Name, Constructor, Reader, PointerReader, Copying)           \
    KDR_CONSTRUCTOR_##Constructor(Kind, Payload) void KDRVariantPrivate::from##Name(               \
        Payload const& value)                                                                      \
    {                                                                                              \
        install(Kind, newPayload(value));                                                          \
    }                                                                                              \
    KDR_READER_##Reader(Kind, Payload, Name) KDR_POINTER_READER_##PointerReader(Kind, Payload, Name)
KDR_VARIANT_KINDS(KDR_DEFINE_ROW)
#undef KDR_DEFINE_ROW

void KDRVariantPrivate::incRef()
{
    m_mutex.lock();
    m_refs.fetch_add(1);
    // Written once, before anybody else has the store, and only read from then on.
    if (!m_everShared)
        m_everShared = true;
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
