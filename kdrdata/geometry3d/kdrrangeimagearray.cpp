#include <kdrdata/geometry3d/kdrrangeimagearray.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRRangeImageArray::KDRRangeImageArray() {}
KDRRangeImageArray::KDRRangeImageArray(KDRRangeImageArray const&) {}
KDRRangeImageArray::~KDRRangeImageArray() {}

KDRRangeImageArray& KDRRangeImageArray::operator=(KDRRangeImageArray const&) { return *this; }

int KDRRangeImageArray::length() const { return KDRFixed::Array::length; }

void KDRRangeImageArray::push_back(KDRRangeImage const&) {}
void KDRRangeImageArray::push_back(KDRRangeImageArray const&) {}
bool KDRRangeImageArray::insert(int, KDRRangeImage const&) { return KDRFixed::Array::change; }
bool KDRRangeImageArray::removeAt(int) { return KDRFixed::Array::change; }
bool KDRRangeImageArray::replace(int, KDRRangeImage const&) { return KDRFixed::Array::change; }
bool KDRRangeImageArray::select(int, KDRRangeImage*) const { return KDRFixed::Array::selection; }
bool KDRRangeImageArray::swap(int, int) { return KDRFixed::Array::exchange; }
void KDRRangeImageArray::clear() {}

KDRRangeImage KDRRangeImageArray::operator[](int) const { return {}; }
