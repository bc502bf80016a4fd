#ifndef KDRDATA_BENCHMARKS_BARE_H
#define KDRDATA_BENCHMARKS_BARE_H

#include <QtCore/qmutex.h>

#include <atomic>
#include <utility>

/// The floor: the heap objects and the uncontended lock operations that the library's values must
/// have, written bare and inline. What no caller, thread or pointer can see is left out: the lock
/// of a store that was never shared, a store that a copy would make only to give it up.
namespace bare {

/// What a number keeps behind its one pointer.
class Number
{
public:
    Number() : Number(0LL) {}
    explicit Number(long long value) : d(new Record{{}, 0, 0.0, 0.0, 0.0})
    {
        d->value.integer = value;
    }
    explicit Number(double value) : d(new Record{{}, 1, 0.0, 0.0, 0.0})
    {
        d->value.floating = value;
    }
    explicit Number(int value) : Number(static_cast<long long>(value)) {}
    Number(Number const& other) : d(new Record{other.d->value, other.d->kind, 0.0, 0.0, 0.0}) {}
    Number& operator=(Number const& other)
    {
        *d = *other.d;
        return *this;
    }
    ~Number() { delete d; }

    void set(double value)
    {
        d->kind = 1;
        d->value.floating = value;
    }
    void set(int value)
    {
        d->kind = 0;
        d->value.integer = value;
    }
    double toDouble() const
    {
        return d->kind == 0 ? static_cast<double>(d->value.integer) : d->value.floating;
    }
    int toInt() const
    {
        return d->kind == 0 ? static_cast<int>(d->value.integer)
                            : static_cast<int>(d->value.floating);
    }

private:
    struct Record
    {
        union {
            long long integer;
            double floating;
        } value;
        int kind;
        double maxValue;
        double minValue;
        double step;
    };
    Record* d;
};

/// A value of Qt behind one pointer, as texts and bytes are held.
template <class Value>
class Held
{
public:
    Held() : d(new Value) {}
    explicit Held(Value const& value) : d(new Value(value)) {}
    Held(Held const& other) : d(new Value(*other.d)) {}
    Held& operator=(Held const& other)
    {
        *d = *other.d;
        return *this;
    }
    ~Held() { delete d; }
    Value const& value() const { return *d; }

private:
    Value* d;
};

/// A handle's lock and a counted store with a mutex of its own, each on the heap.
template <class Payload>
class Variant
{
public:
    template <class Argument>
    explicit Variant(Argument const& argument) : d(new Lock)
    {
        d->store = new Store(new Payload(argument));
    }
    Variant(Variant const& other) : d(new Lock)
    {
        d->mutex.lock();
        other.d->mutex.lock();
        d->store = other.d->store;
        d->store->share();
        d->mutex.unlock();
        other.d->mutex.unlock();
    }
    Variant& operator=(Variant const& other)
    {
        other.d->mutex.lock();
        d->mutex.lock();
        Store* const old = std::exchange(d->store, other.d->store);
        d->store->share();
        old->giveUp();
        other.d->mutex.unlock();
        d->mutex.unlock();
        return *this;
    }
    ~Variant()
    {
        d->store->giveUp();
        delete d;
    }

    template <class Argument>
    void write(Argument const& argument)
    {
        if (d->store->refs.load() < 2) {
            delete std::exchange(d->store->payload, new Payload(argument));
            return;
        }
        std::exchange(d->store, new Store(new Payload(argument)))->giveUp();
    }
    /// As write(), into the payload that is there.
    template <class Argument>
    void writeInPlace(Argument const& argument)
    {
        if (d->store->refs.load() < 2) {
            d->store->payload->set(argument);
            return;
        }
        std::exchange(d->store, new Store(new Payload(argument)))->giveUp();
    }
    Payload const* read() const { return d->store->kind == 1 ? d->store->payload : nullptr; }

private:
    struct Store
    {
        explicit Store(Payload* value) : payload(value) {}
        ~Store() { delete payload; }

        void share()
        {
            mutex.lock();
            shared = true;
            refs.fetch_add(1);
            mutex.unlock();
        }
        void giveUp()
        {
            bool last = !shared;
            if (!last) {
                mutex.lock();
                last = refs.fetch_sub(1) == 1;
                mutex.unlock();
            }
            if (last)
                delete this;
        }

        std::atomic<int> refs{1};
        int kind = 1;
        Payload* payload;
        QMutex mutex{QMutex::NonRecursive};
        bool disposed = false;
        bool shared = false;
    };
    struct Lock
    {
        QMutex mutex{QMutex::NonRecursive};
        Store* store = nullptr;
    };
    Lock* d;
};

} // namespace bare

#endif
