#include <kdrdata/text/text.h>

#include <kdrdata/internal/kdrinternal_p.h>

#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <QtCore/QRegExp>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <iterator>
#include <random>
#include <vector>

// KDRString beside QString under random operations on a pool of strings that share texts.

namespace {

struct Pair
{
    KDRString ours;
    QString qts;
};

void expectSame(KDRString const& ours, QString const& qts)
{
    ASSERT_EQ(KDRInternal::wrapped(ours), qts);
    ASSERT_EQ(ours.isNull(), qts.isNull());
}

void expectSame(KDRStringArray const& ours, QStringList const& qts)
{
    ASSERT_EQ(ours.length(), qts.size());
    for (int i = 0; i < qts.size(); ++i)
        ASSERT_NO_FATAL_FAILURE(expectSame(ours[i], qts.at(i)));
}

class StringOperationsDifferential : public testing::Test
{
protected:
    int pick(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); }
    bool chance(int oneIn) { return pick(1, oneIn) == 1; }

    // Few code units, so that texts occur in one another.
    QString text()
    {
        static unsigned short const units[] = {0,      'a',    'A',    'b', 'b',    ',',   ' ',
                                               '\t',   '%',    '1',    '2', 0x00E9, 0xDF,  0x20AC,
                                               0xD83D, 0xDE00, 0xD800, '-', 0x0130, 0xFEFF};
        if (chance(8))
            return chance(2) ? QString() : QString("");
        if (chance(8))
            return QString("%1 a%2,%1");
        QString result;
        for (int length = pick(0, 4); length > 0; --length)
            result += QChar(units[pick(0, static_cast<int>(std::size(units)) - 1)]);
        return result;
    }

    // Mostly in or near the text, sometimes absurd.
    int position(int size)
    {
        static int const absurd[] = {INT_MIN, INT_MIN + 1, -100000, 100000, INT_MAX - 1, INT_MAX};
        return chance(8) ? absurd[pick(0, 5)] : pick(-size - 2, size + 2);
    }

    QString pattern()
    {
        static char const* const patterns[] = {"",    "a",      "b+",       "[ab]*", "(a)(b?)",
                                               "x*",  "(.)\\1", "^.",       ".$",    "a(",
                                               "\\d", "\\s+",   "(?!a)(.)", "[^,]+", "\\b"};
        return patterns[pick(0, static_cast<int>(std::size(patterns)) - 1)];
    }

    void change(Pair& target, QString const& value)
    {
        KDRString const other = handleOf(value);
        int const size = target.qts.size();
        int const at = position(size);
        int const n = position(size);
        auto const sensitive = chance(2);
        auto const ourCase =
            sensitive ? KDRString::KDRCaseSensitive : KDRString::KDRCaseInsensitive;
        auto const qtsCase = sensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
        int const near = std::min(at, size + 20);
        QByteArray const utf8 = value.toUtf8();
        KDRBuffer const buffer =
            value.isNull() ? KDRBuffer() : KDRBuffer(utf8.constData(), utf8.size());
        QString const expression = pattern();
        switch (pick(0, 13)) {
        case 0:
            return expectSame(target.ours.insert(near, other), target.qts.insert(near, value));
        case 1:
            return expectSame(target.ours.insert(near, utf8.constData()),
                              target.qts.insert(near, utf8.constData()));
        case 2:
            return expectSame(target.ours.insert(near, buffer),
                              target.qts.insert(near, value.isNull() ? QByteArray() : utf8));
        case 3:
            target.ours.push_back(other);
            target.qts.append(value);
            break;
        case 4:
            target.ours.push_front(other);
            target.qts.prepend(value);
            break;
        case 5:
            return expectSame(target.ours.remove(at, n), target.qts.remove(at, n));
        case 6:
            return expectSame(target.ours.remove(other, ourCase),
                              target.qts.remove(value, qtsCase));
        case 7: {
            // With negative counts Qt repeats what lies before, if there is as much.
            int const count = std::max(n, -std::max(at, 0));
            return expectSame(target.ours.replace(at, count, other),
                              target.qts.replace(at, count, value));
        }
        case 8: {
            QString const after = text();
            return expectSame(target.ours.replace(other, handleOf(after), ourCase),
                              target.qts.replace(value, after, qtsCase));
        }
        case 9:
            return expectSame(target.ours.replace(KDRRegExp(handleOf(expression)), other),
                              target.qts.replace(QRegExp(expression), value));
        case 10:
            return expectSame(target.ours.remove(KDRRegExp(handleOf(expression))),
                              target.qts.replace(QRegExp(expression), QString()));
        case 11:
            target.ours = other;
            target.qts = value;
            break;
        case 12:
            target.ours.truncate(at);
            target.qts.truncate(at);
            break;
        default:
            target.ours.push_back(target.ours);
            target.qts.append(target.qts);
            break;
        }
        expectSame(target.ours, target.qts);
    }

