#ifndef KDRDATA_KDRBUFFER_H
#define KDRDATA_KDRBUFFER_H

#include <QtCore/qglobal.h>

#include <kdrdata/kdrdata_export.h>

class QByteArray;
struct KDRInternal;

/// A byte string.
///
/// A handle over one QByteArray that it owns alone. Copying costs one small allocation for the
/// holder; the bytes are shared by reference count until either copy is changed, and a change of
/// one never shows in the other. Sizes and positions are `int` counts of bytes; the bytes may hold
/// zeros.
///
/// Null and empty are distinct: a null buffer is an empty one that was given no bytes at all.
///
/// Failure: only toShort() reports one, through `ok`. An allocation that fails, and a result of
/// more bytes than an `int` counts, throws std::bad_alloc and leaves the buffers involved as they
/// were.
///
/// @code
/// KDRBuffer bytes("ab\0cd", 5);
/// KDRBuffer copy = bytes;     // shares the five bytes
/// copy.data()[0] = 'A';       // copy takes its own first
/// char const first = bytes.at(0); // still 'a'
/// @endcode
///
/// Threads: one buffer may be read from several threads while none changes it, and the `const`
/// data() counts as a change. Buffers that share bytes may be used from different threads.
class KDRDATA_EXPORT KDRBuffer
{
public:
    /// How toBase64() writes and fromBase64() reads; values combine with `|`. The values are those
    /// of QByteArray::Base64Option.
    enum KDRBase64Option : int {
        KDRBase64Standard = 0,          ///< the alphabet with '+' and '/', padded with '='
        KDRBase64Url = 1,               ///< the alphabet with '-' and '_', for names in URLs
        KDRBase64OmitTrailingEquals = 2 ///< without the padding
    };

    /// A null buffer.
    KDRBuffer();
    /// A copy of the @p size bytes at @p data; a negative @p size means up to the terminating
    /// zero. A null @p data gives a null buffer, whatever the size
    /// (QByteArray::QByteArray(char const*, int)).
    KDRBuffer(char const* data, int size = -1);
    /// @p size bytes, each @p ch. A size of zero or less gives an empty buffer that is not null.
    KDRBuffer(int size, char ch);
    /// Shares the bytes of @p other.
    KDRBuffer(KDRBuffer const& other);
    /// Shares the bytes of @p other, which keeps them: a moved-from buffer is unchanged. Costs the
    /// holder's allocation, so it may throw. Kept on purpose.
    KDRBuffer(KDRBuffer&& other);
    /// Gives up the bytes; the last buffer that shares them frees them.
    ~KDRBuffer();

    /// Shares the bytes of @p other. Returns this buffer.
    KDRBuffer& operator=(KDRBuffer const& other);
    /// Shares the bytes of @p other, which keeps them: a moved-from buffer is unchanged. Returns
    /// this buffer. Kept on purpose.
    KDRBuffer& operator=(KDRBuffer&& other);
    /// Takes a copy of the bytes of @p str up to its terminating zero; a null pointer makes this
    /// buffer null. Returns this buffer.
    KDRBuffer& operator=(char const* str);

    /// A buffer that refers to the @p size bytes at @p data without copying them; a negative
    /// @p size means up to the terminating zero. The caller keeps them alive and unchanged as long
    /// as the buffer or any copy of it exists. There need be no zero behind the last byte: nothing
    /// beside the bytes is read. What writes copies the bytes first; what only cuts bytes off
    /// (truncate(), chop(), a smaller resize()) and squeeze() go on referring to the caller's
    /// bytes, unless a copy refers to them too (QByteArray::fromRawData).
    static KDRBuffer fromRawData(char const* data, int size);
    /// Makes this buffer refer to the @p size bytes at @p data without copying them, by the rules
    /// of fromRawData(). No bytes make it empty. A null pointer makes it null, whatever the size,
    /// but empty if it alone refers to a caller's bytes already. Returns this buffer, but the
    /// result is not to be used. Kept on purpose (QByteArray::setRawData).
    KDRBuffer& setRawData(char const* data, unsigned int size);

