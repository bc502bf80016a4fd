// Random operations on a buffer and on a QByteArray must agree. The few calls on which Qt does not
// end or writes out of bounds are left out here and stated by the buffer's other tests.

#include <kdrdata/text/kdrbuffer.h>

#include "../support/qtprinters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>

namespace {

constexpr unsigned seed = 31415926;

class Source
{
public:
    explicit Source(unsigned start) : m_random(start) {}

    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned int>(bound)); }

    char byte()
    {
        static constexpr char common[] = {'a', 'b', 'A', ' ', '\t', '\0', '%', '4', '1', '\xE4'};
        return below(4) == 0 ? static_cast<char>(below(256))
                             : common[below(static_cast<int>(sizeof common))];
    }

    // Null, empty, or a few bytes with zeros among them.
    QByteArray bytes()
    {
        int const size = below(8) - 1;
        if (size < 0)
            return QByteArray();
        QByteArray result("");
        for (int i = 0; i < size; ++i)
            result.append(byte());
        return result;
    }

    // A position or count around those of the buffer, or an absurd one.
    int number(int size)
    {
        switch (below(12)) {
        case 0:
            return INT_MAX;
        case 1:
            return INT_MIN;
        case 2:
            return -1;
        default:
            return below(size + 6) - 3;
        }
    }

    // The same, but none that asks for gigabytes.
    int modestNumber(int size) { return std::clamp(number(size), -5, size + 5); }

private:
    std::mt19937 m_random;
};

KDRBuffer bufferOf(QByteArray const& bytes)
{
    return bytes.isNull() ? KDRBuffer() : KDRBuffer(bytes.constData(), bytes.size());
}

QByteArray valueOf(KDRBuffer const& buffer)
{
    return buffer.isNull() ? QByteArray() : QByteArray(buffer.constData(), buffer.size());
}

void expectSame(KDRBuffer const& ours, QByteArray const& theirs)
{
    ASSERT_EQ(ours.size(), theirs.size());
    ASSERT_EQ(ours.isNull(), theirs.isNull());
    ASSERT_EQ(valueOf(ours), theirs);
}

