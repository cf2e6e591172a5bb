#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// Every table of the system, once, as data: creation on both engines, the catalogue and the table reference come from
// here.
namespace Schema {

// The codes of the catalogue.
enum TypeCode : int {
    Unknown = 0,
    SmallInteger = 2,
    Integer = 3,
    Double = 5,
    Currency = 6,
    Date = 7,
    Text = 202,
    LongText = 203,
};

struct Column {
    QString name;
    TypeCode type = Unknown;
    int size = 0; // characters of a text, else 0

    bool isText() const { return type == Text || type == LongText; }
    bool isNumber() const { return type != Unknown && type <= Currency; }
    bool isInteger() const { return type == SmallInteger || type == Integer; }
    bool isDate() const { return type == Date; }
};

struct Table {
    QString name;
    QString meaning; // what a row is, in Japanese, for the table reference
    QList<Column> columns;
    QStringList key;      // empty: the table has none
    bool autoKey = false; // the single key column is issued on insert
    QList<QStringList> indexes;

    const Column* column(const QString& columnName) const; // null when there is none; case-blind
};

const QList<Table>& tables();
// A table by its name (case-blind), also under its revision name with "_個別" behind; null when there is none.
const Table* table(const QString& name);
// The one spelling of a table or column name; a name that is not the schema's stays as it is.
QString spelling(const QString& name);

// The five price tables in the order in which they are always handled.
const QStringList& priceTables();

} // namespace Schema
