#pragma once

#include "estimates/EstimateDraft.h"
#include "estimates/screens/ElementEditor.h"

#include <QWidget>

#include <memory>

namespace Ui {
class CsEstimateItemPage;
}

// The items of the estimate, with picture and help text of the current one.
class CsEstimateItemPage : public QWidget {
    Q_OBJECT

public:
    explicit CsEstimateItemPage(QWidget* parent = nullptr);
    ~CsEstimateItemPage() override;

    void showItems(const QList<clsCsItem>& items);
    // The five rows with the shown texts of their cells.
    QList<ShownItem> items() const;

    const std::unique_ptr<Ui::CsEstimateItemPage> ui;

signals:
    void changed();
    // See `GridRowCommands::rowsMoved`.
    void rowsMoved(const QList<int>& formerRows);

private:
    bool offerChoices(int row, int column);
    void takeEdit(int row, int column, const QString& before);
    void showHelp(int row);
};
