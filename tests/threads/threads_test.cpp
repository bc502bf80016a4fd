// Handles of all classes that share what they hold, in several threads at once. Run under Helgrind
// and ThreadSanitizer too.

#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include "mixture.h"

namespace {

using Mixtures =
    std::tuple<Mixture<KDRVariant>, Mixture<KDRVariantArray>, Mixture<KDRShape>,
               Mixture<KDRShapeArray>, Mixture<KDRNumberArray>, Mixture<KDRStringArray>,
               Mixture<KDRString>, Mixture<KDRBuffer>, Mixture<KDRRegion>, Mixture<KDRImage>,
               Mixture<KDRImageArray>, Mixture<KDRPointArray>, Mixture<KDRContour>,
               Mixture<KDRMatrix>, Mixture<KDRROIAlignment>>;

/// One thread's handles of every class.
template <std::size_t... indexes>
void runThread(Mixtures& mixtures, bool inPlace, unsigned seed, std::index_sequence<indexes...>)
{
    auto threads = std::make_tuple(typename std::tuple_element_t<indexes, Mixtures>::Thread(
        std::get<indexes>(mixtures), inPlace)...);
    std::mt19937 random(seed);
    for (int step = 0; step < 600; ++step) {
        std::size_t const chosen = random() % sizeof...(indexes);
        ((indexes == chosen ? std::get<indexes>(threads).step(random) : void()), ...);
    }
}

void runThreads(int count, bool inPlace)
{
    Mixtures mixtures;
    std::vector<std::thread> threads;
    for (int number = 0; number < count; ++number) {
        threads.emplace_back([&mixtures, inPlace, number] {
            runThread(mixtures, inPlace, static_cast<unsigned>(number),
                      std::make_index_sequence<std::tuple_size_v<Mixtures>>());
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    std::apply([](auto const&... each) { (each.expectWhole(), ...); }, mixtures);
}

class Threads : public testing::TestWithParam<int>
{
};

TEST_P(Threads, CopyAssignReadReplaceAndDestroyHandlesThatShare) { runThreads(GetParam(), false); }

// Not for Helgrind, which does not see what an atomic count orders: that the others have read and
// given up a value before its last owner writes it in place.
TEST_P(Threads, WriteInPlaceHandlesThatShared) { runThreads(GetParam(), true); }

INSTANTIATE_TEST_SUITE_P(From2To8, Threads, testing::Values(2, 3, 4, 8));

} // namespace
