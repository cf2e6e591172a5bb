#pragma once

#include "base/Text.h"
#include "base/clsLogger.h"
#include "db/Connection.h"
#include "db/clsSQLMaker.h"

#include <QList>
#include <QString>

// A member of a record class and the column that it holds.
template <class Record> struct Field {
    QString Record::*member;
    QString column;
};

// Reads the rows of one query into records. Where the columns stand is found once, ahead of the first row.
template <class Record> class RecordReader {
public:
    RecordReader(const Recordset& rows, const QList<Field<Record>>& fields) : m_rows(rows) {
        for (const Field<Record>& field : fields) m_places << Place{field.member, rows.indexOf(field.column)};
    }

    Record read() const {
        Record record;
        for (const Place& place : m_places) record.*place.member = m_rows.value(place.index);
        return record;
    }

private:
    struct Place {
        QString Record::*member;
        int index;
    };

    const Recordset& m_rows;
    QList<Place> m_places;
};

// The connection behind a manager's pointer; raises an error before `Prepare` and after the connection closed.
Connection& opened(Connection* connection);

// What the managers of one table share: rows read into records by a table of member and column, lists, saving by
// columns in order, deleting by key. All members are text; NULL reads as the empty text. Failures rise as AppError.
template <class Record> class TableManager {
public:
    using Fields = QList<Field<Record>>;

    TableManager(QString table, Fields fields) : m_table(std::move(table)), m_fields(std::move(fields)) {}

    // Keeps the connection and reads the table's columns.
    void Prepare(Connection& connection) {
        m_connection = &connection;
        m_maker.Prepare(connection, m_table);
    }

    // Appends a record for each row, in row order. `where` and `order` are clauses without their keyword; empty means
    // none.
    void GetList(QList<Record>& result, const QString& where = {}, const QString& order = {}) {
        QString sql = u"SELECT * FROM [%1]"_qs.arg(m_table);
        if (const QString filter = Text::rightTrimmed(where); !filter.isEmpty()) sql += u" WHERE "_qs + filter;
        if (const QString sort = Text::rightTrimmed(order); !sort.isEmpty()) sql += u" ORDER BY "_qs + sort;
        readList(result, sql);
    }

    // Forgets the connection, which is about to close.
    void Release() { m_connection = nullptr; }

    const QString& table() const { return m_table; }
    const Fields& fields() const { return m_fields; }

protected:
    Connection& connection() const { return opened(m_connection); }
    clsSQLMaker& maker() { return m_maker; }

    void readList(QList<Record>& result, const QString& sql) {
        WriteSqlLog(sql);
        Recordset rows = connection().query(sql);
        const RecordReader<Record> reader(rows, m_fields);
        while (rows.next()) result << reader.read();
    }

    // The first row of the table under a filter; false when there is none.
    bool readFirst(Record& record, const QString& where) {
        const QString sql = u"SELECT * FROM [%1] WHERE %2"_qs.arg(m_table, where);
        WriteSqlLog(sql);
        Recordset rows = connection().query(sql);
        if (!rows.next()) return false;
        record = RecordReader<Record>(rows, m_fields).read();
        return true;
    }

    void addData(const Record& record, const QStringList& columns) {
        for (const QString& column : columns) m_maker.AddData(column, valueOf(record, column));
    }

    QString valueOf(const Record& record, const QString& column) const {
        for (const Field<Record>& field : m_fields)
            if (field.column == column) return record.*field.member;
        return {};
    }

    // All columns of the record in member order, but for those left out.
    QStringList columnsWithout(const QStringList& leftOut) const {
        QStringList columns;
        for (const Field<Record>& field : m_fields)
            if (!leftOut.contains(field.column)) columns << field.column;
        return columns;
    }

    void insert(const Record& record, const QStringList& columns) {
        m_maker.RemoveAll();
        addData(record, columns);
        execute(m_maker.GetSqlForInsert());
    }

    void update(const Record& record, const QStringList& columns, const QStringList& keys) {
        m_maker.RemoveAll();
        addData(record, columns);
        for (const QString& key : keys) m_maker.AddKey(key, valueOf(record, key));
        execute(m_maker.GetSqlForUpdate());
    }

    void execute(const QString& sql) {
        WriteSqlLog(sql);
        connection().execute(sql);
    }

private:
    QString m_table;
    Fields m_fields;
    Connection* m_connection = nullptr;
    clsSQLMaker m_maker;
};

// A value in the text of a filter: a number bare (a text that is none raises a type error), a text quoted.
QString sqlNumber(const QString& value);
QString sqlText(const QString& value);