    /// The number of bytes (QByteArray::size).
    int size() const;
    /// The number of bytes, as size().
    int length() const;
    /// The number of bytes, as size().
    int count() const;
    /// How many bytes there is room for without another allocation; 0 for the null buffer and for
    /// bytes that are only referred to (QByteArray::capacity).
    int capacity() const;
    /// Whether there are no bytes; true of a null buffer too (QByteArray::isEmpty).
    bool isEmpty() const;
    /// Whether this buffer was given no bytes at all (QByteArray::isNull).
    bool isNull() const;
    /// The byte at @p i. The caller sees to 0 <= @p i < size(): only builds with assertions check
    /// it (QByteArray::at).
    char at(int i) const;
    /// The byte at @p i, or a space where there is none, in an empty buffer too. Kept on purpose.
    char operator[](int i) const;
    /// The byte at @p i, or a space behind the last one. In an empty buffer it is a zero for every
    /// index, unlike with an `int`. Kept on purpose.
    char operator[](unsigned int i) const;

    /// The bytes, for reading, followed by a zero byte (but see fromRawData()). Never null and
    /// never a copy; valid until this buffer is next changed or destroyed (QByteArray::constData).
    char const* constData() const;
    /// The bytes, for writing, followed by a zero byte that must stay. Shared bytes are copied
    /// first, so that no other buffer sees the writing; a null buffer becomes an empty one. Valid
    /// until this buffer is next changed or destroyed (QByteArray::data).
    char* data();
    /// The same, on a constant buffer: it too copies shared bytes first and lets them be written.
    /// For reading, constData() costs nothing. Kept on purpose.
    char* data() const;

    /// Whether the bytes of @p needle occur; an empty needle always does (QByteArray::contains).
    bool contains(KDRBuffer const& needle) const;
    /// The same for the bytes of @p needle up to its zero; a null pointer counts as empty.
    bool contains(char const* needle) const;
    /// Whether the byte occurs.
    bool contains(char ch) const;
    /// How often the bytes of @p needle occur, overlaps included (QByteArray::count). An empty
    /// needle counts size() + 1 times; Qt's own search for one never ends.
    int count(KDRBuffer const& needle) const;
    /// The same for the bytes of @p needle up to its zero; a null pointer counts as empty.
    int count(char const* needle) const;
    /// How often the byte occurs.
    int count(char ch) const;
    /// The position of the first occurrence of @p needle at or after @p from, or -1. A negative
    /// @p from counts from the end. An empty needle is found at @p from itself, whatever that is
    /// (QByteArray::indexOf).
    int indexOf(KDRBuffer const& needle, int from = 0) const;
    /// The same for the bytes of @p needle up to its zero; a null pointer counts as empty, and an
    /// empty needle is not found behind the end.
    int indexOf(char const* needle, int from = 0) const;
    /// The same for one byte.
    int indexOf(char ch, int from = 0) const;
    /// The position of the last occurrence of @p needle that begins at or before @p from, or -1.
    /// For a needle of one byte a negative @p from counts from the end, and one behind the end
    /// means the end; for any other every negative one means the end, and behind the end nothing is
    /// found. From size() itself a zero byte is found there: the one behind the last byte, unless
    /// the bytes are only referred to (QByteArray::lastIndexOf).
    int lastIndexOf(KDRBuffer const& needle, int from = -1) const;
    /// The same for the bytes of @p needle up to its zero; a null pointer counts as empty.
    int lastIndexOf(char const* needle, int from = -1) const;
    /// The same for one byte, as for a needle of one.
    int lastIndexOf(char ch, int from = -1) const;
    /// Whether the buffer begins with the bytes of @p start; an empty start always fits
    /// (QByteArray::startsWith).
    bool startsWith(KDRBuffer const& start) const;
    /// The same for the bytes of @p start up to its zero; a null pointer counts as empty.
    bool startsWith(char const* start) const;
    /// Whether the first byte is @p ch.
    bool startsWith(char ch) const;
    /// Whether the buffer ends with the bytes of @p end; an empty end always fits
    /// (QByteArray::endsWith).
    bool endsWith(KDRBuffer const& end) const;
    /// The same for the bytes of @p end up to its zero; a null pointer counts as empty.
    bool endsWith(char const* end) const;
    /// Whether the last byte is @p ch.
    bool endsWith(char ch) const;

