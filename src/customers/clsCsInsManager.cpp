#include "customers/clsCsInsManager.h"

#include "base/Numbers.h"

clsCsInsManager gCsInsManager;

clsCsInsManager::clsCsInsManager()
    : TableManager(u"顧客保険"_qs, {{&clsCsIns::CustId, u"顧客ID"_qs},
                                    {&clsCsIns::CustSubId, u"顧客枝番"_qs},
                                    {&clsCsIns::DataNo, u"項番"_qs},
                                    {&clsCsIns::InsNo, u"法別No"_qs}}) {}

bool clsCsInsManager::GetData(const QString& CustId, const QString& CustSubId, const QString& DataNo, clsCsIns& ins) {
    return get({CustId, CustSubId, DataNo}, ins);
}

void clsCsInsManager::DeleteData(const QString& CustId, const QString& CustSubId, const QString& DataNo) {
    remove(Val(DataNo) == 0 ? QStringList{CustId, CustSubId} : QStringList{CustId, CustSubId, DataNo});
}

QString clsCsInsManager::GetNewDataNo(const QString& CustId, const QString& CustSubId) {
    return nextNumber(keyed({CustId, CustSubId}));
}

bool clsCsInsManager::CheckExistData(const QString& CustId, const QString& CustSubId, const QString& DataNo) {
    return exists({CustId, CustSubId, DataNo});
}

void clsCsInsManager::SaveData(clsCsIns& ins) {
    if (Val(ins.DataNo) == 0) ins.DataNo = GetNewDataNo(ins.CustId, ins.CustSubId);
    save(ins);
}

void clsCsInsManager::SaveAll(const CustomerKey& branch, const QStringList& laws) {
    QList<clsCsIns> rows;
    for (const QString& law : laws)
        rows << clsCsIns{branch.CustId, branch.CustSubId, QString::number(rows.size() + 1), law};
    replace(branch, rows);
}

void clsCsInsManager::AddIfMissing(clsCsIns& ins) {
    if (Val(ins.InsNo) == 0) return;
    const SqlTerm branch = keyed({ins.CustId, ins.CustSubId});
    if (count(SqlAllOf({branch, equal(&clsCsIns::InsNo, ins.InsNo)})) > 0) return;
    if (Val(ins.DataNo) == 0) ins.DataNo = nextNumber(branch);
    insert(ins);
}
