#ifndef KDRDATA_KDRSTRING_H
#define KDRDATA_KDRSTRING_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrchar.h>

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
/// Failure: no operation reports one. Bytes that are not valid in their encoding are decoded to
/// replacement characters. An allocation that fails throws std::bad_alloc and leaves the strings
/// involved as they were.
///
/// @code
/// KDRString name("part-%1.png");
/// KDRString const path = name.arg(7);     // "part-7.png"
/// KDRBuffer const bytes = path.toUtf8();
/// bool const same = path == name;         // false
/// @endcode
///
/// Threads: one string must not be used by two threads while either changes it. Strings that
/// merely share text may live in different threads. setLocalTextCodec() concerns the process.
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

    /// How arg() writes a floating-point number. Any value but 0 counts as KDRFormatFixed.
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
    /// The @p size code units at @p unicode, or with size -1 those up to the first zero. A leading
    /// byte order mark is left out and sets the byte order; without one it is the machine's. A null
    /// pointer gives a null string (QString::fromUtf16).
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

    /// Replaces this text by the @p size bytes at @p str, read as Latin-1; with size -1 by those
    /// up to the terminating zero. A null pointer makes this string null. Returns this string
    /// (QString::fromLatin1).
    KDRString& fromLatin1(char const* str, int size = -1);
    /// Replaces this text by the @p size bytes at @p str, read in the local 8-bit encoding (see
    /// setLocalTextCodec()); with size -1 by those up to the terminating zero. A null pointer makes
    /// this string null. Returns this string (QString::fromLocal8Bit).
    KDRString& fromLocal8Bit(char const* str, int size = -1);
    /// Replaces this text by the @p size bytes at @p str, read as UTF-8; with size -1 by those up
    /// to the terminating zero. A null pointer makes this string null. Returns this string
    /// (QString::fromUtf8).
    KDRString& fromUtf8(char const* str, int size = -1);
    /// Replaces this text by the @p size code units at @p unicode, or with size -1 by those up to
    /// the first zero. A leading byte order mark is left out and sets the byte order; without one
    /// it is the machine's. A null pointer makes this string null. Returns this string
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

    /// A copy of this text with its lowest-numbered place marker (`%1` to `%99`) replaced by the
    /// number @p a in the given @p base (2 to 36). The number is padded with @p fillChar to at
    /// least the magnitude of @p fieldWidth characters, on the left if that is positive, on the
    /// right if negative. Without a marker the copy is unchanged and Qt logs a warning
    /// (QString::arg(long long, int, int, QChar)).
    KDRString arg(int a, int fieldWidth = 0, int base = 10, KDRChar fillChar = KDRChar(32)) const;
    /// The same with the floating-point number @p a. @p precision counts significant digits in the
    /// general and decimals in the fixed format; -1 means 6
    /// (QString::arg(double, int, char, int, QChar) with the letter 'g' or 'f').
    KDRString arg(double a, int fieldWidth = 0, KDRConversionFormat format = KDRFormatGeneral,
                  int precision = -1, KDRChar fillChar = KDRChar(32)) const;

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
