#include "estimates/screens/frmCsEstimateList.h"

#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "customers/clsCustomerManager.h"
#include "db/clsDbManager.h"
#include "estimates/EstimateCsv.h"
#include "estimates/EstimateManagers.h"
#include "estimates/screens/EstimateSearchPage.h"
#include "estimates/screens/frmCsEstimate.h"
#include "reference/ReferenceManagers.h"
#include "reports/clsReportManager.h"
#include "ui/FormPieces.h"
#include "ui/KeyedList.h"
#include "ui/ListColumn.h"
#include "ui/SearchFields.h"
#include "ui/WindowArrangement.h"
#include "ui_EstimateSearchPage.h"
#include "ui_frmCsEstimateList.h"

int frmCsEstimateList::s_open = 0;

namespace {

enum CustomerColumn { Tick, CustId, CustSubId, CustNo, CustName, CustKana, Tel, Pref, City };
enum EstimateColumn { Id, Number, Name, EstNo, PickPtn, DelvFin, Product, EstName, Sum, Order, Status };

QList<GridColumn> customerColumns() {
    const auto column = [](const QString& title, int width) { return GridColumn::of(title, width); };
    return {GridColumn::of(u"選択"_qs, 5, GridColumn::Check).typed(),
            column(u"顧客ID"_qs, 12),
            GridColumn::of(u"顧客枝番"_qs, 8, GridColumn::Number),
            column(u"顧客番号"_qs, 11),
            column(u"氏名"_qs, 24),
            column(u"フリガナ"_qs, 26),
            column(u"電話番号"_qs, 15),
            column(u"都道府県"_qs, 9),
            column(u"市区郡"_qs, 14)};
}

const ListColumns& estimateColumns() {
    const auto of = [](QString clsCsEstimate::*member) { return gCsEstimateManager.column(member); };
    const auto date = [](const QString& title) { return GridColumn::of(title, 9).aligned(Qt::AlignHCenter); };
    static const ListColumns columns{
        {GridColumn::of(u"見積ID"_qs, 11), {}},
        {GridColumn::of(u"顧客番号"_qs, 11), {}},
        {GridColumn::of(u"氏名"_qs, 18),
         {gCustomerManager.column(&clsCustomer::CustNm1), gCustomerManager.column(&clsCustomer::CustNm2)}},
        {GridColumn::of(u"見積番号"_qs, 11), {}},
        {date(u"採型日"_qs), {of(&clsCsEstimate::PickPtnDate)}},
        {date(u"納品日"_qs), {of(&clsCsEstimate::DelvFinDate)}},
        {GridColumn::of(u"製品コード"_qs, 11), {of(&clsCsEstimate::ProductCd)}},
        {GridColumn::of(u"見積名称"_qs, 36), {of(&clsCsEstimate::EstNm)}},
        {GridColumn::of(u"金額"_qs, 11, GridColumn::Number), {of(&clsCsEstimate::EstSum)}},
        {GridColumn::of(u"受注先"_qs, 26), {gChartManager.column(&clsChart::OrderNm)}},
        {GridColumn::of(u"作業状況"_qs, 9), {of(&clsCsEstimate::ProcKbnNo)}}};
    return columns;
}

QString shortDate(const QString& date) { return formatDate(date, u"yy/mm/dd"_qs); }

// --- the rows by their keys ---

QHash<QString, QStringList> fetchCustomers(const QStringList& keys, const QSet<QString>& ticked) {
    QHash<QString, QStringList> rows;
    for (const clsCustomer& customer : gCustomerManager.customersOf(keys)) {
        const QString key = clsCustomerManager::listKey(customer);
        rows.insert(key,
                    {ticked.contains(key) ? u"1"_qs : u"0"_qs, customer.CustId, customer.CustSubId, customer.CustNo,
                     JoinWithSpace(customer.CustNm1, customer.CustNm2),
                     JoinWithSpace(customer.CustKn1, customer.CustKn2), customer.Tel, customer.Pref, customer.City});
    }
    return rows;
}

QHash<QString, QStringList> fetchEstimates(const QStringList& keys) {
    QHash<QString, QStringList> rows;
    gCsEstimateManager.ForEachOf(keys, [&](const clsCsEstimate& estimate, const clsCustomer& customer,
                                           const clsChart& chart) {
        rows.insert(estimate.EstId,
                    {estimate.EstId, customer.CustNo, JoinWithSpace(customer.CustNm1, customer.CustNm2), estimate.EstNo,
                     shortDate(estimate.PickPtnDate), shortDate(estimate.DelvFinDate), estimate.ProductCd,
                     estimate.EstNm, formatThousands(estimate.EstSum), chart.OrderNm, estimate.ProcKbnNo});
    });
    return rows;
}

GridEntries statusEntries() {
    QList<clsProcKbn> rows;
    gProcKbnManager.GetList(rows);
    GridEntries entries;
    for (const clsProcKbn& row : rows) entries << GridEntry{row.ProcKbnNo, row.ProcKbnNm1, {}};
    return entries;
}

} // namespace

