#pragma once

#include "ui/EntryField.h"

// A date as it is spoken (R6.4.1, h170301) or written (2005/3/1, 20050301), shown as 2005/03/01. F4 or the small button
// opens the calendar. The value is "yyyy/mm/dd", or empty; one that was set keeps the time behind it.
class DateField : public EntryField {
    Q_OBJECT

public:
    explicit DateField(QWidget* parent = nullptr);

    QString complaint() const override;
    // Opens the calendar at the field's date, or today, and takes over the chosen day.
    void openCalendar();

    QSize sizeHint() const override;

protected:
    std::optional<QString> settled(const QString& typed) const override;
    QString valueOfSet(const QString& value) const override;
    void keyPressEvent(QKeyEvent* event) override;
};
