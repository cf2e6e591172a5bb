#pragma once

#include "db/TableManager.h"
#include "reference/ReferenceRecords.h"

// How a list is sorted behind its last key.
enum class Direction { Descending = 1, Ascending = 2 };

// What a save writes: the row, or only its place in the order.
enum class SaveMode { Row = 1, OrderOnly = 2 };

// The time as order text, "yyyymmddhhnnss".
QString orderTextNow();

// The members that the shared operations need, named once for each record class.
template <class Record> struct ReferenceKey {
    QString Record::*number;
    QString numberColumn;
    QString Record::*name; // what finds the number again after an insert: the code where there is one
    QString nameColumn;
    QString Record::*seq = nullptr;
    bool flag = true; // the table has 有効Flg
};

// The pattern of the code tables: lists with rows in use ahead of retired ones, saving with the key fetched back.
template <class Record> class ReferenceManager : public TableManager<Record> {
public:
    ReferenceManager(QString table, typename TableManager<Record>::Fields fields, ReferenceKey<Record> key)
        : TableManager<Record>(std::move(table), std::move(fields)), m_key(std::move(key)) {}

    virtual ~ReferenceManager() = default;

    // By "[順番]" the rows in use come first; the direction binds to the given order alone.
    virtual void GetList(QList<Record>& result, const QString& where, const QString& order,
                         Direction direction = Direction::Ascending) {
        QString sql = u"SELECT * FROM [%1]"_qs.arg(this->table());
        if (!where.isEmpty()) sql += u" WHERE "_qs + where;
        this->readList(result, sql + orderClause(order, direction));
    }

    // False when there is no such number.
    bool GetData(const QString& number, Record& record) {
        return this->readFirst(record, u"[%1] = "_qs.arg(m_key.numberColumn) + sqlNumber(number));
    }

    // A new row gets its number, and its place in the order when it has none.
    virtual void SaveData(Record& record, SaveMode mode = SaveMode::Row) {
        const bool isNew = mode == SaveMode::Row && blank(record.*m_key.number);
        if (m_key.seq && blank(record.*m_key.seq) && (isNew || mode == SaveMode::OrderOnly))
            record.*m_key.seq = orderTextNow();
        if (mode == SaveMode::OrderOnly) {
            this->update(record, {u"順番"_qs}, {m_key.numberColumn});
            return;
        }
        if (!isNew) {
            this->update(record, dataColumns(), {m_key.numberColumn});
            return;
        }
        insertNew(record);
    }

    void DeleteData(const QString& number) {
        this->execute(u"DELETE FROM [%1] WHERE [%2] = "_qs.arg(this->table(), m_key.numberColumn) + sqlNumber(number));
    }

protected:
    static bool blank(const QString& text) { return text.trimmed().isEmpty(); }

    QString orderClause(const QString& order, Direction direction) const {
        if (order.isEmpty()) return {};
        const QString byFlag = order == u"[順番]" && m_key.flag ? u"[有効Flg],"_qs : QString();
        return u" ORDER BY "_qs + byFlag + order + (direction == Direction::Descending ? u" DESC ;"_qs : u" ASC ;"_qs);
    }

    QStringList dataColumns() const { return this->columnsWithout({m_key.numberColumn}); }

    // Inserts and finds the issued number by the row's unique text.
    virtual void insertNew(Record& record) {
        this->insert(record, dataColumns());
        record.*m_key.number = numberOf(record.*m_key.name);
    }

    // The highest number of a row with this text; empty when there is none.
    QString numberOf(const QString& name) {
        return this->connection().scalar(u"SELECT [%1] FROM [%2] WHERE [%3] = "_qs.arg(
                                             m_key.numberColumn, this->table(), m_key.nameColumn) +
                                         sqlText(Text::rightTrimmed(name)) + u" ORDER BY [%1] DESC"_qs.arg(m_key.numberColumn));
    }

    // The number of the row with this code, and name if given; "0" when there is none.
    QString existing(const QString& codeColumn, const QString& code, const QString& nameColumn, const QString& name) {
        QString sql = u"SELECT [%1] FROM [%2]  WHERE [%3] = "_qs.arg(m_key.numberColumn, this->table(), codeColumn) +
                      sqlText(Text::rightTrimmed(code));
        if (!name.isEmpty()) sql += u" AND [%1] = "_qs.arg(nameColumn) + sqlText(Text::rightTrimmed(name));
        const QString number = this->connection().scalar(sql);
        return number.isEmpty() ? u"0"_qs : number;
    }

    const ReferenceKey<Record>& key() const { return m_key; }

private:
    ReferenceKey<Record> m_key;
};
