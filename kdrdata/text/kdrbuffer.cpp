#include <kdrdata/text/kdrbuffer.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/textlimits_p.h>

#include <QtCore/QByteArray>

#include <algorithm>
#include <climits>
#include <cstring>
#include <functional>
#include <new>

namespace {

using namespace KDRTextLimits;

static_assert(int{KDRBuffer::KDRBase64Standard} == int{QByteArray::Base64Encoding});
static_assert(int{KDRBuffer::KDRBase64Url} == int{QByteArray::Base64UrlEncoding});
static_assert(int{KDRBuffer::KDRBase64OmitTrailingEquals} == int{QByteArray::OmitTrailingEquals});

QByteArray::Base64Options qtOptions(KDRBuffer::KDRBase64Option options)
{
    return QByteArray::Base64Options(QFlag(int{options}));
}

int lengthOf(char const* str, int len) { return len < 0 ? static_cast<int>(qstrlen(str)) : len; }

// The caller's bytes without copying them, for calls that only read them.
QByteArray view(char const* str, int len)
{
    return QByteArray::fromRawData(str, lengthOf(str, len));
}

// Qt moves its own bytes before it reads the given ones; those that lie among them are copied
// first.
bool liesIn(QByteArray const& bytes, char const* str)
{
    std::less<char const*> const before;
    char const* const begin = bytes.constData();
    return !before(str, begin) && !before(begin + bytes.size(), str);
}

void appendTo(QByteArray& bytes, char const* str, int len)
{
    if (!str || lengthOf(str, len) == 0)
        return;
    if (liesIn(bytes, str))
        bytes.append(QByteArray(str, len));
    else
        bytes.append(str, len);
}

void prependTo(QByteArray& bytes, char const* str, int len)
{
    if (!str)
        return;
    // Qt takes a negative length for a very large one.
    len = lengthOf(str, len);
    if (liesIn(bytes, str))
        bytes.prepend(QByteArray(str, len).constData(), len);
    else
        bytes.prepend(str, len);
}

void insertInto(QByteArray& bytes, int i, char const* str, int len)
{
    if (!str || i < 0 || len <= 0)
        return;
    mustFit(static_cast<long long>(std::max(i, bytes.size())) + len);
    if (liesIn(bytes, str))
        bytes.insert(i, QByteArray(str, len));
    else
        bytes.insert(i, str, len);
}

// Whether a zero of the buffer's own follows the last byte. Nothing is known of what follows bytes
// that are only referred to.
bool endsInZero(QByteArray& bytes)
{
    auto const* const header = bytes.data_ptr();
    return header->alloc != 0 || header->ref.isStatic();
}

// Qt looks at the byte behind the last one when it starts there.
int lastIndexOfByte(QByteArray& bytes, char ch, int from)
{
    bool const readsBehind = from == bytes.size() && !endsInZero(bytes);
    return bytes.lastIndexOf(ch, readsBehind ? from - 1 : from);
}

// Qt reads behind the bytes for an empty needle, and before them for one that is longer than they.
int lastIndexOfBytes(QByteArray& bytes, QByteArray const& needle, int from)
{
    if (needle.size() == 1)
        return lastIndexOfByte(bytes, needle.at(0), from);
    if (needle.size() > bytes.size() || from > bytes.size())
        return -1;
    if (needle.isEmpty())
        return from < 0 ? bytes.size() : from;
    return bytes.lastIndexOf(needle, from);
}

// Qt edits in two steps, of which the second may find no memory: it removes and then inserts. Where
// the bytes grow, room is made first. For a negative position, and where position and length
// overflow, Qt writes outside the bytes; both are taken for what the two steps do with them.
void replaceRange(QByteArray& bytes, int pos, int len, char const* after, int alen)
{
    int const size = bytes.size();
    if (alen < 0 || (!after && alen > 0)) {
        bytes.remove(pos, len);
        return;
    }
    if (pos < 0 && (len != 0 || alen != 0))
        return;
    int const removed = std::clamp(len, 0, std::max(0, size - pos));
    long long const grown = static_cast<long long>(std::max(pos, size - removed)) + alen;
    if (alen == 0 || grown <= size) {
        bytes.replace(pos, len, after, alen);
        return;
    }
    mustFit(grown);
    bytes.resize(static_cast<int>(grown));
    char* const data = bytes.data();
    if (pos < size)
        std::memmove(data + pos + alen, data + pos + removed,
                     static_cast<std::size_t>(size - pos - removed));
    else
        std::memset(data + size, ' ', static_cast<std::size_t>(pos - size));
    std::memcpy(data + pos, after, static_cast<std::size_t>(alen));
}

// Qt subtracts the size without looking; all negative widths mean the same.
int knownWidth(int width) { return std::max(width, -1); }

// Qt reads what is to be replaced and what replaces it while it moves its own bytes.
void replaceAll(QByteArray& bytes, QByteArray const& given, QByteArray const& givenAfter)
{
    QByteArray copies[2];
    auto const apart = [&bytes](QByteArray const& part, QByteArray& copy) -> QByteArray const& {
        if (!liesIn(bytes, part.constData()))
            return part;
        return copy = QByteArray(part.constData(), part.size());
    };
    QByteArray const& before = apart(given, copies[0]);
    QByteArray const& after = apart(givenAfter, copies[1]);
    replacementMustFit(bytes.size(), before.size(), after.size(),
                       [&](int from) { return bytes.indexOf(before, from); });
    // Where the bytes grow, Qt makes room for so many occurrences at a time and may find none half
    // way through.
    constexpr int atATime = 4095;
    if (after.size() <= before.size() || mostOccurrences(bytes.size(), before.size()) <= atATime) {
        bytes.replace(before, after);
        return;
    }
    QByteArray edited(bytes);
    edited.replace(before, after);
    bytes.swap(edited);
}

int countOf(QByteArray const& bytes, QByteArray const& needle)
{
    return needle.isEmpty() ? bytes.size() + 1 : bytes.count(needle);
}

} // namespace

