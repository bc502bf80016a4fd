#include <kdrdata/vision/kdrfont.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/kdrstring.h>

#include <QtCore/QString>
#include <QtCore/QVector>

#include <algorithm>
#include <memory>

#include <veldata/velfont.h>
#include <veldata/velvar.h>

namespace {

constexpr long defaultSize = 24;
constexpr int longestFaceName = 199;

// What VelVar::ValType() answers.
constexpr int narrowText = 2;
constexpr int wideText = 3;

static_assert(sizeof(wchar_t) == sizeof(uint), "wide texts are UCS-4");

// Field by field: the core library's fonts need not be assignable.
void copyFields(VelFont const& from, VelFont& to)
{
    to.faceName = from.faceName;
    to.size = from.size;
    to.weight = from.weight;
    to.bold = from.bold;
    to.italic = from.italic;
    to.underline = from.underline;
    to.strikeOut = from.strikeOut;
}

QString textOf(VelVar const& name)
{
    switch (name.ValType()) {
    case wideText:
        return QString::fromUcs4(reinterpret_cast<uint const*>(name.WS()));
    case narrowText:
        return QString::fromUtf8(name.S());
    default:
        return QString(QLatin1String(""));
    }
}

} // namespace

KDRFont::KDRFont() : d(new VelFont) { d->size = defaultSize; }

KDRFont::KDRFont(KDRFont const& other) : d(nullptr)
{
    auto copy = std::make_unique<VelFont>();
    copyFields(*other.d, *copy);
    d = copy.release();
}

KDRFont::~KDRFont()
{
    delete d;
    d = nullptr;
}

KDRFont& KDRFont::operator=(KDRFont const& other)
{
    copyFields(*other.d, *d);
    return *this;
}

KDRString KDRFont::faceName() { return KDRInternal::taking<KDRString>(textOf(d->faceName)); }

void KDRFont::setFaceName(KDRString const& name)
{
    // No character takes more than two code units, so that the first ones lie in this part whole.
    QVector<uint> const characters = KDRInternal::wrapped(name).left(2 * longestFaceName).toUcs4();
    wchar_t wide[longestFaceName + 1] = {};
    std::copy_n(characters.begin(), std::min(characters.size(), longestFaceName), wide);
    VelVar const text(wide);
    d->faceName = text;
}

long KDRFont::size() { return d->size; }
void KDRFont::setSize(long size) { d->size = size; }

long KDRFont::weight() { return d->weight; }
void KDRFont::setWeight(long weight) { d->weight = weight; }

bool KDRFont::bold() { return d->bold != 0; }
void KDRFont::setBold(bool bold) { d->bold = bold ? 1 : 0; }

unsigned char KDRFont::italic() { return d->italic; }
void KDRFont::setItalic(unsigned char italic) { d->italic = italic; }

unsigned char KDRFont::underline() { return d->underline; }
void KDRFont::setUnderline(unsigned char underline) { d->underline = underline; }

unsigned char KDRFont::strikeOut() { return d->strikeOut; }
void KDRFont::setStrikeOut(unsigned char strikeOut) { d->strikeOut = strikeOut; }
