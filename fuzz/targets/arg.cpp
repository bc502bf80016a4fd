// Templates with place markers against Qt's. Widths and precisions are bounded: what they ask for
// is made.

#include <QtCore/QString>
#include <QtCore/QtGlobal>

#include <kdrdata/text/kdrchar.h>
#include <kdrdata/text/kdrstring.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "../support/check.h"
#include "../support/script.h"
#include "../support/texts.h"

namespace {

// A missing marker is not an error, and yet Qt says so on the console.
void discard(QtMsgType, QMessageLogContext const&, QString const&) {}

/// Fills the markers of the two texts with the same value.
void fill(Script& script, KDRString& text, QString& witness)
{
    int const width = script.between(-100, 100);
    auto const fillUnit = static_cast<unsigned short>(script.below(4) == 0 ? '0' : script.byte());
    KDRChar const fillChar(fillUnit);
    QChar const fillWitness(fillUnit);
    int const base = script.between(2, 36);
    switch (script.below(8)) {
    case 0: {
        std::u16string const value = script.text(16);
        text = text.arg(texts::string(value), width, fillChar);
        witness = witness.arg(texts::witness(value), width, fillWitness);
        break;
    }
    case 1: {
        auto const value = script.number<int>();
        text = text.arg(value, width, base, fillChar);
        witness = witness.arg(value, width, base, fillWitness);
        break;
    }
    case 2: {
        auto const value = script.number<long long>();
        text = text.arg(value, width, base, fillChar);
        witness = witness.arg(value, width, base, fillWitness);
        break;
    }
    case 3: {
        auto const value = script.number<unsigned long long>();
        text = text.arg(value, width, base);
        witness = witness.arg(value, width, base);
        break;
    }
    case 4: {
        auto const value = script.number<short>();
        text = text.arg(value, width, base, fillChar);
        witness = witness.arg(value, width, base, fillWitness);
        break;
    }
    case 5: {
        auto const value = script.number<double>();
        int const precision = script.between(-1, 60);
        bool const fixed = script.below(2) == 1;
        text =
            text.arg(value, width, fixed ? KDRString::KDRFormatFixed : KDRString::KDRFormatGeneral,
                     precision, fillChar);
        witness = witness.arg(value, width, fixed ? 'f' : 'g', precision, fillWitness);
        break;
    }
    case 6: {
        auto const value = static_cast<char>(script.byte());
        text = text.arg(value, width, fillChar);
        witness = witness.arg(value, width, fillWitness);
        break;
    }
    default: {
        auto const value = script.number<unsigned short>();
        text = text.arg(KDRChar(value), width, fillChar);
        // In place of a zero there is no character.
        witness = value == 0 ? witness.arg(QString(), width, fillWitness)
                             : witness.arg(QChar(value), width, fillWitness);
        break;
    }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    qInstallMessageHandler(discard);
    Script script(data, size);
    std::u16string const pattern = script.text(64);
    KDRString text = texts::string(pattern);
    QString witness = texts::witness(pattern);
    // What was put in may hold markers itself and then grows.
    for (int step = 0; step < 16 && !script.atEnd() && witness.size() < 5000; ++step) {
        KDRString const before(text);
        QString const beforeWitness = witness;
        fill(script, text, witness);
        check(texts::equal(text, witness), "a filled template is Qt's");
        check(texts::equal(before, beforeWitness), "filling a template leaves its copies alone");
    }
    return 0;
}
