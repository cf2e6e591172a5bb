#include "ui/frmSelectList.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "db/clsDbManager.h"
#include "ui/FormPieces.h"
#include "ui/KeyedList.h"
#include "ui/Style.h"
#include "ui_frmSelectList.h"

#include <QLayout>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int narrowest = 6;
constexpr int widest = 40;
constexpr int rowsMeasured = 200;

int shownWidth(const QString& text) { return Text::cp932Length(text); }

// Wide enough for its title and its first rows.
int columnWidth(const SelectRows& table, int column) {
    int width = shownWidth(table.columns.at(column)) + 2;
    for (int row = 0; row < std::min<qsizetype>(table.rows.size(), rowsMeasured); ++row)
        width = std::max(width, shownWidth(table.rows.at(row).value(column)) + 1);
    return std::clamp(width, narrowest, widest);
}

bool rowContains(const QStringList& row, const QString& sought) {
    return std::any_of(row.begin(), row.end(), [&sought](const QString& text) {
        return Text::toHalfKana(text).contains(sought, Qt::CaseInsensitive);
    });
}

} // namespace

frmSelectList::frmSelectList(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmSelectList>()) {
    ui->setupUi(this);
    onClick(ui->cbSelect, [this] { choose(); });
    onClick(ui->cbEstDetail, [this] { openDetail(); });
    onClick(ui->cbClose, [this] { close(); });
    connect(ui->flxData, &Grid::rowOpened, this, &frmSelectList::choose);
    connect(ui->txtSearch, &TextField::valueChanged, this, &frmSelectList::showRows);
    onReturn(ui->txtSearch, [this] { ui->flxData->setCurrent(1); });
}

frmSelectList::~frmSelectList() = default;

void frmSelectList::load() {
    if (!TblName.isEmpty()) setWindowTitle(TblName);
    setProperty("arrangedAs", objectName() + u' ' + windowTitle()); // each table has columns of its own
    ui->cbEstDetail->setVisible(static_cast<bool>(EstDetail));
    ui->flxData->setColumns(columns());
    if (Long) {
        m_long = new KeyedList(ui->flxData, ui->lblRecCnt, gDbManager.Connection().settings(), Long->fetch);
        connect(m_long, &KeyedList::shown, this, [this] { allowChoice(ui->flxData->rows() > 0); });
    }
    showRows();
    ui->flxData->setFocus();
}

QList<GridColumn> frmSelectList::columns() const {
    const QStringList& titles = Long ? Long->columns : Recordset.columns;
    QList<GridColumn> columns;
    for (int i = 0; i < titles.size(); ++i) {
        GridColumn column;
        column.title = titles.at(i);
        column.width = Long ? Long->widths.at(i) : columnWidth(Recordset, i);
        column.hidden = HideCols.contains(column.title);
        columns << column;
    }
    return columns;
}

QSize frmSelectList::sizeHint() const {
    int width = ui->flxData->verticalScrollBar()->sizeHint().width() + 2 * ui->flxData->frameWidth();
    for (const GridColumn& column : columns())
        if (!column.hidden) width += Style::charactersWide(column.width);
    const QMargins margins = layout()->contentsMargins();
    return Screen::sizeHint().expandedTo({width + margins.left() + margins.right(), 0});
}

// The rows that hold what was typed into the search field.
void frmSelectList::showRows() {
    const QString sought = ui->txtSearch->value();
    if (m_long)
        m_long->show(Long->keys(sought));
    else
        showRowsWith(Text::toHalfKana(sought));
}

void frmSelectList::showRowsWith(const QString& sought) {
    m_shownRows.clear();
    for (int row = 0; row < Recordset.rows.size(); ++row)
        if (sought.isEmpty() || rowContains(Recordset.rows.at(row), sought)) m_shownRows << row;
    ui->flxData->setSource(static_cast<int>(m_shownRows.size()),
                           [this](int row) { return Recordset.rows.at(m_shownRows.at(row)); });
    ui->flxData->setCurrent(1);
    ui->lblRecCnt->setText(formatThousands(m_shownRows.size()) + u"件"_qs);
    allowChoice(!m_shownRows.isEmpty());
}

void frmSelectList::allowChoice(bool hasRows) {
    FormPieces::allow(ui->cbSelect, hasRows ? QString() : u"選ぶ行がありません。"_qs);
}

void frmSelectList::choose() {
    if (m_long && !m_long->awaitRows()) return;
    const int row = ui->flxData->currentRow();
    if (row < 1) return;
    const QStringList values = ui->flxData->rowValues(row);
    for (int i = 0; i < values.size(); ++i) Selected[ui->flxData->column(i).title] = values.at(i);
    Cancel = false;
    close();
}

void frmSelectList::openDetail() {
    EstId = EstDetail(this);
    if (EstId.isEmpty()) return;
    Cancel = false;
    close();
}
