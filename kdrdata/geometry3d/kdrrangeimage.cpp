#include <kdrdata/geometry3d/kdrrangeimage.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRRangeImage::KDRRangeImage() {}
KDRRangeImage::KDRRangeImage(KDRRangeImage const&) {}
KDRRangeImage::~KDRRangeImage() {}

KDRRangeImage& KDRRangeImage::operator=(KDRRangeImage const&) { return *this; }

void KDRRangeImage::clear() {}
void KDRRangeImage::setSize(int, int, int) {}
void KDRRangeImage::setColorSize(int, int, int) {}
void KDRRangeImage::setInfo(double, double, double, double, double, double) {}
void KDRRangeImage::SetInfo(KDRNumberArray const&) {}
void KDRRangeImage::GetInfo(KDRNumberArray*) {}
void KDRRangeImage::SetType(int) {}

int KDRRangeImage::Type() const { return KDRFixed::RangeImage::geometry; }
int KDRRangeImage::dataType() const { return KDRFixed::RangeImage::geometry; }
int KDRRangeImage::width() const { return KDRFixed::RangeImage::geometry; }
int KDRRangeImage::height() const { return KDRFixed::RangeImage::geometry; }
int KDRRangeImage::step() const { return KDRFixed::RangeImage::geometry; }

double KDRRangeImage::minValue() const { return KDRFixed::RangeImage::calibration; }
double KDRRangeImage::maxValue() const { return KDRFixed::RangeImage::calibration; }
double KDRRangeImage::resolutionX() const { return KDRFixed::RangeImage::calibration; }
double KDRRangeImage::resolutionY() const { return KDRFixed::RangeImage::calibration; }
double KDRRangeImage::resolutionZ() const { return KDRFixed::RangeImage::calibration; }
double KDRRangeImage::offsetX() const { return KDRFixed::RangeImage::calibration; }
double KDRRangeImage::offsetY() const { return KDRFixed::RangeImage::calibration; }
double KDRRangeImage::offsetZ() const { return KDRFixed::RangeImage::calibration; }
double KDRRangeImage::Cx() const { return KDRFixed::RangeImage::calibration; }
double KDRRangeImage::Cy() const { return KDRFixed::RangeImage::calibration; }
double KDRRangeImage::iny_fx() const { return KDRFixed::RangeImage::calibration; }
double KDRRangeImage::inv_fy() const { return KDRFixed::RangeImage::calibration; }

double KDRRangeImage::getValue(int, int) const { return KDRFixed::RangeImage::value; }
KDRNumber KDRRangeImage::GetParaValue(int) const { return {}; }
void* KDRRangeImage::dataPtr() const { return nullptr; }
void* KDRRangeImage::colorDataPtr() const { return nullptr; }

bool KDRRangeImage::setValue(void*, int, double, double, int, int)
{
    return KDRFixed::RangeImage::creation;
}
bool KDRRangeImage::setColorValue(void*, int, int, int, int)
{
    return KDRFixed::RangeImage::creation;
}
bool KDRRangeImage::createRangeImage(void*, int, int, int, int, double, double, double, double,
                                     double, double, double, double)
{
    return KDRFixed::RangeImage::creation;
}
bool KDRRangeImage::CreateRangeImage(void*, int, int, int, int, double, double,
                                     KDRNumberArray const&)
{
    return KDRFixed::RangeImage::creation;
}

bool KDRRangeImage::load(KDRString const&, bool) { return KDRFixed::RangeImage::file; }
bool KDRRangeImage::load(KDRString const&, double, double)
{
    return KDRFixed::RangeImage::loadByTwoNumbers;
}
bool KDRRangeImage::save(KDRString const&) { return KDRFixed::RangeImage::file; }
bool KDRRangeImage::save(KDRString const&, bool) { return KDRFixed::RangeImage::file; }

KDRImage KDRRangeImage::deepCopyValues() const { return {}; }
KDRRangeImage KDRRangeImage::deepCopy() { return {}; }
