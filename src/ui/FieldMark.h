#pragma once

#include <QLabel>

// A word about what a field holds, within the field at its end (before the figure of an amount that is only shown): it
// tells, and asks nothing.
class FieldMark : public QLabel {
    Q_OBJECT

public:
    // Empty: takes the mark off.
    static void set(QWidget* field, const QString& words);
    static QString of(QWidget* field);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit FieldMark(QWidget* field);
    void tell(const QString& words);
    void place();
    QWidget* field() const { return parentWidget(); }
};
