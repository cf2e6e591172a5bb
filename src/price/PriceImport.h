#pragma once

#include "price/PriceTable.h"

#include <functional>

// Reads a year's file into a price table, which is bound to a price database.
class PriceFileReading {
public:
    PriceFileReading(PriceTable& table, Connection& prices, QString path)
        : m_table(table), m_prices(prices), m_path(std::move(path)) {}

    // Adds the rows of the file. A failure rises and ends it at `line`; the rows ahead of it stay.
    void run();

    // How many lines the file has that are not empty.
    qint64 countLines() const;
    // The line that was read last.
    int line() const { return m_line; }

    // Called for a line with another number of fields, which is then taken as far as it goes.
    std::function<void(int line)> onOtherForm = [](int) {};
    // Called after each row with the rows so far.
    std::function<void(qint64 done)> onRow = [](qint64) {};

private:
    PriceTable& m_table;
    Connection& m_prices;
    QString m_path;
    int m_line = 0;
};

// Fills a price table of a price database, which it is bound to, from the year's file. `ownRows` are those of a user,
// which the counts shown include. `progress` is called after each line with the rows so far and all of them.
//
// A line with another number of fields is told and then taken as far as it goes. A failure is logged with its line and
// told, and ends this file; the rows ahead of it stay.
void importPriceFile(PriceTable& table, Connection& prices, const QString& path, qint64 ownRows,
                     const std::function<void(qint64 done, qint64 all)>& progress);
