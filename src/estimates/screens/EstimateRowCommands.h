#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class EstimateRowCommands;
}

// The commands over the rows of one grid. `index` is the place of its buttons in the control arrays: 1 items, 2 make
// elements, 3 parts.
class EstimateRowCommands : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int index READ index WRITE setIndex)

public:
    explicit EstimateRowCommands(QWidget* parent = nullptr);
    ~EstimateRowCommands() override;

    int index() const { return m_index; }
    // To be set once: it names the controls.
    void setIndex(int index);

    const std::unique_ptr<Ui::EstimateRowCommands> ui;

private:
    int m_index = -1;
};