    /// The first @p n bytes, all of them if there are fewer, none if @p n is negative
    /// (QByteArray::left).
    KDRBuffer left(int n) const;
    /// The last @p n bytes, all of them if there are fewer, none if @p n is negative
    /// (QByteArray::right).
    KDRBuffer right(int n) const;
    /// The @p n bytes from @p pos on, or those that there are; with a negative @p n all to the end.
    /// What a negative @p pos puts before the first byte counts but gives nothing. Null if the
    /// stretch lies beyond the end or before the first byte; empty if it lies at the end, and for
    /// no bytes out of the middle; all of the bytes, shared, if it takes in all (QByteArray::mid).
    KDRBuffer mid(int pos, int n = -1) const;
    /// The bytes @p times over, a null buffer for 0 and less; an empty buffer is itself any times
    /// over, a null one null. Throws std::bad_alloc where that is more than an `int` counts
    /// (QByteArray::repeated).
    KDRBuffer repeated(int times) const;
    /// The bytes without white space at both ends (QByteArray::trimmed).
    KDRBuffer trimmed() const;
    /// The bytes without white space at both ends, and with one space for every other stretch of it
    /// (QByteArray::simplified).
    KDRBuffer simplified() const;
    /// The bytes with Latin letters in lower case (QByteArray::toLower).
    KDRBuffer toLower() const;
    /// The bytes with Latin letters in upper case (QByteArray::toUpper).
    KDRBuffer toUpper() const;
    /// The bytes filled up with @p fill on the right to @p width bytes. Longer ones are cut off
    /// with @p truncate and otherwise stay as they are (QByteArray::leftJustified).
    KDRBuffer leftJustified(int width, char fill = ' ', bool truncate = false) const;
    /// The same, filled up on the left (QByteArray::rightJustified).
    KDRBuffer rightJustified(int width, char fill = ' ', bool truncate = false) const;

    /// The bytes in Base64, the standard way (QByteArray::toBase64).
    KDRBuffer toBase64() const;
    /// The bytes in Base64 (QByteArray::toBase64).
    KDRBuffer toBase64(KDRBase64Option options) const;
    /// The bytes with all but letters, digits and `-._~` written as @p percent and two hexadecimal
    /// digits; those in @p exclude stay, those in @p include are always written so
    /// (QByteArray::toPercentEncoding).
    KDRBuffer toPercentEncoding(KDRBuffer const& exclude = KDRBuffer(),
                                KDRBuffer const& include = KDRBuffer(), char percent = '%') const;
    /// The number that the bytes spell in @p base (2 to 36, or 0 for the prefixes of C; in no other
    /// base do they), or 0. @p ok, when not null, receives whether the bytes are a number that
    /// fits. There is no other number conversion. Kept on purpose (QByteArray::toShort).
    short toShort(bool* ok = nullptr, int base = 10) const;