    void search(Pair const& target, QString const& value)
    {
        KDRString const other = handleOf(value);
        int const from = position(target.qts.size());
        auto const sensitive = chance(2);
        auto const ourCase =
            sensitive ? KDRString::KDRCaseSensitive : KDRString::KDRCaseInsensitive;
        auto const qtsCase = sensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
        ASSERT_EQ(target.ours.contains(other, ourCase), target.qts.contains(value, qtsCase));
        // From just before the start Qt would read what lies before the text.
        int const start = from < -target.qts.size() && from > -100000 ? 0 : from;
        ASSERT_EQ(target.ours.indexOf(other, start, ourCase),
                  target.qts.indexOf(value, start, qtsCase));
        ASSERT_EQ(target.ours.lastIndexOf(other, from, ourCase),
                  target.qts.lastIndexOf(value, from, qtsCase));
        ASSERT_EQ(target.ours.startsWith(other, ourCase), target.qts.startsWith(value, qtsCase));
        ASSERT_EQ(target.ours.endsWith(other, ourCase), target.qts.endsWith(value, qtsCase));
    }

    void match(Pair const& target)
    {
        QString const expression = pattern();
        KDRRegExp ours(handleOf(expression));
        KDRRegExp const& constant = ours;
        QRegExp qts(expression);
        int const from = position(target.qts.size());
        switch (pick(0, 4)) {
        case 0:
            ASSERT_EQ(target.ours.contains(ours), target.qts.indexOf(qts, 0) != -1);
            break;
        case 1:
            ASSERT_EQ(target.ours.indexOf(ours, from), target.qts.indexOf(qts, from));
            break;
        case 2:
            ASSERT_EQ(target.ours.indexOf(constant, from), target.qts.indexOf(qts, from));
            break;
        case 3:
            ASSERT_EQ(target.ours.lastIndexOf(ours, from), target.qts.lastIndexOf(qts, from));
            break;
        default:
            ASSERT_EQ(target.ours.lastIndexOf(constant, from), target.qts.lastIndexOf(qts, from));
            break;
        }
        ASSERT_EQ(ours.matchedLength(), qts.matchedLength());
        for (int nth = 0; nth <= qts.captureCount(); ++nth) {
            ASSERT_EQ(ours.pos(nth), qts.pos(nth));
            ASSERT_NO_FATAL_FAILURE(expectSame(ours.cap(nth), qts.cap(nth)));
        }
    }

    void derive(Pair const& target)
    {
        int const size = target.qts.size();
        int const at = position(size);
        int const n = position(size);
        int const times = std::min(n, 30);
        switch (pick(0, 7)) {
        case 0:
            return expectSame(target.ours.left(n), target.qts.left(n));
        case 1:
            return expectSame(target.ours.right(n), target.qts.right(n));
        case 2:
            return expectSame(target.ours.mid(at, n), target.qts.mid(at, n));
        case 3:
            return expectSame(target.ours.repeated(times), target.qts.repeated(times));
        case 4:
            return expectSame(target.ours.trimmed(), target.qts.trimmed());
        case 5:
            return expectSame(target.ours.simplified(), target.qts.simplified());
        case 6:
            return expectSame(target.ours.toLower(), target.qts.toLower());
        default:
            return expectSame(target.ours.toUpper(), target.qts.toUpper());
        }
    }

