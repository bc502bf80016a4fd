#ifndef KDRDATA_KDRSTRING_H
#define KDRDATA_KDRSTRING_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrchar.h>

class KDRRegExp;
class KDRStringArray;
class QString;
struct KDRInternal;

/// A text in UTF-16.
///
/// A handle over one QString that it owns alone. Copying costs one small allocation for the
/// holder; the characters are shared by reference count until either copy is changed, and a change
/// of one never shows in the other. Rvalues are copied the same way: there is no move. Lengths and
/// positions are `int` counts of UTF-16 code units; the text may hold zeros and unpaired
/// surrogates.
///
/// Null and empty are distinct: a null string is an empty one that was given no text at all. The
/// comparisons do not tell them apart.
///
/// Bytes read as UTF-8 may begin with a byte order mark, which is no part of the text.
///
/// Failure: only the conversions to numbers report one, through `ok`. Bytes that are not valid in
/// their encoding are decoded to replacement characters. An allocation that fails, and a result of
/// more code units than an `int` counts, throws std::bad_alloc and leaves the strings involved as
/// they were.
///
/// @code
/// KDRString name("part-%1.png");
/// KDRString const path = name.arg(7);     // "part-7.png"
/// KDRBuffer const bytes = path.toUtf8();
/// bool const same = path == name;         // false
/// @endcode
///
/// Threads: one string may be read from several threads while none changes it. Strings that share
/// text may be used from different threads. setLocalTextCodec() concerns the process.
class KDRDATA_EXPORT KDRString
{
public:
    /// The encodings that setLocalTextCodec() knows, each with the codec name it looks up.
    enum KDREncoding : int {
        EncodingBig5 = 0,            ///< "Big5"
        EncodingBig5HKSCS = 1,       ///< "Big5-HKSCS"
        EncodingCP949 = 2,           ///< "CP949"
        EncodingEUCJP = 3,           ///< "EUC-JP"
        EncodingEUCKR = 4,           ///< "EUC-KR"
        EncodingGB18030 = 5,         ///< "GB18030"
        EncodingHPRoman8 = 6,        ///< "HP-ROMAN8"
        EncodingIBM850 = 7,          ///< "IBM 850"
        EncodingIBM866 = 8,          ///< "IBM 866"
        EncodingIBM874 = 9,          ///< "IBM 874"
        EncodingISO2022JP = 10,      ///< "ISO 2022-JP"
        EncodingISO8859_1to10 = 11,  ///< "ISO 8859-1 to 10", which no codec is called
        EncodingISO8859_13to16 = 12, ///< "ISO 8859-13 to 16", which no codec is called
        EncodingIndic = 13,          ///< a list of Iscii names, which no codec is called
        EncodingKOI8R = 14,          ///< "KOI8-R"
        EncodingKOI8U = 15,          ///< "KOI8-U"
        EncodingMacintosh = 16,      ///< "Macintosh"
        EncodingShiftJIS = 17,       ///< "Shift-JIS"
        EncodingTIS620 = 18,         ///< "TIS-620"
        EncodingTamil = 19,          ///< "TSCII"
        EncodingUTF8 = 20,           ///< "UTF-8"
        EncodingUTF16 = 21,          ///< "UTF-16"
        EncodingUTF16BE = 22,        ///< "UTF-16BE"
        EncodingUTF16LE = 23,        ///< "UTF-16LE"
        EncodingUTF32 = 24,          ///< "UTF-32"
        EncodingUTF32BE = 25,        ///< "UTF-32BE"
        EncodingUTF32LE = 26         ///< "UTF-32LE"
    };

    /// Whether searches tell apart the cases of letters. Any value but 1 counts as
    /// KDRCaseInsensitive.
    enum KDRCaseSensitivity : int {
        KDRCaseInsensitive = 0, ///< Qt::CaseInsensitive
        KDRCaseSensitive = 1    ///< Qt::CaseSensitive
    };

    /// Whether split() answers empty parts too. Any value but 0 counts as KDRSkipEmptyParts.
    enum KDRSplitBehavior : int {
        KDRKeepEmptyParts = 0, ///< Qt::KeepEmptyParts
        KDRSkipEmptyParts = 1  ///< Qt::SkipEmptyParts
    };

