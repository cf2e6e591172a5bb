#pragma once

#include "estimates/EstimateListFilter.h"
#include "ui/SelectRows.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace Ui {
class EstimateSearchPage;
}

class QCheckBox;

// What the estimate list is searched by: person, estimate, dates, case.
class EstimateSearchPage : public QWidget {
    Q_OBJECT

public:
    explicit EstimateSearchPage(QWidget* parent = nullptr);
    ~EstimateSearchPage() override;

    void fillLists();
    EstimateListFilter filter() const;
    void showNames(const QString& name1, const QString& name2);
    void tickAllStatuses();
    // Empties every condition, and the next one is typed into the first field.
    void clear();

    // Every field whose Return searches: not those that open a selection list, and not the first date of a period,
    // which the second one follows.
    QList<QWidget*> fields() const;
    // The focus goes to the field that had it last, at first to the reading.
    void returnToField();
    bool asksForPerson(const QWidget* field) const;

    // The selection lists beside the fields; a cancelled one leaves them as they are.
    void chooseCustomer();
    void choosePayer();
    void chooseOrder();
    void chooseProduct();

    const std::unique_ptr<Ui::EstimateSearchPage> ui;

signals:
    void searchAsked();

private:
    void fillStatuses();
    QList<QCheckBox*> statuses() const;
};
