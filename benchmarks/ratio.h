#ifndef KDRDATA_BENCHMARKS_RATIO_H
#define KDRDATA_BENCHMARKS_RATIO_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// Rows of ratios: this library's time for a piece of work against a peer's and against a floor.
///
/// The sides of a row run in one program, built with the same flags, and take turns, so that what
/// else runs on the machine meets all of them. A turn repeats the work as often as fills about a
/// millisecond and answers a checksum of what it made; the checksums of all sides must be equal,
/// so that no side can skip its work. Times are medians over the turns; a ratio is the median of
/// the ratios of neighbouring turns, which a slow drift of the machine's speed leaves alone. Turns
/// are timed by the thread's processor time, which leaves out what other programs take; rows of
/// several threads ask for the wall clock instead.
///
/// @code
/// int main(int argc, char* argv[])
/// {
///     ratio::Table table(argc, argv);
///     table.row("texts", "copy + destroy")
///         .ours([](std::size_t times) { ...; return checksum; })
///         .peer("QString", [](std::size_t times) { ...; return checksum; })
///         .reach(ratio::againstPeer, ratio::atMost, 1.1)
///         .run();
///     return table.finish();
/// }
/// @endcode
///
/// Options of such a program: `--json FILE` writes the rows as JSON, `--only TEXT` runs the rows
/// whose family or name holds the text, `--turns N` sets the number of turns, `--list` names the
/// rows. `--side ours|peer|floor` does one side's work of the row whose name `--only` gives, as
/// often as `--times N` says, and measures nothing: for a profiler. What 2 N repetitions take over
/// N is what N cost.
namespace ratio {

/// What a side answers; equal for equal results.
using Checksum = std::uint64_t;

/// Does the work that many times.
using Side = std::function<Checksum(std::size_t times)>;

enum Against { againstPeer, againstFloor, asTime };
enum Bound { atMost, atLeast };
enum class Clock { Processor, Wall };

/// Keeps the compiler from knowing anything about the object from here on, so that nothing that
/// made it can be left out.
template <class Object>
void escape(Object& object)
{
    asm volatile("" : : "g"(&object) : "memory");
}

/// The bits of a value, for a checksum.
inline Checksum bitsOf(double value)
{
    Checksum bits;
    static_assert(sizeof bits == sizeof value, "a double is taken bit by bit");
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

/// A checksum that depends on the order of what it is made of.
inline Checksum mixed(Checksum sum, Checksum value) { return (sum ^ value) * 0x100000001b3U; }

inline double median(std::vector<double> values)
{
    if (values.empty())
        return 0.0;
    auto const middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 == 1)
        return *middle;
    return (*middle + *std::max_element(values.begin(), middle)) / 2.0;
}

inline double secondsNow(Clock clock)
{
    timespec now{};
    clock_gettime(clock == Clock::Wall ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

/// What a row is to reach.
struct Goal
{
    Against against;
    Bound bound;
    double value;
};

/// One measured row. Times are nanoseconds a unit.
struct Figures
{
    std::string family;
    std::string name;
    std::string unit;
    std::string peerName;
    std::string note;
    double ours = 0.0;
    double peer = 0.0;
    double floor = 0.0;
    double toPeer = 0.0;
    double toFloor = 0.0;
    bool hasPeer = false;
    bool hasFloor = false;
    std::vector<Goal> goals;

    double measured(Goal const& goal) const
    {
        return goal.against == againstPeer ? toPeer : goal.against == againstFloor ? toFloor : ours;
    }
    bool reached(Goal const& goal) const
    {
        double const value = measured(goal);
        return goal.bound == atMost ? value <= goal.value : value >= goal.value;
    }
};

/// Runs the sides in turns and answers the seconds of each turn, side by side. Throws
/// std::logic_error where the sides' checksums differ.
inline std::vector<std::vector<double>> takeTurns(std::string const& name,
                                                  std::vector<Side> const& sides, int turns,
                                                  Clock clock, double secondsATurn,
                                                  std::vector<std::size_t>& times)
{
    auto const timed = [clock](Side const& side, std::size_t count, Checksum& sum) {
        double const start = secondsNow(clock);
        sum = side(count);
        return secondsNow(clock) - start;
    };
    // All sides repeat the work equally often, as often as fills a turn of the fastest but one
    // that is so much slower that its turns would take long.
    std::size_t count = 1;
    for (;;) {
        double fastest = 1e9;
        double slowest = 0.0;
        for (Side const& side : sides) {
            Checksum sum = 0;
            double const seconds = timed(side, count, sum);
            fastest = std::min(fastest, seconds);
            slowest = std::max(slowest, seconds);
        }
        if (fastest >= secondsATurn || slowest >= 20.0 * secondsATurn)
            break;
        count *= 2;
    }
    times.assign(sides.size(), count);

    std::vector<std::vector<double>> seconds(sides.size());
    for (int turn = 0; turn < turns; ++turn) {
        Checksum expected = 0;
        for (std::size_t i = 0; i < sides.size(); ++i) {
            // Every other turn the other way round: no side always follows the same one.
            std::size_t const side = turn % 2 == 0 ? i : sides.size() - 1 - i;
            Checksum sum = 0;
            seconds[side].push_back(timed(sides[side], count, sum));
            if (i == 0)
                expected = sum;
            else if (sum != expected)
                throw std::logic_error(name + ": the sides' results differ");
        }
    }
    return seconds;
}

class Table;

/// A row in the making; run() measures it.
class Row
{
public:
    Row(Table& table, std::string family, std::string name) : m_table(table)
    {
        m_figures.family = std::move(family);
        m_figures.name = std::move(name);
        m_figures.unit = "operation";
    }

    Row& ours(Side side)
    {
        m_ours = std::move(side);
        return *this;
    }
    Row& peer(std::string name, Side side)
    {
        m_figures.peerName = std::move(name);
        m_peer = std::move(side);
        return *this;
    }
    /// The same heap objects and lock operations, written bare.
    Row& floor(Side side)
    {
        m_floor = std::move(side);
        return *this;
    }
    /// The peer does only this share of the work, and its time is counted for the whole.
    Row& peerShare(double share)
    {
        m_peerShare = share;
        return *this;
    }
    /// A floor that is made of the peer's time: so many times that, and so many nanoseconds more.
    Row& floorOfPeer(double factor, double nanosecondsMore)
    {
        m_peerFactor = factor;
        m_peerMore = nanosecondsMore;
        return *this;
    }
    /// How many units one repetition of the work holds, and what a unit is.
    Row& units(double count, std::string unit)
    {
        m_units = count;
        m_figures.unit = std::move(unit);
        return *this;
    }
    Row& reach(Against against, Bound bound, double value)
    {
        m_figures.goals.push_back({against, bound, value});
        return *this;
    }
    Row& note(std::string text)
    {
        m_figures.note = std::move(text);
        return *this;
    }
    Row& wallClock()
    {
        m_clock = Clock::Wall;
        return *this;
    }
    /// For work that takes long: that many turns instead of the usual number.
    Row& turns(int count)
    {
        m_turns = count;
        return *this;
    }
    void run();

private:
    Table& m_table;
    Figures m_figures;
    Side m_ours;
    Side m_peer;
    Side m_floor;
    double m_units = 1.0;
    double m_peerShare = 1.0;
    double m_peerFactor = 0.0;
    double m_peerMore = 0.0;
    int m_turns = 0;
    Clock m_clock = Clock::Processor;
};

/// All rows of a program: prints each as it is measured, and writes them where asked to.
class Table
{
public:
    Table(int argc, char** argv)
    {
        for (int i = 1; i < argc; ++i) {
            std::string const option = argv[i];
            bool const hasValue = i + 1 < argc;
            if (option == "--list")
                m_listing = true;
            else if (option == "--json" && hasValue)
                m_json = argv[++i];
            else if (option == "--only" && hasValue)
                m_only = argv[++i];
            else if (option == "--turns" && hasValue)
                m_turns = std::max(1, std::atoi(argv[++i]));
            else if (option == "--side" && hasValue)
                m_side = argv[++i];
            else if (option == "--times" && hasValue)
                m_times = static_cast<std::size_t>(std::max(0, std::atoi(argv[++i])));
            else
                throw std::invalid_argument("unknown option " + option);
        }
    }

    Row row(std::string family, std::string name)
    {
        return {*this, std::move(family), std::move(name)};
    }

    bool wants(std::string const& family, std::string const& name) const
    {
        if (!m_side.empty())
            return name == m_only;
        return m_only.empty() || family.find(m_only) != std::string::npos ||
               name.find(m_only) != std::string::npos;
    }
    bool listing() const { return m_listing; }
    int turns() const { return m_turns; }
    /// The one side that is to work, or nothing.
    std::string const& side() const { return m_side; }
    std::size_t times() const { return m_times; }

    /// Takes a row whose figures were measured elsewhere, or by Row::run().
    void add(Figures figures)
    {
        if (m_rows.empty())
            std::printf("%-12s %-44s %10s %10s %7s %10s %7s  %s\n", "family", "row", "ours, ns",
                        "peer, ns", "ratio", "floor, ns", "ratio", "to reach");
        std::printf("%-12s %-44s %10.1f", figures.family.c_str(), figures.name.c_str(),
                    figures.ours);
        print(figures.hasPeer, figures.peer, figures.toPeer);
        print(figures.hasFloor, figures.floor, figures.toFloor);
        std::printf("  %s\n", goalsOf(figures).c_str());
        std::fflush(stdout);
        m_rows.push_back(std::move(figures));
    }

    /// Writes the file of `--json`; the exit code of the program.
    int finish() const
    {
        if (m_json.empty())
            return 0;
        std::ofstream file(m_json);
        file << "[\n";
        for (std::size_t i = 0; i < m_rows.size(); ++i)
            file << json(m_rows[i]) << (i + 1 < m_rows.size() ? ",\n" : "\n");
        file << "]\n";
        file.close();
        return file ? 0 : 1;
    }

private:
    static void print(bool has, double time, double toIt)
    {
        if (has)
            std::printf(" %10.1f %7.2f", time, toIt);
        else
            std::printf(" %10s %7s", "", "");
    }

    static std::string number(double value)
    {
        char text[32];
        std::snprintf(text, sizeof text, "%.6g", value);
        return text;
    }

    static std::string goalsOf(Figures const& figures)
    {
        static char const* const names[] = {"x peer", "x floor", "ns"};
        std::string text;
        for (Goal const& goal : figures.goals) {
            text += text.empty() ? "" : ", ";
            text += goal.bound == atMost ? "<= " : ">= ";
            text += number(goal.value) + ' ' + names[goal.against];
            text += figures.reached(goal) ? " yes" : " NO";
        }
        return text;
    }

    static std::string quoted(std::string const& text)
    {
        std::string result = "\"";
        for (char const character : text) {
            if (character == '"' || character == '\\')
                result += '\\';
            result += character;
        }
        return result + '"';
    }

    static std::string json(Figures const& row)
    {
        std::string text = "{\"family\": " + quoted(row.family) +
                           ", \"name\": " + quoted(row.name) + ", \"unit\": " + quoted(row.unit) +
                           ", \"ours\": " + number(row.ours);
        if (row.hasPeer)
            text += ", \"peerName\": " + quoted(row.peerName) + ", \"peer\": " + number(row.peer) +
                    ", \"toPeer\": " + number(row.toPeer);
        if (row.hasFloor)
            text += ", \"floor\": " + number(row.floor) + ", \"toFloor\": " + number(row.toFloor);
        if (!row.note.empty())
            text += ", \"note\": " + quoted(row.note);
        text += ", \"goals\": [";
        static char const* const names[] = {"peer", "floor", "time"};
        for (std::size_t i = 0; i < row.goals.size(); ++i) {
            Goal const& goal = row.goals[i];
            text += std::string(i ? ", " : "") + "{\"against\": \"" + names[goal.against] +
                    "\", \"bound\": \"" + (goal.bound == atMost ? "<=" : ">=") +
                    "\", \"value\": " + number(goal.value) +
                    ", \"reached\": " + (row.reached(goal) ? "true" : "false") + '}';
        }
        return text + "]}";
    }

    std::vector<Figures> m_rows;
    std::string m_json;
    std::string m_only;
    std::string m_side;
    std::size_t m_times = 1;
    int m_turns = 41;
    bool m_listing = false;
};

inline void Row::run()
{
    if (!m_table.wants(m_figures.family, m_figures.name))
        return;
    if (m_table.listing()) {
        std::printf("%s: %s\n", m_figures.family.c_str(), m_figures.name.c_str());
        return;
    }
    if (!m_table.side().empty()) {
        for (auto const& side : {std::make_pair("ours", &m_ours), std::make_pair("peer", &m_peer),
                                 std::make_pair("floor", &m_floor)}) {
            if (m_table.side() == side.first && *side.second)
                (*side.second)(m_table.times());
        }
        return;
    }
    m_figures.hasPeer = static_cast<bool>(m_peer);
    m_figures.hasFloor = static_cast<bool>(m_floor);
    std::vector<Side> sides = {m_ours};
    for (Side const* side : {&m_peer, &m_floor}) {
        if (*side)
            sides.push_back(*side);
    }
    constexpr double secondsATurn = 1e-3;
    std::vector<std::size_t> times;
    auto const seconds = takeTurns(m_figures.name, sides, m_turns > 0 ? m_turns : m_table.turns(),
                                   m_clock, secondsATurn, times);
    auto const nanoseconds = [&](std::size_t side) {
        return 1e9 * median(seconds[side]) / (static_cast<double>(times[side]) * m_units);
    };
    auto const ratioTo = [&](std::size_t side) {
        std::vector<double> ratios;
        for (std::size_t i = 0; i < seconds[0].size(); ++i)
            ratios.push_back(seconds[0][i] / seconds[side][i]);
        return median(ratios);
    };
    m_figures.ours = nanoseconds(0);
    std::size_t next = 1;
    if (m_figures.hasPeer) {
        m_figures.peer = nanoseconds(next) / m_peerShare;
        m_figures.toPeer = ratioTo(next) * m_peerShare;
        ++next;
    }
    if (m_figures.hasFloor) {
        m_figures.floor = nanoseconds(next);
        m_figures.toFloor = ratioTo(next);
    } else if (m_peerFactor > 0.0) {
        m_figures.hasFloor = true;
        m_figures.floor = m_peerFactor * m_figures.peer + m_peerMore;
        m_figures.toFloor = m_figures.ours / m_figures.floor;
    }
    m_table.add(std::move(m_figures));
}

} // namespace ratio

#endif
