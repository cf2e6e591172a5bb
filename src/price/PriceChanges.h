#pragma once

#include <QList>
#include <QString>

#include <functional>

class Connection;

// A price, or an amount that follows from prices, in two price lists; whole yen as text, empty where there is none.
struct PriceMove {
    QString before, after;

    bool isMove() const;
    // What was added, below 0 what was taken off, and the same in percent with one decimal; empty where a side is
    // empty, the percentage also where nothing was there before.
    QString difference() const;
    QString percent() const;
};

// Prices of the age tiers that move alike, told in one: "大人・中人", or 全年齢.
struct TierMove {
    QString tiers;
    PriceMove move;
};
// Of the prices of 大人, 中人 and 小人 those that move. A single price has no tier.
QList<TierMove> movesOf(const QStringList& before, const QStringList& after);

// A row of the price tables that is in one of two lists alone, or in both with another price.
struct PriceChange {
    enum Kind { New, Gone, Changed };

    QString table;
    Kind kind = Changed;
    QString what; // the texts by which the look-up finds the row
    QString tiers;
    PriceMove move;
    bool isFurther = false; // the same row as the one above, for other tiers

    QString kindName() const; // 新規, 廃止, 変更
};

// What makes another price list of one, table by table: rows that are gone or changed in the order of the first list,
// then the new ones in the order of the second. A row is the same when all texts by which it is looked up are: IDs are
// given anew from year to year. Of several such rows the first answers to the first, the second to the second. Invalid
// rows count as the look-up counts them: like all others.
//
// `tell` is called after each row with the rows read so far of the table; false gives up.
QList<PriceChange> priceChanges(Connection& before, Connection& after,
                                const std::function<bool(const QString& table, qint64 rows)>& tell);

// The word of the screens for a price table: 種目, 基本価格, 加算価格, 製作要素, 完成部品.
QString priceTableWord(const QString& table);