KDRBuffer::KDRBuffer() : d(new QByteArray) {}
KDRBuffer::KDRBuffer(char const* data, int size) : d(new QByteArray(data, size)) {}
KDRBuffer::KDRBuffer(int size, char ch) : d(new QByteArray(size, ch)) {}
KDRBuffer::KDRBuffer(KDRBuffer const& other) : d(new QByteArray(*other.d)) {}
KDRBuffer::KDRBuffer(KDRBuffer&& other) : d(new QByteArray(*other.d)) {}

KDRBuffer::~KDRBuffer()
{
    delete d;
    d = nullptr;
}

KDRBuffer& KDRBuffer::operator=(KDRBuffer const& other)
{
    *d = *other.d;
    return *this;
}

KDRBuffer& KDRBuffer::operator=(KDRBuffer&& other)
{
    *d = *other.d;
    return *this;
}

KDRBuffer& KDRBuffer::operator=(char const* str)
{
    *d = QByteArray(str, -1);
    return *this;
}

KDRBuffer KDRBuffer::fromRawData(char const* data, int size)
{
    return KDRInternal::taking<KDRBuffer>(QByteArray::fromRawData(data, lengthOf(data, size)));
}

KDRBuffer& KDRBuffer::setRawData(char const* data, unsigned int size)
{
    if (data)
        mustFit(size);
    d->setRawData(data, size);
    // Bytes that were only referred to before leave a buffer that is empty and not null, but with
    // no zero behind it.
    if (!data && !d->isNull())
        *d = QByteArray("");
    return *this;
}

int KDRBuffer::size() const { return d->size(); }
int KDRBuffer::length() const { return d->size(); }
int KDRBuffer::count() const { return d->size(); }
int KDRBuffer::capacity() const { return d->capacity(); }
bool KDRBuffer::isEmpty() const { return d->isEmpty(); }
bool KDRBuffer::isNull() const { return d->isNull(); }
char KDRBuffer::at(int i) const { return d->at(i); }

