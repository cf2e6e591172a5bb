#pragma once

#include "db/Recordset.h"
#include "db/Schema.h"

#include <QSqlQuery>

// The rows behind a record set: read from the engine as they are asked for, or, once another statement needs the
// connection, from memory.
struct Recordset::Stream {
    explicit Stream(QSqlQuery query);

    bool next();
    // Reads the remaining rows into memory.
    void buffer();
    int indexOf(const QString& field) const;
    QString text(int index) const;
    bool isNull(int index) const;
    const QStringList& fields() const { return m_fields; }
    qint64 position() const { return m_position; }

private:
    QVariantList currentRow() const;

    QSqlQuery m_query;
    QStringList m_fields;
    QHash<QString, int> m_index;
    QList<bool> m_mayBeDate; // an expression, or a date column
    QList<bool> m_isDecimal; // an engine's exact decimal arrives as text
    QVariantList m_row;
    QList<QVariantList> m_rows;
    bool m_buffered = false;
    qint64 m_position = 0;
};
