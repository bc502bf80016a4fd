// Saving and loading against what Qt's files and streams do with the same data, in ratios of one
// run: the bare way is measured beside the library's, in turns.

#include <QtCore/qdatastream.h>
#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qtemporarydir.h>
#include <QtCore/qvariant.h>

#include <benchmark/benchmark.h>

#include <kdrdata/kdrdata.h>
#include <kdrio/kdrio.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

/// Measures two ways of doing the same in turns, and reports how many times as fast as the other
/// way the library is: of the fastest runs, since other work on the machine only ever adds.
template <class Ours, class Bare, class Prepare>
void compare(benchmark::State& state, Ours const& ours, Bare const& bare, Prepare const& prepare)
{
    double best[2] = {1e9, 1e9};
    auto const time = [&best](int which, auto const& work) {
        // What is made lives until the time was taken: giving it back is not a part of the work.
        auto const start = Clock::now();
        auto const made = work();
        std::chrono::duration<double> const taken = Clock::now() - start;
        benchmark::DoNotOptimize(made);
        best[which] = std::min(best[which], taken.count());
    };
    for (auto const& step : state) {
        static_cast<void>(step);
        prepare();
        time(0, ours);
        time(1, bare);
    }
    state.counters["ours_ms"] = best[0] * 1e3;
    state.counters["bare_ms"] = best[1] * 1e3;
    state.counters["ratio"] = best[1] / best[0];
}

template <class Ours, class Bare>
void compare(benchmark::State& state, Ours const& ours, Bare const& bare)
{
    compare(state, ours, bare, [] {});
}

KDRVariant recipe()
{
    KDRImage image(nullptr, 4000, 3000, 3, 0, KDRImage::DataTypeUInt8);
    for (int i = 0; i < image.step() * image.height(); ++i)
        image.dataPtr()[i] = static_cast<unsigned char>(i * 31 / 7);
    KDRVariantArray values;
    values.push_back(KDRVariant("coins"));
    values.push_back(KDRVariant(image));
    for (int i = 0; i < 100; ++i) {
        KDRPoint centre(i, i);
        KDRShape circle;
        circle.fromCircle(centre, 24.0);
        values.push_back(KDRVariant(circle));
    }
    return KDRVariant(values);
}

struct Files
{
    QTemporaryDir directory;
    QString ours = directory.filePath(QStringLiteral("value.kdr"));
    QString bare = directory.filePath(QStringLiteral("bytes"));
    KDRVariant value = recipe();
    KDRString path = KDRString(ours.toUtf8().constData());
    QByteArray bytes;

    Files()
    {
        KDRBuffer buffer;
        kdrio::toBytes(value, &buffer);
        bytes = QByteArray(buffer.constData(), buffer.size());
    }
    bool writeBare() const
    {
        QFile file(bare);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        file.close();
        return true;
    }
};

void saveRecipe(benchmark::State& state)
{
    Files const files;
    // Both write a file that was not there: what a file system makes of a file that is replaced is
    // another matter.
    compare(
        state, [&] { return kdrio::save(files.value, files.path); },
        [&] { return files.writeBare(); },
        [&] {
            QFile::remove(files.ours);
            QFile::remove(files.bare);
        });
}

void loadRecipe(benchmark::State& state)
{
    Files const files;
    kdrio::save(files.value, files.path);
    files.writeBare();
    compare(
        state,
        [&] {
            KDRVariant value;
            kdrio::load(files.path, &value);
            return value;
        },
        [&] {
            QFile file(files.bare);
            file.open(QIODevice::ReadOnly);
            return file.readAll();
        });
}

constexpr int smallCount = 100000;

/// The same small values twice: integers, real numbers, texts and flags.
struct SmallValues
{
    KDRVariantArray ours;
    QVariantList bare;

    SmallValues()
    {
        for (int i = 0; i < smallCount; ++i) {
            switch (i % 4) {
            case 0:
                add(i);
                break;
            case 1:
                add(i * 0.5);
                break;
            case 2: {
                QByteArray const text = "text " + QByteArray::number(i);
                ours.push_back(KDRVariant(text.constData()));
                bare.push_back(QString::fromUtf8(text));
                break;
            }
            default:
                add(i % 8 == 3);
            }
        }
    }

    template <class Value>
    void add(Value value)
    {
        ours.push_back(KDRVariant(value));
        bare.push_back(value);
    }
};

QByteArray streamed(QVariantList const& values)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << values;
    return bytes;
}

void writeSmallValues(benchmark::State& state)
{
    SmallValues const values;
    KDRVariant const value(values.ours);
    compare(
        state,
        [&] {
            KDRBuffer bytes;
            kdrio::toBytes(value, &bytes);
            return bytes;
        },
        [&] { return streamed(values.bare); });
}

void readSmallValues(benchmark::State& state)
{
    SmallValues const values;
    KDRBuffer ours;
    kdrio::toBytes(KDRVariant(values.ours), &ours);
    QByteArray const bare = streamed(values.bare);
    compare(
        state,
        [&] {
            KDRVariant value;
            kdrio::fromBytes(ours, &value);
            return value;
        },
        [&] {
            QDataStream stream(bare);
            QVariantList list;
            stream >> list;
            return list;
        });
}

// The floor of loading: the same variants made one by one.
void makeSmallValues(benchmark::State& state)
{
    SmallValues const values;
    compare(
        state,
        [&] {
            KDRVariantArray made;
            for (int i = 0; i < smallCount; ++i)
                made.push_back(KDRVariant(i));
            return made;
        },
        [&] {
            QVariantList made;
            for (int i = 0; i < smallCount; ++i)
                made.append(i);
            return made;
        });
}

BENCHMARK(saveRecipe)->Iterations(15)->Unit(benchmark::kMillisecond);
BENCHMARK(loadRecipe)->Iterations(15)->Unit(benchmark::kMillisecond);
BENCHMARK(writeSmallValues)->Iterations(15)->Unit(benchmark::kMillisecond);
BENCHMARK(makeSmallValues)->Iterations(15)->Unit(benchmark::kMillisecond);
BENCHMARK(readSmallValues)->Iterations(15)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
