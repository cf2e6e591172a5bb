#pragma once

#include "estimates/EstimateDraft.h"
#include "reference/ReferenceRecords.h"

#include <QObject>

#include <functional>

class Grid;

// The claims of an estimate: 法別 and the payer of each claim, at most 4.
class ClaimGrid : public QObject {
    Q_OBJECT

public:
    enum Column { InsNo, InsNm, ClaimNo, ClaimCd, ClaimNm };

    explicit ClaimGrid(Grid* grid);

    // The customer's name and the insured's name, as payers of what the law does not pay.
    std::function<QString()> customerName;
    std::function<QString()> insuredName;

    void showRows(const QList<ClaimRow>& rows);
    // All rows in their places, empty ones included; without dates and amounts.
    QList<ClaimRow> rows() const;

signals:
    void changed();

private:
    bool offerChoices(int row, int column);
    void takeEdit(int row, int column);
    void takeLaw(int row);
    void takeCode(int row);
    void takeName(int row);
    bool isPrivate(int row) const;
    bool isNew(int row) const;
    QList<clsClaim> payersOf(int row) const;
    void setPayer(int row, const clsClaim& claim);

    Grid* m_grid;
};
