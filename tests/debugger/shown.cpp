// usage: shown FILE
// Holds what the debugger is to show. Writes what the library's own text forms say of each value
// into the file, one a line, and then calls stop().
#include <kdrdata/debug/kdrdebugtext.h>

#include "../support/everyvalue.h"

#include <fstream>
#include <new>

namespace {

constexpr int garbageWords = 4096;

// Values that the text forms of the other values say nothing of.
struct Shown
{
    EveryValue const* values;
    EveryValue const* destroyed;
    KDRVariant const* cyclic;
    unsigned long long* garbage;
};

} // namespace

extern "C" {
#if defined(__GNUC__)
__attribute__((noinline))
#endif
void stop(EveryValue const& values, Shown const& shown);
}

void stop(EveryValue const& values, Shown const& shown)
{
    // The values must be in memory here, however much is optimised.
    asm volatile("" : : "r"(&values), "r"(&shown) : "memory");
}

int main(int argc, char* argv[])
{
    if (argc != 2)
        return 2;
    EveryValue const values;

    alignas(EveryValue) static unsigned char memory[sizeof(EveryValue)];
    auto const* const destroyed = new (memory) EveryValue;
    destroyed->~EveryValue();

    KDRVariant cyclic;
    cyclic.fromVariantArray(KDRVariantArray());
    KDRVariantArray* inside = nullptr;
    if (!cyclic.toVariantArrayPtr(inside))
        return 1;
    inside->push_back(cyclic);
    inside->push_back(cyclic);

    static unsigned long long garbage[garbageWords];
    Shown const shown = {&values, destroyed, &cyclic, garbage};

    std::ofstream texts(argv[1]);
    values.visit([&texts](char const* name, auto const& value) {
        texts << name << " = " << KDRDebug::text(value) << '\n';
    });
    texts << "cyclic = " << KDRDebug::text(cyclic) << '\n';
    texts.close();
    stop(values, shown);
    inside->clear();
    return texts ? 0 : 1;
}
