#include "price/screens/frmKakakuList.h"

#include "base/basMessage.h"
#include "db/clsAssistManager.h"
#include "db/clsDbManager.h"
#include "price/PriceManagers.h"
#include "price/basPriceSelection.h"
#include "price/screens/NarrowingBoxes.h"
#include "price/screens/PriceForms.h"
#include "price/screens/frmKakaku.h"
#include "ui/FormPieces.h"
#include "ui/KeyedList.h"
#include "ui/ListColumn.h"
#include "ui/WindowArrangement.h"
#include "ui_frmKakakuList.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

namespace {

const QString idColumn = u"ID"_qs;
const QString flagColumn = u"有効Flg"_qs;

GridColumn listColumn(const PriceField& field) {
    const GridColumn::Kind kind = field.kind == PriceField::Price ? GridColumn::Number : GridColumn::Text;
    GridColumn column = GridColumn::of(field.label, field.width, kind);
    if (field.kind == PriceField::Whole) return column.aligned(Qt::AlignRight);
    for (const clsAssist& choice : field.group > 0 ? gAssistManager.group(field.group) : QList<clsAssist>()) {
        const QString& held = field.kind == PriceField::Assist ? choice.AsstNo : choice.AsstData;
        column.entries << GridEntry{held, choice.AsstView, {}};
    }
    return column;
}

ListColumns listColumns(const PriceForm& form) {
    const auto sorting = [&form](const QString& column) { return QList<SqlColumn>{{form.table, column}}; };
    ListColumns columns{{GridColumn::of(idColumn, 9).aligned(Qt::AlignRight), sorting(idColumn)}};
    for (const PriceField& field : form.fields) columns << ListColumn{listColumn(field), sorting(field.column)};
    columns << ListColumn{GridColumn::of(u"有効"_qs, 7).aligned(Qt::AlignCenter), sorting(flagColumn)};
    return columns;
}

// Of a table that is narrower than the screen the last text takes what is left; a wide one is scrolled.
int stretchedColumn(const PriceForm& form) {
    constexpr int charactersOfScreen = 130;
    int width = 0, last = 0;
    for (int i = 0; i < form.fields.size(); ++i) {
        width += form.fields.at(i).width;
        if (form.fields.at(i).kind == PriceField::Choice) last = i + 1; // behind the ID
    }
    return width < charactersOfScreen ? last : -1;
}

QStringList cellsOf(const PriceForm& form, const PriceRow& row) {
    QStringList cells{row.value(idColumn)};
    for (const PriceField& field : form.fields) cells << row.value(field.column);
    return cells << (row.value(flagColumn) == u"0" ? u"有効"_qs : u"無効"_qs);
}

QHash<QString, QStringList> fetch(const PriceForm& form, const QStringList& ids) {
    QHash<QString, QStringList> rows;
    for (const PriceRow& row : priceTable(form.table).rowsOf(ids)) rows.insert(row.value(idColumn), cellsOf(form, row));
    return rows;
}

} // namespace

frmKakakuList::frmKakakuList(QWidget* parent) : ListScreen(parent), ui(std::make_unique<Ui::frmKakakuList>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    m_boxes = new NarrowingBoxes({ui->cboItem, ui->cboPickKbn, ui->cboName, ui->cboForm, ui->cboPartsCd}, {.all = true},
                                 true, this);
    for (const PriceForm& form : priceForms()) addPage(form);
    ui->prgBsElm->setVisible(false);
    turnPagesByKeys(ui->stPrice);
    connect(ui->stPrice, &QTabWidget::currentChanged, this, [this] { guarded([this] { turned(); }); });
    connect(m_boxes, &NarrowingBoxes::changed, this, [this] { guarded([this] { showRows(); }); });
    onClick(ui->cbAdd, [this] { open(frmKakaku::Add); });
    onClick(ui->cbCopy, [this] { open(frmKakaku::Copy); });
    onClick(ui->cbEdit, [this] { open(frmKakaku::Edit); });
    onClick(ui->cmdUpdate, [this] { rebuildSelection(); });
    onClick(ui->cbClose, [this] { close(); });
}

frmKakakuList::~frmKakakuList() = default;

void frmKakakuList::addPage(const PriceForm& form) {
    static const QHash<QString, QString> names{{u"価格種目"_qs, u"flxItem"_qs},
                                               {u"価格基本"_qs, u"flxBase"_qs},
                                               {u"価格加算"_qs, u"flxAdd"_qs},
                                               {u"価格要素"_qs, u"flxElmt"_qs},
                                               {u"価格部品"_qs, u"flxParts"_qs}};
    Grid* grid = findChild<Grid*>(names.value(form.table));
    auto* rows = new KeyedList(grid, ui->txtCount, gDbManager.Connection().settings(),
                               [&form](const QStringList& ids) { return fetch(form, ids); });
    grid->setColumns(formsOf(listColumns(form)));
    WindowArrangement::restoreSort(grid);
    if (const int column = stretchedColumn(form); column > 0) FormPieces::stretchColumn(grid, column);
    connect(grid, &Grid::headingClicked, this, &frmKakakuList::sortBy);
    connect(grid, &Grid::rowOpened, this, [this] { guarded([this] { open(frmKakaku::Edit); }); });
    m_pages << Page{&form, grid, rows};
}

