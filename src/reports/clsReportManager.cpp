#include "reports/clsReportManager.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/basCommon.h"
#include "base/clsProfile.h"
#include "db/clsAssistManager.h"
#include "db/clsSysSettingManager.h"
#include "estimates/EstimateManagers.h"
#include "estimates/ListedLaws.h"
#include "master/MasterManagers.h"
#include "reference/ReferenceManagers.h"
#include "reports/MasterReports.h"
#include "reports/OpinionDocument.h"
#include "reports/PaymentRecords.h"
#include "reports/ReportClasses.h"
#include "reports/ReportText.h"
#include "reports/WorkPlanRecords.h"

#include <algorithm>

namespace {

constexpr int yes = 1;
constexpr int wholeDate = 1;

// The one name under which the documents of an estimate tell their errors.
const QString documentSource = u"GetCsEstA4Data"_qs;

ListedLaws listedLaws(QList<clsCsEstAsk> claims, const InsNames& names, const QString& exclusions) {
    std::stable_sort(claims.begin(), claims.end(),
                     [](const clsCsEstAsk& a, const clsCsEstAsk& b) { return Val(a.InsNo) < Val(b.InsNo); });
    ListedLaws laws;
    for (const clsCsEstAsk& claim : claims)
        if (const auto name = names.constFind(claim.InsNo); name != names.constEnd()) laws.add(*name, exclusions);
    return laws;
}

// A fault of any kind reaches the screen as one error under the operation's name.
template <class Work> auto underSource(const QString& source, Work&& work) {
    try {
        return work();
    } catch (const AppError& error) {
        throw AppError(error.description(), source);
    } catch (const std::exception& error) {
        throw AppError(QString::fromLocal8Bit(error.what()), source);
    }
}

bool insurersOff(DocumentKind kind) {
    return kind == DocumentKind::Invoice &&
           clsProfile().GetValue(u"Ins"_qs, u"InsDisp"_qs).compare(u"off", Qt::CaseInsensitive) == 0;
}

} // namespace

void clsReportManager::Prepare(Connection& connection) { m_connection = &connection; }

CsEstimateSource clsReportManager::withSettings(CsEstimateSource source) {
    const QString family = source.customer.FamilyType;
    source.switches = readSwitches(source.kind);
    source.insNames = readInsNames(source.claims);
    source.pickStyles = readAssistViews(AssistGroup::PickStyle);
    source.familyType = readAssistViews(AssistGroup::FamilyType).value(family, family);
    source.insurersOff = insurersOff(source.kind);
    return source;
}

DocumentSwitches clsReportManager::readSwitches(DocumentKind kind) {
    clsSysSettingManager settings;
    settings.Prepare(*m_connection);
    const auto value = [&](int number) { return ToInt(Val(settings.value(number, u"1"_qs))); };
    DocumentSwitches switches;
    switches.sex = value(Setting::PrintsSex) == yes;
    switches.birth = value(Setting::PrintsBirth);
    switches.insured = value(Setting::PrintsInsured) == yes;
    switches.address = value(Setting::PrintsAddress) == yes;
    switches.tel = value(Setting::PrintsTel) == yes;
    switches.dateForm = value(Setting::dateForm(static_cast<int>(kind)));
    return switches;
}

InsNames clsReportManager::readInsNames(const QList<clsCsEstAsk>& claims) {
    InsNames names = readInsNames();
    for (const clsCsEstAsk& claim : claims)
        if (Val(claim.InsNo) != 0 && !names.contains(claim.InsNo))
            throw AppError(u"法別No %1 が法別マスタにありません。"_qs.arg(claim.InsNo));
    return names;
}

InsNames clsReportManager::readInsNames() {
    clsInsManager manager;
    manager.Prepare(*m_connection);
    QList<clsIns> laws;
    manager.GetList(laws, {}, u"[法別No]"_qs);
    InsNames names;
    for (const clsIns& law : laws) names.insert(law.InsNo, law.InsNm);
    return names;
}

QHash<QString, QString> clsReportManager::readAssistViews(int group) {
    clsAssistManager assists;
    assists.Prepare(*m_connection);
    QHash<QString, QString> views;
    for (const clsAssist& assist : assists.group(group))
        if (!views.contains(assist.AsstData)) views.insert(assist.AsstData, assist.AsstView);
    return views;
}

void clsReportManager::GetCsEstimateData(DocumentKind kind, int copies, const QList<int>& rowList,
                                         const clsCsEstimate& estimate, const clsCustomer& customer,
                                         const QList<clsCsItem>& items, const QList<clsCsMakeElmt>& makeElements,
                                         const QList<clsCsCmpltElmt>& completeElements,
                                         const QList<clsCsEstAsk>& claims, ReportRecordset& outRecordset,
                                         bool wholeSumFlag) {
    outRecordset = underSource(documentSource, [&] {
        return csEstimateRows(withSettings(
            {kind, copies, rowList, estimate, customer, items, makeElements, completeElements, claims, wholeSumFlag}));
    });
}

