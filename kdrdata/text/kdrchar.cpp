#include <kdrdata/text/kdrchar.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/kdrstring.h>

#include <QtCore/QByteArray>
#include <QtCore/QChar>
#include <QtCore/QString>

#include <cstdint>

namespace {

// The encoding of QChar::Joining, which Qt no longer offers without a warning.
int joiningOf(unsigned int u) noexcept
{
    switch (QChar::joiningType(u)) {
    case QChar::Joining_Causing:
        return 3;
    case QChar::Joining_Dual:
        return 1;
    case QChar::Joining_Right:
        return 2;
    case QChar::Joining_None:
    case QChar::Joining_Left:
    case QChar::Joining_Transparent:
        break;
    }
    return 0;
}

KDRString throughLocalCodec(QString const& text)
{
    return KDRString(text.toLocal8Bit().constData());
}

std::uintptr_t address(QChar const* cell) noexcept
{
    return reinterpret_cast<std::uintptr_t>(cell);
}

} // namespace

KDRChar::KDRChar() : d(new QChar) {}
KDRChar::KDRChar(char c) : KDRChar(static_cast<unsigned char>(c)) {}
KDRChar::KDRChar(unsigned char c) : KDRChar(static_cast<unsigned short>(c)) {}
KDRChar::KDRChar(unsigned char cell, unsigned char row) : d(new QChar(cell, row)) {}
KDRChar::KDRChar(unsigned short code) : d(new QChar(code)) {}
KDRChar::KDRChar(short code) : KDRChar(static_cast<unsigned short>(code)) {}
KDRChar::KDRChar(unsigned int code) : KDRChar(static_cast<unsigned short>(code)) {}
KDRChar::KDRChar(int code) : KDRChar(static_cast<unsigned short>(code)) {}
KDRChar::KDRChar(KDRSpecialCharacter s) : KDRChar(static_cast<unsigned short>(s)) {}
KDRChar::KDRChar(KDRChar const& other) : d(new QChar(*other.d)) {}

KDRChar::~KDRChar()
{
    delete d;
    d = nullptr;
}

KDRChar& KDRChar::operator=(KDRChar const& other)
{
    *d = *other.d;
    return *this;
}

unsigned short& KDRChar::unicode() { return d->unicode(); }
unsigned short KDRChar::unicode() const { return d->unicode(); }
unsigned char KDRChar::cell() const { return d->cell(); }
unsigned char KDRChar::row() const { return d->row(); }
char KDRChar::toLatin1() const { return d->toLatin1(); }
KDRChar KDRChar::fromLatin1(char c) const { return KDRChar(c); }
bool KDRChar::isNull() const { return d->isNull(); }

int KDRChar::category() const { return d->category(); }
int KDRChar::category(unsigned int u) const { return QChar::category(u); }
int KDRChar::direction() const { return d->direction(); }
int KDRChar::direction(unsigned int u) const { return QChar::direction(u); }
int KDRChar::joining() const { return joiningOf(d->unicode()); }
int KDRChar::joining(unsigned int u) const { return joiningOf(u); }
int KDRChar::script() const { return d->script(); }
int KDRChar::script(unsigned int u) const { return QChar::script(u); }
int KDRChar::unicodeVersion() const { return d->unicodeVersion(); }
int KDRChar::unicodeVersion(unsigned int u) const { return QChar::unicodeVersion(u); }
int KDRChar::currentUnicodeVersion() const { return QChar::currentUnicodeVersion(); }
int KDRChar::combiningClass() const { return d->combiningClass(); }
int KDRChar::combiningClass(unsigned int u) const { return QChar::combiningClass(u); }
int KDRChar::digitValue() const { return d->digitValue(); }
int KDRChar::digitValue(unsigned int u) const { return QChar::digitValue(u); }

