#include <kdrdata/text/kdrstring.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/kdrregexp.h>
#include <kdrdata/text/kdrstringarray.h>
#include <kdrdata/text/textlimits_p.h>
#include <kdrdata/text/textmarkers_p.h>

#include <QtCore/QByteArray>
#include <QtCore/QChar>
#include <QtCore/QRegExp>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTextCodec>

#include <algorithm>
#include <climits>
#include <cmath>
#include <iterator>
#include <new>

namespace {

using namespace KDRTextLimits;

// By the value of KDREncoding. Numbers 11 to 13 name families of encodings, so that no codec is
// found for them and the codec of the environment comes back.
constexpr char const* codecNames[] = {
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
    "UTF-32LE",
};
static_assert(std::size(codecNames) == KDRString::EncodingUTF32LE + 1);

// Qt's enumerations cannot hold every int, so that values outside are sorted in here, as Qt itself
// would take them.
Qt::CaseSensitivity qtCase(KDRString::KDRCaseSensitivity cs)
{
    return cs == KDRString::KDRCaseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

Qt::SplitBehavior qtBehavior(KDRString::KDRSplitBehavior behavior)
{
    return behavior == KDRString::KDRKeepEmptyParts ? Qt::KeepEmptyParts : Qt::SkipEmptyParts;
}

char formatLetter(KDRString::KDRConversionFormat format)
{
    return format == KDRString::KDRFormatGeneral ? 'g' : 'f';
}

// Qt divides by base 0 and never comes to an end with base 1. A zero is written in any base.
template <class Integer>
int knownBase(Integer n, int base)
{
    return n != 0 && (base == 0 || base == 1) ? 10 : base;
}

// No floating-point number has more significant digits than this; asked for more of them, Qt works
// long for the same answer and at last aborts the program.
constexpr int mostSignificantDigits = 1100;

int knownPrecision(double a, char letter, int precision)
{
    if (!std::isfinite(a))
        return 0;
    return letter == 'g' ? std::min(precision, mostSignificantDigits) : precision;
}

// Qt aborts the program at the largest precisions. No text is long enough for them.
void precisionMustFit(int precision)
{
    if (precision > INT_MAX / 2)
        throw std::bad_alloc();
}

void insertAt(QString& text, int i, QString const& inserted)
{
    mustFit(static_cast<long long>(i) + inserted.size());
    text.insert(i, inserted);
}

// Qt takes every negative size for -1, but not in all of its decoders.
int knownSize(int size) { return std::max(size, -1); }

// Where a text grows, Qt makes room for so many occurrences at a time and may find none half way
// through.
void replaceAll(QString& text, QString const& given, QString const& givenAfter,
                Qt::CaseSensitivity cs)
{
    // What lies in the text itself, Qt copies and forgets where it finds no memory.
    QString copies[2];
    auto const apart = [&text](QString const& part, QString& copy) -> QString const& {
        if (!part.isSharedWith(text))
            return part;
        return copy = QString(part.constData(), part.size());
    };
    QString const& before = apart(given, copies[0]);
    QString const& after = apart(givenAfter, copies[1]);
    replacementMustFit(text.size(), before.size(), after.size(),
                       [&](int from) { return text.indexOf(before, from, cs); });
    constexpr int atATime = 1024;
    if (after.size() <= before.size() || mostOccurrences(text.size(), before.size()) <= atATime) {
        text.replace(before, after, cs);
        return;
    }
    QString edited(text);
    edited.replace(before, after, cs);
    text.swap(edited);
}

// Throws std::bad_alloc where replacing what an expression matches makes too many units.
void matchesMustFit(QString const& text, QRegExp const& rx, QString const& after)
{
    if (text.size() + (text.size() + 1LL) * after.size() <= INT_MAX)
        return;
    QRegExp counter(rx.pattern(), rx.caseSensitivity(), rx.patternSyntax());
    counter.setMinimal(rx.isMinimal());
    long long size = text.size();
    for (int at = counter.indexIn(text); at >= 0;
         at = counter.indexIn(text, at + std::max(1, counter.matchedLength())))
        size += after.size() - counter.matchedLength();
    mustFit(size);
}

// Qt edits in as many steps as there are matches, or thousands of matches, and each may find no
// memory.
void replaceMatches(QString& text, QRegExp const& rx, QString const& after)
{
    matchesMustFit(text, rx, after);
    QString edited(text);
    edited.replace(rx, after);
    text.swap(edited);
}

// The longest that an integer is written in any base, digit groups and sign included, and a
// floating-point number but for its decimals.
constexpr int longestInteger = 128;
constexpr int longestFloating = 2048;

// Answers `text.arg()` of a number; @p format does it at a width.
template <class Format, class... Fill>
KDRString argNumber(QString const& text, int fieldWidth, Format const& format, Fill... fill)
{
    bool const inZeros = ((fill == QChar('0')) || ...);
    return KDRInternal::taking<KDRString>(inZeros && fieldWidth > KDRTextMarkers::fewZeros
                                              ? KDRTextMarkers::argInZeros(text, fieldWidth, format)
                                              : format(text, fieldWidth));
}

template <class Integer, class... Fill>
KDRString argInteger(QString const& text, Integer a, int fieldWidth, int base, Fill... fill)
{
    int const known = knownBase(a, base);
    formattedMustFit(text, fieldWidth, longestInteger,
                     [&](QString const& marker) { return marker.arg(a, 0, known).size(); });
    auto const format = [&](QString const& at, int width) {
        return at.arg(a, width, known, fill...);
    };
    return argNumber(text, fieldWidth, format, fill...);
}

template <class... Fill>
KDRString argFloating(QString const& text, double a, int fieldWidth, char letter, int precision,
                      Fill... fill)
{
    int const known = knownPrecision(a, letter, precision);
    int const decimals = known > mostSignificantDigits ? known : 0;
    auto const lengthAt = [&](QString const& marker) {
        precisionMustFit(known);
        return decimals == 0 ? marker.arg(a, 0, letter, known).size()
                             : marker.arg(a, 0, letter, 0).size() + 1LL + decimals;
    };
    // Above the half of what an int counts, one marker is too many.
    long long const bound =
        known > INT_MAX / 2 ? 1LL + INT_MAX : longestFloating + static_cast<long long>(decimals);
    formattedMustFit(text, fieldWidth, bound, lengthAt);
    auto const format = [&](QString const& at, int width) {
        return at.arg(a, width, letter, known, fill...);
    };
    return argNumber(text, fieldWidth, format, fill...);
}

template <class Value, class... Fill>
KDRString argUnits(QString const& text, Value const& a, int units, int fieldWidth, Fill... fill)
{
    formattedMustFit(text, fieldWidth, units, [&](QString const&) { return units; });
    return KDRInternal::taking<KDRString>(text.arg(a, fieldWidth, fill...));
}

// A zero character is replaced by no character at all.
template <class... Fill>
KDRString argCharacter(QString const& text, QChar a, int fieldWidth, Fill... fill)
{
    return a.isNull() ? argUnits(text, QString(""), 0, fieldWidth, fill...)
                      : argUnits(text, a, 1, fieldWidth, fill...);
}

} // namespace

KDRString::KDRString() : d(new QString) {}
KDRString::KDRString(KDRChar c) : d(new QString(KDRInternal::wrapped(c))) {}
KDRString::KDRString(KDRString const& other) : d(new QString(*other.d)) {}
KDRString::KDRString(char const* s) : d(new QString(s)) {}
KDRString::KDRString(unsigned short const* unicode, int size)
    : d(new QString(QString::fromUtf16(unicode, size)))
{
}
KDRString::KDRString(KDRBuffer const& b) : d(new QString(KDRInternal::wrapped(b))) {}

KDRString::~KDRString()
{
    delete d;
    d = nullptr;
}

KDRString& KDRString::operator=(KDRString const& other)
{
    *d = *other.d;
    return *this;
}

KDRString& KDRString::operator=(KDRBuffer const& b)
{
    *d = KDRInternal::wrapped(b);
    return *this;
}

KDRString& KDRString::operator=(char const* s)
{
    *d = s;
    return *this;
}

KDRString& KDRString::operator=(unsigned short const* unicode) { return fromUtf16(unicode, -1); }

KDRString& KDRString::fromLatin1(char const* str, int size)
{
    *d = QString::fromLatin1(str, size);
    return *this;
}

KDRString& KDRString::fromLocal8Bit(char const* str, int size)
{
    *d = QString::fromLocal8Bit(str, knownSize(size));
    return *this;
}

KDRString& KDRString::fromUtf8(char const* str, int size)
{
    *d = QString::fromUtf8(str, knownSize(size));
    return *this;
}

KDRString& KDRString::fromUtf16(unsigned short const* unicode, int size)
{
    *d = QString::fromUtf16(unicode, size);
    return *this;
}

KDRBuffer KDRString::toLatin1() const { return KDRInternal::taking<KDRBuffer>(d->toLatin1()); }

KDRBuffer KDRString::toUtf8() const { return KDRInternal::taking<KDRBuffer>(d->toUtf8()); }

KDRBuffer KDRString::toLocal8Bit() const
{
    return KDRInternal::taking<KDRBuffer>(d->toLocal8Bit());
}

unsigned short const* KDRString::toUtf16() const { return d->utf16(); }

bool KDRString::operator==(KDRString const& other) const { return *d == *other.d; }
bool KDRString::operator!=(KDRString const& other) const { return !(*d == *other.d); }
bool KDRString::operator!=(char const* s) const { return *d != s; }
bool KDRString::operator!=(KDRBuffer const& b) const { return *d != KDRInternal::wrapped(b); }

int KDRString::length() { return d->size(); }
int KDRString::size() const { return d->size(); }
bool KDRString::isEmpty() const { return d->isEmpty(); }
bool KDRString::isNull() const { return d->isNull(); }

KDRChar KDRString::at(int i) const
{
    KDRChar result;
    KDRInternal::wrapped(result) = d->at(i);
    return result;
}

void KDRString::swap(KDRString& other) { d->swap(*other.d); }
void KDRString::truncate(int position) { d->truncate(position); }

bool KDRString::contains(KDRString const& s, KDRCaseSensitivity cs) const
{
    return indexOf(s, 0, cs) != -1;
}

bool KDRString::contains(KDRRegExp const& rx) const { return indexOf(rx, 0) != -1; }

int KDRString::indexOf(KDRString const& s, int from, KDRCaseSensitivity cs) const
{
    return d->indexOf(*s.d, searchStart(d->size(), s.d->size(), from), qtCase(cs));
}

int KDRString::indexOf(KDRRegExp const& rx, int from) const
{
    return indexIn(KDRInternal::wrapped(rx), *d, from);
}

int KDRString::indexOf(KDRRegExp& rx, int from) const
{
    return indexIn(KDRInternal::wrapped(rx), *d, from);
}

int KDRString::lastIndexOf(KDRString const& s, int from, KDRCaseSensitivity cs) const
{
    return d->lastIndexOf(*s.d, from, qtCase(cs));
}

int KDRString::lastIndexOf(KDRRegExp const& rx, int from) const
{
    return d->lastIndexOf(*KDRInternal::pointer(rx), from);
}

int KDRString::lastIndexOf(KDRRegExp& rx, int from) const
{
    return d->lastIndexOf(KDRInternal::wrapped(rx), from);
}

bool KDRString::startsWith(KDRString const& s, KDRCaseSensitivity cs) const
{
    return d->startsWith(*s.d, qtCase(cs));
}

bool KDRString::endsWith(KDRString const& s, KDRCaseSensitivity cs) const
{
    return d->endsWith(*s.d, qtCase(cs));
}

KDRString& KDRString::insert(int i, KDRString const& s)
{
    insertAt(*d, i, *s.d);
    return *this;
}

KDRString& KDRString::insert(int i, char const* s)
{
    insertAt(*d, i, QString(s));
    return *this;
}

KDRString& KDRString::insert(int i, KDRBuffer const& b)
{
    insertAt(*d, i, QString(KDRInternal::wrapped(b)));
    return *this;
}

void KDRString::push_back(KDRString const& s) { d->append(*s.d); }
void KDRString::push_front(KDRString const& s) { d->prepend(*s.d); }

KDRString& KDRString::remove(int position, int n)
{
    d->remove(position, n);
    return *this;
}

KDRString& KDRString::remove(KDRString const& s, KDRCaseSensitivity cs)
{
    d->remove(*s.d, qtCase(cs));
    return *this;
}

KDRString& KDRString::remove(KDRRegExp const& rx)
{
    replaceMatches(*d, KDRInternal::wrapped(rx), QString());
    return *this;
}

KDRString& KDRString::replace(int position, int n, KDRString const& after)
{
    // With a negative count Qt would read what lies before the text, and add up three sizes.
    if (n < 0 && position >= 0 && position <= d->size()) {
        n = std::max(n, -position);
        mustFit(static_cast<long long>(d->size()) + after.d->size() - n);
    }
    d->replace(position, n, *after.d);
    return *this;
}

KDRString& KDRString::replace(KDRString const& before, KDRString const& after,
                              KDRCaseSensitivity cs)
{
    replaceAll(*d, *before.d, *after.d, qtCase(cs));
    return *this;
}

KDRString& KDRString::replace(KDRRegExp const& rx, KDRString const& after)
{
    replaceMatches(*d, KDRInternal::wrapped(rx), *after.d);
    return *this;
}

KDRString KDRString::left(int n) const { return KDRInternal::taking<KDRString>(d->left(n)); }
KDRString KDRString::right(int n) const { return KDRInternal::taking<KDRString>(d->right(n)); }
KDRString KDRString::mid(int position, int n) const
{
    return KDRInternal::taking<KDRString>(d->mid(position, n));
}

KDRString KDRString::repeated(int times) const
{
    if (times > 0)
        mustFit(static_cast<long long>(d->size()) * times);
    return KDRInternal::taking<KDRString>(d->repeated(times));
}

KDRString KDRString::trimmed() const { return KDRInternal::taking<KDRString>(d->trimmed()); }
KDRString KDRString::simplified() const { return KDRInternal::taking<KDRString>(d->simplified()); }
KDRString KDRString::toLower() const { return KDRInternal::taking<KDRString>(d->toLower()); }
KDRString KDRString::toUpper() const { return KDRInternal::taking<KDRString>(d->toUpper()); }

KDRStringArray KDRString::split(KDRChar const& sep, KDRSplitBehavior behavior,
                                KDRCaseSensitivity cs) const
{
    return KDRInternal::taking<KDRStringArray>(
        d->split(KDRInternal::wrapped(sep), qtBehavior(behavior), qtCase(cs)));
}

KDRStringArray KDRString::split(KDRString const& sep, KDRSplitBehavior behavior,
                                KDRCaseSensitivity cs) const
{
    return KDRInternal::taking<KDRStringArray>(d->split(*sep.d, qtBehavior(behavior), qtCase(cs)));
}

KDRStringArray KDRString::split(KDRRegExp const& rx, KDRSplitBehavior behavior) const
{
    return KDRInternal::taking<KDRStringArray>(
        d->split(KDRInternal::wrapped(rx), qtBehavior(behavior)));
}

KDRString KDRString::arg(KDRString const& a, int fieldWidth) const
{
    return argUnits(*d, *a.d, a.d->size(), fieldWidth);
}

KDRString KDRString::arg(KDRString const& a, int fieldWidth, KDRChar fillChar) const
{
    return argUnits(*d, *a.d, a.d->size(), fieldWidth, KDRInternal::wrapped(fillChar));
}

#define KDR_DEFINE_ARG(Integer, Widened)                                                           \
    KDRString KDRString::arg(Integer a, int fieldWidth, int base) const                            \
    {                                                                                              \
        return argInteger(*d, Widened{a}, fieldWidth, base);                                       \
    }                                                                                              \
    KDRString KDRString::arg(Integer a, int fieldWidth, int base, KDRChar fillChar) const          \
    {                                                                                              \
        return argInteger(*d, Widened{a}, fieldWidth, base, KDRInternal::wrapped(fillChar));       \
    }
KDR_DEFINE_ARG(int, qlonglong)
KDR_DEFINE_ARG(short, qlonglong)
KDR_DEFINE_ARG(long, qlonglong)
KDR_DEFINE_ARG(long long, qlonglong)
KDR_DEFINE_ARG(unsigned int, qulonglong)
KDR_DEFINE_ARG(unsigned short, qulonglong)
KDR_DEFINE_ARG(unsigned long, qulonglong)
KDR_DEFINE_ARG(unsigned long long, qulonglong)
#undef KDR_DEFINE_ARG

KDRString KDRString::arg(double a, int fieldWidth, KDRConversionFormat format, int precision) const
{
    return argFloating(*d, a, fieldWidth, formatLetter(format), precision);
}

KDRString KDRString::arg(double a, int fieldWidth, KDRConversionFormat format, int precision,
                         KDRChar fillChar) const
{
    return argFloating(*d, a, fieldWidth, formatLetter(format), precision,
                       KDRInternal::wrapped(fillChar));
}

KDRString KDRString::arg(char a, int fieldWidth) const { return argUnits(*d, a, 1, fieldWidth); }

KDRString KDRString::arg(char a, int fieldWidth, KDRChar fillChar) const
{
    return argUnits(*d, a, 1, fieldWidth, KDRInternal::wrapped(fillChar));
}

KDRString KDRString::arg(KDRChar a, int fieldWidth) const
{
    return argCharacter(*d, KDRInternal::wrapped(a), fieldWidth);
}

KDRString KDRString::arg(KDRChar a, int fieldWidth, KDRChar fillChar) const
{
    return argCharacter(*d, KDRInternal::wrapped(a), fieldWidth, KDRInternal::wrapped(fillChar));
}

double KDRString::toDouble(bool* ok) const { return d->toDouble(ok); }
float KDRString::toFloat(bool* ok) const { return d->toFloat(ok); }
long KDRString::toLong(bool* ok, int base) const { return d->toLong(ok, base); }
long long KDRString::toLongLong(bool* ok, int base) const { return d->toLongLong(ok, base); }
unsigned int KDRString::toUInt(bool* ok, int base) const { return d->toUInt(ok, base); }
unsigned long KDRString::toULong(bool* ok, int base) const { return d->toULong(ok, base); }
unsigned long long KDRString::toULongLong(bool* ok, int base) const
{
    return d->toULongLong(ok, base);
}
unsigned short KDRString::toUShort(bool* ok, int base) const { return d->toUShort(ok, base); }

KDRString& KDRString::setNum(int n, int base)
{
    d->setNum(qlonglong{n}, knownBase(n, base));
    return *this;
}

KDRString& KDRString::setNum(short n, int base)
{
    d->setNum(qlonglong{n}, knownBase(n, base));
    return *this;
}

KDRString& KDRString::setNum(long n, int base)
{
    d->setNum(qlonglong{n}, knownBase(n, base));
    return *this;
}

KDRString& KDRString::setNum(long long n, int base)
{
    d->setNum(n, knownBase(n, base));
    return *this;
}

KDRString& KDRString::setNum(unsigned int n, int base)
{
    d->setNum(qulonglong{n}, knownBase(n, base));
    return *this;
}

KDRString& KDRString::setNum(unsigned short n, int base)
{
    d->setNum(qulonglong{n}, knownBase(n, base));
    return *this;
}

KDRString& KDRString::setNum(unsigned long n, int base)
{
    d->setNum(qulonglong{n}, knownBase(n, base));
    return *this;
}

KDRString& KDRString::setNum(unsigned long long n, int base)
{
    d->setNum(n, knownBase(n, base));
    return *this;
}

KDRString& KDRString::setNum(double n, KDRConversionFormat format, int precision)
{
    char const letter = formatLetter(format);
    int const known = knownPrecision(n, letter, precision);
    precisionMustFit(known);
    d->setNum(n, letter, known);
    return *this;
}

KDRString& KDRString::setNum(float n, KDRConversionFormat format, int precision)
{
    return setNum(double{n}, format, precision);
}

void KDRString::setLocalTextCodec(KDREncoding encoding)
{
    // Unsigned, so that negative values are above the last one too.
    auto const number = static_cast<unsigned int>(encoding);
    if (number >= std::size(codecNames))
        return;
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(QByteArray(codecNames[number])));
}
