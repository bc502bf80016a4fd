#include <kdrdata/vision/kdrpoint.h>

#include <kdrdata/vision/kdrpointprivate.h>

KDRPoint::KDRPoint() : d(new KDRPointPrivate) {}

KDRPoint::KDRPoint(double x, double y) : KDRPoint()
{
    setX(x);
    setY(y);
}

KDRPoint::KDRPoint(KDRPoint const& other) : d(new KDRPointPrivate(*other.d)) {}

KDRPoint::~KDRPoint()
{
    delete d;
    d = nullptr;
}

KDRPoint& KDRPoint::operator=(KDRPoint const& other)
{
    *d = *other.d;
    return *this;
}

double KDRPoint::x() const { return d->getXVal(); }
double KDRPoint::y() const { return d->getYVal(); }
void KDRPoint::setX(double value) { d->setXVal(value); }
void KDRPoint::setY(double value) { d->setYVal(value); }
double KDRPoint::getXMaxVal() const { return d->getXMaxVal(); }
void KDRPoint::setXMaxVal(double value) { d->setXMaxVal(value); }
double KDRPoint::getXMinVal() const { return d->getXMinVal(); }
void KDRPoint::setXMinVal(double value) { d->setXMinVal(value); }
double KDRPoint::getXStepVal() const { return d->getXStepVal(); }
void KDRPoint::setXStepVal(double value) { d->setXStepVal(value); }
double KDRPoint::getYMaxVal() const { return d->getYMaxVal(); }
void KDRPoint::setYMaxVal(double value) { d->setYMaxVal(value); }
double KDRPoint::getYMinVal() const { return d->getYMinVal(); }
void KDRPoint::setYMinVal(double value) { d->setYMinVal(value); }
double KDRPoint::getYStepVal() const { return d->getYStepVal(); }
void KDRPoint::setYStepVal(double value) { d->setYStepVal(value); }
