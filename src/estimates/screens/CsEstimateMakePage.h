#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class CsEstimateMakePage;
}

// The base and make element lines of one item.
class CsEstimateMakePage : public QWidget {
    Q_OBJECT

public:
    explicit CsEstimateMakePage(QWidget* parent = nullptr);
    ~CsEstimateMakePage() override;

    const std::unique_ptr<Ui::CsEstimateMakePage> ui;
};
