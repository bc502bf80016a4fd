// Buffers over bytes that nothing readable lies before or behind: whatever is asked of them, not a
// byte beside them is read.

#include <kdrdata/text/text.h>

#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <stdexcept>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

namespace {

enum class Side { Front, Back };

// A copy of bytes in a page between two that cannot be read, touching one of them.
class GuardedBytes
{
public:
    GuardedBytes(std::string const& bytes, Side side)
        : m_page(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))),
          m_memory(mmap(nullptr, 3 * m_page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))
    {
        char* const page = static_cast<char*>(m_memory) + m_page;
        if (m_memory == MAP_FAILED || mprotect(page, m_page, PROT_READ | PROT_WRITE) != 0)
            throw std::runtime_error("no guarded page");
        // Zeros would end what runs on beside the bytes.
        std::memset(page, 'z', m_page);
        char* const at = side == Side::Front ? page : page + m_page - bytes.size();
        std::memcpy(at, bytes.data(), bytes.size());
        mprotect(page, m_page, PROT_READ);
        m_bytes = at;
    }
    ~GuardedBytes() { munmap(m_memory, 3 * m_page); }
    GuardedBytes(GuardedBytes const&) = delete;
    GuardedBytes& operator=(GuardedBytes const&) = delete;

    char const* get() const { return m_bytes; }

private:
    std::size_t m_page;
    void* m_memory;
    char const* m_bytes = nullptr;
};

void expectSame(KDRBuffer const& raw, KDRBuffer const& owned)
{
    EXPECT_EQ(bytesOf(raw), bytesOf(owned));
}

class BufferGuardedBytes : public testing::TestWithParam<Side>
{
protected:
    // Runs @p body with every buffer of the corpus, over guarded bytes and of its own.
    template <class Body>
    static void forEach(Body const& body)
    {
        for (std::string const& bytes :
             {std::string("a"), std::string("abcab"), std::string("0x1"), std::string(" a b "),
              std::string("ab\0cd", 5), std::string("YWI="), std::string(600, 'a') + "needle"}) {
            SCOPED_TRACE(bytes.substr(0, 10));
            GuardedBytes const guarded(bytes, GetParam());
            int const size = static_cast<int>(bytes.size());
            KDRBuffer raw = KDRBuffer::fromRawData(guarded.get(), size);
            KDRBuffer owned(bytes.data(), size);
            body(raw, owned);
        }
        // Bytes that were all cut off.
        GuardedBytes const guarded("x", GetParam());
        KDRBuffer raw = KDRBuffer::fromRawData(guarded.get(), 1);
        raw.truncate(0);
        KDRBuffer empty("");
        SCOPED_TRACE("nothing left");
        body(raw, empty);
    }
};

TEST_P(BufferGuardedBytes, AreSearchedForwards)
{
    forEach([](KDRBuffer const& raw, KDRBuffer const& owned) {
        int const size = raw.size();
        for (char const* const needle : {"", "a", "ab", "b", "needle", "aaaaaaa", "abcabcabc"})
            for (int const from : {0, 1, -1, size - 1, size, size + 1, -size, INT_MAX, INT_MIN}) {
                SCOPED_TRACE(testing::Message() << needle << " from " << from);
                EXPECT_EQ(raw.indexOf(needle, from), owned.indexOf(needle, from));
                EXPECT_EQ(raw.indexOf(KDRBuffer(needle), from),
                          owned.indexOf(KDRBuffer(needle), from));
                EXPECT_EQ(raw.indexOf(*needle, from), owned.indexOf(*needle, from));
                EXPECT_EQ(raw.contains(needle), owned.contains(needle));
                EXPECT_EQ(raw.count(needle), owned.count(needle));
                EXPECT_EQ(raw.startsWith(needle), owned.startsWith(needle));
                EXPECT_EQ(raw.endsWith(needle), owned.endsWith(needle));
            }
    });
}

TEST_P(BufferGuardedBytes, AreSearchedBackwards)
{
    forEach([](KDRBuffer const& raw, KDRBuffer const& owned) {
        int const size = raw.size();
        std::string const longer(static_cast<std::size_t>(size) + 1, 'a');
        for (char const* const needle : {"", "a", "ab", "b", "needle", longer.c_str()})
            for (int const from : {0, 1, -1, size - 1, size, size + 1, -size, INT_MAX, INT_MIN}) {
                SCOPED_TRACE(testing::Message() << needle << " from " << from);
                EXPECT_EQ(raw.lastIndexOf(needle, from), owned.lastIndexOf(needle, from));
                EXPECT_EQ(raw.lastIndexOf(KDRBuffer(needle), from),
                          owned.lastIndexOf(KDRBuffer(needle), from));
                if (*needle != '\0') {
                    EXPECT_EQ(raw.lastIndexOf(*needle, from), owned.lastIndexOf(*needle, from));
                }
            }
        // A buffer's own bytes have a zero behind them, which is found there.
        EXPECT_EQ(owned.lastIndexOf('\0', size), size);
        EXPECT_EQ(raw.lastIndexOf('\0', size), raw.lastIndexOf('\0', size - 1));
        EXPECT_EQ(raw.lastIndexOf(KDRBuffer(1, '\0'), size), raw.lastIndexOf('\0', size - 1));
    });
}

