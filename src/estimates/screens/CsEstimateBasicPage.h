#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class CsEstimateBasicPage;
}

// Who it is for: customer, insurances, chart, product, and the quick printing.
class CsEstimateBasicPage : public QWidget {
    Q_OBJECT

public:
    explicit CsEstimateBasicPage(QWidget* parent = nullptr);
    ~CsEstimateBasicPage() override;

    const std::unique_ptr<Ui::CsEstimateBasicPage> ui;
};
