// What concerns the whole process: two threads at once, and the loading of the library.

#include "rows.h"

#include <cstdio>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <kdrdata/kdrdata.h>

namespace {

using ratio::Checksum;

// One thread's work: variants of its own that are made, copied, changed and read.
Checksum workOnOwnValues(std::size_t times)
{
    Checksum sum = 0;
    for (std::size_t i = 0; i < times; ++i) {
        KDRVariant const variant(static_cast<int>(i));
        KDRVariant copy(variant);
        copy.fromDouble(static_cast<double>(i));
        double value = 0.0;
        copy.toDouble(&value);
        sum += static_cast<Checksum>(value);
    }
    return sum;
}

constexpr std::size_t valuesEach = 10000;

void twoThreads(ratio::Table& table)
{
    table.row("threads", "one thread, against two on half the work each")
        .ours([](std::size_t times) {
            std::size_t const each = valuesEach * times;
            return workOnOwnValues(each) + workOnOwnValues(each);
        })
        .peer("two threads",
              [](std::size_t times) {
                  std::size_t const each = valuesEach * times;
                  Checksum other = 0;
                  std::thread thread([&other, each] { other = workOnOwnValues(each); });
                  Checksum const own = workOnOwnValues(each);
                  thread.join();
                  return own + other;
              })
        .wallClock()
        .units(2.0 * valuesEach, "value")
        .reach(ratio::againstPeer, ratio::atLeast, 1.8)
        .run();
}

// Seconds that a process which has neither library yet takes to load one.
double loadingSeconds(char const* library)
{
    std::string const command = std::string(KDR_LOADING_PROGRAM) + ' ' + library;
    std::FILE* const pipe = popen(command.c_str(), "r");
    double seconds = 0.0;
    bool const read = pipe && std::fscanf(pipe, "%lf", &seconds) == 1;
    if (!pipe || pclose(pipe) != 0 || !read)
        throw std::runtime_error(std::string("cannot load ") + library);
    return seconds;
}

void loading(ratio::Table& table)
{
    ratio::Figures figures;
    figures.family = "loading";
    figures.name = "dlopen() of the library with all it needs";
    figures.unit = "load";
    figures.peerName = "Qt Core alone";
    figures.hasPeer = true;
    figures.goals = {{ratio::againstPeer, ratio::atMost, 2.0}};
    if (!table.wants(figures.family, figures.name))
        return;
    std::vector<double> ours;
    std::vector<double> peer;
    std::vector<double> ratios;
    for (int turn = 0; turn < table.turns(); ++turn) {
        ours.push_back(loadingSeconds(KDR_LIBRARY));
        peer.push_back(loadingSeconds(KDR_QT_CORE));
        ratios.push_back(ours.back() / peer.back());
    }
    figures.ours = 1e9 * ratio::median(ours);
    figures.peer = 1e9 * ratio::median(peer);
    figures.toPeer = ratio::median(ratios);
    table.add(figures);
}

} // namespace

void rows::ofThreads(ratio::Table& table) { twoThreads(table); }

void rows::ofLoading(ratio::Table& table) { loading(table); }
