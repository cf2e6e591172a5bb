#include "customers/CustomerSave.h"

#include "base/Application.h"
#include "base/Text.h"
#include "base/basCommon.h"
#include "customers/ChartParties.h"
#include "db/AskingOutside.h"
#include "reference/ReferenceManagers.h"

#include <algorithm>

namespace {

QString branchFilter(const clsCustomer& customer) {
    return u"[顧客ID] = "_qs + sqlText(customer.CustId) + u" and [顧客枝番] = "_qs + sqlNumber(customer.CustSubId);
}

QList<clsChart> storedCharts(const clsCustomer& customer) {
    QList<clsChart> charts;
    gChartManager.GetList(charts, branchFilter(customer), u"[顧客ID],[顧客枝番],[カルテNo]"_qs);
    return charts;
}

void logDone(const QString& what, const clsCustomer& customer) {
    writeLog(what + u" 顧客ID－枝番："_qs + customer.CustId + u" - "_qs + customer.CustSubId);
}

void savePlace(const clsCustomer& customer) {
    clsPrefecture pair;
    pair.Pref = customer.Pref;
    pair.City = customer.City;
    if (!pair.Pref.isEmpty() || !pair.City.isEmpty()) gPrefectureManager.SaveData(pair);
}

void saveLaws(const clsCustomer& customer, const QStringList& laws) {
    gCsInsManager.DeleteData(customer.CustId, customer.CustSubId, {});
    for (const QString& law : laws) {
        clsCsIns row{customer.CustId, customer.CustSubId, u"0"_qs, law};
        gCsInsManager.SaveData(row);
    }
}

void removeOtherCharts(const clsCustomer& customer, const QList<CustomerChart>& kept) {
    for (const clsChart& stored : storedCharts(customer)) {
        const bool stays = std::any_of(kept.begin(), kept.end(), [&stored](const CustomerChart& row) {
            return row.chart.ChartNo == stored.ChartNo;
        });
        if (!stays) gChartManager.DeleteData(customer.CustId, customer.CustSubId, stored.ChartNo);
    }
}

bool isNamedAsItsMaster(const CustomerChart& row) {
    clsOrder order;
    return !row.orderCd.isEmpty() && gOrderManager.GetDataCd(row.orderCd, order) &&
           Text::rightTrimmed(order.OrderNm) == Text::rightTrimmed(row.chart.OrderNm);
}

// A party that was renamed in one chart is asked about once: the charts that nobody touched follow the answer.
bool settleCharts(QList<CustomerChart>& charts) {
    QList<CustomerChart*> untouched;
    for (CustomerChart& row : charts)
        if (isNamedAsItsMaster(row)) untouched << &row;
    for (CustomerChart& row : charts)
        if (!untouched.contains(&row) && !settleParties(row.chart, row.orderCd)) return false;
    for (CustomerChart* row : untouched) {
        clsOrder order;
        if (gOrderManager.GetDataCd(row->orderCd, order)) row->chart.OrderNm = order.OrderNm;
        settleParties(row->chart, row->orderCd);
    }
    return true;
}

// Estimates find a chart by its number: known charts keep theirs, and a new one is never given that of a chart that
// goes with this save.
bool saveCharts(const clsCustomer& customer, QList<CustomerChart>& charts) {
    if (!settleCharts(charts)) return false;
    for (CustomerChart& row : charts) {
        row.chart.CustId = customer.CustId;
        row.chart.CustSubId = customer.CustSubId;
        row.chart.UpdUserNo = customer.UpdUserNo;
        gChartManager.SaveData(row.chart);
    }
    removeOtherCharts(customer, charts);
    return true;
}

bool isStored(const clsCustomer& customer) {
    clsCustomer stored;
    return !customer.CustId.isEmpty() && !customer.CustSubId.isEmpty() &&
           gCustomerManager.GetData(customer.CustId, customer.CustSubId, stored);
}

} // namespace

bool loadCustomer(const QString& CustId, const QString& CustSubId, CustomerDraft& draft) {
    CustomerDraft read;
    if (!gCustomerManager.GetData(CustId, CustSubId, read.customer)) return false;
    QList<clsCsIns> laws;
    gCsInsManager.GetList(laws, branchFilter(read.customer), u"[顧客ID],[顧客枝番],[項番]"_qs);
    for (const clsCsIns& law : laws) read.laws << law.InsNo;
    for (clsChart chart : storedCharts(read.customer)) {
        const QString orderCd = renewParties(chart);
        read.charts << CustomerChart{chart, orderCd};
    }
    draft = read;
    return true;
}

CustomerSaveResult saveCustomer(Connection& connection, CustomerDraft& draft, CustomerSaveAs as) {
    CustomerDraft saved;
    bool isKnown = false;
    const bool stored = AskingOutside::run(connection, [&] {
        saved = draft;
        clsCustomer& customer = saved.customer;
        if (as == CustomerSaveAs::NewBranch) customer.CustSubId.clear();
        customer.UpdUserNo = QString::number(gUserNo);
        isKnown = isStored(customer);
        if (!gCustomerManager.SaveData(customer)) return false;
        savePlace(customer);
        saveLaws(customer, saved.laws);
        return saveCharts(customer, saved.charts);
    });
    if (!stored) return CustomerSaveResult::Refused;
    draft = saved;
    logDone(isKnown ? u"顧客更新"_qs : u"顧客登録"_qs, saved.customer);
    return isKnown ? CustomerSaveResult::Updated : CustomerSaveResult::Added;
}

void deleteCustomer(Connection& connection, const clsCustomer& customer) {
    Transaction transaction(connection);
    gCustomerManager.DeleteData(customer.CustId, customer.CustSubId);
    transaction.commit();
    logDone(u"顧客削除"_qs, customer);
}
