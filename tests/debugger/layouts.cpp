// The records that the debugger's printers read, so that this program's debug information tells
// where their fields lie. It is looked at and never run.
#include <kdrdata/kdrdata.h>
#include <kdrdata/scalars/kdrnumber_p.h>

#include <QtCore/QList>
#include <QtCore/QString>

#include <memory>

#ifdef KDRDATA_BUNDLED_CORE
#include <veldata/veldata.h>
#include <veldata/vellist_p.h>
#include <veldata/velpixels_p.h>
#include <veldata/velruns_p.h>
#endif

template <class... Records>
struct Pointers
{
};

template <class Record, class... Records>
struct Pointers<Record, Records...> : Pointers<Records...>
{
    static_assert(sizeof(Record) > 0, "complete");
    Record* record = nullptr;
};

Pointers<KDRNumberPrivate, KDREnumPrivate, KDRPointPrivate, KDRShapePrivate, KDRVariantLock,
         KDRVariantPrivate, KDRPose2D, KDRPose3D, QArrayData, QListData::Data>
    libraryRecords;

#ifdef KDRDATA_BUNDLED_CORE
Pointers<VelVar, VelFont, VelImage, VelPixels, VelMatrix, VelPoint, VelPointArray, VelImageArray,
         VelMatrixArray, VelRegionArray, VelContourArray, VelContour, VelRegion, VelRuns, VelRun,
         VelMatchModel, VelChunkData, VelList<VelPoint>>
    coreRecords;

using SharedCount = std::_Sp_counted_base<std::__default_lock_policy>;
SharedCount* sharedCount;
#endif

int main() {}
