#include <kdrdata/text/kdrregexp.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/text/kdrstringarray.h>
#include <kdrdata/text/textlimits_p.h>

#include <QtCore/QRegExp>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>
#include <utility>

namespace {

static_assert(int{KDRRegExp::KDRRegExpSyntax} == int{QRegExp::RegExp});
static_assert(int{KDRRegExp::KDRWildcardSyntax} == int{QRegExp::Wildcard});
static_assert(int{KDRRegExp::KDRFixedStringSyntax} == int{QRegExp::FixedString});
static_assert(int{KDRRegExp::KDRRegExp2Syntax} == int{QRegExp::RegExp2});
static_assert(int{KDRRegExp::KDRWildcardUnixSyntax} == int{QRegExp::WildcardUnix});
static_assert(int{KDRRegExp::KDRW3CXmlSchema11Syntax} == int{QRegExp::W3CXmlSchema11});
static_assert(int{KDRRegExp::KDRCaretAtZero} == int{QRegExp::CaretAtZero});
static_assert(int{KDRRegExp::KDRCaretAtOffset} == int{QRegExp::CaretAtOffset});
static_assert(int{KDRRegExp::KDRCaretWontMatch} == int{QRegExp::CaretWontMatch});

// Qt's enumerations cannot hold every int, so that values outside are sorted in here, as Qt itself
// would take them. That of the syntaxes can hold two values more than it has names for.
Qt::CaseSensitivity qtCase(KDRRegExp::KDRCaseSensitivity cs)
{
    return cs == KDRRegExp::KDRCaseInsensitive ? Qt::CaseInsensitive : Qt::CaseSensitive;
}

QRegExp::PatternSyntax qtSyntax(KDRRegExp::KDRPatternSyntax syntax)
{
    bool const fits = syntax >= 0 && syntax <= 7;
    return fits ? static_cast<QRegExp::PatternSyntax>(syntax) : QRegExp::RegExp;
}

QRegExp::CaretMode qtCaret(KDRRegExp::KDRCaretMode mode)
{
    bool const known = mode >= KDRRegExp::KDRCaretAtZero && mode <= KDRRegExp::KDRCaretWontMatch;
    return known ? static_cast<QRegExp::CaretMode>(mode) : QRegExp::CaretWontMatch;
}

// A copied QRegExp reads positions and lengths in its source's memory until its own first search,
// and in freed memory once the source is gone. So nothing is ever copied from an expression that
// may search again: when a handle is copied, its expression becomes the origin, which nobody
// searches any more and which lives as long as any copy of it, and the handle itself goes on with a
// copy. Whoever searches, through whatever call of Qt, leaves the origin's memory by that.
//
// This is what the pointer of a handle points to.
struct Expression : QRegExp
{
    using QRegExp::QRegExp;
    Expression() = default;
    Expression(QRegExp const& copied, std::shared_ptr<QRegExp const> from)
        : QRegExp(copied), origin(std::move(from))
    {
    }

    void swap(Expression& other) noexcept
    {
        QRegExp::swap(other);
        origin.swap(other.origin);
    }

    std::shared_ptr<QRegExp const> origin;
};

Expression& expression(QRegExp* d) { return *static_cast<Expression*>(d); }

bool sameMatch(QRegExp const& a, QRegExp const& b)
{
    if (a.matchedLength() != b.matchedLength())
        return false;
    for (int nth = 0; nth <= a.captureCount(); ++nth)
        if (a.pos(nth) != b.pos(nth))
            return false;
    return a.capturedTexts() == b.capturedTexts();
}

// If the match is still the origin's, copies come from that origin: an origin of an origin, and so
// chains of them, never arise.
Expression copyOf(Expression& source)
{
    if (!source.origin || !sameMatch(source, *source.origin)) {
        // Has the captures cut out of the text before there is an origin, so that this is read-only
        // from the start and copies in several threads can share it.
        source.capturedTexts();
        auto const origin = std::make_shared<QRegExp>(source);
        origin->swap(source);
        source.origin = origin;
    }
    Expression copy(*source.origin, source.origin);
    copy.setMinimal(source.isMinimal());
    return copy;
}

// Changes what is compiled. Qt's own setters give the match state up and crash when it is asked for
// before the next search.
void compile(QRegExp* d, QString const& pattern, Qt::CaseSensitivity cs,
             QRegExp::PatternSyntax syntax)
{
    Expression next(pattern, cs, syntax);
    next.setMinimal(d->isMinimal());
    expression(d).swap(next);
}

} // namespace

