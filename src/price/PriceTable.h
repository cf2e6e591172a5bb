#pragma once

#include "db/SqlText.h"

#include <QHash>
#include <QStringList>

class Connection;

// The texts of a price row by its columns; one that is left out is empty.
using PriceRow = QHash<QString, QString>;

// One of the five price tables by the names of its columns, for what treats all of them alike. Each is its manager;
// failures rise as AppError.
class PriceTable {
public:
    virtual ~PriceTable() = default;

    virtual QString name() const = 0;
    // The columns that a row has, its ID first.
    virtual QStringList columnNames() const = 0;
    // The statement that gives the IDs of the rows under a condition.
    virtual QString idsOf(const SqlTerm& where, const SqlTerm& sort) const = 0;
    virtual QList<PriceRow> rowsOf(const QStringList& ids) = 0;
    // Raises an error when there is no such row.
    virtual PriceRow storedRow(const QString& id) = 0;
    // Writes a row; one without an ID is a user's own and gets its number.
    virtual void saveRow(PriceRow& row) = 0;
    // --- for whole tables, of any database ---
    // Works on another connection from now on.
    virtual void bind(Connection& connection) = 0;
    virtual void empty() = 0;
    // Inserts a row as it stands, its ID included.
    virtual void importRow(const PriceRow& row) = 0;
    virtual qint64 rowCount() = 0;
    // The values of a column under a condition, each once, in their order.
    virtual QStringList valuesOf(const QString& column, const SqlTerm& where) = 0;
};

// The table of that name; raises an error for any other.
PriceTable& priceTable(const QString& name);

// The five tables work on another database, such as one of a year, as long as this lives; then on the main one again.
class BoundPrices {
public:
    BoundPrices(Connection& prices, Connection& main);
    ~BoundPrices();
    BoundPrices(const BoundPrices&) = delete;
    BoundPrices& operator=(const BoundPrices&) = delete;

private:
    Connection& m_main;
};
