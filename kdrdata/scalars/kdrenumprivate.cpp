#include <kdrdata/scalars/kdrenumprivate.h>

namespace {

constexpr int noOption = -1;

} // namespace

KDREnumPrivate::KDREnumPrivate() : currentValue(noOption) {}
KDREnumPrivate::KDREnumPrivate(KDREnumPrivate const& other) = default;

KDREnumPrivate::~KDREnumPrivate()
{
    indexList.clear();
    stringList.clear();
    currentValue = noOption;
}

KDREnumPrivate& KDREnumPrivate::operator=(KDREnumPrivate const& other)
{
    indexList = other.indexList;
    stringList = other.stringList;
    currentValue = other.currentValue;
    return *this;
}
