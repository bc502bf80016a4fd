// Runs the flows of the demo in a loop and compares the resident memory after the first minute with
// that at the end: soak SECONDS PICTURE [LEAK], where LEAK bytes are lost in each round on purpose,
// to see that it is noticed.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "drawnpart.h"
#include "recipe.h"
#include "report.h"
#include "tools.h"

namespace {

using namespace inspect;
using Clock = std::chrono::steady_clock;

constexpr double tolerance = 0.02;

double residentMegabytes()
{
    std::ifstream file("/proc/self/statm");
    double total = 0.0;
    double resident = 0.0;
    file >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

std::vector<Values> valuesAfter(std::vector<Tool> const& tools, Values values)
{
    std::vector<Values> history;
    for (Tool const tool : tools) {
        values = tool(values);
        history.push_back(values);
    }
    return history;
}

void save(Values const& values, std::string const& path)
{
    KDRImage drawing = valueOf(values, "drawing", &KDRVariant::toImage);
    if (drawing.save(KDRString(path.c_str())) == 0)
        throw Failure("cannot write " + path);
}

void inspectPicture(std::string const& picture, std::string const& out)
{
    Values given;
    given["path"] = KDRString(picture.c_str());
    auto const history =
        valuesAfter({loadImage, flattenGround, proposeParameters, threshold, findParts, fitFigures,
                     measureParts, convertFigures, drawParts, packParts},
                    given);
    save(history.back(), out);
    std::ostringstream report;
    printParts(report, history.back());
    printConversions(report, history.back());
    printSharing(report, history);
    printRecipe(report, history.back().at("recipe"));
}

void inspectDrawnPart(std::string const& out)
{
    Values const values =
        valuesAfter({planPart, drawPart, followEdges, measurePart, drawFigures, packPart}, {})
            .back();
    save(values, out);
    std::ostringstream report;
    printFigures(report, values);
    printRecipe(report, values.at("recipe"));
}

int soak(double seconds, std::string const& picture, std::size_t leak, std::string const& directory)
{
    double const settled = std::min(60.0, seconds / 4.0);
    auto const start = Clock::now();
    double first = 0.0;
    double nextLine = settled;
    long rounds = 0;
    std::vector<std::string> held;
    std::cout << std::fixed << std::setprecision(1);
    while (secondsSince(start) < seconds) {
        inspectPicture(picture, directory + "/picture.png");
        inspectDrawnPart(directory + "/part.png");
        // Grows on purpose where asked to, so that the watch itself can be tried.
        held.emplace_back(leak, 'x');
        ++rounds;
        if (secondsSince(start) < nextLine)
            continue;
        double const now = residentMegabytes();
        if (first == 0.0)
            first = now;
        std::cout << secondsSince(start) << " s: " << rounds << " rounds, " << now << " MB"
                  << std::endl;
        nextLine += 60.0;
    }
    double const last = residentMegabytes();
    double const growth = first > 0.0 ? last / first - 1.0 : 1.0;
    std::cout << rounds << " rounds in " << secondsSince(start) << " s; " << first
              << " MB resident after " << settled << " s, " << last << " MB at the end ("
              << std::showpos << 100.0 * growth << "%)" << std::endl;
    return std::abs(growth) <= tolerance ? 0 : 1;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc < 3 || argc > 4) {
        std::cerr << "usage: soak SECONDS PICTURE [LEAK]\n";
        return 2;
    }
    std::string directory = (std::filesystem::temp_directory_path() / "soak-XXXXXX").string();
    if (!mkdtemp(directory.data()))
        return 2;
    int result = 2;
    try {
        std::size_t const leak = argc > 3 ? std::strtoul(argv[3], nullptr, 10) : 0;
        result = soak(std::atof(argv[1]), argv[2], leak, directory);
    } catch (std::exception const& failure) {
        std::cerr << "soak: " << failure.what() << '\n';
    }
    std::filesystem::remove_all(directory);
    return result;
}
