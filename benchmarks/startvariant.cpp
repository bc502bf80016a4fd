// A program that makes one variant. See startreport.h.

#include "startreport.h"

#include <kdrdata/variant/kdrvariant.h>

int main(int argc, char**)
{
    KDRVariant const variant(7);
    if (argc > 1)
        reportStart();
    int value = 0;
    return variant.toInt(&value) && value == 7 ? 0 : 1;
}
