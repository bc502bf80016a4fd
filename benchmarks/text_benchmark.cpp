// Text and bytes against the plain Qt values, operation by operation, by the same code on both
// sides. A handle may cost what Qt costs, 15 per cent more, and one small allocation for its
// holder; the table after the run says, from the figures of that run, which operations keep to it.

#include <QtCore/QByteArray>
#include <QtCore/QChar>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <iomanip>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <kdrdata/text/text.h>

namespace {

constexpr int fieldCount = 1000;
constexpr int mebibyte = 1 << 20;

// The two sides. Their classes share the names of the operations measured.
struct Kdr
{
    using Text = KDRString;
    using Character = KDRChar;
    using Texts = KDRStringArray;
    using Bytes = KDRBuffer;
};

struct Qt5
{
    using Text = QString;
    using Character = QChar;
    using Texts = QStringList;
    using Bytes = QByteArray;
};

char const* const words = "the quick brown fox jumps over lazy dogs";

std::string fields()
{
    std::string text;
    for (int i = 0; i < fieldCount; ++i)
        text += (i == 0 ? "field" : ",field") + std::to_string(i);
    return text;
}

// Everything used in a loop passes through DoNotOptimize in it, so that no side's work is done once
// ahead of the loop.

void allocateOnce(benchmark::State& state)
{
    while (state.KeepRunning()) {
        auto const holder = std::make_unique<void*>();
        benchmark::DoNotOptimize(holder.get());
    }
}

template <class Side>
void construct(benchmark::State& state)
{
    char const* source = words;
    for (auto _ : state) {
        benchmark::DoNotOptimize(source);
        typename Side::Text text(source);
        benchmark::DoNotOptimize(text);
    }
}

template <class Side>
void copy(benchmark::State& state)
{
    typename Side::Text source(words);
    for (auto _ : state) {
        benchmark::DoNotOptimize(source);
        typename Side::Text text(source);
        benchmark::DoNotOptimize(text);
    }
}

// Onto a text that has the room already: neither side allocates.
template <class Side>
void append(benchmark::State& state)
{
    typename Side::Text text(words);
    typename Side::Text const part("0123456789abcdef");
    int const size = text.size();
    for (auto _ : state) {
        text.push_back(part);
        benchmark::DoNotOptimize(text);
        text.truncate(size);
    }
}

template <class Side>
void find(benchmark::State& state)
{
    typename Side::Text text(fields().c_str());
    typename Side::Text part("field999");
    for (auto _ : state) {
        benchmark::DoNotOptimize(text);
        benchmark::DoNotOptimize(part);
        int position = text.indexOf(part);
        benchmark::DoNotOptimize(position);
    }
}

template <class Side>
void split(benchmark::State& state)
{
    typename Side::Text text(fields().c_str());
    typename Side::Character const comma(',');
    for (auto _ : state) {
        benchmark::DoNotOptimize(text);
        typename Side::Texts texts = text.split(comma);
        benchmark::DoNotOptimize(texts);
    }
}

template <class Side>
void join(benchmark::State& state)
{
    typename Side::Texts texts =
        typename Side::Text(fields().c_str()).split(typename Side::Character(','));
    typename Side::Text comma(",");
    for (auto _ : state) {
        benchmark::DoNotOptimize(texts);
        typename Side::Text text = texts.join(comma);
        benchmark::DoNotOptimize(text);
    }
}

template <class Side>
void argNumber(benchmark::State& state)
{
    typename Side::Text pattern("width %1, height %2");
    int number = 1024;
    for (auto _ : state) {
        benchmark::DoNotOptimize(number);
        typename Side::Text text = pattern.arg(number);
        benchmark::DoNotOptimize(text);
    }
}

template <class Side>
void argText(benchmark::State& state)
{
    typename Side::Text pattern("width %1, height %2");
    typename Side::Text value(words);
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        typename Side::Text text = pattern.arg(value);
        benchmark::DoNotOptimize(text);
    }
}

template <class Side>
void toDouble(benchmark::State& state)
{
    typename Side::Text text("3.14159");
    for (auto _ : state) {
        benchmark::DoNotOptimize(text);
        double number = text.toDouble();
        benchmark::DoNotOptimize(number);
    }
}

template <class Side>
void toLongLong(benchmark::State& state)
{
    typename Side::Text text("-1234567890");
    for (auto _ : state) {
        benchmark::DoNotOptimize(text);
        long long number = text.toLongLong();
        benchmark::DoNotOptimize(number);
    }
}

template <class Side>
void setInteger(benchmark::State& state)
{
    typename Side::Text text;
    int number = 1234567890;
    for (auto _ : state) {
        benchmark::DoNotOptimize(number);
        text.setNum(number);
        benchmark::DoNotOptimize(text);
    }
}

template <class Side>
void setFloating(benchmark::State& state)
{
    typename Side::Text text;
    double number = 3.14159;
    for (auto _ : state) {
        benchmark::DoNotOptimize(number);
        text.setNum(number);
        benchmark::DoNotOptimize(text);
    }
}

// As append: onto bytes that have the room already.
template <class Side>
void appendBytes(benchmark::State& state)
{
    int const size = 16;
    std::string const block(static_cast<std::size_t>(state.range(0)), 'x');
    typename Side::Bytes bytes(size, 'y');
    typename Side::Bytes const part(block.c_str(), static_cast<int>(block.size()));
    for (auto _ : state) {
        bytes.append(part);
        benchmark::DoNotOptimize(bytes);
        bytes.truncate(size);
    }
}

