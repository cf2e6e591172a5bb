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
    void showPercentages(const clsCsEstimate& estimate);
    void showAmounts(const EstimateAmounts& amounts);
    void collect(clsCsEstimate& estimate) const;
    void collectPercentages(clsCsEstimate& estimate) const;

    DateField* dateField(QString clsCsEstimate::*date) const;
    // Fills the planned dates that are still empty from the casting date.
    void planFromCasting();

signals:
    void percentagesChanged();

private:
    // Every date field with the member that holds it.
    QList<std::pair<DateField*, QString clsCsEstimate::*>> dates() const;

    const std::unique_ptr<Ui::CsEstimateSchedulePage> ui;
};
