#include "db/TableReference.h"

#include "base/Text.h"
#include "db/Schema.h"

namespace {

QString typeName(const Schema::Column& column) {
    switch (column.type) {
    case Schema::Text:
        return u"text %1"_qs.arg(column.size);
    case Schema::LongText:
        return u"memo"_qs;
    case Schema::SmallInteger:
    case Schema::Integer:
        return u"int"_qs;
    case Schema::Double:
        return u"number"_qs;
    case Schema::Currency:
        return u"money"_qs;
    case Schema::Date:
        return u"date"_qs;
    case Schema::Unknown:
        break;
    }
    return u"?"_qs;
}

QString keyMark(const Schema::Table& table, const Schema::Column& column) {
    const qsizetype place = table.key.indexOf(column.name);
    if (place < 0) return {};
    return table.autoKey ? u"issued"_qs : QString::number(place + 1);
}

QString section(const Schema::Table& table) {
    QString text = u"\n## %1\n\n%2。\n\n| Column | Type | Key |\n|---|---|---|\n"_qs.arg(table.name, table.meaning);
    for (const Schema::Column& column : table.columns)
        text += u"| %1 | %2 | %3 |\n"_qs.arg(column.name, typeName(column), keyMark(table, column));
    QStringList indexes;
    for (const QStringList& index : table.indexes) indexes << index.join(u" + "_qs);
    if (!indexes.isEmpty()) text += u"\nIndexes: %1\n"_qs.arg(indexes.join(u", "_qs));
    return text;
}

} // namespace

QString tableReference() {
    QString text = uR"(# Tables

Written by `halvane --table-reference` from `src/db/schema.txt`; change that file and write this page anew.

Sizes of a text are in characters. A number under "Key" is the column's place in the primary key; an issued key is given
by the database when the row is inserted. The types on the two engines:

| Here | SQLite | PostgreSQL |
|---|---|---|
| text, memo | TEXT COLLATE NOCASE | citext |
| int | INTEGER | integer |
| number (with decimals) | REAL | double precision |
| money (yen) | REAL | numeric(19,4) |
| date (with or without a time) | TEXT, `2005/03/01` or `2005/03/01 09:05:00` | timestamp(0) |
)"_qs;
    for (const Schema::Table& table : Schema::tables()) text += section(table);
    return text;
}
