#include <kdrdata/scalars/kdrcolorarray.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRColorArray::KDRColorArray() {}
KDRColorArray::KDRColorArray(void*, int, int) {}
KDRColorArray::KDRColorArray(void*, int, int, int) {}
KDRColorArray::KDRColorArray(KDRColorArray const&) {}
KDRColorArray::~KDRColorArray() {}

KDRColorArray& KDRColorArray::operator=(KDRColorArray const&) { return *this; }

void KDRColorArray::setSize(int, int, int) {}
void KDRColorArray::setColor(int) {}
void KDRColorArray::append(KDRColorArray const&) {}
void KDRColorArray::create(int, int) {}
void KDRColorArray::clear() {}

bool KDRColorArray::setValue(void*, int, int, int) { return KDRFixed::ColorArray::creation; }
bool KDRColorArray::createColorArray(void*, int, int, int)
{
    return KDRFixed::ColorArray::creation;
}

int KDRColorArray::width() const { return KDRFixed::ColorArray::geometry; }
int KDRColorArray::height() const { return KDRFixed::ColorArray::geometry; }
int KDRColorArray::length() const { return KDRFixed::ColorArray::geometry; }
int KDRColorArray::channel() const { return KDRFixed::ColorArray::geometry; }
void* KDRColorArray::Data() const { return nullptr; }

bool KDRColorArray::replace(int, KDRColor&) { return KDRFixed::ColorArray::change; }
bool KDRColorArray::select(int, KDRColor*) const { return KDRFixed::ColorArray::selection; }
KDRColor KDRColorArray::operator[](int) const { return {}; }

KDRColorArray KDRColorArray::deepCopy() { return {}; }