    /// How arg() and setNum() write a floating-point number. Any value but 0 counts as
    /// KDRFormatFixed; exponent notation alone ('e') cannot be had. Kept on purpose.
    enum KDRConversionFormat : int {
        KDRFormatGeneral = 0, ///< the shorter of plain and exponent notation ('g')
        KDRFormatFixed = 1    ///< plain notation ('f')
    };

    /// A null string.
    KDRString();
    /// The one character @p c, also when it is a zero.
    KDRString(KDRChar c);
    /// Shares the text of @p other.
    KDRString(KDRString const& other);
    /// The text of @p s, read as UTF-8 up to the terminating zero. A null pointer gives a null
    /// string.
    KDRString(char const* s);
    /// The @p size code units at @p unicode, or with a negative size those up to the first zero. A
    /// leading byte order mark is left out and sets the byte order; without one it is the
    /// machine's. A null pointer gives a null string (QString::fromUtf16).
    KDRString(unsigned short const* unicode, int size = -1);
    /// The bytes of @p b up to the first zero byte or the end, read as UTF-8. A null buffer gives
    /// an empty string that is not null, unlike in assignment. Kept on purpose.
    KDRString(KDRBuffer const& b);
    /// Gives up the text; the last string that shares it frees it.
    ~KDRString();

    /// Shares the text of @p other. Returns this string.
    KDRString& operator=(KDRString const& other);
    /// Takes the bytes of @p b up to the first zero byte or the end, read as UTF-8; a null buffer
    /// makes this string null. Returns this string.
    KDRString& operator=(KDRBuffer const& b);
    /// Takes the text of @p s, read as UTF-8 up to the terminating zero; a null pointer makes this
    /// string null. Returns this string.
    KDRString& operator=(char const* s);
    /// Takes the code units of @p unicode up to the first zero, as fromUtf16() with size -1.
    /// Returns this string.
    KDRString& operator=(unsigned short const* unicode);

    /// Replaces this text by the @p size bytes at @p str, read as Latin-1; with a negative size by
    /// those up to the terminating zero. A null pointer makes this string null. Returns this string
    /// (QString::fromLatin1).
    KDRString& fromLatin1(char const* str, int size = -1);
    /// Replaces this text by the @p size bytes at @p str, read in the local 8-bit encoding (see
    /// setLocalTextCodec()); with a negative size by those up to the terminating zero. A null
    /// pointer makes this string null. Returns this string (QString::fromLocal8Bit).
    KDRString& fromLocal8Bit(char const* str, int size = -1);
    /// Replaces this text by the @p size bytes at @p str, read as UTF-8; with a negative size by
    /// those up to the terminating zero. A null pointer makes this string null. Returns this string
    /// (QString::fromUtf8).
    KDRString& fromUtf8(char const* str, int size = -1);
    /// Replaces this text by the @p size code units at @p unicode, or with a negative size by those
    /// up to the first zero. A leading byte order mark is left out and sets the byte order; without
    /// one it is the machine's. A null pointer makes this string null. Returns this string
    /// (QString::fromUtf16).
    KDRString& fromUtf16(unsigned short const* unicode, int size = -1);

    /// The text in Latin-1, one byte for each code unit; what Latin-1 lacks becomes '?'
    /// (QString::toLatin1).
    KDRBuffer toLatin1() const;
    /// The text in UTF-8; unpaired surrogates become '?' (QString::toUtf8).
    KDRBuffer toUtf8() const;
    /// The text in the local 8-bit encoding (see setLocalTextCodec()). What the encoding lacks is
    /// replaced as its codec does (QString::toLocal8Bit).
    KDRBuffer toLocal8Bit() const;
    /// The code units of this string followed by a zero. A pointer into the string's own storage:
    /// never null, not to be freed, and valid until this string is next changed or destroyed
    /// (QString::utf16).
    unsigned short const* toUtf16() const;

    /// Whether both texts are the same, code unit by code unit. A null and an empty string are
    /// equal. There is no equality with a C string or a buffer of its own, and no order. Kept on
    /// purpose.
    bool operator==(KDRString const& other) const;
    /// Whether the texts differ; the opposite of `==`.
    bool operator!=(KDRString const& other) const;
    /// Whether this text differs from that of @p s, read as UTF-8 up to the terminating zero. A
    /// null pointer counts as an empty text.
    bool operator!=(char const* s) const;
    /// Whether this text differs from the bytes of @p b up to the first zero byte or the end, read
    /// as UTF-8.
    bool operator!=(KDRBuffer const& b) const;

