#include "payments/screens/frmStMoneyEndList.h"

#include "base/Dates.h"
#include "db/clsDbManager.h"
#include "payments/PaymentCsv.h"
#include "payments/PaymentWords.h"
#include "reports/clsReportManager.h"
#include "ui/Grid.h"
#include "ui/KeyedList.h"
#include "ui_frmStMoneyEndList.h"

namespace {

const ListColumns& columns() {
    const auto of = [](QString clsCsEstimate::*member) { return gCsEstimateManager.column(member); };
    const auto day = [](const QString& title) { return GridColumn::of(title, 13).aligned(Qt::AlignHCenter); };
    static const ListColumns columns{
        {GridColumn::of(u"見積ID"_qs, 11).unseen(), {}},
        {day(u"完成年月日"_qs), {of(&clsCsEstimate::CmpltFinDate)}},
        {GridColumn::of(u"作業状況"_qs, 10), {{u"処理区分"_qs, u"処理区分"_qs}}},
        {GridColumn::of(u"顧客氏名"_qs, 20),
         {gCustomerManager.column(&clsCustomer::CustNm1), gCustomerManager.column(&clsCustomer::CustNm2)}},
        {GridColumn::of(u"見積番号"_qs, 12), {of(&clsCsEstimate::EstNo)}},
        {GridColumn::of(u"見積名称"_qs, 36), {of(&clsCsEstimate::EstNm)}},
        {GridColumn::of(u"受注先"_qs, 26), {gChartManager.column(&clsChart::OrderNm)}},
        {GridColumn::of(u"金額"_qs, 13, GridColumn::Number), {of(&clsCsEstimate::EstSum)}},
        {day(u"入金日"_qs), {of(&clsCsEstimate::PayInFinDate)}}};
    return columns;
}

QStringList cellsOf(const PaymentRow& row) {
    const clsCsEstimate& estimate = row.estimate;
    return {estimate.EstId,
            formatDate(estimate.CmpltFinDate, u"yyyy.mm.dd"_qs),
            row.status,
            row.customerName(),
            estimate.EstNo,
            estimate.EstNm,
            row.chart.OrderNm,
            estimate.EstSum,
            formatDate(estimate.PayInFinDate, u"yyyy/mm/dd"_qs)};
}

} // namespace

frmStMoneyEndList::frmStMoneyEndList(QWidget* parent)
    : PaymentListScreen(parent), ui(std::make_unique<Ui::frmStMoneyEndList>()) {
    ui->setupUi(this);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    ui->flxEstList->setColumns(formsOf(columns()));
    m_list = new KeyedList(ui->flxEstList, ui->lblRecCnt, gDbManager.Connection().settings(),
                           [this](const QStringList& keys) { return fetch(keys); });
    sortByHeadings(ui->flxEstList, columns(), [this] { showList(); });
    onClick(ui->cmdPrint_0, [this] { print(PrintTo::Printer); });
    onClick(ui->cmdPrint_1, [this] { print(PrintTo::Preview); });
    onClick(ui->cmdCsv, [this] { writeCsv(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmStMoneyEndList::~frmStMoneyEndList() = default;

void frmStMoneyEndList::load() {
    PaymentListScreen::load();
    showList();
    ui->flxEstList->setFocus();
}

QHash<QString, QStringList> frmStMoneyEndList::fetch(const QStringList& keys) {
    QHash<QString, QStringList> cells;
    rows().forEach(keys, [&](const PaymentRow& row) { cells.insert(row.estimate.EstId, cellsOf(row)); });
    return cells;
}

void frmStMoneyEndList::showList() { m_list->show(clsReportManager::MakeSQLPayList(Search, sorting(columns()))); }

void frmStMoneyEndList::print(PrintTo to) {
    if (!confirmsPrint(to)) return;
    issue(u"repStMoneyEnd"_qs, {{u"Period"_qs, periodOnPaper(Search.DateFrom, Search.DateTo)}}, to,
          [this](ReportRecordset& records, const Pause& pause) {
              clsReportManager manager;
              manager.Prepare(gDbManager.Connection());
              manager.GetStPaymentData(Search, sorting(columns()), records, pause);
          });
}

void frmStMoneyEndList::writeCsv() {
    ListFile file{PaymentCsv::columns()};
    file.heads = {{u"入金年月日："_qs + periodInEra(Search.DateFrom, Search.DateTo)}};
    writeOrders(file, paidCondition(Search), paymentOrder(sorting(columns())),
                [this](const PaymentRow& row) { return PaymentCsv::lines(row, rows()); });
}
