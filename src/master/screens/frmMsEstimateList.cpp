#include "master/screens/frmMsEstimateList.h"

#include "base/Numbers.h"
#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "master/MasterManagers.h"
#include "master/screens/MasterPrinting.h"
#include "master/screens/frmMsEstimate.h"
#include "price/PriceManagers.h"
#include "reports/clsReportManager.h"
#include "ui/FormPieces.h"
#include "ui/KeyedList.h"
#include "ui/ListColumn.h"
#include "ui/WindowArrangement.h"
#include "ui/basControlUtil.h"
#include "ui_frmMsEstimateList.h"

#include <QScopedValueRollback>

namespace {

enum Column { Id, Code, Name, Small, Middle, Big };
enum Box { ItemBox, PickKbnBox, NameBox, FormBox };

const ListColumns& listColumns() {
    using Row = clsMstEstimate;
    const auto sorting = [](QString Row::*member) { return QList<SqlColumn>{gMstEstimateManager.column(member)}; };
    const auto price = [](const QString& title) { return GridColumn::of(title, 14, GridColumn::Number); };
    static const ListColumns columns{{GridColumn::of(u"製品ID"_qs, 12), {}},
                                     {GridColumn::of(u"製品コード"_qs, 20), sorting(&Row::ProductCd)},
                                     {GridColumn::of(u"製品名称"_qs, 50), sorting(&Row::ProductNm)},
                                     {price(u"小人価格"_qs), sorting(&Row::PriceSmall)},
                                     {price(u"中人価格"_qs), sorting(&Row::PriceMiddle)},
                                     {price(u"大人価格"_qs), sorting(&Row::PriceBig)}};
    return columns;
}

QHash<QString, QStringList> fetchRows(const QStringList& ids) {
    QHash<QString, QStringList> rows;
    for (const clsMstEstimate& master : gMstEstimateManager.mastersOf(ids))
        rows.insert(master.ProductId,
                    {master.ProductId, master.ProductCd, master.ProductNm, formatThousands(master.PriceSmall),
                     formatThousands(master.PriceMiddle), formatThousands(master.PriceBig)});
    return rows;
}

} // namespace

frmMsEstimateList::frmMsEstimateList(QWidget* parent)
    : ListScreen(parent), ui(std::make_unique<Ui::frmMsEstimateList>()) {
    ui->setupUi(this);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    FormPieces::applyCharacters(this);
    for (const QString& group :
         {u"　義　肢　"_qs, u"　装　具　"_qs, u"　座位保持装置　"_qs, u"　その他　"_qs, u"　全　て　"_qs})
        ui->tabEstList->addTab(group);
    ui->flxEstList->setColumns(formsOf(listColumns()));
    FormPieces::stretchColumn(ui->flxEstList, Name);
    m_rows = new KeyedList(ui->flxEstList, ui->lblRecCnt, gDbManager.Connection().settings(), fetchRows);
    connectFilters();
    connectCommands();
}

frmMsEstimateList::~frmMsEstimateList() = default;

void frmMsEstimateList::connectFilters() {
    for (TextField* field : {ui->txtProductCd, ui->txtProductNm})
        connect(field, &TextField::valueSettled, this, &frmMsEstimateList::showRows);
    for (int box = ItemBox; box <= FormBox; ++box)
        connect(boxes().at(box), &ChoiceBox::valueChanged, this, [this, box] { narrow(box); });
    connect(ui->tabEstList, &QTabBar::currentChanged, this, &frmMsEstimateList::showRows);
    connect(ui->flxEstList, &Grid::headingClicked, this, &frmMsEstimateList::sortBy);
}

void frmMsEstimateList::connectCommands() {
    onClick(ui->cmdAdd, [this] { edit(frmMsEstimate::Add, {}); });
    onClick(ui->cmdCopy, [this] { open(frmMsEstimate::Copy); });
    onClick(ui->cmdEdit, [this] { open(frmMsEstimate::Edit); });
    onClick(ui->cmdDelete, [this] { open(frmMsEstimate::Delete); });
    onClick(ui->cmdListPrt, [this] { printList(); });
    onClick(ui->cmdEstPrt, [this] { printCurrent(); });
    onClick(ui->cmdClose, [this] { close(); });
    connect(ui->flxEstList, &Grid::rowOpened, this, [this] { guarded([this] { open(frmMsEstimate::Edit); }); });
}

void frmMsEstimateList::load() {
    {
        const QScopedValueRollback filling(m_filling, true);
        for (int box = ItemBox; box <= FormBox; ++box) fillBox(box);
        ui->tabEstList->setCurrentIndex(MasterListFilter::All);
    }
    WindowArrangement::restoreSort(ui->flxEstList);
    showRows();
    ui->txtProductCd->setFocus();
}

// --- filter ---

QList<ChoiceBox*> frmMsEstimateList::boxes() const { return {ui->cboItem, ui->cboPickKbn, ui->cboName, ui->cboForm}; }

