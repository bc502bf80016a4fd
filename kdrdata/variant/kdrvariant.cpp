#include <kdrdata/variant/kdrvariant.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/variant/kdrvariantkinds_p.h>
#include <kdrdata/variant/kdrvariantlock.h>
#include <kdrdata/variant/kdrvariantprivate.h>

#include <QtCore/qstring.h>

#include <initializer_list>
#include <memory>
#include <utility>

namespace {

KDRVariantPrivate& storeOf(KDRVariantLock* lock) { return KDRInternal::wrapped(*lock); }

// Runs a writer of the store. A handle that shares its store gets a fresh one, and the handles it
// shared with keep the old value. The value is written before the shared store is given up: it may
// live in that store, and where copying it throws, the handle keeps what it had.
template <class Writer>
void write(KDRVariantLock* lock, Writer const& writer)
{
    KDRVariantPrivate*& store = KDRInternal::pointer(*lock);
    if (store->refCount() < 2) {
        writer(*store);
        return;
    }
    auto fresh = std::make_unique<KDRVariantPrivate>();
    writer(*fresh);
    KDRInternal::giveUp(std::exchange(store, fresh.release()));
}

// Room for most descriptions; longer ones grow.
constexpr int shortDescription = 48;
constexpr int longDescription = 112;

// The numbers are written as QString::arg() writes them into the places of a template, one after
// the other into one text: a chain of arg() makes a new text for each place.
KDRString described(KDRVariantKind kind,
                    std::initializer_list<std::pair<char const*, double>> facts)
{
    QString text;
    text.reserve(kind == KindPoint ? longDescription : shortDescription);
    text += QLatin1String("iType:");
    text += QString::number(kind);
    for (auto const& [name, value] : facts) {
        text += QLatin1String(name);
        text += QString::number(value, 'g', 6);
    }
    return KDRInternal::taking<KDRString>(std::move(text));
}

KDRString describeNumber(KDRNumber const& number)
{
    return described(
        KindNumber,
        {{",Max:", number.maxValue()}, {",Min:", number.minValue()}, {",step:", number.step()}});
}

KDRString describeString(KDRString const& text)
{
    QString description;
    description.reserve(shortDescription);
    description += QLatin1String("iType:2,length:");
    description += QString::number(text.size());
    return KDRInternal::taking<KDRString>(std::move(description));
}

KDRString describePoint(KDRPoint const& point)
{
    return described(KindPoint, {{",XMax:", point.getXMaxVal()},
                                 {",XMin:", point.getXMinVal()},
                                 {",XStep:", point.getXStepVal()},
                                 {",YMax:", point.getYMaxVal()},
                                 {",YMin:", point.getYMinVal()},
                                 {",YStep:", point.getYStepVal()}});
}

} // namespace

KDRVariant::KDRVariant() : d(new KDRVariantLock) {}
KDRVariant::KDRVariant(int value) : d(new KDRVariantLock(value)) {}
KDRVariant::KDRVariant(long value) : d(new KDRVariantLock(value)) {}
KDRVariant::KDRVariant(long long value) : d(new KDRVariantLock(value)) {}
KDRVariant::KDRVariant(float value) : d(new KDRVariantLock(value)) {}
KDRVariant::KDRVariant(double value) : d(new KDRVariantLock(value)) {}
KDRVariant::KDRVariant(bool value) : d(new KDRVariantLock(value)) {}
KDRVariant::KDRVariant(char const* text) : d(new KDRVariantLock(text)) {}

// The new handle starts without the store of its own that it would give up at once: nobody has the
// handle yet. Only one that is made from itself, which is a mistake, has no other store to take.
KDRVariant::KDRVariant(KDRVariant const& other)
    : d(this == &other ? new KDRVariantLock : new KDRVariantLock(KDRVariantLock::Store::None))
{
    // The new handle's lock first, the source's second: operator= takes them the other way round.
    bool const distinct = d != other.d;
    d->lock();
    if (distinct)
        other.d->lock();
    KDRVariantPrivate* const shared = KDRInternal::pointer(*other.d);
    KDRInternal::pointer(*d) = shared;
    if (distinct)
        shared->incRef();
    d->unlock();
    if (distinct)
        other.d->unlock();
}

KDRVariant::~KDRVariant()
{
    delete d;
    d = nullptr;
}

// Assigning a variant to itself adds a count and takes it away again.
KDRVariant& KDRVariant::operator=(KDRVariant const& other)
{
    // The source's lock first, this handle's second: the copy constructor takes them the other way
    // round.
    bool const distinct = d != other.d;
    if (distinct)
        other.d->lock();
    d->lock();
    KDRVariantPrivate* const shared = KDRInternal::pointer(*other.d);
    KDRVariantPrivate* const old = std::exchange(KDRInternal::pointer(*d), shared);
    shared->incRef();
    if (old)
        KDRInternal::giveUp(old);
    if (distinct)
        other.d->unlock();
    d->unlock();
    return *this;
}