void expectSameAnswers(Source& source, KDRBuffer const& ours, QByteArray const& theirs)
{
    QByteArray const needle = source.bytes();
    KDRBuffer const ourNeedle = bufferOf(needle);
    char const* const text = needle.constData();
    char const ch = source.byte();
    int const n = source.number(theirs.size());
    int const m = source.number(theirs.size());
    ASSERT_EQ(ours.contains(ourNeedle), theirs.contains(needle));
    ASSERT_EQ(ours.contains(text), theirs.contains(text));
    ASSERT_EQ(ours.contains(ch), theirs.contains(ch));
    ASSERT_EQ(ours.indexOf(ourNeedle, n), theirs.indexOf(needle, n));
    ASSERT_EQ(ours.indexOf(text, n), theirs.indexOf(text, n));
    ASSERT_EQ(ours.indexOf(ch, n), theirs.indexOf(ch, n));
    ASSERT_EQ(ours.lastIndexOf(ourNeedle, n), theirs.lastIndexOf(needle, n));
    ASSERT_EQ(ours.lastIndexOf(text, n), theirs.lastIndexOf(text, n));
    ASSERT_EQ(ours.lastIndexOf(ch, n), theirs.lastIndexOf(ch, n));
    ASSERT_EQ(ours.lastIndexOf('\0', theirs.size()), theirs.lastIndexOf('\0', theirs.size()));
    ASSERT_EQ(ours.startsWith(ourNeedle), theirs.startsWith(needle));
    ASSERT_EQ(ours.startsWith(text), theirs.startsWith(text));
    ASSERT_EQ(ours.startsWith(ch), theirs.startsWith(ch));
    ASSERT_EQ(ours.endsWith(ourNeedle), theirs.endsWith(needle));
    ASSERT_EQ(ours.endsWith(text), theirs.endsWith(text));
    ASSERT_EQ(ours.endsWith(ch), theirs.endsWith(ch));
    ASSERT_EQ(ours.count(ch), theirs.count(ch));
    if (!needle.isEmpty()) {
        ASSERT_EQ(ours.count(ourNeedle), theirs.count(needle));
    }
    if (*text != '\0') {
        ASSERT_EQ(ours.count(text), theirs.count(text));
    }
    expectSame(ours.left(n), theirs.left(n));
    expectSame(ours.right(n), theirs.right(n));
    expectSame(ours.mid(n, m), theirs.mid(n, m));
    expectSame(ours.trimmed(), theirs.trimmed());
    expectSame(ours.simplified(), theirs.simplified());
    expectSame(ours.toLower(), theirs.toLower());
    expectSame(ours.toUpper(), theirs.toUpper());
    int const few = source.below(4);
    expectSame(ours.repeated(few), theirs.repeated(few));
    int const width = source.modestNumber(theirs.size());
    bool const cut = source.below(2) == 0;
    expectSame(ours.leftJustified(width, ch, cut), theirs.leftJustified(width, ch, cut));
    expectSame(ours.rightJustified(width, ch, cut), theirs.rightJustified(width, ch, cut));
    int const options = source.below(4);
    auto const ourOptions = static_cast<KDRBuffer::KDRBase64Option>(options);
    auto const theirOptions = QByteArray::Base64Options(QFlag(options));
    expectSame(ours.toBase64(), theirs.toBase64());
    expectSame(ours.toBase64(ourOptions), theirs.toBase64(theirOptions));
    expectSame(KDRBuffer::fromBase64(ours), QByteArray::fromBase64(theirs));
    expectSame(KDRBuffer::fromBase64(ours, ourOptions),
               QByteArray::fromBase64(theirs, theirOptions));
    expectSame(KDRBuffer::fromHex(ours), QByteArray::fromHex(theirs));
    expectSame(KDRBuffer::fromPercentEncoding(ours, ch),
               QByteArray::fromPercentEncoding(theirs, ch));
    expectSame(ours.toPercentEncoding(ourNeedle, KDRBuffer("ab"), '_'),
               theirs.toPercentEncoding(needle, "ab", '_'));
    int const base = source.below(3) * 8;
    bool ourOk = false;
    bool theirOk = false;
    ASSERT_EQ(ours.toShort(&ourOk, base), theirs.toShort(&theirOk, base));
    ASSERT_EQ(ourOk, theirOk);
}

// Qt writes in front of the bytes where it replaces as many as it inserts.
int inBounds(int pos, int len, int alen) { return pos < 0 && len > 0 && len == alen ? 0 : pos; }

