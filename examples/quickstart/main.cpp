#include <cstdio>

#include <kdrdata/kdrdata.h>

int main(int argc, char* argv[])
{
    KDRImage picture;
    if (argc != 2 || picture.read(KDRString(argv[1])) == 0)
        return 2;
    KDRVariant sent(picture);  // kind 4: the variant holds a handle on the same pixels
    KDRVariant received(sent); // what the next tool gets: two handles, one store
    KDRImage image;
    if (!received.toImage(&image)) // false, and image untouched, for any other kind
        return 1;
    std::printf("kind %d, %d x %d\n", received.variantType(), image.width(), image.height());

    received.fromInt(128); // takes a store of its own; sent still holds the picture
    KDRNumber* level = nullptr;
    if (received.toNumberPtr(level)) // the stored number itself, to give it a range
        level->setMaxValue(255.0);
    std::printf("kind %d, %s\n", received.variantType(), received.attribute().toUtf8().constData());
    return sent.variantType() == KindImage ? 0 : 1;
}
