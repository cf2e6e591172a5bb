#include "db/Schema.h"

#include "base/AppError.h"

#include <QFile>
#include <QHash>

static void initResources() { Q_INIT_RESOURCE(db); }

namespace Schema {

namespace {

TypeCode typeOf(const QString& word) {
    static const QHash<QString, TypeCode> words{{u"text"_qs, Text},     {u"memo"_qs, LongText},  {u"int"_qs, Integer},
                                                {u"number"_qs, Double}, {u"money"_qs, Currency}, {u"date"_qs, Date}};
    return words.value(word, Unknown);
}

void readTableLine(Table& table, QStringList words) {
    const QString first = words.takeFirst();
    if (first == u"key") {
        table.autoKey = words.last() == u"auto";
        if (table.autoKey) words.removeLast();
        table.key = words;
    } else if (first == u"index") {
        table.indexes << words;
    } else {
        table.columns << Column{first, typeOf(words.value(0)), words.value(1).toInt()};
    }
}

QList<Table> readTables() {
    initResources();
    QFile file(u":/db/schema.txt"_qs);
    if (!file.open(QIODevice::ReadOnly)) throw AppError(u"表の定義が読めません。"_qs, u"Schema"_qs);
    QList<Table> result;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        const QStringList words = line.split(u' ', Qt::SkipEmptyParts);
        if (words.isEmpty() || line.startsWith(u'#')) continue;
        if (line.startsWith(u' '))
            readTableLine(result.last(), words);
        else
            result << Table{words.value(0), words.value(1), {}, {}, false, {}};
    }
    return result;
}

QHash<QString, QString> readSpellings() {
    QHash<QString, QString> spellings;
    for (const Table& table : tables()) {
        spellings.insert(table.name.toLower(), table.name);
        for (const Column& column : table.columns) spellings.insert(column.name.toLower(), column.name);
    }
    return spellings;
}

} // namespace

const Column* Table::column(const QString& columnName) const {
    for (const Column& column : columns)
        if (column.name.compare(columnName, Qt::CaseInsensitive) == 0) return &column;
    return nullptr;
}

const QList<Table>& tables() {
    static const QList<Table> list = readTables();
    return list;
}

const Table* table(const QString& name) {
    static const QString ownRows = u"_個別"_qs;
    const QString plain = name.endsWith(ownRows) ? name.chopped(ownRows.size()) : name;
    for (const Table& table : tables())
        if (table.name.compare(plain, Qt::CaseInsensitive) == 0) return &table;
    return nullptr;
}

QString spelling(const QString& name) {
    static const QHash<QString, QString> spellings = readSpellings();
    return spellings.value(name.toLower(), name);
}

const QStringList& priceTables() {
    static const QStringList names{u"価格種目"_qs, u"価格基本"_qs, u"価格加算"_qs, u"価格要素"_qs, u"価格部品"_qs};
    return names;
}

} // namespace Schema