    void split(Pair const& target, QString const& value)
    {
        bool const keep = chance(2);
        auto const ourParts = keep ? KDRString::KDRKeepEmptyParts : KDRString::KDRSkipEmptyParts;
        auto const qtsParts = keep ? Qt::KeepEmptyParts : Qt::SkipEmptyParts;
        bool const sensitive = chance(2);
        auto const ourCase =
            sensitive ? KDRString::KDRCaseSensitive : KDRString::KDRCaseInsensitive;
        auto const qtsCase = sensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
        QChar const separator = value.isEmpty() ? QChar(',') : value.at(0);
        QString const expression = pattern();
        expectSame(target.ours.split(KDRChar(separator.unicode()), ourParts, ourCase),
                   target.qts.split(separator, qtsParts, qtsCase));
        expectSame(target.ours.split(handleOf(value), ourParts, ourCase),
                   target.qts.split(value, qtsParts, qtsCase));
        expectSame(target.ours.split(KDRRegExp(handleOf(expression)), ourParts),
                   target.qts.split(QRegExp(expression), qtsParts));
    }

    void format(QString const& value)
    {
        QString const qts = value + "%1";
        KDRString const ours = handleOf(qts);
        int const width = pick(-12, 12);
        int const base = pick(2, 36);
        int const precision = pick(-2, 20);
        QChar const fill(static_cast<unsigned short>(chance(2) ? '0' : 0x20AC));
        KDRChar const ourFill(fill.unicode());
        auto const bits = std::uniform_int_distribution<long long>(LLONG_MIN, LLONG_MAX)(random);
        auto const number = chance(3) ? bits : bits >> pick(32, 62);
        auto const natural = static_cast<unsigned long long>(number);
        double const real = static_cast<double>(number) / 4096.0;
        auto const formatted = [&](auto n, auto wide) {
            ASSERT_NO_FATAL_FAILURE(
                expectSame(ours.arg(n, width, base, ourFill), qts.arg(wide, width, base, fill)));
            KDRString set;
            expectSame(set.setNum(n, base), QString().setNum(wide, base));
        };
        auto const asShort = static_cast<short>(number);
        auto const asInt = static_cast<int>(number);
        auto const asUnsignedShort = static_cast<unsigned short>(number);
        auto const asUnsigned = static_cast<unsigned int>(number);
        formatted(asShort, qlonglong{asShort});
        formatted(asInt, qlonglong{asInt});
        formatted(static_cast<long>(number), qlonglong{number});
        formatted(number, qlonglong{number});
        formatted(asUnsignedShort, qulonglong{asUnsignedShort});
        formatted(asUnsigned, qulonglong{asUnsigned});
        formatted(static_cast<unsigned long>(natural), qulonglong{natural});
        formatted(natural, qulonglong{natural});
        for (char letter : {'g', 'f'}) {
            auto const ourFormat =
                letter == 'g' ? KDRString::KDRFormatGeneral : KDRString::KDRFormatFixed;
            expectSame(ours.arg(real, width, ourFormat, precision, ourFill),
                       qts.arg(real, width, letter, precision, fill));
            expectSame(KDRString().setNum(real, ourFormat, precision),
                       QString().setNum(real, letter, precision));
            auto const single = static_cast<float>(real);
            expectSame(KDRString().setNum(single, ourFormat, precision),
                       QString().setNum(static_cast<double>(single), letter, precision));
        }
        auto const latin1 = static_cast<char>(number);
        QChar const unit(static_cast<unsigned short>(number & 0xFF ? number : 0));
        expectSame(ours.arg(latin1, width, ourFill), qts.arg(latin1, width, fill));
        expectSame(ours.arg(KDRChar(unit.unicode()), width, ourFill),
                   unit.isNull() ? qts.arg(QString(""), width, fill) : qts.arg(unit, width, fill));
        expectSame(ours.arg(handleOf(value), width, ourFill), qts.arg(value, width, fill));
    }