void clsReportManager::GetCsEstReceiptData(DocumentKind kind, const QList<int>& rowList, const clsCsEstimate& estimate,
                                           const clsCustomer& customer, const QList<clsCsItem>& items,
                                           const QList<clsCsMakeElmt>& makeElements,
                                           const QList<clsCsCmpltElmt>& completeElements,
                                           const QList<clsCsEstAsk>& claims, ReportRecordset& outRecordset) {
    outRecordset = underSource(documentSource, [&] {
        return csEstReceiptRows(
            withSettings({kind, 1, rowList, estimate, customer, items, makeElements, completeElements, claims}));
    });
}

void clsReportManager::GetCsEstimateWorkOther(DocumentKind kind, int copies, const QList<int>& rowList,
                                              const clsCsEstimate& estimate, const clsCustomer& customer,
                                              const QList<clsCsItem>& items, const QList<clsCsMakeElmt>& makeElements,
                                              const QList<clsCsCmpltElmt>& completeElements,
                                              const QList<clsCsEstAsk>& claims, ReportRecordset& outRecordset) {
    outRecordset = underSource(documentSource, [&] {
        return csEstimateWorkRows(
            withSettings({kind, copies, rowList, estimate, customer, items, makeElements, completeElements, claims}));
    });
}

void clsReportManager::GetCsEstWorkData(DocumentKind kind, int copies, const QList<int>& rowList,
                                        const clsCsEstimate& estimate, const clsCustomer& customer,
                                        const QList<clsCsItem>& items, const QList<clsCsMakeElmt>& makeElements,
                                        const QList<clsCsCmpltElmt>& completeElements, const QList<clsCsEstAsk>& claims,
                                        ReportRecordset& outRecordset) {
    outRecordset = underSource(documentSource, [&] {
        return workSheetRows(WorkSheet::Limb, withSettings({kind, copies, rowList, estimate, customer, items,
                                                            makeElements, completeElements, claims}));
    });
}

void clsReportManager::GetCsEstWorkEquip(DocumentKind kind, int copies, const QList<int>& rowList,
                                         const clsCsEstimate& estimate, const clsCustomer& customer,
                                         const QList<clsCsItem>& items, const QList<clsCsMakeElmt>& makeElements,
                                         const QList<clsCsCmpltElmt>& completeElements,
                                         const QList<clsCsEstAsk>& claims, ReportRecordset& outRecordset) {
    outRecordset = underSource(documentSource, [&] {
        return workSheetRows(WorkSheet::Equip, withSettings({kind, copies, rowList, estimate, customer, items,
                                                             makeElements, completeElements, claims}));
    });
}

void clsReportManager::GetCsEstWorkWheelchair(DocumentKind kind, int copies, const QList<int>& rowList,
                                              const clsCsEstimate& estimate, const clsCustomer& customer,
                                              const QList<clsCsItem>& items, const QList<clsCsMakeElmt>& makeElements,
                                              const QList<clsCsCmpltElmt>& completeElements,
                                              const QList<clsCsEstAsk>& claims, ReportRecordset& outRecordset) {
    outRecordset = underSource(u"GetCsEstWorkWheelchair"_qs, [&] {
        return workSheetRows(WorkSheet::Wheelchair, withSettings({kind, copies, rowList, estimate, customer, items,
                                                                  makeElements, completeElements, claims}));
    });
}

void clsReportManager::GetCsEstOpinionData(const clsCustomer& customer, const clsChart& chart,
                                           const clsCsEstimate& estimate, ReportRecordset& outRecordset) {
    outRecordset = underSource(u"GetCsEstOpinionData"_qs, [&] { return opinionRow(customer, chart, estimate); });
}

void clsReportManager::GetCsEstimateListData(const SqlTerm& where, const SqlTerm& sort, int member,
                                             const QString& exclusions, ReportRecordset& outRecordset,
                                             const std::function<bool()>& pause) {
    outRecordset = underSource(u"GetCsEstimateListData"_qs, [&] {
        clsCsEstimateManager estimates;
        estimates.Prepare(*m_connection);
        clsCsEstAskManager asks;
        asks.Prepare(*m_connection);
        const InsNames names = readInsNames();
        QHash<QString, QList<clsCsEstAsk>> claims;
        const auto begin = [&](const QStringList& part) { claims = asks.ClaimsOf(part); };
        const bool leavesOut = member == 2 || member == 3;
        ReportRecordset records = reportClass(u"repCsEstList"_qs).recordset();
        const auto add = [&](const clsCsEstimate& estimate, const clsCustomer& customer, const clsChart& chart) {
            const ListedLaws laws = listedLaws(claims.value(estimate.EstId), names, exclusions);
            if (laws.excluded && leavesOut) return;
            records.AddNew();
            records.Set(u"Order"_qs, chart.OrderNm);
            records.Set(u"Addr"_qs, customer.Pref + customer.City + customer.Addr1 + customer.Addr2);
            records.Set(u"CustNm"_qs, JoinWithSpace(customer.CustNm1, customer.CustNm2));
            records.Set(u"EstName"_qs, estimate.EstNm);
            records.Set(u"ProductCd"_qs, estimate.ProductCd);
            records.Set(u"EstSum"_qs, estimate.EstSum);
            records.Set(u"Ins"_qs, laws.shown);
            records.Set(u"PickPtnDate"_qs, ReportText::issueDate(estimate.PickPtnDate, wholeDate, false));
            records.Set(u"DelvFinDate"_qs, ReportText::issueDate(estimate.DelvFinDate, wholeDate, false));
            records.Set(u"Sort"_qs, laws.excluded ? u"1"_qs : u"0"_qs);
        };
        estimates.ForEachOf(estimates.IdsWithMst(where, sort), add, pause, begin);
        return records;
    });
}

