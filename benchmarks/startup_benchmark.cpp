// The start of a program that makes one variant against that of one that makes a QVariant: from the
// fork to the end, what they hold in memory and how many libraries they load.

#include "ratio.h"

#include <cstddef>
#include <cstdio>
#include <stdexcept>
#include <string>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Runs @p program to its end that many times; answers how often it ended well.
ratio::Checksum run(char const* program, std::size_t times)
{
    ratio::Checksum ended = 0;
    for (; times > 0; --times) {
        char* const arguments[] = {const_cast<char*>(program), nullptr};
        pid_t child = 0;
        int status = -1;
        if (posix_spawn(&child, program, nullptr, nullptr, arguments, environ) != 0 ||
            waitpid(child, &status, 0) != child || status != 0)
            throw std::runtime_error(std::string("cannot run ") + program);
        ++ended;
    }
    return ended;
}

struct Made
{
    long kilobytes;
    int libraries;
};

Made madeOf(std::string const& program)
{
    Made made = {0, 0};
    std::FILE* const output = popen(("'" + program + "' report").c_str(), "r");
    bool const isRead =
        output && std::fscanf(output, "%ld %d", &made.kilobytes, &made.libraries) == 2;
    if (!output || pclose(output) != 0 || !isRead)
        throw std::runtime_error(program + " reports nothing");
    return made;
}

/// A figure of the two programs that is no time.
void add(ratio::Table& table, char const* name, char const* unit, double ours, double peer)
{
    ratio::Figures figures;
    figures.family = "start";
    figures.name = name;
    figures.unit = unit;
    figures.peerName = "QVariant";
    figures.hasPeer = true;
    figures.ours = ours;
    figures.peer = peer;
    figures.toPeer = ours / peer;
    table.add(figures);
}

} // namespace

int main(int argc, char* argv[])
try {
    constexpr int turns = 41;
    ratio::Table table(argc, argv);
    table.row("start", "a program that makes one variant")
        .ours([](std::size_t times) { return run(KDR_START_VARIANT, times); })
        .peer("QVariant", [](std::size_t times) { return run(KDR_START_QVARIANT, times); })
        .wallClock()
        .turns(turns)
        .reach(ratio::againstPeer, ratio::atMost, 2.0)
        .run();
    Made const ours = madeOf(KDR_START_VARIANT);
    Made const theirs = madeOf(KDR_START_QVARIANT);
    add(table, "its resident memory, kB (12288 at most)", "kB", static_cast<double>(ours.kilobytes),
        static_cast<double>(theirs.kilobytes));
    add(table, "its shared libraries (30 at most)", "library", ours.libraries, theirs.libraries);
    return table.finish();
} catch (std::exception const& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
