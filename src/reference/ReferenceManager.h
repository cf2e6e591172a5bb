#pragma once

#include "db/TableManager.h"
#include "reference/ReferenceRecords.h"

// How a list is sorted behind its last key.
enum class Direction { Descending = 1, Ascending = 2 };

// What a save writes: the row, or only its place in the order.
enum class SaveMode { Row = 1, OrderOnly = 2 };

// The time as order text, "yyyymmddhhnnss".
QString sortTextNow();

// The order in which a list was brought by hand.
inline const QString bySeq = u"[順番]"_qs;

// The pattern of the code tables: lists with rows in use ahead of retired ones, saving with the key fetched back. The
// columns 順番 and 有効Flg, a code (its column has the table's name and コード) and a name (that of the table) are
// known by their names; not every table has them.
template <class Record> class ReferenceManager : public TableManager<Record> {
public:
    using typename TableManager<Record>::Member;
    using TableManager<Record>::TableManager;
    using TableManager<Record>::connection;
    virtual ~ReferenceManager() = default;

    // By `bySeq` the rows in use come first; the direction binds to the given order alone.
    virtual void GetList(QList<Record>& result, const SqlTerm& where, const SqlTerm& sort,
                         Direction direction = Direction::Ascending) {
        this->readList(result,
                       SqlSelect(u"SELECT * FROM [%1]"_qs.arg(this->table()), where, directed(sort, direction)));
    }

    // False when there is no such number.
    bool GetData(const QString& number, Record& record) { return this->get({number}, record); }

    // A new row gets its number, and its place in the order when it has none.
    virtual void SaveData(Record& record, SaveMode mode = SaveMode::Row) {
        const bool isNew = mode == SaveMode::Row && blank(record.*number());
        if (const Member seq = this->memberOf(u"順番"_qs);
            seq && blank(record.*seq) && (isNew || mode == SaveMode::OrderOnly))
            record.*seq = sortTextNow();
        if (isNew)
            insertNew(record);
        else
            this->update(record, mode == SaveMode::OrderOnly ? QStringList{u"順番"_qs} : this->dataColumns());
    }

    void DeleteData(const QString& number) { this->remove({number}); }

    // Whether a column of another table names the number of a row.
    bool isNamedIn(const SqlColumn& column, const QString& number) {
        return !this->scalar(
                        SqlSelect(u"SELECT [%1] FROM [%2]"_qs.arg(column.name, column.table), SqlEqual(column, number)))
                    .isEmpty();
    }

    // The rows that are not retired.
    SqlTerm inUse() const { return this->equal(flag(), u"0"_qs); }

protected:
    static bool blank(const QString& text) { return text.trimmed().isEmpty(); }
    static QString orZero(const QString& number) { return number.isEmpty() ? u"0"_qs : number; }

    Member number() const { return this->memberOf(this->key().first()); }
    Member code() const { return this->memberOf(this->table() + u"コード"_qs); }
    Member name() const { return this->memberOf(this->table()); }
    Member flag() const { return this->memberOf(u"有効Flg"_qs); }

    SqlTerm directed(const SqlTerm& sort, Direction direction) const {
        const QString ahead = sort == bySeq && flag() ? u"[有効Flg],"_qs : QString();
        return sort.wrapped(ahead, direction == Direction::Descending ? u" DESC ;"_qs : u" ASC ;"_qs);
    }

    // Inserts and finds the issued number by the row's code.
    virtual void insertNew(Record& record) {
        this->insert(record);
        record.*number() = this->largestNumber(this->equal(code(), record.*code()));
    }
};
