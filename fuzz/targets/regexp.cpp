// Regular expressions against Qt's engine used directly. Patterns and texts are short, and counted
// repetitions few: the engine backtracks and unrolls, at a cost that grows without bounds.

#include <QtCore/QRegExp>
#include <QtCore/QStringList>

#include <kdrdata/text/kdrregexp.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/text/kdrstringarray.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "../support/check.h"
#include "../support/script.h"
#include "../support/texts.h"

namespace {

constexpr std::size_t longestPattern = 20;
constexpr std::size_t longestText = 24;

/// Whether the engine answers in reasonable time: what is repeated by numbers multiplies, and each
/// repetition of a repetition doubles the ways to match.
bool isCheap(std::u16string const& pattern)
{
    unsigned long long product = 1;
    unsigned long long number = 0;
    int repeaters = 0;
    int backReferences = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        char16_t const unit = pattern[i];
        if (unit >= u'0' && unit <= u'9') {
            number = number * 10 + (unit - u'0');
        } else {
            product *= number > 1 ? number : 1;
            number = 0;
        }
        if (product > 64 || number > 64)
            return false;
        repeaters += unit == u'*' || unit == u'+' || unit == u'{';
        backReferences += unit == u'\\';
    }
    return repeaters <= 4 && backReferences <= 4;
}

void expectSameMatch(KDRRegExp const& ours, QRegExp const& theirs)
{
    check(ours.matchedLength() == theirs.matchedLength(), "the match is as long as Qt's");
    check(ours.captureCount() == theirs.captureCount(), "as many groups capture as in Qt");
    for (int i = -1; i <= theirs.captureCount() + 1; ++i) {
        check(ours.pos(i) == theirs.pos(i), "a group is found where Qt finds it");
        check(texts::equal(ours.cap(i), theirs.cap(i)), "a group captures what it does in Qt");
    }
    check(ours.capturedTexts().length() == theirs.capturedTexts().size(),
          "there are as many captured texts as in Qt");
}

void search(Script& script, KDRRegExp const& ours, QRegExp& theirs)
{
    std::u16string const units = script.text(longestText);
    int const size = static_cast<int>(units.size());
    KDRString const text = texts::string(units);
    QString const witness = texts::witness(units);
    int const from = script.between(-size, size);
    int const caret = script.between(0, 2);
    auto const ourCaret = static_cast<KDRRegExp::KDRCaretMode>(caret);
    auto const theirCaret = static_cast<QRegExp::CaretMode>(caret);
    switch (script.below(4)) {
    case 0:
        check(ours.exactMatch(text) == theirs.exactMatch(witness), "exactMatch() is Qt's");
        break;
    case 1:
        check(ours.indexIn(text, from, ourCaret) == theirs.indexIn(witness, from, theirCaret),
              "indexIn() is Qt's");
        break;
    case 2:
        check(ours.lastIndexIn(text, from, ourCaret) ==
                  theirs.lastIndexIn(witness, from, theirCaret),
              "lastIndexIn() is Qt's");
        break;
    default:
        check(text.indexOf(ours, from) == witness.indexOf(theirs, from), "a text's search is Qt's");
        break;
    }
    expectSameMatch(ours, theirs);
}

void edit(Script& script, KDRRegExp const& ours, QRegExp const& theirs)
{
    std::u16string const units = script.text(longestText);
    std::u16string const after = script.text(8);
    KDRString text = texts::string(units);
    QString witness = texts::witness(units);
    switch (script.below(3)) {
    case 0:
        text.replace(ours, texts::string(after));
        witness.replace(theirs, texts::witness(after));
        break;
    case 1:
        text.remove(ours);
        witness.remove(theirs);
        break;
    default: {
        KDRStringArray const parts = text.split(ours);
        QStringList const expected = witness.split(theirs);
        check(parts.length() == expected.size(), "a text has as many parts as in Qt");
        for (int i = 0; i < expected.size(); ++i)
            check(texts::equal(parts[i], expected[i]), "each part is Qt's");
        break;
    }
    }
    check(texts::equal(text, witness), "an edited text is Qt's");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    Script script(data, size);
    int const syntax = script.between(0, 5);
    bool const sensitive = script.below(2) == 0;
    bool const minimal = script.below(4) == 0;
    std::u16string const pattern = script.text(longestPattern);
    if (!isCheap(pattern))
        return 0;

    KDRRegExp ours(texts::string(pattern),
                   sensitive ? KDRRegExp::KDRCaseSensitive : KDRRegExp::KDRCaseInsensitive,
                   static_cast<KDRRegExp::KDRPatternSyntax>(syntax));
    QRegExp theirs(texts::witness(pattern), sensitive ? Qt::CaseSensitive : Qt::CaseInsensitive,
                   static_cast<QRegExp::PatternSyntax>(syntax));
    ours.setMinimal(minimal);
    theirs.setMinimal(minimal);
    check(ours.isValid() == theirs.isValid(), "a pattern is valid exactly if Qt says so");
    check(texts::equal(ours.errorString(), theirs.errorString()), "the error is Qt's");

    for (int step = 0; step < 6 && !script.atEnd(); ++step) {
        if (script.below(3) == 0) {
            edit(script, ours, theirs);
            continue;
        }
        search(script, ours, theirs);
        // A copy has the match too, and what it does stays its own.
        KDRRegExp const copy(ours);
        expectSameMatch(copy, theirs);
        copy.exactMatch(KDRString("another text"));
        expectSameMatch(ours, theirs);
    }
    return 0;
}
