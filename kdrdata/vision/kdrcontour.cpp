#include <kdrdata/vision/kdrcontour.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/vision/kdrpointarray.h>

#include <QtCore/qglobal.h>

#include <veldata/velcontour.h>
#include <veldata/velpointarray.h>

KDRContour::KDRContour() : d(new VelContour) {}

KDRContour::KDRContour(KDRContour const& other) : d(KDRInternal::assignedCopy(other.d)) {}

KDRContour::~KDRContour()
{
    delete d;
    d = nullptr;
}

KDRContour& KDRContour::operator=(KDRContour const& other)
{
    *d = *other.d;
    return *this;
}

void KDRContour::ToPointArray(KDRPointArray* points) const
{
    Q_ASSERT(points);
    d->ToPointArray(&KDRInternal::wrapped(*points));
}

void KDRContour::FromPointArray(KDRPointArray& points)
{
    d->FromPointArray(KDRInternal::wrapped(points));
}

int KDRContour::length() const { return d->Length(); }
double KDRContour::perimeter() const { return d->Perimeter(); }
double KDRContour::area() const { return d->Area(); }