frmCsEstimateList::frmCsEstimateList(QWidget* parent)
    : PrintingScreen(parent), ui(std::make_unique<Ui::frmCsEstimateList>()) {
    ++s_open;
    ui->setupUi(this);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    ui->flxCustList->setColumns(customerColumns());
    ui->flxEstList->setColumns(formsOf(estimateColumns()));
    FormPieces::stretchColumn(ui->flxEstList, EstName);
    const ConnectionSettings& database = gDbManager.Connection().settings();
    m_customers = new KeyedList(ui->flxCustList, ui->txtCustCnt, database,
                                [this](const QStringList& keys) { return fetchCustomers(keys, m_ticked); });
    m_estimates = new KeyedList(ui->flxEstList, ui->txtEstCnt, database, fetchEstimates);
    turnPagesByKeys(ui->tabEstList);
    connectSearch();
    connectLists();
    connectCommands();
}

frmCsEstimateList::~frmCsEstimateList() { --s_open; }

// --- as a chooser ---

std::optional<frmCsEstimateList::Choice>
frmCsEstimateList::open(QWidget* parent, const std::function<void(frmCsEstimateList&)>& prepare) {
    std::optional<Choice> choice;
    openScreen<frmCsEstimateList>(parent, prepare, [&](const frmCsEstimateList& list) {
        if (!list.Cancel) choice = Choice{list.EstId, list.EditMode};
    });
    return choice;
}

std::optional<frmCsEstimateList::Choice> frmCsEstimateList::choose(QWidget* parent) {
    return open(parent, [](frmCsEstimateList&) {});
}

std::optional<frmCsEstimateList::Choice> frmCsEstimateList::chooseOf(QWidget* parent, const QString& name1,
                                                                     const QString& name2) {
    return open(parent, [&](frmCsEstimateList& list) {
        list.DetailMode = 1;
        list.CustName1 = name1;
        list.CustName2 = name2;
    });
}

// --- what hangs on what ---

// Return in a field of the person looks for persons, in any other for estimates.
void frmCsEstimateList::connectSearch() {
    EstimateSearchPage* page = ui->pagSearch;
    for (QWidget* field : page->fields())
        onReturn(field, [this, target = page->asksForPerson(field) ? Customers : Estimates] { turnTo(target); });
    connect(page, &EstimateSearchPage::searchAsked, this,
            [this, page] { guarded([&] { turnTo(page->filter().asksForPersonAlone() ? Customers : Estimates); }); });
    onReturn(page->ui->txtClaimCd, [page] { page->choosePayer(); });
    onReturn(page->ui->txtOrderCd, [page] { page->chooseOrder(); });
    onReturn(page->ui->txtProductCd, [page] { page->chooseProduct(); });
}

