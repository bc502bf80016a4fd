#include <kdrdata/text/text.h>

#include "../support/localcodec.h"
#include "../support/qtprinters.h"

#include <gtest/gtest.h>

#include <vector>

// Every question put to KDRChar and to Qt: for all 65,536 code units, and for code points of every
// plane and beyond.

namespace {

struct Question
{
    char const* name;
    int (*ours)(KDRChar const&);
    int (*qt)(QChar);
};

struct CodePointQuestion
{
    char const* name;
    long long (*ours)(KDRChar const&, unsigned int);
    long long (*qt)(unsigned int);
};

// The three kinds of rows: the operation of the one name, asked of both sides.
#define QUESTION(name)                                                                             \
    Question({#name, [](KDRChar const& c) { return static_cast<int>(c.name()); },                  \
              [](QChar c) { return static_cast<int>(c.name()); }})
#define MAPPING(name)                                                                              \
    Question({#name, [](KDRChar const& c) { return static_cast<int>(c.name().unicode()); },        \
              [](QChar c) { return static_cast<int>(c.name().unicode()); }})
#define CODE_POINT_QUESTION(name)                                                                  \
    CodePointQuestion(                                                                             \
        {#name,                                                                                    \
         [](KDRChar const& c, unsigned int u) { return static_cast<long long>(c.name(u)); },       \
         [](unsigned int u) { return static_cast<long long>(QChar::name(u)); }})

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED // joining(), the witness for ours

