#include "operations/DatabaseCopy.h"

#include "base/AppError.h"
#include "base/Money.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "db/Connection.h"
#include "operations/DatabaseCreation.h"

#include <algorithm>
#include <optional>

namespace DatabaseCopy {

namespace {

using Progress = std::function<void(const QString&)>;

constexpr qint64 rowsPerLine = 20'000;

qint64 countRows(Connection& connection, const QString& table) {
    return connection.scalar(u"SELECT COUNT(*) FROM [%1]"_qs.arg(table)).toLongLong();
}

// Sums are rounded to the four decimals of an amount: the file engine keeps amounts as binary fractions.
QString sumOfMoney(Connection& connection, const QString& table) {
    Money sum;
    for (const Schema::Column& column : Schema::table(table)->columns) {
        if (column.type != Schema::Currency) continue;
        const QString text = connection.scalar(u"SELECT SUM([%1]) FROM [%2]"_qs.arg(column.name, table));
        if (!text.isEmpty()) sum += Money::parse(text);
    }
    return sum.toText();
}

void copyTable(Connection& from, Connection& to, const QString& table, const Progress& progress) {
    const qint64 all = countRows(from, table);
    to.createTable(*Schema::table(table), table);
    const auto tell = [&](qint64 rows) {
        if (progress) progress(u"%1: %2 / %3"_qs.arg(table, formatThousands(rows), formatThousands(all)));
    };
    to.copyRows(from, table, table, {}, [&](qint64 rows) {
        if (rows < all && rows % rowsPerLine == 0) tell(rows);
    });
    tell(all);
}

void lock(Connection& source, const QStringList& tables) {
    for (const QString& table : tables) source.lockForWriting(table);
}

void requireAgreement(const QList<Comparison>& comparisons) {
    if (std::all_of(comparisons.begin(), comparisons.end(), [](const Comparison& line) { return line.agrees(); }))
        return;
    throw AppError(u"移行元と移行先の内容が一致しません。移行を取り消しました。\n"_qs + report(comparisons).join(u'\n'),
                   u"DatabaseCopy"_qs);
}

// A source that others leave alone, or one state of it.
struct Begun {
    Begun(Connection& source, Others others) {
        if (others == Others::Wait)
            transaction.emplace(source);
        else
            reading.emplace(source);
    }
    std::optional<Transaction> transaction;
    std::optional<Reading> reading;
};

// The code page's bytes are the columns of a terminal: one for Latin, two for kanji.
QString padded(const QString& text, int width) {
    return text + QString(qMax(0, width - Text::cp932Length(text)), u' ');
}

QString line(const QString& table, const QStringList& figures, const QString& mark) {
    QString text = padded(table, 24);
    for (const QString& figure : figures) text += QString(qMax(1, 18 - Text::cp932Length(figure)), u' ') + figure;
    return text + mark;
}

QString line(const Comparison& comparison) {
    return line(comparison.table,
                {formatThousands(comparison.from.rows), formatThousands(comparison.to.rows), comparison.from.yen,
                 comparison.to.yen},
                comparison.agrees() ? QString() : u"  不一致"_qs);
}

} // namespace

QStringList tablesOf(Connection& source) {
    QStringList names;
    for (const Schema::Table& table : Schema::tables()) names << table.name;
    for (const QString& table : Schema::priceTables()) {
        const QString ownRows = table + u"_個別"_qs;
        if (source.tableExists(ownRows)) names << ownRows;
    }
    return names;
}

Count countOf(Connection& connection, const QString& table) {
    return {countRows(connection, table), sumOfMoney(connection, table)};
}

QList<Comparison> compare(Connection& from, Connection& to, const QStringList& tables) {
    QList<Comparison> result;
    for (const QString& table : tables) result << Comparison{table, countOf(from, table), countOf(to, table)};
    return result;
}

QStringList report(const QList<Comparison>& comparisons) {
    QStringList lines{
        line(u"表"_qs, {u"移行元 行数"_qs, u"移行先 行数"_qs, u"移行元 金額計"_qs, u"移行先 金額計"_qs}, {})};
    for (const Comparison& comparison : comparisons) lines << line(comparison);
    return lines;
}

QStringList countReport(const QList<Comparison>& comparisons) {
    QStringList lines{line(u"表"_qs, {u"行数"_qs, u"金額計"_qs}, {})};
    for (const Comparison& comparison : comparisons)
        lines << line(comparison.table, {formatThousands(comparison.from.rows), comparison.from.yen}, {});
    return lines;
}

QList<Comparison> copy(const ConnectionSettings& from, const ConnectionSettings& to, Others others,
                       const Progress& progress) {
    const auto tell = [&progress](const QString& text) {
        if (progress) progress(text);
    };
    Connection source(from);
    source.open();
    const QStringList tables = tablesOf(source);
    tell(u"移行元: "_qs + from.description());
    tell(u"移行先: "_qs + to.description());
    const Begun begun(source, others); // never committed: nothing is written there
    if (others == Others::Wait) lock(source, tables);
    QList<Comparison> comparisons;
    DatabaseCreation::createWith(to, [&](Connection& target) {
        for (const QString& table : tables) copyTable(source, target, table, progress);
        target.continueAutoKeys(source);
        tell(u"内容を確かめています。"_qs);
        comparisons = compare(source, target, tables);
        requireAgreement(comparisons);
    });
    return comparisons;
}

} // namespace DatabaseCopy