    template <class Ours, class Qts>
    static void expectSameNumber(Ours const& ours, Qts const& qts)
    {
        bool ourOk = false;
        bool qtsOk = true;
        auto const ourNumber = ours(&ourOk);
        auto const qtsNumber = qts(&qtsOk);
        static_assert(std::is_same_v<decltype(ourNumber), decltype(qtsNumber)>);
        ASSERT_TRUE(ourNumber == qtsNumber || (ourNumber != ourNumber && qtsNumber != qtsNumber));
        ASSERT_EQ(ourOk, qtsOk);
    }

    void convert()
    {
        static char const* const pieces[] = {"1", "9",   "0",     "7f",        "-", "+",
                                             ".", "e",   "0x",    "inf",       " ", "z",
                                             "",  "nan", "99999", "4294967295"};
        QString qts;
        for (int count = pick(1, 4); count > 0; --count)
            qts += pieces[pick(0, static_cast<int>(std::size(pieces)) - 1)];
        KDRString const ours = handleOf(qts);
        static int const bases[] = {10, 16, 2, 36, 0, 8};
        int const base = bases[pick(0, 5)];
        SCOPED_TRACE(testing::Message() << testing::PrintToString(qts) << ", base " << base);
        expectSameNumber([&](bool* ok) { return ours.toDouble(ok); },
                         [&](bool* ok) { return qts.toDouble(ok); });
        expectSameNumber([&](bool* ok) { return ours.toFloat(ok); },
                         [&](bool* ok) { return qts.toFloat(ok); });
        expectSameNumber([&](bool* ok) { return ours.toLong(ok, base); },
                         [&](bool* ok) { return qts.toLong(ok, base); });
        expectSameNumber([&](bool* ok) { return ours.toLongLong(ok, base); },
                         [&](bool* ok) { return qts.toLongLong(ok, base); });
        expectSameNumber([&](bool* ok) { return ours.toUInt(ok, base); },
                         [&](bool* ok) { return qts.toUInt(ok, base); });
        expectSameNumber([&](bool* ok) { return ours.toULong(ok, base); },
                         [&](bool* ok) { return qts.toULong(ok, base); });
        expectSameNumber([&](bool* ok) { return ours.toULongLong(ok, base); },
                         [&](bool* ok) { return qts.toULongLong(ok, base); });
        expectSameNumber([&](bool* ok) { return ours.toUShort(ok, base); },
                         [&](bool* ok) { return qts.toUShort(ok, base); });
    }

    void step(std::vector<Pair>& pool)
    {
        Pair& target = pool[static_cast<std::size_t>(pick(0, static_cast<int>(pool.size()) - 1))];
        Pair& other = pool[static_cast<std::size_t>(pick(0, static_cast<int>(pool.size()) - 1))];
        // Part of what the text meets is out of the pool, so that texts are shared.
        QString const value = chance(3) && other.qts.size() < 12 ? other.qts : text();
        SCOPED_TRACE(testing::PrintToString(target.qts) + " and " + testing::PrintToString(value));
        switch (pick(0, 9)) {
        case 0:
            return search(target, value);
        case 1:
            return match(target);
        case 2:
            return derive(target);
        case 3:
            return split(target, value);
        case 4:
            return format(value);
        case 5:
            return convert();
        case 6:
            target.ours = other.ours;
            target.qts = other.qts;
            return;
        default:
            ASSERT_NO_FATAL_FAILURE(change(target, value));
            // Keeps the texts short.
            if (target.qts.size() > 60) {
                target.ours.truncate(5);
                target.qts.truncate(5);
            }
            return;
        }
    }

    void run(unsigned int seed, int steps)
    {
        random.seed(seed);
        std::vector<Pair> pool(5);
        for (int i = 0; i < steps; ++i) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << i);
            step(pool);
            if (HasFatalFailure())
                return;
            // A change that shows in a sharer shows in one of the others.
            if (i % 8 == 0) {
                for (Pair const& pair : pool)
                    ASSERT_NO_FATAL_FAILURE(expectSame(pair.ours, pair.qts));
            }
        }
    }

    std::mt19937 random;
};

TEST_F(StringOperationsDifferential, AgreesWithQString) { run(20240302, 12000); }
TEST_F(StringOperationsDifferential, AgreesWithQStringFromAnotherSeed) { run(20240303, 12000); }

} // namespace
