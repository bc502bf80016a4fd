#include "tour.h"

#include <exception>
#include <iostream>
#include <new>

// There in a program with a leak checker.
extern "C" void __lsan_disable() __attribute__((weak)); // NOLINT(bugprone-reserved-identifier)
extern "C" void __lsan_enable() __attribute__((weak));  // NOLINT(bugprone-reserved-identifier)

namespace {

constexpr long tooManyRequests = 200000;

// While it lives, a leak checker overlooks what this thread allocates, where that is wanted.
class Overlooked
{
public:
    explicit Overlooked(bool wanted) : m_isActive(wanted && __lsan_disable)
    {
        if (m_isActive)
            __lsan_disable();
    }
    ~Overlooked()
    {
        if (m_isActive)
            __lsan_enable();
    }
    Overlooked(Overlooked const&) = delete;
    Overlooked& operator=(Overlooked const&) = delete;

private:
    bool m_isActive;
};

} // namespace

Tour::~Tour()
{
    auto const* const test = testing::UnitTest::GetInstance()->current_test_info();
    std::cout << test->name() << ": " << m_operations << " operations, " << m_failures
              << " failing requests for memory" << std::endl;
    EXPECT_GT(m_operations, 0);
    EXPECT_GT(m_failures, 0) << "nothing here takes memory";
}

void Tour::run(char const* name, Stage& stage)
{
    SCOPED_TRACE(name);
    Overlooked const overlooked(m_losses == Losses::OfQtExpressions);
    Expected expected;
    // Twice, so that what is made once in a process is there.
    for (int i = 0; i < 2; ++i) {
        stage.begin();
        expected.before = stage.inWords();
        Trial trial;
        stage.operate(trial);
        expected.answer = trial.answer;
        expected.after = stage.inWords();
        stage.end();
    }
    long requests = 0;
    while (attempt(stage, requests, expected)) {
        ++requests;
        ASSERT_LT(requests, tooManyRequests) << "does not come to an end";
        if (testing::Test::HasFailure())
            break;
    }
    m_failures += requests;
}

// Whether the request was there to fail.
bool Tour::attempt(Stage& stage, long successes, Expected const& expected) const
{
    SCOPED_TRACE("after " + std::to_string(successes) + " requests");
    long const before = memory::live();
    bool const struck = failing(stage, successes, expected);
    // A cache may have grown. What stays behind stays behind each time.
    if (memory::live() != before) {
        constexpr int repetitions = 8;
        failing(stage, successes, expected);
        long const then = memory::live();
        for (int i = 0; i < repetitions; ++i)
            failing(stage, successes, expected);
        if (m_losses == Losses::None) {
            EXPECT_LT(memory::live() - then, repetitions) << "memory is lost";
        }
        EXPECT_GT(memory::live() - then, -repetitions) << "memory is given back twice";
    }
    return struck;
}

bool Tour::failing(Stage& stage, long successes, Expected const& expected)
{
    stage.begin();
    bool struck = false;
    bool threw = false;
    {
        memory::FailOnce watch(successes);
        Trial trial(&watch);
        try {
            stage.operate(trial);
            EXPECT_EQ(trial.answer, expected.answer);
        } catch (std::bad_alloc const&) {
            trial.end();
            threw = true;
        } catch (std::exception const& other) {
            trial.end();
            ADD_FAILURE() << "throws " << other.what();
        }
        struck = trial.hasStruck;
    }
    EXPECT_TRUE(struck || !threw) << "throws without a reason";
    std::string const now = stage.inWords();
    if (now != expected.before) {
        EXPECT_EQ(now, expected.after) << "neither old nor new";
    } else {
        Trial again;
        stage.operate(again);
        EXPECT_EQ(stage.inWords(), expected.after) << "does not recover";
    }
    stage.end();
    return struck;
}