    /// The number of UTF-16 code units, as size(), but not for constant strings. Kept on purpose.
    int length();
    /// The number of UTF-16 code units (QString::size).
    int size() const;
    /// Whether the text has no code unit; true of a null string too (QString::isEmpty).
    bool isEmpty() const;
    /// Whether this string was given no text at all (QString::isNull).
    bool isNull() const;
    /// The code unit at @p i. The caller sees to 0 <= @p i < size(): only builds with assertions
    /// check it (QString::at).
    KDRChar at(int i) const;

    /// Exchanges the two texts, without copying characters (QString::swap).
    void swap(KDRString& other);
    /// Cuts the text off at @p position; what is shorter stays as it is, and a negative position
    /// counts as 0 (QString::truncate).
    void truncate(int position);

    /// Whether @p s occurs in this text; an empty @p s always does (QString::indexOf).
    bool contains(KDRString const& s, KDRCaseSensitivity cs = KDRCaseSensitive) const;
    /// Whether @p rx matches somewhere in this text. The match goes into @p rx, as with indexOf()
    /// (QString::indexOf(QRegExp&, int)).
    bool contains(KDRRegExp const& rx) const;
    /// The position of the first occurrence of @p s that begins at or after @p from, or -1. A
    /// negative @p from counts from the end: -1 starts at the last code unit. An empty @p s is
    /// found at @p from itself, up to size() inclusive.
    ///
    /// A @p from further back than the text is long is better avoided. It finds nothing, except
    /// just before the start: up to the length of @p s further back it stands for the start, or for
    /// the end if @p s is a single code unit (QString::indexOf).
    int indexOf(KDRString const& s, int from = 0, KDRCaseSensitivity cs = KDRCaseSensitive) const;
    /// The position of the first match of @p rx that begins at or after @p from, or -1; @p from
    /// counts as in KDRRegExp::indexIn(). The search runs on @p rx itself, although it is constant:
    /// afterwards its matched length, positions and captures are those of this search. Kept on
    /// purpose. (QString::indexOf(QRegExp&, int))
    int indexOf(KDRRegExp const& rx, int from = 0) const;
    /// @copydoc indexOf(KDRRegExp const&, int) const
    int indexOf(KDRRegExp& rx, int from = 0) const;
    /// The position of the last occurrence of @p s that begins at or before @p from, or -1. A
    /// negative @p from counts from the end: -1 begins at the last code unit, so that an empty @p s
    /// is found at the end only by a @p from of size(). A @p from outside the text finds nothing
    /// (QString::lastIndexOf).
    int lastIndexOf(KDRString const& s, int from = -1,
                    KDRCaseSensitivity cs = KDRCaseSensitive) const;
    /// The position of the last match of @p rx that begins at or before @p from, or -1; @p from
    /// counts as in KDRRegExp::lastIndexIn(). The search runs on @p rx itself, although it is
    /// constant: afterwards its matched length, positions and captures are those of this search.
    /// Kept on purpose. (QString::lastIndexOf(QRegExp&, int))
    int lastIndexOf(KDRRegExp const& rx, int from = -1) const;
    /// @copydoc lastIndexOf(KDRRegExp const&, int) const
    int lastIndexOf(KDRRegExp& rx, int from = -1) const;
    /// Whether this text begins with @p s. Every text begins with an empty one, but a null one only
    /// with a null @p s (QString::startsWith).
    bool startsWith(KDRString const& s, KDRCaseSensitivity cs = KDRCaseSensitive) const;
    /// Whether this text ends with @p s. Every text ends with an empty one, but a null one only
    /// with a null @p s (QString::endsWith).
    bool endsWith(KDRString const& s, KDRCaseSensitivity cs = KDRCaseSensitive) const;