char KDRBuffer::operator[](int i) const { return i < 0 || i >= d->size() ? ' ' : d->at(i); }

char KDRBuffer::operator[](unsigned int i) const
{
    // In an empty buffer the last position wraps to the largest one, and no index lies behind it.
    if (static_cast<unsigned int>(d->size()) - 1U < i)
        return ' ';
    return d->isEmpty() ? '\0' : d->constData()[i];
}

char const* KDRBuffer::constData() const { return d->constData(); }
char* KDRBuffer::data() { return d->data(); }
char* KDRBuffer::data() const { return d->data(); }

bool KDRBuffer::contains(KDRBuffer const& needle) const { return d->contains(*needle.d); }
bool KDRBuffer::contains(char const* needle) const { return d->contains(needle); }
bool KDRBuffer::contains(char ch) const { return d->contains(ch); }
int KDRBuffer::count(KDRBuffer const& needle) const { return countOf(*d, *needle.d); }
int KDRBuffer::count(char const* needle) const { return countOf(*d, view(needle, -1)); }
int KDRBuffer::count(char ch) const { return d->count(ch); }
int KDRBuffer::indexOf(KDRBuffer const& needle, int from) const
{
    return d->indexOf(*needle.d, searchStart(d->size(), needle.d->size(), from));
}
int KDRBuffer::indexOf(char const* needle, int from) const
{
    return d->indexOf(needle, searchStart(d->size(), lengthOf(needle, -1), from));
}
int KDRBuffer::indexOf(char ch, int from) const { return d->indexOf(ch, from); }
int KDRBuffer::lastIndexOf(KDRBuffer const& needle, int from) const
{
    return lastIndexOfBytes(*d, *needle.d, from);
}
int KDRBuffer::lastIndexOf(char const* needle, int from) const
{
    return lastIndexOfBytes(*d, view(needle, -1), from);
}
int KDRBuffer::lastIndexOf(char ch, int from) const { return lastIndexOfByte(*d, ch, from); }
bool KDRBuffer::startsWith(KDRBuffer const& start) const { return d->startsWith(*start.d); }
bool KDRBuffer::startsWith(char const* start) const { return d->startsWith(start); }
bool KDRBuffer::startsWith(char ch) const { return d->startsWith(ch); }
bool KDRBuffer::endsWith(KDRBuffer const& end) const { return d->endsWith(*end.d); }
bool KDRBuffer::endsWith(char const* end) const { return d->endsWith(end); }
bool KDRBuffer::endsWith(char ch) const { return d->endsWith(ch); }

KDRBuffer KDRBuffer::left(int n) const { return KDRInternal::taking<KDRBuffer>(d->left(n)); }
KDRBuffer KDRBuffer::right(int n) const { return KDRInternal::taking<KDRBuffer>(d->right(n)); }
KDRBuffer KDRBuffer::mid(int pos, int n) const
{
    return KDRInternal::taking<KDRBuffer>(d->mid(pos, n));
}

KDRBuffer KDRBuffer::repeated(int times) const
{
    if (times > 0)
        mustFit(static_cast<long long>(d->size()) * times);
    return KDRInternal::taking<KDRBuffer>(d->repeated(times));
}

KDRBuffer KDRBuffer::trimmed() const { return KDRInternal::taking<KDRBuffer>(d->trimmed()); }
KDRBuffer KDRBuffer::simplified() const { return KDRInternal::taking<KDRBuffer>(d->simplified()); }
KDRBuffer KDRBuffer::toLower() const { return KDRInternal::taking<KDRBuffer>(d->toLower()); }
KDRBuffer KDRBuffer::toUpper() const { return KDRInternal::taking<KDRBuffer>(d->toUpper()); }