    Question const properties[] = {QUESTION(unicode),
                                   QUESTION(cell),
                                   QUESTION(row),
                                   QUESTION(toLatin1),
                                   QUESTION(isNull),
                                   QUESTION(category),
                                   QUESTION(direction),
                                   QUESTION(joining),
                                   QUESTION(script),
                                   QUESTION(unicodeVersion),
                                   QUESTION(combiningClass),
                                   QUESTION(digitValue),
                                   QUESTION(hasMirrored),
                                   QUESTION(decompositionTag)};

CodePointQuestion const codePointQuestions[] = {
    CODE_POINT_QUESTION(category),         CODE_POINT_QUESTION(direction),
    CODE_POINT_QUESTION(joining),          CODE_POINT_QUESTION(script),
    CODE_POINT_QUESTION(unicodeVersion),   CODE_POINT_QUESTION(combiningClass),
    CODE_POINT_QUESTION(digitValue),       CODE_POINT_QUESTION(hasMirrored),
    CODE_POINT_QUESTION(isDigit),          CODE_POINT_QUESTION(isLetter),
    CODE_POINT_QUESTION(isLetterOrNumber), CODE_POINT_QUESTION(isLower),
    CODE_POINT_QUESTION(isUpper),          CODE_POINT_QUESTION(isTitleCase),
    CODE_POINT_QUESTION(isMark),           CODE_POINT_QUESTION(isNumber),
    CODE_POINT_QUESTION(isPrint),          CODE_POINT_QUESTION(isPunct),
    CODE_POINT_QUESTION(isSpace),          CODE_POINT_QUESTION(isSymbol),
    CODE_POINT_QUESTION(isNonCharacter),   CODE_POINT_QUESTION(isSurrogate),
    CODE_POINT_QUESTION(isHighSurrogate),  CODE_POINT_QUESTION(isLowSurrogate),
    CODE_POINT_QUESTION(mirroredChar),     CODE_POINT_QUESTION(toLower),
    CODE_POINT_QUESTION(toUpper),          CODE_POINT_QUESTION(toTitleCase),
    CODE_POINT_QUESTION(toCaseFolded),     CODE_POINT_QUESTION(highSurrogate),
    CODE_POINT_QUESTION(lowSurrogate)};

QT_WARNING_POP

Question const classes[] = {
    QUESTION(isDigit),        QUESTION(isLetter),    QUESTION(isLetterOrNumber),
    QUESTION(isLower),        QUESTION(isUpper),     QUESTION(isTitleCase),
    QUESTION(isMark),         QUESTION(isNumber),    QUESTION(isPrint),
    QUESTION(isPunct),        QUESTION(isSpace),     QUESTION(isSymbol),
    QUESTION(isNonCharacter), QUESTION(isSurrogate), QUESTION(isHighSurrogate),
    QUESTION(isLowSurrogate)};

Question const mappings[] = {MAPPING(mirroredChar), MAPPING(toLower), MAPPING(toUpper),
                             MAPPING(toTitleCase), MAPPING(toCaseFolded)};

#undef QUESTION
#undef MAPPING
#undef CODE_POINT_QUESTION

template <std::size_t count>
void compareOnAllCodeUnits(Question const (&questions)[count])
{
    for (Question const& question : questions) {
        SCOPED_TRACE(question.name);
        KDRChar character;
        bool constant = true;
        int const first = question.qt(QChar());
        for (unsigned int code = 0; code <= 0xFFFF; ++code) {
            character.unicode() = static_cast<unsigned short>(code);
            int const expected = question.qt(QChar(code));
            constant = constant && expected == first;
            ASSERT_EQ(question.ours(character), expected) << "code " << code;
        }
        EXPECT_FALSE(constant) << "the question tells nothing apart";
    }
}

std::vector<unsigned int> sampledCodePoints()
{
    std::vector<unsigned int> points;
    for (unsigned int u = 0; u <= 0x10FFFF; u += 97)
        points.push_back(u);
    for (unsigned int u = 0; u < 0x300; ++u)
        points.push_back(u);
    for (unsigned int u = 0x0600; u < 0x0700; ++u) // joining scripts
        points.push_back(u);
    for (unsigned int u = 0x10400; u < 0x10450; ++u) // cases beyond 16 bits
        points.push_back(u);
    for (unsigned int plane = 0; plane <= 0x10; ++plane)
        for (unsigned int u : {0x0000U, 0x0001U, 0xD7FFU, 0xD800U, 0xDBFFU, 0xDC00U, 0xDFFFU,
                               0xE000U, 0xFDD0U, 0xFFFDU, 0xFFFEU, 0xFFFFU})
            points.push_back(plane << 16 | u);
    return points;
}

std::vector<unsigned int> const beyondUnicode = {0x110000,   0x110001,   0x200041,  0x7FFFFFFF,
                                                 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};

TEST(CharDifferential, PropertiesOfAllCodeUnitsAreQts) { compareOnAllCodeUnits(properties); }
TEST(CharDifferential, ClassesOfAllCodeUnitsAreQts) { compareOnAllCodeUnits(classes); }
TEST(CharDifferential, MappingsOfAllCodeUnitsAreQts) { compareOnAllCodeUnits(mappings); }

TEST(CharDifferential, CodePointFormsAreQtsStaticOnesWhateverTheCharacter)
{
    KDRChar const any('x');
    for (CodePointQuestion const& question : codePointQuestions) {
        SCOPED_TRACE(question.name);
        for (unsigned int u : sampledCodePoints())
            ASSERT_EQ(question.ours(any, u), question.qt(u)) << "code point " << u;
    }
}

TEST(CharDifferential, BeyondUnicodeTheCodePointFormsAreQtsToo)
{
    KDRChar const any('x');
    for (CodePointQuestion const& question : codePointQuestions) {
        SCOPED_TRACE(question.name);
        for (unsigned int u : beyondUnicode)
            ASSERT_EQ(question.ours(any, u), question.qt(u)) << "code point " << u;
    }
}

TEST(CharDifferential, BeyondUnicodeNothingIsAssignedAndMappingsAnswerTheCodePoint)
{
    KDRChar const any('x');
    for (unsigned int u : beyondUnicode) {
        SCOPED_TRACE(u);
        EXPECT_EQ(any.category(u), QChar::Other_NotAssigned);
        EXPECT_EQ(any.unicodeVersion(u), QChar::Unicode_Unassigned);
        EXPECT_EQ(any.script(u), QChar::Script_Unknown);
        EXPECT_EQ(any.joining(u), 0);
        EXPECT_EQ(any.combiningClass(u), 0);
        EXPECT_EQ(any.digitValue(u), -1);
        EXPECT_FALSE(any.hasMirrored(u));
        EXPECT_FALSE(any.isPrint(u));
        EXPECT_FALSE(any.isSpace(u));
        EXPECT_EQ(any.mirroredChar(u), u);
        EXPECT_EQ(any.toLower(u), u);
        EXPECT_EQ(any.toUpper(u), u);
        EXPECT_EQ(any.toTitleCase(u), u);
        EXPECT_EQ(any.toCaseFolded(u), u);
        EXPECT_TRUE(any.decomposition(u).isEmpty());
        EXPECT_TRUE(any.requiresSurrogates(u));
    }
}

TEST(CharDifferential, SurrogatePairsAreCombinedAsQtDoes)
{
    KDRChar const any;
    for (unsigned int high = 0; high <= 0xFFFF; high += 251)
        for (unsigned int low = 0; low <= 0xFFFF; low += 509) {
            auto const first = static_cast<unsigned short>(high);
            auto const second = static_cast<unsigned short>(low);
            ASSERT_EQ(any.surrogateToUcs4(first, second), QChar::surrogateToUcs4(first, second));
        }
}

TEST(CharDifferential, DecompositionsAreQtsWhileTheLocalCodecIsUtf8)
{
    LocalCodecGuard const guard;
    KDRString::setLocalTextCodec(KDRString::EncodingUTF8);
    auto const expected = [](QString const& text) { return KDRString(text.toUtf8().constData()); };
    KDRChar character;
    for (unsigned int code = 0; code <= 0xFFFF; ++code) {
        character.unicode() = static_cast<unsigned short>(code);
        ASSERT_EQ(character.decomposition(), expected(QChar(code).decomposition()))
            << "code " << code;
    }
    for (unsigned int u : sampledCodePoints())
        ASSERT_EQ(character.decomposition(u), expected(QChar::decomposition(u)))
            << "code point " << u;
}

TEST(CharDifferential, RequiresSurrogatesAsksForTheMirroredForm)
{
    KDRChar const any;
    for (unsigned int u : sampledCodePoints())
        ASSERT_EQ(any.requiresSurrogates(u), QChar::mirroredChar(u) != 0) << "code point " << u;
}

TEST(CharDifferential, CurrentUnicodeVersionIsQts)
{
    EXPECT_EQ(KDRChar().currentUnicodeVersion(), QChar::currentUnicodeVersion());
}

} // namespace
