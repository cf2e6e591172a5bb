#include "reports/CsEstimateFields.h"
#include "reports/DocumentReport.h"

// The public forms of the workers' accident insurance.

namespace {

// As many rows as the form has; a setting of the office does not change what is printed on it.
constexpr int rowsOfTheForm = 99;

ReportHeader formHeader() {
    ReportHeader header = documentHeader(readDocumentSetup());
    header.linesPerPage = 0;
    return header;
}

ReportHeader sheetHeader(bool cost) {
    ReportHeader header = documentHeader(readDocumentSetup());
    header.linesPerPage = rowsOfTheForm;
    header.values.insert(u"CostSheet"_qs, cost ? u"1"_qs : QString());
    header.values.insert(u"EstimateSheet"_qs, cost ? QString() : u"1"_qs);
    return header;
}

ReportHeader costHeader() { return sheetHeader(true); }
ReportHeader estimateHeader() { return sheetHeader(false); }

ReportSample formSample() {
    ReportSample sample = documentSample(csEstimateRecordset());
    sample.longest.insert(u"EstSum"_qs, u"9999999"_qs); // as many digits as the boxes
    for (const QString& date : {u"JuryoDate"_qs, u"IninDate"_qs, u"SeikyuDate"_qs, u"MitumoriDate"_qs})
        sample.longest.insert(date, u"令和　28年　12月　28日"_qs);
    return sample;
}

ReportSample sheetSample(const QList<QStringList>& rows, bool cost) {
    ReportSample sample = documentSample(csEstWorkRecordset());
    sample.rows = rows;
    sample.given.first().insert(u"CostSheet"_qs, cost ? u"1"_qs : QString());
    sample.given.first().insert(u"EstimateSheet"_qs, cost ? QString() : u"1"_qs);
    return sample;
}

// A title with what tells one document from another of its kind.
auto titled(const QString& title, const QString& field) {
    return [=](const ReportRecordset& records, const ReportParameters&) {
        return u"%1 %2"_qs.arg(title, records.text(0, field)).trimmed();
    };
}

ReportClass form(const QString& name, const QString& title) {
    return {name,       csEstimateRecordset,        ReportRowPlan::Form, documentGroup,
            formHeader, titled(title, u"EstNo"_qs), formSample()};
}

ReportClass sheet(const QString& name, bool cost, const QList<QStringList>& rows) {
    return {name,
            csEstWorkRecordset,
            ReportRowPlan::Documents,
            documentGroup,
            cost ? costHeader : estimateHeader,
            titled(cost ? u"労災内訳書"_qs : u"労災見積内訳書"_qs, u"EstNo"_qs),
            sheetSample(rows, cost)};
}

ReportClass contract() {
    return {u"repCsEstReceipt"_qs,
            csEstReceiptRecordset,
            ReportRowPlan::Form,
            nullptr,
            formHeader,
            titled(u"労災請書"_qs, u"CustNm"_qs),
            documentSample(csEstReceiptRecordset())};
}

} // namespace

QList<ReportClass> accidentPapers() {
    QList<ReportClass> papers{form(u"repCsEstWorkimateA4"_qs, u"労災見積書"_qs),
                              form(u"repCsEstWorkAskA4"_qs, u"労災請求書"_qs),
                              form(u"repCsEstWorkAsk2A4"_qs, u"労災請求書"_qs), contract()};
    // Of each kind enough for a page that goes on and one that ends.
    const QStringList section{u"Elmt"_qs, u"Materials"_qs}, part{u"Elmt"_qs, u"Materials"_qs, u"PartsCd"_qs};
    const QList<QStringList> sections{section, section, part, part};
    for (const QString& family : {u"Kara"_qs, u"Frame"_qs, u"Equip"_qs})
        papers << sheet(u"repCsEstWork"_qs + family + u'1', true, sections)
               << sheet(u"repCsEstWork"_qs + family + u'2', false, sections);
    const QList<QStringList> ordinary = documentSample().rows;
    return papers << sheet(u"repCsEstWorkWheelchair1"_qs, true, ordinary)
                  << sheet(u"repCsEstWorkWheelchair3"_qs, false, ordinary);
}
