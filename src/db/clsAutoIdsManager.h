#pragma once

#include "db/TableManager.h"

// Table `採番`: the last number of each series.
struct clsAutoIds {
    QString ItemNm;    // 項目名
    QString LastValue; // 最終値, padded with zeros
    QString Digits;    // 桁
    QString Year;      // 年度, empty for a series that does not restart by year
};

class clsAutoIdsManager : public TableManager<clsAutoIds> {
public:
    clsAutoIdsManager();

    // Draws the next number of a series; empty when the series does not exist or the number could not be secured.
    // The draw holds the engine's write lock, so that two machines never get one number; inside a transaction of the
    // caller it is undone with it. A yearly series begins anew with a later year by the clock of this moment, which the
    // system date follows, or with any other year by a given system date.
    QString GetNewId(const QString& itemName);
};

extern clsAutoIdsManager gAutoIdsManager;
