// What the changes of texts and bytes leave behind when memory runs out in the middle of them: the
// value that was there before.

#include <kdrdata/text/text.h>

#include "../support/malloc.h"
#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <gtest/gtest.h>

#include <new>

// A leak checker asks for this: Qt's own copy constructor of an expression forgets what it has made
// when memory runs out.
extern "C" char const* __lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier)
extern "C" char const* __lsan_default_suppressions()  // NOLINT(bugprone-reserved-identifier)
{
    return "leak:QRegExp::QRegExp\n";
}

namespace {

// More occurrences than Qt replaces at a time, in texts and in bytes.
constexpr int many = 10000;

template <class Value>
struct Change
{
    char const* name;
    void (*make)(Value& value, Value const& other);
};

bool isSame(KDRString const& a, KDRString const& b) { return a == b && a.isNull() == b.isNull(); }

bool isSame(KDRBuffer const& a, KDRBuffer const& b)
{
    return bytesOf(a) == bytesOf(b) && a.isNull() == b.isNull();
}

// A value of its own memory, filled to the brim, so that all growth needs more.
KDRString ownCopy(KDRString const& text)
{
    return text.isNull() ? KDRString() : KDRString(text.toUtf16(), text.size());
}

KDRBuffer ownCopy(KDRBuffer const& bytes)
{
    return bytes.isNull() ? KDRBuffer() : KDRBuffer(bytes.constData(), bytes.size());
}

// Lets one allocation of the change after the other fail until it gets along without a failure.
// Answers how many it then took.
template <class Value>
int expectKept(Change<Value> const& change, Value const& start, Value const& other, bool shared)
{
    Value expected = ownCopy(start);
    change.make(expected, other);
    // All of the first ones, then more and more seldom: a search takes memory at every step.
    for (int successes = 0;; successes += 1 + successes / 16) {
        SCOPED_TRACE(testing::Message()
                     << change.name << (shared ? ", shared, " : ", alone, ") << successes);
        Value value = shared ? Value(start) : ownCopy(start);
        bool thrown = false;
        bool failed = false;
        {
            memory::FailOnce few(successes);
            try {
                change.make(value, other);
            } catch (std::bad_alloc const&) {
                thrown = true;
            }
            failed = few.end();
        }
        EXPECT_TRUE(isSame(value, thrown ? start : expected));
        EXPECT_EQ(thrown, failed);
        if (!failed || testing::Test::HasFailure())
            return successes;
    }
}

template <class Value, int count>
void expectAllKept(Change<Value> const (&changes)[count], Value const& start, Value const& other)
{
    for (Change<Value> const& change : changes) {
        int const shared = expectKept(change, start, other, true);
        expectKept(change, start, other, false);
        EXPECT_GT(shared, 0) << change.name << " took no memory";
    }
}

KDRRegExp const& letter()
{
    static KDRRegExp const rx(KDRString("a"));
    return rx;
}

KDRRegExp const& group()
{
    static KDRRegExp const rx(KDRString("(a)"));
    return rx;
}

TEST(MallocFailures, ReachQt)
{
    KDRString const text("text");
    KDRString other(text);
    memory::FailOnce none(0);
    EXPECT_THROW(other.push_back(text), std::bad_alloc);
    EXPECT_TRUE(none.end());
}

TEST(MallocFailures, LeaveTheTextAsItWas)
{
    static Change<KDRString> const changes[] = {
        {"push_back", [](KDRString& s, KDRString const& o) { s.push_back(o); }},
        {"push_front", [](KDRString& s, KDRString const& o) { s.push_front(o); }},
        {"push_back of itself", [](KDRString& s, KDRString const&) { s.push_back(s); }},
        {"push_front of itself", [](KDRString& s, KDRString const&) { s.push_front(s); }},
        {"insert", [](KDRString& s, KDRString const& o) { s.insert(3, o); }},
        {"insert behind", [](KDRString& s, KDRString const& o) { s.insert(2 * many, o); }},
        {"insert bytes", [](KDRString& s, KDRString const&) { s.insert(3, "xyz"); }},
        {"remove range", [](KDRString& s, KDRString const&) { s.remove(1, 2); }},
        {"remove", [](KDRString& s, KDRString const&) { s.remove(KDRString("a")); }},
        {"remove matches", [](KDRString& s, KDRString const&) { s.remove(letter()); }},
        {"replace range", [](KDRString& s, KDRString const& o) { s.replace(1, 2, o); }},
        {"replace range by itself", [](KDRString& s, KDRString const&) { s.replace(1, 2, s); }},
        {"repeat range", [](KDRString& s, KDRString const& o) { s.replace(9, -5, o); }},
        {"replace", [](KDRString& s, KDRString const& o) { s.replace(KDRString("a"), o); }},
        {"replace the empty text",
         [](KDRString& s, KDRString const& o) { s.replace(KDRString(""), o); }},
        {"replace by as much",
         [](KDRString& s, KDRString const&) { s.replace(KDRString("a"), KDRString("b")); }},
        {"replace by less",
         [](KDRString& s, KDRString const&) { s.replace(KDRString("aa"), KDRString("b")); }},
        {"replace matches", [](KDRString& s, KDRString const& o) { s.replace(letter(), o); }},
        {"truncate", [](KDRString& s, KDRString const&) { s.truncate(5); }},
        {"setNum", [](KDRString& s, KDRString const&) { s.setNum(1); }},
        {"fromUtf8", [](KDRString& s, KDRString const&) { s.fromUtf8("abc"); }},
        {"assignment", [](KDRString& s, KDRString const&) { s = "abc"; }},
    };
    expectAllKept(changes, KDRString("a").repeated(many), KDRString("some other text"));
}

TEST(MallocFailures, LeaveTheTextAsItWasHoweverManyStepsAReplacementTakes)
{
    static Change<KDRString> const changes[] = {
        {"replace by captures",
         [](KDRString& s, KDRString const&) { s.replace(group(), KDRString("x\\1y")); }},
        {"replace matches by itself",
         [](KDRString& s, KDRString const&) { s.replace(letter(), s); }},
        {"replace by itself", [](KDRString& s, KDRString const&) { s.replace(KDRString("a"), s); }},
        {"replace itself", [](KDRString& s, KDRString const& o) { s.replace(s, o); }},
    };
    expectAllKept(changes, KDRString("a").repeated(100), KDRString("x").repeated(200));
}

// Qt copies what lies in the text that it edits where it takes several steps.
TEST(MallocFailures, LoseNothingWhereATextReplacesAllItsParts)
{
    constexpr int occurrences = 2000;
    KDRString const start = KDRString("a").repeated(occurrences);
    KDRString const part("a");
    bool failed = true;
    for (int successes = 0; failed; ++successes) {
        long const before = memory::live();
        {
            KDRString text = ownCopy(start);
            memory::FailOnce few(successes);
            bool thrown = false;
            try {
                text.replace(part, text);
            } catch (std::bad_alloc const&) {
                thrown = true;
            }
            failed = few.end();
            EXPECT_EQ(thrown, failed);
            EXPECT_EQ(text.size(), thrown ? occurrences : occurrences * occurrences);
        }
        EXPECT_EQ(memory::live(), before) << successes;
    }
}

TEST(MallocFailures, LeaveTheBytesAsTheyWere)
{
    static Change<KDRBuffer> const changes[] = {
        {"append", [](KDRBuffer& b, KDRBuffer const& o) { b.append(o); }},
        {"append text", [](KDRBuffer& b, KDRBuffer const&) { b.append("abc"); }},
        {"append its own", [](KDRBuffer& b, KDRBuffer const&) { b.append(b.constData(), 4); }},
        {"prepend", [](KDRBuffer& b, KDRBuffer const& o) { b.prepend(o); }},
        {"prepend itself", [](KDRBuffer& b, KDRBuffer const&) { b.prepend(b); }},
        {"prepend text", [](KDRBuffer& b, KDRBuffer const&) { b.prepend("abc"); }},
        {"prepend its own", [](KDRBuffer& b, KDRBuffer const&) { b.prepend(b.constData(), 4); }},
        {"prepend byte", [](KDRBuffer& b, KDRBuffer const&) { b.prepend('x'); }},
        {"push_front", [](KDRBuffer& b, KDRBuffer const& o) { b.push_front(o); }},
        {"insert", [](KDRBuffer& b, KDRBuffer const& o) { b.insert(3, o); }},
        {"insert behind", [](KDRBuffer& b, KDRBuffer const& o) { b.insert(2 * many, o); }},
        {"insert byte", [](KDRBuffer& b, KDRBuffer const&) { b.insert(3, 7, 'x'); }},
        {"remove", [](KDRBuffer& b, KDRBuffer const&) { b.remove(1, 2); }},
        {"replace range", [](KDRBuffer& b, KDRBuffer const& o) { b.replace(1, 2, o); }},
        {"replace range by itself", [](KDRBuffer& b, KDRBuffer const&) { b.replace(1, 2, b); }},
        {"replace range by its own",
         [](KDRBuffer& b, KDRBuffer const&) { b.replace(1, 2, b.constData(), 9); }},
        {"replace range by less", [](KDRBuffer& b, KDRBuffer const&) { b.replace(1, 2, "x"); }},
        {"replace range by as much", [](KDRBuffer& b, KDRBuffer const&) { b.replace(1, 1, "x"); }},
        {"replace range behind",
         [](KDRBuffer& b, KDRBuffer const& o) { b.replace(2 * many, 2, o); }},
        {"replace byte", [](KDRBuffer& b, KDRBuffer const& o) { b.replace('a', o); }},
        {"replace byte by byte", [](KDRBuffer& b, KDRBuffer const&) { b.replace('a', 'b'); }},
        {"replace", [](KDRBuffer& b, KDRBuffer const& o) { b.replace("a", o); }},
        {"replace nothing", [](KDRBuffer& b, KDRBuffer const& o) { b.replace("", o); }},
        {"replace by less", [](KDRBuffer& b, KDRBuffer const&) { b.replace("aa", "b"); }},
        {"fill", [](KDRBuffer& b, KDRBuffer const&) { b.fill('x'); }},
        {"fill more", [](KDRBuffer& b, KDRBuffer const&) { b.fill('x', 2 * many); }},
        {"truncate", [](KDRBuffer& b, KDRBuffer const&) { b.truncate(5); }},
        {"reserve", [](KDRBuffer& b, KDRBuffer const&) { b.reserve(2 * many); }},
        {"assignment", [](KDRBuffer& b, KDRBuffer const&) { b = "abc"; }},
    };
    expectAllKept(changes, KDRBuffer(many, 'a'), KDRBuffer("some other bytes"));
    KDRBuffer const bytes(many, 'a');
    expectAllKept(changes, KDRBuffer::fromRawData(bytes.constData(), many), KDRBuffer("other"));
}

TEST(MallocFailures, LeaveTheBytesAsTheyWereWhereTheyReplaceThemselves)
{
    static Change<KDRBuffer> const changes[] = {
        {"replace by itself", [](KDRBuffer& b, KDRBuffer const&) { b.replace("a", b); }},
        {"replace itself", [](KDRBuffer& b, KDRBuffer const& o) { b.replace(b, o); }},
    };
    expectAllKept(changes, KDRBuffer(100, 'a'), KDRBuffer(200, 'x'));
}

template <class Array, class Value>
void expectArrayKept(Array const& start, Value const& value)
{
    using Edit = void (*)(Array&, Value const&);
    Edit const edits[] = {[](Array& a, Value const& v) { a.push_back(v); },
                          [](Array& a, Value const&) { a.push_back(a); },
                          [](Array& a, Value const& v) { a.insert(1, v); },
                          [](Array& a, Value const& v) { a.replace(1, v); },
                          [](Array& a, Value const&) { a.removeAt(1); },
                          [](Array& a, Value const&) { a.swap(0, 1); }};
    for (Edit const edit : edits) {
        bool failed = true;
        for (int successes = 0; failed; ++successes) {
            Array array(start);
            memory::FailOnce few(successes);
            bool thrown = false;
            try {
                edit(array, value);
            } catch (std::bad_alloc const&) {
                thrown = true;
            }
            failed = few.end();
            ASSERT_EQ(thrown, failed);
            if (!thrown)
                continue;
            ASSERT_EQ(array.length(), start.length());
            for (int i = 0; i < start.length(); ++i) {
                Value mine;
                Value old;
                ASSERT_TRUE(array.select(i, &mine) && start.select(i, &old));
                ASSERT_TRUE(isSame(mine, old));
            }
        }
    }
}

TEST(MallocFailures, LeaveTheArraysAsTheyWere)
{
    expectArrayKept(KDRString("a,b,c").split(KDRChar(',')), KDRString("x"));
    KDRBufferArray buffers;
    for (char const* const bytes : {"a", "b", "c"})
        buffers.push_back(KDRBuffer(bytes));
    expectArrayKept(buffers, KDRBuffer("x"));
}

TEST(MallocFailures, LeaveNoHolderWithoutItsText)
{
    KDRString const text("some %1");
    bool failed = true;
    for (int successes = 0; failed; ++successes) {
        memory::FailOnce few(successes);
        bool thrown = false;
        try {
            text.toUpper();
        } catch (std::bad_alloc const&) {
            thrown = true;
        }
        failed = few.end();
        EXPECT_EQ(thrown, failed) << successes;
    }
    EXPECT_EQ(text.toUpper(), KDRString("SOME %1"));
}

} // namespace
