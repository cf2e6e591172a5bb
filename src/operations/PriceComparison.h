#pragma once

#include "price/PriceChanges.h"

#include <QStringList>

#include <functional>
#include <optional>

class Connection;

// A price list that can be laid beside another: that in force, a kept year, or the files of a new one.
struct PriceList {
    enum Kind { InForce, KeptYear, Files } kind = InForce;
    QString from = {}; // the year, or the folder of the files

    bool operator==(const PriceList&) const = default;
};

// What another price list makes of a master estimate or of an order.
struct AmountMove {
    QString code = {}; // 製品コード or 見積番号
    QString name = {}; // 製品名称, or customer and 見積名称
    QString year = {}; // the price year of what is stored
    QString tiers = {};
    PriceMove move = {};    // whole yen; of a master estimate without tax, of an order with it
    bool isFurther = false; // the same as the one above, for other tiers
    QString note = {};      // lines without a price, or what kept it from being computed
};

struct PriceComparison {
    QList<PriceChange> prices;
    QList<AmountMove> masters; // by 製品コード
    QList<AmountMove> orders;  // those that are not yet delivered, by 見積番号
    QStringList faults;        // where the files could not be read to their end, with file and line
};

// Lays two price lists side by side: the prices, and the amounts of the stored master estimates and of the orders that
// are not yet delivered, computed as a revision and 価格更新 compute them. The amounts of the list in force are those
// stored. Nothing is written to the main database or to a kept year; files of a new year are read into a price database
// that goes with the comparison, to which a user's own rows are added as a revision adds them.
//
// `tell` is called now and then and lets the window answer; false gives up, and nothing comes of it. What cannot be
// read at all rises, and names the file of a kept year.
using TellComparison = std::function<bool(const QString& part, qint64 done, qint64 all)>;
std::optional<PriceComparison> comparePrices(Connection& main, const PriceList& before, const PriceList& after,
                                             const TellComparison& tell);
