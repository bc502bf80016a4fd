// A user's program: a text in a variant, a copy of it, and the copy read.
#include <kdrdata/kdrdata.h>

int main()
{
    KDRVariant const value(KDRString("part-7.png"));
    KDRVariant const copy(value);
    KDRString text;
    return copy.toString(&text) && text == KDRString("part-7.png") ? 0 : 1;
}
