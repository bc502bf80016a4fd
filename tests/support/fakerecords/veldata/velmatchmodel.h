#ifndef KDRDATA_TESTS_FAKERECORDS_VELMATCHMODEL_H
#define KDRDATA_TESTS_FAKERECORDS_VELMATCHMODEL_H

#include "../fakecalls.h"

/// A core model that answers what the test told it to.
class VelMatchModel
{
public:
    VelMatchModel() = default;
    VelMatchModel(VelMatchModel const&) = delete;
    VelMatchModel& operator=(VelMatchModel const& other)
    {
        FakeCalls::note("model operator=");
        type = other.type;
        return *this;
    }

    int ModelType() const { return type; }
    unsigned long long GetLenth() const { return length; }
    int GetData(unsigned char* data) const
    {
        FakeCalls::note("GetData", static_cast<void*>(data));
        return answer;
    }
    int SetData(unsigned char* data)
    {
        FakeCalls::note("SetData", static_cast<void*>(data));
        return answer;
    }

    int type = -5;
    int answer = 1;
    unsigned long long length = 0;

private:
    FakeCalls::Alive alive;
};

#endif
