#pragma once

#include "base/Money.h"
#include "estimates/EstimateRecords.h"

#include <QHash>
#include <QList>

#include <array>
#include <optional>

// The box of an invoice that tells who pays how much of the estimate.

// The names of the insurance laws by 法別No.
using InsNames = QHash<QString, QString>;

// Places 1 to 3 are insurers in the order of the claims, place 4 is 自己負担. An unused place has no amount.
struct ClaimBox {
    struct Place {
        QString name;
        std::optional<Money> amount;
    };
    std::array<Place, 4> places;
};

// `insurersOff`: the installation shows no insurers (profile Ins/InsDisp), except for the laws 13 and 11 and, beside
// them, 99. A fourth insurer is dropped.
ClaimBox claimBox(const QList<clsCsEstAsk>& claims, const InsNames& names, bool insurersOff);

// What stands behind the estimate number of a receipt when the estimate was paid in two parts or more: "-" and the
// law's name, "-自費" for 自己負担; else empty.
QString receiptNumberSuffix(const clsCsEstAsk& claim, const QList<clsCsEstAsk>& claims, const InsNames& names);