    /// Inserts @p s, which may be this string, before the code unit at @p i. Beyond the end the gap
    /// is filled with spaces, so that a position of a billion costs two gigabytes; what no string
    /// can hold throws std::bad_alloc. A negative @p i or an empty @p s changes nothing. Returns
    /// this string (QString::insert).
    KDRString& insert(int i, KDRString const& s);
    /// The same with @p s read as UTF-8 up to the terminating zero; a null pointer inserts nothing.
    KDRString& insert(int i, char const* s);
    /// The same with the bytes of @p b up to the first zero byte or the end, read as UTF-8; a null
    /// buffer inserts nothing.
    KDRString& insert(int i, KDRBuffer const& b);
    /// Appends @p s, which may be this string (QString::append).
    void push_back(KDRString const& s);
    /// Puts @p s, which may be this string, before this text (QString::prepend).
    void push_front(KDRString const& s);
    /// Removes @p n code units, or those that there are, from @p position on. A negative position
    /// counts from the end; one outside the text or an @p n of 0 or less changes nothing. Returns
    /// this string (QString::remove).
    KDRString& remove(int position, int n);
    /// Removes every occurrence of @p s, which may be this string; an empty @p s changes nothing.
    /// Returns this string (QString::remove).
    KDRString& remove(KDRString const& s, KDRCaseSensitivity cs = KDRCaseSensitive);
    /// Removes every match of @p rx, whose own match state stays as it is. Returns this string
    /// (QString::replace(QRegExp const&, QString const&)).
    KDRString& remove(KDRRegExp const& rx);
    /// Replaces @p n code units, or those that there are, from @p position on by @p after, which
    /// may be this string. A position outside 0 to size() changes nothing. A negative @p n removes
    /// nothing, and that many code units before @p position, or those that there are, appear once
    /// more behind @p after. Returns this string (QString::replace).
    KDRString& replace(int position, int n, KDRString const& after);
    /// Replaces every occurrence of @p before by @p after; either may be this string. An empty
    /// @p before is found before every code unit and at the end. Returns this string
    /// (QString::replace).
    KDRString& replace(KDRString const& before, KDRString const& after,
                       KDRCaseSensitivity cs = KDRCaseSensitive);
    /// Replaces every match of @p rx, whose own match state stays as it is, by @p after, which may
    /// be this string. In @p after `\1`, `\2` and so on stand for what that group captured, as far
    /// as the pattern has one. Returns this string (QString::replace(QRegExp const&, QString
    /// const&)).
    KDRString& replace(KDRRegExp const& rx, KDRString const& after);

    /// The first @p n code units. All of them, shared, if there are no more or if @p n is negative
    /// (QString::left).
    KDRString left(int n) const;
    /// The last @p n code units. All of them, shared, if there are no more or if @p n is negative
    /// (QString::right).
    KDRString right(int n) const;
    /// The @p n code units from @p position on, or those that there are; with a negative @p n all
    /// of them. Code units before the start count among the @p n but are not there. Null if
    /// nothing of the stretch lies in the text, empty if it lies at its end or has no code unit
    /// (QString::mid).
    KDRString mid(int position, int n = -1) const;
    /// This text @p times over; null if @p times is 0 or less, but an empty text is itself any
    /// times over. What no string can hold throws std::bad_alloc (QString::repeated).
    KDRString repeated(int times) const;
    /// This text without the white space at its ends (QString::trimmed).
    KDRString trimmed() const;
    /// This text without the white space at its ends and with one space for every other stretch of
    /// white space (QString::simplified).
    KDRString simplified() const;
    /// This text in lower case, by Unicode and in no particular language (QString::toLower).
    KDRString toLower() const;
    /// This text in upper case, by Unicode and in no particular language (QString::toUpper).
    KDRString toUpper() const;

    /// The parts between the occurrences of @p sep, in order; the whole text, shared, if there is
    /// none. Callers include <kdrdata/text/kdrstringarray.h> (QString::split).
    KDRStringArray split(KDRChar const& sep, KDRSplitBehavior behavior = KDRKeepEmptyParts,
                         KDRCaseSensitivity cs = KDRCaseSensitive) const;
    /// The same with a text between the parts. An empty @p sep occurs before every code unit and at
    /// the end: single code units, with an empty part before and one behind.
    KDRStringArray split(KDRString const& sep, KDRSplitBehavior behavior = KDRKeepEmptyParts,
                         KDRCaseSensitivity cs = KDRCaseSensitive) const;
    /// The same with what @p rx matches between the parts. The match state of @p rx itself stays as
    /// it is.
    KDRStringArray split(KDRRegExp const& rx, KDRSplitBehavior behavior = KDRKeepEmptyParts) const;

