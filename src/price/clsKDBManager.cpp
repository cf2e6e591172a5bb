#include "price/clsKDBManager.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "db/Schema.h"
#include "price/PriceFiles.h"

#include <QDir>

namespace {

void dropTable(Connection& connection, const QString& name) {
    if (connection.tableExists(name)) connection.execute(u"DROP TABLE [%1]"_qs.arg(name));
}

} // namespace

QString clsKDBManager::ownRows() { return u"ID > %1"_qs.arg(PriceFiles::lastId); }

void clsKDBManager::KDBOpen(const QString& folder, const QString& file) {
    KDBClose();
    m_file = file;
    ConnectionSettings settings = ConnectionSettings::sqliteFile(QDir(folder).filePath(file));
    settings.timeout = m_main->settings().timeout;
    named([&] {
        auto prices = std::make_unique<::Connection>(settings);
        prices->open();
        m_prices = std::move(prices);
    });
}

Connection& clsKDBManager::Connection() {
    if (!m_prices) throw AppError(u"価格データベースが開かれていません。"_qs, u"clsKDBManager"_qs);
    return *m_prices;
}

void clsKDBManager::assertWritable() {
    // A transaction alone begins in a file that only reads, too.
    named([this] { Connection().execute(u"DELETE FROM [%1] WHERE [ID] < 0"_qs.arg(Schema::priceTables().first())); });
}

void clsKDBManager::named(const std::function<void()>& work) const {
    try {
        work();
    } catch (const AppError& error) {
        throw AppError(m_file + u"：\n"_qs + error.description(), error.source(), error.number());
    }
}

void clsKDBManager::rewrite(::Connection& target, ::Connection& source, const Schema::Table& table, const QString& name,
                            const QString& where) {
    Transaction transaction(target);
    dropTable(target, name);
    target.createTable(table, name);
    target.copyRows(source, table.name, name, where, [this](qint64) {
        if (onRows) onRows();
    });
    transaction.commit();
}

void clsKDBManager::BackupKTable() {
    named([this] {
        for (const QString& table : Schema::priceTables()) rewrite(Connection(), *m_main, *Schema::table(table), table);
    });
}

void clsKDBManager::BackupKbtuTable() {
    named([this] {
        for (const QString& table : Schema::priceTables())
            rewrite(Connection(), *m_main, *Schema::table(table), table, ownRows());
    });
}

void clsKDBManager::CopyKTable() {
    named([this] {
        for (const QString& table : Schema::priceTables()) rewrite(*m_main, Connection(), *Schema::table(table), table);
    });
}

void clsKDBManager::CopyKbtuTable() {
    named([this] {
        for (const QString& table : Schema::priceTables())
            rewrite(*m_main, Connection(), *Schema::table(table), ownRowsTable(table));
    });
}

void clsKDBManager::InsertKbtuTable() {
    for (const QString& table : Schema::priceTables()) {
        m_main->execute(u"INSERT INTO [%1] SELECT * FROM [%2]"_qs.arg(table, ownRowsTable(table)));
        dropTable(*m_main, ownRowsTable(table));
    }
}

qint64 clsKDBManager::TableCount(const QString& table) {
    return m_main->scalar(u"SELECT COUNT(*) AS CNT FROM [%1]"_qs.arg(table)).toLongLong();
}

void clsKDBManager::SetLastID() {
    for (const QString& table : Schema::priceTables()) {
        const double last = Val(m_main->scalar(u"SELECT MAX([ID]) FROM [%1]"_qs.arg(table)));
        m_main->execute(
            u"UPDATE [採番] SET [最終値] = '%1' WHERE [項目名] = '%2ID'"_qs.arg(numberText(last + 1), table));
    }
}
