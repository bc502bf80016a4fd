// A program that makes one variant of Qt's. See startreport.h.

#include "startreport.h"

#include <QVariant>

int main(int argc, char**)
{
    QVariant const variant(7);
    if (argc > 1)
        reportStart();
    return variant.toInt() == 7 ? 0 : 1;
}
