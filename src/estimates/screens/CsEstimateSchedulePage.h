#pragma once

#include "estimates/EstimateAmounts.h"
#include "estimates/EstimateRecords.h"

#include <QWidget>

#include <memory>

namespace Ui {
class CsEstimateSchedulePage;
}

class DateField;

// When the work is planned and done, and how the amount is computed.
class CsEstimateSchedulePage : public QWidget {
    Q_OBJECT

public:
    explicit CsEstimateSchedulePage(QWidget* parent = nullptr);
    ~CsEstimateSchedulePage() override;

    void fillLists();
    void showEstimate(const clsCsEstimate& estimate);
    void collect(clsCsEstimate& estimate) const;

    Percentages percentages() const;
    // The percentages of a new estimate.
    void resetDiscounts();
    // The tax of the settings.
    void resetTax();
    // Fills the planned dates that are still empty from the casting date.
    void planFromCasting();

    const std::unique_ptr<Ui::CsEstimateSchedulePage> ui;

signals:
    void percentagesChanged();

private:
    // Every date field with the member that holds it.
    QList<std::pair<DateField*, QString clsCsEstimate::*>> dates() const;
};