void frmCsEstimateList::connectLists() {
    connect(ui->tabEstList, &QTabWidget::currentChanged, this,
            [this](int page) { guarded([&] { pageTurned(page); }); });
    connect(ui->flxCustList, &Grid::cellEdited, this, [this](int row) { noteTick(row); });
    connect(ui->flxCustList, &Grid::rowOpened, this, [this](int row) { guarded([&] { openCustomer(row); }); });
    connect(ui->flxEstList, &Grid::rowOpened, this, [this] { guarded([this] { openRow(frmCsEstimate::Edit); }); });
    connect(ui->flxEstList, &Grid::headingClicked, this, [this](int column) { guarded([&] { sortBy(column); }); });
}

void frmCsEstimateList::connectCommands() {
    onClick(ui->cmdSelect, [this] { openRow(frmCsEstimate::Edit); });
    onClick(ui->cmdEdit, [this] { openRow(frmCsEstimate::Edit); });
    onClick(ui->cmdDelete, [this] { openRow(frmCsEstimate::Delete); });
    onClick(ui->cmdClose, [this] { close(); });
    onClick(ui->cmdCsv, [this] { writeCsv(); });
    const QList<QPushButton*> members{ui->cmdPrint_0, ui->cmdPrint_1, ui->cmdPrint_2, ui->cmdPrint_3};
    for (int member = 0; member < members.size(); ++member)
        onClick(members.at(member), [this, member] { print(member); });
}

void frmCsEstimateList::load() {
    ui->pagSearch->fillLists();
    ui->flxEstList->setEntries(Status, statusEntries());
    m_exclusions = clsProfile().GetValue(u"EstExclusion"_qs, u"InsName"_qs);
    WindowArrangement::restoreSort(ui->flxEstList);
    if (DetailMode != 1) SearchFields::restore(ui->pagSearch);
    ui->tabEstList->setCurrentIndex(Conditions);
    pageTurned(Conditions);
    if (DetailMode != 1) return;
    ui->pagSearch->showNames(CustName1, CustName2);
    ui->pagSearch->tickAllStatuses();
    turnTo(Estimates);
}

// --- pages ---

void frmCsEstimateList::turnTo(int page) { ui->tabEstList->setCurrentIndex(page); }

void frmCsEstimateList::pageTurned(int page) {
    for (QPushButton* command : {ui->cmdSelect, ui->cmdEdit, ui->cmdDelete})
        FormPieces::allow(command, page == Estimates ? QString() : u"見積一覧で見積を選ぶと使えます。"_qs);
    if (page != Estimates) m_opened = {};
    switch (page) {
    case Customers:
        forgetOtherTicks();
        showCustomers();
        return ui->flxCustList->setFocus();
    case Estimates:
        forgetOtherTicks();
        showEstimates();
        return ui->flxEstList->setFocus();
    default:
        return ui->pagSearch->returnToField();
    }
}

// Ticks belong to the search that they were set in; those of another one would narrow this one unseen.
void frmCsEstimateList::forgetOtherTicks() {
    const SqlTerm searched = ui->pagSearch->filter().condition();
    if (searched != m_searched) m_ticked.clear();
    m_searched = searched;
}

void frmCsEstimateList::showCustomers() {
    m_customers->show(clsCustomerManager::KeysWithEst(m_searched, gCustomerManager.column(&clsCustomer::CustNo)));
}

CustomerKey frmCsEstimateList::customerAt(int row) const {
    return {ui->flxCustList->value(row, CustId), ui->flxCustList->value(row, CustSubId)};
}

void frmCsEstimateList::noteTick(int row) {
    const CustomerKey customer = customerAt(row);
    const QString key = clsCustomerManager::listKey(customer.CustId, customer.CustSubId);
    if (ui->flxCustList->isChecked(row, Tick))
        m_ticked.insert(key);
    else
        m_ticked.remove(key);
}

// That person's estimates alone, whoever is ticked.
void frmCsEstimateList::openCustomer(int row) {
    const CustomerKey customer = customerAt(row);
    if (customer.CustId.isEmpty()) return m_customers->tellGone(row, u"顧客"_qs);
    m_opened = customer;
    m_openedName = ui->flxCustList->value(row, CustName);
    turnTo(Estimates);
}

