#include <kdrdata/text/kdrstringarray.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/kdrregexp.h>

#include <gtest/gtest.h>

#include <QtCore/QRegExp>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <iterator>
#include <random>
#include <vector>

#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

// KDRStringArray beside QStringList under random operations on a pool of lists that share storage.

namespace {

struct Pair
{
    KDRStringArray ours;
    QStringList qts;
};

void expectSameText(KDRString const& ours, QString const& qts)
{
    ASSERT_EQ(KDRInternal::wrapped(ours), qts);
    ASSERT_EQ(ours.isNull(), qts.isNull());
}

class StringArrayDifferential : public testing::Test
{
protected:
    // Few code units, so that equal texts meet.
    QString text()
    {
        static unsigned short const units[] = {0, 'a', 'A', 'b', ',', 0x20AC, 0xD83D, 0xDE00};
        if (chance(6))
            return chance(2) ? QString() : QString("");
        QString result;
        for (int length = pick(0, 3); length > 0; --length)
            result += QChar(units[pick(0, static_cast<int>(std::size(units)) - 1)]);
        return result;
    }

    // Mostly in or near the list, sometimes absurd.
    int position(int length)
    {
        static int const absurd[] = {-2147483647 - 1, -2147483647, -1000, 1000, 2147483647};
        return chance(8) ? absurd[pick(0, 4)] : pick(-length - 2, length + 2);
    }

    int pick(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); }
    bool chance(int oneIn) { return pick(1, oneIn) == 1; }
    Pair& any(std::vector<Pair>& pool)
    {
        return pool[static_cast<std::size_t>(pick(0, static_cast<int>(pool.size()) - 1))];
    }

    void change(Pair& target, Pair const& source)
    {
        int const length = target.qts.size();
        int const index = position(length);
        int const other = position(length);
        bool const inside = index >= 0 && index < length;
        bool const otherInside = other >= 0 && other < length;
        QString const value = text();
        switch (pick(0, 9)) {
        case 0:
        case 1:
            target.ours.push_back(handleOf(value));
            target.qts.append(value);
            break;
        case 2:
            ASSERT_EQ(target.ours.insert(index, handleOf(value)), inside || index == length);
            if (inside || index == length)
                target.qts.insert(index, value);
            break;
        case 3:
            ASSERT_EQ(target.ours.removeAt(index), inside);
            if (inside)
                target.qts.removeAt(index);
            break;
        case 4:
            ASSERT_EQ(target.ours.replace(index, handleOf(value)), inside);
            if (inside)
                target.qts.replace(index, value);
            break;
        case 5:
            ASSERT_EQ(target.ours.swap(index, other), inside && otherInside);
            if (inside && otherInside)
                target.qts.swapItemsAt(index, other);
            break;
        case 6:
            if (length + source.qts.size() <= 24) {
                target.ours.push_back(source.ours);
                target.qts.append(QStringList(source.qts));
            }
            break;
        case 7:
            target.ours = source.ours;
            target.qts = source.qts;
            break;
        case 8: {
            KDRStringArray const copy(source.ours);
            target.ours = copy;
            target.qts = source.qts;
            break;
        }
        default:
            if (chance(4)) {
                target.ours.clear();
                target.qts.clear();
            }
            break;
        }
    }

    void read(Pair& target)
    {
        int const length = target.qts.size();
        int const index = position(length);
        bool const inside = index >= 0 && index < length;
        QString const value = text();
        switch (pick(0, 5)) {
        case 0: {
            KDRString out("untouched");
            ASSERT_EQ(target.ours.select(index, &out), inside);
            expectSameText(out, inside ? target.qts.at(index) : QString("untouched"));
            break;
        }
        case 1:
            if (inside)
                expectSameText(target.ours[index], target.qts.at(index));
            break;
        case 2:
            ASSERT_EQ(target.ours.indexOf(handleOf(value), index),
                      target.qts.indexOf(value, index));
            break;
        case 3:
            search(target, index);
            break;
        case 4: {
            QChar const separator = value.isEmpty() ? QChar(',') : value.at(0);
            expectSameText(target.ours.join(KDRChar(separator.unicode())),
                           separator.isNull() ? target.qts.join(QString())
                                              : target.qts.join(separator));
            break;
        }
        default:
            expectSameText(target.ours.join(handleOf(value)), target.qts.join(value));
            break;
        }
    }

    // Both sides start without a match, so that the state afterwards is all the search's.
    void search(Pair const& target, int from)
    {
        static char const* const patterns[] = {"a*", "(a|b)(.*)", "[^,]+(,?)", ".", "", "(a"};
        QString const pattern = patterns[pick(0, 5)];
        QRegExp qts(pattern);
        KDRRegExp ours(handleOf(pattern));
        KDRRegExp const& constant = ours;
        int const found =
            chance(2) ? target.ours.indexOf(ours, from) : target.ours.indexOf(constant, from);
        ASSERT_EQ(found, target.qts.indexOf(qts, from));
        ASSERT_EQ(ours.matchedLength(), qts.matchedLength());
        for (int nth = 0; nth <= qts.captureCount(); ++nth) {
            ASSERT_EQ(ours.pos(nth), qts.pos(nth));
            ASSERT_NO_FATAL_FAILURE(expectSameText(ours.cap(nth), qts.cap(nth)));
        }
    }

    static void expectSame(Pair const& pair)
    {
        ASSERT_EQ(pair.ours.length(), pair.qts.size());
        for (int i = 0; i < pair.qts.size(); ++i) {
            KDRString element;
            ASSERT_TRUE(pair.ours.select(i, &element));
            ASSERT_NO_FATAL_FAILURE(expectSameText(element, pair.qts.at(i)));
        }
    }

    void run(unsigned int seed, int steps)
    {
        random.seed(seed);
        std::vector<Pair> pool(4);
        for (int step = 0; step < steps; ++step) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
            Pair& target = any(pool);
            if (chance(2))
                ASSERT_NO_FATAL_FAILURE(change(target, any(pool)));
            else
                ASSERT_NO_FATAL_FAILURE(read(target));
            // A change that shows in a sharer shows in one of the others.
            if (step % 8 == 0) {
                for (Pair const& pair : pool)
                    ASSERT_NO_FATAL_FAILURE(expectSame(pair));
            }
        }
        for (Pair const& pair : pool)
            ASSERT_NO_FATAL_FAILURE(expectSame(pair));
    }

    std::mt19937 random;
};

TEST_F(StringArrayDifferential, AgreesWithQStringList) { run(20240301, 24000); }

} // namespace
