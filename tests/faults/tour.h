#ifndef KDRDATA_TESTS_TOUR_H
#define KDRDATA_TESTS_TOUR_H

#include "../support/malloc.h"
#include "../support/words.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
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

    ~Tour();

    /// An operation on a state that nothing else shares, and the same with a copy beside it.
    template <class Make, class Operation>
    void visit(char const* name, Make const& make, Operation const& operation)
    {
        visitAlone(name, make, operation);
        SCOPED_TRACE("shared");
        Play<Make, Operation> play(make, operation);
        play.share();
        run(name, play);
    }

    /// The same without the copy, for what a copy takes part in.
    template <class Make, class Operation>
    void visitAlone(char const* name, Make const& make, Operation const& operation)
    {
        ++m_operations;
        Play<Make, Operation> play(make, operation);
        run(name, play);
    }

private:
    /// One time that an operation runs, with or without a request that fails.
    class Trial
    {
    public:
        explicit Trial(memory::FailOnce* watch = nullptr) : m_watch(watch) {}

        /// To be called when the operation is over, before anything else takes memory.
        void end() { hasStruck = m_watch && m_watch->end(); }

        bool hasStruck = false;
        std::string answer;

    private:
        memory::FailOnce* m_watch;
    };

    /// An operation and its state without their types: what tries them is compiled once, and not
    /// for each of hundreds of operations.
    class Stage
    {
    public:
        Stage() = default;
        Stage(Stage const&) = delete;
        Stage& operator=(Stage const&) = delete;
        virtual ~Stage() = default;

        virtual void begin() = 0;
        virtual void operate(Trial& trial) = 0;
        virtual std::string inWords() const = 0;
        virtual void end() = 0;
    };

    /// The state, and a copy beside it where it is shared: what is the same for all operations on
    /// states of one type.
    template <class State>
    class StageOf : public Stage
    {
    public:
        void share()
        {
            m_copies = [](State const& state) { return std::make_unique<State>(state); };
        }

        void begin() override
        {
            make(m_place);
            if (m_copies) {
                m_copy = m_copies(*state());
                // A number's first copy leaves its range behind, and copies of that nothing.
                m_before = words::of(*m_copies(*m_copy));
            }
        }
        void end() override
        {
            m_copy.reset();
            state()->~State();
        }
        std::string inWords() const override
        {
            if (m_copy) {
                EXPECT_EQ(words::of(*m_copy), m_before) << "a copy was changed";
            }
            return words::of(*std::launder(reinterpret_cast<State const*>(m_place)));
        }

    protected:
        /// Makes the state in its place: a copy would share with what it was copied from.
        virtual void make(void* place) const = 0;

        State* state() { return std::launder(reinterpret_cast<State*>(m_place)); }

    private:
        alignas(State) unsigned char m_place[sizeof(State)];
        std::unique_ptr<State> m_copy;
        std::string m_before;
        std::unique_ptr<State> (*m_copies)(State const&) = nullptr;
    };

    template <class Make, class Operation>
    class Play final : public StageOf<std::invoke_result_t<Make>>
    {
        using State = std::invoke_result_t<Make>;

    public:
        Play(Make const& make, Operation const& operation) : m_make(make), m_operation(operation) {}

        void operate(Trial& trial) override
        {
            if constexpr (std::is_void_v<std::invoke_result_t<Operation, State&>>) {
                m_operation(*this->state());
                trial.end();
            } else {
                auto const answer = m_operation(*this->state());
                trial.end();
                trial.answer = words::of(answer);
            }
        }

    protected:
        void make(void* place) const override { ::new (place) State(m_make()); }

    private:
        Make const& m_make;
        Operation const& m_operation;
    };

    struct Expected
    {
        std::string before;
        std::string after;
        std::string answer;
    };

    void run(char const* name, Stage& stage);
    bool attempt(Stage& stage, long successes, Expected const& expected) const;
    static bool failing(Stage& stage, long successes, Expected const& expected);

    Losses m_losses;
    long m_operations = 0;
    long m_failures = 0;
};

#endif
