#include "reports/OpinionDocument.h"

#include "base/Dates.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/basCommon.h"
#include "db/clsSysSettingManager.h"
#include "reports/DocumentReport.h"

namespace {

constexpr int printsAge = 2;

// By what the opinion tells of the patient: the birth date or the age.
const ReportPaper byBirth{Setting::OpinionPaper, u"repCsEstOpinionA4T1"_qs, u"repCsEstOpinionB5T1"_qs,
                          u"repCsEstOpinionA4T141"_qs, u"repCsEstOpinionB5T141"_qs};
const ReportPaper byAge{Setting::OpinionPaper, u"repCsEstOpinionA4T2"_qs, u"repCsEstOpinionB5T2"_qs,
                        u"repCsEstOpinionA4T145"_qs, u"repCsEstOpinionB5T145"_qs};

QString addressOf(const clsCustomer& customer) {
    QStringList parts;
    for (const QString& part : {customer.Pref, customer.City, customer.Addr1, customer.Addr2})
        parts.append(Text::rightTrimmed(part));
    return parts.join(u' ');
}

// Where the code is unknown its place stays free for the pen.
QString zipOf(const clsCustomer& customer) {
    return (customer.Zip.trimmed().isEmpty() ? u"     "_qs : u'〒' + customer.Zip) + u' ';
}

QString birthOf(const clsCustomer& customer) {
    if (!parseDate(customer.Birth)) return u"年    月    日生"_qs;
    return FormatEraDate(customer.Birth, u"ggg e 年 m 月 d 日生"_qs);
}

// A doctor writes dates in figures of full width.
void setDate(ReportRecordset& records, const QString& name, const QString& date) {
    records.Set(name + u"GG"_qs, FormatEraDate(date, u"ggg"_qs));
    const QList<std::pair<QString, QString>> parts{{u"YY"_qs, u"e"_qs}, {u"MM"_qs, u"m"_qs}, {u"DD"_qs, u"d"_qs}};
    for (const auto& [part, form] : parts) records.Set(name + part, Text::toFullWidth(FormatEraDate(date, form)));
}

ReportHeader onePage() {
    ReportHeader header = documentHeader(readDocumentSetup());
    header.linesPerPage = 0;
    return header;
}

ReportClass opinion(const QString& name) {
    const auto title = [](const ReportRecordset& records, const ReportParameters&) {
        return u"意見書 %1"_qs.arg(records.text(0, u"CustNm"_qs)).trimmed();
    };
    ReportSample sample = documentSample(opinionRecordset());
    sample.longest.insert(u"Birth"_qs, u"昭和 28 年 12 月 28 日生"_qs);
    return {name, opinionRecordset, ReportRowPlan::Form, nullptr, onePage, title, sample};
}

} // namespace

ReportRecordset opinionRecordset() {
    using enum ReportFieldType;
    QList<ReportField> fields{{u"CustAddr"_qs, Text, 108}, {u"CustZipAddr"_qs, Text, 118}, {u"CustNm"_qs, Text, 31},
                              {u"Birth"_qs, Text, 30},     {u"Age"_qs, Integer},           {u"DiseaseNm"_qs, Text, 60},
                              {u"EstNm"_qs, Text, 50}};
    for (const QString& date : {u"Hosp"_qs, u"Pick"_qs, u"Delv"_qs}) {
        fields.append({date + u"GG"_qs, Text, 5});
        for (const QString& part : {u"YY"_qs, u"MM"_qs, u"DD"_qs}) fields.append({date + part, Text, 2});
    }
    return ReportRecordset(fields);
}

ReportRecordset opinionRow(const clsCustomer& customer, const clsChart& chart, const clsCsEstimate& estimate) {
    ReportRecordset records = opinionRecordset();
    records.AddNew();
    records.Set(u"CustAddr"_qs, addressOf(customer));
    records.Set(u"CustZipAddr"_qs, zipOf(customer) + addressOf(customer));
    records.Set(u"CustNm"_qs, JoinWithSpace(customer.CustNm1, customer.CustNm2));
    records.Set(u"Birth"_qs, birthOf(customer));
    if (parseDate(customer.Birth)) records.Set(u"Age"_qs, CalcAge(customer.Birth, dateText(currentDate())));
    records.Set(u"DiseaseNm"_qs, Text::rightTrimmed(chart.DiseaseNm));
    records.Set(u"EstNm"_qs, Text::rightTrimmed(estimate.EstNm));
    setDate(records, u"Hosp"_qs, chart.HospDate);
    setDate(records, u"Pick"_qs, estimate.PickPtnDate);
    setDate(records, u"Delv"_qs, parseDate(estimate.DelvFinDate) ? estimate.DelvFinDate : estimate.DelvPlnDate);
    return records;
}

QString opinionClass(const ReportPaperSettings& settings) {
    return chosenClass(settings.value(Setting::OpinionType) == printsAge ? byAge : byBirth, settings);
}

QStringList opinionVariants(const clsProfile& profile) { return variantsInForce({byBirth, byAge}, profile); }

QList<ReportClass> opinionPapers() {
    QList<ReportClass> papers;
    for (const ReportPaper& paper : {byBirth, byAge})
        for (const QString& name : {paper.a4, paper.b5, paper.a4Variant, paper.b5Variant}) papers << opinion(name);
    return papers;
}
