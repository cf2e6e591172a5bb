#pragma once

#include "payments/PaymentSearch.h"

#include <QWidget>

#include <memory>

namespace Ui {
class PaymentConditions;
}

class QCheckBox;

// The conditions that the searches of payments and of the statistics share: ordering party, period, status, and the
// laws whose customers are left out. A screen hides what it does not ask.
class PaymentConditions : public QWidget {
    Q_OBJECT

public:
    explicit PaymentConditions(QWidget* parent = nullptr);
    ~PaymentConditions() override;

    void setPeriodWord(const QString& word);
    void hideOrder();
    void hideStatus();
    void hideExclusions();

    // The entries of the status list.
    void fillStatuses(const QList<clsProcKbn>& statuses);
    // The boxes of the last search, which the INI file keeps for all searches together.
    void restoreExclusions();
    void keepExclusions() const;
    // The period that stands in the fields, and everything else.
    PaymentSearch search() const;
    // The shown word of the chosen status.
    QString statusWord() const;

    // Offers the ordering parties whose code begins with what is typed; the other one only where that is something.
    void chooseOrder();
    void completeOrder();

    const std::unique_ptr<Ui::PaymentConditions> ui;

private:
    QList<QCheckBox*> exclusions() const;
    QString ticks() const;

    QList<clsProcKbn> m_statuses;
};
