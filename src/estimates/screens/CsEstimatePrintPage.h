#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class CsEstimatePrintPage;
}

// What is printed, what is claimed of whom and what was received.
class CsEstimatePrintPage : public QWidget {
    Q_OBJECT

public:
    explicit CsEstimatePrintPage(QWidget* parent = nullptr);
    ~CsEstimatePrintPage() override;

    const std::unique_ptr<Ui::CsEstimatePrintPage> ui;
};
