// A variant holds one value of one kind. Copies share it, and the first writer goes its own way.
#include <cstdio>

#include <kdrdata/text/text.h>
#include <kdrdata/variant/variant.h>

int main()
{
    KDRVariant level(128); // kind 1, a number
    KDRVariant name("edge finder");
    KDRVariant nothing; // kind 2000
    std::printf("kinds: %d, %d, %d\n", level.variantType(), name.variantType(),
                nothing.variantType());

    // A reader answers whether the variant holds what it reads. There is no conversion between
    // kinds, and on false the output stays as it was.
    int value = -1;
    KDRString text("unread");
    bool const isNumber = level.toInt(&value);
    bool const isText = level.toString(&text);
    std::printf("as a number: %s, %d\n", isNumber ? "yes" : "no", value);
    std::printf("as a text: %s, %s\n", isText ? "yes" : "no", text.toUtf8().constData());

    // What the next tool gets is a handle on the same store, until one of the two is written to.
    KDRVariant sent(level);
    sent.fromDouble(0.5);
    double half = 0.0;
    sent.toDouble(&half);
    level.toInt(&value);
    std::printf("sent %g, kept %d\n", half, value);

    // The kind may change with each write.
    sent.fromString(KDRString("dark"));
    sent.toString(&text);
    std::printf("sent %s, kind %d\n", text.toUtf8().constData(), sent.variantType());

    // A short description for display: kind, and the range or the length.
    std::printf("%s\n", sent.attribute().toUtf8().constData());
    std::printf("%s\n", level.attribute().toUtf8().constData());
    return 0;
}
