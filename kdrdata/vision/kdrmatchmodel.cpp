#include <kdrdata/vision/kdrmatchmodel.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <veldata/velmatchmodel.h>

KDRMatchModel::KDRMatchModel() : d(new VelMatchModel) {}

KDRMatchModel::KDRMatchModel(KDRMatchModel const& other) : d(KDRInternal::assignedCopy(other.d)) {}

KDRMatchModel::~KDRMatchModel()
{
    delete d;
    d = nullptr;
}

KDRMatchModel& KDRMatchModel::operator=(KDRMatchModel const& other)
{
    *d = *other.d;
    return *this;
}

KDRMatchModel& KDRMatchModel::operator=(KDRMatchModel&& other)
{
    *d = *other.d;
    return *this;
}

int KDRMatchModel::ModelType() const { return d->ModelType(); }
unsigned long long KDRMatchModel::GetLenth() const { return d->GetLenth(); }
int KDRMatchModel::GetData(unsigned char* data) const { return d->GetData(data); }
int KDRMatchModel::SetData(unsigned char* data) { return d->SetData(data); }
