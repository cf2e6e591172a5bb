#pragma once

#include "db/TableManager.h"

// The manager of a table whose rows hang on one owner, named by the first key column, such as the lines of an estimate.
// They are written together or not at all.
template <class Record> class OwnedRowsManager : public TableManager<Record> {
public:
    using TableManager<Record>::TableManager;

    // The row by its full key, in the order of the key columns.
    bool GetData(const QStringList& keyValues, Record& record) { return this->get(keyValues, record); }
    // Replaces all rows of the owner. An empty collection names no owner and deletes nothing.
    void SaveData(const QList<Record>& rows) {
        if (!rows.isEmpty()) SaveData(this->keyOf(rows.first()).first(), rows);
    }
    // The same for a known owner, whose last row may go, too.
    void SaveData(const QString& owner, const QList<Record>& rows) { this->replace({owner}, rows); }
    // All rows of the owner.
    void DeleteData(const QString& owner) { this->remove({owner}); }
};
