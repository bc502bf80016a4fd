#include <kdrdata/text/kdrstring.h>

#include <kdrdata/kdrinternal_p.h>

#include <QtCore/QByteArray>
#include <QtCore/QChar>
#include <QtCore/QString>
#include <QtCore/QTextCodec>

#include <iterator>

namespace {

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
    *d = QString::fromLocal8Bit(str, size);
    return *this;
}

KDRString& KDRString::fromUtf8(char const* str, int size)
{
    *d = QString::fromUtf8(str, size);
    return *this;
}

KDRString& KDRString::fromUtf16(unsigned short const* unicode, int size)
{
    *d = QString::fromUtf16(unicode, size);
    return *this;
}

KDRBuffer KDRString::toLatin1() const
{
    KDRBuffer result;
    KDRInternal::wrapped(result) = d->toLatin1();
    return result;
}

KDRBuffer KDRString::toUtf8() const
{
    KDRBuffer result;
    KDRInternal::wrapped(result) = d->toUtf8();
    return result;
}

KDRBuffer KDRString::toLocal8Bit() const
{
    KDRBuffer result;
    KDRInternal::wrapped(result) = d->toLocal8Bit();
    return result;
}

unsigned short const* KDRString::toUtf16() const { return d->utf16(); }

bool KDRString::operator==(KDRString const& other) const
{
    return d->compare(*other.d, Qt::CaseSensitive) == 0;
}
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

KDRString KDRString::arg(int a, int fieldWidth, int base, KDRChar fillChar) const
{
    KDRString result;
    *result.d = d->arg(static_cast<qlonglong>(a), fieldWidth, base, KDRInternal::wrapped(fillChar));
    return result;
}

KDRString KDRString::arg(double a, int fieldWidth, KDRConversionFormat format, int precision,
                         KDRChar fillChar) const
{
    KDRString result;
    *result.d = d->arg(a, fieldWidth, format == KDRFormatGeneral ? 'g' : 'f', precision,
                       KDRInternal::wrapped(fillChar));
    return result;
}

void KDRString::setLocalTextCodec(KDREncoding encoding)
{
    // Unsigned, so that negative values are above the last one too.
    auto const number = static_cast<unsigned int>(encoding);
    if (number >= std::size(codecNames))
        return;
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(QByteArray(codecNames[number])));
}
