#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class CsEstimateSchedulePage;
}

// When the work is planned and done, and how the amount is computed.
class CsEstimateSchedulePage : public QWidget {
    Q_OBJECT

public:
    explicit CsEstimateSchedulePage(QWidget* parent = nullptr);
    ~CsEstimateSchedulePage() override;

    const std::unique_ptr<Ui::CsEstimateSchedulePage> ui;
};
