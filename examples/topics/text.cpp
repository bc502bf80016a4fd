// Texts are UTF-16 inside. Bytes come in and go out in an encoding that is named.
#include <cstdio>

#include <kdrdata/text/text.h>

namespace {

void tell(char const* encoding, KDRBuffer const& bytes)
{
    std::printf("%-8s", encoding);
    for (int i = 0; i < bytes.size(); ++i)
        std::printf(" %02x", static_cast<unsigned>(static_cast<unsigned char>(bytes.at(i))));
    std::printf("\n");
}

void tell(char const* what, KDRString const& text)
{
    std::printf("%s: %d units, empty %d, null %d\n", what, text.size(), text.isEmpty(),
                text.isNull());
}

} // namespace

int main()
{
    KDRString const word("\xd0\xba\xd1\x80\xd1\x83\xd0\xb3"); // a C string is UTF-8
    tell("word", word);
    tell("UTF-8", word.toUtf8());
    tell("Latin-1", word.toLatin1()); // what it lacks becomes '?'

    // The local 8-bit encoding is that of file names. The choice holds for the whole process, so
    // make it before threads start.
    KDRString::setLocalTextCodec(KDRString::EncodingKOI8R);
    tell("KOI8-R", word.toLocal8Bit());
    KDRString again;
    again.fromLocal8Bit(word.toLocal8Bit().constData());
    std::printf("the same again: %d\n", again == word);

    // Null is a text that was never given; it compares equal to an empty one.
    tell("default", KDRString());
    tell("from \"\"", KDRString(""));
    std::printf("equal: %d\n", KDRString() == KDRString(""));

    // Only numbers report failure: through ok.
    bool ok = false;
    double const number = KDRString(" 12.5 ").toDouble(&ok);
    std::printf("%g, %d\n", number, ok);
    long const none = KDRString("12 mm").toLong(&ok);
    std::printf("%ld, %d\n", none, ok);

    KDRString const name = KDRString("part-%1 of %2").arg(7, 3, 10, KDRChar('0')).arg(24);
    std::printf("%s\n", name.toUtf8().constData());
    return 0;
}
