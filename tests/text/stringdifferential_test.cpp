#include <kdrdata/text/kdrstring.h>

#include <kdrdata/internal/kdrinternal_p.h>

#include "../support/localcodec.h"
#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <QtCore/QTextCodec>

#include <gtest/gtest.h>

#include <random>
#include <vector>

// KDRString beside QString over generated texts and byte sequences.

namespace {

constexpr unsigned int seed = 20240229;

std::vector<QString> texts(int count)
{
    static unsigned short const units[] = {0,      'a',    'A',    '%',    '1',    0x00E9,
                                           0x0301, 0x20AC, 0x0416, 0xD83D, 0xDE00, 0xD800,
                                           0xDFFF, 0xFEFF, 0xFFFE, 0xFFFD, 0xFFFF};
    std::mt19937 random(seed);
    std::vector<QString> result = {QString(), QString(""), QString("%1"), QString(QChar())};
    while (static_cast<int>(result.size()) < count) {
        QString text;
        for (auto length = random() % 9; length > 0; --length)
            text += QChar(units[random() % std::size(units)]);
        result.push_back(text);
    }
    return result;
}

std::vector<QByteArray> byteSequences(int count)
{
    // Whole and broken sequences: overlong, surrogates, beyond U+10FFFF, cut off, marks of order.
    static QByteArray const parts[] = {QByteArray("\0", 1),
                                       "a",
                                       "%1",
                                       "\xC3\xA4",
                                       "\xE2\x82\xAC",
                                       "\xF0\x9F\x98\x80",
                                       "\xC0\x80",
                                       "\xED\xA0\x80",
                                       "\xF4\x90\x80\x80",
                                       "\xE2\x82",
                                       "\x80",
                                       "\xFF",
                                       "\xEF\xBB\xBF",
                                       "\xEF\xBF\xBF"};
    std::mt19937 random(seed);
    std::vector<QByteArray> result = {QByteArray(), QByteArray("")};
    while (static_cast<int>(result.size()) < count) {
        QByteArray bytes;
        for (auto length = random() % 5; length > 0; --length)
            bytes += parts[random() % std::size(parts)];
        result.push_back(bytes);
    }
    return result;
}

KDRBuffer handleOf(QByteArray const& bytes)
{
    return bytes.isNull() ? KDRBuffer() : KDRBuffer(bytes.constData(), bytes.size());
}

void expectSame(KDRString const& ours, QString const& qts)
{
    QString const& held = KDRInternal::wrapped(ours);
    ASSERT_EQ(held, qts);
    ASSERT_EQ(ours.isNull(), qts.isNull());
    ASSERT_EQ(ours.isEmpty(), qts.isEmpty());
    ASSERT_EQ(ours.size(), qts.size());
}

void expectSame(KDRBuffer const& ours, QByteArray const& qts)
{
    ASSERT_EQ(QByteArray(ours.constData(), ours.size()), qts);
    ASSERT_EQ(ours.isNull(), qts.isNull());
}

TEST(StringDifferential, DecodingIsQts)
{
    LocalCodecGuard const guard;
    KDRString::setLocalTextCodec(KDRString::EncodingShiftJIS);
    for (QByteArray const& bytes : byteSequences(1500)) {
        SCOPED_TRACE(bytes.toHex().constData());
        char const* const data = bytes.constData();
        KDRString text("before");
        expectSame(KDRString(data), QString(data));
        expectSame(KDRString(handleOf(bytes)), QString(bytes));
        QString assigned("before");
        expectSame(text = handleOf(bytes), assigned = bytes);
        expectSame(text = data, assigned = data);
        for (int size : {-1, bytes.size()}) {
            expectSame(text.fromLatin1(data, size), QString::fromLatin1(data, size));
            expectSame(text.fromUtf8(data, size), QString::fromUtf8(data, size));
            expectSame(text.fromLocal8Bit(data, size), QString::fromLocal8Bit(data, size));
        }
        if (HasFatalFailure())
            return;
    }
}

TEST(StringDifferential, EncodingIsQts)
{
    LocalCodecGuard const guard;
    KDRString::setLocalTextCodec(KDRString::EncodingShiftJIS);
    for (QString const& text : texts(1500)) {
        SCOPED_TRACE(testing::PrintToString(text));
        KDRString const handle = handleOf(text);
        expectSame(handle.toLatin1(), text.toLatin1());
        expectSame(handle.toUtf8(), text.toUtf8());
        expectSame(handle.toLocal8Bit(), text.toLocal8Bit());
        ASSERT_EQ(
            std::char_traits<char16_t>::compare(reinterpret_cast<char16_t const*>(handle.toUtf16()),
                                                reinterpret_cast<char16_t const*>(text.utf16()),
                                                static_cast<std::size_t>(text.size()) + 1),
            0);
        if (HasFatalFailure())
            return;
    }
}

TEST(StringDifferential, Utf16DecodingIsQts)
{
    for (QString const& text : texts(1500)) {
        SCOPED_TRACE(testing::PrintToString(text));
        unsigned short const* const units = text.utf16();
        KDRString handle("before");
        for (int size : {-1, text.size()}) {
            expectSame(KDRString(units, size), QString::fromUtf16(units, size));
            expectSame(handle.fromUtf16(units, size), QString::fromUtf16(units, size));
        }
        expectSame(handle = units, QString::fromUtf16(units));
        if (HasFatalFailure())
            return;
    }
}

TEST(StringDifferential, ComparisonsAreQts)
{
    std::vector<QString> const all = texts(150);
    for (QString const& a : all) {
        KDRString const ours = handleOf(a);
        for (QString const& b : all) {
            SCOPED_TRACE(testing::PrintToString(a) + testing::PrintToString(b));
            KDRString const other = handleOf(b);
            ASSERT_EQ(ours == other, a == b);
            ASSERT_EQ(ours != other, a != b);
        }
    }
    for (QByteArray const& bytes : byteSequences(300))
        for (QString const& a : {QString(), QString("a"), QString(bytes), QString::fromUtf8(bytes),
                                 QString::fromUtf8(bytes.constData(), bytes.size())}) {
            SCOPED_TRACE(testing::PrintToString(a) + bytes.toHex().constData());
            KDRString const ours = handleOf(a);
            ASSERT_EQ(ours != handleOf(bytes), a != bytes);
            ASSERT_EQ(ours != bytes.constData(), a != bytes.constData());
        }
}

TEST(StringDifferential, AccessAndTruncationAreQts)
{
    for (QString const& text : texts(600)) {
        SCOPED_TRACE(testing::PrintToString(text));
        KDRString const handle = handleOf(text);
        for (int i = 0; i < text.size(); ++i)
            ASSERT_EQ(handle.at(i).unicode(), text.at(i).unicode());
        for (int position : {-1, 0, 1, text.size() - 1, text.size(), text.size() + 1}) {
            KDRString ours(handle);
            QString qts(text);
            ours.truncate(position);
            qts.truncate(position);
            expectSame(ours, qts);
            expectSame(handle, text);
        }
        if (HasFatalFailure())
            return;
    }
}

TEST(StringDifferential, CharacterStringsAreQts)
{
    for (unsigned int code = 0; code <= 0xFFFF; ++code)
        ASSERT_EQ(KDRInternal::wrapped(KDRString(KDRChar(code))), QString(QChar(code)));
}

TEST(StringDifferential, ArgIsQts)
{
    std::mt19937 random(seed);
    QString const markers[] = {"%1", "%1%1 %2", "%99 %L1", "a%0b%3", "%100"};
    for (int step = 0; step < 1500; ++step) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
        QString const& text = markers[random() % std::size(markers)];
        KDRString const handle = handleOf(text);
        int const width = static_cast<int>(random() % 21) - 10;
        int const base = static_cast<int>(random() % 35) + 2;
        QChar const fill(static_cast<unsigned short>(random() % 2 ? '0' : 0x20AC));
        auto const number = static_cast<int>(random());
        double const real = static_cast<double>(number) / 1024.0;
        int const precision = static_cast<int>(random() % 12) - 1;
        expectSame(handle.arg(number, width, base, KDRChar(fill.unicode())),
                   text.arg(static_cast<qlonglong>(number), width, base, fill));
        expectSame(handle.arg(real, width, KDRString::KDRFormatGeneral, precision,
                              KDRChar(fill.unicode())),
                   text.arg(real, width, 'g', precision, fill));
        expectSame(
            handle.arg(real, width, KDRString::KDRFormatFixed, precision, KDRChar(fill.unicode())),
            text.arg(real, width, 'f', precision, fill));
        if (HasFatalFailure())
            return;
    }
}

} // namespace