const frmKakakuList::Page& frmKakakuList::page() const { return m_pages.at(ui->stPrice->currentIndex()); }

void frmKakakuList::load() {
    turned();
    page().grid->setFocus();
}

// Another table has other columns to filter by.
void frmKakakuList::turned() {
    const QList<PriceField> choices = page().form->choices();
    QStringList columns;
    for (const PriceField& field : choices) columns << field.column;
    const QList<std::pair<QLabel*, QWidget*>> captions{{ui->lblItem, ui->cboItem},
                                                       {ui->lblPickKbn, ui->cboPickKbn},
                                                       {ui->lblName, ui->cboName},
                                                       {ui->lblForm, ui->cboForm},
                                                       {ui->lblPartsCd, ui->cboPartsCd}};
    for (qsizetype i = 0; i < captions.size(); ++i) {
        const bool used = i < choices.size();
        captions.at(i).first->setVisible(used);
        captions.at(i).second->setVisible(used);
        if (used) captions.at(i).first->setText(choices.at(i).label + u'：');
    }
    m_boxes->setTable(priceTable(page().form->table), columns);
    showRows();
}

void frmKakakuList::sortBy(int column) {
    if (toggleSorting(listColumns(*page().form), page().grid, column)) showRows();
}

void frmKakakuList::showRows() {
    const QList<SqlColumn> marked = markedSorting(listColumns(*page().form), page().grid);
    const SqlTerm sorting = marked.isEmpty() ? SqlTerm(u"[ID]"_qs)
                                             : SqlSorted(marked + QList<SqlColumn>{{page().form->table, idColumn}},
                                                         page().grid->sortsUpwards());
    page().rows->show(priceTable(page().form->table).idsOf(m_boxes->filter(), sorting));
}

// --- rows ---

void frmKakakuList::open(qint16 mode) {
    int row = 0;
    QString id;
    if (mode != frmKakaku::Add) {
        if (!page().rows->awaitRows() || page().grid->currentRow() < 1) return;
        row = page().grid->currentRow();
        id = page().grid->value(row, 0);
        if (id.isEmpty()) return page().rows->tellGone(row, page().form->subject);
    }
    switch (ui->stPrice->currentIndex()) {
    case 0:
        return openRow<frmKakakuSYU>(mode, row, id);
    case 1:
        return openRow<frmKakakuKI>(mode, row, id);
    case 2:
        return openRow<frmKakakuADD>(mode, row, id);
    case 3:
        return openRow<frmKakakuSEI>(mode, row, id);
    default:
        return openRow<frmKakakuKAN>(mode, row, id);
    }
}

template <class EditForm> void frmKakakuList::openRow(qint16 mode, int row, const QString& id) {
    KeyedList* rows = page().rows;
    const bool opened = openScreen<EditForm>(
        this,
        [&](EditForm& screen) {
            screen.EditMode = mode;
            screen.ItemId = id;
        },
        [&](EditForm& screen) {
            if (!screen.Updated) return;
            m_boxes->fill();
            if (mode == frmKakaku::Edit)
                rows->refresh(row, id);
            else
                rows->append(screen.ItemId);
        });
    if (!opened && mode != frmKakaku::Add) rows->refresh(row, id); // another machine may have taken it away
}

// --- the choices of the make element grid ---

void frmKakakuList::rebuildSelection() {
    if (ShowMessage(Message::Question, u"価格データ更新処理を開始します。よろしいですか。"_qs) == AnswerNo) return;
    {
        const QScopedValueRollback rebuilding(m_rebuilding, true);
        ui->prgBsElm->setVisible(true);
        const auto end = qScopeGuard([this] { ui->prgBsElm->setVisible(false); });
        whileBusy(u"選択リスト更新中"_qs, [this](const Pause& pause) {
            RebuildBaseElmtSelect(gDbManager.Connection(), [&](qint64 done, qint64 all) {
                ui->prgBsElm->setMaximum(static_cast<int>(all));
                ui->prgBsElm->setValue(static_cast<int>(done));
                pause();
            });
        });
    }
    ShowMessage(Message::Information, u"価格改訂が完了しました。"_qs);
}

bool frmKakakuList::queryUnload() {
    if (!m_rebuilding) return ListScreen::queryUnload();
    ShowMessage(Message::Warning, u"価格データの更新が行われているため、終了することはできません。"_qs);
    return false;
}
