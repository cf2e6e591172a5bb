#include "composition/screens/RowCommands.h"

#include "base/basMessage.h"
#include "ui/FormPieces.h"
#include "ui/Grid.h"
#include "ui_RowCommands.h"

#include <QAction>

RowCommands::RowCommands(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::RowCommands>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
}

RowCommands::~RowCommands() = default;

void RowCommands::setUp(Grid* grid, int index) {
    m_grid = grid;
    FormPieces::setArrayIndex(this, index);
    const auto command = [this](QPushButton* button, auto run) {
        auto* action =
            new QAction(button->accessibleName().isEmpty() ? button->text() : button->accessibleName(), m_grid);
        connect(action, &QAction::triggered, button, &QPushButton::click);
        m_grid->addAction(action); // to its menu
        connect(button, &QPushButton::clicked, this, [this, run] {
            if (m_grid->endEdit() && m_grid->currentRow() > 0) guarded(run);
        });
    };
    command(ui->cmdAdd, [this] { insertRow(); });
    command(ui->cmdCopy, [this] { copyRow(); });
    command(ui->cmdLineDel, [this] { removeRow(); });
    command(ui->cmdAllDel, [this] { removeAllRows(); });
    command(ui->cmdUp, [this] { moveRow(-1); });
    command(ui->cmdDown, [this] { moveRow(1); });
}

QList<int> RowCommands::presentRows() const {
    QList<int> rows;
    for (int row = 1; row <= m_grid->rows(); ++row) rows << row;
    return rows;
}

int RowCommands::lastEmptyRow() const {
    for (int row = m_grid->rows(); row > 0; --row)
        if (m_grid->isRowEmpty(row)) return row;
    return 0;
}

void RowCommands::rearrange(const QList<int>& formerRows, int current) {
    QList<QStringList> values;
    for (int row = 1; row <= m_grid->rows(); ++row) values << m_grid->rowValues(row);
    for (int row = 1; row <= formerRows.size(); ++row) {
        const int former = formerRows.at(row - 1);
        if (former == 0)
            m_grid->clearRow(row);
        else
            m_grid->setRowValues(row, values.at(former - 1));
    }
    m_grid->setCurrent(current, qMax(m_grid->currentColumn(), 1));
    m_grid->setFocus();
    emit rowsMoved(formerRows);
    emit changed();
}

void RowCommands::insertRow() {
    if (!m_grid->isRowEmpty(m_grid->rows())) {
        ShowMessage(Message::Warning, u"行を挿入できません。"_qs);
        return;
    }
    QList<int> rows = presentRows();
    rows.removeLast();
    rows.insert(m_grid->currentRow() - 1, 0);
    rearrange(rows, m_grid->currentRow());
}

void RowCommands::copyRow() {
    const int current = m_grid->currentRow();
    if (m_grid->isRowEmpty(current)) return;
    const int empty = lastEmptyRow();
    if (empty == 0) {
        ShowMessage(Message::Warning, u"行をコピー(張付け)できません。"_qs);
        return;
    }
    const QStringList values = m_grid->rowValues(current);
    QList<int> rows = presentRows();
    rows.removeAt(empty - 1);
    const qsizetype below = rows.indexOf(current) + 1;
    rows.insert(below, 0);
    rearrange(rows, static_cast<int>(below) + 1);
    m_grid->setRowValues(static_cast<int>(below) + 1, values);
    emit changed();
}

void RowCommands::removeRow() {
    const int current = m_grid->currentRow();
    if (m_grid->isRowEmpty(current)) return;
    if (ShowMessage(Message::AskDelete, u"%1行目"_qs.arg(current)) != AnswerYes) return;
    QList<int> rows = presentRows();
    rows.removeAt(current - 1);
    rows << 0;
    rearrange(rows, current);
}

void RowCommands::removeAllRows() {
    if (ShowMessage(Message::AskDelete, u"全行"_qs) != AnswerYes) return;
    rearrange(QList<int>(m_grid->rows(), 0), 1);
}

void RowCommands::moveRow(int by) {
    const int current = m_grid->currentRow();
    const int other = current + by;
    if (other < 1 || other > m_grid->rows()) return;
    QList<int> rows = presentRows();
    rows.swapItemsAt(current - 1, other - 1);
    rearrange(rows, other);
}
