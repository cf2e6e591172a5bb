#include "ui/GridHands.h"

#include "base/CellBlock.h"
#include "base/basMessage.h"
#include "ui/Grid.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>

namespace {

constexpr int toldAtMost = 5;

bool isSingle(const QList<QStringList>& block) { return block.size() == 1 && block.first().size() == 1; }

// One cell for all that are selected.
QList<QStringList> repeated(const QString& text, const QSize& size) {
    return QList<QStringList>(size.height(), QStringList(size.width(), text));
}

void tellRefused(QStringList refused) {
    if (refused.isEmpty()) return;
    const qsizetype all = refused.size();
    refused = refused.mid(0, toldAtMost);
    if (all > toldAtMost) refused << u"ほか %1 件"_qs.arg(all - toldAtMost);
    ShowMessage(Message::Warning, u"次の内容は貼り付けられませんでした。\n"_qs + refused.join(u'\n'));
}

} // namespace

GridHands::GridHands(Grid* grid) : QObject(grid), m_grid(grid) {
    grid->setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto action = [&](const QString& text, QKeySequence::StandardKey keys, auto work) {
        auto* added = new QAction(text, grid);
        added->setShortcut(keys);
        added->setShortcutContext(Qt::WidgetShortcut); // a cell that is being edited has them for its text
        connect(added, &QAction::triggered, this, [work] { guarded(work); });
        grid->addAction(added);
    };
    action(u"切り取り"_qs, QKeySequence::Cut, [this] { cut(); });
    action(u"コピー"_qs, QKeySequence::Copy, [this] { copy(); });
    action(u"貼り付け"_qs, QKeySequence::Paste, [this] { paste(); });
}

QRect GridHands::selected() const {
    QRect block;
    for (const QModelIndex& cell : m_grid->selectionModel()->selectedIndexes())
        block |= QRect(cell.column(), cell.row() + 1, 1, 1);
    return block.isNull() ? QRect(m_grid->currentColumn(), m_grid->currentRow(), 1, 1) : block;
}

QList<int> GridHands::columnsFrom(int column) const {
    QList<int> columns;
    for (int i = qMax(column, 0); i < m_grid->columns(); ++i)
        if (!m_grid->isColumnHidden(i) && m_grid->column(i).kind != GridColumn::RowNumber) columns << i;
    return columns;
}

// Amounts go out as plain numbers, which every spreadsheet adds up.
void GridHands::copy() {
    const QRect block = selected();
    QList<QStringList> rows;
    for (int row = qMax(block.top(), 1); row <= block.bottom(); ++row) {
        rows << QStringList();
        for (const int column : columnsFrom(block.left())) {
            if (column > block.right()) break;
            const bool shown = m_grid->column(column).kind == GridColumn::Text;
            rows.last() << (shown ? m_grid->text(row, column) : m_grid->value(row, column));
        }
    }
    if (!rows.isEmpty()) QGuiApplication::clipboard()->setText(CellBlock::write(rows));
}

void GridHands::cut() {
    copy();
    m_grid->clearSelected();
}

void GridHands::paste() {
    const QRect place = selected();
    QList<QStringList> block = CellBlock::read(QGuiApplication::clipboard()->text());
    if (place.top() < 1 || block.isEmpty() || !m_grid->isEnabled()) return;
    if (isSingle(block)) block = repeated(block.first().first(), place.size());
    const QList<int> columns = columnsFrom(place.left());
    QStringList refused;
    for (int i = 0; i < block.size(); ++i)
        for (int j = 0; j < block.at(i).size(); ++j) {
            const int row = place.top() + i;
            const QString text = block.at(i).at(j);
            if (j < columns.size() && m_grid->enter(row, columns.at(j), text)) continue;
            const QString title = j < columns.size() ? m_grid->column(columns.at(j)).title : QString();
            if (!text.isEmpty()) refused << u"%1行目 %2「%3」"_qs.arg(row).arg(title, text);
        }
    tellRefused(refused);
}
