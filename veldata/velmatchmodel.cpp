#include <veldata/velmatchmodel.h>

#include <algorithm>
#include <new>
#include <utility>

#include <veldata/velmodelrecord_p.h>

VelMatchModel::VelMatchModel() noexcept : type(0) {}

VelMatchModel::VelMatchModel(VelMatchModel const& other) = default;

VelMatchModel::VelMatchModel(VelMatchModel&& other) noexcept : VelMatchModel()
{
    *this = std::move(other);
}

VelMatchModel::~VelMatchModel() = default;

VelMatchModel& VelMatchModel::operator=(VelMatchModel const& other)
{
    VelMatchModel copy(other);
    return *this = std::move(copy);
}

VelMatchModel& VelMatchModel::operator=(VelMatchModel&& other) noexcept
{
    type = std::exchange(other.type, 0);
    payload = std::exchange(other.payload, {});
    return *this;
}

int VelMatchModel::ModelType() const noexcept { return type; }

unsigned long long VelMatchModel::GetLenth() const noexcept
{
    return VelModelRecord::headBytes + payload.size();
}

int VelMatchModel::GetData(unsigned char* record) const noexcept
{
    if (!record)
        return 0;
    VelModelRecord{type, payload.size()}.write(record);
    std::copy(payload.begin(), payload.end(), record + VelModelRecord::headBytes);
    return 1;
}

int VelMatchModel::SetData(unsigned char const* record) noexcept
{
    VelModelRecord head{};
    if (!record || !head.read(record))
        return 0;
    unsigned char const* const bytes = record + VelModelRecord::headBytes;
    try {
        payload = std::vector<unsigned char>(bytes, bytes + head.payloadBytes);
    } catch (std::bad_alloc const&) {
        return 0;
    }
    type = head.type;
    return 1;
}
