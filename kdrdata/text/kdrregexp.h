#ifndef KDRDATA_KDRREGEXP_H
#define KDRDATA_KDRREGEXP_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/text/kdrstring.h>

class KDRStringArray;
class QRegExp;
struct KDRInternal;

/// A regular expression and the state of its last match.
///
/// A handle over one QRegExp that it owns alone: pattern, options and the match state (where the
/// last match lies, how long it is and what its groups captured). Positions and lengths are `int`
/// counts of UTF-16 code units.
///
/// Every search writes the match state into this object, though the search is `const` and though
/// the object was passed to it as `const`: exactMatch(), indexIn() and lastIndexIn(), and the
/// searches of KDRString and KDRStringArray with an expression. A search that finds nothing leaves
/// no match (but see exactMatch()). What edits or splits a text with an
/// expression does not touch the state. Kept on purpose.
///
/// A copy has the pattern, the options and the match state that its source has at that moment. It
/// is independent from then on: what the source does later, being destroyed included, does not
/// change what the copy answers, and the other way round.
///
/// Failure: an invalid pattern makes isValid() false and errorString() tell why; searches with it
/// find nothing. An allocation that fails throws std::bad_alloc.
///
/// Cost: the engine backtracks, so that some patterns take time exponential in the text's length.
/// No operation loops for ever; an empty match in a repeated search moves on by one code unit.
///
/// @code
/// KDRRegExp const rx(KDRString("a(b+)"));
/// int const at = rx.indexIn(KDRString("xabbb")); // 1
/// KDRString const bs = rx.cap(1);                // "bbb", found at rx.pos(1), which is 2
/// @endcode
///
/// Threads: every search writes. One expression must not be used by two threads at once, not even
/// for `const` operations, of which copying from it is one; copies may live in different threads.
class KDRDATA_EXPORT KDRRegExp
{
public:
    /// Whether letters match regardless of case. Any value but 0 counts as KDRCaseSensitive.
    enum KDRCaseSensitivity : int {
        KDRCaseInsensitive = 0, ///< Qt::CaseInsensitive
        KDRCaseSensitive = 1    ///< Qt::CaseSensitive
    };

    /// How a pattern is read. Values 6 and 7, which have no name, are kept and read as
    /// KDRRegExpSyntax; any other value outside the enumeration becomes KDRRegExpSyntax.
    enum KDRPatternSyntax : int {
        KDRRegExpSyntax = 0,        ///< as in Perl (QRegExp::RegExp)
        KDRWildcardSyntax = 1,      ///< as in a shell: `?`, `*`, `[...]` (QRegExp::Wildcard)
        KDRFixedStringSyntax = 2,   ///< every character for itself (QRegExp::FixedString)
        KDRRegExp2Syntax = 3,       ///< as 0 with greedy quantifiers (QRegExp::RegExp2)
        KDRWildcardUnixSyntax = 4,  ///< as 1, a backslash escapes (QRegExp::WildcardUnix)
        KDRW3CXmlSchema11Syntax = 5 ///< XML Schema 1.1 (QRegExp::W3CXmlSchema11)
    };

    /// Where a caret in the pattern matches. A value outside the enumeration counts as
    /// KDRCaretWontMatch.
    enum KDRCaretMode : int {
        KDRCaretAtZero = 0,   ///< at index 0 of the text (QRegExp::CaretAtZero)
        KDRCaretAtOffset = 1, ///< where the search starts (QRegExp::CaretAtOffset)
        KDRCaretWontMatch = 2 ///< nowhere (QRegExp::CaretWontMatch)
    };

    /// The empty pattern, case-sensitive, in the syntax of Perl.
    KDRRegExp();
    /// The expression of this @p pattern, without a match
    /// (QRegExp::QRegExp(QString const&, Qt::CaseSensitivity, QRegExp::PatternSyntax)).
    explicit KDRRegExp(KDRString const& pattern, KDRCaseSensitivity cs = KDRCaseSensitive,
                       KDRPatternSyntax syntax = KDRRegExpSyntax);
    /// Takes pattern, options and match state of @p other.
    KDRRegExp(KDRRegExp const& other);
    /// Frees the expression.
    ~KDRRegExp();

