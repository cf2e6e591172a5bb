#pragma once

#include "estimates/EstimateDraft.h"

#include <QWidget>

#include <array>
#include <memory>

namespace Ui {
class CsEstimatePrintPage;
}

class DateField;
class NumberField;
class QPushButton;
class QLabel;

// What is printed, what is claimed of whom and what was received.
class CsEstimatePrintPage : public QWidget {
    Q_OBJECT

public:
    // The tick columns of the print grid.
    enum Document { Estimate = 1, Breakdown, Detail, Invoice, Receipt };

    explicit CsEstimatePrintPage(QWidget* parent = nullptr);
    ~CsEstimatePrintPage() override;

    // Dates and amounts of the claims, the print dates, and no tick.
    void showOrder(const EstimateDraft& draft);
    // Writes dates and amounts into the rows of the insurance grid, and the print dates into the estimate.
    void collect(EstimateDraft& draft) const;
    // 法別 and payer of each row, from the insurance grid.
    void showInsurances(const QList<ClaimRow>& rows);
    // The total that the differences are taken from.
    void showTotal(qint32 total);

    // The rows (from 1) that are ticked for a document.
    QList<int> ticked(Document document) const;
    bool hasClaims() const;
    qint32 askDifference() const;
    NumberField* askPrice(int row) const { return m_rows.at(row).askPrice; }
    NumberField* payPrice(int row) const { return m_rows.at(row).payPrice; }
    DateField* receiptDate(int row) const { return m_rows.at(row).payPrtDate; }
    bool hasReceivedMark() const;

    const std::unique_ptr<Ui::CsEstimatePrintPage> ui;

signals:
    void changed();

private:
    struct ClaimFields {
        QLabel* claim;
        NumberField* askPrice;
        QPushButton* calcPrice;
        DateField* askPrtDate;
        QPushButton* movePrice;
        NumberField* payPrice;
        DateField* payDate;
        DateField* payPrtDate;
    };

    void showSums();
    void calcPrice(int row);

    std::array<ClaimFields, claimRowCount> m_rows;
    qint32 m_total = 0;
};
