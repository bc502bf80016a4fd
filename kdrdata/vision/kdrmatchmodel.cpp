#include <kdrdata/vision/kdrmatchmodel.h>

#include <memory>

#include <veldata/velmatchmodel.h>

KDRMatchModel::KDRMatchModel() : d(new VelMatchModel) {}

KDRMatchModel::KDRMatchModel(KDRMatchModel const& other) : d(nullptr)
{
    auto copy = std::make_unique<VelMatchModel>();
    *copy = *other.d;
    d = copy.release();
}

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
