#include "customers/screens/LawGrid.h"

#include "base/Numbers.h"
#include "reference/ReferenceManagers.h"
#include "ui/FormPieces.h"
#include "ui/Grid.h"

namespace {

constexpr int rowCount = 4;

QList<GridColumn> columns() {
    return {GridColumn::of(u"法別No"_qs, 10).unseen(), GridColumn::of(u"保険名"_qs, 24).typed()};
}

} // namespace

LawGrid::LawGrid(Grid* grid) : QObject(grid), m_grid(grid) {
    m_grid->setColumns(columns());
    m_grid->setRows(rowCount);
    FormPieces::stretchColumn(m_grid, InsNm);
    FormPieces::fixRowsShown(m_grid, rowCount);
    connect(m_grid, &Grid::cellEdited, this, [this](int row) {
        m_grid->setValue(row, InsNo, m_grid->value(row, InsNm));
        emit changed();
    });
}

// The laws to choose from: those in use today, and what the customer has already.
void LawGrid::offer(const QStringList& inUse) {
    QList<SqlTerm> wanted{gInsManager.inUse()};
    for (const QString& law : inUse) wanted << gInsManager.keyed({law});
    QList<clsIns> rows;
    gInsManager.GetList(rows, SqlAnyOf(wanted), gInsManager.byKey());
    QStringList entries;
    for (const clsIns& row : rows) entries << u'#' + row.InsNo + u';' + row.InsNm;
    m_grid->setEntries(InsNm, entries);
}

void LawGrid::show(const QStringList& laws) {
    offer(laws);
    m_grid->setRows(rowCount);
    m_beyond = laws.mid(rowCount);
    for (int i = 0; i < qMin<qsizetype>(rowCount, laws.size()); ++i)
        m_grid->setRowValues(i + 1, {laws.at(i), laws.at(i)});
}

QStringList LawGrid::laws() const {
    QStringList all;
    for (int row = 1; row <= m_grid->rows(); ++row)
        if (const QString law = m_grid->value(row, InsNm); Val(law) != 0) all << law;
    all << m_beyond;
    all.removeDuplicates();
    return all;
}