KDRVariant KDRVariant::clone() const
{
    KDRVariant copy;
    KDRVariantPrivate& store = storeOf(copy.d);
    store = storeOf(d);
    // Assignment copies clouds and their arrays too; a clone has none of the payloads that copy
    // construction loses.
    if (isLostByConstruction(store.variantType()))
        store.clear();
    return copy;
}

KDRVariantKind KDRVariant::variantType() const { return storeOf(d).variantType(); }

KDRString KDRVariant::attribute()
{
    // Read where they are; a store that was cleared keeps its kind without a payload, and describes
    // what a new payload would be.
    KDRVariantPrivate& store = storeOf(d);
    switch (store.variantType()) {
    case KindPoint: {
        KDRPoint* point = nullptr;
        store.toPointPtr(point);
        return point ? describePoint(*point) : describePoint(KDRPoint());
    }
    case KindString: {
        KDRString* text = nullptr;
        store.toStringPtr(text);
        return text ? describeString(*text) : describeString(KDRString());
    }
    case KindNumber: {
        KDRNumber* number = nullptr;
        store.toNumberPtr(number);
        return number ? describeNumber(*number) : describeNumber(KDRNumber());
    }
    default:
        return KDRString("");
    }
}

void KDRVariant::fromInt(int value)
{
    write(d, [value](KDRVariantPrivate& store) { store.fromInt(value); });
}
void KDRVariant::fromLong(long value)
{
    write(d, [value](KDRVariantPrivate& store) { store.fromLong(value); });
}
void KDRVariant::fromLongLong(long long value)
{
    write(d, [value](KDRVariantPrivate& store) { store.fromLongLong(value); });
}
void KDRVariant::fromFloat(float value)
{
    write(d, [value](KDRVariantPrivate& store) { store.fromFloat(value); });
}
void KDRVariant::fromDouble(double value)
{
    write(d, [value](KDRVariantPrivate& store) { store.fromDouble(value); });
}
void KDRVariant::fromBool(bool value)
{
    write(d, [value](KDRVariantPrivate& store) { store.fromBool(value); });
}

bool KDRVariant::toInt(int* out) const { return storeOf(d).toInt(out); }
bool KDRVariant::toLong(long* out) const { return storeOf(d).toLong(out); }
bool KDRVariant::toLongLong(long long* out) const { return storeOf(d).toLongLong(out); }
bool KDRVariant::toFloat(float* out) const { return storeOf(d).toFloat(out); }
bool KDRVariant::toDouble(double* out) const { return storeOf(d).toDouble(out); }
bool KDRVariant::toBool(bool* out) const { return storeOf(d).toBool(out); }

#define KDR_CONSTRUCTOR_Made(Payload)                                                              \
    KDRVariant::KDRVariant(Payload const& value) : d(new KDRVariantLock(value)) {}
#define KDR_CONSTRUCTOR_NotMade(Payload)

#define KDR_READER_Const(Payload, Name)                                                            \
    bool KDRVariant::to##Name(Payload* out) const { return storeOf(d).to##Name(out); }
#define KDR_READER_OfContour(Payload, Name) KDR_READER_Const(Payload, Name)
#define KDR_READER_NonConst(Payload, Name)                                                         \
    bool KDRVariant::to##Name(Payload* out) { return storeOf(d).to##Name(out); }

#define KDR_POINTER_READER_Handed(Payload, Name)                                                   \
    bool KDRVariant::to##Name##Ptr(Payload*& out) { return storeOf(d).to##Name##Ptr(out); }
#define KDR_POINTER_READER_HandsNumber(Payload, Name) KDR_POINTER_READER_Handed(Payload, Name)
#define KDR_POINTER_READER_HandsContour(Payload, Name) KDR_POINTER_READER_Handed(Payload, Name)
#define KDR_POINTER_READER_Tests(Payload, Name)                                                    \
    bool KDRVariant::to##Name##Ptr(Payload* out) { return storeOf(d).to##Name##Ptr(out); }
#define KDR_POINTER_READER_StoreOnly(Payload, Name)
#define KDR_POINTER_READER_None(Payload, Name)

#define KDR_DEFINE_ROW(Kind, Payload, Name, Constructor, Reader, PointerReader, Copying)           \
    KDR_CONSTRUCTOR_##Constructor(Payload) void KDRVariant::from##Name(Payload const& value)       \
    {                                                                                              \
        write(d, [&value](KDRVariantPrivate& store) { store.from##Name(value); });                 \
    }                                                                                              \
    KDR_READER_##Reader(Payload, Name) KDR_POINTER_READER_##PointerReader(Payload, Name)
KDR_VARIANT_KINDS(KDR_DEFINE_ROW)
#undef KDR_DEFINE_ROW