bool KDRChar::isDigit() const { return d->isDigit(); }
bool KDRChar::isDigit(unsigned int u) const { return QChar::isDigit(u); }
bool KDRChar::isLetter() const { return d->isLetter(); }
bool KDRChar::isLetter(unsigned int u) const { return QChar::isLetter(u); }
bool KDRChar::isLetterOrNumber() const { return d->isLetterOrNumber(); }
bool KDRChar::isLetterOrNumber(unsigned int u) const { return QChar::isLetterOrNumber(u); }
bool KDRChar::isLower() const { return d->isLower(); }
bool KDRChar::isLower(unsigned int u) const { return QChar::isLower(u); }
bool KDRChar::isUpper() const { return d->isUpper(); }
bool KDRChar::isUpper(unsigned int u) const { return QChar::isUpper(u); }
bool KDRChar::isTitleCase() const { return d->isTitleCase(); }
bool KDRChar::isTitleCase(unsigned int u) const { return QChar::isTitleCase(u); }
bool KDRChar::isMark() const { return d->isMark(); }
bool KDRChar::isMark(unsigned int u) const { return QChar::isMark(u); }
bool KDRChar::isNumber() const { return d->isNumber(); }
bool KDRChar::isNumber(unsigned int u) const { return QChar::isNumber(u); }
bool KDRChar::isPrint() const { return d->isPrint(); }
bool KDRChar::isPrint(unsigned int u) const { return QChar::isPrint(u); }
bool KDRChar::isPunct() const { return d->isPunct(); }
bool KDRChar::isPunct(unsigned int u) const { return QChar::isPunct(u); }
bool KDRChar::isSpace() const { return d->isSpace(); }
bool KDRChar::isSpace(unsigned int u) const { return QChar::isSpace(u); }
bool KDRChar::isSymbol() const { return d->isSymbol(); }
bool KDRChar::isSymbol(unsigned int u) const { return QChar::isSymbol(u); }
bool KDRChar::isNonCharacter() const { return d->isNonCharacter(); }
bool KDRChar::isNonCharacter(unsigned int u) const { return QChar::isNonCharacter(u); }
bool KDRChar::isSurrogate() const { return d->isSurrogate(); }
bool KDRChar::isSurrogate(unsigned int u) const { return QChar::isSurrogate(u); }
bool KDRChar::isHighSurrogate() const { return d->isHighSurrogate(); }
bool KDRChar::isHighSurrogate(unsigned int u) const { return QChar::isHighSurrogate(u); }
bool KDRChar::isLowSurrogate() const { return d->isLowSurrogate(); }
bool KDRChar::isLowSurrogate(unsigned int u) const { return QChar::isLowSurrogate(u); }
bool KDRChar::hasMirrored() const { return d->hasMirrored(); }
bool KDRChar::hasMirrored(unsigned int u) const { return QChar::hasMirrored(u); }

KDRChar KDRChar::mirroredChar() const { return KDRChar(d->mirroredChar().unicode()); }
unsigned int KDRChar::mirroredChar(unsigned int u) const { return QChar::mirroredChar(u); }
KDRChar KDRChar::toLower() const { return KDRChar(d->toLower().unicode()); }
unsigned int KDRChar::toLower(unsigned int u) const { return QChar::toLower(u); }
KDRChar KDRChar::toUpper() const { return KDRChar(d->toUpper().unicode()); }
unsigned int KDRChar::toUpper(unsigned int u) const { return QChar::toUpper(u); }
KDRChar KDRChar::toTitleCase() const { return KDRChar(d->toTitleCase().unicode()); }
unsigned int KDRChar::toTitleCase(unsigned int u) const { return QChar::toTitleCase(u); }
KDRChar KDRChar::toCaseFolded() const { return KDRChar(d->toCaseFolded().unicode()); }
unsigned int KDRChar::toCaseFolded(unsigned int u) const { return QChar::toCaseFolded(u); }

KDRString KDRChar::decomposition() const { return throughLocalCodec(d->decomposition()); }
KDRString KDRChar::decomposition(unsigned int u) const
{
    return throughLocalCodec(QChar::decomposition(u));
}
int KDRChar::decompositionTag() const { return d->decompositionTag(); }
int KDRChar::decompositionTag(unsigned int) const { return d->decompositionTag(); }

bool KDRChar::requiresSurrogates(unsigned int u) const { return QChar::mirroredChar(u) != 0; }
unsigned short KDRChar::highSurrogate(unsigned int u) const { return QChar::highSurrogate(u); }
unsigned short KDRChar::lowSurrogate(unsigned int u) const { return QChar::lowSurrogate(u); }
unsigned int KDRChar::surrogateToUcs4(unsigned short high, unsigned short low) const
{
    return QChar::surrogateToUcs4(high, low);
}
unsigned int KDRChar::surrogateToUcs4(KDRChar high, KDRChar low) const
{
    return QChar::surrogateToUcs4(*high.d, *low.d);
}

bool KDRChar::operator==(KDRChar other) const { return d == other.d; }
bool KDRChar::operator!=(KDRChar other) const { return d == other.d; }
bool KDRChar::operator<(KDRChar other) const { return address(d) < address(other.d); }
bool KDRChar::operator<=(KDRChar other) const { return address(d) <= address(other.d); }
bool KDRChar::operator>(KDRChar other) const { return address(d) > address(other.d); }
bool KDRChar::operator>=(KDRChar other) const { return address(d) >= address(other.d); }
