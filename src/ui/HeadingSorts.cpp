#include "ui/HeadingSorts.h"

namespace {

constexpr qsizetype mostKeys = 10;

} // namespace

bool HeadingSorts::click(const ListColumns& columns, Grid* grid, int column) {
    if (!toggleSorting(columns, grid, column)) return false;
    m_keys.removeIf([column](const Key& key) { return key.column == column; });
    m_keys.prepend({column, grid->sortsUpwards()});
    m_keys = m_keys.first(qMin(m_keys.size(), mostKeys));
    return true;
}

SqlTerm HeadingSorts::sorting(const ListColumns& columns) const {
    QList<SqlTerm> terms;
    for (const Key& key : m_keys) terms << SqlSorted(columns.at(key.column).sorting, key.upwards);
    return SqlTerm::joined(terms, u", "_qs);
}
