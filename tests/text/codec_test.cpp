#include <kdrdata/text/kdrstring.h>

#include "../support/localcodec.h"
#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <QtCore/QTextCodec>

#include <gtest/gtest.h>

#include <array>
#include <climits>

namespace {

constexpr int encodings = 27;

char const* const expectedNames[encodings] = {
    "Big5",
    "Big5-HKSCS",
    "CP949",
    "EUC-JP",
    "EUC-KR",
    "GB18030",
    "HP-ROMAN8",
    "IBM 850",
    "IBM 866",
    "IBM 874",
    "ISO 2022-JP",
    "ISO 8859-1 to 10",
    "ISO 8859-13 to 16",
    "Iscii-Bng, Dev, Gjr, Knd, Mlm, Ori, Pnj, Tlg, and Tml",
    "KOI8-R",
    "KOI8-U",
    "Macintosh",
    "Shift-JIS",
    "TIS-620",
    "TSCII",
    "UTF-8",
    "UTF-16",
    "UTF-16BE",
    "UTF-16LE",
    "UTF-32",
    "UTF-32BE",
    "UTF-32LE"};

class LocalTextCodec : public testing::Test
{
private:
    LocalCodecGuard m_guard;
};

void setCodec(int value)
{
    KDRString::setLocalTextCodec(static_cast<KDRString::KDREncoding>(value));
}

QTextCodec* defaultCodec()
{
    QTextCodec::setCodecForLocale(nullptr);
    return QTextCodec::codecForLocale();
}

/// A codec that Qt finds by a name it would not know otherwise.
class NamedCodec : public QTextCodec
{
public:
    explicit NamedCodec(char const* name) : m_name(name) {}
    QByteArray name() const override { return m_name; }
    int mibEnum() const override { return 0; }

protected:
    QString convertToUnicode(char const*, int, ConverterState*) const override { return {}; }
    QByteArray convertFromUnicode(QChar const*, int, ConverterState*) const override { return {}; }

private:
    QByteArray m_name;
};

TEST_F(LocalTextCodec, EachEncodingChoosesTheCodecOfItsName)
{
    QTextCodec* const fallback = defaultCodec();
    QTextCodec* const koi = QTextCodec::codecForName("KOI8-R");
    QTextCodec* const latin = QTextCodec::codecForName("ISO-8859-1");
    int found = 0;
    for (int value = 0; value < encodings; ++value) {
        SCOPED_TRACE(expectedNames[value]);
        QTextCodec* const named = QTextCodec::codecForName(expectedNames[value]);
        QTextCodec* const before = named == koi ? latin : koi;
        QTextCodec::setCodecForLocale(before);
        ASSERT_EQ(QTextCodec::codecForLocale(), before);
        setCodec(value);
        EXPECT_EQ(QTextCodec::codecForLocale(), named ? named : fallback);
        if (named)
            ++found;
    }
    EXPECT_GT(found, 12) << "Qt knows too few codecs for this test to tell much";
}

TEST_F(LocalTextCodec, TheEnumeratorsAreInTheOrderOfTheNames)
{
    EXPECT_EQ(KDRString::EncodingBig5, 0);
    EXPECT_EQ(KDRString::EncodingBig5HKSCS, 1);
    EXPECT_EQ(KDRString::EncodingCP949, 2);
    EXPECT_EQ(KDRString::EncodingEUCJP, 3);
    EXPECT_EQ(KDRString::EncodingEUCKR, 4);
    EXPECT_EQ(KDRString::EncodingGB18030, 5);
    EXPECT_EQ(KDRString::EncodingHPRoman8, 6);
    EXPECT_EQ(KDRString::EncodingIBM850, 7);
    EXPECT_EQ(KDRString::EncodingIBM866, 8);
    EXPECT_EQ(KDRString::EncodingIBM874, 9);
    EXPECT_EQ(KDRString::EncodingISO2022JP, 10);
    EXPECT_EQ(KDRString::EncodingISO8859_1to10, 11);
    EXPECT_EQ(KDRString::EncodingISO8859_13to16, 12);
    EXPECT_EQ(KDRString::EncodingIndic, 13);
    EXPECT_EQ(KDRString::EncodingKOI8R, 14);
    EXPECT_EQ(KDRString::EncodingKOI8U, 15);
    EXPECT_EQ(KDRString::EncodingMacintosh, 16);
    EXPECT_EQ(KDRString::EncodingShiftJIS, 17);
    EXPECT_EQ(KDRString::EncodingTIS620, 18);
    EXPECT_EQ(KDRString::EncodingTamil, 19);
    EXPECT_EQ(KDRString::EncodingUTF8, 20);
    EXPECT_EQ(KDRString::EncodingUTF16, 21);
    EXPECT_EQ(KDRString::EncodingUTF16BE, 22);
    EXPECT_EQ(KDRString::EncodingUTF16LE, 23);
    EXPECT_EQ(KDRString::EncodingUTF32, 24);
    EXPECT_EQ(KDRString::EncodingUTF32BE, 25);
    EXPECT_EQ(KDRString::EncodingUTF32LE, 26);
}

TEST_F(LocalTextCodec, SummaryNamesGoBackToTheDefaultCodec)
{
    QTextCodec* const fallback = defaultCodec();
    for (int value : {11, 12, 13}) {
        SCOPED_TRACE(value);
        ASSERT_EQ(QTextCodec::codecForName(expectedNames[value]), nullptr);
        setCodec(KDRString::EncodingKOI8R);
        ASSERT_NE(QTextCodec::codecForLocale(), fallback);
        setCodec(value);
        EXPECT_EQ(QTextCodec::codecForLocale(), fallback);
    }
}

TEST_F(LocalTextCodec, NamesThatQtDoesNotKnowAreLookedUpAllTheSame)
{
    int unknown = 0;
    for (int value = 0; value < encodings; ++value) {
        SCOPED_TRACE(expectedNames[value]);
        if (QTextCodec::codecForName(expectedNames[value]))
            continue;
        ++unknown;
        auto* const codec = new NamedCodec(expectedNames[value]); // Qt keeps and frees it
        setCodec(value);
        EXPECT_EQ(QTextCodec::codecForLocale(), codec);
    }
    EXPECT_GE(unknown, 3) << "no codec has one of the summary names";
}

TEST_F(LocalTextCodec, ValuesOutsideTheEnumerationChangeNothing)
{
    for (int value : {27, -1, 28, 127, 256, INT_MAX, INT_MIN}) {
        SCOPED_TRACE(value);
        setCodec(KDRString::EncodingKOI8R);
        QTextCodec* const before = QTextCodec::codecForLocale();
        setCodec(value);
        EXPECT_EQ(QTextCodec::codecForLocale(), before);
    }
}

TEST_F(LocalTextCodec, LocalConversionsUseTheCodec)
{
    KDRString const text("\xC3\xA4");     // U+00E4
    KDRString const cyrillic("\xD0\x96"); // U+0416
    setCodec(KDRString::EncodingUTF8);
    EXPECT_EQ(bytesOf(text.toLocal8Bit()), QByteArray("\xC3\xA4"));
    setCodec(KDRString::EncodingKOI8R);
    EXPECT_EQ(bytesOf(cyrillic.toLocal8Bit()), QByteArray("\xF6"));
    KDRString read;
    EXPECT_EQ(read.fromLocal8Bit("\xF6"), cyrillic);
    EXPECT_EQ(bytesOf(cyrillic.toUtf8()), QByteArray("\xD0\x96")) << "not a local conversion";
}

TEST_F(LocalTextCodec, TheChoiceIsTheProcesssAndQtSeesItToo)
{
    setCodec(KDRString::EncodingKOI8R);
    EXPECT_EQ(QString(QChar(0x0416)).toLocal8Bit(), QByteArray("\xF6"));
}

TEST_F(LocalTextCodec, DecompositionIsExactInUtf8Only)
{
    setCodec(KDRString::EncodingUTF8);
    KDRString exact = KDRChar(0x00E9).decomposition();
    ASSERT_EQ(exact.length(), 2);
    EXPECT_EQ(exact.at(0).unicode(), 'e');
    EXPECT_EQ(exact.at(1).unicode(), 0x0301);

    setCodec(KDRString::EncodingKOI8R);
    for (KDRString altered : {KDRChar(0x00E9).decomposition(), KDRChar().decomposition(0x00E9)}) {
        QByteArray const local = QChar(0x00E9).decomposition().toLocal8Bit();
        EXPECT_TRUE(altered == KDRString(local.constData()));
        EXPECT_TRUE(altered != exact);
    }
}

TEST_F(LocalTextCodec, DecompositionEndsAtTheFirstZeroByteOfTheEncoding)
{
    setCodec(KDRString::EncodingUTF16BE);
    // The UTF-16 of the ASCII letter has a zero byte at least behind it; Qt writes a byte order
    // mark first. What is left is what a C string holds.
    QByteArray const local = QChar(0x00E9).decomposition().toLocal8Bit();
    ASSERT_TRUE(local.contains('\0'));
    KDRString const cut = KDRChar(0x00E9).decomposition();
    EXPECT_EQ(cut, KDRString(local.constData()));
    EXPECT_LT(cut.size(), local.size() - 1);
}

} // namespace
