// Failure is an answer, and leaves things as they were. Only memory that runs out is an exception.
#include <cstdio>
#include <new>

#include <kdrdata/kdrdata.h>

namespace {

void tell(char const* what, bool done)
{
    std::printf("%-36s%s\n", what, done ? "done" : "refused");
}

} // namespace

int main()
{
    // A reader of another kind, and a null output: false.
    KDRVariant value("dark");
    int level = 128;
    tell("a number out of a text:", value.toInt(&level));
    tell("into nowhere:", value.toString(nullptr));
    std::printf("level is still %d\n", level);

    // Operations of the core library: 0 is failure, and the image stays.
    KDRImage image(nullptr, 4, 3, 1, 0, KDRImage::DataTypeUInt8);
    tell("a file that is not there:", image.read(KDRString("no such file.png")) != 0);
    tell("minus four pixels wide:",
         image.GenImageExt(nullptr, -4, 3, 1, 0, KDRImage::DataTypeUInt8) != 0);
    tell("a name without a format:", image.save(KDRString("picture")) != 0);
    std::printf("still %d x %d\n", image.width(), image.height());

    // A constructor has no answer: look at what came of it.
    KDRImage const none(nullptr, -4, 3, 1, 0, KDRImage::DataTypeUInt8);
    std::printf("made: %d x %d, pixels %s\n", none.width(), none.height(),
                none.dataPtr() == nullptr ? "none" : "some");

    // Positions outside an array: false.
    KDRStringArray names;
    tell("the first of no names:", names.removeAt(0));

    // What no text can hold: std::bad_alloc, and the text stays.
    KDRString text("ab");
    try {
        text = text.repeated(2000000000);
        std::printf("repeated\n");
    } catch (std::bad_alloc const&) {
        std::printf("too long, still '%s'\n", text.toUtf8().constData());
    }
    return 0;
}
