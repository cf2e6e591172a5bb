#pragma once

#include "customers/clsChartManager.h"
#include "payments/PaymentSearch.h"
#include "payments/WorkPlan.h"
#include "reports/CsEstimateDocument.h"
#include "reports/WorkSheetRows.h"

#include <functional>

class Connection;

// Builds the record sets of the printed documents from what the screens hold. It keeps nothing but the connection, so
// that a changed setting counts from the next print on. An operation that fails raises one error with its own source.
class clsReportManager {
public:
    // Keeps the open connection; to be called before every other operation.
    void Prepare(Connection& connection);

    // The rows of an estimate's document of one kind. `rowList` holds the 請求No of the claims ticked for it;
    // `wholeSumFlag` makes a receipt over the grand total. Reads settings, 法別 and 補助設定, but no estimate.
    void GetCsEstimateData(DocumentKind kind, int copies, const QList<int>& rowList, const clsCsEstimate& estimate,
                           const clsCustomer& customer, const QList<clsCsItem>& items,
                           const QList<clsCsMakeElmt>& makeElements, const QList<clsCsCmpltElmt>& completeElements,
                           const QList<clsCsEstAsk>& claims, ReportRecordset& outRecordset, bool wholeSumFlag = false);

    // The contract of an estimate under the accident insurance: one row.
    void GetCsEstReceiptData(DocumentKind kind, const QList<int>& rowList, const clsCsEstimate& estimate,
                             const clsCustomer& customer, const QList<clsCsItem>& items,
                             const QList<clsCsMakeElmt>& makeElements, const QList<clsCsCmpltElmt>& completeElements,
                             const QList<clsCsEstAsk>& claims, ReportRecordset& outRecordset);

    // The price sheets of the accident insurance, each with what `GetCsEstimateData` takes: the ordinary rows, and the
    // sections of limbs, of orthoses and of wheelchairs.
    void GetCsEstimateWorkOther(DocumentKind kind, int copies, const QList<int>& rowList, const clsCsEstimate& estimate,
                                const clsCustomer& customer, const QList<clsCsItem>& items,
                                const QList<clsCsMakeElmt>& makeElements, const QList<clsCsCmpltElmt>& completeElements,
                                const QList<clsCsEstAsk>& claims, ReportRecordset& outRecordset);
    void GetCsEstWorkData(DocumentKind kind, int copies, const QList<int>& rowList, const clsCsEstimate& estimate,
                          const clsCustomer& customer, const QList<clsCsItem>& items,
                          const QList<clsCsMakeElmt>& makeElements, const QList<clsCsCmpltElmt>& completeElements,
                          const QList<clsCsEstAsk>& claims, ReportRecordset& outRecordset);
    void GetCsEstWorkEquip(DocumentKind kind, int copies, const QList<int>& rowList, const clsCsEstimate& estimate,
                           const clsCustomer& customer, const QList<clsCsItem>& items,
                           const QList<clsCsMakeElmt>& makeElements, const QList<clsCsCmpltElmt>& completeElements,
                           const QList<clsCsEstAsk>& claims, ReportRecordset& outRecordset);
    void GetCsEstWorkWheelchair(DocumentKind kind, int copies, const QList<int>& rowList, const clsCsEstimate& estimate,
                                const clsCustomer& customer, const QList<clsCsItem>& items,
                                const QList<clsCsMakeElmt>& makeElements, const QList<clsCsCmpltElmt>& completeElements,
                                const QList<clsCsEstAsk>& claims, ReportRecordset& outRecordset);

    // The doctor's opinion: one row. Reads nothing from the database; the age is that of today's real date.
    void GetCsEstOpinionData(const clsCustomer& customer, const clsChart& chart, const clsCsEstimate& estimate,
                             ReportRecordset& outRecordset);

    // The estimates of the list under its condition and order. The members 2 and 3 of the print command leave out each
    // one that has a 法別 of `exclusions`. `pause` runs from time to time.
    void GetCsEstimateListData(const SqlTerm& where, const SqlTerm& sort, int member, const QString& exclusions,
                               ReportRecordset& outRecordset, const std::function<bool()>& pause = {});

    // The sheets of the master estimates of a condition over `マスタ見積情報`, by their codes, and the list of them in
    // an order. Both show the totals with the tax of setting No 2.
    void GetMstEstimateData(const SqlTerm& where, ReportRecordset& outRecordset);
    void GetMstEstListData(const SqlTerm& where, const SqlTerm& sort, ReportRecordset& outRecordset);

    // What is not paid, and what is, with their claims, in the lists' own order unless another is given. The statements
    // give the keys of their estimates. The claims of all of them are read together.
    static QString MakeSQLNoPayList(const PaymentSearch& search, const SqlTerm& sort = {});
    static QString MakeSQLPayList(const PaymentSearch& search, const SqlTerm& sort = {});
    void GetStNoPaymentData(const PaymentSearch& search, const SqlTerm& sort, ReportRecordset& outRecordset,
                            const std::function<bool()>& pause = {});
    void GetStPaymentData(const PaymentSearch& search, const SqlTerm& sort, ReportRecordset& outRecordset,
                          const std::function<bool()>& pause = {});

    // A row for each planned date within the search, by date or by ordering party.
    void GetStWorkPlanData(const WorkPlanSearch& search, ReportRecordset& outRecordset,
                           const std::function<bool()>& pause = {});
    // The estimates of an ordering party, by 完成実績日, that are as far as the status.
    void GetStOrderSalesData(const PaymentSearch& search, ReportRecordset& outRecordset,
                             const std::function<bool()>& pause = {});

private:
    double readTaxRate();
    void gatherPayments(const SqlTerm& where, const SqlTerm& sort, ReportRecordset& outRecordset,
                        const std::function<bool()>& pause);
    // Completes what a screen gave by what the settings say.
    CsEstimateSource withSettings(CsEstimateSource source);
    DocumentSwitches readSwitches(DocumentKind kind);
    InsNames readInsNames(const QList<clsCsEstAsk>& claims);
    InsNames readInsNames(); // of all laws
    // The display words of a group of 補助設定 by its values; of two rows with one value the first counts.
    QHash<QString, QString> readAssistViews(int group);

    Connection* m_connection = nullptr;
};
