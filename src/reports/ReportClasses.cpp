#include "reports/ReportClasses.h"

#include "base/AppError.h"
#include "base/Money.h"
#include "base/clsProfile.h"

namespace {

constexpr int paperB5 = 2;
constexpr int accidentForms = 2;
constexpr int noCopy = 2;

bool isTrue(const QString& value) { return value.compare(u"true", Qt::CaseInsensitive) == 0; }

bool variantInForce(const clsProfile& profile, const QString& variant, const QString& section, const QString& key) {
    return profile.GetValue(u"Variant"_qs, variant) == u"1" ||
           profile.GetValue(section, key).compare(variant, Qt::CaseInsensitive) == 0;
}

DocumentChoice accidentChoice(DocumentKind kind, const DocumentChoiceSettings& settings, const QString& estSum) {
    using Outcome = DocumentChoice::Outcome;
    switch (kind) {
    case DocumentKind::Estimate: {
        QStringList classes{u"repCsEstWorkimateA4"_qs};
        if (needsContractReceipt(estSum, settings.contractLimit)) classes.append(u"repCsEstReceipt"_qs);
        return {Outcome::AccidentSheets, classes};
    }
    case DocumentKind::Detail:
        return {Outcome::SkipAccident,
                {},
                u"保険種類が労災となっています。明細書を出力するには内訳書を選択してください。"_qs};
    case DocumentKind::Invoice:
        return {Outcome::AccidentSheets,
                {settings.accidentInvoice ? u"repCsEstWorkAskA4"_qs : u"repCsEstWorkAsk2A4"_qs}};
    default:
        return {Outcome::AccidentSheets, {}};
    }
}

bool takesAccidentSheets(DocumentKind kind, const DocumentChoiceSettings& settings) {
    switch (kind) {
    case DocumentKind::Estimate:
    case DocumentKind::Breakdown:
    case DocumentKind::Detail:
        return settings.value(41) == accidentForms;
    case DocumentKind::Invoice:
        return settings.accidentInvoice || settings.value(43) == accidentForms;
    case DocumentKind::Receipt:
        return false;
    }
    return false;
}

QString invoiceClass(const DocumentChoiceSettings& settings, bool receivedMark) {
    if (settings.value(27) == paperB5) return u"repCsEstAskB5"_qs;
    if (settings.threeAccounts) return u"repCsEstAskA4NoM2"_qs;
    return receivedMark ? u"repCsEstAskA4OnM"_qs : u"repCsEstAskA4NoM"_qs;
}

QString standardOrVariant(bool smallPaper, bool variant, const QString& stem) {
    if (smallPaper) return stem + u"B5"_qs;
    return stem + (variant ? u"2A4"_qs : u"A4"_qs);
}

DocumentChoice ordinaryChoice(DocumentKind kind, const DocumentChoiceSettings& settings, bool receivedMark) {
    const auto small = [&](int number) { return settings.value(number) == paperB5; };
    const auto itemSheet = [&](int number, int prtType) {
        const QString name = standardOrVariant(small(number), false, u"repCsEstItem"_qs);
        return DocumentChoice{DocumentChoice::Outcome::Print, {name}, {}, prtType};
    };
    switch (kind) {
    case DocumentKind::Estimate:
        return {DocumentChoice::Outcome::Print,
                {standardOrVariant(small(21), settings.estimateVariant, u"repCsEstimate"_qs)}};
    case DocumentKind::Breakdown:
        return itemSheet(23, 1);
    case DocumentKind::Detail:
        return itemSheet(25, 2);
    case DocumentKind::Invoice:
        return {DocumentChoice::Outcome::Print, {invoiceClass(settings, receivedMark)}};
    case DocumentKind::Receipt:
        break;
    }
    return {DocumentChoice::Outcome::Print, {standardOrVariant(small(29), settings.receiptVariant, u"repCsEstPay"_qs)}};
}

} // namespace

const QList<ReportClass>& reportClasses() {
    const QString estimate = u"見積書"_qs, invoice = u"請求書"_qs, receipt = u"領収書"_qs, item;
    static const QList<ReportClass> classes{
        {u"repCsEstimateA4"_qs, estimate}, {u"repCsEstimate2A4"_qs, estimate}, {u"repCsEstimateB5"_qs, estimate},
        {u"repCsEstItemA4"_qs, item},      {u"repCsEstItemB5"_qs, item},       {u"repCsEstAskA4OnM"_qs, invoice, 3},
        {u"repCsEstAskA4NoM"_qs, invoice}, {u"repCsEstAskA4NoM2"_qs, invoice}, {u"repCsEstAskB5"_qs, invoice},
        {u"repCsEstPayA4"_qs, receipt},    {u"repCsEstPay2A4"_qs, receipt},    {u"repCsEstPayB5"_qs, receipt},
    };
    return classes;
}

const QList<ReportClass>& listClasses() {
    static const QList<ReportClass> classes{{u"repCsEstList"_qs, u"見積データ一覧"_qs, 0, true}};
    return classes;
}

QString documentTitle(const ReportClass& report, int prtType) {
    if (!report.title.isEmpty()) return report.title;
    return prtType == 1 ? u"内訳書"_qs : u"明細書"_qs;
}

const ReportClass& reportClass(const QString& name) {
    for (const QList<ReportClass>* classes : {&reportClasses(), &listClasses()})
        for (const ReportClass& known : *classes)
            if (known.name == name) return known;
    throw AppError(u"帳票「%1」は用意されていません。"_qs.arg(name), u"reportClass"_qs);
}

DocumentChoiceSettings readDocumentChoiceSettings(const clsProfile& profile) {
    DocumentChoiceSettings settings;
    settings.estimateVariant = variantInForce(profile, u"repCsEstimate2A4"_qs, u"EstimateKind"_qs, u"ImateName"_qs);
    settings.receiptVariant = variantInForce(profile, u"repCsEstPay2A4"_qs, u"EstPayKind"_qs, u"PayName"_qs);
    settings.accidentInvoice = isTrue(profile.GetValue(u"WorkAsk"_qs, u"WorkOutPut"_qs));
    settings.threeAccounts = isTrue(profile.GetValue(u"PayBank"_qs, u"Plural"_qs));
    settings.contractLimit = profile.GetValue(u"Receipt"_qs, u"Price"_qs, settings.contractLimit);
    return settings;
}

DocumentChoice chooseDocument(DocumentKind kind, bool accidentRows, const DocumentChoiceSettings& settings,
                              bool receivedMark, const QString& estSum) {
    if (accidentRows && takesAccidentSheets(kind, settings)) return accidentChoice(kind, settings, estSum);
    return ordinaryChoice(kind, settings, receivedMark);
}

bool needsContractReceipt(const QString& estSum, const QString& limit) {
    return Money::leadingNumber(estSum).toYen() > Money::leadingNumber(limit).toYen();
}

int documentCopies(DocumentKind kind, int copySetting) {
    const bool copied = kind == DocumentKind::Invoice || kind == DocumentKind::Receipt;
    return copied && copySetting != noCopy ? 2 : 1;
}
