#include "customers/screens/frmCustomer.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/basMessage.h"
#include "customers/screens/LawGrid.h"
#include "customers/screens/PersonFields.h"
#include "customers/screens/frmCustomerChart.h"
#include "db/clsDbManager.h"
#include "ui/FormPieces.h"
#include "ui_frmCustomer.h"

namespace {

const QString subject = u"顧客"_qs;

QList<GridColumn> chartColumns() {
    return {GridColumn::of(u"カルテNo"_qs, 9).aligned(Qt::AlignRight),
            GridColumn::of(u"ｶﾙﾃ番号"_qs, 14),
            GridColumn::of(u"病名原因"_qs, 26),
            GridColumn::of(u"入通院開始日"_qs, 12),
            GridColumn::of(u"左右"_qs, 6),
            GridColumn::of(u"受注先ｺｰﾄﾞ"_qs, 11),
            GridColumn::of(u"受注先"_qs, 25),
            GridColumn::of(u"主治医"_qs, 13),
            GridColumn::of(u"備考"_qs, 10)};
}

QStringList chartCells(const CustomerChart& row) {
    const clsChart& chart = row.chart;
    return {chart.ChartNo.isEmpty() ? u"(追加)"_qs : chart.ChartNo,
            chart.ChartCd,
            chart.DiseaseNm,
            formatDate(chart.HospDate, u"yyyy/mm/dd"_qs),
            chart.LR,
            row.orderCd,
            chart.OrderNm,
            chart.DoctorNm,
            QString(chart.Memo).replace(u'\n', u' ')};
}

} // namespace

frmCustomer::frmCustomer(QWidget* parent)
    : EditScreen(parent, {u"顧客情報"_qs, subject, subject}), ui(std::make_unique<Ui::frmCustomer>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    m_person = new PersonFields(PersonControls::of(*ui), this);
    m_laws = new LawGrid(ui->flxIns);
    ui->flxChart->setColumns(chartColumns());
    connect(m_laws, &LawGrid::changed, this, [this] { noteEdit(); });
    connect(ui->flxChart, &Grid::rowOpened, this, [this] { guarded([this] { viewChart(); }); });
    connectCommands();
}

frmCustomer::~frmCustomer() = default;

void frmCustomer::connectCommands() {
    onClick(ui->cmdViewChart, [this] { viewChart(); });
    onClick(ui->cmdDelChart, [this] { removeChart(); });
    onClick(ui->cmdExec_0, [this] { execute(CustomerSaveAs::Itself); });
    onClick(ui->cmdExec_1, [this] { execute(CustomerSaveAs::NewBranch); });
    setUpEditing({{ui->fraCust, ui->fraChart, ui->cmdExec_0},
                  {ui->cmdExec_1}, // beside what is stored
                  ui->cmdCancel,
                  ui->cmdDel,
                  ui->cmdClose,
                  ui->lblModeTitle});
}

// --- showing ---

void frmCustomer::fillLists() { m_person->fillLists(); }

QWidget* frmCustomer::firstField() const {
    return EditMode == Delete ? static_cast<QWidget*>(ui->cmdDel) : ui->txtName1;
}

// The stored branch, or an empty one to be added.
void frmCustomer::showStored() {
    m_draft = {};
    if (EditMode == Add)
        m_draft.customer.CustNo = automaticNumber;
    else if (!loadCustomer(CustId, CustSubId, m_draft))
        throw AppError(GetMessageText(Message::NotFound, subject), objectName());
    showDraft();
}

void frmCustomer::showDraft() {
    ui->txtCsNo->setValue(m_draft.customer.CustNo);
    ui->txtEmail->setValue(m_draft.customer.mail);
    m_person->show(m_draft.customer);
    m_laws->show(m_draft.laws);
    ui->lblInsMore->setText(m_laws->beyond() == 0 ? QString() : u"ほか %1 件"_qs.arg(m_laws->beyond()));
    showCharts();
}

