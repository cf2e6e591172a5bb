#include "reports/Statistics.h"

#include "db/clsSysSettingManager.h"
#include "reports/PaymentRecords.h"
#include "reports/WorkPlanRecords.h"

namespace {

QString wide(int length) { return QString(length, u'国'); }

ReportHeader header(const QStringList& values) {
    ReportHeader header{{{u"PrtDate"_qs, printDay()}}};
    for (const QString& value : values) header.values.insert(value, {});
    return header;
}

// The lengths that the tables have, and the longest words of the heads.
ReportParameters longest() {
    ReportParameters longest{{u"CustNm"_qs, wide(31)},
                             {u"EstNm"_qs, wide(50)},
                             {u"Order"_qs, wide(40)},
                             {u"Producer"_qs, wide(30)},
                             {u"PrtDate"_qs, u"2028年12月28日 作成"_qs},
                             {u"Period"_qs, u"2028年12月28日から2028年12月28日まで"_qs},
                             {u"Status"_qs, u"未着手"_qs},
                             {u"PricePrt"_qs, u"1"_qs}};
    for (const QString& number : {u"1"_qs, u"2"_qs, u"3"_qs, u"4"_qs}) {
        for (const QString& law : {u"Ins"_qs, u"PIns"_qs}) longest.insert(law + number, wide(10));
        longest.insert(u"Claim"_qs + number, wide(40));
        longest.insert(u"Biko"_qs + number, u"未入金"_qs);
    }
    return longest;
}

// Of those the ones that a report has.
ReportParameters longestOf(const ReportRecordset& records, const ReportHeader& header) {
    ReportParameters shown = longest();
    shown.removeIf(
        [&](const auto& entry) { return !records.hasField(entry.key()) && !header.values.contains(entry.key()); });
    return shown;
}

ReportClass list(const QString& name, const QString& title, ReportRecordset (*recordset)(), ReportHeader (*header)()) {
    const auto titled = [title](const ReportRecordset&, const ReportParameters&) { return title; };
    return {name, recordset, ReportRowPlan::List, nullptr, header, titled, {{}, longestOf(recordset(), header())}};
}

// --- payments ---

ReportClass payments(const QString& name, const QString& title) {
    return list(name, title, paymentRecordset, [] { return header({u"Order"_qs, u"Period"_qs, u"Status"_qs}); });
}

// --- the work plan ---

ReportClass plan(const QString& name, bool byOrder) {
    ReportClass plan = list(name, byOrder ? u"予定表（受注先別）"_qs : u"予定表（日付別）"_qs, workPlanRecordset, [] {
        return header({u"Order"_qs, u"Producer"_qs, u"Period"_qs, u"PricePrt"_qs});
    });
    plan.groupKey = byOrder
                        ? +[](const ReportRecordset& records, int row) { return records.text(row, u"Order"_qs); }
                        : +[](const ReportRecordset& records, int row) { return records.text(row, u"PlanDate"_qs); };
    for (const QString& amount : {u"EstTotal"_qs, u"EstBalance"_qs, u"Utikin"_qs})
        plan.sample.longest.insert(amount, u"987,654,321"_qs);
    for (const QString& sum : {u"AllEstTotal"_qs, u"AllEstBalanceTotal"_qs, u"AllUtikinTotal"_qs})
        plan.sample.longest.insert(sum, u"987,654,321,000"_qs);
    plan.sample.longest.insert(u"PlanNm"_qs, u"仮合"_qs);
    plan.sample.longest.insert(u"Biko"_qs, {}); // for the pen
    return plan;
}

// --- sales ---

ReportClass sales() {
    ReportClass sales = list(u"repStOrderSales"_qs, u"受注先別売上一覧"_qs, orderSalesRecordset, [] {
        return header({u"Order"_qs, u"Period"_qs});
    });
    sales.groupKey = [](const ReportRecordset& records, int row) { return records.text(row, u"Order"_qs); };
    return sales;
}

} // namespace

QList<ReportClass> statistics() {
    return {payments(u"repStNoPayment"_qs, u"未入金一覧"_qs),
            payments(u"repStNoPayment2"_qs, u"未入金一覧2"_qs),
            payments(u"repStMoneyEnd"_qs, u"入金済み一覧"_qs),
            plan(u"repStWorkPlanTD"_qs, false),
            plan(u"repStWorkPlanTD2"_qs, false),
            plan(u"repStWorkPlanTDB5"_qs, false),
            plan(u"repStWorkPlanTO"_qs, true),
            plan(u"repStWorkPlanTO2"_qs, true),
            plan(u"repStWorkPlanTOB5"_qs, true),
            sales()};
}

const ReportPaper& workPlanPaper(bool byOrder) {
    static const ReportPaper byDate{Setting::WorkPlanPaper, u"repStWorkPlanTD"_qs, u"repStWorkPlanTDB5"_qs,
                                    u"repStWorkPlanTD2"_qs};
    static const ReportPaper byParty{Setting::WorkPlanPaper, u"repStWorkPlanTO"_qs, u"repStWorkPlanTOB5"_qs,
                                     u"repStWorkPlanTO2"_qs};
    return byOrder ? byParty : byDate;
}

const ReportPaper& noPaymentPaper() {
    static const ReportPaper paper{0, u"repStNoPayment"_qs, {}, u"repStNoPayment2"_qs};
    return paper;
}

QString statisticsClass(const ReportPaper& paper, const clsProfile& profile, clsSysSettingManager& settings) {
    const int size = paper.sizeSetting > 0 ? settings.value(paper.sizeSetting, u"1"_qs).toInt() : 1;
    return chosenClass(paper, {{{paper.sizeSetting, size}}, variantsInForce({paper}, profile)});
}

bool hasBalanceList(const clsProfile& profile) { return !variantsInForce({noPaymentPaper()}, profile).isEmpty(); }
