#include "customers/CustomerSave.h"

#include "base/Application.h"
#include "base/Text.h"
#include "customers/ChartParties.h"
#include "db/AskingOutside.h"
#include "reference/ReferenceManagers.h"

#include <algorithm>

namespace {

void logDone(const QString& what, const clsCustomer& customer) {
    writeLog(what + u" 顧客ID－枝番："_qs + customer.CustId + u" - "_qs + customer.CustSubId);
}

void savePlace(const clsCustomer& customer) {
    clsPrefecture pair;
    pair.Pref = customer.Pref;
    pair.City = customer.City;
    if (!pair.Pref.isEmpty() || !pair.City.isEmpty()) gPrefectureManager.SaveData(pair);
}

void removeOtherCharts(const clsCustomer& customer, const QList<CustomerChart>& kept) {
    for (const clsChart& stored : gChartManager.rowsOf(customer.key())) {
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
    for (const clsCsIns& law : gCsInsManager.rowsOf(read.customer.key())) read.laws << law.InsNo;
    for (clsChart chart : gChartManager.rowsOf(read.customer.key())) {
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
        gCsInsManager.SaveAll(customer.key(), saved.laws);
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