    /// What Base64 bytes stand for; anything that is not Base64 is skipped
    /// (QByteArray::fromBase64).
    static KDRBuffer fromBase64(KDRBuffer const& base64);
    /// The same in the alphabet of @p options.
    static KDRBuffer fromBase64(KDRBuffer const& base64, KDRBase64Option options);
    /// What hexadecimal digits stand for; anything else is skipped. There is no encoder. Kept on
    /// purpose (QByteArray::fromHex).
    static KDRBuffer fromHex(KDRBuffer const& hex);
    /// The bytes with @p percent and two hexadecimal digits read as one byte
    /// (QByteArray::fromPercentEncoding).
    static KDRBuffer fromPercentEncoding(KDRBuffer const& input, char percent = '%');
    /// Answers 1. Kept on purpose.
    static int memorySequence();

    /// Appends the bytes of @p other, which may be this buffer. An empty null buffer then shares
    /// them. Returns this buffer (QByteArray::append).
    KDRBuffer& append(KDRBuffer const& other);
    /// Appends the bytes of @p str up to its zero; null appends nothing, and an empty text makes a
    /// null buffer an empty one. Here and in the other operations @p str may point into this
    /// buffer's own bytes. Returns this buffer.
    KDRBuffer& append(char const* str);
    /// Appends the @p len bytes at @p str; a negative @p len means up to the terminating zero, null
    /// appends nothing. Returns this buffer.
    KDRBuffer& append(char const* str, int len);
    /// Appends one byte. Returns this buffer.
    KDRBuffer& append(char ch);
    /// Appends @p count bytes @p ch; 0 and less append nothing. Returns this buffer.
    KDRBuffer& append(int count, char ch);
    /// Puts the bytes of @p other in front; otherwise as append().
    KDRBuffer& prepend(KDRBuffer const& other);
    /// Puts the bytes of @p str in front; otherwise as append().
    KDRBuffer& prepend(char const* str);
    /// Puts the @p len bytes at @p str in front; otherwise as append(), but no bytes make a null
    /// buffer an empty one.
    KDRBuffer& prepend(char const* str, int len);
    /// Puts one byte in front. Returns this buffer.
    KDRBuffer& prepend(char ch);
    /// Puts @p count bytes @p ch in front. Returns this buffer.
    KDRBuffer& prepend(int count, char ch);
    /// Inserts the bytes of @p other at @p i. A negative @p i changes nothing; one behind the end
    /// fills the gap with spaces, and throws std::bad_alloc where that is more than an `int`
    /// counts. Returns this buffer (QByteArray::insert).
    KDRBuffer& insert(int i, KDRBuffer const& other);
    /// Inserts @p count bytes @p ch at @p i, by the same rules; 0 and less insert nothing.
    KDRBuffer& insert(int i, int count, char ch);
    /// Inserts the bytes of @p str up to its zero at @p i, by the same rules; null inserts nothing.
    KDRBuffer& insert(int i, char const* str);
    /// Inserts the @p len bytes at @p str at @p i, by the same rules; null or a negative @p len
    /// inserts nothing.
    KDRBuffer& insert(int i, char const* str, int len);
    /// Inserts one byte at @p i, by the same rules.
    KDRBuffer& insert(int i, char ch);
    /// Appends as append() does. Returns this buffer.
    KDRBuffer& operator+=(KDRBuffer const& other);
    /// @copydoc operator+=(KDRBuffer const&)
    KDRBuffer& operator+=(char const* str);
    /// @copydoc operator+=(KDRBuffer const&)
    KDRBuffer& operator+=(char ch);
    /// Appends as append() does.
    void push_back(KDRBuffer const& other);
    /// @copydoc push_back(KDRBuffer const&)
    void push_back(char const* str);
    /// @copydoc push_back(KDRBuffer const&)
    void push_back(char ch);
    /// Puts in front as prepend() does.
    void push_front(KDRBuffer const& other);
    /// @copydoc push_front(KDRBuffer const&)
    void push_front(char const* str);
    /// @copydoc push_front(KDRBuffer const&)
    void push_front(char ch);

