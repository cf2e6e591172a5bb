#include "operations/Managers.h"

#include "customers/clsChartManager.h"
#include "customers/clsCsInsManager.h"
#include "customers/clsCustomerManager.h"
#include "db/clsAssistManager.h"
#include "db/clsAutoIdsManager.h"
#include "db/clsOfficeManager.h"
#include "db/clsSysSettingManager.h"
#include "estimates/EstimateManagers.h"
#include "master/MasterManagers.h"
#include "price/PriceManagers.h"
#include "reference/ReferenceManagers.h"
#include "reference/clsZipManager.h"

#include <functional>

namespace Managers {

namespace {

struct Entry {
    std::function<void(Connection&)> prepare;
    std::function<void()> release;
    QString table;
};

template <class Manager> Entry entry(Manager& manager) {
    return {[&manager](Connection& connection) { manager.Prepare(connection); }, [&manager] { manager.Release(); },
            manager.table()};
}

const QList<Entry>& entries() {
    static const QList<Entry> list{
        entry(gCustomerManager),
        entry(gPrefectureManager),
        entry(gAssistManager),
        entry(gAutoIdsManager),
        entry(gProducerManager),
        entry(gStaffManager),
        entry(gChartManager),
        entry(gOrderManager),
        entry(gDoctorManager),
        entry(gZipManager),
        entry(gCsInsManager),
        entry(gInsClaimManager),
        entry(gInsManager),
        entry(gClaimManager),
        entry(gPriceAddManager),
        entry(gPriceBaseManager),
        entry(gPriceElmtManager),
        entry(gPriceItemManager),
        entry(gPricePartsManager),
        entry(gCsEstimateManager),
        entry(gMstEstimateManager),
        entry(gCsItemManager),
        entry(gMstItemManager),
        entry(gCsMakeElmtManager),
        entry(gMstMakeElmtManager),
        entry(gCsCmpltElmtManager),
        entry(gMstCmpltElmtManager),
        entry(gCsEstAskManager),
        entry(gProcKbnManager),
        entry(gSysSettingManager),
        entry(gBaseElmtSelectManager),
        entry(gOfficeManager),
        entry(gEquipmentManager),
    };
    return list;
}

} // namespace

void prepare(Connection& connection) {
    for (const Entry& entry : entries()) entry.prepare(connection);
}

void release() {
    for (const Entry& entry : entries()) entry.release();
}

QStringList tables() {
    QStringList names;
    for (const Entry& entry : entries()) names << entry.table;
    return names;
}

} // namespace Managers