    /// Takes pattern, options and match state of @p other; of itself nothing changes. Returns this
    /// expression.
    KDRRegExp& operator=(KDRRegExp const& other);
    /// The same: @p other stays as it is. Kept on purpose. Returns this expression.
    KDRRegExp& operator=(KDRRegExp&& other);

    /// Whether pattern, syntax, case sensitivity and minimality are the same; the match state does
    /// not count (QRegExp::operator==).
    bool operator==(KDRRegExp const& other) const;
    /// The opposite of `==`.
    bool operator!=(KDRRegExp const& other) const;

    /// Exchanges the two expressions, match states included (QRegExp::swap).
    void swap(KDRRegExp& other);

    /// The pattern as it was given (QRegExp::pattern).
    KDRString pattern() const;
    /// Changes the pattern. A pattern that is not the present one forgets the last match
    /// (QRegExp::setPattern).
    void setPattern(KDRString const& pattern);
    /// How the pattern is read (QRegExp::patternSyntax).
    KDRPatternSyntax patternSyntax() const;
    /// Changes how the pattern is read. A syntax that is not the present one forgets the last match
    /// (QRegExp::setPatternSyntax).
    void setPatternSyntax(KDRPatternSyntax syntax);
    /// Whether letters match regardless of case (QRegExp::caseSensitivity).
    KDRCaseSensitivity caseSensitivity() const;
    /// Changes whether letters match regardless of case. A value that is not the present one
    /// forgets the last match (QRegExp::setCaseSensitivity).
    void setCaseSensitivity(KDRCaseSensitivity cs);
    /// Whether quantifiers match as little as they can (QRegExp::isMinimal).
    bool isMinimal() const;
    /// Changes whether quantifiers match as little as they can (true) or as much (false, which
    /// every expression starts with). The last match is kept (QRegExp::setMinimal).
    void setMinimal(bool minimal);
    /// Whether the pattern is empty; such a pattern is valid and matches the empty text everywhere
    /// (QRegExp::isEmpty).
    bool isEmpty() const;
    /// Whether the pattern is well-formed in its syntax (QRegExp::isValid).
    bool isValid() const;
    /// What is wrong with the pattern, in English and for people to read, or "no error occurred"
    /// (QRegExp::errorString).
    KDRString errorString() const;

    /// Whether the whole of @p str matches. If not, the match state describes the longest beginning
    /// of @p str that the pattern could follow, and no group has captured (QRegExp::exactMatch).
    bool exactMatch(KDRString const& str) const;
    /// The position of the first match at or after @p offset, or -1. A negative @p offset counts
    /// from the end: -1 starts at the last code unit. One further back than the text is long, which
    /// callers better avoid, counts from the end once more if the pattern is a plain text, and
    /// finds nothing otherwise. One further back than twice its length finds nothing, but that just
    /// one further finds a plain text of one code unit at the end. With an @p offset beyond the end
    /// nothing is found; at the end an empty match is (QRegExp::indexIn).
    int indexIn(KDRString const& str, int offset = 0,
                KDRCaretMode caretMode = KDRCaretAtZero) const;
    /// The position of the last match that begins at or before @p offset, or -1. A negative
    /// @p offset counts from the end: -1 begins at the last code unit, so that an empty match at
    /// the end takes the length as @p offset. An @p offset outside the text finds nothing
    /// (QRegExp::lastIndexIn).
    int lastIndexIn(KDRString const& str, int offset = -1,
                    KDRCaretMode caretMode = KDRCaretAtZero) const;

    /// The length of the last match, or -1 if there is none (QRegExp::matchedLength).
    int matchedLength() const;
    /// How many groups of the pattern capture (QRegExp::captureCount).
    int captureCount() const;
    /// What group @p nth captured in the last match, counted from 1; 0 is the whole match, which
    /// may be empty. Null for a group that took no part or captured no code unit, for a number that
    /// no group has, and without a match (QRegExp::cap).
    KDRString cap(int nth = 0) const;
    /// Where in the text group @p nth of the last match begins; 0 is the whole match. -1 for a
    /// group that took no part or captured no code unit, for a number that no group has, and
    /// without a match (QRegExp::pos).
    int pos(int nth = 0) const;
    /// What cap() answers for 0 to captureCount(), in order (QRegExp::capturedTexts).
    KDRStringArray capturedTexts() const;

private:
    friend struct KDRInternal;
    QRegExp* d;
};

#endif
