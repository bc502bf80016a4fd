#ifndef KDRDATA_KDRCHAR_H
#define KDRDATA_KDRCHAR_H

#include <kdrdata/kdrdata_export.h>

class KDRString;
class QChar;
struct KDRInternal;

/// One UTF-16 code unit.
///
/// A handle over one QChar that it owns alone. Copies never share: each character, also each
/// by-value argument and result, costs one allocation of two bytes. Rvalues are copied as well:
/// there is no move.
///
/// Most questions come in two forms. Without an argument they ask about this character. With a code
/// point `u` (0 to 0x10FFFF) they ask about `u` and ignore this character. Above 0x10FFFF the
/// properties are those of an unassigned code point and the mappings answer `u` itself, but
/// isNonCharacter() and the surrogate formulas go on as below: they look at bits alone. What Qt
/// answers with an enumeration is a plain `int` of the same value here.
///
/// Failure: none is reported. An allocation that fails throws std::bad_alloc.
///
/// The comparison operators do not compare characters, see operator==. Compare unicode() values:
///
/// @code
/// KDRChar const letter('A');
/// bool const never = letter == KDRChar('A');                     // false
/// bool const same = letter.unicode() == KDRChar('A').unicode(); // true
/// @endcode
///
/// Threads: one character may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRChar
{
public:
    /// Characters with a name of their own; the values are their codes, those of
    /// QChar::SpecialCharacter.
    enum KDRSpecialCharacter : int {
        KDRNull = 0x0000,
        KDRTabulation = 0x0009,
        KDRLineFeed = 0x000A,
        KDRFormFeed = 0x000C,
        KDRCarriageReturn = 0x000D,
        KDRSpace = 0x0020,
        KDRNbsp = 0x00A0,
        KDRSoftHyphen = 0x00AD,
        KDRLineSeparator = 0x2028,
        KDRParagraphSeparator = 0x2029,
        KDRByteOrderMark = 0xFEFF,
        KDRObjectReplacementCharacter = 0xFFFC,
        KDRReplacementCharacter = 0xFFFD,
        KDRByteOrderSwapped = 0xFFFE,
        KDRLastValidCodePoint = 0x10FFFF ///< not a code unit: a character holds its low 16 bits
    };

    /// The character of code 0.
    KDRChar();
    /// The Latin-1 character @p c, taken as an unsigned byte.
    KDRChar(char c);
    /// The Latin-1 character @p c.
    KDRChar(unsigned char c);
    /// The character with the low byte @p cell and the high byte @p row.
    KDRChar(unsigned char cell, unsigned char row);
    /// The character of this @p code.
    KDRChar(unsigned short code);
    /// The character whose code has the 16 bits of @p code.
    KDRChar(short code);
    /// The character of the low 16 bits of @p code; the others are dropped.
    KDRChar(unsigned int code);
    /// @copydoc KDRChar(unsigned int)
    KDRChar(int code);
    /// The character of the low 16 bits of @p s.
    KDRChar(KDRSpecialCharacter s);
    /// A character of its own with the code of @p other.
    KDRChar(KDRChar const& other);
    /// Frees the character.
    ~KDRChar();

    /// Takes the code of @p other. Returns this character.
    KDRChar& operator=(KDRChar const& other);

    /// The code, for reading and writing. The reference is valid as long as this character lives;
    /// writing through it changes this character only.
    unsigned short& unicode();
    /// The code.
    unsigned short unicode() const;
    /// The low byte of the code.
    unsigned char cell() const;
    /// The high byte of the code.
    unsigned char row() const;
    /// The code as a Latin-1 `char` if it is below 256, else 0.
    char toLatin1() const;
    /// A new character: @p c, taken as an unsigned byte. Ignores this character.
    KDRChar fromLatin1(char c) const;
    /// Whether the code is 0.
    bool isNull() const;

    /// The general category, a QChar::Category.
    int category() const;
    /// category() of the code point @p u.
    int category(unsigned int u) const;
    /// The bidirectional class, a QChar::Direction.
    int direction() const;
    /// direction() of the code point @p u.
    int direction(unsigned int u) const;
    /// How the character joins its neighbours in cursive scripts: 3 causing, 1 on both sides, 2 on
    /// its right, 0 any other way or not at all (from QChar::joiningType).
    int joining() const;
    /// joining() of the code point @p u.
    int joining(unsigned int u) const;
    /// The writing system, a QChar::Script.
    int script() const;
    /// script() of the code point @p u.
    int script(unsigned int u) const;
    /// The Unicode version that introduced the character, a QChar::UnicodeVersion.
    int unicodeVersion() const;
    /// unicodeVersion() of the code point @p u.
    int unicodeVersion(unsigned int u) const;
    /// The newest Unicode version that Qt's tables know, a QChar::UnicodeVersion. Ignores this
    /// character.
    int currentUnicodeVersion() const;
    /// The canonical combining class, 0 to 255; 0 for what does not combine.
    int combiningClass() const;
    /// combiningClass() of the code point @p u.
    int combiningClass(unsigned int u) const;
    /// The value of a digit of any script, 0 to 9, or -1 for what is no digit.
    int digitValue() const;
    /// digitValue() of the code point @p u.
    int digitValue(unsigned int u) const;

    /// Whether it is a decimal digit (category Nd).
    bool isDigit() const;
    /// isDigit() of the code point @p u.
    bool isDigit(unsigned int u) const;
    /// Whether it is a letter (categories L*).
    bool isLetter() const;
    /// isLetter() of the code point @p u.
    bool isLetter(unsigned int u) const;
    /// Whether it is a letter or a number (categories L* and N*).
    bool isLetterOrNumber() const;
    /// isLetterOrNumber() of the code point @p u.
    bool isLetterOrNumber(unsigned int u) const;
    /// Whether it is a lower-case letter (category Ll).
    bool isLower() const;
    /// isLower() of the code point @p u.
    bool isLower(unsigned int u) const;
    /// Whether it is an upper-case letter (category Lu).
    bool isUpper() const;
    /// isUpper() of the code point @p u.
    bool isUpper(unsigned int u) const;
    /// Whether it is a title-case letter (category Lt).
    bool isTitleCase() const;
    /// isTitleCase() of the code point @p u.
    bool isTitleCase(unsigned int u) const;
    /// Whether it is a mark (categories M*).
    bool isMark() const;
    /// isMark() of the code point @p u.
    bool isMark(unsigned int u) const;
    /// Whether it is a number, digits and others (categories N*).
    bool isNumber() const;
    /// isNumber() of the code point @p u.
    bool isNumber(unsigned int u) const;
    /// Whether it is printable: any character but categories Cc, Cf, Cs, Co and Cn.
    bool isPrint() const;
    /// isPrint() of the code point @p u.
    bool isPrint(unsigned int u) const;
    /// Whether it is punctuation (categories P*).
    bool isPunct() const;
    /// isPunct() of the code point @p u.
    bool isPunct(unsigned int u) const;
    /// Whether it is a separator (categories Z*) or one of U+0009 to U+000D and U+0085.
    bool isSpace() const;
    /// isSpace() of the code point @p u.
    bool isSpace(unsigned int u) const;
    /// Whether it is a symbol (categories S*).
    bool isSymbol() const;
    /// isSymbol() of the code point @p u.
    bool isSymbol(unsigned int u) const;
    /// Whether it is one of the codes that Unicode leaves for internal use, U+FFFE and U+FFFF for
    /// example.
    bool isNonCharacter() const;
    /// isNonCharacter() of the code point @p u.
    bool isNonCharacter(unsigned int u) const;
    /// Whether it is half of a surrogate pair, 0xD800 to 0xDFFF.
    bool isSurrogate() const;
    /// isSurrogate() of the code point @p u.
    bool isSurrogate(unsigned int u) const;
    /// Whether it is the first half of a surrogate pair, 0xD800 to 0xDBFF.
    bool isHighSurrogate() const;
    /// isHighSurrogate() of the code point @p u.
    bool isHighSurrogate(unsigned int u) const;
    /// Whether it is the second half of a surrogate pair, 0xDC00 to 0xDFFF.
    bool isLowSurrogate() const;
    /// isLowSurrogate() of the code point @p u.
    bool isLowSurrogate(unsigned int u) const;
    /// Whether it is mirrored in text that runs right to left, as brackets are.
    bool hasMirrored() const;
    /// hasMirrored() of the code point @p u.
    bool hasMirrored(unsigned int u) const;

    /// The mirror image, or the character itself if it has none.
    KDRChar mirroredChar() const;
    /// mirroredChar() of the code point @p u.
    unsigned int mirroredChar(unsigned int u) const;
    /// The lower-case form, or the character itself if it has none.
    KDRChar toLower() const;
    /// toLower() of the code point @p u.
    unsigned int toLower(unsigned int u) const;
    /// The upper-case form, or the character itself if it has none.
    KDRChar toUpper() const;
    /// toUpper() of the code point @p u.
    unsigned int toUpper(unsigned int u) const;
    /// The title-case form, or the character itself if it has none.
    KDRChar toTitleCase() const;
    /// toTitleCase() of the code point @p u.
    unsigned int toTitleCase(unsigned int u) const;
    /// The form for comparison without case, mostly that of toLower().
    KDRChar toCaseFolded() const;
    /// toCaseFolded() of the code point @p u.
    unsigned int toCaseFolded(unsigned int u) const;

    /// What the character decomposes into, or an empty (not null) string if nothing. The text
    /// passes through the local 8-bit encoding and is read back as UTF-8 up to the first zero byte:
    /// it is exact only while that encoding is UTF-8, see KDRString::setLocalTextCodec(). Kept on
    /// purpose. Callers include <kdrdata/text/kdrstring.h>.
    KDRString decomposition() const;
    /// decomposition() of the code point @p u.
    KDRString decomposition(unsigned int u) const;
    /// The kind of decomposition, a QChar::Decomposition.
    int decompositionTag() const;
    /// The kind of decomposition of this character: @p u is never read. Kept on purpose.
    int decompositionTag(unsigned int u) const;

    /// Whether the mirrored form of @p u is not 0, which is so for every @p u but 0. It does not
    /// tell whether @p u needs a surrogate pair. Kept on purpose.
    bool requiresSurrogates(unsigned int u) const;
    /// The first half of the surrogate pair of @p u, which is 0x10000 or more:
    /// (@p u >> 10) + 0xD7C0 in 16 bits.
    unsigned short highSurrogate(unsigned int u) const;
    /// The second half of the surrogate pair of @p u, which is 0x10000 or more:
    /// (@p u & 0x3FF) + 0xDC00.
    unsigned short lowSurrogate(unsigned int u) const;
    /// The code point of a surrogate pair: (@p high << 10) + @p low - 0x35FDC00 in 32 bits,
    /// whatever the two are.
    unsigned int surrogateToUcs4(unsigned short high, unsigned short low) const;
    /// The code point of the surrogate pair of the two code units, by the same formula.
    unsigned int surrogateToUcs4(KDRChar high, KDRChar low) const;

    /// Whether both are one and the same character object, by address. The argument is a copy, so
    /// the answer is false for every two characters, equal or not: compare unicode() instead. Kept
    /// on purpose.
    bool operator==(KDRChar other) const;
    /// The same answer as `==`, not its opposite: false for every two characters. Kept on purpose.
    bool operator!=(KDRChar other) const;
    /// Whether this character's storage lies at a lower address than that of the copy @p other; the
    /// codes play no part. Kept on purpose.
    bool operator<(KDRChar other) const;
    /// Whether this character's storage lies at no higher address than that of the copy @p other;
    /// the codes play no part. Kept on purpose.
    bool operator<=(KDRChar other) const;
    /// Whether this character's storage lies at a higher address than that of the copy @p other;
    /// the codes play no part. Kept on purpose.
    bool operator>(KDRChar other) const;
    /// Whether this character's storage lies at no lower address than that of the copy @p other;
    /// the codes play no part. Kept on purpose.
    bool operator>=(KDRChar other) const;

private:
    friend struct KDRInternal;
    QChar* d;
};

#endif
