#pragma once

#include "base/AppError.h"
#include "base/Text.h"
#include "base/clsLogger.h"
#include "db/KeyedTable.h"

#include <QList>
#include <QString>

#include <utility>

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

// What the managers of one table share: rows read into records by a table of member and column, lists, conditions and
// orders by members, and reading, writing and deleting by the key. All members are text; NULL reads as the empty text.
template <class Record> class TableManager : public KeyedTable {
public:
    using Fields = QList<Field<Record>>;
    using Member = QString Record::*;

    TableManager(QString table, Fields fields) : KeyedTable(std::move(table)), m_fields(std::move(fields)) {}

    // Appends a record for each row, in row order. `where` and `sort` are clauses without their keyword; empty means
    // none.
    void GetList(QList<Record>& result, const SqlTerm& where = {}, const SqlTerm& sort = {}) {
        readList(result, SqlSelect(u"SELECT * FROM [%1]"_qs.arg(table()), where, sort));
    }

    // The rows of an owner, who is named by the first key columns, in the order of their key.
    QList<Record> rowsOf(const QStringList& owner) {
        QList<Record> rows;
        TableManager::GetList(rows, keyed(owner), byKey());
        return rows;
    }

    const Fields& fields() const { return m_fields; }

    // All that a row holds, its stamps included, as one text: equal for equal rows alone.
    QString rowText(const Record& record) const {
        QStringList values;
        for (const Field<Record>& field : m_fields) values << record.*field.member;
        return values.join(u'\x1F');
    }
    QString rowTexts(const QList<Record>& rows) const {
        QStringList texts;
        for (const Record& row : rows) texts << rowText(row);
        return texts.join(u'\x1E');
    }

    // The columns of members, for statements of their own, conditions and orders.
    SqlColumn column(Member member) const {
        for (const Field<Record>& field : m_fields)
            if (field.member == member) return {table(), field.column};
        throw AppError(u"%1 にない項目です。"_qs.arg(table()), u"TableManager"_qs);
    }
    Fields fieldsOf(const QList<Member>& members) const {
        Fields fields;
        for (const Member member : members) fields << Field<Record>{member, column(member).name};
        return fields;
    }
    SqlTerm equal(Member member, const QString& value) const { return SqlEqual(column(member), value); }
    // That all of the members begin with their text; an empty one asks for nothing.
    SqlTerm startsWith(const QList<std::pair<Member, QString>>& texts) const {
        QList<SqlTerm> terms;
        for (const auto& [member, text] : texts) terms << SqlStartsWith(column(member), text);
        return SqlAllOf(terms);
    }
    SqlTerm sorted(const QList<Member>& members, bool upwards = true) const {
        QList<SqlColumn> columns;
        for (const Member member : members) columns << column(member);
        return SqlSorted(columns, upwards);
    }

protected:
    // The row of a key; false when there is none.
    bool get(const QStringList& key, Record& record) { return readFirst(record, keyed(key)); }

    // Inserts the record or writes it over the row of its key.
    void save(const Record& record) {
        if (exists(keyOf(record)))
            update(record);
        else
            insert(record);
    }

    // Puts rows in place of all that an owner has.
    void replace(const QStringList& owner, const QList<Record>& rows) {
        remove(owner);
        for (const Record& row : rows) insert(row);
    }

    void insert(const Record& record) { insert(record, newColumns()); }
    void insert(const Record& record, const QStringList& columns) {
        addData(record, columns);
        execute(sql().GetSqlForInsert());
    }

    // Writes columns of the row of the record's key, or of the given one.
    void update(const Record& record) { update(record, dataColumns()); }
    void update(const Record& record, const QStringList& columns) { update(record, columns, keyOf(record)); }
    void update(const Record& record, const QStringList& columns, const QStringList& keyValues) {
        addData(record, columns);
        for (qsizetype i = 0; i < keyValues.size(); ++i) sql().AddKey(key().at(i), keyValues.at(i));
        execute(sql().GetSqlForUpdate());
    }

    // What a new row is written with: all columns in member order but for those left out, the stamps, which are set by
    // themselves, and a key that the engine issues.
    QStringList newColumns(const QStringList& leftOut = {}) const {
        return columnsWithout(leftOut + stamps() + (Schema::table(table())->autoKey ? key() : QStringList()));
    }
    // What a stored row is written with: likewise, and never its key.
    QStringList dataColumns(const QStringList& leftOut = {}) const {
        return columnsWithout(leftOut + stamps() + key());
    }
    QStringList columnsWithout(const QStringList& leftOut) const {
        QStringList columns;
        for (const Field<Record>& field : m_fields)
            if (!leftOut.contains(field.column)) columns << field.column;
        return columns;
    }

    QStringList keyOf(const Record& record) const {
        QStringList values;
        for (const QString& column : key()) values << valueOf(record, column);
        return values;
    }

    // The member that holds a column; null when the record lacks it.
    Member memberOf(const QString& column) const {
        for (const Field<Record>& field : m_fields)
            if (field.column == column) return field.member;
        return nullptr;
    }

    void readList(QList<Record>& result, const QString& sql) {
        Recordset rows = query(sql);
        const RecordReader<Record> reader(rows, m_fields);
        while (rows.next()) result << reader.read();
    }

    // A list whose order is not optional: an empty one is an SQL failure.
    void readOrdered(QList<Record>& result, const SqlTerm& where, const SqlTerm& sort) {
        readList(result, SqlSelect(u"SELECT * FROM [%1]"_qs.arg(table()), where) + u" ORDER BY "_qs + sort.text());
    }

    // The first row of the table under a filter; false when there is none.
    bool readFirst(Record& record, const SqlTerm& where) {
        return takeFirst(record, SqlSelect(u"SELECT * FROM [%1]"_qs.arg(table()), where));
    }

    // The first row that agrees with a record in these members; an empty one asks for NULL.
    bool findLike(const Record& record, const QList<Member>& members, Record& found) {
        sql().RemoveAll();
        for (const Member member : members) sql().AddKey(column(member).name, record.*member);
        return takeFirst(found, sql().GetSqlForSelect());
    }

private:
    static const QStringList& stamps() {
        static const QStringList columns{u"登録日"_qs, u"更新日"_qs};
        return columns;
    }

    QString valueOf(const Record& record, const QString& column) const {
        const Member member = memberOf(column);
        return member ? record.*member : QString();
    }

    void addData(const Record& record, const QStringList& columns) {
        sql().RemoveAll();
        for (const QString& column : columns) sql().AddData(column, valueOf(record, column));
    }

    bool takeFirst(Record& record, const QString& sql) {
        Recordset rows = query(sql);
        if (!rows.next()) return false;
        record = RecordReader<Record>(rows, m_fields).read();
        return true;
    }

    Fields m_fields;
};
