// Texts, bytes and their arrays that several threads share. Run under Helgrind too.

#include <kdrdata/text/text.h>

#include "../support/inthreads.h"
#include "../support/qtprinters.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

constexpr int rounds = 200;

TEST(TextConcurrency, StringsOfOneTextAreCopiedReadAndChangedInSeveralThreads)
{
    KDRString const source("some text");
    inThreads([&source](int number) {
        for (int round = 0; round < rounds; ++round) {
            KDRString copy(source);
            ASSERT_EQ(copy.indexOf(KDRString("text")), 5);
            copy.setNum(number).push_back(source);
            ASSERT_EQ(copy.size(), 10);
            KDRString assigned;
            assigned = source;
            assigned.replace(KDRString("text"), KDRString("%1"));
            ASSERT_EQ(assigned.arg(number).size(), 6);
        }
    });
    EXPECT_EQ(source, KDRString("some text"));
}

TEST(TextConcurrency, BuffersOfTheSameBytesAreCopiedReadAndChangedInSeveralThreads)
{
    KDRBuffer const source("some bytes");
    inThreads([&source](int number) {
        for (int round = 0; round < rounds; ++round) {
            KDRBuffer copy(source);
            ASSERT_EQ(copy.indexOf("bytes"), 5);
            copy.data()[0] = static_cast<char>('0' + number);
            ASSERT_EQ(copy.at(0), '0' + number);
            KDRBuffer assigned;
            assigned = source;
            assigned.prepend(copy).replace(0, 4, "more");
            ASSERT_EQ(assigned.size(), 20);
        }
    });
    EXPECT_TRUE(source.startsWith("some"));
}

TEST(TextConcurrency, ArraysOfOneListAreCopiedReadAndChangedInSeveralThreads)
{
    KDRStringArray const texts = KDRString("a,b,c").split(KDRChar(','));
    KDRBufferArray buffers;
    buffers.push_back(KDRBuffer("ab"));
    buffers.push_back(KDRBuffer("cd"));
    KDRBufferArray const& sharedBuffers = buffers;
    inThreads([&texts, &sharedBuffers](int number) {
        for (int round = 0; round < rounds; ++round) {
            KDRString element;
            ASSERT_TRUE(texts.select(1, &element));
            KDRStringArray copy(texts);
            ASSERT_TRUE(copy.replace(number % 3, KDRString("x")));
            ASSERT_EQ(copy.join(KDRString("")).size(), 3);
            KDRBufferArray bytes(sharedBuffers);
            bytes.push_back(sharedBuffers);
            ASSERT_EQ(bytes.join().size(), 8);
        }
    });
    EXPECT_EQ(texts.length(), 3);
    EXPECT_EQ(buffers.length(), 2);
}

TEST(TextConcurrency, TheLastHandleMayGoInAnyThread)
{
    for (int round = 0; round < 50; ++round) {
        std::vector<std::pair<KDRString, KDRBuffer>> handles(
            threadCount, {KDRString("some text"), KDRBuffer("some bytes")});
        inThreads([&handles](int number) {
            handles[static_cast<std::size_t>(number)] = {KDRString(), KDRBuffer()};
        });
    }
}

TEST(TextConcurrency, CopiesOfAnExpressionAreSearchedInSeveralThreads)
{
    KDRRegExp const source(KDRString("(t)e"));
    ASSERT_EQ(source.indexIn(KDRString("some text")), 5);
    std::vector<KDRRegExp> copies(threadCount, source);
    inThreads([&copies](int number) {
        KDRRegExp& rx = copies[static_cast<std::size_t>(number)];
        for (int round = 0; round < rounds; ++round) {
            ASSERT_EQ(KDRString("a text").indexOf(rx), 2);
            ASSERT_EQ(rx.cap(1), KDRString("t"));
            KDRRegExp const copy(rx);
            ASSERT_EQ(copy.pos(1), 2);
        }
    });
    EXPECT_EQ(source.pos(1), 5);
}

} // namespace
