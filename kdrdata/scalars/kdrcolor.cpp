#include <kdrdata/scalars/kdrcolor.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRColor::KDRColor() {}
KDRColor::KDRColor(int, int, int, int) {}
KDRColor::KDRColor(KDRColor const&) {}
KDRColor::~KDRColor() {}

KDRColor& KDRColor::operator=(KDRColor const&) { return *this; }

int KDRColor::getRed() const { return KDRFixed::Color::component; }
int KDRColor::getGreen() const { return KDRFixed::Color::component; }
int KDRColor::getBlue() const { return KDRFixed::Color::component; }
int KDRColor::getAlpha() const { return KDRFixed::Color::component; }