TEST_P(BufferGuardedBytes, AreCopiedAndConverted)
{
    forEach([](KDRBuffer const& raw, KDRBuffer const& owned) {
        int const size = raw.size();
        for (int const n : {0, 1, size - 1, size, size + 1}) {
            expectSame(raw.left(n), owned.left(n));
            expectSame(raw.right(n), owned.right(n));
            expectSame(raw.mid(n), owned.mid(n));
            expectSame(raw.leftJustified(n, '.'), owned.leftJustified(n, '.'));
            expectSame(raw.rightJustified(n, '.', true), owned.rightJustified(n, '.', true));
        }
        expectSame(raw.repeated(3), owned.repeated(3));
        expectSame(raw.trimmed(), owned.trimmed());
        expectSame(raw.simplified(), owned.simplified());
        expectSame(raw.toLower(), owned.toLower());
        expectSame(raw.toUpper(), owned.toUpper());
        expectSame(raw.toBase64(), owned.toBase64());
        expectSame(KDRBuffer::fromBase64(raw), KDRBuffer::fromBase64(owned));
        expectSame(KDRBuffer::fromHex(raw), KDRBuffer::fromHex(owned));
        expectSame(KDRBuffer::fromPercentEncoding(raw), KDRBuffer::fromPercentEncoding(owned));
        expectSame(raw.toPercentEncoding(), owned.toPercentEncoding());
        expectSame(KDRBuffer("a b").toPercentEncoding(raw, raw),
                   KDRBuffer("a b").toPercentEncoding(owned, owned));
        for (int const base : {0, 10, 16})
            EXPECT_EQ(raw.toShort(nullptr, base), owned.toShort(nullptr, base));
        EXPECT_EQ(KDRString(raw), KDRString(owned));
        EXPECT_FALSE(KDRString(owned) != raw);
        KDRString assigned;
        assigned = raw;
        EXPECT_EQ(assigned, KDRString(owned));
        EXPECT_EQ(KDRString("x").insert(1, raw), KDRString("x").insert(1, owned));
    });
}

TEST_P(BufferGuardedBytes, AreTakenUpByOthersAndLeftBehindByChanges)
{
    using Change = void (*)(KDRBuffer & buffer, KDRBuffer const& other);
    Change const changes[] = {
        [](KDRBuffer& b, KDRBuffer const&) { b.append('x'); },
        [](KDRBuffer& b, KDRBuffer const&) { b.append("xy"); },
        [](KDRBuffer& b, KDRBuffer const& o) { b.append(o); },
        [](KDRBuffer& b, KDRBuffer const& o) { b.prepend(o); },
        [](KDRBuffer& b, KDRBuffer const& o) { b.insert(1, o); },
        [](KDRBuffer& b, KDRBuffer const&) { b.insert(0, 2, 'x'); },
        [](KDRBuffer& b, KDRBuffer const&) { b.remove(0, 1); },
        [](KDRBuffer& b, KDRBuffer const& o) { b.replace(0, 1, o); },
        [](KDRBuffer& b, KDRBuffer const& o) { b.replace('a', o); },
        [](KDRBuffer& b, KDRBuffer const& o) { b.replace(o, KDRBuffer("xx")); },
        [](KDRBuffer& b, KDRBuffer const&) { b.replace('a', 'b'); },
        [](KDRBuffer& b, KDRBuffer const&) { b.fill('x', b.size() / 2); },
        [](KDRBuffer& b, KDRBuffer const&) { b.fill('x', b.size() + 1); },
        [](KDRBuffer& b, KDRBuffer const&) { b.truncate(b.size() / 2); },
        [](KDRBuffer& b, KDRBuffer const&) { b.chop(1); },
        [](KDRBuffer& b, KDRBuffer const&) { b.resize(b.size() / 2); },
        [](KDRBuffer& b, KDRBuffer const&) { b.reserve(b.size() + 1); },
        [](KDRBuffer& b, KDRBuffer const&) { b.squeeze(); },
        [](KDRBuffer& b, KDRBuffer const&) { b.data(); },
    };
    forEach([&changes](KDRBuffer const& raw, KDRBuffer const& owned) {
        int number = 0;
        for (Change const change : changes) {
            SCOPED_TRACE(number++);
            KDRBuffer alone = KDRBuffer::fromRawData(raw.constData(), raw.size());
            KDRBuffer shared(raw);
            KDRBuffer own(owned.constData(), owned.size());
            change(alone, raw);
            change(shared, raw);
            change(own, owned);
            expectSame(alone, own);
            expectSame(shared, own);
            KDRBuffer changed("abcabc");
            KDRBuffer expected("abcabc");
            change(changed, raw);
            change(expected, owned);
            expectSame(changed, expected);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(AtEitherGuard, BufferGuardedBytes,
                         testing::Values(Side::Front, Side::Back));

} // namespace