    /// Removes @p len bytes from @p pos on, fewer at the end; a position outside or a length of 0
    /// and less removes nothing. Returns this buffer (QByteArray::remove).
    KDRBuffer& remove(int pos, int len);
    /// Puts the bytes of @p after, which may be this buffer, in the place of @p len bytes from
    /// @p pos on: what remove() and then insert() do, with a gap filled by spaces. A buffer in
    /// which nothing is removed or inserted stays null if it is, but for no bytes in the place of
    /// no bytes that lie in or before it: they make it empty. Returns this buffer
    /// (QByteArray::replace).
    KDRBuffer& replace(int pos, int len, KDRBuffer const& after);
    /// The same with the bytes of @p after up to its zero; null counts as empty.
    KDRBuffer& replace(int pos, int len, char const* after);
    /// The same with the @p alen bytes at @p after; a negative @p alen, or a null pointer, inserts
    /// nothing.
    KDRBuffer& replace(int pos, int len, char const* after, int alen);
    /// Puts the bytes of @p after up to its zero in the place of every byte @p before; null counts
    /// as empty, so that the bytes are removed. Returns this buffer (QByteArray::replace).
    KDRBuffer& replace(char before, char const* after);
    /// The same with the bytes of @p after.
    KDRBuffer& replace(char before, KDRBuffer const& after);
    /// The same with the one byte @p after.
    KDRBuffer& replace(char before, char after);
    /// Puts @p after in the place of every occurrence of @p before, each up to its zero, null
    /// counting as empty. An empty @p before occurs in front of every byte and at the end; in a
    /// null buffer nothing occurs. Throws std::bad_alloc where the result is more than an `int`
    /// counts. Returns this buffer (QByteArray::replace).
    KDRBuffer& replace(char const* before, char const* after);
    /// The same with @p blen and @p alen bytes; a negative length means up to the zero.
    KDRBuffer& replace(char const* before, int blen, char const* after, int alen);
    /// The same with the bytes of two buffers, of which either may be this one.
    KDRBuffer& replace(KDRBuffer const& before, KDRBuffer const& after);
    /// The same with the bytes of @p after up to its zero.
    KDRBuffer& replace(KDRBuffer const& before, char const* after);
    /// The same with the bytes of @p before up to its zero.
    KDRBuffer& replace(char const* before, KDRBuffer const& after);

    /// Makes every byte @p ch and the size @p size, or with a negative one leaves the size. Returns
    /// this buffer (QByteArray::fill).
    KDRBuffer& fill(char ch, int size = -1);
    /// Removes the last @p n bytes, all of them if there are fewer (QByteArray::chop).
    void chop(int n);
    /// Cuts the buffer off at @p pos; a shorter one stays as it is, and a negative position counts
    /// as 0 (QByteArray::truncate).
    void truncate(int pos);
    /// Makes this a null buffer (QByteArray::clear).
    void clear();
    /// Makes the size @p size, a negative one counting as 0. New bytes hold anything
    /// (QByteArray::resize).
    void resize(int size);
    /// Makes room for @p size bytes and copies shared ones, so that a null buffer becomes an empty
    /// one with 0 too. A negative size changes nothing (QByteArray::reserve).
    void reserve(int size);
    /// Gives up room that no byte uses; shared bytes are copied (QByteArray::squeeze).
    void squeeze();
    /// Exchanges the bytes of two buffers without copying any (QByteArray::swap).
    void swap(KDRBuffer& other);

private:
    friend struct KDRInternal;
    QByteArray* d;
};

/// Both options together.
constexpr KDRBuffer::KDRBase64Option operator|(KDRBuffer::KDRBase64Option a,
                                               KDRBuffer::KDRBase64Option b)
{
    return static_cast<KDRBuffer::KDRBase64Option>(static_cast<int>(a) | static_cast<int>(b));
}

/// A buffer may be moved in memory byte by byte, and a QList keeps it in its slots.
Q_DECLARE_TYPEINFO(KDRBuffer, Q_MOVABLE_TYPE);

#endif
