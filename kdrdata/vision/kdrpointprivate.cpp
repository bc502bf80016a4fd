#include <kdrdata/vision/kdrpointprivate.h>

#include <veldata/velpoint.h>

namespace {

constexpr double defaultMaximum = 999999.0;
constexpr double defaultMinimum = -999999.0;
constexpr double defaultStep = 1.0;

} // namespace

KDRPointPrivate::KDRPointPrivate()
    : d(new VelPoint),
      m_xMaxVal(defaultMaximum),
      m_xMinVal(defaultMinimum),
      m_xStepVal(defaultStep),
      m_yMaxVal(defaultMaximum),
      m_yMinVal(defaultMinimum),
      m_yStepVal(defaultStep)
{
    // What a default core point holds is that library's business; here it is the origin.
    d->x = 0.0;
    d->y = 0.0;
}

KDRPointPrivate::KDRPointPrivate(KDRPointPrivate const& other) : KDRPointPrivate()
{
    *this = other;
}

KDRPointPrivate::~KDRPointPrivate()
{
    delete d;
    d = nullptr;
}

KDRPointPrivate& KDRPointPrivate::operator=(KDRPointPrivate const& other)
{
    *d = *other.d;
    m_xMaxVal = other.m_xMaxVal;
    m_xMinVal = other.m_xMinVal;
    m_xStepVal = other.m_xStepVal;
    m_yMaxVal = other.m_yMaxVal;
    m_yMinVal = other.m_yMinVal;
    m_yStepVal = other.m_yStepVal;
    return *this;
}

double KDRPointPrivate::getXVal() const { return d->x; }
void KDRPointPrivate::setXVal(double value) { d->x = value; }
double KDRPointPrivate::getYVal() const { return d->y; }
void KDRPointPrivate::setYVal(double value) { d->y = value; }
double KDRPointPrivate::getXMaxVal() const { return m_xMaxVal; }
void KDRPointPrivate::setXMaxVal(double value) { m_xMaxVal = value; }
double KDRPointPrivate::getXMinVal() const { return m_xMinVal; }
void KDRPointPrivate::setXMinVal(double value) { m_xMinVal = value; }
double KDRPointPrivate::getXStepVal() const { return m_xStepVal; }
void KDRPointPrivate::setXStepVal(double value) { m_xStepVal = value; }
double KDRPointPrivate::getYMaxVal() const { return m_yMaxVal; }
void KDRPointPrivate::setYMaxVal(double value) { m_yMaxVal = value; }
double KDRPointPrivate::getYMinVal() const { return m_yMinVal; }
void KDRPointPrivate::setYMinVal(double value) { m_yMinVal = value; }
double KDRPointPrivate::getYStepVal() const { return m_yStepVal; }
void KDRPointPrivate::setYStepVal(double value) { m_yStepVal = value; }
