#include "payments/screens/frmCsPayList.h"

#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "db/clsDbManager.h"
#include "db/clsSysSettingManager.h"
#include "estimates/EstimateDates.h"
#include "payments/PaymentCsv.h"
#include "payments/PaymentReflection.h"
#include "payments/PaymentWords.h"
#include "reports/Statistics.h"
#include "reports/clsReportManager.h"
#include "ui/Grid.h"
#include "ui/frmCalendar.h"
#include "ui_frmCsPayList.h"

namespace {

enum Column { Id, Cmplt, Pays, Status, Name, Number, EstName, Order, Price, Paid, Uncollected, Date, State };

const ListColumns& columns() {
    const auto of = [](QString clsCsEstimate::*member) { return gCsEstimateManager.column(member); };
    const auto day = [](const QString& title, int width) {
        return GridColumn::of(title, width).aligned(Qt::AlignHCenter);
    };
    static const ListColumns columns{
        {GridColumn::of(u"見積ID"_qs, 11).unseen(), {}},
        {day(u"完成年月日"_qs, 12), {of(&clsCsEstimate::CmpltFinDate)}},
        {GridColumn::of(u"入金"_qs, 6, GridColumn::Check).typed(), {}},
        {GridColumn::of(u"作業状況"_qs, 10), {{u"処理区分"_qs, u"処理区分"_qs}}},
        {GridColumn::of(u"顧客氏名"_qs, 20),
         {gCustomerManager.column(&clsCustomer::CustNm1), gCustomerManager.column(&clsCustomer::CustNm2)}},
        {GridColumn::of(u"見積番号"_qs, 12), {of(&clsCsEstimate::EstNo)}},
        {GridColumn::of(u"見積名称"_qs, 34), {of(&clsCsEstimate::EstNm)}},
        {GridColumn::of(u"受注先"_qs, 24), {gChartManager.column(&clsChart::OrderNm)}},
        {GridColumn::of(u"金額"_qs, 12, GridColumn::Number), {of(&clsCsEstimate::EstSum)}},
        {day(u"入金日"_qs, 12), {of(&clsCsEstimate::PayInFinDate)}},
        {GridColumn::of(u"未回収"_qs, 8, GridColumn::Check).typed(), {}},
        {GridColumn::of(u"入金年月日"_qs, 13, GridColumn::Date).typed().aligned(Qt::AlignHCenter), {}},
        {GridColumn::of({}, 1).unseen(), {}}};
    return columns;
}

QString mark(bool on) { return on ? u"1"_qs : u"0"_qs; }

bool isOn(const QStringList& values, int column) { return values.at(column) == u"1"; }

QString day(const QString& date) { return formatDate(date, u"yyyy/mm/dd"_qs); }

PaymentEntry entryOf(const EditedList::Row& row) {
    return {row.key(), isOn(row.edited, Pays), isOn(row.edited, Uncollected), row.edited.at(Date), row.found.at(State)};
}

} // namespace

