// The variant against QVariant, operation by operation, with the same values on both sides. Names
// pair up: <operation>/<value>/KDRVariant and <operation>/<value>/QVariant.

#include <QtCore/qmetatype.h>
#include <QtCore/qstring.h>
#include <QtCore/qvariant.h>
#include <benchmark/benchmark.h>
#include <string>
#include <type_traits>

#include <kdrdata/kdrdata.h>

Q_DECLARE_METATYPE(KDRImage)

namespace {

// The values. A text of 40 characters is longer than any small-string buffer; the image has a
// megabyte of pixels, which its copies share on either side.
QString const qtText(40, QLatin1Char('x'));

KDRImage makeImage() { return KDRImage(nullptr, 1024, 1024, 1, 0, KDRImage::DataTypeUInt8); }

// Each side of a pair: the variant, the value, and how the one takes and gives the other.
struct KdrInt
{
    using Variant = KDRVariant;
    using Value = int;
    static Value value() { return 128; }
    static Variant make(Value const& value) { return Variant(value); }
    static void write(Variant& variant, Value const& value) { variant.fromInt(value); }
    static bool read(Variant const& variant, Value& value) { return variant.toInt(&value); }
    static void const* peek(Variant& variant)
    {
        KDRNumber* stored = nullptr;
        variant.toNumberPtr(stored);
        return stored;
    }
};

struct KdrDouble
{
    using Variant = KDRVariant;
    using Value = double;
    static Value value() { return 0.5; }
    static Variant make(Value const& value) { return Variant(value); }
    static void write(Variant& variant, Value const& value) { variant.fromDouble(value); }
    static bool read(Variant const& variant, Value& value) { return variant.toDouble(&value); }
    static void const* peek(Variant& variant) { return KdrInt::peek(variant); }
};

struct KdrString
{
    using Variant = KDRVariant;
    using Value = KDRString;
    static Value value() { return KDRString(qtText.utf16(), qtText.size()); }
    static Variant make(Value const& value) { return Variant(value); }
    static void write(Variant& variant, Value const& value) { variant.fromString(value); }
    static bool read(Variant const& variant, Value& value) { return variant.toString(&value); }
    static void const* peek(Variant& variant)
    {
        KDRString* stored = nullptr;
        variant.toStringPtr(stored);
        return stored;
    }
};

struct KdrImage
{
    using Variant = KDRVariant;
    using Value = KDRImage;
    static Value value() { return makeImage(); }
    static Variant make(Value const& value) { return Variant(value); }
    static void write(Variant& variant, Value const& value) { variant.fromImage(value); }
    static bool read(Variant const& variant, Value& value) { return variant.toImage(&value); }
    static void const* peek(Variant& variant)
    {
        KDRImage* stored = nullptr;
        variant.toImagePtr(stored);
        return stored;
    }
};

template <typename T>
struct QtValue
{
    using Variant = QVariant;
    using Value = T;
    static Value value()
    {
        if constexpr (std::is_same_v<T, int>)
            return 128;
        else if constexpr (std::is_same_v<T, double>)
            return 0.5;
        else if constexpr (std::is_same_v<T, QString>)
            return qtText;
        else
            return makeImage();
    }
    static Variant make(Value const& value) { return QVariant::fromValue(value); }
    static void write(Variant& variant, Value const& value) { variant.setValue(value); }
    // Tests the type and assigns, as the readers of the other side do.
    static bool read(Variant const& variant, Value& value)
    {
        if (variant.userType() != qMetaTypeId<T>())
            return false;
        value = *static_cast<T const*>(variant.constData());
        return true;
    }
    static void const* peek(Variant& variant)
    {
        return variant.userType() == qMetaTypeId<T>() ? variant.constData() : nullptr;
    }
};

// The operations. Values and variants are passed through DoNotOptimize before use, so that no
// side's work is done once ahead of the loop.

template <typename Side>
void construct(benchmark::State& state)
{
    auto value = Side::value();
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        auto variant = Side::make(value);
        benchmark::DoNotOptimize(variant);
    }
}

template <typename Side>
void copy(benchmark::State& state)
{
    auto source = Side::make(Side::value());
    for (auto _ : state) {
        benchmark::DoNotOptimize(source);
        auto variant = source;
        benchmark::DoNotOptimize(variant);
    }
}

// Two sources in turn: assigning the value that is there already could be skipped.
template <typename Side>
void assign(benchmark::State& state)
{
    typename Side::Variant sources[2] = {Side::make(Side::value()), Side::make(Side::value())};
    typename Side::Variant target;
    unsigned turn = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(sources);
        target = sources[turn++ % 2];
        benchmark::DoNotOptimize(target);
    }
}

template <typename Side>
void read(benchmark::State& state)
{
    auto variant = Side::make(Side::value());
    typename Side::Value out{};
    for (auto _ : state) {
        benchmark::DoNotOptimize(variant);
        bool good = Side::read(variant, out);
        benchmark::DoNotOptimize(good);
        benchmark::DoNotOptimize(out);
    }
}

template <typename Side>
void readPointer(benchmark::State& state)
{
    auto variant = Side::make(Side::value());
    for (auto _ : state) {
        benchmark::DoNotOptimize(variant);
        void const* stored = Side::peek(variant);
        benchmark::DoNotOptimize(stored);
    }
}

// A copy that is written to: shares first, then detaches.
template <typename Side>
void copyOnWrite(benchmark::State& state)
{
    auto value = Side::value();
    auto source = Side::make(value);
    for (auto _ : state) {
        benchmark::DoNotOptimize(source);
        benchmark::DoNotOptimize(value);
        auto variant = source;
        Side::write(variant, value);
        benchmark::DoNotOptimize(variant);
    }
}

// One value through every operation, the two sides of a pair next to each other.
template <typename Kdr, typename Qt>
void registerPairs(std::string const& value)
{
    struct
    {
        char const* name;
        void (*kdr)(benchmark::State&);
        void (*qt)(benchmark::State&);
    } const operations[] = {
        {"construct", construct<Kdr>, construct<Qt>},
        {"copy", copy<Kdr>, copy<Qt>},
        {"assign", assign<Kdr>, assign<Qt>},
        {"read", read<Kdr>, read<Qt>},
        {"read-pointer", readPointer<Kdr>, readPointer<Qt>},
        {"copy-on-write", copyOnWrite<Kdr>, copyOnWrite<Qt>},
    };
    for (auto const& [name, kdr, qt] : operations) {
        std::string const pair = std::string(name) + '/' + value;
        benchmark::RegisterBenchmark((pair + "/KDRVariant").c_str(), kdr);
        benchmark::RegisterBenchmark((pair + "/QVariant").c_str(), qt);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    registerPairs<KdrInt, QtValue<int>>("int");
    registerPairs<KdrDouble, QtValue<double>>("double");
    registerPairs<KdrString, QtValue<QString>>("string");
    registerPairs<KdrImage, QtValue<KDRImage>>("image");

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
