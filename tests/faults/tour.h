#ifndef KDRDATA_TESTS_TOUR_H
#define KDRDATA_TESTS_TOUR_H

#include "../support/malloc.h"
#include "../support/words.h"

#include <gtest/gtest.h>

#include <exception>
#include <iostream>
#include <new>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

/// A tour over operations, each of which is run again and again from the same state: once as it is,
/// and then with its first request for memory failing, its second, and so on to its last.
///
/// Whichever fails, nothing but std::bad_alloc may come out. The state must be the old or the new
/// one, in whole, and the operation must go through when it is tried again. What the operation
/// answers is right where it answers. Other handles that share with the state see nothing. Nothing
/// stays behind in memory.
///
/// Where an operation has an answer for failure, the state should hold that answer too.
///
/// The constructors of QRegExp keep what they made in a plain pointer while they go on to make
/// more, so that a failure in between loses it; nobody outside holds a pointer to give back.
/// Operations that construct one are toured without counting what is lost.
class Tour
{
public:
    /// Whether blocks that stay behind are somebody else's fault.
    enum class Losses { None, OfQtExpressions };

    explicit Tour(Losses losses = Losses::None) : m_losses(losses) {}
    Tour(Tour const&) = delete;
    Tour& operator=(Tour const&) = delete;

    ~Tour()
    {
        auto const* const test = testing::UnitTest::GetInstance()->current_test_info();
        std::cout << test->name() << ": " << m_operations << " operations, " << m_failures
                  << " failing requests for memory" << std::endl;
        EXPECT_GT(m_operations, 0);
        EXPECT_GT(m_failures, 0) << "nothing here takes memory";
    }

    /// An operation on a state that nothing else shares, and the same with a copy beside it.
    template <class Make, class Operation>
    void visit(char const* name, Make const& make, Operation const& operation)
    {
        visitAlone(name, make, operation);
        SCOPED_TRACE("shared");
        auto const makeShared = [&] { return Shared<decltype(make())>(make()); };
        run(name, makeShared, [&](auto& shared) { return operation(shared.state); });
    }

    /// The same without the copy, for what a copy takes part in.
    template <class Make, class Operation>
    void visitAlone(char const* name, Make const& make, Operation const& operation)
    {
        ++m_operations;
        run(name, make, operation);
    }

private:
    static constexpr long tooManyRequests = 200000;

    template <class State>
    struct Shared
    {
        explicit Shared(State const& made) : state(made), copy(state), before(words::of(state)) {}

        State state;
        State copy;
        std::string before;

        friend std::string inWords(Shared const& shared)
        {
            EXPECT_EQ(words::of(shared.copy), shared.before) << "a copy was changed";
            return words::of(shared.state);
        }
    };

    struct Expected
    {
        std::string before;
        std::string after;
        std::string answer;
    };

    template <class Operation, class State>
    static constexpr bool answers = !std::is_void_v<std::invoke_result_t<Operation, State&>>;

    template <class Make, class Operation>
    void run(char const* name, Make const& make, Operation const& operation)
    {
        SCOPED_TRACE(name);
        Expected expected;
        // Twice, so that what is made once in a process is there.
        for (int i = 0; i < 2; ++i) {
            auto state = make();
            expected.before = words::of(state);
            if constexpr (answers<Operation, decltype(state)>)
                expected.answer = words::of(operation(state));
            else
                operation(state);
            expected.after = words::of(state);
        }
        long requests = 0;
        while (attempt(make, operation, requests, expected)) {
            ++requests;
            ASSERT_LT(requests, tooManyRequests) << "does not come to an end";
            if (testing::Test::HasFailure())
                break;
        }
        m_failures += requests;
    }

    // Whether the request was there to fail.
    template <class Make, class Operation>
    bool attempt(Make const& make, Operation const& operation, long successes,
                 Expected const& expected)
    {
        SCOPED_TRACE("after " + std::to_string(successes) + " requests");
        long const before = memory::live();
        bool const struck = failing(make, operation, successes, expected);
        // A cache may have grown. What stays behind stays behind each time.
        if (memory::live() != before) {
            constexpr int repetitions = 8;
            failing(make, operation, successes, expected);
            long const then = memory::live();
            for (int i = 0; i < repetitions; ++i)
                failing(make, operation, successes, expected);
            if (m_losses == Losses::None) {
                EXPECT_LT(memory::live() - then, repetitions) << "memory is lost";
            }
            EXPECT_GT(memory::live() - then, -repetitions) << "memory is given back twice";
        }
        return struck;
    }

    template <class Make, class Operation>
    static bool failing(Make const& make, Operation const& operation, long successes,
                        Expected const& expected)
    {
        auto state = make();
        bool struck = false;
        bool threw = false;
        {
            memory::FailOnce watch(successes);
            try {
                if constexpr (answers<Operation, decltype(state)>) {
                    auto const answer = operation(state);
                    struck = watch.end();
                    EXPECT_EQ(words::of(answer), expected.answer);
                } else {
                    operation(state);
                    struck = watch.end();
                }
            } catch (std::bad_alloc const&) {
                struck = watch.end();
                threw = true;
            } catch (std::exception const& other) {
                struck = watch.end();
                ADD_FAILURE() << "throws " << other.what();
            }
        }
        EXPECT_TRUE(struck || !threw) << "throws without a reason";
        std::string const now = words::of(state);
        if (now != expected.before) {
            EXPECT_EQ(now, expected.after) << "neither old nor new";
        } else {
            operation(state);
            EXPECT_EQ(words::of(state), expected.after) << "does not recover";
        }
        return struck;
    }

    Losses m_losses;
    long m_operations = 0;
    long m_failures = 0;
};

#endif