frmCsPayList::frmCsPayList(QWidget* parent) : EditedPaymentScreen(parent), ui(std::make_unique<Ui::frmCsPayList>()) {
    ui->setupUi(this);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    ui->flxEstList->setColumns(formsOf(columns()));
    setUpEditing(ui->flxEstList, ui->lblRecCnt, ui->lblEdited);
    ui->flxEstList->isToFill = [this](int row, int) { return ui->flxEstList->isChecked(row, Pays); };
    sortByHeadings(ui->flxEstList, columns(), [this] { showList(); });
    onClick(ui->cmdExec, [this] { reflect(); });
    onClick(ui->cmdDate, [this] { chooseDate(); });
    onClick(ui->cmdPrint_0, [this] { print(PrintTo::Printer); });
    onClick(ui->cmdPrint_1, [this] { print(PrintTo::Preview); });
    onClick(ui->cmdCsv, [this] { writeCsv(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmCsPayList::~frmCsPayList() = default;

void frmCsPayList::load() {
    EditedPaymentScreen::load();
    showList();
    ui->imBulkPayDate->setFocus();
}

// A paid order, which stays in sight until the list is read anew, shows its payment.
QStringList frmCsPayList::cellsOf(const PaymentRow& row) {
    const clsCsEstimate& estimate = row.estimate;
    const bool paid = estimate.ProcKbnNo == WorkStatus::Payment;
    return {estimate.EstId,
            formatDate(estimate.CmpltFinDate, u"mm/dd"_qs),
            mark(paid),
            row.status,
            row.customerName(),
            estimate.EstNo,
            estimate.EstNm,
            row.chart.OrderNm,
            estimate.EstSum,
            day(estimate.PayInFinDate),
            mark(estimate.ProcKbnNo == WorkStatus::Uncollected),
            paid ? day(estimate.PayInFinDate) : QString(),
            paymentState(estimate)};
}

void frmCsPayList::showList() { list().show(clsReportManager::MakeSQLNoPayList(Search, sorting(columns()))); }

// --- editing ---

// A tick takes the bulk date, a date the tick; 未回収 is asked for.
void frmCsPayList::follow(int column, QStringList& values) {
    if (column == Pays) values[Date] = isOn(values, Pays) ? ui->imBulkPayDate->value() : QString();
    if (column == Date && !values.at(Date).isEmpty()) values[Pays] = mark(true);
    if (column != Uncollected || !isOn(values, Uncollected)) return;
    const QString question =
        u"顧客名称：【%1】,　見積番号：【%2】の作業状況を未回収に変更してよろしいでしょうか。"_qs.arg(
            values.at(Name), values.at(Number));
    if (ShowMessage(Message::Question, question) != AnswerYes) values[Uncollected] = mark(false);
}

void frmCsPayList::chooseDate() {
    const int row = ui->flxEstList->currentRow();
    if (row < 1) return;
    openScreen<frmCalendar>(
        this,
        [&](frmCalendar& calendar) {
            const auto date = parseDate(ui->flxEstList->value(row, Date));
            calendar.SetDate = date ? date->date() : currentDate();
        },
        [&](frmCalendar& calendar) {
            if (calendar.Selected) list().edit(row, Date, dateText(calendar.GetDate));
        });
    ui->flxEstList->setCurrent(row, Date);
    ui->flxEstList->setFocus();
}

// --- reflection ---

QStringList frmCsPayList::write(const QList<EditedList::Row>& edits) {
    QList<PaymentEntry> entries;
    for (const EditedList::Row& row : edits) entries << entryOf(row);
    return reflectPayments(gDbManager.Connection(), entries, hasBalanceList(clsProfile()));
}

QString frmCsPayList::whose(const EditedList::Row& row) const {
    return u"%1　%2"_qs.arg(row.found.at(Number), row.found.at(Name));
}

// --- paper and file ---

void frmCsPayList::print(PrintTo to) {
    if (!confirmsPrint(to)) return;
    const ReportParameters values{{u"Order"_qs, searchedParty(Search.OrderCd, Search.OrderNm)},
                                  {u"Period"_qs, periodOnPaper(Search.DateFrom, Search.DateTo)},
                                  {u"Status"_qs, StatusWord}};
    issue(statisticsClass(noPaymentPaper(), clsProfile(), gSysSettingManager), values, to,
          [this](ReportRecordset& records, const Pause& pause) {
              clsReportManager manager;
              manager.Prepare(gDbManager.Connection());
              manager.GetStNoPaymentData(Search, sorting(columns()), records, pause);
          });
}

void frmCsPayList::writeCsv() {
    ListFile file{PaymentCsv::columns()};
    file.heads = {{u"受 注 先："_qs + searchedParty(Search.OrderCd, Search.OrderNm)},
                  {u"完成年月日："_qs + periodInEra(Search.DateFrom, Search.DateTo)},
                  {u"作業状況："_qs + StatusWord}};
    writeOrders(file, noPayCondition(Search), paymentOrder(sorting(columns())),
                [this](const PaymentRow& row) { return PaymentCsv::lines(row, rows()); });
}
