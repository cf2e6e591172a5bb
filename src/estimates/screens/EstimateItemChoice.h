#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class EstimateItemChoice;
}

// Chooses the item whose lines a grid shows. `index` is its place in the control arrays: 2 make elements, 3 parts.
class EstimateItemChoice : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int index READ index WRITE setIndex)

public:
    explicit EstimateItemChoice(QWidget* parent = nullptr);
    ~EstimateItemChoice() override;

    int index() const { return m_index; }
    // To be set once: it names the controls.
    void setIndex(int index);

    const std::unique_ptr<Ui::EstimateItemChoice> ui;

private:
    int m_index = -1;
};