KDRRegExp::KDRRegExp() : d(new Expression) {}

KDRRegExp::KDRRegExp(KDRString const& pattern, KDRCaseSensitivity cs, KDRPatternSyntax syntax)
    : d(new Expression(KDRInternal::wrapped(pattern), qtCase(cs), qtSyntax(syntax)))
{
}

KDRRegExp::KDRRegExp(KDRRegExp const& other) : d(new Expression(copyOf(expression(other.d)))) {}

KDRRegExp::~KDRRegExp()
{
    delete &expression(d);
    d = nullptr;
}

KDRRegExp& KDRRegExp::operator=(KDRRegExp const& other)
{
    if (this != &other) {
        Expression copy(copyOf(expression(other.d)));
        expression(d).swap(copy);
    }
    return *this;
}

KDRRegExp& KDRRegExp::operator=(KDRRegExp&& other)
{
    KDRRegExp const& source = other;
    return *this = source;
}

bool KDRRegExp::operator==(KDRRegExp const& other) const { return *d == *other.d; }
bool KDRRegExp::operator!=(KDRRegExp const& other) const { return !(*d == *other.d); }

void KDRRegExp::swap(KDRRegExp& other) { expression(d).swap(expression(other.d)); }

KDRString KDRRegExp::pattern() const { return KDRInternal::taking<KDRString>(d->pattern()); }

void KDRRegExp::setPattern(KDRString const& pattern)
{
    QString const& text = KDRInternal::wrapped(pattern);
    if (text != d->pattern())
        compile(d, text, d->caseSensitivity(), d->patternSyntax());
}

KDRRegExp::KDRPatternSyntax KDRRegExp::patternSyntax() const
{
    return static_cast<KDRPatternSyntax>(d->patternSyntax());
}

void KDRRegExp::setPatternSyntax(KDRPatternSyntax syntax)
{
    if (qtSyntax(syntax) != d->patternSyntax())
        compile(d, d->pattern(), d->caseSensitivity(), qtSyntax(syntax));
}

KDRRegExp::KDRCaseSensitivity KDRRegExp::caseSensitivity() const
{
    return static_cast<KDRCaseSensitivity>(d->caseSensitivity());
}

void KDRRegExp::setCaseSensitivity(KDRCaseSensitivity cs)
{
    if (qtCase(cs) != d->caseSensitivity())
        compile(d, d->pattern(), qtCase(cs), d->patternSyntax());
}

bool KDRRegExp::isMinimal() const { return d->isMinimal(); }
void KDRRegExp::setMinimal(bool minimal) { d->setMinimal(minimal); }
bool KDRRegExp::isEmpty() const { return d->isEmpty(); }
bool KDRRegExp::isValid() const { return d->isValid(); }
KDRString KDRRegExp::errorString() const
{
    return KDRInternal::taking<KDRString>(d->errorString());
}

bool KDRRegExp::exactMatch(KDRString const& str) const
{
    return d->exactMatch(KDRInternal::wrapped(str));
}

int KDRRegExp::indexIn(KDRString const& str, int offset, KDRCaretMode caretMode) const
{
    return KDRTextLimits::indexIn(*d, KDRInternal::wrapped(str), offset, qtCaret(caretMode));
}

int KDRRegExp::lastIndexIn(KDRString const& str, int offset, KDRCaretMode caretMode) const
{
    return d->lastIndexIn(KDRInternal::wrapped(str), offset, qtCaret(caretMode));
}

int KDRRegExp::matchedLength() const { return d->matchedLength(); }
int KDRRegExp::captureCount() const { return d->captureCount(); }
KDRString KDRRegExp::cap(int nth) const { return KDRInternal::taking<KDRString>(d->cap(nth)); }
int KDRRegExp::pos(int nth) const { return d->pos(nth); }

KDRStringArray KDRRegExp::capturedTexts() const
{
    return KDRInternal::taking<KDRStringArray>(d->capturedTexts());
}
