#include "reports/DocumentChoice.h"

#include "base/Money.h"
#include "base/clsProfile.h"
#include "db/clsSysSettingManager.h"

#include <limits>

namespace {

constexpr int accidentForms = 2;
constexpr int noCopy = 2;

bool isTrue(const QString& value) { return value.compare(u"true", Qt::CaseInsensitive) == 0; }

const QString plainInvoice = u"repCsEstAskA4NoM"_qs;

// One for each kind.
const QList<ReportPaper>& documentPapers() {
    static const QList<ReportPaper> papers{
        {Setting::paperSize(1), u"repCsEstimateA4"_qs, u"repCsEstimateB5"_qs, u"repCsEstimate2A4"_qs},
        {Setting::paperSize(2), u"repCsEstItemA4"_qs, u"repCsEstItemB5"_qs},
        {Setting::paperSize(3), u"repCsEstItemA4"_qs, u"repCsEstItemB5"_qs},
        {Setting::paperSize(4), plainInvoice, u"repCsEstAskB5"_qs},
        {Setting::paperSize(5), u"repCsEstPayA4"_qs, u"repCsEstPayB5"_qs, u"repCsEstPay2A4"_qs},
    };
    return papers;
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
        return settings.value(Setting::AccidentEstimate) == accidentForms;
    case DocumentKind::Invoice:
        return settings.accidentInvoice || settings.value(Setting::AccidentInvoice) == accidentForms;
    case DocumentKind::Receipt:
        return false;
    }
    return false;
}

QString invoiceClass(const DocumentChoiceSettings& settings, bool receivedMark) {
    if (settings.threeAccounts) return u"repCsEstAskA4NoM2"_qs;
    return receivedMark ? u"repCsEstAskA4OnM"_qs : plainInvoice;
}

int prtTypeOf(DocumentKind kind) { return kind == DocumentKind::Breakdown ? 1 : kind == DocumentKind::Detail ? 2 : 0; }

DocumentChoice ordinaryChoice(DocumentKind kind, const DocumentChoiceSettings& settings, bool receivedMark) {
    QString name = chosenClass(documentPapers().at(static_cast<int>(kind) - 1), settings);
    if (name == plainInvoice) name = invoiceClass(settings, receivedMark);
    return {DocumentChoice::Outcome::Print, {name}, {}, prtTypeOf(kind)};
}

} // namespace

DocumentChoiceSettings readDocumentChoiceSettings(const clsProfile& profile) {
    DocumentChoiceSettings settings;
    settings.variants = variantsInForce(documentPapers(), profile)
                        << profile.GetValue(u"EstimateKind"_qs, u"ImateName"_qs)
                        << profile.GetValue(u"EstPayKind"_qs, u"PayName"_qs);
    settings.accidentInvoice = isTrue(profile.GetValue(u"WorkAsk"_qs, u"WorkOutPut"_qs));
    settings.threeAccounts = isTrue(profile.GetValue(u"PayBank"_qs, u"Plural"_qs));
    settings.contractLimit = QString::number(profile.GetNumber(
        u"Receipt"_qs, u"Price"_qs, settings.contractLimit.toLongLong(), 0, std::numeric_limits<qint32>::max()));
    return settings;
}

DocumentChoice chooseDocument(DocumentKind kind, bool accidentRows, const DocumentChoiceSettings& settings,
                              bool receivedMark, const QString& estSum) {
    if (accidentRows && takesAccidentSheets(kind, settings)) return accidentChoice(kind, settings, estSum);
    return ordinaryChoice(kind, settings, receivedMark);
}

AccidentSheets accidentSheets(const QString& item) {
    using Rows = AccidentSheets::Rows;
    struct Family {
        QStringList items;
        AccidentSheets sheets;
    };
    static const QList<Family> families{
        {{u"殻構造義手"_qs, u"殻構造義足"_qs}, {Rows::Limb, {u"repCsEstWorkKara1"_qs, u"repCsEstWorkKara2"_qs}}},
        {{u"骨格構造義手"_qs, u"骨格構造義足"_qs}, {Rows::Limb, {u"repCsEstWorkFrame1"_qs, u"repCsEstWorkFrame2"_qs}}},
        {{u"下肢装具"_qs, u"靴型装具"_qs, u"体幹装具"_qs, u"上肢装具"_qs},
         {Rows::Equip, {u"repCsEstWorkEquip1"_qs, u"repCsEstWorkEquip2"_qs}}},
        {{u"車いす"_qs, u"電動車いす"_qs, u"車椅子"_qs, u"電動車椅子"_qs},
         {Rows::Ordinary, {u"repCsEstWorkWheelchair1"_qs, u"repCsEstWorkWheelchair3"_qs}}},
    };
    for (const Family& family : families)
        if (family.items.contains(item)) return family.sheets;
    return {Rows::Ordinary, {u"repCsEstItemA4"_qs}, prtTypeOf(DocumentKind::Detail)};
}

bool needsContractReceipt(const QString& estSum, const QString& limit) {
    return Money::leadingNumber(estSum).toYen() > Money::leadingNumber(limit).toYen();
}

int documentCopies(DocumentKind kind, int copySetting) {
    const bool copied = kind == DocumentKind::Invoice || kind == DocumentKind::Receipt;
    return copied && copySetting != noCopy ? 2 : 1;
}