// What the price list has under the choices to the left.
void frmMsEstimateList::fillBox(int box) {
    const QString item = FilterText(ui->cboItem), pickKbn = FilterText(ui->cboPickKbn), name = FilterText(ui->cboName);
    QList<clsPriceItem> rows;
    static constexpr QString clsPriceItem::*shown[]{&clsPriceItem::Item, &clsPriceItem::PickKbn, &clsPriceItem::Name,
                                                    &clsPriceItem::Form};
    if (box == ItemBox) gPriceItemManager.GetListSumItem(rows);
    if (box == PickKbnBox) gPriceItemManager.GetListSumPickPtnKbn(rows, item);
    if (box == NameBox) gPriceItemManager.GetListSumName(rows, item, pickKbn);
    if (box == FormBox) gPriceItemManager.GetListSumForm(rows, item, pickKbn, name);
    ChoiceBox* list = boxes().at(box);
    BeginList(list, {.all = true});
    for (const clsPriceItem& row : rows) AddListEntry(list, row.*shown[box], row.ID);
    list->clearChoice();
}

// A choice goes on to the right, where nothing of the former one stays.
void frmMsEstimateList::narrow(int box) {
    if (m_filling) return;
    const bool filled = guarded([&] {
        const QScopedValueRollback filling(m_filling, true);
        for (int further = box + 1; further <= FormBox; ++further) fillBox(further);
    });
    if (filled) showRows();
}

MasterListFilter frmMsEstimateList::filter() const {
    return {ui->txtProductCd->value(),     ui->txtProductNm->value(), FilterText(ui->cboItem),
            FilterText(ui->cboPickKbn),    FilterText(ui->cboName),   FilterText(ui->cboForm),
            ui->tabEstList->currentIndex()};
}

// By the marked column, and within it by the code.
SqlTerm frmMsEstimateList::sorting() const {
    const SqlTerm marked = SqlSorted(markedSorting(listColumns(), ui->flxEstList), ui->flxEstList->sortsUpwards());
    return SqlTerm::joined({marked, SqlTerm(u"[製品コード] ASC"_qs), gMstEstimateManager.byKey()}, u","_qs);
}

// --- rows ---

void frmMsEstimateList::showRows() {
    if (!m_filling) m_rows->show(clsMstEstimateManager::Keys(filter().condition(), sorting()));
}

void frmMsEstimateList::sortBy(int column) {
    if (toggleSorting(listColumns(), ui->flxEstList, column)) showRows();
}

// The 製品ID of the current row; empty without one. A row that another machine deleted is told and taken off.
QString frmMsEstimateList::currentId() {
    const int row = ui->flxEstList->currentRow();
    if (!m_rows->awaitRows() || row < 1) return {};
    const QString id = ui->flxEstList->value(row, Id);
    if (id.isEmpty()) m_rows->tellGone(row, u"マスタ見積"_qs);
    return id;
}

// --- commands ---

void frmMsEstimateList::open(qint16 mode) {
    if (const QString id = currentId(); !id.isEmpty()) edit(mode, id);
}

// A row is looked at anew after a change, and when it could not be opened: another machine may have deleted it.
void frmMsEstimateList::edit(qint16 mode, const QString& id) {
    const int row = ui->flxEstList->currentRow();
    const bool isNew = mode == frmMsEstimate::Add || mode == frmMsEstimate::Copy;
    bool updated = false;
    QString stored;
    const bool opened = openScreen<frmMsEstimate>(
        this,
        [&](frmMsEstimate& editor) {
            editor.EditMode = mode;
            editor.ProductId = id;
        },
        [&](const frmMsEstimate& editor) {
            updated = editor.Updated;
            stored = editor.ProductId;
        });
    if (updated && isNew)
        m_rows->append(stored);
    else if (!id.isEmpty() && (updated || !opened))
        m_rows->refresh(row, id);
    ui->flxEstList->setFocus();
}

bool frmMsEstimateList::mayPrint() {
    return ListScreen::mayPrint(!m_rows->isEmpty(), false) &&
           ShowMessage(Message::Question, u"プレビュー & 印刷を開始します。"_qs) == AnswerYes;
}

// The paper holds the list that stands on the screen.
void frmMsEstimateList::printList() {
    m_rows->awaitRows();
    if (!mayPrint()) return;
    clsReportManager manager;
    manager.Prepare(gDbManager.Connection());
    ReportRecordset records;
    manager.GetMstEstListData(filter().condition(), sorting(), records);
    sendReport(u"repMstEstList"_qs, records, PrintTo::Preview);
}

void frmMsEstimateList::printCurrent() {
    m_rows->awaitRows();
    if (!mayPrint()) return;
    if (const QString id = currentId(); !id.isEmpty()) printMasters(gMstEstimateManager.keyed({id}), PrintTo::Preview);
}