void changeBoth(Source& source, KDRBuffer& ours, QByteArray& theirs)
{
    QByteArray const bytes = source.bytes();
    KDRBuffer const ourBytes = bufferOf(bytes);
    QByteArray const after = source.bytes();
    KDRBuffer const ourAfter = bufferOf(after);
    char const* const text = bytes.constData();
    char const ch = source.byte();
    int const length = source.below(bytes.size() + 1);
    int const i = source.modestNumber(theirs.size());
    int const n = source.number(theirs.size());
    int const count = source.below(6) - 2;
    auto const both = [&](auto const& call) {
        call(ours, ourBytes, ourAfter);
        call(theirs, bytes, after);
    };
    // The same call on both sides: b is the buffer, s and a are the random bytes.
    switch (source.below(38)) {
    case 0:
        return both([&](auto& b, auto const& s, auto const&) { b.append(s); });
    case 1:
        return both([&](auto& b, auto const&, auto const&) { b.append(text); });
    case 2:
        return both([&](auto& b, auto const&, auto const&) { b.append(text, length); });
    case 3:
        return both([&](auto& b, auto const&, auto const&) { b.append(ch); });
    case 4:
        return both([&](auto& b, auto const&, auto const&) { b.append(count, ch); });
    case 5:
        return both([&](auto& b, auto const& s, auto const&) { b.prepend(s); });
    case 6:
        return both([&](auto& b, auto const&, auto const&) { b.prepend(text); });
    case 7:
        return both([&](auto& b, auto const&, auto const&) { b.prepend(text, length); });
    case 8:
        return both([&](auto& b, auto const&, auto const&) { b.prepend(ch); });
    case 9:
        return both([&](auto& b, auto const&, auto const&) { b.prepend(count, ch); });
    case 10:
        return both([&](auto& b, auto const& s, auto const&) { b.insert(i, s); });
    case 11:
        return both([&](auto& b, auto const&, auto const&) { b.insert(i, count, ch); });
    case 12:
        return both([&](auto& b, auto const&, auto const&) { b.insert(i, text); });
    case 13:
        return both([&](auto& b, auto const&, auto const&) { b.insert(i, text, length); });
    case 14:
        return both([&](auto& b, auto const&, auto const&) { b.insert(i, ch); });
    case 15:
        return both([&](auto& b, auto const& s, auto const&) { b += s; });
    case 16:
        return both([&](auto& b, auto const&, auto const&) { b += text; });
    case 17:
        return both([&](auto& b, auto const&, auto const&) { b += ch; });
    case 18:
        return both([&](auto& b, auto const& s, auto const&) { b.push_back(s); });
    case 19:
        return both([&](auto& b, auto const&, auto const&) { b.push_front(ch); });
    case 20:
        return both([&](auto& b, auto const&, auto const&) { b.remove(n, count); });
    case 21:
        return both([&](auto& b, auto const&, auto const&) { b.replace(ch, text); });
    case 22:
        return both([&](auto& b, auto const& s, auto const&) { b.replace(ch, s); });
    case 23:
        return both([&](auto& b, auto const&, auto const&) { b.replace(ch, 'x'); });
    case 24:
        return both([&](auto& b, auto const&, auto const& a) { b.replace(text, a.constData()); });
    case 25:
        return both([&](auto& b, auto const& s, auto const& a) { b.replace(s, a); });
    case 26:
        return both([&](auto& b, auto const& s, auto const& a) { b.replace(s, a.constData()); });
    case 27:
        return both([&](auto& b, auto const&, auto const& a) { b.replace(text, a); });
    case 28:
        return both([&](auto& b, auto const&, auto const& a) {
            b.replace(text, length, a.constData(), a.size());
        });
    case 29:
        return both([&](auto& b, auto const&, auto const&) { b.fill(ch, count); });
    case 30:
        return both([&](auto& b, auto const&, auto const&) { b.chop(n); });
    case 31:
        return both([&](auto& b, auto const&, auto const&) { b.truncate(n); });
    case 32:
        return both([&](auto& b, auto const&, auto const&) {
            b.resize(std::min(b.size(), std::max(i, 0)));
        });
    case 34:
        return both([&](auto& b, auto const&, auto const& a) {
            b.replace(inBounds(i, n, a.size()), n, a);
        });
    case 35:
        return both([&](auto& b, auto const&, auto const& a) {
            int const alen = static_cast<int>(qstrlen(a.constData()));
            b.replace(inBounds(i, n, alen), n, a.constData());
        });
    case 36: {
        int const alen = source.below(after.size() + 3) - 2;
        int const len = n == alen ? std::max(n, 0) : n;
        return both([&](auto& b, auto const&, auto const& a) {
            b.replace(inBounds(i, len, std::max(alen, 0)), len, a.constData(), alen);
        });
    }
    case 33:
        return both([&](auto& b, auto const&, auto const&) { b = text; });
    default:
        return both([&](auto& b, auto const& s, auto const&) { b = s; });
    }
}

TEST(BufferDifferential, AgreesWithQByteArrayUnderRandomOperations)
{
    Source source(seed);
    KDRBuffer ours;
    QByteArray theirs;
    KDRBuffer sharer;
    QByteArray shared;
    for (int step = 0; step < 24000; ++step) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
        changeBoth(source, ours, theirs);
        ASSERT_NO_FATAL_FAILURE(expectSame(ours, theirs));
        ASSERT_NO_FATAL_FAILURE(expectSame(sharer, shared)) << "a sharer was changed";
        if (step % 8 == 0) {
            ASSERT_NO_FATAL_FAILURE(expectSameAnswers(source, ours, theirs));
            sharer = ours;
            shared = theirs;
        }
        if (theirs.size() > 60) {
            ours.truncate(5);
            theirs.truncate(5);
        }
    }
}

} // namespace
