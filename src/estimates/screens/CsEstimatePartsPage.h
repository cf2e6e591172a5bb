#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class CsEstimatePartsPage;
}

// The complete part lines of one item.
class CsEstimatePartsPage : public QWidget {
    Q_OBJECT

public:
    explicit CsEstimatePartsPage(QWidget* parent = nullptr);
    ~CsEstimatePartsPage() override;

    const std::unique_ptr<Ui::CsEstimatePartsPage> ui;
};
