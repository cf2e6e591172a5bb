#pragma once

#include "price/clsKDBManager.h"

#include <QString>
#include <QStringList>

// Replaces the price tables of the main database by those of another year: by the files of a new one, or by what was
// kept of one that was in force before. The year in force is kept under its name first; a user's own rows go over into
// a new year, and stay behind when a kept one comes back. The choices of the make element grid and the prices of the
// master estimates follow.
//
// One transaction of the main database: it holds the old year or the new one. The price databases take no part in it;
// what a broken-off run leaves in them is written anew by the next one.
class PriceRevision {
public:
    struct Request {
        enum Source { Files, KeptYear } source;
        QString from; // the folder of the files, or the kept year
        QString year; // of the files, four digits
    };

    // What has its bar on the screen: the price tables in their order, the choices, the master estimates.
    enum Part { Item, Base, Add, Elmt, Parts, Selection, Masters };
    using Tell = std::function<void(Part part, qint64 count, qint64 all)>;

    // `pause` lets the window answer.
    PriceRevision(Connection& main, Tell tell, std::function<void()> pause);

    // Whether the files, or the kept year, are there; false when something is missing, which was told.
    static bool isThere(const Request& request);
    // The same, and whether the files have a year.
    static bool isPossible(const Request& request);
    // False when it was given up, which was told. Failures rise, and leave the main database as it was.
    bool run(const Request& request);

    // The folder of the price databases, the file of a year, and the years in the folder, in order.
    static QString folder();
    static QString fileName(const QString& year);
    static QStringList keptYears();
    // The files of a folder as the profile names them, in the order of the price tables.
    static QStringList filesIn(const QString& folder);

private:
    bool mayReplaceYear(const Request& request);
    void keepYearInForce();
    void provide(const QString& name);
    bool makeYear(const Request& request);
    void importFiles(const Request& request);
    void takeYear(const QString& year);
    void tellCounts();
    void followPrices(const QString& year);

    Connection& m_main;
    clsKDBManager m_copies;
    Tell m_tell;
    std::function<void()> m_pause;
    bool m_complete = true; // every line of the master estimates has one price
};
