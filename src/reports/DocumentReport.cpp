#include "reports/DocumentReport.h"

#include "base/Application.h"
#include "base/Seams.h"
#include "base/basCommon.h"
#include "base/clsProfile.h"
#include "db/clsOfficeManager.h"
#include "db/clsSysSettingManager.h"
#include "reports/ReportText.h"

#include <QRegularExpression>

#include <array>

namespace {

constexpr int copyMarked = 2;

// A page that is filled up for one document must not run on into the next, nor into its own copy.
QStringList groupKeys(const ReportRecordset& records) {
    QStringList keys;
    for (int row = 0; row < records.rowCount(); ++row)
        keys.append(documentGroupKey(records.value(row, u"AskNo"_qs).toInt(), records.value(row, u"Copy"_qs).toInt(),
                                     records.text(row, u"EstNo"_qs)));
    return keys;
}

int linesOnPage(const ReportClass& report, int setting) {
    return setting > report.fewerLines ? setting - report.fewerLines : setting;
}

// For the stamp of the receiving office: the era of today, the rest for the pen.
QString blankDate() { return FormatEraDate(dateText(currentDate()), u"ggg"_qs) + u"　　年　　月　　日"_qs; }

struct BankAccount {
    QString bank, account;
};

// Where the second field holds a bare number, the three fields tell of one account: its bank, number and holder.
bool hasOneAccount(const clsOffice& office) {
    static const QRegularExpression bareNumber(u"^[\\d\\s\\-－]*$"_qs, QRegularExpression::UseUnicodePropertiesOption);
    return bareNumber.match(office.AcntNo).hasMatch() && !office.AcntNo.trimmed().isEmpty();
}

// An office with three accounts writes each into one field, the bank and behind a "／" or line break the account.
std::array<BankAccount, 3> accountsOf(const clsOffice& office) {
    static const QRegularExpression divider(u"／|\\r?\\n"_qs);
    if (hasOneAccount(office)) return {{{(office.Bank + u' ' + office.AcntNo).trimmed(), office.ChkAcnt}, {}, {}}};
    const auto split = [](const QString& field) {
        return BankAccount{field.section(divider, 0, 0), field.section(divider, 1)};
    };
    return {split(office.Bank), split(office.AcntNo), split(office.ChkAcnt)};
}

void addAccounts(ReportParameters& parameters, const clsOffice& office) {
    int number = 0;
    for (const auto& [bank, account] : accountsOf(office)) {
        ++number;
        parameters.insert(u"Bank%1"_qs.arg(number), bank);
        parameters.insert(u"Account%1"_qs.arg(number), account);
    }
}

ReportParameters officeBlock(const clsOffice& office) {
    ReportParameters block{
        {u"lblTradeNm"_qs, office.TradeNm}, {u"lblTradeNo"_qs, office.TradeNo}, {u"lblOffice"_qs, office.office},
        {u"lblUserNm"_qs, office.UserNm},   {u"lblAddr1"_qs, office.Addr1},     {u"lblAddr2"_qs, office.Addr2},
        {u"lblTel"_qs, office.Tel},         {u"lblFax"_qs, office.Fax},         {u"lblBank"_qs, office.Bank},
        {u"lblAcntNo"_qs, office.AcntNo},   {u"lblChkAcnt"_qs, office.ChkAcnt},
    };
    addAccounts(block, office);
    return block;
}

} // namespace

DocumentSetup readDocumentSetup() {
    clsOffice office;
    gOfficeManager.GetData(1, office);
    DocumentSetup setup;
    setup.office = officeBlock(office);
    setup.linesPerPage = ToInt(Val(gSysSettingManager.value(13)));
    setup.accountKind = gSysSettingManager.value(42);
    setup.insurersInHeader = clsProfile().GetValue(u"Ins"_qs, u"InsDisp"_qs).compare(u"off", Qt::CaseInsensitive) != 0;
    return setup;
}

QString documentGroupKey(int askNo, int copy, const QString& estNo) {
    return u"%1%2%3"_qs.arg(askNo, 3, 10, QChar(u'0')).arg(copy == copyMarked ? u"控"_qs : u"見"_qs, estNo);
}

QList<ReportPage> documentPages(const ReportClass& report, const ReportLayout& layout, const ReportRecordset& records,
                                int prtType, const DocumentSetup& setup, const ReportMeasure& measure) {
    const QStringList groups = groupKeys(records);
    const int lines = linesOnPage(report, setup.linesPerPage);
    ReportContent content{records, groups, paddedRows(groups, lines), setup.office, lines};
    content.parameters.insert(u"AccountKind"_qs, setup.accountKind);
    content.parameters.insert(u"InsBox"_qs, setup.insurersInHeader ? u"1"_qs : QString());
    content.parameters.insert(u"PrtType"_qs, QString::number(prtType));
    content.parameters.insert(u"BlankDate"_qs, blankDate());
    return composePages(layout, content, measure);
}

QList<ReportPage> listPages(const ReportLayout& layout, const ReportRecordset& records, const ReportMeasure& measure) {
    ReportContent content{records, QStringList(records.rowCount()), plainRows(records.rowCount()), {}, 0};
    content.parameters.insert(u"PrtDate"_qs, ReportText::issueDate(dateText(gSysDate), 1, false));
    return composePages(layout, content, measure);
}
