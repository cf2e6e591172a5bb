#include "reports/ReportClasses.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Dates.h"
#include "base/clsProfile.h"
#include "reports/ReportText.h"

namespace {

constexpr int paperB5 = 2;

QStringList groupsOf(const ReportClass& report, const ReportRecordset& records) {
    QStringList groups(records.rowCount());
    if (report.groupKey)
        for (int row = 0; row < groups.size(); ++row) groups[row] = report.groupKey(records, row);
    return groups;
}

int linesOnPage(const ReportClass& report, const ReportLayout& layout, int setting) {
    return rowsOfForm(layout, setting > report.fewerLines ? setting - report.fewerLines : setting);
}

} // namespace

ReportHeader printDayHeader() {
    constexpr int wholeDate = 1;
    return {{{u"PrtDate"_qs, ReportText::issueDate(dateText(gSysDate), wholeDate, false)}}};
}

const QList<ReportClass>& reportClasses() {
    static const QList<ReportClass> classes = estimateDocuments() + accidentPapers() + opinionPapers() +
                                              estimateLists() + masterReports() + statistics() + priceReports();
    return classes;
}

const ReportClass& reportClass(const QString& name) {
    for (const ReportClass& known : reportClasses())
        if (known.name == name) return known;
    throw AppError(u"帳票「%1」は用意されていません。"_qs.arg(name), u"reportClass"_qs);
}

QList<ReportPage> reportPages(const ReportClass& report, const ReportLayout& layout, const ReportRecordset& records,
                              const ReportHeader& header, const ReportMeasure& measure,
                              const std::function<bool()>& pause) {
    const int lines = linesOnPage(report, layout, header.linesPerPage);
    return composePages(layout, {records, groupsOf(report, records), report.plan, header.values, lines}, measure,
                        pause);
}

QString chosenClass(const ReportPaper& paper, const ReportPaperSettings& settings) {
    const bool small = !paper.b5.isEmpty() && settings.value(paper.sizeSetting) == paperB5;
    const QString& variant = small ? paper.b5Variant : paper.a4Variant;
    const bool inForce = !variant.isEmpty() && settings.variants.contains(variant, Qt::CaseInsensitive);
    return inForce ? variant : small ? paper.b5 : paper.a4;
}

QStringList variantsInForce(const QList<ReportPaper>& papers, const clsProfile& profile) {
    QStringList variants;
    for (const ReportPaper& paper : papers)
        for (const QString& variant : {paper.a4Variant, paper.b5Variant})
            if (!variant.isEmpty() && profile.GetValue(u"Variant"_qs, variant) == u"1") variants << variant;
    return variants;
}
