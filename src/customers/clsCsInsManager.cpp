#include "customers/clsCsInsManager.h"

#include "base/basCommon.h"

clsCsInsManager gCsInsManager;

namespace {

const QStringList keys{u"顧客ID"_qs, u"顧客枝番"_qs, u"項番"_qs};

QString branchFilter(const QString& CustId, const QString& CustSubId) {
    return u"[顧客ID] = "_qs + sqlText(CustId) + u" and [顧客枝番] = "_qs + sqlNumber(CustSubId);
}

QString rowFilter(const QString& CustId, const QString& CustSubId, const QString& DataNo) {
    return branchFilter(CustId, CustSubId) + u" and [項番] = "_qs + sqlNumber(DataNo);
}

} // namespace

clsCsInsManager::clsCsInsManager()
    : TableManager(u"顧客保険"_qs, {{&clsCsIns::CustId, u"顧客ID"_qs},
                                    {&clsCsIns::CustSubId, u"顧客枝番"_qs},
                                    {&clsCsIns::DataNo, u"項番"_qs},
                                    {&clsCsIns::InsNo, u"法別No"_qs}}) {}

bool clsCsInsManager::GetData(const QString& CustId, const QString& CustSubId, const QString& DataNo, clsCsIns& ins) {
    return readFirst(ins, rowFilter(CustId, CustSubId, DataNo));
}

void clsCsInsManager::DeleteData(const QString& CustId, const QString& CustSubId, const QString& DataNo) {
    const bool whole = Val(DataNo) == 0;
    execute(u"DELETE FROM [顧客保険] WHERE "_qs +
            (whole ? branchFilter(CustId, CustSubId) : rowFilter(CustId, CustSubId, DataNo)));
}

QString clsCsInsManager::GetNewDataNo(const QString& CustId, const QString& CustSubId) {
    const QString last = connection().scalar(u"SELECT MAX([項番]) AS [最終No] FROM [顧客保険]  WHERE "_qs +
                                             branchFilter(CustId, CustSubId));
    return numberText(Val(last) + 1);
}

bool clsCsInsManager::CheckExistData(const QString& CustId, const QString& CustSubId, const QString& DataNo) {
    return connection().scalar(u"SELECT COUNT([顧客ID]) AS RECCNT FROM [顧客保険]  WHERE "_qs +
                               rowFilter(CustId, CustSubId, DataNo)) != u"0";
}

void clsCsInsManager::SaveData(clsCsIns& ins) {
    if (Val(ins.DataNo) == 0) ins.DataNo = GetNewDataNo(ins.CustId, ins.CustSubId);
    if (CheckExistData(ins.CustId, ins.CustSubId, ins.DataNo))
        update(ins, {u"法別No"_qs}, keys);
    else
        insert(ins, columnsWithout({}));
}

void clsCsInsManager::AddIfMissing(clsCsIns& ins) {
    if (Val(ins.InsNo) == 0) return;
    QList<clsCsIns> found;
    GetList(found, u"顧客ID = "_qs + sqlText(ins.CustId) + u" AND 顧客枝番 = "_qs + sqlNumber(ins.CustSubId) +
                       u" AND 法別No = "_qs + sqlNumber(ins.InsNo));
    if (!found.isEmpty()) return;
    if (Val(ins.DataNo) == 0) ins.DataNo = GetNewDataNo(ins.CustId, ins.CustSubId);
    insert(ins, columnsWithout({}));
}
