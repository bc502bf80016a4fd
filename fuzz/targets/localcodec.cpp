// Local 8-bit encodings, changed on the way, against Qt's codecs.

#include <QtCore/QTextCodec>

#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrstring.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "../support/check.h"
#include "../support/script.h"
#include "../support/texts.h"

namespace {

void decode(std::string const& bytes)
{
    KDRString string;
    string.fromLocal8Bit(bytes.data(), static_cast<int>(bytes.size()));
    QString const expected = QString::fromLocal8Bit(bytes.data(), static_cast<int>(bytes.size()));
    check(texts::equal(string, expected), "local bytes are read as Qt reads them");
    check(texts::equal(string.toLocal8Bit(), expected.toLocal8Bit()),
          "local bytes are written as Qt writes them");
}

void encode(std::u16string const& units)
{
    KDRString const string = texts::string(units);
    QString const expected = texts::witness(units);
    KDRBuffer const bytes = string.toLocal8Bit();
    check(texts::equal(bytes, expected.toLocal8Bit()), "a text is written as Qt writes it");
    check(texts::equal(string, expected), "writing a text does not change it");

    KDRString back;
    back.fromLocal8Bit(bytes.constData(), bytes.size());
    QByteArray const witness = expected.toLocal8Bit();
    check(texts::equal(back, texts::fromLocal(witness)), "what was written is read as Qt reads it");
}

void roundTrip(std::u16string const& units)
{
    KDRString const string = texts::string(units);
    KDRBuffer const utf8 = string.toUtf8();
    QByteArray const witness = texts::witness(units).toUtf8();
    check(texts::equal(utf8, witness), "UTF-8 is Qt's");
    KDRString back;
    back.fromUtf8(utf8.constData(), utf8.size());
    check(texts::equal(back, texts::fromUtf8(witness)), "UTF-8 is read as Qt reads it");
    check(texts::equal(string.toLatin1(), texts::witness(units).toLatin1()), "Latin-1 is Qt's");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    Script script(data, size);
    for (int step = 0; step < 64 && !script.atEnd(); ++step) {
        switch (script.below(4)) {
        case 0:
            // Two beyond the last change nothing.
            KDRString::setLocalTextCodec(
                static_cast<KDRString::KDREncoding>(script.between(0, 28)));
            break;
        case 1:
            decode(script.bytes(script.byte()));
            break;
        case 2:
            encode(script.text(64));
            break;
        default:
            roundTrip(script.text(64));
            break;
        }
    }
    // The next input begins where this one did.
    QTextCodec::setCodecForLocale(nullptr);
    return 0;
}