void frmCsEstimateList::showEstimates() {
    showNarrowing();
    m_estimates->show(clsCsEstimateManager::KeysWithMst(condition(), sorting()));
}

void frmCsEstimateList::showNarrowing() {
    QString who;
    if (!m_opened.CustId.isEmpty())
        who = m_openedName;
    else if (!m_ticked.isEmpty())
        who = formatThousands(m_ticked.size()) + u"名"_qs;
    ui->lblNarrowed->setText(who.isEmpty() ? who : u"選択した顧客："_qs + who);
}

// --- the list as it is asked for ---

SqlTerm frmCsEstimateList::condition() const {
    if (!m_opened.CustId.isEmpty()) return withCustomers(m_searched, {m_opened});
    QStringList keys = m_ticked.values();
    keys.sort();
    QList<CustomerKey> customers;
    for (const QString& key : keys) customers << clsCustomerManager::ofListKey(key);
    return withCustomers(m_searched, customers);
}

SqlTerm frmCsEstimateList::sorting() const {
    return gCsEstimateManager.ListOrder(markedSorting(estimateColumns(), ui->flxEstList),
                                        ui->flxEstList->sortsUpwards());
}

void frmCsEstimateList::sortBy(int column) {
    if (toggleSorting(estimateColumns(), ui->flxEstList, column))
        m_estimates->show(clsCsEstimateManager::KeysWithMst(condition(), sorting()));
}

// --- commands ---

void frmCsEstimateList::openRow(qint16 mode) {
    if (!m_estimates->awaitRows() || ui->flxEstList->currentRow() < 1) return;
    const int row = ui->flxEstList->currentRow();
    const QString id = ui->flxEstList->value(row, Id);
    if (id.isEmpty()) return m_estimates->tellGone(row, u"見積"_qs);
    if (OpenMode == fromMenu) return edit(id, mode, row);
    EstId = id;
    EditMode = mode;
    Cancel = false;
    close();
}

void frmCsEstimateList::edit(const QString& id, qint16 mode, int row) {
    bool updated = false;
    const bool opened = openScreen<frmCsEstimate>(
        this,
        [&](frmCsEstimate& editor) {
            editor.EstId = id;
            editor.EditMode = mode;
        },
        [&](frmCsEstimate& editor) { updated = editor.Updated; });
    if (updated || !opened) m_estimates->refresh(row, id);
    ui->flxEstList->setFocus();
}

// The paper holds the list that stands on the screen, also when other conditions were typed since.
void frmCsEstimateList::showWhatIsAskedFor() {
    turnTo(Estimates);
    m_estimates->awaitRows();
}

// --- CSV ---

void frmCsEstimateList::writeCsv() {
    forgetOtherTicks();
    const QStringList ids = gCsEstimateManager.IdsWithMst(condition(), gCsEstimateManager.byKey());
    if (ids.isEmpty()) {
        ShowMessage(Message::Missing, u"出力データ"_qs);
        return;
    }
    exportCsv(EstimateCsv::columns(), [&](const std::function<void(const CsvRow&)>& take) {
        return whileBusy(u"CSV出力中"_qs, [&](const Pause& pause) {
            const auto add = [&](const clsCsEstimate& estimate, const clsCustomer& customer, const clsChart&) {
                take(EstimateCsv::row(estimate, customer));
            };
            gCsEstimateManager.ForEachOf(ids, add, pause);
        });
    });
}

// --- printing ---

void frmCsEstimateList::print(int member) {
    const bool toPrinter = member == 1 || member == 2;
    if (!m_estimates->isEmpty()) showWhatIsAskedFor();
    if (!mayPrint(!m_estimates->isEmpty(), toPrinter)) return;
    issue(u"repCsEstList"_qs, {}, toPrinter ? PrintTo::Printer : PrintTo::Preview,
          [&](ReportRecordset& records, const Pause& pause) {
              clsReportManager manager;
              manager.Prepare(gDbManager.Connection());
              manager.GetCsEstimateListData(condition(), sorting(), member, m_exclusions, records, pause);
          });
}
