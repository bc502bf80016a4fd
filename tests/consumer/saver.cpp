// A user's program: a value saved, and loaded again.
#include <kdrdata/kdrdata.h>
#include <kdrio/kdrio.h>

int main()
{
    KDRBuffer bytes;
    KDRVariant loaded;
    int number = 0;
    return kdrio::toBytes(KDRVariant(7), &bytes) && kdrio::fromBytes(bytes, &loaded) &&
                   loaded.toInt(&number) && number == 7
               ? 0
               : 1;
}