double clsReportManager::readTaxRate() {
    clsSysSettingManager settings;
    settings.Prepare(*m_connection);
    return Val(settings.value(Setting::Tax));
}

void clsReportManager::GetMstEstimateData(const SqlTerm& where, ReportRecordset& outRecordset) {
    outRecordset = underSource(u"GetMstEstimateData"_qs, [&] {
        clsMstEstimateManager masters;
        clsMstItemManager items;
        clsMstMakeElmtManager makeLines;
        clsMstCmpltElmtManager partsLines;
        masters.Prepare(*m_connection);
        items.Prepare(*m_connection);
        makeLines.Prepare(*m_connection);
        partsLines.Prepare(*m_connection);
        QList<clsMstEstimate> headers;
        masters.GetList(headers, where, masters.sorted({&clsMstEstimate::ProductCd, &clsMstEstimate::ProductId}));
        QList<MasterSource> sources;
        for (const clsMstEstimate& header : headers) {
            const QStringList owner{header.ProductId};
            sources << MasterSource{header, items.rowsOf(owner), makeLines.rowsOf(owner), partsLines.rowsOf(owner)};
        }
        return masterSheetRows(sources, readAssistViews(AssistGroup::PickStyle), readTaxRate());
    });
}

void clsReportManager::GetMstEstListData(const SqlTerm& where, const SqlTerm& sort, ReportRecordset& outRecordset) {
    outRecordset = underSource(u"GetMstEstListData"_qs, [&] {
        clsMstEstimateManager masters;
        masters.Prepare(*m_connection);
        QList<clsMstEstimate> rows;
        masters.GetList(rows, where, sort);
        return masterListRows(rows, readTaxRate());
    });
}

// --- payments and statistics ---

QString clsReportManager::MakeSQLNoPayList(const PaymentSearch& search, const SqlTerm& sort) {
    return PaymentRows::keys(noPayCondition(search), paymentOrder(sort));
}

QString clsReportManager::MakeSQLPayList(const PaymentSearch& search, const SqlTerm& sort) {
    return PaymentRows::keys(paidCondition(search), paymentOrder(sort));
}

void clsReportManager::gatherPayments(const SqlTerm& where, const SqlTerm& sort, ReportRecordset& outRecordset,
                                      const std::function<bool()>& pause) {
    outRecordset = underSource(u"GetStNoPaymentData"_qs, [&] {
        PaymentRows rows(*m_connection);
        ReportRecordset records = paymentRecordset();
        PaymentRecords filled(rows, records);
        rows.forEach(
            rows.ids(where, paymentOrder(sort)), [&](const PaymentRow& row) { filled.add(row); }, pause);
        return records;
    });
}

void clsReportManager::GetStNoPaymentData(const PaymentSearch& search, const SqlTerm& sort,
                                          ReportRecordset& outRecordset, const std::function<bool()>& pause) {
    gatherPayments(noPayCondition(search), sort, outRecordset, pause);
}

void clsReportManager::GetStPaymentData(const PaymentSearch& search, const SqlTerm& sort, ReportRecordset& outRecordset,
                                        const std::function<bool()>& pause) {
    gatherPayments(paidCondition(search), sort, outRecordset, pause);
}

void clsReportManager::GetStWorkPlanData(const WorkPlanSearch& search, ReportRecordset& outRecordset,
                                         const std::function<bool()>& pause) {
    outRecordset = underSource(u"GetStWorkPlanData"_qs, [&] {
        PaymentRows rows(*m_connection);
        ReportRecordset records = workPlanRecordset();
        WorkPlanRecords filled(rows, search.prices, records);
        forEachPlanned(
            *m_connection, rows, search, [&](const PlannedWork& work) { filled.add(work); }, pause);
        return records;
    });
}

void clsReportManager::GetStOrderSalesData(const PaymentSearch& search, ReportRecordset& outRecordset,
                                           const std::function<bool()>& pause) {
    outRecordset = underSource(u"GetStOrderSalesData"_qs, [&] {
        PaymentRows rows(*m_connection);
        ReportRecordset records = orderSalesRecordset();
        const auto add = [&](const PaymentRow& row) { addOrderSales(rows, records, row); };
        rows.forEach(rows.ids(orderSalesCondition(search), orderSalesOrder()), add, pause);
        return records;
    });
}
