#pragma once

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

    const std::unique_ptr<Ui::CsEstimateItemPage> ui;
};