    /// A copy of this text with every occurrence of its lowest-numbered place marker (`%1` to
    /// `%99`, or `%L1` to `%L99`; `%0` and `%00` are markers of number 0) replaced by @p a. @p a is
    /// padded with spaces to at least the magnitude of @p fieldWidth code units, on the left if
    /// that is positive, on the right if negative. Without a marker the copy is unchanged and Qt
    /// logs a warning (QString::arg(QString const&, int, QChar)).
    KDRString arg(KDRString const& a, int fieldWidth = 0) const;
    /// The same, padded with @p fillChar.
    KDRString arg(KDRString const& a, int fieldWidth, KDRChar fillChar) const;
    /// The same with the number @p a in the given @p base, 2 to 36 with small letters for digits.
    /// Bases 0 and 1 count as 10; in any other, characters behind `z` or before `0` in Unicode
    /// stand for the digits that have none. In base 10 a negative number has its sign, in other
    /// bases it is written as the 64-bit number with the same bits. `%L1` groups the digits of base
    /// 10 as Qt's default locale does (QString::arg(long long, int, int, QChar)).
    KDRString arg(int a, int fieldWidth = 0, int base = 10) const;
    /// The same, padded with @p fillChar. Zeros come after the sign, and one by one: a width of a
    /// hundred thousand takes about 0.1 s, ten times the width a hundred times that.
    KDRString arg(int a, int fieldWidth, int base, KDRChar fillChar) const;
    /// @copydoc arg(int, int, int) const
    KDRString arg(short a, int fieldWidth = 0, int base = 10) const;
    /// @copydoc arg(int, int, int, KDRChar) const
    KDRString arg(short a, int fieldWidth, int base, KDRChar fillChar) const;
    /// @copydoc arg(int, int, int) const
    KDRString arg(long a, int fieldWidth = 0, int base = 10) const;
    /// @copydoc arg(int, int, int, KDRChar) const
    KDRString arg(long a, int fieldWidth, int base, KDRChar fillChar) const;
    /// @copydoc arg(int, int, int) const
    KDRString arg(long long a, int fieldWidth = 0, int base = 10) const;
    /// @copydoc arg(int, int, int, KDRChar) const
    KDRString arg(long long a, int fieldWidth, int base, KDRChar fillChar) const;
    /// The same with the number @p a, which has no sign
    /// (QString::arg(unsigned long long, int, int, QChar)).
    KDRString arg(unsigned int a, int fieldWidth = 0, int base = 10) const;
    /// The same, padded with @p fillChar. Zeros cost what they do for a number with a sign.
    KDRString arg(unsigned int a, int fieldWidth, int base, KDRChar fillChar) const;
    /// @copydoc arg(unsigned int, int, int) const
    KDRString arg(unsigned short a, int fieldWidth = 0, int base = 10) const;
    /// @copydoc arg(unsigned int, int, int, KDRChar) const
    KDRString arg(unsigned short a, int fieldWidth, int base, KDRChar fillChar) const;
    /// @copydoc arg(unsigned int, int, int) const
    KDRString arg(unsigned long a, int fieldWidth = 0, int base = 10) const;
    /// @copydoc arg(unsigned int, int, int, KDRChar) const
    KDRString arg(unsigned long a, int fieldWidth, int base, KDRChar fillChar) const;
    /// @copydoc arg(unsigned int, int, int) const
    KDRString arg(unsigned long long a, int fieldWidth = 0, int base = 10) const;
    /// @copydoc arg(unsigned int, int, int, KDRChar) const
    KDRString arg(unsigned long long a, int fieldWidth, int base, KDRChar fillChar) const;
    /// The same with the floating-point number @p a. @p precision counts significant digits in the
    /// general and decimals in the fixed format; a negative one means 6, but -128 as many as tell
    /// the number from its neighbours. The cost of decimals grows with their number; more of them
    /// than the half of INT_MAX throw std::bad_alloc
    /// (QString::arg(double, int, char, int, QChar) with the letter 'g' or 'f').
    KDRString arg(double a, int fieldWidth = 0, KDRConversionFormat format = KDRFormatGeneral,
                  int precision = -1) const;
    /// The same, padded with @p fillChar. Zeros cost what they do for an integer.
    KDRString arg(double a, int fieldWidth, KDRConversionFormat format, int precision,
                  KDRChar fillChar) const;
    /// The same with the Latin-1 character @p a, also when it is a zero
    /// (QString::arg(char, int, QChar)).
    KDRString arg(char a, int fieldWidth = 0) const;
    /// The same, padded with @p fillChar.
    KDRString arg(char a, int fieldWidth, KDRChar fillChar) const;
    /// The same with the character @p a. In place of a zero there is no character, only the
    /// padding. Kept on purpose. (QString::arg(QChar, int, QChar), for a zero
    /// QString::arg(QString const&, int, QChar) with an empty text)
    KDRString arg(KDRChar a, int fieldWidth = 0) const;
    /// The same, padded with @p fillChar.
    KDRString arg(KDRChar a, int fieldWidth, KDRChar fillChar) const;