template <class Side>
void toBase64(benchmark::State& state)
{
    typename Side::Bytes bytes(mebibyte, 'x');
    for (auto _ : state) {
        benchmark::DoNotOptimize(bytes);
        typename Side::Bytes encoded = bytes.toBase64();
        benchmark::DoNotOptimize(encoded);
    }
}

template <class Side>
void fromBase64(benchmark::State& state)
{
    typename Side::Bytes const encoded = typename Side::Bytes(mebibyte, 'x').toBase64();
    for (auto _ : state) {
        typename Side::Bytes bytes = Side::Bytes::fromBase64(encoded);
        benchmark::DoNotOptimize(bytes);
    }
}

struct Operation
{
    std::string name;
    void (*kdr)(benchmark::State&);
    void (*qt)(benchmark::State&);
    std::vector<int> arguments;
};

std::vector<Operation> const& operations()
{
    static std::vector<Operation> const all = {
        {"construct-from-c-string", construct<Kdr>, construct<Qt5>, {}},
        {"copy", copy<Kdr>, copy<Qt5>, {}},
        {"append", append<Kdr>, append<Qt5>, {}},
        {"find", find<Kdr>, find<Qt5>, {}},
        {"split-1000-fields", split<Kdr>, split<Qt5>, {}},
        {"join-1000-fields", join<Kdr>, join<Qt5>, {}},
        {"arg-number", argNumber<Kdr>, argNumber<Qt5>, {}},
        {"arg-text", argText<Kdr>, argText<Qt5>, {}},
        {"text-to-double", toDouble<Kdr>, toDouble<Qt5>, {}},
        {"text-to-integer", toLongLong<Kdr>, toLongLong<Qt5>, {}},
        {"integer-to-text", setInteger<Kdr>, setInteger<Qt5>, {}},
        {"double-to-text", setFloating<Kdr>, setFloating<Qt5>, {}},
        {"buffer-append-16-bytes", appendBytes<Kdr>, appendBytes<Qt5>, {16}},
        {"buffer-append-1-mib", appendBytes<Kdr>, appendBytes<Qt5>, {mebibyte}},
        {"buffer-to-base64-1-mib", toBase64<Kdr>, toBase64<Qt5>, {}},
        {"buffer-from-base64-1-mib", fromBase64<Kdr>, fromBase64<Qt5>, {}},
    };
    return all;
}

char const* const allocation = "one-small-allocation";

// Of several repetitions the fastest counts: what else runs on the machine can only add.
double fastest(std::vector<double> const& times)
{
    return *std::min_element(times.begin(), times.end());
}

void add(std::string const& name, void (*function)(benchmark::State&),
         std::vector<int> const& arguments)
{
    benchmark::internal::Benchmark* const one =
        benchmark::RegisterBenchmark(name.c_str(), function);
    for (int const argument : arguments)
        one->Arg(argument);
    one->ComputeStatistics("fastest", fastest);
}

// The usual report, followed by one line for each operation of which both sides have run.
class ComparingReporter : public benchmark::ConsoleReporter
{
public:
    ComparingReporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(std::vector<Run> const& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (Run const& run : runs) {
            if (run.aggregate_name == "fastest")
                m_times[run.run_name.function_name] = run.GetAdjustedCPUTime();
        }
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        auto const small = m_times.find(allocation);
        if (small == m_times.end())
            return;
        std::ostream& out = GetOutputStream();
        out << "\nWithin 1.15 times Qt's time plus one small allocation of " << std::fixed
            << std::setprecision(1) << small->second << " ns:\n\n"
            << std::left << std::setw(26) << "operation" << std::right << std::setw(13)
            << "ours, ns" << std::setw(13) << "Qt, ns" << std::setw(8) << "ratio" << std::setw(13)
            << "bound, ns"
            << "  within\n";
        for (Operation const& operation : operations()) {
            auto const kdr = m_times.find(operation.name + "/kdr");
            auto const qt = m_times.find(operation.name + "/qt");
            if (kdr == m_times.end() || qt == m_times.end())
                continue;
            double const bound = 1.15 * qt->second + small->second;
            out << std::left << std::setw(26) << operation.name << std::right
                << std::setprecision(1) << std::setw(13) << kdr->second << std::setw(13)
                << qt->second << std::setprecision(2) << std::setw(8) << kdr->second / qt->second
                << std::setprecision(1) << std::setw(13) << bound << "  "
                << (kdr->second <= bound ? "yes" : "NO") << '\n';
        }
    }

private:
    std::map<std::string, double> m_times;
};

} // namespace

int main(int argc, char* argv[])
{
    add(allocation, allocateOnce, {});
    for (Operation const& operation : operations()) {
        add(operation.name + "/kdr", operation.kdr, operation.arguments);
        add(operation.name + "/qt", operation.qt, operation.arguments);
    }

    // The repetitions of all are run in a random order, so that a busy minute meets both sides.
    // What the command line says comes later and wins.
    std::string defaults[] = {"--benchmark_repetitions=9", "--benchmark_min_time=0.02",
                              "--benchmark_enable_random_interleaving=true",
                              "--benchmark_report_aggregates_only=true"};
    std::vector<char*> arguments(argv, argv + 1);
    for (std::string& argument : defaults)
        arguments.push_back(argument.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    arguments.push_back(nullptr);
    int count = static_cast<int>(arguments.size()) - 1;

    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 1;
    ComparingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
