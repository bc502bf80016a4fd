#include <kdrdata/scalars/kdrenum.h>

#include <kdrdata/scalars/kdrenumprivate.h>

#include <memory>

KDREnum::KDREnum() : d(new KDREnumPrivate) {}

KDREnum::KDREnum(KDRStringArray const& names, KDRNumberArray const& numbers) : d(nullptr)
{
    auto record = std::make_unique<KDREnumPrivate>();
    record->indexList = numbers;
    record->stringList = names;
    d = record.release();
}

KDREnum::KDREnum(KDREnum const& other)
    : d(other.d ? new KDREnumPrivate(*other.d) : new KDREnumPrivate)
{
}

KDREnum::~KDREnum()
{
    delete d;
    d = nullptr;
}

KDREnum& KDREnum::operator=(KDREnum const& other)
{
    if (d && other.d)
        *d = *other.d;
    return *this;
}

void KDREnum::setCurrentVal(int index) { d->currentValue = index; }
int KDREnum::currentVal() const { return d->currentValue; }

void KDREnum::setCurrentValStr(KDRString const& name)
{
    d->currentValue = d->stringList.indexOf(name, 0);
}

KDRString KDREnum::currentValStr() const
{
    KDRString name("");
    d->stringList.select(d->currentValue, &name);
    return name;
}

void KDREnum::setEnumInf(KDRNumberArray const& numbers, KDRStringArray const& names)
{
    d->indexList = numbers;
    d->stringList = names;
}

void KDREnum::getEnumStringList(KDRStringArray& out) { out = d->stringList; }
void KDREnum::getEnumIndexList(KDRNumberArray& out) { out = d->indexList; }