    /// The number that this text is, in the notation of the C locale with white space around it or
    /// not; 0 if it is none or too small and an infinity if it is too large. @p ok, unless null,
    /// receives whether it is a number in range. There is no toInt() and no toShort(). Kept on
    /// purpose. (QString::toDouble)
    double toDouble(bool* ok = nullptr) const;
    /// The same as a `float` (QString::toFloat).
    float toFloat(bool* ok = nullptr) const;
    /// The integer that this text is in the given @p base, with white space around it or not; 0 if
    /// it is none or outside the type. The base is 2 to 36, or 0 to go by the prefix as in C: `0x`
    /// for 16, `0` for 8, else 10; no text is a number in any other. @p ok, unless null, receives
    /// whether it is one (QString::toLong).
    long toLong(bool* ok = nullptr, int base = 10) const;
    /// The same as a `long long` (QString::toLongLong).
    long long toLongLong(bool* ok = nullptr, int base = 10) const;
    /// The same as an `unsigned int`; negative numbers are none (QString::toUInt).
    unsigned int toUInt(bool* ok = nullptr, int base = 10) const;
    /// The same as an `unsigned long`; negative numbers are none (QString::toULong).
    unsigned long toULong(bool* ok = nullptr, int base = 10) const;
    /// The same as an `unsigned long long`; negative numbers are none (QString::toULongLong).
    unsigned long long toULongLong(bool* ok = nullptr, int base = 10) const;
    /// The same as an `unsigned short`; negative numbers are none (QString::toUShort).
    unsigned short toUShort(bool* ok = nullptr, int base = 10) const;

    /// Makes this text the number @p n in the given @p base, 2 to 36 with small letters for digits.
    /// Bases 0 and 1 count as 10; in any other, characters behind `z` or before `0` in Unicode
    /// stand for the digits that have none. In base 10 a negative number has its sign, in other
    /// bases it is written as the 64-bit number with the same bits. Returns this string
    /// (QString::setNum(long long, int)).
    KDRString& setNum(int n, int base = 10);
    /// @copydoc setNum(int, int)
    KDRString& setNum(short n, int base = 10);
    /// @copydoc setNum(int, int)
    KDRString& setNum(long n, int base = 10);
    /// @copydoc setNum(int, int)
    KDRString& setNum(long long n, int base = 10);
    /// The same with a number that has no sign (QString::setNum(unsigned long long, int)).
    KDRString& setNum(unsigned int n, int base = 10);
    /// @copydoc setNum(unsigned int, int)
    KDRString& setNum(unsigned short n, int base = 10);
    /// @copydoc setNum(unsigned int, int)
    KDRString& setNum(unsigned long n, int base = 10);
    /// @copydoc setNum(unsigned int, int)
    KDRString& setNum(unsigned long long n, int base = 10);
    /// Makes this text the floating-point number @p n in the C locale. @p precision counts
    /// significant digits in the general and decimals in the fixed format; a negative one means 6,
    /// but -128 as many as tell the number from its neighbours. The cost of decimals grows with
    /// their number; more of them than the half of INT_MAX throw std::bad_alloc. Returns this
    /// string (QString::setNum(double, char, int) with the letter 'g' or 'f').
    KDRString& setNum(double n, KDRConversionFormat format = KDRFormatGeneral, int precision = 6);
    /// The same with @p n widened to a `double`, so that a high precision shows its bits.
    KDRString& setNum(float n, KDRConversionFormat format = KDRFormatGeneral, int precision = 6);

    /// Chooses the codec for every local 8-bit conversion of this process from now on, Qt's own
    /// included: that of the name listed at @p encoding. If Qt has no codec of that name (it never
    /// has for values 11, 12 and 13), it goes back to the codec of the environment. Kept on
    /// purpose. A value outside the enumeration changes nothing.
    ///
    /// Call it before other threads convert local 8-bit text. The library never calls it itself
    /// (QTextCodec::codecForName, QTextCodec::setCodecForLocale).
    static void setLocalTextCodec(KDREncoding encoding);

private:
    friend struct KDRInternal;
    QString* d;
};

#endif