KDRBuffer KDRBuffer::leftJustified(int width, char fill, bool truncate) const
{
    return KDRInternal::taking<KDRBuffer>(d->leftJustified(knownWidth(width), fill, truncate));
}

KDRBuffer KDRBuffer::rightJustified(int width, char fill, bool truncate) const
{
    return KDRInternal::taking<KDRBuffer>(d->rightJustified(knownWidth(width), fill, truncate));
}

KDRBuffer KDRBuffer::toBase64() const { return KDRInternal::taking<KDRBuffer>(d->toBase64()); }

KDRBuffer KDRBuffer::toBase64(KDRBase64Option options) const
{
    return KDRInternal::taking<KDRBuffer>(d->toBase64(qtOptions(options)));
}

KDRBuffer KDRBuffer::toPercentEncoding(KDRBuffer const& exclude, KDRBuffer const& include,
                                       char percent) const
{
    return KDRInternal::taking<KDRBuffer>(d->toPercentEncoding(*exclude.d, *include.d, percent));
}

short KDRBuffer::toShort(bool* ok, int base) const { return d->toShort(ok, base); }

KDRBuffer KDRBuffer::fromBase64(KDRBuffer const& base64)
{
    return KDRInternal::taking<KDRBuffer>(QByteArray::fromBase64(*base64.d));
}

KDRBuffer KDRBuffer::fromBase64(KDRBuffer const& base64, KDRBase64Option options)
{
    return KDRInternal::taking<KDRBuffer>(QByteArray::fromBase64(*base64.d, qtOptions(options)));
}

KDRBuffer KDRBuffer::fromHex(KDRBuffer const& hex)
{
    return KDRInternal::taking<KDRBuffer>(QByteArray::fromHex(*hex.d));
}

KDRBuffer KDRBuffer::fromPercentEncoding(KDRBuffer const& input, char percent)
{
    return KDRInternal::taking<KDRBuffer>(QByteArray::fromPercentEncoding(*input.d, percent));
}

int KDRBuffer::memorySequence() { return 1; }

KDRBuffer& KDRBuffer::append(KDRBuffer const& other)
{
    d->append(*other.d);
    return *this;
}

KDRBuffer& KDRBuffer::append(char const* str)
{
    // Unlike one with a length, this makes an empty buffer of a null one.
    if (str && *str == '\0')
        d->append(str);
    return append(str, -1);
}

KDRBuffer& KDRBuffer::append(char const* str, int len)
{
    appendTo(*d, str, len);
    return *this;
}

KDRBuffer& KDRBuffer::append(char ch)
{
    d->append(ch);
    return *this;
}

KDRBuffer& KDRBuffer::append(int count, char ch) { return insert(d->size(), count, ch); }

KDRBuffer& KDRBuffer::prepend(KDRBuffer const& other)
{
    // Qt puts the other bytes in the place of these before it finds room for both.
    if (other.d->isEmpty()) {
        d->prepend(*other.d);
    } else {
        QByteArray both(*other.d);
        both.append(*d);
        d->swap(both);
    }
    return *this;
}

KDRBuffer& KDRBuffer::prepend(char const* str) { return prepend(str, -1); }

KDRBuffer& KDRBuffer::prepend(char const* str, int len)
{
    prependTo(*d, str, len);
    return *this;
}

KDRBuffer& KDRBuffer::prepend(char ch)
{
    d->prepend(ch);
    return *this;
}

KDRBuffer& KDRBuffer::prepend(int count, char ch) { return insert(0, count, ch); }

KDRBuffer& KDRBuffer::insert(int i, KDRBuffer const& other)
{
    if (i >= 0)
        mustFit(static_cast<long long>(std::max(i, d->size())) + other.d->size());
    d->insert(i, *other.d);
    return *this;
}

KDRBuffer& KDRBuffer::insert(int i, int count, char ch)
{
    if (i >= 0 && count > 0)
        mustFit(static_cast<long long>(std::max(i, d->size())) + count);
    d->insert(i, count, ch);
    return *this;
}

