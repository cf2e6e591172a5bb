#pragma once

#include "db/Connection.h"

#include <functional>
#include <memory>

// Copies the five price tables between the main database and a price database: a file of the embedded engine in the
// folder `kakaku`, whichever engine the main one is on. A table that is written is made anew, with its key and indexes.
// Failures rise as AppError; those of a price database name its file.
class clsKDBManager {
public:
    void Prepare(::Connection& main) { m_main = &main; }
    // Opens an existing price database; one that was open is closed.
    void KDBOpen(const QString& folder, const QString& file);
    void KDBClose() noexcept { m_prices.reset(); }
    // The open price database; raises an error when there is none.
    ::Connection& Connection();
    // Work on the price database; what fails says in which file.
    void named(const std::function<void()>& work) const;
    // Raises an error, which names the file, when nothing can be written there.
    void assertWritable();

    // --- from the main database to the price database ---
    void BackupKTable();
    // A user's own rows alone.
    void BackupKbtuTable();

    // --- from the price database to the main database ---
    void CopyKTable();
    // Into tables of their own, named with "_個別" behind.
    void CopyKbtuTable();
    // Puts the rows of those into the price tables, and takes those tables away.
    void InsertKbtuTable();

    qint64 TableCount(const QString& table);
    // Sets the counters behind the largest ID of each table.
    void SetLastID();

    // Called now and then while rows are copied.
    std::function<void()> onRows;

    // The condition of a user's own rows.
    static QString ownRows();
    static QString ownRowsTable(const QString& table) { return table + u"_個別"_qs; }

private:
    void rewrite(::Connection& target, ::Connection& source, const Schema::Table& table, const QString& name,
                 const QString& where = {});
    ::Connection* m_main = nullptr;
    std::unique_ptr<::Connection> m_prices;
    QString m_file;
};
