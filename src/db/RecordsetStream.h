#pragma once

#include "db/Recordset.h"
#include "db/Schema.h"

#include <QSqlError>
#include <QSqlQuery>

#include <functional>

// The rows behind a record set: read from the engine as they are asked for, or, once another statement needs the
// connection, from memory.
struct Recordset::Stream {
    explicit Stream(QSqlQuery query);

    bool next();
    // Reads the remaining rows into memory.
    void buffer();
    // Reads the remaining rows and forgets the connection.
    void detach();
    int indexOf(const QString& field) const;
    QString text(int index) const;
    bool isNull(int index) const;
    const QStringList& fields() const { return m_fields; }
    qint64 position() const { return m_position; }

    // Raises what the engine says when it breaks off in the middle of the rows.
    std::function<void(const QSqlError&)> onError;

private:
    [[noreturn]] void raise(const QSqlError& error) const;
    QVariantList currentRow() const;

    QSqlQuery m_query;
    QStringList m_fields;
    QHash<QString, int> m_index;
    QList<bool> m_mayBeDate; // an expression, or a date column
    QList<bool> m_isDecimal; // an engine's exact decimal arrives as text
    QVariantList m_row;
    QList<QVariantList> m_rows;
    bool m_buffered = false;
    QSqlError m_error; // met while buffering
    qint64 m_position = 0;
};
