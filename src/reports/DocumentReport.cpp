#include "reports/DocumentReport.h"

#include "base/Application.h"
#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/Seams.h"
#include "base/clsProfile.h"
#include "db/clsOfficeManager.h"
#include "db/clsSysSettingManager.h"
#include "reports/CsEstimateFields.h"

#include <QRegularExpression>

#include <array>

namespace {

constexpr int copyMarked = 2;

// For the stamp of the receiving office: the era of today, the rest for the pen.
QString blankDate() { return FormatEraDate(dateText(currentDate()), u"ggg"_qs) + u"　　年　　月　　日"_qs; }

struct BankAccount {
    QString bank, account, holder;
};

// Where the second field holds a bare number, the three fields tell of one account: its bank, number and holder.
bool hasOneAccount(const clsOffice& office) {
    static const QRegularExpression bareNumber(u"^[\\d\\s\\-－]*$"_qs, QRegularExpression::UseUnicodePropertiesOption);
    return bareNumber.match(office.AcntNo).hasMatch() && !office.AcntNo.trimmed().isEmpty();
}

// An office with three accounts writes each into one field: bank, account and holder, parted by "／" or line breaks, or
// by the word that tells the kind of account.
BankAccount accountIn(const QString& field) {
    static const QRegularExpression divider(u"／|\\r?\\n"_qs);
    static const QRegularExpression byKind(u"^(.+?)\\s*((?:普通|当座|貯蓄)\\s*[\\d\\-－]+)\\s*(.*)$"_qs,
                                           QRegularExpression::UseUnicodePropertiesOption);
    const auto found = byKind.match(field);
    if (!field.contains(divider) && found.hasMatch()) return {found.captured(1), found.captured(2), found.captured(3)};
    const auto part = [&](int first, int last) { return field.section(divider, first, last).trimmed(); };
    return {part(0, 0), part(1, 1), part(2, -1)};
}

std::array<BankAccount, 3> accountsOf(const clsOffice& office) {
    if (hasOneAccount(office)) return {{{office.Bank, office.AcntNo, office.ChkAcnt}, {}, {}}};
    return {accountIn(office.Bank), accountIn(office.AcntNo), accountIn(office.ChkAcnt)};
}

void addAccounts(ReportParameters& parameters, const clsOffice& office) {
    int number = 0;
    for (const auto& [bank, account, holder] : accountsOf(office)) {
        ++number;
        parameters.insert(u"Bank%1"_qs.arg(number), bank);
        parameters.insert(u"Account%1"_qs.arg(number), account);
        parameters.insert(u"Holder%1"_qs.arg(number), holder);
    }
}

QString accountKindWord(const QString& setting) {
    return setting == u"1" ? u"当座"_qs : setting == u"2" ? u"普通"_qs : QString();
}

// A bare number takes the office's kind of account, one that tells its own keeps it.
QString withKind(const QString& account, const QString& kind) {
    const bool bare = !account.isEmpty() && account.front().isDigit();
    return bare ? (kind + u' ' + account).trimmed() : account;
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

ReportHeader readHeader() { return documentHeader(readDocumentSetup()); }

// What the office may have written into its labels.
QHash<QString, int> officeSizes() {
    const QHash<QString, int> others{
        {u"lblUserNm"_qs, 31},  {u"lblTel"_qs, 20},   {u"lblFax"_qs, 20},  {u"lblBank"_qs, 60}, {u"lblAcntNo"_qs, 60},
        {u"lblChkAcnt"_qs, 60}, {u"Bank1"_qs, 30},    {u"Bank2"_qs, 30},   {u"Bank3"_qs, 30},   {u"Account1"_qs, 20},
        {u"Account2"_qs, 20},   {u"Account3"_qs, 20}, {u"Holder1"_qs, 30}, {u"Holder2"_qs, 30}, {u"Holder3"_qs, 30}};
    QHash<QString, int> sizes;
    for (const QString& label : officeBlock({}).keys()) sizes.insert(label, others.value(label, 40));
    return sizes;
}

ReportClass document(const QString& name, const QString& title, int fewerLines = 0) {
    const auto titleOf = [=](const ReportRecordset& records, const ReportParameters& values) {
        const QString itemSheet = values.value(u"PrtType"_qs) == u"1" ? u"内訳書"_qs : u"明細書"_qs;
        return u"%1 %2"_qs.arg(title.isEmpty() ? itemSheet : title, records.text(0, u"EstNo"_qs)).trimmed();
    };
    return {
        name,      csEstimateRecordset, ReportRowPlan::Documents, documentGroup, readHeader, titleOf, documentSample(),
        fewerLines};
}

} // namespace

DocumentSetup readDocumentSetup() {
    clsOffice office;
    gOfficeManager.GetData(1, office);
    DocumentSetup setup;
    setup.office = officeBlock(office);
    setup.linesPerPage = ToInt(Val(gSysSettingManager.value(Setting::LinesPerPage)));
    setup.accountKind = gSysSettingManager.value(Setting::Account);
    setup.insurersInHeader = clsProfile().GetValue(u"Ins"_qs, u"InsDisp"_qs).compare(u"off", Qt::CaseInsensitive) != 0;
    return setup;
}

// A page that is filled up for one document must not run on into the next, nor into its own copy.
QString documentGroup(const ReportRecordset& records, int row) {
    return documentGroupKey(records.value(row, u"AskNo"_qs).toInt(), records.value(row, u"Copy"_qs).toInt(),
                            records.text(row, u"EstNo"_qs));
}

// Each kind of row that the data method makes, for the copy of a claim.
ReportSample documentSample() {
    return {
        {{u"Elmt"_qs, u"Item"_qs, u"PickKbn"_qs, u"Name"_qs, u"PickStyle"_qs}, // basic price
         {u"Elmt"_qs, u"Materials"_qs},                                        // make element
         {u"Elmt"_qs, u"PartsForm"_qs, u"MakerNm"_qs, u"PartsCd"_qs},          // complete part
         {u"SumTitle"_qs},
         {u"SumCal"_qs}},
        {{u"AskNo"_qs, u"1"_qs},
         {u"Copy"_qs, u"2"_qs},
         {u"TaxRate"_qs, u"10.5"_qs},
         {u"Suryo"_qs, u"9999.75"_qs},
         {u"AccountKind"_qs, u"普通"_qs},
         {u"InsBox"_qs, u"1"_qs},
         {u"BlankDate"_qs, u"令和　　年　　月　　日"_qs}},
        officeSizes(),
        {{{u"PrtType"_qs, u"1"_qs}}, {{u"PrtType"_qs, u"2"_qs}}},
    };
}

ReportSample documentSample(const ReportRecordset& fields) {
    ReportSample sample = documentSample();
    const ReportRecordset all = csEstimateRecordset();
    for (const QString& name : sample.longest.keys())
        if (all.hasField(name) && !fields.hasField(name)) sample.longest.remove(name);
    sample.rows.clear();
    sample.given = {{{u"PrtType"_qs, u"0"_qs}}};
    return sample;
}

QString documentGroupKey(int askNo, int copy, const QString& estNo) {
    return u"%1%2%3"_qs.arg(askNo, 3, 10, QChar(u'0')).arg(copy == copyMarked ? u"控"_qs : u"見"_qs, estNo);
}

ReportHeader documentHeader(const DocumentSetup& setup) {
    ReportHeader header{setup.office, setup.linesPerPage};
    const QString kind = accountKindWord(setup.accountKind);
    header.values.insert(u"AccountKind"_qs, kind);
    for (const QString& account : {u"Account1"_qs, u"Account2"_qs, u"Account3"_qs})
        header.values[account] = withKind(header.values.value(account), kind);
    header.values.insert(u"InsBox"_qs, setup.insurersInHeader ? u"1"_qs : QString());
    header.values.insert(u"PrtType"_qs, u"0"_qs);
    header.values.insert(u"BlankDate"_qs, blankDate());
    return header;
}

QList<ReportClass> estimateDocuments() {
    const QString estimate = u"見積書"_qs, invoice = u"請求書"_qs, receipt = u"領収書"_qs, item;
    return {
        document(u"repCsEstimateA4"_qs, estimate), document(u"repCsEstimate2A4"_qs, estimate),
        document(u"repCsEstimateB5"_qs, estimate), document(u"repCsEstItemA4"_qs, item),
        document(u"repCsEstItemB5"_qs, item),      document(u"repCsEstAskA4OnM"_qs, invoice, 3),
        document(u"repCsEstAskA4NoM"_qs, invoice), document(u"repCsEstAskA4NoM2"_qs, invoice),
        document(u"repCsEstAskB5"_qs, invoice),    document(u"repCsEstPayA4"_qs, receipt),
        document(u"repCsEstPay2A4"_qs, receipt),   document(u"repCsEstPayB5"_qs, receipt),
    };
}
