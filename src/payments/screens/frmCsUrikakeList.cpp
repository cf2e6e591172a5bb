#include "payments/screens/frmCsUrikakeList.h"

#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "payments/PaymentSearch.h"
#include "ui/Grid.h"
#include "ui_frmCsUrikakeList.h"

namespace {

constexpr int state = Ledger::Columns; // behind the ledger's own columns

GridColumn text(const QString& title, int width) { return GridColumn::of(title, width); }
GridColumn amount(const QString& title) { return GridColumn::of(title, 11, GridColumn::Number); }
GridColumn date(const QString& title) { return GridColumn::of(title, 12).aligned(Qt::AlignHCenter); }

const ListColumns& columns() {
    const auto of = [](QString clsCsEstimate::*member) { return gCsEstimateManager.column(member); };
    const auto chart = [](QString clsChart::*member) { return gChartManager.column(member); };
    static ListColumns columns{
        {text(u"見積ID"_qs, 11).unseen(), {}},
        {text(u"製作担当者"_qs, 13), {of(&clsCsEstimate::ProducerNm)}},
        {text(u"見積番号"_qs, 12), {of(&clsCsEstimate::EstNo)}},
        {text(u"顧客氏名"_qs, 17),
         {gCustomerManager.column(&clsCustomer::CustNm1), gCustomerManager.column(&clsCustomer::CustNm2)}},
        {text(u"受注先"_qs, 22), {chart(&clsChart::OrderNm)}},
        {text(u"主治医"_qs, 13), {chart(&clsChart::DoctorNm)}},
        {text(u"見積名称"_qs, 30), {of(&clsCsEstimate::EstNm)}},
        {text(u"装具名"_qs, 18).typed(), {of(&clsCsEstimate::EquipMent)}},
        {text(u"品名"_qs, 22).typed().atMost(50), {of(&clsCsEstimate::Articles)}},
        {date(u"受付日"_qs), {of(&clsCsEstimate::RecvDate)}},
        {amount(u"金額"_qs), {of(&clsCsEstimate::EstSum)}},
        {text(u"法別"_qs, 22), {}},
        {date(u"仮合予定日"_qs), {of(&clsCsEstimate::TmpSetPlnDate)}},
        {date(u"納品予定日"_qs), {of(&clsCsEstimate::DelvPlnDate)}},
        {date(u"券受日"_qs), {of(&clsCsEstimate::TickRsvDate)}},
        {date(u"納品日"_qs), {of(&clsCsEstimate::DelvFinDate)}},
        {date(u"請求日"_qs), {of(&clsCsEstimate::AskFinDate)}},
        {amount(u"請求金額"_qs), {}},
        {date(u"入金完了日"_qs), {of(&clsCsEstimate::PayInFinDate)}},
        {text(u"支払法"_qs, 9).typed(), {of(&clsCsEstimate::Payment)}},
        {amount(u"入金金額"_qs), {}},
        {amount(u"値引額"_qs).typed(), {of(&clsCsEstimate::Discount)}},
        {amount(u"残高"_qs).grey(), {}},
        {text(u"台帳"_qs, 6).typed().aligned(Qt::AlignHCenter), {of(&clsCsEstimate::Urikake)}}};
    for (int claim = 1; columns.size() < state; ++claim)
        columns << ListColumn{date(u"入金日%1"_qs.arg(claim)), {}} << ListColumn{amount(u"入金額%1"_qs.arg(claim)), {}};
    if (columns.size() == state) columns << ListColumn{text({}, 1).unseen(), {}};
    return columns;
}

// An empty entry first, which takes the choice back.
QStringList withEmpty(const QStringList& entries) { return QStringList{{}} + entries; }

QStringList equipments() {
    QList<clsEquip> known;
    gEquipmentManager.GetList(known, gEquipmentManager.inUse(), gEquipmentManager.byKey());
    QStringList names;
    for (const clsEquip& equip : known) names << equip.EquipNm;
    return names;
}

Ledger::Entry entryOf(const EditedList::Row& row) {
    return {row.key(),
            row.edited.at(Ledger::Articles),
            row.edited.at(Ledger::EquipMent),
            row.edited.at(Ledger::Payment),
            row.edited.at(Ledger::Discount),
            row.edited.at(Ledger::Urikake),
            row.found.at(state)};
}

} // namespace

frmCsUrikakeList::frmCsUrikakeList(QWidget* parent)
    : EditedPaymentScreen(parent), ui(std::make_unique<Ui::frmCsUrikakeList>()) {
    ui->setupUi(this);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    ui->flxEstList->setColumns(formsOf(columns()));
    setUpEditing(ui->flxEstList, ui->lblRecCnt, ui->lblEdited);
    sortByHeadings(ui->flxEstList, columns(), [this] { showList(); });
    onClick(ui->cmdExec, [this] { reflect(); });
    onClick(ui->cmdCsv, [this] { writeCsv(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmCsUrikakeList::~frmCsUrikakeList() = default;

void frmCsUrikakeList::load() {
    EditedPaymentScreen::load();
    ui->flxEstList->setEntries(Ledger::EquipMent, withEmpty(equipments()));
    ui->flxEstList->setEntries(Ledger::Payment, withEmpty({u"振込"_qs, u"現金"_qs}));
    ui->flxEstList->setEntries(Ledger::Urikake, withEmpty({u"Ⅰ"_qs, u"Ⅱ"_qs}));
    showList();
    ui->flxEstList->setFocus();
}

void frmCsUrikakeList::showList() {
    list().show(PaymentRows::keys(Ledger::condition(Search), paymentOrder(sorting(columns()))));
}

QStringList frmCsUrikakeList::cellsOf(const PaymentRow& row) {
    return Ledger::cells(row, Search, rows()) << Ledger::stateOf(row.estimate);
}

void frmCsUrikakeList::follow(int column, QStringList& values) {
    if (column == Ledger::Discount) values[Ledger::Remaining] = Ledger::remaining(values);
}

QStringList frmCsUrikakeList::write(const QList<EditedList::Row>& edits) {
    QList<Ledger::Entry> entries;
    for (const EditedList::Row& row : edits) entries << entryOf(row);
    return Ledger::write(gDbManager.Connection(), entries);
}

QString frmCsUrikakeList::whose(const EditedList::Row& row) const {
    return u"%1　%2"_qs.arg(row.found.at(Ledger::EstNo), row.found.at(Ledger::CustNm));
}

void frmCsUrikakeList::writeCsv() {
    if (list().hasEdits()) {
        ShowMessage(Message::Warning, u"編集中のデータがあります。反映させてからCSV出力を実行してください。"_qs);
        return;
    }
    ListFile file;
    for (int column = Ledger::Producer; column < Ledger::Columns; ++column)
        file.columns << columns().at(column).form.title;
    file.heads = Ledger::fileHeads(Search);
    writeOrders(file, Ledger::condition(Search), paymentOrder(sorting(columns())), [this](const PaymentRow& row) {
        const QString order = u"%1 %2"_qs.arg(row.estimate.EstNo, row.customerName()).trimmed();
        return QList<CsvRow>{{Ledger::cells(row, Search, rows()).mid(Ledger::Producer), order}};
    });
}
