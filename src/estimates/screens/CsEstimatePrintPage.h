#pragma once

#include "estimates/EstimateDraft.h"
#include "estimates/screens/EstimatePrinting.h"

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
    void showEstimate(const EstimateDraft& draft);
    void showOpinionDates(const QString& casting, const QString& delivery);
    // Writes dates and amounts into the rows of the insurance grid, and the print dates into the estimate.
    void collect(EstimateDraft& draft) const;
    // 法別 and payer of each row, from the insurance grid.
    void showClaims(const QList<ClaimRow>& rows);
    // The amounts, from whose total the differences are taken.
    void showAmounts(const EstimateAmounts& amounts);
    // Where the operator begins.
    void enter();

    QList<EstimatePrinting::TickedRow> ticks() const;
    // Rows count from 0.
    QString payPrice(int row) const;
    void setPayPrice(int row, const QString& amount);
    // Tells, below the commands, what was printed last.
    void showPrinted(const QString& words);
    void goTo(DocumentRequest::Field field, int row);
    DateField* receiptDate(int row) const { return m_rows.at(row).payPrtDate; }
    bool hasReceivedMark() const;

signals:
    void changed();
    void printingAsked(EstimatePrinting::To to);
    void opinionAsked(EstimatePrinting::To to);

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

    Money sumOf(NumberField* ClaimFields::*amount) const;
    void showSums();
    void calcPrice(int row);

    const std::unique_ptr<Ui::CsEstimatePrintPage> ui;

    std::array<ClaimFields, claimRowCount> m_rows;
    qint32 m_total = 0;
};