// One row for each chart, and an empty one to add another.
void frmCustomer::showCharts() {
    const int current = ui->flxChart->currentRow();
    ui->flxChart->setRows(0);
    for (const CustomerChart& row : m_draft.charts) ui->flxChart->addRow(chartCells(row));
    ui->flxChart->addRow({});
    ui->flxChart->setCurrent(qBound(1, current, ui->flxChart->rows()));
}

CustomerDraft frmCustomer::collect() const {
    CustomerDraft draft = m_draft;
    draft.customer.CustNo = ui->txtCsNo->value();
    draft.customer.mail = ui->txtEmail->value();
    m_person->collect(draft.customer);
    draft.laws = m_laws->laws();
    return draft;
}

// --- charts ---

// The chart of the current row; nothing on the empty row.
CustomerChart* frmCustomer::currentChart() {
    const int place = ui->flxChart->currentRow() - 1;
    return place < 0 || place >= m_draft.charts.size() ? nullptr : &m_draft.charts[place];
}

void frmCustomer::viewChart() {
    CustomerChart* chosen = currentChart();
    openScreen<frmCustomerChart>(
        this,
        [&](frmCustomerChart& screen) {
            screen.EditMode = chosen ? Edit : Add;
            if (!chosen) return;
            screen.Chart = chosen->chart;
            screen.Order.OrderCd = chosen->orderCd;
        },
        [&](frmCustomerChart& screen) {
            if (!screen.Updated) return;
            const CustomerChart entered{screen.Chart, screen.Order.OrderCd};
            if (chosen)
                *chosen = entered;
            else
                m_draft.charts << entered;
            noteEdit();
        });
    showCharts();
}

void frmCustomer::removeChart() {
    CustomerChart* chosen = currentChart();
    if (!chosen) return;
    bool confirmed = false;
    openScreen<frmCustomerChart>(
        this,
        [&](frmCustomerChart& screen) {
            screen.EditMode = Delete;
            screen.Chart = chosen->chart;
            screen.Order.OrderCd = chosen->orderCd;
        },
        [&](frmCustomerChart& screen) { confirmed = screen.Updated; });
    if (!confirmed) return;
    if (gChartManager.IsUsed(chosen->chart)) {
        ShowMessage(Message::Warning,
                    u"カルテNo %1 は見積で使われているため、削除できません。"_qs.arg(chosen->chart.ChartNo));
        return;
    }
    m_draft.charts.removeAt(chosen - m_draft.charts.data());
    noteEdit();
    showCharts();
}

// --- commands ---

// False when something is missing or refused, which was told.
bool frmCustomer::save(CustomerSaveAs as) {
    if (!leaveField()) return false;
    CustomerDraft draft = collect();
    if (draft.customer.CustNm1.trimmed().isEmpty() && draft.customer.CustNm2.trimmed().isEmpty()) {
        ShowMessage(Message::Information, u"氏名を入力してください。"_qs);
        ui->txtName1->setFocus();
        return false;
    }
    if (saveCustomer(gDbManager.Connection(), draft, as) == CustomerSaveResult::Refused) return false;
    m_draft.takeIdentity(m_draft, draft); // a further press, if any, is about this one
    CustId = draft.customer.CustId;
    CustSubId = draft.customer.CustSubId;
    Updated = true;
    clearEdited();
    ShowMessage(Message::Information, EditMode == Add
                                          ? u"顧客番号:%1 で新規登録しました。"_qs.arg(draft.customer.CustNo)
                                          : u"保存しました。"_qs);
    if (as == CustomerSaveAs::NewBranch) EditMode = Add;
    return true;
}

void frmCustomer::execute(CustomerSaveAs as) {
    if (save(as)) close();
}

bool frmCustomer::removeStored() {
    deleteCustomer(gDbManager.Connection(), m_draft.customer);
    return true;
}