KDRBuffer& KDRBuffer::insert(int i, char const* str)
{
    insertInto(*d, i, str, lengthOf(str, -1));
    return *this;
}

KDRBuffer& KDRBuffer::insert(int i, char const* str, int len)
{
    insertInto(*d, i, str, len);
    return *this;
}

KDRBuffer& KDRBuffer::insert(int i, char ch) { return insert(i, 1, ch); }

KDRBuffer& KDRBuffer::operator+=(KDRBuffer const& other) { return append(other); }
KDRBuffer& KDRBuffer::operator+=(char const* str) { return append(str); }
KDRBuffer& KDRBuffer::operator+=(char ch) { return append(ch); }
void KDRBuffer::push_back(KDRBuffer const& other) { append(other); }
void KDRBuffer::push_back(char const* str) { append(str); }
void KDRBuffer::push_back(char ch) { append(ch); }
void KDRBuffer::push_front(KDRBuffer const& other) { prepend(other); }
void KDRBuffer::push_front(char const* str) { prepend(str); }
void KDRBuffer::push_front(char ch) { prepend(ch); }

KDRBuffer& KDRBuffer::remove(int pos, int len)
{
    d->remove(pos, len);
    return *this;
}

KDRBuffer& KDRBuffer::replace(int pos, int len, KDRBuffer const& after)
{
    QByteArray const bytes(*after.d);
    return replace(pos, len, bytes.constData(), bytes.size());
}

KDRBuffer& KDRBuffer::replace(int pos, int len, char const* after)
{
    return replace(pos, len, after, lengthOf(after, -1));
}

KDRBuffer& KDRBuffer::replace(int pos, int len, char const* after, int alen)
{
    if (after && alen > 0 && liesIn(*d, after))
        replaceRange(*d, pos, len, QByteArray(after, alen).constData(), alen);
    else
        replaceRange(*d, pos, len, after, alen);
    return *this;
}

KDRBuffer& KDRBuffer::replace(char before, char const* after)
{
    return replace(&before, 1, after, -1);
}

KDRBuffer& KDRBuffer::replace(char before, KDRBuffer const& after)
{
    replaceAll(*d, QByteArray(1, before), *after.d);
    return *this;
}

KDRBuffer& KDRBuffer::replace(char before, char after)
{
    d->replace(before, after);
    return *this;
}

KDRBuffer& KDRBuffer::replace(char const* before, char const* after)
{
    return replace(before, -1, after, -1);
}

KDRBuffer& KDRBuffer::replace(char const* before, int blen, char const* after, int alen)
{
    replaceAll(*d, view(before, blen), view(after, alen));
    return *this;
}

KDRBuffer& KDRBuffer::replace(KDRBuffer const& before, KDRBuffer const& after)
{
    replaceAll(*d, *before.d, *after.d);
    return *this;
}

KDRBuffer& KDRBuffer::replace(KDRBuffer const& before, char const* after)
{
    replaceAll(*d, *before.d, view(after, -1));
    return *this;
}

KDRBuffer& KDRBuffer::replace(char const* before, KDRBuffer const& after)
{
    replaceAll(*d, view(before, -1), *after.d);
    return *this;
}

KDRBuffer& KDRBuffer::fill(char ch, int size)
{
    // Qt writes into bytes that are only referred to where they become fewer.
    if (!endsInZero(*d))
        d->detach();
    d->fill(ch, size);
    return *this;
}

void KDRBuffer::chop(int n) { d->chop(n); }
void KDRBuffer::truncate(int pos) { d->truncate(pos); }
void KDRBuffer::clear() { d->clear(); }
void KDRBuffer::resize(int size) { d->resize(size); }

void KDRBuffer::reserve(int size)
{
    // Qt takes a negative size for a very large one.
    if (size >= 0)
        d->reserve(size);
}

void KDRBuffer::squeeze() { d->squeeze(); }
void KDRBuffer::swap(KDRBuffer& other) { d->swap(*other.d); }
