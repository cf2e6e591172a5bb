#pragma once

#include "estimates/EstimateDraft.h"
#include "master/MasterRecords.h"
#include "ui/NewNames.h"

#include <QWidget>

#include <memory>

namespace Ui {
class CsEstimateBasicPage;
}

class DateField;
class ClaimGrid;
class PersonFields;

// Who it is for: customer, insurances, chart, product, and the quick printing.
class CsEstimateBasicPage : public QWidget {
    Q_OBJECT

public:
    explicit CsEstimateBasicPage(QWidget* parent = nullptr);
    ~CsEstimateBasicPage() override;

    // Fills the lists from the managers; once, before anything is shown.
    void fillLists();
    // Writes what is typed into the estimate.
    void collect(EstimateDraft& draft) const;
    // The customer part alone: persons, insurances and chart.
    void showCustomer(const clsCustomer& customer, const clsChart& chart, const QString& orderCd,
                      const QList<ClaimRow>& claims);
    void showProduct(const EstimateDraft& draft);
    QWidget* firstField() const;

    // The rows of the insurance grid, empty ones included; without dates and amounts.
    QList<ClaimRow> claimRows() const;
    // Both names with an ideographic blank between them.
    QString customerName() const;
    // 小人, 中人, 大人 or empty, as the customer carries it.
    QString ageKbn() const { return m_customer.PriceType; }
    // The affected side as it is shown.
    QString side() const;
    // The advance payment; empty when there is none, or no claim that it could belong to.
    QString partialPayment() const;
    // The dates that stand here a second time.
    struct QuickDates {
        DateField *pickPtn, *delvFin, *payPrt;
    };
    QuickDates quickDates() const;

signals:
    void nameChanged();
    void receiptAsked();
    void opinionAsked();
    void insurancesChanged();
    // The operator took the advance payment back.
    void partialPaymentEmptied();
    // A customer was chosen whose numbers the header shows.
    void customerChosen(const clsCustomer& customer);
    // An estimate was chosen in the list of the person's estimates.
    void estimateChosen(const QString& EstId, qint16 mode);
    // A master estimate is to be taken, by its code or out of the list.
    void masterChosen(const clsMstEstimate& master);

private:
    void connectPerson();
    void connectChart();
    void connectProduct();
    void takeProductCode();
    void takeEraDate();
    void takePartialPayment();
    void chooseCustomer();
    void chooseChart();
    void chooseOrder();
    void takeOrderCode();
    void fillDoctors();
    void showChart(const clsChart& chart, const QString& orderCd);
    bool hasClaims() const;

    const std::unique_ptr<Ui::CsEstimateBasicPage> ui;
    NewNames m_newNames;
    PersonFields* m_person;
    ClaimGrid* m_claimGrid;
    clsCustomer m_customer; // the record that the fields came from
    QString m_orderCd;      // as it was shown
    clsChart m_chart;
    QString m_category, m_frame; // as they were shown
    bool m_showing = false;      // while a record is put into the fields
};
